// Sums and differences on vectors.
#pragma once

#include "vectors/elementwise.h"

namespace orbs {

struct Sum {
    template <class D, class V>
    static V result(D d, V a, V b) {
        using T = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<T>) {
            return hn::Add(a, b);
        } else if constexpr (sizeof(T) <= 2) {
            return hn::SaturatedAdd(a, b);
        } else if constexpr (std::is_signed_v<T>) {
            return saturated(d, exact(d, a, b));
        } else {
            return hn::Add(a, hn::Min(b, hn::Not(a))); // ~a is the room that is left above a
        }
    }
    template <class V>
    static V withRoom(V a, V b) {
        return hn::Add(a, b);
    }
    // a + b = 2 * (a & b) + (a ^ b)
    template <class D, class V>
    static Halved<V> exact(D d, V a, V b) {
        const V differ = hn::Xor(a, b);
        return {hn::Add(hn::And(a, b), hn::ShiftRight<1>(differ)), hn::And(differ, hn::Set(d, 1))};
    }
};

struct SecondMinusFirst {
    template <class D, class V>
    static V result(D d, V a, V b) {
        using T = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<T>) {
            return hn::Sub(b, a);
        } else if constexpr (sizeof(T) <= 2) {
            return hn::SaturatedSub(b, a);
        } else {
            return saturated(d, exact(d, a, b));
        }
    }
    template <class V>
    static V withRoom(V a, V b) {
        return hn::Sub(b, a);
    }
    // b - a = (a ^ b) - 2 * (a & ~b). An unsigned result below 0 is 0 at every scale.
    template <class D, class V>
    static auto exact(D d, V a, V b) {
        if constexpr (std::is_unsigned_v<hn::TFromD<D>>) {
            return hn::SaturatedSub(b, a);
        } else {
            const V differ = hn::Xor(a, b);
            return Halved<V>{hn::Sub(hn::ShiftRight<1>(differ), hn::AndNot(b, a)), hn::And(differ, hn::Set(d, 1))};
        }
    }
};

struct FirstMinusSecond {
    template <class D, class V>
    static auto result(D d, V a, V b) {
        return SecondMinusFirst::result(d, b, a);
    }
    template <class D, class V>
    static auto exact(D d, V a, V b) {
        return SecondMinusFirst::exact(d, b, a);
    }
};

// Complex members: the real primitive over twice the length.
template <class Op, class C>
OrbStatus complexBinary(const C* pSrc1, const C* pSrc2, C* pDst, int len) {
    return overDoubledLength(
        len, [=](int realLen) { return elementwise(Op(), realLen, asReal(pDst), asReal(pSrc1), asReal(pSrc2)); });
}
template <class Op, class C>
OrbStatus complexScaled(const C* pSrc1, const C* pSrc2, C* pDst, int len, int scaleFactor, ScaleCuts cuts) {
    return overDoubledLength(len, [=](int realLen) {
        return elementwiseScaled(Op(), realLen, scaleFactor, cuts, asReal(pDst), asReal(pSrc1), asReal(pSrc2));
    });
}

// Single and double precision: a constant 0, and a NaN too, leaves the source as it is.
template <class Op, class T>
OrbStatus withConstantUnlessZero(const T* pSrc, T val, T* pDst, int len) {
    if (!(val < 0 || val > 0)) return copied(pSrc, pDst, len);
    return elementwise(withConstant<Op>(val), len, pDst, pSrc);
}

constexpr ScaleCuts sumCuts16s{.zeroAbove = 16, .boundFrom = -16};
constexpr ScaleCuts sumCuts32s{.zeroAbove = 32, .boundFrom = -31};

} // namespace orbs
