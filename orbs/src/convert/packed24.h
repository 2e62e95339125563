// Elements of three bytes in 32-bit lanes.
#pragma once

#include "vectors/loops.h"

#include <type_traits>

namespace orbs {

// The 32-bit integer of the same signedness.
template <class T24>
using Lane24 = std::conditional_t<std::is_same_v<T24, Orb24s>, Orb32s, Orb32u>;

alignas(16) inline constexpr Orb8u unpackedPlaces24[16] = {0x80, 0, 1, 2, 0x80, 3, 4,  5,
                                                           0x80, 6, 7, 8, 0x80, 9, 10, 11};
alignas(16) inline constexpr Orb8u packedPlaces24[16] = {0,  1,  2,  4,  5,    6,    8,    9,
                                                         10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};

// Calls body(d, n) as forEachVector does, but with full vectors only where two more elements lie behind those of the
// vector: a 16-byte access to four elements touches four bytes more.
template <class Lane, class Body>
HWY_INLINE void forEachVector24(std::size_t len, Body body) {
    const hn::ScalableTag<Lane> full;
    constexpr std::size_t lanes = hn::MaxLanes(full);
    std::size_t n = 0;
    for (; n + 2 * lanes + 2 <= len; n += 2 * lanes) {
        body(full, n);
        body(full, n + lanes);
    }
    for (; n + lanes + 2 <= len; n += lanes) body(full, n);
    for (; n < len; ++n) body(hn::CappedTag<Lane, 1>(), n);
}

template <class D, class T24>
HWY_INLINE hn::Vec<D> load24(D d, const T24* pSrc) {
    using Lane = hn::TFromD<D>;
    static_assert(std::is_same_v<Lane, Lane24<T24>>);
    if constexpr (hn::MaxLanes(D()) == 1) {
        const Orb32u upper = Orb32u{pSrc->b[0]} << 8 | Orb32u{pSrc->b[1]} << 16 | Orb32u{pSrc->b[2]} << 24;
        return hn::Set(d, static_cast<Lane>(upper) >> 8);
    } else if constexpr (hn::MaxLanes(D()) > 4) {
        const hn::Half<D> half;
        return hn::Combine(d, load24(half, pSrc + hn::MaxLanes(half)), load24(half, pSrc));
    } else {
        const hn::Repartition<Orb8u, D> bytes;
        const auto elements = hn::LoadU(bytes, pSrc->b);
        return hn::ShiftRight<8>(hn::BitCast(d, hn::TableLookupBytes(elements, hn::Load(bytes, unpackedPlaces24))));
    }
}

// The lower three bytes of each lane.
template <class D, class T24>
HWY_INLINE void store24(hn::Vec<D> v, D, T24* pDst) {
    if constexpr (hn::MaxLanes(D()) == 1) {
        const auto word = static_cast<Orb32u>(hn::GetLane(v));
        *pDst = {{static_cast<Orb8u>(word), static_cast<Orb8u>(word >> 8), static_cast<Orb8u>(word >> 16)}};
    } else if constexpr (hn::MaxLanes(D()) > 4) {
        const hn::Half<D> half;
        store24(hn::LowerHalf(half, v), half, pDst);
        store24(hn::UpperHalf(half, v), half, pDst + hn::MaxLanes(half));
    } else {
        const hn::Repartition<Orb8u, D> bytes;
        hn::StoreU(hn::TableLookupBytes(hn::BitCast(bytes, v), hn::Load(bytes, packedPlaces24)), bytes, pDst->b);
    }
}

} // namespace orbs
