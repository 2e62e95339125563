/* orbs/sorting.h: sorts, with and without indices. */
#ifndef ORBS_SORTING_H
#define ORBS_SORTING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* All members sort in place, take no memory from the allocator, and may be called from any number of threads on
 * different data.
 * Order of the tests: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr). */

/* ---- SortAscend, SortDescend ---------------------------------------------------------------------------------
 * Alignment: any.
 * The elements of pSrcDst in ascending or descending order.
 * Floats are ordered by their bits, so that the result is one for any input. Ascending: NaN with the sign bit set,
 * -infinity, negative numbers, -0, +0, positive numbers, infinity, NaN without it; each NaN keeps its payload.
 * The time grows with len * log(len) at most; a vector that is in order or in reverse order takes a pass or two. */
OrbStatus orbsSortAscend_8u_I(Orb8u* pSrcDst, int len);
OrbStatus orbsSortAscend_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsSortAscend_16u_I(Orb16u* pSrcDst, int len);
OrbStatus orbsSortAscend_32s_I(Orb32s* pSrcDst, int len);
OrbStatus orbsSortAscend_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsSortAscend_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsSortDescend_8u_I(Orb8u* pSrcDst, int len);
OrbStatus orbsSortDescend_16s_I(Orb16s* pSrcDst, int len);
OrbStatus orbsSortDescend_16u_I(Orb16u* pSrcDst, int len);
OrbStatus orbsSortDescend_32s_I(Orb32s* pSrcDst, int len);
OrbStatus orbsSortDescend_32f_I(Orb32f* pSrcDst, int len);
OrbStatus orbsSortDescend_64f_I(Orb64f* pSrcDst, int len);

/* ---- SortIndexAscend, SortIndexDescend -----------------------------------------------------------------------
 * Alignment: any.
 * The elements of pSrcDst in ascending or descending order, and in pDstIdx[n] the place, from 0, that element n of the
 * result had before. pDstIdx does not overlap pSrcDst. With len 1 pDstIdx is not written.
 * The sorts are not stable: indices of equal elements, -0 and +0 among them, come in an order that the steps of one
 * quicksort decide. It is the same for the same pattern of greater, less and equal elements, whatever their type, in
 * every build; the two directions mirror each other.
 * A vector with a NaN, which compares with nothing, becomes some permutation of itself, pDstIdx the same one.
 * The time may grow with the square of len if elements are arranged to that end, or if many are NaN. */
OrbStatus orbsSortIndexAscend_8u_I(Orb8u* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexAscend_16s_I(Orb16s* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexAscend_16u_I(Orb16u* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexAscend_32s_I(Orb32s* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexAscend_32f_I(Orb32f* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexAscend_64f_I(Orb64f* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_8u_I(Orb8u* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_16s_I(Orb16s* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_16u_I(Orb16u* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_32s_I(Orb32s* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_32f_I(Orb32f* pSrcDst, Orb32s* pDstIdx, int len);
OrbStatus orbsSortIndexDescend_64f_I(Orb64f* pSrcDst, Orb32s* pDstIdx, int len);

ORBS_DECLARATIONS_END

#endif
