// The shape of the elementary functions: a loop that never branches on data, and another, slower one for blocks with
// an element that the first cannot take.
//
//   struct Operation {
//       isOdd(d, x)    mask of the elements that usual does not handle
//       usual(d, x)    the result for the others
//       result(d, x)   the result for all
//   };
// where d describes the lanes of the result.
#pragma once

#include "vectors/elementwise.h"
#include "vectors/narrow.h"

namespace orbs {

constexpr std::size_t elementaryBlock = 256;

template <class R, class Op, class S>
HWY_INLINE bool anyOdd(Op op, std::size_t len, const S* src) {
    const hn::ScalableTag<R> full;
    auto odd = hn::FirstN(full, 0);
    bool oddInRest = false;
    forEachVector<R>(len, [=, &odd, &oddInRest](auto d, std::size_t n) HWY_ATTR {
        const auto oddHere = op.isOdd(d, hn::LoadU(hn::Rebind<S, decltype(d)>(), src + n));
        if constexpr (std::is_same_v<decltype(d), decltype(full)>) {
            odd = hn::Or(odd, oddHere);
        } else {
            oddInRest |= !hn::AllFalse(d, oddHere);
        }
    });
    return oddInRest || !hn::AllFalse(full, odd);
}

template <class Op, class R, class S>
void elementaryKernel(Op op, std::size_t len, R* dst, const S* src) {
    for (std::size_t n = 0; n < len; n += elementaryBlock) {
        const std::size_t count = std::min(elementaryBlock, len - n);
        if (HWY_UNLIKELY(anyOdd<R>(op, count, src + n))) {
            mapVectors<1, false>(
                count, [=](auto d, auto x) HWY_ATTR { return op.result(d, x); }, dst + n, src + n);
        } else {
            mapVectors<4, false>(
                count, [=](auto d, auto x) HWY_ATTR { return op.usual(d, x); }, dst + n, src + n);
        }
    }
}

template <class Op, class R, class S>
OrbStatus elementary(Op op, int len, R* pDst, const S* pSrc) {
    if (const OrbStatus status = checkVectors(len, pDst, pSrc)) return status;
    elementaryKernel(op, static_cast<std::size_t>(len), pDst, pSrc);
    return orbStsNoErr;
}

// dst[n] = f(src[n]) computed in lanes of 32 bits and saturated to those of R.
template <class F, class R, class S>
HWY_INLINE void mapInWords(std::size_t len, F f, R* dst, const S* src) {
    forEachVector<R>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto wide = [=](auto words, std::size_t offset) HWY_ATTR {
            const auto x = hn::LoadU(hn::Rebind<S, decltype(words)>(), src + n + offset);
            if constexpr (sizeof(S) == sizeof(Orb32s)) {
                return f(words, x);
            } else {
                return f(words, hn::PromoteTo(words, x));
            }
        };
        hn::StoreU(narrowed(d, wide), d, dst + n);
    });
}

} // namespace orbs
