/* orbs/logic.h: bitwise operations and shifts. */
#ifndef ORBS_LOGIC_H
#define ORBS_LOGIC_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). A
 * destination may be one of the sources; other overlaps are not supported. All members may be called from any number of
 * threads on different data. */

/* ---- And, AndC, Or, OrC, Xor, XorC, Not ----------------------------------------------------------------------
 * Alignment: any.
 * Bit by bit: pDst[n] = pSrc1[n] & pSrc2[n], | and ^; the _I forms: pSrcDst[n] = pSrcDst[n] & pSrc[n] and so on; the
 * constant forms: pDst[n] = pSrc[n] & val and so on, _I: pSrcDst[n] &= val and so on; Not: pDst[n] = ~pSrc[n],
 * _I: pSrcDst[n] = ~pSrcDst[n]; n = 0 to len - 1. AndC with a val of 0 does not read pSrc, which may not be null even so.
 * Long vectors spread over threads: And, Or and Xor from 16384 bytes, their _I forms and the constant forms from 32768,
 * the _I forms of those from 65536; Not as XorC. */
OrbStatus orbsAnd_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len);
OrbStatus orbsAnd_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len);
OrbStatus orbsAnd_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsAnd_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len);
OrbStatus orbsAnd_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len);
OrbStatus orbsAnd_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len);
OrbStatus orbsAndC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len);
OrbStatus orbsAndC_8u_I(Orb8u val, Orb8u* pSrcDst, int len);
OrbStatus orbsAndC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len);
OrbStatus orbsAndC_16u_I(Orb16u val, Orb16u* pSrcDst, int len);
OrbStatus orbsAndC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len);
OrbStatus orbsAndC_32u_I(Orb32u val, Orb32u* pSrcDst, int len);
OrbStatus orbsOr_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len);
OrbStatus orbsOr_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len);
OrbStatus orbsOr_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsOr_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len);
OrbStatus orbsOr_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len);
OrbStatus orbsOr_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len);
OrbStatus orbsOrC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len);
OrbStatus orbsOrC_8u_I(Orb8u val, Orb8u* pSrcDst, int len);
OrbStatus orbsOrC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len);
OrbStatus orbsOrC_16u_I(Orb16u val, Orb16u* pSrcDst, int len);
OrbStatus orbsOrC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len);
OrbStatus orbsOrC_32u_I(Orb32u val, Orb32u* pSrcDst, int len);
OrbStatus orbsXor_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len);
OrbStatus orbsXor_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len);
OrbStatus orbsXor_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len);
OrbStatus orbsXor_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len);
OrbStatus orbsXor_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len);
OrbStatus orbsXor_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len);
OrbStatus orbsXorC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len);
OrbStatus orbsXorC_8u_I(Orb8u val, Orb8u* pSrcDst, int len);
OrbStatus orbsXorC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len);
OrbStatus orbsXorC_16u_I(Orb16u val, Orb16u* pSrcDst, int len);
OrbStatus orbsXorC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len);
OrbStatus orbsXorC_32u_I(Orb32u val, Orb32u* pSrcDst, int len);
OrbStatus orbsNot_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsNot_8u_I(Orb8u* pSrcDst, int len);
OrbStatus orbsNot_16u(const Orb16u* pSrc, Orb16u* pDst, int len);
OrbStatus orbsNot_16u_I(Orb16u* pSrcDst, int len);
OrbStatus orbsNot_32u(const Orb32u* pSrc, Orb32u* pDst, int len);
OrbStatus orbsNot_32u_I(Orb32u* pSrcDst, int len);

/* ---- LShiftC, RShiftC ----------------------------------------------------------------------------------------
 * Alignment: any.
 * LShiftC: pDst[n] = pSrc[n] * 2^val without the bits that leave the element: no saturation, and no regard for a sign.
 * RShiftC: pDst[n] = pSrc[n] / 2^val rounded down: a logical shift for unsigned, an arithmetic one for signed elements.
 * The _I forms shift pSrcDst. A val of the element's width and more gives 0; -1 for a negative element of RShiftC_16s and
 * RShiftC_32s. Tests: pointers, len, then val below 0 (orbStsShiftErr). */
OrbStatus orbsLShiftC_8u(const Orb8u* pSrc, int val, Orb8u* pDst, int len);
OrbStatus orbsLShiftC_8u_I(int val, Orb8u* pSrcDst, int len);
OrbStatus orbsLShiftC_16u(const Orb16u* pSrc, int val, Orb16u* pDst, int len);
OrbStatus orbsLShiftC_16u_I(int val, Orb16u* pSrcDst, int len);
OrbStatus orbsLShiftC_16s(const Orb16s* pSrc, int val, Orb16s* pDst, int len);
OrbStatus orbsLShiftC_16s_I(int val, Orb16s* pSrcDst, int len);
OrbStatus orbsLShiftC_32s(const Orb32s* pSrc, int val, Orb32s* pDst, int len);
OrbStatus orbsLShiftC_32s_I(int val, Orb32s* pSrcDst, int len);
OrbStatus orbsRShiftC_8u(const Orb8u* pSrc, int val, Orb8u* pDst, int len);
OrbStatus orbsRShiftC_8u_I(int val, Orb8u* pSrcDst, int len);
OrbStatus orbsRShiftC_16u(const Orb16u* pSrc, int val, Orb16u* pDst, int len);
OrbStatus orbsRShiftC_16u_I(int val, Orb16u* pSrcDst, int len);
OrbStatus orbsRShiftC_16s(const Orb16s* pSrc, int val, Orb16s* pDst, int len);
OrbStatus orbsRShiftC_16s_I(int val, Orb16s* pSrcDst, int len);
OrbStatus orbsRShiftC_32s(const Orb32s* pSrc, int val, Orb32s* pDst, int len);
OrbStatus orbsRShiftC_32s_I(int val, Orb32s* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
