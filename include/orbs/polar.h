/* orbs/polar.h: magnitudes, phases, power spectra, polar form and back. */
#ifndef ORBS_POLAR_H
#define ORBS_POLAR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Complex elements lie in one interleaved vector (pSrc, pDst; types ending in c), or in a vector of real and one of
 * imaginary parts (pSrcRe and pSrcIm, pDstRe and pDstIm). Phases are in radians. n = 0 to len - 1.
 *
 * Order of the tests of every member but CartToPolar: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * There are no warnings. No scale factor is an error. All members may be called from any number of threads on
 * different data.
 * A destination may be a source of the same type where each is read or written once; CartToPolar reads its source
 * twice. Other overlaps are not supported.
 *
 * Integer results are the same whatever the caller's rounding mode is. Errors of floats are given in ulp, the distance
 * of the floats around the exact result; docs/accuracy.md tells how they were measured. The results have the same bits
 * in every build of the library and for every thread count. */

/* ---- Magnitude, MagSquared -----------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = sqrt(re^2 + im^2).
 *
 * _32f, _32fc, _64f, _64fc: by that formula in the elements' precision, under the caller's rounding mode. Parts above
 * the root of the largest float overflow to infinity; parts below that of the least normal one lose bits, or become 0.
 * _16s32f, _16sc32f: the exact sum of the squares as a float, and the float root of that.
 * _Sfs: the exact root times 2^-scaleFactor, rounded once to nearest with ties to even, saturated.
 * MagSquared: (re^2 + im^2) * 2^-scaleFactor, each operation in double precision, rounded to nearest with ties to even
 * and saturated.
 *
 * Magnitude spreads over two threads from these lengths on, with the same results: 256 (_64f, _64fc, _32sc_Sfs), 2048
 * (_32fc, _16sc_Sfs, _16s_Sfs, _16s32f), 4096 (_32f, _16sc32f). */
OrbStatus orbsMagnitude_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsMagnitude_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len);
OrbStatus orbsMagnitude_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsMagnitude_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMagnitude_32sc_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsMagnitude_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsMagnitude_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len);
OrbStatus orbsMagnitude_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsMagnitude_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMagSquared_32sc32s_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor);

/* ---- Phase ---------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = the angle of (re, im) in -pi to pi. Zeros have no sign: the phase of two zeros is 0, that of a negative re
 * with im = 0 or -0 is pi.
 *
 * Floats are rounded to nearest whatever the caller's rounding mode is, over the whole range. Worst case: _32f,
 * _32fc 0.77 ulp; _64f, _64fc 0.56 ulp, 1.3 where the result is below 2^-1020. An infinity beside a finite part has the
 * angle of its axis, two infinities an odd multiple of pi/4; a NaN in either part gives a NaN.
 * _16s32f, _16sc32f: as of floats.
 * _Sfs: the angle in double precision times 2^-scaleFactor, rounded to nearest with an exact half away from 0,
 * saturated. */
OrbStatus orbsPhase_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsPhase_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len);
OrbStatus orbsPhase_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsPhase_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsPhase_32sc_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsPhase_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsPhase_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len);
OrbStatus orbsPhase_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsPhase_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor);

/* ---- PowerSpectr ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = re^2 + im^2.
 *
 * _32f, _32fc, _64f, _64fc: in the elements' precision, under the caller's rounding mode.
 * _16s32f, _16sc32f: the exact sum as a float; that of (-32768, -32768) is 2^31.
 * _Sfs: the exact sum times 2^-scaleFactor, rounded to nearest with ties to even, saturated. */
OrbStatus orbsPowerSpectr_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsPowerSpectr_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len);
OrbStatus orbsPowerSpectr_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len);
OrbStatus orbsPowerSpectr_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsPowerSpectr_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsPowerSpectr_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len);
OrbStatus orbsPowerSpectr_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len);
OrbStatus orbsPowerSpectr_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor);

/* ---- CartToPolar ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDstMagn[n] and pDstPhase[n] as of orbsMagnitude and of orbsPhase, which are called one after the other. No
 * destination may be a source.
 *
 * _32f, _32fc, _64f, _64fc: both are called in any case, so that with one null destination the other is still written.
 * The status is that of the magnitude, or if that is orbStsNoErr, that of the phase.
 * _16sc_Sfs: the phase is computed if the magnitude was. */
OrbStatus orbsCartToPolar_32fc(const Orb32fc* pSrc, Orb32f* pDstMagn, Orb32f* pDstPhase, int len);
OrbStatus orbsCartToPolar_64fc(const Orb64fc* pSrc, Orb64f* pDstMagn, Orb64f* pDstPhase, int len);
OrbStatus orbsCartToPolar_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDstMagn, Orb16s* pDstPhase, int len, int magnScaleFactor, int phaseScaleFactor);
OrbStatus orbsCartToPolar_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstMagn, Orb32f* pDstPhase, int len);
OrbStatus orbsCartToPolar_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstMagn, Orb64f* pDstPhase, int len);

/* ---- PolarToCart ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * re = pSrcMagn[n] * cos(pSrcPhase[n]), im = pSrcMagn[n] * sin(pSrcPhase[n]).
 *
 * Floats: sine, cosine and product are rounded to nearest whatever the caller's rounding mode is. Worst case of sine
 * and cosine: _32f, _32fc 0.81 ulp; _64f, _64fc 0.86 ulp, 2.5 for phases above 2^32; the product is rounded once more.
 * Phases may have any size; small ones, to 4096 (single precision) or 2^32, are fast. One that is infinite or NaN
 * gives NaN.
 * _16sc, _32sc: phases are fixed-point numbers, pSrcPhase[n] * 2^-phaseFixedPoint; one below 0 or above 15 (_16sc), 31
 * (_32sc) gives orbStsSizeErr, behind the other tests. Double precision, rounded to nearest with ties to even,
 * saturated.
 * _16sc_Sfs: magnitudes are times 2^-magnScaleFactor, phases times 2^-phaseScaleFactor, with both limited to -31 to
 * 31. Double precision, rounded to nearest with an exact half away from 0, saturated. */
OrbStatus orbsPolarToCart_32fc(const Orb32f* pSrcMagn, const Orb32f* pSrcPhase, Orb32fc* pDst, int len);
OrbStatus orbsPolarToCart_64fc(const Orb64f* pSrcMagn, const Orb64f* pSrcPhase, Orb64fc* pDst, int len);
OrbStatus orbsPolarToCart_32f(const Orb32f* pSrcMagn, const Orb32f* pSrcPhase, Orb32f* pDstRe, Orb32f* pDstIm, int len);
OrbStatus orbsPolarToCart_64f(const Orb64f* pSrcMagn, const Orb64f* pSrcPhase, Orb64f* pDstRe, Orb64f* pDstIm, int len);
OrbStatus orbsPolarToCart_16sc(const Orb16s* pSrcMagn, const Orb16s* pSrcPhase, int phaseFixedPoint, Orb16sc* pDst, int len);
OrbStatus orbsPolarToCart_32sc(const Orb32s* pSrcMagn, const Orb32s* pSrcPhase, int phaseFixedPoint, Orb32sc* pDst, int len);
OrbStatus orbsPolarToCart_16sc_Sfs(const Orb16s* pSrcMagn, const Orb16s* pSrcPhase, Orb16sc* pDst, int len, int magnScaleFactor, int phaseScaleFactor);

ORBS_DECLARATIONS_END

#endif
