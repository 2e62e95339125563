// Neighbouring elements, two and two: a vector of the first ones and a vector of the second ones.
#pragma once

#include "vectors/planes.h"

namespace orbs {

template <class V>
struct Pairs {
    V first, second;
};

// Block by block of 16 bytes: what a holds, then what b holds, in each.
template <class D, class V>
HWY_INLINE Pairs<V> pairsInBlocks(D d, V a, V b) {
    constexpr int bits = 8 * sizeof(hn::TFromD<D>);
    if constexpr (bits == 64) {
        return {hn::InterleaveLower(d, a, b), hn::InterleaveUpper(d, a, b)};
    } else if constexpr (bits == 32) {
        const hn::Rebind<Orb32f, D> floats;
        const auto [first, second] = partsInBlocks(floats, hn::BitCast(floats, a), hn::BitCast(floats, b));
        return {hn::BitCast(d, first), hn::BitCast(d, second)};
    } else {
        const hn::RepartitionToWide<D> wide;
        const auto x = hn::BitCast(wide, a), y = hn::BitCast(wide, b);
        const auto first = [](auto both) __attribute__((always_inline)) {
            return hn::ShiftRight<bits>(hn::ShiftLeft<bits>(both));
        };
        return {packPair(d, first(x), first(y)), packPair(d, hn::ShiftRight<bits>(x), hn::ShiftRight<bits>(y))};
    }
}

// As many pairs as d has lanes, 16 bytes of them at least.
template <class D, class T = hn::TFromD<D>>
HWY_INLINE Pairs<hn::Vec<D>> loadPairs(D d, const T* p) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto a = hn::LoadU(d, p), b = hn::LoadU(d, p + lanes);
    if constexpr (lanes * sizeof(T) == 64 && sizeof(T) >= 4) {
        return {hn::ConcatEven(d, b, a), hn::ConcatOdd(d, b, a)};
    } else {
        const auto [first, second] = pairsInBlocks(d, a, b);
        return {outOfBlocks(d, first), outOfBlocks(d, second)};
    }
}

// The shortest vectors.
template <class T>
constexpr std::size_t fewLanes = 16 / sizeof(T);
template <class T>
using FewTag = hn::CappedTag<T, fewLanes<T>>;

// Calls body(d, n) so that vectors from n on cover all `count` pairs; the last one may overlap the one before it, as
// sources and results lie apart. False if there are too few for a vector.
template <class T, class Body>
HWY_INLINE bool coverPairs(std::size_t count, Body body) {
    constexpr std::size_t lanes = fewLanes<T>;
    if (count < lanes) return false;
    std::size_t n = forWholeVectorsByFour<T>(0, count, body);
    for (; n + lanes <= count; n += lanes) body(FewTag<T>(), n);
    if (n != count) body(FewTag<T>(), count - lanes);
    return true;
}

} // namespace orbs
