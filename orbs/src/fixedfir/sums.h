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

// A tap of 32 bits is 2^16 times a high number of 16 bits plus a low one, which has a sign: two planes.
inline Orb16s planeOf(Orb32u tap, std::size_t plane) {
    return static_cast<Orb16s>(plane == 0 ? tap : (tap + 0x8000) >> 16);
}

// The taps of a caller, in natural order, as words for filterSamples: each when it is needed.
template <class Tap, class T>
struct NaturalWords {
    static constexpr std::size_t planes = 2;
    const Tap* pTaps;
    std::size_t tapsLen, count;

    NaturalWords(const Tap* taps, std::size_t len)
        : pTaps(taps), tapsLen(len), count(isComplex<T> ? len : ((len | 1) + 1) / 2) {}

    Orb32s of(std::size_t k, std::size_t part, std::size_t plane) const {
        if constexpr (isComplex<T>) {
            const Tap tap = pTaps[tapsLen - 1 - k];
            const auto re = static_cast<Orb32u>(tap.re), im = static_cast<Orb32u>(tap.im);
            return part == 0 ? joined(re, 0 - im, plane) : joined(im, re, plane);
        } else {
            // Below 0, and so beyond the last tap, are the zeros.
            const std::size_t youngest = tapsLen - 1 + (tapsLen + 1) % 2 + part - 2 * k;
            return joined(tapAt(youngest), tapAt(youngest - 1), plane);
        }
    }

private:
    Orb32u tapAt(std::size_t n) const { return n < tapsLen ? static_cast<Orb32u>(pTaps[n]) : 0; }
    static Orb32s joined(Orb32u first, Orb32u second, std::size_t plane) {
        const auto low = static_cast<Orb16u>(planeOf(first, plane)), high = static_cast<Orb16u>(planeOf(second, plane));
        return static_cast<Orb32s>(low | Orb32u{high} << 16);
    }
};

// All of them made once, up to so many.
template <class Tap, class T>
struct MadeWords {
    static constexpr std::size_t planes = 2, mostTaps = 512;
    std::size_t count;
    Orb32s words[planes][2][isComplex<T> ? mostTaps : mostTaps / 2 + 1];

    explicit MadeWords(const NaturalWords<Tap, T>& natural) : count(natural.count) {
        for (std::size_t p = 0; p < planes; ++p)
            for (std::size_t part = 0; part < 2; ++part)
                for (std::size_t k = 0; k < count; ++k) words[p][part][k] = natural.of(k, part, p);
    }
    Orb32s of(std::size_t k, std::size_t part, std::size_t plane) const { return words[plane][part][k]; }
};

} // namespace orbs
