/* orbs/dft.h: Fourier transforms of any length. */
#ifndef ORBS_DFT_H
#define ORBS_DFT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Throughout, N is the length. The forward transform is X[k] = sum over n of x[n] exp(-2 pi i n k / N), the inverse the
 * same with the sign of the exponent changed; neither is divided by N unless the flag of the object says so. */

/* ---- DFT objects ---------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * An object holds all tables of one length and one kind of data, so that a transform computes no sine.
 * Kinds: C_32fc and C_64fc complex interleaved; C_32f and C_64f complex in two planes; R_32f and R_64f real; C_16sc,
 * C_16s and R_16s integers.
 *
 * length: 1 and above. flag: ORB_FFT_SCALE_FWD (forward divides by N), ORB_FFT_SCALE_INV (inverse divides by N),
 * ORB_FFT_SCALE_SQRT (both divide by the root of N) or ORB_FFT_SCALE_NONE. hint: any value; it changes nothing.
 *
 * InitAlloc allocates an object of one block and stores its address; Free releases it. It settles how a length is
 * transformed:
 *   up to 4                  formulas without a table, and without a work buffer;
 *   a power of two           the transforms of orbs/fft.h, with their results to the bit;
 *   products of small primes mixed radix: stages of radix 2, 3, 4, 5 and of odd primes up to 149. The least odd factors
 *                            are split off until what is left is less than the square of the next; that must be below
 *                            151 too, or the length counts as none of these (all primes do, and 2 * 151);
 *   others up to 150         direct sums, of the order of N^2 (real data of odd length: up to 180);
 *   others                   a convolution with a chirp through a power-of-two FFT of at least 2 N - 1 points
 *                            (Bluestein; Rabiner, Schafer and Rader, The Chirp z-Transform Algorithm, 1969).
 * Real data of even length go through the complex transform of N / 2 points.
 *
 * GetBufSize tells the size of the work buffer of a transform in bytes; 0 up to length 4.
 *
 * An object of which the size, or that of its work buffer, cannot be told in a positive int is not built:
 * orbStsMemAllocErr. Any number of threads may transform with one object at once, each with its own work buffer; nothing
 * is ever written to the object. Do not free it while a transform is running.
 *
 * Statuses, in the order of the tests:
 *   InitAlloc: orbStsNullPtrErr, orbStsSizeErr (length below 1), orbStsFftFlagErr, orbStsMemAllocErr. *ppSpec is written
 *     only on success.
 *   Free, GetBufSize: orbStsNullPtrErr, orbStsContextMatchErr (an object of another kind, or freed). */
typedef struct OrbsDFTSpec_C_32fc OrbsDFTSpec_C_32fc;
typedef struct OrbsDFTSpec_C_32f OrbsDFTSpec_C_32f;
typedef struct OrbsDFTSpec_C_64fc OrbsDFTSpec_C_64fc;
typedef struct OrbsDFTSpec_C_64f OrbsDFTSpec_C_64f;
typedef struct OrbsDFTSpec_R_32f OrbsDFTSpec_R_32f;
typedef struct OrbsDFTSpec_R_64f OrbsDFTSpec_R_64f;
typedef struct OrbsDFTSpec_C_16sc OrbsDFTSpec_C_16sc;
typedef struct OrbsDFTSpec_C_16s OrbsDFTSpec_C_16s;
typedef struct OrbsDFTSpec_R_16s OrbsDFTSpec_R_16s;

OrbStatus orbsDFTInitAlloc_C_32fc(OrbsDFTSpec_C_32fc** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_32fc(OrbsDFTSpec_C_32fc* pSpec);
OrbStatus orbsDFTGetBufSize_C_32fc(const OrbsDFTSpec_C_32fc* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_C_32f(OrbsDFTSpec_C_32f** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_32f(OrbsDFTSpec_C_32f* pSpec);
OrbStatus orbsDFTGetBufSize_C_32f(const OrbsDFTSpec_C_32f* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_C_64fc(OrbsDFTSpec_C_64fc** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_64fc(OrbsDFTSpec_C_64fc* pSpec);
OrbStatus orbsDFTGetBufSize_C_64fc(const OrbsDFTSpec_C_64fc* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_C_64f(OrbsDFTSpec_C_64f** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_64f(OrbsDFTSpec_C_64f* pSpec);
OrbStatus orbsDFTGetBufSize_C_64f(const OrbsDFTSpec_C_64f* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_R_32f(OrbsDFTSpec_R_32f** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_R_32f(OrbsDFTSpec_R_32f* pSpec);
OrbStatus orbsDFTGetBufSize_R_32f(const OrbsDFTSpec_R_32f* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_R_64f(OrbsDFTSpec_R_64f** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_R_64f(OrbsDFTSpec_R_64f* pSpec);
OrbStatus orbsDFTGetBufSize_R_64f(const OrbsDFTSpec_R_64f* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_C_16sc(OrbsDFTSpec_C_16sc** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_16sc(OrbsDFTSpec_C_16sc* pSpec);
OrbStatus orbsDFTGetBufSize_C_16sc(const OrbsDFTSpec_C_16sc* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_C_16s(OrbsDFTSpec_C_16s** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_C_16s(OrbsDFTSpec_C_16s* pSpec);
OrbStatus orbsDFTGetBufSize_C_16s(const OrbsDFTSpec_C_16s* pSpec, int* pSize);
OrbStatus orbsDFTInitAlloc_R_16s(OrbsDFTSpec_R_16s** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTFree_R_16s(OrbsDFTSpec_R_16s* pSpec);
OrbStatus orbsDFTGetBufSize_R_16s(const OrbsDFTSpec_R_16s* pSpec, int* pSize);

/* ---- Complex DFT ---------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * _32fc and _64fc: N interleaved complex points from pSrc to pDst. _32f and _64f: a plane of N real parts and one of N
 * imaginary parts. The destination may be the source; each plane may be in place, or the other one's source, by itself.
 * Other overlaps are not supported.
 *
 * pBuffer: work memory of the size that GetBufSize tells, at any alignment, or null: then the call takes what it needs
 * and gives it back, and orbStsMemAllocErr, with nothing written, says that it could not. Its contents are not defined
 * afterwards. Results are the same bits with and without a buffer, in place or not, at every alignment, in every tier,
 * and the same for planes and interleaved points.
 *
 * The scale is one multiplication of each result (but for powers of two: orbs/fft.h). Sums run in the order of the
 * stages, and of the samples in radices above 5 and in direct sums; docs/accuracy.md has a table of errors. NaN and
 * infinity spread as the additions and multiplications of the method carry them.
 *
 * Statuses: orbStsNullPtrErr (pSpec), orbStsContextMatchErr, orbStsNullPtrErr (data), orbStsMemAllocErr. */
OrbStatus orbsDFTFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsDFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsDFTSpec_C_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsDFTSpec_C_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsDFTSpec_C_64f* pSpec, Orb8u* pBuffer);

/* ---- DFT out of order ----------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Complex transforms for work on spectra, such as products of two of one length, where the order of the bins does not
 * matter: they spare the reordering, and the intermediate array with it. Objects, scaling, statuses and threads are as
 * those of orbsDFTFwd_CToC_32fc; pDst may be pSrc.
 *
 * Only mixed-radix lengths above 2000 (_32fc) or 5000 (_64fc) are out of order; at all others these are the transforms
 * in natural order. Write N = r(0) r(1) ... r(s) m: the two of a length that holds an odd number of twos, the fours, the
 * odd primes in increasing order, m being the last. Bin k = q + m (q(s) + r(s) (q(s-1) + ... + r(1) q(0))) stands at the
 * place with the same digits read from the other end, q N / m + q(s) N / (m r(s)) + ... + q(0). The inverse takes this
 * order and returns samples in natural order. */
typedef struct OrbsDFTOutOrdSpec_C_32fc OrbsDFTOutOrdSpec_C_32fc;
typedef struct OrbsDFTOutOrdSpec_C_64fc OrbsDFTOutOrdSpec_C_64fc;

OrbStatus orbsDFTOutOrdInitAlloc_C_32fc(OrbsDFTOutOrdSpec_C_32fc** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTOutOrdFree_C_32fc(OrbsDFTOutOrdSpec_C_32fc* pSpec);
OrbStatus orbsDFTOutOrdGetBufSize_C_32fc(const OrbsDFTOutOrdSpec_C_32fc* pSpec, int* pSize);
OrbStatus orbsDFTOutOrdInitAlloc_C_64fc(OrbsDFTOutOrdSpec_C_64fc** ppSpec, int length, int flag, OrbHintAlgorithm hint);
OrbStatus orbsDFTOutOrdFree_C_64fc(OrbsDFTOutOrdSpec_C_64fc* pSpec);
OrbStatus orbsDFTOutOrdGetBufSize_C_64fc(const OrbsDFTOutOrdSpec_C_64fc* pSpec, int* pSize);
OrbStatus orbsDFTOutOrdFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTOutOrdSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTOutOrdInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTOutOrdSpec_C_32fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTOutOrdFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTOutOrdSpec_C_64fc* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTOutOrdInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTOutOrdSpec_C_64fc* pSpec, Orb8u* pBuffer);

/* ---- Real DFT ------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * N real samples to the half of their spectrum that is enough, and back. With R(k) and I(k) the parts of X[k], and M
 * half of N rounded down, the layouts (orbs/spectra.h) are, for even and for odd N:
 *   CCS   R(0) 0 R(1) I(1) ... R(M-1) I(M-1) R(M) 0     R(0) 0 R(1) I(1) ... R(M) I(M)     N + 2 and N + 1 elements
 *   Pack  R(0) R(1) I(1) ... R(M-1) I(M-1) R(M)         R(0) R(1) I(1) ... R(M) I(M)       N elements
 *   Perm  R(0) R(M) R(1) I(1) ... R(M-1) I(M-1)         the same as Pack                   N elements
 * The zeros of CCS are written, and not read on the way back. pDst may be pSrc, where the block must hold the longer of
 * the two vectors; other overlaps are not supported. Every layout has the same bits.
 *
 * Method: even lengths that are no power of two by a complex transform of N / 2 points and one pass over it; odd ones by
 * real mixed-radix stages, direct sums (primes up to 179) or a chirp. The scale is one multiplication of each result
 * (but for powers of two: orbs/fft.h). pBuffer, statuses, NaN, threads: as of orbsDFTFwd_CToC_32fc. */
OrbStatus orbsDFTFwd_RToCCS_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPack_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPerm_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CCSToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PackToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PermToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToCCS_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPack_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPerm_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CCSToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PackToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PermToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer);

/* ---- DFT of integers -----------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The data become single precision, are transformed by the plan of their length, and come back as
 *
 *     result * 2^-scaleFactor, to the nearest integer, ties to even, saturated to -32768 to 32767,
 *
 * as orbsConvert_32f16s_Sfs does it: with a scaleFactor below -127 a result of 0 becomes 32767. No scaleFactor is an
 * error. _16sc: interleaved; C objects of _16s: two planes; R objects: real data, in the layouts of orbs/spectra.h.
 * Between exact result and integer stand the errors of the transform in single precision: with N points of full range
 * and scaleFactor 0 about 2^-8 of the root of N. A length of 1 only scales, and keeps 0. pDst may be pSrc; planes as of
 * orbsDFTFwd_CToC_32f.
 *
 * pBuffer: as of orbsDFTFwd_CToC_32fc, of the size that GetBufSize tells of the 16-bit object; used from length 2 on.
 * Statuses: orbStsNullPtrErr (pSpec), orbStsContextMatchErr, orbStsNullPtrErr (data), orbStsMemAllocErr. */
OrbStatus orbsDFTFwd_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsDFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsDFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsDFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsDFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToCCS_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPack_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTFwd_RToPerm_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTInv_CCSToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PackToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);
OrbStatus orbsDFTInv_PermToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer);

ORBS_DECLARATIONS_END

#endif
