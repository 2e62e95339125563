// The integer result rule of all scaled primitives: r * 2^-scaleFactor, rounded to nearest with ties to even,
// saturated.
#pragma once

#include "orbdefs.h"

#include <bit>
#include <limits>
#include <type_traits>

namespace orbs {

// 2^exponent, for exponents of normal numbers.
template <class T>
constexpr T powerOfTwo(int exponent) {
    using Bits = std::conditional_t<sizeof(T) == sizeof(Orb32u), Orb32u, Orb64u>;
    constexpr int fraction = std::numeric_limits<T>::digits - 1, bias = std::numeric_limits<T>::max_exponent - 1;
    return std::bit_cast<T>(static_cast<Bits>(bias + exponent) << fraction);
}

// Where the result of a scaled primitive no longer depends on more than the sign of its exact value.
struct ScaleCuts {
    int zeroAbove; // scale factors above this give zeros
    int boundFrom; // scale factors at or below this give the extreme of the type with the sign of the exact value
};

} // namespace orbs
