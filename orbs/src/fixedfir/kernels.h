// Sums of products of 16-bit taps and samples, in 32 bits, which wrap: in whatever order they are added up, they have
// the same bits. Two products at a time, in two ways: many outputs at once, lanes being outputs, and few, lanes being
// taps.
#pragma once

#include "filters/kernels.h"
#include "fixedfir/scaling.h"
#include "vectors/complex.h"

#include <cstring>

namespace orbs {

// ---- Many outputs ----
//
// Two neighbouring 16-bit results, of an even and an odd output or of the parts of a complex one, are sums over the
// same pairs of 16-bit numbers: neighbouring samples, or the parts of one. So every pair meets two words of taps:
//   real     (h[2k], h[2k + 1]) for even and (h[2k - 1], h[2k]) for odd outputs, h being the taps from the oldest
//            sample's on. Their number is odd, a zero in front may make it so: then no word reaches a sample behind the
//            newest of the odd output.
//   complex  (re, -im) and (im, re)

// Rows of taps in a state. Real ones have a zero on either side.
template <class T>
struct RowWords {
    static constexpr std::size_t planes = 1;
    const Orb16s *even, *odd;
    std::size_t count;
    Orb32s of(std::size_t k, std::size_t part, std::size_t) const {
        return elementAt(reinterpret_cast<const Orb32s*>((part == 0 ? even : odd) + 2 * k));
    }
};

// `vectors` vectors of neighbouring results, the last of them from number `last` on. Taps of 32 bits come in two planes
// of 16, whose sums meet only at the end.
template <std::size_t vectors, class D, class Words>
HWY_INLINE void filterVectors(D d, const Words& taps, const Orb16s* x, Orb16s* y, std::size_t last,
                              SumScaling scaling) {
    const hn::RepartitionToWide<D> sum;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto first = [=](std::size_t v) { return v + 1 < vectors ? v * lanes : last; };
    hn::Vec<decltype(sum)> sums[2][Words::planes][vectors];
#pragma GCC unroll 4
    for (std::size_t p = 0; p < Words::planes; ++p) {
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) sums[0][p][v] = sums[1][p][v] = hn::Zero(sum);
    }

#pragma GCC unroll 2
    for (std::size_t k = 0; k < taps.count; ++k, x += 2) {
#pragma GCC unroll 2
        for (std::size_t p = 0; p < Words::planes; ++p) {
            const auto even = hn::BitCast(d, hn::Set(sum, taps.of(k, 0, p)));
            const auto odd = hn::BitCast(d, hn::Set(sum, taps.of(k, 1, p)));
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) {
                const auto samples = hn::LoadU(d, x + first(v));
                sums[0][p][v] = hn::Add(sums[0][p][v], sumOfProducts(samples, even));
                sums[1][p][v] = hn::Add(sums[1][p][v], sumOfProducts(samples, odd));
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

// pDst[n] for n = 0 to count - 1, pSrc being the oldest sample that the first word of taps meets for n = 0. What is
// left over from whole vectors goes through one that overlaps the one before it, and gives the same once more.
template <class T, std::size_t most, class Words>
void filterSamples(const Words& taps, const T* pSrc, T* pDst, std::size_t count, SumScaling scaling) {
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
        filterVectors<vectors>(d, taps, x + n, y + n, (vectors - 1) * lanes, scaling);
    for (; n < end; n += lanes) {
        n = std::min(n, end - lanes);
        filterVectors<1>(d, taps, x + n, y + n, 0, scaling);
    }
}
template <class T, class Words>
void filterSamples(const Words& taps, const T* pSrc, T* pDst, std::size_t count, SumScaling scaling) {
    filterSamples<T, hn::MaxLanes(hn::ScalableTag<Orb16s>())>(taps, pSrc, pDst, count, scaling);
}

// ---- Few outputs ----

// The four lanes that are left where the halves of a vector are added.
template <class D, class V>
HWY_INLINE hn::Vec128<Orb32s> folded(D d, V v) {
    if constexpr (hn::MaxLanes(d) == 4) {
        return v;
    } else {
        const hn::Half<D> half;
        return folded(half, hn::Add(hn::LowerHalf(half, v), hn::UpperHalf(half, v)));
    }
}

// `count` sums, up to four, in as many lanes: of products of rows of taps and runs of `len` samples, a multiple of 8.
// Fewer rows than sums are met by each run in turn; of fewer runs each meets some rows in a row.
template <std::size_t count, std::size_t rows, std::size_t runs>
HWY_INLINE hn::Vec128<Orb32s> dotProducts(const Orb16s* const (&h)[rows], const Orb16s* const (&x)[runs],
                                          std::size_t len) {
    const hn::Full128<Orb32s> d;
    hn::Vec128<Orb32s> sums[4] = {hn::Zero(d), hn::Zero(d), hn::Zero(d), hn::Zero(d)};
    std::size_t n = 0;
    const auto addUp = [&](auto narrow) HWY_ATTR {
        const hn::RepartitionToWide<decltype(narrow)> wide;
        if (n + hn::MaxLanes(narrow) > len) return;
        hn::Vec<decltype(wide)> wideSums[count];
#pragma GCC unroll 4
        for (std::size_t k = 0; k < count; ++k) wideSums[k] = hn::Zero(wide);
        for (; n + hn::MaxLanes(narrow) <= len; n += hn::MaxLanes(narrow)) {
#pragma GCC unroll 4
            for (std::size_t k = 0; k < count; ++k) {
                const auto taps = hn::LoadU(narrow, h[k % rows] + n);
                const auto samples = hn::LoadU(narrow, x[k / (count / runs)] + n);
                wideSums[k] = hn::Add(wideSums[k], sumOfProducts(taps, samples));
            }
        }
#pragma GCC unroll 4
        for (std::size_t k = 0; k < count; ++k) sums[k] = hn::Add(sums[k], folded(wide, wideSums[k]));
    };
    if constexpr (hn::MaxLanes(hn::ScalableTag<Orb16s>()) > 16) addUp(hn::ScalableTag<Orb16s>());
    if constexpr (hn::MaxLanes(hn::ScalableTag<Orb16s>()) > 8) addUp(hn::CappedTag<Orb16s, 16>());
    addUp(hn::Full128<Orb16s>());
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
HWY_INLINE void storeResults(hn::Vec128<Orb32s> sums, SumScaling scaling, Orb16s* y) {
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
