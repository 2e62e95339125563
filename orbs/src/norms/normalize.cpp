// Normalize: (pSrc[n] - vSub) * (1 / vDiv).
#include "foundation/control.h"
#include "orbs/norms.h"
#include "vectors/complex.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

#include <bit>
#include <cmath>

namespace {

using namespace orbs;

template <class T, class Real>
struct Normalized {
    T sub;
    Real factor;

    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        return hn::Mul(hn::Sub(x, inAllLanes(d, sub)), hn::Set(d, factor));
    }
};

template <class T, class Real>
OrbStatus normalize(const T* pSrc, T* pDst, int len, T vSub, Real vDiv) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (!(std::abs(vDiv) >= std::numeric_limits<Real>::min())) return orbStsDivByZeroErr; // or NaN
    return elementwise(Normalized<T, Real>{vSub, 1 / vDiv}, len, pDst, pSrc);
}

// Seven bits of the scale factor make the exponent field of the power of two; a field of 0 makes 0.
Orb32f factorOf(int vDiv, int scaleFactor) {
    const auto s = static_cast<Orb32u>(scaleFactor);
    const Orb32u field = scaleFactor > 0 ? 127 - (s & 127) : 127 + (-s & 127);
    return 1 / static_cast<Orb32f>(vDiv) * std::bit_cast<Orb32f>(field << 23);
}

template <class T>
OrbStatus normalize(const T* pSrc, T* pDst, int len, T vSub, int vDiv, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (vDiv == 0) return orbStsDivByZeroErr;
    const SseQuiet quiet(SseRounding::nearest);
    const Orb32f factor = factorOf(vDiv, scaleFactor);
    const auto count = static_cast<std::size_t>(len);
    const Orb16s* const src = partsAt(pSrc);
    Orb16s* const dst = partsAt(pDst);
    const auto body = [=](auto d, std::size_t n) HWY_ATTR {
        const auto wide = [=](auto words, std::size_t offset) HWY_ATTR {
            const hn::Rebind<Orb32f, decltype(words)> floats;
            const hn::Rebind<Orb16s, decltype(words)> shorts;
            const auto x = hn::PromoteTo(words, hn::LoadU(shorts, src + n + offset));
            const auto sub = hn::PromoteTo(words, inAllLanes(shorts, vSub));
            const auto y = hn::Mul(hn::ConvertTo(floats, hn::Sub(x, sub)), hn::Set(floats, factor));
            return nearestInt32(hn::Min(y, hn::Set(floats, 32767.0f)));
        };
        hn::StoreU(narrowed(d, wide), d, dst + n);
    };
    if constexpr (isComplex<T>) {
        forEachComplex<Orb16s>(count, dst, body);
    } else {
        forEachVector<Orb16s>(count, dst, body);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsNormalize_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f vSub, Orb32f vDiv) { return normalize(pSrc, pDst, len, vSub, vDiv); }
OrbStatus orbsNormalize_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f vSub, Orb64f vDiv) { return normalize(pSrc, pDst, len, vSub, vDiv); }
OrbStatus orbsNormalize_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32fc vSub, Orb32f vDiv) { return normalize(pSrc, pDst, len, vSub, vDiv); }
OrbStatus orbsNormalize_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64fc vSub, Orb64f vDiv) { return normalize(pSrc, pDst, len, vSub, vDiv); }
OrbStatus orbsNormalize_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, Orb16s vSub, int vDiv, int scaleFactor) { return normalize(pSrc, pDst, len, vSub, vDiv, scaleFactor); }
OrbStatus orbsNormalize_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb16sc vSub, int vDiv, int scaleFactor) { return normalize(pSrc, pDst, len, vSub, vDiv, scaleFactor); }

}
// clang-format on
