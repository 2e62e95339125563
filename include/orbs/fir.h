/* orbs/fir.h: FIR filters. */
#ifndef ORBS_FIR_H
#define ORBS_FIR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- FIR filter states ---------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * A state holds the taps h[0 .. tapsLen-1] and the last tapsLen samples of one stream x, and the calls of orbsFIR
 * give y[n] = sum over k of h[k] * x[n-k]. In the calls here a delay line is newest sample first:
 * pDlyLine[0] is x[n-1] for the next output y[n], pDlyLine[tapsLen-1] the oldest. Taps are in natural order.
 * Where a name tells two types, the first is that of the taps and of the arithmetic, the second that of the samples:
 * FIR64f_16s has taps of Orb64f and samples of Orb16s. _32s has integers for taps, too, and computes with doubles: its
 * states are those of 64f_32s.
 *
 * GetStateSize: the bytes that Init needs at pBuffer, for the thread count of the moment. The number is taken modulo
 * 2^32; where the true one does not fit an int, Init gives orbStsMemAllocErr.
 * Init builds a state in the caller's block, of any alignment; *ppState points into it. Such a state always filters
 * directly, and needs no Free.
 * InitAlloc takes the memory itself, aligned to 32 bytes, all of it in one block. From 64 single taps, 32 double ones
 * or 16 complex ones it adds an FFT of the smallest power of two above twice tapsLen, so that long blocks are filtered
 * by overlap-save.
 * Free releases what InitAlloc took and does nothing to a state in the caller's block.
 * SetTaps replaces the taps, and keeps the delay line. GetTaps returns them unchanged, bit for bit; GetTaps_32s of a
 * state that was made with doubles cuts them off toward zero, and -2^31 stands for what is no Orb32s.
 * SetDlyLine replaces the delay line, GetDlyLine reads it. A null pDlyLine means zeros in Init, InitAlloc and
 * SetDlyLine.
 * Multi-rate states, which FIRMRInit and FIRMRInitAlloc make, have the same SetTaps, GetTaps, SetDlyLine, GetDlyLine
 * and Free (but those of _32s, which take none): a delay line then has as many samples as that family tells.
 *
 * A state holds no address: its block may be copied, saved, or mapped elsewhere at an equal alignment to 32 bytes.
 * It belongs to one stream: no two calls may use it at a time. The thread count may change during its life; an
 * overlap-save runs on at most as many threads as there were when the state was made.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize               null pBufferSize: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr
 *   Init, InitAlloc            null ppState, pTaps or pBuffer: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr;
 *                              no memory, or 2 GiB of it or more: orbStsMemAllocErr; InitAlloc only, no memory to
 *                              prepare the FFT: orbStsNullPtrErr. *ppState is then left as it was.
 *   Free, SetTaps, GetTaps,    any null pointer (but pDlyLine of SetDlyLine): orbStsNullPtrErr; pState is not a state
 *   SetDlyLine, GetDlyLine     of the member's types: orbStsContextMatchErr. SetTaps_32s does not test the state: it
 *                              must be one. */
typedef struct OrbsFIRState_32f OrbsFIRState_32f;
typedef struct OrbsFIRState_32fc OrbsFIRState_32fc;
typedef struct OrbsFIRState32f_16s OrbsFIRState32f_16s;
typedef struct OrbsFIRState32fc_16sc OrbsFIRState32fc_16sc;
typedef struct OrbsFIRState_64f OrbsFIRState_64f;
typedef struct OrbsFIRState_64fc OrbsFIRState_64fc;
typedef struct OrbsFIRState64f_32f OrbsFIRState64f_32f;
typedef struct OrbsFIRState64fc_32fc OrbsFIRState64fc_32fc;
typedef struct OrbsFIRState64f_32s OrbsFIRState64f_32s;
typedef struct OrbsFIRState64fc_32sc OrbsFIRState64fc_32sc;
typedef struct OrbsFIRState64f_16s OrbsFIRState64f_16s;
typedef struct OrbsFIRState64fc_16sc OrbsFIRState64fc_16sc;
typedef OrbsFIRState64f_32s OrbsFIRState_32s;
OrbStatus orbsFIRGetStateSize_32f(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine);
OrbStatus orbsFIRFree_32f(OrbsFIRState_32f* pState);
OrbStatus orbsFIRSetTaps_32f(const Orb32f* pTaps, OrbsFIRState_32f* pState);
OrbStatus orbsFIRGetTaps_32f(const OrbsFIRState_32f* pState, Orb32f* pTaps);
OrbStatus orbsFIRSetDlyLine_32f(OrbsFIRState_32f* pState, const Orb32f* pDlyLine);
OrbStatus orbsFIRGetDlyLine_32f(const OrbsFIRState_32f* pState, Orb32f* pDlyLine);
OrbStatus orbsFIRGetStateSize_32fc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb32fc* pDlyLine);
OrbStatus orbsFIRFree_32fc(OrbsFIRState_32fc* pState);
OrbStatus orbsFIRSetTaps_32fc(const Orb32fc* pTaps, OrbsFIRState_32fc* pState);
OrbStatus orbsFIRGetTaps_32fc(const OrbsFIRState_32fc* pState, Orb32fc* pTaps);
OrbStatus orbsFIRSetDlyLine_32fc(OrbsFIRState_32fc* pState, const Orb32fc* pDlyLine);
OrbStatus orbsFIRGetDlyLine_32fc(const OrbsFIRState_32fc* pState, Orb32fc* pDlyLine);
OrbStatus orbsFIRGetStateSize32f_16s(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine);
OrbStatus orbsFIRFree32f_16s(OrbsFIRState32f_16s* pState);
OrbStatus orbsFIRSetTaps32f_16s(const Orb32f* pTaps, OrbsFIRState32f_16s* pState);
OrbStatus orbsFIRGetTaps32f_16s(const OrbsFIRState32f_16s* pState, Orb32f* pTaps);
OrbStatus orbsFIRSetDlyLine32f_16s(OrbsFIRState32f_16s* pState, const Orb16s* pDlyLine);
OrbStatus orbsFIRGetDlyLine32f_16s(const OrbsFIRState32f_16s* pState, Orb16s* pDlyLine);
OrbStatus orbsFIRGetStateSize32fc_16sc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine);
OrbStatus orbsFIRFree32fc_16sc(OrbsFIRState32fc_16sc* pState);
OrbStatus orbsFIRSetTaps32fc_16sc(const Orb32fc* pTaps, OrbsFIRState32fc_16sc* pState);
OrbStatus orbsFIRGetTaps32fc_16sc(const OrbsFIRState32fc_16sc* pState, Orb32fc* pTaps);
OrbStatus orbsFIRSetDlyLine32fc_16sc(OrbsFIRState32fc_16sc* pState, const Orb16sc* pDlyLine);
OrbStatus orbsFIRGetDlyLine32fc_16sc(const OrbsFIRState32fc_16sc* pState, Orb16sc* pDlyLine);
OrbStatus orbsFIRGetStateSize_64f(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, const Orb64f* pDlyLine);
OrbStatus orbsFIRFree_64f(OrbsFIRState_64f* pState);
OrbStatus orbsFIRSetTaps_64f(const Orb64f* pTaps, OrbsFIRState_64f* pState);
OrbStatus orbsFIRGetTaps_64f(const OrbsFIRState_64f* pState, Orb64f* pTaps);
OrbStatus orbsFIRSetDlyLine_64f(OrbsFIRState_64f* pState, const Orb64f* pDlyLine);
OrbStatus orbsFIRGetDlyLine_64f(const OrbsFIRState_64f* pState, Orb64f* pDlyLine);
OrbStatus orbsFIRGetStateSize_64fc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb64fc* pDlyLine);
OrbStatus orbsFIRFree_64fc(OrbsFIRState_64fc* pState);
OrbStatus orbsFIRSetTaps_64fc(const Orb64fc* pTaps, OrbsFIRState_64fc* pState);
OrbStatus orbsFIRGetTaps_64fc(const OrbsFIRState_64fc* pState, Orb64fc* pTaps);
OrbStatus orbsFIRSetDlyLine_64fc(OrbsFIRState_64fc* pState, const Orb64fc* pDlyLine);
OrbStatus orbsFIRGetDlyLine_64fc(const OrbsFIRState_64fc* pState, Orb64fc* pDlyLine);
OrbStatus orbsFIRGetStateSize64f_32f(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, const Orb32f* pDlyLine);
OrbStatus orbsFIRFree64f_32f(OrbsFIRState64f_32f* pState);
OrbStatus orbsFIRSetTaps64f_32f(const Orb64f* pTaps, OrbsFIRState64f_32f* pState);
OrbStatus orbsFIRGetTaps64f_32f(const OrbsFIRState64f_32f* pState, Orb64f* pTaps);
OrbStatus orbsFIRSetDlyLine64f_32f(OrbsFIRState64f_32f* pState, const Orb32f* pDlyLine);
OrbStatus orbsFIRGetDlyLine64f_32f(const OrbsFIRState64f_32f* pState, Orb32f* pDlyLine);
OrbStatus orbsFIRGetStateSize64fc_32fc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32fc* pDlyLine);
OrbStatus orbsFIRFree64fc_32fc(OrbsFIRState64fc_32fc* pState);
OrbStatus orbsFIRSetTaps64fc_32fc(const Orb64fc* pTaps, OrbsFIRState64fc_32fc* pState);
OrbStatus orbsFIRGetTaps64fc_32fc(const OrbsFIRState64fc_32fc* pState, Orb64fc* pTaps);
OrbStatus orbsFIRSetDlyLine64fc_32fc(OrbsFIRState64fc_32fc* pState, const Orb32fc* pDlyLine);
OrbStatus orbsFIRGetDlyLine64fc_32fc(const OrbsFIRState64fc_32fc* pState, Orb32fc* pDlyLine);
OrbStatus orbsFIRGetStateSize64f_32s(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, const Orb32s* pDlyLine);
OrbStatus orbsFIRFree64f_32s(OrbsFIRState64f_32s* pState);
OrbStatus orbsFIRSetTaps64f_32s(const Orb64f* pTaps, OrbsFIRState64f_32s* pState);
OrbStatus orbsFIRGetTaps64f_32s(const OrbsFIRState64f_32s* pState, Orb64f* pTaps);
OrbStatus orbsFIRSetDlyLine64f_32s(OrbsFIRState64f_32s* pState, const Orb32s* pDlyLine);
OrbStatus orbsFIRGetDlyLine64f_32s(const OrbsFIRState64f_32s* pState, Orb32s* pDlyLine);
OrbStatus orbsFIRGetStateSize64fc_32sc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32sc* pDlyLine);
OrbStatus orbsFIRFree64fc_32sc(OrbsFIRState64fc_32sc* pState);
OrbStatus orbsFIRSetTaps64fc_32sc(const Orb64fc* pTaps, OrbsFIRState64fc_32sc* pState);
OrbStatus orbsFIRGetTaps64fc_32sc(const OrbsFIRState64fc_32sc* pState, Orb64fc* pTaps);
OrbStatus orbsFIRSetDlyLine64fc_32sc(OrbsFIRState64fc_32sc* pState, const Orb32sc* pDlyLine);
OrbStatus orbsFIRGetDlyLine64fc_32sc(const OrbsFIRState64fc_32sc* pState, Orb32sc* pDlyLine);
OrbStatus orbsFIRGetStateSize64f_16s(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, const Orb16s* pDlyLine);
OrbStatus orbsFIRFree64f_16s(OrbsFIRState64f_16s* pState);
OrbStatus orbsFIRSetTaps64f_16s(const Orb64f* pTaps, OrbsFIRState64f_16s* pState);
OrbStatus orbsFIRGetTaps64f_16s(const OrbsFIRState64f_16s* pState, Orb64f* pTaps);
OrbStatus orbsFIRSetDlyLine64f_16s(OrbsFIRState64f_16s* pState, const Orb16s* pDlyLine);
OrbStatus orbsFIRGetDlyLine64f_16s(const OrbsFIRState64f_16s* pState, Orb16s* pDlyLine);
OrbStatus orbsFIRGetStateSize64fc_16sc(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb16sc* pDlyLine);
OrbStatus orbsFIRFree64fc_16sc(OrbsFIRState64fc_16sc* pState);
OrbStatus orbsFIRSetTaps64fc_16sc(const Orb64fc* pTaps, OrbsFIRState64fc_16sc* pState);
OrbStatus orbsFIRGetTaps64fc_16sc(const OrbsFIRState64fc_16sc* pState, Orb64fc* pTaps);
OrbStatus orbsFIRSetDlyLine64fc_16sc(OrbsFIRState64fc_16sc* pState, const Orb16sc* pDlyLine);
OrbStatus orbsFIRGetDlyLine64fc_16sc(const OrbsFIRState64fc_16sc* pState, Orb16sc* pDlyLine);
OrbStatus orbsFIRGetStateSize_32s(int tapsLen, int* pBufferSize);
OrbStatus orbsFIRInit_32s(OrbsFIRState_32s** ppState, const Orb32s* pTaps, int tapsLen, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRInitAlloc_32s(OrbsFIRState_32s** ppState, const Orb32s* pTaps, int tapsLen, const Orb32s* pDlyLine);
OrbStatus orbsFIRFree_32s(OrbsFIRState_32s* pState);
OrbStatus orbsFIRSetTaps_32s(const Orb32s* pTaps, OrbsFIRState_32s* pState);
OrbStatus orbsFIRGetTaps_32s(const OrbsFIRState_32s* pState, Orb32s* pTaps);
OrbStatus orbsFIRSetDlyLine_32s(OrbsFIRState_32s* pState, const Orb32s* pDlyLine);
OrbStatus orbsFIRGetDlyLine_32s(const OrbsFIRState_32s* pState, Orb32s* pDlyLine);

/* ---- FIR -----------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * pDst[n] = sum over k = 0 .. tapsLen-1 of h[k] * x[n-k] for the next numIters samples x = pSrc of the stream of a
 * state, whose delay line is brought up to date. orbsFIR_.._I: pSrcDst is replaced. orbsFIROne: one sample. Blocks of
 * any lengths and single samples may be mixed. pSrc and pDst must not overlap; the state is no part of either.
 *
 * Where samples are of another type than taps, they are widened exactly, filtered, and the outputs narrowed:
 *   to Orb32f         rounded in the caller's mode
 *   to integers       y[n] * 2^-scaleFactor, to nearest, ties to even, saturated; a NaN becomes the largest value. The
 *                     rounding mode is switched meanwhile if it is another. 2^-scaleFactor is that of
 *                     orbsConvert_32f16s_Sfs and orbsConvert_64f32s_Sfs: single precision, 0 above 149, infinity
 *                     below -127. In 64f_16s and 64fc_16sc it is the double with the exponent field 1023 - scaleFactor:
 *                     exact from -1023 to 1022, 0 at 1023; other scale factors mean nothing.
 *
 * A block goes one of two ways, which round differently:
 *   direct        y[n] is added up from the oldest sample to the newest in the type of the taps, each product
 *                 rounded first; complex outputs as the two sums of h.re * x and h.im * x. Its bits do not depend on
 *                 how the stream is cut into blocks.
 *   overlap-save  in a state with FFT, for blocks of more than 511 samples (complex: 255); the block is cut into runs
 *                 of fftLen - tapsLen + 1 outputs. The error of an output is of the order of log2(fftLen) epsilons
 *                 times the root of the energies of the taps and of the samples of its run. An infinity or NaN among
 *                 the samples spoils every output of its run.
 * The _I and _ISfs forms of one type for taps and samples cut a block into chunks of 4096; a chunk takes the
 * overlap-save way if more than 511 samples (complex: 255) are left behind it, so that the last chunk always goes
 * direct. Those of two types decide once for the whole block, by its length; what goes through the FFT is cut into
 * chunks of 8192, and each is filtered as a block of its own.
 * orbsFIROne adds up in the direct order for fewer than 12 taps, and in eight interleaved sums from 12 on, so that its
 * last bits may then differ from those of a block.
 * Blocks of more than 1600 samples (complex: 800) are spread over threads. The result does not depend on the thread
 * count, nor on alignment, nor on the processor. Nothing is allocated.
 *
 * A multi-rate state makes orbsFIR change the rate: what numIters then counts, orbs/multirate.h tells. orbsFIROne does
 * not take one, and the calls of _32s do not either: orbStsContextMatchErr.
 *
 * Statuses, in the order of the tests: null pState, pSrc or pDst (pSrcDst, pDstVal): orbStsNullPtrErr; numIters below
 * 1: orbStsSizeErr; pState is not a state of the member's types: orbStsContextMatchErr. One state, one call at a time.
 * Overlap-save: A. V. Oppenheim, R. W. Schafer, Discrete-Time Signal Processing, section on block convolution. */
OrbStatus orbsFIR_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, OrbsFIRState_32f* pState);
OrbStatus orbsFIR_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState_32f* pState);
OrbStatus orbsFIROne_32f(Orb32f src, Orb32f* pDstVal, OrbsFIRState_32f* pState);
OrbStatus orbsFIR_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, OrbsFIRState_32fc* pState);
OrbStatus orbsFIR_32fc_I(Orb32fc* pSrcDst, int numIters, OrbsFIRState_32fc* pState);
OrbStatus orbsFIROne_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsFIRState_32fc* pState);
OrbStatus orbsFIR32f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsFIR32f_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsFIROne32f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsFIR32fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR32fc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIROne32fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, OrbsFIRState_64f* pState);
OrbStatus orbsFIR_64f_I(Orb64f* pSrcDst, int numIters, OrbsFIRState_64f* pState);
OrbStatus orbsFIROne_64f(Orb64f src, Orb64f* pDstVal, OrbsFIRState_64f* pState);
OrbStatus orbsFIR_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, OrbsFIRState_64fc* pState);
OrbStatus orbsFIR_64fc_I(Orb64fc* pSrcDst, int numIters, OrbsFIRState_64fc* pState);
OrbStatus orbsFIROne_64fc(Orb64fc src, Orb64fc* pDstVal, OrbsFIRState_64fc* pState);
OrbStatus orbsFIR64f_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, OrbsFIRState64f_32f* pState);
OrbStatus orbsFIR64f_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState64f_32f* pState);
OrbStatus orbsFIROne64f_32f(Orb32f src, Orb32f* pDstVal, OrbsFIRState64f_32f* pState);
OrbStatus orbsFIR64fc_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, OrbsFIRState64fc_32fc* pState);
OrbStatus orbsFIR64fc_32fc_I(Orb32fc* pSrcDst, int numIters, OrbsFIRState64fc_32fc* pState);
OrbStatus orbsFIROne64fc_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsFIRState64fc_32fc* pState);
OrbStatus orbsFIR64f_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, OrbsFIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsFIR64f_32s_ISfs(Orb32s* pSrcDst, int numIters, OrbsFIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsFIROne64f_32s_Sfs(int src, Orb32s* pDstVal, OrbsFIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsFIR64fc_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, OrbsFIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsFIR64fc_32sc_ISfs(Orb32sc* pSrcDst, int numIters, OrbsFIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsFIROne64fc_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, OrbsFIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsFIR64f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsFIR64f_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsFIROne64f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsFIR64fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR64fc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIROne64fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsFIR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, OrbsFIRState_32s* pState, int scaleFactor);
OrbStatus orbsFIR_32s_ISfs(Orb32s* pSrcDst, int numIters, OrbsFIRState_32s* pState, int scaleFactor);
OrbStatus orbsFIROne_32s_Sfs(int src, Orb32s* pDstVal, OrbsFIRState_32s* pState, int scaleFactor);

/* ---- FIR without a state -------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The filter of orbsFIR over the caller's taps (natural order), delay line and position: pDlyLine has 2 * tapsLen
 * elements, the second half a copy of the first, zeros at the start of a stream; *pDlyLineIndex, 0 at the start, is the
 * place of the oldest sample. For each sample x: pDlyLine[index] = pDlyLine[index + tapsLen] = x; index = index + 1, at
 * tapsLen back to 0; and the output is the sum over k = 0 .. tapsLen-1 of pTaps[tapsLen-1-k] * pDlyLine[index+k], in
 * this order. pDst may be pSrc. orbsFIROne_Direct: one sample; a block gives the same bits as its samples one by one.
 *
 * Products are rounded to the type of the taps. Sums are Orb64f, converted once at the end, so that _32f and _32fc are
 * more exact than the calls with a state; but 32f_Direct_16s and 32fc_Direct_16sc add up in Orb32f. Complex outputs
 * come from the sums of h.re * x and h.im * x.
 * Outputs of integer types are the sum times 2^-scaleFactor, the magnitude of the scale factor taken modulo 128 (in
 * 32f_Direct_16s and 32fc_Direct_16sc in single precision, where 127 gives 0), saturated, halves rounded away from
 * zero; a NaN becomes the lowest value.
 * The position is not tested: one outside 0 .. tapsLen-1 is taken as 0, without a word.
 *
 * Statuses, in the order of the tests: null pSrc or pDst (pSrcDst, pDstVal): orbStsNullPtrErr; numIters below 1:
 * orbStsSizeErr; null pTaps: orbStsNullPtrErr; tapsLen below 1: orbStsFIRLenErr; null pDlyLine or pDlyLineIndex:
 * orbStsNullPtrErr. Any number of threads may call these on different delay lines. */
OrbStatus orbsFIR_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_32f(Orb32f src, Orb32f* pDstVal, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_32f_I(Orb32f* pSrcDstVal, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_32fc(Orb32fc src, Orb32fc* pDstVal, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_32fc_I(Orb32fc* pSrcDstVal, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR32f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32f_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32f_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR32fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32fc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne32fc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR_Direct_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_64f_I(Orb64f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_64f(Orb64f src, Orb64f* pDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_64f_I(Orb64f* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR_Direct_64fc_I(Orb64fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_64fc(Orb64fc src, Orb64fc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne_Direct_64fc_I(Orb64fc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR64f_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR64f_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne64f_Direct_32f(Orb32f src, Orb32f* pDstVal, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne64f_Direct_32f_I(Orb32f* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR64fc_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR64fc_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne64fc_Direct_32fc(Orb32fc src, Orb32fc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIROne64fc_Direct_32fc_I(Orb32fc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex);
OrbStatus orbsFIR64f_Direct_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64f_Direct_32s_ISfs(Orb32s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64f_Direct_32s_Sfs(int src, Orb32s* pDstVal, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64f_Direct_32s_ISfs(Orb32s* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64fc_Direct_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64fc_Direct_32sc_ISfs(Orb32sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64fc_Direct_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64fc_Direct_32sc_ISfs(Orb32sc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64f_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64f_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIR64fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64fc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
OrbStatus orbsFIROne64fc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
