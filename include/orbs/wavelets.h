/* orbs/wavelets.h: the Haar transform and two-channel filter banks. */
#ifndef ORBS_WAVELETS_H
#define ORBS_WAVELETS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- WTHaarFwd, WTHaarInv ------------------------------------------------------------------------------------
 * Alignment: any.
 * One level of the Haar transform of len elements x: (len + 1) / 2 low values, half sums of pairs, and len / 2 high
 * values, half differences. Several levels are the caller's loop over the low values. Without a state.
 *
 * Floats, each operation rounded to the type, in the same way at every place of a vector:
 *   Fwd   high[i] = (x[2i+1] - x[2i]) * 0.5      low[i] = x[2i] + high[i]
 *   Inv   x[2i] = low[i] - high[i]               x[2i+1] = low[i] + high[i]
 *   an odd len   low[len/2] = x[len-1], without a high value, and back: a copy, bit for bit
 * NaN and infinity pass by the rules of the operations. The caller's rounding mode holds.
 *
 * Integers, from exact sums and differences, rounded to nearest with ties to even, then saturated; s is the scale
 * factor, or 0 in the members without:
 *   Fwd   low[i] = (x[2i] + x[2i+1]) * 2^-(s+1)  high[i] = (x[2i+1] - x[2i]) * 2^-(s+1)
 *   Inv   x[2i] = (low[i] - high[i]) * 2^-s      x[2i+1] = (low[i] + high[i]) * 2^-s
 *   an odd len   low[len/2] = x[len-1] * 2^-s, and back x[len-1] = low[len/2] * 2^-s
 * So 1 and 2 give low 2 (1.5) and high 0 (0.5), and the way back does not restore odd sums. Every scale factor is
 * valid: far above 0 the results are zeros, far below 0 extremes of the type.
 *
 * Sources and destinations must not overlap. pDstHigh and pSrcHigh must not be null even for a len of 1, which does
 * not touch them. Statuses, in the order of the tests: any null pointer: orbStsNullPtrErr; len below 1:
 * orbStsSizeErr. */
OrbStatus orbsWTHaarFwd_32f(const Orb32f* pSrc, int len, Orb32f* pDstLow, Orb32f* pDstHigh);
OrbStatus orbsWTHaarFwd_64f(const Orb64f* pSrc, int len, Orb64f* pDstLow, Orb64f* pDstHigh);
OrbStatus orbsWTHaarFwd_8s(const Orb8s* pSrc, int len, Orb8s* pDstLow, Orb8s* pDstHigh);
OrbStatus orbsWTHaarFwd_16s(const Orb16s* pSrc, int len, Orb16s* pDstLow, Orb16s* pDstHigh);
OrbStatus orbsWTHaarFwd_32s(const Orb32s* pSrc, int len, Orb32s* pDstLow, Orb32s* pDstHigh);
OrbStatus orbsWTHaarFwd_64s(const Orb64s* pSrc, int len, Orb64s* pDstLow, Orb64s* pDstHigh);
OrbStatus orbsWTHaarFwd_8s_Sfs(const Orb8s* pSrc, int len, Orb8s* pDstLow, Orb8s* pDstHigh, int scaleFactor);
OrbStatus orbsWTHaarFwd_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pDstLow, Orb16s* pDstHigh, int scaleFactor);
OrbStatus orbsWTHaarFwd_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pDstLow, Orb32s* pDstHigh, int scaleFactor);
OrbStatus orbsWTHaarFwd_64s_Sfs(const Orb64s* pSrc, int len, Orb64s* pDstLow, Orb64s* pDstHigh, int scaleFactor);
OrbStatus orbsWTHaarInv_32f(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, Orb32f* pDst, int len);
OrbStatus orbsWTHaarInv_64f(const Orb64f* pSrcLow, const Orb64f* pSrcHigh, Orb64f* pDst, int len);
OrbStatus orbsWTHaarInv_8s(const Orb8s* pSrcLow, const Orb8s* pSrcHigh, Orb8s* pDst, int len);
OrbStatus orbsWTHaarInv_16s(const Orb16s* pSrcLow, const Orb16s* pSrcHigh, Orb16s* pDst, int len);
OrbStatus orbsWTHaarInv_32s(const Orb32s* pSrcLow, const Orb32s* pSrcHigh, Orb32s* pDst, int len);
OrbStatus orbsWTHaarInv_64s(const Orb64s* pSrcLow, const Orb64s* pSrcHigh, Orb64s* pDst, int len);
OrbStatus orbsWTHaarInv_8s_Sfs(const Orb8s* pSrcLow, const Orb8s* pSrcHigh, Orb8s* pDst, int len, int scaleFactor);
OrbStatus orbsWTHaarInv_16s_Sfs(const Orb16s* pSrcLow, const Orb16s* pSrcHigh, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsWTHaarInv_32s_Sfs(const Orb32s* pSrcLow, const Orb32s* pSrcHigh, Orb32s* pDst, int len, int scaleFactor);
OrbStatus orbsWTHaarInv_64s_Sfs(const Orb64s* pSrcLow, const Orb64s* pSrcHigh, Orb64s* pDst, int len, int scaleFactor);

/* ---- WTFwd, WTInv --------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * A bank of two filters, the low and the high channel, each with taps and an offset of its own, over a stream that is
 * taken in blocks. Fwd splits x into two streams of half the rate, Inv joins two streams into one of twice the rate.
 * With the taps h[0 .. L-1] of a channel, its offset o of -1 or more, and 0 for what lies before the stream's begin:
 *   Fwd   y[m] = sum over k of h[k] * x[2m - o - k], for each channel
 *   Inv   z[t] = sum over k of h[k] * u[t - |o| - k], where u[2j] = y[j] and u is 0 at odd places; pDst is the low
 *         channel's z plus the high channel's
 * An offset of -1 takes one sample more before the first output of Fwd: it looks ahead by one. To Inv it is what 1 is.
 *
 * InitAlloc copies the taps and makes a state in one block of memory, with zeros before the stream. Free gives it back.
 * A call of Fwd takes 2 * dstLen samples and writes dstLen values for each channel; a call of Inv takes srcLen values
 * of each channel and writes 2 * srcLen samples. Sources and destinations must not overlap.
 * Members with an integer type do their sums in single precision as the others do. Inv rounds results to nearest,
 * ties to even, and saturates them; a NaN becomes what orbsConvert makes of it.
 *
 * Rounding. Outputs for which all samples lie in the block of the call are sums of rounded products in single
 * precision. Those before them, which reach back into earlier blocks - (R + 1) / 2 outputs of Fwd and 2R of Inv, with R
 * of the delay line below - are summed in double precision and rounded once. So a stream cut into blocks otherwise
 * differs by the rounding of such heads, and by nothing else; members with an integer type always work in blocks of
 * 1024 samples, each with its head. The bits do not depend on the processor, on alignment, or on threads.
 *
 * GetDlyLine copies what a channel remembers of its stream, R values, oldest first; SetDlyLine replaces it.
 *   Fwd   R = L - 1 + o, and with an offset of -1: L - 2, or 0 if L is 1
 *   Inv   R = (L - 1 + |o|) / 2
 * A stream may be carried on by another state that way. Both copy R values for each channel and touch no more.
 *
 * A state belongs to one stream: no two calls may use it at a time. It holds no address: its block may be copied, saved,
 * or mapped elsewhere at an equal alignment to 32 bytes.
 *
 * Statuses, in the order of the tests:
 *   InitAlloc     null ppState or pTapsLow: orbStsNullPtrErr; lenLow below 1: orbStsSizeErr; null pTapsHigh:
 *                 orbStsNullPtrErr; lenHigh below 1: orbStsSizeErr; an offset below -1: orbStsWtOffsetErr; no memory,
 *                 or 2 GiB of it or more: orbStsMemAllocErr, and *ppState is null then
 *   all others    null pState: orbStsNullPtrErr; pState is not a state of the member's type: orbStsContextMatchErr
 *   Fwd           then any other null pointer: orbStsNullPtrErr; dstLen below 1: orbStsSizeErr
 *   Inv           then null pSrcLow or pSrcHigh: orbStsNullPtrErr; srcLen below 1: orbStsSizeErr; null pDst:
 *                 orbStsNullPtrErr
 *   SetDlyLine,   then null pDlyLow or pDlyHigh: orbStsNullPtrErr
 *   GetDlyLine */
typedef struct OrbsWTFwdState_32f OrbsWTFwdState_32f;
typedef struct OrbsWTFwdState_8u32f OrbsWTFwdState_8u32f;
typedef struct OrbsWTFwdState_8s32f OrbsWTFwdState_8s32f;
typedef struct OrbsWTFwdState_16u32f OrbsWTFwdState_16u32f;
typedef struct OrbsWTFwdState_16s32f OrbsWTFwdState_16s32f;
typedef struct OrbsWTInvState_32f OrbsWTInvState_32f;
typedef struct OrbsWTInvState_32f8u OrbsWTInvState_32f8u;
typedef struct OrbsWTInvState_32f8s OrbsWTInvState_32f8s;
typedef struct OrbsWTInvState_32f16u OrbsWTInvState_32f16u;
typedef struct OrbsWTInvState_32f16s OrbsWTInvState_32f16s;

OrbStatus orbsWTFwdInitAlloc_32f(OrbsWTFwdState_32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTFwdFree_32f(OrbsWTFwdState_32f* pState);
OrbStatus orbsWTFwd_32f(const Orb32f* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_32f* pState);
OrbStatus orbsWTFwdSetDlyLine_32f(OrbsWTFwdState_32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTFwdGetDlyLine_32f(const OrbsWTFwdState_32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTFwdInitAlloc_8u32f(OrbsWTFwdState_8u32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTFwdFree_8u32f(OrbsWTFwdState_8u32f* pState);
OrbStatus orbsWTFwd_8u32f(const Orb8u* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_8u32f* pState);
OrbStatus orbsWTFwdSetDlyLine_8u32f(OrbsWTFwdState_8u32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTFwdGetDlyLine_8u32f(const OrbsWTFwdState_8u32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTFwdInitAlloc_8s32f(OrbsWTFwdState_8s32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTFwdFree_8s32f(OrbsWTFwdState_8s32f* pState);
OrbStatus orbsWTFwd_8s32f(const Orb8s* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_8s32f* pState);
OrbStatus orbsWTFwdSetDlyLine_8s32f(OrbsWTFwdState_8s32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTFwdGetDlyLine_8s32f(const OrbsWTFwdState_8s32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTFwdInitAlloc_16u32f(OrbsWTFwdState_16u32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTFwdFree_16u32f(OrbsWTFwdState_16u32f* pState);
OrbStatus orbsWTFwd_16u32f(const Orb16u* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_16u32f* pState);
OrbStatus orbsWTFwdSetDlyLine_16u32f(OrbsWTFwdState_16u32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTFwdGetDlyLine_16u32f(const OrbsWTFwdState_16u32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTFwdInitAlloc_16s32f(OrbsWTFwdState_16s32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTFwdFree_16s32f(OrbsWTFwdState_16s32f* pState);
OrbStatus orbsWTFwd_16s32f(const Orb16s* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_16s32f* pState);
OrbStatus orbsWTFwdSetDlyLine_16s32f(OrbsWTFwdState_16s32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTFwdGetDlyLine_16s32f(const OrbsWTFwdState_16s32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);

OrbStatus orbsWTInvInitAlloc_32f(OrbsWTInvState_32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTInvFree_32f(OrbsWTInvState_32f* pState);
OrbStatus orbsWTInv_32f(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb32f* pDst, OrbsWTInvState_32f* pState);
OrbStatus orbsWTInvSetDlyLine_32f(OrbsWTInvState_32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTInvGetDlyLine_32f(const OrbsWTInvState_32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTInvInitAlloc_32f8u(OrbsWTInvState_32f8u** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTInvFree_32f8u(OrbsWTInvState_32f8u* pState);
OrbStatus orbsWTInv_32f8u(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb8u* pDst, OrbsWTInvState_32f8u* pState);
OrbStatus orbsWTInvSetDlyLine_32f8u(OrbsWTInvState_32f8u* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTInvGetDlyLine_32f8u(const OrbsWTInvState_32f8u* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTInvInitAlloc_32f8s(OrbsWTInvState_32f8s** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTInvFree_32f8s(OrbsWTInvState_32f8s* pState);
OrbStatus orbsWTInv_32f8s(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb8s* pDst, OrbsWTInvState_32f8s* pState);
OrbStatus orbsWTInvSetDlyLine_32f8s(OrbsWTInvState_32f8s* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTInvGetDlyLine_32f8s(const OrbsWTInvState_32f8s* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTInvInitAlloc_32f16u(OrbsWTInvState_32f16u** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTInvFree_32f16u(OrbsWTInvState_32f16u* pState);
OrbStatus orbsWTInv_32f16u(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb16u* pDst, OrbsWTInvState_32f16u* pState);
OrbStatus orbsWTInvSetDlyLine_32f16u(OrbsWTInvState_32f16u* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTInvGetDlyLine_32f16u(const OrbsWTInvState_32f16u* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);
OrbStatus orbsWTInvInitAlloc_32f16s(OrbsWTInvState_32f16s** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh);
OrbStatus orbsWTInvFree_32f16s(OrbsWTInvState_32f16s* pState);
OrbStatus orbsWTInv_32f16s(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb16s* pDst, OrbsWTInvState_32f16s* pState);
OrbStatus orbsWTInvSetDlyLine_32f16s(OrbsWTInvState_32f16s* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh);
OrbStatus orbsWTInvGetDlyLine_32f16s(const OrbsWTInvState_32f16s* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh);

ORBS_DECLARATIONS_END

#endif
