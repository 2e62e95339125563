// The passes of the radix-4 engine. Data lie in bit-reversed order until the last pass: of the four quarters that a
// pass joins, the second in memory belongs to the even samples of the even ones, so its twiddle is the second power.
#pragma once

#include "transforms/fft_arithmetic.h"
#include "transforms/fft_spec.h"

namespace orbs::fft {

constexpr std::size_t reversedBits(std::size_t n, int bits) {
    Orb32u r = static_cast<Orb32u>(n);
    r = (r >> 16) | (r << 16);
    r = ((r & 0xff00ff00u) >> 8) | ((r & 0x00ff00ffu) << 8);
    r = ((r & 0xf0f0f0f0u) >> 4) | ((r & 0x0f0f0f0fu) << 4);
    r = ((r & 0xccccccccu) >> 2) | ((r & 0x33333333u) << 2);
    r = ((r & 0xaaaaaaaau) >> 1) | ((r & 0x55555555u) << 1);
    return bits == 0 ? 0 : r >> (32 - bits);
}

constexpr int log2Of(std::size_t n) {
    return n == 1 ? 0 : 1 + log2Of(n / 2);
}

// Twiddles of the columns at w, a group being read in as many vectors as it takes: the powers 1 to 3 lie two groups
// apart, cos before -sin.
template <int power, class D, class T = hn::TFromD<D>>
HWY_INLINE Cx<hn::Vec<D>> loadTwiddle(D d, const T* w) {
    constexpr std::size_t group = twiddleGroup<T>;
    return {hn::Load(d, w + (2 * power - 2) * group), hn::Load(d, w + (2 * power - 1) * group)};
}

// ---- First pass: many short transforms side by side, one in each lane ----

// Sixteen points in natural order to sixteen in natural order: two layers of radix 4. The columns 1 to 3 of the second
// layer take the twiddles of the 16-point pass at tw; column 0 needs none.
template <bool Inverse, class D, class V = hn::Vec<D>>
HWY_INLINE void transform16(D d, Cx<V> (&x)[16], const hn::TFromD<D>* tw) {
    HWY_UNROLL(4) for (int q = 0; q < 4; ++q) butterfly4<Inverse>(x[q], x[q + 4], x[q + 8], x[q + 12]);
    const auto twiddle = [=](int power, int column) HWY_ATTR {
        return Cx<V>{hn::Set(d, tw[8 * (power - 1) + column]), hn::Set(d, tw[8 * (power - 1) + 4 + column])};
    };
    HWY_UNROLL(4) for (int k = 0; k < 4; ++k) {
        Cx<V>* y = x + 4 * k;
        if (k != 0) {
            for (int q = 1; q < 4; ++q) y[q] = twiddled<Inverse>(y[q], twiddle(q, k));
        }
        butterfly4<Inverse>(y[0], y[1], y[2], y[3]);
    }
    // Now x[4 k + j] is the result k + 4 j.
    for (int k = 0; k < 4; ++k)
        for (int j = k + 1; j < 4; ++j) std::swap(x[4 * k + j], x[4 * j + k]);
}

// The transform that begins an order: 16 points, or 8 for odd orders of the double engine.
template <int points, bool Inverse, class D, class V = hn::Vec<D>>
HWY_INLINE void transformFirst(D d, Cx<V> (&x)[points], const hn::TFromD<D>* tw) {
    if constexpr (points == 16) {
        transform16<Inverse>(d, x, tw);
    } else {
        butterfly8<Inverse>(x);
    }
}

// Writes the results of `lanes` transforms, each to its own run of `points` elements.
template <int points, class D, class To, class Run, class V = hn::Vec<D>>
HWY_INLINE void storeRuns(D d, To to, Run run, const Cx<V> (&x)[points]) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    HWY_UNROLL(8) for (std::size_t t = 0; t < points; t += lanes) {
        V re[lanes], im[lanes];
        for (std::size_t k = 0; k < lanes; ++k) re[k] = x[t + k].re, im[k] = x[t + k].im;
        transpose(d, re);
        transpose(d, im);
        for (std::size_t lane = 0; lane < lanes; ++lane) to.store(d, run(lane) + t, Cx<V>{re[lane], im[lane]});
    }
}

// From natural order anywhere to runs in bit-reversed order: the short transform of the samples n, n + stride, ...
// lands at the run whose number is n reversed.
template <int points, bool Inverse, class D, class From, class To>
void firstPass(D d, From from, To to, int order, const hn::TFromD<D>* tw) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    constexpr int laneBits = log2Of(lanes);
    const int runBits = order - log2Of(points);
    const std::size_t stride = std::size_t{1} << runBits;
    for (std::size_t n = 0; n < stride; n += lanes) {
        Cx<hn::Vec<D>> x[points];
        HWY_UNROLL(16) for (std::size_t q = 0; q < points; ++q) x[q] = from.load(d, n + q * stride);
        transformFirst<points, Inverse>(d, x, tw);
        const std::size_t base = reversedBits(n / lanes, runBits - laneBits);
        storeRuns<points>(
            d, to,
            [=](std::size_t lane) { return points * (base + (reversedBits(lane, laneBits) << (runBits - laneBits))); },
            x);
    }
}

// The same in place on data that are in bit-reversed order already.
template <int points, bool Inverse, class D, class From, class To>
void firstPassInRuns(D d, From from, To to, std::size_t count, const hn::TFromD<D>* tw) {
    using V = hn::Vec<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D());
    for (std::size_t n = 0; n < count; n += points * lanes) {
        Cx<V> x[points];
        for (std::size_t t = 0; t < points; t += lanes) {
            V re[lanes], im[lanes];
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                const Cx<V> v = from.load(d, n + points * lane + t);
                re[lane] = v.re, im[lane] = v.im;
            }
            transpose(d, re);
            transpose(d, im);
            for (std::size_t k = 0; k < lanes; ++k) x[reversedBits(t + k, log2Of(points))] = {re[k], im[k]};
        }
        transformFirst<points, Inverse>(d, x, tw);
        storeRuns<points>(
            d, to, [=](std::size_t lane) { return n + points * lane; }, x);
    }
}

// ---- Passes with twiddles ----

template <bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void column4(D d, From from, To to, std::size_t n, std::size_t quarter, std::size_t toQuarter,
                        Cx<hn::Vec<D>> w1, Cx<hn::Vec<D>> w2, Cx<hn::Vec<D>> w3, Last last) {
    auto x0 = from.load(d, n);
    auto x2 = twiddled<Inverse>(from.load(d, n + quarter), w2);
    auto x1 = twiddled<Inverse>(from.load(d, n + 2 * quarter), w1);
    auto x3 = twiddled<Inverse>(from.load(d, n + 3 * quarter), w3);
    butterfly4<Inverse>(x0, x1, x2, x3);
    to.store(d, n, last(x0));
    to.store(d, n + toQuarter, last(x1));
    to.store(d, n + 2 * toQuarter, last(x2));
    to.store(d, n + 3 * toQuarter, last(x3));
}

// Joins four quarters into 4 * quarter points; their twiddles are at tw.
template <bool Inverse, class D, class From, class To, class Last = AsIs>
void pass4(D d, From from, To to, std::size_t quarter, const hn::TFromD<D>* tw, Last last = {}) {
    constexpr std::size_t group = twiddleGroup<hn::TFromD<D>>, lanes = hn::MaxLanes(D());
    for (std::size_t j = 0; j < quarter; j += group, tw += 6 * group) {
        HWY_UNROLL(4) for (std::size_t h = 0; h < group; h += lanes) {
            column4<Inverse>(d, from, to, j + h, quarter, quarter, loadTwiddle<1>(d, tw + h), loadTwiddle<2>(d, tw + h),
                             loadTwiddle<3>(d, tw + h), last);
        }
    }
}

template <bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void column2(D d, From from, To to, std::size_t n, std::size_t half, std::size_t toHalf, Cx<hn::Vec<D>> w,
                        Last last) {
    const auto even = from.load(d, n);
    const auto odd = twiddled<Inverse>(from.load(d, n + half), w);
    to.store(d, n, last(even + odd));
    to.store(d, n + toHalf, last(even - odd));
}

// Joins two halves.
template <bool Inverse, class D, class From, class To, class Last = AsIs>
void pass2(D d, From from, To to, std::size_t half, const hn::TFromD<D>* tw, Last last = {}) {
    constexpr std::size_t group = twiddleGroup<hn::TFromD<D>>, lanes = hn::MaxLanes(D());
    for (std::size_t j = 0; j < half; j += group, tw += 2 * group) {
        HWY_UNROLL(4)
        for (std::size_t h = 0; h < group; h += lanes)
            column2<Inverse>(d, from, to, j + h, half, half, loadTwiddle<1>(d, tw + h), last);
    }
}

// All radix-4 passes behind the first one up to 2^order points, in place, depth first so that a block stays in the
// first cache from its first pass to its last.
template <bool Inverse, class D, class Work>
void passes(D d, Work work, int order, const hn::TFromD<D>* twiddles) {
    using T = hn::TFromD<D>;
    constexpr int leafOrder = 10;
    int k = firstPassOrder<T>(order) + 2;
    if (order > leafOrder) {
        const std::size_t quarter = std::size_t{1} << (order - 2);
        for (std::size_t q = 0; q < 4; ++q) passes<Inverse>(d, work.from(q * quarter), order - 2, twiddles);
        k = order;
    }
    for (; k <= order; k += 2) {
        const std::size_t quarter = std::size_t{1} << (k - 2);
        for (std::size_t base = 0; base < std::size_t{1} << order; base += 4 * quarter)
            pass4<Inverse>(d, work.from(base), work.from(base), quarter, twiddles + twiddlesBefore<T>(k));
    }
}

// Everything behind the first pass, the last pass going from `work` to `to`.
template <bool Inverse, class D, class Work, class To, class Last>
void passesTo(D d, Work work, To to, int order, const hn::TFromD<D>* twiddles, Last last) {
    using T = hn::TFromD<D>;
    if (!Plan<T>::radix8First && order % 2 == 1) {
        const std::size_t half = std::size_t{1} << (order - 1);
        for (std::size_t h = 0; h < 2; ++h) passes<Inverse>(d, work.from(h * half), order - 1, twiddles);
        pass2<Inverse>(d, work, to, half, twiddles + twiddlesBefore<T>(order + 1), last);
    } else {
        const std::size_t quarter = std::size_t{1} << (order - 2);
        for (std::size_t q = 0; q < 4; ++q) passes<Inverse>(d, work.from(q * quarter), order - 2, twiddles);
        pass4<Inverse>(d, work, to, quarter, twiddles + twiddlesBefore<T>(order), last);
    }
}

} // namespace orbs::fft
