// The frames of the members: sizes, the making of objects, and calls.
#pragma once

#include "dct/direct.h"
#include "dct/fourier.h"
#include "dct/halving.h"
#include "foundation/work_area.h"
#include "orbs/dct.h"

struct OrbsDCTFwdSpec_32f : orbs::dct::Spec<Orb32f> {};
struct OrbsDCTInvSpec_32f : orbs::dct::Spec<Orb32f> {};
struct OrbsDCTFwdSpec_64f : orbs::dct::Spec<Orb64f> {};
struct OrbsDCTInvSpec_64f : orbs::dct::Spec<Orb64f> {};

namespace orbs::dct {

// By the type of an object: its tag; its sizes, and the bytes behind it for which its own memory has room besides; how
// it is built in a block that is aligned to 32 bytes.
template <class Number, bool inverse, Orb32s ownTag>
struct FloatKind {
    using T = Number;
    static constexpr bool isInverse = inverse;
    static constexpr Orb32s tag = ownTag;

    static constexpr Sizes sizes(std::uint64_t n) { return sizesOf<T>(n); }
    static constexpr std::uint64_t extraSize(std::uint64_t n) {
        return planOf(n) == Plan::direct ? matrixSize<T>(n) * sizeof(T) : 0;
    }
    static OrbStatus build(Orb8u* block, std::size_t n, OrbHintAlgorithm hint, Orb8u* initMemory, bool withExtra) {
        return orbs::dct::build<inverse, T>(block, n, hint, initMemory, withExtra, tag);
    }
};
template <class Object>
struct Kind;
template <>
struct Kind<OrbsDCTFwdSpec_32f> : FloatKind<Orb32f, false, 21> {};
template <>
struct Kind<OrbsDCTInvSpec_32f> : FloatKind<Orb32f, true, 22> {};
template <>
struct Kind<OrbsDCTFwdSpec_64f> : FloatKind<Orb64f, false, 23> {};
template <>
struct Kind<OrbsDCTInvSpec_64f> : FloatKind<Orb64f, true, 24> {};

// ---- Sizes and objects ----

constexpr std::uint64_t workToTell(const Sizes& sizes) {
    return sizes.work ? sizes.work + 32 : 0;
}
// No number that is told wraps.
template <class Object>
bool canBeTold(std::uint64_t n) {
    const Sizes sizes = Kind<Object>::sizes(n);
    return std::max({sizes.object + Kind<Object>::extraSize(n), sizes.init, workToTell(sizes)}) <=
           std::uint64_t{std::numeric_limits<int>::max()};
}

template <class Object>
OrbStatus getSize(int len, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) {
    if (len < 1) return orbStsSizeErr;
    if (anyNull(pSpecSize, pSpecBufferSize, pBufferSize)) return orbStsNullPtrErr;
    const auto n = static_cast<std::uint64_t>(len);
    if (!canBeTold<Object>(n)) return orbStsMemAllocErr;
    const Sizes sizes = Kind<Object>::sizes(n);
    *pSpecSize = static_cast<int>(sizes.object);
    *pSpecBufferSize = static_cast<int>(sizes.init);
    *pBufferSize = static_cast<int>(workToTell(sizes));
    return orbStsNoErr;
}

template <class Object>
OrbStatus init(Object** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) {
    if (!ppSpec) return orbStsNullPtrErr;
    if (len < 1) return orbStsSizeErr;
    if (!pMemSpec) return orbStsNullPtrErr;
    const auto n = static_cast<std::uint64_t>(len);
    if (!canBeTold<Object>(n)) return orbStsMemAllocErr;
    if (Kind<Object>::sizes(n).init > 0 && !pMemInit) return orbStsNullPtrErr;
    Orb8u* const block = alignUp(pMemSpec, 32);
    if (const OrbStatus status = Kind<Object>::build(block, n, hint, alignUp(pMemInit, 32), false)) return status;
    *ppSpec = reinterpret_cast<Object*>(block);
    return orbStsNoErr;
}

template <class Object>
OrbStatus initAlloc(Object** ppSpec, int len, OrbHintAlgorithm hint) {
    if (!ppSpec) return orbStsNullPtrErr;
    int specSize, initSize, workSize;
    if (const OrbStatus status = getSize<Object>(len, &specSize, &initSize, &workSize)) return status;
    const auto n = static_cast<std::uint64_t>(len);
    Orb8u* const block = orbsMalloc_8u(specSize + static_cast<int>(Kind<Object>::extraSize(n)));
    if (!block) return orbStsMemAllocErr;
    Orb8u* const initMemory = initSize > 0 ? orbsMalloc_8u(initSize) : nullptr;
    OrbStatus status = orbStsMemAllocErr;
    if (initSize == 0 || initMemory) status = Kind<Object>::build(block, n, hint, initMemory, true);
    orbsFree(initMemory);
    if (status != orbStsNoErr) {
        orbsFree(block);
        return status;
    }
    *ppSpec = reinterpret_cast<Object*>(block);
    (*ppSpec)->ownsMemory = 1;
    return orbStsNoErr;
}

template <class Object>
OrbStatus release(Object* pSpec) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, Kind<Object>::tag)) return status;
    pSpec->tag = 0;
    if (pSpec->ownsMemory == 1) orbsFree(pSpec);
    return orbStsNoErr;
}

template <class Object>
OrbStatus getBufferSize(const Object* pSpec, int* pSize) {
    if (anyNull(pSpec) || anyNull(pSize)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, Kind<Object>::tag)) return status;
    *pSize = pSpec->workSize < 1 ? 0 : pSpec->workSize + 32;
    return orbStsNoErr;
}

// ---- Calls ----

template <class Object, class... P>
OrbStatus checkCall(const Object* pSpec, const P*... data) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, Kind<Object>::tag)) return status;
    return anyNull(data...) ? orbStsNullPtrErr : orbStsNoErr;
}

template <class T, class Object>
OrbStatus transform(const T* pSrc, T* pDst, const Object* pSpec, Orb8u* pBuffer) {
    constexpr bool isInverse = Kind<Object>::isInverse;
    if (const OrbStatus status = checkCall(pSpec, pSrc, pDst)) return status;
    const Spec<T>& spec = *pSpec;
    switch (spec.plan) {
    case Plan::small:
        transformSmall<isInverse>(pSrc, pDst, static_cast<std::size_t>(spec.length));
        return orbStsNoErr;
    case Plan::halving:
        if (spec.length == 16) {
            transformHalving<isInverse, 16>(pSrc, pDst, spec.table.get(), spec.scale0, spec.scale1);
        } else {
            transformHalving<isInverse, 32>(pSrc, pDst, spec.table.get(), spec.scale0, spec.scale1);
        }
        return orbStsNoErr;
    case Plan::direct:
        transformDirect<isInverse>(spec, pSrc, pDst);
        return orbStsNoErr;
    default:
        break;
    }
    const WorkArea work(pBuffer, spec.workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    T* const area = work.as<T>();
    if constexpr (isInverse) {
        if (spec.plan == Plan::fourier) return fourierInverse(spec, pSrc, pDst, area);
        return chirpInverse(spec, pSrc, pDst, area);
    } else {
        if (spec.plan == Plan::fourier) return fourierForward(spec, pSrc, pDst, area);
        return chirpForward(spec, pSrc, pDst, area);
    }
}

} // namespace orbs::dct
