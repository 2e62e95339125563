// Mixed-radix transforms in natural order.
//
// The arithmetic is decimation in time: transforms of the final radix over samples that lie far apart, then the stages
// from the last to stage 0, each joining `radix` blocks of `rest` results under twiddles. The walk has two parts. The
// innermost stages of neighbouring samples run side by side, one short transform (a leaf) in each lane, in rows that
// stay in the first cache; the results are transposed, so that each leaf is a run of columns in two planes of the work
// area. The outer stages run over columns, in place, depth first; stage 0 goes from the planes to the destination.
#pragma once

#include "dft/butterflies.h"
#include "dft/spec.h"

namespace orbs::dft {

using fft::Planes;

// Interleaved, with real and imaginary parts exchanged: the ends of an inverse transform.
template <class T>
struct Exchanged {
    T* base;

    HWY_INLINE Exchanged from(std::size_t n) const { return {base + 2 * n}; }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        Cx<hn::Vec<D>> x;
        hn::LoadInterleaved2(d, base + 2 * n, x.im, x.re);
        return x;
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        hn::StoreInterleaved2(x.im, x.re, d, base + 2 * n);
    }
};

// One butterfly of a stage.
template <int radix, class D, class T, class Load, class Store>
HWY_INLINE void butterfly(D d, const Stage<T>& stage, Load load, Store store) {
    if constexpr (radix == 0) {
        const auto p = static_cast<std::size_t>(stage.radix);
        generalButterfly(d, p, stage.matrix.get(), matrixRun<T>(p), load, store);
    } else {
        Cx<hn::Vec<D>> x[radix];
        repeat<radix>([&](int row) __attribute__((always_inline)) { x[row] = load(row); });
        Butterfly<radix>::apply(x);
        repeat<radix>([&](int k) __attribute__((always_inline)) { store(k, x[k]); });
    }
}

// ---- Leaves ----

// A row of a leaf: a value of as many transforms as there are lanes, real parts and then imaginary parts.
template <class D, class T = hn::TFromD<D>>
struct Rows {
    static constexpr std::size_t lanes = hn::MaxLanes(D());
    T* base;

    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t row) const {
        const T* from = base + 2 * lanes * row;
        return {hn::Load(d, from), hn::Load(d, from + lanes)};
    }
    HWY_INLINE void store(D d, std::size_t row, Cx<hn::Vec<D>> x) const {
        T* to = base + 2 * lanes * row;
        hn::Store(x.re, d, to);
        hn::Store(x.im, d, to + lanes);
    }
};

// The transforms of the final radix; `distance` is that of a leaf's samples.
template <int radix, class D, class T, class From>
void innermostTransforms(D d, const Spec<T>& spec, From from, std::size_t distance, Rows<D> rows) {
    const Stage<T>& stage = spec.finalStage();
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const std::size_t count = spec.leafPoints() / points;
    const Orb32s* places = spec.innermostPlaces;
    for (std::size_t place = 0; place < count; ++place) {
        const From samples = from.from(static_cast<std::size_t>(places[place]) * distance);
        const std::size_t row = place * points;
        butterfly<radix>(
            d,
            stage, [&](std::size_t j) __attribute__((always_inline)) { return samples.load(d, j * count * distance); },
            [&](std::size_t k, auto x) __attribute__((always_inline)) { rows.store(d, row + k, x); });
    }
}

// A stage inside the leaves. Column 0 has no twiddles.
template <int radix, class D, class T>
void leafStage(D d, const Stage<T>& stage, std::size_t leafPoints, Rows<D> rows) {
    using V = hn::Vec<D>;
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const auto columns = static_cast<std::size_t>(stage.rest);
    for (std::size_t block = 0; block < leafPoints; block += points * columns) {
        const auto run = [&](std::size_t column, auto load) __attribute__((always_inline)) {
            const auto store = [&](std::size_t k, auto x) __attribute__((always_inline)) {
                rows.store(d, block + column + k * columns, x);
            };
            butterfly<radix>(d, stage, load, store);
        };
        run(
            0, [&](std::size_t row) __attribute__((always_inline)) { return rows.load(d, block + row * columns); });
        const T* twiddles = stage.twiddles;
        for (std::size_t column = 1; column < columns; ++column, twiddles += 2 * (points - 1)) {
            run(
                column, [&](std::size_t row) __attribute__((always_inline)) {
                    const auto x = rows.load(d, block + column + row * columns);
                    if (row == 0) return x;
                    const T* w = twiddles + 2 * (row - 1);
                    return fft::twiddled<false>(x, Cx<V>{hn::Set(d, w[0]), hn::Set(d, w[1])});
                });
        }
    }
}

// Writes each lane of the rows to its own run of columns.
template <class D, class T = hn::TFromD<D>>
HWY_INLINE void storeRuns(D d, const T* rows, std::size_t leafPoints, const Orb32s* places, T* to) {
    constexpr std::size_t lanes = hn::MaxLanes(D()), perBlock = std::min<std::size_t>(16 / sizeof(T), lanes);
    using V = hn::Vec<D>;
    const auto runOf = [&](std::size_t lane) __attribute__((always_inline)) {
        return to + static_cast<std::size_t>(places[lane]) * leafPoints;
    };
    if constexpr (lanes * sizeof(T) >= 16) {
        const auto square = [&](std::size_t column) __attribute__((always_inline)) {
            V v[lanes];
            repeat<lanes>([&](int n)
                              __attribute__((always_inline)) { v[n] = hn::Load(d, rows + 2 * lanes * (column + n)); });
            fft::transpose(d, v);
            repeat<lanes>([&](int lane)
                              __attribute__((always_inline)) { hn::StoreU(v[lane], d, runOf(lane) + column); });
        };
        if (leafPoints >= lanes) {
            std::size_t column = 0;
            for (; column + lanes <= leafPoints; column += lanes) square(column);
            if (column < leafPoints) square(leafPoints - lanes);
            return;
        }
    }
    (void)perBlock;
    for (std::size_t lane = 0; lane < lanes; ++lane)
        for (std::size_t column = 0; column < leafPoints; ++column)
            runOf(lane)[column] = rows[2 * lanes * column + lane];
}

// All leaves, from the source to the planes.
template <class D, class T, class From>
void leaves(D d, const Spec<T>& spec, From from, Planes<T> work) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(32) T memory[longestLeaf * 2 * lanes];
    const Rows<D> rows{memory};
    const std::size_t count = spec.leafCount(), points = spec.leafPoints();
    for (std::size_t n = 0; n < count; n += lanes) {
        const std::size_t first = std::min(n, count - lanes);
        withRadix(
            spec.finalStage().radix, [&](auto radix) __attribute__((always_inline)) {
                innermostTransforms<radix.value>(d, spec, from.from(first), count, rows);
            });
        for (int i = spec.lastStage; i >= spec.outerStages; --i) {
            withRadix(
                spec.stages[i].radix, [&](auto radix) __attribute__((always_inline)) {
                    leafStage<radix.value>(d, spec.stages[i], points, rows);
                });
        }
        storeRuns(d, memory, points, spec.leafPlaces + first, work.re);
        storeRuns(d, memory + lanes, points, spec.leafPlaces + first, work.im);
    }
}

// ---- Stages over columns ----

// The butterflies of the columns from `column` on, their twiddles at w. `keep` is the number of leading columns that
// have their results already, or are still to have them, where the last group of a stage in place overlaps another.
template <int radix, class D, class T, class From, class To>
HWY_INLINE void columnGroupOf(D d, const Stage<T>& stage, From from, To to, std::size_t column, const T* w) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto columns = static_cast<std::size_t>(stage.rest);
    butterfly<radix>(
        d, stage,
        [&](std::size_t row) __attribute__((always_inline)) {
            const auto x = fft::inRegisters(from.load(d, column + row * columns));
            if (row == 0) return x;
            const T* twiddle = w + 2 * lanes * (row - 1);
            return fft::twiddled<false>(x, Cx<hn::Vec<D>>{hn::Load(d, twiddle), hn::Load(d, twiddle + lanes)});
        },
        [&](std::size_t k, auto x) __attribute__((always_inline)) { to.store(d, column + k * columns, x); });
}

// A plane whose leading lanes are left as they are.
template <class T>
struct Behind {
    Planes<T> planes;
    std::size_t kept;

    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        const auto keep = hn::FirstN(d, kept);
        const auto earlier = planes.load(d, n);
        planes.store(d, n, {hn::IfThenElse(keep, earlier.re, x.re), hn::IfThenElse(keep, earlier.im, x.im)});
    }
};

// A stage in place on `blocks` blocks. The group that overlaps another goes first: its columns are then still data of
// this stage, and raise no flags but their own.
template <int radix, class D, class T>
void columnsInPlace(D d, const Stage<T>& stage, Planes<T> data, std::size_t blocks) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const auto columns = static_cast<std::size_t>(stage.rest);
    const std::size_t over = columns % lanes, whole = columns - over, perGroup = 2 * lanes * (points - 1);
    for (; blocks > 0; --blocks, data = data.from(points * columns)) {
        const T* w = stage.twiddles;
        if (over > 0)
            columnGroupOf<radix>(d, stage, data, Behind<T>{data, lanes - over}, columns - lanes,
                                 w + whole / lanes * perGroup);
        for (std::size_t column = 0; column < whole; column += lanes, w += perGroup)
            columnGroupOf<radix>(d, stage, data, data, column, w);
    }
}

// Stage 0, from the planes to the destination.
template <int radix, class D, class T, class To>
void lastColumns(D d, const Stage<T>& stage, Planes<T> data, To to) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const auto columns = static_cast<std::size_t>(stage.rest);
    const T* w = stage.twiddles;
    for (std::size_t n = 0; n < columns; n += lanes, w += 2 * lanes * (points - 1))
        columnGroupOf<radix>(d, stage, data, to, std::min(n, columns - lanes), w);
}

template <class T>
void stageInPlace(const Stage<T>& stage, Planes<T> data, std::size_t blocks) {
    withLanesFor<T>(
        static_cast<std::size_t>(stage.rest), [&](auto d) __attribute__((always_inline)) {
            withRadix(
                stage.radix, [&](auto radix) __attribute__((always_inline)) {
                    columnsInPlace<radix.value>(d, stage, data, blocks);
                });
        });
}

// Stages last to first on one block of stage `first`: block by block while they are long.
template <class T>
void stagesInPlace(const Spec<T>& spec, int first, Planes<T> data, std::size_t points) {
    constexpr std::size_t inCache = 16384 / sizeof(T);
    int last = spec.outerStages - 1;
    if (points > inCache && first < last) {
        const auto rest = static_cast<std::size_t>(spec.stages[first].rest);
        for (std::size_t block = 0; block < points; block += rest)
            stagesInPlace(spec, first + 1, data.from(block), rest);
        last = first;
    }
    for (int i = last; i >= first; --i) {
        const Stage<T>& stage = spec.stages[i];
        stageInPlace(stage, data,
                     points / static_cast<std::size_t>(stage.radix) / static_cast<std::size_t>(stage.rest));
    }
}

// ---- The whole ----

// The planes of the work area; `work` is aligned to 32 bytes.
template <class T>
Planes<T> workPlanes(Orb8u* work, std::size_t points) {
    T* re = reinterpret_cast<T*>(work);
    return {re, re + roundUp(points, columnGroup<T>)};
}

// From `from` to `to`, which may be the same memory, by way of the work area.
template <class T, class From, class To>
void mixedRadix(const Spec<T>& spec, From from, To to, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.points);
    const Planes<T> data = workPlanes<T>(work, points);
    withLanesFor<T>(
        spec.leafCount(), [&](auto d) __attribute__((always_inline)) { leaves(d, spec, from, data); });
    const Stage<T>& stage = spec.stages[0];
    const auto rest = static_cast<std::size_t>(stage.rest);
    if (spec.outerStages > 1) {
        if (points <= 4096) {
            for (int i = spec.outerStages - 1; i > 0; --i) {
                const Stage<T>& inner = spec.stages[i];
                stageInPlace(inner, data, static_cast<std::size_t>(inner.stride));
            }
        } else {
            for (std::size_t block = 0; block < points; block += rest) stagesInPlace(spec, 1, data.from(block), rest);
        }
    }
    withLanesFor<T>(
        rest, [&](auto d) __attribute__((always_inline)) {
            withRadix(
                stage.radix, [&](auto radix)
                                 __attribute__((always_inline)) { lastColumns<radix.value>(d, stage, data, to); });
        });
}

} // namespace orbs::dft
