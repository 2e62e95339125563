/* orbs/generators.h: ramps, slopes, chirps, tones and triangles. */
#ifndef ORBS_GENERATORS_H
#define ORBS_GENERATORS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Results have the same bits in every build of the library. All members may be called from any number of threads on
 * different data; a state belongs to one stream, and no two calls may use it at a time. */

/* ---- VectorRamp ----------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = offset + slope * n for n = 0 to len - 1.
 *
 * The product and the sum are of single precision, with n converted to a float. Integers are the nearest to that, a
 * half away from zero, limited to the range of the type; a NaN gives the least of it.
 * _64f has two precisions. From a len of 9 on, if pDst is a multiple of 8 bytes, as many eights of elements as there
 * are behind the first address that is a multiple of 16 have product and sum of double precision; all others have
 * single precision, widened.
 *
 * Statuses, in the order of the tests: null pDst: orbStsNullPtrErr; len below 1: orbStsSizeErr. */
OrbStatus orbsVectorRamp_8u(Orb8u* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_8s(Orb8s* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_16u(Orb16u* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_16s(Orb16s* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_32u(Orb32u* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_32s(Orb32s* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_32f(Orb32f* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorRamp_64f(Orb64f* pDst, int len, Orb32f offset, Orb32f slope);

/* ---- VectorSlope ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = offset + slope * n for n = 0 to len - 1, limited to the range of the type. The line is made by additions,
 * in single precision for 8 and 16 bits and _32f, in double precision for 32 bits and _64f: four lanes begin at 0, 1, 2
 * and 3 times slope and grow by 4 * slope at a time, with a rounding each, and offset is added to what they hold. So a
 * long slope drifts, where VectorRamp does not.
 *
 * Integers are rounded in the caller's rounding mode, to nearest with ties to even if that is the usual one. Where the
 * line leaves the range is told by 1/slope in single precision: all elements before or behind are set to that end of
 * the range, and a line that enters the range begins anew there, with offset + m * slope behind m elements. A NaN gives
 * the least of the range.
 * A slope of 0, or NaN, gives the offset everywhere: floats as it is, integers rounded with a half away from zero.
 *
 * Statuses, in the order of the tests: null pDst: orbStsNullPtrErr; len below 1: orbStsSizeErr. */
OrbStatus orbsVectorSlope_8u(Orb8u* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorSlope_8s(Orb8s* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorSlope_16u(Orb16u* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorSlope_16s(Orb16s* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorSlope_32u(Orb32u* pDst, int len, Orb64f offset, Orb64f slope);
OrbStatus orbsVectorSlope_32s(Orb32s* pDst, int len, Orb64f offset, Orb64f slope);
OrbStatus orbsVectorSlope_32f(Orb32f* pDst, int len, Orb32f offset, Orb32f slope);
OrbStatus orbsVectorSlope_64f(Orb64f* pDst, int len, Orb64f offset, Orb64f slope);

/* ---- VectorJaehne --------------------------------------------------------------------------------------------
 * Alignment: any.
 * A chirp: x[n] = magn * sin(pi/2 / len * n^2) for n = 0 to len - 1, in double precision; within 0.85 ulp of the sine
 * of the rounded phase. One element alone is 0, whatever magn is.
 *
 * _32f, _64f: x[n] in the element's type. _8s, _16s, _32s: the nearest integer, a half away from zero.
 * _8u, _16u, _32u: the chirp is moved and scaled to 0 .. magn, its least sample becoming 0 and its greatest magn, and
 * rounded, a half up. The samples take 8 * len bytes of memory for the length of the call.
 *
 * Statuses, in the order of the tests: null pDst: orbStsNullPtrErr; len below 1: orbStsSizeErr; magn below 0 or NaN:
 * orbStsJaehneErr; no memory (_8u, _16u, _32u): orbStsMemAllocErr. */
OrbStatus orbsVectorJaehne_8u(Orb8u* pDst, int len, Orb8u magn);
OrbStatus orbsVectorJaehne_8s(Orb8s* pDst, int len, Orb8s magn);
OrbStatus orbsVectorJaehne_16u(Orb16u* pDst, int len, Orb16u magn);
OrbStatus orbsVectorJaehne_16s(Orb16s* pDst, int len, Orb16s magn);
OrbStatus orbsVectorJaehne_32u(Orb32u* pDst, int len, Orb32u magn);
OrbStatus orbsVectorJaehne_32s(Orb32s* pDst, int len, int magn);
OrbStatus orbsVectorJaehne_32f(Orb32f* pDst, int len, Orb32f magn);
OrbStatus orbsVectorJaehne_64f(Orb64f* pDst, int len, Orb64f magn);

/* ---- Tone_Direct ---------------------------------------------------------------------------------------------
 * Alignment: any.
 * pDst[n] = magn * cos(2 pi rFreq n + phase) for n = 0 to len - 1; the complex members have magn * sin of the same
 * angle as imaginary part. rFreq is in cycles per sample; the phase is read from pPhase, in radians, and replaced by
 * that of the sample behind the last, in 0 to 2 pi, before any sample is made: calls one behind the other go on. It is
 * computed in double precision and stored in its type; 0 where rounding takes it out of the range.
 *
 * Any hint but orbAlgHintFast: the first two samples are computed directly, in double precision, and all others by
 * x[n] = 2 cos(w) x[n-1] - x[n-2] with w = 2 pi rFreq, the real ones in steps of two. Errors grow with len.
 * orbAlgHintFast: the vector is cut into blocks of 1024 samples, or of 2048 (_64f, _64fc), and a rest, each of which
 * begins anew, so that errors do not grow over them. In each the first 16 (_32f, _16s), 8 (_32fc, _16sc, _64f) or 4
 * (_64fc) samples are made as without the hint, all others by x[n] = 2 cos(L w) x[n-L] - x[n-2L], L being half of that
 * number, in single precision but for _64f and _64fc.
 *
 * 16-bit members cut the fraction off, limited to the range of the type; but those samples that orbAlgHintFast makes by
 * the second formula are rounded in the caller's rounding mode, to nearest with ties to even if that is the usual one.
 *
 * Statuses, in the order of the tests: null pPhase: orbStsNullPtrErr; magn not above 0: orbStsToneMagnErr; rFreq not in
 * [0, 0.5), or [0, 1) of the complex members: orbStsToneFreqErr; phase not in [0, 2 pi): orbStsTonePhaseErr; null pDst:
 * orbStsNullPtrErr; len below 1: orbStsSizeErr. A NaN is in no range. */
OrbStatus orbsTone_Direct_32f(Orb32f* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint);
OrbStatus orbsTone_Direct_32fc(Orb32fc* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint);
OrbStatus orbsTone_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint);
OrbStatus orbsTone_Direct_16sc(Orb16sc* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint);
OrbStatus orbsTone_Direct_64f(Orb64f* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f* pPhase, OrbHintAlgorithm hint);
OrbStatus orbsTone_Direct_64fc(Orb64fc* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f* pPhase, OrbHintAlgorithm hint);

/* ---- Tone Q15 ------------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * magn * cos(2 pi f n + p) in double precision, to the nearest integer, a half away from zero. rFreqQ15 and phaseQ15
 * are fixed-point numbers with 15 fraction bits: f = rFreqQ15 * 2^-15 in cycles per sample, p = phaseQ15 * 2^-15 in
 * radians.
 *
 * ToneQ15_Direct: n = 0 to len - 1.
 * ToneQ15: the next len samples of a state, which counts them in 32 bits.
 * ToneGetStateSizeQ15: the bytes that ToneInitQ15 needs at pState: 40, at any address. ToneInitAllocQ15 takes the
 * memory itself. ToneFree gives back what ToneInitAllocQ15 took and does nothing to a state in the caller's block. A
 * state holds no address: it may be copied, or saved.
 *
 * Statuses, in the order of the tests: a null pointer: orbStsNullPtrErr; len below 1: orbStsSizeErr; pState is no such
 * state: orbStsContextMatchErr; magn below 1: orbStsToneMagnErr; rFreqQ15 not in 0 to 16383: orbStsToneFreqErr;
 * phaseQ15 not in 0 to 205886: orbStsTonePhaseErr; no memory: orbStsMemAllocErr. */
typedef struct OrbsToneState_16s OrbsToneState_16s;
OrbStatus orbsToneQ15_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15);
OrbStatus orbsToneInitQ15_16s(OrbsToneState_16s* pState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15);
OrbStatus orbsToneInitAllocQ15_16s(OrbsToneState_16s** ppState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15);
OrbStatus orbsToneGetStateSizeQ15_16s(int* pSize);
OrbStatus orbsToneQ15_16s(Orb16s* pDst, int len, OrbsToneState_16s* pState);
OrbStatus orbsToneFree(OrbsToneState_16s* pState);

/* ---- Triangle_Direct -----------------------------------------------------------------------------------------
 * Alignment: any.
 * A wave of period 2 pi with straight sides: magn at phase 0, falling to -magn at H = pi + asym, rising to magn again
 * at 2 pi. pDst[n] is its value at 2 pi rFreq n + phase for n = 0 to len - 1; the imaginary part of the complex members
 * is the same wave (2 pi + H)/2 further on, 0 and rising where the real part is magn. Phases are read from pPhase and
 * replaced as by orbsTone_Direct.
 *
 * Samples are made in double precision, one from the other: a step up or down is added, and what comes to lie beyond an
 * end is folded back along the other side; a side that is shorter than a step is jumped over. With asym = -pi the wave
 * only rises. _64f and _64fc add up phases instead, from an rFreq of 0.14 (_64f) or 0.11 (_64fc) on. 16-bit members cut
 * the fraction off.
 *
 * Statuses, in the order of the tests: null pPhase: orbStsNullPtrErr; magn not above 0: orbStsTriangleMagnErr; rFreq
 * not in [0, 0.5): orbStsTriangleFreqErr; asym not in [-pi, pi): orbStsTriangleAsymErr; phase not in [0, 2 pi):
 * orbStsTrianglePhaseErr; null pDst: orbStsNullPtrErr; len below 1: orbStsSizeErr. A NaN is in no range; the ends are
 * the doubles nearest to pi and 2 pi, so that -pi as a float is below its range. */
OrbStatus orbsTriangle_Direct_32f(Orb32f* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase);
OrbStatus orbsTriangle_Direct_32fc(Orb32fc* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase);
OrbStatus orbsTriangle_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase);
OrbStatus orbsTriangle_Direct_16sc(Orb16sc* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase);
OrbStatus orbsTriangle_Direct_64f(Orb64f* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f asym, Orb64f* pPhase);
OrbStatus orbsTriangle_Direct_64fc(Orb64fc* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f asym, Orb64f* pPhase);

/* ---- Triangle Q15 --------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * The wave of orbsTriangle_Direct. rFreqQ15, phaseQ15 and asymQ15 are fixed-point numbers with 15 fraction bits.
 *
 * TriangleQ15_Direct: the samples of orbsTriangle_Direct_16s, which cuts the fraction off.
 * TriangleQ15: the next len samples of a state, to the nearest integer, a half away from zero.
 * TriangleGetStateSizeQ15: the bytes that TriangleInitQ15 needs at pState: 128, at any address. TriangleInitAllocQ15
 * takes the memory itself. TriangleFree gives back what TriangleInitAllocQ15 took and does nothing to a state in the
 * caller's block. A state holds no address: it may be copied, or saved.
 *
 * Statuses, in the order of the tests: a null pointer: orbStsNullPtrErr; len below 1: orbStsSizeErr; pState is no such
 * state: orbStsContextMatchErr; magn below 1: orbStsTriangleMagnErr; rFreqQ15 not in 0 to 16383: orbStsTriangleFreqErr;
 * phaseQ15 not in 0 to 205886: orbStsTrianglePhaseErr; asymQ15 not in -102943 to 102943: orbStsTriangleAsymErr; no
 * memory: orbStsMemAllocErr. */
typedef struct OrbsTriangleState_16s OrbsTriangleState_16s;
OrbStatus orbsTriangleQ15_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15);
OrbStatus orbsTriangleInitQ15_16s(OrbsTriangleState_16s* pState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15);
OrbStatus orbsTriangleInitAllocQ15_16s(OrbsTriangleState_16s** ppState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15);
OrbStatus orbsTriangleGetStateSizeQ15_16s(int* pSize);
OrbStatus orbsTriangleQ15_16s(Orb16s* pDst, int len, OrbsTriangleState_16s* pState);
OrbStatus orbsTriangleFree(OrbsTriangleState_16s* pState);

ORBS_DECLARATIONS_END

#endif
