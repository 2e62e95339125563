// Interleaved complex elements on vectors: a vector of Real lanes holds whole elements, re in even lanes, im in odd
// ones.
#pragma once

#include "vectors/loops.h"

#include <cstdint>
#include <type_traits>

namespace orbs {

// a[2k] * b[2k] + a[2k + 1] * b[2k + 1] in 32 bits, which wrap.
template <class V>
auto sumOfProducts(V a, V b) {
    const hn::RepartitionToWide<hn::DFromV<V>> wide;
    auto unused = hn::Zero(wide);
    return hn::ReorderWidenMulAccumulate(wide, a, b, hn::Zero(wide), unused);
}

// Calls body(d, n) for runs of whole elements among `len` of them, n being the real lane where the run starts: full
// vectors of Real, and shorter ones, down to one element, in front of them until dst + n is aligned, and behind them.
// The bins of a packed spectrum start in the middle of a vector, and stores across cache lines cost more than a few
// short ones.
template <class Real, class Body>
HWY_INLINE void forEachComplex(std::size_t len, const Real* dst, Body body) {
    const RestTag<Real> some;
    const hn::CappedTag<Real, 2> one;
    constexpr std::size_t lanes = hn::MaxLanes(hn::ScalableTag<Real>()), someLanes = hn::MaxLanes(some);
    const std::size_t end = 2 * len, past = reinterpret_cast<std::uintptr_t>(dst) / sizeof(Real) % lanes;
    std::size_t n = 0;
    if (end >= 8 * lanes && past % 2 == 0) {
        for (; (past + n) % someLanes != 0; n += 2) body(one, n);
        if constexpr (someLanes < lanes)
            for (; (past + n) % lanes != 0; n += someLanes) body(some, n);
    }
    n = forWholeVectorsByFour<Real>(n, end, body);
    for (; n < end; n += 2) body(one, n);
}
// The same for memory that is aligned as it is.
template <class Real, class Body>
HWY_INLINE void forEachComplex(std::size_t len, Body body) {
    forEachComplex<Real>(len, nullptr, body);
}

// The sign bit in the one part of every element.
template <class D>
auto signOfRe(D d) {
    return hn::OddEven(hn::Zero(d), hn::Set(d, hn::TFromD<D>{-0.0}));
}
template <class D>
auto signOfIm(D d) {
    return hn::OddEven(hn::Set(d, hn::TFromD<D>{-0.0}), hn::Zero(d));
}

// a - b in even lanes, a + b in odd ones.
template <std::size_t N>
hn::Vec128<Orb32f, N> subAdd(hn::Vec128<Orb32f, N> a, hn::Vec128<Orb32f, N> b) {
    return hn::Vec128<Orb32f, N>{_mm_addsub_ps(a.raw, b.raw)};
}
template <std::size_t N>
hn::Vec128<Orb64f, N> subAdd(hn::Vec128<Orb64f, N> a, hn::Vec128<Orb64f, N> b) {
    return hn::Vec128<Orb64f, N>{_mm_addsub_pd(a.raw, b.raw)};
}
#if HWY_TARGET <= HWY_AVX2
inline hn::Vec256<Orb32f> subAdd(hn::Vec256<Orb32f> a, hn::Vec256<Orb32f> b) {
    return hn::Vec256<Orb32f>{_mm256_addsub_ps(a.raw, b.raw)};
}
inline hn::Vec256<Orb64f> subAdd(hn::Vec256<Orb64f> a, hn::Vec256<Orb64f> b) {
    return hn::Vec256<Orb64f>{_mm256_addsub_pd(a.raw, b.raw)};
}
#endif
#if HWY_TARGET <= HWY_AVX3
// There is no such instruction of 64 bytes. Each half is computed in its own lanes only, so that the others raise no
// flag; b with turned signs would be another NaN where b is one.
inline hn::Vec512<Orb32f> subAdd(hn::Vec512<Orb32f> a, hn::Vec512<Orb32f> b) {
    const __m512 sums = _mm512_maskz_add_ps(0xaaaa, a.raw, b.raw);
    return hn::Vec512<Orb32f>{_mm512_mask_sub_ps(sums, 0x5555, a.raw, b.raw)};
}
inline hn::Vec512<Orb64f> subAdd(hn::Vec512<Orb64f> a, hn::Vec512<Orb64f> b) {
    const __m512d sums = _mm512_maskz_add_pd(0xaa, a.raw, b.raw);
    return hn::Vec512<Orb64f>{_mm512_mask_sub_pd(sums, 0x55, a.raw, b.raw)};
}
#endif

// (re1*re2 - im1*im2, re1*im2 + im1*re2), each product rounded.
struct ComplexProduct {
    template <class D, class V>
    static V of(D d, V a, V b) {
        return subAdd(hn::Mul(hn::DupEven(a), b), hn::Mul(hn::DupOdd(a), hn::Reverse2(d, b)));
    }
};

// conj(a) * b: (re1*re2 + im1*im2, re1*im2 - im1*re2).
struct ConjugateProduct {
    template <class D, class V>
    static V of(D d, V a, V b) {
        const V byRe = hn::Mul(hn::DupEven(a), b);
        const V byIm = hn::Mul(hn::DupOdd(a), hn::Reverse2(d, b));
        return hn::Add(byRe, hn::Xor(byIm, signOfIm(d)));
    }
};

// (re, -im): the sign bit of a float, NaN included; -32768 saturates to 32767.
struct Conjugate {
    template <class D, class V>
    static V of(D d, V v) {
        using Real = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<Real>) {
            return hn::Xor(v, signOfIm(d));
        } else {
            const V allBits = hn::OddEven(hn::Set(d, Real{-1}), hn::Zero(d)); // -im = ~im + 1
            return hn::SaturatedSub(hn::Xor(v, allBits), allBits);
        }
    }
};

} // namespace orbs
