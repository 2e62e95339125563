// Sqr: pSrc[n] * pSrc[n].
#include "arith/products.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

template <class Op>
struct Squared {
    template <class D, class V>
    static auto result(D d, V v) {
        return Op::result(d, v, v);
    }
    template <class D, class V>
    static auto exact(D d, V v) {
        return Op::exact(d, v, v);
    }
};
using Square = Squared<Product>;
using SquareOfComplex = Squared<ProductOfComplex>;

OrbStatus squares16u(const Orb16u* pSrc, Orb16u* pDst, int len, int scaleFactor) {
    constexpr ScaleCuts cuts{.zeroAbove = 32, .boundFrom = -16};
    if (scaleFactor > 16 && scaleFactor <= cuts.zeroAbove)
        return elementwiseScaled(RoundedToOdd<Square>(), len, scaleFactor - 1, cuts, pDst, pSrc);
    return elementwiseScaled(Square(), len, scaleFactor, cuts, pDst, pSrc);
}

constexpr ScaleCuts squareCuts8u{.zeroAbove = 16, .boundFrom = -8};
constexpr ScaleCuts squareCuts16s{.zeroAbove = 30, .boundFrom = -15};
constexpr ScaleCuts squareCuts16sc{.zeroAbove = 31, .boundFrom = -15};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSqr_8u_Sfs(const Orb8u* pSrc, Orb8u* pDst, int len, int scaleFactor) { return elementwiseScaled(Square(), len, scaleFactor, squareCuts8u, pDst, pSrc); }
OrbStatus orbsSqr_8u_ISfs(Orb8u* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Square(), len, scaleFactor, squareCuts8u, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_16u_Sfs(const Orb16u* pSrc, Orb16u* pDst, int len, int scaleFactor) { return squares16u(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsSqr_16u_ISfs(Orb16u* pSrcDst, int len, int scaleFactor) { return squares16u(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsSqr_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return elementwiseScaled(Square(), len, scaleFactor, squareCuts16s, pDst, pSrc); }
OrbStatus orbsSqr_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(Square(), len, scaleFactor, squareCuts16s, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, int scaleFactor) { return elementwiseScaled(SquareOfComplex(), len, scaleFactor, squareCuts16sc, pDst, pSrc); }
OrbStatus orbsSqr_16sc_ISfs(Orb16sc* pSrcDst, int len, int scaleFactor) { return elementwiseScaled(SquareOfComplex(), len, scaleFactor, squareCuts16sc, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return elementwise(Square(), len, pDst, pSrc); }
OrbStatus orbsSqr_32f_I(Orb32f* pSrcDst, int len) { return elementwise(Square(), len, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return elementwise(SquareOfComplex(), len, pDst, pSrc); }
OrbStatus orbsSqr_32fc_I(Orb32fc* pSrcDst, int len) { return elementwise(SquareOfComplex(), len, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return elementwise(Square(), len, pDst, pSrc); }
OrbStatus orbsSqr_64f_I(Orb64f* pSrcDst, int len) { return elementwise(Square(), len, pSrcDst, pSrcDst); }
OrbStatus orbsSqr_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return elementwise(SquareOfComplex(), len, pDst, pSrc); }
OrbStatus orbsSqr_64fc_I(Orb64fc* pSrcDst, int len) { return elementwise(SquareOfComplex(), len, pSrcDst, pSrcDst); }

}
// clang-format on
