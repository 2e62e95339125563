#include "orbcore.h"

#include <limits>
#include <xmmintrin.h>

const Orb32f orbConstantOfNAN_32f = std::numeric_limits<Orb32f>::quiet_NaN();
const Orb64f orbConstantOfNAN_64f = std::numeric_limits<Orb64f>::quiet_NaN();
const Orb32f orbConstantOfINF_32f = std::numeric_limits<Orb32f>::infinity();
const Orb64f orbConstantOfINF_64f = std::numeric_limits<Orb64f>::infinity();

extern "C" {

Orb32u orb_set_rc_ssx(Orb32u rc) {
    constexpr Orb32u roundingMask = 0x6000;
    const Orb32u earlier = _mm_getcsr();
    _mm_setcsr((earlier & ~roundingMask) | (rc & roundingMask));
    return earlier;
}

void orb_set_cw_ssx(Orb32u word) { _mm_setcsr(word); }

Orb32u orb_set_rcpc_fpu(Orb32u bits, Orb32u mask) {
    Orb16u earlier;
    asm volatile("fnstcw %0" : "=m"(earlier)::"memory");
    orb_set_cw_fpu((earlier & ~mask) | (bits & mask));
    return earlier;
}

void orb_set_cw_fpu(Orb32u word) {
    const auto control = static_cast<Orb16u>(word);
    asm volatile("fldcw %0" ::"m"(control) : "memory");
}

}
