// SwapBytes: the bytes of each element in reverse order.
#include "foundation/frame.h"
#include "orbs/coding.h"
#include "vectors/loops.h"

#include <array>
#include <cstring>

namespace {

using namespace orbs;

// The whole elements of `size` bytes within a block of 16, and the places that its bytes are taken from.
template <std::size_t size>
constexpr std::size_t wholeElements = 16 / size* size;
template <std::size_t size>
constexpr auto swappedPlaces = [] {
    std::array<Orb8u, 16> places{};
    for (std::size_t n = 0; n < 16; ++n)
        places[n] = static_cast<Orb8u>(n < wholeElements<size> ? n / size * size + size - 1 - n % size : n);
    return places;
}();

// Of three-byte elements a block holds five and a byte more, which is stored as it is: the next block takes it up.
template <class T>
OrbStatus swapBytes(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    constexpr std::size_t size = sizeof(T), step = wholeElements<size>;
    const std::size_t bytes = static_cast<std::size_t>(len) * size;
    const auto* const src = reinterpret_cast<const Orb8u*>(pSrc);
    auto* const dst = reinterpret_cast<Orb8u*>(pDst);
    std::size_t n = 0;
    const auto swap = [=](auto d, std::size_t at) HWY_ATTR {
        const auto places = hn::LoadDup128(d, swappedPlaces<size>.data());
        hn::StoreU(hn::TableLookupBytes(hn::LoadU(d, src + at), places), d, dst + at);
    };
    if constexpr (step == 16) {
        const hn::ScalableTag<Orb8u> full;
        constexpr std::size_t lanes = hn::MaxLanes(full);
        if (beginsHalfway(dst) && bytes >= 8 * lanes) {
            swap(RestTag<Orb8u>(), n);
            n = hn::MaxLanes(RestTag<Orb8u>());
        }
        for (; n + 4 * lanes <= bytes; n += 4 * lanes) {
            swap(full, n);
            swap(full, n + lanes);
            swap(full, n + 2 * lanes);
            swap(full, n + 3 * lanes);
        }
    }
    for (; n + 16 <= bytes; n += step) swap(hn::Full128<Orb8u>(), n);
    for (; n < bytes; n += size) {
        Orb8u swapped[size];
        for (std::size_t k = 0; k < size; ++k) swapped[k] = src[n + size - 1 - k];
        std::memcpy(dst + n, swapped, size);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSwapBytes_16u(const Orb16u* pSrc, Orb16u* pDst, int len) { return swapBytes(pSrc, pDst, len); }
OrbStatus orbsSwapBytes_24u(const Orb24u* pSrc, Orb24u* pDst, int len) { return swapBytes(pSrc, pDst, len); }
OrbStatus orbsSwapBytes_32u(const Orb32u* pSrc, Orb32u* pDst, int len) { return swapBytes(pSrc, pDst, len); }
OrbStatus orbsSwapBytes_64u(const Orb64u* pSrc, Orb64u* pDst, int len) { return swapBytes(pSrc, pDst, len); }
OrbStatus orbsSwapBytes_16u_I(Orb16u* pSrcDst, int len) { return swapBytes(pSrcDst, pSrcDst, len); }
OrbStatus orbsSwapBytes_24u_I(Orb24u* pSrcDst, int len) { return swapBytes(pSrcDst, pSrcDst, len); }
OrbStatus orbsSwapBytes_32u_I(Orb32u* pSrcDst, int len) { return swapBytes(pSrcDst, pSrcDst, len); }
OrbStatus orbsSwapBytes_64u_I(Orb64u* pSrcDst, int len) { return swapBytes(pSrcDst, pSrcDst, len); }

}
// clang-format on
