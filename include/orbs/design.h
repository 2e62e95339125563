/* orbs/design.h: filter design. */
#ifndef ORBS_DESIGN_H
#define ORBS_DESIGN_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Frequencies are relative to the sampling rate: 0.5 is the Nyquist frequency. All members may be called from any number
 * of threads on different data. Sines and exponentials are the library's own or of extended precision: a design has the
 * same bits on every processor. */

/* Windows of the FIR designs: by every other value of winType the response is merely cut off. */
enum { orbWinBartlett = 0, orbWinBlackman = 1, orbWinHamming = 2, orbWinHann = 3 };

/* Kinds of IIR filters. */
enum { orbButterworth = 0, orbChebyshev1 = 1 };

/* ---- FIRGen ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * tapsLen taps of a linear-phase filter by the window method, as orbsFIRInit takes them. With m the distance of a tap
 * from the middle, a whole number or, if tapsLen is even, a whole number and a half:
 *
 *   Lowpass            sin(2 pi f m) / (pi m)                                                   0: 2f
 *   Highpass, odd      -sin(2 pi f m) / (pi m)                                                  0: 1 - 2f
 *   Highpass, even     cos(2 pi f m) / (pi m) on the left, its negative on the right
 *   Bandpass           (sin(2 pi high m) - sin(2 pi low m)) / (pi m)                            0: 2 (high - low)
 *   Bandstop, odd      (sin(2 pi low m) - sin(2 pi high m)) / (pi m)                            0: 1 - 2 (high - low)
 *   Bandstop, even     (sin(pi m) - sin(2 pi low m) - sin(2 pi high m)) / (pi m)
 *
 * times the window: Bartlett, the optimal Blackman window (orbsWinBlackmanOpt), Hamming or Hann (orbs/windows.h). An
 * even number of taps gives no gain at the Nyquist frequency except to a high pass, whose gain at 0 is none then; an
 * even band stop passes what lies below the band with its sign changed. Symmetry and antisymmetry are exact.
 *
 * The numerators come from orbsTone_Direct with orbAlgHintFast, so their error grows over 2048 taps at most.
 *
 * doNormal other than 0 scales all taps so that the magnitude of the gain is one at 0 (Lowpass, Bandstop), at 0.5
 * (Highpass) or at (rLowFreq + rHighFreq) / 2 (Bandpass). Where that gain is 0 the taps are not finite.
 *
 * The call takes memory for half of the taps, twice that for two edges. Statuses, in the order of the tests: null pTaps:
 * orbStsNullPtrErr; tapsLen below 5, a frequency not in (0, 0.5], rLowFreq not below rHighFreq: orbStsSizeErr; no
 * memory: orbStsNullPtrErr, and nothing is written. A NaN is in no range. */
OrbStatus orbsFIRGenLowpass_64f(Orb64f rFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal);
OrbStatus orbsFIRGenHighpass_64f(Orb64f rFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal);
OrbStatus orbsFIRGenBandpass_64f(Orb64f rLowFreq, Orb64f rHighFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal);
OrbStatus orbsFIRGenBandstop_64f(Orb64f rLowFreq, Orb64f rHighFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal);

/* ---- IIRGen ----------------------------------------------------------------------------------------------------
 * Alignment: any.
 * A Butterworth or Chebyshev (type I) filter of the given order: an analog filter, taken to discrete time by the
 * bilinear transform with its edge at rFreq. pTaps receives 2 * (order + 1) values: b[0] .. b[order], a[0] .. a[order]
 * with a[0] = 1, as orbsIIRInit takes them. All zeros lie at z = -1 (Lowpass) or z = 1 (Highpass).
 *
 * Butterworth: the gain at rFreq is 1/sqrt(2) of that at 0, or at 0.5 of a high pass, which is 1. rPassbandDb is not
 * looked at.
 * Chebyshev: in the pass band, up to rFreq, the gain lies between 1 and 10^(-rPassbandDb/20). At 0, or at 0.5 of a high
 * pass, it is 1 if the order is odd, and else that lower limit.
 *
 * Poles are the eigenvalues of the discrete system, found to some 5e-14 of its size. Both polynomials are given in
 * powers of 1/z: of high orders with an edge near 0 or 0.5 they tell little of the poles in double precision. Such
 * designs are made without a word; cascades of short filters serve better.
 *
 * Statuses, in the order of the tests: null pTaps: orbStsNullPtrErr; rFreq 0 or below, 0.5 or above:
 * orbStsIIRGenFreqErr; order not in 1 to 12: orbStsIIRGenOrderErr; another filterType than those above: orbStsNoErr, and
 * pTaps is left as it was; rPassbandDb of a Chebyshev filter not in (0, 29]: orbStsIIRGenPassbandErr. A NaN is no such
 * rPassbandDb, but as rFreq it is no fault: all of the taps but a[0] are NaN then. */
OrbStatus orbsIIRGenLowpass_64f(Orb64f rFreq, Orb64f rPassbandDb, int order, Orb64f* pTaps, int filterType);
OrbStatus orbsIIRGenHighpass_64f(Orb64f rFreq, Orb64f rPassbandDb, int order, Orb64f* pTaps, int filterType);

ORBS_DECLARATIONS_END

#endif
