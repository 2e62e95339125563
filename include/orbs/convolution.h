/* orbs/convolution.h: convolution. */
#ifndef ORBS_CONVOLUTION_H
#define ORBS_CONVOLUTION_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* Nothing is kept between calls, which may run on any number of threads at once. pDst must not overlap a source unless a
 * family says so. Results are the same bits on every processor and at every alignment. */

/* ---- Conv, ConvDirect, ConvFFT -------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Linear convolution: pDst[n] = sum over k of pSrc1[k] pSrc2[n - k], over all k for which there are both, for n = 0 to
 * src1Len + src2Len - 2. pDst has room for src1Len + src2Len - 1 elements. With L the longer and S the shorter length:
 *
 *   Conv        direct if L + S - 1 < 512 or S < 64; else as ConvFFT
 *   ConvDirect  the sums themselves, whatever the lengths: S products an output, in the type of the elements, in one
 *               fixed order. What has an infinity or a NaN shows in the outputs that it belongs to. No memory is taken.
 *   ConvFFT     transforms of 2^k points of the type of the elements. L < 3 S: one block of the first power of two from
 *               L + S - 1 on. Else overlap-save in blocks of two to four times 2 S points. Errors are small beside the
 *               largest outputs of a block, and a NaN or an infinity spoils all of its block. The objects and all memory
 *               are taken and given back in the call.
 *
 * With transforms and L above 4096 blocks are spread over the threads of orbSetNumThreads; results do not depend on how
 * many these are. Exchanged operands give the same bits.
 *
 * Conv_16s_Sfs: the samples are converted to single precision, in which everything is computed, by the methods of Conv;
 * outputs times 2^-scaleFactor are rounded to nearest, ties to even, and saturated, as orbsConvert_32f16s_Sfs does it.
 * From a scale factor of -128 down outputs saturate by their signs, and those of 0 give 0. The direct form takes memory
 * here, too.
 *
 * Statuses, in the order of the tests: any null pointer: orbStsNullPtrErr; a length below 1: orbStsSizeErr; no memory, or
 * more outputs or a larger object than an int can count: orbStsMemAllocErr. On an error nothing is written. */
OrbStatus orbsConv_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst);
OrbStatus orbsConv_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst);
OrbStatus orbsConvDirect_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst);
OrbStatus orbsConvDirect_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst);
OrbStatus orbsConvFFT_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst);
OrbStatus orbsConvFFT_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst);
OrbStatus orbsConv_16s_Sfs(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb16s* pDst, int scaleFactor);

/* ---- ConvBiased ----------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * pDst[i] = sum over k = 0 to src1Len - 1 of pSrc1[k] pSrc2[i - k] for i = 0 to dstLen - 1, where terms with i + bias - k
 * outside of 0 to src2Len - 1 are left out: pSrc2 points at element `bias` of a window of src2Len elements, so that
 * negative indices reach back into it. Added up in single precision, k upwards; an output without terms is 0. bias may
 * have any value; elements outside of the window, and those of it that no term has, are not read.
 *
 * Statuses, in the order of the tests: any null pointer: orbStsNullPtrErr; a length below 1: orbStsSizeErr. */
OrbStatus orbsConvBiased_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int bias);

/* ---- ConvCyclic ----------------------------------------------------------------------------------------------
 * Alignment: of the elements.
 * Cyclic convolution: pDst[n] = sum over k = 0 to N - 1 of pSrc1[k] pSrc2[(n - k) mod N] for n = 0 to N - 1, with N = 8 or
 * 4 by the name. Floats are added up in single precision, k upwards. _16s_Sfs: the sum of the exact products is kept in
 * 32 bits, where it wraps beyond -2^31 or 2^31 - 1; times 2^-scaleFactor it is rounded to nearest, ties to even, and
 * saturated. pDst may be a source.
 *
 * Nothing is tested: the pointers must not be null. Always orbStsNoErr. */
OrbStatus orbsConvCyclic8x8_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst);
OrbStatus orbsConvCyclic8x8_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int scaleFactor);
OrbStatus orbsConvCyclic4x4_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst);

ORBS_DECLARATIONS_END

#endif
