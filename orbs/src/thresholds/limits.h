// What limits on elements share: the relation to a level, the squares of magnitudes, and the frame.
#pragma once

#include "arith/products.h"
#include "vectors/complex.h"
#include "vectors/elementwise.h"

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
    return elementsOf(d, hn::OddEven(hn::Set(d, im), hn::Set(d, re)));
}

// f of each half of a vector, which gives as many bits as it takes.
template <class V, class F>
HWY_INLINE V byHalves(V v, F f) {
    const hn::DFromV<V> d;
    const hn::Half<decltype(d)> half;
    return hn::Combine(d, f(hn::UpperHalf(half, v)), f(hn::LowerHalf(half, v)));
}
// The same in double precision: single precision through one rounding, whose squares neither overflow nor vanish.
template <class D, class V, class F>
HWY_INLINE V inDoubles([[maybe_unused]] D d, V v, F f) {
    if constexpr (std::is_same_v<hn::TFromD<D>, Orb64f>) {
        return f(d, v);
    } else {
        return byHalves(v, [=](auto half) HWY_ATTR {
            const hn::DFromV<decltype(half)> dh;
            const hn::Rebind<Orb64f, decltype(dh)> dd;
            return hn::DemoteTo(dh, f(dd, hn::PromoteTo(dd, half)));
        });
    }
}

// ---- The frame ----

// Of magnitudes; a NaN is refused.
template <class T>
constexpr OrbStatus checkLevel(T level) {
    return level >= 0 ? orbStsNoErr : orbStsThreshNegLevelErr;
}
template <class Op, class T>
OrbStatus limited(Op op, const T* pSrc, T* pDst, int len, OrbStatus levelStatus) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (levelStatus != orbStsNoErr) return levelStatus;
    plainKernel(op, partsOf<T> * static_cast<std::size_t>(len), partsAt(pDst), partsAt(pSrc));
    return orbStsNoErr;
}

} // namespace orbs
