// Sums of products of taps and samples, lanes being outputs. An output's bits depend on its taps and samples alone, not
// on where in a block it is made, nor on the length of vectors, nor on what is made beside it.
#pragma once

#include "vectors/loops.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orbs {

// Taps, oldest sample's first, and the sample that the first of them meets for output 0. For output n it meets the one
// n places further on.
struct TapRun {
    const Orb32f* taps;
    std::size_t count;
    const Orb32f* x;
};

// Output n is the sum over k of a.taps[k] * a.x[n + k], k upwards, and then of b's.
struct Output {
    TapRun a, b;
    Orb32f* y;
};

// Samples in lanes of d, which may be wider.
template <class D>
HWY_INLINE hn::Vec<D> loadSamples(D d, const Orb32f* x) {
    if constexpr (sizeof(hn::TFromD<D>) > sizeof(Orb32f)) {
        return hn::PromoteTo(d, hn::LoadU(hn::Rebind<Orb32f, D>(), x));
    } else {
        return hn::LoadU(d, x);
    }
}
template <class D>
HWY_INLINE void storeOutputs([[maybe_unused]] D d, hn::Vec<D> sums, Orb32f* y) {
    const hn::Rebind<Orb32f, D> single;
    if constexpr (sizeof(hn::TFromD<D>) > sizeof(Orb32f)) {
        hn::StoreU(hn::DemoteTo(single, sums), single, y);
    } else {
        hn::StoreU(sums, single, y);
    }
}

// Adds the products of some of the taps, for outputs from n on.
template <std::size_t vectors, class D, class V = hn::Vec<D>>
HWY_INLINE void addProducts(D d, const TapRun& run, std::size_t from, std::size_t to, std::size_t n,
                            V (&sums)[vectors]) {
    for (std::size_t k = from; k < to; ++k) {
        const V tap = hn::Set(d, hn::TFromD<D>{run.taps[k]});
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v)
            sums[v] = hn::Add(sums[v], hn::Mul(tap, loadSamples(d, run.x + n + k + v * hn::MaxLanes(d))));
    }
}
// The same of two outputs, whose samples are loaded once where both need them. Those of the first begin no later.
template <std::size_t vectors, class D, class V = hn::Vec<D>>
HWY_INLINE void addProducts(D d, const TapRun& first, const TapRun& second, std::size_t n, V (&firstSums)[vectors],
                            V (&secondSums)[vectors]) {
    const auto later = static_cast<std::size_t>(second.x - first.x);
    const std::size_t lead = std::min(later, first.count), common = std::min(first.count - lead, second.count);
    addProducts(d, first, 0, lead, n, firstSums);
    for (std::size_t k = 0; k < common; ++k) {
        const V firstTap = hn::Set(d, hn::TFromD<D>{first.taps[lead + k]});
        const V secondTap = hn::Set(d, hn::TFromD<D>{second.taps[k]});
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) {
            const V samples = loadSamples(d, second.x + n + k + v * hn::MaxLanes(d));
            firstSums[v] = hn::Add(firstSums[v], hn::Mul(firstTap, samples));
            secondSums[v] = hn::Add(secondSums[v], hn::Mul(secondTap, samples));
        }
    }
    addProducts(d, first, lead + common, first.count, n, firstSums);
    addProducts(d, second, common, second.count, n, secondSums);
}

// `vectors` vectors of each output from n on.
template <std::size_t vectors, std::size_t outputs, class D>
HWY_INLINE void sumVectors(D d, const std::array<Output, outputs>& out, std::size_t n) {
    using Sum = hn::TFromD<D>;
    hn::Vec<D> sums[outputs][vectors];
#pragma GCC unroll 2
    for (std::size_t o = 0; o < outputs; ++o) {
        // What leaves a product as it is, the sign of a zero too.
        const auto nothing = hn::Set(d, out[o].a.count + out[o].b.count > 0 ? Sum(-0.0) : Sum(0));
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) sums[o][v] = nothing;
    }
    if constexpr (outputs == 2) {
        addProducts(d, out[0].a, out[1].a, n, sums[0], sums[1]);
        addProducts(d, out[0].b, out[1].b, n, sums[0], sums[1]);
    } else {
        addProducts(d, out[0].a, 0, out[0].a.count, n, sums[0]);
        addProducts(d, out[0].b, 0, out[0].b.count, n, sums[0]);
    }
#pragma GCC unroll 2
    for (std::size_t o = 0; o < outputs; ++o) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) storeOutputs(d, sums[o][v], out[o].y + n + v * hn::MaxLanes(d));
    }
}

// Outputs from n on in vectors of so many lanes. The last vector may overlap the one before it, and gives the same once
// more; fewer outputs than a vector go through shorter ones.
template <class Sum, std::size_t lanes, std::size_t vectors, std::size_t outputs>
HWY_INLINE void sumFrom(std::size_t n, std::size_t count, const std::array<Output, outputs>& out) {
    const hn::CappedTag<Sum, lanes> d;
    for (; n + vectors * lanes <= count; n += vectors * lanes) sumVectors<vectors>(d, out, n);
    if constexpr (vectors > 1) {
        sumFrom<Sum, lanes, vectors / 2>(n, count, out);
    } else if (n < count && count >= lanes) {
        sumVectors<1>(d, out, count - lanes);
    } else if constexpr (lanes > 1) {
        if (n < count) sumFrom<Sum, lanes / 2, 1>(n, count, out);
    }
}

// Outputs 0 to count - 1 in lanes of Sum: each product and each sum is rounded to it, products of floats being exact in
// double precision. Results lie apart from samples; runs a, and runs b, of two outputs are of the same samples.
template <class Sum, std::size_t outputs>
void sumProducts(std::array<Output, outputs> out, std::size_t count) {
    constexpr std::size_t most = (HWY_ARCH_X86_32 ? 4 : 8) / outputs; // as many as there are registers for
    if constexpr (outputs == 2) {
        if (out[1].a.x < out[0].a.x || out[1].b.x < out[0].b.x) std::swap(out[0], out[1]);
    }
    sumFrom<Sum, hn::MaxLanes(hn::ScalableTag<Sum>()), most>(0, count, out);
}

} // namespace orbs
