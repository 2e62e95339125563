// Transforms of 1, 2, 4 and 8 points, straight from source to destination. The scaled ones multiply the first sums and
// differences, not the results, so their results are rounded differently from those of a transform scaled afterwards; a
// scale of 1 changes nothing.
#pragma once

#include "fft/registers.h"

#include <algorithm>

namespace orbs::fft {

// A lone element of an interleaved vector or of planes.
template <class T>
HWY_INLINE Cx<T> elementOf(Interleaved<const T> from, int n) {
    return {from.base[2 * n], from.base[2 * n + 1]};
}
template <class T>
HWY_INLINE Cx<T> elementOf(Planes<const T> from, int n) {
    return {from.re[n], from.im[n]};
}
template <class T>
HWY_INLINE void setElementOf(Interleaved<T> to, int n, Cx<T> x) {
    to.base[2 * n] = x.re, to.base[2 * n + 1] = x.im;
}
template <class T>
HWY_INLINE void setElementOf(Planes<T> to, int n, Cx<T> x) {
    to.re[n] = x.re, to.im[n] = x.im;
}

template <bool Inverse, class T, class From, class To>
HWY_INLINE void smallComplex(From from, To to, int order, T scale) {
    const Times<T> first{scale};
    if (order == 0) {
        setElementOf(to, 0, first(elementOf(from, 0)));
    } else if (order == 1) {
        const Cx<T> x0 = elementOf(from, 0), x1 = elementOf(from, 1);
        setElementOf(to, 0, first(x0 + x1));
        setElementOf(to, 1, first(x0 - x1));
    } else if (order == 2) {
        Cx<T> x[] = {elementOf(from, 0), elementOf(from, 1), elementOf(from, 2), elementOf(from, 3)};
        butterfly4<Inverse>(x[0], x[1], x[2], x[3], first);
        for (int n = 0; n < 4; ++n) setElementOf(to, n, x[n]);
    } else {
        order3InRegisters<Inverse, T>(from, to, first, AsIs());
    }
}

// ---- Real: a spectrum is R0, RM, R1, I1, R2, I2, ... ----

// Calls run(order) with an order from 0 to 3 that the compiler knows.
template <class Run>
HWY_INLINE void withSmallOrder(int order, Run run) {
    switch (order) {
    case 0:
        return run(std::integral_constant<int, 0>());
    case 1:
        return run(std::integral_constant<int, 1>());
    case 2:
        return run(std::integral_constant<int, 2>());
    default:
        return run(std::integral_constant<int, 3>());
    }
}

template <int order, class T>
HWY_INLINE void smallRealForward(const T* pSrc, T* pDst, T scale) {
    T x[1 << order];
    std::copy_n(pSrc, 1 << order, x);
    const auto sum = [&](int a, int b) { return (x[a] + x[b]) * scale; };
    const auto difference = [&](int a, int b) { return (x[a] - x[b]) * scale; };
    if constexpr (order == 0) {
        pDst[0] = x[0] * scale;
    } else if constexpr (order == 1) {
        pDst[0] = sum(0, 1);
        pDst[1] = difference(0, 1);
    } else if constexpr (order == 2) {
        const T s02 = sum(0, 2), s13 = sum(1, 3);
        pDst[0] = s02 + s13;
        pDst[1] = s02 - s13;
        pDst[2] = difference(0, 2);
        pDst[3] = difference(3, 1);
    } else {
        const T s04 = sum(0, 4), d04 = difference(0, 4), s26 = sum(2, 6), d62 = difference(6, 2);
        const T s15 = sum(1, 5), d15 = difference(1, 5), s37 = sum(3, 7), d73 = difference(7, 3);
        const T even = s04 + s26, odd = s15 + s37;
        const T turnedRe = (d15 + d73) * rootOfHalf<T>, turnedIm = (d73 - d15) * rootOfHalf<T>;
        pDst[0] = even + odd;
        pDst[1] = even - odd;
        pDst[2] = d04 + turnedRe;
        pDst[3] = d62 + turnedIm;
        pDst[4] = s04 - s26;
        pDst[5] = s37 - s15;
        pDst[6] = d04 - turnedRe;
        pDst[7] = turnedIm - d62;
    }
}

// From R0, RM and the pairs: pair k at pairs[2k].
template <int order, class T>
HWY_INLINE void smallRealInverse(T r0, T rm, const T* pairs, T* pDst, T scale) {
    if constexpr (order == 0) {
        pDst[0] = r0 * scale;
        return;
    }
    T x[8]; // from 2 on
    for (int n = 2; n < 1 << order; ++n) x[n] = pairs[n];
    const T twice = 2 * scale, rootOfTwo = static_cast<T>(1.41421356237309504880);
    const T sum = (r0 + rm) * scale, difference = (r0 - rm) * scale;
    if constexpr (order == 1) {
        pDst[0] = sum;
        pDst[1] = difference;
    } else if constexpr (order == 2) {
        const T re = x[2] * twice, im = x[3] * twice;
        pDst[0] = sum + re;
        pDst[1] = difference - im;
        pDst[2] = sum - re;
        pDst[3] = difference + im;
    } else {
        // Even samples: R0, RM and the pair 2; odd and even samples apart by the sums and differences of pairs 1 and 3.
        const T re2 = x[4] * twice, im2 = x[5] * twice;
        const T e0 = sum + re2, e4 = sum - re2, d0 = difference - im2, d2 = difference + im2;
        const T reSum = (x[2] + x[6]) * scale, reDifference = (x[2] - x[6]) * scale;
        const T imSum = (x[3] + x[7]) * scale, imDifference = (x[3] - x[7]) * scale;
        const T s0 = reSum * 2, s2 = imDifference * 2;
        const T s1 = (reDifference - imSum) * rootOfTwo, s3 = (reDifference + imSum) * rootOfTwo;
        pDst[0] = e0 + s0;
        pDst[4] = e0 - s0;
        pDst[2] = e4 - s2;
        pDst[6] = e4 + s2;
        pDst[1] = d0 + s1;
        pDst[5] = d0 - s1;
        pDst[3] = d2 - s3;
        pDst[7] = d2 + s3;
    }
}

template <class T>
HWY_INLINE void smallRealForward(const T* pSrc, T* pDst, int order, T scale) {
    withSmallOrder(order, [=](auto known) { smallRealForward<known()>(pSrc, pDst, scale); });
}
template <class T>
HWY_INLINE void smallRealInverse(T r0, T rm, const T* pairs, T* pDst, int order, T scale) {
    withSmallOrder(order, [=](auto known) { smallRealInverse<known()>(r0, rm, pairs, pDst, scale); });
}

} // namespace orbs::fft
