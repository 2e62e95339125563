// DivC: pSrc[n] / val.
#include "foundation/threads.h"
#include "orbs/arith.h"
#include "orbs/divide.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

#include <cmath>

namespace {

using namespace orbs;

// ---- Integers: by the reciprocal of val, with the scale in it ----

// Zeros, extremes by sign, or quotients. Volatile, the divisor stays behind the guard, and the division with it.
template <class T>
void multiply(const T* src, T val, int scaleFactor, int boundFrom, T* dst, std::size_t len) {
    const SseQuiet quiet(SseRounding::nearest);
    const volatile Orb32f divisor = val;
    const Orb32f factor = scaleFactor <= boundFrom ? std::copysign(huge<Orb32f>, divisor)
                                                   : 1 / divisor * powerOfTwo<Orb32f>(-scaleFactor);
    forEachVector<Orb32f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        storeNearest(d, hn::Mul(loadFloats(d, src + n), hn::Set(d, factor)), dst + n);
    });
}

// pSrc[n] * conj(val), exact in double precision, by the reciprocal of |val|^2.
template <class Lane>
void multiply(const Orb16sc* src, Orb16sc val, int scaleFactor, Orb16sc* dst, std::size_t len) {
    const SseQuiet quiet(SseRounding::nearest);
    const Lane valRe = val.re, valIm = val.im;
    const volatile Orb64f square = Orb64f{valRe} * valRe + Orb64f{valIm} * valIm;
    const auto factor = static_cast<Lane>(powerOfTwo<Orb64f>(-scaleFactor) / square);
    forEachVector<Lane>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto a = loadFloats(d, src + n);
        const auto re = hn::Set(d, valRe), im = hn::Set(d, valIm), f = hn::Set(d, factor);
        const Planes q{hn::Mul(hn::Add(hn::Mul(a.re, re), hn::Mul(a.im, im)), f),
                       hn::Mul(hn::Sub(hn::Mul(a.im, re), hn::Mul(a.re, im)), f)};
        storeNearest(d, q, dst + n);
    });
}

template <class T>
OrbStatus quotients(const T* pSrc, T val, T* pDst, int len, int scaleFactor, ScaleCuts cuts, Spread how) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (val == 0) return orbStsDivByZeroErr;
    if (scaleFactor > cuts.zeroAbove) return filled(0, pDst, len);
    return spread(len, how, [=](std::size_t first, std::size_t count) {
        multiply(pSrc + first, val, scaleFactor, cuts.boundFrom, pDst + first, count);
    });
}

OrbStatus quotients(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (val.re == 0 && val.im == 0) return orbStsDivByZeroErr;
    if (scaleFactor >= 16) return filled(0, pDst, len);
    return spread(len, {1024}, [=](std::size_t first, std::size_t count) {
        if (scaleFactor < -16) { // from some scale on every quotient but 0 saturates
            multiply<Orb64f>(pSrc + first, val, std::max(scaleFactor, -100), pDst + first, count);
        } else {
            multiply<Orb32f>(pSrc + first, val, scaleFactor, pDst + first, count);
        }
    });
}

// The shortcuts come before the tests of pSrc and val: what needs no pSrc does not look at it.
OrbStatus quotients(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) {
    constexpr ScaleCuts cuts{.zeroAbove = 16, .boundFrom = -32};
    if (scaleFactor > cuts.zeroAbove && val != 0) return filled(0, pDst, len);
    if (scaleFactor <= cuts.boundFrom && val != 0) return filled(0xff, pDst, len); // even for an element of 0
    if (scaleFactor == 0 && val == 1) return copied(pSrc, pDst, len);
    if (val == 1) return orbsMulC_16u_Sfs(pSrc, val, pDst, len, scaleFactor);
    return quotients(pSrc, val, pDst, len, scaleFactor, cuts, {8192, Spread::overThreads});
}

// ---- Floats: MulC by the reciprocal, with its shortcuts for 1, 0 and NaN. A NaN is refused like 0. ----

template <class T>
using MulC = OrbStatus(const T* pSrc, T val, T* pDst, int len);

template <class T>
OrbStatus quotients(MulC<T> mulC, const T* pSrc, T val, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if constexpr (isComplex<T>) {
        const auto square = val.re * val.re + val.im * val.im;
        if (!(square < 0 || square > 0)) return orbStsDivByZeroErr; // that which underflows too
        return mulC(pSrc, {val.re / square, -val.im / square}, pDst, len);
    } else {
        if (!(val < 0 || val > 0)) return orbStsDivByZeroErr;
        return mulC(pSrc, 1 / val, pDst, len);
    }
}

constexpr ScaleCuts constantQuotientCuts8u{.zeroAbove = 8, .boundFrom = -16};
constexpr ScaleCuts constantQuotientCuts16s{.zeroAbove = 15, .boundFrom = -31};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDivC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor) { return quotients(pSrc, val, pDst, len, scaleFactor, constantQuotientCuts8u, {4096}); }
OrbStatus orbsDivC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor) { return quotients(pSrcDst, val, pSrcDst, len, scaleFactor, constantQuotientCuts8u, {4096}); }
OrbStatus orbsDivC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) { return quotients(pSrc, val, pDst, len, scaleFactor); }
OrbStatus orbsDivC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor) { return quotients(pSrcDst, val, pSrcDst, len, scaleFactor); }
OrbStatus orbsDivC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor) { return quotients(pSrc, val, pDst, len, scaleFactor, constantQuotientCuts16s, {4096}); }
OrbStatus orbsDivC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor) { return quotients(pSrcDst, val, pSrcDst, len, scaleFactor, constantQuotientCuts16s, {4096}); }
OrbStatus orbsDivC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) { return quotients(pSrc, val, pDst, len, scaleFactor); }
OrbStatus orbsDivC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor) { return quotients(pSrcDst, val, pSrcDst, len, scaleFactor); }
OrbStatus orbsDivC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return quotients(orbsMulC_32f, pSrc, val, pDst, len); }
OrbStatus orbsDivC_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return quotients(orbsMulC_32f, pSrcDst, val, pSrcDst, len); }
OrbStatus orbsDivC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len) { return quotients(orbsMulC_32fc, pSrc, val, pDst, len); }
OrbStatus orbsDivC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len) { return quotients(orbsMulC_32fc, pSrcDst, val, pSrcDst, len); }
OrbStatus orbsDivC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len) { return quotients(orbsMulC_64f, pSrc, val, pDst, len); }
OrbStatus orbsDivC_64f_I(Orb64f val, Orb64f* pSrcDst, int len) { return quotients(orbsMulC_64f, pSrcDst, val, pSrcDst, len); }
OrbStatus orbsDivC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len) { return quotients(orbsMulC_64fc, pSrc, val, pDst, len); }
OrbStatus orbsDivC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len) { return quotients(orbsMulC_64fc, pSrcDst, val, pSrcDst, len); }

}
// clang-format on
