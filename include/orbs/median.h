/* orbs/median.h: running medians. */
#ifndef ORBS_MEDIAN_H
#define ORBS_MEDIAN_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- FilterMedian --------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = median of x[n - h] ... x[n + h], n = 0 to len - 1, h = (maskSize - 1) / 2 rounded down, where x[k] is
 * pSrc[k] or pSrcDst[k], the first element for k below 0 and the last one for k of len and above. The first and the
 * last element keep their values. An even maskSize is taken as the next lower odd one, with the warning
 * orbStsEvenMedianMaskSize; maskSize may exceed len. pDst is pSrc or does not overlap it.
 * Floats, up to maskSize 9: a NaN in the window gives some element of the window, the same in every build. From
 * maskSize 11 on elements are compared by their bits, as orbsSortAscend orders them: a NaN counts as above or below all
 * numbers, by its sign, and -0 as below +0.
 * Up to maskSize 9 nothing is allocated. From 11 on a call takes one block for its time: less than 14 kB or
 * 100 * maskSize bytes, whichever is more, and for any maskSize less than 80 * len + 500 bytes; 2^31 bytes are too many.
 * The time grows with len * log(maskSize).
 * Tests: pointers (orbStsNullPtrErr), len or maskSize below 1 (orbStsSizeErr), memory (orbStsMemAllocErr); nothing is
 * written if one fails. May be called from any number of threads on different data. */
OrbStatus orbsFilterMedian_8u(const Orb8u* pSrc, Orb8u* pDst, int len, int maskSize);
OrbStatus orbsFilterMedian_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int maskSize);
OrbStatus orbsFilterMedian_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int maskSize);
OrbStatus orbsFilterMedian_32f(const Orb32f* pSrc, Orb32f* pDst, int len, int maskSize);
OrbStatus orbsFilterMedian_64f(const Orb64f* pSrc, Orb64f* pDst, int len, int maskSize);
OrbStatus orbsFilterMedian_8u_I(Orb8u* pSrcDst, int len, int maskSize);
OrbStatus orbsFilterMedian_16s_I(Orb16s* pSrcDst, int len, int maskSize);
OrbStatus orbsFilterMedian_32s_I(Orb32s* pSrcDst, int len, int maskSize);
OrbStatus orbsFilterMedian_32f_I(Orb32f* pSrcDst, int len, int maskSize);
OrbStatus orbsFilterMedian_64f_I(Orb64f* pSrcDst, int len, int maskSize);

ORBS_DECLARATIONS_END

#endif
