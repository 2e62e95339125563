/* orbs/fixedfir.h: FIR filters with 16-bit taps. */
#ifndef ORBS_FIXEDFIR_H
#define ORBS_FIXEDFIR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- FIR filter states with 16-bit taps ----------------------------------------------------------------------
 * Alignment: of the elements.
 * A state holds the taps h[0 .. tapsLen-1] as 16-bit integers with one power of two, h[k] * 2^factor, and the last
 * tapsLen samples of one stream x, for the calls of orbsFIR32s_16s_Sfs and its like. In the calls here a delay line is
 * newest sample first: pDlyLine[0] is x[n-1] for the next output y[n], pDlyLine[tapsLen-1] the oldest. Taps are in
 * natural order.
 *
 * 32s_16s, 32sc_16sc: taps of 32 bits, meant as pTaps[k] * 2^tapsFactor. With m their largest magnitude (parts of
 * complex taps count for themselves; -2^31 has the magnitude 2^31), all are shifted right until m does not exceed
 * 32766, the bits shifted out being dropped (-1 stays -1), and the shift is added to the factor, in 32 bits that wrap.
 * GetTaps returns the taps and the factor that are left.
 * 32s_16s32f, 32sc_16sc32fc: float taps. All are multiplied by the power of two that brings the largest magnitude to
 * at most 32767 and above 16383, and rounded to nearest, halves away from zero. GetTaps returns h[k] * 2^factor in
 * single precision, the factor modulo 128 (the remainder has the sign of the factor; 2^-127 counts as 0). Taps of
 * which none is above zero in magnitude get the factor -32, those with an infinity 32, where infinities become 32767
 * or -32767; a NaN becomes 0 and has no part in choosing the factor.
 * The states of both are of one type, and any of these functions takes a state that the other has made.
 *
 * GetStateSize: the bytes that Init needs at pBuffer. The number is taken modulo 2^32; where the true one does not fit
 * an int, Init gives orbStsMemAllocErr.
 * Init builds a state in the caller's block, of any alignment; *ppState points into it. Such a state needs no Free.
 * InitAlloc takes the memory itself, aligned to 32 bytes, all of it in one block. Free releases what InitAlloc took
 * and does nothing to a state in the caller's block.
 * SetTaps replaces the taps and their factor, and keeps the delay line. SetDlyLine replaces the delay line, GetDlyLine
 * reads it. A null pDlyLine means zeros in Init, InitAlloc and SetDlyLine.
 *
 * A state holds no address: its block may be copied, saved, or mapped elsewhere at an equal alignment to 16 bytes. It
 * belongs to one stream: no two calls may use it at a time.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize               null pBufferSize: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr
 *   Init, InitAlloc            null ppState, pTaps or pBuffer: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr;
 *                              no memory, or 2 GiB of it or more: orbStsMemAllocErr. *ppState is then left as it was.
 *   Free, SetTaps, GetTaps,    any null pointer (but pDlyLine of SetDlyLine): orbStsNullPtrErr; pState is not a state
 *   SetDlyLine, GetDlyLine     of the member's type, single- or multi-rate: orbStsContextMatchErr */
typedef struct OrbsFIRState32s_16s OrbsFIRState32s_16s;
typedef struct OrbsFIRState32sc_16sc OrbsFIRState32sc_16sc;
OrbStatus orbsFIRGetStateSize32s_16s(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, const Orb16s* pDlyLine);
OrbStatus orbsFIRFree32s_16s(OrbsFIRState32s_16s* pState);
OrbStatus orbsFIRSetTaps32s_16s(const Orb32s* pTaps, OrbsFIRState32s_16s* pState, int tapsFactor);
OrbStatus orbsFIRGetTaps32s_16s(const OrbsFIRState32s_16s* pState, Orb32s* pTaps, int* pTapsFactor);
OrbStatus orbsFIRSetDlyLine32s_16s(OrbsFIRState32s_16s* pState, const Orb16s* pDlyLine);
OrbStatus orbsFIRGetDlyLine32s_16s(const OrbsFIRState32s_16s* pState, Orb16s* pDlyLine);
OrbStatus orbsFIRGetStateSize32sc_16sc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, const Orb16sc* pDlyLine);
OrbStatus orbsFIRFree32sc_16sc(OrbsFIRState32sc_16sc* pState);
OrbStatus orbsFIRSetTaps32sc_16sc(const Orb32sc* pTaps, OrbsFIRState32sc_16sc* pState, int tapsFactor);
OrbStatus orbsFIRGetTaps32sc_16sc(const OrbsFIRState32sc_16sc* pState, Orb32sc* pTaps, int* pTapsFactor);
OrbStatus orbsFIRSetDlyLine32sc_16sc(OrbsFIRState32sc_16sc* pState, const Orb16sc* pDlyLine);
OrbStatus orbsFIRGetDlyLine32sc_16sc(const OrbsFIRState32sc_16sc* pState, Orb16sc* pDlyLine);
OrbStatus orbsFIRGetStateSize32s_16s32f(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine);
OrbStatus orbsFIRFree32s_16s32f(OrbsFIRState32s_16s* pState);
OrbStatus orbsFIRSetTaps32s_16s32f(const Orb32f* pTaps, OrbsFIRState32s_16s* pState);
OrbStatus orbsFIRGetTaps32s_16s32f(const OrbsFIRState32s_16s* pState, Orb32f* pTaps);
OrbStatus orbsFIRSetDlyLine32s_16s32f(OrbsFIRState32s_16s* pState, const Orb16s* pDlyLine);
OrbStatus orbsFIRGetDlyLine32s_16s32f(const OrbsFIRState32s_16s* pState, Orb16s* pDlyLine);
OrbStatus orbsFIRGetStateSize32sc_16sc32fc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine);
OrbStatus orbsFIRFree32sc_16sc32fc(OrbsFIRState32sc_16sc* pState);
OrbStatus orbsFIRSetTaps32sc_16sc32fc(const Orb32fc* pTaps, OrbsFIRState32sc_16sc* pState);
OrbStatus orbsFIRGetTaps32sc_16sc32fc(const OrbsFIRState32sc_16sc* pState, Orb32fc* pTaps);
OrbStatus orbsFIRSetDlyLine32sc_16sc32fc(OrbsFIRState32sc_16sc* pState, const Orb16sc* pDlyLine);
OrbStatus orbsFIRGetDlyLine32sc_16sc32fc(const OrbsFIRState32sc_16sc* pState, Orb16sc* pDlyLine);

/* ---- Multi-rate FIR filter states with 16-bit taps -----------------------------------------------------------
 * Alignment: of the elements.
 * States of filters that change the sampling rate by upFactor / downFactor: upFactor - 1 zeros go between the samples,
 * the taps filter that stream, and of every downFactor values one is kept. With U, D the factors, output m of a call
 * is the sum over j of h[p + j*U] * x[n-j], where t = downPhase + m*D - upPhase, n = floor(t / U), p = t - n*U, and
 * x[-1] is the newest sample of the delay line. This line has ceil(tapsLen / U) samples, in Init, InitAlloc and in
 * SetDlyLine and GetDlyLine of the single-rate states (orbsFIRInit32s_16s), whose other functions also work on these.
 *
 * Integer taps are treated as there. Float taps (32s_16s32f, 32sc_16sc32fc) become 32-bit integers first, as there but
 * with a factor from -32 to 32: larger ones end at the limits of 32 bits; and these are then treated as taps of
 * 32s_16s, so that a largest tap of 32767 is shifted once more. SetTaps does the same to a state of this kind.
 * With both factors 1 the state is a single-rate one, made of the same taps.
 * GetStateSize and the other rules are as of single-rate states.
 *
 * Statuses, in the order of the tests: null pBufferSize; ppState, pTaps or pBuffer: orbStsNullPtrErr; tapsLen below 1:
 * orbStsFIRLenErr; upFactor or downFactor below 1: orbStsFIRMRFactorErr; upPhase outside 0 .. upFactor-1 or downPhase
 * outside 0 .. downFactor-1: orbStsFIRMRPhaseErr; no memory, or 2 GiB of it or more: orbStsMemAllocErr. */
OrbStatus orbsFIRMRGetStateSize32s_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine);
OrbStatus orbsFIRMRGetStateSize32sc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine);
OrbStatus orbsFIRMRGetStateSize32s_16s32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine);
OrbStatus orbsFIRMRGetStateSize32sc_16sc32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize);
OrbStatus orbsFIRMRInit32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRMRInitAlloc32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine);

/* ---- FIR with 16-bit taps ------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The outputs for the next numIters samples x = pSrc of the stream of a state, whose delay line is brought up to date:
 * pDst[n] = 2^-s * (sum over k = 0 .. tapsLen-1 of h[k] * x[n-k]), h being the 16-bit taps of the state, and
 * s = scaleFactor - factor. A state of the multi-rate kind takes numIters * downFactor samples and gives
 * numIters * upFactor outputs, as orbsFIRMRInit32s_16s tells.
 *
 * The sum is kept in 32 bits and wraps, without a word, as do the parts of a complex one. For s > 0 it is rounded to
 * nearest, ties to even: ((sum + 2^(s-1) - 1 + (sum >> s & 1)) >> s), the additions wrapping in 32 bits and s counting
 * as 31 at most; for s < 0 it is shifted left, and what leaves 32 bits is lost, all of it from s = -32 on. At the end
 * it is saturated to 16 bits. The difference of the factors is exact.
 *
 * .._ISfs: pSrcDst is replaced. Of the multi-rate kind it holds the samples and then the outputs, and must have room
 * for the more of them; real filters, and complex ones with upFactor above downFactor, then take memory for a copy of
 * the samples; orbsFIRMR32s_16s_ISfs is the same, and takes memory for a state of either kind. Else nothing is
 * allocated.
 * orbsFIROne: one sample, of single-rate states only. Blocks of any lengths and single samples may be mixed, and give
 * the same bits however a stream is cut. pSrc and pDst must not overlap; the state is no part of either.
 *
 * Statuses, in the order of the tests: null pState, pSrc or pDst (pSrcDst, pDstVal): orbStsNullPtrErr; numIters below
 * 1: orbStsSizeErr; pState is not a state of the member's type and kind: orbStsContextMatchErr; no memory for a copy:
 * orbStsMemAllocErr, before anything is written. One state, one call at a time. */
OrbStatus orbsFIR32s_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIR32s_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIROne32s_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIR32sc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR32sc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIROne32sc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR32s_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIR32s_16s32f_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIROne32s_16s32f_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsFIR32sc_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR32sc_16sc32fc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIROne32sc_16sc32fc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsFIRMR32s_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor);

/* ---- FIR with integer taps without a state -------------------------------------------------------------------
 * Alignment: of the elements.
 * FIR32s_Direct, FIR32sc_Direct: the filter over the caller's taps (32 bits, natural order, all of these bits), delay
 * line and position. pDlyLine has 2 * tapsLen elements, the second half a copy of the first, zeros at the start of a
 * stream; *pDlyLineIndex, 0 at the start, is the place of the oldest sample. For each sample x: pDlyLine[index] =
 * pDlyLine[index + tapsLen] = x; index = index + 1, at tapsLen back to 0; and the output is 2^-s times the sum over k
 * = 0 .. tapsLen-1 of pTaps[tapsLen-1-k] * pDlyLine[index+k], with s = scaleFactor - tapsFactor, -31 at least and 31
 * at most. Products and sum are kept in 32 bits and wrap; rounding, shifts and saturation as in orbsFIR32s_16s_Sfs.
 * pDst may be pSrc. A block gives the same bits as its samples one by one. A position outside 0 .. tapsLen-1 is taken
 * as 0, without a word.
 *
 * FIR_Direct_16s: taps of 16 bits, 2^15 counting as 1. A block goes through a state made of them with the factor -15:
 * see orbsFIRInit32s_16s for what becomes of taps if one is 32767 or -32768 (all lose a bit). The line
 * is read from pDlyLine[*pDlyLineIndex] on, tapsLen samples, newest first; afterwards *pDlyLineIndex is 0, and the
 * line stands at pDlyLine[0] and on, newest first again. That is enough for a stream of blocks that starts at position
 * 0.
 * FIROne_Direct_16s steps through a line of 2 * tapsLen elements as told for FIR32s_Direct, which is another order:
 * blocks and single samples do not continue each other's lines. Its taps keep all bits, and s = scaleFactor + 15.
 *
 * Statuses, in the order of the tests: null pSrc or pDst (pSrcDst, pDstVal): orbStsNullPtrErr; numIters below 1:
 * orbStsSizeErr; null pTaps (pTapsQ15): orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr; null pDlyLine or
 * pDlyLineIndex: orbStsNullPtrErr; .._Direct_16s only, *pDlyLineIndex outside 0 .. tapsLen-1: orbStsDlyLineIndexErr;
 * blocks of FIR_Direct_16s only, no memory for the state: orbStsMemAllocErr, before anything is written. Any number of
 * threads may call these on different delay lines. */
OrbStatus orbsFIR32s_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32s_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32s_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32s_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32sc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32sc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32sc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32sc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);

/* ---- Multi-rate FIR with integer taps without a state --------------------------------------------------------
 * Alignment: of the elements.
 * numIters * downFactor samples x = pSrc become numIters * upFactor outputs: output m is 2^-s times the sum over j of
 * h[p + j*U] * x[n-j], with t = downPhase + m*D - upPhase, n = floor(t / U), p = t - n*U, U and D the factors, and
 * x[-1-i] = pDlyLine[i], a line of ceil(tapsLen / U) samples, newest first, that is brought up to date.
 * 32s_Direct_16s, 32sc_Direct_16sc: h = pTaps, all 32 bits, and s = scaleFactor - tapsFactor, -31 at least and 31 at
 * most.
 * 32s_Direct_16s32f, 32sc_Direct_16sc32fc: the same of float taps, which become 32-bit integers and a tapsFactor as
 * told for orbsFIRMRInit32s_16s32f, but are not shifted further.
 * Products and sum are kept in 32 bits and wrap; rounding, shifts and saturation as in orbsFIR32s_16s_Sfs. pSrc and
 * pDst must not overlap; .._ISfs: pSrcDst holds the samples and then the outputs, and must have room for the more of
 * them.
 *
 * Statuses, in the order of the tests: null pSrc or pDst (pSrcDst): orbStsNullPtrErr; numIters below 1: orbStsSizeErr;
 * null pTaps: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr; upFactor or downFactor below 1:
 * orbStsFIRMRFactorErr; upPhase outside 0 .. upFactor-1 or downPhase outside 0 .. downFactor-1: orbStsFIRMRPhaseErr;
 * null pDlyLine: orbStsNullPtrErr; .._ISfs, no memory for a copy of the samples: orbStsMemAllocErr, before anything is
 * written. Any number of threads may call these on different delay lines. */
OrbStatus orbsFIRMR32s_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32s_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32sc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32sc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32s_Direct_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32s_Direct_16s32f_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32sc_Direct_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);
OrbStatus orbsFIRMR32sc_Direct_16sc32fc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
