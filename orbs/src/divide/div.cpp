// Div: pSrc2[n] / pSrc1[n]. DivCRev: val / pSrc[n].
#include "foundation/threads.h"
#include "orbs/divide.h"
#include "vectors/complex.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

namespace {

using namespace orbs;

// ---- What becomes of an integer dividend and its divisor, if that is not 0 ----

// 2^-scaleFactor * a / b by a reciprocal estimate and two terms of its series in single precision. The last bit may
// miss an exact half, which then goes to the nearer integer and not to the even one.
struct Series {
    using Lane = Orb32f;
    Lane scale;

    // 1 / b to 12 significant bits.
    template <class D, class V>
    static V estimate(D d, V b) {
        const hn::RebindToUnsigned<D> bits;
        const auto reciprocal = hn::BitCast(bits, hn::Div(hn::Set(d, 1), b));
        return hn::BitCast(d, hn::And(hn::Add(reciprocal, hn::Set(bits, 0x800)), hn::Set(bits, 0xfffff000)));
    }
    template <class D, class V>
    V operator()(D d, V a, V b) const {
        const V r = estimate(d, b);
        const V e = hn::Sub(hn::Set(d, 1), hn::Mul(b, r));
        const V q = hn::Mul(hn::Mul(a, hn::Set(d, scale)), r);
        return hn::Add(hn::Add(q, hn::Mul(q, e)), hn::Mul(q, hn::Mul(e, e)));
    }
};

// The same by a division in double precision.
struct Division {
    using Lane = Orb64f;
    Lane scale;

    template <class D, class V>
    V operator()(D d, V a, V b) const {
        return hn::Div(hn::Mul(a, hn::Set(d, scale)), b);
    }
};

struct Nothing {
    template <class D, class V>
    V operator()(D d, V, V) const {
        return hn::Zero(d);
    }
};

// The extreme with the sign of the quotient, or 0.
struct BySign {
    template <class D, class V>
    V operator()(D d, V a, V b) const {
        return hn::Mul(hn::CopySign(hn::Set(d, huge<hn::TFromD<D>>), b), a);
    }
};

// The largest value, even for a dividend of 0.
struct Top {
    template <class D, class V>
    V operator()(D d, V, V) const {
        return hn::Set(d, huge<hn::TFromD<D>>);
    }
};

// Calls run(quotient) with the one that scaleFactor selects.
template <class Scaled, class Bound, class Run>
bool select(int scaleFactor, ScaleCuts cuts, Run run) {
    if (scaleFactor > cuts.zeroAbove) return run(Nothing());
    if (scaleFactor <= cuts.boundFrom) return run(Bound());
    return run(Scaled{powerOfTwo<typename Scaled::Lane>(-scaleFactor)});
}

// ---- Kernels: true if there is a zero divisor ----

// A zero divisor gives 0 / 0 = 0, and else the extreme with the sign of the dividend, at every scale.
template <class Lane, class Quotient, class A, class B, class R>
bool divide(Quotient quotient, A dividend, const B* divisor, R* dst, std::size_t len) {
    const SseQuiet quiet(SseRounding::nearest);
    bool zeroDivisor = false;
    forEachVector<Lane>(len, [&](auto d, std::size_t n) HWY_ATTR {
        const auto a = loadFloats(d, dividend + n), b = loadFloats(d, divisor + n);
        const auto zero = hn::Eq(b, hn::Zero(d));
        zeroDivisor |= !hn::AllFalse(d, zero);
        storeNearest(d, hn::IfThenElse(zero, hn::Mul(a, hn::Set(d, huge<Lane>)), quotient(d, a, b)), dst + n);
    });
    return zeroDivisor;
}

// a * conj(b) / |b|^2, the products and the sums exact. A zero divisor gives 0.
template <class Lane, class Quotient>
bool divide(Quotient quotient, const Orb16sc* dividend, const Orb16sc* divisor, Orb16sc* dst, std::size_t len) {
    const SseQuiet quiet(SseRounding::nearest);
    bool zeroDivisor = false;
    forEachVector<Lane>(len, [&](auto d, std::size_t n) HWY_ATTR {
        const auto a = loadFloats(d, dividend + n), b = loadFloats(d, divisor + n);
        const auto square = hn::Add(hn::Mul(b.re, b.re), hn::Mul(b.im, b.im));
        const auto re = hn::Add(hn::Mul(a.re, b.re), hn::Mul(a.im, b.im));
        const auto im = hn::Sub(hn::Mul(a.im, b.re), hn::Mul(a.re, b.im));
        const auto zero = hn::Eq(square, hn::Zero(d));
        zeroDivisor |= !hn::AllFalse(d, zero);
        const Planes q{hn::IfThenZeroElse(zero, quotient(d, re, square)),
                       hn::IfThenZeroElse(zero, quotient(d, im, square))};
        storeNearest(d, q, dst + n);
    });
    return zeroDivisor;
}

template <class Scaled, class Bound = BySign, class A, class B, class R>
OrbStatus divided(A dividend, const B* pDivisor, R* pDst, int len, int scaleFactor, ScaleCuts cuts, Spread how) {
    return spreadWithWarning(orbStsDivByZero, len, how, [=](std::size_t first, std::size_t count) {
        return select<Scaled, Bound>(scaleFactor, cuts, [=](auto quotient) {
            return divide<typename Scaled::Lane>(quotient, dividend + first, pDivisor + first, pDst + first, count);
        });
    });
}

template <class Scaled, class Bound = BySign, class A, class B, class R>
OrbStatus quotients(const B* pSrc1, const A* pSrc2, R* pDst, int len, int scaleFactor, ScaleCuts cuts, Spread how) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    return divided<Scaled, Bound>(pSrc2, pSrc1, pDst, len, scaleFactor, cuts, how);
}

OrbStatus reverseQuotients(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return divided<Series>(Repeated<Orb16u>{val}, pSrc, pDst, len, 0, {.zeroAbove = 0, .boundFrom = -1}, {2048});
}

// ---- Floats ----

struct RealQuotient {
    template <class D, class V>
    static bool hasZero(D d, V divisor) {
        return !hn::AllFalse(d, hn::Eq(divisor, hn::Zero(d)));
    }
    template <class D, class V>
    static V quotient(D, V b, V a) {
        return hn::Div(a, b);
    }
};
struct ReverseQuotient : RealQuotient {
    Orb32f val;

    template <class D, class V>
    V quotient(D d, V b) const {
        return hn::Div(hn::Set(d, val), b);
    }
};
// a * conj(b) / |b|^2, each step rounded to the type.
struct ComplexQuotient {
    // The squares may vanish where the parts do not.
    template <class D, class V>
    static bool hasZero(D d, V divisor) {
        if (!RealQuotient::hasZero(d, squareOf(d, divisor))) return false;
        const V zero = hn::VecFromMask(d, hn::Eq(divisor, hn::Zero(d)));
        return !hn::AllFalse(d, hn::MaskFromVec(hn::And(zero, hn::Reverse2(d, zero))));
    }
    template <class D, class V>
    static V quotient(D d, V b, V a) {
        const V byRe = hn::Mul(a, hn::DupEven(b)), byIm = hn::Mul(hn::Reverse2(d, a), hn::DupOdd(b));
        return hn::Div(hn::Add(byRe, hn::Xor(byIm, signOfIm(d))), squareOf(d, b));
    }

private:
    template <class D, class V>
    static V squareOf(D d, V b) {
        const V squares = hn::Mul(b, b);
        return hn::Add(squares, hn::Reverse2(d, squares));
    }
};

template <class Op, class Real, class... S>
bool divideFloats(Op op, std::size_t len, Real* dst, const Real* divisor, const S*... dividend) {
    bool zeroDivisor = false;
    const auto quotient = [&zeroDivisor, op](auto d, auto b, auto... a) HWY_ATTR {
        zeroDivisor |= op.hasZero(d, b);
        return op.quotient(d, b, a...);
    };
    mapVectors<4>(len, quotient, dst, divisor, dividend...);
    return zeroDivisor;
}

template <class Op, class T, class... S>
OrbStatus floatQuotients(Op op, int len, Spread how, T* pDst, const T* pDivisor, const S*... pDividend) {
    if (const OrbStatus status = checkVectors(len, pDst, pDivisor, pDividend...)) return status;
    return spreadWithWarning(orbStsDivByZero, len, how, [=](std::size_t first, std::size_t count) {
        return divideFloats(op, partsOf<T> * count, partsAt(pDst + first), partsAt(pDivisor + first),
                            partsAt(pDividend + first)...);
    });
}
template <class T>
OrbStatus quotients(const T* pSrc1, const T* pSrc2, T* pDst, int len, Spread how) {
    if constexpr (isComplex<T>) {
        return floatQuotients(ComplexQuotient(), len, how, pDst, pSrc1, pSrc2);
    } else {
        return floatQuotients(RealQuotient(), len, how, pDst, pSrc1, pSrc2);
    }
}
OrbStatus reverseQuotients(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) {
    return floatQuotients(ReverseQuotient{{}, val}, len, {4096}, pDst, pSrc);
}

constexpr ScaleCuts quotientCuts8u{.zeroAbove = 8, .boundFrom = -16};
constexpr ScaleCuts quotientCuts16u{.zeroAbove = 16, .boundFrom = -32};
constexpr ScaleCuts quotientCuts16s{.zeroAbove = 15, .boundFrom = -31};
constexpr ScaleCuts quotientCuts16sc{.zeroAbove = 32, .boundFrom = -33};
constexpr ScaleCuts quotientCuts32s{.zeroAbove = 32, .boundFrom = -63};
constexpr ScaleCuts quotientCuts32s16s{.zeroAbove = 31, .boundFrom = -30};
constexpr Spread from2048{2048, Spread::overThreads};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDiv_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor) { return quotients<Series>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts8u, {1024}); }
OrbStatus orbsDiv_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor) { return quotients<Series>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, quotientCuts8u, {1024}); }
// A scale factor so low that only signs count gives 65535 even for a dividend of 0.
OrbStatus orbsDiv_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor) { return quotients<Series, Top>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts16u, from2048); }
OrbStatus orbsDiv_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor) { return quotients<Series, Top>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, quotientCuts16u, from2048); }
OrbStatus orbsDiv_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return quotients<Series>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts16s, {1024}); }
OrbStatus orbsDiv_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return quotients<Series>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, quotientCuts16s, {1024}); }
OrbStatus orbsDiv_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor) { return quotients<Division>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts16sc, {256}); }
OrbStatus orbsDiv_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor) { return quotients<Division>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, quotientCuts16sc, {256}); }
OrbStatus orbsDiv_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return quotients<Division>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts32s, {1024}); }
OrbStatus orbsDiv_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor) { return quotients<Division>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, quotientCuts32s, {1024}); }
OrbStatus orbsDiv_32s16s_Sfs(const Orb16s* pSrc1, const Orb32s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return quotients<Division>(pSrc1, pSrc2, pDst, len, scaleFactor, quotientCuts32s16s, {1024}); }
OrbStatus orbsDiv_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return quotients(pSrc1, pSrc2, pDst, len, {4096}); }
OrbStatus orbsDiv_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return quotients(pSrc, pSrcDst, pSrcDst, len, {4096}); }
OrbStatus orbsDiv_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return quotients(pSrc1, pSrc2, pDst, len, {1024}); }
OrbStatus orbsDiv_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len) { return quotients(pSrc, pSrcDst, pSrcDst, len, {1024}); }
OrbStatus orbsDiv_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return quotients(pSrc1, pSrc2, pDst, len, {1024}); }
OrbStatus orbsDiv_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return quotients(pSrc, pSrcDst, pSrcDst, len, {1024}); }
OrbStatus orbsDiv_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len) { return quotients(pSrc1, pSrc2, pDst, len, {1024}); }
OrbStatus orbsDiv_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len) { return quotients(pSrc, pSrcDst, pSrcDst, len, {1024}); }

OrbStatus orbsDivCRev_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len) { return reverseQuotients(pSrc, val, pDst, len); }
OrbStatus orbsDivCRev_16u_I(Orb16u val, Orb16u* pSrcDst, int len) { return reverseQuotients(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsDivCRev_32f(const Orb32f* pSrc, Orb32f val, Orb32f* pDst, int len) { return reverseQuotients(pSrc, val, pDst, len); }
OrbStatus orbsDivCRev_32f_I(Orb32f val, Orb32f* pSrcDst, int len) { return reverseQuotients(pSrcDst, val, pSrcDst, len); }

}
// clang-format on
