/* orbs/arith.h: element-wise arithmetic. */
#ifndef ORBS_ARITH_H
#define ORBS_ARITH_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* The scale rule of every _Sfs primitive: the exact result r becomes r * 2^-scaleFactor, rounded to the nearest integer
 * with ties to even, then saturated to the result type. No scale factor is an error: where it is so large that every
 * result is 0, or so small that every result but 0 is an extreme of the type, that is what is written.
 *
 * Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * Any alignment will do. A destination may be one of the sources; other overlaps are not supported. Where two NaNs meet,
 * the result is a NaN, and which payload it has is not fixed. All members may be called from any number of threads on
 * different data. */

/* ---- Add -----------------------------------------------------------------------------------------------------
 * pDst[n] = pSrc1[n] + pSrc2[n]; the _I and _ISfs forms: pSrcDst[n] += pSrc[n]; n = 0 to len - 1.
 *
 * Integers saturate: _16s, _16u and _32u without scale, and _16s32s_I to 32 bits; the _Sfs forms follow the scale
 * rule. _8u16u and _16s32f are exact. Floats are one IEEE addition under the caller's rounding mode, with NaN and
 * infinity as usual. Complex members add the parts independently.
 * The complex members test len before the pointers, and double len in 32 bits without a check.
 * The _16u_Sfs forms spread over threads from 8192 elements (4096 for a scale factor above 0), the _16u_ISfs forms
 * from twice that, with the same results. */
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

/* ---- MulPack, MulPerm, MulPackConj ---------------------------------------------------------------------------
 * The product, bin by bin, of two packed spectra of real signals of len samples (orbs/spectra.h tells the layouts):
 * the spectrum of their circular convolution. The _I forms: pSrcDst = pSrc * pSrcDst. MulPackConj takes the conjugate
 * of pSrc, which gives the spectrum of the circular correlation.
 *
 * Real bins (the first, and with len even that of half the sampling rate) are one multiplication. A complex bin is
 *   re = re1*re2 - im1*im2, im = re1*im2 + im1*re2;  MulPackConj: re = re1*re2 + im1*im2, im = re1*im2 - im1*re2,
 * each product rounded to the type, then the sum; NaN and infinity as usual. pDst may be a source. */
OrbStatus orbsMulPack_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMulPack_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPack_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsMulPack_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsMulPerm_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMulPerm_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPerm_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsMulPerm_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsMulPackConj_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPackConj_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
