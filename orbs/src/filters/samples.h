// Where a filter has other samples than taps: samples into the type of the taps, exactly, and outputs back.
//
//   outputs -> samples   rounding and scale
//   same type            none: the bits are kept
//   64f -> 32f           to single precision, in the caller's mode
//   32f -> 16s           orbsConvert_32f16s_Sfs, to nearest
//   64f -> 32s           orbsConvert_64f32s_Sfs, to nearest
//   64f -> 16s           the same with a factor from the exponent field
//
// Complex elements go part by part. A NaN becomes the largest integer.
#pragma once

#include "filters/kernels.h"
#include "foundation/control.h"
#include "orbs/convert.h"
#include "vectors/narrow.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace orbs {

inline void widenParts(const Orb16s* pSrc, Orb32f* pDst, int len) {
    orbsConvert_16s32f(pSrc, pDst, len);
}
inline void widenParts(const Orb16s* pSrc, Orb64f* pDst, int len) {
    orbsConvert_16s64f_Sfs(pSrc, pDst, len, 0);
}
inline void widenParts(const Orb32s* pSrc, Orb64f* pDst, int len) {
    orbsConvert_32s64f(pSrc, pDst, len);
}
inline void widenParts(const Orb32f* pSrc, Orb64f* pDst, int len) {
    orbsConvert_32f64f(pSrc, pDst, len);
}

// 2^-scaleFactor as its exponent field alone has it: 0 for 1023, and beyond -1023 and 1023 what the bits then mean.
inline Orb64f scaleInExponent(int scaleFactor) {
    return std::bit_cast<Orb64f>((Orb64u{1023} - static_cast<Orb64u>(Orb64s{scaleFactor})) << 52);
}

inline void narrowParts(const Orb32f* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    orbsConvert_32f16s_Sfs(pSrc, pDst, len, orbRndNear, scaleFactor);
}
inline void narrowParts(const Orb64f* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    orbsConvert_64f32s_Sfs(pSrc, pDst, len, orbRndNear, scaleFactor);
}
inline void narrowParts(const Orb64f* pSrc, Orb32f* pDst, int len, int) {
    orbsConvert_64f32f(pSrc, pDst, len);
}
inline void narrowParts(const Orb64f* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    const Orb64f m = scaleInExponent(scaleFactor);
    const SseRounding rounding(SseRounding::nearest);
    forEachVector<Orb64f>(static_cast<std::size_t>(len), [=](auto wide, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb16s, decltype(wide)> d;
        const auto integers = [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::Rebind<Orb64f, decltype(di)> df;
            const auto scaled = hn::Mul(hn::LoadU(df, pSrc + n + offset), hn::Set(df, m));
            return nearestInt32(hn::Min(scaled, hn::Set(df, 32767.0))); // of a NaN, the limit
        };
        hn::StoreU(narrowed(d, integers), d, pDst + n);
    });
}

// pDst[n] = pSrc[n] for n = 0 to count - 1.
template <class Tap, class Sample>
void widen(const Sample* pSrc, Tap* pDst, std::ptrdiff_t count) {
    if constexpr (std::is_same_v<Tap, Sample>) {
        std::memcpy(pDst, pSrc, static_cast<std::size_t>(count) * sizeof *pSrc);
    } else if (count > 0) {
        widenParts(asParts(pSrc), asParts(pDst), static_cast<int>(count) * static_cast<int>(partCount<Tap>));
    }
}

// pDst[n] = pSrc[n] * 2^-scaleFactor, rounded and saturated as the pair of types has it. The scale counts where samples
// are integers.
template <class Tap, class Sample>
void narrow(const Tap* pSrc, Sample* pDst, std::ptrdiff_t count, int scaleFactor) {
    if constexpr (std::is_same_v<Tap, Sample>) {
        std::memcpy(pDst, pSrc, static_cast<std::size_t>(count) * sizeof *pSrc);
    } else if (count > 0) {
        narrowParts(asParts(pSrc), asParts(pDst), static_cast<int>(count) * static_cast<int>(partCount<Tap>),
                    scaleFactor);
    }
}

// One output, as narrow has it.
template <class Sample, class Tap>
Sample narrowOne(Tap y, int scaleFactor) {
    if constexpr (std::is_same_v<Tap, Sample>) {
        return y;
    } else if constexpr (isComplex<Tap>) {
        using X = Part<Sample>;
        return {narrowOne<X>(y.re, scaleFactor), narrowOne<X>(y.im, scaleFactor)};
    } else if constexpr (std::is_floating_point_v<Sample>) {
        return static_cast<Sample>(y);
    } else {
        using Limits = std::numeric_limits<Sample>;
        constexpr bool fromExponent = std::is_same_v<Tap, Orb64f> && std::is_same_v<Sample, Orb16s>;
        const Tap m = fromExponent ? static_cast<Tap>(scaleInExponent(scaleFactor)) : repeatedScale(scaleFactor);
        const SseRounding rounding(SseRounding::nearest, fromExponent ? 0 : SseRounding::denormalsAreZero);
        const hn::CappedTag<Tap, 1> d;
        asm volatile("" : "+x"(y)); // from here to the next one, under the guard
        const auto scaled = hn::Mul(hn::Set(d, y), hn::Set(d, m));
        Orb32s whole = hn::GetLane(nearestInt32(hn::Min(scaled, hn::Set(d, static_cast<Tap>(Limits::max())))));
        asm volatile("" : "+r"(whole));
        return static_cast<Sample>(std::max(whole, Orb32s{Limits::lowest()}));
    }
}

// ---- Outputs of calls without a state ----

// 2^-scaleFactor from its exponent field, the magnitude of the factor modulo 128; 2^-127 is 0 in single precision.
template <class Sum>
Sum scaleModulo128(int scaleFactor) {
    const Orb32u magnitude = static_cast<Orb32u>(scaleFactor);
    return powerOfTwo<Sum>(scaleFactor > 0 ? -static_cast<int>(magnitude % 128)
                                           : static_cast<int>((0 - magnitude) % 128));
}

// sums * m to nearest, halves away from zero, saturated; of a NaN the lowest.
template <class Sum, class X>
void roundAndSaturate(const Sum* sums, Sum m, X* pDst, std::size_t count) {
    using Limits = std::numeric_limits<X>;
    forEachVector<Orb64f>(count, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Sum, decltype(d)> dSums;
        const hn::Rebind<X, decltype(d)> dOutputs;
        const auto scaled = valuesIn(d, hn::Mul(hn::LoadU(dSums, sums + n), hn::Set(dSums, m)));
        const auto above = hn::Max(scaled, hn::Set(d, Orb64f{Limits::lowest()}));
        const auto limited = hn::Min(above, hn::Set(d, Orb64f{Limits::max()}));
        const auto whole = truncatedInt32(hn::Add(limited, hn::CopySign(hn::Set(d, 0.5), limited)));
        hn::StoreU(valuesIn(dOutputs, whole), dOutputs, pDst + n);
    });
}

} // namespace orbs
