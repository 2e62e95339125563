// The angle of (re, im) from -pi to pi. With x = |re|, y = |im|, and p the arctangent of the lesser of them over the
// greater:
//   arctan(y / x) = p, or pi/2 - p where y is the greater
// and pi less that where re is negative; then the sign of im. Zeros have no sign: 0 or pi.
//   p = arctan c + arctan t, t = (lesser - c * greater) / (greater + c * lesser)
#pragma once

#include "elementary/arctan.h"
#include "foundation/frame.h"
#include "vectors/nearest.h"

#include <algorithm>
#include <cmath>

namespace orbs {

// A multiple of pi/2 to which p is added, or from which it is taken.
template <class V>
struct Quadrant {
    V high, low, sign; // sign: of p
};
template <class D, class V, class T = hn::TFromD<D>>
HWY_INLINE Quadrant<V> quadrantOf(D d, V re, hn::Mask<D> steep) {
    constexpr bool isSingle = sizeof(T) == sizeof(Orb32f);
    constexpr T high = static_cast<T>(isSingle ? 0x1.921fb6p+1 : 0x1.921fb54442d18p+1); // pi
    constexpr T low = static_cast<T>(isSingle ? -0x1.777a5cp-24 : 0x1.1a62633145c07p-53);
    const V zero = hn::Zero(d);
    const auto left = hn::Lt(re, zero);
    const auto choose = [=](T pi) HWY_ATTR {
        return hn::IfThenElse(steep, hn::Set(d, pi / 2), hn::IfThenElseZero(left, hn::Set(d, pi)));
    };
    return {choose(high), choose(low), hn::IfThenElseZero(hn::Xor(left, steep), hn::SignBit(d))};
}

// base + (p + more + tiny), each much less than the one before, with the sign of im; p is less than base, unless that
// is 0.
template <class D, class V>
HWY_INLINE V angleOf(D d, Quadrant<V> base, V p, V more, V tiny, V im) {
    const V signedP = hn::Xor(p, base.sign), sum = base.high + signedP;
    const V lost = (base.high - sum) + signedP;
    const V rest = (lost + base.low) + hn::Xor(tiny, base.sign);
    const V angle = sum + (hn::Xor(more, base.sign) + rest);
    return hn::Xor(angle, hn::IfThenElseZero(hn::Lt(im, hn::Zero(d)), hn::SignBit(d)));
}

// a / b = q + low. Products of halves of the bits are exact, but for the last of them.
template <class V>
struct Quotient {
    V q, low;
};
template <class D, class V, class... More> // more: what b lacks
HWY_INLINE Quotient<V> quotientOf(D d, V a, V b, More... more) {
    const hn::RebindToUnsigned<D> bits;
    constexpr bool isSingle = sizeof(hn::TFromD<D>) == sizeof(Orb32f);
    constexpr auto upperHalf = static_cast<hn::TFromD<decltype(bits)>>(isSingle ? ~Orb64u{0xfff} : ~Orb64u{0x7ffffff});
    const V upper = hn::BitCast(d, hn::Set(bits, upperHalf));
    const V reciprocal = hn::Set(d, 1) / b, q = a * reciprocal;
    const V qHigh = hn::And(q, upper), qLow = q - qHigh, bHigh = hn::And(b, upper), bLow = b - bHigh;
    const V rest = ((a - qHigh * bHigh) - qHigh * bLow - qLow * bHigh) - qLow * bLow;
    return {q, (rest - ... - (q * more)) * reciprocal};
}

// ---- Single precision: c is 0 or 1, |t| at most 1/2 ----

template <class D, class V>
HWY_INLINE ArctanCell<V> cellOf(D d, V least, V greatest) requires std::is_same_v<hn::TFromD<D>, Orb32f> {
    const auto oblique = hn::Gt(least + least, greatest);
    const auto choose = [=](Orb32f value) HWY_ATTR { return hn::IfThenElseZero(oblique, hn::Set(d, value)); };
    return {choose(1), choose(0x1.921fb6p-1f), choose(-0x1.777a5cp-26f)};
}
// arctan t - t
template <class D, class V>
HWY_INLINE V beyond(D d, V t) requires std::is_same_v<hn::TFromD<D>, Orb32f> {
    const V z = t * t;
    const auto pair = [=](Orb32f a, Orb32f b) HWY_ATTR { return hn::Set(d, a) + z * hn::Set(d, b); };
    const V tail = pair(0x1.999742p-3f, -0x1.244ff6p-3f) +
                   z * z * (pair(0x1.c06dccp-4f, -0x1.47f982p-4f) + z * z * hn::Set(d, 0x1.3f98aap-5f));
    return t * (z * (hn::Set(d, -0x1.555552p-2f) + z * tail));
}
// Of arctan at t, to a hundredth.
template <class D, class V>
HWY_INLINE V slope(D d, V t) requires std::is_same_v<hn::TFromD<D>, Orb32f> {
    return hn::Set(d, 0.994f) - hn::Set(d, 0.8f) * (t * t);
}

// ---- Double precision: c has five bits, |t| is at most 1/32 ----

template <class D, class V>
HWY_INLINE ArctanCell<V> cellOf(D d, V least, V greatest) requires std::is_same_v<hn::TFromD<D>, Orb64f> {
    return arctanCell(d, least / greatest);
}
template <class D, class V>
HWY_INLINE V beyond(D d, V t) requires std::is_same_v<hn::TFromD<D>, Orb64f> {
    return arctanBeyond(d, t);
}
template <class D, class V>
HWY_INLINE V slope(D d, V) requires std::is_same_v<hn::TFromD<D>, Orb64f> {
    return hn::Set(d, 1.0);
}

// ---- Both ----

// Not within the limits where no step below overflows or loses bits to a subnormal number. A NaN is in either or both.
template <class D, class V>
HWY_INLINE auto isUnusual(D d, V x, V y) {
    using T = hn::TFromD<D>;
    constexpr T limit = static_cast<T>(sizeof(T) == sizeof(Orb32f) ? 0x1p50 : 0x1p450);
    const V least = hn::Min(x, y);
    const auto small = hn::And(hn::Lt(least, hn::Set(d, 1 / limit)), hn::Gt(least, hn::Zero(d)));
    return hn::Or(small, hn::Not(hn::Lt(x + y, hn::Set(d, limit))));
}

template <class D, class V>
HWY_INLINE V phaseOfUsual(D d, V re, V im) {
    constexpr bool isSingle = sizeof(hn::TFromD<D>) == sizeof(Orb32f);
    const V x = hn::Abs(re), y = hn::Abs(im);
    const V least = hn::Min(x, y),
            greatest = hn::Max(hn::Max(x, y),
                               hn::Set(d, static_cast<hn::TFromD<D>>(isSingle ? 0x1p-60 : 0x1p-1000))); // of zeros
    const auto [c, high, low] = cellOf(d, least, greatest);
    const V denominator = greatest + c * least;
    Quotient<V> t;
    if constexpr (isSingle) {
        t = quotientOf(d, least - c * greatest, denominator, (greatest - denominator) + c * least);
    } else { // products of c and parts of `greatest` are exact, and so is the first difference
        const hn::RebindToUnsigned<D> bits;
        const V upper = hn::And(greatest, hn::BitCast(d, hn::Set(bits, ~Orb64u{0x1fffff})));
        t = quotientOf(d, (least - c * upper) - c * (greatest - upper), denominator);
    }
    // arctan c goes to the multiple of pi/2, so that t is small beside it.
    auto quadrant = quadrantOf(d, re, hn::Gt(y, x));
    const V signedHigh = hn::Xor(high, quadrant.sign), sum = quadrant.high + signedHigh;
    quadrant.low = ((quadrant.high - sum) + signedHigh) + quadrant.low;
    quadrant.high = sum;
    return angleOf(d, quadrant, t.q, beyond(d, t.q), t.low * slope(d, t.q) + low, im);
}

// One angle, of any two numbers.
inline Orb64f phaseOf(Orb64f re, Orb64f im) {
    if (re != re || im != im) return re + im;
    if (std::isinf(im)) { // of two infinities an odd multiple of pi/4
        re = std::isinf(re) ? std::copysign(1.0, re) : 0;
        im = std::copysign(1.0, im);
    } else if (std::isinf(re)) {
        re = std::copysign(1.0, re);
        if (re > 0) return im < 0 ? -0.0 : 0.0;
        im = im < 0 ? -0x1p-100 : 0;
    }
    const hn::CappedTag<Orb64f, 2> d;
    const Orb64f greatest = std::max(std::abs(re), std::abs(im));
    const Orb64f scale = greatest < 1 ? 0x1p500 : greatest > 0x1p400 ? 0x1p-400 : 1;
    const Orb64f phase = hn::GetLane(phaseOfUsual(d, hn::Set(d, re * scale), hn::Set(d, std::abs(im) * scale)));
    return im < 0 ? -phase : phase; // scaled down, im may be 0
}

} // namespace orbs
