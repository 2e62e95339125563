// The object of a transform of integers: a header, and behind it in the same block the object of the float transform
// that most of them go through.
#pragma once

#include "fft/members.h"
#include "fft/spec.h"

#include <new>

namespace orbs::fixedfft {

// Orders up to this one have an integer core of their own, in the kinds of 16 bits.
constexpr int nativeOrders = 3;

// InnerSpec is the float object; `native`: with the integer core, in memory of the sizes that go with it.
template <class InnerSpec, class FloatOfInner, bool isOfRealSamples, Orb32s tagOfKind, bool withCore = false,
          int bytesAPointOfCore = 0>
struct Spec {
    using Inner = InnerSpec;
    using Float = FloatOfInner;
    static constexpr bool isReal = isOfRealSamples, hasCore = withCore;
    static constexpr int coreBytes = bytesAPointOfCore;
    static constexpr Orb32s ownTag = tagOfKind;

    Orb32s tag;
    Orb32s order;
    Orb32s shiftFwd; // the flag as shifts of the integer core
    Orb32s shiftInv;
    Orb32s sqrtOdd; // 1: by the root of one half beside the shifts
    Orb32s hint;
    Orb32s workSize;
    Orb32s viaFloat; // 1: through the inner object
    Orb32s ownsMemory;
    RelativePtr<Inner> inner;
};
constexpr std::size_t headerSize = 64; // the inner object begins behind it

// Floats of one call: all points, or what a spectrum of real samples has in the longest of its formats.
template <class S>
constexpr std::uint64_t floatsOf(int order) {
    const std::uint64_t points = std::uint64_t{1} << order;
    return S::isReal ? points + 2 : 2 * points;
}

template <class S>
constexpr bool runsNative(int order, OrbHintAlgorithm hint) {
    if (!S::hasCore || order > nativeOrders) return false;
    return order == 0 || hint == orbAlgHintNone || hint == orbAlgHintFast;
}

// What the integer core's tables and areas would take. They are not needed: the core keeps all it has in registers.
template <class S>
constexpr fft::Sizes nativeSizes(int order) {
    const std::uint64_t n = std::uint64_t{1} << order;
    if (order == 0) return {84, 0, 0};
    const auto down32 = [](std::uint64_t size) { return size / 32 * 32; };
    const std::uint64_t init = down32(n / 2 + 33) + 32, work = S::isReal ? 4 * n + 8 : S::coreBytes * n;
    const std::uint64_t tables = S::isReal ? roundUp(4 * n, 32) + down32(n / 8 * 4 + 35) + roundUp(8 * n, 32)
                                           : roundUp(8 * n, 32) + down32(n + 35);
    return {tables + 96, init, work + 32};
}

// As they are told: the work area with the room to align it, unless there is none.
template <class S>
constexpr fft::Sizes sizesOf(int order, OrbHintAlgorithm hint) {
    if (runsNative<S>(order, hint)) return nativeSizes<S>(order);
    const fft::Sizes inner = fft::sizesOf<typename S::Float>(order, S::isReal);
    const std::uint64_t innerWork = inner.work ? inner.work + 32 : 0;
    const std::uint64_t work = innerWork + floatsOf<S>(order) * sizeof(typename S::Float) + 32;
    if (S::hasCore) return {inner.object + 96, inner.init + 32, work};
    return {inner.object + 64, inner.init ? inner.init + 32 : 0, work};
}

template <class S>
void setShifts(S& spec, int flag) {
    if (flag == ORB_FFT_SCALE_FWD) spec.shiftFwd = spec.order;
    if (flag == ORB_FFT_SCALE_INV) spec.shiftInv = spec.order;
    if (flag == ORB_FFT_SCALE_SQRT) {
        spec.shiftFwd = spec.shiftInv = spec.order / 2;
        spec.sqrtOdd = spec.order % 2;
    }
}

// ---- What the exported functions of all kinds do ----

template <class S>
OrbStatus getSize(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) {
    if (order < 0 || order > fft::maxOrder) return orbStsFftOrderErr;
    if (anyNull(pSpecSize, pSpecBufferSize, pBufferSize)) return orbStsNullPtrErr;
    if (!fft::isFlag(flag)) return orbStsFftFlagErr;
    const fft::Sizes sizes = sizesOf<S>(order, hint);
    const auto wrapped = [](std::uint64_t size) { return static_cast<int>(static_cast<Orb32u>(size)); };
    *pSpecSize = wrapped(sizes.object);
    *pSpecBufferSize = wrapped(sizes.init);
    *pBufferSize = wrapped(sizes.work);
    return orbStsNoErr;
}

template <class S>
OrbStatus init(S** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) {
    static_assert(sizeof(S) <= headerSize && alignof(S) <= 4);
    if (!ppSpec) return orbStsNullPtrErr;
    if (order < 0 || order > fft::maxOrder) return orbStsFftOrderErr;
    if (!pMemSpec) return orbStsNullPtrErr;
    const fft::Sizes sizes = sizesOf<S>(order, hint);
    if (sizes.object > std::numeric_limits<int>::max()) return orbStsMemAllocErr; // no block can be told to be as large
    Orb8u* const block = alignUp(pMemSpec, 32);
    S& spec = *new (block) S{};
    spec.order = order;
    spec.hint = hint;
    if (!fft::isFlag(flag)) return orbStsFftFlagErr;
    setShifts(spec, flag);
    spec.workSize = static_cast<Orb32s>(sizes.work ? sizes.work - 32 : 0);
    spec.viaFloat = !runsNative<S>(order, hint);
    if (spec.viaFloat) {
        typename S::Inner* inner = nullptr;
        const auto initInner = fft::Members<typename S::Inner>::init;
        if (const OrbStatus status = initInner(&inner, order, flag, orbAlgHintNone, block + headerSize, pMemInit))
            return status;
        spec.inner = inner;
    }
    spec.tag = S::ownTag;
    *ppSpec = &spec;
    return orbStsNoErr;
}

template <class S>
OrbStatus initAlloc(S** ppSpec, int order, int flag, OrbHintAlgorithm hint) {
    if (!ppSpec) return orbStsNullPtrErr;
    int specSize, initSize, bufferSize;
    if (const OrbStatus status = getSize<S>(order, flag, hint, &specSize, &initSize, &bufferSize)) return status;
    if (sizesOf<S>(order, hint).object > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* const block = orbsMalloc_8u(specSize);
    if (!block) return orbStsMemAllocErr;
    Orb8u* const initMemory = order > fft::fixedBaseOrder ? orbsMalloc_8u(initSize) : nullptr;
    S* made = nullptr;
    const OrbStatus status = order > fft::fixedBaseOrder && !initMemory
                                 ? OrbStatus{orbStsMemAllocErr}
                                 : init(&made, order, flag, hint, block, initMemory);
    orbsFree(initMemory);
    if (status != orbStsNoErr) {
        orbsFree(block);
        return status;
    }
    made->ownsMemory = 1;
    *ppSpec = made;
    return orbStsNoErr;
}

} // namespace orbs::fixedfft
