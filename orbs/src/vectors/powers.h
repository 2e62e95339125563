// Powers of two from their exponents.
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

} // namespace orbs
