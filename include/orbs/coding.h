/* orbs/coding.h: companding, byte order and bit packing. */
#ifndef ORBS_CODING_H
#define ORBS_CODING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Order of the tests, unless a family says otherwise: pointers (orbStsNullPtrErr), then len below 1 (orbStsSizeErr).
 * Source and destination do not overlap, but may be the same vector where their elements have the same size. All
 * members may be called from any number of threads on different data. */

/* ---- ALawToLin, MuLawToLin, LinToALaw, LinToMuLaw --------------------------------------------------------------
 * Alignment: any.
 * The codes of ITU-T G.711, n = 0 to len - 1.
 *
 * Decoding: _8u16s gives the linear value on a scale of 16 bits (A-law +-8 to +-32256, mu-law 0 to +-32124, whose
 * negative zero, 0x7f, gives 0 too); _8u32f gives it times 2^-15, exactly.
 *
 * Encoding of 16 bits: A-law takes the upper 13 bits of the sample, mu-law the upper 14; what lies beyond the range of
 * the law becomes its largest code. Negative samples are complemented, not negated, on the way to their magnitude, so in
 * A-law -1 has the code of magnitude 0, and in mu-law -4 the magnitude of 3.
 *
 * Encoding of floats: the sample times 32768, in single precision, limited to -32768 and 32767, rounded to the nearest
 * integer, an exact half away from zero (half is added in single precision too), then as above. A NaN counts as -32768.
 * The caller's rounding mode holds for the product and the sum. The sign of an A-law code is that of the integer; the
 * sign of a mu-law code is that of the float, so a small negative sample that rounds to 0 gets the code of the negative
 * zero. */
OrbStatus orbsALawToLin_8u16s(const Orb8u* pSrc, Orb16s* pDst, int len);
OrbStatus orbsMuLawToLin_8u16s(const Orb8u* pSrc, Orb16s* pDst, int len);
OrbStatus orbsALawToLin_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len);
OrbStatus orbsMuLawToLin_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len);
OrbStatus orbsLinToALaw_16s8u(const Orb16s* pSrc, Orb8u* pDst, int len);
OrbStatus orbsLinToMuLaw_16s8u(const Orb16s* pSrc, Orb8u* pDst, int len);
OrbStatus orbsLinToALaw_32f8u(const Orb32f* pSrc, Orb8u* pDst, int len);
OrbStatus orbsLinToMuLaw_32f8u(const Orb32f* pSrc, Orb8u* pDst, int len);

/* ---- ALawToMuLaw, MuLawToALaw ----------------------------------------------------------------------------------
 * Alignment: any.
 * From the codes of one law to those of the other by the tables of ITU-T G.711; the sign bit stays. From A-law to mu-law
 * and back is exact at the code 0x1a, whose mu-law code is 0x2f, and its negative. pDst may be pSrc. */
OrbStatus orbsALawToMuLaw_8u(const Orb8u* pSrc, Orb8u* pDst, int len);
OrbStatus orbsMuLawToALaw_8u(const Orb8u* pSrc, Orb8u* pDst, int len);

/* ---- SwapBytes -------------------------------------------------------------------------------------------------
 * Alignment: any.
 * The bytes of each element in reverse order: two, three (the first and the third change places), four or eight. The _I
 * forms work in place; the others take pDst = pSrc too. */
OrbStatus orbsSwapBytes_16u(const Orb16u* pSrc, Orb16u* pDst, int len);
OrbStatus orbsSwapBytes_24u(const Orb24u* pSrc, Orb24u* pDst, int len);
OrbStatus orbsSwapBytes_32u(const Orb32u* pSrc, Orb32u* pDst, int len);
OrbStatus orbsSwapBytes_64u(const Orb64u* pSrc, Orb64u* pDst, int len);
OrbStatus orbsSwapBytes_16u_I(Orb16u* pSrcDst, int len);
OrbStatus orbsSwapBytes_24u_I(Orb24u* pSrcDst, int len);
OrbStatus orbsSwapBytes_32u_I(Orb32u* pSrcDst, int len);
OrbStatus orbsSwapBytes_64u_I(Orb64u* pSrcDst, int len);

/* ---- PackBits --------------------------------------------------------------------------------------------------
 * Alignment: any.
 * Appends the low pSrcBitsLen[n] bits of each pSrc[n], n = 0 to srcLen - 1, the highest of them first, to a stream whose
 * first bit is the most significant one of pDst[0]. The stream begins behind the top (dstBitOffset & 7) bits of pDst[0],
 * which stay; nothing is skipped for whole bytes of the offset. As many bytes are written as hold a bit of the stream;
 * the bits left over in the last of them become 0.
 *
 * *pDstBitLen receives the count of bits appended, in 32 bits; but where dstBitOffset is a multiple of 8, that count less
 * dstBitOffset.
 *
 * A bit length above 32 counts as 32 and one below 0 as 0; all fields are packed, and the call ends with the warning
 * orbStsBitLenLimited. Tests: the four pointers (orbStsNullPtrErr), then srcLen below 1 or dstBitOffset below 0
 * (orbStsSizeErr). */
OrbStatus orbsPackBits_32u8u(const Orb32u* pSrc, const Orb32s* pSrcBitsLen, int srcLen, Orb8u* pDst, int dstBitOffset, Orb32s* pDstBitLen);

ORBS_DECLARATIONS_END

#endif
