/* orbs/speech.h: running updates and speech. */
#ifndef ORBS_SPEECH_H
#define ORBS_SPEECH_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* All members may be called from any number of threads on different data. */

/* ---- UpdateLinear, UpdatePower ---------------------------------------------------------------------------------
 * Alignment: any.
 * A running value y, which pSrcDst holds, takes in len samples one by one:
 *
 *   y = alpha * y + (1 - alpha) * x[n],  n = 0 to len - 1
 *
 * with x[n] = pSrc[n] >> srcShiftRight (Linear; the shift is limited to 0 to 15 and rounds down) or pSrc[n]^2 >>
 * srcShiftRight (Power; limited to 0 to 31). alpha is a plain integer: 0 leaves the last x, 1 leaves y as it was, -1 keeps
 * y within reach, and others make it grow.
 *
 * In double precision; with orbAlgHintFast in single precision, UpdateLinear only if alpha is in -6 to 8. Four samples
 * are taken in at a time. All numbers are whole: nothing is lost while they stay below 2^53, or 2^24 in single precision,
 * where y itself is rounded first. The result is saturated to 32 bits.
 *
 * Statuses, in the order of the tests: a null pointer: orbStsNullPtrErr; len below 1: orbStsSizeErr. */
OrbStatus orbsUpdateLinear_16s32s_I(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int srcShiftRight, Orb16s alpha, OrbHintAlgorithm hint);
OrbStatus orbsUpdatePower_16s32s_I(const Orb16s* pSrc, int len, Orb32s* pSrcDst, int srcShiftRight, Orb16s alpha, OrbHintAlgorithm hint);

/* ---- Preemphasize ----------------------------------------------------------------------------------------------
 * Alignment: any.
 * In place, pSrcDst[n] = x[n] - val * x[n-1] for n = 1 to len - 1 in single precision, x being what pSrcDst held; the
 * first element stays as it was. Nothing is kept between calls. 16 bits are rounded in the caller's rounding mode, to
 * nearest with ties to even if that is the usual one, and saturated; a NaN gives -32768.
 *
 * Statuses, in the order of the tests: null pSrcDst: orbStsNullPtrErr; len below 1: orbStsSizeErr. */
OrbStatus orbsPreemphasize_32f(Orb32f* pSrcDst, int len, Orb32f val);
OrbStatus orbsPreemphasize_16s(Orb16s* pSrcDst, int len, Orb32f val);

/* ---- SumWindow -------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n] + ... + pSrc[n + maskSize - 1] for n = 0 to len - 1. pSrc has len + maskSize elements. The first sum is
 * exact and rounded once; each one after it is the one before plus pSrc[n + maskSize] - pSrc[n], in single precision. So
 * sums are exact up to masks of 65793 (8u) and 512 (16s); beyond, rounding errors add up along the vector.
 *
 * Statuses, in the order of the tests: a null pointer: orbStsNullPtrErr; maskSize below 1: orbStsMaskSizeErr. A len below
 * 1 is no error: nothing is written. */
OrbStatus orbsSumWindow_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len, int maskSize);
OrbStatus orbsSumWindow_16s32f(const Orb16s* pSrc, Orb32f* pDst, int len, int maskSize);

ORBS_DECLARATIONS_END

#endif
