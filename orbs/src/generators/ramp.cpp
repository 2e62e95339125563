// VectorRamp: straight lines, element by element.
#include "foundation/frame.h"
#include "generators/samples.h"
#include "orbs/generators.h"

namespace {

using namespace orbs;

// offset + slope * n for n = first to last - 1, computed as Real.
template <class Real, class T>
void rampBetween(std::size_t first, std::size_t last, T* dst, Orb32f offset, Orb32f slope) {
    using Lane = std::conditional_t<std::is_same_v<T, Orb64f>, Orb64f, Orb32f>;
    forEachNumbered<Lane>(first, last - first, [=](auto d, std::size_t n, auto numbers) HWY_ATTR {
        const hn::Rebind<Real, decltype(d)> real;
        const auto line = hn::Set(real, offset) + hn::Set(real, slope) * asFloats(real, numbers);
        T* const p = dst + first + n;
        if constexpr (std::is_same_v<T, Real>) {
            hn::StoreU(line, d, p);
        } else if constexpr (std::is_same_v<T, Lane>) {
            hn::StoreU(hn::PromoteTo(d, line), d, p);
        } else {
            storeLimited(d, line, p, RoundedAwayFromZero{});
        }
    });
}

template <class T>
OrbStatus ramp(T* pDst, int len, Orb32f offset, Orb32f slope) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    rampBetween<Orb32f>(0, static_cast<std::size_t>(len), pDst, offset, slope);
    return orbStsNoErr;
}

// From 9 elements on, what can be told in eights behind an address that 16 divides has the precision of doubles, and
// the rest that of floats: a caller sees the difference, and that it depends on where the vector lies.
OrbStatus rampOfTwoPrecisions(Orb64f* pDst, int len, Orb32f offset, Orb32f slope) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    const auto address = reinterpret_cast<std::uintptr_t>(pDst);
    std::size_t first = 0, last = 0;
    if (len >= 9 && address % 8 == 0) {
        first = address % 16 == 0 ? 0 : 1;
        last = first + (count - first) / 8 * 8;
    }
    rampBetween<Orb32f>(0, first, pDst, offset, slope);
    rampBetween<Orb64f>(first, last, pDst, offset, slope);
    rampBetween<Orb32f>(last, count, pDst, offset, slope);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsVectorRamp_8u(Orb8u* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_8s(Orb8s* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_16u(Orb16u* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_16s(Orb16s* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_32u(Orb32u* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_32s(Orb32s* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_32f(Orb32f* pDst, int len, Orb32f offset, Orb32f slope) { return ramp(pDst, len, offset, slope); }
OrbStatus orbsVectorRamp_64f(Orb64f* pDst, int len, Orb32f offset, Orb32f slope) { return rampOfTwoPrecisions(pDst, len, offset, slope); }

}
// clang-format on
