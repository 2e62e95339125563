// The frames of the transforms of integers: through the integer core, or converted, transformed in floats and converted
// back.
#pragma once

#include "fft/real.h"
#include "fixedfft/native.h"
#include "fixedfft/spec.h"
#include "foundation/work_area.h"
#include "orbs/convert.h"

#include <array>

namespace orbs::fixedfft {

using fft::Format;

// ---- What the kinds call ----

inline void toFloats(const Orb16s* pSrc, Orb32f* pDst, int len) {
    orbsConvert_16s32f(pSrc, pDst, len);
}
inline void toFloats(const Orb32s* pSrc, Orb32f* pDst, int len) {
    orbsConvert_32s32f(pSrc, pDst, len);
}
inline void toFloats(const Orb32s* pSrc, Orb64f* pDst, int len) {
    orbsConvert_32s64f(pSrc, pDst, len);
}
inline void toIntegers(const Orb32f* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    orbsConvert_32f16s_Sfs(pSrc, pDst, len, orbRndNear, scaleFactor);
}
inline void toIntegers(const Orb32f* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    orbsConvert_32f32s_Sfs(pSrc, pDst, len, orbRndNear, scaleFactor);
}
inline void toIntegers(const Orb64f* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    orbsConvert_64f32s_Sfs(pSrc, pDst, len, orbRndNear, scaleFactor);
}

// The real transforms by their format.
template <class Inner>
struct RealMembers;
template <>
struct RealMembers<OrbsFFTSpec_R_32f> {
    static constexpr std::array forward{orbsFFTFwd_RToCCS_32f, orbsFFTFwd_RToPack_32f, orbsFFTFwd_RToPerm_32f};
    static constexpr std::array inverse{orbsFFTInv_CCSToR_32f, orbsFFTInv_PackToR_32f, orbsFFTInv_PermToR_32f};
};
template <>
struct RealMembers<OrbsFFTSpec_R_64f> {
    static constexpr std::array forward{orbsFFTFwd_RToCCS_64f, orbsFFTFwd_RToPack_64f, orbsFFTFwd_RToPerm_64f};
    static constexpr std::array inverse{orbsFFTInv_CCSToR_64f, orbsFFTInv_PackToR_64f, orbsFFTInv_PermToR_64f};
};

template <class Inner>
using PointOf = std::conditional_t<std::is_same_v<Inner, OrbsFFTSpec_C_32fc>, Orb32fc, Orb64fc>;

// Numbers in a spectrum.
constexpr int lengthOf(Format format, int samples) {
    return format == Format::ccs ? 2 * (samples / 2 + 1) : samples;
}

// ---- The frame ----

template <class S, class... P>
OrbStatus checkCall(const S* pSpec, const P*... data) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, S::ownTag)) return status;
    return anyNull(data...) ? orbStsNullPtrErr : orbStsNoErr;
}

// Calls transform(floats, rest): room for the floats of the call, and what the inner transform works in. Small orders
// have both on the stack.
template <class S, class Transform>
OrbStatus withFloats(const S& spec, Orb8u* pBuffer, Transform transform) {
    using Float = typename S::Float;
    if (spec.order < fft::smallOrders) {
        alignas(32) Float floats[floatsOf<S>(fft::smallOrders - 1)];
        return transform(floats, nullptr);
    }
    const WorkArea work(pBuffer, spec.workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    Float* const floats = work.as<Float>();
    return transform(floats, reinterpret_cast<Orb8u*>(floats + floatsOf<S>(spec.order)));
}

template <bool Inverse, class S>
Stored storedBy(const S& spec, int headroom, int scaleFactor) {
    const Wide ofFlag = Inverse ? spec.shiftInv : spec.shiftFwd;
    return {spec.sqrtOdd != 0, ofFlag + scaleFactor + headroom};
}

// ---- Complex ----

// Points of 16 bits on the stack, and back.
template <int points>
void gather(Orb16s (&to)[2 * points], const Orb16sc* from) {
    std::memcpy(to, from, sizeof to);
}
template <int points>
void gather(Orb16s (&to)[2 * points], fft::Planes<const Orb16s> from) {
    for (int n = 0; n < points; ++n) {
        to[2 * n] = elementAt(from.re + n);
        to[2 * n + 1] = elementAt(from.im + n);
    }
}
template <int points>
void scatter(const Orb16s (&from)[2 * points], Orb16sc* to) {
    std::memcpy(to, from, sizeof from);
}
template <int points>
void scatter(const Orb16s (&from)[2 * points], fft::Planes<Orb16s> to) {
    for (int n = 0; n < points; ++n) {
        setElement(to.re + n, from[2 * n]);
        setElement(to.im + n, from[2 * n + 1]);
    }
}

// Through the integer core.
template <bool Inverse, class S, class From, class To>
OrbStatus nativeComplex(const S& spec, int scaleFactor, From from, To to) {
    withOrder<0>(spec.order, [=, &spec](auto constant) {
        constexpr int order = constant, points = 1 << order;
        Orb16s numbers[2 * points];
        gather<points>(numbers, from);
        Point<Orb32s> x[points];
        for (int n = 0; n < points; ++n)
            x[Inverse ? (points - n) % points : n] = withHeadroom<Orb32s, order>(numbers[2 * n], numbers[2 * n + 1]);
        fourier<order>(x);
        storedBy<Inverse>(spec, headroomOf(order), scaleFactor).template store<2 * points>(&x[0].re, numbers);
        scatter<points>(numbers, to);
    });
    return orbStsNoErr;
}

template <bool Inverse, class S, class C>
OrbStatus interleaved(const C* pSrc, C* pDst, const S* pSpec, int scaleFactor, Orb8u* pBuffer) {
    if (const OrbStatus status = checkCall(pSpec, pSrc, pDst)) return status;
    if constexpr (S::hasCore) {
        if (!pSpec->viaFloat) return nativeComplex<Inverse>(*pSpec, scaleFactor, pSrc, pDst);
    }
    using Members = fft::Members<typename S::Inner>;
    return withFloats(*pSpec, pBuffer, [=](auto* floats, Orb8u* rest) -> OrbStatus {
        const int count = 2 << pSpec->order;
        toFloats(asReal(pSrc), floats, count);
        const auto transform = Inverse ? Members::inverse : Members::forward;
        auto* const points = reinterpret_cast<PointOf<typename S::Inner>*>(floats);
        if (const OrbStatus status = transform(points, points, pSpec->inner, rest)) return status;
        toIntegers(floats, asReal(pDst), count, scaleFactor);
        return orbStsNoErr;
    });
}

template <bool Inverse, class S, class T>
OrbStatus planes(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm, const S* pSpec, int scaleFactor,
                 Orb8u* pBuffer) {
    if (const OrbStatus status = checkCall(pSpec, pSrcRe, pSrcIm, pDstRe, pDstIm)) return status;
    if constexpr (S::hasCore) {
        if (!pSpec->viaFloat)
            return nativeComplex<Inverse>(*pSpec, scaleFactor, fft::Planes<const T>{pSrcRe, pSrcIm},
                                          fft::Planes<T>{pDstRe, pDstIm});
    }
    using Members = fft::Members<typename S::Inner>;
    return withFloats(*pSpec, pBuffer, [=](auto* re, Orb8u* rest) -> OrbStatus {
        const int points = 1 << pSpec->order;
        auto* const im = re + points;
        toFloats(pSrcRe, re, points);
        toFloats(pSrcIm, im, points);
        const auto transform = Inverse ? Members::inverse : Members::forward;
        if (const OrbStatus status = transform(re, im, re, im, pSpec->inner, rest)) return status;
        toIntegers(re, pDstRe, points, scaleFactor);
        toIntegers(im, pDstIm, points, scaleFactor);
        return orbStsNoErr;
    });
}

// ---- Real ----

// One sample is its own spectrum.
template <bool Inverse, class S>
Orb16s nativeSample(const S& spec, Orb16s x, int scaleFactor) {
    Orb32s value = withHeadroom<Orb32s, 0>(x, 0).re;
    Orb16s result;
    storedBy<Inverse>(spec, headroomOf(0), scaleFactor).template store<1>(&value, &result);
    return result;
}

// The core has the half that is enough as R0 and RM, then the bins from the first on.
template <class S>
OrbStatus nativeForward(const S& spec, const Orb16s* pSrc, Orb16s* pDst, int scaleFactor, Format format) {
    const int samples = 1 << spec.order;
    Orb16s spectrum[(1 << nativeOrders) + 2];
    if (spec.order == 0) {
        spectrum[0] = nativeSample<false>(spec, elementAt(pSrc), scaleFactor);
    } else {
        withOrder<1>(spec.order, [&](auto order) {
            constexpr int coreOrder = order - 1, m = 1 << coreOrder;
            Point<Orb32s> z[m];
            for (int n = 0; n < m; ++n)
                z[n] = withHeadroom<Orb32s, coreOrder>(elementAt(pSrc + 2 * n), elementAt(pSrc + 2 * n + 1));
            fourier<coreOrder>(z);
            recombineForward<m>(z);
            storedBy<false>(spec, headroomOf(coreOrder), scaleFactor).template store<2 * m>(&z[0].re, spectrum);
        });
    }
    fft::formatSpectrum(spectrum, static_cast<std::size_t>(samples), format);
    std::memcpy(pDst, spectrum, static_cast<std::size_t>(lengthOf(format, samples)) * sizeof(Orb16s));
    return orbStsNoErr;
}

template <class S>
OrbStatus nativeInverse(const S& spec, const Orb16s* pSrc, Orb16s* pDst, int scaleFactor, Format format) {
    if (spec.order == 0) {
        setElement(pDst, nativeSample<true>(spec, elementAt(pSrc), scaleFactor));
        return orbStsNoErr;
    }
    withOrder<1>(spec.order, [=, &spec](auto order) {
        constexpr int coreOrder = order - 1, m = 1 << coreOrder;
        const Orb16s* const bins = pSrc - fft::pairsBefore(format);
        const Orb16s* const middle = pSrc + (format == Format::ccs ? 2 * m : format == Format::pack ? 2 * m - 1 : 1);
        Point<Wide> z[m];
        z[0] = withHeadroom<Wide, coreOrder>(elementAt(pSrc), elementAt(middle));
        for (int k = 1; k < m; ++k)
            z[k] = withHeadroom<Wide, coreOrder>(elementAt(bins + 2 * k), elementAt(bins + 2 * k + 1));
        recombineInverse<m>(z);
        std::reverse(z + 1, z + m);
        fourier<coreOrder>(z);
        Orb16s results[2 * m];
        storedBy<true>(spec, headroomOf(coreOrder), scaleFactor).template store<2 * m>(&z[0].re, results);
        std::memcpy(pDst, results, sizeof results);
    });
    return orbStsNoErr;
}

template <class S, class T, class Spectrum>
OrbStatus realForward(const T* pSrc, Spectrum* pDst, const S* pSpec, int scaleFactor, Orb8u* pBuffer, Format format) {
    if (const OrbStatus status = checkCall(pSpec, pSrc, pDst)) return status;
    if constexpr (S::hasCore) {
        if (!pSpec->viaFloat) return nativeForward(*pSpec, pSrc, pDst, scaleFactor, format);
    }
    return withFloats(*pSpec, pBuffer, [=](auto* floats, Orb8u* rest) -> OrbStatus {
        const int samples = 1 << pSpec->order;
        toFloats(pSrc, floats, samples);
        const auto transform = RealMembers<typename S::Inner>::forward[static_cast<std::size_t>(format)];
        if (const OrbStatus status = transform(floats, floats, pSpec->inner, rest)) return status;
        toIntegers(floats, pDst, lengthOf(format, samples), scaleFactor);
        return orbStsNoErr;
    });
}

template <class S, class Spectrum, class T>
OrbStatus realInverse(const Spectrum* pSrc, T* pDst, const S* pSpec, int scaleFactor, Orb8u* pBuffer, Format format) {
    if (const OrbStatus status = checkCall(pSpec, pSrc, pDst)) return status;
    if constexpr (S::hasCore) {
        if (!pSpec->viaFloat) return nativeInverse(*pSpec, pSrc, pDst, scaleFactor, format);
    }
    return withFloats(*pSpec, pBuffer, [=](auto* floats, Orb8u* rest) -> OrbStatus {
        const int samples = 1 << pSpec->order;
        toFloats(pSrc, floats, lengthOf(format, samples));
        const auto transform = RealMembers<typename S::Inner>::inverse[static_cast<std::size_t>(format)];
        if (const OrbStatus status = transform(floats, floats, pSpec->inner, rest)) return status;
        toIntegers(floats, pDst, samples, scaleFactor);
        return orbStsNoErr;
    });
}

} // namespace orbs::fixedfft
