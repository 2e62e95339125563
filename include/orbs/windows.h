/* orbs/windows.h: window functions.
 *
 * pDst[n] = pSrc[n] w(n), and pSrcDst[n] = pSrcDst[n] w(n) of the _I members, n = 0 to M = len - 1. pDst may be pSrc;
 * the vectors overlap in no other way. Any number of threads may call at once on different data.
 *
 * The weights of n and M - n are the same to the bit, and the middle element of an odd len keeps its value whatever it
 * is. Both parts of a complex element have one weight. Weights are doubles in the _64f and _64fc members and floats in
 * all others; u is the unit of their rounding, 2^-53 or 2^-24.
 * A weight of 0 makes a zero with the sign of the element, and a NaN of an infinity.
 * Floats: one product in the caller's rounding mode. Integers: the product in single precision, to the nearest
 * integer, ties to even, saturated; the caller's rounding mode does not matter, and no exception flag is raised. */
#ifndef ORBS_WINDOWS_H
#define ORBS_WINDOWS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- WinBartlett, WinHann, WinHamming ------------------------------------------------------------------------
 * Alignment: any.
 * The elements times w(n), n = 0 to M = len - 1:
 *   WinBartlett   w(n) = 2 n / M up to the middle, and mirrored
 *   WinHann       w(n) = 0.5 - 0.5 cos(2 pi n / M)
 *   WinHamming    w(n) = 0.54 - 0.46 cos(2 pi n / M)
 * While the caller rounds to nearest, the weights of WinBartlett are quotients rounded once, up to a len of 2^24; the
 * doubles of WinHann and WinHamming are within 20 u of themselves however small they are, and the floats are such
 * doubles rounded once more. With len 3 the ends of WinBartlett and WinHann are positive zeros whatever they were.
 *
 * Statuses, in the order of the tests: orbStsNullPtrErr, orbStsSizeErr (len below 3). */
OrbStatus orbsWinBartlett_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsWinBartlett_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsWinBartlett_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsWinBartlett_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsWinBartlett_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsWinBartlett_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsWinBartlett_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsWinBartlett_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsWinBartlett_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsWinBartlett_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinBartlett_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsWinBartlett_64fc_I(Orb64fc* pSrcDst, int len);
OrbStatus orbsWinHann_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsWinHann_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsWinHann_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsWinHann_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsWinHann_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsWinHann_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsWinHann_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsWinHann_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsWinHann_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsWinHann_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinHann_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsWinHann_64fc_I(Orb64fc* pSrcDst, int len);
OrbStatus orbsWinHamming_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsWinHamming_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsWinHamming_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsWinHamming_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsWinHamming_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsWinHamming_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsWinHamming_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsWinHamming_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsWinHamming_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsWinHamming_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinHamming_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsWinHamming_64fc_I(Orb64fc* pSrcDst, int len);

/* ---- WinBlackman, WinBlackmanStd, WinBlackmanOpt, WinBlackmanQ15 ---------------------------------------------
 * Alignment: any.
 * The elements times w(n) = (alpha + 1) / 2 - 0.5 cos(2 pi n / M) - (alpha / 2) cos(4 pi n / M), n = 0 to M = len - 1.
 * Both ends become positive zeros whatever they were. With q = 0.5 - 0.5 cos(2 pi n / M) weights are q (1 + 4 alpha (1 -
 * q)), and doubles within 40 u q (1 + 4 |alpha|) of that. A NaN alpha makes floats NaN, and integers 32767, but at the
 * ends and in the middle.
 *
 * Std: alpha = -0.16 in single precision. Opt: alpha = -(0.5 / cos(pi / M))^2 rounded to single precision, of which the
 * second weight is 0 up to that rounding. Both hold for the members of double precision too.
 * Q15: alpha = alphaQ15 2^-15, in single precision.
 * _ISfs: alpha in double precision, and each product times 2^-scaleFactor before it is rounded. Scale factors beyond
 * -100 and 100 count as these: all that is not 0 saturates, or everything becomes 0. With len 3 the middle element is
 * rounded to nearest with an exact half away from 0; with every other len all are, with ties to even.
 *
 * Statuses, in the order of the tests: orbStsNullPtrErr, orbStsSizeErr (len below 3). WinBlackmanOpt tests len before
 * the pointers, and takes 4 at least. */
OrbStatus orbsWinBlackman_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_16s_I(Orb16s* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_16sc_I(Orb16sc* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_32f_I(Orb32f* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_32fc_I(Orb32fc* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinBlackman_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f alpha);
OrbStatus orbsWinBlackman_64f_I(Orb64f* pSrcDst, int len, Orb64f alpha);
OrbStatus orbsWinBlackman_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f alpha);
OrbStatus orbsWinBlackman_64fc_I(Orb64fc* pSrcDst, int len, Orb64f alpha);
OrbStatus orbsWinBlackmanStd_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsWinBlackmanStd_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsWinBlackmanStd_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsWinBlackmanStd_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsWinBlackmanStd_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsWinBlackmanStd_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsWinBlackmanStd_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsWinBlackmanStd_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsWinBlackmanStd_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsWinBlackmanStd_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinBlackmanStd_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsWinBlackmanStd_64fc_I(Orb64fc* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsWinBlackmanOpt_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsWinBlackmanOpt_16sc_I(Orb16sc* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsWinBlackmanOpt_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsWinBlackmanOpt_32fc_I(Orb32fc* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsWinBlackmanOpt_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsWinBlackmanOpt_64fc_I(Orb64fc* pSrcDst, int len);
OrbStatus orbsWinBlackmanQ15_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int alphaQ15);
OrbStatus orbsWinBlackmanQ15_16s_I(Orb16s* pSrcDst, int len, int alphaQ15);
OrbStatus orbsWinBlackmanQ15_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, int alphaQ15);
OrbStatus orbsWinBlackmanQ15_16sc_I(Orb16sc* pSrcDst, int len, int alphaQ15);
OrbStatus orbsWinBlackmanQ15_16s_ISfs(Orb16s* pSrcDst, int len, int alphaQ15, int scaleFactor);

/* ---- WinKaiser, WinKaiserQ15 ---------------------------------------------------------------------------------
 * Alignment: any.
 * The elements times w(n) = I0(alpha sqrt(n (M - n))) / I0(alpha M / 2), n = 0 to M = len - 1, where I0 is the modified
 * Bessel function; alpha M / 2 is what is elsewhere called beta. The sign of alpha does not matter; alpha 0 makes every
 * weight 1. While the caller rounds to nearest, weights are within (32 - 14 ln w(n)) u of themselves, doubles and floats
 * alike; those of integers that are below 2^-120 may be anything below that. A NaN alpha makes floats NaN, and integers
 * 32767, but in the middle. len 1 leaves the element as it is.
 * Q15: alpha = alphaQ15 2^-15.
 *
 * Statuses, in the order of the tests: orbStsNullPtrErr, orbStsSizeErr (len below 1), orbStsWinKaiserErr (|alpha| M / 2
 * above 38 in the _32f and _32fc members, above 308 in all others). */
OrbStatus orbsWinKaiser_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_16s_I(Orb16s* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_16sc_I(Orb16sc* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_32f_I(Orb32f* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_32fc_I(Orb32fc* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_64f_I(Orb64f* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiser_64fc_I(Orb64fc* pSrcDst, int len, Orb32f alpha);
OrbStatus orbsWinKaiserQ15_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int alphaQ15);
OrbStatus orbsWinKaiserQ15_16s_I(Orb16s* pSrcDst, int len, int alphaQ15);
OrbStatus orbsWinKaiserQ15_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, int alphaQ15);
OrbStatus orbsWinKaiserQ15_16sc_I(Orb16sc* pSrcDst, int len, int alphaQ15);

ORBS_DECLARATIONS_END

#endif
