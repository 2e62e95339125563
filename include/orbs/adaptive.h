/* orbs/adaptive.h: adaptive FIR filters. */
#ifndef ORBS_ADAPTIVE_H
#define ORBS_ADAPTIVE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- LMS filter states -------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * A state holds the taps h[0 .. tapsLen-1], floats that change from sample to sample, and the last tapsLen samples of
 * one stream. In the calls here taps are in natural order, h[0] meeting the newest sample. The delay line is a ring of
 * tapsLen samples: pDlyLine[dlyLineIndex] is the oldest one and the next younger ones follow, from the end of the line
 * on at its start. An index outside 0 .. tapsLen-1 is taken modulo tapsLen.
 *
 * InitAlloc takes the memory for a state in one block. Null pTaps are zeros, a null pDlyLine is a line of zeros.
 * GetTaps reads the taps as they stand, in the order that InitAlloc takes.
 * GetDlyLine reads line and index, SetDlyLine replaces them; a null pDlyLine is a line of zeros here too. After a call
 * of FIRLMS the index is 0 if tapsLen is below 80, and else has moved on by the number of samples, modulo tapsLen; the
 * stream is the same.
 * Free gives the memory back. It tests no tag, and a null pState is fine.
 *
 * Statuses, in the order of the tests:
 *   InitAlloc                        null ppState: orbStsNullPtrErr; tapsLen below 1: orbStsSizeErr; no memory, or
 *                                    2 GiB of it or more: orbStsMemAllocErr. *ppState is then left as it was.
 *   GetTaps, GetDlyLine, SetDlyLine  any null pointer (but pDlyLine of SetDlyLine): orbStsNullPtrErr; pState is not a
 *                                    state of the member's type: orbStsContextMatchErr
 * A state belongs to one stream: no two calls may use it at a time. */
typedef struct OrbsFIRLMSState_32f OrbsFIRLMSState_32f;
typedef struct OrbsFIRLMSState32f_16s OrbsFIRLMSState32f_16s;
OrbStatus orbsFIRLMSInitAlloc_32f(OrbsFIRLMSState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine, int dlyLineIndex);
OrbStatus orbsFIRLMSFree_32f(OrbsFIRLMSState_32f* pState);
OrbStatus orbsFIRLMSGetTaps_32f(const OrbsFIRLMSState_32f* pState, Orb32f* pTaps);
OrbStatus orbsFIRLMSGetDlyLine_32f(const OrbsFIRLMSState_32f* pState, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSSetDlyLine_32f(OrbsFIRLMSState_32f* pState, const Orb32f* pDlyLine, int dlyLineIndex);
OrbStatus orbsFIRLMSInitAlloc32f_16s(OrbsFIRLMSState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, int dlyLineIndex);
OrbStatus orbsFIRLMSFree32f_16s(OrbsFIRLMSState32f_16s* pState);
OrbStatus orbsFIRLMSGetTaps32f_16s(const OrbsFIRLMSState32f_16s* pState, Orb32f* pTaps);
OrbStatus orbsFIRLMSGetDlyLine32f_16s(const OrbsFIRLMSState32f_16s* pState, Orb16s* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSSetDlyLine32f_16s(OrbsFIRLMSState32f_16s* pState, const Orb16s* pDlyLine, int dlyLineIndex);

/* ---- FIRLMS ------------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * For each of the next len samples x = pSrc[n] of the stream of a state, with x[-k] the sample k before it:
 *   y = sum over k = 0 .. tapsLen-1 of h[k] * x[-k];  pDst[n] = y
 *   e = (pRef[n] - y) * (mu + mu);  h[k] = h[k] + x[-k] * e for all k
 * in single precision. The order of the sum depends on tapsLen alone, so a stream gives the same bits however it is cut
 * into calls. mu may be any number; 0 leaves finite taps as they are. Nothing guards the taps against growing without
 * bound.
 * 32f_16s: samples and references are widened exactly; the output is y rounded to nearest, ties to even, and
 * saturated, a NaN becoming 32767; e comes from y as it is.
 * pDst may be pSrc or pRef; else they must not overlap.
 *
 * Statuses, in the order of the tests: null pSrc, pRef, pDst or pState: orbStsNullPtrErr; len below 1: orbStsSizeErr;
 * pState is not a state of the member's type: orbStsContextMatchErr. One state, one call at a time. */
OrbStatus orbsFIRLMS_32f(const Orb32f* pSrc, const Orb32f* pRef, Orb32f* pDst, int len, Orb32f mu, OrbsFIRLMSState_32f* pState);
OrbStatus orbsFIRLMS32f_16s(const Orb16s* pSrc, const Orb16s* pRef, Orb16s* pDst, int len, Orb32f mu, OrbsFIRLMSState32f_16s* pState);

/* ---- FIRLMSOne_Direct --------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * One sample of an adaptive filter over the caller's taps, oldest sample's first, delay line and position. pDlyLine has
 * 2 * tapsLen elements, the second half a copy of the first, zeros at the start of a stream; *pDlyLineIndex, 0 at the
 * start, is the place of the oldest sample. pDlyLine[index] = pDlyLine[index + tapsLen] = src; index = index + 1, at
 * tapsLen back to 0; and with x[k] = pDlyLine[index + k]:
 *   _32f, 32f_16s: y = sum over k of pTapsInv[k] * x[k]; e = (refVal - y) * (mu + mu); pTapsInv[k] += x[k] * e, in
 *   single precision. *pDstVal is y, for 16s rounded to nearest, ties to even, and saturated, a NaN becoming 32767.
 *   Q15_16s: normalised, in double precision; taps of 32 bits in which 2^15 counts as 1. y = 2^-15 * sum over k of
 *   pTapsInv[k] * x[k], E = sum over k of x[k] * x[k], g = muQ15 * (refVal - y) * (1 / E); pTapsInv[k] += x[k] * g.
 *   Taps are rounded to nearest and saturated to 32 bits, *pDstVal likewise to 16. While E is 0, neither is written.
 * mu may be any number.
 *
 * Statuses, in the order of the tests: null pTapsInv, pDlyLine, pDlyLineIndex or pDstVal: orbStsNullPtrErr; tapsLen
 * below 1: orbStsSizeErr; *pDlyLineIndex outside 0 .. tapsLen-1: orbStsDlyLineIndexErr. Any number of threads may call
 * these on different taps and delay lines. */
OrbStatus orbsFIRLMSOne_Direct_32f(Orb32f src, Orb32f refVal, Orb32f* pDstVal, Orb32f* pTapsInv, int tapsLen, Orb32f mu, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSOne_Direct32f_16s(Orb16s src, Orb16s refVal, Orb16s* pDstVal, Orb32f* pTapsInv, int tapsLen, Orb32f mu, Orb16s* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSOne_DirectQ15_16s(Orb16s src, Orb16s refVal, Orb16s* pDstVal, Orb32s* pTapsInv, int tapsLen, int muQ15, Orb16s* pDlyLine, int* pDlyLineIndex);

/* ---- LMS filter states of integers -------------------------------------------------------------------------------
 * Alignment: of the elements.
 * States of adaptive filters whose steps are calls of their own. Taps h[0 .. tapsLen-1] have 32 bits: the upper 16 are
 * what filters, the lower 16 gather what adapts. The taps are dlyStep samples apart, and the samples that adapt them
 * lie updateDly behind those that they filter. The line has dlyLen = tapsLen * dlyStep + updateDly samples, a ring
 * whose oldest sample is pDlyLine[dlyLineIndex]. In SetDlyLine an index outside 0 .. dlyLen-1 is taken modulo dlyLen.
 *
 * InitAlloc takes the memory for a state in one block. Null pTaps are zeros, a null pDlyLine is a line of zeros; so too
 * in SetTaps and SetDlyLine. Taps are in natural order, h[0] being that of the newest sample, in InitAlloc, SetTaps and
 * GetTaps.
 * GetTapsPointer tells where the state keeps its taps, in the opposite order, until Free; they may be changed there.
 * SetMu replaces mu, which may be any number.
 * GetDlyVal reads the sample that lies updateDly + dlyStep - 1 + index places behind the oldest one in the ring.
 * Free gives the memory back. It tests no tag, and a null pState is fine.
 *
 * Statuses, in the order of the tests:
 *   InitAlloc       null ppState: orbStsNullPtrErr; tapsLen or dlyStep below 1: orbStsSizeErr; updateDly below 0:
 *                   orbStsBadArgErr; dlyLineIndex outside 0 .. dlyLen-1: orbStsSizeErr; no memory, or 2 GiB of it or
 *                   more: orbStsMemAllocErr. *ppState is then left as it was.
 *   GetTapsPointer  null pState or ppTaps: orbStsNullPtrErr. No tag is tested.
 *   others          any null pointer (but pTaps of SetTaps, pDlyLine of SetDlyLine): orbStsNullPtrErr; pState is not a
 *                   state of the member's type: orbStsContextMatchErr; GetDlyVal, index outside 0 .. dlyLen:
 *                   orbStsBadArgErr
 * A state belongs to one stream: no two calls may use it at a time. */
typedef struct OrbsFIRLMSMRState32s_16s OrbsFIRLMSMRState32s_16s;
typedef struct OrbsFIRLMSMRState32sc_16sc OrbsFIRLMSMRState32sc_16sc;
OrbStatus orbsFIRLMSMRInitAlloc32s_16s(OrbsFIRLMSMRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, const Orb16s* pDlyLine, int dlyLineIndex, int dlyStep, int updateDly, int mu);
OrbStatus orbsFIRLMSMRFree32s_16s(OrbsFIRLMSMRState32s_16s* pState);
OrbStatus orbsFIRLMSMRSetTaps32s_16s(OrbsFIRLMSMRState32s_16s* pState, const Orb32s* pTaps);
OrbStatus orbsFIRLMSMRGetTaps32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb32s* pTaps);
OrbStatus orbsFIRLMSMRGetTapsPointer32s_16s(OrbsFIRLMSMRState32s_16s* pState, Orb32s** ppTaps);
OrbStatus orbsFIRLMSMRSetMu32s_16s(OrbsFIRLMSMRState32s_16s* pState, int mu);
OrbStatus orbsFIRLMSMRSetDlyLine32s_16s(OrbsFIRLMSMRState32s_16s* pState, const Orb16s* pDlyLine, int dlyLineIndex);
OrbStatus orbsFIRLMSMRGetDlyLine32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb16s* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSMRGetDlyVal32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb16s* pVal, int index);
OrbStatus orbsFIRLMSMRInitAlloc32sc_16sc(OrbsFIRLMSMRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, const Orb16sc* pDlyLine, int dlyLineIndex, int dlyStep, int updateDly, int mu);
OrbStatus orbsFIRLMSMRFree32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState);
OrbStatus orbsFIRLMSMRSetTaps32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, const Orb32sc* pTaps);
OrbStatus orbsFIRLMSMRGetTaps32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb32sc* pTaps);
OrbStatus orbsFIRLMSMRGetTapsPointer32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, Orb32sc** ppTaps);
OrbStatus orbsFIRLMSMRSetMu32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, int mu);
OrbStatus orbsFIRLMSMRSetDlyLine32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, const Orb16sc* pDlyLine, int dlyLineIndex);
OrbStatus orbsFIRLMSMRGetDlyLine32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb16sc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIRLMSMRGetDlyVal32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb16sc* pVal, int index);

/* ---- FIRLMSMR ----------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The steps of an adaptive filter of integers. With x[0] the newest sample of the state's line, x[-k] that k before it:
 *   PutVal      val becomes the newest sample, the oldest one leaves the line.
 *   One         *pDstVal = sum over k = 0 .. tapsLen-1 of (h[k] >> 16) * x[-k * dlyStep]
 *   OneVal      PutVal, then One.
 *   UpdateTaps  h[k] = h[k] + d * x[-k * dlyStep - updateDly], d = (mu * errVal + 16384) >> 15
 * All in 32 bits that wrap; shifts are arithmetic. Complex members: products of complex numbers, and both parts of the
 * error, errRe and errIm, go through the same step to the parts of d; those of a tap are shifted each by itself.
 *
 * Statuses, in the order of the tests: null pState or pDstVal: orbStsNullPtrErr; pState is not a state of the member's
 * type: orbStsContextMatchErr. One state, one call at a time. */
OrbStatus orbsFIRLMSMRPutVal32s_16s(Orb16s val, OrbsFIRLMSMRState32s_16s* pState);
OrbStatus orbsFIRLMSMROne32s_16s(Orb32s* pDstVal, OrbsFIRLMSMRState32s_16s* pState);
OrbStatus orbsFIRLMSMROneVal32s_16s(Orb16s val, Orb32s* pDstVal, OrbsFIRLMSMRState32s_16s* pState);
OrbStatus orbsFIRLMSMRUpdateTaps32s_16s(Orb32s errVal, OrbsFIRLMSMRState32s_16s* pState);
OrbStatus orbsFIRLMSMRPutVal32sc_16sc(Orb16sc val, OrbsFIRLMSMRState32sc_16sc* pState);
OrbStatus orbsFIRLMSMROne32sc_16sc(Orb32sc* pDstVal, OrbsFIRLMSMRState32sc_16sc* pState);
OrbStatus orbsFIRLMSMROneVal32sc_16sc(Orb16sc val, Orb32sc* pDstVal, OrbsFIRLMSMRState32sc_16sc* pState);
OrbStatus orbsFIRLMSMRUpdateTaps32sc_16sc(Orb32s errRe, Orb32s errIm, OrbsFIRLMSMRState32sc_16sc* pState);

ORBS_DECLARATIONS_END

#endif
