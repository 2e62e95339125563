// Cyclic convolution of 4 or 8 values.
#include "orbs/convolution.h"

#include "filters/taps.h"
#include "reductions/exact.h"

#include <cstring>

namespace {

using namespace orbs;

// pDst[n] = sum over k, upwards, of pSrc1[k] pSrc2[(n - k) mod count]: the second operand twice in a row, and windows
// of it. It may be pDst, as all is read before anything is written.
template <std::size_t count, class T>
OrbStatus cyclic(const Orb32f* pSrc1, const T* pSrc2, T* pDst) {
    constexpr std::size_t lanes = 8, parts = lanes / count;
    const hn::CappedTag<Orb32f, lanes> d;
    constexpr std::size_t step = hn::MaxLanes(d), vectors = lanes / step;
    Orb32f twice[2 * lanes];
    std::memcpy(twice, pSrc2, sizeof twice / 2);
    std::memcpy(twice + lanes, pSrc2, sizeof twice / 2);
    hn::Vec<decltype(d)> sums[vectors];
#pragma GCC unroll 2
    for (std::size_t v = 0; v < vectors; ++v) sums[v] = hn::Zero(d);
#pragma GCC unroll 8
    for (std::size_t k = 0; k < count; ++k) {
        const auto factor = hn::Set(d, pSrc1[k]);
#pragma GCC unroll 2
        for (std::size_t v = 0; v < vectors; ++v)
            sums[v] = hn::Add(sums[v], hn::Mul(factor, hn::LoadU(d, twice + lanes - k * parts + v * step)));
    }
#pragma GCC unroll 2
    for (std::size_t v = 0; v < vectors; ++v) hn::StoreU(sums[v], d, asParts(pDst) + v * step);
    return orbStsNoErr;
}

// A sum of 32 bits, which has wrapped if it had to, times 2^-scaleFactor.
Orb16s scaledSum(Orb32s sum, int scaleFactor) {
    if (scaleFactor <= 0) return shiftedLeft<Orb16s>(sum, leftShift(scaleFactor, 16));
    return saturated<Orb16s>(roundedShift(sum, std::min(scaleFactor, 40)));
}

OrbStatus cyclic16(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int scaleFactor) {
    constexpr std::size_t count = 8;
    Orb32u sums[count] = {};
    for (std::size_t k = 0; k < count; ++k)
        for (std::size_t n = 0; n < count; ++n) sums[n] += static_cast<Orb32u>(pSrc1[k] * pSrc2[(n - k) % count]);
    for (std::size_t n = 0; n < count; ++n) pDst[n] = scaledSum(static_cast<Orb32s>(sums[n]), scaleFactor);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConvCyclic8x8_32f(const Orb32f* pSrc1, const Orb32f* pSrc2, Orb32f* pDst) { return cyclic<8>(pSrc1, pSrc2, pDst); }
OrbStatus orbsConvCyclic8x8_16s_Sfs(const Orb16s* pSrc1, const Orb16s* pSrc2, Orb16s* pDst, int scaleFactor) { return cyclic16(pSrc1, pSrc2, pDst, scaleFactor); }
OrbStatus orbsConvCyclic4x4_32f32fc(const Orb32f* pSrc1, const Orb32fc* pSrc2, Orb32fc* pDst) { return cyclic<4>(pSrc1, pSrc2, pDst); }

}
// clang-format on
