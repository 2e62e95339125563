// Interleaved complex elements taken apart into vectors of their parts, as short as it goes: the parts lie block by
// block of 16 bytes, those of the one vector in front of those of the other, and what is computed from them is put in
// order once.
#pragma once

#include "vectors/narrow.h"
#include "vectors/nearest.h"

namespace orbs {

#define ORBS_EVERY_OTHER(bits, shuffle)                                                                                \
    HWY_INLINE Planes<hn::Vec##bits<Orb32f>> partsInBlocks(hn::Full##bits<Orb32f>, hn::Vec##bits<Orb32f> a,            \
                                                           hn::Vec##bits<Orb32f> b) {                                  \
        return {hn::Vec##bits<Orb32f>{shuffle(a.raw, b.raw, _MM_SHUFFLE(2, 0, 2, 0))},                                 \
                hn::Vec##bits<Orb32f>{shuffle(a.raw, b.raw, _MM_SHUFFLE(3, 1, 3, 1))}};                                \
    }
ORBS_EVERY_OTHER(128, _mm_shuffle_ps)
#if HWY_TARGET <= HWY_AVX2
ORBS_EVERY_OTHER(256, _mm256_shuffle_ps)
#endif
#if HWY_TARGET <= HWY_AVX3
ORBS_EVERY_OTHER(512, _mm512_shuffle_ps)
#endif
#undef ORBS_EVERY_OTHER

template <class D, class V>
requires std::is_same_v<hn::TFromD<D>, Orb64f> HWY_INLINE Planes<V> partsInBlocks(D d, V a, V b) {
    return {hn::InterleaveLower(d, a, b), hn::InterleaveUpper(d, a, b)};
}

// Out of blocks, into the order of the elements.
template <class D, class V>
HWY_INLINE V outOfBlocks([[maybe_unused]] D d, V v) {
    if constexpr (hn::MaxLanes(D()) * sizeof(hn::TFromD<D>) > 16) {
        const hn::RebindToUnsigned<D> bits;
        return hn::BitCast(d, halvesInOrder(hn::BitCast(bits, v)));
    } else {
        return v;
    }
}

} // namespace orbs
