// Power-of-two transforms of Orb64f data: objects and execution.
#include "fft/calls.h"
#include "orbs/fft.h"

struct OrbsFFTSpec_C_64fc : orbs::fft::Spec<Orb64f> {};
struct OrbsFFTSpec_C_64f : orbs::fft::Spec<Orb64f> {};
struct OrbsFFTSpec_R_64f : orbs::fft::Spec<Orb64f> {};

namespace {

using namespace orbs;
using namespace orbs::fft;

constexpr Orb32s tagC64fc = 7, tagC64f = 8, tagR64f = 9;

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFFTGetSize_C_64fc(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb64f>(order, flag, false, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_64fc(OrbsFFTSpec_C_64fc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb64f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, false, tagC64fc); }
OrbStatus orbsFFTInitAlloc_C_64fc(OrbsFFTSpec_C_64fc** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, order, flag, hint, false, tagC64fc); }
OrbStatus orbsFFTFree_C_64fc(OrbsFFTSpec_C_64fc* pSpec) { return release(pSpec, tagC64fc); }
OrbStatus orbsFFTGetBufSize_C_64fc(const OrbsFFTSpec_C_64fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC64fc); }
OrbStatus orbsFFTGetSize_C_64f(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb64f>(order, flag, false, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_C_64f(OrbsFFTSpec_C_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb64f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, false, tagC64f); }
OrbStatus orbsFFTInitAlloc_C_64f(OrbsFFTSpec_C_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, order, flag, hint, false, tagC64f); }
OrbStatus orbsFFTFree_C_64f(OrbsFFTSpec_C_64f* pSpec) { return release(pSpec, tagC64f); }
OrbStatus orbsFFTGetBufSize_C_64f(const OrbsFFTSpec_C_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC64f); }
OrbStatus orbsFFTGetSize_R_64f(int order, int flag, OrbHintAlgorithm, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) { return getSize<Orb64f>(order, flag, true, pSpecSize, pSpecBufferSize, pBufferSize); }
OrbStatus orbsFFTInit_R_64f(OrbsFFTSpec_R_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit) { return init<Orb64f>(ppSpec, order, flag, hint, pMemSpec, pMemInit, true, tagR64f); }
OrbStatus orbsFFTInitAlloc_R_64f(OrbsFFTSpec_R_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, order, flag, hint, true, tagR64f); }
OrbStatus orbsFFTFree_R_64f(OrbsFFTSpec_R_64f* pSpec) { return release(pSpec, tagR64f); }
OrbStatus orbsFFTGetBufSize_R_64f(const OrbsFFTSpec_R_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagR64f); }

OrbStatus orbsFFTFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<false>(asReal(pSrc), asReal(pDst), pSpec, pBuffer, tagC64fc); }
OrbStatus orbsFFTInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<true>(asReal(pSrc), asReal(pDst), pSpec, pBuffer, tagC64fc); }
OrbStatus orbsFFTFwd_CToC_64fc_I(Orb64fc* pSrcDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<false>(asReal(pSrcDst), asReal(pSrcDst), pSpec, pBuffer, tagC64fc); }
OrbStatus orbsFFTInv_CToC_64fc_I(Orb64fc* pSrcDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<true>(asReal(pSrcDst), asReal(pSrcDst), pSpec, pBuffer, tagC64fc); }
OrbStatus orbsFFTFwd_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<false, Orb64f>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsFFTInv_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<true, Orb64f>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsFFTFwd_CToC_64f_I(Orb64f* pSrcDstRe, Orb64f* pSrcDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<false, Orb64f>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsFFTInv_CToC_64f_I(Orb64f* pSrcDstRe, Orb64f* pSrcDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<true, Orb64f>(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsFFTFwd_RToCCS_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsFFTInv_PermToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::perm); }
OrbStatus orbsFFTFwd_RToCCS_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsFFTFwd_RToPack_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsFFTFwd_RToPerm_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::perm); }
OrbStatus orbsFFTInv_CCSToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsFFTInv_PackToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsFFTInv_PermToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrcDst, pSrcDst, pSpec, pBuffer, tagR64f, Format::perm); }

}
// clang-format on
