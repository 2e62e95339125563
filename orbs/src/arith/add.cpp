// Add: pSrc1[n] + pSrc2[n].
#include "arith/elementwise.h"
#include "orbs/arith.h"

#include <limits>

namespace {

using namespace orbs;

struct Sum {
    template <class V>
    static V exact(V a, V b) {
        return hn::Add(a, b);
    }
    template <class V>
    static V saturated(V a, V b) {
        return hn::SaturatedAdd(a, b);
    }
    template <class V>
    static Halved<V> halved(V a, V b) {
        const V one = hn::Set(hn::DFromV<V>(), 1);
        const V halves = hn::Add(hn::ShiftRight<1>(a), hn::ShiftRight<1>(b));
        return {hn::Add(halves, hn::And(hn::And(a, b), one)), hn::And(hn::Xor(a, b), one)};
    }
};

// Sums of a narrower type, written wider: nothing can overflow.
template <class T, class Wide>
OrbStatus widened(const T* pSrc1, const T* pSrc2, Wide* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    forEachVector<Wide>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<T, decltype(d)> narrow;
        const hn::Rebind<std::conditional_t<std::is_same_v<Wide, Orb32f>, Orb32s, Wide>, decltype(d)> sum;
        const auto r =
            hn::Add(hn::PromoteTo(sum, hn::LoadU(narrow, pSrc1 + n)), hn::PromoteTo(sum, hn::LoadU(narrow, pSrc2 + n)));
        if constexpr (std::is_same_v<Wide, Orb32f>) {
            hn::StoreU(hn::ConvertTo(d, r), d, pDst + n);
        } else {
            hn::StoreU(r, d, pDst + n);
        }
    });
    return orbStsNoErr;
}

OrbStatus addSaturated(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc1, pSrc2, pDst)) return status;
    forEachVector<Orb32u>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const auto a = hn::LoadU(d, pSrc1 + n), b = hn::LoadU(d, pSrc2 + n);
        hn::StoreU(hn::Add(a, hn::Min(b, hn::Not(a))), d, pDst + n); // ~a is the room that is left above a
    });
    return orbStsNoErr;
}

OrbStatus accumulate(const Orb16s* pSrc, Orb32s* pSrcDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pSrcDst)) return status;
    forEachVector<Orb32s>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb16s, decltype(d)> narrow;
        const auto a = hn::PromoteTo(d, hn::LoadU(narrow, pSrc + n));
        hn::StoreU(saturateHalved(d, Sum::halved(a, hn::LoadU(d, pSrcDst + n))), d, pSrcDst + n);
    });
    return orbStsNoErr;
}

// Complex: the real primitive over twice the length.
template <class C>
OrbStatus complexBinary(const C* pSrc1, const C* pSrc2, C* pDst, int len) {
    return overDoubledLength(
        len, [=](int realLen) { return binary<Sum>(asReal(pSrc1), asReal(pSrc2), asReal(pDst), realLen); });
}
template <class C>
OrbStatus complexScaled(const C* pSrc1, const C* pSrc2, C* pDst, int len, int scaleFactor, ScaleCuts cuts) {
    return overDoubledLength(len, [=](int realLen) {
        return scaled<Sum>(asReal(pSrc1), asReal(pSrc2), asReal(pDst), realLen, scaleFactor, cuts);
    });
}

// The largest exact sum decides: at the last scale factor before the zero cut it still rounds up to 1.
constexpr ScaleCuts cuts8u{.zeroAbove = 9, .boundFrom = -8};
constexpr ScaleCuts cuts16u{.zeroAbove = 17, .boundFrom = -16};
constexpr ScaleCuts cuts16s{.zeroAbove = 16, .boundFrom = -16};
constexpr ScaleCuts cuts32s{.zeroAbove = 32, .boundFrom = -31};
constexpr ParallelFrom from16u{.upToScaleZero = 8192, .scaled = 4096};
constexpr ParallelFrom from16uInPlace{.upToScaleZero = 16384, .scaled = 8192};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAdd_8u_Sfs(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len, int scaleFactor) { return scaled<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, cuts8u); }
OrbStatus orbsAdd_8u_ISfs(const Orb8u* pSrc, Orb8u* pSrcDst, int len, int scaleFactor) { return scaled<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts8u); }
OrbStatus orbsAdd_8u16u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb16u* pDst, int len) { return widened(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len) { return binary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_16u_Sfs(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len, int scaleFactor) { return scaledParallel<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, cuts16u, from16u); }
OrbStatus orbsAdd_16u_ISfs(const Orb16u* pSrc, Orb16u* pSrcDst, int len, int scaleFactor) { return scaledParallel<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts16u, from16uInPlace); }
OrbStatus orbsAdd_16s(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len) { return binary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return binary<Sum>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsAdd_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int len, int scaleFactor) { return scaled<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, cuts16s); }
OrbStatus orbsAdd_16s_ISfs(const Orb16s* pSrc, Orb16s* pSrcDst, int len, int scaleFactor) { return scaled<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts16s); }
OrbStatus orbsAdd_16sc_Sfs(const Orb16sc* pSrc1, const Orb16sc* pSrc2, Orb16sc* pDst, int len, int scaleFactor) { return complexScaled(pSrc1, pSrc2, pDst, len, scaleFactor, cuts16s); }
OrbStatus orbsAdd_16sc_ISfs(const Orb16sc* pSrc, Orb16sc* pSrcDst, int len, int scaleFactor) { return complexScaled(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts16s); }
OrbStatus orbsAdd_16s32s_I(const Orb16s* pSrc, Orb32s* pSrcDst, int len) { return accumulate(pSrc, pSrcDst, len); }
OrbStatus orbsAdd_16s32f(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb32f* pDst, int len) { return widened(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) { return addSaturated(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_32s_Sfs(const Orb32s* pSrc1, const Orb32s* pSrc2, Orb32s* pDst, int len, int scaleFactor) { return scaled<Sum>(pSrc1, pSrc2, pDst, len, scaleFactor, cuts32s); }
OrbStatus orbsAdd_32s_ISfs(const Orb32s* pSrc, Orb32s* pSrcDst, int len, int scaleFactor) { return scaled<Sum>(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts32s); }
OrbStatus orbsAdd_32sc_Sfs(const Orb32sc* pSrc1, const Orb32sc* pSrc2, Orb32sc* pDst, int len, int scaleFactor) { return complexScaled(pSrc1, pSrc2, pDst, len, scaleFactor, cuts32s); }
OrbStatus orbsAdd_32sc_ISfs(const Orb32sc* pSrc, Orb32sc* pSrcDst, int len, int scaleFactor) { return complexScaled(pSrc, pSrcDst, pSrcDst, len, scaleFactor, cuts32s); }
OrbStatus orbsAdd_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst, int len) { return binary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return binary<Sum>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsAdd_32fc(const Orb32fc* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst, int len) { return complexBinary(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_32fc_I(const Orb32fc* pSrc, Orb32fc* pSrcDst, int len) { return complexBinary(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsAdd_64f(const Orb64f* pSrc1, const Orb64f* pSrc2, Orb64f* pDst, int len) { return binary<Sum>(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_64f_I(const Orb64f* pSrc, Orb64f* pSrcDst, int len) { return binary<Sum>(pSrc, pSrcDst, pSrcDst, len); }
OrbStatus orbsAdd_64fc(const Orb64fc* pSrc1, const Orb64fc* pSrc2, Orb64fc* pDst, int len) { return complexBinary(pSrc1, pSrc2, pDst, len); }
OrbStatus orbsAdd_64fc_I(const Orb64fc* pSrc, Orb64fc* pSrcDst, int len) { return complexBinary(pSrc, pSrcDst, pSrcDst, len); }

}
// clang-format on
