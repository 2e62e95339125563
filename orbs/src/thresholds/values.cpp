// Threshold_LTVal, _GTVal, _LTValGTVal: what lies beyond a level is replaced by a value.
#include "orbs/thresholds.h"
#include "thresholds/limits.h"

namespace {

using namespace orbs;

template <class Relation, class T>
struct ToValue {
    T level, value;

    template <class D, class V>
    V result(D d, V x) const {
        return hn::IfThenElse(Relation::holds(x, hn::Set(d, level)), hn::Set(d, value), x);
    }
};

template <class Relation, class C>
struct MagnitudeToValue {
    RealOf<C> level;
    C value;

    template <class D, class V>
    V result(D d, V v) const {
        const auto outside = Relation::holds(squaresOf(d, v), levelSquared(d, level));
        return hn::BitCast(d, hn::IfThenElse(outside, inAllElements(d, value.re, value.im), elementsOf(d, v)));
    }
};

// A NaN is not at or above a level, and so below.
template <class T>
struct ToValues {
    T levelLT, valueLT, levelGT, valueGT;

    template <class D, class V>
    V result(D d, V x) const {
        const V above = hn::IfThenElse(hn::Gt(x, hn::Set(d, levelGT)), hn::Set(d, valueGT), x);
        const V low = hn::Set(d, levelLT), below = hn::Set(d, valueLT);
        if constexpr (std::is_floating_point_v<T>) {
            return hn::IfThenElse(hn::Ge(x, low), above, below);
        } else {
            return hn::IfThenElse(hn::Lt(x, low), below, above);
        }
    }
};

template <class Relation, class T, class Level>
OrbStatus toValue(const T* pSrc, T* pDst, int len, Level level, T value) {
    if constexpr (isComplex<T>) {
        return limited(MagnitudeToValue<Relation, T>{level, value}, pSrc, pDst, len, checkLevel(level));
    } else {
        return limited(ToValue<Relation, T>{level, value}, pSrc, pDst, len, orbStsNoErr);
    }
}

template <class T>
OrbStatus toValues(const T* pSrc, T* pDst, int len, T levelLT, T valueLT, T levelGT, T valueGT) {
    return limited(ToValues<T>{levelLT, valueLT, levelGT, valueGT}, pSrc, pDst, len,
                   levelGT >= levelLT ? orbStsNoErr : orbStsThreshValOrderErr);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsThreshold_LTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, Orb16s value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s level, Orb16s value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, Orb16sc value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, Orb16sc value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, Orb32f value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f level, Orb32f value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, Orb32fc value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, Orb32fc value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, Orb64f value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f level, Orb64f value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, Orb64fc value) { return toValue<LessThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_LTVal_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, Orb64fc value) { return toValue<LessThan>(pSrcDst, pSrcDst, len, level, value); }

OrbStatus orbsThreshold_GTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level, Orb16s value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s level, Orb16s value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16s level, Orb16sc value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_16sc_I(Orb16sc* pSrcDst, int len, Orb16s level, Orb16sc value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level, Orb32f value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f level, Orb32f value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f level, Orb32fc value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_32fc_I(Orb32fc* pSrcDst, int len, Orb32f level, Orb32fc value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level, Orb64f value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f level, Orb64f value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f level, Orb64fc value) { return toValue<GreaterThan>(pSrc, pDst, len, level, value); }
OrbStatus orbsThreshold_GTVal_64fc_I(Orb64fc* pSrcDst, int len, Orb64f level, Orb64fc value) { return toValue<GreaterThan>(pSrcDst, pSrcDst, len, level, value); }

OrbStatus orbsThreshold_LTValGTVal_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s levelLT, Orb16s valueLT, Orb16s levelGT, Orb16s valueGT) { return toValues(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_16s_I(Orb16s* pSrcDst, int len, Orb16s levelLT, Orb16s valueLT, Orb16s levelGT, Orb16s valueGT) { return toValues(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int levelLT, int valueLT, int levelGT, int valueGT) { return toValues(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_32s_I(Orb32s* pSrcDst, int len, int levelLT, int valueLT, int levelGT, int valueGT) { return toValues(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f levelLT, Orb32f valueLT, Orb32f levelGT, Orb32f valueGT) { return toValues(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_32f_I(Orb32f* pSrcDst, int len, Orb32f levelLT, Orb32f valueLT, Orb32f levelGT, Orb32f valueGT) { return toValues(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f levelLT, Orb64f valueLT, Orb64f levelGT, Orb64f valueGT) { return toValues(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
OrbStatus orbsThreshold_LTValGTVal_64f_I(Orb64f* pSrcDst, int len, Orb64f levelLT, Orb64f valueLT, Orb64f levelGT, Orb64f valueGT) { return toValues(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }

}
// clang-format on
