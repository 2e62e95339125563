// Loops over vectors, written once for every tier.
#pragma once

#include "orbdefs.h"

#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>
#include <type_traits>

#ifndef __clang__
// Loads and stores of a single lane take any address, like those of whole vectors, but g++'s definitions hide it.
#    define ORBS_ANY_ADDRESS __attribute__((no_sanitize("alignment")))
ORBS_ANY_ADDRESS __m128 _mm_load_ss(const float*);
ORBS_ANY_ADDRESS __m128d _mm_load_sd(const double*);
ORBS_ANY_ADDRESS void _mm_store_ss(float*, __m128);
ORBS_ANY_ADDRESS void _mm_store_sd(double*, __m128d);
#    undef ORBS_ANY_ADDRESS
#endif

namespace orbs {

namespace hn = hwy::HWY_NAMESPACE;

// Vectors of at most 32 bytes. What is left behind the last full vector goes through these before it goes element by
// element, so that a short call does not take more steps where full ones have 64 bytes.
template <class T>
using RestTag = hn::CappedTag<T, 32 / sizeof(T)>;

// Calls body(d, n) from n on for the full vectors of T up to `len`, then for those of 32 bytes. Returns where it ended.
template <class T, class Body>
HWY_INLINE std::size_t forWholeVectors(std::size_t n, std::size_t len, Body body) {
    const auto each = [&](auto d) HWY_ATTR {
        for (; n + hn::MaxLanes(d) <= len; n += hn::MaxLanes(d)) body(d, n);
    };
    each(hn::ScalableTag<T>());
    if constexpr (!std::is_same_v<RestTag<T>, hn::ScalableTag<T>>) each(RestTag<T>());
    return n;
}
// The same, four full vectors at a time while they last.
template <class T, class Body>
HWY_INLINE std::size_t forWholeVectorsByFour(std::size_t n, std::size_t len, Body body) {
    const hn::ScalableTag<T> full;
    constexpr std::size_t lanes = hn::MaxLanes(full);
    for (; n + 4 * lanes <= len; n += 4 * lanes) {
        body(full, n);
        body(full, n + lanes);
        body(full, n + 2 * lanes);
        body(full, n + 3 * lanes);
    }
    return forWholeVectors<T>(n, len, body);
}

// Memory that orbsMalloc gave is aligned for vectors of 32 bytes. Where it is not for those of 64, half of one goes
// first, and the stores of the others do not fall across two cache lines each.
template <class T>
HWY_INLINE bool beginsHalfway(const T* dst) {
    constexpr std::size_t size = hn::MaxLanes(hn::ScalableTag<T>()) * sizeof(T);
    return size == 64 && reinterpret_cast<std::uintptr_t>(dst) % size == 32;
}

// Calls body(d, n) for n = 0, step, 2 * step, ... where d is the descriptor of a full vector of T, and then for the
// remaining elements with shorter ones, down to a single lane: the body states the operation once for all. dst is
// where it stores its vectors of T, or null if that does not matter.
template <class T, class Body>
HWY_INLINE void forEachVector(std::size_t len, const T* dst, Body body) {
    std::size_t n = 0;
    if (beginsHalfway(dst) && len >= 8 * hn::MaxLanes(hn::ScalableTag<T>())) {
        body(RestTag<T>(), n);
        n = hn::MaxLanes(RestTag<T>());
    }
    n = forWholeVectorsByFour<T>(n, len, body);
    for (; n < len; ++n) body(hn::CappedTag<T, 1>(), n);
}
template <class T, class Body>
HWY_INLINE void forEachVector(std::size_t len, Body body) {
    forEachVector<T>(len, nullptr, body);
}

} // namespace orbs
