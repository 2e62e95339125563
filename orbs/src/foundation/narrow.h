// Pairs of vectors packed into lanes of half the width: saturated, and in order at every vector width. And the way
// back.
#pragma once

#include "foundation/vectors.h"

namespace orbs {

HWY_INLINE hn::Vec128<Orb16s> narrowPair(hn::Full128<Orb16s>, hn::Vec128<Orb32s> a, hn::Vec128<Orb32s> b) {
    return hn::Vec128<Orb16s>{_mm_packs_epi32(a.raw, b.raw)};
}
HWY_INLINE hn::Vec128<Orb8s> narrowPair(hn::Full128<Orb8s>, hn::Vec128<Orb16s> a, hn::Vec128<Orb16s> b) {
    return hn::Vec128<Orb8s>{_mm_packs_epi16(a.raw, b.raw)};
}
HWY_INLINE hn::Vec128<Orb8u> narrowPair(hn::Full128<Orb8u>, hn::Vec128<Orb16s> a, hn::Vec128<Orb16s> b) {
    return hn::Vec128<Orb8u>{_mm_packus_epi16(a.raw, b.raw)};
}

// Bytes so placed that InterleaveLower has the first half of them, and InterleaveUpper the second.
HWY_INLINE hn::Vec128<Orb8u> toInterleave(hn::Vec128<Orb8u> v) {
    return v;
}

#if HWY_TARGET <= HWY_AVX2
// The instructions pack each half of the vectors for itself.
HWY_INLINE __m256i halvesInOrder(__m256i packed) {
    return _mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0));
}
HWY_INLINE hn::Vec256<Orb8u> toInterleave(hn::Vec256<Orb8u> v) {
    return hn::Vec256<Orb8u>{halvesInOrder(v.raw)};
}
HWY_INLINE hn::Vec256<Orb16s> narrowPair(hn::Full256<Orb16s>, hn::Vec256<Orb32s> a, hn::Vec256<Orb32s> b) {
    return hn::Vec256<Orb16s>{halvesInOrder(_mm256_packs_epi32(a.raw, b.raw))};
}
HWY_INLINE hn::Vec256<Orb8s> narrowPair(hn::Full256<Orb8s>, hn::Vec256<Orb16s> a, hn::Vec256<Orb16s> b) {
    return hn::Vec256<Orb8s>{halvesInOrder(_mm256_packs_epi16(a.raw, b.raw))};
}
HWY_INLINE hn::Vec256<Orb8u> narrowPair(hn::Full256<Orb8u>, hn::Vec256<Orb16s> a, hn::Vec256<Orb16s> b) {
    return hn::Vec256<Orb8u>{halvesInOrder(_mm256_packus_epi16(a.raw, b.raw))};
}
#endif

// A vector of D's narrow lanes made of wide(dWide, offset), which gives the 32-bit lanes of the elements from `offset`
// on: as many calls as vectors of 32-bit lanes fit in. The last narrowing decides how it saturates.
template <class D, class Wide>
HWY_INLINE hn::Vec<D> narrowed(D d, Wide wide, std::size_t offset = 0) {
    using T = hn::TFromD<D>;
    if constexpr (sizeof(T) == 4) {
        return wide(d, offset);
    } else if constexpr (hn::MaxLanes(D()) == 1) {
        return hn::DemoteTo(d, wide(hn::Rebind<Orb32s, D>(), offset));
    } else {
        const hn::Repartition<std::conditional_t<sizeof(T) == 2, Orb32s, Orb16s>, D> twice;
        const auto low = narrowed(twice, wide, offset);
        return narrowPair(d, low, narrowed(twice, wide, offset + hn::MaxLanes(twice)));
    }
}

} // namespace orbs
