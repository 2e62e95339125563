// Norm and NormDiff of 16-bit integers.
#include "orbs/norms.h"
#include "reductions/exact.h"
#include "reductions/reduce16.h"
#include "vectors/powers.h"

#include <type_traits>

namespace {

using namespace orbs;

// |a - b|, which has 16 bits without a sign.
template <class D, class V>
HWY_INLINE auto distance(D, V a, V b) {
    const hn::RebindToUnsigned<Shorts<D>> d;
    return hn::BitCast(d, hn::Sub(hn::Max(a, b), hn::Min(a, b)));
}
// Both halves of lanes of 32 bits.
template <class V>
HWY_INLINE V halves(V v) {
    return hn::Add(hn::And(v, hn::Set(hn::DFromV<V>(), 0xffff)), hn::ShiftRight<16>(v));
}

// |x| as x times its sign; of two elements the larger one less the smaller.
struct Magnitudes : InWords<Orb32u, 1, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb16s* p) const {
        const auto x = loadShorts(d, p);
        const auto sign = hn::Or(hn::BroadcastSignBit(x), hn::Set(Shorts<D>(), 1));
        sum[0] = hn::Add(sum[0], pairs(d, x, sign));
    }
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb16s* p1, const Orb16s* p2) const {
        const auto a = loadShorts(d, p1), b = loadShorts(d, p2);
        const auto sign = hn::Or(hn::VecFromMask(Shorts<D>(), hn::Gt(b, a)), hn::Set(Shorts<D>(), 1));
        sum[0] = hn::Add(sum[0], hn::Sub(pairs(d, a, sign), pairs(d, b, sign)));
    }
};

// Sums of squares as `joined` takes them. Those of differences exceed 32 bits in pairs and go one by one.
struct Squares : InWords<Orb32u, 2, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb16s* p) const {
        const auto x = loadShorts(d, p);
        const V squares = pairs(d, x, x);
        sum[0] = hn::Add(sum[0], squares);
        sum[1] = hn::Add(sum[1], hn::ShiftRight<16>(squares));
    }
    static Sums<Orb64s, 1, 1> total(const Sums<Orb32u, 2, 1>& sums) { return {{{joined(sums[0][0], sums[1][0])}}}; }
};
struct SquaresOfDifferences : InWords<Orb32u, 2, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb16s* p1, const Orb16s* p2) const {
        const auto x = distance(d, loadShorts(d, p1), loadShorts(d, p2));
        sum[0] = hn::Add(sum[0], halves(hn::BitCast(d, hn::Mul(x, x))));
        sum[1] = hn::Add(sum[1], halves(hn::BitCast(d, hn::MulHigh(x, x))));
    }
    static Sums<Orb64s, 1, 1> total(const Sums<Orb32u, 2, 1>& sums) {
        return {{{static_cast<Orb64s>(sums[0][0] + (Orb64u{sums[1][0]} << 16))}}};
    }
};

struct Largest : InAnyLanes<Orb16u, 1, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb16s* p) const {
        sum[0] = hn::Max(sum[0], hn::BitCast(d, hn::Abs(loadShorts(d, p))));
    }
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb16s* p1, const Orb16s* p2) const {
        sum[0] = hn::Max(sum[0], distance(d, loadShorts(d, p1), loadShorts(d, p2)));
    }
    template <class V>
    static HWY_INLINE V merged(V a, V b) {
        return hn::Max(a, b);
    }
};

// ---- Results ----

// r >= 0, cut off where it is scaled down.
template <class R>
R scaled(Orb64s r, int scaleFactor) {
    constexpr int mostLeft = std::numeric_limits<R>::digits;
    if (scaleFactor > 63) return 0;
    return scaleFactor > 0 ? saturated<R>(r >> scaleFactor) : shiftedLeft<R>(r, leftShift(scaleFactor, mostLeft));
}

Orb64f root(Orb64s r) {
    return squareRoot(static_cast<Orb64f>(r));
}

template <class Op, class F, class R, class... S>
OrbStatus norm(Op op, F finish, int len, R* pNorm, const S*... pSrc) {
    const auto sums = [=](std::size_t count, const S*... src) { return Orb64s{reduced(op, count, src...)[0][0]}; };
    return reduction(sums, finish, len, pNorm, pSrc...);
}

template <class... S>
using SquaresOf = std::conditional_t<sizeof...(S) == 2, SquaresOfDifferences, Squares>;

template <class... S>
OrbStatus normInf(int len, Orb32f* pNorm, const S*... pSrc) {
    return norm(
        Largest(), [](Orb64s r) { return static_cast<Orb32f>(r); }, len, pNorm, pSrc...);
}
template <class... S>
OrbStatus normInf(int len, Orb32s* pNorm, int scaleFactor, const S*... pSrc) {
    return norm(
        Largest(), [=](Orb64s r) { return scaled<Orb32s>(r, scaleFactor); }, len, pNorm, pSrc...);
}
template <class... S>
OrbStatus normL1(int len, Orb32f* pNorm, const S*... pSrc) {
    return norm(
        Magnitudes(), [](Orb64s r) { return static_cast<Orb32f>(r); }, len, pNorm, pSrc...);
}
template <class R, class... S>
OrbStatus normL1(int len, R* pNorm, int scaleFactor, const S*... pSrc) {
    const auto finish = [=](Orb64s r) {
        return scaleFactor == 0 ? static_cast<R>(r) : scaled<R>(r, scaleFactor); // the low bits by contract
    };
    return norm(Magnitudes(), finish, len, pNorm, pSrc...);
}
template <class... S>
OrbStatus normL2(int len, Orb32f* pNorm, const S*... pSrc) {
    return norm(
        SquaresOf<S...>(), [](Orb64s r) { return static_cast<Orb32f>(root(r)); }, len, pNorm, pSrc...);
}
template <class... S>
OrbStatus normL2(int len, Orb32s* pNorm, int scaleFactor, const S*... pSrc) {
    const auto finish = [=](Orb64s r) {
        const Orb64f exact = root(r) * powerOfTwo<Orb64f>(-std::clamp(scaleFactor, -64, 64));
        return static_cast<Orb32s>(std::min(exact, 2147483647.0));
    };
    return norm(SquaresOf<S...>(), finish, len, pNorm, pSrc...);
}
template <class... S>
OrbStatus normL2Sqr(int len, Orb64s* pNorm, int scaleFactor, const S*... pSrc) {
    return norm(
        SquaresOf<S...>(), [=](Orb64s r) { return scaled<Orb64s>(r, scaleFactor); }, len, pNorm, pSrc...);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsNorm_Inf_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc); }
OrbStatus orbsNorm_Inf_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor) { return normInf(len, pNorm, scaleFactor, pSrc); }
OrbStatus orbsNorm_L1_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm) { return normL1(len, pNorm, pSrc); }
OrbStatus orbsNorm_L1_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor) { return normL1(len, pNorm, scaleFactor, pSrc); }
OrbStatus orbsNorm_L1_16s64s_Sfs(const Orb16s* pSrc, int len, Orb64s* pNorm, int scaleFactor) { return normL1(len, pNorm, scaleFactor, pSrc); }
OrbStatus orbsNorm_L2_16s32f(const Orb16s* pSrc, int len, Orb32f* pNorm) { return normL2(len, pNorm, pSrc); }
OrbStatus orbsNorm_L2_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pNorm, int scaleFactor) { return normL2(len, pNorm, scaleFactor, pSrc); }
OrbStatus orbsNorm_L2Sqr_16s64s_Sfs(const Orb16s* pSrc, int len, Orb64s* pNorm, int scaleFactor) { return normL2Sqr(len, pNorm, scaleFactor, pSrc); }

OrbStatus orbsNormDiff_Inf_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_Inf_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor) { return normInf(len, pNorm, scaleFactor, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm) { return normL1(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor) { return normL1(len, pNorm, scaleFactor, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_16s64s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pNorm, int scaleFactor) { return normL1(len, pNorm, scaleFactor, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pNorm) { return normL2(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pNorm, int scaleFactor) { return normL2(len, pNorm, scaleFactor, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2Sqr_16s64s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pNorm, int scaleFactor) { return normL2Sqr(len, pNorm, scaleFactor, pSrc1, pSrc2); }

}
// clang-format on
