// Interleaved complex elements on vectors: a vector of Real lanes holds whole elements, re in even lanes, im in odd
// ones.
#pragma once

#include "foundation/vectors.h"

#include <type_traits>

namespace orbs {

// Calls body(d, n) for runs of whole elements among `len` of them, n being the real lane where the run starts: full
// vectors of Real first, then vectors of one element.
template <class Real, class Body>
HWY_INLINE void forEachComplex(std::size_t len, Body body) {
    const hn::ScalableTag<Real> full;
    constexpr std::size_t lanes = hn::MaxLanes(full);
    const std::size_t end = 2 * len;
    std::size_t n = 0;
    for (; n + 2 * lanes <= end; n += 2 * lanes) {
        body(full, n);
        body(full, n + lanes);
    }
    for (; n + lanes <= end; n += lanes) body(full, n);
    for (; n < end; n += 2) body(hn::CappedTag<Real, 2>(), n);
}

// (re1*re2 - im1*im2, re1*im2 + im1*re2), each product rounded.
struct ComplexProduct {
    template <class D, class V>
    static V of(D d, V a, V b) {
        const V byRe = hn::Mul(hn::DupEven(a), b);
        const V byIm = hn::Mul(hn::DupOdd(a), hn::Reverse2(d, b));
        return hn::OddEven(hn::Add(byRe, byIm), hn::Sub(byRe, byIm));
    }
};

// conj(a) * b: (re1*re2 + im1*im2, re1*im2 - im1*re2).
struct ConjugateProduct {
    template <class D, class V>
    static V of(D d, V a, V b) {
        const V byRe = hn::Mul(hn::DupEven(a), b);
        const V byIm = hn::Mul(hn::DupOdd(a), hn::Reverse2(d, b));
        return hn::OddEven(hn::Sub(byRe, byIm), hn::Add(byRe, byIm));
    }
};

// (re, -im): the sign bit of a float, NaN included; -32768 saturates to 32767.
struct Conjugate {
    template <class D, class V>
    static V of(D d, V v) {
        using Real = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<Real>) {
            return hn::Xor(v, hn::OddEven(hn::Set(d, Real{-0.0}), hn::Zero(d)));
        } else {
            const V allBits = hn::OddEven(hn::Set(d, Real{-1}), hn::Zero(d)); // -im = ~im + 1
            return hn::SaturatedSub(hn::Xor(v, allBits), allBits);
        }
    }
};

} // namespace orbs
