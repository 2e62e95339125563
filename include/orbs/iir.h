/* orbs/iir.h: IIR filters. */
#ifndef ORBS_IIR_H
#define ORBS_IIR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- IIR filter states ---------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * A state holds the taps and the delay line of one recursive filter over one stream, in one of two structures; every
 * call takes either. Names tell the types of taps and samples: 64f_16s filters Orb16s with taps of Orb64f. All
 * arithmetic is done in the type of the taps.
 *
 *   one filter of any order   y[n] = sum over k = 0 .. order of b[k] * x[n-k] less that over k = 1 .. order of
 *                             a[k] * y[n-k];
 *                             pTaps: b[0] .. b[order], a[0] .. a[order], 2 * order + 2 values
 *   BiQuad                    numBq such sections of order 2, each fed by the one before it;
 *                             pTaps: b0, b1, b2, a0, a1, a2 of each section, 6 * numBq values
 *
 * Taps are multiplied by 1 / a[0], which is rounded once. The delay line holds the partial sums of the transposed
 * direct form II: for a sample x, y = b[0] * x + D[0], then D[i] = b[i+1] * x - a[i+1] * y + D[i+1], with 0 for
 * D[order]. It has `order` values, or 2 * numBq, those of a section next to each other; pDlyLine gives and takes them
 * in this order. A null pDlyLine means zeros in Init, InitAlloc and SetDlyLine.
 *
 * GetStateSize: the bytes that Init needs at pBuffer. The number is taken modulo 2^32; where the true one does not fit
 * an int, Init and InitAlloc give orbStsMemAllocErr.
 * Init builds a state in the caller's block, of any alignment; *ppState points into it. Such a state needs no Free.
 * InitAlloc takes the memory itself. Free releases what InitAlloc took and does nothing to a state in the caller's
 * block.
 * SetTaps replaces the taps, and keeps the delay line. If it refuses a section of a BiQuad state, the sections before
 * that one are already replaced.
 *
 * A state holds no address: its block may be copied, saved, or mapped elsewhere at an equal alignment to 16 bytes.
 * It belongs to one stream: no two calls may use it at a time.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize           null pBufferSize: orbStsNullPtrErr; order or numBq below 1: orbStsIIROrderErr
 *   Init, InitAlloc        null pTaps, ppState or pBuffer: orbStsNullPtrErr; order or numBq below 1: orbStsIIROrderErr;
 *                          no memory, or 2 GiB of it or more: orbStsMemAllocErr; an a[0] of 0, or with a NaN in it:
 *                          orbStsDivByZeroErr, and in BiQuad a b0 of 0 or NaN too. *ppState is then left as it was.
 *   SetTaps                null pTaps or pState: orbStsNullPtrErr; pState is not a state of the member's type:
 *                          orbStsContextMatchErr; a[0] and b0 as above: orbStsDivByZeroErr
 *   Free, GetDlyLine,      any null pointer (but pDlyLine of SetDlyLine): orbStsNullPtrErr; pState is not a state of
 *   SetDlyLine             the member's type: orbStsContextMatchErr */
typedef struct OrbsIIRState_32f OrbsIIRState_32f;
typedef struct OrbsIIRState_32fc OrbsIIRState_32fc;
typedef struct OrbsIIRState32f_16s OrbsIIRState32f_16s;
typedef struct OrbsIIRState32fc_16sc OrbsIIRState32fc_16sc;
typedef struct OrbsIIRState_64f OrbsIIRState_64f;
typedef struct OrbsIIRState_64fc OrbsIIRState_64fc;
typedef struct OrbsIIRState64f_32f OrbsIIRState64f_32f;
typedef struct OrbsIIRState64fc_32fc OrbsIIRState64fc_32fc;
typedef struct OrbsIIRState64f_32s OrbsIIRState64f_32s;
typedef struct OrbsIIRState64fc_32sc OrbsIIRState64fc_32sc;
typedef struct OrbsIIRState64f_16s OrbsIIRState64f_16s;
typedef struct OrbsIIRState64fc_16sc OrbsIIRState64fc_16sc;
OrbStatus orbsIIRGetStateSize_32f(int order, int* pBufferSize);
OrbStatus orbsIIRInit_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine);
OrbStatus orbsIIRGetStateSize_BiQuad_32f(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit_BiQuad_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_BiQuad_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine);
OrbStatus orbsIIRFree_32f(OrbsIIRState_32f* pState);
OrbStatus orbsIIRSetTaps_32f(const Orb32f* pTaps, OrbsIIRState_32f* pState);
OrbStatus orbsIIRGetDlyLine_32f(const OrbsIIRState_32f* pState, Orb32f* pDlyLine);
OrbStatus orbsIIRSetDlyLine_32f(OrbsIIRState_32f* pState, const Orb32f* pDlyLine);
OrbStatus orbsIIRGetStateSize_32fc(int order, int* pBufferSize);
OrbStatus orbsIIRInit_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine);
OrbStatus orbsIIRGetStateSize_BiQuad_32fc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit_BiQuad_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_BiQuad_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine);
OrbStatus orbsIIRFree_32fc(OrbsIIRState_32fc* pState);
OrbStatus orbsIIRSetTaps_32fc(const Orb32fc* pTaps, OrbsIIRState_32fc* pState);
OrbStatus orbsIIRGetDlyLine_32fc(const OrbsIIRState_32fc* pState, Orb32fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine_32fc(OrbsIIRState_32fc* pState, const Orb32fc* pDlyLine);
OrbStatus orbsIIRGetStateSize32f_16s(int order, int* pBufferSize);
OrbStatus orbsIIRInit32f_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32f_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine);
OrbStatus orbsIIRGetStateSize32f_BiQuad_16s(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit32f_BiQuad_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32f_BiQuad_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine);
OrbStatus orbsIIRFree32f_16s(OrbsIIRState32f_16s* pState);
OrbStatus orbsIIRSetTaps32f_16s(const Orb32f* pTaps, OrbsIIRState32f_16s* pState);
OrbStatus orbsIIRGetDlyLine32f_16s(const OrbsIIRState32f_16s* pState, Orb32f* pDlyLine);
OrbStatus orbsIIRSetDlyLine32f_16s(OrbsIIRState32f_16s* pState, const Orb32f* pDlyLine);
OrbStatus orbsIIRGetStateSize32fc_16sc(int order, int* pBufferSize);
OrbStatus orbsIIRInit32fc_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32fc_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine);
OrbStatus orbsIIRGetStateSize32fc_BiQuad_16sc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit32fc_BiQuad_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32fc_BiQuad_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine);
OrbStatus orbsIIRFree32fc_16sc(OrbsIIRState32fc_16sc* pState);
OrbStatus orbsIIRSetTaps32fc_16sc(const Orb32fc* pTaps, OrbsIIRState32fc_16sc* pState);
OrbStatus orbsIIRGetDlyLine32fc_16sc(const OrbsIIRState32fc_16sc* pState, Orb32fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine32fc_16sc(OrbsIIRState32fc_16sc* pState, const Orb32fc* pDlyLine);
OrbStatus orbsIIRGetStateSize_64f(int order, int* pBufferSize);
OrbStatus orbsIIRInit_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize_BiQuad_64f(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit_BiQuad_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_BiQuad_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine);
OrbStatus orbsIIRFree_64f(OrbsIIRState_64f* pState);
OrbStatus orbsIIRSetTaps_64f(const Orb64f* pTaps, OrbsIIRState_64f* pState);
OrbStatus orbsIIRGetDlyLine_64f(const OrbsIIRState_64f* pState, Orb64f* pDlyLine);
OrbStatus orbsIIRSetDlyLine_64f(OrbsIIRState_64f* pState, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize_64fc(int order, int* pBufferSize);
OrbStatus orbsIIRInit_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize_BiQuad_64fc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit_BiQuad_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc_BiQuad_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine);
OrbStatus orbsIIRFree_64fc(OrbsIIRState_64fc* pState);
OrbStatus orbsIIRSetTaps_64fc(const Orb64fc* pTaps, OrbsIIRState_64fc* pState);
OrbStatus orbsIIRGetDlyLine_64fc(const OrbsIIRState_64fc* pState, Orb64fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine_64fc(OrbsIIRState_64fc* pState, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_32f(int order, int* pBufferSize);
OrbStatus orbsIIRInit64f_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_BiQuad_32f(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64f_BiQuad_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_BiQuad_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine);
OrbStatus orbsIIRFree64f_32f(OrbsIIRState64f_32f* pState);
OrbStatus orbsIIRSetTaps64f_32f(const Orb64f* pTaps, OrbsIIRState64f_32f* pState);
OrbStatus orbsIIRGetDlyLine64f_32f(const OrbsIIRState64f_32f* pState, Orb64f* pDlyLine);
OrbStatus orbsIIRSetDlyLine64f_32f(OrbsIIRState64f_32f* pState, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_32fc(int order, int* pBufferSize);
OrbStatus orbsIIRInit64fc_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_BiQuad_32fc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64fc_BiQuad_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_BiQuad_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine);
OrbStatus orbsIIRFree64fc_32fc(OrbsIIRState64fc_32fc* pState);
OrbStatus orbsIIRSetTaps64fc_32fc(const Orb64fc* pTaps, OrbsIIRState64fc_32fc* pState);
OrbStatus orbsIIRGetDlyLine64fc_32fc(const OrbsIIRState64fc_32fc* pState, Orb64fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine64fc_32fc(OrbsIIRState64fc_32fc* pState, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_32s(int order, int* pBufferSize);
OrbStatus orbsIIRInit64f_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_BiQuad_32s(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64f_BiQuad_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_BiQuad_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine);
OrbStatus orbsIIRFree64f_32s(OrbsIIRState64f_32s* pState);
OrbStatus orbsIIRSetTaps64f_32s(const Orb64f* pTaps, OrbsIIRState64f_32s* pState);
OrbStatus orbsIIRGetDlyLine64f_32s(const OrbsIIRState64f_32s* pState, Orb64f* pDlyLine);
OrbStatus orbsIIRSetDlyLine64f_32s(OrbsIIRState64f_32s* pState, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_32sc(int order, int* pBufferSize);
OrbStatus orbsIIRInit64fc_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_BiQuad_32sc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64fc_BiQuad_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_BiQuad_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine);
OrbStatus orbsIIRFree64fc_32sc(OrbsIIRState64fc_32sc* pState);
OrbStatus orbsIIRSetTaps64fc_32sc(const Orb64fc* pTaps, OrbsIIRState64fc_32sc* pState);
OrbStatus orbsIIRGetDlyLine64fc_32sc(const OrbsIIRState64fc_32sc* pState, Orb64fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine64fc_32sc(OrbsIIRState64fc_32sc* pState, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_16s(int order, int* pBufferSize);
OrbStatus orbsIIRInit64f_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64f_BiQuad_16s(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64f_BiQuad_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64f_BiQuad_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine);
OrbStatus orbsIIRFree64f_16s(OrbsIIRState64f_16s* pState);
OrbStatus orbsIIRSetTaps64f_16s(const Orb64f* pTaps, OrbsIIRState64f_16s* pState);
OrbStatus orbsIIRGetDlyLine64f_16s(const OrbsIIRState64f_16s* pState, Orb64f* pDlyLine);
OrbStatus orbsIIRSetDlyLine64f_16s(OrbsIIRState64f_16s* pState, const Orb64f* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_16sc(int order, int* pBufferSize);
OrbStatus orbsIIRInit64fc_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine);
OrbStatus orbsIIRGetStateSize64fc_BiQuad_16sc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit64fc_BiQuad_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc64fc_BiQuad_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine);
OrbStatus orbsIIRFree64fc_16sc(OrbsIIRState64fc_16sc* pState);
OrbStatus orbsIIRSetTaps64fc_16sc(const Orb64fc* pTaps, OrbsIIRState64fc_16sc* pState);
OrbStatus orbsIIRGetDlyLine64fc_16sc(const OrbsIIRState64fc_16sc* pState, Orb64fc* pDlyLine);
OrbStatus orbsIIRSetDlyLine64fc_16sc(OrbsIIRState64fc_16sc* pState, const Orb64fc* pDlyLine);

/* ---- IIR filter states with integer taps ---------------------------------------------------------------------
 * Alignment: of the elements.
 * States as of orbsIIRInit for samples of 16 bits, with taps in Orb32s that count 2^-tapsFactor each; they are converted
 * to Orb32f as orbsConvert_32s32f_Sfs does, and all arithmetic is done in Orb32f. The forms ..16s32f and ..16sc32fc take
 * Orb32f taps for a state of the same type: 32s_16s and 32s_16s32f share objects and every call but Init, InitAlloc
 * and SetTaps, and so do 32sc_16sc and 32sc_16sc32fc.
 *
 * The delay line is given and taken as the 32-bit words that the state holds, which are the bits of Orb32f: what
 * GetDlyLine gives, Init, InitAlloc and SetDlyLine take back without loss, but its numbers mean nothing as Orb32s.
 *
 * SetTaps32s_16s always reports orbStsContextMatchErr: over a state of this type the taps are replaced nonetheless,
 * unless an a[0] (or b0 in BiQuad) is 0, which is not reported; over anything else nothing is changed.
 * SetTaps32sc_16sc and SetTaps32sc_16sc32fc change nothing over a state of their own type, and report
 * orbStsContextMatchErr: taps of these states are replaced by building them anew.
 *
 * Statuses, in the order of the tests: as of orbsIIRInit; in Init32s and InitAlloc32s with Orb32s taps also no memory
 * for the converted taps: orbStsMemAllocErr, before anything is tested in them. SetTaps32s_16s: null pTaps or pState:
 * orbStsNullPtrErr; no memory: orbStsMemAllocErr; else orbStsContextMatchErr. */
typedef struct OrbsIIRState32s_16s OrbsIIRState32s_16s;
typedef struct OrbsIIRState32sc_16sc OrbsIIRState32sc_16sc;
OrbStatus orbsIIRGetStateSize32s_16s(int order, int* pBufferSize);
OrbStatus orbsIIRInit32s_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int order, int tapsFactor, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32s_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int order, int tapsFactor, const Orb32s* pDlyLine);
OrbStatus orbsIIRGetStateSize32s_BiQuad_16s(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit32s_BiQuad_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int numBq, int tapsFactor, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32s_BiQuad_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int numBq, int tapsFactor, const Orb32s* pDlyLine);
OrbStatus orbsIIRFree32s_16s(OrbsIIRState32s_16s* pState);
OrbStatus orbsIIRSetTaps32s_16s(const Orb32s* pTaps, OrbsIIRState32s_16s* pState, int tapsFactor);
OrbStatus orbsIIRGetDlyLine32s_16s(const OrbsIIRState32s_16s* pState, Orb32s* pDlyLine);
OrbStatus orbsIIRSetDlyLine32s_16s(OrbsIIRState32s_16s* pState, const Orb32s* pDlyLine);
OrbStatus orbsIIRInit32s_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int order, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32s_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int order, const Orb32s* pDlyLine);
OrbStatus orbsIIRInit32s_BiQuad_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32s* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32s_BiQuad_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32s* pDlyLine);
OrbStatus orbsIIRSetTaps32s_16s32f(const Orb32f* pTaps, OrbsIIRState32s_16s* pState);
OrbStatus orbsIIRGetStateSize32s_16s32f(int order, int* pBufferSize);
OrbStatus orbsIIRGetStateSize32s_BiQuad_16s32f(int numBq, int* pBufferSize);
OrbStatus orbsIIRFree32s_16s32f(OrbsIIRState32s_16s* pState);
OrbStatus orbsIIRGetDlyLine32s_16s32f(const OrbsIIRState32s_16s* pState, Orb32s* pDlyLine);
OrbStatus orbsIIRSetDlyLine32s_16s32f(OrbsIIRState32s_16s* pState, const Orb32s* pDlyLine);
OrbStatus orbsIIRGetStateSize32sc_16sc(int order, int* pBufferSize);
OrbStatus orbsIIRInit32sc_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int order, int tapsFactor, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32sc_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int order, int tapsFactor, const Orb32sc* pDlyLine);
OrbStatus orbsIIRGetStateSize32sc_BiQuad_16sc(int numBq, int* pBufferSize);
OrbStatus orbsIIRInit32sc_BiQuad_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int numBq, int tapsFactor, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32sc_BiQuad_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int numBq, int tapsFactor, const Orb32sc* pDlyLine);
OrbStatus orbsIIRFree32sc_16sc(OrbsIIRState32sc_16sc* pState);
OrbStatus orbsIIRSetTaps32sc_16sc(const Orb32sc* pTaps, OrbsIIRState32sc_16sc* pState, int tapsFactor);
OrbStatus orbsIIRGetDlyLine32sc_16sc(const OrbsIIRState32sc_16sc* pState, Orb32sc* pDlyLine);
OrbStatus orbsIIRSetDlyLine32sc_16sc(OrbsIIRState32sc_16sc* pState, const Orb32sc* pDlyLine);
OrbStatus orbsIIRInit32sc_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32sc_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32sc* pDlyLine);
OrbStatus orbsIIRInit32sc_BiQuad_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32sc* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRInitAlloc32sc_BiQuad_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32sc* pDlyLine);
OrbStatus orbsIIRSetTaps32sc_16sc32fc(const Orb32fc* pTaps, OrbsIIRState32sc_16sc* pState);
OrbStatus orbsIIRGetStateSize32sc_16sc32fc(int order, int* pBufferSize);
OrbStatus orbsIIRGetStateSize32sc_BiQuad_16sc32fc(int numBq, int* pBufferSize);
OrbStatus orbsIIRFree32sc_16sc32fc(OrbsIIRState32sc_16sc* pState);
OrbStatus orbsIIRGetDlyLine32sc_16sc32fc(const OrbsIIRState32sc_16sc* pState, Orb32sc* pDlyLine);
OrbStatus orbsIIRSetDlyLine32sc_16sc32fc(OrbsIIRState32sc_16sc* pState, const Orb32sc* pDlyLine);

/* ---- IIR, IIROne ---------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Filters the next len samples pSrc of the stream of a state into pDst, and brings its delay line up to date.
 * orbsIIR_.._I: pSrcDst is replaced; so does pSrc equal to pDst, while they must not overlap otherwise. orbsIIROne: one
 * sample. Blocks of any lengths and single samples may be mixed.
 *
 * A block is cut into chunks of 1024 samples. One of at most 4 * order samples (BiQuad: 4 * numBq), and every
 * orbsIIROne, goes sample by sample through the formula of the delay line. A longer one goes four outputs at a time:
 * with w[n] = sum over k of b[k] * x[n-k], the four next outputs are sums over the last outputs, and over w, with
 * coefficients that SetTaps works out from a and rounds once. Both ways round differently, so the last bits of an
 * output depend on how a stream is cut into blocks; they depend on nothing else: not on alignment, nor on the
 * processor, nor on whether the call is in place. With poles close to the unit circle the way of four is the less
 * exact one. An infinity or NaN reaches no output before its own.
 *
 * A tail that decays towards 0 passes through denormal numbers, over which many processors take a hundred times
 * longer. Where that matters, flush denormals to zero around these calls: bits 15 and 6 of the SSE control register
 * (orb_set_cw_ssx of orbcore.h, or the compiler's own means).
 *
 * Statuses, in the order of the tests: null pState, pSrc or pDst (pSrcDst, pDstVal): orbStsNullPtrErr; len below 1:
 * orbStsSizeErr; pState is not a state of the member's type: orbStsContextMatchErr. Nothing is allocated. */
OrbStatus orbsIIR_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRState_32f* pState);
OrbStatus orbsIIR_32f_I(Orb32f* pSrcDst, int len, OrbsIIRState_32f* pState);
OrbStatus orbsIIROne_32f(Orb32f src, Orb32f* pDstVal, OrbsIIRState_32f* pState);
OrbStatus orbsIIR_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, OrbsIIRState_32fc* pState);
OrbStatus orbsIIR_32fc_I(Orb32fc* pSrcDst, int len, OrbsIIRState_32fc* pState);
OrbStatus orbsIIROne_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsIIRState_32fc* pState);
OrbStatus orbsIIR_64f(const Orb64f* pSrc, Orb64f* pDst, int len, OrbsIIRState_64f* pState);
OrbStatus orbsIIR_64f_I(Orb64f* pSrcDst, int len, OrbsIIRState_64f* pState);
OrbStatus orbsIIROne_64f(Orb64f src, Orb64f* pDstVal, OrbsIIRState_64f* pState);
OrbStatus orbsIIR_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, OrbsIIRState_64fc* pState);
OrbStatus orbsIIR_64fc_I(Orb64fc* pSrcDst, int len, OrbsIIRState_64fc* pState);
OrbStatus orbsIIROne_64fc(Orb64fc src, Orb64fc* pDstVal, OrbsIIRState_64fc* pState);
OrbStatus orbsIIR64f_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRState64f_32f* pState);
OrbStatus orbsIIR64f_32f_I(Orb32f* pSrcDst, int len, OrbsIIRState64f_32f* pState);
OrbStatus orbsIIROne64f_32f(Orb32f src, Orb32f* pDstVal, OrbsIIRState64f_32f* pState);
OrbStatus orbsIIR64fc_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, OrbsIIRState64fc_32fc* pState);
OrbStatus orbsIIR64fc_32fc_I(Orb32fc* pSrcDst, int len, OrbsIIRState64fc_32fc* pState);
OrbStatus orbsIIROne64fc_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsIIRState64fc_32fc* pState);

/* ---- IIR_Sfs, IIROne_Sfs -------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * orbsIIR for integers: the recursion runs on unrounded outputs y, in the type of the taps, and y * 2^-scaleFactor is
 * rounded to nearest, ties to even, and saturated on the way out only; a NaN gives the least value. Rounding of the
 * recursion itself is the caller's. The parts of complex samples are rounded each on its own.
 * The block forms take scaleFactor modulo 128 (-1 to -127, and those modulo 128, multiply; with taps of Orb32f, 127
 * multiplies by 0). orbsIIROne.._Sfs takes it as it stands, from -1023 to 1022, and limits it to that.
 *
 * Statuses as of orbsIIR. */
OrbStatus orbsIIR32f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsIIR32f_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsIIROne32f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32f_16s* pState, int scaleFactor);
OrbStatus orbsIIR32fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR32fc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIROne32fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR64f_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, OrbsIIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsIIR64f_32s_ISfs(Orb32s* pSrcDst, int len, OrbsIIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsIIROne64f_32s_Sfs(int src, Orb32s* pDstVal, OrbsIIRState64f_32s* pState, int scaleFactor);
OrbStatus orbsIIR64fc_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int len, OrbsIIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsIIR64fc_32sc_ISfs(Orb32sc* pSrcDst, int len, OrbsIIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsIIROne64fc_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, OrbsIIRState64fc_32sc* pState, int scaleFactor);
OrbStatus orbsIIR64f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsIIR64f_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsIIROne64f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState64f_16s* pState, int scaleFactor);
OrbStatus orbsIIR64fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR64fc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIROne64fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState64fc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR32s_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIR32s_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIROne32s_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIR32s_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIR32s_16s32f_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIROne32s_16s32f_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32s_16s* pState, int scaleFactor);
OrbStatus orbsIIR32sc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR32sc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsIIROne32sc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR32sc_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsIIR32sc_16sc32fc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor);
OrbStatus orbsIIROne32sc_16sc32fc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32sc_16sc* pState, int scaleFactor);

/* ---- IIR_Direct, IIROne_Direct, IIR_BiQuadDirect, IIROne_BiQuadDirect ----------------------------------------
 * Alignment: of the elements.
 * The filters of orbsIIRInit over the caller's 16-bit taps and 32-bit delay line, without a state. a[0] is 1, and its
 * place holds an exponent f, 0 or more:
 *
 *   one filter of any order   pTaps: b[0] .. b[order], f, a[1] .. a[order]; pDlyLine: order values
 *   BiQuad                    pTaps: b0, b1, b2, f, a1, a2 of each section; pDlyLine: 2 values of each
 *
 * A tap or delay value v of a section stands for v * 2^-f. The delay line is that of the formula for IIR states, zeros
 * at the start of a stream. pDst may be pSrc.
 *
 * Blocks are filtered as by orbsIIR32f_16s_Sfs with a scaleFactor of 0, by a state of these taps and delay line as
 * Orb32f, which is allocated while the call runs. The delay line that it ends with is multiplied by 2^f, rounded to
 * nearest with halves away from zero (BiQuad: toward zero), and saturated; a NaN gives the least value.
 * orbsIIROne computes in 32-bit integers that wrap around, with taps and delay values as they stand: for a sample x,
 *
 *   s = b[0] * x + D[0],  y = (s + ((s >> f) & 1) + 2^((f + 31) mod 32) - 1) >> f,
 *   D[i] = b[i+1] * x - a[i+1] * y + D[i+1]
 *
 * so that for f of 1 to 31 y is s * 2^-f to nearest, ties to even, while an f of 0 adds 2^31 - 1 and the low bit of s;
 * a shift by f of 32 or more leaves the sign. y is limited to 16 bits as the output only: not in D, and not on its way
 * to the next section. Blocks and single samples may be mixed, but round differently.
 *
 * Statuses, in the order of the tests: order or numBq below 1: orbStsIIROrderErr; null pSrc, pTaps, pDlyLine or pDst
 * (pSrcDst, pDstVal, pSrcDstVal): orbStsNullPtrErr; f below 0: orbStsIIRScaleErr; len below 1: orbStsSizeErr, which
 * orbsIIR_BiQuadDirect tests before f; blocks only, no memory, or 2 GiB of it or more: orbStsMemAllocErr; in blocks of
 * BiQuad a b0 of 0, or one that its f makes 0 as Orb32f: orbStsDivByZeroErr. Nothing is then written. Any number of
 * threads may call these on different delay lines. */
OrbStatus orbsIIR_Direct_16s(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int order, Orb32s* pDlyLine);
OrbStatus orbsIIR_Direct_16s_I(Orb16s* pSrcDst, int len, const Orb16s* pTaps, int order, Orb32s* pDlyLine);
OrbStatus orbsIIROne_Direct_16s(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int order, Orb32s* pDlyLine);
OrbStatus orbsIIROne_Direct_16s_I(Orb16s* pSrcDstVal, const Orb16s* pTaps, int order, Orb32s* pDlyLine);
OrbStatus orbsIIR_BiQuadDirect_16s(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine);
OrbStatus orbsIIR_BiQuadDirect_16s_I(Orb16s* pSrcDst, int len, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine);
OrbStatus orbsIIROne_BiQuadDirect_16s(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine);
OrbStatus orbsIIROne_BiQuadDirect_16s_I(Orb16s* pSrcDstVal, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine);

ORBS_DECLARATIONS_END

#endif
