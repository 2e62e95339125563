// Threshold_LTAbs, Threshold_GTAbs: magnitudes of real elements limited to a level.
#include "orbs/thresholds.h"
#include "thresholds/limits.h"

namespace {

using namespace orbs;

// Elements are compared with the level and its negative: no magnitude overflows. A NaN stays.
template <class T>
struct LevelAndNegative {
    T level;

    template <class D>
    auto positive(D d) const {
        return hn::Set(d, level);
    }
    template <class D>
    auto negative(D d) const {
        return hn::Set(d, static_cast<T>(-level));
    }
};

// Zeros of both signs become the positive level.
template <class T>
struct AtLeast : LevelAndNegative<T> {
    template <class D, class V>
    V result(D d, V x) const {
        const V high = this->positive(d), low = this->negative(d);
        const auto within = hn::And(hn::Gt(x, low), hn::Lt(x, high));
        return hn::IfThenElse(within, hn::IfThenElse(hn::Lt(x, hn::Zero(d)), low, high), x);
    }
};
// The second operand is the result where either is a NaN, and of equal ones.
template <class T>
struct AtMost : LevelAndNegative<T> {
    template <class D, class V>
    V result(D d, V x) const {
        return hn::Min(this->positive(d), hn::Max(this->negative(d), x));
    }
};

template <template <class> class Limit, class T>
OrbStatus magnitudes(const T* pSrc, T* pDst, int len, T level) {
    const T positive = level > 0 ? level : 0; // -0 is 0
    return limited(Limit<T>{{positive}}, pSrc, pDst, len, checkLevel(level));
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsThreshold_LTAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level) { return magnitudes<AtLeast>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LTAbs_16s_I(Orb16s* pSrcDst, int len, Orb16s level) { return magnitudes<AtLeast>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LTAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level) { return magnitudes<AtLeast>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LTAbs_32s_I(Orb32s* pSrcDst, int len, int level) { return magnitudes<AtLeast>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LTAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level) { return magnitudes<AtLeast>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LTAbs_32f_I(Orb32f* pSrcDst, int len, Orb32f level) { return magnitudes<AtLeast>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_LTAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level) { return magnitudes<AtLeast>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_LTAbs_64f_I(Orb64f* pSrcDst, int len, Orb64f level) { return magnitudes<AtLeast>(pSrcDst, pSrcDst, len, level); }

OrbStatus orbsThreshold_GTAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s level) { return magnitudes<AtMost>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GTAbs_16s_I(Orb16s* pSrcDst, int len, Orb16s level) { return magnitudes<AtMost>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GTAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int level) { return magnitudes<AtMost>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GTAbs_32s_I(Orb32s* pSrcDst, int len, int level) { return magnitudes<AtMost>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GTAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f level) { return magnitudes<AtMost>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GTAbs_32f_I(Orb32f* pSrcDst, int len, Orb32f level) { return magnitudes<AtMost>(pSrcDst, pSrcDst, len, level); }
OrbStatus orbsThreshold_GTAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f level) { return magnitudes<AtMost>(pSrc, pDst, len, level); }
OrbStatus orbsThreshold_GTAbs_64f_I(Orb64f* pSrcDst, int len, Orb64f level) { return magnitudes<AtMost>(pSrcDst, pSrcDst, len, level); }

}
// clang-format on
