// Elementary functions of constants, in 113 bits, for tables that the compiler fills: correct far beyond the last bit
// of what is rounded from them. Nothing of this is left at run time.
#pragma once

#include "orbdefs.h"

#include <cstddef>

namespace orbs {

using Quad = __float128;

// A value as the double nearest to it and the double nearest to what is left.
struct HighLow {
    Orb64f high, low;

    constexpr explicit HighLow(Quad x) : high(static_cast<Orb64f>(x)), low(static_cast<Orb64f>(x - high)) {}
};

// x from 1/2 on
constexpr Quad quadLn(Quad x) {
    if (x > 2) return quadLn(x / 2) + quadLn(2);
    const Quad s = (x - 1) / (x + 1);
    Quad sum = 0, power = s;
    for (int n = 1; n < 100; n += 2, power *= s * s) sum += power / n;
    return 2 * sum;
}

constexpr Quad quadExp(Quad x) {
    if (x < -1 || x > 1) return quadExp(x / 2) * quadExp(x / 2);
    Quad sum = 1, term = 1;
    for (int n = 1; n < 40; ++n) sum += term *= x / n;
    return sum;
}

// Euler's series; x in 0 to 1
constexpr Quad quadArctan(Quad x) {
    const Quad y = x * x / (1 + x * x);
    Quad term = x / (1 + x * x), sum = term;
    for (int n = 1; n < 120; ++n) sum += term *= y * (2 * n) / (2 * n + 1);
    return sum;
}

inline constexpr Quad quadLn2 = quadLn(2);
inline constexpr Quad quadLn10 = quadLn(10);
inline constexpr Quad quadPi = 4 * quadArctan(1);

} // namespace orbs
