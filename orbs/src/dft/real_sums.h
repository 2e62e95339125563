// Real transforms of odd prime length, short: one butterfly of that radix, its results in lanes.
#pragma once

#include "dft/real_odd.h"

namespace orbs::dft {

// Sums and differences of mirror elements, h = (N - 1) / 2 of each, in the work area; element j at j - 1.
template <class T>
struct MirrorPairs {
    T *sums, *differences;
};
template <class T>
MirrorPairs<T> mirrorPairs(const Spec<T>& spec, Orb8u* work) {
    T* values = reinterpret_cast<T*>(work);
    return {values, values + spec.length / 2};
}

// The sums a[k] and b[k] of odd_radix.h, k = 1 to h at k - 1, in room for largestRealRun values. Returns the first
// value plus all sums.
constexpr std::size_t largestRealRun = (realDirectLimit / 2 + 15) / 16 * 16;
template <class T>
T sumInLanes(const Spec<T>& spec, T first, MirrorPairs<T> pairs, T* a, T* b) {
    const RestTag<T> d;
    using V = hn::Vec<decltype(d)>;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto points = static_cast<std::size_t>(spec.length);
    const std::size_t half = points / 2, run = matrixRun<T>(points);
    const auto group = [&]<int count>(std::size_t k, std::integral_constant<int, count>) HWY_ATTR {
        V even[count], odd[count];
        fft::repeat<count>([&](int i) __attribute__((always_inline)) {
            even[i] = hn::Set(d, first);
            odd[i] = hn::Zero(d);
        });
        const T* row = spec.matrix + k;
        for (std::size_t j = 0; j < half; ++j, row += 2 * run) {
            const V sum = hn::Set(d, pairs.sums[j]), difference = hn::Set(d, pairs.differences[j]);
            fft::repeat<count>([&](int i) __attribute__((always_inline)) {
                const std::size_t at = static_cast<std::size_t>(i) * lanes;
                even[i] = even[i] + sum * hn::LoadU(d, row + at);
                odd[i] = odd[i] + difference * hn::LoadU(d, row + run + at);
            });
        }
        fft::repeat<count>([&](int i) __attribute__((always_inline)) {
            const std::size_t at = k + static_cast<std::size_t>(i) * lanes;
            hn::Store(even[i], d, a + at);
            hn::Store(odd[i], d, b + at);
        });
    };
    std::size_t k = 0;
    for (; k + 4 * lanes <= half; k += 4 * lanes) group(k, std::integral_constant<int, 4>());
    for (; k + 2 * lanes <= half; k += 2 * lanes) group(k, std::integral_constant<int, 2>());
    for (; k < half; k += lanes) group(k, std::integral_constant<int, 1>());
    T total = first;
    for (std::size_t j = 0; j < half; ++j) total += pairs.sums[j];
    return total;
}

template <class T>
void directForward(const Spec<T>& spec, const T* src, Spectrum<T> spectrum, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.length), half = points / 2;
    const MirrorPairs<T> pairs = mirrorPairs(spec, work);
    const T first = src[0];
    forEachRun<T>(half, [&](auto d, std::size_t j) HWY_ATTR {
        const auto low = hn::LoadU(d, src + j);
        const auto high = hn::Reverse(d, hn::LoadU(d, src + points - j - hn::MaxLanes(d) + 1));
        hn::StoreU(low + high, d, pairs.sums + j - 1);
        hn::StoreU(low - high, d, pairs.differences + j - 1);
    });
    alignas(64) T re[largestRealRun], im[largestRealRun];
    const T total = sumInLanes(spec, first, pairs, re, im);
    *spectrum.first = total * spectrum.scale;
    forEachRun<T>(half, [&](auto d, std::size_t k) HWY_ATTR {
        spectrum.store(d, k, {hn::LoadU(d, re + k - 1), hn::LoadU(d, im + k - 1)});
    });
}

template <class T>
void directInverse(const Spec<T>& spec, Spectrum<const T> spectrum, T* dst, T scale, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.length), half = points / 2;
    const MirrorPairs<T> pairs = mirrorPairs(spec, work);
    forEachRun<T>(half, [&](auto d, std::size_t k) HWY_ATTR {
        const auto x = spectrum.load(d, k);
        hn::StoreU(x.re + x.re, d, pairs.sums + k - 1);
        hn::StoreU(x.im + x.im, d, pairs.differences + k - 1);
    });
    alignas(64) T even[largestRealRun], odd[largestRealRun];
    dst[0] = sumInLanes(spec, *spectrum.first, pairs, even, odd) * scale;
    forEachRun<T>(half, [&](auto d, std::size_t j) HWY_ATTR {
        const auto a = hn::LoadU(d, even + j - 1), b = hn::LoadU(d, odd + j - 1), factor = hn::Set(d, scale);
        hn::StoreU((a + b) * factor, d, dst + j);
        hn::StoreU(hn::Reverse(d, (a - b) * factor), d, dst + points - j - hn::MaxLanes(d) + 1);
    });
}

// ---- The same lengths above the limit, and what has a prime factor that is too large: Bluestein's transform ----

// Interleaved complex elements whose imaginary parts are 0.
template <class T>
struct FromSamples {
    const T* src;
    template <class D>
    HWY_INLINE hn::Vec<D> operator()(D d, std::size_t n) const {
        constexpr auto places = [] {
            std::array<hn::TFromD<hn::RebindToSigned<D>>, hn::MaxLanes(D())> at{};
            for (std::size_t lane = 0; lane < at.size(); ++lane) at[lane] = static_cast<decltype(at[0] + 0)>(lane / 2);
            return at;
        }();
        const auto samples = hn::ZeroExtendVector(d, hn::LoadU(hn::Half<D>(), src + n / 2));
        const auto twice = hn::TableLookupLanes(samples, hn::SetTableIndices(d, places.data()));
        return hn::OddEven(hn::Zero(d), twice);
    }
};
template <class T>
struct IntoSpectrum {
    Spectrum<T> spectrum;
    template <class D, class V>
    HWY_INLINE void operator()(D d, std::size_t n, V v) const {
        v = v * hn::Set(d, spectrum.scale);
        if (n > 0) {
            hn::StoreU(v, d, spectrum.pairs + n);
            return;
        }
        constexpr std::size_t lanes = hn::MaxLanes(D());
        alignas(64) T values[lanes];
        hn::Store(v, d, values);
        *spectrum.first = values[0];
        for (std::size_t lane = 2; lane < lanes; ++lane) spectrum.pairs[lane] = values[lane];
    }
};
template <class T>
struct IntoSamples {
    T *dst, scale;
    template <class D, class V>
    HWY_INLINE void operator()(D d, std::size_t n, V v) const {
        const hn::Half<D> half;
        const auto re = hn::LowerHalf(half, hn::ConcatEven(d, v, v));
        hn::StoreU(re * hn::Set(half, scale), half, dst + n / 2);
    }
};

template <class T>
OrbStatus chirpForward(const Spec<T>& spec, const T* src, Spectrum<T> spectrum, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.length);
    return chirp::run<T>(spec.chirp, points, FromSamples<T>{src}, points / 2 + 1, IntoSpectrum<T>{spectrum}, work);
}
// The inverse is the transform of the conjugate spectrum, which is put together in the work area.
template <class T>
OrbStatus chirpInverse(const Spec<T>& spec, Spectrum<const T> spectrum, T* dst, T scale, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.length);
    T* whole = reinterpret_cast<T*>(work);
    whole[0] = *spectrum.first;
    whole[1] = 0;
    forEachRun<T>(points / 2, [&](auto d, std::size_t k) HWY_ATTR {
        const auto x = spectrum.load(d, k);
        const fft::Interleaved<T> to{whole};
        to.store(d, k, conjugate(x));
        fft::storeReversed(d, to, points - k - hn::MaxLanes(d) + 1, x);
    });
    return chirp::run<T>(spec.chirp, points, chirp::FromInterleaved<T>{whole}, points, IntoSamples<T>{dst, scale},
                         work);
}

} // namespace orbs::dft
