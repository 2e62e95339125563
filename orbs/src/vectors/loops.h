// Loops over vectors, written once for every tier.
#pragma once

#include "orbdefs.h"

#include <cstddef>
#include <hwy/highway.h>

// Loads and stores of a single lane take any address, like those of whole vectors, but their definitions hide it.
#define ORBS_ANY_ADDRESS __attribute__((no_sanitize("alignment")))
ORBS_ANY_ADDRESS __m128 _mm_load_ss(const float*);
ORBS_ANY_ADDRESS __m128d _mm_load_sd(const double*);
ORBS_ANY_ADDRESS void _mm_store_ss(float*, __m128);
ORBS_ANY_ADDRESS void _mm_store_sd(double*, __m128d);
#undef ORBS_ANY_ADDRESS

namespace orbs {

namespace hn = hwy::HWY_NAMESPACE;

// Calls body(d, n) for n = 0, step, 2 * step, ... where d is the descriptor of a full vector of T, and then for each
// remaining element with the descriptor of a single lane: the body states the operation once for both.
template <class T, class Body>
HWY_INLINE void forEachVector(std::size_t len, Body body) {
    const hn::ScalableTag<T> full;
    constexpr std::size_t lanes = hn::MaxLanes(full);
    std::size_t n = 0;
    for (; n + 4 * lanes <= len; n += 4 * lanes) {
        body(full, n);
        body(full, n + lanes);
        body(full, n + 2 * lanes);
        body(full, n + 3 * lanes);
    }
    for (; n + lanes <= len; n += lanes) body(full, n);
    for (; n < len; ++n) body(hn::CappedTag<T, 1>(), n);
}

} // namespace orbs
