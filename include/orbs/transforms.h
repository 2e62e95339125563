/* orbs/transforms.h: Fourier transforms of power-of-two length, packed real spectra. */
#ifndef ORBS_TRANSFORMS_H
#define ORBS_TRANSFORMS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

typedef struct OrbsFFTSpec_C_32fc OrbsFFTSpec_C_32fc;
typedef struct OrbsFFTSpec_C_32f OrbsFFTSpec_C_32f;
typedef struct OrbsFFTSpec_R_32f OrbsFFTSpec_R_32f;
typedef struct OrbsFFTSpec_C_64fc OrbsFFTSpec_C_64fc;
typedef struct OrbsFFTSpec_C_64f OrbsFFTSpec_C_64f;
typedef struct OrbsFFTSpec_R_64f OrbsFFTSpec_R_64f;

OrbStatus orbsFFTGetSize_C_32fc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_32fc(OrbsFFTSpec_C_32fc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_32fc(OrbsFFTSpec_C_32fc** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_32fc(OrbsFFTSpec_C_32fc* pSpec);
OrbStatus orbsFFTGetBufSize_C_32fc(const OrbsFFTSpec_C_32fc* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_32f(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_32f(OrbsFFTSpec_C_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_32f(OrbsFFTSpec_C_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_32f(OrbsFFTSpec_C_32f* pSpec);
OrbStatus orbsFFTGetBufSize_C_32f(const OrbsFFTSpec_C_32f* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_R_32f(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_R_32f(OrbsFFTSpec_R_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_R_32f(OrbsFFTSpec_R_32f** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_R_32f(OrbsFFTSpec_R_32f* pSpec);
OrbStatus orbsFFTGetBufSize_R_32f(const OrbsFFTSpec_R_32f* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_64fc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_64fc(OrbsFFTSpec_C_64fc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_64fc(OrbsFFTSpec_C_64fc** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_64fc(OrbsFFTSpec_C_64fc* pSpec);
OrbStatus orbsFFTGetBufSize_C_64fc(const OrbsFFTSpec_C_64fc* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_64f(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_64f(OrbsFFTSpec_C_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_64f(OrbsFFTSpec_C_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_64f(OrbsFFTSpec_C_64f* pSpec);
OrbStatus orbsFFTGetBufSize_C_64f(const OrbsFFTSpec_C_64f* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_R_64f(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_R_64f(OrbsFFTSpec_R_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_R_64f(OrbsFFTSpec_R_64f** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_R_64f(OrbsFFTSpec_R_64f* pSpec);
OrbStatus orbsFFTGetBufSize_R_64f(const OrbsFFTSpec_R_64f* pSpec, int* pSize);

OrbStatus orbsFFTFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32fc_I(Orb32fc* pSrcDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32fc_I(Orb32fc* pSrcDst, const OrbsFFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32f_I(Orb32f* pSrcDstRe, Orb32f* pSrcDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32f_I(Orb32f* pSrcDstRe, Orb32f* pSrcDstIm, const OrbsFFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_64fc_I(Orb64fc* pSrcDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_64fc_I(Orb64fc* pSrcDst, const OrbsFFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_64f_I(Orb64f* pSrcDstRe, Orb64f* pSrcDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_64f_I(Orb64f* pSrcDstRe, Orb64f* pSrcDstIm, const OrbsFFTSpec_C_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_32f_I(Orb32f* pSrcDst, const OrbsFFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_64f_I(Orb64f* pSrcDst, const OrbsFFTSpec_R_64f* pSpec, Orb8u* pBuffer);

ORBS_DECLARATIONS_END

#endif
