// DotProd of 16-bit integers: exact sums of 64 bits.
#include "orbs/norms.h"
#include "reductions/exact.h"
#include "reductions/reduce16.h"

namespace {

using namespace orbs;

// -products, which fit their lanes where products do not: to two sums as `joined` takes them.
template <class V>
HWY_INLINE void addNegated(V products, V& whole, V& high) {
    const V negated = hn::Sub(hn::Zero(hn::DFromV<V>()), products);
    whole = hn::Add(whole, negated);
    high = hn::Add(high, hn::ShiftRight<16>(negated));
}
inline Orb64s negatedSum(Orb32s whole, Orb32s high) {
    return -joined(whole, high);
}

template <class S1, class S2>
struct Products;

template <>
struct Products<Orb16s, Orb16s> : InWords<Orb32s, 2, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb16s* p1, const Orb16s* p2) const {
        addNegated(pairs(d, loadShorts(d, p1), loadShorts(d, p2)), sum[0], sum[1]);
    }
    static Sums<Orb64s, 1, 1> total(const Sums<Orb32s, 2, 1>& sums) { return {{{negatedSum(sums[0][0], sums[1][0])}}}; }
};

// Real and imaginary parts in turn, each of two elements.
template <>
struct Products<Orb16s, Orb16sc> : InWords<Orb32s, 2, sizeof(Orb16sc)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb16s* p1, const Orb16sc* p2) const {
        const hn::Repartition<Orb8u, D> bytes;
        alignas(16) static constexpr Orb8u reThenIm[] = {0, 1, 4, 5, 2, 3, 6, 7, 8, 9, 12, 13, 10, 11, 14, 15};
        const auto a = twice(d, hn::LoadU(hn::Half<D>(), reinterpret_cast<const Orb32s*>(p1)));
        const auto b = hn::TableLookupBytes(hn::BitCast(bytes, loadShorts(d, p2)), hn::LoadDup128(bytes, reThenIm));
        addNegated(pairs(d, hn::BitCast(Shorts<D>(), a), hn::BitCast(Shorts<D>(), b)), sum[0], sum[1]);
    }
    static Sums<Orb64s, 1, 2> total(const Sums<Orb32s, 2, 2>& sums) {
        return {{{negatedSum(sums[0][0], sums[1][0]), negatedSum(sums[0][1], sums[1][1])}}};
    }
};

// re1 * re2 - im1 * im2 is re1 * re2 + im1 * ~im2 + im1: -im2 itself may not fit.
template <>
struct Products<Orb16sc, Orb16sc> : InWords<Orb32s, 5, sizeof(Orb16sc), 2> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[5], const Orb16sc* p1, const Orb16sc* p2) const {
        const auto a = loadShorts(d, p1), b = loadShorts(d, p2);
        const auto swapped = hn::Reverse2(Shorts<D>(), b);
        addNegated(pairs(d, a, hn::Xor(b, alternating(Shorts<D>(), 0, -1))), sum[0], sum[1]);
        addNegated(pairs(d, a, swapped), sum[2], sum[3]);
        sum[4] = hn::Add(sum[4], hn::ShiftRight<16>(hn::BitCast(d, a)));
    }
    static Sums<Orb64s, 1, 2> total(const Sums<Orb32s, 5, 1>& sums) {
        return {{{negatedSum(sums[0][0], sums[1][0]) + sums[4][0], negatedSum(sums[2][0], sums[3][0])}}};
    }
};

template <class S1, class S2, class R, class F>
OrbStatus dotProductWith(F finish, const S1* pSrc1, const S2* pSrc2, int len, R* pDp) {
    using Op = Products<S1, S2>;
    constexpr std::size_t lanes = isComplex<S2> && !isComplex<S1> ? 2 : 1; // that sums of a part are folded to
    const auto sums = [](std::size_t count, const S1* src1, const S2* src2) {
        return reduced<lanes>(Op(), count, src1, src2)[0];
    };
    return reduction(
        sums, [=](const auto& all) { return eachPart<R>(all, finish); }, len, pDp, pSrc1, pSrc2);
}

template <class S1, class S2, class R>
OrbStatus dotProduct(const S1* pSrc1, const S2* pSrc2, int len, R* pDp) {
    return dotProductWith([](Orb64s s) { return static_cast<PartOf<R>>(s); }, pSrc1, pSrc2, len, pDp);
}
template <class S1, class S2, class R>
OrbStatus dotProduct(const S1* pSrc1, const S2* pSrc2, int len, R* pDp, int scaleFactor) {
    const auto scaled = [=](Orb64s s) {
        if (scaleFactor > 0) return saturated<PartOf<R>>(roundedShift(s, std::min(scaleFactor, 31)));
        return shiftedLeft<PartOf<R>>(s, leftShift(scaleFactor, std::numeric_limits<PartOf<R>>::digits));
    };
    return dotProductWith(scaled, pSrc1, pSrc2, len, pDp);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDotProd_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32f* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16sc32fc(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb32fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16s16sc32fc(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb32fc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16s64s(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb64s* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16sc64sc(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb64sc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16s16sc64sc(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb64sc* pDp) { return dotProduct(pSrc1, pSrc2, len, pDp); }
OrbStatus orbsDotProd_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb16s* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb16sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_16s16sc_Sfs(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb16sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_16s32s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, int len, Orb32s* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_16sc32sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }
OrbStatus orbsDotProd_16s16sc32sc_Sfs(const Orb16s* pSrc1, const Orb16sc* pSrc2, int len, Orb32sc* pDp, int scaleFactor) { return dotProduct(pSrc1, pSrc2, len, pDp, scaleFactor); }

}
// clang-format on
