// Conversions of vectors of floats to 32-bit integers as the processor makes them: no clamp, no correction. A NaN, and
// what does not fit into 32 bits, becomes 0x80000000, so a lower limit of -2^31 comes free; callers apply the upper
// limit themselves before the conversion, in the operand order that their NaNs require.
//
// nearestInt32 rounds as the thread's rounding mode says: to nearest, ties to even, where an SseRounding guard forces
// that. Loads and stores belong inside the guard. truncatedInt32 rounds toward zero in every mode.
//
// The result has as many lanes as the argument: hn::Rebind<Orb32s, D> is its descriptor.
#pragma once

#include "vectors/loops.h"

namespace orbs {

template <std::size_t N>
HWY_INLINE hn::Vec128<Orb32s, N> nearestInt32(hn::Vec128<Orb32f, N> v) {
    return hn::Vec128<Orb32s, N>{_mm_cvtps_epi32(v.raw)};
}
template <std::size_t N>
HWY_INLINE hn::Vec128<Orb32s, N> nearestInt32(hn::Vec128<Orb64f, N> v) {
    return hn::Vec128<Orb32s, N>{_mm_cvtpd_epi32(v.raw)};
}
template <std::size_t N>
HWY_INLINE hn::Vec128<Orb32s, N> truncatedInt32(hn::Vec128<Orb32f, N> v) {
    return hn::Vec128<Orb32s, N>{_mm_cvttps_epi32(v.raw)};
}
template <std::size_t N>
HWY_INLINE hn::Vec128<Orb32s, N> truncatedInt32(hn::Vec128<Orb64f, N> v) {
    return hn::Vec128<Orb32s, N>{_mm_cvttpd_epi32(v.raw)};
}

#if HWY_TARGET <= HWY_AVX2
HWY_INLINE hn::Vec256<Orb32s> nearestInt32(hn::Vec256<Orb32f> v) {
    return hn::Vec256<Orb32s>{_mm256_cvtps_epi32(v.raw)};
}
HWY_INLINE hn::Vec128<Orb32s> nearestInt32(hn::Vec256<Orb64f> v) {
    return hn::Vec128<Orb32s>{_mm256_cvtpd_epi32(v.raw)};
}
HWY_INLINE hn::Vec256<Orb32s> truncatedInt32(hn::Vec256<Orb32f> v) {
    return hn::Vec256<Orb32s>{_mm256_cvttps_epi32(v.raw)};
}
HWY_INLINE hn::Vec128<Orb32s> truncatedInt32(hn::Vec256<Orb64f> v) {
    return hn::Vec128<Orb32s>{_mm256_cvttpd_epi32(v.raw)};
}
#endif
#if HWY_TARGET <= HWY_AVX3
HWY_INLINE hn::Vec512<Orb32s> nearestInt32(hn::Vec512<Orb32f> v) {
    return hn::Vec512<Orb32s>{_mm512_cvtps_epi32(v.raw)};
}
HWY_INLINE hn::Vec256<Orb32s> nearestInt32(hn::Vec512<Orb64f> v) {
    return hn::Vec256<Orb32s>{_mm512_cvtpd_epi32(v.raw)};
}
HWY_INLINE hn::Vec512<Orb32s> truncatedInt32(hn::Vec512<Orb32f> v) {
    return hn::Vec512<Orb32s>{_mm512_cvttps_epi32(v.raw)};
}
HWY_INLINE hn::Vec256<Orb32s> truncatedInt32(hn::Vec512<Orb64f> v) {
    return hn::Vec256<Orb32s>{_mm512_cvttpd_epi32(v.raw)};
}
#endif

} // namespace orbs
