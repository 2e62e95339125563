// PolarToCart: parts from a magnitude and a phase. CartToPolar: Magnitude and Phase in one call.
#include "orbs/polar.h"
#include "polar/angles.h"
#include "polar/sources.h"

namespace {

using namespace orbs;

// ---- Sines and cosines of any angle ----

template <class D, class V>
HWY_INLINE auto unusualAngle(D d, V phase) {
    constexpr bool isSingle = sizeof(hn::TFromD<D>) == sizeof(Orb32f);
    constexpr auto most = static_cast<hn::TFromD<D>>(isSingle ? mostUsualAngle32 : mostUsualAngle64);
    return hn::Not(hn::Le(hn::Abs(phase), hn::Set(d, most)));
}

// Those of `count` elements that the kernel does not take.
template <class T>
HWY_NOINLINE void mendParts(const T* magnitude, const T* phase, T* re, T* im, std::size_t count) {
    const hn::CappedTag<T, 1> one;
    for (std::size_t n = 0; n < count; ++n) {
        if (hn::AllFalse(one, unusualAngle(one, hn::Set(one, phase[n])))) continue;
        const auto [sine, cosine] = sinCosOf(phase[n]);
        re[n] = static_cast<T>(magnitude[n] * cosine);
        im[n] = static_cast<T>(magnitude[n] * sine);
    }
}

template <class D, class V>
HWY_INLINE Planes<V> partsOfPolar(D d, V magnitude, V phase) {
    SinCos<V> of;
    if constexpr (sizeof(hn::TFromD<D>) == sizeof(Orb32f)) {
        of = sinCos32(d, phase);
    } else {
        of = sinCos(d, phase);
    }
    const Planes<V> z{magnitude * of.cos, magnitude * of.sin};
    if (HWY_LIKELY(hn::AllFalse(d, unusualAngle(d, phase)))) return z;
    hn::TFromD<D> lanes[4][hn::MaxLanes(D())];
    hn::StoreU(magnitude, d, lanes[0]);
    hn::StoreU(phase, d, lanes[1]);
    hn::StoreU(z.re, d, lanes[2]);
    hn::StoreU(z.im, d, lanes[3]);
    mendParts(lanes[0], lanes[1], lanes[2], lanes[3], hn::MaxLanes(d));
    return {hn::LoadU(d, lanes[2]), hn::LoadU(d, lanes[3])};
}

// ---- Floats ----

template <class T>
struct ToInterleaved {
    T* p; // of parts

    template <class D, class V>
    HWY_INLINE void store(D d, Planes<V> z, std::size_t n) const {
        hn::StoreInterleaved2(z.re, z.im, d, p + 2 * n);
    }
    template <class D, class V>
    HWY_INLINE void storeFirst(D d, Planes<V> z, std::size_t n, std::size_t count) const {
        T all[2 * hn::MaxLanes(D())];
        hn::StoreInterleaved2(z.re, z.im, d, all);
        std::memcpy(p + 2 * n, all, 2 * count * sizeof(T));
    }
};
template <class T>
struct ToParts {
    T *re, *im;

    template <class D, class V>
    HWY_INLINE void store(D d, Planes<V> z, std::size_t n) const {
        hn::StoreU(z.re, d, re + n);
        hn::StoreU(z.im, d, im + n);
    }
    template <class D, class V>
    HWY_INLINE void storeFirst(D d, Planes<V> z, std::size_t n, std::size_t count) const {
        orbs::storeFirst(d, z.re, re + n, count);
        orbs::storeFirst(d, z.im, im + n, count);
    }
};

template <class T, class To>
void floats(const T* magnitude, const T* phase, To to, std::size_t len) {
    const SseRounding nearest(SseRounding::nearest);
    const hn::ScalableTag<T> d;
    std::size_t n = 0;
    for (; n + hn::MaxLanes(d) <= len; n += hn::MaxLanes(d))
        to.store(d, partsOfPolar(d, hn::LoadU(d, magnitude + n), hn::LoadU(d, phase + n)), n);
    if (n == len) return;
    const auto rest = [=](const T* p) HWY_ATTR { return loadFilledUp(d, p + n, len - n); };
    to.storeFirst(d, partsOfPolar(d, rest(magnitude), rest(phase)), n, len - n);
}

template <class T, class C>
OrbStatus polarToCart(const T* pSrcMagn, const T* pSrcPhase, C* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcMagn, pSrcPhase, pDst)) return status;
    floats(pSrcMagn, pSrcPhase, ToInterleaved<T>{asReal(pDst)}, static_cast<std::size_t>(len));
    return orbStsNoErr;
}
template <class T>
OrbStatus polarToCart(const T* pSrcMagn, const T* pSrcPhase, T* pDstRe, T* pDstIm, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcMagn, pSrcPhase, pDstRe, pDstIm)) return status;
    floats(pSrcMagn, pSrcPhase, ToParts<T>{pDstRe, pDstIm}, static_cast<std::size_t>(len));
    return orbStsNoErr;
}

// ---- Integers, in double precision ----

struct ToNearest {
    template <class D, class V>
    static HWY_INLINE void store(D d, Planes<V> z, Orb16sc* p) {
        storeNearest(d, z, p);
    }
    template <class D, class V>
    static HWY_INLINE void store(D d, Planes<V> z, Orb32sc* p) {
        const hn::Rebind<Orb32s, D> whole;
        const V top = hn::Set(d, std::numeric_limits<Orb32s>::max());
        hn::StoreInterleaved2(nearestInt32(hn::Min(z.re, top)), nearestInt32(hn::Min(z.im, top)), whole, asReal(p));
    }
};
struct AwayFromZero {
    template <class D, class V>
    static HWY_INLINE void store(D d, Planes<V> z, Orb16sc* p) {
        const hn::Rebind<Orb32s, D> pairs;
        const auto re = roundedAway<Orb16s>(d, z.re), im = roundedAway<Orb16s>(d, z.im);
        hn::StoreU(pairsOfParts(re, im), pairs, reinterpret_cast<Orb32s*>(p));
    }
};

template <class Rounding, class T, class C>
void integers(const T* magnitude, const T* phase, C* dst, std::size_t len, int magnScaleFactor, int phaseScaleFactor) {
    const SseQuiet quiet(SseRounding::nearest);
    const auto magnScale = powerOfTwo<Orb64f>(-magnScaleFactor), phaseScale = powerOfTwo<Orb64f>(-phaseScaleFactor);
    forEachVector<Orb64f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto m = loadFloats(d, magnitude + n) * hn::Set(d, magnScale);
        const auto p = loadFloats(d, phase + n) * hn::Set(d, phaseScale);
        Rounding::store(d, partsOfPolar(d, m, p), dst + n);
    });
}

template <class T, class C>
OrbStatus polarToCart(const T* pSrcMagn, const T* pSrcPhase, int phaseFixedPoint, C* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcMagn, pSrcPhase, pDst)) return status;
    if (phaseFixedPoint < 0 || phaseFixedPoint > std::numeric_limits<T>::digits) return orbStsSizeErr;
    integers<ToNearest>(pSrcMagn, pSrcPhase, pDst, static_cast<std::size_t>(len), 0, phaseFixedPoint);
    return orbStsNoErr;
}

OrbStatus polarToCart(const Orb16s* pSrcMagn, const Orb16s* pSrcPhase, Orb16sc* pDst, int len, int magnScaleFactor,
                      int phaseScaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrcMagn, pSrcPhase, pDst)) return status;
    integers<AwayFromZero>(pSrcMagn, pSrcPhase, pDst, static_cast<std::size_t>(len),
                           std::clamp(magnScaleFactor, -31, 31), std::clamp(phaseScaleFactor, -31, 31));
    return orbStsNoErr;
}

// ---- Cartesian to polar ----

// Both calls are made, whatever the first one says. Braces make them in order.
struct Both {
    OrbStatus magnitude, phase;
    OrbStatus first() const { return magnitude ? magnitude : phase; }
};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsCartToPolar_32fc(const Orb32fc* pSrc, Orb32f* pDstMagn, Orb32f* pDstPhase, int len) { return Both{orbsMagnitude_32fc(pSrc, pDstMagn, len), orbsPhase_32fc(pSrc, pDstPhase, len)}.first(); }
OrbStatus orbsCartToPolar_64fc(const Orb64fc* pSrc, Orb64f* pDstMagn, Orb64f* pDstPhase, int len) { return Both{orbsMagnitude_64fc(pSrc, pDstMagn, len), orbsPhase_64fc(pSrc, pDstPhase, len)}.first(); }
OrbStatus orbsCartToPolar_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstMagn, Orb32f* pDstPhase, int len) { return Both{orbsMagnitude_32f(pSrcRe, pSrcIm, pDstMagn, len), orbsPhase_32f(pSrcRe, pSrcIm, pDstPhase, len)}.first(); }
OrbStatus orbsCartToPolar_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstMagn, Orb64f* pDstPhase, int len) { return Both{orbsMagnitude_64f(pSrcRe, pSrcIm, pDstMagn, len), orbsPhase_64f(pSrcRe, pSrcIm, pDstPhase, len)}.first(); }
OrbStatus orbsCartToPolar_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDstMagn, Orb16s* pDstPhase, int len, int magnScaleFactor, int phaseScaleFactor) {
    if (const OrbStatus status = orbsMagnitude_16sc_Sfs(pSrc, pDstMagn, len, magnScaleFactor)) return status;
    return orbsPhase_16sc_Sfs(pSrc, pDstPhase, len, phaseScaleFactor);
}

OrbStatus orbsPolarToCart_32fc(const Orb32f* pSrcMagn, const Orb32f* pSrcPhase, Orb32fc* pDst, int len) { return polarToCart(pSrcMagn, pSrcPhase, pDst, len); }
OrbStatus orbsPolarToCart_64fc(const Orb64f* pSrcMagn, const Orb64f* pSrcPhase, Orb64fc* pDst, int len) { return polarToCart(pSrcMagn, pSrcPhase, pDst, len); }
OrbStatus orbsPolarToCart_32f(const Orb32f* pSrcMagn, const Orb32f* pSrcPhase, Orb32f* pDstRe, Orb32f* pDstIm, int len) { return polarToCart(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len); }
OrbStatus orbsPolarToCart_64f(const Orb64f* pSrcMagn, const Orb64f* pSrcPhase, Orb64f* pDstRe, Orb64f* pDstIm, int len) { return polarToCart(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len); }
OrbStatus orbsPolarToCart_16sc(const Orb16s* pSrcMagn, const Orb16s* pSrcPhase, int phaseFixedPoint, Orb16sc* pDst, int len) { return polarToCart(pSrcMagn, pSrcPhase, phaseFixedPoint, pDst, len); }
OrbStatus orbsPolarToCart_32sc(const Orb32s* pSrcMagn, const Orb32s* pSrcPhase, int phaseFixedPoint, Orb32sc* pDst, int len) { return polarToCart(pSrcMagn, pSrcPhase, phaseFixedPoint, pDst, len); }
OrbStatus orbsPolarToCart_16sc_Sfs(const Orb16s* pSrcMagn, const Orb16s* pSrcPhase, Orb16sc* pDst, int len, int magnScaleFactor, int phaseScaleFactor) { return polarToCart(pSrcMagn, pSrcPhase, pDst, len, magnScaleFactor, phaseScaleFactor); }

}
// clang-format on
