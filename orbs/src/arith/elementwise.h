// The shapes of element-wise arithmetic on two vectors. An operation says what happens to one element, on vectors of
// any width; a shape adds the frame: null tests, length, scale, serial or parallel.
//
//   struct Operation {
//       static V exact(V a, V b);      in lanes wide enough to lose nothing, and in float lanes as it is
//       static V saturated(V a, V b);  integer lanes of the result's own type, saturating
//       static Halved<V> halved(V a, V b);  32-bit integers: the 33-bit result in two parts
//   };
#pragma once

#include "foundation/frame.h"
#include "foundation/scale.h"
#include "foundation/threads.h"
#include "foundation/vectors.h"

#include <cstring>

namespace orbs {

// An exact 33-bit result in 32-bit lanes: r = 2 * half + odd, odd being 0 or 1.
template <class V>
struct Halved {
    V half, odd;
};

// The lanes in which sums of two T are exact.
template <class T>
using SumLane = std::conditional_t<sizeof(T) == 1, std::int16_t, std::int32_t>;

// ---- The scale rule on vectors. Each functor turns the exact result of one vector into the scaled one. ----

// 2^-shift with ties to even.
struct ShiftRight {
    int shift;

    template <class D, class V>
    V narrow(D d, V r) const {
        const V parity = hn::And(hn::ShiftRightSame(r, shift), hn::Set(d, 1));
        const V half = hn::Set(d, static_cast<hn::TFromD<D>>((1 << (shift - 1)) - 1));
        return hn::ShiftRightSame(hn::Add(hn::Add(r, half), parity), shift);
    }
    // The quotient of `half` by 2^(shift - 1) goes up where what is cut off exceeds one half, or equals it and the
    // quotient is odd.
    template <class D, class V>
    V wide(D d, Halved<V> r) const {
        if (shift == 1) return hn::Add(r.half, hn::And(r.odd, r.half));
        const V quotient = hn::ShiftRightSame(r.half, shift - 1);
        const V cut = hn::And(r.half, hn::Set(d, static_cast<std::int32_t>((1u << (shift - 1)) - 1)));
        const V tie = hn::Set(d, 1 << (shift - 2));
        const V oddOrMore = hn::Or(r.odd, hn::And(quotient, hn::Set(d, 1)));
        const auto up = hn::Gt(hn::Add(hn::Sub(cut, tie), oddOrMore), hn::Zero(d));
        return hn::Sub(quotient, hn::VecFromMask(d, up));
    }
};

// The 33-bit value saturated to 32 bits.
template <class D, class V>
V saturateHalved(D d, Halved<V> r) {
    const V exact = hn::Or(hn::ShiftLeft<1>(r.half), r.odd);
    const V high = hn::Set(d, 0x3fffffff), low = hn::Set(d, -0x40000000);
    const V capped = hn::IfThenElse(hn::Gt(r.half, high), hn::Set(d, hwy::LimitsMax<std::int32_t>()), exact);
    return hn::IfThenElse(hn::Lt(r.half, low), hn::Set(d, hwy::LimitsMin<std::int32_t>()), capped);
}

// 2^shift: what is saturated first stays saturated, so one saturation before and one behind the shift keep the rule.
template <class T>
struct ShiftLeft {
    int shift;

    template <class D, class V>
    V narrow(D d, V r) const {
        using Lane = hn::TFromD<D>;
        const V fits =
            hn::Min(hn::Max(r, hn::Set(d, Lane{hwy::LimitsMin<T>()})), hn::Set(d, Lane{hwy::LimitsMax<T>()}));
        return hn::ShiftLeftSame(fits, shift);
    }
    template <class D, class V>
    V wide(D d, Halved<V> r) const {
        const std::int32_t highest = hwy::LimitsMax<std::int32_t>(), lowest = hwy::LimitsMin<std::int32_t>();
        const V fits = saturateHalved(d, r);
        const V shifted = hn::ShiftLeftSame(fits, shift);
        const V capped = hn::IfThenElse(hn::Gt(fits, hn::Set(d, highest >> shift)), hn::Set(d, highest), shifted);
        return hn::IfThenElse(hn::Lt(fits, hn::Set(d, lowest >> shift)), hn::Set(d, lowest), capped);
    }
};

// A shift so far to the left that only the sign is left: an extreme of the type, or 0.
template <class T>
struct Bound {
    template <class D, class V>
    V narrow(D d, V r) const {
        using Lane = hn::TFromD<D>;
        const V high = hn::IfThenElseZero(hn::Gt(r, hn::Zero(d)), hn::Set(d, Lane{hwy::LimitsMax<T>()}));
        return hn::IfThenElse(hn::Lt(r, hn::Zero(d)), hn::Set(d, Lane{hwy::LimitsMin<T>()}), high);
    }
    template <class D, class V>
    V wide(D d, Halved<V> r) const {
        return narrow(d, hn::Or(r.half, r.odd));
    }
};

// ---- Kernels ----

// pDst[n] = op(pSrc1[n], pSrc2[n]) in the element's own lanes: floats, and integers that saturate.
template <class Op, class T>
void binaryKernel(const T* pSrc1, const T* pSrc2, T* pDst, std::size_t len) {
    forEachVector<T>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto a = hn::LoadU(d, pSrc1 + n), b = hn::LoadU(d, pSrc2 + n);
        if constexpr (std::is_floating_point_v<T>) {
            hn::StoreU(Op::exact(a, b), d, pDst + n);
        } else if constexpr (sizeof(T) <= 2) {
            hn::StoreU(Op::saturated(a, b), d, pDst + n);
        } else {
            hn::StoreU(saturateHalved(d, Op::halved(a, b)), d, pDst + n);
        }
    });
}

// The same with the exact result handed to `scale`.
template <class Op, class T, class Scale>
void scaledKernel(const T* pSrc1, const T* pSrc2, T* pDst, std::size_t len, Scale scale) {
    using Lane = SumLane<T>;
    forEachVector<Lane>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<T, decltype(d)> narrow;
        const auto a = hn::LoadU(narrow, pSrc1 + n), b = hn::LoadU(narrow, pSrc2 + n);
        if constexpr (sizeof(T) == sizeof(Lane)) {
            hn::StoreU(scale.wide(d, Op::halved(a, b)), d, pDst + n);
        } else {
            const auto r = Op::exact(hn::PromoteTo(d, a), hn::PromoteTo(d, b));
            hn::StoreU(hn::DemoteTo(narrow, scale.narrow(d, r)), narrow, pDst + n);
        }
    });
}

// Below the zero cut.
template <class Op, class T>
void scaledKernels(const T* pSrc1, const T* pSrc2, T* pDst, std::size_t len, int scaleFactor, int boundFrom) {
    if (scaleFactor == 0) return binaryKernel<Op>(pSrc1, pSrc2, pDst, len);
    if (scaleFactor > 0) return scaledKernel<Op>(pSrc1, pSrc2, pDst, len, ShiftRight{scaleFactor});
    if (scaleFactor <= boundFrom) return scaledKernel<Op>(pSrc1, pSrc2, pDst, len, Bound<T>{});
    scaledKernel<Op>(pSrc1, pSrc2, pDst, len, ShiftLeft<T>{-scaleFactor});
}

// ---- Shapes ----

// Lengths from which a call spreads over threads: at a scale factor of 0 or below, and above.
struct ParallelFrom {
    int upToScaleZero, scaled;
};

template <class Op, class T>
OrbStatus binary(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    binaryKernel<Op>(pSrc1, pSrc2, pDst, static_cast<std::size_t>(len));
    return orbStsNoErr;
}

template <class Op, class T>
OrbStatus scaled(const T* pSrc1, const T* pSrc2, T* pDst, int len, int scaleFactor, ScaleCuts cuts) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    if (scaleFactor > cuts.zeroAbove) {
        std::memset(pDst, 0, count * sizeof(T));
    } else {
        scaledKernels<Op>(pSrc1, pSrc2, pDst, count, scaleFactor, cuts.boundFrom);
    }
    return orbStsNoErr;
}

template <class Op, class T>
OrbStatus scaledParallel(const T* pSrc1, const T* pSrc2, T* pDst, int len, int scaleFactor, ScaleCuts cuts,
                         ParallelFrom from) {
    const int parallelFrom = scaleFactor > 0 ? from.scaled : from.upToScaleZero;
    if (len < parallelFrom || scaleFactor > cuts.zeroAbove || anyNull(pSrc1, pSrc2, pDst))
        return scaled<Op>(pSrc1, pSrc2, pDst, len, scaleFactor, cuts);
    splitOverThreads(len, [=](std::size_t first, std::size_t count) {
        scaledKernels<Op>(pSrc1 + first, pSrc2 + first, pDst + first, count, scaleFactor, cuts.boundFrom);
    });
    return orbStsNoErr;
}

} // namespace orbs
