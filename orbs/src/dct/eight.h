// Cosine transforms of 1, 2, 4 and 8 points. That of eight points turns two pairs of differences by odd multiples of
// pi / 16 and adds (Loeffler, Ligtenberg and Moschytz, ICASSP 1989).
#pragma once

#include "vectors/loops.h"

namespace orbs::dct {

// Numbers one by one, in vectors of one lane: the compiler would join plain ones to vectors by way of the memory, and
// wait for what it has just stored there.
template <class T>
using LoneTag = hn::CappedTag<T, 1>;
template <class T>
using Lone = hn::Vec<LoneTag<T>>;
template <class T>
HWY_INLINE Lone<T> loadLone(const T* p) {
    return hn::LoadU(LoneTag<T>(), p);
}
template <class T>
HWY_INLINE void storeLone(Lone<T> v, T* p) {
    hn::StoreU(v, LoneTag<T>(), p);
}
template <class T>
HWY_INLINE Lone<T> loneOf(T value) {
    return hn::Set(LoneTag<T>(), value);
}

// The factors of eight points: orthonormal, or twice as large and without one for element 0.
template <bool orthonormal>
struct Eight {
    static constexpr double rootOfTwo = 1.41421356237309504880;
    static constexpr double half = orthonormal ? 0.5 : 1;
    static constexpr double mean = orthonormal ? 0.35355339059327376220 : 0.70710678118654752440;
    static constexpr double cos2 = half * 0.92387953251128675613, sin2 = half * 0.38268343236508977173;
    // of pi / 16 and 3 pi / 16, over the root of two
    static constexpr double cos1 = half * 0.69351992266107373091, sin1 = half * 0.13794968964147150617;
    static constexpr double cos3 = half * 0.58793780120967935849, sin3 = half * 0.39284747919355109064;
};

template <bool orthonormal, class X>
HWY_INLINE void forwardEight(X (&x)[8]) {
    using F = Eight<orthonormal>;
    const auto constant = [](double value) HWY_ATTR { return loneOf(static_cast<hn::TFromV<X>>(value)); };
    const X s0 = x[0] + x[7], s1 = x[1] + x[6], s2 = x[2] + x[5], s3 = x[3] + x[4];
    const X d0 = x[0] - x[7], d1 = x[1] - x[6], d2 = x[2] - x[5], d3 = x[3] - x[4];
    const X e0 = s0 + s3, e1 = s1 + s2, o0 = s0 - s3, o1 = s1 - s2;
    const X mean = constant(F::mean), cos2 = constant(F::cos2), sin2 = constant(F::sin2);
    if constexpr (orthonormal) {
        x[0] = mean * (e0 + e1);
    } else {
        x[0] = e0 + e1;
    }
    x[4] = mean * (e0 - e1);
    x[2] = cos2 * o0 + sin2 * o1;
    x[6] = sin2 * o0 - cos2 * o1;
    const X cos1 = constant(F::cos1), sin1 = constant(F::sin1), cos3 = constant(F::cos3), sin3 = constant(F::sin3);
    const X u0 = cos3 * d0 - sin3 * d3, u1 = sin3 * d0 + cos3 * d3;
    const X v0 = cos1 * d1 - sin1 * d2, v1 = sin1 * d1 + cos1 * d2;
    const X a = u0 + v1, b = u0 - v1, c = u1 + v0, e = u1 - v0, rootOfTwo = constant(F::rootOfTwo);
    x[1] = a + c;
    x[7] = a - c;
    x[3] = rootOfTwo * b;
    x[5] = rootOfTwo * e;
}

// The transpose of the forward one.
template <bool orthonormal, class X>
HWY_INLINE void inverseEight(X (&x)[8]) {
    using F = Eight<orthonormal>;
    const auto constant = [](double value) HWY_ATTR { return loneOf(static_cast<hn::TFromV<X>>(value)); };
    const X mean = constant(F::mean), cos2 = constant(F::cos2), sin2 = constant(F::sin2);
    X x0 = x[0];
    if constexpr (orthonormal) x0 = mean * x0;
    const X x4 = mean * x[4];
    const X e0 = x0 + x4, e1 = x0 - x4;
    const X o0 = cos2 * x[2] + sin2 * x[6], o1 = sin2 * x[2] - cos2 * x[6];
    const X s0 = e0 + o0, s1 = e1 + o1, s2 = e1 - o1, s3 = e0 - o0;
    const X cos1 = constant(F::cos1), sin1 = constant(F::sin1), cos3 = constant(F::cos3), sin3 = constant(F::sin3);
    const X rootOfTwo = constant(F::rootOfTwo);
    const X a = x[1] + x[7], c = x[1] - x[7], b = rootOfTwo * x[3], e = rootOfTwo * x[5];
    const X u0 = a + b, v1 = a - b, u1 = c + e, v0 = c - e;
    const X d0 = cos3 * u0 + sin3 * u1, d3 = cos3 * u1 - sin3 * u0;
    const X d1 = cos1 * v0 + sin1 * v1, d2 = cos1 * v1 - sin1 * v0;
    x[0] = s0 + d0, x[7] = s0 - d0;
    x[1] = s1 + d1, x[6] = s1 - d1;
    x[2] = s2 + d2, x[5] = s2 - d2;
    x[3] = s3 + d3, x[4] = s3 - d3;
}

// ---- The lengths that are no more than this; pDst may be pSrc ----

template <bool Inverse, class T>
void transformSmall(const T* pSrc, T* pDst, std::size_t n) {
    if (n == 8) {
        Lone<T> x[8];
        for (int i = 0; i < 8; ++i) x[i] = loadLone(pSrc + i);
        if constexpr (Inverse) {
            inverseEight<true>(x);
        } else {
            forwardEight<true>(x);
        }
        for (int i = 0; i < 8; ++i) storeLone(x[i], pDst + i);
    } else if (n == 4) {
        constexpr T half = 0.5, c = static_cast<T>(0.65328148243818826393), s = static_cast<T>(0.27059805007309849220);
        const T x0 = pSrc[0], x1 = pSrc[1], x2 = pSrc[2], x3 = pSrc[3];
        if constexpr (Inverse) {
            const T e0 = half * (x0 + x2), e1 = half * (x0 - x2), o0 = c * x1 + s * x3, o1 = s * x1 - c * x3;
            pDst[0] = e0 + o0, pDst[1] = e1 + o1, pDst[2] = e1 - o1, pDst[3] = e0 - o0;
        } else {
            const T s0 = x0 + x3, s1 = x1 + x2, d0 = x0 - x3, d1 = x1 - x2;
            pDst[0] = half * (s0 + s1), pDst[2] = half * (s0 - s1);
            pDst[1] = c * d0 + s * d1, pDst[3] = s * d0 - c * d1;
        }
    } else if (n == 2) {
        constexpr T rootOfHalf = static_cast<T>(0.70710678118654752440);
        const T a = rootOfHalf * pSrc[0], b = rootOfHalf * pSrc[1];
        pDst[0] = a + b, pDst[1] = a - b;
    } else {
        pDst[0] = pSrc[0];
    }
}

} // namespace orbs::dct
