/* orbs/fixedfft.h: Fourier transforms of integers, of power-of-two length. */
#ifndef ORBS_FIXEDFFT_H
#define ORBS_FIXEDFFT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* The transforms of orbs/fft.h, N = 2^order points, of integers with a scale factor: the exact result times
 * 2^-scaleFactor, rounded and saturated. Most of them go through floats. Their error against the exact transform is
 * that of the float transform, which shows where results are longer than its mantissa, and the half unit of the last
 * rounding: docs/accuracy.md has a table. */

/* ---- Integer FFT objects -------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Kinds: C_16sc and C_32sc complex interleaved; C_16s and C_32s complex in two planes; R_16s and R_32s real; R_16s32s
 * real samples of 16 bits with a spectrum of 32 bits. 16 bits are transformed in single precision, 32 bits in double
 * precision; the object of that transform lies in the block of this one, and is freed with it.
 *
 * order: 0 to 30. flag: as in orbs/fft.h. hint: any value; it matters to C_16sc, C_16s and R_16s at orders 1 to 3 only,
 * where orbAlgHintNone and orbAlgHintFast select integer arithmetic and every other value floats. At order 0 these three
 * kinds scale the sample by the scale rule.
 *
 * GetSize, Init, InitAlloc, Free, GetBufSize, threads: as in orbs/fft.h. pMemInit is looked at only for orders above 10,
 * though GetSize may tell a size for it below. Orders below 4 work without a buffer, whatever size is told for it. What
 * cannot be told in a positive int is not built: that leaves orders up to 27 where single precision is inside, and 26
 * with double precision.
 *
 * Statuses, in the order of the tests:
 *   GetSize: orbStsFftOrderErr, orbStsNullPtrErr, orbStsFftFlagErr.
 *   Init: orbStsNullPtrErr (ppSpec), orbStsFftOrderErr, orbStsNullPtrErr (pMemSpec), orbStsMemAllocErr,
 *     orbStsFftFlagErr, orbStsNullPtrErr (pMemInit). From the flag on the caller's memory has been written, and after a
 *     refusal it holds no object. *ppSpec is written only on success.
 *   InitAlloc: orbStsNullPtrErr, then as GetSize, orbStsMemAllocErr. *ppSpec is written only on success.
 *   Free, GetBufSize: orbStsNullPtrErr, orbStsContextMatchErr (an object of another kind, or freed). */
typedef struct OrbsFFTSpec_C_16sc OrbsFFTSpec_C_16sc;
typedef struct OrbsFFTSpec_C_16s OrbsFFTSpec_C_16s;
typedef struct OrbsFFTSpec_R_16s OrbsFFTSpec_R_16s;
typedef struct OrbsFFTSpec_C_32sc OrbsFFTSpec_C_32sc;
typedef struct OrbsFFTSpec_C_32s OrbsFFTSpec_C_32s;
typedef struct OrbsFFTSpec_R_32s OrbsFFTSpec_R_32s;
typedef struct OrbsFFTSpec_R_16s32s OrbsFFTSpec_R_16s32s;

OrbStatus orbsFFTGetSize_C_16sc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_16sc(OrbsFFTSpec_C_16sc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_16sc(OrbsFFTSpec_C_16sc** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_16sc(OrbsFFTSpec_C_16sc* pSpec);
OrbStatus orbsFFTGetBufSize_C_16sc(const OrbsFFTSpec_C_16sc* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_16s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_16s(OrbsFFTSpec_C_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_16s(OrbsFFTSpec_C_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_16s(OrbsFFTSpec_C_16s* pSpec);
OrbStatus orbsFFTGetBufSize_C_16s(const OrbsFFTSpec_C_16s* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_R_16s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_R_16s(OrbsFFTSpec_R_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_R_16s(OrbsFFTSpec_R_16s** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_R_16s(OrbsFFTSpec_R_16s* pSpec);
OrbStatus orbsFFTGetBufSize_R_16s(const OrbsFFTSpec_R_16s* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_32sc(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_32sc(OrbsFFTSpec_C_32sc** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_32sc(OrbsFFTSpec_C_32sc** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_32sc(OrbsFFTSpec_C_32sc* pSpec);
OrbStatus orbsFFTGetBufSize_C_32sc(const OrbsFFTSpec_C_32sc* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_C_32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_C_32s(OrbsFFTSpec_C_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_C_32s(OrbsFFTSpec_C_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_C_32s(OrbsFFTSpec_C_32s* pSpec);
OrbStatus orbsFFTGetBufSize_C_32s(const OrbsFFTSpec_C_32s* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_R_32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_R_32s(OrbsFFTSpec_R_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_R_32s(OrbsFFTSpec_R_32s** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_R_32s(OrbsFFTSpec_R_32s* pSpec);
OrbStatus orbsFFTGetBufSize_R_32s(const OrbsFFTSpec_R_32s* pSpec, int* pSize);
OrbStatus orbsFFTGetSize_R_16s32s(int order, int flag, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsFFTInit_R_16s32s(OrbsFFTSpec_R_16s32s** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsFFTInitAlloc_R_16s32s(OrbsFFTSpec_R_16s32s** ppSpec, int order, int flag, OrbHintAlgorithm hint);
OrbStatus orbsFFTFree_R_16s32s(OrbsFFTSpec_R_16s32s* pSpec);
OrbStatus orbsFFTGetBufSize_R_16s32s(const OrbsFFTSpec_R_16s32s* pSpec, int* pSize);

/* ---- Complex transforms of integers --------------------------------------------------------------------------
 * Alignment: any.
 * Points, planes, places, threads: as in orbs/fft.h.
 *
 * Through floats: orbsConvert_16s32f (_32s64f) of all numbers, the float transform, which applies the flag, and
 * orbsConvert_32f16s_Sfs (_64f32s_Sfs) with orbRndNear and scaleFactor. So the results are to nearest, ties to even, of
 * what the float transform gives, and 2^-scaleFactor is 0 from the scale factor 150 on; below -127 it is infinite, and
 * zeros become the largest value with it.
 *
 * In integers (C_16sc and C_16s at orders 1 to 3): the samples times 2^(15 - order). Sums are exact. Only order 3 has
 * factors other than 1 and i: a point k of 1 or 3 is the sum of an exact value and of a product, that of an exact sum
 * and 11585 * 2^-14, rounded to nearest with halves up in each part; the point k + 4 is their difference.
 * ORB_FFT_SCALE_FWD and _INV shift by the order, ORB_FFT_SCALE_SQRT by half of it, and odd orders multiply by 23170 *
 * 2^-15, rounded likewise. These shifts, the scale factor and the 15 - order bits together are one shift by the scale
 * rule: to nearest, ties to even, then saturated; no shift is too long. The planes have the same results as interleaved
 * points.
 *
 * pBuffer: work memory of the size that GetBufSize tells, at any alignment, or null: then a call of order 4 and above
 * takes what it needs and gives it back, and orbStsMemAllocErr, with nothing written, says that it could not. Results
 * are the same bits with and without a buffer, in place or not, at every alignment, in every tier.
 *
 * Statuses: orbStsNullPtrErr (pSpec), orbStsContextMatchErr, orbStsNullPtrErr (data), orbStsMemAllocErr. */
OrbStatus orbsFFTFwd_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_16sc_ISfs(Orb16sc* pSrcDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_16sc_ISfs(Orb16sc* pSrcDst, const OrbsFFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_16s_ISfs(Orb16s* pSrcDstRe, Orb16s* pSrcDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_16s_ISfs(Orb16s* pSrcDstRe, Orb16s* pSrcDstIm, const OrbsFFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32sc_ISfs(Orb32sc* pSrcDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32sc_ISfs(Orb32sc* pSrcDst, const OrbsFFTSpec_C_32sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32s_Sfs(const Orb32s* pSrcRe, const Orb32s* pSrcIm, Orb32s* pDstRe, Orb32s* pDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32s_Sfs(const Orb32s* pSrcRe, const Orb32s* pSrcIm, Orb32s* pDstRe, Orb32s* pDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_CToC_32s_ISfs(Orb32s* pSrcDstRe, Orb32s* pSrcDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CToC_32s_ISfs(Orb32s* pSrcDstRe, Orb32s* pSrcDstIm, const OrbsFFTSpec_C_32s* pSpec, int scaleFactor, Orb8u* pBuffer);

/* ---- Real transforms of integers -----------------------------------------------------------------------------
 * Alignment: any.
 * Layouts: as in orbs/fft.h; CCS arrays have N + 2 elements (2 for N = 1), also in the _ISfs forms. Their zeros are
 * zeros, but through floats they are scaled with the rest, and become the largest value where zeros do. The inverse
 * does not read the imaginary parts of the bins 0 and N / 2 of a CCS array.
 *
 * Through floats: as orbsFFTFwd_CToC_16sc_Sfs; _16s32s and _32s16s convert by orbsConvert_16s32f, _32f32s_Sfs, _32s32f
 * and _32f16s_Sfs, so values of a 32-bit spectrum are rounded to 24 bits first.
 * In integers (R_16s at orders 1 to 3): the samples times 2^(16 - order), then as orbsFFTFwd_CToC_16sc_Sfs. At order 3
 * the bins 1 and 3, and on the way back the samples 1, 3, 5 and 7, have such a product, of the inverse twice. No value
 * overflows, not even of spectra that no samples have.
 *
 * pBuffer, aliasing, statuses, threads: as of orbsFFTFwd_CToC_16sc_Sfs. */
OrbStatus orbsFFTFwd_RToCCS_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_16s_ISfs(Orb16s* pSrcDst, const OrbsFFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPack_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToPerm_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PackToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_PermToR_32s_ISfs(Orb32s* pSrcDst, const OrbsFFTSpec_R_32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTFwd_RToCCS_16s32s_Sfs(const Orb16s* pSrc, Orb32s* pDst, const OrbsFFTSpec_R_16s32s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsFFTInv_CCSToR_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, const OrbsFFTSpec_R_16s32s* pSpec, int scaleFactor, Orb8u* pBuffer);

ORBS_DECLARATIONS_END

#endif
