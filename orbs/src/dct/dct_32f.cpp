// Cosine transforms of Orb32f data.
#include "dct/calls.h"

using namespace orbs::dct;

// clang-format off
extern "C" {

OrbStatus orbsDCTFwdGetSize_32f(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTFwdSpec_32f>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTFwdInit_32f(OrbsDCTFwdSpec_32f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTFwdInitAlloc_32f(OrbsDCTFwdSpec_32f** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTFwdFree_32f(OrbsDCTFwdSpec_32f* pSpec) { return release(pSpec); }
OrbStatus orbsDCTFwdGetBufSize_32f(const OrbsDCTFwdSpec_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTFwd_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDCTFwdSpec_32f* pSpec, Orb8u* pBuffer) { return transform(pSrc, pDst, pSpec, pBuffer); }
OrbStatus orbsDCTFwd_32f_I(Orb32f* pSrcDst, const OrbsDCTFwdSpec_32f* pSpec, Orb8u* pBuffer) { return transform(pSrcDst, pSrcDst, pSpec, pBuffer); }

OrbStatus orbsDCTInvGetSize_32f(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTInvSpec_32f>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTInvInit_32f(OrbsDCTInvSpec_32f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTInvInitAlloc_32f(OrbsDCTInvSpec_32f** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTInvFree_32f(OrbsDCTInvSpec_32f* pSpec) { return release(pSpec); }
OrbStatus orbsDCTInvGetBufSize_32f(const OrbsDCTInvSpec_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTInv_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDCTInvSpec_32f* pSpec, Orb8u* pBuffer) { return transform(pSrc, pDst, pSpec, pBuffer); }
OrbStatus orbsDCTInv_32f_I(Orb32f* pSrcDst, const OrbsDCTInvSpec_32f* pSpec, Orb8u* pBuffer) { return transform(pSrcDst, pSrcDst, pSpec, pBuffer); }
}
// clang-format on
