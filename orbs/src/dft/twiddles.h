// The tables of the stages, read out of the roots of unity of the transform's length.
#pragma once

#include "fft/arithmetic.h"
#include "orbdefs.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orbs::dft {

// Work areas, tables and the split of stages count groups of 32 bytes in every tier.
template <class T>
constexpr std::size_t columnGroup = 32 / sizeof(T);
template <class T>
using GroupTag = hn::CappedTag<T, columnGroup<T>>;

// exp(-2 pi i j / n), read out of a table of n * step roots.
template <class T>
struct Roots {
    const T* table;
    std::size_t n, step = 1;

    T re(std::size_t j) const { return table[2 * step * j]; }
    T im(std::size_t j) const { return table[2 * step * j + 1]; }
};

// The vectors of the transforms. Lanes are columns or transforms side by side, so their number changes no bit.
template <class T>
using LaneTag = hn::CappedTag<T, 64 / sizeof(T)>;

// Lanes in which `count` columns, or transforms side by side, are taken: the most that they fill.
template <class T>
constexpr std::size_t lanesFor(std::size_t count) {
    std::size_t lanes = hn::MaxLanes(LaneTag<T>());
    while (lanes > count) lanes /= 2;
    return lanes;
}
// Calls run(d) with vectors of so many lanes; count is at least 2.
template <std::size_t lanes, class T, class Run>
HWY_INLINE void withLanes(std::size_t count, Run run) {
    if constexpr (lanes > 2)
        if (count < lanes) return withLanes<lanes / 2, T>(count, run);
    run(hn::CappedTag<T, lanes>());
}
template <class T, class Run>
HWY_INLINE void withLanesFor(std::size_t count, Run run) {
    withLanes<hn::MaxLanes(LaneTag<T>()), T>(count, run);
}

// ---- Stages whose lanes run over columns ----

// Groups of columns lie one behind the other; the last one overlaps the one before it where columns do not fill it. Of
// each group the twiddles of rows 1 to radix - 1, real parts and then imaginary parts.
constexpr std::size_t columnTwiddles(std::size_t radix, std::size_t columns, std::size_t lanes) {
    return (columns + lanes - 1) / lanes * lanes * (radix - 1) * 2;
}
template <class T>
void fillColumnTwiddles(T* table, Roots<T> roots, std::size_t radix, std::size_t columns, std::size_t lanes) {
    const std::size_t stride = roots.n / (radix * columns);
    for (std::size_t group = 0; group < columns; group += lanes) {
        const std::size_t first = std::min(group, columns - lanes);
        for (std::size_t row = 1; row < radix; ++row, table += 2 * lanes) {
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                table[lane] = roots.re(row * (first + lane) * stride);
                table[lanes + lane] = roots.im(row * (first + lane) * stride);
            }
        }
    }
}

// ---- Stages whose lanes run over transforms ----

// Of each column but 0, whose twiddles are 1, those of rows 1 to radix - 1, real and imaginary.
constexpr std::size_t plainTwiddles(std::size_t radix, std::size_t columns) {
    return 2 * (radix - 1) * (columns - 1);
}
template <class T>
void fillPlainTwiddles(T* table, Roots<T> roots, std::size_t radix, std::size_t columns) {
    const std::size_t stride = roots.n / (radix * columns);
    for (std::size_t column = 1; column < columns; ++column) {
        for (std::size_t row = 1; row < radix; ++row) {
            *table++ = roots.re(row * column * stride);
            *table++ = roots.im(row * column * stride);
        }
    }
}

// ---- General odd radices ----

// For p points, p odd: in row j, j = 1 to (p - 1) / 2, cos(2 pi j k / p) of k = 1 to (p - 1) / 2 and on to a multiple
// of 32 bytes, and then -sin(2 pi j k / p) likewise.
template <class T>
constexpr std::size_t matrixRun(std::size_t p) {
    return (p / 2 + columnGroup<T> - 1) / columnGroup<T> * columnGroup<T>;
}
template <class T>
constexpr std::size_t matrixValues(std::size_t p) {
    return p / 2 * 2 * matrixRun<T>(p);
}
template <class T>
void fillMatrix(T* table, Roots<T> roots, std::size_t p) {
    const std::size_t run = matrixRun<T>(p), step = roots.n / p;
    for (std::size_t j = 1; j <= p / 2; ++j, table += 2 * run) {
        for (std::size_t k = 1; k <= run; ++k) {
            table[k - 1] = roots.re(j * k % p * step);
            table[run + k - 1] = roots.im(j * k % p * step);
        }
    }
}

// ---- Real transforms ----

// Stages of odd length in half-complex form: of each row 1 to radix - 1 the columns k = 1 to (columns - 1) / 2, real
// parts and then imaginary parts.
constexpr std::size_t realTwiddles(std::size_t radix, std::size_t columns) {
    return (radix - 1) * (columns - 1);
}
template <class T>
void fillRealTwiddles(T* table, Roots<T> roots, std::size_t radix, std::size_t columns) {
    const std::size_t stride = roots.n / (radix * columns), half = columns / 2;
    for (std::size_t row = 1; row < radix; ++row, table += 2 * half) {
        for (std::size_t k = 1; k <= half; ++k) {
            table[k - 1] = roots.re(row * k * stride);
            table[half + k - 1] = roots.im(row * k * stride);
        }
    }
}

// Recombination of a half-length transform: for k = 1, 2, ... forward 0.5 cos and 0.5 - 0.5 sin of 2 pi k / n, inverse
// cos and -sin.
constexpr std::size_t recombinationValues(std::size_t n) {
    return 2 * ((n + 3) / 4);
}
template <class T>
void fillRecombination(T* forward, T* inverse, Roots<T> roots) {
    for (std::size_t k = 1; k <= (roots.n + 3) / 4; ++k) {
        *forward++ = T(0.5) * roots.re(k);
        *forward++ = static_cast<T>(0.5 + 0.5 * static_cast<double>(roots.im(k)));
        *inverse++ = roots.re(k);
        *inverse++ = roots.im(k);
    }
}

} // namespace orbs::dft
