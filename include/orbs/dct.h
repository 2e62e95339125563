/* orbs/dct.h: discrete cosine transforms. */
#ifndef ORBS_DCT_H
#define ORBS_DCT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* X[k] = c(k) sum over n of x[n] cos(pi (2 n + 1) k / (2 N)) and back x[n] = sum over k of c(k) X[k] cos(pi (2 n + 1) k /
 * (2 N)), with c(0) = 1 / sqrt(N) and c(k) = sqrt(2 / N) for the others: the orthonormal DCT-II and its inverse, the
 * DCT-III, of any length N from 1 on. */

/* ---- DCT objects ---------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * An object holds all tables of one length, one direction and one kind of data, so that a transform computes no cosine.
 * len: N, from 1 on. hint: any value; it changes nothing.
 *
 * Two ways to an object:
 *   InitAlloc allocates it; Free releases it.
 *   GetSize tells three sizes in bytes: of the object (*pSpecSize), of memory that Init needs only while it runs
 *   (*pSpecBufferSize, may be 0) and of the work buffer of a transform (*pBufferSize, may be 0). Init builds the object
 *   in the caller's pMemSpec, at any alignment, and stores its address, which lies up to 31 bytes further on; pMemInit
 *   is looked at only where *pSpecBufferSize is not 0. Free makes such an object unusable and releases nothing.
 * An object that InitAlloc made has more room: for N up to 100 that is no power of two it holds its cosines in the order
 * in which they are needed, and transforms up to a dozen times as fast as one that Init built in the size told. Results
 * are the same bits.
 * An object holds no address: with the block of the size told, what Init built may be copied or mapped elsewhere, at an
 * alignment of 32 bytes.
 *
 * GetBufSize tells the size of the work buffer of one object: 0 for N of 1, 2, 4 and 8 (_16s: for N of 1).
 *
 * Any number of threads may transform with one object at once, each with its own work buffer; nothing is ever written
 * to the object. Do not free it while a transform is running.
 *
 * Statuses, in the order of the tests:
 *   GetSize: orbStsSizeErr (len below 1), orbStsNullPtrErr, orbStsMemAllocErr (a size that cannot be told in a positive
 *     int, which leaves powers of two up to 2^26 and other lengths up to 2^25, half of that in double precision).
 *   Init: orbStsNullPtrErr (ppSpec), orbStsSizeErr, orbStsNullPtrErr (pMemSpec), orbStsMemAllocErr (as GetSize),
 *     orbStsNullPtrErr (pMemInit, where it is needed). A refusal touches no memory.
 *   InitAlloc: orbStsNullPtrErr, then as GetSize, orbStsMemAllocErr. *ppSpec is written only on success.
 *   Free, GetBufSize: orbStsNullPtrErr, orbStsContextMatchErr (an object of another kind, or freed). */
typedef struct OrbsDCTFwdSpec_16s OrbsDCTFwdSpec_16s;
typedef struct OrbsDCTInvSpec_16s OrbsDCTInvSpec_16s;
typedef struct OrbsDCTFwdSpec_32f OrbsDCTFwdSpec_32f;
typedef struct OrbsDCTInvSpec_32f OrbsDCTInvSpec_32f;
typedef struct OrbsDCTFwdSpec_64f OrbsDCTFwdSpec_64f;
typedef struct OrbsDCTInvSpec_64f OrbsDCTInvSpec_64f;

OrbStatus orbsDCTFwdGetSize_32f(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTFwdInit_32f(OrbsDCTFwdSpec_32f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTFwdInitAlloc_32f(OrbsDCTFwdSpec_32f** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTFwdFree_32f(OrbsDCTFwdSpec_32f* pSpec);
OrbStatus orbsDCTFwdGetBufSize_32f(const OrbsDCTFwdSpec_32f* pSpec, int* pSize);
OrbStatus orbsDCTFwdGetSize_64f(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTFwdInit_64f(OrbsDCTFwdSpec_64f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTFwdInitAlloc_64f(OrbsDCTFwdSpec_64f** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTFwdFree_64f(OrbsDCTFwdSpec_64f* pSpec);
OrbStatus orbsDCTFwdGetBufSize_64f(const OrbsDCTFwdSpec_64f* pSpec, int* pSize);
OrbStatus orbsDCTFwdGetSize_16s(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTFwdInit_16s(OrbsDCTFwdSpec_16s** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTFwdInitAlloc_16s(OrbsDCTFwdSpec_16s** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTFwdFree_16s(OrbsDCTFwdSpec_16s* pSpec);
OrbStatus orbsDCTFwdGetBufSize_16s(const OrbsDCTFwdSpec_16s* pSpec, int* pSize);
OrbStatus orbsDCTInvGetSize_32f(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTInvInit_32f(OrbsDCTInvSpec_32f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTInvInitAlloc_32f(OrbsDCTInvSpec_32f** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTInvFree_32f(OrbsDCTInvSpec_32f* pSpec);
OrbStatus orbsDCTInvGetBufSize_32f(const OrbsDCTInvSpec_32f* pSpec, int* pSize);
OrbStatus orbsDCTInvGetSize_64f(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTInvInit_64f(OrbsDCTInvSpec_64f** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTInvInitAlloc_64f(OrbsDCTInvSpec_64f** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTInvFree_64f(OrbsDCTInvSpec_64f* pSpec);
OrbStatus orbsDCTInvGetBufSize_64f(const OrbsDCTInvSpec_64f* pSpec, int* pSize);
OrbStatus orbsDCTInvGetSize_16s(int len, OrbHintAlgorithm hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
OrbStatus orbsDCTInvInit_16s(OrbsDCTInvSpec_16s** ppSpec, int len, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit);
OrbStatus orbsDCTInvInitAlloc_16s(OrbsDCTInvSpec_16s** ppSpec, int len, OrbHintAlgorithm hint);
OrbStatus orbsDCTInvFree_16s(OrbsDCTInvSpec_16s* pSpec);
OrbStatus orbsDCTInvGetBufSize_16s(const OrbsDCTInvSpec_16s* pSpec, int* pSize);

/* ---- Cosine transforms ---------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * N real values from pSrc to pDst. The destination may be the source (the _I forms); other overlaps are not supported.
 *
 * pBuffer: work memory of the size that GetBufSize tells, at any alignment, or null: then a call that needs memory takes
 * it and gives it back, and orbStsMemAllocErr, with nothing written, says that it could not. Its contents are not
 * defined afterwards. Results are the same bits with and without a buffer, in place or not, at every alignment, in every
 * tier.
 *
 * Method, by N:
 *   1, 2, 4, 8       straight-line code with all factors in it
 *   16, 32           halving (Lee, IEEE Trans. ASSP-32, 1984) down to eight points
 *   2^m from 64 on   a real Fourier transform of 2 N points, of which the signal fills the first half
 *   others to 100    sums over the sums and differences of mirrored samples: N^2 / 2 products
 *   others           the same as for powers of two by a chirp convolution (Bluestein) of the first power of two from
 *                    2 N - 1 on
 * The error of the sums grows with the root of N, that of the others with the root of its logarithm: docs/accuracy.md
 * has a table. NaN and infinity spread as the additions and multiplications of the method carry them.
 *
 * _16s_Sfs: transformed in single precision, then as orbsConvert_32f16s_Sfs has it: times 2^-scaleFactor, rounded to
 * nearest, ties to even, saturated. Where that factor is infinite (from scaleFactor -128 down) 0 gives 32767. For N = 1
 * the value is scaled by the rule of all integer results, without floats.
 *
 * Statuses: orbStsNullPtrErr (pSpec), orbStsContextMatchErr (an object of another kind or of the other direction, or
 * freed), orbStsNullPtrErr (data), orbStsMemAllocErr. */
OrbStatus orbsDCTFwd_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDCTFwdSpec_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTFwd_32f_I(Orb32f* pSrcDst, const OrbsDCTFwdSpec_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTFwd_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDCTFwdSpec_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTFwd_64f_I(Orb64f* pSrcDst, const OrbsDCTFwdSpec_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTFwd_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDCTFwdSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDCTFwd_16s_ISfs(Orb16s* pSrcDst, const OrbsDCTFwdSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDCTInv_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDCTInvSpec_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTInv_32f_I(Orb32f* pSrcDst, const OrbsDCTInvSpec_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTInv_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDCTInvSpec_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTInv_64f_I(Orb64f* pSrcDst, const OrbsDCTInvSpec_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDCTInv_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDCTInvSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDCTInv_16s_ISfs(Orb16s* pSrcDst, const OrbsDCTInvSpec_16s* pSpec, int scaleFactor, Orb8u* pBuffer);

ORBS_DECLARATIONS_END

#endif
