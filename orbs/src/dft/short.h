// Complex transforms of up to 4 points, of a few short products, and direct sums over an odd number of points.
#pragma once

#include "dft/mixed.h"

namespace orbs::dft {

// Up to 4 points, which need no table.
template <class T, class From, class To>
void smallTransform(From from, To to, std::size_t points) {
    const hn::CappedTag<T, 1> one;
    using V = hn::Vec<decltype(one)>;
    const auto run = [&]<int count>(std::integral_constant<int, count>) HWY_ATTR {
        Cx<V> x[count];
        repeat<count>([&](int n)
                          __attribute__((always_inline)) { x[n] = from.load(one, static_cast<std::size_t>(n)); });
        if constexpr (count > 1) Butterfly<count>::apply(x);
        repeat<count>([&](int k) __attribute__((always_inline)) { to.store(one, static_cast<std::size_t>(k), x[k]); });
    };
    if (points == 1) return run(std::integral_constant<int, 1>());
    if (points == 2) return run(std::integral_constant<int, 2>());
    if (points == 3) return run(std::integral_constant<int, 3>());
    run(std::integral_constant<int, 4>());
}

// The sums and differences of mirror elements of a direct sum, each part in a run of `half` numbers.
template <class T>
struct MirrorParts {
    T *sumRe, *sumIm, *differenceRe, *differenceIm;

    MirrorParts(T* memory, std::size_t half)
        : sumRe(memory), sumIm(memory + half), differenceRe(memory + 2 * half), differenceIm(memory + 3 * half) {}
};

// `points` is odd and at least 3; the table is that of fillMatrix. Lanes run over results, each of which adds up its
// products in the order of the samples, as generalButterfly does. `work` has room for 2 * points numbers; the
// destination may be the source.
template <class D, class From, class To, class T = hn::TFromD<D>>
void directTransform(D d, From from, To to, std::size_t points, const T* matrix, T* work) {
    using V = hn::Vec<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const hn::CappedTag<T, 1> one;
    const std::size_t half = points / 2, run = matrixRun<T>(points);
    const MirrorParts<T> parts(work, half);
    const auto join = [&](auto dj, std::size_t j) HWY_ATTR {
        const auto a = from.load(dj, j), mirrored = from.load(dj, points + 1 - j - hn::MaxLanes(dj));
        const decltype(a) b{hn::Reverse(dj, mirrored.re), hn::Reverse(dj, mirrored.im)};
        const auto sum = a + b, difference = a - b;
        hn::StoreU(sum.re, dj, parts.sumRe + j - 1);
        hn::StoreU(sum.im, dj, parts.sumIm + j - 1);
        hn::StoreU(difference.re, dj, parts.differenceRe + j - 1);
        hn::StoreU(difference.im, dj, parts.differenceIm + j - 1);
    };
    std::size_t j = 1;
    for (; j + lanes <= half + 1; j += lanes) join(d, j);
    for (; j <= half; ++j) join(one, j);
    const auto origin = from.load(one, 0);
    auto total = origin;
    const Cx<V> first{hn::Set(d, hn::GetLane(origin.re)), hn::Set(d, hn::GetLane(origin.im))};
    for (j = 0; j < half; ++j)
        total = total + Cx<hn::Vec<decltype(one)>>{hn::Set(one, parts.sumRe[j]), hn::Set(one, parts.sumIm[j])};

    // Lanes past the middle hold mirror results, with the very bits that the lanes before it give.
    const auto outputs = [&]<int count>(std::size_t k, std::integral_constant<int, count>) HWY_ATTR {
        Cx<V> even[count], odd[count];
        const T* roots = matrix + k - 1;
        const auto products = [&](std::size_t at, bool begins) __attribute__((always_inline)) {
            const Cx<V> sum{hn::Set(d, parts.sumRe[at]), hn::Set(d, parts.sumIm[at])};
            const Cx<V> difference{hn::Set(d, parts.differenceRe[at]), hn::Set(d, parts.differenceIm[at])};
            repeat<count>([&](int i) __attribute__((always_inline)) {
                const Cx<V> real = sum * hn::Load(d, roots + i * lanes);
                const Cx<V> turned = difference * hn::Load(d, roots + run + i * lanes);
                even[i] = (begins ? first : even[i]) + real;
                odd[i] = begins ? turned : odd[i] + turned;
            });
            roots += 2 * run;
        };
        products(0, true);
        for (std::size_t at = 1; at < half; ++at) products(at, false);
        repeat<count>([&](int i) __attribute__((always_inline)) {
            const std::size_t at = k + i * lanes;
            const Cx<V> mirror = addTurned<false>(even[i], odd[i]);
            to.store(d, at, subTurned<false>(even[i], odd[i]));
            to.store(d, points + 1 - at - lanes, Cx<V>{hn::Reverse(d, mirror.re), hn::Reverse(d, mirror.im)});
        });
    };
    to.store(one, 0, total);
    std::size_t k = 1;
    for (; k + lanes <= half; k += 2 * lanes) outputs(k, std::integral_constant<int, 2>());
    if (k <= half) outputs(k, std::integral_constant<int, 1>());
}

// ---- Short products ----
//
// Lengths whose radices the code knows: the arithmetic of mixed.h with the same tables, but from the source to the
// destination in registers. Column 0 has its product here too, as in all stages over columns.

// Where the table of a stage over `rest` columns has the twiddles of row 1 from `column` on, and how far their parts
// lie apart.
template <class T>
constexpr int tableLanes(int rest) {
    return static_cast<int>(lanesFor<T>(static_cast<std::size_t>(rest)));
}
template <class T>
constexpr int tablePlace(int radix, int rest, int column, int count) {
    const int lanes = tableLanes<T>(rest), group = (column + count - 1) / lanes;
    return group * lanes * (radix - 1) * 2 + column - std::min(group * lanes, rest - lanes);
}

// The length is p blocks of r * q columns: stages of the radices p and r, the latter unless it is 1, and transforms of
// the final radix q.
template <class T, int points>
struct Product {
    static constexpr Choice choice = choose<T>(points, Kind::interleaved);
    static_assert(choice.plan == Plan::mixedRadix && choice.outerStages == choice.radices.stages);
    static_assert(choice.radices.stages <= 2);
    static constexpr int p = choice.radices.radix[0], q = choice.radices.last();
    static constexpr int r = choice.radices.stages == 2 ? choice.radices.radix[1] : 1, columns = r * q;

    // Lanes of the transforms side by side, one a block. Where the blocks do not fill them, the others are 0; where
    // they are more, the last pass takes the last ones.
    static constexpr int mostLanes = std::min<int>(p <= 4 || sizeof(T) == 8 ? 4 : 8, hn::MaxLanes(LaneTag<T>()));
    using D = hn::CappedTag<T, mostLanes>;
    static constexpr int lanes = hn::MaxLanes(D()), passes = (p + lanes - 1) / lanes;
    static constexpr int firstBlock(int pass) { return std::max(std::min(pass * lanes, p - lanes), 0); }
    // Columns of the last stage side by side.
    static constexpr int tile = std::min(lanes, 4), width = std::min(tile, columns);
    using C = hn::CappedTag<T, width>;
};

// The first `count` lanes, and zeros behind them.
template <int count, class D, class T = hn::TFromD<D>>
HWY_INLINE hn::Vec<D> loadFirst(D d, const T* from) {
    constexpr int lanes = hn::MaxLanes(D());
    const hn::Half<D> half;
    if constexpr (count == lanes) {
        return hn::LoadU(d, from);
    } else if constexpr (count > lanes / 2) {
        return hn::Combine(d, loadFirst<count - lanes / 2>(half, from + lanes / 2), hn::LoadU(half, from));
    } else {
        return hn::ZeroExtendVector(d, loadFirst<count>(half, from));
    }
}
// The samples of `count` blocks, of which each lane takes one; those behind them are not touched.
template <int count, class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadBlocks(D d, Planes<const T> from, std::size_t n) {
    return {loadFirst<count>(d, from.re + n), loadFirst<count>(d, from.im + n)};
}
template <int count, class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadBlocks(D d, Interleaved<const T> from, std::size_t n) {
    constexpr int lanes = hn::MaxLanes(D());
    if constexpr (count == lanes) {
        return loadLanes(d, from, n);
    } else {
        static_assert(2 * count > lanes);
        const T* at = from.base + 2 * n;
        const auto parts = partsInBlocks(d, hn::LoadU(d, at), loadFirst<2 * count - lanes>(d, at + lanes));
        return {parts.re, parts.im};
    }
}
template <int count, class D, class T>
HWY_INLINE Cx<hn::Vec<D>> loadBlocks(D d, Exchanged<const T> from, std::size_t n) {
    const auto x = loadBlocks<count>(d, Interleaved<const T>{from.base}, n);
    return {x.im, x.re};
}

// Tiles of one part: v[i] holds column i of all lanes, and then lane i (and lane i + 4 behind it) its columns.
template <int rows, class D>
HWY_INLINE void transposeTile(D d, hn::Vec<D> (&v)[rows]) {
    if constexpr (rows == hn::MaxLanes(D())) {
        fft::transpose(d, v);
    } else {
        fft::transposeBlocks(d, v);
    }
}
template <class C, class D>
HWY_INLINE hn::Vec<C> firstLanes(C c, D, hn::Vec<D> v) {
    const hn::Half<D> half;
    if constexpr (hn::MaxLanes(C()) == hn::MaxLanes(D())) {
        return v;
    } else {
        return firstLanes(c, half, hn::LowerHalf(half, v));
    }
}
template <int lane, class C, class D, int rows>
HWY_INLINE hn::Vec<C> laneOfTile(C c, D d, const hn::Vec<D> (&v)[rows]) {
    const hn::Half<D> half;
    if constexpr (lane < rows) {
        return firstLanes(c, d, v[lane]);
    } else {
        return firstLanes(c, half, hn::UpperHalf(half, v[lane - rows]));
    }
}
// Four values, in all halves of longer vectors.
template <class D, class T>
HWY_INLINE hn::Vec<D> loadRepeated(D d, const T* from) {
    if constexpr (hn::MaxLanes(D()) == 4) {
        return hn::LoadU(d, from);
    } else {
        const auto half = hn::LoadU(hn::Half<D>(), from);
        return hn::Combine(d, half, half);
    }
}
// The lane that loadBlocks gives to a block.
template <class From, class D>
constexpr int laneOf(int block) {
    int lane = 0;
    while (static_cast<int>(orderOf<From, D>(static_cast<std::size_t>(lane))) != block) ++lane;
    return lane;
}

template <int points, class T, class From, class To>
void productTransform(const Spec<T>& spec, From from, To to) {
    using P = Product<T, points>;
    using V = hn::Vec<typename P::D>;
    constexpr int p = P::p, q = P::q, r = P::r, columns = P::columns, lanes = P::lanes, tile = P::tile;
    const typename P::D d;
    const typename P::C dc;
    using W = hn::Vec<typename P::C>;

    Cx<V> x[P::passes][columns];
    repeat<P::passes>([&](int pass) __attribute__((always_inline)) {
        constexpr int blocks = std::min(p, lanes);
        const int first = P::firstBlock(pass);
        repeat<r>([&](int part) __attribute__((always_inline)) {
            Cx<V> y[q];
            repeat<q>([&](int k) __attribute__((always_inline)) {
                y[k] = loadBlocks<blocks>(d, from, static_cast<std::size_t>(first + p * (part + r * k)));
            });
            Butterfly<q>::apply(y);
            repeat<q>([&](int k) __attribute__((always_inline)) { x[pass][part * q + k] = y[k]; });
        });
        if constexpr (r > 1) {
            const T* twiddles = spec.stages[1].twiddles;
            constexpr int apart = tableLanes<T>(q);
            repeat<q>([&](int column) __attribute__((always_inline)) {
                Cx<V> y[r];
                repeat<r>([&](int row) __attribute__((always_inline)) {
                    y[row] = x[pass][column + row * q];
                    if (row == 0) return;
                    const T* w = twiddles + tablePlace<T>(r, q, column, 1) + 2 * apart * (row - 1);
                    y[row] = fft::twiddled<false>(y[row], Cx<V>{hn::Set(d, w[0]), hn::Set(d, w[apart])});
                });
                Butterfly<r>::apply(y);
                repeat<r>([&](int row) __attribute__((always_inline)) { x[pass][column + row * q] = y[row]; });
            });
        }
    });

    const T* twiddles = spec.stages[0].twiddles;
    constexpr int apart = tableLanes<T>(columns), groups = (columns + P::width - 1) / P::width;
    repeat<groups>([&](int group) __attribute__((always_inline)) {
        const int column = std::min(group * P::width, columns - P::width);
        V re[P::passes][tile], im[P::passes][tile];
        repeat<P::passes>([&](int pass) __attribute__((always_inline)) {
            repeat<tile>([&](int i) __attribute__((always_inline)) {
                re[pass][i] = x[pass][column + i % P::width].re;
                im[pass][i] = x[pass][column + i % P::width].im;
            });
            transposeTile(d, re[pass]);
            transposeTile(d, im[pass]);
        });
        Cx<W> y[p];
        const auto place = [&]<int block>(std::integral_constant<int, block>) __attribute__((always_inline)) {
            constexpr int pass = block / lanes, element = block - P::firstBlock(pass);
            constexpr int lane = laneOf<From, typename P::D>(element);
            y[block] = {laneOfTile<lane>(dc, d, re[pass]), laneOfTile<lane>(dc, d, im[pass])};
            if (block == 0) return;
            const T* w = twiddles + tablePlace<T>(p, columns, column, P::width) + 2 * apart * (block - 1);
            y[block] = fft::twiddled<false>(y[block], Cx<W>{hn::LoadU(dc, w), hn::LoadU(dc, w + apart)});
        };
        [&]<int... block>(std::integer_sequence<int, block...>) __attribute__((always_inline)) {
            (place(std::integral_constant<int, block>()), ...);
        }
        (std::make_integer_sequence<int, p>());
        Butterfly<p>::apply(y);
        repeat<p>([&](int k) __attribute__((always_inline)) {
            to.store(dc, static_cast<std::size_t>(column + k * columns), y[k]);
        });
    });
}

// ---- 60 and 120 points ----
//
// The radices are 5, 3 and 4, and of 120 points a 2 before them: transforms of 4 points side by side, and their results
// as rows of four columns, which all later stages take as they lie. Stage 0 of 120 points joins the transforms of the
// even samples and of the odd ones; where vectors are long enough, the two share them.
template <int points, class T, class From, class To>
void rowsTransform(const Spec<T>& spec, From from, To to) {
    constexpr int transforms = points / 4, halves = points / 60;
    constexpr int side = hn::MaxLanes(LaneTag<T>()) >= 8 ? halves : 1, apart = halves / side; // of rows of one half
    constexpr int blocks = 5 * apart;
    constexpr Choice choice = choose<T>(points, Kind::interleaved);
    static_assert(choice.radices.stages == halves + 1 && choice.outerStages == choice.radices.stages);
    static_assert(choice.radices.radix[halves - 1] == 5 && choice.radices.radix[halves] == 3);
    using C = hn::CappedTag<T, 4>;
    using R = hn::CappedTag<T, 4 * side>;
    using D = GroupTag<T>;
    using V = hn::Vec<R>;
    using W = hn::Vec<C>;
    constexpr int lanes = hn::MaxLanes(D());
    const C dc;
    const R dr;
    const D d;
    const auto root = [](auto dw, const T* w, std::size_t distance) __attribute__((always_inline)) {
        return Cx<hn::Vec<decltype(dw)>>{loadRepeated(dw, w), loadRepeated(dw, w + distance)};
    };

    Cx<V> x[transforms / side];
    for (int group = 0; group < transforms; group += lanes) {
        const int first = std::min(group, transforms - lanes);
        Cx<hn::Vec<D>> y[4];
        repeat<4>([&](int k) __attribute__((always_inline)) {
            y[k] = loadLanes(d, from, static_cast<std::size_t>(first + transforms * k));
        });
        Butterfly<4>::apply(y);
        hn::Vec<D> re[4] = {y[0].re, y[1].re, y[2].re, y[3].re};
        hn::Vec<D> im[4] = {y[0].im, y[1].im, y[2].im, y[3].im};
        transposeTile(d, re);
        transposeTile(d, im);
        const auto place = [&]<int row>(std::integral_constant<int, row>) __attribute__((always_inline)) {
            constexpr int lane = laneOf<From, D>(row * side);
            const Cx<W> low{laneOfTile<lane>(dc, d, re), laneOfTile<lane>(dc, d, im)};
            if constexpr (side == 1) {
                x[first + row] = low;
            } else {
                constexpr int next = laneOf<From, D>(row * side + 1);
                const Cx<W> high{laneOfTile<next>(dc, d, re), laneOfTile<next>(dc, d, im)};
                x[first / side + row] = {hn::Combine(dr, high.re, low.re), hn::Combine(dr, high.im, low.im)};
            }
        };
        [&]<int... row>(std::integer_sequence<int, row...>) __attribute__((always_inline)) {
            (place(std::integral_constant<int, row>()), ...);
        }
        (std::make_integer_sequence<int, lanes / side>());
    }

    const T* threes = spec.stages[halves].twiddles;
    for (int block = 0; block < blocks; ++block) {
        Cx<V> y[3];
        repeat<3>([&](int row) __attribute__((always_inline)) {
            y[row] = x[block + row * blocks];
            if (row > 0) y[row] = fft::twiddled<false>(y[row], root(dr, threes + 8 * (row - 1), 4));
        });
        Butterfly<3>::apply(y);
        repeat<3>([&](int row) __attribute__((always_inline)) { x[block + row * blocks] = y[row]; });
    }

    for (int group = 0; group < 3; ++group) {
        constexpr int distance = tableLanes<T>(12);
        const T* fives = spec.stages[halves - 1].twiddles + tablePlace<T>(5, 12, 4 * group, 4);
        Cx<V> y[apart][5];
        repeat<apart>([&](int half) __attribute__((always_inline)) {
            repeat<5>([&](int row) __attribute__((always_inline)) {
                y[half][row] = x[group * blocks + half + row * apart];
                if (row == 0) return;
                const T* w = fives + 2 * distance * (row - 1);
                y[half][row] = fft::twiddled<false>(y[half][row], root(dr, w, distance));
            });
            Butterfly<5>::apply(y[half]);
        });
        repeat<5>([&](int row) __attribute__((always_inline)) {
            const int column = 12 * row + 4 * group;
            if constexpr (halves == 1) {
                to.store(dc, static_cast<std::size_t>(column), y[0][row]);
            } else {
                const T* twos = spec.stages[0].twiddles + tablePlace<T>(2, 60, column, 4);
                Cx<W> z[2];
                if constexpr (side == 1) {
                    z[0] = y[0][row], z[1] = y[1][row];
                } else {
                    z[0] = {hn::LowerHalf(dc, y[0][row].re), hn::LowerHalf(dc, y[0][row].im)};
                    z[1] = {hn::UpperHalf(dc, y[0][row].re), hn::UpperHalf(dc, y[0][row].im)};
                }
                z[1] = fft::twiddled<false>(z[1], root(dc, twos, tableLanes<T>(60)));
                Butterfly<2>::apply(z);
                to.store(dc, static_cast<std::size_t>(column), z[0]);
                to.store(dc, static_cast<std::size_t>(column + 60), z[1]);
            }
        });
    }
}

// Whether the length is one of these; then its transform is done.
template <class T, class From, class To>
HWY_INLINE bool shortProduct(const Spec<T>& spec, From from, To to) {
    constexpr bool fourColumns = hn::MaxLanes(LaneTag<T>()) >= 4;
    switch (spec.points) {
    case 6:
        return productTransform<6>(spec, from, to), true;
    case 10:
        return productTransform<10>(spec, from, to), true;
    case 12:
        return productTransform<12>(spec, from, to), true;
    case 20:
        return productTransform<20>(spec, from, to), true;
    case 30:
        return productTransform<30>(spec, from, to), true;
    case 60:
        if constexpr (fourColumns) return rowsTransform<60>(spec, from, to), true;
        return productTransform<60>(spec, from, to), true;
    case 120:
        if constexpr (fourColumns) return rowsTransform<120>(spec, from, to), true;
        return false;
    default:
        return false;
    }
}

} // namespace orbs::dft
