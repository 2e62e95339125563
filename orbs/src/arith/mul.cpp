// Mul: pSrc1[n] * pSrc2[n], and MulC: pSrc[n] * val, but for 32-bit integers.
#include "arith/products.h"
#include "foundation/control.h"
#include "orbs/arith.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

namespace {

using namespace orbs;

constexpr ScaleCuts productCuts8u{.zeroAbove = 16, .boundFrom = -8};
constexpr ScaleCuts productCuts16u{.zeroAbove = 32, .boundFrom = -16};
constexpr ScaleCuts productCuts16s{.zeroAbove = 30, .boundFrom = -16};
constexpr ScaleCuts productCuts16sc{.zeroAbove = 31, .boundFrom = -16};
constexpr ScaleCuts productCuts16u16s{.zeroAbove = 31, .boundFrom = -15};
constexpr ScaleCuts productCuts16s32s{.zeroAbove = 30, .boundFrom = -31};
constexpr SpreadFrom from16u{.zero = 8192, .negative = 8192, .positive = 8192};
constexpr SpreadFrom from16uElsewhere{.zero = 16384, .negative = 8192, .positive = 8192};

// From a scale factor of 17 on, 32 bits have no room for what rounding adds to the product. One thread does these.
template <class Op, class HalvedOp, class... S>
OrbStatus product16u(Op op, HalvedOp halved, int len, int scaleFactor, SpreadFrom from, Orb16u* pDst,
                     const S*... pSrc) {
    if (scaleFactor > 16 && scaleFactor <= productCuts16u.zeroAbove)
        return elementwiseScaled(halved, len, scaleFactor - 1, productCuts16u, pDst, pSrc...);
    return elementwiseSpread(op, len, scaleFactor, productCuts16u, from, pDst, pSrc...);
}

template <class Real, class C>
OrbStatus realByComplex(const Real* pSrc1, const C* pSrc2, C* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const Real* const src2 = asReal(pSrc2);
    Real* const dst = asReal(pDst);
    forEachComplex(static_cast<std::size_t>(len), dst, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Repartition<std::uint64_t, decltype(d)> element;
        const hn::Rebind<Orb32u, decltype(element)> half;
        const auto bits = hn::LoadU(half, reinterpret_cast<const Orb32u*>(pSrc1 + n / 2));
        const auto real = hn::DupEven(hn::BitCast(d, hn::PromoteTo(element, bits)));
        hn::StoreU(hn::Mul(real, hn::LoadU(d, src2 + n)), d, dst + n);
    });
    return orbStsNoErr;
}

// A constant 1, and a NaN too, leaves the source as it is; 0 gives zeros whatever the source holds.
template <class T>
OrbStatus timesConstant(const T* pSrc, T val, T* pDst, int len) {
    if (!(val < 1 || val > 1)) return copied(pSrc, pDst, len);
    if (val == 0 && pSrc) return filled(0, pDst, len);
    return elementwise(withConstant<Product>(val), len, pDst, pSrc);
}

// The product under the thread's rounding mode, a NaN as the highest value.
void toIntegers(const Orb32f* src, Orb32f val, Orb16s* dst, std::size_t len) {
    forEachVector<Orb32f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb16s, decltype(d)> narrow;
        const hn::RebindToSigned<decltype(d)> wide;
        const auto product = hn::Min(hn::Mul(hn::LoadU(d, src + n), hn::Set(d, val)), hn::Set(d, 32767.0f));
        const auto rounded = nearestInt32(hn::Max(product, hn::Set(d, -32768.0f)));
        hn::StoreU(hn::DemoteTo(narrow, hn::BitCast(wide, rounded)), narrow, dst + n);
    });
}

OrbStatus toIntegers(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    toIntegers(pSrc, val, pDst, static_cast<std::size_t>(len));
    return orbStsNoErr;
}

OrbStatus scaledToInteger(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const SseRounding rounding(SseRounding::nearest);
    toIntegers(pSrc, val * powerOfTwo<Orb32f>(-std::clamp(scaleFactor, -127, 126)), pDst,
               static_cast<std::size_t>(len));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMul_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(Product(), len, scaleFactor, productCuts8u, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Product(), len, scaleFactor, productCuts8u, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_8u16u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb16u* pDst, int len) { return elementwise(Widened<Product>(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor) { return product16u(Product(), RoundedToOdd<Product>(), len, scaleFactor, from16u, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor) { return product16u(Product(), RoundedToOdd<Product>(), len, scaleFactor, from16uElsewhere, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len) { return elementwise(Product(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return elementwise(Product(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(Product(), len, scaleFactor, productCuts16s, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Product(), len, scaleFactor, productCuts16s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(ProductOfComplex(), len, scaleFactor, productCuts16sc, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(ProductOfComplex(), len, scaleFactor, productCuts16sc, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len) { return elementwise(Widened<Product>(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return elementwiseScaled(Product(), len, scaleFactor, productCuts16s32s, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_16u16s_Sfs(const Orb16u* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(MixedProduct(), len, scaleFactor, productCuts16u16s, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return elementwise(Product(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return elementwise(Product(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return elementwise(ProductOfComplex(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len) { return elementwise(ProductOfComplex(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return realByComplex(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMul_32f32fc_I(const Orb32f* pSrc, Orb32fc* pSrcDst, int len) { return realByComplex(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMul_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return elementwise(Product(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return elementwise(Product(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len) { return elementwise(ProductOfComplex(), len, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len) { return elementwise(ProductOfComplex(), len, pSrcDst, pSrc, pSrcDst); }

OrbStatus orbsMulC_8u_Sfs(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Product>(val), len, scaleFactor, productCuts8u, pDst, pSrc); }
OrbStatus orbsMulC_8u_ISfs(Orb8u val, Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Product>(val), len, scaleFactor, productCuts8u, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_16u_Sfs(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len, int scaleFactor) { return product16u(withConstant<Product>(val), withConstant<RoundedToOdd<Product>>(val), len, scaleFactor, from16uElsewhere, pDst, pSrc); }
OrbStatus orbsMulC_16u_ISfs(Orb16u val, Orb16u* pSrcDst, int len, int scaleFactor) { return product16u(withConstant<Product>(val), withConstant<RoundedToOdd<Product>>(val), len, scaleFactor, from16uElsewhere, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_16s_I(Orb16s val, Orb16s* pSrcDst, int len) { return elementwise(withConstant<Product>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_16s_Sfs(const Orb16s* pSrc, Orb16s val, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Product>(val), len, scaleFactor, productCuts16s, pDst, pSrc); }
OrbStatus orbsMulC_16s_ISfs(Orb16s val, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<Product>(val), len, scaleFactor, productCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc val, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<ProductOfComplex>(val), len, scaleFactor, productCuts16sc, pDst, pSrc); }
OrbStatus orbsMulC_16sc_ISfs(Orb16sc val, Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(withConstant<ProductOfComplex>(val), len, scaleFactor, productCuts16sc, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return timesConstant(pSrc, val, pDst, len); }
OrbStatus orbsMulC_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return timesConstant(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsMulC_32fc(const Orb32fc* pSrc, Orb32fc val, Orb32fc* pDst, int len) { return elementwise(withConstant<ProductOfComplex>(val), len, pDst, pSrc); }
OrbStatus orbsMulC_32fc_I(Orb32fc val, Orb32fc* pSrcDst, int len) { return elementwise(withConstant<ProductOfComplex>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_64f(const Orb64f* pSrc, Orb64f val, Orb64f* pDst, int len) { return timesConstant(pSrc, val, pDst, len); }
OrbStatus orbsMulC_64f_I(Orb64f val, Orb64f* pSrcDst, int len) { return timesConstant(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsMulC_64fc(const Orb64fc* pSrc, Orb64fc val, Orb64fc* pDst, int len) { return elementwise(withConstant<ProductOfComplex>(val), len, pDst, pSrc); }
OrbStatus orbsMulC_64fc_I(Orb64fc val, Orb64fc* pSrcDst, int len) { return elementwise(withConstant<ProductOfComplex>(val), len, pSrcDst, pSrcDst); }
OrbStatus orbsMulC_32f16s_Sfs(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len, int scaleFactor) { return scaledToInteger(pSrc, val, pDst, len, scaleFactor); }
OrbStatus orbsMulC_Low_32f16s(const Orb32f* pSrc, Orb32f val, Orb16s* pDst, int len) { return toIntegers(pSrc, val, pDst, len); }

}
// clang-format on
