/* orbs/sampling.h: samples put between samples, and left out. */
#ifndef ORBS_SAMPLING_H
#define ORBS_SAMPLING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- SampleUp, SampleDown ------------------------------------------------------------------------------------
 * Alignment: any.
 * SampleUp: pDst[n factor + *pPhase] = pSrc[n] for n = 0 to srcLen - 1, and zeros between; *pDstLen = srcLen factor. The
 * phase stays as it is, which is what the next block of a stream needs.
 * SampleDown: pDst[n] = pSrc[*pPhase + n factor] as long as that lies in pSrc; *pDstLen tells how many there were, which
 * may be none. *pPhase becomes the place of the next such sample counted from the end of pSrc, so a stream cut into
 * blocks of any lengths gives the samples of one call.
 * Elements are copied bit by bit. With factor 1 both are a plain copy. *pDstLen of SampleUp is told modulo 2^32, and a
 * srcLen factor that does not fit into an int needs a pDst of its real size.
 * The vectors do not overlap.
 *
 * Statuses, in the order of the tests: orbStsNullPtrErr, orbStsSizeErr (srcLen below 1), orbStsSampleFactorErr (factor
 * below 1), orbStsSamplePhaseErr (*pPhase not in 0 to factor - 1).
 * Any number of threads may call at once on different data. */
OrbStatus orbsSampleUp_16s(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleUp_16sc(const Orb16sc* pSrc, int srcLen, Orb16sc* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleUp_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleUp_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleUp_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleUp_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_16s(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_16sc(const Orb16sc* pSrc, int srcLen, Orb16sc* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int* pDstLen, int factor, int* pPhase);
OrbStatus orbsSampleDown_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int* pDstLen, int factor, int* pPhase);

ORBS_DECLARATIONS_END

#endif
