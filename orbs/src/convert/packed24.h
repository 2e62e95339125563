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

#if HWY_TARGET <= HWY_AVX3
// Sixteen elements are twelve words: these three for each block of four lanes, and back.
template <class D>
HWY_INLINE auto wordsOfBlocks(D words) {
    alignas(64) static constexpr Orb32s order[16] = {0, 1, 2, 2, 3, 4, 5, 5, 6, 7, 8, 8, 9, 10, 11, 11};
    return hn::SetTableIndices(words, order);
}
template <class D>
HWY_INLINE auto wordsInARow(D words) {
    alignas(64) static constexpr Orb32s order[16] = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 15, 15, 15, 15};
    return hn::SetTableIndices(words, order);
}
constexpr std::size_t wordsOfSixteen = 12;
#endif

// Calls body(d, n) as forEachVector does, but with more than one lane only where two more elements lie behind those of
// the vector: a 16-byte access to four elements touches four bytes more.
template <class Lane, class Body>
HWY_INLINE void forEachVector24(std::size_t len, Body body) {
    std::size_t n = forWholeVectorsByFour<Lane>(0, len < 2 ? 0 : len - 2, body);
    for (; n < len; ++n) body(hn::CappedTag<Lane, 1>(), n);
}

template <class D, class T24>
HWY_INLINE hn::Vec<D> load24(D d, const T24* pSrc) {
    using Lane = hn::TFromD<D>;
    static_assert(std::is_same_v<Lane, Lane24<T24>>);
    if constexpr (hn::MaxLanes(D()) == 1) {
        const Orb32u upper = Orb32u{pSrc->b[0]} << 8 | Orb32u{pSrc->b[1]} << 16 | Orb32u{pSrc->b[2]} << 24;
        return hn::Set(d, static_cast<Lane>(upper) >> 8);
#if HWY_TARGET <= HWY_AVX3
    } else if constexpr (hn::MaxLanes(D()) == 16) {
        const hn::RebindToUnsigned<D> words;
        const hn::Repartition<Orb8u, D> bytes;
        const auto loaded =
            hn::MaskedLoad(hn::FirstN(words, wordsOfSixteen), words, reinterpret_cast<const Orb32u*>(pSrc->b));
        const auto elements = hn::BitCast(bytes, hn::TableLookupLanes(loaded, wordsOfBlocks(words)));
        const auto places = hn::LoadDup128(bytes, unpackedPlaces24);
        return hn::ShiftRight<8>(hn::BitCast(d, hn::TableLookupBytes(elements, places)));
#endif
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
#if HWY_TARGET <= HWY_AVX3
    } else if constexpr (hn::MaxLanes(D()) == 16) {
        const hn::RebindToUnsigned<D> words;
        const hn::Repartition<Orb8u, D> bytes;
        const auto elements = hn::TableLookupBytes(hn::BitCast(bytes, v), hn::LoadDup128(bytes, packedPlaces24));
        const auto inARow = hn::TableLookupLanes(hn::BitCast(words, elements), wordsInARow(words));
        hn::BlendedStore(inARow, hn::FirstN(words, wordsOfSixteen), words, reinterpret_cast<Orb32u*>(pDst->b));
#endif
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
