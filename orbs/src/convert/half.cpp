// Convert from and to IEEE binary16.
#include "convert/half.h"

#include "foundation/control.h"
#include "foundation/frame.h"
#include "orbs/convert.h"
#include "vectors/narrow.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

#include <algorithm>

namespace {

using namespace orbs;

OrbStatus widen(const Orb16f* pSrc, Orb32f* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    forEachVector<Orb32f>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb16s, decltype(d)> halves;
        const hn::RebindToSigned<decltype(d)> di;
        hn::StoreU(floatOfHalf(d, hn::PromoteTo(di, hn::LoadU(halves, pSrc + n))), d, pDst + n);
    });
    return orbStsNoErr;
}

template <bool toNearest, class Src>
void toHalves(const Src* pSrc, Orb16f* pDst, std::size_t len) {
    forEachVector<Orb16f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto halves = [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::RebindToFloat<decltype(di)> df;
            const auto v = hn::LoadU(hn::Rebind<Src, decltype(di)>(), pSrc + n + offset);
            if constexpr (std::is_same_v<Src, Orb32f>) {
                return halfOfFloat<toNearest>(df, v);
            } else {
                return halfOfFloat<toNearest>(df, hn::ConvertTo(df, hn::PromoteTo(di, v)));
            }
        };
        hn::StoreU(narrowed(d, halves), d, pDst + n);
    });
}

// The mode matters for the product of denormal halves; of integers no product is rounded.
template <class Src>
OrbStatus toHalves(const Src* pSrc, Orb16f* pDst, int len, int rndMode) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const bool toNearest = rndMode == orbRndNear;
    const auto count = static_cast<std::size_t>(len);
    const auto kernel = [=] { toNearest ? toHalves<true>(pSrc, pDst, count) : toHalves<false>(pSrc, pDst, count); };
    if constexpr (std::is_integral_v<Src>) {
        kernel();
    } else {
        const CoreSseRounding rounding(toNearest ? SseRounding::nearest : SseRounding::towardZero);
        kernel();
    }
    return orbStsNoErr;
}

// Of an infinity or a NaN the sign decides; but at scale factors below -14 the positive infinity alone is the largest
// value, and every other one the lowest.
template <bool toNearest>
void toIntegers(const Orb16f* pSrc, Orb16s* pDst, std::size_t len, int scaleFactor) {
    const Orb32s lastTop = scaleFactor < -14 ? 0x7c00 : 0x7fff;
    // Limited to where every half but 0 saturates, and where every half vanishes.
    const auto m = powerOfTwo<Orb32f>(-std::clamp(scaleFactor, -40, 40));
    forEachVector<Orb16s>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto integers = [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::RebindToFloat<decltype(di)> df;
            const hn::Rebind<Orb16f, decltype(di)> halves;
            const auto bits = hn::PromoteTo(di, hn::LoadU(halves, pSrc + n + offset));
            const auto value = hn::Mul(floatOfHalf(df, bits), hn::Set(df, m));
            const auto limited = hn::Min(value, hn::Set(df, 32767.0f));
            const auto lastFinite = hn::Set(di, 0x7bff);
            const auto top = hn::AndNot(hn::Gt(bits, hn::Set(di, lastTop)), hn::Gt(bits, lastFinite));
            const auto notFinite = hn::Gt(hn::And(bits, hn::Set(di, 0x7fff)), lastFinite);
            const auto integer = toNearest ? nearestInt32(limited) : truncatedInt32(limited);
            const auto orBottom = hn::IfThenElse(notFinite, hn::Set(di, -32768), integer);
            return hn::IfThenElse(top, hn::Set(di, 32767), orBottom);
        };
        hn::StoreU(narrowed(d, integers), d, pDst + n);
    });
}

OrbStatus toIntegers(const Orb16f* pSrc, Orb16s* pDst, int len, int rndMode, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const bool toNearest = rndMode == orbRndNear;
    const CoreSseRounding rounding(toNearest ? SseRounding::nearest : SseRounding::towardZero);
    const auto count = static_cast<std::size_t>(len);
    toNearest ? toIntegers<true>(pSrc, pDst, count, scaleFactor) : toIntegers<false>(pSrc, pDst, count, scaleFactor);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConvert_16f32f(const Orb16f* pSrc, Orb32f* pDst, int len) { return widen(pSrc, pDst, len); }
OrbStatus orbsConvert_32f16f(const Orb32f* pSrc, Orb16f* pDst, int len, int rndMode) { return toHalves(pSrc, pDst, len, rndMode); }
OrbStatus orbsConvert_16s16f(const Orb16s* pSrc, Orb16f* pDst, int len, int rndMode) { return toHalves(pSrc, pDst, len, rndMode); }
OrbStatus orbsConvert_16f16s_Sfs(const Orb16f* pSrc, Orb16s* pDst, int len, int rndMode, int scaleFactor) { return toIntegers(pSrc, pDst, len, rndMode, scaleFactor); }

}
// clang-format on
