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

// 2^-scaleFactor as repeated multiplication in single precision has it: 0 or infinity beyond the range, or where the
// caller's rounding mode is another than to nearest, what the products end at.
inline Orb32f repeatedScale(int scaleFactor) {
    const Orb32f factor = scaleFactor > 0 ? 0.5f : 2.0f;
    Orb32u times = static_cast<Orb32u>(scaleFactor);
    if (scaleFactor < 0) times = 0 - times;
    Orb32f m = 1;
    for (; times > 0; --times) {
        const Orb32f next = m * factor;
        if (std::bit_cast<Orb32u>(next) == std::bit_cast<Orb32u>(m)) break;
        m = next;
    }
    asm volatile("" : "+x"(m)); // made before a guard changes the mode
    return m;
}

} // namespace orbs
