// UpdateLinear, UpdatePower: running averages of first order.
#include "foundation/frame.h"
#include "orbs/speech.h"
#include "vectors/loops.h"

#include <algorithm>
#include <limits>

namespace {

using namespace orbs;

constexpr hn::FixedTag<Orb32s, 4> dFour;

// What is averaged: one sample, or four at a time.
struct Samples {
    int shift;

    Orb32s one(const Orb16s* p) const { return elementAt(p) >> shift; }
    HWY_INLINE hn::VFromD<decltype(dFour)> four(const Orb16s* p) const {
        return hn::ShiftRightSame(hn::PromoteTo(dFour, hn::LoadU(hn::Rebind<Orb16s, decltype(dFour)>(), p)), shift);
    }
};
struct Squares {
    int shift;

    Orb32s one(const Orb16s* p) const { return elementAt(p) * elementAt(p) >> shift; }
    HWY_INLINE hn::VFromD<decltype(dFour)> four(const Orb16s* p) const {
        const auto x = hn::LoadU(hn::Rebind<Orb16s, decltype(dFour)>(), p);
        const hn::Rebind<Orb16u, decltype(dFour)> d;
        // 32768, alone among the magnitudes, is not signed; its square fits all the same.
        const auto magnitude = hn::PromoteTo(hn::Rebind<Orb32u, decltype(dFour)>(), hn::BitCast(d, hn::Abs(x)));
        return hn::BitCast(dFour, hn::ShiftRightSame(magnitude * magnitude, shift));
    }
};

// The sum of four weighted elements: 0 and 2, 1 and 3, both.
HWY_INLINE Orb32f weighted(const Orb32f* weights, hn::VFromD<decltype(dFour)> x) {
    const hn::FixedTag<Orb32f, 4> d;
    const auto products = hn::LoadU(d, weights) * hn::ConvertTo(d, x);
    const auto pairs = products + hn::Shuffle1032(products);
    return hn::GetLane(pairs + hn::Shuffle2301(pairs));
}
HWY_INLINE Orb64f weighted(const Orb64f* weights, hn::VFromD<decltype(dFour)> x) {
    const hn::FixedTag<Orb64f, 2> d;
    const auto first = hn::LoadU(d, weights) * hn::PromoteTo(d, hn::LowerHalf(x));
    const auto second = hn::LoadU(d, weights + 2) * hn::PromoteTo(d, hn::UpperHalf(hn::FixedTag<Orb32s, 2>(), x));
    const auto pairs = first + second;
    return hn::GetLane(pairs + hn::Shuffle01(pairs));
}

// y = alpha * y + (1 - alpha) * x for each x, four of them a step: all numbers are whole, and exact while they fit.
template <class Real, class Source>
Real average(const Orb16s* pSrc, std::size_t len, Real y, Real alpha, Source source) {
    const Real square = alpha * alpha, fourth = square * square, rest = 1 - alpha;
    const Real weights[] = {square * alpha * rest, square * rest, alpha * rest, rest};
    std::size_t n = 0;
    for (; n + 4 <= len; n += 4) y = fourth * y + weighted(weights, source.four(pSrc + n));
    for (; n < len; ++n) y = alpha * y + rest * static_cast<Real>(source.one(pSrc + n));
    return y;
}

template <class Real>
Orb32s saturated(Real y) {
    if (y >= static_cast<Real>(0x1p31)) return std::numeric_limits<Orb32s>::max();
    if (!(y > static_cast<Real>(-0x1p31))) return std::numeric_limits<Orb32s>::min();
    return static_cast<Orb32s>(y);
}

template <class Source>
OrbStatus update(const Orb16s* pSrc, int len, Orb32s* pSrcDst, Orb16s alpha, bool inSingle, Source source) {
    if (const OrbStatus status = checkVectors(len, pSrc, pSrcDst)) return status;
    const Orb32s y = elementAt(pSrcDst);
    const auto count = static_cast<std::size_t>(len);
    setElement(pSrcDst, inSingle ? saturated(average<Orb32f>(pSrc, count, static_cast<Orb32f>(y), alpha, source))
                                 : saturated(average<Orb64f>(pSrc, count, y, alpha, source)));
    return orbStsNoErr;
}

OrbStatus updateLinear(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int shift, Orb16s alpha, OrbHintAlgorithm hint) {
    const bool inSingle = hint == orbAlgHintFast && alpha >= -6 && alpha <= 8;
    return update(pSrc, len, pSrcDst, alpha, inSingle, Samples{std::clamp(shift, 0, 15)});
}
OrbStatus updatePower(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int shift, Orb16s alpha, OrbHintAlgorithm hint) {
    return update(pSrc, len, pSrcDst, alpha, hint == orbAlgHintFast, Squares{std::clamp(shift, 0, 31)});
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsUpdateLinear_16s32s_I(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int srcShiftRight, Orb16s alpha, OrbHintAlgorithm hint) { return updateLinear(pSrc, len, pSrcDst, srcShiftRight, alpha, hint); }
OrbStatus orbsUpdatePower_16s32s_I(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int srcShiftRight, Orb16s alpha, OrbHintAlgorithm hint) { return updatePower(pSrc, len, pSrcDst, srcShiftRight, alpha, hint); }

}
// clang-format on
