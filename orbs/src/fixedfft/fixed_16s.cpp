// Transforms of 16-bit samples: objects and execution.
#include "fixedfft/calls.h"
#include "orbs/fixedfft.h"

using namespace orbs;
using namespace orbs::fixedfft;

struct OrbsFFTSpec_C_16sc : Spec<OrbsFFTSpec_C_32fc, Orb32f, false, 1, true, 8> {};
struct OrbsFFTSpec_C_16s : Spec<OrbsFFTSpec_C_32f, Orb32f, false, 2, true, 12> {};
struct OrbsFFTSpec_R_16s : Spec<OrbsFFTSpec_R_32f, Orb32f, true, 3, true> {};
struct OrbsFFTSpec_R_16s32s : Spec<OrbsFFTSpec_R_32f, Orb32f, true, tagWord("CMAO")> {};

// clang-format off
extern "C" {

OrbStatus orbsFFTGetSize_C_16sc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_C_16sc>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_16sc(OrbsFFTSpec_C_16sc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_C_16sc(OrbsFFTSpec_C_16sc** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_C_16sc(OrbsFFTSpec_C_16sc* pSpec) { return fft::release(pSpec, OrbsFFTSpec_C_16sc::ownTag); }
OrbStatus orbsFFTGetBufSize_C_16sc(const OrbsFFTSpec_C_16sc* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_C_16sc::ownTag); }
OrbStatus orbsFFTGetSize_C_16s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_C_16s>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_16s(OrbsFFTSpec_C_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_C_16s(OrbsFFTSpec_C_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_C_16s(OrbsFFTSpec_C_16s* pSpec) { return fft::release(pSpec, OrbsFFTSpec_C_16s::ownTag); }
OrbStatus orbsFFTGetBufSize_C_16s(const OrbsFFTSpec_C_16s* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_C_16s::ownTag); }
OrbStatus orbsFFTGetSize_R_16s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_R_16s>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_R_16s(OrbsFFTSpec_R_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_R_16s(OrbsFFTSpec_R_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_R_16s(OrbsFFTSpec_R_16s* pSpec) { return fft::release(pSpec, OrbsFFTSpec_R_16s::ownTag); }
OrbStatus orbsFFTGetBufSize_R_16s(const OrbsFFTSpec_R_16s* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_R_16s::ownTag); }
OrbStatus orbsFFTGetSize_R_16s32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<OrbsFFTSpec_R_16s32s>(order, flag, hint, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_R_16s32s(OrbsFFTSpec_R_16s32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init(ppSpec, order, flag, hint, pMemSpec, pMemInit); }
OrbStatus orbsFFTInitAlloc_R_16s32s(OrbsFFTSpec_R_16s32s** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc(ppSpec, order, flag, hint); }
OrbStatus orbsFFTFree_R_16s32s(OrbsFFTSpec_R_16s32s* pSpec) { return fft::release(pSpec, OrbsFFTSpec_R_16s32s::ownTag); }
OrbStatus orbsFFTGetBufSize_R_16s32s(const OrbsFFTSpec_R_16s32s* pSpec, int* pSize) { return fft::getBufferSize(pSpec, pSize, OrbsFFTSpec_R_16s32s::ownTag); }

OrbStatus orbsFFTFwd_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_16sc_ISfs(Orb16sc* pSrcDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<false>(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_16sc_ISfs(Orb16sc* pSrcDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved<true>(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_CToC_16s_ISfs(Orb16s* pSrcDstRe, Orb16s* pSrcDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<false>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTInv_CToC_16s_ISfs(Orb16s* pSrcDstRe, Orb16s* pSrcDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes<true>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsFFTFwd_RToCCS_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTInv_PermToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTFwd_RToCCS_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsFFTInv_PermToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrcDst, pSrcDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsFFTFwd_RToCCS_16s32s_Sfs(const Orb16s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_16s32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realForward(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsFFTInv_CCSToR_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s32s* pSpec, int scaleFactor, Orb8u* pBuffer) { return realInverse(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }

}
// clang-format on
