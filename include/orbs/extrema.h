/* orbs/extrema.h: least and greatest elements, orders, nearest entries. */
#ifndef ORBS_EXTREMA_H
#define ORBS_EXTREMA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- Min, Max, MinMax ----------------------------------------------------------------------------------------
 * Alignment: any.
 * The least and the greatest element. The Indx forms store its place as well, counted from 0: of equal elements that of
 * the first. A null pIndx of MinIndx and MaxIndx is no error; the call is Min or Max then.
 *
 * Floats. Zeros of both signs are equal, and of an extreme the first element is what is stored, so the sign of a zero is
 * that of the first zero. NaN: vectors of _32f below 34 elements and of _64f below 32 are scanned from the first element
 * on. The scan for the least takes over what is not at or above the element it holds, so a NaN, and then whatever
 * follows it: the least of 5, NaN, 7 is 7 at place 2. The scan for the greatest takes over what is above the element it
 * holds: NaNs are passed over, but for one that comes first, which stays. In longer vectors NaNs are passed over, and
 * only where there is nothing else the first is stored, with place 0.
 *
 * Tested in this order: pointers (orbStsNullPtrErr), len below 1 (orbStsSizeErr). Results may not lie within pSrc. */
OrbStatus orbsMin_16s(const Orb16s* pSrc, int len, Orb16s* pMin);
OrbStatus orbsMin_32s(const Orb32s* pSrc, int len, Orb32s* pMin);
OrbStatus orbsMin_32f(const Orb32f* pSrc, int len, Orb32f* pMin);
OrbStatus orbsMin_64f(const Orb64f* pSrc, int len, Orb64f* pMin);
OrbStatus orbsMax_16s(const Orb16s* pSrc, int len, Orb16s* pMax);
OrbStatus orbsMax_32s(const Orb32s* pSrc, int len, Orb32s* pMax);
OrbStatus orbsMax_32f(const Orb32f* pSrc, int len, Orb32f* pMax);
OrbStatus orbsMax_64f(const Orb64f* pSrc, int len, Orb64f* pMax);
OrbStatus orbsMinIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb32s* pIndx);
OrbStatus orbsMinIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pIndx);
OrbStatus orbsMinIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32s* pIndx);
OrbStatus orbsMinIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb32s* pIndx);
OrbStatus orbsMaxIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMax, Orb32s* pIndx);
OrbStatus orbsMaxIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMax, Orb32s* pIndx);
OrbStatus orbsMaxIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMax, Orb32s* pIndx);
OrbStatus orbsMaxIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMax, Orb32s* pIndx);
OrbStatus orbsMinMax_8u(const Orb8u* pSrc, int len, Orb8u* pMin, Orb8u* pMax);
OrbStatus orbsMinMax_16u(const Orb16u* pSrc, int len, Orb16u* pMin, Orb16u* pMax);
OrbStatus orbsMinMax_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb16s* pMax);
OrbStatus orbsMinMax_32u(const Orb32u* pSrc, int len, Orb32u* pMin, Orb32u* pMax);
OrbStatus orbsMinMax_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pMax);
OrbStatus orbsMinMax_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32f* pMax);
OrbStatus orbsMinMax_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb64f* pMax);
OrbStatus orbsMinMaxIndx_8u(const Orb8u* pSrc, int len, Orb8u* pMin, Orb32s* pMinIndx, Orb8u* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_16u(const Orb16u* pSrc, int len, Orb16u* pMin, Orb32s* pMinIndx, Orb16u* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb32s* pMinIndx, Orb16s* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_32u(const Orb32u* pSrc, int len, Orb32u* pMin, Orb32s* pMinIndx, Orb32u* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pMinIndx, Orb32s* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32s* pMinIndx, Orb32f* pMax, Orb32s* pMaxIndx);
OrbStatus orbsMinMaxIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb32s* pMinIndx, Orb64f* pMax, Orb32s* pMaxIndx);

/* ---- MinAbs, MaxAbs ------------------------------------------------------------------------------------------
 * Alignment: any.
 * The least and the greatest of |pSrc[n]|, and with the Indx forms the first place where it is found.
 * _16s: |-32768| counts as 32767 and ties with it. _32s: |-2147483648| counts as 2147483648, above all others, and
 * 2147483647 is stored for it.
 *
 * Tested in this order: pointers, pIndx among them (orbStsNullPtrErr), len below 1 (orbStsSizeErr). */
OrbStatus orbsMinAbs_16s(const Orb16s* pSrc, int len, Orb16s* pMinAbs);
OrbStatus orbsMinAbs_32s(const Orb32s* pSrc, int len, Orb32s* pMinAbs);
OrbStatus orbsMaxAbs_16s(const Orb16s* pSrc, int len, Orb16s* pMaxAbs);
OrbStatus orbsMaxAbs_32s(const Orb32s* pSrc, int len, Orb32s* pMaxAbs);
OrbStatus orbsMinAbsIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMinAbs, Orb32s* pIndx);
OrbStatus orbsMinAbsIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMinAbs, Orb32s* pIndx);
OrbStatus orbsMaxAbsIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMaxAbs, Orb32s* pIndx);
OrbStatus orbsMaxAbsIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMaxAbs, Orb32s* pIndx);

/* ---- MinEvery, MaxEvery --------------------------------------------------------------------------------------
 * Alignment: any.
 * pSrcDst[n] becomes the lesser or the greater of pSrc[n] and pSrcDst[n], n = 0 to len - 1. Of floats, pSrcDst[n] stays
 * where either of them is a NaN, and where both are zeros. pSrc may be pSrcDst.
 *
 * Tested in this order: pointers (orbStsNullPtrErr), len below 1 (orbStsSizeErr). */
OrbStatus orbsMinEvery_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len);
OrbStatus orbsMinEvery_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len);
OrbStatus orbsMinEvery_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len);
OrbStatus orbsMinEvery_32s_I(const Orb32s* pSrc, Orb32s* pSrcDst, int len);
OrbStatus orbsMinEvery_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMaxEvery_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len);
OrbStatus orbsMaxEvery_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len);
OrbStatus orbsMaxEvery_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len);
OrbStatus orbsMaxEvery_32s_I(const Orb32s* pSrc, Orb32s* pSrcDst, int len);
OrbStatus orbsMaxEvery_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);

/* ---- MaxOrder ------------------------------------------------------------------------------------------------
 * Alignment: any.
 * The binary order of the largest magnitude.
 * Integers: the bits that it takes; 0 where all elements are 0; -32768 of _16s has 16, -2147483648 of _32s 32.
 * Floats: the least k with |pSrc[n]| < 2^k for every element, so 1 for 1.0 and 0 for 0.5. Subnormals have -126 in
 * _32f and -1022 in _64f; where all elements are 0 the order is 0. Infinities and NaNs count as 0, and the call returns
 * the warning orbStsNanArg. No floating-point exception is raised.
 *
 * Tested in this order: len below 1 (orbStsSizeErr), pointers (orbStsNullPtrErr): the length first. */
OrbStatus orbsMaxOrder_16s(const Orb16s* pSrc, int len, Orb32s* pOrder);
OrbStatus orbsMaxOrder_32s(const Orb32s* pSrc, int len, Orb32s* pOrder);
OrbStatus orbsMaxOrder_32f(const Orb32f* pSrc, int len, Orb32s* pOrder);
OrbStatus orbsMaxOrder_64f(const Orb64f* pSrc, int len, Orb32s* pOrder);

/* ---- FindNearest ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * The entry of pTable, which ascends, that is nearest to a value, and its index; of two at the same distance the lower.
 * Of equal entries it is the last one where they are at or below the value, and the first one where they are above it;
 * a value at or below pTable[0] has index 0. FindNearest: pOutVals[n] and pOutIndexes[n] of pVals[n], n = 0 to len - 1;
 * pOutVals may be pVals. FindNearestOne: of inpVal. Of a table that does not ascend some entry is found.
 *
 * Tested in this order: pointers (orbStsNullPtrErr), len or tblLen below 1 (orbStsSizeErr). */
OrbStatus orbsFindNearestOne_16u(Orb16u inpVal, Orb16u* pOutVal, Orb32s* pOutIndx, const Orb16u* pTable, int tblLen);
OrbStatus orbsFindNearest_16u(const Orb16u* pVals, Orb16u* pOutVals, Orb32s* pOutIndexes, int len, const Orb16u* pTable, int tblLen);

/* ---- CountInRange --------------------------------------------------------------------------------------------
 * Alignment: any.
 * How many elements lie between lowerBound and upperBound, neither of which counts as within: 0 where lowerBound is not
 * below upperBound. pCounts may not lie within pSrc.
 *
 * Tested in this order: pointers (orbStsNullPtrErr), len below 1 (orbStsSizeErr). */
OrbStatus orbsCountInRange_32s(const Orb32s* pSrc, int len, Orb32s* pCounts, Orb32s lowerBound, Orb32s upperBound);

ORBS_DECLARATIONS_END

#endif
