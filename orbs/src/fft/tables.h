// The tables of the power-of-two transforms: a quarter wave of the sine, and the twiddles read out of it.
#pragma once

#include "fft/columns.h"
#include "foundation/control.h"
#include "orbdefs.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace orbs::fft {

constexpr double twoPi = 6.283185307179586476925286766559;
constexpr int fixedBaseOrder = 10; // transforms up to this order need no memory for a quarter wave
constexpr int constantOrder = 13;  // up to this order they read the library's constant one

// sin(2 pi m / 2^order) for m = 0 to 2^order / 4. The argument is formed in double; past the eighth wave the cosine of
// the complement is taken.
template <class T>
struct QuarterWave {
    const T* table;
    int order;

    // cos and -sin of 2 pi j / 2^k, for k up to the table's order; negation is 0 - value.
    constexpr T cosine(std::size_t j, int k) const { return sine(j + (std::size_t{1} << (k - 2)), k); }
    constexpr T negativeSine(std::size_t j, int k) const { return T(0) - sine(j, k); }

    // The same of a vector of angles, each told by so many steps of the table's own wave.
    template <class D, class Steps>
    HWY_INLINE hn::Vec<D> cosines(D d, Steps steps) const {
        return sines(d, hn::Add(steps, hn::Set(hn::DFromV<Steps>(), Step{1} << (order - 2))));
    }
    template <class D, class Steps>
    HWY_INLINE hn::Vec<D> negativeSines(D d, Steps steps) const {
        return hn::Sub(hn::Zero(d), sines(d, steps));
    }

private:
    using Step = hwy::MakeSigned<T>;

    template <class D, class Steps>
    HWY_INLINE hn::Vec<D> sines(D d, Steps steps) const {
        const hn::RebindToSigned<D> di;
        const Steps quarter = hn::Set(di, Step{1} << (order - 2)), half = hn::Add(quarter, quarter);
        const Steps within = hn::And(steps, hn::Set(di, (Step{1} << (order - 2)) - 1));
        const auto falls = hn::TestBit(steps, quarter);
        const auto values = hn::GatherIndex(d, table, hn::IfThenElse(falls, hn::Sub(quarter, within), within));
        const auto below = hn::RebindMask(d, hn::TestBit(steps, half));
        return hn::IfThenElse(below, hn::Sub(hn::Zero(d), values), values);
    }
    constexpr T sine(std::size_t j, int k) const {
        const std::size_t quarter = std::size_t{1} << (order - 2);
        const std::size_t m = (j << (order - k)) & (4 * quarter - 1);
        if (m <= quarter) return table[m];
        if (m <= 2 * quarter) return table[2 * quarter - m];
        if (m <= 3 * quarter) return T(0) - table[m - 2 * quarter];
        return T(0) - table[4 * quarter - m];
    }
};

template <class T>
constexpr auto makeFixedQuarterWave() {
    constexpr int eighth = 1 << (constantOrder - 3);
    std::array<T, 2 * eighth + 1> table{};
    for (int m = 0; m <= 2 * eighth; ++m) {
        const double step = twoPi / (8 * eighth);
        const long double sine = m <= eighth ? __builtin_sinl(m * step) : __builtin_cosl((2 * eighth - m) * step);
        table[m] = static_cast<T>(static_cast<double>(sine));
    }
    return table;
}
template <class T>
inline constexpr auto fixedQuarterWave = makeFixedQuarterWave<T>();

// The sine is evaluated in extended precision and rounded once to double, so that the table does not depend on the
// mathematics library's choice of instructions.
template <class T>
void computeQuarterWave(T* table, int order) {
    const X87Control extended(X87Control::nearest);
    const SseRounding nearest(SseRounding::nearest);
    const std::size_t eighth = std::size_t{1} << (order - 3);
    const double step = twoPi / static_cast<double>(8 * eighth);
    for (std::size_t m = 0; m <= eighth; ++m)
        table[m] = static_cast<T>(static_cast<double>(sinl(static_cast<double>(m) * step)));
    for (std::size_t m = eighth + 1; m <= 2 * eighth; ++m)
        table[m] = static_cast<T>(static_cast<double>(cosl(static_cast<double>(2 * eighth - m) * step)));
}

// What columnInLane tells of a whole group.
template <class T>
alignas(64) inline constexpr auto columnsInLanes = [] {
    std::array<hwy::MakeSigned<T>, columnGroup<T>> columns{};
    for (std::size_t lane = 0; lane < columnGroup<T>; ++lane)
        columns[lane] = static_cast<hwy::MakeSigned<T>>(columnInLane<T>(lane));
    return columns;
}();

// One group of a pass over 2^k points: for each multiple of the angle, from 1 to `multiples`, cos and then -sin of the
// columns from j on, in the order that columnInLane tells.
template <class T>
T* appendTwiddles(T* table, const QuarterWave<T>& wave, int k, std::size_t j, int multiples) {
    const GroupTag<T> d;
    const hn::RebindToSigned<GroupTag<T>> di;
    constexpr std::size_t group = columnGroup<T>, lanes = hn::MaxLanes(d);
    for (std::size_t part = 0; part < group; part += lanes) {
        const auto first = hn::Set(di, static_cast<hwy::MakeSigned<T>>(j));
        const auto columns = hn::Add(hn::Load(di, columnsInLanes<T>.data() + part), first);
        const auto angle = hn::ShiftLeftSame(columns, wave.order - k);
        auto angles = angle;
        for (int multiple = 1; multiple <= multiples; ++multiple, angles = hn::Add(angles, angle)) {
            T* const to = table + 2 * group * static_cast<std::size_t>(multiple - 1) + part;
            hn::StoreU(wave.cosines(d, angles), d, to);
            hn::StoreU(wave.negativeSines(d, angles), d, to + group);
        }
    }
    return table + 2 * group * static_cast<std::size_t>(multiples);
}

// The twiddles of 16 points are constants: cos and -sin of 2 pi power column / 16.
template <class T>
struct Twiddles16 {
    T cosine[3][4], negativeSine[3][4]; // [power - 1][column]
};
template <class T>
inline constexpr Twiddles16<T> twiddles16 = [] {
    const QuarterWave<T> wave{fixedQuarterWave<T>.data(), constantOrder};
    Twiddles16<T> w{};
    for (std::size_t power = 1; power < 4; ++power) {
        for (std::size_t column = 0; column < 4; ++column) {
            w.cosine[power - 1][column] = wave.cosine(power * column, 4);
            w.negativeSine[power - 1][column] = wave.negativeSine(power * column, 4);
        }
    }
    return w;
}();

} // namespace orbs::fft
