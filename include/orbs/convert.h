/* orbs/convert.h: conversion between sample formats. */
#ifndef ORBS_CONVERT_H
#define ORBS_CONVERT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* A scale factor multiplies by 2^-scaleFactor; none is an error. rndMode is not checked: orbRndNear rounds to nearest with
 * ties to even, orbRndZero toward zero, and what other values do is told with each family. Saturation is not reported.
 *
 * Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * Source and destination do not overlap, but may be the same vector where their elements have the same size. All
 * members may be called from any number of threads on different data; where a member switches the rounding mode, it
 * does so for the calling thread and until it returns. */

/* ---- Convert: widening and plain narrowing ---------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n], n = 0 to len - 1, exactly. Not every value has an exact result in _32s32f and _64f32f, which round in
 * the caller's mode, and in _32s16s, which saturates. A float too large for _64f32f becomes an infinity. NaNs stay NaNs. */
OrbStatus orbsConvert_8s16s(const Orb8s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsConvert_16s32s(const Orb16s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsConvert_8s32f(const Orb8s* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_16s32f(const Orb16s* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_16u32f(const Orb16u* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_32s32f(const Orb32s* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_32s64f(const Orb32s* pSrc, Orb64f* pDst, int len);
OrbStatus orbsConvert_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsConvert_64f32f(const Orb64f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_32s16s(const Orb32s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsConvert_24s32s(const Orb24s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsConvert_24u32u(const Orb24u* pSrc, Orb32u* pDst, int len);
OrbStatus orbsConvert_24s32f(const Orb24s* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_24u32f(const Orb24u* pSrc, Orb32f* pDst, int len);

/* ---- Convert: integers to floats with a scale ------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n] * 2^-scaleFactor, n = 0 to len - 1: the conversion, then one multiplication. The scale factor is
 * limited at its low end so that no result overflows: to -112 (_16s32f), -96 (_32s32f), -1008 (_16s64f) and -992
 * (_32s64f); at its high end to 126 and, with doubles, 1022, so that none underflows. Only the conversion of _32s32f
 * rounds, in the caller's mode. */
OrbStatus orbsConvert_16s32f_Sfs(const Orb16s* pSrc, Orb32f* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_16s64f_Sfs(const Orb16s* pSrc, Orb64f* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_32s32f_Sfs(const Orb32s* pSrc, Orb32f* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_32s64f_Sfs(const Orb32s* pSrc, Orb64f* pDst, int len, int scaleFactor);

/* ---- Convert: integers to integers with a scale ----------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n] * 2^-scaleFactor, n = 0 to len - 1, of the exact value; rounded to nearest with ties to even, then
 * saturated to 16, 24 or 32 bits. _64s32s: rounded only if rndMode is orbRndNear, with every other rndMode the bits below
 * the point are cut off, which goes toward minus infinity.
 *
 * Scale factors above 31 (_64s32s: 63) count as 31 (63), so -2^31 then gives -1 and 2^31 - 1 gives 1. Below 0 every value
 * but 0 saturates from some scale factor on, the same as without a limit. */
OrbStatus orbsConvert_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_32s24s_Sfs(const Orb32s* pSrc, Orb24s* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_32u24u_Sfs(const Orb32u* pSrc, Orb24u* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_64s32s_Sfs(const Orb64s* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor);

/* ---- Convert: floats to integers with a scale ------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = pSrc[n] * m, n = 0 to len - 1, made an integer and saturated, infinities too. rndMode orbRndZero cuts off
 * toward zero; every other value rounds to nearest with ties to even, and where the caller's rounding mode is another it
 * is switched meanwhile, and the denormals-are-zero bit cleared with it. _32f24s and _32f24u always round to nearest.
 *
 * m is 2^-scaleFactor as repeated multiplication by 2 or 0.5 makes it in single precision, also for _64f32s: with the
 * mode to nearest 0 for a scale factor above 149 and infinity below -127, and then 0 * infinity is a NaN. _32f24s and
 * _32f24u limit the scale factor to -127 and 127, and m is 0 for 127 and above.
 *
 * A NaN becomes the largest value; but 0 in _32f16u and _32f24u, the lowest value in _32f24s, and in _32f32s the extreme
 * of its sign (a NaN that the product has made is negative). */
OrbStatus orbsConvert_32f8s_Sfs(const Orb32f* pSrc, Orb8s* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_32f8u_Sfs(const Orb32f* pSrc, Orb8u* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_32f16s_Sfs(const Orb32f* pSrc, Orb16s* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_32f16u_Sfs(const Orb32f* pSrc, Orb16u* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_32f32s_Sfs(const Orb32f* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_64f32s_Sfs(const Orb64f* pSrc, Orb32s* pDst, int len, int rndMode, int scaleFactor);
OrbStatus orbsConvert_32f24s_Sfs(const Orb32f* pSrc, Orb24s* pDst, int len, int scaleFactor);
OrbStatus orbsConvert_32f24u_Sfs(const Orb32f* pSrc, Orb24u* pDst, int len, int scaleFactor);

/* ---- Convert: half floats --------------------------------------------------------------------------------------
 * Alignment: any.
 * IEEE 754 binary16, n = 0 to len - 1.
 *
 * _16f32f is exact, denormals included; infinities and NaNs keep their mantissa.
 * _32f16f, _16s16f: rndMode orbRndNear gives the nearest half with ties to even, any other value the next one toward
 * zero. Floats that round above 65504 become infinity, with any other rndMode those from 65536 on. A NaN keeps its sign
 * and becomes 0x7fff to nearest, toward zero the top 10 bits of its mantissa. _32f16f switches the rounding mode to the one
 * asked for. Halves below the normal range are rounded twice to nearest, first to a multiple of 2^-37.
 * _16f16s_Sfs: the half times 2^-scaleFactor, saturated; rounded to nearest with ties to even if rndMode is orbRndNear,
 * else toward zero. Infinities and NaNs saturate by their sign, but at scale factors below -14 all of them become -32768,
 * except for the positive infinity. */
OrbStatus orbsConvert_16f32f(const Orb16f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsConvert_32f16f(const Orb32f* pSrc, Orb16f* pDst, int len, int rndMode);
OrbStatus orbsConvert_16s16f(const Orb16s* pSrc, Orb16f* pDst, int len, int rndMode);
OrbStatus orbsConvert_16f16s_Sfs(const Orb16f* pSrc, Orb16s* pDst, int len, int rndMode, int scaleFactor);

/* ---- Join, JoinScaled, SplitScaled -----------------------------------------------------------------------------
 * Alignment: any.
 * nChannels vectors of chanLen samples each, and one vector of nChannels * chanLen in which sample n of channel c is
 * element n * nChannels + c. No two vectors overlap.
 *
 * Join: the float rounded to nearest, ties to even, and saturated. JoinScaled: the float limited to -1 and 1, times 32767.5
 * less 0.5, in single precision, rounded likewise; 24 bits: times 8388607.5 less 0.5, in double precision. So -1 and 1 are
 * the extremes of the integers, and 0 is not 0. A NaN becomes the largest value. A rounding mode of the caller that is not
 * to nearest is switched meanwhile.
 * SplitScaled: back to -1 to 1, x * 2/65535 + 1/65535 in single precision, with the factors rounded to it; 24 bits in
 * double precision, x * 1.19209296656209e-7 + 5.96046483281045e-8, then narrowed. The caller's rounding mode holds.
 *
 * Tests: the interleaved vector (orbStsNullPtrErr), nChannels and chanLen below 1 (orbStsSizeErr), the array of channels,
 * then each channel (orbStsNullPtrErr). */
OrbStatus orbsJoin_32f16s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb16s* pDst);
OrbStatus orbsJoinScaled_32f16s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb16s* pDst);
OrbStatus orbsJoinScaled_32f24s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb24s* pDst);
OrbStatus orbsSplitScaled_16s32f_D2L(const Orb16s* pSrc, Orb32f* const* pDst, int nChannels, int chanLen);
OrbStatus orbsSplitScaled_24s32f_D2L(const Orb24s* pSrc, Orb32f* const* pDst, int nChannels, int chanLen);

ORBS_DECLARATIONS_END

#endif
