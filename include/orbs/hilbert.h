/* orbs/hilbert.h: analytic signals. */
#ifndef ORBS_HILBERT_H
#define ORBS_HILBERT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- Hilbert -------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The analytic signal of N real samples, taken as one period: the real part is the samples, the imaginary part their
 * Hilbert transform, so that cos(2 pi k n / N) with 0 < k < N / 2 becomes exp(2 pi i k n / N). A DFT of the samples, of
 * whose bins the one at 0 and, for an even N, the one at N / 2 stay as they are, those between them are doubled and
 * those above are set to 0, then an inverse DFT, divided by N. In single precision, so the real part is the samples to
 * within rounding. For N of 1 or 2 there is no transform: the samples, with imaginary parts of 0.
 *
 * _16s16sc_Sfs: results times 2^-scaleFactor are rounded to nearest, ties to even, and saturated; beyond N of 2 as
 * orbsConvert_32f16s_Sfs does that, with what it makes of scales that single precision does not hold.
 *
 * InitAlloc makes an object for N = length, one block that holds two transforms of orbs/dft.h; hint is handed to them
 * and may have any value. Free releases it. An object is only read: any number of threads may use it at once. It holds
 * no address: its block may be copied, saved, or mapped elsewhere at an equal alignment to 32 bytes. A call for N of 3
 * and more takes the work memory of the transforms, those with 16-bit samples room for 4 N or 12 N bytes as well, and
 * gives it back.
 *
 * pSrc and pDst must not overlap. Statuses, in the order of the tests:
 *   InitAlloc  null ppSpec: orbStsNullPtrErr; length below 1: orbStsSizeErr; no memory, or a transform whose size is no
 *              positive int: orbStsMemAllocErr. *ppSpec is written only on success.
 *   Free       null pSpec: orbStsNullPtrErr; not an object of the member's type: orbStsContextMatchErr
 *   calls      any null pointer: orbStsNullPtrErr; not an object of the member's type: orbStsContextMatchErr; no memory:
 *              orbStsMemAllocErr, with nothing written */
typedef struct OrbsHilbertSpec_32f32fc OrbsHilbertSpec_32f32fc;
typedef struct OrbsHilbertSpec_16s32fc OrbsHilbertSpec_16s32fc;
typedef struct OrbsHilbertSpec_16s16sc OrbsHilbertSpec_16s16sc;

OrbStatus orbsHilbertInitAlloc_32f32fc(OrbsHilbertSpec_32f32fc** ppSpec, int length, OrbHintAlgorithm hint);
OrbStatus orbsHilbertInitAlloc_16s32fc(OrbsHilbertSpec_16s32fc** ppSpec, int length, OrbHintAlgorithm hint);
OrbStatus orbsHilbertInitAlloc_16s16sc(OrbsHilbertSpec_16s16sc** ppSpec, int length, OrbHintAlgorithm hint);
OrbStatus orbsHilbertFree_32f32fc(OrbsHilbertSpec_32f32fc* pSpec);
OrbStatus orbsHilbertFree_16s32fc(OrbsHilbertSpec_16s32fc* pSpec);
OrbStatus orbsHilbertFree_16s16sc(OrbsHilbertSpec_16s16sc* pSpec);
OrbStatus orbsHilbert_32f32fc(const Orb32f* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_32f32fc* pSpec);
OrbStatus orbsHilbert_16s32fc(const Orb16s* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_16s32fc* pSpec);
OrbStatus orbsHilbert_16s16sc_Sfs(const Orb16s* pSrc, Orb16sc* pDst, const OrbsHilbertSpec_16s16sc* pSpec, int scaleFactor);

ORBS_DECLARATIONS_END

#endif
