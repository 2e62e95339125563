// Complex transforms of 16 to 64 points that stay in registers from source to destination, and one of 8 points. Vectors
// are packed, four complex elements in each or as many as fit. The arithmetic is that of the passes.
#pragma once

#include "fft/passes.h"

namespace orbs::fft {

constexpr int mostInRegisters = 6; // the highest order

template <class T>
using FourTag = hn::CappedTag<T, 8>;

// Twiddles of neighbouring columns for packed vectors, each for `copies` transforms side by side: [power - 1].
template <class T, int columns>
struct alignas(64) PackedColumns {
    T re[2 * columns], im[2 * columns];
};
template <bool Inverse, class T, int order, int columns, int powers, int copies = 1>
inline constexpr auto packedColumns = [] {
    const QuarterWave<T> wave{fixedQuarterWave<T>.data(), constantOrder};
    std::array<PackedColumns<T, columns * copies>, powers> tables{};
    for (std::size_t power = 1; power <= powers; ++power) {
        for (std::size_t lane = 0; lane < 2 * columns * copies; ++lane) {
            const std::size_t angle = power * (lane / 2 / copies);
            const T sine = wave.negativeSine(angle, order);
            tables[power - 1].re[lane] = wave.cosine(angle, order);
            tables[power - 1].im[lane] = (lane % 2 == 0) != Inverse ? -sine : sine;
        }
    }
    return tables;
}();
template <class D, class T, int columns>
HWY_INLINE Packed<D> twiddled(Packed<D> x, const PackedColumns<T, columns>& w, int column) {
    const D d;
    return {x.v * hn::Load(d, w.re + 2 * column) + hn::Reverse2(d, x.v) * hn::Load(d, w.im + 2 * column)};
}

// A square of runs of `copies` elements.
template <int copies, class D>
HWY_INLINE void transposeRuns(D d, Packed<D>* x) {
    constexpr int runs = packedLanes<D> / copies;
    if constexpr (copies == 1) {
        transpose(d, x);
    } else if constexpr (runs == 4) {
        hn::Vec<D> v[4] = {x[0].v, x[1].v, x[2].v, x[3].v};
        exchangeBlocks(v, 1);
        repeat<4>([&](int r) __attribute__((always_inline)) { x[r].v = v[r]; });
    } else if constexpr (runs == 2) {
        const auto low = x[0].v, high = x[1].v;
        x[0].v = hn::ConcatLowerLower(d, high, low);
        x[1].v = hn::ConcatUpperUpper(d, high, low);
    }
}

// 16 points, or two times 16 that alternate, in natural order. Where it is a first pass, column 0 of the second layer
// is not multiplied: a product with 1 + 0i is not the element itself if that is infinite.
template <bool Inverse, int copies, class D, int count>
HWY_INLINE void transform16(D d, Packed<D> (&x)[count]) {
    constexpr int lanes = packedLanes<D>, runs = lanes / copies, vectors = 4 / runs;
    constexpr bool isFirstPass = copies > 1;
    static_assert(count == 4 * vectors);
    Packed<D> rows[4][vectors]; // [sample][its results 0 to 3 of the first layer]
    repeat<vectors>([&](int n) __attribute__((always_inline)) {
        Packed<D>* y[4] = {x + n, x + vectors + n, x + 2 * vectors + n, x + 3 * vectors + n};
        butterfly4<Inverse>(*y[0], *y[1], *y[2], *y[3]);
        repeat<vectors>([&](int t) __attribute__((always_inline)) {
            Packed<D> square[runs];
            repeat<runs>([&](int k) __attribute__((always_inline)) { square[k] = *y[t * runs + k]; });
            transposeRuns<copies>(d, square);
            repeat<runs>([&](int k) __attribute__((always_inline)) { rows[n * runs + k][t] = square[k]; });
        });
    });
    repeat<vectors>([&](int t) __attribute__((always_inline)) {
        repeat<3>([&](int m) __attribute__((always_inline)) {
            const auto unturned = rows[m + 1][t];
            rows[m + 1][t] = twiddled(unturned, packedColumns<Inverse, hn::TFromD<D>, 4, 4, 3, copies>[m], t * lanes);
            if constexpr (isFirstPass) {
                if (t == 0) rows[m + 1][t].v = hn::IfThenElse(hn::FirstN(d, 2 * copies), unturned.v, rows[m + 1][t].v);
            }
        });
        butterfly4<Inverse>(rows[0][t], rows[1][t], rows[2][t], rows[3][t]);
        repeat<4>([&](int j) __attribute__((always_inline)) { x[j * vectors + t] = rows[j][t]; });
    });
}

// 8 points, in natural order. Where two elements share a vector, the even and the odd samples do in the first layer.
template <bool Inverse, class D, int count, class First = AsIs>
HWY_INLINE void transform8(D d, Packed<D> (&x)[count], First first = {}) {
    using T = hn::TFromD<D>;
    static_assert(count == 8 / packedLanes<D>);
    constexpr T root = rootOfHalf<T>;
    if constexpr (count == 8) {
        butterfly4<Inverse>(x[0], x[2], x[4], x[6], first);
        butterfly4<Inverse>(x[1], x[3], x[5], x[7], first);
        joinEight<Inverse>(x, hn::Set(d, root));
    } else {
        butterfly4<Inverse>(x[0], x[1], x[2], x[3], first);
        transpose(d, x);     // even 0 and 1, odd 0 and 1
        transpose(d, x + 2); // even 2 and 3, odd 2 and 3
        alignas(32) static constexpr T factors01[] = {1, 1, root, root};
        alignas(32) static constexpr T factors23[] = {Inverse ? T(-1) : T(1), Inverse ? T(1) : T(-1), -root, -root};
        const auto lane0 = hn::FirstN(d, 2);
        const auto turned1 = addTurned<Inverse>(x[1], x[1]), turned3 = subTurned<Inverse>(x[3], x[3]);
        const Packed<D> odd01 = {hn::IfThenElse(lane0, x[1].v, turned1.v) * hn::Load(d, factors01)};
        const Packed<D> odd23 = {hn::IfThenElse(lane0, hn::Reverse2(d, x[3].v), turned3.v) * hn::Load(d, factors23)};
        const Packed<D> even01 = x[0], even23 = x[2];
        x[0] = even01 + odd01;
        x[1] = even23 + odd23;
        x[2] = even01 - odd01;
        x[3] = even23 - odd23;
    }
}

// Four transforms of `points` whose samples alternate, joined by a pass of radix 4.
template <int order, int points, bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void transformByFour(D d, From from, To to, Last last) {
    constexpr int lanes = packedLanes<D>, vectors = 4 / lanes;
    using Transform = ShortTransform<points, Inverse>;
    Packed<D> rows[4][points / lanes];
    repeat<vectors>([&](int h) __attribute__((always_inline)) {
        Packed<D> x[points];
        repeat<points>([&](int n) __attribute__((always_inline)) { x[n] = from.loadPacked(d, 4 * n + h * lanes); });
        Transform::firstLayer(x);
        Transform::secondLayer(x);
        repeat<points / lanes>([&](int g) __attribute__((always_inline)) {
            Packed<D> square[lanes];
            repeat<lanes>([&](int k)
                              __attribute__((always_inline)) { square[k] = x[Transform::place(g * lanes + k)]; });
            transpose(d, square);
            repeat<lanes>([&](int k) __attribute__((always_inline)) { rows[h * lanes + k][g] = square[k]; });
        });
    });
    repeat<points / lanes>([&](int g) __attribute__((always_inline)) {
        repeat<3>([&](int m) __attribute__((always_inline)) {
            rows[m + 1][g] =
                twiddled(rows[m + 1][g], packedColumns<Inverse, hn::TFromD<D>, order, points, 3>[m], g * lanes);
        });
        butterfly4<Inverse>(rows[0][g], rows[1][g], rows[2][g], rows[3][g]);
        repeat<4>([&](int j)
                      __attribute__((always_inline)) { to.storePacked(d, j * points + g * lanes, last(rows[j][g])); });
    });
}

template <class D, class From, int count>
HWY_INLINE void loadAll(D d, From from, Packed<D> (&x)[count]) {
    repeat<count>([&](int n) __attribute__((always_inline)) { x[n] = from.loadPacked(d, n * packedLanes<D>); });
}

// `first` is what happens to the sums and differences of the first layer.
template <bool Inverse, class T, class From, class To, class First, class Last>
HWY_INLINE void order3InRegisters(From from, To to, First first, Last last) {
    using D = hn::CappedTag<T, 4>;
    const D d;
    constexpr int lanes = packedLanes<D>;
    Packed<D> x[8 / lanes];
    loadAll(d, from, x);
    transform8<Inverse>(d, x, first);
    repeat<8 / lanes>([&](int n) __attribute__((always_inline)) { to.storePacked(d, n * lanes, last(x[n])); });
}

template <bool Inverse, class T, class From, class To, class Last>
HWY_INLINE void order4InRegisters(From from, To to, Last last) {
    const FourTag<T> d;
    constexpr int lanes = packedLanes<FourTag<T>>;
    Packed<FourTag<T>> x[16 / lanes];
    loadAll(d, from, x);
    transform16<Inverse, 1>(d, x);
    repeat<16 / lanes>([&](int n) __attribute__((always_inline)) { to.storePacked(d, n * lanes, last(x[n])); });
}

// Single precision: two transforms of 16 points joined by a pass of radix 2. Double: four of 8 points and radix 4.
template <bool Inverse, class T, class From, class To, class Last>
HWY_INLINE void order5InRegisters(From from, To to, Last last) {
    if constexpr (Plan<T>::radix8First) {
        transformByFour<5, 8, Inverse>(FourTag<T>(), from, to, last);
    } else {
        using D = hn::CappedTag<T, 16>;
        const D d;
        const hn::Repartition<Orb64f, D> pairs;
        constexpr int lanes = packedLanes<D>, half = 16 / lanes;
        Packed<D> x[32 / lanes];
        loadAll(d, from, x);
        transform16<Inverse, 2>(d, x);
        repeat<half>([&](int n) __attribute__((always_inline)) {
            const auto low = hn::BitCast(pairs, x[2 * n].v), high = hn::BitCast(pairs, x[2 * n + 1].v);
            const Packed<D> even = {hn::BitCast(d, hn::ConcatEven(pairs, high, low))};
            const Packed<D> odd = {hn::BitCast(d, hn::ConcatOdd(pairs, high, low))};
            const Packed<D> turned = twiddled(odd, packedColumns<Inverse, T, 5, 16, 1>[0], n * lanes);
            to.storePacked(d, n * lanes, last(even + turned));
            to.storePacked(d, 16 + n * lanes, last(even - turned));
        });
    }
}

// An order from 4 to mostInRegisters.
template <bool Inverse, class T, class From, class To, class Last>
HWY_INLINE void transformInRegisters(From from, To to, int order, Last last) {
    if (order == 4) return order4InRegisters<Inverse, T>(from, to, last);
    if (order == 5) return order5InRegisters<Inverse, T>(from, to, last);
    transformByFour<6, 16, Inverse>(FourTag<T>(), from, to, last);
}

} // namespace orbs::fft
