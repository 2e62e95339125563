// Power-of-two transforms of Orb32f data: objects and execution.
#include "fft/calls.h"
#include "orbs/fft.h"

struct OrbsFFTSpec_C_32fc : orbs::fft::Spec<Orb32f> {};
struct OrbsFFTSpec_C_32f : orbs::fft::Spec<Orb32f> {};
struct OrbsFFTSpec_R_32f : orbs::fft::Spec<Orb32f> {};

namespace {

using namespace orbs;
using namespace orbs::fft;

constexpr Orb32s tagC32fc = 4, tagC32f = 5, tagR32f = 6;

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFFTGetSize_C_32fc(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb32f>(order, flag, false, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_32fc(OrbsFFTSpec_C_32fc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb32f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, false, tagC32fc); }
OrbStatus orbsFFTInitAlloc_C_32fc(OrbsFFTSpec_C_32fc** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, order, flag, hint, false, tagC32fc); }
OrbStatus orbsFFTFree_C_32fc(OrbsFFTSpec_C_32fc* pSpec) { return release(pSpec, tagC32fc); }
OrbStatus orbsFFTGetBufSize_C_32fc(const OrbsFFTSpec_C_32fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC32fc); }
OrbStatus orbsFFTGetSize_C_32f(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb32f>(order, flag, false, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_32f(OrbsFFTSpec_C_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb32f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, false, tagC32f); }
OrbStatus orbsFFTInitAlloc_C_32f(OrbsFFTSpec_C_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, order, flag, hint, false, tagC32f); }
OrbStatus orbsFFTFree_C_32f(OrbsFFTSpec_C_32f* pSpec) { return release(pSpec, tagC32f); }
OrbStatus orbsFFTGetBufSize_C_32f(const OrbsFFTSpec_C_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC32f); }
OrbStatus orbsFFTGetSize_R_32f(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb32f>(order, flag, true, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_R_32f(OrbsFFTSpec_R_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb32f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, true, tagR32f); }
OrbStatus orbsFFTInitAlloc_R_32f(OrbsFFTSpec_R_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, order, flag, hint, true, tagR32f); }
OrbStatus orbsFFTFree_R_32f(OrbsFFTSpec_R_32f* pSpec) { return release(pSpec, tagR32f); }
OrbStatus orbsFFTGetBufSize_R_32f(const OrbsFFTSpec_R_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagR32f); }

OrbStatus orbsFFTFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<false>(asReal(pSrc), asReal(pDst), pSpec, pBuffer, tagC32fc); }
OrbStatus orbsFFTInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<true>(asReal(pSrc), asReal(pDst), pSpec, pBuffer, tagC32fc); }
OrbStatus orbsFFTFwd_CToC_32fc_I(Orb32fc* pSrcDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<false>(asReal(pSrcDst), asReal(pSrcDst), pSpec, pBuffer, tagC32fc); }
OrbStatus orbsFFTInv_CToC_32fc_I(Orb32fc* pSrcDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<true>(asReal(pSrcDst), asReal(pSrcDst), pSpec, pBuffer, tagC32fc); }
OrbStatus orbsFFTFwd_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<false, Orb32f>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsFFTInv_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<true, Orb32f>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsFFTFwd_CToC_32f_I(Orb32f* pSrcDstRe, Orb32f* pSrcDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<false, Orb32f>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsFFTInv_CToC_32f_I(Orb32f* pSrcDstRe, Orb32f* pSrcDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<true, Orb32f>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsFFTFwd_RToCCS_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsFFTInv_PermToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::perm); }
OrbStatus orbsFFTFwd_RToCCS_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsFFTInv_PermToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR32f, Format::perm); }

}
// clang-format on
