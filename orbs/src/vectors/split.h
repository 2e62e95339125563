// The lanes of a vector moved to both its ends by a condition. Instructions for that are there for lanes of 32 bits
// with AVX-512; else tables tell a permutation for each set of lanes.
#pragma once

#include "vectors/loops.h"

#include <array>
#include <bit>

namespace orbs {

// For each set of lanes: those that are not in it, then those that are.
template <std::size_t lanes>
inline constexpr auto splitOrders = [] {
    std::array<std::array<Orb8u, lanes>, std::size_t{1} << lanes> orders{};
    for (std::size_t set = 0; set < orders.size(); ++set) {
        std::size_t to = 0;
        for (const bool wanted : {false, true})
            for (std::size_t lane = 0; lane < lanes; ++lane)
                if ((set >> lane & 1) == wanted) orders[set][to++] = static_cast<Orb8u>(lane);
    }
    return orders;
}();
// The same of lanes of `size` parts each.
template <std::size_t lanes, std::size_t size>
inline constexpr auto splitPlaces = [] {
    std::array<std::array<Orb8u, lanes * size>, std::size_t{1} << lanes> places{};
    for (std::size_t set = 0; set < places.size(); ++set)
        for (std::size_t n = 0; n < lanes * size; ++n)
            places[set][n] = static_cast<Orb8u>(splitOrders<lanes>[set][n / size] * size + n % size);
    return places;
}();

// As many as those instructions and tables move at once.
template <class T>
using SplitTag = hn::CappedTag<T, sizeof(T) == 2 ? 8 : 16>;

// A set of lanes as bits, and their number.
template <class D>
HWY_INLINE Orb32u laneSet(D d, hn::Mask<D> mask) {
    alignas(8) Orb8u bytes[8] = {};
    hn::StoreMaskBits(d, mask, bytes);
    return bytes[0] | Orb32u{bytes[1]} << 8;
}
HWY_INLINE std::size_t countLanes(Orb32u set) {
#if HWY_TARGET <= HWY_AVX2
    return static_cast<std::size_t>(std::popcount(set));
#else // without an instruction
    static constexpr auto counts = [] {
        std::array<Orb8u, 256> table{};
        for (std::size_t n = 0; n < 256; ++n) table[n] = static_cast<Orb8u>(std::popcount(n));
        return table;
    }();
    return counts[set];
#endif
}

template <class T>
HWY_INLINE hn::Vec128<T> splitByTable(hn::Vec128<T> v, Orb32u set) {
    const hn::Full128<T> d;
    const hn::Full128<Orb8u> bytes;
    const auto& places = splitPlaces<16 / sizeof(T), sizeof(T)>[set];
    return hn::BitCast(d, hn::TableLookupBytes(hn::BitCast(bytes, v), hn::LoadU(bytes, places.data())));
}
#if HWY_TARGET <= HWY_AVX2
template <class T>
HWY_INLINE hn::Vec256<T> splitByTable(hn::Vec256<T> v, Orb32u set) {
    const auto& places = splitPlaces<32 / sizeof(T), sizeof(T) / 4>[set];
    const __m256i words = _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(places.data())));
    return hn::Vec256<T>{_mm256_permutevar8x32_epi32(v.raw, words)};
}
#endif
#if HWY_TARGET <= HWY_AVX3
template <class T>
HWY_INLINE hn::Vec512<T> splitByTable(hn::Vec512<T> v, Orb32u set) {
    static_assert(sizeof(T) == 8);
    const auto& places = splitPlaces<8, 1>[set];
    const __m512i lanes = _mm512_cvtepu8_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(places.data())));
    return hn::Vec512<T>{_mm512_permutexvar_epi64(lanes, v.raw)};
}
#endif

// Stores the lanes of a vector for which the mask is false from `low` on, and the others so that they end before
// `high`. A whole vector from `low` on and one that ends before `high` may be overwritten. Returns how many went to
// `high`.
template <class D, class V, class T = hn::TFromD<D>>
HWY_INLINE std::size_t storeSplit(D d, V v, hn::Mask<D> mask, T* low, T* high) {
    const Orb32u set = laneSet(d, mask);
    const std::size_t count = countLanes(set);
    if constexpr (HWY_TARGET <= HWY_AVX3 && sizeof(T) == 4) {
        hn::StoreU(hn::Compress(v, hn::Not(mask)), d, low);
        hn::BlendedStore(hn::Compress(v, mask), hn::FirstN(d, count), d, high - count);
    } else {
        const V split = splitByTable(v, set);
        hn::StoreU(split, d, low);
        hn::StoreU(split, d, high - hn::MaxLanes(d));
    }
    return count;
}

} // namespace orbs
