// 32-bit integers computed in double precision, for which products have 53 bits.
#pragma once

#include "foundation/control.h"
#include "vectors/elementwise.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

namespace orbs {

// Op::value(m, v...), with m = 2^-scaleFactor, limited to 32 bits. Made an integer as the thread's mode says, or cut
// off.
template <class Op, bool truncate>
struct InDouble {
    double m;

    template <class D, class... V>
    auto result(D d, V... v) const {
        const hn::Half<D> half;
        return hn::Combine(d, part(half, hn::UpperHalf(half, v)...), part(half, hn::LowerHalf(half, v)...));
    }

private:
    template <class D, class... V>
    auto part(D, V... v) const {
        const hn::Rebind<double, D> wide;
        const auto value = Op::value(hn::Set(wide, m), hn::PromoteTo(wide, v)...);
        const auto fits = hn::Min(value, hn::Set(wide, 2147483647.0)); // what lies below becomes -2^31 by itself
        if constexpr (truncate) {
            return truncatedInt32(fits);
        } else {
            return nearestInt32(fits);
        }
    }
};

// Rounded to nearest with ties to even, at a scale factor of 0 cut off.
template <class Op, class... S>
OrbStatus scaledInDouble(int len, int scaleFactor, ScaleCuts cuts, Orb32s* pDst, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pDst, pSrc...)) return status;
    const auto count = static_cast<std::size_t>(len);
    if (scaleFactor > cuts.zeroAbove) {
        std::memset(pDst, 0, count * sizeof *pDst);
    } else if (scaleFactor == 0) {
        plainKernel(InDouble<Op, true>{1.0}, count, pDst, pSrc...);
    } else if (scaleFactor <= cuts.boundFrom) { // rounding to 53 bits leaves the sign
        const auto sign = [op = InDouble<Op, true>{1.0}](auto d, auto... v)
                              HWY_ATTR { return bySign(d, op.result(d, v...)); };
        mapVectors<1>(count, sign, pDst, pSrc...);
    } else {
        const SseRounding rounding(SseRounding::nearest);
        plainKernel(InDouble<Op, false>{powerOfTwo<double>(-scaleFactor)}, count, pDst, pSrc...);
    }
    return orbStsNoErr;
}

} // namespace orbs
