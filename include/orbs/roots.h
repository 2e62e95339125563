/* orbs/roots.h: squares, roots and absolute values. */
#ifndef ORBS_ROOTS_H
#define ORBS_ROOTS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). Any alignment will do. A destination
 * may be the source; other overlaps are not supported. Scaled members follow the scale rule of orbs/arith.h, ties to
 * even; no scale factor is an error. Integer members compute the same whatever the caller's rounding mode is. All
 * members may be called from any number of threads on different data. */

/* ---- Sqr -----------------------------------------------------------------------------------------------------
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

/* ---- Sqrt ----------------------------------------------------------------------------------------------------
 * pDst[n] = square root of pSrc[n]; the _I and _ISfs forms in place.
 *
 * Integers: the exact root times 2^-scaleFactor, rounded to nearest with ties to even, saturated. A negative element
 * gives 0 and the warning orbStsSqrtNegArg, at every scale factor.
 * _32f, _64f: the IEEE root under the caller's rounding mode. An element with its sign set gives the warning
 * orbStsSqrtNegArg and the processor's NaN, but for -0, whose root is -0; a NaN with its sign set warns as well. The call
 * raises no floating-point exception and leaves the flags as they were.
 * Complex: the root with a real part of 0 or more; the imaginary part has the sign of im. No warning. _16sc: each part
 * times 2^-scaleFactor, rounded to nearest with ties to even, saturated; exactly at a scale factor of 0 and above 8,
 * from double precision below 0. At scale factors of 1 to 8 in integers: m, the integer nearest to |pSrc[n]|, and then
 * the integers nearest to sqrt((m + re) / 2) * 2^-scaleFactor and sqrt((m - re) / 2) * 2^-scaleFactor, of which an
 * exact half goes up, but to the even integer where m was rounded. _32fc: double precision, rounded once; _64fc: each
 * part to within 2^-51 of itself. Neither overflows on the way. With an infinite im the imaginary part is infinite;
 * where either part is a NaN the other becomes one as well, unless it is that infinity. No exception flags either.
 *
 * Long vectors spread over two threads, with the same results. */
OrbStatus orbsSqrt_8u_Sfs(const Orb8u* pSrc, Orb8u* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_8u_ISfs(Orb8u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16u_Sfs(const Orb16u* pSrc, Orb16u* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16u_ISfs(Orb16u* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_16sc_ISfs(Orb16sc* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqrt_64s_Sfs(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_64s_ISfs(Orb64s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsSqrt_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_64s16s_Sfs(const Orb64s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsSqrt_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsSqrt_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsSqrt_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsSqrt_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsSqrt_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsSqrt_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsSqrt_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsSqrt_64fc_I(Orb64fc* pSrcDst, int len);

/* ---- Abs -----------------------------------------------------------------------------------------------------
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
