// What limits on elements share: the relation to a level, the squares of magnitudes, and the frame.
#pragma once

#include "vectors/complex.h"
#include "vectors/elementwise.h"

#include <cmath>
#include <type_traits>

namespace orbs {

// ---- Relations ----

// A NaN is no less and no greater than a level, but a limit takes the level for it: the second operand.
struct LessThan {
    template <class V>
    static auto holds(V x, V level) {
        return hn::Lt(x, level);
    }
    template <class V>
    static V limited(V x, V level) {
        return hn::Max(x, level);
    }
};
struct GreaterThan {
    template <class V>
    static auto holds(V x, V level) {
        return hn::Gt(x, level);
    }
    template <class V>
    static V limited(V x, V level) {
        return hn::Min(x, level);
    }
};

// ---- Complex elements ----

// Floats stay interleaved, with what belongs to an element in both of its lanes. Two parts of 16 bits are one lane
// of 32.
template <class D, class V>
auto elementsOf(D, V v) {
    if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
        return v;
    } else {
        return hn::BitCast(hn::RepartitionToWide<hn::RebindToUnsigned<D>>(), v);
    }
}

// |z|^2, of floats rounded to their type, of integers exact up to 2^31.
template <class D, class V>
auto squaresOf(D d, V v) {
    if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
        const V squares = hn::Mul(v, v);
        return hn::Add(squares, hn::Reverse2(d, squares));
    } else {
        return hn::BitCast(hn::RepartitionToWide<hn::RebindToUnsigned<D>>(), sumOfProducts(v, v));
    }
}
// Such a square of a level, and one element, in all lanes.
template <class D, class T>
auto levelSquared(D d, T level) {
    if constexpr (std::is_floating_point_v<T>) {
        return hn::Set(d, level * level);
    } else {
        return hn::Set(hn::RepartitionToWide<hn::RebindToUnsigned<D>>(),
                       static_cast<Orb32u>(level) * static_cast<Orb32u>(level));
    }
}
template <class D, class T>
auto inAllElements(D d, T re, T im) {
    return elementsOf(d, alternating(d, re, im));
}

// In both lanes of a float element: whether its square is 0. That of single precision is not to vanish.
template <class D, class V>
auto isZero(D d, V v) {
    if constexpr (std::is_same_v<hn::TFromD<D>, Orb64f>) {
        return hn::Eq(squaresOf(d, v), hn::Zero(d));
    } else {
        const V zero = hn::VecFromMask(d, hn::Eq(v, hn::Zero(d)));
        return hn::MaskFromVec(hn::And(zero, hn::Reverse2(d, zero)));
    }
}

// z * factor(|z|^2). Single precision is computed in double, and rounded once: no square overflows or vanishes.
template <class D, class V, class Factor>
HWY_INLINE V scaled(D d, V z, Factor factor) {
    if constexpr (std::is_same_v<hn::TFromD<D>, Orb64f>) {
        return hn::Mul(z, factor(d, squaresOf(d, z)));
    } else {
        const hn::Half<D> half;
        const hn::Rebind<Orb64f, decltype(half)> dd;
        const auto low = hn::PromoteTo(dd, hn::LowerHalf(half, z)), high = hn::PromoteTo(dd, hn::UpperHalf(half, z));
        // One of the two lanes of each element is enough.
        const auto by = factor(dd, hn::OddEven(squaresOf(dd, high), squaresOf(dd, low)));
        return hn::Combine(d, hn::DemoteTo(half, hn::Mul(high, hn::DupOdd(by))),
                           hn::DemoteTo(half, hn::Mul(low, hn::DupEven(by))));
    }
}

// ---- The frame ----

// Of magnitudes. A NaN is refused, and raises no flag.
template <class T>
OrbStatus checkLevel(T level) {
    return std::isgreaterequal(level, T{0}) ? orbStsNoErr : orbStsThreshNegLevelErr;
}

template <class Op, class T>
OrbStatus limited(Op op, const T* pSrc, T* pDst, int len, OrbStatus levelStatus) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (levelStatus != orbStsNoErr) return levelStatus;
    plainKernel(op, partsOf<T> * static_cast<std::size_t>(len), partsAt(pDst), partsAt(pSrc));
    return orbStsNoErr;
}

} // namespace orbs
