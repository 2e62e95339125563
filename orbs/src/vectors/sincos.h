// Sine and cosine of doubles up to 2^32 * pi/2 in magnitude, within 0.85 units in the last place. The C library's
// functions give other bits on other processors; these give the same ones in every tier.
#pragma once

#include "vectors/loops.h"

namespace orbs {

template <class V>
struct SinCos {
    V sin, cos;
};

// x = k * pi/2 + r. Products of k with the parts of pi/2, 21 bits each but the last, are exact, and so are the
// differences with what they leave: what r lacks after rounding stands in `low`. k is the same in every rounding mode.
template <class V>
struct QuarterTurns {
    V k, r, low;
};
template <class D, class V>
HWY_INLINE QuarterTurns<V> quarterTurns(D d, V magnitude) {
    const V turns = magnitude * hn::Set(d, 0x1.45f306dc9c883p-1) + hn::Set(d, 0.5), noFraction = hn::Set(d, 0x1p52);
    const V whole = (turns + noFraction) - noFraction;
    const V k = whole - hn::IfThenElseZero(hn::Gt(whole, turns), hn::Set(d, 1.0));
    const V most = (magnitude - k * hn::Set(d, 0x1.921fbp+0)) - k * hn::Set(d, 0x1.5110bp-22);
    const V third = k * hn::Set(d, 0x1.18469p-44);
    const V more = most - third;
    const V fourth = k * hn::Set(d, 0x1.13198p-65);
    const V high = more - fourth;
    const V low = (((most - more) - third) + ((more - high) - fourth)) - k * hn::Set(d, 0x1.45c06e0e68948p-86);
    const V r = high + low;
    return {k, r, (high - r) + low};
}

template <class D, class V>
HWY_INLINE SinCos<V> sinCos(D d, V x) {
    const V magnitude = hn::Abs(x);
    const auto [k, r, low] = quarterTurns(d, magnitude);
    const V z = r * r, z2 = z * z, z4 = z2 * z2;
    const V half = hn::Set(d, 0.5) * z, one = hn::Set(d, 1.0);
    const auto series = [=](double c0, double c1, double c2, double c3, double c4, double c5) HWY_ATTR {
        const auto pair = [=](double a, double b) HWY_ATTR { return hn::Set(d, a) + z * hn::Set(d, b); };
        return (pair(c0, c1) + z2 * pair(c2, c3)) + z4 * pair(c4, c5);
    };
    // (sin r - r) / r^3 and (cos r - 1 + r^2/2) / r^4, minimax up to pi/4
    const V s = series(-0x1.5555555555549p-3, 0x1.111111110f87dp-7, -0x1.a01a019c11f55p-13, 0x1.71de35780c1dbp-19,
                       -0x1.ae5e6681563e7p-26, 0x1.5d93167b0c207p-33);
    const V c = series(0x1.555555555554cp-5, -0x1.6c16c16c15181p-10, 0x1.a01a019cb2154p-16, -0x1.27e4f80a32df4p-22,
                       0x1.1ee9ec181a8dcp-29, -0x1.8faeb5af0775fp-37);
    const V sine = r + (r * z * s + low * (one - half));
    const V whole = one - half;
    const V cosine = whole + (((one - whole) - half) + (z2 * c - r * low));

    const hn::RebindToUnsigned<D> du;
    const auto quarter = hn::BitCast(du, k + hn::Set(d, 0x1p52)), first = hn::Set(du, 1);
    const auto odd = hn::BitCast(d, hn::Zero(du) - hn::And(quarter, first));
    const auto signFromSecond = [=](auto bits) HWY_ATTR {
        return hn::And(hn::BitCast(d, hn::ShiftLeft<62>(bits)), hn::SignBit(d));
    };
    const V sineSign = hn::Xor(signFromSecond(quarter), hn::And(x, hn::SignBit(d)));
    return {hn::Xor(hn::IfVecThenElse(odd, cosine, sine), sineSign),
            hn::Xor(hn::IfVecThenElse(odd, sine, cosine), signFromSecond(quarter + first))};
}

// The same bits for one number.
HWY_INLINE SinCos<Orb64f> sinCos(Orb64f x) {
    const hn::CappedTag<Orb64f, 1> d;
    const auto [sine, cosine] = sinCos(d, hn::Set(d, x));
    return {hn::GetLane(sine), hn::GetLane(cosine)};
}

} // namespace orbs
