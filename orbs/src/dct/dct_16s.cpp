// Cosine transforms of Orb16s data: in single precision.
#include "dct/calls.h"
#include "orbs/arith.h"
#include "orbs/convert.h"

namespace orbs::dct {
namespace {

template <class Inner>
struct Spec16s {
    Orb32s tag;
    Orb32s length;
    Orb32s hint;
    Orb32s workSize;
    Orb32s ownsMemory;
    RelativePtr<Inner> inner; // null for one point
};

} // namespace
} // namespace orbs::dct

struct OrbsDCTFwdSpec_16s : orbs::dct::Spec16s<OrbsDCTFwdSpec_32f> {};
struct OrbsDCTInvSpec_16s : orbs::dct::Spec16s<OrbsDCTInvSpec_32f> {};

namespace orbs::dct {
namespace {

constexpr std::size_t innerOffset = roundUp(sizeof(OrbsDCTFwdSpec_16s), 32);

template <class Inner, Orb32s ownTag>
struct IntegerKind {
    static constexpr Orb32s tag = ownTag;

    static constexpr Sizes sizes(std::uint64_t n) {
        if (n == 1) return {56, 0, 0};
        const Sizes inner = Kind<Inner>::sizes(n);
        return {inner.object + 56, inner.init, workToTell(inner) + n * sizeof(Orb32f)};
    }
    static constexpr std::uint64_t extraSize(std::uint64_t n) { return Kind<Inner>::extraSize(n); }
    static OrbStatus build(Orb8u* block, std::size_t n, OrbHintAlgorithm hint, Orb8u* initMemory, bool withExtra) {
        auto& spec = *new (block) Spec16s<Inner>{};
        spec.tag = tag;
        spec.length = static_cast<Orb32s>(n);
        spec.hint = hint;
        spec.workSize = static_cast<Orb32s>(sizes(n).work);
        if (n == 1) return orbStsNoErr;
        spec.inner = reinterpret_cast<Inner*>(block + innerOffset);
        return Kind<Inner>::build(block + innerOffset, n, orbAlgHintFast, initMemory, withExtra);
    }
};

} // namespace

template <>
struct Kind<OrbsDCTFwdSpec_16s> : IntegerKind<OrbsDCTFwdSpec_32f, 19> {};
template <>
struct Kind<OrbsDCTInvSpec_16s> : IntegerKind<OrbsDCTInvSpec_32f, 20> {};

} // namespace orbs::dct

namespace {

using namespace orbs;
using namespace orbs::dct;

// The floats stand in front of the buffer of their transform.
template <class Object>
OrbStatus transformIntegers(const Orb16s* pSrc, Orb16s* pDst, const Object* pSpec, int scaleFactor, Orb8u* pBuffer) {
    if (const OrbStatus status = checkCall(pSpec, pSrc, pDst)) return status;
    const int n = pSpec->length;
    if (n == 1) return orbsAddC_16s_Sfs(pSrc, 0, pDst, 1, scaleFactor); // the scale rule alone
    const WorkArea work(pBuffer, pSpec->workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    Orb32f* const x = work.as<Orb32f>();
    orbsConvert_16s32f(pSrc, x, n);
    if (const OrbStatus status = transform(x, x, pSpec->inner.get(), reinterpret_cast<Orb8u*>(x + n))) return status;
    return orbsConvert_32f16s_Sfs(x, pDst, n, orbRndNear, scaleFactor);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDCTFwdGetSize_16s(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTFwdSpec_16s>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTFwdInit_16s(OrbsDCTFwdSpec_16s** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTFwdInitAlloc_16s(OrbsDCTFwdSpec_16s** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTFwdFree_16s(OrbsDCTFwdSpec_16s* pSpec) { return release(pSpec); }
OrbStatus orbsDCTFwdGetBufSize_16s(const OrbsDCTFwdSpec_16s* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTFwd_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDCTFwdSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return transformIntegers(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDCTFwd_16s_ISfs(Orb16s* pSrcDst, const OrbsDCTFwdSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return transformIntegers(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }

OrbStatus orbsDCTInvGetSize_16s(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTInvSpec_16s>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTInvInit_16s(OrbsDCTInvSpec_16s** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTInvInitAlloc_16s(OrbsDCTInvSpec_16s** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTInvFree_16s(OrbsDCTInvSpec_16s* pSpec) { return release(pSpec); }
OrbStatus orbsDCTInvGetBufSize_16s(const OrbsDCTInvSpec_16s* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTInv_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDCTInvSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return transformIntegers(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDCTInv_16s_ISfs(Orb16s* pSrcDst, const OrbsDCTInvSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return transformIntegers(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }

}
// clang-format on
