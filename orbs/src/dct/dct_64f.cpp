// Cosine transforms of Orb64f data.
#include "dct/calls.h"

using namespace orbs::dct;

// clang-format off
extern "C" {

OrbStatus orbsDCTFwdGetSize_64f(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTFwdSpec_64f>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTFwdInit_64f(OrbsDCTFwdSpec_64f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTFwdInitAlloc_64f(OrbsDCTFwdSpec_64f** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTFwdFree_64f(OrbsDCTFwdSpec_64f* pSpec) { return release(pSpec); }
OrbStatus orbsDCTFwdGetBufSize_64f(const OrbsDCTFwdSpec_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTFwd_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDCTFwdSpec_64f* pSpec, Orb8u* pBuffer) { return transform(pSrc, pDst, pSpec, pBuffer); }
OrbStatus orbsDCTFwd_64f_I(Orb64f* pSrcDst, const OrbsDCTFwdSpec_64f* pSpec, Orb8u* pBuffer) { return transform(pSrcDst, pSrcDst, pSpec, pBuffer); }

OrbStatus orbsDCTInvGetSize_64f(int len, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsDCTInvSpec_64f>(len, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsDCTInvInit_64f(OrbsDCTInvSpec_64f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, len, hint, pMemSpec, pMemInit); }
OrbStatus orbsDCTInvInitAlloc_64f(OrbsDCTInvSpec_64f** ppSpec, int len, OrbHintAlgorithm hint) { return initAlloc(ppSpec, len, hint); }
OrbStatus orbsDCTInvFree_64f(OrbsDCTInvSpec_64f* pSpec) { return release(pSpec); }
OrbStatus orbsDCTInvGetBufSize_64f(const OrbsDCTInvSpec_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize); }
OrbStatus orbsDCTInv_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDCTInvSpec_64f* pSpec, Orb8u* pBuffer) { return transform(pSrc, pDst, pSpec, pBuffer); }
OrbStatus orbsDCTInv_64f_I(Orb64f* pSrcDst, const OrbsDCTInvSpec_64f* pSpec, Orb8u* pBuffer) { return transform(pSrcDst, pSrcDst, pSpec, pBuffer); }
}
// clang-format on
