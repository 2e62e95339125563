// The passes of the radix-4 engine. Data lie in bit-reversed order until the last pass: of the four quarters that a
// pass joins, the second in memory belongs to the even samples of the even ones, so its twiddle is the second power.
#pragma once

#include "fft/arithmetic.h"
#include "fft/spec.h"

#include <array>

namespace orbs::fft {

constexpr std::size_t reversedBits(std::size_t n, int bits) {
    Orb32u r = static_cast<Orb32u>(n);
    r = (r >> 16) | (r << 16);
    r = ((r & 0xff00ff00u) >> 8) | ((r & 0x00ff00ffu) << 8);
    r = ((r & 0xf0f0f0f0u) >> 4) | ((r & 0x0f0f0f0fu) << 4);
    r = ((r & 0xccccccccu) >> 2) | ((r & 0x33333333u) << 2);
    r = ((r & 0xaaaaaaaau) >> 1) | ((r & 0x55555555u) << 1);
    return bits == 0 ? 0 : r >> (32 - bits);
}

constexpr int log2Of(std::size_t n) {
    return n == 1 ? 0 : 1 + log2Of(n / 2);
}

// Twiddles of the columns of one part of a group: the powers 1 to 3 lie two groups apart, cos before -sin.
template <int power, class D, class T = hn::TFromD<D>>
HWY_INLINE Cx<hn::Vec<D>> loadTwiddle(D d, const T* w) {
    return {loadTable(d, w + (2 * power - 2) * columnGroup<T>), loadTable(d, w + (2 * power - 1) * columnGroup<T>)};
}

// ---- First pass: many short transforms side by side, one in each complex lane ----

template <bool Inverse, class T>
inline constexpr auto packedTwiddles16 = [] {
    std::array<std::array<PackedTwiddle<T>, 4>, 3> spread{}; // [power - 1][column]
    for (int m = 0; m < 3; ++m) {
        for (int column = 0; column < 4; ++column) {
            for (std::size_t lane = 0; lane < columnGroup<T>; ++lane) {
                const T sine = twiddles16<T>.negativeSine[m][column];
                spread[m][column].re[lane] = twiddles16<T>.cosine[m][column];
                spread[m][column].im[lane] = (lane % 2 == 0) != Inverse ? -sine : sine;
            }
        }
    }
    return spread;
}();

// A short transform in two layers; result k ends at x[place(k)].
template <int points, bool Inverse>
struct ShortTransform;

// Sixteen points: two layers of radix 4. Column 0 of the second layer needs no twiddles.
template <bool Inverse>
struct ShortTransform<16, Inverse> {
    template <class X>
    HWY_INLINE static void firstLayer(X (&x)[16]) {
        repeat<4>([&](int q)
                      __attribute__((always_inline)) { butterfly4<Inverse>(x[q], x[q + 4], x[q + 8], x[q + 12]); });
    }
    template <class D>
    HWY_INLINE static void secondLayer(Packed<D> (&x)[16]) {
        repeat<4>([&](int column) __attribute__((always_inline)) {
            Packed<D>* y = x + 4 * column;
            if (column != 0) {
                repeat<3>([&](int m) __attribute__((always_inline)) {
                    y[m + 1] = twiddled(y[m + 1], packedTwiddles16<Inverse, hn::TFromD<D>>[m][column]);
                });
            }
            butterfly4<Inverse>(y[0], y[1], y[2], y[3]);
        });
    }
    static constexpr int place(int k) { return k % 4 * 4 + k / 4; }
};

// Eight points, for the odd orders of the engine that begins with radix 8.
template <bool Inverse>
struct ShortTransform<8, Inverse> {
    template <class X>
    HWY_INLINE static void firstLayer(X (&x)[8]) {
        butterfly4<Inverse>(x[0], x[2], x[4], x[6]);
        butterfly4<Inverse>(x[1], x[3], x[5], x[7]);
    }
    template <class D>
    HWY_INLINE static void secondLayer(Packed<D> (&x)[8]) {
        joinEight<Inverse>(x, hn::Set(D(), rootOfHalf<hn::TFromD<D>>));
    }
    static constexpr int place(int k) { return k; }
};

// Writes the results of one transform a lane, each to its own run of `points` columns, in groups.
template <class Transform, int points, class D, class Run>
HWY_INLINE void storeRuns(D d, Run run, const Packed<D> (&x)[points]) {
    constexpr int lanes = packedLanes<D>, group = columnGroup<hn::TFromD<D>>, parts = group / lanes / 2;
    repeat<points / group>([&](int g) __attribute__((always_inline)) {
        Packed<D> columns[group]; // [block of columns][run]
        repeat<group>([&](int k) __attribute__((always_inline)) { columns[k] = x[Transform::place(g * group + k)]; });
        repeat<group / lanes>([&](int t) __attribute__((always_inline)) { transpose(d, columns + t * lanes); });
        repeat<lanes>([&](int lane) __attribute__((always_inline)) {
            const auto to = run(lane);
            repeat<parts>([&](int part) __attribute__((always_inline)) {
                to.storePart(d, g * group, part * 2 * lanes,
                             partOf(d, columns[part * lanes + lane], columns[(part + parts) * lanes + lane]));
            });
        });
    });
}

// One block of the first pass: the short transforms of `vectors * packedLanes` neighbouring samples at `from`, each
// with those `stride` and its multiples further on. Their runs lie `apart` from each other, in bit-reversed order.
template <int points, int vectors, bool Inverse, class D, class From, class To>
HWY_INLINE void firstBlock(D d, From from, std::size_t stride, To to, std::size_t apart) {
    constexpr std::size_t lanes = packedLanes<D>, together = vectors * lanes;
    using Transform = ShortTransform<points, Inverse>;
    Packed<D> x[vectors][points];
    repeat<points / 4>([&](int part) __attribute__((always_inline)) {
        const From quarter = from.from(4 * part * stride);
        repeat<4>([&](int q) __attribute__((always_inline)) {
            repeat<vectors>([&](int v) __attribute__((always_inline)) {
                x[v][4 * part + q] = quarter.loadPacked(d, q * stride + v * lanes);
            });
        });
    });
    repeat<vectors>([&](int v) __attribute__((always_inline)) { Transform::firstLayer(x[v]); });
    repeat<vectors>([&](int v) __attribute__((always_inline)) {
        Transform::secondLayer(x[v]);
        const auto run = [=](int lane) __attribute__((always_inline)) {
            return to.from(reversedBits(v * lanes + lane, log2Of(together)) * apart);
        };
        storeRuns<Transform>(d, run, x[v]);
    });
}

// From natural order anywhere to runs in bit-reversed order: the short transform of the samples n, n + stride, ...
// lands at the run whose number is n reversed. Two vectors at a time in long transforms: their samples n + q * stride
// share a cache set, so a line of them is used up before it is pushed out. Long runs are written wherever they fall;
// short ones one behind the other, and their samples are fetched from wherever they lie.
template <int points, int vectors, bool Inverse, class D, class From, class To>
void firstPass(D d, From from, To to, int order) {
    constexpr std::size_t together = vectors * packedLanes<D>;
    constexpr bool inOrderOfRuns = points == 8;
    const std::size_t stride = (std::size_t{1} << order) / points;
    const std::size_t blocks = stride / together; // the runs of neighbouring samples lie so many runs apart
    std::size_t reversed = 0;
    for (std::size_t block = 0; block < blocks; ++block) {
        const std::size_t n = (inOrderOfRuns ? reversed : block) * together;
        firstBlock<points, vectors, Inverse>(d, from.from(n), stride,
                                             to.from(points * (inOrderOfRuns ? block : reversed)), points * blocks);
        reversed ^= blocks - (blocks >> (__builtin_ctzll(block + 1) + 1)); // counting from the top
    }
}

// The same in place on data that are in bit-reversed order already.
template <int points, bool Inverse, class D, class From, class To>
void firstPassInRuns(D d, From from, To to, std::size_t count) {
    constexpr int lanes = packedLanes<D>;
    using Transform = ShortTransform<points, Inverse>;
    for (std::size_t n = 0; n < count; n += points * lanes) {
        Packed<D> x[points];
        repeat<points / lanes>([&](int t) __attribute__((always_inline)) {
            Packed<D> square[lanes];
            repeat<lanes>([&](int lane) __attribute__((always_inline)) {
                square[lane] = from.loadPacked(d, n + points * lane + t * lanes);
            });
            transpose(d, square);
            repeat<lanes>([&](int k) __attribute__((always_inline)) {
                x[reversedBits(t * lanes + k, log2Of(points))] = square[k];
            });
        });
        Transform::firstLayer(x);
        Transform::secondLayer(x);
        const auto run = [=](int lane) __attribute__((always_inline)) {
            return to.from(n + points * lane);
        };
        storeRuns<Transform>(d, run, x);
    }
}

// ---- Passes with twiddles ----

// One part of a group of columns, h being its first lane.
template <bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void column4(D d, From from, To to, std::size_t n, std::size_t h, std::size_t quarter, std::size_t toQuarter,
                        Cx<hn::Vec<D>> w1, Cx<hn::Vec<D>> w2, Cx<hn::Vec<D>> w3, Last last) {
    auto x0 = inRegisters(from.loadPart(d, n, h));
    auto x2 = twiddled<Inverse>(inRegisters(from.loadPart(d, n + quarter, h)), w2);
    auto x1 = twiddled<Inverse>(inRegisters(from.loadPart(d, n + 2 * quarter, h)), w1);
    auto x3 = twiddled<Inverse>(inRegisters(from.loadPart(d, n + 3 * quarter, h)), w3);
    butterfly4<Inverse>(x0, x1, x2, x3);
    to.storePart(d, n, h, last(x0));
    to.storePart(d, n + toQuarter, h, last(x1));
    to.storePart(d, n + 2 * toQuarter, h, last(x2));
    to.storePart(d, n + 3 * toQuarter, h, last(x3));
}

// Joins four rows of `columns` each, which lie apart by fromRow and are written apart by toRow; their twiddles are at
// tw.
template <bool Inverse, class D, class From, class To, class Last = AsIs>
HWY_INLINE void pass4(D d, From from, std::size_t fromRow, To to, std::size_t toRow, std::size_t columns,
                      const hn::TFromD<D>* tw, Last last = {}) {
    constexpr std::size_t group = columnGroup<hn::TFromD<D>>, lanes = hn::MaxLanes(D());
    for (std::size_t j = 0; j < columns; j += group, tw += 6 * group) {
        for (std::size_t h = 0; h < group; h += lanes) {
            column4<Inverse>(d, from, to, j, h, fromRow, toRow, loadTwiddle<1>(d, tw + h), loadTwiddle<2>(d, tw + h),
                             loadTwiddle<3>(d, tw + h), last);
        }
    }
}

// Joins four quarters into 4 * quarter points.
template <bool Inverse, class D, class From, class To, class Last = AsIs>
HWY_INLINE void pass4(D d, From from, To to, std::size_t quarter, const hn::TFromD<D>* tw, Last last = {}) {
    pass4<Inverse>(d, from, quarter, to, quarter, quarter, tw, last);
}

template <bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void column2(D d, From from, To to, std::size_t n, std::size_t h, std::size_t half, std::size_t toHalf,
                        Cx<hn::Vec<D>> w, Last last) {
    const auto even = inRegisters(from.loadPart(d, n, h));
    const auto odd = twiddled<Inverse>(inRegisters(from.loadPart(d, n + half, h)), w);
    to.storePart(d, n, h, last(even + odd));
    to.storePart(d, n + toHalf, h, last(even - odd));
}

// Joins two halves.
template <bool Inverse, class D, class From, class To, class Last = AsIs>
HWY_INLINE void pass2(D d, From from, To to, std::size_t half, const hn::TFromD<D>* tw, Last last = {}) {
    constexpr std::size_t group = columnGroup<hn::TFromD<D>>, lanes = hn::MaxLanes(D());
    for (std::size_t j = 0; j < half; j += group, tw += 2 * group)
        for (std::size_t h = 0; h < group; h += lanes)
            column2<Inverse>(d, from, to, j, h, half, half, loadTwiddle<1>(d, tw + h), last);
}

// Two passes of radix 4 and the one of radix 2 that joins them, in registers: 8 * quarter points.
template <bool Inverse, class D, class From, class To, class Last>
HWY_INLINE void pass4And2(D d, From from, To to, std::size_t quarter, const hn::TFromD<D>* tw4,
                          const hn::TFromD<D>* tw2, Last last) {
    constexpr std::size_t group = columnGroup<hn::TFromD<D>>, lanes = hn::MaxLanes(D());
    for (std::size_t j = 0; j < quarter; j += group, tw4 += 6 * group) {
        for (std::size_t h = 0; h < group; h += lanes) {
            const auto half = [&](From part) __attribute__((always_inline)) {
                std::array<Cx<hn::Vec<D>>, 4> x;
                x[0] = inRegisters(part.loadPart(d, j, h));
                x[2] = twiddled<Inverse>(inRegisters(part.loadPart(d, j + quarter, h)), loadTwiddle<2>(d, tw4 + h));
                x[1] = twiddled<Inverse>(inRegisters(part.loadPart(d, j + 2 * quarter, h)), loadTwiddle<1>(d, tw4 + h));
                x[3] = twiddled<Inverse>(inRegisters(part.loadPart(d, j + 3 * quarter, h)), loadTwiddle<3>(d, tw4 + h));
                butterfly4<Inverse>(x[0], x[1], x[2], x[3]);
                return x;
            };
            const auto even = half(from), odd = half(from.from(4 * quarter));
            repeat<4>([&](int q) __attribute__((always_inline)) {
                const std::size_t n = j + q * quarter;
                const auto turned = twiddled<Inverse>(odd[q], loadTwiddle<1>(d, tw2 + 2 * n + h));
                to.storePart(d, n, h, last(even[q] + turned));
                to.storePart(d, n + 4 * quarter, h, last(even[q] - turned));
            });
        }
    }
}

// The radix-4 passes over 2^k points for k = first, first + 2, ... up to `last`, over `count` points in place.
template <bool Inverse, class D, class Work>
HWY_INLINE void passesThrough(D d, Work work, std::size_t count, int first, int last, const hn::TFromD<D>* twiddles) {
    constexpr std::size_t group = columnGroup<hn::TFromD<D>>;
    for (int k = first; k <= last; k += 2) {
        const std::size_t quarter = std::size_t{1} << (k - 2);
        const hn::TFromD<D>* tw = twiddles + twiddlesBefore<hn::TFromD<D>>(k);
        if constexpr (groupBytes == 64) { // registers enough for the twiddles of a group while it goes through all runs
            for (std::size_t j = 0; j < quarter; j += group, tw += 6 * group) {
                const auto w1 = loadTwiddle<1>(d, tw), w2 = loadTwiddle<2>(d, tw), w3 = loadTwiddle<3>(d, tw);
                for (std::size_t n = j; n < count; n += 4 * quarter)
                    column4<Inverse>(d, work, work, n, 0, quarter, quarter, w1, w2, w3, AsIs{});
            }
        } else {
            for (std::size_t base = 0; base < count; base += 4 * quarter)
                pass4<Inverse>(d, work.from(base), work.from(base), quarter, tw);
        }
    }
}

// All radix-4 passes behind the first one up to 2^order points, in place, depth first so that a block stays in the
// first cache from its first pass to its last.
template <bool Inverse, class D, class Work>
void passes(D d, Work work, int order, const hn::TFromD<D>* twiddles) {
    constexpr int leafOrder = 10;
    int first = firstPassOrder<hn::TFromD<D>>(order) + 2;
    if (order > leafOrder) {
        const std::size_t quarter = std::size_t{1} << (order - 2);
        for (std::size_t q = 0; q < 4; ++q) passes<Inverse>(d, work.from(q * quarter), order - 2, twiddles);
        first = order;
    }
    passesThrough<Inverse>(d, work, std::size_t{1} << order, first, order, twiddles);
}

// Everything behind the first pass, the last pass going from `work` to `to`.
template <bool Inverse, class D, class Work, class To, class Last>
void passesTo(D d, Work work, To to, int order, const hn::TFromD<D>* twiddles, Last last) {
    using T = hn::TFromD<D>;
    constexpr int flatOrder = 11; // up to here the passes before the last run over the whole at once
    const bool radix2Last = !Plan<T>::radix8First && order % 2 == 1, flat = order <= flatOrder;
    const std::size_t count = std::size_t{1} << order, part = count >> (radix2Last ? 1 : 2);
    const int passed = order - (!radix2Last ? 2 : flat ? 3 : 1); // levels before the last pass
    if (flat) {
        passesThrough<Inverse>(d, work, count, firstPassOrder<T>(order) + 2, passed, twiddles);
    } else {
        for (std::size_t base = 0; base < count; base += part) passes<Inverse>(d, work.from(base), passed, twiddles);
    }
    if (!radix2Last) {
        pass4<Inverse>(d, work, to, part, twiddles + twiddlesBefore<T>(order), last);
    } else if (flat) {
        pass4And2<Inverse>(d, work, to, part / 4, twiddles + twiddlesBefore<T>(order - 1),
                           twiddles + twiddlesBefore<T>(order + 1), last);
    } else {
        pass2<Inverse>(d, work, to, part, twiddles + twiddlesBefore<T>(order + 1), last);
    }
}

} // namespace orbs::fft
