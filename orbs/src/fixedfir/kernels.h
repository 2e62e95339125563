// Sums of products of 16-bit taps and samples, in 32 bits, which wrap: in whatever order they are added up, they have the
// same bits. Two products at a time, in two ways: many outputs at once, lanes being outputs, and few, lanes being taps.
#pragma once

#include "filters/kernels.h"
#include "fixedfir/scaling.h"
#include "vectors/complex.h"

#include <cstring>

namespace orbs {

// ---- Many outputs ----
//
// A word is two numbers of 16 bits: of real taps two neighbours, which two neighbouring samples meet; of a complex tap
// (re, -im), which gives a real part, and (im, re), which gives an imaginary one. In the 16-bit numbers of the samples,
// tap words follow each other in steps of two either way, and two sums of every step make neighbouring 16-bit results:
// of an even and an odd output, or of the parts of one.

// A row of taps in a state, the oldest sample's first; complex taps have a second row, `parts` numbers further on.
template <class T>
struct RowWords {
    static constexpr std::size_t planes = 1;
    const Orb16s* row;
    std::size_t count, parts;
    Orb32s of(std::size_t k, std::size_t part, std::size_t) const {
        return elementAt(reinterpret_cast<const Orb32s*>(row + part * parts + 2 * k));
    }
};

// `vectors` vectors of neighbouring results, the last of them from number `last` on. Taps of 32 bits come in two planes
// of 16, whose sums meet only at the end.
template <class T, std::size_t vectors, class D, class Words>
HWY_INLINE void filterVectors(D d, const Words& taps, const Orb16s* x, Orb16s* y, std::size_t last,
                              const SumScaling& scaling) {
    const hn::RepartitionToWide<D> sum;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto first = [=](std::size_t v) { return v + 1 < vectors ? v * lanes : last; };
    hn::Vec<decltype(sum)> sums[2][Words::planes][vectors];
#pragma GCC unroll 4
    for (std::size_t p = 0; p < Words::planes; ++p) {
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) sums[0][p][v] = sums[1][p][v] = hn::Zero(sum);
    }

    for (std::size_t k = 0; k < taps.count; ++k, x += 2) {
#pragma GCC unroll 2
        for (std::size_t p = 0; p < Words::planes; ++p) {
            const auto even = hn::BitCast(d, hn::Set(sum, taps.of(k, 0, p)));
            const auto odd = isComplex<T> ? hn::BitCast(d, hn::Set(sum, taps.of(k, 1, p))) : even;
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) {
                const auto samples = hn::LoadU(d, x + first(v));
                const auto next = isComplex<T> ? samples : hn::LoadU(d, x + first(v) + 1);
                sums[0][p][v] = hn::Add(sums[0][p][v], sumOfProducts(samples, even));
                sums[1][p][v] = hn::Add(sums[1][p][v], sumOfProducts(next, odd));
            }
        }
    }

#pragma GCC unroll 4
    for (std::size_t v = 0; v < vectors; ++v) {
        if constexpr (Words::planes == 2) {
            sums[0][0][v] = hn::Add(sums[0][0][v], hn::ShiftLeft<16>(sums[0][1][v]));
            sums[1][0][v] = hn::Add(sums[1][0][v], hn::ShiftLeft<16>(sums[1][1][v]));
        }
        hn::StoreU(scaling.of(d, sums[0][0][v], sums[1][0][v]), d, y + first(v));
    }
}

// As many outputs as have at least so many 16-bit parts.
constexpr std::size_t leastParts = 8;

// pDst[n] for n = 0 to count - 1, pSrc being the oldest sample that the first word of taps meets for n = 0. What is left
// over from whole vectors goes through one that overlaps the one before it, and gives the same once more.
template <class T, std::size_t most, class Words>
void filterSamples(const Words& taps, const T* pSrc, T* pDst, std::size_t count, const SumScaling& scaling) {
    const hn::CappedTag<Orb16s, most> d;
    constexpr std::size_t lanes = hn::MaxLanes(d), vectors = (HWY_ARCH_X86_32 ? 2 : 4) / Words::planes;
    const std::size_t end = count * partCount<T>;
    if constexpr (lanes > leastParts) {
        if (end < lanes) return filterSamples<T, lanes / 2>(taps, pSrc, pDst, count, scaling);
    }
    const Orb16s* const x = asParts(pSrc);
    Orb16s* const y = asParts(pDst);
    std::size_t n = 0;
    for (; n + vectors * lanes <= end; n += vectors * lanes)
        filterVectors<T, vectors>(d, taps, x + n, y + n, (vectors - 1) * lanes, scaling);
    for (; n < end; n += lanes) {
        n = std::min(n, end - lanes);
        filterVectors<T, 1>(d, taps, x + n, y + n, 0, scaling);
    }
}
template <class T, class Words>
void filterSamples(const Words& taps, const T* pSrc, T* pDst, std::size_t count, const SumScaling& scaling) {
    filterSamples<T, hn::MaxLanes(hn::ScalableTag<Orb16s>())>(taps, pSrc, pDst, count, scaling);
}

// ---- Few outputs ----

// Sums of h[k][n] * x[k][n] over n < len, a multiple of 8: of up to four pairs of vectors, in as many lanes.
template <std::size_t count>
HWY_INLINE hn::Vec128<Orb32s> dotProducts(const Orb16s* const (&h)[count], const Orb16s* const (&x)[count],
                                          std::size_t len) {
    const hn::Full128<Orb32s> d;
    const hn::Full128<Orb16s> eight;
    const hn::CappedTag<Orb16s, 16> more;
    const hn::RepartitionToWide<decltype(more)> wide;
    hn::Vec<decltype(wide)> longSums[count];
    hn::Vec128<Orb32s> sums[4] = {hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d)};
#pragma GCC unroll 4
    for (std::size_t k = 0; k < count; ++k) longSums[k] = hn::Zero(wide);
    std::size_t n = 0;
    for (; n + hn::MaxLanes(more) <= len; n += hn::MaxLanes(more)) {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < count; ++k)
            longSums[k] = hn::Add(longSums[k], sumOfProducts(hn::LoadU(more, h[k] + n), hn::LoadU(more, x[k] + n)));
    }
#pragma GCC unroll 4
    for (std::size_t k = 0; k < count; ++k) {
        if constexpr (hn::MaxLanes(wide) > 4) {
            sums[k] = hn::Add(hn::LowerHalf(d, longSums[k]), hn::UpperHalf(d, longSums[k]));
        } else {
            sums[k] = longSums[k];
        }
    }
    if (n < len) {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < count; ++k)
            sums[k] = hn::Add(sums[k], sumOfProducts(hn::LoadU(eight, h[k] + n), hn::LoadU(eight, x[k] + n)));
    }
    // Four times four lanes, turned and added.
    const hn::Full128<std::int64_t> pairs;
    const auto added = [=](hn::Vec128<Orb32s> a, hn::Vec128<Orb32s> b) HWY_ATTR {
        return hn::BitCast(pairs, hn::Add(hn::InterleaveLower(d, a, b), hn::InterleaveUpper(d, a, b)));
    };
    const auto ab = added(sums[0], sums[1]), cd = added(sums[2], sums[3]);
    return hn::Add(hn::BitCast(d, hn::InterleaveLower(pairs, ab, cd)),
                   hn::BitCast(d, hn::InterleaveUpper(pairs, ab, cd)));
}

// The results of `count` sums, scaled, in the low lanes, stored.
template <std::size_t count>
HWY_INLINE void storeResults(hn::Vec128<Orb32s> sums, const SumScaling& scaling, Orb16s* y) {
    const hn::Full128<Orb16s> d;
    alignas(16) Orb16s results[8];
    const auto scaled = scaling.inHalves(d, sums, sums);
    if constexpr (count == 4) {
        hn::StoreU(hn::LowerHalf(scaled), hn::Half<decltype(d)>(), y);
    } else {
        hn::Store(scaled, d, results);
        std::memcpy(y, results, count * sizeof *y);
    }
}

} // namespace orbs
