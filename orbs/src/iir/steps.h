// One sample through a filter in the transposed direct form II. D is its delay line.
#pragma once

#include "iir/elements.h"

namespace orbs {

// A filter of any order; D[order] is 0.
template <class T>
HWY_INLINE T filterStep(const T* b, const T* a, T* D, int order, T x) {
    const T y = plus(times(b[0], x), D[0]);
    for (int i = 0; i < order; ++i) D[i] = plus(minus(times(b[i + 1], x), times(a[i], y)), D[i + 1]);
    return y;
}

// A cascade of sections: their taps are b0, b1, b2, a1, a2.
template <class T>
HWY_INLINE T cascadeStep(const T* taps, T* D, int numBq, T x) {
    for (int s = 0; s < numBq; ++s, taps += 5, D += 2) {
        const T y = plus(times(taps[0], x), D[0]);
        D[0] = plus(minus(times(taps[1], x), times(taps[3], y)), D[1]);
        D[1] = minus(times(taps[2], x), times(taps[4], y));
        x = y;
    }
    return x;
}

} // namespace orbs
