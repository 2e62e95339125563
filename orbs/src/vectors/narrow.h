// Pairs of vectors packed into lanes of half the width, saturated. And the way back.
#pragma once

#include "vectors/loops.h"

namespace orbs {

// Block by block of 16 bytes: the order that InterleaveLower and InterleaveUpper undo. Of a, then of b, in each. The
// instructions of the widths differ in their prefix.
#define ORBS_PACK(bits, To, From, instruction)                                                                         \
    HWY_INLINE hn::Vec##bits<To> packPair(hn::Full##bits<To>, hn::Vec##bits<From> a, hn::Vec##bits<From> b) {          \
        return hn::Vec##bits<To>{instruction(a.raw, b.raw)};                                                           \
    }
#define ORBS_PACK_PAIRS(bits, prefix)                                                                                  \
    ORBS_PACK(bits, Orb16s, Orb32s, prefix##_packs_epi32)                                                              \
    ORBS_PACK(bits, Orb8s, Orb16s, prefix##_packs_epi16)                                                               \
    ORBS_PACK(bits, Orb8u, Orb16s, prefix##_packus_epi16)
ORBS_PACK_PAIRS(128, _mm)
#if HWY_TARGET <= HWY_AVX2
ORBS_PACK_PAIRS(256, _mm256)
ORBS_PACK(256, Orb16u, Orb32s, _mm256_packus_epi32)
#endif
#if HWY_TARGET <= HWY_AVX3
ORBS_PACK_PAIRS(512, _mm512)
ORBS_PACK(512, Orb16u, Orb32s, _mm512_packus_epi32)
#endif
#undef ORBS_PACK_PAIRS
#undef ORBS_PACK
// Moved around 0, for which SSSE3 has the instruction.
HWY_INLINE hn::Vec128<Orb16u> packPair(hn::Full128<Orb16u> d, hn::Vec128<Orb32s> a, hn::Vec128<Orb32s> b) {
    const auto middle = hn::Set(hn::Full128<Orb32s>(), 0x8000);
    const auto moved = packPair(hn::Full128<Orb16s>(), hn::Sub(a, middle), hn::Sub(b, middle));
    return hn::Xor(hn::BitCast(d, moved), hn::Set(d, 0x8000));
}

// Bytes so placed that InterleaveLower has the first half of them, and InterleaveUpper the second.
HWY_INLINE hn::Vec128<Orb8u> toInterleave(hn::Vec128<Orb8u> v) {
    return v;
}

#if HWY_TARGET <= HWY_AVX2
// The blocks' halves in the order of the elements, and back.
template <class T>
HWY_INLINE hn::Vec256<T> halvesInOrder(hn::Vec256<T> v) {
    return hn::Vec256<T>{_mm256_permute4x64_epi64(v.raw, _MM_SHUFFLE(3, 1, 2, 0))};
}
HWY_INLINE hn::Vec256<Orb8u> toInterleave(hn::Vec256<Orb8u> v) {
    return halvesInOrder(v);
}
#endif

#if HWY_TARGET <= HWY_AVX3
template <class T>
HWY_INLINE hn::Vec512<T> halvesInOrder(hn::Vec512<T> v) {
    return hn::Vec512<T>{_mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), v.raw)};
}
HWY_INLINE hn::Vec512<Orb8u> toInterleave(hn::Vec512<Orb8u> v) {
    return hn::Vec512<Orb8u>{_mm512_permutexvar_epi64(_mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7), v.raw)};
}
#endif

// In the order of the elements at every vector width.
template <class D, class V>
HWY_INLINE hn::Vec<D> narrowPair(D d, V a, V b) {
    if constexpr (hn::MaxLanes(D()) * sizeof(hn::TFromD<D>) > 16) {
        return halvesInOrder(packPair(d, a, b));
    } else {
        return packPair(d, a, b);
    }
}

// A vector of D's narrow lanes made of wide(dWide, offset), which gives the 32-bit lanes of the elements from `offset`
// on: as many calls as vectors of 32-bit lanes fit in. The last narrowing decides how it saturates.
template <class D, class Wide>
HWY_INLINE hn::Vec<D> narrowed(D d, Wide wide, std::size_t offset = 0) {
    using T = hn::TFromD<D>;
    if constexpr (sizeof(T) == 4) {
        return wide(d, offset);
    } else if constexpr (hn::MaxLanes(D()) * sizeof(T) < 16) { // a rest
        return hn::DemoteTo(d, wide(hn::Rebind<Orb32s, D>(), offset));
    } else {
        const hn::Repartition<std::conditional_t<sizeof(T) == 2, Orb32s, Orb16s>, D> twice;
        const auto low = narrowed(twice, wide, offset);
        return narrowPair(d, low, narrowed(twice, wide, offset + hn::MaxLanes(twice)));
    }
}

} // namespace orbs
