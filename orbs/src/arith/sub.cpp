// Sub: pSrc2[n] - pSrc1[n], SubC: pSrc[n] - val, and SubCRev: val - pSrc[n].
#include "arith/sums.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

constexpr ScaleCuts differenceCuts8u{.zeroAbove = 8, .boundFrom = -8};
constexpr ScaleCuts differenceCuts16u{.zeroAbove = 16, .boundFrom = -16};
constexpr SpreadFrom from16u{.zero = 8192, .negative = 8192, .positive = 8192};
constexpr SpreadFrom from16uInPlace{.zero = 16384, .negative = 16384, .positive = 16384};
constexpr SpreadFrom fromC16u{.zero = 16384, .negative = 16384, .positive = 16384};
constexpr SpreadFrom fromC16uInPlace{.zero = 32768, .negative = 16384, .positive = 16384};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSub_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, differenceCuts8u, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, differenceCuts8u, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor) { return elementwiseSpread(SecondMinusFirst(), len, scaleFactor, differenceCuts16u, from16u, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor) { return elementwiseSpread(SecondMinusFirst(), len, scaleFactor, differenceCuts16u, from16uInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len) { return elementwise(SecondMinusFirst(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return elementwise(SecondMinusFirst(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, sumCuts16s, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, sumCuts16s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor) { return complexScaled<SecondMinusFirst>(pSrc1, pSrc2, pDst, len, scaleFactor, sumCuts16s); }
OrbStatus orbsSub_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor) { return complexScaled<SecondMinusFirst>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, sumCuts16s); }
OrbStatus orbsSub_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len) { return elementwise(Widened<SecondMinusFirst>(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, sumCuts32s, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SecondMinusFirst(), len, scaleFactor, sumCuts32s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor) { return complexScaled<SecondMinusFirst>(pSrc1, pSrc2, pDst, len, scaleFactor, sumCuts32s); }
OrbStatus orbsSub_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor) { return complexScaled<SecondMinusFirst>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, sumCuts32s); }
OrbStatus orbsSub_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return elementwise(SecondMinusFirst(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return elementwise(SecondMinusFirst(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return complexBinary<SecondMinusFirst>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsSub_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len) { return complexBinary<SecondMinusFirst>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsSub_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return elementwise(SecondMinusFirst(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsSub_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return elementwise(SecondMinusFirst(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsSub_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len) { return complexBinary<SecondMinusFirst>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsSub_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len) { return complexBinary<SecondMinusFirst>(pSrc, pSrcDst, pSrcDst, len); }

OrbStatus orbsSubC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, differenceCuts8u, pDst, pSrc); }
OrbStatus orbsSubC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, differenceCuts8u, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) { return elementwiseSpread(withConstant<SecondMinusFirst>(val), len, scaleFactor, differenceCuts16u, fromC16u, pDst, pSrc); }
OrbStatus orbsSubC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor) { return elementwiseSpread(withConstant<SecondMinusFirst>(val), len, scaleFactor, differenceCuts16u, fromC16uInPlace, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_16s_I(Orb16s val, Orb16s* pSrcDst, int len) { return elementwise(withConstant<SecondMinusFirst>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsSubC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsSubC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsSubC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsSubC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<SecondMinusFirst>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return withConstantUnlessZero<SecondMinusFirst>(pSrc, val, pDst, len); }
OrbStatus orbsSubC_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return withConstantUnlessZero<SecondMinusFirst>(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsSubC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len) { return elementwise(withConstant<SecondMinusFirst>(val), len, pDst, pSrc); }
OrbStatus orbsSubC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len) { return elementwise(withConstant<SecondMinusFirst>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsSubC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len) { return withConstantUnlessZero<SecondMinusFirst>(pSrc, val, pDst, len); }
OrbStatus orbsSubC_64f_I(Orb64f val, Orb64f* pSrcDst, int len) { return withConstantUnlessZero<SecondMinusFirst>(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsSubC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len) { return elementwise(withConstant<SecondMinusFirst>(val), len, pDst, pSrc); }
OrbStatus orbsSubC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len) { return elementwise(withConstant<SecondMinusFirst>(val), len, pSrcDst, pSrcDst); }

OrbStatus orbsSubCRev_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, differenceCuts8u, pDst, pSrc); }
OrbStatus orbsSubCRev_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, differenceCuts8u, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) { return elementwiseSpread(withConstant<FirstMinusSecond>(val), len, scaleFactor, differenceCuts16u, fromC16u, pDst, pSrc); }
OrbStatus orbsSubCRev_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor) { return elementwiseSpread(withConstant<FirstMinusSecond>(val), len, scaleFactor, differenceCuts16u, fromC16uInPlace, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsSubCRev_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsSubCRev_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsSubCRev_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsSubCRev_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<FirstMinusSecond>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pDst, pSrc); }
OrbStatus orbsSubCRev_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pDst, pSrc); }
OrbStatus orbsSubCRev_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pDst, pSrc); }
OrbStatus orbsSubCRev_64f_I(Orb64f val, Orb64f* pSrcDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsSubCRev_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pDst, pSrc); }
OrbStatus orbsSubCRev_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len) { return elementwise(withConstant<FirstMinusSecond>(val), len, pSrcDst, pSrcDst); }

}
// clang-format on
