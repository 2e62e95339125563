/* orbs/random.h: uniform and Gaussian noise. */
#ifndef ORBS_RANDOM_H
#define ORBS_RANDOM_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Reproducible noise: the samples follow from the seed and the parameters, bit for bit, in every build of the library. No
 * seed is special. The generator is for signals, not for secrets.
 *
 * With an object a stream goes on from call to call, however it is cut into calls, samples of the halves of a Gaussian
 * pair included. The Direct members start from *pSeed each time and leave a word of the generator there: a chain of
 * calls is another stream than one long call, and only that of the same chain.
 *
 * InitAlloc takes the object's memory itself, and Free gives it back. Init fills *pState, which lies on a multiple of 4
 * bytes and has the size that GetSize tells; such an object needs no Free and must not be given to it. Either again
 * restarts the stream. An object belongs to one stream: no two calls may use it at a time. It holds no address and may be
 * copied. The size of an object in bytes is 48 (Uniform _8u, _16s), 52 (_32f), 60 (Gauss _8u, _16s), 68 (_32f).
 *
 * Statuses, in the order of the tests:
 *   Init, InitAlloc, GetSize  null pointer: orbStsNullPtrErr; no memory: orbStsMemAllocErr
 *   samples with an object    null pDst or pState: orbStsNullPtrErr; len below 1: orbStsSizeErr; pState is not an object
 *                             of the member's kind: orbStsContextMatchErr
 *   Direct                    null pDst or pSeed: orbStsNullPtrErr; len below 1: orbStsSizeErr
 *   Free                      null pState: orbStsNullPtrErr; not an object of the member's kind: orbStsContextMatchErr
 * No value of a parameter or seed is refused. */

/* ---- RandUniform ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * Noise that is uniform from low to high: pDst[n] = x * scale + mid, n = 0 to len - 1, of 32-bit outputs x in -2^31 to
 * 2^31 - 1, with mid = (low + high) / 2 and scale = (high - low) * 2.3283064365387e-10, which is a little above 2^-32.
 * low above high is the same interval backwards.
 *
 * Samples are computed in double precision. _32f: mid and scale from a sum and a difference in single precision, the
 * sample rounded. Integers with an object are cut off towards 0: the value at the upper end never comes. Direct_16s
 * rounds, as the caller's rounding mode says, but cuts off the last sample of an odd number. Direct_64f: scale is
 * high * c - c * low with that c. *pSeed is left as the newest word of the sequence inside. */
typedef struct OrbsRandUniState_8u OrbsRandUniState_8u;
typedef struct OrbsRandUniState_16s OrbsRandUniState_16s;
typedef struct OrbsRandUniState_32f OrbsRandUniState_32f;
OrbStatus orbsRandUniformInitAlloc_8u(OrbsRandUniState_8u** ppState, Orb8u low, Orb8u high, Orb32u seed);
OrbStatus orbsRandUniformInitAlloc_16s(OrbsRandUniState_16s** ppState, Orb16s low, Orb16s high, Orb32u seed);
OrbStatus orbsRandUniformInitAlloc_32f(OrbsRandUniState_32f** ppState, Orb32f low, Orb32f high, Orb32u seed);
OrbStatus orbsRandUniformInit_16s(OrbsRandUniState_16s* pState, Orb16s low, Orb16s high, Orb32u seed);
OrbStatus orbsRandUniformGetSize_16s(int* pSize);
OrbStatus orbsRandUniform_8u(Orb8u* pDst, int len, OrbsRandUniState_8u* pState);
OrbStatus orbsRandUniform_16s(Orb16s* pDst, int len, OrbsRandUniState_16s* pState);
OrbStatus orbsRandUniform_32f(Orb32f* pDst, int len, OrbsRandUniState_32f* pState);
OrbStatus orbsRandUniformFree_8u(OrbsRandUniState_8u* pState);
OrbStatus orbsRandUniformFree_16s(OrbsRandUniState_16s* pState);
OrbStatus orbsRandUniformFree_32f(OrbsRandUniState_32f* pState);
OrbStatus orbsRandUniform_Direct_16s(Orb16s* pDst, int len, Orb16s low, Orb16s high, Orb32u* pSeed);
OrbStatus orbsRandUniform_Direct_32f(Orb32f* pDst, int len, Orb32f low, Orb32f high, Orb32u* pSeed);
OrbStatus orbsRandUniform_Direct_64f(Orb64f* pDst, int len, Orb64f low, Orb64f high, Orb32u* pSeed);

/* ---- RandGauss -----------------------------------------------------------------------------------------------
 * Alignment: any.
 * Normal deviates by the polar method (Marsaglia and Bray, 1964): two outputs in a row, times 4.656612873077e-10, are u
 * and v in -1 to 1; s = u^2 + v^2; pairs with s = 0 or s >= 1 are passed over; with r = sqrt(-2 ln(s) / s) two samples
 * follow, stdDev * r * v + mean and stdDev * r * u + mean, n = 0 to len - 1.
 *
 * Samples are computed in double precision, stdDev * r first, with the logarithm of orbsLn_64f. _32f: the mean is added
 * in single precision to the rounded product. Integers are cut off towards 0 and limited to their type. A negative
 * stdDev turns the samples around the mean.
 *
 * With an object, the second sample of a pair opens the next call where a call ends between the two. The Direct members
 * draw one pair more than an even len needs; *pSeed is left as the newest word of the sequence behind it. */
typedef struct OrbsRandGaussState_8u OrbsRandGaussState_8u;
typedef struct OrbsRandGaussState_16s OrbsRandGaussState_16s;
typedef struct OrbsRandGaussState_32f OrbsRandGaussState_32f;
OrbStatus orbsRandGaussInitAlloc_8u(OrbsRandGaussState_8u** ppState, Orb8u mean, Orb8u stdDev, Orb32u seed);
OrbStatus orbsRandGaussInitAlloc_16s(OrbsRandGaussState_16s** ppState, Orb16s mean, Orb16s stdDev, Orb32u seed);
OrbStatus orbsRandGaussInitAlloc_32f(OrbsRandGaussState_32f** ppState, Orb32f mean, Orb32f stdDev, Orb32u seed);
OrbStatus orbsRandGaussInit_16s(OrbsRandGaussState_16s* pState, Orb16s mean, Orb16s stdDev, Orb32u seed);
OrbStatus orbsRandGaussGetSize_16s(int* pSize);
OrbStatus orbsRandGauss_8u(Orb8u* pDst, int len, OrbsRandGaussState_8u* pState);
OrbStatus orbsRandGauss_16s(Orb16s* pDst, int len, OrbsRandGaussState_16s* pState);
OrbStatus orbsRandGauss_32f(Orb32f* pDst, int len, OrbsRandGaussState_32f* pState);
OrbStatus orbsRandGaussFree_8u(OrbsRandGaussState_8u* pState);
OrbStatus orbsRandGaussFree_16s(OrbsRandGaussState_16s* pState);
OrbStatus orbsRandGaussFree_32f(OrbsRandGaussState_32f* pState);
OrbStatus orbsRandGauss_Direct_16s(Orb16s* pDst, int len, Orb16s mean, Orb16s stdDev, Orb32u* pSeed);
OrbStatus orbsRandGauss_Direct_32f(Orb32f* pDst, int len, Orb32f mean, Orb32f stdDev, Orb32u* pSeed);
OrbStatus orbsRandGauss_Direct_64f(Orb64f* pDst, int len, Orb64f mean, Orb64f stdDev, Orb32u* pSeed);

ORBS_DECLARATIONS_END

#endif
