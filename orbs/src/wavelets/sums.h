// Sums of products of taps and samples, lanes being outputs. An output's bits depend on its taps and samples alone, not
// on where in a block it is made, nor on the length of vectors.
#pragma once

#include "vectors/loops.h"

namespace orbs {

// Taps, oldest sample's first, and the sample that the first of them meets for output 0. For output n it meets the one
// n places further on.
struct TapRun {
    const Orb32f* taps;
    std::size_t count;
    const Orb32f* x;
};

// `vectors` vectors of outputs from output n on: the sum of both runs in lanes of d, which may be wider than a sample.
template <std::size_t vectors, class D>
HWY_INLINE void sumVectors(D d, TapRun a, TapRun b, std::size_t n, Orb32f* y) {
    using Sum = hn::TFromD<D>;
    const hn::Rebind<Orb32f, D> single;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto product = [=](hn::Vec<D> tap, const Orb32f* x) HWY_ATTR {
        const auto samples = hn::LoadU(single, x);
        if constexpr (sizeof(Sum) > sizeof(Orb32f)) {
            return hn::Mul(tap, hn::PromoteTo(d, samples));
        } else {
            return hn::Mul(tap, samples);
        }
    };
    hn::Vec<D> sums[vectors];
    const auto first = hn::Set(d, a.count > 0 ? Sum{a.taps[0]} : Sum{0});
#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) sums[v] = a.count > 0 ? product(first, a.x + n + v * lanes) : hn::Zero(d);
    const auto add = [&](const TapRun& run, std::size_t k) HWY_ATTR {
        const auto tap = hn::Set(d, Sum{run.taps[k]});
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) sums[v] = hn::Add(sums[v], product(tap, run.x + n + k + v * lanes));
    };
    for (std::size_t k = 1; k < a.count; ++k) add(a, k);
    for (std::size_t k = 0; k < b.count; ++k) add(b, k);
#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) {
        if constexpr (sizeof(Sum) > sizeof(Orb32f)) {
            hn::StoreU(hn::DemoteTo(single, sums[v]), single, y + n + v * lanes);
        } else {
            hn::StoreU(sums[v], single, y + n + v * lanes);
        }
    }
}

// Outputs from n on in vectors of so many lanes. The last vector may overlap the one before it, and gives the same once
// more; fewer outputs than a vector go through shorter ones.
template <class Sum, std::size_t lanes, std::size_t vectors>
HWY_INLINE void sumFrom(std::size_t n, std::size_t count, TapRun a, TapRun b, Orb32f* y) {
    const hn::CappedTag<Sum, lanes> d;
    for (; n + vectors * lanes <= count; n += vectors * lanes) sumVectors<vectors>(d, a, b, n, y);
    if constexpr (vectors > 1) {
        sumFrom<Sum, lanes, vectors / 2>(n, count, a, b, y);
    } else if (n < count && count >= lanes) {
        sumVectors<1>(d, a, b, count - lanes, y);
    } else if constexpr (lanes > 1) {
        if (n < count) sumFrom<Sum, lanes / 2, 1>(n, count, a, b, y);
    }
}

// y[n] = sum over k of a.taps[k] * a.x[n + k], k upwards, and then of b's, for n = 0 to count - 1, in lanes of Sum:
// each product and each sum is rounded to it, products of floats being exact in double precision. y lies apart from x.
template <class Sum>
void sumProducts(TapRun a, TapRun b, Orb32f* y, std::size_t count) {
    constexpr std::size_t most = HWY_ARCH_X86_32 ? 4 : 8; // as many as there are registers for
    sumFrom<Sum, hn::MaxLanes(hn::ScalableTag<Sum>()), most>(0, count, a, b, y);
}

} // namespace orbs
