/* orbs/correlation.h: auto- and cross-correlation. */
#ifndef ORBS_CORRELATION_H
#define ORBS_CORRELATION_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Nothing is kept between calls, which may run on any number of threads at once; none is started. pDst must not overlap a
 * source. Results are the same bits on every processor and at every alignment.
 *
 * Direct sums are added up in the type of the elements, in one fixed order. Transforms are of the type of the elements,
 * with errors that are small beside the largest outputs, and a NaN or an infinity spoils all outputs of its block; their
 * object and all memory are taken and given back in the call.
 *
 * _16s_Sfs members convert samples to single precision, in which everything is computed; outputs times 2^-scaleFactor
 * are rounded to nearest, ties to even, and saturated, as orbsConvert_32f16s_Sfs does it; from a scale factor of -128
 * down outputs saturate by their signs, and those of 0 give 0. */

/* ---- CrossCorr, CrossCorrDirect, CrossCorrFFT ----------------------------------------------------------------
 * Alignment: of the elements.
 * pDst[n] = sum over k of conj(pSrc1[k]) pSrc2[k + lag] with lag = lowLag + n, over all k for which there are both, for
 * n = 0 to dstLen - 1; real elements are their own conjugates. Lags below 1 - src1Len and from src2Len on give 0, and
 * lowLag may have any value. With c the number of the other lags, L the longer and S the shorter length:
 *
 *   CrossCorr        through transforms if c S / L, in single precision, cut to an integer, exceeds 383 (_32f,
 *                    _16s_Sfs), 511 (_64f, _64fc) or 255 (_32fc); else direct
 *   CrossCorrDirect  the sums themselves, whatever they cost. No memory is taken.
 *   CrossCorrFFT     transforms of 2^k points. L < 3 S: one block of the first power of two from L + S - 1 on; else blocks
 *                    of two to four times 2 S points.
 *
 * CrossCorr_16s64s: exact sums, always direct, without memory.
 *
 * Statuses, in the order of the tests: any null pointer: orbStsNullPtrErr; a length below 1: orbStsSizeErr; no memory:
 * orbStsMemAllocErr, with nothing written. */
OrbStatus orbsCrossCorr_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorr_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorr_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorr_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrDirect_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrDirect_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrDirect_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrDirect_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrFFT_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrFFT_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrFFT_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorrFFT_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag);
OrbStatus orbsCrossCorr_16s_Sfs(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb16s* pDst, int dstLen, int lowLag, int scaleFactor);
OrbStatus orbsCrossCorr_16s64s(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb64s* pDst, int dstLen, int lowLag);

/* ---- AutoCorr ------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * pDst[k] = sum over i of conj(pSrc[i]) pSrc[i + k], i = 0 to srcLen - 1 - k, for k = 0 to m - 1 with m the lesser of
 * srcLen and dstLen; the outputs from m on are 0. NormA: times 1 / srcLen, which is rounded to the type of the elements.
 * NormB: divided by srcLen - k, the number of terms. Of _16s_Sfs members that happens in single precision, before
 * outputs are scaled and rounded.
 *
 * From m = 856 (_32f, _64f, _16s_Sfs), 152 (_32fc) or 368 (_64fc) on through one transform of the first power of two from
 * 2 srcLen on; below that direct.
 *
 * Statuses, in the order of the tests: any null pointer: orbStsNullPtrErr; a length below 1: orbStsSizeErr; no memory:
 * orbStsMemAllocErr, with nothing written but by _16s_Sfs members the zeros from m on. */
OrbStatus orbsAutoCorr_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen);
OrbStatus orbsAutoCorr_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen);
OrbStatus orbsAutoCorr_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormA_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormA_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormA_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormA_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormB_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormB_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormB_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_NormB_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen);
OrbStatus orbsAutoCorr_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor);
OrbStatus orbsAutoCorr_NormA_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor);
OrbStatus orbsAutoCorr_NormB_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
