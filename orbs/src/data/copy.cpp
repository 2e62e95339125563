// Copy, Move, Zero and Set: elements of every width are so many bytes.
#include "orbs/data.h"

#include "foundation/frame.h"
#include "vectors/loops.h"

#include <cstring>

namespace {

using namespace orbs;

template <class T>
OrbStatus copy(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (pSrc != pDst) std::memcpy(pDst, pSrc, static_cast<std::size_t>(len) * sizeof(T));
    return orbStsNoErr;
}

template <class T>
OrbStatus move(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    std::memmove(pDst, pSrc, static_cast<std::size_t>(len) * sizeof(T));
    return orbStsNoErr;
}

template <class T>
OrbStatus zero(T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    std::memset(static_cast<void*>(pDst), 0, static_cast<std::size_t>(len) * sizeof(T));
    return orbStsNoErr;
}

// A vector holds whole elements of every width, so the last vector may lie partly over the one before it.
template <class T>
OrbStatus set(T val, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    const std::size_t bytes = static_cast<std::size_t>(len) * sizeof(T);
    Orb8u* const dst = reinterpret_cast<Orb8u*>(pDst);
    alignas(16) Orb8u pattern[16];
    for (std::size_t n = 0; n < sizeof pattern; n += sizeof val) std::memcpy(pattern + n, &val, sizeof val);
    const auto fill = [=, &pattern](auto d) HWY_ATTR {
        constexpr std::size_t step = hn::MaxLanes(d);
        if (bytes < step) return false;
        const auto v = hn::LoadDup128(d, pattern);
        for (std::size_t n = 0; n + step <= bytes; n += step) hn::StoreU(v, d, dst + n);
        hn::StoreU(v, d, dst + bytes - step);
        return true;
    };
    if (!fill(hn::ScalableTag<Orb8u>()) && !fill(RestTag<Orb8u>()))
        for (int n = 0; n < len; ++n) std::memcpy(pDst + n, &val, sizeof val);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsCopy_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_32s(const Orb32s* pSrc, Orb32s* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_64s(const Orb64s* pSrc, Orb64s* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return copy(pSrc, pDst, len); }
OrbStatus orbsCopy_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return copy(pSrc, pDst, len); }

OrbStatus orbsMove_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_32s(const Orb32s* pSrc, Orb32s* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_32sc(const Orb32sc* pSrc, Orb32sc* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_64s(const Orb64s* pSrc, Orb64s* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_64sc(const Orb64sc* pSrc, Orb64sc* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return move(pSrc, pDst, len); }
OrbStatus orbsMove_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return move(pSrc, pDst, len); }

OrbStatus orbsSet_8u(Orb8u val, Orb8u* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_16s(Orb16s val, Orb16s* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_16sc(Orb16sc val, Orb16sc* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_32s(int val, Orb32s* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_32sc(Orb32sc val, Orb32sc* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_32f(Orb32f val, Orb32f* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_32fc(Orb32fc val, Orb32fc* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_64s(Orb64s val, Orb64s* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_64sc(Orb64sc val, Orb64sc* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_64f(Orb64f val, Orb64f* pDst, int len) { return set(val, pDst, len); }
OrbStatus orbsSet_64fc(Orb64fc val, Orb64fc* pDst, int len) { return set(val, pDst, len); }

OrbStatus orbsZero_8u(Orb8u* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_16s(Orb16s* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_16sc(Orb16sc* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_32s(Orb32s* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_32sc(Orb32sc* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_32f(Orb32f* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_32fc(Orb32fc* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_64s(Orb64s* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_64sc(Orb64sc* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_64f(Orb64f* pDst, int len) { return zero(pDst, len); }
OrbStatus orbsZero_64fc(Orb64fc* pDst, int len) { return zero(pDst, len); }

}
// clang-format on
