// Sums of products of taps and samples: many outputs at once, lanes being outputs, and one output, lanes being taps.
//
// In both the order of a sum is fixed by the number of taps alone. So an output has the same bits in every tier, at
// every place of a block, however a stream is cut into blocks and a block into runs for threads.
#pragma once

#include "foundation/frame.h"
#include "foundation/vectors.h"

#include <algorithm>

namespace orbs {

template <class T>
struct PartsOf {
    using Real = T;
    static constexpr std::size_t count = 1;
};
template <class T>
requires isComplex<T>
struct PartsOf<T> {
    using Real = RealOf<T>;
    static constexpr std::size_t count = 2;
};

// The type of the parts of an element, and their number: itself and 1 if it is real.
template <class T>
using Part = typename PartsOf<T>::Real;
template <class T>
constexpr std::size_t partCount = PartsOf<T>::count;

template <class T>
const Part<T>* asParts(const T* p) {
    return reinterpret_cast<const Part<T>*>(p);
}
template <class T>
Part<T>* asParts(T* p) {
    return reinterpret_cast<Part<T>*>(p);
}

// Taps in the order of the samples that they meet, oldest sample first.
template <class T>
struct TapRun {
    const T* first;
    std::ptrdiff_t step; // to the tap of the next younger sample: 1, or -1 over taps in natural order
    std::size_t count;
};

// sum + tap * samples. The product is rounded to its own type; the sum may be wider.
template <class D, class V, class P>
HWY_INLINE V plusProduct(D d, V sum, P tap, P samples) {
    const P product = hn::Mul(tap, samples);
    if constexpr (std::is_same_v<V, P>) {
        return hn::Add(sum, product);
    } else {
        return hn::Add(sum, hn::PromoteTo(d, product));
    }
}

// `vectors` vectors of neighbouring outputs. Complex outputs come from two sums over the interleaved samples, one with
// the real and one with the imaginary parts of the taps, which meet only at the end: h * x = (h.re * x.re, h.re * x.im)
// + (-(h.im * x.im), h.im * x.re).
template <std::size_t vectors, class T, class D>
HWY_INLINE void convolveVectors(D d, TapRun<T> taps, const Part<T>* x, Part<T>* y) {
    const hn::Rebind<Part<T>, D> dSamples;
    constexpr std::size_t lanes = hn::MaxLanes(d), parts = partCount<T>;
    hn::Vec<D> sums[parts][vectors];
#pragma GCC unroll 2
    for (std::size_t p = 0; p < parts; ++p) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) sums[p][v] = hn::Zero(d);
    }

    const Part<T>* tap = asParts(taps.first);
    for (std::size_t k = 0; k < taps.count; ++k, x += parts, tap += taps.step * std::ptrdiff_t{parts}) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) {
            const auto samples = hn::LoadU(dSamples, x + v * lanes);
#pragma GCC unroll 2
            for (std::size_t p = 0; p < parts; ++p)
                sums[p][v] = plusProduct(d, sums[p][v], hn::Set(dSamples, tap[p]), samples);
        }
    }

#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) {
        hn::Vec<D> sum = sums[0][v];
        if constexpr (parts == 2) {
            const hn::Vec<D> byIm = hn::Reverse2(d, sums[1][v]);
            sum = hn::OddEven(hn::Add(sum, byIm), hn::Sub(sum, byIm));
        }
        if constexpr (std::is_same_v<hn::TFromD<D>, Part<T>>) {
            hn::StoreU(sum, d, y + v * lanes);
        } else {
            hn::StoreU(hn::DemoteTo(dSamples, sum), dSamples, y + v * lanes);
        }
    }
}

// Outputs from part n to `end`, `width` parts at a time, the rest in halves of that.
template <std::size_t width, class Sum, class T>
HWY_INLINE void convolveRuns(std::size_t n, TapRun<T> taps, const Part<T>* x, Part<T>* y, std::size_t end) {
    constexpr std::size_t full = hn::MaxLanes(hn::ScalableTag<Sum>());
    constexpr std::size_t lanes = std::min(width, full);
    for (; n + width <= end; n += width)
        convolveVectors<width / lanes, T>(hn::CappedTag<Sum, lanes>(), taps, x + n, y + n);
    if constexpr (width > partCount<T>) convolveRuns<width / 2, Sum, T>(n, taps, x, y, end);
}

// pDst[n] = sum over k of tap[k] * pSrc[n + k], k upwards, for n = 0 to count - 1: reads count + taps.count - 1
// samples. Each real product is rounded to the type of the samples and added up in the type Sum.
template <class Sum, class T>
void convolve(TapRun<T> taps, const T* pSrc, T* pDst, std::size_t count) {
    // Enough independent sums to hide the time of an addition, and no more than there are registers for.
    constexpr std::size_t sums = HWY_ARCH_X86_32 ? 4 : 8;
    constexpr std::size_t width = sums / partCount<T> * hn::MaxLanes(hn::ScalableTag<Sum>());
    convolveRuns<width, Sum, T>(0, taps, asParts(pSrc), asParts(pDst), count * partCount<T>);
}

// The sum of h[k] * x[k]: in order for few taps, else in 8 real lanes (lane j takes the parts j, j + 8, ...) that are
// folded in halves.
template <class T>
T dotProduct(const T* h, const T* x, std::size_t count) {
    T result;
    if (count < 12) {
        convolve<Part<T>>(TapRun<T>{h, 1, count}, x, &result, 1);
        return result;
    }
    constexpr std::size_t lanes = 8, parts = partCount<T>;
    const hn::CappedTag<Part<T>, lanes> d;
    constexpr std::size_t step = hn::MaxLanes(d), vectors = lanes / step;
    const Part<T>*tap = asParts(h), *sample = asParts(x);
    // Complex: re * re and im * im meet in straight lanes, re * im and im * re in crossed ones.
    hn::Vec<decltype(d)> straight[vectors], crossed[vectors];
#pragma GCC unroll 4
    for (std::size_t v = 0; v < vectors; ++v) straight[v] = crossed[v] = hn::Zero(d);
    std::size_t n = 0;
    for (; n + lanes <= count * parts; n += lanes) {
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) {
            const auto hv = hn::LoadU(d, tap + n + v * step), xv = hn::LoadU(d, sample + n + v * step);
            straight[v] = hn::Add(straight[v], hn::Mul(hv, xv));
            if constexpr (parts == 2) crossed[v] = hn::Add(crossed[v], hn::Mul(hv, hn::Reverse2(d, xv)));
        }
    }
    Part<T> s[lanes], c[lanes];
    for (std::size_t v = 0; v < vectors; ++v) {
        hn::StoreU(straight[v], d, s + v * step);
        hn::StoreU(crossed[v], d, c + v * step);
    }
    for (std::size_t j = 0; n + j < count * parts; ++j) {
        s[j] += tap[n + j] * sample[n + j];
        if constexpr (parts == 2) c[j] += tap[n + j] * sample[(n + j) ^ 1];
    }
    for (std::size_t half = lanes / 2; half >= parts; half /= 2) {
        for (std::size_t j = 0; j < half; ++j) {
            s[j] += s[j + half];
            c[j] += c[j + half];
        }
    }
    if constexpr (parts == 2) {
        return {s[0] - s[1], c[0] + c[1]};
    } else {
        return s[0];
    }
}

} // namespace orbs
