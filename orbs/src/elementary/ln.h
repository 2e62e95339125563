// What the logarithms share: the warning, and the logarithm of what needs none, in single and in double precision.
#pragma once

#include "elementary/ln_table.h"
#include "foundation/frame.h"
#include "vectors/lookup.h"
#include "vectors/loops.h"

#include <cstdint>
#include <type_traits>

namespace orbs {

// Zero and what is negative have no logarithm; the first such element decides what a call reports. Call this with the
// elements in order.
template <class D, class V>
HWY_INLINE void warnOfLnArgs(D d, V x, OrbStatus& warning) {
    const auto bad = hn::Lt(x, hn::Set(d, 1));
    if (HWY_LIKELY(hn::AllFalse(d, bad)) || warning != orbStsNoErr) return;
    const auto firstBad = static_cast<std::size_t>(hn::FindFirstTrue(d, bad));
    hn::TFromD<D> lanes[hn::MaxLanes(D())];
    hn::StoreU(x, d, lanes);
    warning = lanes[firstBad] == 0 ? orbStsLnZeroArg : orbStsLnNegArg;
}

// Whether x is anything but positive, normal and finite: its bits lie outside 0x00800000 to 0x7f7fffff, in one
// comparison of them moved down to the least integer. The same of the high words of doubles.
template <class D, class V>
HWY_INLINE auto isUnusualLnArg(D d, V x) requires std::is_same_v<hn::TFromD<D>, Orb32f> {
    const hn::RebindToSigned<D> di;
    return hn::RebindMask(d, hn::Gt(hn::BitCast(di, x) + hn::Set(di, 0x7f800000), hn::Set(di, 0xfeffffff)));
}
template <class D, class V>
HWY_INLINE auto isUnusualLnArg(D d, V x) requires std::is_same_v<hn::TFromD<D>, Orb64f> {
    const hn::Repartition<Orb32s, D> words;
    const auto odd = hn::Gt(hn::BitCast(words, x) + hn::Set(words, 0x7ff00000), hn::Set(words, 0xffdfffff));
    return hn::MaskFromVec(hn::BitCast(d, hn::VecFromMask(words, odd))); // the sign of a lane is that of its high word
}

// ln(x * 2^shift) of normal x > 0, with m in sqrt(1/2) to sqrt(2):
//   x = m * 2^e, s = (m - 1) / (m + 1), ln x = e * ln 2 + 2 artanh s.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V lnOfNormal(D d, V x, int shift = 0) requires std::is_same_v<hn::TFromD<D>, Orb32f> {
    const hn::RebindToSigned<D> di;
    const auto bits = hn::BitCast(di, x);
    const auto fraction = hn::And(bits, hn::Set(di, 0x007fffff));
    // -1 where the fraction passes that of sqrt(2): there the binade above is the nearer one
    const auto passes = hn::VecFromMask(di, hn::Gt(fraction, hn::Set(di, 0x003504f2)));
    const auto e = hn::ShiftRight<23>(bits) + hn::Set(di, shift - 127) - passes;
    const auto m = hn::BitCast(d, hn::Or(fraction, hn::Set(di, 0x3f800000)) + hn::ShiftLeft<23>(passes));
    const V one = hn::Set(d, 1.0f);
    const V s = (m - one) / (m + one);
    const V s2 = s * s;
    const V series =
        ((hn::Set(d, 0x1.e6a7b4p-3f) * s2 + hn::Set(d, 0x1.241994p-2f)) * s2 + hn::Set(d, 0x1.999b2ap-2f)) * s2 +
        hn::Set(d, 0x1.555554p-1f);
    return hn::ConvertTo(d, e) * hn::Set(d, 0x1.62e430p-1f) + (s + s + s * s2 * series);
}

// ---- Double precision ----

// ln(x * 2^shift) of normal x > 0: with x = m * 2^e and the row of the c that is nearest to m
//   ln x = e * ln 2 - ln r + ln(1 + q), q = m * r - 1,
// summed from the small to the large. Near x = 1 the high parts cancel, and what is left is as exact as q.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V lnOfNormal(D d, V x, Orb64f shift = 0) requires std::is_same_v<hn::TFromD<D>, Orb64f> {
    const hn::RebindToUnsigned<D> du;
    const hn::RebindToSigned<D> di;
    const auto pattern = [=](Orb64f value) HWY_ATTR { return hn::BitCast(du, hn::Set(d, value)); };
    const auto bits = hn::BitCast(du, x);
    const auto fraction = hn::And(bits, hn::Set(du, 0x000fffffffffffff));
    // The exponent field in the last bits of 2^52 is an integer plus 2^52.
    const V e = hn::BitCast(d, hn::Or(hn::ShiftRight<52>(bits), pattern(0x1p52))) - hn::Set(d, 0x1p52 + 1023 - shift);
    const V m = hn::BitCast(d, hn::Or(fraction, pattern(1)));
    const V mHigh = hn::And(m, hn::BitCast(d, hn::Set(du, ~Orb64u{0x1fffff})));
    const V mLow = m - mHigh;

    constexpr int belowRow = 52 - lnRowBits;
    const auto rounded = fraction + hn::Set(du, Orb64u{1} << (belowRow - 1));
    const Rows<D, 4> rows(hn::BitCast(di, hn::ShiftRight<belowRow>(rounded)));
    const V r = rows.columns(&lnRows[0].reciprocal).first;
    const auto [high, low] = rows.columns(&lnRows[0].high);

    const V qHigh = mHigh * r - hn::Set(d, 1.0), qLow = mLow * r; // exact
    const V q = qHigh + qLow, q2 = q * q;
    const V even =
        (hn::Set(d, -0.166680014614922) * q2 + hn::Set(d, -0.24999999959276)) * q2 + hn::Set(d, -0.500000000000003);
    const V odd =
        (hn::Set(d, 0.142870907231137) * q2 + hn::Set(d, 0.199999999499556)) * q2 + hn::Set(d, 0.333333333333338);
    const V series = q2 * (even + q * odd);
    const V small = (qLow - (q - qHigh)) + (e * hn::Set(d, 0x1.ef35793c7673p-45) + low); // with what q has lost
    return (series + small) + q + (e * hn::Set(d, 0x1.62e42fefa38p-1) + high);
}

} // namespace orbs
