// The integer result rule of all scaled primitives on vectors: r * 2^-scaleFactor, rounded to nearest with ties to
// even, then saturated.
#pragma once

#include "vectors/loops.h"
#include "vectors/narrow.h"

#include <limits>

namespace orbs {

// Where the result of a scaled primitive no longer depends on more than the sign of its exact value. With T the type of
// the result and m the largest magnitude of an exact one:
//   zeroAbove is the last s with m * 2^-s > 1/2. Sums of Orb16s reach -2^16, so at 16 one is left, and at 17 the half
//   goes to the even 0.
//   boundFrom: there and below, 2^-boundFrom, which is 1 scaled, reaches the end of T: -31 for Orb32s, whose highest is
//   2^31 - 1. A family may have it one lower, as sums of Orb16s have -16 and not -15: the results are the same.
struct ScaleCuts {
    int zeroAbove; // scale factors above this give zeros
    int boundFrom; // scale factors at or below this give the extreme of the type with the sign of the exact value
};

// ---- Exact results that do not fit the lanes of their type. Those that do are plain vectors. ----

// One bit more: r = 2 * half + odd, odd being 0 or 1.
template <class V>
struct Halved {
    V half, odd;
};
// Lanes of twice the width, in the order that packing a pair of vectors undoes. With `room`, 2^(s-1) can be added to
// any result without overflow, s being the largest scale factor that does not give zeros.
template <class V, bool room = true>
struct Pair {
    V lower, upper;
};
template <class V>
Pair(V, V) -> Pair<V>;

template <class D>
using Wide = hn::RepartitionToWide<D>;

// Two vectors of T widened lane by lane.
template <class D, class V>
auto widened(D d, V v) {
    using T = hn::TFromD<D>;
    const Wide<D> wide;
    if constexpr (std::is_signed_v<T>) {
        const V sign = hn::BroadcastSignBit(v);
        return Pair{hn::BitCast(wide, hn::InterleaveLower(d, v, sign)),
                    hn::BitCast(wide, hn::InterleaveUpper(d, v, sign))};
    } else {
        const V zero = hn::Zero(d);
        return Pair{hn::BitCast(wide, hn::InterleaveLower(d, v, zero)),
                    hn::BitCast(wide, hn::InterleaveUpper(d, v, zero))};
    }
}

// The saturated pair, back in one vector. Unsigned results lie below the highest signed one.
template <class D, class V>
auto packed(D d, V lower, V upper) {
    const hn::RebindToSigned<Wide<D>> integers;
    return packPair(d, hn::BitCast(integers, lower), hn::BitCast(integers, upper));
}

// ---- Scale factor 0 ----

template <class D, class V>
V saturated(D d, Halved<V> r) {
    using Limits = std::numeric_limits<hn::TFromD<D>>;
    constexpr auto lowest = Limits::min(), highest = Limits::max();
    const V exact = hn::Or(hn::ShiftLeft<1>(r.half), r.odd);
    const V capped = hn::IfThenElse(hn::Gt(r.half, hn::Set(d, highest / 2)), hn::Set(d, highest), exact);
    return hn::IfThenElse(hn::Lt(r.half, hn::Set(d, lowest / 2)), hn::Set(d, lowest), capped);
}
template <class D, class V, bool room>
auto saturated(D d, Pair<V, room> r) {
    return packed(d, r.lower, r.upper);
}

// ---- Above 0: 2^-s ----

// (v + odd / 2) * 2^-shift, for Orb16s and a shift of 2 and more: a multiplication that rounds halves up, of v less 1
// where the quotient is even, so that halves go down there. The odd bit counts as more than nothing, in the last place.
template <class D, class V>
V roundedByProduct(D d, V v, V odd, int shift) {
    const V x = hn::Or(v, odd);
    const auto even = hn::Gt(hn::ShiftLeftSame(x, 15 - shift), hn::Set(d, -1));
    const V below = hn::SaturatedAdd(x, hn::VecFromMask(d, even));
    return hn::MulFixedPoint15(below, hn::Set(d, static_cast<Orb16s>(1 << (15 - shift))));
}

// (v + odd / 2) * 2^-shift. What is cut off goes up where it exceeds one half, or equals it and the quotient is odd.
template <class D, class V>
V rounded(D d, V v, V odd, int shift) {
    using T = hn::TFromD<D>;
    using Bits = std::make_unsigned_t<T>;
    if constexpr (std::is_same_v<T, Orb16s>) {
        if (shift >= 2) return roundedByProduct(d, v, odd, shift);
    }
    const hn::Rebind<Bits, D> bits;
    const V one = hn::Set(d, 1);
    const V quotient = hn::ShiftRightSame(v, shift);
    const auto cut = hn::And(hn::BitCast(bits, v), hn::Set(bits, static_cast<Bits>((std::uint64_t{1} << shift) - 1)));
    const auto tie = hn::Set(bits, static_cast<Bits>(std::uint64_t{1} << (shift - 1)));
    const auto oddOrMore = hn::BitCast(bits, hn::And(hn::Or(odd, quotient), one));
    if constexpr (sizeof(Bits) <= 2) {
        const auto beyond = hn::SaturatedSub(hn::SaturatedAdd(cut, oddOrMore), tie);
        return hn::Add(quotient, hn::BitCast(d, hn::Min(beyond, hn::BitCast(bits, one))));
    } else {
        const hn::RebindToSigned<D> difference;
        const auto beyond = hn::BitCast(difference, hn::Add(hn::Sub(cut, tie), oddOrMore));
        const auto up = hn::VecFromMask(difference, hn::Gt(beyond, hn::Zero(difference)));
        return hn::Sub(quotient, hn::BitCast(d, up));
    }
}
template <class D, class V>
V rounded(D d, V v, int scaleFactor) {
    return rounded(d, v, hn::Zero(d), scaleFactor);
}
template <class D, class V>
V rounded(D d, Halved<V> r, int scaleFactor) {
    if (scaleFactor > 1) return rounded(d, r.half, r.odd, scaleFactor - 1);
    // A difference may round up to one more than its type holds.
    const V up = hn::And(r.odd, r.half);
    if constexpr (sizeof(hn::TFromD<D>) <= 2) {
        return hn::SaturatedAdd(r.half, up);
    } else {
        const auto highest = hn::Eq(r.half, hn::Set(d, std::numeric_limits<hn::TFromD<D>>::max()));
        return hn::Add(r.half, hn::IfThenZeroElse(highest, up));
    }
}
template <class D, class V, bool room>
auto rounded(D d, Pair<V, room> r, int scaleFactor) {
    const hn::DFromV<V> wide;
    const auto part = [=](V v) HWY_ATTR {
        if constexpr (room) {
            const V parity = hn::And(hn::ShiftRightSame(v, scaleFactor), hn::Set(wide, 1));
            const V half = hn::Set(wide, static_cast<hn::TFromV<V>>((1 << (scaleFactor - 1)) - 1));
            return hn::ShiftRightSame(hn::Add(hn::Add(v, half), parity), scaleFactor);
        } else {
            return rounded(wide, v, scaleFactor);
        }
    };
    return packed(d, part(r.lower), part(r.upper));
}

// ---- Below 0: what is saturated first stays saturated ----

template <class D, class V>
V shiftedLeft(D d, V fits, int shift) {
    const V shifted = hn::ShiftLeftSame(fits, shift);
    const auto same = hn::Eq(hn::ShiftRightSame(shifted, shift), fits);
    if constexpr (std::is_signed_v<hn::TFromD<D>>) {
        const V highest = hn::Set(d, std::numeric_limits<hn::TFromD<D>>::max());
        return hn::IfThenElse(same, shifted, hn::Xor(hn::BroadcastSignBit(fits), highest));
    } else {
        return hn::Or(shifted, hn::Not(hn::VecFromMask(d, same)));
    }
}

// Shifted so far that only the sign is left: an extreme of the type, or 0.
template <class D, class V>
V bySign(D d, V fits) {
    const auto zero = hn::Eq(fits, hn::Zero(d));
    if constexpr (std::is_signed_v<hn::TFromD<D>>) {
        const V highest = hn::Set(d, std::numeric_limits<hn::TFromD<D>>::max());
        return hn::IfThenZeroElse(zero, hn::Xor(hn::BroadcastSignBit(fits), highest));
    } else {
        return hn::Not(hn::VecFromMask(d, zero));
    }
}

} // namespace orbs
