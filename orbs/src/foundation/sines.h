// Sine and cosine of constants, for tables that the compiler computes: the same bits by every compiler.
#pragma once

namespace orbs {

// The terms of a Taylor series behind its first one: of the cosine of x, and with `odd` 1 of the sine over x. Up to
// half a turn the 20 of them reach beyond extended precision.
constexpr long double sineSeries(long double xx, int odd) {
    long double rest = 0;
    for (int k = 20; k >= 1; --k) rest = (1 + rest) * (-xx / ((2 * k - 1 + odd) * (2 * k + odd)));
    return rest;
}
constexpr double constantSine(long double x) {
    return static_cast<double>(x + x * sineSeries(x * x, 1));
}
constexpr double constantCosine(long double x) {
    return static_cast<double>(1 + sineSeries(x * x, 0));
}

} // namespace orbs
