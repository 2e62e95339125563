// DotProd of floats, and of 32-bit integers, which are added up as doubles.
#include "foundation/control.h"
#include "orbs/norms.h"
#include "reductions/exact.h"
#include "reductions/reduce.h"
#include "vectors/powers.h"

#include <functional>

namespace {

using namespace orbs;

template <class Lane>
struct Products : InFixedLanes<Lane> {
    template <class D, class V, class S1, class S2>
    HWY_INLINE void add(D d, V (&sum)[1], const S1* p1, const S2* p2) const {
        sum[0] = hn::Add(sum[0], hn::Mul(loadAs(d, p1), loadAs(d, p2)));
    }
    template <class S1, class S2>
    static std::array<Lane, 1> result(std::size_t len, const S1* src1, const S2* src2) {
        return reduced(Products(), len, src1, src2)[0];
    }
};

// In even lanes re * re and re * im, in odd ones im * im and im * re.
template <class Lane>
struct ComplexProducts : InFixedLanes<Lane, 2, 2> {
    template <class D, class V, class C>
    HWY_INLINE void add(D d, V (&sum)[2], const C* p1, const C* p2) const {
        const V a = loadAs(d, p1), b = loadAs(d, p2);
        sum[0] = hn::Add(sum[0], hn::Mul(a, b));
        sum[1] = hn::Add(sum[1], hn::Mul(a, hn::Reverse2(d, b)));
    }
    template <class C, class>
    static std::array<Lane, 2> result(std::size_t len, const C* src1, const C* src2) {
        const auto [same, crossed] = reduced<2>(ComplexProducts(), len, src1, src2);
        return {same[0] - same[1], crossed[0] + crossed[1]};
    }
};

template <class Lane>
struct RealByComplex : InFixedLanes<Lane, 1, 2> {
    template <class D, class V, class T, class C>
    HWY_INLINE void add(D d, V (&sum)[1], const T* p1, const C* p2) const {
        sum[0] = hn::Add(sum[0], hn::Mul(twice(d, loadAs(hn::Half<D>(), p1)), loadAs(d, p2)));
    }
    template <class T, class C>
    static std::array<Lane, 2> result(std::size_t len, const T* src1, const C* src2) {
        return reduced<2>(RealByComplex(), len, src1, src2)[0];
    }
};

template <class Lane, class S1, class S2>
using ProductsOf = std::conditional_t<isComplex<S1>, ComplexProducts<Lane>,
                                      std::conditional_t<isComplex<S2>, RealByComplex<Lane>, Products<Lane>>>;

template <class S1, class S2, class R>
OrbStatus dotProduct(const S1* pSrc1, const S2* pSrc2, int len, R* pDp) {
    using Lane = decltype([] {
        if constexpr (isComplex<R>)
            return RealOf<R>();
        else
            return R();
    }());
    const auto finish = [](const auto& sums) { return eachPart<R>(sums, std::identity()); };
    return reduction(ProductsOf<Lane, S1, S2>::template result<S1, S2>, finish, len, pDp, pSrc1, pSrc2);
}

// The contract limits the scale factor and rounds to nearest in every mode.
template <class S1, class S2, class R>
OrbStatus dotProduct(const S1* pSrc1, const S2* pSrc2, int len, R* pDp, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDp)) return status;
    const SseQuiet quiet(SseRounding::nearest);
    const Orb64f scale = powerOfTwo<Orb64f>(-std::clamp(scaleFactor, -31, 93));
    const auto sums = ProductsOf<Orb64f, S1, S2>::template result<S1, S2>(static_cast<std::size_t>(len), pSrc1, pSrc2);
    setElement(pDp, eachPart<R>(sums, [=](Orb64f s) { return nearest<Orb32s>(s * scale); }));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDotProd_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb32f* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb32fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, int len, Orb32fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_32f64f(const Orb32f* pSrc1, const Orb32f* pSrc2, int len, Orb64f* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_32fc64fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, int len, Orb64fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_32f32fc64fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, int len, Orb64fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, int len, Orb64f* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, int len, Orb64fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_64f64fc(const Orb64f* pSrc1, const Orb64fc* pSrc2, int len, Orb64fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16s32s32s_Sfs(const Orb16s* pSrc1, const Orb32s* pSrc2, int len, Orb32s* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, int len, Orb32s* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_32s32sc_Sfs(const Orb32s* pSrc1, const Orb32sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }

}
// clang-format on
