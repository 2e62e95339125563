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
#include "vectors/planes.h"

namespace orbs::dft {

using fft::Interleaved;
using fft::Planes;

// Interleaved, with real and imaginary parts exchanged: the ends of an inverse transform.
template <class T>
struct Exchanged {
    T* base;

    HWY_INLINE Exchanged from(std::size_t n) const { return {base + 2 * n}; }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        const Cx<hn::Vec<D>> x = Interleaved<T>{base}.load(d, n);
        return {x.im, x.re};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        Interleaved<T>{base}.store(d, n, Cx<hn::Vec<D>>{x.im, x.re});
    }
};

// Loads for leaves, whose lanes may stand in any order: orderOf tells which transform a lane has.
template <class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadLanes(D d, Planes<T> from, std::size_t n) {
    return from.load(d, n);
}
template <class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadLanes(D d, Interleaved<T> from, std::size_t n) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    if constexpr (lanes * sizeof(T) < 16) {
        return from.load(d, n);
    } else {
        const auto parts = partsInBlocks(d, hn::LoadU(d, from.base + 2 * n), hn::LoadU(d, from.base + 2 * n + lanes));
        return {parts.re, parts.im};
    }
}
template <class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadLanes(D d, Exchanged<T> from, std::size_t n) {
    const Cx<hn::Vec<D>> x = loadLanes(d, Interleaved<T>{from.base}, n);
    return {x.im, x.re};
}
template <class From, class D>
constexpr std::size_t orderOf(std::size_t lane) {
    using T = hn::TFromD<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D()), perBlock = 16 / sizeof(T), half = perBlock / 2;
    if constexpr (lanes <= perBlock || requires(From from) { from.re; }) {
        return lane;
    } else {
        const std::size_t inBlock = lane % perBlock;
        return (inBlock < half ? 0 : lanes / 2) + lane / perBlock * half + inBlock % half;
    }
}

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
            d, stage,
            [&](std::size_t j) __attribute__((always_inline)) { return loadLanes(d, samples, j * count * distance); },
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

// Rows that are transposed together: a square of lanes up to 32 bytes, or as many as fill 16 bytes of a run.
template <class T, std::size_t lanes>
constexpr int tileRows(std::size_t leafPoints) {
    constexpr std::size_t square = std::min<std::size_t>(lanes, columnGroup<T>), block = 16 / sizeof(T);
    return lanes < block || leafPoints < block ? 0 : leafPoints >= square ? square : block;
}

// Writes rows of one part to the runs of their lanes, from `column` on.
template <int rows, class D, class Run>
HWY_INLINE void storeTile(D d, hn::Vec<D> (&v)[rows], Run runOf, std::size_t column) {
    using T = hn::TFromD<D>;
    constexpr int lanes = hn::MaxLanes(D()), perBlock = 16 / sizeof(T);
    if constexpr (lanes * sizeof(T) > 32) {
        const hn::Half<D> half;
        hn::Vec<decltype(half)> low[rows], high[rows];
        repeat<rows>([&](int row) __attribute__((always_inline)) {
            low[row] = hn::LowerHalf(half, v[row]);
            high[row] = hn::UpperHalf(half, v[row]);
        });
        storeTile<rows>(half, low, runOf, column);
        storeTile<rows>(
            half, high, [&](int lane) __attribute__((always_inline)) { return runOf(lanes / 2 + lane); }, column);
    } else if constexpr (rows == lanes) {
        fft::transpose(d, v);
        repeat<lanes>([&](int lane) __attribute__((always_inline)) { hn::StoreU(v[lane], d, runOf(lane) + column); });
    } else {
        static_assert(rows == perBlock && lanes == 2 * perBlock);
        const hn::Half<D> half;
        fft::transposeBlocks(d, v);
        repeat<rows>([&](int lane) __attribute__((always_inline)) {
            hn::StoreU(hn::LowerHalf(half, v[lane]), half, runOf(lane) + column);
            hn::StoreU(hn::UpperHalf(half, v[lane]), half, runOf(perBlock + lane) + column);
        });
    }
}

// Hands out the first rows of all tiles of `count` rows; the last one may overlap the one before it.
template <int rows, class Tile>
HWY_INLINE void forEachTile(std::size_t count, Tile tile) {
    std::size_t row = 0;
    for (; row + rows <= count; row += rows) tile(row);
    if (row < count) tile(count - rows);
}

// Where the leaves of the lanes begin in a plane; `places` are those of the transforms from the first lane on.
template <class From, class D, class T = hn::TFromD<D>>
struct LeafRuns {
    const Orb32s* places;
    T* plane;

    HWY_INLINE T* operator()(std::size_t lane) const { return plane + places[orderOf<From, D>(lane)]; }
};

template <class D, class Run>
HWY_INLINE void storeRuns(D d, const hn::TFromD<D>* rows, std::size_t leafPoints, Run runOf) {
    using T = hn::TFromD<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D()), square = std::min<std::size_t>(lanes, columnGroup<T>);
    const auto withTiles = [&]<int count>(std::integral_constant<int, count>) HWY_ATTR {
        forEachTile<count>(
            leafPoints, [&](std::size_t row) __attribute__((always_inline)) {
                hn::Vec<D> v[count];
                repeat<count>([&](int n)
                                  __attribute__((always_inline)) { v[n] = hn::Load(d, rows + 2 * lanes * (row + n)); });
                storeTile<count>(d, v, runOf, row);
            });
    };
    constexpr int block = 16 / sizeof(T);
    if constexpr (lanes >= block) {
        if (leafPoints >= square) return withTiles(std::integral_constant<int, square>());
        if (leafPoints >= block) return withTiles(std::integral_constant<int, block>());
    }
    for (std::size_t lane = 0; lane < lanes; ++lane)
        for (std::size_t column = 0; column < leafPoints; ++column)
            runOf(lane)[column] = rows[2 * lanes * column + lane];
}

// All leaves, from the source to the planes.
template <class D, class T, class From>
void leaves(D d, const Spec<T>& spec, From from, Planes<T> work) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(64) T memory[longestLeaf * 2 * lanes];
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
        const Orb32s* places = spec.leafPlaces + first;
        storeRuns(d, memory, points, LeafRuns<From, D>{places, work.re});
        storeRuns(d, memory + lanes, points, LeafRuns<From, D>{places, work.im});
    }
}

// Leaves that are transforms of the final radix alone, all in registers.
template <int radix, class D, class T, class From>
void shortLeaves(D d, const Spec<T>& spec, From from, Planes<T> work) {
    using V = hn::Vec<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D());
    constexpr int rows = tileRows<T, lanes>(radix);
    const std::size_t count = spec.leafCount();
    const Orb32s* places = spec.leafPlaces;
    for (std::size_t n = 0; n < count; n += lanes) {
        const std::size_t first = std::min(n, count - lanes);
        Cx<V> x[radix];
        repeat<radix>([&](int row)
                          __attribute__((always_inline)) { x[row] = loadLanes(d, from, first + row * count); });
        Butterfly<radix>::apply(x);
        const auto runOf = [&](T * plane) __attribute__((always_inline)) {
            return LeafRuns<From, D>{places + first, plane};
        };
        forEachTile<rows>(
            radix, [&](std::size_t row) __attribute__((always_inline)) {
                V re[rows], im[rows];
                repeat<rows>([&](int k)
                                 __attribute__((always_inline)) { re[k] = x[row + k].re, im[k] = x[row + k].im; });
                storeTile<rows>(d, re, runOf(work.re), row);
                storeTile<rows>(d, im, runOf(work.im), row);
            });
    }
}

template <class T, class From>
void anyLeaves(const Spec<T>& spec, From from, Planes<T> work) {
    const bool isShort = spec.outerStages == spec.stageCount();
    const auto count = spec.leafCount();
    withLanesFor<T>(
        count, [&](auto d) __attribute__((always_inline)) {
            constexpr std::size_t lanes = hn::MaxLanes(d);
            if (isShort) {
                const int radix = spec.finalStage().radix;
                if constexpr (tileRows<T, lanes>(2) > 0)
                    if (radix == 2) return shortLeaves<2>(d, spec, from, work);
                if constexpr (tileRows<T, lanes>(3) > 0)
                    if (radix == 3) return shortLeaves<3>(d, spec, from, work);
                if constexpr (tileRows<T, lanes>(4) > 0)
                    if (radix == 4) return shortLeaves<4>(d, spec, from, work);
                if constexpr (tileRows<T, lanes>(5) > 0)
                    if (radix == 5) return shortLeaves<5>(d, spec, from, work);
            }
            leaves(d, spec, from, work);
        });
}

// ---- Stages over columns ----

// Two blocks side by side, where one has half as many columns as there are lanes.
template <class T>
struct TwoBlocks {
    Planes<T> data;
    std::size_t distance;

    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        const hn::Half<D> half;
        const auto low = data.load(half, n), high = data.load(half, n + distance);
        return {hn::Combine(d, high.re, low.re), hn::Combine(d, high.im, low.im)};
    }
    template <class D>
    HWY_INLINE void store(D, std::size_t n, Cx<hn::Vec<D>> x) const {
        const hn::Half<D> half;
        using H = Cx<hn::Vec<decltype(half)>>;
        data.store(half, n, H{hn::LowerHalf(half, x.re), hn::LowerHalf(half, x.im)});
        data.store(half, n + distance, H{hn::UpperHalf(half, x.re), hn::UpperHalf(half, x.im)});
    }
};

template <class D, class T, class From>
HWY_INLINE hn::Vec<D> loadTwiddles(D d, const From&, const T* from) {
    return hn::LoadU(d, from);
}
template <class D, class T>
HWY_INLINE hn::Vec<D> loadTwiddles(D d, const TwoBlocks<T>&, const T* from) {
    const auto half = hn::LoadU(hn::Half<D>(), from);
    return hn::Combine(d, half, half);
}

// The butterflies of a vector of columns, their twiddles at w; `pitch` is the number of columns in a group of twiddles.
template <int radix, class D, class T, class From, class To>
HWY_INLINE void columnsAt(D d, const Stage<T>& stage, From from, To to, std::size_t column, const T* w,
                          std::size_t pitch) {
    const auto columns = static_cast<std::size_t>(stage.rest);
    butterfly<radix>(
        d, stage,
        [&](std::size_t row) __attribute__((always_inline)) {
            const auto x = from.load(d, column + row * columns);
            if (row == 0) return x;
            const T* twiddle = w + 2 * pitch * (row - 1);
            const Cx<hn::Vec<D>> root{loadTwiddles(d, from, twiddle), loadTwiddles(d, from, twiddle + pitch)};
            return fft::twiddled<false>(x, root);
        },
        [&](std::size_t k, auto x) __attribute__((always_inline)) { to.store(d, column + k * columns, x); });
}

// Planes whose leading lanes are left as they are.
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

// What full vectors of columns leave over: run(d, over, w) with vectors of half their lanes if that is enough.
template <class D, class T, class Run>
HWY_INLINE void withRest(D d, std::size_t over, const T* w, Run run) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    if constexpr (lanes > 2) {
        const hn::Half<D> half;
        if (over <= lanes / 2) return run(half, w + lanes / 2);
    }
    run(d, w);
}

// A stage in place on `blocks` blocks. What overlaps full vectors goes first: it is then still data of this stage, and
// raises no flags but its own.
template <int radix, class D, class T>
void columnsInPlace(D d, const Stage<T>& stage, Planes<T> data, std::size_t blocks) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const auto columns = static_cast<std::size_t>(stage.rest);
    const std::size_t over = columns % lanes, whole = columns - over, perGroup = 2 * lanes * (points - 1);
    if constexpr (2 * lanes <= hn::MaxLanes(LaneTag<T>())) {
        const hn::CappedTag<T, 2 * lanes> twice;
        for (; columns == lanes && blocks >= 2; blocks -= 2, data = data.from(2 * points * columns)) {
            const TwoBlocks<T> two{data, points * columns};
            columnsAt<radix>(twice, stage, two, two, 0, stage.twiddles.get(), lanes);
        }
    }
    for (; blocks > 0; --blocks, data = data.from(points * columns)) {
        const T* w = stage.twiddles;
        if (over > 0) {
            withRest(
                d, over, w + whole / lanes * perGroup, [&](auto dr, const T* rest) __attribute__((always_inline)) {
                    constexpr std::size_t taken = hn::MaxLanes(dr);
                    if (over == taken) return columnsAt<radix>(dr, stage, data, data, whole, rest, lanes);
                    columnsAt<radix>(dr, stage, data, Behind<T>{data, taken - over}, columns - taken, rest, lanes);
                });
        }
        for (std::size_t column = 0; column < whole; column += lanes, w += perGroup)
            columnsAt<radix>(d, stage, data, data, column, w, lanes);
    }
}

// Stage 0, from the planes to the destination.
template <int radix, class D, class T, class To>
void lastColumns(D d, const Stage<T>& stage, Planes<T> data, To to) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto points = static_cast<std::size_t>(radix > 0 ? radix : stage.radix);
    const auto columns = static_cast<std::size_t>(stage.rest);
    const std::size_t over = columns % lanes;
    const T* w = stage.twiddles;
    for (std::size_t n = 0; n + lanes <= columns; n += lanes, w += 2 * lanes * (points - 1))
        columnsAt<radix>(d, stage, data, to, n, w, lanes);
    if (over == 0) return;
    withRest(
        d, over, w, [&](auto dr, const T* rest) __attribute__((always_inline)) {
            columnsAt<radix>(dr, stage, data, to, columns - hn::MaxLanes(dr), rest, lanes);
        });
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
    anyLeaves(spec, from, data);
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
