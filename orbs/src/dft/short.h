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

    // Where a table has the twiddles of row 1 from `column` on, and how far its parts lie apart.
    static constexpr int tableLanes(int rest) { return static_cast<int>(lanesFor<T>(static_cast<std::size_t>(rest))); }
    static constexpr int tablePlace(int radix, int rest, int column, int count) {
        const int group = (column + count - 1) / tableLanes(rest);
        return group * tableLanes(rest) * (radix - 1) * 2 + column -
               std::min(group * tableLanes(rest), rest - tableLanes(rest));
    }
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
            constexpr int apart = P::tableLanes(q);
            repeat<q>([&](int column) __attribute__((always_inline)) {
                Cx<V> y[r];
                repeat<r>([&](int row) __attribute__((always_inline)) {
                    y[row] = x[pass][column + row * q];
                    if (row == 0) return;
                    const T* w = twiddles + P::tablePlace(r, q, column, 1) + 2 * apart * (row - 1);
                    y[row] = fft::twiddled<false>(y[row], Cx<V>{hn::Set(d, w[0]), hn::Set(d, w[apart])});
                });
                Butterfly<r>::apply(y);
                repeat<r>([&](int row) __attribute__((always_inline)) { x[pass][column + row * q] = y[row]; });
            });
        }
    });

    const T* twiddles = spec.stages[0].twiddles;
    constexpr int apart = P::tableLanes(columns), groups = (columns + P::width - 1) / P::width;
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
            const T* w = twiddles + P::tablePlace(p, columns, column, P::width) + 2 * apart * (block - 1);
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

// Whether the length is one of these; then its transform is done.
template <class T, class From, class To>
HWY_INLINE bool shortProduct(const Spec<T>& spec, From from, To to) {
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
        return productTransform<60>(spec, from, to), true;
    default:
        return false;
    }
}

} // namespace orbs::dft
