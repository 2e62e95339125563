// The integer result rule of all scaled primitives: r * 2^-scaleFactor, rounded to nearest with ties to even,
// saturated.
#pragma once

#include "orbdefs.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace orbs {

// Where the result of a scaled primitive no longer depends on more than the sign of its exact value.
struct ScaleCuts {
    int zeroAbove; // scale factors above this give zeros
    int boundFrom; // scale factors at or below this give the extreme of the type with the sign of the exact value
};

template <class T>
constexpr T saturate(std::int64_t r) {
    return static_cast<T>(std::clamp<std::int64_t>(r, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

// r / 2^shift for a shift of 1 to 62, ties to even. r must leave room for the addition of 2^(shift - 1).
constexpr std::int64_t roundedShift(std::int64_t r, int shift) {
    const std::int64_t parity = (r >> shift) & 1;
    return (r + ((std::int64_t{1} << (shift - 1)) - 1) + parity) >> shift;
}

} // namespace orbs
