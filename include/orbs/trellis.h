/* orbs/trellis.h: what a Viterbi decoder is made of. */
#ifndef ORBS_TRELLIS_H
#define ORBS_TRELLIS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Soft decoding of a four-dimensional trellis code of 16, 32 or 64 states: two received points in the plane make one
 * symbol. Its metrics are found in four steps,
 *
 *   GetVarPointDV        once for each of the two points: distances to the subsets of the plane
 *   BuildSymblTableDV4D  distances to the subsets of four dimensions: the branch table
 *   CalcStatesDV         add, compare and select over all states
 *   UpdatePathMetricsDV  metrics made small again, and the best state
 *
 * between which the caller assigns branches to subsets, and behind which it traces back. Every metric is an unsigned
 * number of 16 bits. The only test of arguments is for null pointers: orbStsNullPtrErr. All members may be called from any
 * number of threads on different data. */

/* ---- GetVarPointDV ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * A point with 8 fraction bits among the lattice points, which lie at odd multiples of 128. pDstPoint receives the
 * lattice point at or below it in both coordinates, whose arithmetic wraps in 16 bits. pLabel tells the subset of a
 * lattice point: 4 rows of 4, row (y + 2) mod 4 and column (x + 2) mod 4 with 256 x + 128, 256 y + 128 its coordinates;
 * of a label the low 2 bits count (state 16), or 3 (all other values of state).
 *
 * pVariance[label], 4 entries or 8: the square of the distance to the nearest point of that subset, divided by 16, each
 * coordinate's rounded down, in the low 16 bits; which point that is in the high 16 bits, relative to pDstPoint:
 *
 *   code   0  1  2  3  4  5  6  7  8  9 10 11
 *   dx     0  1  1  0  0  1  2  1  2 -1  0 -1
 *   dy     0  0  1  1  2  2  1 -1  0  0 -1  1
 *
 * Codes 0 to 3 have labels of their own, the others share labels with that 4 away; of equal distances the higher code is
 * taken. Those of codes 6 and 10 stand under the label of the lattice point at (1, -1), and those of 7 and 11 under that of
 * the one at (0, -1): where labels are those of sublattices, under each other's. */
OrbStatus orbsGetVarPointDV_16sc(const Orb16sc* pSrc, Orb16sc* pDstPoint, Orb32u* pVariance, const Orb8u* pLabel, int state);

/* ---- BuildSymblTableDV4D ---------------------------------------------------------------------------------------
 * Alignment: any.
 * pVariance: the tables of two points, V1 and, 8 entries on, V2. pDst receives a pair for each subset i of four
 * dimensions, 8 of them (state 16), 16 (32) or 32 (all other values): a code word, the code of V1's point in its low byte
 * and that of V2's in its high byte, then the metric V1[p] + V2[q] in 16 bits. It is the least of several, of equal ones
 * the first. With t = i XOR bitInversion, q(t) = (t + (t >> 2)) mod 4:
 *
 *   16 states   (t >> 2, q(t)); (that p + 2 mod 4, q + 2 mod 4)
 *   64 states   (t >> 2, q(t)); (that p + 4 mod 8, q + 4)
 *   32 states   both of the 64 states, of t' XOR 8 and then of t' = t + 2 (i AND 8)
 *
 * p is taken modulo the size of a table, so that higher bits of bitInversion do no harm. */
OrbStatus orbsBuildSymblTableDV4D_16sc(const Orb32u* pVariance, Orb16u* pDst, int state, int bitInversion);

/* ---- CalcStatesDV ----------------------------------------------------------------------------------------------
 * Alignment: any.
 * One step of add, compare and select, over 16 states (state 16), 32 (32) or 64 (all other values), with 16 branches from
 * each. Branch k of state s leads to next = pNextState[16 s + k], with code word c = pBranch[4 k + 2 (s mod 2)] and metric
 * e = pBranch[4 k + 2 (s mod 2) + 1], an unsigned number all the same. Where pPathError[s] + e is below
 * pBranchError[next], it becomes pBranchError[next], and pHistory[presentIndex + next] becomes c with s in its high 16
 * bits. Of equal paths the one with the lowest state is taken, and the lowest branch of that. Sums above 65535 are never
 * taken, and entries that no path reaches stay as they were. pBranchError has an entry for each state, 65535 before the
 * first step; a branch to a state that does not exist leads nowhere. */
OrbStatus orbsCalcStatesDV_16sc(const Orb16u* pPathError, const Orb8u* pNextState, Orb16u* pBranchError, const Orb16s* pBranch, Orb32u* pHistory, int state, int presentIndex);

/* ---- UpdatePathMetricsDV ---------------------------------------------------------------------------------------
 * Alignment: any.
 * Between two steps, over 16 states (state 16), 32 (32) or 64 (all other values): pMinPathError receives the least of
 * pBranchError, pMinState the lowest state that has it, pPathError[s] = pBranchError[s] - least; then all of pBranchError
 * becomes 65535. */
OrbStatus orbsUpdatePathMetricsDV_16u(Orb16u* pBranchError, Orb16u* pMinPathError, Orb8u* pMinState, Orb16u* pPathError, int state);

ORBS_DECLARATIONS_END

#endif
