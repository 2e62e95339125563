// The plans that go by way of a Fourier transform of 2 N real points, the signal being extended by zeros: its spectrum,
// turned by pi k / (2 N), has the cosine transform as its real part. The points are taken in pairs as N complex ones,
// transformed by an FFT of N points or by a chirp, and recombined as those of a real signal are.
#pragma once

#include "dct/spec.h"

namespace orbs::dct {

// Calls pair(d, k, mirror) for k = 1 to n / 2 in vectors; `mirror` is the lowest of the elements n - k. The middle of
// an even n stands among both, and has to be set afterwards.
template <class T, class Pair>
HWY_INLINE void forEachMirrored(std::size_t n, Pair pair) {
    forEachVector<T>(n / 2, [=](auto d, std::size_t at) HWY_ATTR { pair(d, at + 1, n - at - hn::MaxLanes(d)); });
}

// From the spectrum z of pairs to the cosine transform. The turn of n - k is that of k with its parts exchanged.
template <class T>
void turnForward(const Spec<T>& spec, const T* z, T* pDst) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T *const cos = spec.turnCos, *const sin = spec.turnSin;
    const T *const halfCos = spec.recombineCos - 1, *const halfSin = spec.recombineSin - 1;
    forEachMirrored<T>(n, [=](auto d, std::size_t k, std::size_t mirror) HWY_ATTR {
        hn::Vec<decltype(d)> re, im, mirrorRe, mirrorIm;
        hn::LoadInterleaved2(d, z + 2 * k, re, im);
        hn::LoadInterleaved2(d, z + 2 * mirror, mirrorRe, mirrorIm);
        mirrorRe = hn::Reverse(d, mirrorRe);
        mirrorIm = hn::Reverse(d, mirrorIm);
        const auto a = hn::LoadU(d, halfCos + k), b = hn::LoadU(d, halfSin + k);
        const auto c = hn::LoadU(d, cos + k), s = hn::LoadU(d, sin + k);
        const auto dr = re - mirrorRe, si = im + mirrorIm;
        const auto u = si * a + dr * b, v = si * b - dr * a;
        hn::StoreU((mirrorRe + u) * c + (v - mirrorIm) * s, d, pDst + k);
        hn::StoreU(hn::Reverse(d, (re - u) * s + (v - im) * c), d, pDst + mirror);
    });
    pDst[0] = (z[0] + z[1]) * cos[0];
    if (n % 2 == 0) pDst[n / 2] = z[n] * cos[n / 2] - z[n + 1] * sin[n / 2];
}

// Back to twice the spectrum of pairs, or to its mirror image, which a forward transform turns into the inverse one.
template <bool mirrored, class T>
void turnInverse(const Spec<T>& spec, const T* pSrc, T* z) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T *const cos = spec.turnCos, *const sin = spec.turnSin;
    const T *const wholeCos = spec.recombineCos - 1, *const negativeSin = spec.recombineSin - 1;
    forEachMirrored<T>(n, [=](auto d, std::size_t k, std::size_t mirror) HWY_ATTR {
        const auto x = hn::LoadU(d, pSrc + k), y = hn::Reverse(d, hn::LoadU(d, pSrc + mirror));
        const auto c = hn::LoadU(d, cos + k), s = hn::LoadU(d, sin + k);
        const auto re = x * c, im = x * s, mirrorRe = y * s, mirrorIm = y * c;
        const auto a = hn::LoadU(d, wholeCos + k), b = hn::LoadU(d, negativeSin + k);
        const auto sr = re + mirrorRe, dr = re - mirrorRe, si = im + mirrorIm, di = im - mirrorIm;
        const auto p = b * dr - a * si, t = b * si + a * dr;
        const auto store = [=](auto lowRe, auto lowIm, auto highRe, auto highIm) HWY_ATTR {
            hn::StoreInterleaved2(lowRe, lowIm, d, z + 2 * k);
            hn::StoreInterleaved2(hn::Reverse(d, highRe), hn::Reverse(d, highIm), d, z + 2 * mirror);
        };
        if constexpr (mirrored) {
            store(sr - p, t - di, sr + p, di + t);
        } else {
            store(sr + p, di + t, sr - p, t - di);
        }
    });
    z[0] = z[1] = pSrc[0] * cos[0];
    if (n % 2 == 0) {
        z[n] = 2 * (pSrc[n / 2] * cos[n / 2]);
        z[n + 1] = -2 * (pSrc[n / 2] * sin[n / 2]);
    }
}

// ---- Powers of two ----

// An FFT of the pairs in place; its buffer lies behind them.
template <class T>
OrbStatus transformPairs(OrbStatus (*transform)(const ComplexOf<T>*, ComplexOf<T>*, const InnerOf<T>*, Orb8u*),
                         const Spec<T>& spec, T* z) {
    auto* pairs = reinterpret_cast<ComplexOf<T>*>(z);
    return transform(pairs, pairs, spec.inner, reinterpret_cast<Orb8u*>(pairs + spec.length));
}

template <class T>
OrbStatus fourierForward(const Spec<T>& spec, const T* pSrc, T* pDst, T* z) {
    const auto n = static_cast<std::size_t>(spec.length);
    std::memcpy(z, pSrc, n * sizeof(T));
    std::memset(z + n, 0, n * sizeof(T));
    if (const OrbStatus status = transformPairs(fft::Members<InnerOf<T>>::forward, spec, z)) return status;
    turnForward(spec, z, pDst);
    return orbStsNoErr;
}

template <class T>
OrbStatus fourierInverse(const Spec<T>& spec, const T* pSrc, T* pDst, T* z) {
    turnInverse<false>(spec, pSrc, z);
    if (const OrbStatus status = transformPairs(fft::Members<InnerOf<T>>::inverse, spec, z)) return status;
    std::memcpy(pDst, z, static_cast<std::size_t>(spec.length) * sizeof(T));
    return orbStsNoErr;
}

// ---- Other lengths ----

// A real vector of `length` elements, one more than that as 0, as pairs.
template <class T>
struct RealPairs {
    const T* src;
    std::size_t length;
    template <class D>
    HWY_INLINE auto operator()(D d, std::size_t at) const {
        constexpr std::size_t lanes = hn::MaxLanes(D());
        if (at + lanes <= length) return hn::LoadU(d, src + at);
        alignas(64) T last[lanes] = {};
        std::copy(src + at, src + length, last);
        return hn::Load(d, last);
    }
};
template <class T>
struct IntoRealPairs {
    T* dst;
    std::size_t length;
    template <class D, class V>
    HWY_INLINE void operator()(D d, std::size_t at, V v) const {
        constexpr std::size_t lanes = hn::MaxLanes(D());
        if (at + lanes <= length) {
            hn::StoreU(v, d, dst + at);
            return;
        }
        alignas(64) T last[lanes];
        hn::Store(v, d, last);
        std::copy(last, last + (length - at), dst + at);
    }
};

template <class T>
OrbStatus chirpForward(const Spec<T>& spec, const T* pSrc, T* pDst, T* z) {
    const auto n = static_cast<std::size_t>(spec.length);
    if (const OrbStatus status = dft::chirp::run(spec.chirp, (n + 1) / 2, RealPairs<T>{pSrc, n}, n,
                                                 dft::chirp::IntoInterleaved<T>{z}, reinterpret_cast<Orb8u*>(z)))
        return status;
    turnForward(spec, z, pDst);
    return orbStsNoErr;
}

template <class T>
OrbStatus chirpInverse(const Spec<T>& spec, const T* pSrc, T* pDst, T* z) {
    const auto n = static_cast<std::size_t>(spec.length);
    turnInverse<true>(spec, pSrc, z);
    return dft::chirp::run(spec.chirp, n, dft::chirp::FromInterleaved<T>{z}, (n + 1) / 2, IntoRealPairs<T>{pDst, n},
                           reinterpret_cast<Orb8u*>(z));
}

} // namespace orbs::dct
