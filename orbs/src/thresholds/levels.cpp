// Threshold, Threshold_LT, Threshold_GT: elements, or the magnitudes of complex ones, limited to a level.
#include "orbs/thresholds.h"
#include "thresholds/limits.h"
#include "vectors/nearest.h"

namespace {

using namespace orbs;

template <class Relation, class T>
struct ToLevel {
    T level;

    template <class D, class V>
    V result(D d, V x) const {
        return Relation::limited(x, hn::Set(d, level));
    }
};

// z * level / |z|, and (level, 0) for a square of 0, where |z|^2 is in the relation to level^2.
template <class Relation, class T>
struct MagnitudeToLevel {
    T level;

    template <class D, class V>
    V result(D d, V v) const {
        const auto outside = Relation::holds(squaresOf(d, v), levelSquared(d, level));
        if (hn::AllFalse(hn::DFromV<decltype(squaresOf(d, v))>(), outside)) return v;
        return hn::BitCast(d, hn::IfThenElse(outside, atLevel(d, v), elementsOf(d, v)));
    }

private:
    template <class D, class V>
    auto atLevel(D d, V v) const {
        if constexpr (std::is_floating_point_v<T>) {
            const auto by = [this](auto dd, auto square) HWY_ATTR { return this->factor(dd, square); };
            return hn::IfThenElse(isZero(d, v), inAllElements(d, level, T{0}), scaled(d, v, by));
        } else {
            const auto pairs = elementsOf(d, v);
            const hn::DFromV<decltype(pairs)> dp;
            const hn::Half<decltype(dp)> half;
            const auto both = hn::Combine(dp, scaledPairs(half, hn::UpperHalf(half, pairs)),
                                          scaledPairs(half, hn::LowerHalf(half, pairs)));
            return hn::IfThenElse(hn::Eq(pairs, hn::Zero(dp)), inAllElements(d, level, T{0}), both);
        }
    }

    // A square of 0 is taken for 1, so that no zero is divided by.
    template <class D, class V>
    V factor(D d, V square) const {
        const V divisible = hn::IfThenElse(hn::Eq(square, hn::Zero(d)), hn::Set(d, 1), square);
        return hn::Div(hn::Set(d, static_cast<Orb64f>(level)), hn::Sqrt(divisible));
    }
    // No part comes out above the level: all fit into 16 bits.
    template <class D, class V>
    V scaledPairs(D d, V pairs) const {
        const hn::RebindToSigned<D> whole;
        const hn::Rebind<Orb64f, D> dd;
        const auto z = partsOfPairs(hn::BitCast(whole, pairs));
        const auto re = hn::PromoteTo(dd, z.re), im = hn::PromoteTo(dd, z.im);
        const auto by = factor(dd, hn::Add(hn::Mul(re, re), hn::Mul(im, im)));
        return hn::BitCast(d, pairsOfParts(nearestInt32(hn::Mul(re, by)), nearestInt32(hn::Mul(im, by))));
    }
};

struct Zeros {
    template <class D, class V>
    static V result(D d, V) {
        return hn::Zero(d);
    }
};

template <class Relation, class C>
OrbStatus magnitudeToLevel(const C* pSrc, C* pDst, int len, RealOf<C> level) {
    return limited(MagnitudeToLevel<Relation, RealOf<C>>{level}, pSrc, pDst, len, checkLevel(level));
}
template <class Relation>
OrbStatus magnitudeToLevel(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level) {
    const SseQuiet quiet(SseRounding::nearest);
    return limited(MagnitudeToLevel<Relation, Orb16s>{level}, pSrc, pDst, len, checkLevel(level));
}

template <class Relation, class T, class Level>
OrbStatus toLevel(const T* pSrc, T* pDst, int len, Level level) {
    if constexpr (!isComplex<T>) {
        return limited(ToLevel<Relation, Level>{level}, pSrc, pDst, len, orbStsNoErr);
    } else if (std::is_same_v<Relation, GreaterThan> && level == 0) {
        return limited(Zeros(), pSrc, pDst, len, orbStsNoErr);
    } else {
        return magnitudeToLevel<Relation>(pSrc, pDst, len, level);
    }
}

template <class T, class Level>
OrbStatus byRelation(const T* pSrc, T* pDst, int len, Level level, int relOp) {
    if (relOp == orbCmpGreater) return toLevel<GreaterThan>(pSrc, pDst, len, level);
    return toLevel<LessThan>(pSrc, pDst, len, level);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsThreshold_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_16s_I(Orb16s* pSrcDst, int len, Orb16s level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }
OrbStatus orbsThreshold_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }
OrbStatus orbsThreshold_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_32f_I(Orb32f* pSrcDst, int len, Orb32f level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }
OrbStatus orbsThreshold_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }
OrbStatus orbsThreshold_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_64f_I(Orb64f* pSrcDst, int len, Orb64f level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }
OrbStatus orbsThreshold_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, int relOp) { return byRelation(pSrc, pDst, len, level, relOp); }
OrbStatus orbsThreshold_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, int relOp) { return byRelation(pSrcDst, pSrcDst, len, level, relOp); }

OrbStatus orbsThreshold_LT_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_16s_I(Orb16s* pSrcDst, int len, Orb16s level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_32f_I(Orb32f* pSrcDst, int len, Orb32f level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_64f_I(Orb64f* pSrcDst, int len, Orb64f level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LT_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level) { return toLevel<LessThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LT_32s_I(Orb32s* pSrcDst, int len, int level) { return toLevel<LessThan>(pSrcDst, pSrcDst, len, level); }

OrbStatus orbsThreshold_GT_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_16s_I(Orb16s* pSrcDst, int len, Orb16s level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_32f_I(Orb32f* pSrcDst, int len, Orb32f level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_64f_I(Orb64f* pSrcDst, int len, Orb64f level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GT_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level) { return toLevel<GreaterThan>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GT_32s_I(Orb32s* pSrcDst, int len, int level) { return toLevel<GreaterThan>(pSrcDst, pSrcDst, len, level); }

}
// clang-format on
