// Real transforms of any length: the choice of plan, the formats, the frames of the calls.
#pragma once

#include "dft/calls.h"
#include "dft/real_sums.h"
#include "dft/recombine.h"

namespace orbs::dft {

using fft::Format;

// Where a spectrum of n samples lies that begins at `base`. Odd lengths have no RM: their pairs follow R0 but for CCS.
template <class T>
Spectrum<T> spectrumAt(T* base, std::size_t n, Format format, std::remove_const_t<T> scale) {
    const bool behindOne = n % 2 == 0 ? format == Format::pack : format != Format::ccs;
    return {base, base - (behindOne ? 1 : 0), scale};
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
        fft::smallRealInverse(perm, x, n == 4 ? 2 : static_cast<int>(n) - 1, scale);
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
            recombineScaled(dst, n / 2, spec.forwardRecombination.get(), scale);
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
        separate(pairs, r0, rm, dst, n / 2, spec.inverseRecombination.get());
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
    return forwardReal(*pSpec, pSrc, pDst, format, pBuffer);
}
template <class T>
OrbStatus realInverse(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag, Format format) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    return inverseReal(*pSpec, pSrc, pDst, format, pBuffer);
}

} // namespace orbs::dft
