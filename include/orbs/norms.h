/* orbs/norms.h: norms, dot products and normalisation. */
#ifndef ORBS_NORMS_H
#define ORBS_NORMS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr), then what a family adds. No scale
 * factor is an error. All members may be called from any number of threads. Floats are added up in a fixed order, in
 * lanes of the type that is told, under the caller's rounding mode: the same elements give the same result at every
 * alignment and on every processor. Sums of integers are exact until they are scaled, once, at the end. */

/* ---- Norm, NormDiff ------------------------------------------------------------------------------------------
 * Alignment: any.
 * With x[n] = pSrc[n], and of NormDiff x[n] = pSrc1[n] - pSrc2[n], n = 0 to len - 1:
 * Inf: *pNorm = largest |x[n]|; L1: sum of |x[n]|; L2: root of the sum of |x[n]|^2; L2Sqr: that sum.
 * The absolute value of a complex x is its magnitude, sqrt(re^2 + im^2).
 *
 * Floats: differences, squares and sums are of the type that the result has, so Norm_L2_32f of 1e30 is infinite;
 * complex members compute in double precision throughout (Inf_32fc32f rounds at the end). A NaN element gives a NaN.
 *
 * Integers: x and what is added up are exact. _16s32f: L2 is the root in double precision; rounded to single precision.
 * Scaled, with s = scaleFactor, always cut off and not rounded, and saturated to the highest value of the result:
 * Inf: above 0 the norm >> s, 0 from s = 32 on; below 0 the norm << -s, at most 31.
 * L1: above 0 the sum >> s, 0 from s = 64 on; below 0 the sum << -s, at most 63. With s = 0 Norm_L1_16s32s_Sfs and
 * NormDiff_L1_16s32s_Sfs store the low 32 bits of the sum, whatever it is.
 * L2: the root in double precision times 2^-s, cut off.
 * L2Sqr: as L1. */
OrbStatus orbsNorm_Inf_32f(const Orb32f* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_Inf_64f(const Orb64f* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_Inf_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_Inf_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNorm_Inf_32fc32f(const Orb32fc* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_Inf_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L1_32f(const Orb32f* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_L1_64f(const Orb64f* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L1_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_L1_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNorm_L1_16s64s_Sfs(const Orb16s* pSrc, int len, Orb64s* pNorm, int scaleFactor);
OrbStatus orbsNorm_L1_32fc64f(const Orb32fc* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L1_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L2_32f(const Orb32f* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_L2_64f(const Orb64f* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L2_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm);
OrbStatus orbsNorm_L2_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNorm_L2_32fc64f(const Orb32fc* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L2_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm);
OrbStatus orbsNorm_L2Sqr_16s64s_Sfs(const Orb16s* pSrc, int len, Orb64s* pNorm, int scaleFactor);
OrbStatus orbsNormDiff_Inf_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_Inf_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_Inf_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_Inf_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNormDiff_Inf_32fc32f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_Inf_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L1_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_L1_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L1_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_L1_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNormDiff_L1_16s64s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pNorm, int scaleFactor);
OrbStatus orbsNormDiff_L1_32fc64f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L1_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L2_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_L2_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L2_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm);
OrbStatus orbsNormDiff_L2_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor);
OrbStatus orbsNormDiff_L2_32fc64f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L2_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm);
OrbStatus orbsNormDiff_L2Sqr_16s64s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pNorm, int scaleFactor);

/* ---- DotProd -------------------------------------------------------------------------------------------------
 * Alignment: any.
 * *pDp = sum over n of pSrc1[n] * pSrc2[n]; complex elements are not conjugated. The suffix names the types of the
 * sources and that of the result, once where they are the same.
 *
 * Floats: products and sums in single precision if the result is single, else in double precision, made of elements
 * that are widened first. A complex product is added up in its four parts, re*re, im*im, re*im and im*re, which meet at
 * the end.
 * 16-bit sources: the exact sum. _16s32f and the like convert it to single precision, one rounding. With s = scaleFactor,
 * part by part: above 0, limited to 31, times 2^-s to nearest with ties to even; below 0, limited to -15 for results of
 * 16 bits and to -31 for those of 32, times 2^-s; saturated.
 * A 32-bit source: products and sums in double precision, so that what exceeds 53 bits is rounded; times 2^-s, s limited
 * to -31 and to 93; to nearest with ties to even in every rounding mode, saturated. No floating-point exception. */
OrbStatus orbsDotProd_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pDp);
OrbStatus orbsDotProd_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb32fc* pDp);
OrbStatus orbsDotProd_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, int len, Orb32fc* pDp);
OrbStatus orbsDotProd_32f64f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb64f* pDp);
OrbStatus orbsDotProd_32fc64fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64fc* pDp);
OrbStatus orbsDotProd_32f32fc64fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, int len, Orb64fc* pDp);
OrbStatus orbsDotProd_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pDp);
OrbStatus orbsDotProd_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64fc* pDp);
OrbStatus orbsDotProd_64f64fc(const Orb64f* pSrc1, const Orb64fc* pSrc2, int len, Orb64fc* pDp);
OrbStatus orbsDotProd_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pDp);
OrbStatus orbsDotProd_16sc32fc(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb32fc* pDp);
OrbStatus orbsDotProd_16s16sc32fc(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb32fc* pDp);
OrbStatus orbsDotProd_16s64s(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pDp);
OrbStatus orbsDotProd_16sc64sc(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb64sc* pDp);
OrbStatus orbsDotProd_16s16sc64sc(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb64sc* pDp);
OrbStatus orbsDotProd_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb16s* pDp, int scaleFactor);
OrbStatus orbsDotProd_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb16sc* pDp, int scaleFactor);
OrbStatus orbsDotProd_16s16sc_Sfs(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb16sc* pDp, int scaleFactor);
OrbStatus orbsDotProd_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pDp, int scaleFactor);
OrbStatus orbsDotProd_16sc32sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor);
OrbStatus orbsDotProd_16s16sc32sc_Sfs(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor);
OrbStatus orbsDotProd_16s32s32s_Sfs(const Orb16s* pSrc1, const Orb32s* pSrc2, int len, Orb32s* pDp, int scaleFactor);
OrbStatus orbsDotProd_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, int len, Orb32s* pDp, int scaleFactor);
OrbStatus orbsDotProd_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor);
OrbStatus orbsDotProd_32s32sc_Sfs(const Orb32s* pSrc1, const Orb32sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor);

/* ---- Normalize -----------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = (pSrc[n] - vSub) * (1 / vDiv), the reciprocal rounded to the type of the parts; pDst may be pSrc.
 *
 * Tests: pointers, len, then orbStsDivByZeroErr for a vDiv that is NaN or smaller in magnitude than the least normal
 * number of its type (floats), or 0 (integers).
 * Integers: in single precision, the exact difference times 1 / vDiv times a power of two with only seven bits of
 * exponent: 2^-(s & 127) for a scale factor s above 0, where s & 127 = 127 counts as 0 times, and 2^(-s & 127) below.
 * To nearest with ties to even in every rounding mode, saturated, without a floating-point exception. */
OrbStatus orbsNormalize_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f vSub, Orb32f vDiv);
OrbStatus orbsNormalize_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f vSub, Orb64f vDiv);
OrbStatus orbsNormalize_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32fc vSub, Orb32f vDiv);
OrbStatus orbsNormalize_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64fc vSub, Orb64f vDiv);
OrbStatus orbsNormalize_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s vSub, int vDiv, int scaleFactor);
OrbStatus orbsNormalize_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16sc vSub, int vDiv, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
