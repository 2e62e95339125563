// AddProduct: pSrcDst[n] + pSrc1[n] * pSrc2[n], and AddProductC: pSrcDst[n] + pSrc[n] * val.
#include "arith/doubles.h"
#include "arith/products.h"
#include "arith/sums.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

template <class Product>
struct SumWith {
    template <class D, class V>
    static auto result(D d, V a, V b, V sum) {
        if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
            return hn::Add(sum, Product::result(d, a, b));
        } else {
            return saturated(d, exact(d, a, b, sum));
        }
    }
    template <class D, class V>
    static auto exact(D d, V a, V b, V sum) {
        const auto product = Product::exact(d, a, b);
        const auto wide = widened(d, sum);
        return Pair{hn::Add(product.lower, wide.lower), hn::Add(product.upper, wide.upper)};
    }
};

// Orb16s products added to 32-bit lanes.
struct SumOfWider {
    template <class D, class N, class V>
    static V result(D d, N a, N b, V sum) {
        return saturated(d, exact(d, a, b, sum));
    }
    template <class D, class N, class V>
    static auto exact(D d, N a, N b, V sum) {
        return Sum::exact(d, Product::exact(d, a, b), sum);
    }
};

struct SumInDouble {
    template <class V>
    static V value(V m, V a, V b, V sum) {
        return hn::Mul(hn::Add(hn::Mul(a, b), sum), m);
    }
};

constexpr ScaleCuts addProductCuts16s{.zeroAbove = 30, .boundFrom = -15};
constexpr ScaleCuts addProductCuts16s32s{.zeroAbove = 30, .boundFrom = -31};
constexpr ScaleCuts addProductCuts32s{.zeroAbove = 62, .boundFrom = -31};

// A vector reads sources ahead of what it stores, which differs from element after element where the destination
// starts a little behind a source.
template <class T>
bool readsOwnResults(const T* src, const T* dst, std::size_t len) {
    const auto distance = reinterpret_cast<std::uintptr_t>(dst) - reinterpret_cast<std::uintptr_t>(src);
    return distance != 0 && distance < len * sizeof(T);
}

template <class Op, class T, class... S>
OrbStatus accumulated(Op op, int len, T* pSrcDst, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pSrcDst, pSrc...)) return status;
    const auto count = static_cast<std::size_t>(len);
    if (!(... || readsOwnResults(pSrc, pSrcDst, count))) return elementwise(op, len, pSrcDst, pSrc..., pSrcDst);
    for (std::size_t n = 0; n < count; ++n) elementwise(op, 1, pSrcDst + n, pSrc + n..., pSrcDst + n);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAddProduct_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SumWith<Product>(), len, scaleFactor, addProductCuts16s, pSrcDst, pSrc1, pSrc2, pSrcDst); }
OrbStatus orbsAddProduct_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SumOfWider(), len, scaleFactor, addProductCuts16s32s, pSrcDst, pSrc1, pSrc2, pSrcDst); }
OrbStatus orbsAddProduct_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pSrcDst, int len, int scaleFactor) { return scaledInDouble<SumInDouble>(len, scaleFactor, addProductCuts32s, pSrcDst, pSrc1, pSrc2, pSrcDst); }
OrbStatus orbsAddProduct_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pSrcDst, int len) { return accumulated(SumWith<Product>(), len, pSrcDst, pSrc1, pSrc2); }
OrbStatus orbsAddProduct_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pSrcDst, int len) { return accumulated(SumWith<Product>(), len, pSrcDst, pSrc1, pSrc2); }
OrbStatus orbsAddProduct_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pSrcDst, int len) { return accumulated(SumWith<ProductOfComplex>(), len, pSrcDst, pSrc1, pSrc2); }
OrbStatus orbsAddProduct_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pSrcDst, int len) { return accumulated(SumWith<ProductOfComplex>(), len, pSrcDst, pSrc1, pSrc2); }
OrbStatus orbsAddProductC_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pSrcDst, int len) { return accumulated(withConstant<SumWith<Product>>(val), len, pSrcDst, pSrc); }

}
// clang-format on
