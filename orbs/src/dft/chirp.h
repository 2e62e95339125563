// Bluestein's transform: a DFT of any length n as a convolution with a chirp, done by power-of-two transforms. It is a
// part of larger objects:
//
//     struct Object { ...; Chirp<T> chirp; };
//     chirp::place(layout, n, spec ? &spec->chirp : nullptr);       lays its areas out, or measures them
//     chirp::fill(spec->chirp, n, scratch);                         `scratch` has scratchSize<T>(n) bytes
//     chirp::run(spec->chirp, inputs, source, outputs, sink, work); `work` has workSize<T>(n) bytes
//
// both kinds of memory aligned to 32 bytes. source(d, at) gives the vector of interleaved input of Lanes(d) reals that
// starts at real number `at`; sink(d, at, v) takes the results in the same places. All input is read before the first
// result is handed over, so that they may share memory. Both must be inlined.
#pragma once

#include "dft/base.h"
#include "fft/members.h"
#include "fft/spec.h"
#include "foundation/objects.h"
#include "vectors/complex.h"
#include "vectors/reverse.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace orbs::dft {

template <class T>
struct Chirp {
    using Inner = typename fft::Specs<T>::Interleaved;
    Orb32s convLength;       // points of the power-of-two transforms: the first power at or above 2 n - 1
    RelativePtr<T> chirp;    // exp(-i pi j^2 / n), n complex values
    RelativePtr<T> spectrum; // of the conjugate chirp to both sides of 0, divided by convLength
    RelativePtr<Inner> inner;
};

namespace chirp {

constexpr int convOrder(std::uint64_t n) {
    return n < 2 ? 0 : std::bit_width(2 * n - 2);
}
// What the inner object tells as its sizes, in numbers that do not wrap.
template <class T>
constexpr fft::Sizes innerSizes(std::uint64_t n) {
    fft::Sizes sizes = fft::sizesOf<T>(convOrder(n), false);
    if (sizes.work) sizes.work += 32;
    return sizes;
}
template <class T>
constexpr std::uint64_t scratchSize(std::uint64_t n) {
    return std::max(innerSizes<T>(n).init, innerSizes<T>(n).work);
}
template <class T>
constexpr std::uint64_t workSize(std::uint64_t n) {
    return innerSizes<T>(n).work + (2 * sizeof(T) << convOrder(n));
}

template <class T>
void place(Layout& layout, std::uint64_t n, Chirp<T>* part) {
    T* chirp = layout.take<T>(2 * n, 32);
    T* spectrum = layout.take<T>(std::uint64_t{2} << convOrder(n), 32);
    auto* inner = layout.take<Orb8u>(innerSizes<T>(n).object, 32);
    if (!part) return;
    part->chirp = chirp;
    part->spectrum = spectrum;
    part->inner = reinterpret_cast<typename Chirp<T>::Inner*>(inner);
}

// Fills what `place` has laid out. For n that are no powers of two: 2 n roots fit into the area of the spectrum.
template <class T>
OrbStatus fill(Chirp<T>& part, std::size_t n, Orb8u* scratch) {
    using Complex = std::conditional_t<sizeof(T) == sizeof(Orb32f), Orb32fc, Orb64fc>;
    using Members = fft::Members<typename Chirp<T>::Inner>;
    const SseRounding nearest(SseRounding::nearest);
    T *const chirp = part.chirp, *const spectrum = part.spectrum;
    const int order = convOrder(n);
    const std::size_t points = std::size_t{1} << order;
    part.convLength = static_cast<Orb32s>(points);
    fillRoots(spectrum, 2 * n);
    for (std::size_t j = 0, square = 0; j < n; square = (square + 2 * j + 1) % (2 * n), ++j)
        std::copy_n(spectrum + 2 * square, 2, chirp + 2 * j);
    std::fill_n(spectrum, 2 * points, T(0));
    for (std::size_t j = 0; j < n; ++j) {
        spectrum[2 * j] = chirp[2 * j];
        spectrum[2 * j + 1] = -chirp[2 * j + 1];
        if (j > 0) std::copy_n(spectrum + 2 * j, 2, spectrum + 2 * (points - j));
    }
    typename Chirp<T>::Inner* inner;
    if (const OrbStatus status = Members::init(&inner, order, ORB_FFT_SCALE_NONE, OrbHintAlgorithm{},
                                               reinterpret_cast<Orb8u*>(part.inner.get()), scratch))
        return status;
    auto* complex = reinterpret_cast<Complex*>(spectrum);
    if (const OrbStatus status = Members::forward(complex, complex, inner, scratch)) return status;
    const T scale = T(1) / static_cast<T>(points); // a power of two
    for (std::size_t i = 0; i < 2 * points; ++i) spectrum[i] *= scale;
    return orbStsNoErr;
}

// X[k] = sum of x[j] exp(-2 pi i j k / n) for k below `outputs`, x[j] being 0 from `inputs` on. The transform with the
// other sign is X[-k]: see Reversed.
template <class T, class Source, class Sink>
OrbStatus run(const Chirp<T>& part, std::size_t inputs, Source source, std::size_t outputs, Sink sink, Orb8u* work) {
    using Complex = std::conditional_t<sizeof(T) == sizeof(Orb32f), Orb32fc, Orb64fc>;
    using Members = fft::Members<typename Chirp<T>::Inner>;
    const T *const chirp = part.chirp, *const spectrum = part.spectrum;
    const auto points = static_cast<std::size_t>(part.convLength);
    auto* complex = reinterpret_cast<Complex*>(work);
    T* const t = asReal(complex);
    Orb8u* const buffer = work + points * sizeof(Complex);
    forEachComplex<T>(inputs, t, [&](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(ComplexProduct::of(d, source(d, n), hn::LoadU(d, chirp + n)), d, t + n);
    });
    std::memset(t + 2 * inputs, 0, (points - inputs) * sizeof(Complex));
    if (const OrbStatus status = Members::forward(complex, complex, part.inner, buffer)) return status;
    forEachComplex<T>(points, t, [&](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(ComplexProduct::of(d, hn::LoadU(d, t + n), hn::LoadU(d, spectrum + n)), d, t + n);
    });
    if (const OrbStatus status = Members::inverse(complex, complex, part.inner, buffer)) return status;
    forEachComplex<T>(outputs, t, [&](auto d, std::size_t n) HWY_ATTR {
        sink(d, n, ComplexProduct::of(d, hn::LoadU(d, t + n), hn::LoadU(d, chirp + n)));
    });
    return orbStsNoErr;
}

// ---- Interleaved ends ----

template <class T>
struct FromInterleaved {
    const T* src;
    template <class D>
    HWY_INLINE auto operator()(D d, std::size_t n) const {
        return hn::LoadU(d, src + n);
    }
};
template <class T>
struct IntoInterleaved {
    T* dst;
    template <class D, class V>
    HWY_INLINE void operator()(D d, std::size_t n, V v) const {
        hn::StoreU(v, d, dst + n);
    }
};
// Element 0 in its place, element j at n - j: the transform with the other sign.
template <class T>
struct Reversed {
    T* dst;
    std::size_t length;
    template <class D, class V>
    HWY_INLINE void operator()(D d, std::size_t n, V v) const {
        constexpr std::size_t lanes = hn::MaxLanes(D());
        if (n > 0) {
            hn::StoreU(reverseElements<2>(d, v), d, dst + 2 * length + 2 - n - lanes);
            return;
        }
        alignas(64) T first[lanes];
        hn::Store(v, d, first);
        for (std::size_t lane = 0; lane < lanes; lane += 2)
            std::memcpy(dst + (lane == 0 ? 0 : 2 * length - lane), first + lane, 2 * sizeof(T));
    }
};

} // namespace chirp
} // namespace orbs::dft
