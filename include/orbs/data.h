/* orbs/data.h: moving and rearranging vectors. */
#ifndef ORBS_DATA_H
#define ORBS_DATA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * Any alignment will do. Values are moved as they are, bit for bit: a signalling NaN stays one. All members may be
 * called from any number of threads on different data. */

/* ---- Copy, Move ----------------------------------------------------------------------------------------------
 * pDst[n] = pSrc[n], n = 0 to len - 1. Copy: the arrays do not overlap, or are the same. Move: they may overlap in
 * any way, and pDst receives what pSrc held before the call. */
OrbStatus orbsCopy_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsCopy_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsCopy_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsCopy_32s(const Orb32s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsCopy_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len);
OrbStatus orbsCopy_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsCopy_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsCopy_64s(const Orb64s* pSrc, Orb64s* pDst, int len);
OrbStatus orbsCopy_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len);
OrbStatus orbsCopy_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsCopy_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);
OrbStatus orbsMove_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsMove_16s(const Orb16s* pSrc, Orb16s* pDst, int len);
OrbStatus orbsMove_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len);
OrbStatus orbsMove_32s(const Orb32s* pSrc, Orb32s* pDst, int len);
OrbStatus orbsMove_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len);
OrbStatus orbsMove_32f(const Orb32f* pSrc, Orb32f* pDst, int len);
OrbStatus orbsMove_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len);
OrbStatus orbsMove_64s(const Orb64s* pSrc, Orb64s* pDst, int len);
OrbStatus orbsMove_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len);
OrbStatus orbsMove_64f(const Orb64f* pSrc, Orb64f* pDst, int len);
OrbStatus orbsMove_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len);

/* ---- Set, Zero -----------------------------------------------------------------------------------------------
 * pDst[n] = val, or 0, n = 0 to len - 1. */
OrbStatus orbsSet_8u(Orb8u val, Orb8u* pDst, int len);
OrbStatus orbsSet_16s(Orb16s val, Orb16s* pDst, int len);
OrbStatus orbsSet_16sc(Orb16sc val, Orb16sc* pDst, int len);
OrbStatus orbsSet_32s(int val, Orb32s* pDst, int len);
OrbStatus orbsSet_32sc(Orb32sc val, Orb32sc* pDst, int len);
OrbStatus orbsSet_32f(Orb32f val, Orb32f* pDst, int len);
OrbStatus orbsSet_32fc(Orb32fc val, Orb32fc* pDst, int len);
OrbStatus orbsSet_64s(Orb64s val, Orb64s* pDst, int len);
OrbStatus orbsSet_64sc(Orb64sc val, Orb64sc* pDst, int len);
OrbStatus orbsSet_64f(Orb64f val, Orb64f* pDst, int len);
OrbStatus orbsSet_64fc(Orb64fc val, Orb64fc* pDst, int len);
OrbStatus orbsZero_8u(Orb8u* pDst, int len);
OrbStatus orbsZero_16s(Orb16s* pDst, int len);
OrbStatus orbsZero_16sc(Orb16sc* pDst, int len);
OrbStatus orbsZero_32s(Orb32s* pDst, int len);
OrbStatus orbsZero_32sc(Orb32sc* pDst, int len);
OrbStatus orbsZero_32f(Orb32f* pDst, int len);
OrbStatus orbsZero_32fc(Orb32fc* pDst, int len);
OrbStatus orbsZero_64s(Orb64s* pDst, int len);
OrbStatus orbsZero_64sc(Orb64sc* pDst, int len);
OrbStatus orbsZero_64f(Orb64f* pDst, int len);
OrbStatus orbsZero_64fc(Orb64fc* pDst, int len);

ORBS_DECLARATIONS_END

#endif
