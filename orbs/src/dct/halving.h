// The plan of 16 and 32 points: Lee's recursion down to transforms of eight points. The tables hold 0.5 / cos(j pi / (2
// n)) for odd j, those of n points in front of those of n / 2. Results are not scaled.
#pragma once

#include "dct/eight.h"

namespace orbs::dct {

// Even elements are the transform of the sums of mirrored elements, odd ones each the sum of two neighbours of that of
// their differences, divided.
template <class T>
HWY_INLINE void forwardHalving(Lone<T> (&x)[8], const T*) {
    forwardEight<false>(x);
}
template <std::size_t n, class T>
HWY_INLINE void forwardHalving(Lone<T> (&x)[n], const T* table) {
    constexpr std::size_t h = n / 2;
    Lone<T> a[h], b[h];
    for (std::size_t i = 0; i < h; ++i) {
        a[i] = x[i] + x[n - 1 - i];
        b[i] = (x[i] - x[n - 1 - i]) * loadLone(table + i);
    }
    forwardHalving(a, table + h);
    forwardHalving(b, table + h);
    for (std::size_t i = 0; i < h; ++i) {
        x[2 * i] = a[i];
        x[2 * i + 1] = i + 1 < h ? b[i] + b[i + 1] : b[i];
    }
}

// Sums of X[k] cos(pi (2i + 1) k / (2n)): the even coefficients by the inverse transform, the odd ones, divided, by the
// forward one.
template <class T>
HWY_INLINE void inverseHalving(Lone<T> (&x)[8], const T*) {
    inverseEight<false>(x);
}
template <std::size_t n, class T>
HWY_INLINE void inverseHalving(Lone<T> (&x)[n], const T* table) {
    constexpr std::size_t h = n / 2;
    Lone<T> a[h], b[h];
    for (std::size_t i = 0; i < h; ++i) {
        a[i] = x[2 * i];
        b[i] = x[2 * i + 1] * loadLone(table + i);
    }
    inverseHalving(a, table + h);
    forwardHalving(b, table + h);
    for (std::size_t i = 0; i < h; ++i) {
        const Lone<T> odd = i + 1 < h ? b[i] + b[i + 1] : b[i];
        x[i] = a[i] + odd;
        x[n - 1 - i] = a[i] - odd;
    }
}

// pDst may be pSrc.
template <bool Inverse, std::size_t n, class T>
void transformHalving(const T* pSrc, T* pDst, const T* table, T scale0, T scale1) {
    Lone<T> x[n];
    const auto scale = [&](std::size_t i) HWY_ATTR { x[i] = x[i] * loneOf(i == 0 ? scale0 : scale1); };
    for (std::size_t i = 0; i < n; ++i) {
        x[i] = loadLone(pSrc + i);
        if constexpr (Inverse) scale(i);
    }
    if constexpr (Inverse) {
        inverseHalving(x, table);
    } else {
        forwardHalving(x, table);
    }
    for (std::size_t i = 0; i < n; ++i) {
        if constexpr (!Inverse) scale(i);
        storeLone(x[i], pDst + i);
    }
}

} // namespace orbs::dct
