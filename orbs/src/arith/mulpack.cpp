// MulPack, MulPerm, MulPackConj: products of packed spectra of real signals.
#include "arith/complex.h"
#include "foundation/frame.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

// Where a packed spectrum of len values has its real bins and its first complex one. The bin of half the sampling rate
// is there if len is even.
struct Pack {
    static std::size_t half(std::size_t len) { return len - 1; }
    static std::size_t pairs(std::size_t) { return 1; }
};
struct Perm {
    static std::size_t half(std::size_t) { return 1; }
    static std::size_t pairs(std::size_t len) { return len % 2 ? 1 : 2; }
};

template <class Layout, class Product, class T>
OrbStatus product(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    pDst[0] = pSrc1[0] * pSrc2[0];
    if (count % 2 == 0) {
        const std::size_t half = Layout::half(count);
        pDst[half] = pSrc1[half] * pSrc2[half];
    }
    const std::size_t pairs = Layout::pairs(count);
    const T *a = pSrc1 + pairs, *b = pSrc2 + pairs;
    T* const dst = pDst + pairs;
    forEachComplex<T>((count - 1) / 2, [=](auto d, std::size_t n) HWY_ATTR {
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
