// The plans that go by way of a Fourier transform of 2 N real points, the signal being extended by zeros: its spectrum,
// turned by pi k / (2 N), has the cosine transform as its real part. For powers of two it is a real transform; else the
// points are taken in pairs as N complex ones, transformed by a chirp, and recombined as those of a real signal are.
#pragma once

#include "dct/spec.h"
#include "vectors/planes.h"

namespace orbs::dct {

template <class T>
OrbStatus fourierForward(const Spec<T>& spec, const T* pSrc, T* pDst, T* work) {
    const auto n = static_cast<std::size_t>(spec.length);
    std::memcpy(work, pSrc, n * sizeof(T));
    std::memset(work + n, 0, n * sizeof(T));
    if (const OrbStatus status = fft::Members<typename fft::Specs<T>::Real>::forward(
            work, work, spec.real, reinterpret_cast<Orb8u*>(work + 2 * n)))
        return status;
    const T *const re = spec.turnRe, *const im = re + n;
    forWholeVectors<T>(0, n, [=](auto d, std::size_t k) HWY_ATTR {
        const T* const pairs = work + 2 * k;
        const auto x = partsInBlocks(d, hn::LoadU(d, pairs), hn::LoadU(d, pairs + hn::MaxLanes(d)));
        hn::StoreU(outOfBlocks(d, x.re) * hn::LoadU(d, re + k) + outOfBlocks(d, x.im) * hn::LoadU(d, im + k), d,
                   pDst + k);
    });
    return orbStsNoErr;
}

template <class T>
OrbStatus fourierInverse(const Spec<T>& spec, const T* pSrc, T* pDst, T* work) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T *const re = spec.turnRe, *const im = re + n;
    forWholeVectors<T>(0, n, [=](auto d, std::size_t k) HWY_ATTR {
        const auto x = hn::LoadU(d, pSrc + k);
        hn::StoreInterleaved2(x * hn::LoadU(d, re + k), x * hn::LoadU(d, im + k), d, work + 2 * k);
    });
    if (const OrbStatus status = fft::Members<typename fft::Specs<T>::Real>::inverse(
            work, work, spec.real, reinterpret_cast<Orb8u*>(work + 2 * n)))
        return status;
    std::memcpy(pDst, work, n * sizeof(T));
    return orbStsNoErr;
}

// ---- By a chirp ----

// Calls pair(d, k, mirror) for k = 1 to (n - 1) / 2 in vectors; `mirror` is the lowest of the elements n - k.
template <class T, class Pair>
HWY_INLINE void forEachMirrored(std::size_t n, Pair pair) {
    forEachVector<T>((n - 1) / 2, [=](auto d, std::size_t at) HWY_ATTR { pair(d, at + 1, n - at - hn::MaxLanes(d)); });
}
template <class D, class T>
HWY_INLINE auto loadReversed(D d, const T* from) {
    return hn::Reverse(d, hn::LoadU(d, from));
}

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
    const T *const turnRe = spec.turnRe, *const turnIm = turnRe + n;
    const T *const halfCos = spec.recombineRe - 1, *const halfSin = halfCos + (n - 1) / 2;
    pDst[0] = (z[0] + z[1]) * turnRe[0];
    if (n % 2 == 0) pDst[n / 2] = z[n] * turnRe[n / 2] - z[n + 1] * turnIm[n / 2];
    forEachMirrored<T>(n, [=](auto d, std::size_t k, std::size_t mirror) HWY_ATTR {
        hn::Vec<decltype(d)> re, im, mirrorRe, mirrorIm;
        hn::LoadInterleaved2(d, z + 2 * k, re, im);
        hn::LoadInterleaved2(d, z + 2 * mirror, mirrorRe, mirrorIm);
        mirrorRe = hn::Reverse(d, mirrorRe);
        mirrorIm = hn::Reverse(d, mirrorIm);
        const auto a = hn::LoadU(d, halfCos + k), b = hn::LoadU(d, halfSin + k);
        const auto dr = re - mirrorRe, si = im + mirrorIm;
        const auto u = si * a + dr * b, v = si * b - dr * a;
        const auto low = (mirrorRe + u) * hn::LoadU(d, turnRe + k) + (v - mirrorIm) * hn::LoadU(d, turnIm + k);
        const auto high = (re - u) * loadReversed(d, turnRe + mirror) + (v - im) * loadReversed(d, turnIm + mirror);
        hn::StoreU(low, d, pDst + k);
        hn::StoreU(hn::Reverse(d, high), d, pDst + mirror);
    });
    return orbStsNoErr;
}

// The chirp transforms forward: the spectrum is recombined to the mirrored places.
template <class T>
OrbStatus chirpInverse(const Spec<T>& spec, const T* pSrc, T* pDst, T* z) {
    const auto n = static_cast<std::size_t>(spec.length);
    const T *const turnRe = spec.turnRe, *const turnIm = turnRe + n;
    const T *const cos = spec.recombineRe - 1, *const negativeSin = cos + (n - 1) / 2;
    z[0] = z[1] = pSrc[0] * turnRe[0];
    if (n % 2 == 0) {
        z[n] = 2 * (pSrc[n / 2] * turnRe[n / 2]);
        z[n + 1] = -2 * (pSrc[n / 2] * turnIm[n / 2]);
    }
    forEachMirrored<T>(n, [=](auto d, std::size_t k, std::size_t mirror) HWY_ATTR {
        const auto x = hn::LoadU(d, pSrc + k), y = loadReversed(d, pSrc + mirror);
        const auto re = x * hn::LoadU(d, turnRe + k), im = x * hn::LoadU(d, turnIm + k);
        const auto mirrorRe = y * loadReversed(d, turnRe + mirror), mirrorIm = y * loadReversed(d, turnIm + mirror);
        const auto c = hn::LoadU(d, cos + k), s = hn::LoadU(d, negativeSin + k);
        const auto sr = re + mirrorRe, dr = re - mirrorRe, si = im + mirrorIm, di = im - mirrorIm;
        const auto p = s * dr - c * si, t = s * si + c * dr;
        hn::StoreInterleaved2(hn::Reverse(d, sr + p), hn::Reverse(d, di + t), d, z + 2 * mirror);
        hn::StoreInterleaved2(sr - p, t - di, d, z + 2 * k);
    });
    return dft::chirp::run(spec.chirp, n, dft::chirp::FromInterleaved<T>{z}, (n + 1) / 2, IntoRealPairs<T>{pDst, n},
                           reinterpret_cast<Orb8u*>(z));
}

} // namespace orbs::dct
