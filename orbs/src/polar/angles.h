// Sine and cosine of what vectors/sincos.h leaves: single precision, and doubles beyond its limit.
#pragma once

#include "vectors/powers.h"
#include "vectors/sincos.h"
#include "vectors/to_integer.h"

#include <array>
#include <bit>
#include <cmath>
#include <utility>

namespace orbs {

// ---- Single precision: magnitudes up to 4096 ----

inline constexpr Orb32f mostUsualAngle32 = 4096;

// x = k * pi/2 + r + low, as in double precision: three parts of pi/2 with 12 bits each, and what is left.
template <class D, class V>
HWY_INLINE SinCos<V> sinCos32(D d, V x) {
    const hn::RebindToSigned<D> di;
    const V magnitude = hn::Abs(x), one = hn::Set(d, 1.0f);
    const auto quarter = truncatedInt32(magnitude * hn::Set(d, 0x1.45f306p-1f) + hn::Set(d, 0.5f));
    const V k = hn::ConvertTo(d, quarter);
    const V most = (magnitude - k * hn::Set(d, 0x1.92p+0f)) - k * hn::Set(d, 0x1.fb4p-12f);
    const V third = k * hn::Set(d, 0x1.444p-24f);
    const V r = most - third;
    const V low = ((most - r) - third) - k * hn::Set(d, 0x1.68c234p-39f);

    const V z = r * r, half = hn::Set(d, 0.5f) * z, whole = one - half;
    const auto series = [=](Orb32f c0, Orb32f c1, Orb32f c2)
                            HWY_ATTR { return hn::Set(d, c0) + z * (hn::Set(d, c1) + z * hn::Set(d, c2)); };
    // (sin r - r) / r^3 and (cos r - 1 + r^2/2) / r^4, minimax up to pi/4
    const V s = series(-0x1.555546p-3f, 0x1.110778p-7f, -0x1.995404p-13f);
    const V c = series(0x1.55554ap-5f, -0x1.6c0c28p-10f, 0x1.99e80cp-16f);
    const V sine = r + (r * z * s + low * whole);
    const V cosine = whole + (((one - whole) - half) + (z * z * c - r * low));

    const auto odd = hn::RebindMask(d, hn::Ne(hn::And(quarter, hn::Set(di, 1)), hn::Zero(di)));
    const auto signFromSecond = [=](auto bits) HWY_ATTR {
        return hn::And(hn::BitCast(d, hn::ShiftLeft<30>(bits)), hn::SignBit(d));
    };
    const V sineSign = hn::Xor(signFromSecond(quarter), hn::And(x, hn::SignBit(d)));
    const V cosineSign = signFromSecond(quarter + hn::Set(di, 1));
    return {hn::Xor(hn::IfThenElse(odd, cosine, sine), sineSign),
            hn::Xor(hn::IfThenElse(odd, sine, cosine), cosineSign)};
}

// ---- One double of any magnitude ----

inline constexpr Orb64f mostUsualAngle64 = 0x1p32;

// 2/pi, 32 bits at a time.
inline constexpr Orb32u twoOverPi[] = {
    0xa2f9836e, 0x4e441529, 0xfc2757d1, 0xf534ddc0, 0xdb629599, 0x3c439041, 0xfe5163ab, 0xdebbc561,
    0xb7246e3a, 0x424dd2e0, 0x06492eea, 0x09d1921c, 0xfe1deb1c, 0xb129a73e, 0xe88235f5, 0x2ebb4484,
    0xe99c7026, 0xb45f7e41, 0x3991d639, 0x835339f4, 0x9c845f8b, 0xbdf9283b, 0x1ff897ff, 0xde05980f,
    0xef2f118b, 0x5a0a6d1f, 0x6d367ecf, 0x27cb09b7, 0x4f463f66, 0x9e5fea2d, 0x7527bac7, 0xebe5f17b,
    0x3d0739f7, 0x8a5292ea, 0x6bfb5fb1, 0x1f8d5d08, 0x56033046, 0xfc7b6bab};

// Magnitudes of 2^32 and more, as quarter turns and a rest of up to pi/4 (Payne and Hanek). With x = m * 2^e, words of
// 2/pi whose product with it is a multiple of four turns are left out, and those that count less than 2^-130.
struct ReducedAngle {
    Orb32u quarter;
    Orb64f rest;
};
inline ReducedAngle reducedAngle(Orb64f magnitude) {
    const auto bits = std::bit_cast<Orb64u>(magnitude);
    const int e = static_cast<int>(bits >> 52) - 1075;
    const Orb64u m = (bits & 0xfffffffffffff) | Orb64u{1} << 52;
    const int first = e < 2 ? 0 : (e - 2) / 32;
    constexpr int words = 7;
    // The product, least word first, in units of 2^(e - 32 * (first + words)).
    std::array<Orb32u, words + 2> product{};
    for (int k = 0; k < words; ++k) {
        const Orb64u word = twoOverPi[first + words - 1 - k];
        Orb64u sum = word * (m & 0xffffffff) + product[static_cast<std::size_t>(k)];
        product[static_cast<std::size_t>(k)] = static_cast<Orb32u>(sum);
        sum = word * (m >> 32) + (sum >> 32) + product[static_cast<std::size_t>(k) + 1];
        product[static_cast<std::size_t>(k) + 1] = static_cast<Orb32u>(sum);
        product[static_cast<std::size_t>(k) + 2] = static_cast<Orb32u>(sum >> 32);
    }
    // The 32 bits from any place on.
    const auto at = [&](int place) {
        const auto word = static_cast<std::size_t>(place / 32);
        const Orb64u pair = product[word] | Orb64u{product[word + 1]} << 32;
        return static_cast<Orb32u>(pair >> (place % 32));
    };
    const int point = 32 * (first + words) - e;
    Orb32u quarter = at(point);
    const Orb32u half = at(point - 32) >> 31; // rounds up, and leaves what is below 0
    Orb64f rest = 0;
    for (int k = 4; k >= 1; --k) rest += (at(point - 32 * k) ^ (0 - half)) * powerOfTwo<Orb64f>(-32 * k);
    return {quarter + half, (half ? -rest : rest) * 0x1.921fb54442d18p+0};
}

inline SinCos<Orb64f> sinCosOf(Orb64f x) {
    if (!(std::abs(x) > mostUsualAngle64)) return sinCos(x);
    if (std::isinf(x) || x != x) return {x - x, x - x};
    const auto [quarter, rest] = reducedAngle(std::abs(x));
    auto [sine, cosine] = sinCos(rest);
    if (quarter & 1) sine = std::exchange(cosine, -sine);
    if (quarter & 2) sine = -sine, cosine = -cosine;
    return {std::signbit(x) ? -sine : sine, cosine};
}

} // namespace orbs
