// Exp: exponentials of floats.
#include "elementary/elementary.h"
#include "elementary/exp_64f.h"
#include "foundation/control.h"
#include "orbs/elementary.h"

namespace {

using namespace orbs;

// ---- Single precision ----

struct Exp {
    static constexpr Orb32f shifter = 0x1.8p23f;

    template <class D, class V>
    static HWY_INLINE auto parts(D d, V x) {
        const V shifted = x * hn::Set(d, 0x1.715476p0f) + hn::Set(d, shifter);
        const V n = shifted - hn::Set(d, shifter);
        const V r = x - n * hn::Set(d, 0x1.62e4p-1f) - n * hn::Set(d, 0x1.7f7d1cp-20f); // ln 2, the first part short
        const V r2 = r * r;
        const V high = (hn::Set(d, 0x1.555a26p-5f) + r * hn::Set(d, 0x1.12397cp-7f)) + r2 * hn::Set(d, 0x1.694c84p-10f);
        const V series = (hn::Set(d, 0x1.fffffap-2f) + r * hn::Set(d, 0x1.555492p-3f)) + r2 * high;
        const auto bits = hn::BitCast(hn::RebindToSigned<D>(), shifted);
        return Parts<V, decltype(bits)>{hn::Set(d, 1.0f) + (r + r2 * series), bits};
    }

    // Beyond 87, where results leave the normal numbers, and NaN.
    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        const hn::RebindToSigned<D> di;
        return hn::RebindMask(d, hn::Gt(hn::BitCast(di, hn::Abs(x)), hn::BitCast(di, hn::Set(d, 87.0f))));
    }
    template <class D, class V>
    HWY_INLINE V usual(D d, V x) const {
        const auto [y, shifted] = parts(d, x);
        return hn::BitCast(d, hn::BitCast(hn::RebindToSigned<D>(), y) + hn::ShiftLeft<23>(shifted));
    }
    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto [y, shifted] = parts(d, hn::Min(hn::Max(x, hn::Set(d, -104.0f)), hn::Set(d, 89.0f)));
        const V scaled = scaledByPowerOfTwo(d, y, shifted - hn::BitCast(di, hn::Set(d, shifter)));
        return hn::IfThenElse(hn::IsNaN(x), hn::BitCast(d, hn::Set(di, 0x7fc00000)), scaled);
    }
};

// ---- Frames ----

OrbStatus exponentials(const Orb32f* pSrc, Orb32f* pDst, int len) {
    const SseQuiet guard(SseRounding::nearest);
    return elementary(Exp{}, len, pDst, pSrc);
}

template <class S>
OrbStatus exponentials(const S* pSrc, Orb64f* pDst, int len) {
    const SseRounding guard(SseRounding::nearest);
    return elementary(Exp64{}, len, pDst, pSrc);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsExp_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_32f_I(Orb32f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_64f_I(Orb64f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }

}
