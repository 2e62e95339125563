// The plan of 16 and 32 points: Lee's recursion down to transforms of eight points, which run side by side in lanes.
// The tables hold 0.5 / cos(j pi / (2 n)) for odd j, those of n points in front of those of n / 2. Results are not
// scaled.
#pragma once

#include "dct/eight.h"
#include "foundation/frame.h"

namespace orbs::dct {

// n / 8 transforms of eight points, element k of all of them at w[k].
template <class T, std::size_t lanes>
HWY_INLINE void forwardEights(T (&w)[8][lanes]) {
    const hn::CappedTag<T, lanes> d;
    for (std::size_t lane = 0; lane < lanes; lane += hn::MaxLanes(d)) {
        hn::Vec<decltype(d)> x[8];
        for (int k = 0; k < 8; ++k) x[k] = hn::Load(d, w[k] + lane);
        forwardEight<false>(x, [=](double value) HWY_ATTR { return hn::Set(d, static_cast<T>(value)); });
        for (int k = 0; k < 8; ++k) hn::Store(x[k], d, w[k] + lane);
    }
}

// Even elements are the transform of the sums, odd ones each the sum of two neighbours of that of the differences.
template <class T>
HWY_INLINE void forward(const T (&x)[16], T (&y)[16], const T* table) {
    alignas(32) T w[8][2];
    for (int i = 0; i < 8; ++i) {
        w[i][0] = x[i] + x[15 - i];
        w[i][1] = (x[i] - x[15 - i]) * table[i];
    }
    forwardEights(w);
    for (int k = 0; k < 7; ++k) {
        y[2 * k] = w[k][0];
        y[2 * k + 1] = w[k][1] + w[k + 1][1];
    }
    y[14] = w[7][0], y[15] = w[7][1];
}
// Twice the same at once: the lanes are the sums of the sums, the sums of the differences, and their differences.
template <class T>
HWY_INLINE void forward(const T (&x)[32], T (&y)[32], const T* table) {
    alignas(32) T a[16], b[16], w[8][4];
    for (int i = 0; i < 16; ++i) {
        a[i] = x[i] + x[31 - i];
        b[i] = (x[i] - x[31 - i]) * table[i];
    }
    for (int i = 0; i < 8; ++i) {
        w[i][0] = a[i] + a[15 - i];
        w[i][1] = b[i] + b[15 - i];
        w[i][2] = (a[i] - a[15 - i]) * table[16 + i];
        w[i][3] = (b[i] - b[15 - i]) * table[16 + i];
    }
    forwardEights(w);
    for (int k = 0; k < 7; ++k) {
        const T evenOdd = w[k][2] + w[k + 1][2], oddOdd = w[k][3] + w[k + 1][3];
        y[4 * k] = w[k][0];
        y[4 * k + 1] = w[k][1] + oddOdd;
        y[4 * k + 2] = evenOdd;
        y[4 * k + 3] = oddOdd + w[k + 1][1];
    }
    y[28] = w[7][0], y[29] = w[7][1] + w[7][3], y[30] = w[7][2], y[31] = w[7][3];
}

// Sums of Y[k] cos(pi (2i + 1) k / (2n)): the even coefficients by the inverse transform, the odd ones, divided, by the
// forward one.
template <class T>
HWY_INLINE void transformHalves(T (&a)[8], T (&b)[8], const T*) {
    inverseEight<false>(a, ScalarConstant<T>());
    forwardEight<false>(b, ScalarConstant<T>());
}
template <std::size_t n, class T>
HWY_INLINE void inverse(const T (&y)[n], T (&x)[n], const T* table);
template <class T>
HWY_INLINE void transformHalves(T (&a)[16], T (&b)[16], const T* table) {
    T even[16], odd[16];
    inverse(a, even, table);
    forward(b, odd, table);
    for (int i = 0; i < 16; ++i) a[i] = even[i], b[i] = odd[i];
}
template <std::size_t n, class T>
HWY_INLINE void inverse(const T (&y)[n], T (&x)[n], const T* table) {
    T a[n / 2], b[n / 2];
    for (std::size_t i = 0; i < n / 2; ++i) {
        a[i] = y[2 * i];
        b[i] = y[2 * i + 1] * table[i];
    }
    transformHalves(a, b, table + n / 2);
    for (std::size_t i = 0; i < n / 2; ++i) {
        const T odd = i + 1 < n / 2 ? b[i] + b[i + 1] : b[i];
        x[i] = a[i] + odd;
        x[n - 1 - i] = a[i] - odd;
    }
}

template <bool Inverse, std::size_t n, class T>
void transformHalving(const T* pSrc, T* pDst, const T* table, T scale0, T scale1) {
    T x[n], y[n];
    for (std::size_t i = 0; i < n; ++i) x[i] = pSrc[i];
    const auto scale = [=](T(&v)[n]) {
        v[0] *= scale0;
        for (std::size_t i = 1; i < n; ++i) v[i] *= scale1;
    };
    if constexpr (Inverse) {
        scale(x);
        inverse(x, y, table);
    } else {
        forward(x, y, table);
        scale(y);
    }
    for (std::size_t i = 0; i < n; ++i) pDst[i] = y[i];
}

} // namespace orbs::dct
