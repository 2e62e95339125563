// Sums of 32-bit taps times 16-bit samples, as callers without a state give them; wrapped to 32 bits.
#pragma once

#include "fixedfir/kernels.h"

namespace orbs {

// One sum, of the parts that an output has.
template <std::size_t parts>
struct PlainSum {
    Orb32u part[parts] = {};

    void add(Orb32s tap, Orb16s x) { part[0] += product(tap, x); }
    void add(Orb32sc tap, Orb16sc x) {
        part[0] += product(tap.re, x.re) - product(tap.im, x.im);
        part[1] += product(tap.re, x.im) + product(tap.im, x.re);
    }
    void store(const SumScaling& scaling, Orb16s* pDst) const {
        for (std::size_t p = 0; p < parts; ++p) pDst[p] = scaling.of(part[p]);
    }

private:
    static Orb32u product(Orb32s tap, Orb32s x) { return static_cast<Orb32u>(tap) * static_cast<Orb32u>(x); }
};

// The taps of a caller, in natural order, as words for filterSamples. A tap is 2^16 times a high number of 16 bits plus
// a low one, which has a sign: two planes. A last real tap without a neighbour stands before a 0, which meets a sample
// behind the newest.
template <class Tap, class T>
struct NaturalWords {
    static constexpr std::size_t planes = 2;
    const Tap* pTaps;
    std::size_t tapsLen, count;

    NaturalWords(const Tap* taps, std::size_t len)
        : pTaps(taps), tapsLen(len), count(isComplex<T> ? len : (len + 1) / 2) {}

    Orb32s of(std::size_t k, std::size_t part, std::size_t plane) const {
        if constexpr (isComplex<T>) {
            const Tap tap = pTaps[tapsLen - 1 - k];
            const auto re = static_cast<Orb32u>(tap.re), im = static_cast<Orb32u>(tap.im);
            return part == 0 ? joined(re, 0 - im, plane) : joined(im, re, plane);
        } else {
            const auto* const last = pTaps + (tapsLen - 1 - 2 * k);
            return joined(static_cast<Orb32u>(last[0]), 2 * k + 1 < tapsLen ? static_cast<Orb32u>(last[-1]) : 0, plane);
        }
    }

private:
    static Orb32s joined(Orb32u first, Orb32u second, std::size_t plane) {
        if (plane == 0) return static_cast<Orb32s>((first & 0xffff) | second << 16);
        return static_cast<Orb32s>((first + 0x8000) >> 16 | ((second + 0x8000) & 0xffff0000));
    }
};

} // namespace orbs
