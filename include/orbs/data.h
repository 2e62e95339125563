/* orbs/data.h: moving and rearranging vectors. */
#ifndef ORBS_DATA_H
#define ORBS_DATA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * Values are moved as they are, bit for bit: a signalling NaN stays one. All members may be called from any number of
 * threads on different data. */

/* ---- Copy, Move ----------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n], n = 0 to len - 1. Copy: the arrays do not overlap, or are the same. Move: they may overlap in
 * any way, and pDst receives what pSrc held before the call. */
OrbStatus orbsCopy_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsCopy_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsCopy_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsCopy_32s(const Orb32s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsCopy_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len);
OrbStatus orbsCopy_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsCopy_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsCopy_64s(const Orb64s* pSrc, Orb64s* pDst, int len);
OrbStatus orbsCopy_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len);
OrbStatus orbsCopy_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsCopy_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsMove_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsMove_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsMove_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsMove_32s(const Orb32s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsMove_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len);
OrbStatus orbsMove_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsMove_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsMove_64s(const Orb64s* pSrc, Orb64s* pDst, int len);
OrbStatus orbsMove_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len);
OrbStatus orbsMove_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsMove_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);

/* ---- Copy of bits --------------------------------------------------------------------------------------------
 * Alignment: any.
 * Bit strings of len bits; bit 0 of a string is the most significant bit of its byte. The copy takes len bits from bit
 * srcBitOffset of pSrc on and puts them to bit dstBitOffset of pDst on. Offsets are meant to be 0 to 7: only their low
 * three bits count, and the pointers are not moved by whole bytes of an offset. Nothing but the bits named changes, and
 * no byte that holds none of them is read or written. The strings do not overlap.
 * Tests: pointers, then len below 1 or an offset below 0 (orbStsSizeErr). */
OrbStatus orbsCopy_1u(const Orb8u* pSrc, int srcBitOffset, Orb8u* pDst, int dstBitOffset, int len);

/* ---- Set, Zero -----------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = val, or 0, n = 0 to len - 1. */
OrbStatus orbsSet_8u(Orb8u val, Orb8u* pDst, int len);
OrbStatus orbsSet_16s(Orb16s val, Orb16s* pDst, int len);
OrbStatus orbsSet_16sc(Orb16sc val, Orb16sc* pDst, int len);
OrbStatus orbsSet_32s(int val, Orb32s* pDst, int len);
OrbStatus orbsSet_32sc(Orb32sc val, Orb32sc* pDst, int len);
OrbStatus orbsSet_32f(Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsSet_32fc(Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsSet_64s(Orb64s val, Orb64s* pDst, int len);
OrbStatus orbsSet_64sc(Orb64sc val, Orb64sc* pDst, int len);
OrbStatus orbsSet_64f(Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsSet_64fc(Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsZero_8u(Orb8u* pDst, int len);
OrbStatus orbsZero_16s(Orb16s* pDst, int len);
OrbStatus orbsZero_16sc(Orb16sc* pDst, int len);
OrbStatus orbsZero_32s(Orb32s* pDst, int len);
OrbStatus orbsZero_32sc(Orb32sc* pDst, int len);
OrbStatus orbsZero_32f(Orb32f* pDst, int len);
OrbStatus orbsZero_32fc(Orb32fc* pDst, int len);
OrbStatus orbsZero_64s(Orb64s* pDst, int len);
OrbStatus orbsZero_64sc(Orb64sc* pDst, int len);
OrbStatus orbsZero_64f(Orb64f* pDst, int len);
OrbStatus orbsZero_64fc(Orb64fc* pDst, int len);

/* ---- Flip, ConjFlip ------------------------------------------------------------------------------------------
 * Alignment: any.
 * Flip: pDst[n] = pSrc[len - 1 - n]; the _I forms reverse pSrcDst. ConjFlip: the same with each element conjugated as
 * by orbsConj. pDst may be pSrc. */
OrbStatus orbsFlip_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsFlip_8u_I(Orb8u* pSrcDst, int len);
OrbStatus orbsFlip_16u(const Orb16u* pSrc, Orb16u* pDst, int len);
OrbStatus orbsFlip_16u_I(Orb16u* pSrcDst, int len);
OrbStatus orbsFlip_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsFlip_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsFlip_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsFlip_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsFlip_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsFlip_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsFlip_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsFlip_64fc_I(Orb64fc* pSrcDst, int len);
OrbStatus orbsConjFlip_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsConjFlip_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsConjFlip_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);

/* ---- Real, Imag, CplxToReal, RealToCplx ----------------------------------------------------------------------
 * Alignment: any.
 * pDstRe[n] = re of pSrc[n], pDstIm[n] = im of pSrc[n]; and back, pDst[n] = (pSrcRe[n], pSrcIm[n]). The arrays do not
 * overlap.
 * RealToCplx: one of the sources may be null, and that part is 0 then. Tests: pDst, then len, then both sources null
 * (orbStsNullPtrErr). */
OrbStatus orbsReal_16sc(const Orb16sc* pSrc, Orb16s* pDstRe, int len);
OrbStatus orbsReal_32fc(const Orb32fc* pSrc, Orb32f* pDstRe, int len);
OrbStatus orbsReal_64fc(const Orb64fc* pSrc, Orb64f* pDstRe, int len);
OrbStatus orbsImag_16sc(const Orb16sc* pSrc, Orb16s* pDstIm, int len);
OrbStatus orbsImag_32fc(const Orb32fc* pSrc, Orb32f* pDstIm, int len);
OrbStatus orbsImag_64fc(const Orb64fc* pSrc, Orb64f* pDstIm, int len);
OrbStatus orbsCplxToReal_16sc(const Orb16sc* pSrc, Orb16s* pDstRe, Orb16s* pDstIm, int len);
OrbStatus orbsCplxToReal_32fc(const Orb32fc* pSrc, Orb32f* pDstRe, Orb32f* pDstIm, int len);
OrbStatus orbsCplxToReal_64fc(const Orb64fc* pSrc, Orb64f* pDstRe, Orb64f* pDstIm, int len);
OrbStatus orbsRealToCplx_16s(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16sc* pDst, int len);
OrbStatus orbsRealToCplx_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32fc* pDst, int len);
OrbStatus orbsRealToCplx_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64fc* pDst, int len);

/* ---- Conj ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = (re, -im) of pSrc[n]. Floats change the sign bit, of a zero and of a NaN too; in _16sc an imaginary part
 * of -32768 becomes 32767. pDst may be pSrc. */
OrbStatus orbsConj_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsConj_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsConj_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsConj_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsConj_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsConj_64fc_I(Orb64fc* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
