/* orbs/thresholds.h: limits on elements. */
#ifndef ORBS_THRESHOLDS_H
#define ORBS_THRESHOLDS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Limits on elements: n = 0 to len - 1, and the _I forms work on pSrcDst. pDst may be pSrc; other overlaps are not
 * supported. All members may be called from any number of threads on different data.
 *
 * Order of the tests: pointers (orbStsNullPtrErr), len below 1 (orbStsSizeErr), and then what a family says of levels.
 *
 * Complex elements are compared by the squares of their magnitudes with that of the level, squares of _16sc being exact
 * and those of floats rounded to their type; so a level whose square overflows lies above all, and where squares vanish
 * all are equal to 0. A NaN among the parts, or in the square, lies neither below nor above. */

/* ---- Threshold, Threshold_LT, Threshold_GT -------------------------------------------------------------------
 * Alignment: any.
 * LT: elements below the level become the level. GT: those above it. Threshold: GT for orbCmpGreater, else LT.
 *
 * Real: a NaN becomes the level, a zero equal to a level of 0 has the sign of that level, and a NaN for a level is what
 * all floats become. A level may be negative.
 * Complex: where |z| lies below (above) the level, pDst[n] = z * level / |z|, the magnitude limited and the phase kept;
 * LT makes (level, 0) of 0. A level of 0 copies (LT) or gives zeros (GT) whatever z is. _32fc: computed in double
 * precision and rounded once. _64fc: in the type itself, so beyond the squares' range: |z|^2 of 0 counts as 0, and
 * infinite |z|^2 gives 0 for a finite part. _16sc: in double precision and rounded to the nearest integers, ties to even,
 * whatever the caller's rounding mode is.
 * Complex members refuse a level that is negative or a NaN (orbStsThreshNegLevelErr). */
OrbStatus orbsThreshold_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, int relOp);
OrbStatus orbsThreshold_16s_I(Orb16s* pSrcDst, int len, Orb16s level, int relOp);
OrbStatus orbsThreshold_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, int relOp);
OrbStatus orbsThreshold_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, int relOp);
OrbStatus orbsThreshold_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, int relOp);
OrbStatus orbsThreshold_32f_I(Orb32f* pSrcDst, int len, Orb32f level, int relOp);
OrbStatus orbsThreshold_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, int relOp);
OrbStatus orbsThreshold_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, int relOp);
OrbStatus orbsThreshold_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, int relOp);
OrbStatus orbsThreshold_64f_I(Orb64f* pSrcDst, int len, Orb64f level, int relOp);
OrbStatus orbsThreshold_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, int relOp);
OrbStatus orbsThreshold_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, int relOp);
OrbStatus orbsThreshold_LT_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_LT_16s_I(Orb16s* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_LT_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_LT_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_LT_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_LT_32f_I(Orb32f* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_LT_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_LT_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_LT_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_LT_64f_I(Orb64f* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_LT_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_LT_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_LT_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level);
OrbStatus orbsThreshold_LT_32s_I(Orb32s* pSrcDst, int len, int level);
OrbStatus orbsThreshold_GT_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_GT_16s_I(Orb16s* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_GT_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_GT_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_GT_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_GT_32f_I(Orb32f* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_GT_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_GT_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_GT_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_GT_64f_I(Orb64f* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_GT_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_GT_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_GT_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level);
OrbStatus orbsThreshold_GT_32s_I(Orb32s* pSrcDst, int len, int level);

/* ---- Threshold_LTVal, Threshold_GTVal ------------------------------------------------------------------------
 * Alignment: any.
 * Elements below (LTVal) or above (GTVal) the level become the value, the others stay, and so does a NaN. Complex
 * elements are replaced as a whole.
 * The level of real members may have any sign, and nothing is replaced where it is a NaN; complex members refuse one that
 * is negative or a NaN (orbStsThreshNegLevelErr). */
OrbStatus orbsThreshold_LTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, Orb16s value);
OrbStatus orbsThreshold_LTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s level, Orb16s value);
OrbStatus orbsThreshold_LTVal_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, Orb16sc value);
OrbStatus orbsThreshold_LTVal_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, Orb16sc value);
OrbStatus orbsThreshold_LTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, Orb32f value);
OrbStatus orbsThreshold_LTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f level, Orb32f value);
OrbStatus orbsThreshold_LTVal_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, Orb32fc value);
OrbStatus orbsThreshold_LTVal_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, Orb32fc value);
OrbStatus orbsThreshold_LTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, Orb64f value);
OrbStatus orbsThreshold_LTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f level, Orb64f value);
OrbStatus orbsThreshold_LTVal_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, Orb64fc value);
OrbStatus orbsThreshold_LTVal_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, Orb64fc value);
OrbStatus orbsThreshold_GTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, Orb16s value);
OrbStatus orbsThreshold_GTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s level, Orb16s value);
OrbStatus orbsThreshold_GTVal_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, Orb16sc value);
OrbStatus orbsThreshold_GTVal_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, Orb16sc value);
OrbStatus orbsThreshold_GTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, Orb32f value);
OrbStatus orbsThreshold_GTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f level, Orb32f value);
OrbStatus orbsThreshold_GTVal_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, Orb32fc value);
OrbStatus orbsThreshold_GTVal_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, Orb32fc value);
OrbStatus orbsThreshold_GTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, Orb64f value);
OrbStatus orbsThreshold_GTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f level, Orb64f value);
OrbStatus orbsThreshold_GTVal_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, Orb64fc value);
OrbStatus orbsThreshold_GTVal_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, Orb64fc value);

/* ---- Threshold_LTValGTVal ------------------------------------------------------------------------------------
 * Alignment: any.
 * Elements below levelLT become valueLT, and so does a NaN; those above levelGT become valueGT; the others stay.
 * Refused if levelGT is not at or above levelLT, a NaN being neither (orbStsThreshValOrderErr). */
OrbStatus orbsThreshold_LTValGTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s levelLT, Orb16s valueLT, Orb16s levelGT, Orb16s valueGT);
OrbStatus orbsThreshold_LTValGTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s levelLT, Orb16s valueLT, Orb16s levelGT, Orb16s valueGT);
OrbStatus orbsThreshold_LTValGTVal_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int levelLT, int valueLT, int levelGT, int valueGT);
OrbStatus orbsThreshold_LTValGTVal_32s_I(Orb32s* pSrcDst, int len, int levelLT, int valueLT, int levelGT, int valueGT);
OrbStatus orbsThreshold_LTValGTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f levelLT, Orb32f valueLT, Orb32f levelGT, Orb32f valueGT);
OrbStatus orbsThreshold_LTValGTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f levelLT, Orb32f valueLT, Orb32f levelGT, Orb32f valueGT);
OrbStatus orbsThreshold_LTValGTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f levelLT, Orb64f valueLT, Orb64f levelGT, Orb64f valueGT);
OrbStatus orbsThreshold_LTValGTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f levelLT, Orb64f valueLT, Orb64f levelGT, Orb64f valueGT);

/* ---- Threshold_LTAbs, Threshold_GTAbs ------------------------------------------------------------------------
 * Alignment: any.
 * LTAbs: elements whose magnitude is below the level become the level with their sign, zeros of both signs the positive
 * one. GTAbs: those whose magnitude is above it become the level with their sign. The others stay, and so does a NaN.
 * The magnitude of the least integer is exact.
 * Refused if the level is negative or a NaN (orbStsThreshNegLevelErr). */
OrbStatus orbsThreshold_LTAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_LTAbs_16s_I(Orb16s* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_LTAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level);
OrbStatus orbsThreshold_LTAbs_32s_I(Orb32s* pSrcDst, int len, int level);
OrbStatus orbsThreshold_LTAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTAbs_32f_I(Orb32f* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_LTAbs_64f_I(Orb64f* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_GTAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level);
OrbStatus orbsThreshold_GTAbs_16s_I(Orb16s* pSrcDst, int len, Orb16s level);
OrbStatus orbsThreshold_GTAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level);
OrbStatus orbsThreshold_GTAbs_32s_I(Orb32s* pSrcDst, int len, int level);
OrbStatus orbsThreshold_GTAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_GTAbs_32f_I(Orb32f* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_GTAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_GTAbs_64f_I(Orb64f* pSrcDst, int len, Orb64f level);

/* ---- Threshold_LTInv -----------------------------------------------------------------------------------------
 * Alignment: any.
 * Reciprocals of elements whose magnitude is raised to the level.
 *
 * Real: pDst[n] = 1 / m, where m is the greater of |pSrc[n]| and the level with the sign of pSrc[n]: zeros become
 * 1 / level and -1 / level by their sign, and so do NaNs. At level 0, 1 / pSrc[n]. One division in the caller's rounding
 * mode.
 * Complex: conj(z) / |z|^2, where |z| is below the level conj(z) / (|z| * level): of magnitude 1 / level. 0 gives
 * (1 / level, 0). _32fc compares and computes in double precision and rounds once; _64fc in the type itself, and what has
 * a square of 0 counts as 0.
 * At level 0 a zero element gives infinity, (infinity, 0) where it is complex, and the call goes on and returns the
 * warning orbStsDivByZero. Exceptions are masked for the length of the call, and the flags it raises are taken back.
 *
 * Refused if the level is negative or a NaN (orbStsThreshNegLevelErr). Vectors from 8192 elements of _32f, 2048 of _64f
 * and _32fc, and 512 of _64fc spread over two threads, with the same results. */
OrbStatus orbsThreshold_LTInv_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTInv_32f_I(Orb32f* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTInv_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTInv_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level);
OrbStatus orbsThreshold_LTInv_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_LTInv_64f_I(Orb64f* pSrcDst, int len, Orb64f level);
OrbStatus orbsThreshold_LTInv_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level);
OrbStatus orbsThreshold_LTInv_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level);

ORBS_DECLARATIONS_END

#endif
