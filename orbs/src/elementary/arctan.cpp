// Arctan: arctangents of floats.
#include "elementary/arctan.h"
#include "orbs/elementary.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

// arctan |x| = base + arctan t:
//   up to 2/3    t = |x|
//   up to 2      t = (|x| - 1) / (|x| + 1), base = pi/4
//   above        t = -1 / |x|, base = pi/2
struct Arctan {
    template <class D, class V>
    static HWY_INLINE V result(D d, V x) {
        const V one = hn::Set(d, 1.0f), magnitude = hn::Abs(x);
        const auto middle = hn::Gt(magnitude, hn::Set(d, 2.0f / 3)), large = hn::Gt(magnitude, hn::Set(d, 2.0f));
        const V numerator = magnitude - hn::IfThenElseZero(middle, one);
        const V denominator = one + hn::IfThenElseZero(middle, magnitude);
        const V t = hn::IfThenElse(large, hn::Set(d, -1.0f), numerator) / hn::IfThenElse(large, magnitude, denominator);
        const auto base = [=](Orb32f quarterPi) HWY_ATTR {
            const V part = hn::Set(d, quarterPi);
            return hn::IfThenElseZero(middle, part) + hn::IfThenElseZero(large, part);
        };
        // arctan t = t + t^3 * series
        const V z = t * t, z2 = z * z;
        const V c0 = hn::Set(d, -0x1.55554cp-2f) + z * hn::Set(d, 0x1.999566p-3f);
        const V c1 = hn::Set(d, -0x1.243e7ap-3f) + z * hn::Set(d, 0x1.c0c5fep-4f);
        const V c2 = hn::Set(d, -0x1.5264f6p-4f) + z * hn::Set(d, 0x1.a07cc2p-5f);
        const V series = (c0 + z2 * c1) + z2 * z2 * (c2 + z2 * hn::Set(d, -0x1.1af8aap-6f));
        const V y = base(0x1.921fb6p-1f) + (t + (t * z * series + base(-0x1.777a5cp-26f)));
        return hn::CopySignToAbs(y, x);
    }
};

struct Arctan64 {
    template <class D, class V>
    static HWY_INLINE V result(D d, V x) {
        const V magnitude = hn::Min(hn::Set(d, 0x1p60), hn::Abs(x)); // the second one if either is NaN
        const auto [c, high, low] = arctanCell(d, magnitude);
        const V t = (magnitude - c) / (hn::Set(d, 1.0) + c * magnitude);
        return hn::CopySignToAbs(high + (t + (arctanBeyond(d, t) + low)), x);
    }
};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsArctan_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return elementwise(Arctan{}, len, pDst, pSrc); }
OrbStatus orbsArctan_32f_I(Orb32f* pSrcDst, int len) { return elementwise(Arctan{}, len, pSrcDst, pSrcDst); }
OrbStatus orbsArctan_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return elementwise(Arctan64{}, len, pDst, pSrc); }
OrbStatus orbsArctan_64f_I(Orb64f* pSrcDst, int len) { return elementwise(Arctan64{}, len, pSrcDst, pSrcDst); }

}
