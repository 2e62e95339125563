/* orbs/fft.h: Fourier transforms of power-of-two length. */
#ifndef ORBS_FFT_H
#define ORBS_FFT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Throughout, N = 2^order points. The forward transform is X[k] = sum over n of x[n] exp(-2 pi i n k / N), the inverse
 * the same with the sign of the exponent changed; neither is divided by N unless the flag of the object says so. */

/* ---- FFT objects ---------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * An object holds all tables of one order and one kind of data, so that a transform computes no sine.
 * Kinds: C_32fc and C_64fc complex interleaved; C_32f and C_64f complex in two planes; R_32f and R_64f real.
 *
 * order: 0 to 30. flag: ORB_FFT_SCALE_FWD (forward divides by N), ORB_FFT_SCALE_INV (inverse divides by N),
 * ORB_FFT_SCALE_SQRT (both divide by the root of N) or ORB_FFT_SCALE_NONE. hint: any value; it changes nothing.
 *
 * Two ways to an object:
 *   InitAlloc allocates it; Free releases it.
 *   GetSize tells three sizes in bytes: of the object (*pSpecSize), of memory that Init needs only while it runs
 *   (*pSpecBufferSize, may be 0) and of the work buffer of a transform (*pBufferSize, may be 0). Init builds the object
 *   in the caller's pMemSpec, at any alignment, and stores its address, which lies up to 31 bytes further on; pMemInit
 *   is looked at only for orders above 10. Free makes such an object unusable and releases nothing.
 * The sizes are computed in 32 bits and wrap at the highest orders. An object whose size cannot be told in a positive
 * int is not built: Init and InitAlloc give orbStsMemAllocErr and touch no memory. That leaves orders up to 27 of
 * single and 26 of double precision.
 * An object holds no address: it may be copied or mapped elsewhere with its block, at an alignment of 32 bytes. Its
 * tables are laid out for the vectors of the processor that made it: on one whose vectors are longer or shorter (64
 * bytes or less) calls that read tables refuse it with orbStsContextMatchErr.
 *
 * GetBufSize tells the size of the work buffer of one object: 0 for orders below 4, and below 4 only.
 *
 * Any number of threads may transform with one object at once, each with its own work buffer; nothing is ever written
 * to the object. Do not free it while a transform is running.
 *
 * Statuses, in the order of the tests:
 *   GetSize: orbStsFftOrderErr, orbStsNullPtrErr, orbStsFftFlagErr.
 *   Init: orbStsNullPtrErr (ppSpec), orbStsFftOrderErr, orbStsNullPtrErr (pMemSpec), orbStsMemAllocErr,
 *     orbStsFftFlagErr, orbStsNullPtrErr (pMemInit). From the flag on the caller's memory has been written, and after a
 *     refused flag it holds no object. *ppSpec is written only on success.
 *   InitAlloc: orbStsNullPtrErr, then as GetSize, orbStsMemAllocErr. *ppSpec is written only on success.
 *   Free, GetBufSize: orbStsNullPtrErr, orbStsContextMatchErr (an object of another kind, or freed). */
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

/* ---- Complex transforms --------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * _32fc and _64fc: N interleaved complex points from pSrc to pDst. _32f and _64f: a plane of N real parts and one of N
 * imaginary parts. The destination may be the source (the _I forms); each plane may be in place or not by itself.
 * Other overlaps are not supported.
 *
 * pBuffer: work memory of the size that GetBufSize tells, at any alignment, or null: then the call takes what it needs
 * and gives it back, and orbStsMemAllocErr, with nothing written, says that it could not. Its contents are not defined
 * afterwards. Results are the same bits with and without a buffer, in place or not, at every alignment, in every tier.
 *
 * Method: decimation in time, radix 4 with one radix-2 pass at the end (single precision) or one radix-8 pass at the
 * start (double precision) of odd orders (Van Loan, Computational Frameworks for the Fast Fourier Transform, 1992, ch. 2
 * and 3). The scale multiplies the results; up to 8 points it multiplies the first sums instead. From 2^18 points (2^17
 * in double precision) on it multiplies the results of the sub-transforms that stay in the cache. The error grows with
 * the root of the order: docs/accuracy.md has a table. NaN and infinity spread as the additions and multiplications of
 * the method carry them.
 *
 * Statuses: orbStsNullPtrErr (pSpec), orbStsContextMatchErr, orbStsNullPtrErr (data), orbStsMemAllocErr. */
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

/* ---- Real transforms -----------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * N real samples to the half of their spectrum that is enough, in the layouts CCS, Pack or Perm (orbs/spectra.h), and
 * back. CCS arrays have N + 2 elements (2 for N = 1), also in the _I forms; Pack and Perm have N. Perm is what the
 * transform makes by itself; CCS costs two more writes, Pack a move of the spectrum by one place. The inverse does not
 * read the imaginary parts of the bins 0 and N / 2 of a CCS array.
 *
 * pBuffer, aliasing, statuses, threads: as of orbsFFTFwd_CToC_32fc. Method: a complex transform of N / 2 points and
 * one pass over it; the scale is applied between the two (forward) or behind them (inverse). */
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
