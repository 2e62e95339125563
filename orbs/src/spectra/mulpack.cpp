// MulPack, MulPerm, MulPackConj: products of packed spectra of real signals.
#include "arith/products.h"
#include "orbs/spectra.h"
#include "spectra/layouts.h"

namespace {

using namespace orbs;

template <class Layout, class Product, class T>
OrbStatus product(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    setElement(pDst, elementAt(pSrc1) * elementAt(pSrc2));
    if (hasHalf(count)) {
        const std::size_t half = Layout::half(count);
        setElement(pDst + half, elementAt(pSrc1 + half) * elementAt(pSrc2 + half));
    }
    const std::size_t bins = Layout::bins(count);
    const T *a = pSrc1 + bins, *b = pSrc2 + bins;
    T* const dst = pDst + bins;
    forEachComplex(complexBins(count), dst, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(Product::of(d, hn::LoadU(d, a + n), hn::LoadU(d, b + n)), d, dst + n);
    });
    return orbStsNoErr;
}

// ---- Orb16s: above 0 the scale factor cuts off and does not round; below it saturates before it shifts, too ----

// What is left of a count in the shifts of real bins, and of those to the left.
int lowBits(Orb32u count) {
    return static_cast<int>(count % 32);
}

Orb16s realProduct(Orb16s a, Orb16s b, int scaleFactor) {
    const auto fits = [](Orb64s r) { return static_cast<Orb16s>(std::clamp<Orb64s>(r, -32768, 32767)); };
    const Orb32s r = a * b;
    if (scaleFactor > 0) return fits(r >> lowBits(static_cast<Orb32u>(scaleFactor)));
    return fits(fits(r) * (Orb64s{1} << lowBits(0u - static_cast<Orb32u>(scaleFactor))));
}

template <class Layout>
OrbStatus truncatedProduct(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    setElement(pDst, realProduct(elementAt(pSrc1), elementAt(pSrc2), scaleFactor));
    if (hasHalf(count)) {
        const std::size_t half = Layout::half(count);
        setElement(pDst + half, realProduct(elementAt(pSrc1 + half), elementAt(pSrc2 + half), scaleFactor));
    }
    const std::size_t bins = Layout::bins(count);
    const int right = std::min(scaleFactor, 31), left = lowBits(0u - static_cast<Orb32u>(scaleFactor));
    const auto product = [=](auto d, auto a, auto b) HWY_ATTR {
        if (right <= 0) return shiftedLeft(d, ProductOfComplex::result(d, a, b), left);
        const Wide<decltype(d)> wide;
        const hn::RebindToUnsigned<decltype(wide)> bits;
        const auto shifted = [=](auto v) HWY_ATTR { // 2^31 looks like -2^31
            const auto over = hn::Eq(v, hn::Set(wide, std::numeric_limits<Orb32s>::min()));
            const auto positive = hn::BitCast(wide, hn::ShiftRightSame(hn::BitCast(bits, v), right));
            return hn::IfThenElse(over, positive, hn::ShiftRightSame(v, right));
        };
        const auto r = ProductOfComplex::wrapped(d, a, b);
        return packed(d, shifted(r.lower), shifted(r.upper));
    };
    mapVectors<1>(2 * complexBins(count), product, pDst + bins, pSrc1 + bins, pSrc2 + bins);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMulPack_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return truncatedProduct<Pack>(pSrc1, pSrc2, pDst, len, scaleFactor); }
OrbStatus orbsMulPack_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return truncatedProduct<Pack>(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsMulPack_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return product<Pack, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPack_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Pack, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPack_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return product<Pack, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPack_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Pack, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPerm_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return truncatedProduct<Perm>(pSrc1, pSrc2, pDst, len, scaleFactor); }
OrbStatus orbsMulPerm_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return truncatedProduct<Perm>(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsMulPerm_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return product<Perm, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPerm_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Perm, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPerm_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return product<Perm, ComplexProduct>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsMulPerm_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Perm, ComplexProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPackConj_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return product<Pack, ConjugateProduct>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsMulPackConj_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return product<Pack, ConjugateProduct>(pSrc, pSrcDst, pSrcDst, len); }

}
// clang-format on
