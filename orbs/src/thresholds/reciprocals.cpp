// Threshold_LTInv: reciprocals of elements whose magnitude is raised to a level.
#include "orbs/thresholds.h"
#include "thresholds/limits.h"

namespace {

using namespace orbs;

// 1 / m, m the greater of |x| and the level with the sign of x; at level 0 the reciprocal of x itself, NaN or not.
template <class T>
struct Reciprocal {
    T level;

    template <class D, class V>
    V result(D d, V x, bool& zero) const {
        if (level > 0) {
            x = hn::CopySign(hn::Max(hn::Abs(x), hn::Set(d, level)), x);
        } else {
            zero |= !hn::AllFalse(d, hn::Eq(x, hn::Zero(d)));
        }
        return hn::Div(hn::Set(d, 1), x);
    }
};

// conj(z) / |z|^2, below the level conj(z) / (|z| * level), and (1 / level, 0) for a square of 0.
template <class T>
struct ComplexReciprocal {
    T level;

    template <class D, class V>
    V result(D d, V z, bool& zero) const {
        const auto vanishes = isZero(d, z);
        zero |= level == 0 && !hn::AllFalse(d, vanishes);
        return hn::IfThenElse(vanishes, inAllElements(d, 1 / level, T{0}), reciprocal(d, z));
    }

private:
    template <class D, class V>
    V reciprocal(D d, V z) const {
        const V conjugate = Conjugate::of(d, z);
        if constexpr (std::is_same_v<T, Orb64f>) {
            return hn::Div(conjugate, divisor(d, squaresOf(d, z)));
        } else {
            return scaled(d, conjugate, [this](auto dd, auto square) HWY_ATTR {
                return hn::Div(hn::Set(dd, 1), this->divisor(dd, square));
            });
        }
    }
    template <class D, class V>
    V divisor(D d, V square) const {
        const V limit = hn::Set(d, Orb64f{level});
        const auto below = hn::Lt(square, hn::Mul(limit, limit));
        return hn::AllFalse(d, below) ? square : hn::IfThenElse(below, hn::Mul(hn::Sqrt(square), limit), square);
    }
};

// Keeps what is computed from x alone behind the guard that stands before.
template <class Real>
Real settled(Real x) {
    asm volatile("" : "+x"(x));
    return x;
}

// True if a zero was divided by. The flags that are raised are taken back, and none of the caller's is looked at.
template <class Op, class Real>
bool invert(Op op, std::size_t len, Real* dst, const Real* src) {
    const SseQuiet quiet;
    op.level = settled(op.level);
    bool zero = false;
    const auto reciprocal = [&zero, op](auto d, auto v) HWY_ATTR { return op.result(d, v, zero); };
    mapVectors<4>(len, reciprocal, dst, src);
    return zero;
}

template <class T, class Level>
OrbStatus reciprocals(const T* pSrc, T* pDst, int len, Level level, Spread how) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (const OrbStatus status = checkLevel(level)) return status;
    using Op = std::conditional_t<isComplex<T>, ComplexReciprocal<Level>, Reciprocal<Level>>;
    const Op op{level > 0 ? level : 0}; // -0 is 0
    return spreadWithWarning(orbStsDivByZero, len, how, [=](std::size_t first, std::size_t count) {
        return invert(op, partsOf<T> * count, partsAt(pDst + first), partsAt(pSrc + first));
    });
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsThreshold_LTInv_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level) { return reciprocals(pSrc, pDst, len, level, {8192}); }
OrbStatus orbsThreshold_LTInv_32f_I(Orb32f* pSrcDst, int len, Orb32f level) { return reciprocals(pSrcDst, pSrcDst, len, level, {8192}); }
OrbStatus orbsThreshold_LTInv_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level) { return reciprocals(pSrc, pDst, len, level, {2048}); }
OrbStatus orbsThreshold_LTInv_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level) { return reciprocals(pSrcDst, pSrcDst, len, level, {2048}); }
OrbStatus orbsThreshold_LTInv_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level) { return reciprocals(pSrc, pDst, len, level, {2048}); }
OrbStatus orbsThreshold_LTInv_64f_I(Orb64f* pSrcDst, int len, Orb64f level) { return reciprocals(pSrcDst, pSrcDst, len, level, {2048}); }
OrbStatus orbsThreshold_LTInv_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level) { return reciprocals(pSrc, pDst, len, level, {512}); }
OrbStatus orbsThreshold_LTInv_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level) { return reciprocals(pSrcDst, pSrcDst, len, level, {512}); }

}
// clang-format on
