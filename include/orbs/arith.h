/* orbs/arith.h: element-wise arithmetic. */
#ifndef ORBS_ARITH_H
#define ORBS_ARITH_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* The scale rule of every _Sfs primitive: the exact result r becomes r * 2^-scaleFactor, rounded to the nearest integer
 * with ties to even, then saturated to the result type. No scale factor is an error: where it is so large that every
 * result is 0, or so small that every result but 0 is an extreme of the type, that is what is written.
 *
 * Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). A
 * destination may be one of the sources; other overlaps are not supported. Where two NaNs meet, the result is a NaN,
 * and which payload it has is not fixed. All members may be called from any number of threads on different data. */

/* ---- Add, AddC -----------------------------------------------------------------------------------------------
 * Alignment: any.
 * Add: pDst[n] = pSrc1[n] + pSrc2[n]; the _I and _ISfs forms: pSrcDst[n] += pSrc[n]; n = 0 to len - 1.
 * AddC: pDst[n] = pSrc[n] + val; the _I and _ISfs forms: pSrcDst[n] += val.
 *
 * Integers saturate: _16s, _16u and _32u without scale, and _16s32s_I to 32 bits; the _Sfs forms follow the scale
 * rule. _8u16u and _16s32f are exact. Floats are one IEEE addition under the caller's rounding mode, with NaN and
 * infinity as usual, but for AddC_32f and AddC_64f (and their _I forms) with a val of 0, -0 or NaN: they copy pSrc as
 * it is. Complex members add the parts independently.
 * The complex members of Add test len before the pointers, and double len in 32 bits without a check. AddC_16u_Sfs and
 * AddC_16u_ISfs do not look at pSrc where the result does not depend on it (a scale factor above 17; one below -15 with
 * a val other than 0): a null there is no error.
 * The _16u_Sfs forms of Add spread over threads from 8192 elements (4096 for a scale factor above 0), the _16u_ISfs
 * forms and AddC from twice that, with the same results. */
OrbStatus orbsAdd_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_8u16u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsAdd_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsAdd_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len);
OrbStatus orbsAdd_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len);
OrbStatus orbsAdd_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_16s32s_I(const Orb16s* pSrc, Orb32s* pSrcDst, int len);
OrbStatus orbsAdd_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsAdd_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len);
OrbStatus orbsAdd_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsAdd_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAdd_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsAdd_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsAdd_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len);
OrbStatus orbsAdd_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len);
OrbStatus orbsAdd_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsAdd_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsAdd_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len);
OrbStatus orbsAdd_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len);
OrbStatus orbsAddC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_16s_I(Orb16s val, Orb16s* pSrcDst, int len);
OrbStatus orbsAddC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsAddC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsAddC_32f_I(Orb32f val, Orb32f* pSrcDst, int len);
OrbStatus orbsAddC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsAddC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len);
OrbStatus orbsAddC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsAddC_64f_I(Orb64f val, Orb64f* pSrcDst, int len);
OrbStatus orbsAddC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsAddC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len);

/* ---- Sub, SubC, SubCRev --------------------------------------------------------------------------------------
 * Alignment: any.
 * Sub: pDst[n] = pSrc2[n] - pSrc1[n], the second minus the first; the _I and _ISfs forms: pSrcDst[n] -= pSrc[n].
 * SubC: pDst[n] = pSrc[n] - val; the _I and _ISfs forms: pSrcDst[n] -= val.
 * SubCRev: pDst[n] = val - pSrc[n]; the _I and _ISfs forms: pSrcDst[n] = val - pSrcDst[n].
 *
 * As orbsAdd in rounding, saturation (an unsigned difference below 0 is 0), NaN and the order of the tests. SubC_32f and
 * SubC_64f (and their _I forms) with a val of 0, -0 or NaN copy pSrc as it is; SubCRev always computes. The _16u forms
 * spread over threads from 8192 elements (Sub_16u_Sfs), 16384 or 32768, with the same results. */
OrbStatus orbsSub_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsSub_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsSub_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len);
OrbStatus orbsSub_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len);
OrbStatus orbsSub_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSub_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsSub_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsSub_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsSub_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsSub_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSub_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsSub_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsSub_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len);
OrbStatus orbsSub_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len);
OrbStatus orbsSub_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsSub_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsSub_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len);
OrbStatus orbsSub_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len);
OrbStatus orbsSubC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_16s_I(Orb16s val, Orb16s* pSrcDst, int len);
OrbStatus orbsSubC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsSubC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsSubC_32f_I(Orb32f val, Orb32f* pSrcDst, int len);
OrbStatus orbsSubC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsSubC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len);
OrbStatus orbsSubC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsSubC_64f_I(Orb64f val, Orb64f* pSrcDst, int len);
OrbStatus orbsSubC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsSubC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len);
OrbStatus orbsSubCRev_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSubCRev_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsSubCRev_32f_I(Orb32f val, Orb32f* pSrcDst, int len);
OrbStatus orbsSubCRev_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsSubCRev_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len);
OrbStatus orbsSubCRev_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsSubCRev_64f_I(Orb64f val, Orb64f* pSrcDst, int len);
OrbStatus orbsSubCRev_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsSubCRev_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len);

/* ---- AddProduct, AddProductC ---------------------------------------------------------------------------------
 * Alignment: any.
 * pSrcDst[n] += pSrc1[n] * pSrc2[n]; AddProductC: pSrcDst[n] += pSrc[n] * val; n = 0 to len - 1.
 *
 * Floats: the product is rounded, then the sum, never fused; complex products as in orbsMul. pSrcDst may overlap a
 * source in any way: the result is that of a loop over ascending n.
 * Integers follow the scale rule, scaling the sum: beyond the last scale factor with a result other than 0 (30, and 62
 * for _32s) pSrcDst is set to 0, whatever it held. _32s_Sfs computes in double precision: product and sum are rounded to
 * 53 bits, then multiplied by 2^-scaleFactor and rounded to nearest with ties to even; at a scale factor of 0 they are
 * truncated, and from -31 downwards the sign of the exact value decides. */
OrbStatus orbsAddProduct_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddProduct_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32s* pSrcDst, int len,
                                    int scaleFactor);
OrbStatus orbsAddProduct_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsAddProduct_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pSrcDst, int len);
OrbStatus orbsAddProduct_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pSrcDst, int len);
OrbStatus orbsAddProduct_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pSrcDst, int len);
OrbStatus orbsAddProduct_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pSrcDst, int len);
OrbStatus orbsAddProductC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pSrcDst, int len);

/* ---- Mul, MulC -----------------------------------------------------------------------------------------------
 * Alignment: any.
 * Mul: pDst[n] = pSrc1[n] * pSrc2[n]; the _I and _ISfs forms: pSrcDst[n] *= pSrc[n]; n = 0 to len - 1.
 * MulC: pDst[n] = pSrc[n] * val; the _I and _ISfs forms: pSrcDst[n] *= val.
 * A product of complex elements is (re1*re2 - im1*im2, re1*im2 + im1*re2); _32f32fc and _32s32sc multiply both parts by
 * a real element.
 *
 * Integers of 8 and 16 bits: the exact product under the scale rule; without scale it saturates. _8u16u is exact,
 * _16s32f exact before it is rounded to single precision.
 * Integers of 32 bits: the exact product under the scale rule, but for two members. Mul_32s_Sfs and _ISfs compute in
 * double precision: pSrc1 * 2^-scaleFactor, then times pSrc2, rounded to 53 bits and then to an integer, to nearest with
 * ties to even; at a scale factor of 0 the product rounded to 53 bits is truncated. Mul_Low_32s_Sfs gives the low 32
 * bits of the product shifted by scaleFactor, neither rounded nor saturated, from -31 to 62; above it is 0, below it
 * goes by the sign.
 * Floats: each product is rounded to the type, then the sum, with NaN and infinity as usual, but for MulC_32f and
 * MulC_64f (and their _I forms): a val of 1 or NaN copies pSrc as it is, a val of 0 gives zeros whatever pSrc holds.
 * MulC_32f16s_Sfs: pSrc[n] * (val * 2^-scaleFactor) with scaleFactor limited to -127 to 126, rounded to nearest with
 * ties to even in every rounding mode of the caller, saturated; MulC_Low_32f16s: pSrc[n] * val, both roundings under the
 * caller's mode, saturated. A NaN gives 32767 in both.
 * The _16u forms spread over threads from 8192 or 16384 elements up to a scale factor of 16, with the same results. */
OrbStatus orbsMul_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsMul_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_8u16u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsMul_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsMul_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len);
OrbStatus orbsMul_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len);
OrbStatus orbsMul_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMul_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsMul_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMul_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsMul_16u16s_Sfs(const Orb16u* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMul_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsMul_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsMul_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_32s32sc_Sfs(const Orb32s* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsMul_32s32sc_ISfs(const Orb32s* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMul_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMul_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMul_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len);
OrbStatus orbsMul_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len);
OrbStatus orbsMul_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len);
OrbStatus orbsMul_32f32fc_I(const Orb32f* pSrc, Orb32fc* pSrcDst, int len);
OrbStatus orbsMul_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsMul_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsMul_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len);
OrbStatus orbsMul_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len);
OrbStatus orbsMul_Low_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_16s_I(Orb16s val, Orb16s* pSrcDst, int len);
OrbStatus orbsMulC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsMulC_32f_I(Orb32f val, Orb32f* pSrcDst, int len);
OrbStatus orbsMulC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsMulC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len);
OrbStatus orbsMulC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsMulC_64f_I(Orb64f val, Orb64f* pSrcDst, int len);
OrbStatus orbsMulC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsMulC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len);
OrbStatus orbsMulC_32f16s_Sfs(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMulC_Low_32f16s(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len);

/* ---- Sqr -----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n]^2; the _I and _ISfs forms: pSrcDst[n] squared in place; n = 0 to len - 1.
 *
 * Integers: the exact square under the scale rule. Complex: (re*re - im*im, 2*re*im), in _16sc exact before each part is
 * scaled, in _32fc and _64fc each product rounded to the type; NaN and infinity as usual. */
OrbStatus orbsSqr_8u_Sfs(const Orb8u* pSrc, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsSqr_8u_ISfs(Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqr_16u_Sfs(const Orb16u* pSrc, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsSqr_16u_ISfs(Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqr_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSqr_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqr_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsSqr_16sc_ISfs(Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqr_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsSqr_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsSqr_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsSqr_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsSqr_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsSqr_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsSqr_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsSqr_64fc_I(Orb64fc* pSrcDst, int len);

/* ---- Abs -----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = |pSrc[n]|; the _I forms in place.
 *
 * Integers: the smallest of the type gives the largest. Floats: the sign bit is cleared, of -0 and of a NaN too. */
OrbStatus orbsAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsAbs_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsAbs_32s_I(Orb32s* pSrcDst, int len);
OrbStatus orbsAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsAbs_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsAbs_64f_I(Orb64f* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
