/* orbs/spectra.h: packed spectra of real signals. */
#ifndef ORBS_SPECTRA_H
#define ORBS_SPECTRA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* The spectrum X[0] to X[N-1] of N real samples obeys X[N-k] = conj X[k], so X[0] to X[M] with M = N/2, rounded down,
 * tell all of it; X[0], and X[M] for even N, are real. With Rk, Ik the real and imaginary part of X[k], these are kept as
 * plain real arrays in one of three layouts:
 *
 *           values           N even                                   N odd
 *   CCS     N + 2 or N + 1   R0 0 R1 I1 ... R(M-1) I(M-1) RM 0        R0 0 R1 I1 ... RM IM
 *   Pack    N                R0 R1 I1 ... R(M-1) I(M-1) RM            R0 R1 I1 ... RM IM
 *   Perm    N                R0 RM R1 I1 ... R(M-1) I(M-1)            R0 R1 I1 ... RM IM
 *
 *           N = 8                              N = 7                     N = 2        N = 1
 *   CCS     R0 0 R1 I1 R2 I2 R3 I3 R4 0        R0 0 R1 I1 R2 I2 R3 I3    R0 0 R1 0    R0 0
 *   Pack    R0 R1 I1 R2 I2 R3 I3 R4            R0 R1 I1 R2 I2 R3 I3      R0 R1        R0
 *   Perm    R0 R4 R1 I1 R2 I2 R3 I3            as Pack                   R0 R1        R0
 *
 * CCS is an array of M + 1 complex elements. Perm is what the real transforms work in; from Pack and CCS they move
 * values on the way in or out.
 *
 * Order of the tests: pointers (orbStsNullPtrErr), then len or lenDst below 1 (orbStsSizeErr). All members may be
 * called from any number of threads on different data. */

/* ---- ConjCcs, ConjPack, ConjPerm -----------------------------------------------------------------------------
 * Alignment: any.
 * The whole spectrum of lenDst = N complex elements from a packed one: pDst[k] = X[k] for k = 0 to M, and
 * pDst[N-k] = conj X[k] for k = 1 to N-M-1.
 *
 * ConjCcs copies elements 0 to M as they stand: an imaginary part of X[0] or X[M] that is not 0 goes along. ConjPack and
 * ConjPerm set those two to 0. The conjugate is that of orbsConj: floats change the sign bit, and in _16sc an imaginary
 * part of -32768 becomes 32767. The _I forms find the packed spectrum at the front of the block that they fill; otherwise
 * the arrays do not overlap.
 */
OrbStatus orbsConjCcs_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int lenDst);
OrbStatus orbsConjCcs_64fc_I(Orb64fc* pSrcDst, int lenDst);
OrbStatus orbsConjCcs_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int lenDst);
OrbStatus orbsConjCcs_32fc_I(Orb32fc* pSrcDst, int lenDst);
OrbStatus orbsConjCcs_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int lenDst);
OrbStatus orbsConjCcs_16sc_I(Orb16sc* pSrcDst, int lenDst);
OrbStatus orbsConjPack_64fc(const Orb64f* pSrc, Orb64fc* pDst, int lenDst);
OrbStatus orbsConjPack_64fc_I(Orb64fc* pSrcDst, int lenDst);
OrbStatus orbsConjPack_32fc(const Orb32f* pSrc, Orb32fc* pDst, int lenDst);
OrbStatus orbsConjPack_32fc_I(Orb32fc* pSrcDst, int lenDst);
OrbStatus orbsConjPack_16sc(const Orb16s* pSrc, Orb16sc* pDst, int lenDst);
OrbStatus orbsConjPack_16sc_I(Orb16sc* pSrcDst, int lenDst);
OrbStatus orbsConjPerm_64fc(const Orb64f* pSrc, Orb64fc* pDst, int lenDst);
OrbStatus orbsConjPerm_64fc_I(Orb64fc* pSrcDst, int lenDst);
OrbStatus orbsConjPerm_32fc(const Orb32f* pSrc, Orb32fc* pDst, int lenDst);
OrbStatus orbsConjPerm_32fc_I(Orb32fc* pSrcDst, int lenDst);
OrbStatus orbsConjPerm_16sc(const Orb16s* pSrc, Orb16sc* pDst, int lenDst);
OrbStatus orbsConjPerm_16sc_I(Orb16sc* pSrcDst, int lenDst);

/* ---- MulPack, MulPerm, MulPackConj ---------------------------------------------------------------------------
 * Alignment: any.
 * The product, bin by bin, of two packed spectra of real signals of len samples: the spectrum of their circular
 * convolution. The _I forms: pSrcDst = pSrc * pSrcDst. MulPackConj takes the conjugate of pSrc, which gives the spectrum
 * of the circular correlation.
 *
 * Real bins (the first, and with len even that of half the sampling rate) are one multiplication. A complex bin is
 *   re = re1*re2 - im1*im2, im = re1*im2 + im1*re2;  MulPackConj: re = re1*re2 + im1*im2, im = re1*im2 - im1*re2,
 * each product rounded to the type, then the sum; NaN and infinity as usual. pDst may be a source.
 *
 * The _16s members do not follow the scale rule of orbs/arith.h: a scaleFactor above 0 shifts the exact result right and cuts off, that
 * is, rounds down, and then saturates; the count is limited to 31 for complex bins and taken modulo 32 for real ones. One
 * below 0 saturates to 16 bits, shifts left by the count modulo 32, and saturates again. */
OrbStatus orbsMulPack_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMulPack_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulPack_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMulPack_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPack_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsMulPack_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsMulPerm_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor);
OrbStatus orbsMulPerm_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor);
OrbStatus orbsMulPerm_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len);
OrbStatus orbsMulPerm_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPerm_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len);
OrbStatus orbsMulPerm_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);
OrbStatus orbsMulPackConj_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len);
OrbStatus orbsMulPackConj_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len);

ORBS_DECLARATIONS_END

#endif
