// Mul and MulC of 32-bit integers.
#include "arith/doubles.h"
#include "orbs/arith.h"

namespace {

using namespace orbs;

constexpr ScaleCuts productCuts32s{.zeroAbove = 62, .boundFrom = -32};
constexpr ScaleCuts complexProductCuts32s{.zeroAbove = 63, .boundFrom = -32};

// ---- In double precision ----

struct ProductInDouble {
    template <class V>
    static V value(V m, V a, V b) {
        return hn::Mul(hn::Mul(a, m), b);
    }
};

// ---- The low 32 bits ----

struct LowProduct {
    int shift;

    template <class D, class V>
    V result(D, V a, V b) const {
        return hn::ShiftLeftSame(hn::Mul(a, b), shift);
    }
};

// Bits shift to shift + 31 of the product, of 64 bits.
struct ShiftedProduct {
    int shift;

    template <class D, class V>
    V result(D d, V a, V b) const {
        const hn::Repartition<std::uint64_t, D> wide;
        const auto even = hn::BitCast(wide, hn::MulEven(a, b));
        const auto odd = hn::BitCast(wide, hn::MulEven(hn::DupOdd(a), hn::DupOdd(b)));
        if (shift >= 32) {
            const auto high = hn::OddEven(hn::BitCast(d, odd), hn::BitCast(d, hn::ShiftRight<32>(even)));
            return hn::ShiftRightSame(high, shift - 32);
        }
        const auto lowOfOdd = hn::ShiftLeft<32>(hn::ShiftRightSame(odd, shift));
        return hn::OddEven(hn::BitCast(d, lowOfOdd), hn::BitCast(d, hn::ShiftRightSame(even, shift)));
    }
};

OrbStatus lowProduct(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) {
    if (scaleFactor > productCuts32s.zeroAbove || scaleFactor <= productCuts32s.boundFrom)
        return scaledInDouble<ProductInDouble>(len, scaleFactor, productCuts32s, pDst, pSrc1, pSrc2);
    if (scaleFactor > 0) return elementwise(ShiftedProduct{scaleFactor}, len, pDst, pSrc1, pSrc2);
    return elementwise(LowProduct{-scaleFactor}, len, pDst, pSrc1, pSrc2);
}

// ---- Exact, in 64 bits ----

Orb32s fits(Orb64s r) {
    return static_cast<Orb32s>(
        std::clamp<Orb64s>(r, std::numeric_limits<Orb32s>::min(), std::numeric_limits<Orb32s>::max()));
}

struct Rounded {
    int shift;
    Orb32s operator()(Orb64s r) const {
        const Orb64s quotient = r >> shift;
        const Orb64u cut = static_cast<Orb64u>(r) & ((Orb64u{1} << shift) - 1);
        return fits(quotient + (cut + (quotient & 1) > Orb64u{1} << (shift - 1)));
    }
};
struct ShiftedLeft {
    int shift;
    Orb32s operator()(Orb64s r) const { return fits(Orb64s{fits(r)} * (Orb64s{1} << shift)); }
};
Orb32s signOf(Orb64s r) {
    return r > 0 ? std::numeric_limits<Orb32s>::max() : r < 0 ? std::numeric_limits<Orb32s>::min() : 0;
}

using Parts = std::array<Orb64s, 2>;

// (re1*re2 - im1*im2, re1*im2 + im1*re2). Only the imaginary part can leave 64 bits, as 2^63: one less gives the same
// result at every scale.
struct Exact {
    static Orb64s product(Orb32s a, Orb32s b) { return Orb64s{a} * b; }
    static Parts product(Orb32s a, Orb32sc b) { return {product(a, b.re), product(a, b.im)}; }
    static Parts product(Orb32sc a, Orb32sc b) {
        const Orb64u im = static_cast<Orb64u>(product(a.re, b.im)) + static_cast<Orb64u>(product(a.im, b.re));
        const Orb64u over = Orb64u{1} << 63;
        return {product(a.re, b.re) - product(a.im, b.im), static_cast<Orb64s>(im == over ? over - 1 : im)};
    }
};

Orb32s each(auto scale, Orb64s r) {
    return scale(r);
}
Orb32sc each(auto scale, Parts r) {
    return {scale(r[0]), scale(r[1])};
}

// The second operand is an array or a constant.
template <class S, class Second, class R>
OrbStatus exact(const S* pSrc, Second second, R* pDst, int len, int scaleFactor, ScaleCuts limits) {
    const auto operand = [=](int n) {
        if constexpr (std::is_pointer_v<Second>) {
            return elementAt(second + n);
        } else {
            return second;
        }
    };
    const auto run = [=](auto scale) {
        for (int n = 0; n < len; ++n)
            setElement(pDst + n, each(scale, Exact::product(elementAt(pSrc + n), operand(n))));
    };
    if (scaleFactor > limits.zeroAbove) {
        std::memset(pDst, 0, static_cast<std::size_t>(len) * sizeof *pDst);
    } else if (scaleFactor > 0) {
        run(Rounded{scaleFactor});
    } else if (scaleFactor == 0) {
        run(fits);
    } else if (scaleFactor <= limits.boundFrom) {
        run(signOf);
    } else {
        run(ShiftedLeft{-scaleFactor});
    }
    return orbStsNoErr;
}

template <class S1, class S2, class R>
OrbStatus exactBinary(const S1* pSrc1, const S2* pSrc2, R* pDst, int len, int scaleFactor, ScaleCuts limits) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    return exact(pSrc1, pSrc2, pDst, len, scaleFactor, limits);
}
template <class T>
OrbStatus exactConstant(const T* pSrc, T val, T* pDst, int len, int scaleFactor, ScaleCuts limits) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return exact(pSrc, val, pDst, len, scaleFactor, limits);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMul_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return scaledInDouble<ProductInDouble>(len, scaleFactor, productCuts32s, pDst, pSrc1, pSrc2); }
OrbStatus orbsMul_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor) { return scaledInDouble<ProductInDouble>(len, scaleFactor, productCuts32s, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMul_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor) { return exactBinary(pSrc1, pSrc2, pDst, len, scaleFactor, complexProductCuts32s); }
OrbStatus orbsMul_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor) { return exactBinary(pSrc, pSrcDst, pSrcDst, len, scaleFactor, complexProductCuts32s); }
OrbStatus orbsMul_32s32sc_Sfs(const Orb32s* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor) { return exactBinary(pSrc1, pSrc2, pDst, len, scaleFactor, productCuts32s); }
OrbStatus orbsMul_32s32sc_ISfs(const Orb32s* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor) { return exactBinary(pSrc, pSrcDst, pSrcDst, len, scaleFactor, productCuts32s); }
OrbStatus orbsMul_Low_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return lowProduct(pSrc1, pSrc2, pDst, len, scaleFactor); }
OrbStatus orbsMulC_32s_Sfs(const Orb32s* pSrc, int val, Orb32s* pDst, int len, int scaleFactor) { return exactConstant(pSrc, val, pDst, len, scaleFactor, productCuts32s); }
OrbStatus orbsMulC_32s_ISfs(int val, Orb32s* pSrcDst, int len, int scaleFactor) { return exactConstant(pSrcDst, val, pSrcDst, len, scaleFactor, productCuts32s); }
OrbStatus orbsMulC_32sc_Sfs(const Orb32sc* pSrc, Orb32sc val, Orb32sc* pDst, int len, int scaleFactor) { return exactConstant(pSrc, val, pDst, len, scaleFactor, complexProductCuts32s); }
OrbStatus orbsMulC_32sc_ISfs(Orb32sc val, Orb32sc* pSrcDst, int len, int scaleFactor) { return exactConstant(pSrcDst, val, pSrcDst, len, scaleFactor, complexProductCuts32s); }

}
// clang-format on
