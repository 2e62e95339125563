// The SSE control register as a caller may have set it.
#pragma once

#include "orbdefs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <xmmintrin.h>

namespace support {

inline constexpr Orb32u roundingModes[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO};
inline constexpr Orb32u flushToZero = 0x8000, denormalsAreZero = 0x0040;

// f() with these bits set in the control register, which it must hand back as it was.
template <class F>
auto inMode(Orb32u bits, F f) {
    const Orb32u earlier = _mm_getcsr(), control = (earlier & ~Orb32u{_MM_ROUND_MASK}) | bits;
    _mm_setcsr(control);
    const auto result = f();
    EXPECT_EQ(_mm_getcsr() & ~Orb32u{_MM_EXCEPT_MASK}, control & ~Orb32u{_MM_EXCEPT_MASK}) << "in mode " << bits;
    _mm_setcsr(earlier);
    return result;
}

// The nearest integer as that register's mode says; in 32-bit code std::nearbyint looks at the x87's.
inline double nearestInMode(double x) {
    const double noFraction = std::copysign(0x1p52, x);
    return std::fabs(x) < 0x1p52 ? (x + noFraction) - noFraction : x;
}

} // namespace support
