// Real transforms of any length: even ones through the complex transform of half their length, direct sums and chirps
// of odd ones; formats; the choice of plan and the frames of the calls.
#pragma once

#include "dft/calls.h"
#include "dft/real_odd.h"

namespace orbs::dft {

using fft::Format;

// Where a spectrum of n samples lies that begins at `base`. Odd lengths have no RM: their pairs follow R0 but for CCS.
template <class T>
Spectrum<T> spectrumAt(T* base, std::size_t n, Format format, std::remove_const_t<T> scale) {
    const bool behindOne = n % 2 == 0 ? format == Format::pack : format != Format::ccs;
    return {base, base - (behindOne ? 1 : 0), scale};
}

// ---- Even lengths N = 2 M, M even or odd: one pass over a complex transform of M points ----
//
// It goes from the spectrum Z of x[2n] + i x[2n+1] to that of x, and back to twice Z. With a + ib = Z[k], c + id =
// Z[M-k] and a table of the pairs A = 0.5 cos, B = 0.5 - 0.5 sin of 2 pi k / N (Inverse: C = cos, S = -sin),
//
//     dr = a - c,  si = b + d,    u + iv = (si A + dr B) + i (si B - dr A)    Inverse: (dr S - si C) + i (si S + dr C)
//     X[k] = (c + u) + i (v - d),    X[M-k] = (a - u) + i (v - b)    Inverse: (a + c + u) + i (b - d + v) and so on,
//
// on elements as they lie.

template <class D, class V>
HWY_INLINE V reverseComplex(D d, V v) {
    if constexpr (hn::MaxLanes(D()) == 2) {
        return v;
    } else if constexpr (sizeof(hn::TFromD<D>) == 8) {
        return hn::ReverseBlocks(d, v);
    } else {
        const hn::Repartition<Orb64f, D> elements;
        return hn::BitCast(d, hn::Reverse(elements, hn::BitCast(elements, v)));
    }
}

template <class V>
struct MirrorElements {
    V low, high; // k and those behind it; M - k and those before it, reversed
};
template <bool Inverse, class D, class V>
HWY_INLINE MirrorElements<V> recombined(D d, MirrorElements<V> x, V table) {
    const V conjugated = hn::Xor(x.high, signOfIm(d)), difference = x.low - conjugated; // dr, si
    const V turned = hn::Xor(hn::DupEven(table), Inverse ? signOfRe(d) : signOfIm(d));
    const V uv = difference * hn::DupOdd(table) + hn::Reverse2(d, difference) * turned;
    const V first = Inverse ? x.low + conjugated : x.low;
    return {(Inverse ? first : conjugated) + uv, hn::Xor(first, signOfIm(d)) + hn::Xor(uv, signOfRe(d))};
}

// Elements 1 to M - 1 but the middle one, all results scaled. `to` may be `from`: the vectors that overlap others are
// loaded before the first result is stored.
template <bool Inverse, class T>
HWY_INLINE void recombinePairs(const T* from, T* to, std::size_t m, const T* table, T scale) {
    const std::size_t pairs = (m - 1) / 2;
    const auto run = [=](auto d) __attribute__((always_inline)) {
        constexpr std::size_t lanes = hn::MaxLanes(d), count = lanes / 2;
        const auto at = [=](std::size_t k) __attribute__((always_inline)) {
            const auto low = hn::LoadU(d, from + 2 * k);
            const auto high = reverseComplex(d, hn::LoadU(d, from + 2 * (m - k + 1) - lanes));
            return recombined<Inverse>(d, MirrorElements<std::decay_t<decltype(low)>>{low, high},
                                       hn::LoadU(d, table + 2 * (k - 1)));
        };
        const auto put = [=](std::size_t k, auto x) __attribute__((always_inline)) {
            hn::StoreU(x.low * hn::Set(d, scale), d, to + 2 * k);
            hn::StoreU(reverseComplex(d, x.high * hn::Set(d, scale)), d, to + 2 * (m - k + 1) - lanes);
        };
        const std::size_t last = pairs + 1 - count;
        const auto behind = at(last);
        for (std::size_t k = 1; k < last; k += count) put(k, at(k));
        put(last, behind);
    };
    constexpr std::size_t most = hn::MaxLanes(RestTag<T>()) / 2;
    if (pairs >= std::max<std::size_t>(most, 4)) {
        run(RestTag<T>());
    } else if (pairs >= 4) {
        run(hn::CappedTag<T, 4>());
    } else if (pairs >= 1) { // just stored, and not as longer vectors would load them
        run(hn::CappedTag<T, 2>());
    }
}

// In place, from Z to X in Perm layout.
template <class T>
HWY_INLINE void recombineForward(T* data, std::size_t m, const T* table, T scale) {
    const T re = data[0], im = data[1];
    recombinePairs<false>(static_cast<const T*>(data), data, m, table, scale);
    data[0] = (re + im) * scale;
    data[1] = (re - im) * scale;
    if (m % 2 == 0) {
        data[m] *= scale;
        data[m + 1] *= -scale;
    }
}
// And back, from the pairs at `from` and the real values R0 and RM. `to` may be `from`.
template <class T>
void recombineInverse(const T* from, T r0, T rm, T* to, std::size_t m, const T* table) {
    const T middleRe = m % 2 == 0 ? from[m] : T(0), middleIm = m % 2 == 0 ? from[m + 1] : T(0);
    recombinePairs<true>(from, to, m, table, T(1));
    to[0] = r0 + rm;
    to[1] = r0 - rm;
    if (m % 2 == 0) {
        to[m] = 2 * middleRe;
        to[m + 1] = -2 * middleIm;
    }
}

// ---- Direct sums: one butterfly of the length, an odd prime, its results in lanes ----

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
        repeat<count>([&](int i) __attribute__((always_inline)) {
            even[i] = hn::Set(d, first);
            odd[i] = hn::Zero(d);
        });
        const T* row = spec.matrix + k;
        for (std::size_t j = 0; j < half; ++j, row += 2 * run) {
            const V sum = hn::Set(d, pairs.sums[j]), difference = hn::Set(d, pairs.differences[j]);
            repeat<count>([&](int i) __attribute__((always_inline)) {
                const std::size_t at = static_cast<std::size_t>(i) * lanes;
                even[i] = even[i] + sum * hn::LoadU(d, row + at);
                odd[i] = odd[i] + difference * hn::LoadU(d, row + run + at);
            });
        }
        repeat<count>([&](int i) __attribute__((always_inline)) {
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

// ---- Bluestein's transform of an odd length ----

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

// ---- Up to 4 samples, in Perm layout ----

template <class T>
constexpr T rootOfThree = static_cast<T>(1.73205080756887729353);

template <class T>
void smallForward(const T* x, T* perm, std::size_t n, T scale) {
    if (n != 3) {
        fft::smallRealForward(x, perm, n == 4 ? 2 : static_cast<int>(n) - 1, scale);
        return;
    }
    const T sum = x[1] + x[2], difference = x[1] - x[2];
    perm[0] = (x[0] + sum) * scale;
    perm[1] = (x[0] - T(0.5) * sum) * scale;
    perm[2] = -(rootOfThree<T> / 2 * difference) * scale;
}
template <class T>
void smallInverse(const T* perm, T* x, std::size_t n, T scale) {
    if (n != 3) {
        fft::smallRealInverse(perm[0], n == 1 ? T(0) : perm[1], perm, x, n == 4 ? 2 : static_cast<int>(n) - 1, scale);
        return;
    }
    const T first = perm[0], re = perm[1], middle = first - re, turned = rootOfThree<T> * perm[2];
    x[0] = (first + 2 * re) * scale;
    x[1] = (middle - turned) * scale;
    x[2] = (middle + turned) * scale;
}

template <class T>
void smallToFormat(const T* x, T* dst, std::size_t n, Format format, T scale) {
    T perm[8];
    smallForward(x, perm, n, scale);
    const Spectrum<T> spectrum = spectrumAt(dst, n, format, T(1));
    dst[0] = perm[0];
    if (n > 2) std::copy_n(perm + n - 2, 2, spectrum.pairs + 2);
    if (n % 2 == 0) dst[format == Format::ccs ? n : format == Format::pack ? n - 1 : 1] = perm[1];
}
template <class T>
void smallFromFormat(const T* src, T* x, std::size_t n, Format format, T scale) {
    T perm[8] = {src[0]};
    if (n > 2) std::copy_n(spectrumAt(src, n, format, T(1)).pairs + 2, 2, perm + n - 2);
    if (n % 2 == 0) perm[1] = fft::middleOf(src, n, format);
    smallInverse(perm, x, n, scale);
}

// ---- Even lengths so short that what stands around the transform costs as much: known lengths, no work area ----

template <int points, class T>
[[gnu::noinline, gnu::flatten]] OrbStatus shortForward(const Spec<T>& spec, const T* src, T* dst, Format format) {
    productTransform<points>(spec, Interleaved<const T>{src}, Interleaved<T>{dst});
    recombineForward<T>(dst, points, spec.forwardRecombination, spec.scaleFwd ? spec.scale : T(1));
    fft::formatSpectrum(dst, 2 * points, format);
    return orbStsNoErr;
}

// ---- The plans. `buffer` is the caller's, or null: then what a plan needs is taken while it runs. ----

template <class T>
OrbStatus forwardReal(const Spec<T>& spec, const T* src, T* dst, Format format, Orb8u* buffer) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T scale = spec.scaleFwd ? spec.scale : T(1);
    if (spec.plan == Plan::powerOfTwo) {
        using Inner = typename fft::Specs<T>::Real;
        const auto* inner = reinterpret_cast<const Inner*>(spec.fft.get());
        return fft::Members<Inner>::forwardTo[static_cast<int>(format)](src, dst, inner, buffer);
    }
    if (spec.plan == Plan::small) {
        smallToFormat(src, dst, n, format, scale);
    } else {
        const WorkArea work(buffer, spec.workSize, true);
        if (work.failed()) return orbStsMemAllocErr;
        const Spectrum<T> spectrum = spectrumAt(dst, n, format, scale);
        if (n % 2 == 0) {
            const Interleaved<const T> samples{src};
            if (const OrbStatus status = transform<false>(spec, samples, Interleaved<T>{dst}, work.bytes()))
                return status;
            recombineForward<T>(dst, n / 2, spec.forwardRecombination, scale);
            fft::formatSpectrum(dst, n, format);
            return orbStsNoErr;
        } else if (spec.plan == Plan::mixedRadix) {
            oddForward(spec, src, spectrum, work.template as<T>());
        } else if (spec.plan == Plan::direct) {
            directForward(spec, src, spectrum, work.bytes());
        } else if (const OrbStatus status = chirpForward(spec, src, spectrum, work.bytes())) {
            return status;
        }
    }
    if (format == Format::ccs) {
        dst[1] = 0;
        if (n % 2 == 0) dst[n + 1] = 0;
    }
    return orbStsNoErr;
}

template <class T>
OrbStatus inverseReal(const Spec<T>& spec, const T* src, T* dst, Format format, Orb8u* buffer) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T scale = spec.scaleInv ? spec.scale : T(1);
    if (spec.plan == Plan::powerOfTwo) {
        using Inner = typename fft::Specs<T>::Real;
        const auto* inner = reinterpret_cast<const Inner*>(spec.fft.get());
        return fft::Members<Inner>::inverseFrom[static_cast<int>(format)](src, dst, inner, buffer);
    }
    if (spec.plan == Plan::small) {
        smallFromFormat(src, dst, n, format, scale);
        return orbStsNoErr;
    }
    const WorkArea work(buffer, spec.workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    const Spectrum<const T> spectrum = spectrumAt(src, n, format, T(1));
    if (n % 2 == 0) {
        const T r0 = src[0], rm = fft::middleOf(src, n, format);
        const T* pairs = spectrum.pairs;
        if (src == dst && pairs != src) { // Pack: pairs move to where their halves come
            std::memmove(dst + 2, dst + 1, (n - 2) * sizeof(T));
            pairs = dst;
        }
        recombineInverse<T>(pairs, r0, rm, dst, n / 2, spec.inverseRecombination);
        const OrbStatus status = transform<true>(spec, Interleaved<const T>{dst}, Interleaved<T>{dst}, work.bytes());
        if (status == orbStsNoErr && spec.scaleInv) scaleBy(scale, dst, n);
        return status;
    }
    if (spec.plan == Plan::chirp) return chirpInverse(spec, spectrum, dst, scale, work.bytes());
    if (spec.plan == Plan::direct) {
        directInverse(spec, spectrum, dst, scale, work.bytes());
    } else {
        oddInverse(spec, spectrum, dst, scale, work.template as<T>());
    }
    return orbStsNoErr;
}

// ---- The frames ----

template <class T>
OrbStatus realForward(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag, Format format) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    if (pSpec->length == 12) return shortForward<6>(*pSpec, pSrc, pDst, format);
    if (pSpec->length == 20) return shortForward<10>(*pSpec, pSrc, pDst, format);
    if (pSpec->length == 24) return shortForward<12>(*pSpec, pSrc, pDst, format);
    return forwardReal(*pSpec, pSrc, pDst, format, pBuffer);
}
template <class T>
OrbStatus realInverse(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag, Format format) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    return inverseReal(*pSpec, pSrc, pDst, format, pBuffer);
}

} // namespace orbs::dft
