// Convert from floats to integers, with a scale.
#include "orbs/convert.h"

#include "convert/packed24.h"
#include "foundation/control.h"
#include "foundation/frame.h"
#include "vectors/narrow.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

#include <algorithm>
#include <bit>

namespace {

using namespace orbs;

// ---- What each type does: to a float before its conversion, to its integer in 32 bits, and in lanes of the type ----

struct Plain {
    template <class D, class V, class F>
    static V integer(D, V v, F) {
        return v;
    }
    template <class D, class V>
    static V lane(D, V v) {
        return v;
    }
};

// The smaller of a float and the limit: of a NaN, the limit. What is below the range, the packing saturates.
template <class Src, class Dst>
struct Conversion : Plain {
    template <class D, class V>
    static V limited(D d, V v) {
        return hn::Min(v, hn::Set(d, Src{std::numeric_limits<Dst>::max()}));
    }
};

// The larger of a float and 0: of a NaN, 0. Signed packing saturates at the top, the range moved down by 32768.
template <>
struct Conversion<Orb32f, Orb16u> {
    template <class D, class V>
    static V limited(D d, V v) {
        return hn::Max(v, hn::Zero(d));
    }
    template <class D, class V, class F>
    static V integer(D d, V v, F) {
        return hn::Add(v, hn::Set(d, -0x8000)); // wraps for what did not fit into 32 bits, and is the top then
    }
    template <class D, class V>
    static V lane(D d, V v) {
        return hn::Xor(v, hn::Set(d, Orb16s(0x8000u)));
    }
};

// What the conversion could not hold is its 0x80000000: right for the negative, turned for the positive, NaNs too.
template <>
struct Conversion<Orb32f, Orb32s> : Plain {
    template <class D, class V>
    static V limited(D, V v) {
        return v;
    }
    template <class D, class V, class F>
    static V integer(D d, V v, F f) {
        const auto tooLarge = hn::Gt(hn::BitCast(d, f), hn::Set(d, 0x4effffff)); // bits of 2^31 and above
        return hn::Xor(v, hn::VecFromMask(d, tooLarge));
    }
};

template <class Dst, bool toNearest, class Src>
void floatsToIntegers(const Src* pSrc, Dst* pDst, std::size_t len, Src m) {
    using Op = Conversion<Src, Dst>;
    using Lane = std::conditional_t<std::is_same_v<Dst, Orb16u>, Orb16s, Dst>;
    using Wider = std::conditional_t<(sizeof(Src) > 4), Src, Lane>;
    forEachVector<Wider>(len, [=](auto wider, std::size_t n) HWY_ATTR {
        const hn::Rebind<Lane, decltype(wider)> d;
        const auto integers = [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::Rebind<Src, decltype(di)> df;
            const auto v = Op::limited(df, hn::Mul(hn::LoadU(df, pSrc + n + offset), hn::Set(df, m)));
            if constexpr (toNearest) {
                return Op::integer(di, nearestInt32(v), v);
            } else {
                return Op::integer(di, truncatedInt32(v), v);
            }
        };
        hn::StoreU(Op::lane(d, narrowed(d, integers)), d, reinterpret_cast<Lane*>(pDst) + n);
    });
}

// Every rounding argument but 0 rounds to nearest; a caller's other mode, and then its denormals-are-zero bit too, is
// out of force meanwhile.
template <class Src, class Dst>
OrbStatus convert(const Src* pSrc, Dst* pDst, int len, int rndMode, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const Src m = repeatedScale(scaleFactor);
    if (rndMode == orbRndZero) {
        floatsToIntegers<Dst, false>(pSrc, pDst, static_cast<std::size_t>(len), m);
    } else {
        const SseRounding rounding(SseRounding::nearest, SseRounding::denormalsAreZero);
        floatsToIntegers<Dst, true>(pSrc, pDst, static_cast<std::size_t>(len), m);
    }
    return orbStsNoErr;
}

// Always to nearest. The scale is made of its exponent alone, so a scale factor of 127 and above gives a factor of 0.
// The larger of a float and the lower limit comes first: of a NaN, that limit.
template <class T24>
OrbStatus convert24(const Orb32f* pSrc, T24* pDst, int len, int scaleFactor, Orb32f lowest, Orb32f highest) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto m = std::bit_cast<Orb32f>((127 - std::clamp(scaleFactor, -127, 127)) << 23);
    const SseRounding rounding(SseRounding::nearest, SseRounding::denormalsAreZero);
    forEachVector24<Orb32s>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb32f, decltype(d)> df;
        const auto v = hn::Mul(hn::LoadU(df, pSrc + n), hn::Set(df, m));
        const auto limited = hn::Min(hn::Max(v, hn::Set(df, lowest)), hn::Set(df, highest));
        store24(nearestInt32(limited), d, pDst + n);
    });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConvert_32f8s_Sfs(const Orb32f* pSrc, Orb8s* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_32f8u_Sfs(const Orb32f* pSrc, Orb8u* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_32f16s_Sfs(const Orb32f* pSrc, Orb16s* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_32f16u_Sfs(const Orb32f* pSrc, Orb16u* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_32f32s_Sfs(const Orb32f* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_64f32s_Sfs(const Orb64f* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor) { return convert(pSrc, pDst, len, rndMode, scaleFactor); }
OrbStatus orbsConvert_32f24s_Sfs(const Orb32f* pSrc, Orb24s* pDst, int len, int scaleFactor) { return convert24(pSrc, pDst, len, scaleFactor, -8388608.0f, 8388607.0f); }
OrbStatus orbsConvert_32f24u_Sfs(const Orb32f* pSrc, Orb24u* pDst, int len, int scaleFactor) { return convert24(pSrc, pDst, len, scaleFactor, 0.0f, 16777215.0f); }

}
// clang-format on
