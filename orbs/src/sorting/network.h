// Sorting networks: up to 16 vectors of keys, by their minima and maxima.
#pragma once

#include "vectors/exchanges.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orbs {

inline constexpr std::size_t networkRows = 16;

// Vectors that go through a network have 16 lanes at most.
template <class T>
using NetworkTag = hn::CappedTag<T, 16>;
template <class T>
inline constexpr std::size_t networkKeys = hn::MaxLanes(NetworkTag<T>()) * networkRows;

// For 16 keys: 60 exchanges, the fewest known.
inline constexpr std::array<Exchange, 60> exchangesOf16 = {
    {{0, 13},  {1, 12},  {2, 15},  {3, 14},  {4, 8},   {5, 6},   {7, 11}, {9, 10},  {0, 5},   {1, 7},
     {2, 9},   {3, 4},   {6, 13},  {8, 14},  {10, 15}, {11, 12}, {0, 1},  {2, 3},   {4, 5},   {6, 8},
     {7, 9},   {10, 11}, {12, 13}, {14, 15}, {0, 2},   {1, 3},   {4, 10}, {5, 11},  {6, 7},   {8, 9},
     {12, 14}, {13, 15}, {1, 2},   {3, 12},  {4, 6},   {5, 7},   {8, 10}, {9, 11},  {13, 14}, {1, 4},
     {2, 6},   {5, 8},   {7, 10},  {9, 13},  {11, 14}, {2, 4},   {3, 6},  {9, 12},  {11, 13}, {3, 5},
     {6, 8},   {7, 9},   {10, 12}, {3, 4},   {5, 6},   {7, 8},   {9, 10}, {11, 12}, {6, 7},   {8, 9}}};

// The lanes of each `group` in reverse order.
template <std::size_t group, class D, class V>
HWY_INLINE V reverseGroups(D d, V v) {
    if constexpr (group == hn::MaxLanes(D())) {
        return hn::Reverse(d, v);
    } else if constexpr (group == 2) {
        return hn::Reverse2(d, v);
    } else if constexpr (group == 4) {
        return hn::Reverse4(d, v);
    } else {
        return hn::Reverse8(d, v);
    }
}

// Lane n ^ distance in lane n.
template <std::size_t distance, class D, class V>
HWY_INLINE V lanesAcross(D d, V v) {
    constexpr std::size_t bytes = distance * sizeof(hn::TFromD<D>);
    const hn::Repartition<Orb32u, D> words;
    if constexpr (distance == 1) {
        return hn::Reverse2(d, v);
    } else if constexpr (bytes == 4) {
        return hn::BitCast(d, hn::Shuffle2301(hn::BitCast(words, v)));
    } else if constexpr (bytes == 8) {
        return hn::BitCast(d, hn::Shuffle1032(hn::BitCast(words, v)));
    } else if constexpr (2 * distance == hn::MaxLanes(D())) {
        return hn::ConcatLowerUpper(d, v, v);
    } else {
        return hn::SwapAdjacentBlocks(v);
    }
}

// The lanes whose place has the bit `distance`.
template <std::size_t distance, class D>
HWY_INLINE hn::Mask<D> upperLanes(D d) {
    if constexpr (distance == 1) {
        return hn::MaskFromVec(hn::OddEven(hn::Set(d, -1), hn::Zero(d)));
    } else {
        return hn::TestBit(hn::Iota(d, 0), hn::Set(d, static_cast<hn::TFromD<D>>(distance)));
    }
}

// Sorts each bitonic run of 2 * distance lanes in every row.
template <std::size_t distance, class D, class V>
HWY_INLINE void sortLanes(D d, V* rows) {
    if constexpr (distance > 0) {
        const auto upper = upperLanes<distance>(d);
#pragma GCC unroll 16
        for (std::size_t r = 0; r < networkRows; ++r) {
            const V other = lanesAcross<distance>(d, rows[r]);
            rows[r] = hn::IfThenElse(upper, hn::Max(rows[r], other), hn::Min(rows[r], other));
        }
        sortLanes<distance / 2>(d, rows);
    }
}

// Each half of a group of lanes holds a sorted run, row after row; merges the two. A pair of runs is bitonic with the
// second one backwards: so is each half of the rows behind the exchange, and in the end each row.
template <std::size_t group, class D, class V>
HWY_INLINE void mergeGroups(D d, V* rows) {
    if constexpr (group <= hn::MaxLanes(D())) {
#pragma GCC unroll 4
        for (std::size_t run = networkRows; run > 1; run /= 2) {
#pragma GCC unroll 16
            for (std::size_t first = 0; first < networkRows; first += run) {
#pragma GCC unroll 8
                for (std::size_t r = 0; r < run / 2; ++r) {
                    V &low = rows[first + r], &high = rows[first + run - 1 - r];
                    high = reverseGroups<group>(d, high);
                    exchange(low, high);
                }
            }
        }
        const auto upper = upperLanes<group / 2>(d);
#pragma GCC unroll 16
        for (std::size_t r = 0; r < networkRows; ++r) {
            const V other = reverseGroups<group>(d, rows[r]);
            rows[r] = hn::IfThenElse(upper, hn::Max(rows[r], other), hn::Min(rows[r], other));
        }
        sortLanes<group / 4>(d, rows);
        mergeGroups<2 * group>(d, rows);
    }
}

// Sorts the first `count` of as many keys as 16 vectors of D hold.
template <class D, class T>
HWY_NOINLINE void sortByNetwork(D d, T* keys, std::size_t count) {
    constexpr std::size_t lanes = hn::MaxLanes(d);
    alignas(64) T padded[networkRows * lanes];
    using V = hn::Vec<D>;
    const V last = hn::Set(d, std::numeric_limits<T>::max());
    for (std::size_t n = count / lanes * lanes; n < networkRows * lanes; n += lanes) hn::Store(last, d, padded + n);
    std::memcpy(padded, keys, count * sizeof(T));
    V rows[networkRows];
#pragma GCC unroll 16
    for (std::size_t r = 0; r < networkRows; ++r) rows[r] = hn::Load(d, padded + r * lanes);
    exchangeAll<exchangesOf16>(rows);
    mergeGroups<2>(d, rows);
#pragma GCC unroll 16
    for (std::size_t r = 0; r < networkRows; ++r) hn::Store(rows[r], d, padded + r * lanes);
    std::memcpy(keys, padded, count * sizeof(T));
}

// Sorts up to networkKeys<T>.
template <class T>
void sortFew(T* keys, std::size_t count) {
    const hn::CappedTag<T, 16 / sizeof(T)> least;
    const hn::CappedTag<T, std::min<std::size_t>(16, 32 / sizeof(T))> middle;
    const NetworkTag<T> most;
    if (count <= networkRows * hn::MaxLanes(least)) {
        sortByNetwork(least, keys, count);
    } else if (count <= networkRows * hn::MaxLanes(middle)) {
        sortByNetwork(middle, keys, count);
    } else {
        sortByNetwork(most, keys, count);
    }
}

} // namespace orbs
