/* orbs/sparse.h: filters with few taps. */
#ifndef ORBS_SPARSE_H
#define ORBS_SPARSE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- FIRSparse ---------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Filters of which only the taps other than zero are kept, each with its position:
 *   pDst[n] = sum over i of pNZTaps[i] * x[n - pNZTapPos[i]],  i = nzTapsLen-1 down to 0,
 * each product rounded and added to the sum in single precision, the sum starting from 0. x are the samples of one
 * stream, of which the state keeps the last `order`, the largest position. However a stream is cut into calls, the
 * outputs have the same bits.
 *
 * GetStateSize: the bytes that Init needs at pBuffer, for so many taps and this largest position. Init builds a state
 * there, at any address; *ppState points into it. It holds no address: its block may be copied to one that is equal
 * modulo 16. pDlyLine[i] is x[-1-i], newest first, for i = 0 .. order-1; null means zeros. Taps and positions are
 * copied.
 * A state has no tag: what is no state is not noticed. pSrc and pDst must not overlap.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize  null pStateSize: orbStsNullPtrErr; nzTapsLen or order below 1: orbStsFIRLenErr; a size that is no
 *                 positive int: orbStsMemAllocErr, nothing is written
 *   Init          null ppState, pNZTaps, pNZTapPos or pBuffer: orbStsNullPtrErr; nzTapsLen below 1: orbStsFIRLenErr; a
 *                 position below 0 or not above the one before: orbStsSparseIndexErr; a size that is no positive int:
 *                 orbStsMemAllocErr. A largest position of 0 is fine here, and takes no more than one of 1.
 *   FIRSparse     null pSrc, pDst or pState: orbStsNullPtrErr; len below 1: orbStsSizeErr
 * One state, one call at a time. */
typedef struct OrbsFIRSparseState_32f OrbsFIRSparseState_32f;
OrbStatus orbsFIRSparseGetStateSize_32f(int nzTapsLen, int order, int* pStateSize);
OrbStatus orbsFIRSparseInit_32f(OrbsFIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsFIRSparse_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsFIRSparseState_32f* pState);

/* ---- IIRSparse ---------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Recursive filters of the kind of orbsFIRSparse. pNZTaps and pNZTapPos have the nzTapsLen1 feed-forward taps b at p,
 * then the nzTapsLen2 recursive ones a at q:
 *   pDst[n] = sum over i of b[i] * x[n - p[i]] + sum over j of a[j] * pDst[n - q[j]],
 * added in this order, i and j downwards, each product and sum in single precision. Mind the sign of a. The state keeps
 * order1 samples and order2 outputs, the largest positions of both lists. However a stream is cut into calls, the
 * outputs have the same bits.
 *
 * pDlyLine: the last order1 samples, newest first, then the last order2 outputs; null means zeros. Without recursive
 * taps order2 is 0; pNZTapPos must still have an element behind the feed-forward ones, and it is tested.
 * GetStateSize, Init and the rest as for orbsFIRSparse.
 *
 * Statuses, in the order of the tests:
 *   GetStateSize  null pStateSize: orbStsNullPtrErr; nzTapsLen1 below 1 or nzTapsLen2 below 0: orbStsIIROrderErr;
 *                 order1 or order2 below 0: orbStsSparseIndexErr; a size that is no positive int: orbStsMemAllocErr,
 *                 nothing is written
 *   Init          null ppState, pNZTaps, pNZTapPos or pBuffer: orbStsNullPtrErr; nzTapsLen1 below 1 or nzTapsLen2
 *                 below 0: orbStsIIROrderErr; a feed-forward position below 0, a recursive one below 1, or one not
 *                 above the one before it in its list: orbStsSparseIndexErr; a size that is no positive int:
 *                 orbStsMemAllocErr
 *   IIRSparse     null pSrc, pDst or pState: orbStsNullPtrErr; len below 1: orbStsSizeErr
 * One state, one call at a time. */
typedef struct OrbsIIRSparseState_32f OrbsIIRSparseState_32f;
OrbStatus orbsIIRSparseGetStateSize_32f(int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pStateSize);
OrbStatus orbsIIRSparseInit_32f(OrbsIIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen1, int nzTapsLen2, const Orb32f* pDlyLine, Orb8u* pBuffer);
OrbStatus orbsIIRSparse_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRSparseState_32f* pState);

ORBS_DECLARATIONS_END

#endif
