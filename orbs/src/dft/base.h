// Roots of unity of any order: exp(-2 pi i j / n).
#pragma once

#include "foundation/control.h"
#include "orbdefs.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace orbs::dft {

struct Root {
    double re, im;
};

// Roots are evaluated while one of these lives: in extended precision, and rounded to nearest.
class RootPrecision {
    X87Control extended_{X87Control::nearest};
    SseRounding nearest_{SseRounding::nearest};
};

// exp(-2 pi i j / n), each part rounded once to double, for j below 2^61. The angle is taken to within an eighth of a
// turn in integers: roots that mirror each other have the same bits, and those on the axes are exact.
inline Root unitRoot(std::uint64_t j, std::uint64_t n) {
    const std::uint64_t quarter = (8 * j + n) / (2 * n);
    const auto rest = static_cast<std::int64_t>(4 * j - quarter * n); // of 4 n to a turn
    constexpr long double halfPi = 1.57079632679489661923132169163975144L;
    const long double angle = halfPi * static_cast<long double>(rest < 0 ? -rest : rest) / static_cast<long double>(n);
    const auto cosine = static_cast<double>(cosl(angle));
    const auto magnitude = static_cast<double>(sinl(angle));
    const double sine = rest < 0 ? 0.0 - magnitude : magnitude;
    switch (quarter % 4) {
    case 0:
        return {cosine, 0.0 - sine};
    case 1:
        return {0.0 - sine, 0.0 - cosine};
    case 2:
        return {0.0 - cosine, sine};
    default:
        return {sine, cosine};
    }
}

// The n roots in turn, re and im, into 2 n values. What a symmetry of the circle tells is not evaluated again.
template <class T>
void fillRoots(T* table, std::size_t n) {
    const RootPrecision precision;
    const auto set = [&](std::size_t j, T re, T im) { table[2 * j] = re, table[2 * j + 1] = im; };
    const auto re = [&](std::size_t j) { return table[2 * j]; };
    const auto im = [&](std::size_t j) { return table[2 * j + 1]; };
    std::size_t j = 0;
    for (const std::size_t evaluated = n % 4 == 0 ? n / 8 : n % 2 == 0 ? n / 4 : n / 2; j <= evaluated; ++j) {
        const Root root = unitRoot(j, n);
        set(j, static_cast<T>(root.re), static_cast<T>(root.im));
    }
    if (n % 4 == 0)
        for (; j <= n / 4; ++j) set(j, T(0) - im(n / 4 - j), T(0) - re(n / 4 - j));
    if (n % 2 == 0)
        for (; j <= n / 2; ++j) set(j, T(0) - re(n / 2 - j), im(n / 2 - j));
    for (; j < n; ++j) set(j, re(n - j), T(0) - im(n - j));
}

} // namespace orbs::dft
