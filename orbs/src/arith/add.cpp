// Add: pSrc1[n] + pSrc2[n], and AddC: pSrc[n] + val.
#include "arith/sums.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

// The first source has narrower lanes than what it is added to.
struct Accumulate {
    template <class D, class N, class V>
    static V result(D d, N a, V b) {
        return Sum::result(d, hn::PromoteTo(d, a), b);
    }
};

// The largest exact sum decides: at the last scale factor before the zero cut it still rounds up to 1.
constexpr ScaleCuts sumCuts8u{.zeroAbove = 9, .boundFrom = -8};
constexpr ScaleCuts sumCuts16u{.zeroAbove = 17, .boundFrom = -16};
constexpr SpreadFrom from16u{.zero = 8192, .negative = 8192, .positive = 4096};
constexpr SpreadFrom from16uInPlace{.zero = 16384, .negative = 16384, .positive = 8192};
constexpr SpreadFrom fromC16u{.zero = 16384, .negative = 16384, .positive = 8192};
constexpr SpreadFrom fromC16uInPlace{.zero = 32768, .negative = 16384, .positive = 8192};

// Beyond the cuts nothing depends on pSrc, which may be null then.
OrbStatus addConstant(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor, SpreadFrom from) {
    if (scaleFactor > sumCuts16u.zeroAbove) return filled(0, pDst, len);
    if (scaleFactor <= sumCuts16u.boundFrom && val != 0) return filled(0xff, pDst, len);
    return elementwiseSpread(withConstant<Sum>(val), len, scaleFactor, sumCuts16u, from, pDst, pSrc);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAdd_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts8u, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts8u, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_8u16u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb16u* pDst, int len) { return elementwise(Widened<Sum>(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len) { return elementwise(Sum(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor) { return elementwiseSpread(Sum(), len, scaleFactor, sumCuts16u, from16u, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor) { return elementwiseSpread(Sum(), len, scaleFactor, sumCuts16u, from16uInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len) { return elementwise(Sum(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return elementwise(Sum(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts16s, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts16s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor) { return complexScaled<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, sumCuts16s); }
OrbStatus orbsAdd_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor) { return complexScaled<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, sumCuts16s); }
OrbStatus orbsAdd_16s32s_I(const Orb16s* pSrc, Orb32s* pSrcDst, int len) { return elementwise(Accumulate(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len) { return elementwise(Widened<Sum>(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) { return elementwise(Sum(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts32s, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Sum(), len, scaleFactor, sumCuts32s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor) { return complexScaled<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, sumCuts32s); }
OrbStatus orbsAdd_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor) { return complexScaled<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, sumCuts32s); }
OrbStatus orbsAdd_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return elementwise(Sum(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return elementwise(Sum(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return complexBinary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len) { return complexBinary<Sum>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsAdd_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return elementwise(Sum(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsAdd_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return elementwise(Sum(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAdd_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len) { return complexBinary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len) { return complexBinary<Sum>(pSrc, pSrcDst, pSrcDst, len); }

OrbStatus orbsAddC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts8u, pDst, pSrc); }
OrbStatus orbsAddC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts8u, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) { return addConstant(pSrc, val, pDst, len, scaleFactor, fromC16u); }
OrbStatus orbsAddC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor) { return addConstant(pSrcDst, val, pSrcDst, len, scaleFactor, fromC16uInPlace); }
OrbStatus orbsAddC_16s_I(Orb16s val, Orb16s* pSrcDst, int len) { return elementwise(withConstant<Sum>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsAddC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts16s, pDst, pSrc); }
OrbStatus orbsAddC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsAddC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts32s, pDst, pSrc); }
OrbStatus orbsAddC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Sum>(val), len, scaleFactor, sumCuts32s, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return withConstantUnlessZero<Sum>(pSrc, val, pDst, len); }
OrbStatus orbsAddC_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return withConstantUnlessZero<Sum>(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsAddC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len) { return elementwise(withConstant<Sum>(val), len, pDst, pSrc); }
OrbStatus orbsAddC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len) { return elementwise(withConstant<Sum>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsAddC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len) { return withConstantUnlessZero<Sum>(pSrc, val, pDst, len); }
OrbStatus orbsAddC_64f_I(Orb64f val, Orb64f* pSrcDst, int len) { return withConstantUnlessZero<Sum>(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsAddC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len) { return elementwise(withConstant<Sum>(val), len, pDst, pSrc); }
OrbStatus orbsAddC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len) { return elementwise(withConstant<Sum>(val), len, pSrcDst, pSrcDst); }

}
// clang-format on
