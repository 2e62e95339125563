// The frames of the transform calls: checks, working memory, choice of path.
#pragma once

#include "fft/engine.h"
#include "fft/real_registers.h"
#include "foundation/work_area.h"

namespace orbs::fft {

// The tests of every transform: the object, its tag, the data.
template <class T, class... P>
OrbStatus checkCall(const Spec<T>* pSpec, Orb32s tag, const P*... data) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    return anyNull(data...) ? orbStsNullPtrErr : orbStsNoErr;
}

// The test of the transforms that read tables: those of another tier may have their columns in another order.
template <class T>
OrbStatus checkTables(const Spec<T>& spec) {
    return spec.group == static_cast<Orb32s>(groupBytes) ? orbStsNoErr : orbStsContextMatchErr;
}

template <bool Inverse, class T>
bool isScaled(const Spec<T>& spec) {
    return Inverse ? spec.scaleInv != 0 : spec.scaleFwd != 0;
}
template <bool Inverse, class T>
T scaleOf(const Spec<T>& spec) {
    return isScaled<Inverse>(spec) ? spec.scale : T(1);
}

// A complex transform of an order from 4 to mostInRegisters.
template <bool Inverse, class T, class From, class To>
HWY_INLINE void scaledInRegisters(const Spec<T>& spec, int order, From from, To to) {
    withScale(
        isScaled<Inverse>(spec), spec.scale, [&](auto last) __attribute__((always_inline)) {
            transformInRegisters<Inverse, T>(from, to, order, last);
        });
}

// A complex transform of an order that has tables, whose scale is applied to the results. `buffer` is needed in place
// and in blocked orders.
template <bool Inverse, class T>
void transformInterleaved(const Spec<T>& spec, int order, Interleaved<const T> from, Interleaved<T> to, Orb8u* buffer) {
    if (order <= mostInRegisters) return scaledInRegisters<Inverse>(spec, order, from, to);
    const bool inPlace = from.base == to.base;
    const auto transform = [&](auto last) __attribute__((always_inline)) {
        if (order > Plan<T>::directLimit) {
            transformBlocked<Inverse>(spec, from, Grouped<T>{to.base}, to, order, inPlace, buffer, last);
        } else {
            const Grouped<T> work{inPlace ? reinterpret_cast<T*>(buffer) : to.base};
            transformDirect<Inverse>(from, work, to, order, static_cast<const T*>(spec.twiddles), last);
        }
    };
    withScale(isScaled<Inverse>(spec), spec.scale, transform);
}

template <bool Inverse, class T>
OrbStatus interleaved(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    const int order = pSpec->order;
    if (order < smallOrders) {
        smallComplex<Inverse>(Interleaved<const T>{pSrc}, Interleaved<T>{pDst}, order, scaleOf<Inverse>(*pSpec));
        return orbStsNoErr;
    }
    if (order <= mostInRegisters) {
        scaledInRegisters<Inverse>(*pSpec, order, Interleaved<const T>{pSrc}, Interleaved<T>{pDst});
        return orbStsNoErr;
    }
    if (const OrbStatus status = checkTables(*pSpec)) return status;
    const WorkArea work(pBuffer, pSpec->workSize, pSrc == pDst || order > Plan<T>::directLimit);
    if (work.failed()) return orbStsMemAllocErr;
    transformInterleaved<Inverse>(*pSpec, order, Interleaved<const T>{pSrc}, Interleaved<T>{pDst}, work.bytes());
    return orbStsNoErr;
}

template <bool Inverse, class T>
OrbStatus planes(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm, const Spec<T>* pSpec, Orb8u* pBuffer,
                 Orb32s tag) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrcRe, pSrcIm, pDstRe, pDstIm)) return status;
    const int order = pSpec->order;
    const Planes<const T> from{pSrcRe, pSrcIm};
    const Planes<T> to{pDstRe, pDstIm};
    if (order < smallOrders) {
        smallComplex<Inverse>(from, to, order, scaleOf<Inverse>(*pSpec));
        return orbStsNoErr;
    }
    if (order <= mostInRegisters) {
        scaledInRegisters<Inverse>(*pSpec, order, from, to);
        return orbStsNoErr;
    }
    if (const OrbStatus status = checkTables(*pSpec)) return status;
    const bool blocked = order > Plan<T>::directLimit;
    const bool shared = pDstRe == pSrcRe || pDstIm == pSrcIm || pDstRe == pSrcIm || pDstIm == pSrcRe;
    const WorkArea work(pBuffer, pSpec->workSize, shared || blocked);
    if (work.failed()) return orbStsMemAllocErr;
    const auto transform = [&](auto last) __attribute__((always_inline)) {
        const T* twiddles = pSpec->twiddles;
        if (blocked) {
            // Each plane may be in place by itself.
            const std::size_t bytes = sizeof(T) << order;
            if (shared && pDstRe != pSrcRe) std::memcpy(pDstRe, pSrcRe, bytes);
            if (shared && pDstIm != pSrcIm) std::memcpy(pDstIm, pSrcIm, bytes);
            transformBlocked<Inverse>(*pSpec, from, GroupedPlanes<T>{pDstRe, pDstIm}, to, order, shared, work.bytes(),
                                      last);
        } else if (shared) {
            transformDirect<Inverse>(from, Grouped<T>{work.as<T>()}, to, order, twiddles, last);
        } else {
            transformDirect<Inverse>(from, GroupedPlanes<T>{pDstRe, pDstIm}, to, order, twiddles, last);
        }
    };
    withScale(isScaled<Inverse>(*pSpec), pSpec->scale, transform);
    return orbStsNoErr;
}

template <class T>
OrbStatus realForward(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag, Format format) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    const int order = pSpec->order, coreOrder = order - 1;
    const std::size_t samples = std::size_t{1} << order;
    if (order == smallOrders || order == smallOrders + 1) {
        const auto transform = [&](auto last) __attribute__((always_inline)) {
            if (order == smallOrders) return realForwardInRegisters<smallOrders>(pSrc, pDst, format, last);
            realForwardInRegisters<smallOrders + 1>(pSrc, pDst, format, last);
        };
        withScale(isScaled<false>(*pSpec), pSpec->scale, transform);
        return orbStsNoErr;
    }
    if (order < smallOrders) {
        smallRealForward(pSrc, pDst, order, scaleOf<false>(*pSpec));
    } else {
        if (const OrbStatus status = checkTables(*pSpec)) return status;
        const bool needed = coreOrder > mostInRegisters && (pSrc == pDst || coreOrder > Plan<T>::directLimit);
        const WorkArea work(pBuffer, pSpec->workSize, needed);
        if (work.failed()) return orbStsMemAllocErr;
        transformInterleaved<false>(*pSpec, coreOrder, Interleaved<const T>{pSrc}, Interleaved<T>{pDst}, work.bytes());
        recombineForward(pDst, samples / 2, pSpec->forwardRecombination.get());
    }
    formatSpectrum(pDst, samples, format);
    return orbStsNoErr;
}

template <class T>
OrbStatus realInverse(const T* pSrc, T* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag, Format format) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    const int order = pSpec->order, coreOrder = order - 1;
    const std::size_t samples = std::size_t{1} << order;
    if (order == smallOrders || order == smallOrders + 1) {
        const auto transform = [&](auto last) __attribute__((always_inline)) {
            if (order == smallOrders) return realInverseInRegisters<smallOrders>(pSrc, pDst, format, last);
            realInverseInRegisters<smallOrders + 1>(pSrc, pDst, format, last);
        };
        withScale(isScaled<true>(*pSpec), pSpec->scale, transform);
        return orbStsNoErr;
    }
    const T r0 = pSrc[0], rm = order == 0 ? T(0) : middleOf(pSrc, samples, format);
    if (order < smallOrders) {
        smallRealInverse(r0, rm, pSrc - pairsBefore(format), pDst, order, scaleOf<true>(*pSpec));
        return orbStsNoErr;
    }
    if (const OrbStatus status = checkTables(*pSpec)) return status;
    const bool blocked = coreOrder > Plan<T>::directLimit;
    const WorkArea work(pBuffer, pSpec->workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    Interleaved<const T> pairs{pSrc - pairsBefore(format)};
    if (blocked && pSrc == pDst && format == Format::pack) {
        std::memmove(pDst + 2, pDst + 1, (samples - 2) * sizeof(T));
        pairs = {pDst};
    }
    T* half = blocked ? pDst : work.as<T>();
    recombineInverse(pairs, r0, rm, half, samples / 2, pSpec->inverseRecombination.get());
    transformInterleaved<true>(*pSpec, coreOrder, Interleaved<const T>{half}, Interleaved<T>{pDst}, work.bytes());
    return orbStsNoErr;
}

} // namespace orbs::fft
