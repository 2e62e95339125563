/* orbs/goertzel.h: spectra at single frequencies. */
#ifndef ORBS_GOERTZEL_H
#define ORBS_GOERTZEL_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- Goertz, GoertzTwo ---------------------------------------------------------------------------------------
 * Alignment: any.
 * *pVal = sum over n of x[n] exp(-i theta n), n = 0 to len - 1, with theta = 2 pi rFreq and rFreq from 0 (included) to 1
 * (excluded). GoertzTwo: pVal[0] at rFreq[0] and pVal[1] at rFreq[1], the same bits as one by one, in one pass.
 *
 * _64fc: by the recursion s[n] = (x[n] - s[n-2]) + 2 cos(theta) s[n-1] and exp(i theta) s[len-1] - s[len-2], which is the
 * sum of x[n] exp(i theta (len - n)): the same where rFreq len is whole, and with an extra phase of exp(i theta len)
 * elsewhere. Its error grows with len / sin(theta), so it is largest close to the frequencies 0 and 0.5.
 * All others have the plain phase at every frequency. They sum in single precision: four lanes, of every fourth sample,
 * from the last to the first, each step A = A exp(-4 i theta) + x; the rotations are made in double precision. The
 * error grows with the number of steps, len / 4, at most by 4 epsilon of the sum of all magnitudes a step.
 * The caller's rounding mode holds. A NaN or an infinity may turn both parts into NaN, or an infinity into one.
 *
 * _Sfs: that sum times 2^-scaleFactor, to nearest with ties to even whatever the caller's rounding mode is, saturated.
 * Scale factors below -127 count as -127 and those above 126 as 126, with which everything is 0.
 * Q15: rFreq = rFreqQ15 * 2^-15, from 0 to 32767.
 *
 * Statuses, in the order of the tests: orbStsNullPtrErr, orbStsSizeErr (len below 1), orbStsRelFreqErr (a NaN too). The
 * Q15 members test for a negative frequency before all of these, for a null array of them before that.
 * Any number of threads may call at once on different data. */
OrbStatus orbsGoertz_32f(const Orb32f* pSrc, int len, Orb32fc* pVal, Orb32f rFreq);
OrbStatus orbsGoertz_32fc(const Orb32fc* pSrc, int len, Orb32fc* pVal, Orb32f rFreq);
OrbStatus orbsGoertz_64fc(const Orb64fc* pSrc, int len, Orb64fc* pVal, Orb64f rFreq);
OrbStatus orbsGoertz_16s_Sfs(const Orb16s* pSrc, int len, Orb16sc* pVal, Orb32f rFreq, int scaleFactor);
OrbStatus orbsGoertz_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pVal, Orb32f rFreq, int scaleFactor);
OrbStatus orbsGoertzTwo_32fc(const Orb32fc* pSrc, int len, Orb32fc pVal[2], const Orb32f rFreq[2]);
OrbStatus orbsGoertzTwo_64fc(const Orb64fc* pSrc, int len, Orb64fc pVal[2], const Orb64f rFreq[2]);
OrbStatus orbsGoertzTwo_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc pVal[2], const Orb32f rFreq[2], int scaleFactor);
OrbStatus orbsGoertzQ15_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pVal, Orb16s rFreqQ15, int scaleFactor);
OrbStatus orbsGoertzTwoQ15_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc pVal[2], const Orb16s rFreqQ15[2], int scaleFactor);

ORBS_DECLARATIONS_END

#endif
