// VOLK beside us: its own choice, the widest kernel that the processor has, with fused multiply-adds; and, where it has
// one, the kernel with the tier's vectors and no fused multiply-adds ("volk-tier").
#pragma once

#include "orbs.h"

#include <volk/volk.h>

namespace volk {

#if defined(__AVX512F__)
inline constexpr const char *floats = "a_avx512f", *complexFloats = "a_avx";
#elif defined(__AVX__)
inline constexpr const char *floats = "a_avx", *complexFloats = "a_avx";
#else
inline constexpr const char *floats = "a_sse", *complexFloats = "a_sse3";
#endif

inline unsigned count(int len) {
    return static_cast<unsigned>(len);
}
inline lv_32fc_t* cast(Orb32fc* p) {
    return reinterpret_cast<lv_32fc_t*>(p);
}

} // namespace volk
