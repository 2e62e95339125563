// Norm and NormDiff of floats.
#include "norms/difference.h"
#include "orbs/norms.h"
#include "vectors/complex.h"

#include <bit>
#include <functional>

namespace {

using namespace orbs;

template <class Lane>
struct Magnitudes : InFixedLanes<Lane> {
    template <class D, class V, class... T>
    HWY_INLINE void add(D d, V (&sum)[1], const T*... p) const {
        sum[0] = hn::Add(sum[0], hn::Abs(difference(d, p...)));
    }
};

template <class Lane>
struct Squares : InFixedLanes<Lane> {
    template <class D, class V, class... T>
    HWY_INLINE void add(D d, V (&sum)[1], const T*... p) const {
        const V x = difference(d, p...);
        sum[0] = hn::Add(sum[0], hn::Mul(x, x));
    }
};

// Two vectors of parts, one of magnitudes.
struct ComplexMagnitudes : InFixedLanes<Orb64f> {
    template <class D, class V, class... T>
    HWY_INLINE void add(D d, V (&sum)[1], const T*... p) const {
        constexpr std::size_t half = hn::MaxLanes(D()) / 2;
        const V low = difference(d, p...), high = difference(d, p + half...);
        const V lowSquares = hn::Mul(low, low), highSquares = hn::Mul(high, high);
        const V re = hn::ConcatEven(d, highSquares, lowSquares), im = hn::ConcatOdd(d, highSquares, lowSquares);
        sum[0] = hn::Add(sum[0], hn::Sqrt(hn::Add(re, im)));
    }
};

// The bits of magnitudes are ordered as they are, and a NaN is above all of them.
template <class Float, std::size_t partsOfElement>
struct Largest : InAnyLanes<hwy::MakeSigned<Float>, 1, partsOfElement * sizeof(Float)> {
    template <class D, class V, class... T>
    HWY_INLINE void add(D di, V (&sum)[1], const T*... p) const {
        const hn::Rebind<Float, D> d;
        auto x = difference(d, p...);
        if constexpr (partsOfElement == 2) {
            const auto squares = hn::Mul(x, x);
            x = hn::Add(squares, hn::Reverse2(d, squares));
        }
        sum[0] = hn::Max(sum[0], hn::BitCast(di, hn::Abs(x)));
    }
    template <class V>
    static HWY_INLINE V merged(V a, V b) {
        return hn::Max(a, b);
    }
};

// ---- Frames ----

template <class R, class S, class... Same>
OrbStatus normInf(int len, R* pNorm, const S* pSrc, const Same*... pSrc2) {
    using Float = std::conditional_t<isComplex<S>, Orb64f, R>;
    const auto sums = [](std::size_t count, auto... src) {
        return std::bit_cast<Float>(reduced(Largest<Float, partsOf<S>>(), count, src...)[0][0]);
    };
    const auto finish = [](Float largest) { return static_cast<R>(isComplex<S> ? squareRoot(largest) : largest); };
    return reduction(sums, finish, len, pNorm, pSrc, pSrc2...);
}

template <class R, class S, class... Same>
OrbStatus normL1(int len, R* pNorm, const S* pSrc, const Same*... pSrc2) {
    using Op = std::conditional_t<isComplex<S>, ComplexMagnitudes, Magnitudes<R>>;
    const auto sums = [](std::size_t count, auto... src) { return reduced(Op(), count, src...)[0][0]; };
    return reduction(sums, std::identity(), len, pNorm, pSrc, pSrc2...);
}

template <class R, class S, class... Same>
OrbStatus normL2(int len, R* pNorm, const S* pSrc, const Same*... pSrc2) {
    const auto sums = [](std::size_t count, auto... src) {
        return reduced(Squares<R>(), partsOf<S> * count, partsAt(src)...)[0][0];
    };
    return reduction(sums, squareRoot<R>, len, pNorm, pSrc, pSrc2...);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsNorm_Inf_32f(const Orb32f* pSrc, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc); }
OrbStatus orbsNorm_Inf_64f(const Orb64f* pSrc, int len, Orb64f* pNorm) { return normInf(len, pNorm, pSrc); }
OrbStatus orbsNorm_Inf_32fc32f(const Orb32fc* pSrc, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc); }
OrbStatus orbsNorm_Inf_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm) { return normInf(len, pNorm, pSrc); }
OrbStatus orbsNorm_L1_32f(const Orb32f* pSrc, int len, Orb32f* pNorm) { return normL1(len, pNorm, pSrc); }
OrbStatus orbsNorm_L1_64f(const Orb64f* pSrc, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc); }
OrbStatus orbsNorm_L1_32fc64f(const Orb32fc* pSrc, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc); }
OrbStatus orbsNorm_L1_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc); }
OrbStatus orbsNorm_L2_32f(const Orb32f* pSrc, int len, Orb32f* pNorm) { return normL2(len, pNorm, pSrc); }
OrbStatus orbsNorm_L2_64f(const Orb64f* pSrc, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc); }
OrbStatus orbsNorm_L2_32fc64f(const Orb32fc* pSrc, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc); }
OrbStatus orbsNorm_L2_64fc64f(const Orb64fc* pSrc, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc); }

OrbStatus orbsNormDiff_Inf_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_Inf_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm) { return normInf(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_Inf_32fc32f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb32f* pNorm) { return normInf(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_Inf_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm) { return normInf(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm) { return normL1(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_32fc64f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L1_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm) { return normL1(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pNorm) { return normL2(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_32fc64f(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc1, pSrc2); }
OrbStatus orbsNormDiff_L2_64fc64f(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64f* pNorm) { return normL2(len, pNorm, pSrc1, pSrc2); }

}
// clang-format on
