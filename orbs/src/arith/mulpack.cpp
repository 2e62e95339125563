// MulPack, MulPerm, MulPackConj: products of packed spectra of real signals.
#include "arith/complex.h"
#include "arith/spectra.h"
#include "foundation/frame.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

template <class Layout, class Product, class T>
OrbStatus product(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    pDst[0] = pSrc1[0] * pSrc2[0];
    if (hasHalf(count)) {
        const std::size_t half = Layout::half(count);
        pDst[half] = pSrc1[half] * pSrc2[half];
    }
    const std::size_t bins = Layout::bins(count);
    const T *a = pSrc1 + bins, *b = pSrc2 + bins;
    T* const dst = pDst + bins;
    forEachComplex(complexBins(count), dst, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(Product::of(d, hn::LoadU(d, a + n), hn::LoadU(d, b + n)), d, dst + n);
    });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMulPack_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return product<Pack, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPack_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Pack, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPack_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return product<Pack, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPack_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Pack, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPerm_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return product<Perm, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPerm_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Perm, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPerm_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return product<Perm, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPerm_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Perm, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPackConj_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Pack, ConjugateProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPackConj_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Pack, ConjugateProduct>(pSrc, pSrcDst, pSrcDst, len); }

}
// clang-format on
