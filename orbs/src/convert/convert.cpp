// Convert between integers, and from integers to floats.
#include "orbs/convert.h"

#include "convert/packed24.h"
#include "foundation/frame.h"
#include "vectors/narrow.h"
#include "vectors/powers.h"
#include "vectors/scaling.h"
#include "vectors/values.h"

#include <algorithm>

namespace {

using namespace orbs;

// ---- Widening, and what a float conversion of the machine does ----

template <class Src, class Dst>
OrbStatus convert(const Src* pSrc, Dst* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    using Wider = std::conditional_t<(sizeof(Src) > sizeof(Dst)), Src, Dst>;
    const Wider* const aligned = std::is_same_v<Wider, Dst> ? reinterpret_cast<const Wider*>(pDst) : nullptr;
    forEachVector<Wider>(static_cast<std::size_t>(len), aligned, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Src, decltype(d)> from;
        const hn::Rebind<Dst, decltype(d)> to;
        hn::StoreU(valuesIn(to, hn::LoadU(from, pSrc + n)), to, pDst + n);
    });
    return orbStsNoErr;
}

template <class T24, class Dst>
OrbStatus unpack(const T24* pSrc, Dst* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    forEachVector24<Lane24<T24>>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Dst, decltype(d)> to;
        hn::StoreU(valuesIn(to, hn::BitCast(hn::RebindToSigned<decltype(d)>(), load24(d, pSrc + n))), to, pDst + n);
    });
    return orbStsNoErr;
}

// ---- Integers to floats with a scale ----

// 2^-scaleFactor, the scale factor limited so that it is a normal number and no product overflows or underflows.
template <class Src, class Dst>
Dst exactScale(int scaleFactor) {
    constexpr int bias = std::numeric_limits<Dst>::max_exponent - 1;
    const int limited = std::clamp(scaleFactor, std::numeric_limits<Src>::digits - bias, bias - 1);
    return powerOfTwo<Dst>(-limited);
}

template <class Src, class Dst>
OrbStatus scaledToFloat(const Src* pSrc, Dst* pDst, int len, int scaleFactor) {
    if (scaleFactor == 0) return convert(pSrc, pDst, len);
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const Dst m = exactScale<Src, Dst>(scaleFactor);
    forEachVector<Dst>(static_cast<std::size_t>(len), pDst, [=](auto d, std::size_t n) HWY_ATTR {
        const auto v = hn::LoadU(hn::Rebind<Src, decltype(d)>(), pSrc + n);
        hn::StoreU(hn::Mul(valuesIn(d, v), hn::Set(d, m)), d, pDst + n);
    });
    return orbStsNoErr;
}

// ---- Integers to narrower integers with a scale ----

// Scale factors end at the width of the source: at 31 and above, -2^31 gives -1 and 2^31 - 1 gives 1.
constexpr int lastShift32 = 31;

OrbStatus narrow(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto each = [=](auto scale) {
        forEachVector<Orb16s>(static_cast<std::size_t>(len),
                              [=](auto d, std::size_t n) HWY_ATTR { hn::StoreU(scale(d, pSrc + n), d, pDst + n); });
    };
    const int right = std::min(scaleFactor, lastShift32), left = -std::max(scaleFactor, -15);
    const auto plain = [](auto d, const Orb32s* p) HWY_ATTR {
        return narrowed(d, [=](auto wide, std::size_t offset) HWY_ATTR { return hn::LoadU(wide, p + offset); });
    };
    if (scaleFactor == 0) {
        each(plain);
    } else if (scaleFactor < 0) {
        each([=](auto d, const Orb32s* p) HWY_ATTR { return shiftedLeft(d, plain(d, p), left); });
    } else {
        each([=](auto d, const Orb32s* p) HWY_ATTR {
            return narrowed(d, [=](auto wide, std::size_t offset)
                                   HWY_ATTR { return rounded(wide, hn::LoadU(wide, p + offset), right); });
        });
    }
    return orbStsNoErr;
}

template <class T24>
constexpr Lane24<T24> lowest24 = std::is_same_v<T24, Orb24s> ? -0x800000 : 0;
template <class T24>
constexpr Lane24<T24> highest24 = std::is_same_v<T24, Orb24s> ? 0x7fffff : 0xffffff;

template <class T24>
OrbStatus narrow(const Lane24<T24>* pSrc, T24* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    using Lane = Lane24<T24>;
    const auto each = [=](auto scale) {
        forEachVector24<Lane>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
            store24(scale(d, hn::LoadU(d, pSrc + n)), d, pDst + n);
        });
    };
    const int right = std::min(scaleFactor, lastShift32), left = -std::max(scaleFactor, -lastShift32);
    const auto saturated24 = [](auto d, auto v) HWY_ATTR {
        return hn::Min(hn::Max(v, hn::Set(d, lowest24<T24>)), hn::Set(d, highest24<T24>));
    };
    if (scaleFactor > 0) {
        each([=](auto d, auto v) HWY_ATTR { return saturated24(d, rounded(d, v, right)); });
    } else {
        // What is beyond these would be beyond the limits; both are 0 where everything but 0 would.
        const Lane highest = highest24<T24> >> left, lowest = lowest24<T24> / (Lane{1} << std::min(left, 30));
        each([=](auto d, auto v) HWY_ATTR {
            const auto capped =
                hn::IfThenElse(hn::Gt(v, hn::Set(d, highest)), hn::Set(d, highest24<T24>), hn::ShiftLeftSame(v, left));
            return hn::IfThenElse(hn::Lt(v, hn::Set(d, lowest)), hn::Set(d, lowest24<T24>), capped);
        });
    }
    return orbStsNoErr;
}

// ---- 64 bits, as an upper word with the sign and a lower one ----

template <class V>
struct Words {
    V lower, upper;
};

template <class D, class V>
V saturated(D d, Words<V> x) {
    const V extreme = hn::Xor(hn::BroadcastSignBit(x.upper), hn::Set(d, std::numeric_limits<Orb32s>::max()));
    return hn::IfThenElse(hn::Eq(x.upper, hn::BroadcastSignBit(x.lower)), x.lower, extreme);
}

// x * 2^-shift, shift from 1 to 31, cut off or with ties to even; then the quotient goes up by 1 in 64 bits.
template <class D, class V>
V shiftedRight(D d, Words<V> x, int shift, bool toEven) {
    const hn::RebindToUnsigned<D> du;
    const V lower = hn::BitCast(d, hn::ShiftRightSame(hn::BitCast(du, x.lower), shift));
    Words<V> q{hn::Or(lower, hn::ShiftLeftSame(x.upper, 32 - shift)), hn::ShiftRightSame(x.upper, shift)};
    if (toEven) {
        const V cut = hn::And(x.lower, hn::Set(d, static_cast<Orb32s>((1u << shift) - 1)));
        const V odd = hn::And(q.lower, hn::Set(d, 1));
        const V up = hn::VecFromMask(d, hn::Gt(cut, hn::Sub(hn::Set(d, 1 << (shift - 1)), odd))); // -1 or 0
        q.lower = hn::Sub(q.lower, up);
        q.upper = hn::Sub(q.upper, hn::And(up, hn::VecFromMask(d, hn::Eq(q.lower, hn::Zero(d)))));
    }
    return saturated(d, q);
}

// x / 2, the bit that falls out kept in the lowest one: a rounding further up sees the same ties.
template <class D, class V>
Words<V> halved(D d, Words<V> x) {
    const hn::RebindToUnsigned<D> du;
    const V lower = hn::BitCast(d, hn::ShiftRight<1>(hn::BitCast(du, x.lower)));
    const V lost = hn::And(x.lower, hn::Set(d, 1));
    return {hn::Or(hn::Or(lower, hn::ShiftLeft<31>(x.upper)), lost), hn::ShiftRight<1>(x.upper)};
}

// upper * 2^-shift, shift from 1 to 31, any bit of the lower word being less than a tie but more than nothing.
template <class D, class V>
V upperShiftedRight(D d, Words<V> x, int shift, bool toEven) {
    if (!toEven) return hn::ShiftRightSame(x.upper, shift);
    const V sticky = hn::IfThenZeroElse(hn::Eq(x.lower, hn::Zero(d)), hn::Set(d, 1));
    return rounded(d, x.upper, sticky, shift);
}

OrbStatus narrow(const Orb64s* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto each = [=](auto scale) {
        forEachVector<Orb32s>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
            Words<hn::Vec<decltype(d)>> x;
            hn::LoadInterleaved2(d, reinterpret_cast<const Orb32s*>(pSrc + n), x.lower, x.upper);
            hn::StoreU(scale(d, x), d, pDst + n);
        });
    };
    const bool toEven = rndMode == orbRndNear;
    const int right = std::min(scaleFactor, 63), left = -std::max(scaleFactor, -31);
    if (right < 0) {
        each([=](auto d, auto x) HWY_ATTR { return shiftedLeft(d, saturated(d, x), left); });
    } else if (right == 0) {
        each([=](auto d, auto x) HWY_ATTR { return saturated(d, x); });
    } else if (right < 32) {
        each([=](auto d, auto x) HWY_ATTR { return shiftedRight(d, x, right, toEven); });
    } else if (right == 32) {
        each([=](auto d, auto x) HWY_ATTR { return shiftedRight(d, halved(d, x), 31, toEven); });
    } else {
        each([=](auto d, auto x) HWY_ATTR { return upperShiftedRight(d, x, right - 32, toEven); });
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConvert_8s16s(const Orb8s* pSrc, Orb16s* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_16s32s(const Orb16s* pSrc, Orb32s* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_8s32f(const Orb8s* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_16s32f(const Orb16s* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_16u32f(const Orb16u* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_32s32f(const Orb32s* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_32s64f(const Orb32s* pSrc, Orb64f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_64f32f(const Orb64f* pSrc, Orb32f* pDst, int len) { return convert(pSrc, pDst, len); }
OrbStatus orbsConvert_24s32s(const Orb24s* pSrc, Orb32s* pDst, int len) { return unpack(pSrc, pDst, len); }
OrbStatus orbsConvert_24u32u(const Orb24u* pSrc, Orb32u* pDst, int len) { return unpack(pSrc, reinterpret_cast<Orb32s*>(pDst), len); }
OrbStatus orbsConvert_24s32f(const Orb24s* pSrc, Orb32f* pDst, int len) { return unpack(pSrc, pDst, len); }
OrbStatus orbsConvert_24u32f(const Orb24u* pSrc, Orb32f* pDst, int len) { return unpack(pSrc, pDst, len); }

OrbStatus orbsConvert_16s32f_Sfs(const Orb16s* pSrc, Orb32f* pDst, int len, int scaleFactor) { return scaledToFloat(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_16s64f_Sfs(const Orb16s* pSrc, Orb64f* pDst, int len, int scaleFactor) { return scaledToFloat(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_32s32f_Sfs(const Orb32s* pSrc, Orb32f* pDst, int len, int scaleFactor) { return scaledToFloat(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_32s64f_Sfs(const Orb32s* pSrc, Orb64f* pDst, int len, int scaleFactor) { return scaledToFloat(pSrc, pDst, len, scaleFactor); }

OrbStatus orbsConvert_32s16s(const Orb32s* pSrc, Orb16s* pDst, int len) { return narrow(pSrc, pDst, len, 0); }
OrbStatus orbsConvert_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return narrow(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_32s24s_Sfs(const Orb32s* pSrc, Orb24s* pDst, int len, int scaleFactor) { return narrow(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_32u24u_Sfs(const Orb32u* pSrc, Orb24u* pDst, int len, int scaleFactor) { return narrow(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsConvert_64s32s_Sfs(const Orb64s* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor) { return narrow(pSrc, pDst, len, rndMode, scaleFactor); }

}
// clang-format on
