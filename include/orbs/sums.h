/* orbs/sums.h: sums, means, deviations and sums of logarithms. */
#ifndef ORBS_SUMS_H
#define ORBS_SUMS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests: pointers (orbStsNullPtrErr), then len (orbStsSizeErr) below 1, of deviations below 2. Nothing is
 * written before they pass. A complex vector is reduced part by part. No scale factor is an error. All members may be
 * called from any number of threads.
 *
 * Floats: the order in which elements are added is fixed. With a hint of orbAlgHintFast single precision is added up in
 * lanes of single precision and blocks, whose sums are added in double precision; with every other hint, and in double
 * precision, all is added in lanes of double precision. The same elements give the same result at every alignment and
 * on every processor, under the caller's rounding mode. An infinite or NaN element makes sums and means what IEEE
 * additions make of it. */

/* ---- Sum -----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * *pSum = sum over n of pSrc[n], n = 0 to len - 1.
 *
 * Floats: added up as orbs/sums.h has it for all; a fast block is of 32768 parts of elements. The result of double
 * precision is rounded to that of the member at the end, and only there it can overflow.
 * Integers: the exact sum S, then once S * 2^-scaleFactor, limited to the result's type. _16s, _16s32s and the complex
 * forms round as the caller's rounding mode says, to nearest with ties to even unless that was changed; _16s is what
 * _16s32s gives, saturated. _32s rounds to nearest with ties to even in every mode; from a scale factor of 64 on it
 * gives the sign of S, -1 below 0 and else 0, and below -31 it multiplies by 2^31. */
OrbStatus orbsSum_32f(const Orb32f* pSrc, int len, Orb32f* pSum, OrbHintAlgorithm hint);
OrbStatus orbsSum_32fc(const Orb32fc* pSrc, int len, Orb32fc* pSum, OrbHintAlgorithm hint);
OrbStatus orbsSum_64f(const Orb64f* pSrc, int len, Orb64f* pSum);
OrbStatus orbsSum_64fc(const Orb64fc* pSrc, int len, Orb64fc* pSum);
OrbStatus orbsSum_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pSum, int scaleFactor);
OrbStatus orbsSum_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pSum, int scaleFactor);
OrbStatus orbsSum_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pSum, int scaleFactor);
OrbStatus orbsSum_16sc32sc_Sfs(const Orb16sc* pSrc, int len, Orb32sc* pSum, int scaleFactor);
OrbStatus orbsSum_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pSum, int scaleFactor);

/* ---- Mean ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * *pMean = sum over n of pSrc[n], divided by len.
 *
 * Floats: the sum of Sum in double precision, divided in double precision, then rounded to the result's type; _64fc
 * multiplies by 1.0 / len.
 * _16s, _16sc: S * 2^-scaleFactor / len in double precision, limited to 16 bits and rounded as the caller's rounding
 * mode says, to nearest with ties to even unless that was changed.
 * _32s: M = S / len to nearest with ties to even. A scale factor s above 0 gives (|M| + bit s - 1 of |M|) >> s with the
 * sign of M: that bit is added as 1, so from s = 2 on this is not rounding (6 with s = 2 gives 1). Below 0 the sum is
 * shifted left before it is divided if it fits 32 bits, so that the fraction counts, and else the mean; below -31 the
 * result is the extreme of the type with the sign of S, and 0 if S is 0. Saturated. */
OrbStatus orbsMean_32f(const Orb32f* pSrc, int len, Orb32f* pMean, OrbHintAlgorithm hint);
OrbStatus orbsMean_32fc(const Orb32fc* pSrc, int len, Orb32fc* pMean, OrbHintAlgorithm hint);
OrbStatus orbsMean_64f(const Orb64f* pSrc, int len, Orb64f* pMean);
OrbStatus orbsMean_64fc(const Orb64fc* pSrc, int len, Orb64fc* pMean);
OrbStatus orbsMean_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pMean, int scaleFactor);
OrbStatus orbsMean_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pMean, int scaleFactor);
OrbStatus orbsMean_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pMean, int scaleFactor);

/* ---- StdDev, MeanStdDev --------------------------------------------------------------------------------------
 * Alignment: any.
 * With n = len, S1 the sum of the elements and S2 the sum of their squares: *pMean = S1 / n and the deviation of a
 * sample, *pStdDev = sqrt((S2 * n - S1^2) / (n * (n - 1))). len below 2 is refused.
 *
 * Floats: S1 and S2 as of orbsSum, each square rounded to the type of the lanes; a fast block is of 1024 elements, and
 * fast calls of at most 8 elements are the accurate ones. The difference is formed from S1 and S2 without another loss,
 * but what they have lost is lost: under a large offset few digits are left. Elements that are all equal have a
 * deviation of 0, and so have those whose variance rounding has made negative. The deviation is infinite if S2 is, and
 * NaN if an element is; the latter only.
 * Integers: S1 and S2 are exact, mean and deviation times 2^-scaleFactor to nearest with ties to even in every rounding
 * mode, limited to the type of the result. */
OrbStatus orbsStdDev_32f(const Orb32f* pSrc, int len, Orb32f* pStdDev, OrbHintAlgorithm hint);
OrbStatus orbsStdDev_64f(const Orb64f* pSrc, int len, Orb64f* pStdDev);
OrbStatus orbsStdDev_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pStdDev, int scaleFactor);
OrbStatus orbsStdDev_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pStdDev, int scaleFactor);
OrbStatus orbsMeanStdDev_32f(const Orb32f* pSrc, int len, Orb32f* pMean, Orb32f* pStdDev, OrbHintAlgorithm hint);
OrbStatus orbsMeanStdDev_64f(const Orb64f* pSrc, int len, Orb64f* pMean, Orb64f* pStdDev);
OrbStatus orbsMeanStdDev_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pMean, Orb32s* pStdDev, int scaleFactor);
OrbStatus orbsMeanStdDev_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pMean, Orb16s* pStdDev, int scaleFactor);

/* ---- SumLn ---------------------------------------------------------------------------------------------------
 * Alignment: any.
 * *pSum = sum over n of ln pSrc[n]: the logarithm of the product, which is kept as an exponent and a mantissa of double
 * precision, rounded to the type of the result at the end. An infinite element makes the sum infinite.
 *
 * The first element that has no logarithm ends the call, and what lies before it does not matter:
 * 0, of either sign: +infinity, and the warning orbStsLnZeroArg.
 * below 0, or a NaN whose sign bit is set: NaN, and the warning orbStsLnNegArg.
 * another NaN: NaN, and orbStsNoErr. */
OrbStatus orbsSumLn_32f(const Orb32f* pSrc, int len, Orb32f* pSum);
OrbStatus orbsSumLn_16s32f(const Orb16s* pSrc, int len, Orb32f* pSum);
OrbStatus orbsSumLn_32f64f(const Orb32f* pSrc, int len, Orb64f* pSum);
OrbStatus orbsSumLn_64f(const Orb64f* pSrc, int len, Orb64f* pSum);

ORBS_DECLARATIONS_END

#endif
