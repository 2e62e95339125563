/* orbs/multirate.h: FIR filters that change the sampling rate. */
#ifndef ORBS_MULTIRATE_H
#define ORBS_MULTIRATE_H

#include "../orbdefs.h"
#include "fir.h"

ORBS_DECLARATIONS_BEGIN

/* ---- Multi-rate FIR filter states ----------------------------------------------------------------------------
 * Alignment: of the elements.
 * A multi-rate filter resamples by upFactor / downFactor: it puts upFactor - 1 zeros between the samples x of a stream,
 * filters with the taps h[0 .. tapsLen-1], and keeps every downFactor-th output. No zero is ever multiplied. In ticks
 * of the raised stream, counted from the start of a call, sample n comes at upPhase + n * upFactor and output m at
 * downPhase + m * downFactor. With behind = downPhase + m * downFactor - upPhase, newest = floor(behind / upFactor)
 * and p = behind - newest * upFactor:
 *
 *     y[m] = sum over j = 0, 1, .. with p + j * upFactor < tapsLen of h[p + j * upFactor] * x[newest - j]
 *
 * A call with numIters takes numIters * downFactor samples and makes numIters * upFactor outputs, so that the next call
 * begins alike. x[-1-i] is pDlyLine[i] of a delay line of (tapsLen + upFactor - 1) / upFactor samples, newest first.
 *
 * A state is made here, and used by the members of the single-rate family of the same pair of types: orbsFIR, its forms
 * in place, SetTaps, GetTaps, SetDlyLine, GetDlyLine and Free. orbsFIROne takes single-rate states alone. If both
 * factors are 1, the state is a single-rate one: size, Init and InitAlloc are those of the single-rate family.
 * Init builds a state in the caller's block, of any alignment. InitAlloc takes the memory itself, in one block. A null
 * pDlyLine means zeros. A state holds no address: its block may be copied, saved, or mapped elsewhere.
 *
 * Blocks (orbsFIR): each product is rounded to the type of the taps and added up in it: from the oldest sample to the
 * newest in _32f and _64f if downFactor is 1, else in 4, 8 or 16 interleaved sums that are folded in halves; how many
 * depends on the taps that an output has. Samples of another type are widened exactly; outputs are rounded to them,
 * scaled and saturated as those of single-rate filters. The bits do not depend on how a stream is cut into calls, nor
 * on thread count, alignment or processor. A sample that an output does not reach has no influence on it, be it an
 * infinity or NaN. A numIters above 1600 (complex: 800) is spread over threads. pSrc and pDst must not overlap.
 * In place: pSrcDst holds numIters * downFactor samples, and then numIters * upFactor outputs; nothing is written
 * behind the longer of the two, nor behind the last output. If upFactor is above downFactor a copy of the samples is
 * allocated for the call (no memory: orbStsMemAllocErr, and nothing is written); else nothing is.
 * orbsFIRMR_32f_I is orbsFIR_32f_I.
 *
 * GetStateSize: the bytes that Init needs at pBuffer, modulo 2^32; where the true number does not fit an int, Init and
 * InitAlloc give orbStsMemAllocErr. It depends on the density tapsLen / (tapsLen + 3 * downFactor), rounded to single
 * precision: the real members have one size above a density of 0.3 (upFactor 1: of 0.5), another one up to it, which is
 * also the one of the complex members.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize       null pBufferSize: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr; upFactor or downFactor
 *                      below 1: orbStsFIRMRFactorErr
 *   Init, InitAlloc    null ppState, pTaps or pBuffer: orbStsNullPtrErr; tapsLen and factors alike; upPhase not in 0 ..
 *                      upFactor-1 or downPhase not in 0 .. downFactor-1: orbStsFIRMRPhaseErr; no memory, or 2 GiB of it
 *                      or more: orbStsMemAllocErr. *ppState is then left as it was.
 *   orbsFIRMR_32f_I    null pSrcDst or pState: orbStsNullPtrErr; numIters below 1: orbStsSizeErr; pState is no state
 *                      of the type: orbStsContextMatchErr
 * Polyphase filters: R. E. Crochiere, L. R. Rabiner, Multirate Digital Signal Processing, chapter 3. */
OrbStatus orbsFIRMRGetStateSize_32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine);
OrbStatus orbsFIRMRGetStateSize_32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize32f_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine);
OrbStatus orbsFIRMRGetStateSize32fc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize_64f(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64f* pDlyLine);
OrbStatus orbsFIRMRGetStateSize_64fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64fc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64f_32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64fc_32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64f_32s(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32s* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64fc_32sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32sc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64f_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine);
OrbStatus orbsFIRMRGetStateSize64fc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine);
OrbStatus orbsFIRMR_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState_32f* pState);

/* ---- Multi-rate FIR without a state --------------------------------------------------------------------------
 * Alignment: of the elements.
 * The filter of orbsFIRMRInit over the caller's taps (natural order) and delay line of (tapsLen + upFactor - 1) /
 * upFactor samples, newest first, zeros at the start of a stream. pSrc holds numIters * downFactor samples, pDst
 * numIters * upFactor outputs, pSrcDst the more of both; the delay line is brought up to date. pSrc and pDst must not
 * overlap. A stream gives the same bits however it is cut into calls.
 *
 * Each product is rounded to the type of the taps. Sums are double, rounded once to float samples; for integer samples
 * they are of the type of the taps, multiplied by 2^-s, where s is scaleFactor with its magnitude taken modulo 128,
 * rounded to nearest with halves away from zero, and saturated; a NaN gives the lowest integer.
 * The forms in place allocate numIters * downFactor samples for the call, the others nothing.
 *
 * Statuses, in the order of the tests: null pSrc or pDst (pSrcDst): orbStsNullPtrErr; numIters below 1: orbStsSizeErr;
 * null pTaps: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr; upFactor or downFactor below 1: orbStsFIRMRFactorErr;
 * upPhase not in 0 .. upFactor-1 or downPhase not in 0 .. downFactor-1: orbStsFIRMRPhaseErr; null pDlyLine:
 * orbStsNullPtrErr; in place, no memory: orbStsMemAllocErr, and nothing is written. */
OrbStatus orbsFIRMR_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine);
OrbStatus orbsFIRMR_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine);
OrbStatus orbsFIRMR_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine);
OrbStatus orbsFIRMR_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine);
OrbStatus orbsFIRMR32f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR_Direct_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64f* pDlyLine);
OrbStatus orbsFIRMR_Direct_64f_I(Orb64f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64f* pDlyLine);
OrbStatus orbsFIRMR_Direct_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64fc* pDlyLine);
OrbStatus orbsFIRMR_Direct_64fc_I(Orb64fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64fc* pDlyLine);
OrbStatus orbsFIRMR64f_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine);
OrbStatus orbsFIRMR64f_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine);
OrbStatus orbsFIRMR64fc_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine);
OrbStatus orbsFIRMR64fc_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine);
OrbStatus orbsFIRMR64f_Direct_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64f_Direct_32s_ISfs(Orb32s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64fc_Direct_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64fc_Direct_32sc_ISfs(Orb32sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR64fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
