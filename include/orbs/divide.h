/* orbs/divide.h: quotients. */
#ifndef ORBS_DIVIDE_H
#define ORBS_DIVIDE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). A
 * destination may be one of the sources; other overlaps are not supported. No scale factor is an error. Integer members
 * compute the same whatever the caller's rounding mode is, and raise no floating-point exception; float members are
 * IEEE operations under that mode. All members may be called from any number of threads on different data, and spread
 * long vectors over threads themselves, with the same results. */

/* ---- Div -----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc2[n] / pSrc1[n], the first vector being the divisor; the _I and _ISfs forms: pSrcDst[n] /= pSrc[n];
 * n = 0 to len - 1.
 *
 * Integers: the quotient times 2^-scaleFactor, rounded to nearest and saturated. _32s, _32s16s and _16sc divide in
 * double precision, so an exact half goes to the even integer; _8u, _16u and _16s multiply by a reciprocal, refined in
 * single precision: with r = 1 / b rounded to 12 significant bits, e = 1 - b*r and q = a * 2^-scaleFactor * r, the
 * quotient is q + q*e + q*e^2. For _8u that is the nearest integer, ties to even; for 16 bits a tie, and above 2^12 also
 * what lies within the last bits of single precision beside one, may go to either neighbour, the same everywhere.
 * Complex: a * conj(b) / |b|^2, in _16sc with exact numerators, in _32fc and _64fc each step rounded to the type, so
 * that |b|^2 may overflow or vanish.
 *
 * Warning orbStsDivByZero if a divisor is 0 (of a complex one both parts). The result there: integers 0 for 0 / 0 and
 * else the extreme of the type with the sign of the dividend, whatever the scale factor; _16sc (0, 0); floats what IEEE
 * division gives, infinity or NaN.
 *
 * Scale factors at which only signs matter give 0 for a dividend of 0 and else the extreme of the type with the sign of
 * the quotient: _8u below -15, _16s below -30, _32s16s below -29, _16sc below -32 (each part by itself), _32s below -62.
 * _16u below -31 gives 65535 for a dividend of 0 as well, and 0 only for 0 / 0. */
OrbStatus orbsDiv_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDiv_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDiv_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDiv_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDiv_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDiv_32s16s_Sfs(const Orb16s* pSrc1, const Orb32s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsDiv_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsDiv_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsDiv_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len);
OrbStatus orbsDiv_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len);
OrbStatus orbsDiv_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsDiv_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsDiv_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len);
OrbStatus orbsDiv_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len);

/* ---- DivC ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n] / val; the _I and _ISfs forms: pSrcDst[n] /= val.
 *
 * Tests: pointers, len, then val: orbStsDivByZeroErr for a val of 0. Floats are refused unless val (complex: the sum of
 * the squares of its parts, in the type) compares below or above 0: a NaN is, and a complex val so small that the sum
 * vanishes. DivC_16u_Sfs and DivC_16u_ISfs take their shortcuts first, with a val other than 0: a scale factor above 16
 * gives zeros, one below -31 gives 65535 everywhere (neither looks at pSrc), and val 1 with scale factor 0 copies.
 *
 * Integers: the element times the single-precision number 2^-scaleFactor / val, rounded to nearest with ties to even,
 * saturated; _16u with a val of 1 follows the scale rule of orbsMulC instead. _16sc: the element times conj(val), by
 * 2^-scaleFactor / |val|^2, in single precision, below a scale factor of -16 in double precision.
 * Zeros: _8u from a scale factor of 9, _16s and _16sc from 16. By sign alone: _8u below -15, _16s below -30.
 *
 * Floats: orbsMulC by the reciprocal 1 / val, or (re, -im) / (re^2 + im^2), so the last bit may not be that of a
 * division, and what orbsMulC says of constants holds: with val 1 a copy; with an infinite val zeros, for NaN elements
 * too. */
OrbStatus orbsDivC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsDivC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDivC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsDivC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDivC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsDivC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDivC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsDivC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsDivC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsDivC_32f_I(Orb32f val, Orb32f* pSrcDst, int len);
OrbStatus orbsDivC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsDivC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len);
OrbStatus orbsDivC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsDivC_64f_I(Orb64f val, Orb64f* pSrcDst, int len);
OrbStatus orbsDivC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsDivC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len);

/* ---- DivCRev -------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = val / pSrc[n]; the _I forms: pSrcDst[n] = val / pSrcDst[n].
 *
 * Warning orbStsDivByZero if an element is 0. _16u: as Div_16u_Sfs with scale factor 0; an element of 0 gives 65535, and
 * 0 if val is 0. _32f: one IEEE division. */
OrbStatus orbsDivCRev_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len);
OrbStatus orbsDivCRev_16u_I(Orb16u val, Orb16u* pSrcDst, int len);
OrbStatus orbsDivCRev_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsDivCRev_32f_I(Orb32f val, Orb32f* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
