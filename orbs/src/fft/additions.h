// Additions and subtractions on the ports of the multipliers. A pass adds twice as often as it multiplies, and where
// adders and multipliers have ports of their own the latter idle; fma(a, 1, b) and fma(a, 1, -b) move a part over.
// Where one port does both, they take the place of an addition and cost a cycle or two of latency at most.
//
// The product is exact, so there is one rounding and the bits are those of the addition, in every rounding mode:
// - zeros: a * 1 is a with its sign, and sums of zeros follow the same rule (-0 only from -0 and -0 when rounding to
//   nearest);
// - NaN: the factor's goes before the addend's, as the first operand's before the second's, and neither changes sign;
// - infinities: inf - inf is invalid and gives the same default NaN;
// - flags: those of the addition. Nothing underflows, as tiny sums are exact; a subnormal operand counts as one in
//   both, and is zero in both where the control register says so.
#pragma once

#include "vectors/loops.h"

namespace orbs::fft {

#if HWY_TARGET <= HWY_AVX2
// Each instruction notes its address in a section that is not loaded, by which scripts/check-fused tells these from
// what a compiler fuses. The options forbid the compiler all of them, so they are written out; the factor is always 1.
#    define ORBS_ONE_TIMES(instruction)                                                                                \
        template <class V>                                                                                             \
        HWY_INLINE V instruction(V a, V b) {                                                                           \
            const V one = hn::Set(hn::DFromV<V>(), 1);                                                                 \
            if constexpr (sizeof(hn::TFromV<V>) == 4) {                                                                \
                ORBS_NOTED(#instruction "ps");                                                                         \
            } else {                                                                                                   \
                ORBS_NOTED(#instruction "pd");                                                                         \
            }                                                                                                          \
            return a;                                                                                                  \
        }
#    define ORBS_NOTED(instruction)                                                                                    \
        asm inline("1:" instruction " %2, %1, %0\n\t.pushsection .orbs_additions,\"?\"\n\t.quad 1b\n\t.popsection"     \
                   : "+v"(a.raw)                                                                                       \
                   : "v"(b.raw), "v"(one.raw))
ORBS_ONE_TIMES(vfmadd132)
ORBS_ONE_TIMES(vfmsub132)
ORBS_ONE_TIMES(vfmaddsub132)
ORBS_ONE_TIMES(vfmsubadd132)
#    undef ORBS_NOTED
#    undef ORBS_ONE_TIMES

// a + b and a - b; real parts subtracted and imaginary parts added, and the other way about.
template <class V>
HWY_INLINE V addOnMultiplier(V a, V b) {
    return vfmadd132(a, b);
}
template <class V>
HWY_INLINE V subOnMultiplier(V a, V b) {
    return vfmsub132(a, b);
}
template <class V>
HWY_INLINE V subEvenAddOdd(V a, V b) {
    return vfmaddsub132(a, b);
}
template <class V>
HWY_INLINE V addEvenSubOdd(V a, V b) {
    return vfmsubadd132(a, b);
}
#else
template <class V>
HWY_INLINE V addOnMultiplier(V a, V b) {
    return a + b;
}
template <class V>
HWY_INLINE V subOnMultiplier(V a, V b) {
    return a - b;
}
template <class V>
HWY_INLINE V subEvenAddOdd(V a, V b) {
    const hn::DFromV<V> d;
    return a + hn::Xor(b, hn::OddEven(hn::Zero(d), hn::SignBit(d)));
}
template <class V>
HWY_INLINE V addEvenSubOdd(V a, V b) {
    const hn::DFromV<V> d;
    return a + hn::Xor(b, hn::OddEven(hn::SignBit(d), hn::Zero(d)));
}
#endif

} // namespace orbs::fft
