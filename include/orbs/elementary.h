/* orbs/elementary.h: exponentials, logarithms, arctangents and roots. */
#ifndef ORBS_ELEMENTARY_H
#define ORBS_ELEMENTARY_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests of every member: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). A destination may
 * be its source where the types are equal; other overlaps are not supported. No scale factor is an error. All members
 * may be called from any number of threads on different data.
 *
 * Errors are given in ulp, the distance of the floats around the exact result; docs/accuracy.md tells how they were
 * measured, in the usual rounding mode. The results have the same bits in every build of the library. */

/* ---- Exp -----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = e^pSrc[n]; the _I and _ISfs forms work on pSrcDst; n = 0 to len - 1. There are no warnings.
 *
 * Floats are rounded to nearest whatever the caller's rounding mode is, overflow to infinity, and pass through the
 * subnormal numbers to 0.
 * _32f, _32f_I: worst case 0.99 ulp. Every NaN gives the NaN 0x7fc00000. Exceptions are masked for the length of the
 * call, and the flags it raises are taken back.
 * _64f, _64f_I, _32f64f: worst case 0.53 ulp, 0.76 where the result is subnormal. A NaN comes back quiet.
 *
 * Integers: e^x * 2^-scaleFactor, saturated. e^x counts as 0 for x below -745 and as infinite above 709, 2^-scaleFactor
 * as 0 from 1075 and as infinite from -1024 on; 0 times infinity is 0.
 * _16s and _32s round to the nearest integer, a half up: e^0 * 2^-1 gives 1.
 * _64s multiplies the double nearest to e^x and cuts the fraction off, but for the scale factors 0, 1 and -1: 0 gives
 * e^x rounded to an integer, 1 half of that, a half rounded up, and -1 its double. With these three only the low 16 bits
 * of an argument below 45 count, as a signed number: keep arguments within 16 bits. */
OrbStatus orbsExp_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsExp_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsExp_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsExp_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsExp_64s_Sfs(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor);
OrbStatus orbsExp_64s_ISfs(Orb64s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsExp_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsExp_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsExp_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsExp_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsExp_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len);

/* ---- Ln ------------------------------------------------------------------------------------------------------
 * Alignment: any.
 * Natural logarithms: pDst[n] = ln pSrc[n]; the _I and _ISfs forms work on pSrcDst; n = 0 to len - 1.
 *
 * An argument that is zero or negative has a result of its own, told below, and the call goes on and returns a warning:
 * orbStsLnZeroArg or orbStsLnNegArg, whichever kind of argument comes first.
 *
 * _32f, _32f_I: at most 2 from the nearest float (worst case 1.97 ulp, close to 1). +0 gives -infinity; what has its
 * sign bit set, -0 and negative NaNs included, counts as negative and gives the NaN 0xffc00000; +infinity and positive
 * NaNs come back as they are.
 * _64f, _64f_I: worst case 0.77 ulp. There is no NaN or infinity among the results: zero, what has its sign bit set,
 * +infinity and NaN give +0.0, the first two with their warnings. Subnormals up to 2^-1042 count as zeros.
 * _64f32f: the same logarithm, rounded once more to a float, but zeros give -infinity, negative arguments the NaN
 * 0xffc00000, and +infinity and positive NaNs +infinity.
 *
 * Integers. What is zero or negative gives the least value of the result type.
 * Scale factor 0 and above: _16s gives the integer nearest to ln x * 2^-scaleFactor; _32s and _32s16s the integer
 * nearest to ln x, shifted right by scaleFactor without rounding: 10 gives 2 with scale factor 0 and 1 with 1.
 * Scale factor below 0: ln x * 2^-scaleFactor, computed in single precision as by _32f, rounded to nearest and
 * saturated. */
OrbStatus orbsLn_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsLn_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsLn_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsLn_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsLn_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsLn_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsLn_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsLn_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsLn_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsLn_64f32f(const Orb64f* pSrc, Orb32f* pDst, int len);

/* ---- 10Log10 -------------------------------------------------------------------------------------------------
 * Alignment: any.
 * Decibels of a power: pDst[n] = 10 * log10 pSrc[n], with the warnings of orbsLn and its results for zero and for
 * negative arguments.
 *
 * Scale factor 0 and above: the nearest integer (but 9 of 7, whose logarithm is 8.45), shifted right by scaleFactor
 * without rounding. Scale factor below 0: the logarithm in single precision, as by Ln_32f, times 4.3429446 *
 * 2^-scaleFactor, rounded to nearest and saturated. */
OrbStatus orbs10Log10_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbs10Log10_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor);

/* ---- Arctan --------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = arctan pSrc[n], in -pi/2 to pi/2; the _I forms work on pSrcDst; n = 0 to len - 1. The sign is that of the
 * argument, that of zero included; infinities give the float nearest to pi/2 and a NaN a NaN.
 * Worst case: _32f, _32f_I 0.92 ulp; _64f, _64f_I 0.61 ulp. */
OrbStatus orbsArctan_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsArctan_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsArctan_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsArctan_64f_I(Orb64f* pSrcDst, int len);

/* ---- Sqrt ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = square root of pSrc[n]; the _I and _ISfs forms in place. Integer members compute the same whatever the
 * caller's rounding mode is.
 *
 * Integers: the exact root times 2^-scaleFactor, rounded to nearest with ties to even, saturated. A negative element
 * gives 0 and the warning orbStsSqrtNegArg, at every scale factor.
 * _32f, _64f: the IEEE root under the caller's rounding mode. An element with its sign set gives the warning
 * orbStsSqrtNegArg and the processor's NaN, but for -0, whose root is -0; a NaN with its sign set warns as well. The
 * call raises no floating-point exception and leaves the flags as they were.
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

/* ---- Cubrt ---------------------------------------------------------------------------------------------------
 * Alignment: any.
 * Cube roots with the sign of the argument, n = 0 to len - 1. There are no warnings.
 *
 * _32f: pDst[n] = cubrt pSrc[n], worst case 0.53 ulp; zeros and infinities come back as they are, and a NaN gives a NaN.
 * _32s16s_Sfs: the root of pSrc[n], rounded to a float, in single precision, times 2^-scaleFactor, rounded to the
 * nearest integer with ties to even and saturated. Of the magnitude of scaleFactor the low seven bits count: 128 and
 * -128 are 0 again. */
OrbStatus orbsCubrt_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsCubrt_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
