// Sums of products of taps and samples: many outputs at once, lanes being outputs, and one output, lanes being taps.
//
// In both the order of a sum is fixed by the number of taps alone. So an output has the same bits in every tier, at
// every place of a block, however a stream is cut into blocks and a block into runs for threads.
#pragma once

#include "filters/phases.h"
#include "vectors/values.h"

#include <algorithm>
#include <utility>

namespace orbs {

// sum + tap * samples. The product is rounded to its own type; the sum may be wider.
template <class D, class V, class P>
HWY_INLINE V plusProduct(D d, V sum, P tap, P samples) {
    return hn::Add(sum, valuesIn(d, hn::Mul(tap, samples)));
}

// `vectors` vectors of neighbouring outputs, the last of them from part `last` on. Complex outputs come from two sums
// over the interleaved samples, one with the real and one with the imaginary parts of the taps, which meet only at the
// end: h * x = (h.re * x.re, h.re * x.im) + (-(h.im * x.im), h.im * x.re).
template <std::size_t vectors, class T, std::ptrdiff_t step, class D, class X, class Y>
HWY_INLINE void convolveVectors(D d, TapRun<T, step> taps, const X* x, Y* y, std::size_t last) {
    const hn::Rebind<Part<T>, D> dProducts;
    const hn::Rebind<X, D> dSamples;
    const hn::Rebind<Y, D> dOutputs;
    constexpr std::size_t lanes = hn::MaxLanes(d), parts = partCount<T>;
    const auto first = [=](std::size_t v) { return v + 1 < vectors ? v * lanes : last; };
    hn::Vec<D> sums[parts][vectors];
#pragma GCC unroll 2
    for (std::size_t p = 0; p < parts; ++p) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) sums[p][v] = hn::Zero(d);
    }

    for (std::size_t k = 0; k < taps.count; ++k, x += parts) {
        const Part<T>* const tap = asParts(taps.first + static_cast<std::ptrdiff_t>(k) * step);
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) {
            const auto samples = valuesIn(dProducts, hn::LoadU(dSamples, x + first(v)));
#pragma GCC unroll 2
            for (std::size_t p = 0; p < parts; ++p)
                sums[p][v] = plusProduct(d, sums[p][v], hn::Set(dProducts, tap[p]), samples);
        }
    }

#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) {
        hn::Vec<D> sum = sums[0][v];
        if constexpr (parts == 2) {
            const hn::Vec<D> byIm = hn::Reverse2(d, sums[1][v]);
            sum = hn::OddEven(hn::Add(sum, byIm), hn::Sub(sum, byIm));
        }
        hn::StoreU(valuesIn(dOutputs, sum), dOutputs, y + first(v));
    }
}

// The outputs of `count` parts, up to `most` vectors and one at least: the last vector may overlap the one before it,
// and then gives the same once more.
template <std::size_t most, class T, std::ptrdiff_t step, class D, class X, class Y>
HWY_INLINE void convolveRest(D d, TapRun<T, step> taps, const X* x, Y* y, std::size_t count) {
    constexpr std::size_t lanes = hn::MaxLanes(d);
    if constexpr (most > 1) {
        if (count <= (most - 1) * lanes) return convolveRest<most - 1>(d, taps, x, y, count);
    }
    convolveVectors<most>(d, taps, x, y, count - lanes);
}

// Fewer than 2 * lanes outputs: one or two vectors of so many lanes, or of half as many.
template <std::size_t lanes, class Sum, class T, std::ptrdiff_t step, class X, class Y>
HWY_INLINE void convolveFew(TapRun<T, step> taps, const X* x, Y* y, std::size_t count) {
    if (count >= lanes) {
        convolveRest<2>(hn::CappedTag<Sum, lanes>(), taps, x, y, count);
    } else if constexpr (lanes > partCount<T>) {
        convolveFew<lanes / 2, Sum>(taps, x, y, count);
    }
}

// pDst[n] = sum over k of tap[k] * pSrc[n + k], k upwards, for n = 0 to count - 1: reads count + taps.count - 1
// samples. Each real product is rounded to the type of the taps and added up in the type Sum; the outputs are sums
// converted to the type that they are stored in.
template <class Sum, class T, std::ptrdiff_t step, class Sample, class Output>
void convolve(TapRun<T, step> taps, const Sample* pSrc, Output* pDst, std::size_t count) {
    const hn::ScalableTag<Sum> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    // Enough independent sums to hide the time of an addition, and no more than there are registers for.
    constexpr std::size_t most = (HWY_ARCH_X86_32 ? 4 : 8) / partCount<T>;
    const Part<Sample>* const x = asParts(pSrc);
    Part<Output>* const y = asParts(pDst);
    const std::size_t end = count * partCount<T>;
    if constexpr (lanes > partCount<T>) {
        if (end < lanes) return convolveFew<lanes / 2, Sum>(taps, x, y, end);
    }
    std::size_t n = 0;
    if constexpr (std::is_same_v<Sum, T> && std::is_same_v<Sample, T> && std::is_same_v<Output, T>) {
        if (PhaseRows<T>::serves(taps.count, count)) n = PhaseRows<T>::convolve(taps, pSrc, pDst, count);
    }
    for (; n + most * lanes <= end; n += most * lanes) convolveVectors<most>(d, taps, x + n, y + n, (most - 1) * lanes);
    if (n == end) return;
    n = std::min(n, end - lanes);
    convolveRest<most>(d, taps, x + n, y + n, end - n);
}

// Lanes added up in halves until two are left.
template <class D, class V>
HWY_INLINE std::pair<hn::TFromD<D>, hn::TFromD<D>> foldedToTwo(D d, V sums) {
    if constexpr (hn::MaxLanes(d) > 2) {
        const hn::Half<D> half;
        return foldedToTwo(half, hn::Add(hn::LowerHalf(half, sums), hn::UpperHalf(half, sums)));
    } else {
        return {hn::ExtractLane(sums, 0), hn::ExtractLane(sums, 1)};
    }
}

// Sums of h[n] * x[n], or crossed: of h[n] * x[n ^ 1], for even and for odd n, in 8 lanes that are folded in halves.
// What is left over from whole groups of 8 comes first, into lane 0 and on. At least 8 products.
template <bool crossed, class Real>
std::pair<Real, Real> sumInLanes(const Real* h, const Real* x, std::size_t count) {
    constexpr std::size_t lanes = 8;
    const hn::CappedTag<Real, lanes> d;
    constexpr std::size_t step = hn::MaxLanes(d), vectors = lanes / step;
    const auto products = [=](std::size_t n) HWY_ATTR {
        const auto samples = hn::LoadU(d, x + n);
        if constexpr (crossed) return hn::Mul(hn::LoadU(d, h + n), hn::Reverse2(d, samples));
        return hn::Mul(hn::LoadU(d, h + n), samples);
    };
    hn::Vec<decltype(d)> sums[vectors];
    const std::size_t left = count % lanes;
#pragma GCC unroll 4
    for (std::size_t v = 0; v < vectors; ++v) {
        const auto among = hn::FirstN(d, left - std::min(left, v * step));
        sums[v] = hn::Add(hn::Zero(d), hn::IfThenElseZero(among, products(v * step)));
    }
    for (std::size_t n = left; n < count; n += lanes) {
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) sums[v] = hn::Add(sums[v], products(n + v * step));
    }
#pragma GCC unroll 2
    for (std::size_t half = vectors / 2; half > 0; half /= 2) {
#pragma GCC unroll 2
        for (std::size_t v = 0; v < half; ++v) sums[v] = hn::Add(sums[v], sums[v + half]);
    }
    return foldedToTwo(d, sums[0]);
}

// The output of one sample, `newest`, which was just written behind the count - 1 older ones at x. Few taps are added
// up in order, more in lanes and the newest product last: a vector that held the newest sample would wait for it to
// reach the cache.
template <class T>
T dotProduct(const T* h, const T* x, std::size_t count, T newest) {
    if (count < 12) {
        T result;
        convolve<Part<T>>(TapRun<T, 1>{h, count}, x, &result, 1);
        return result;
    }
    const T tap = h[count - 1];
    const std::size_t older = (count - 1) * partCount<T>;
    const auto [even, odd] = sumInLanes<false>(asParts(h), asParts(x), older);
    if constexpr (isComplex<T>) {
        const auto [reIm, imRe] = sumInLanes<true>(asParts(h), asParts(x), older);
        return {(even + tap.re * newest.re) - (odd + tap.im * newest.im),
                (reIm + tap.re * newest.im) + (imRe + tap.im * newest.re)};
    } else {
        return (even + odd) + tap * newest;
    }
}

} // namespace orbs
