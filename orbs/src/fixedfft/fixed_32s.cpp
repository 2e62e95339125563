// Transforms of 32-bit samples: objects and execution.
#include "fixedfft/calls.h"
#include "orbs/fixedfft.h"

using namespace orbs;
using namespace orbs::fixedfft;

struct OrbsFFTSpec_C_32sc : Spec<OrbsFFTSpec_C_64fc, Orb64f, false, tagWord("CMAL")> {};
struct OrbsFFTSpec_C_32s : Spec<OrbsFFTSpec_C_64f, Orb64f, false, tagWord("CMAM")> {};
struct OrbsFFTSpec_R_32s : Spec<OrbsFFTSpec_R_64f, Orb64f, true, tagWord("CMAN")> {};

// clang-format off
extern "C" {

OrbStatus orbsFFTGetSize_C_32sc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_C_32sc>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_32sc(OrbsFFTSpec_C_32sc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_C_32sc(OrbsFFTSpec_C_32sc** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_C_32sc(OrbsFFTSpec_C_32sc* pSpec) { return fft::release(pSpec, OrbsFFTSpec_C_32sc::ownTag); }
OrbStatus orbsFFTGetBufSize_C_32sc(const OrbsFFTSpec_C_32sc* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_C_32sc::ownTag); }
OrbStatus orbsFFTGetSize_C_32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_C_32s>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_32s(OrbsFFTSpec_C_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_C_32s(OrbsFFTSpec_C_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_C_32s(OrbsFFTSpec_C_32s* pSpec) { return fft::release(pSpec, OrbsFFTSpec_C_32s::ownTag); }
OrbStatus orbsFFTGetBufSize_C_32s(const OrbsFFTSpec_C_32s* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_C_32s::ownTag); }
OrbStatus orbsFFTGetSize_R_32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_R_32s>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_R_32s(OrbsFFTSpec_R_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_R_32s(OrbsFFTSpec_R_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_R_32s(OrbsFFTSpec_R_32s* pSpec) { return fft::release(pSpec, OrbsFFTSpec_R_32s::ownTag); }
OrbStatus orbsFFTGetBufSize_R_32s(const OrbsFFTSpec_R_32s* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_R_32s::ownTag); }

OrbStatus orbsFFTFwd_CToC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_32sc_ISfs(Orb32sc* pSrcDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<false>(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_32sc_ISfs(Orb32sc* pSrcDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<true>(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_32s_Sfs(const Orb32s* pSrcRe, const Orb32s* pSrcIm, Orb32s* pDstRe, Orb32s* pDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_32s_Sfs(const Orb32s* pSrcRe, const Orb32s* pSrcIm, Orb32s* pDstRe, Orb32s* pDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_32s_ISfs(Orb32s* pSrcDstRe, Orb32s* pSrcDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<false>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_32s_ISfs(Orb32s* pSrcDstRe, Orb32s* pSrcDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<true>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_RToCCS_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTInv_PermToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTFwd_RToCCS_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTInv_PermToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::perm); }

}
// clang-format on
