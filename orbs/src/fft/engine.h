// Complex transforms of 2^order points beyond those in registers: which path an order takes, and the paths.
#pragma once

#include "fft/registers.h"

#include <hwy/cache_control.h>
#include <utility>

namespace orbs::fft {

// ---- Orders up to the direct limit ----

template <class T>
constexpr bool beginsWithRadix8(int order) {
    return firstPassOrder<T>(order) == 3;
}

// The first pass. In long transforms short vectors go two at a time.
template <bool Inverse, class T, class From, class Work>
void firstPasses(From from, Work work, int order) {
    const GroupTag<T> full;
    if constexpr (Plan<T>::radix8First) {
        if (beginsWithRadix8<T>(order)) return firstPass<8, 2, Inverse>(full, from, work, order);
    }
    if (groupBytes < 64 && order >= 12) {
        firstPass<16, 2, Inverse>(full, from, work, order);
    } else {
        firstPass<16, 1, Inverse>(full, from, work, order);
    }
}

// The same in place on data in bit-reversed order.
template <bool Inverse, class T, class From, class Work>
void firstPassesInRuns(From from, Work work, int order) {
    const GroupTag<T> full;
    const std::size_t points = std::size_t{1} << order;
    if constexpr (Plan<T>::radix8First) {
        if (beginsWithRadix8<T>(order)) return firstPassInRuns<8, Inverse>(full, from, work, points);
    }
    firstPassInRuns<16, Inverse>(full, from, work, points);
}

// From `from` to `to` by way of `work`, which may be `to` itself but not `from`.
template <bool Inverse, class T, class From, class Work, class To, class Last>
void transformDirect(From from, Work work, To to, int order, const T* twiddles, Last last) {
    const GroupTag<T> full;
    firstPasses<Inverse, T>(from, work, order);
    passesTo<Inverse>(full, work, to, order, twiddles, last);
}

// ---- Blocked orders ----

// Exchanges an array with its bit reversal. The index is (row, middle, column), rows and columns of tileOrder bits: the
// square of one middle value changes places with the square of the reversed one, both transposed and with rows and
// columns reversed, by way of `tiles`, which has room for two squares.
template <class Element, int tileOrder>
void reverseBitsInPlace(Element* data, int order, Element* tiles) {
    constexpr std::size_t side = std::size_t{1} << tileOrder;
    const int middleBits = order - 2 * tileOrder;
    const std::size_t stride = std::size_t{1} << (order - tileOrder);
    std::size_t reversed[side];
    for (std::size_t n = 0; n < side; ++n) reversed[n] = reversedBits(n, tileOrder);
    const auto gather = [&](std::size_t middle, Element* tile) {
        for (std::size_t row = 0; row < side; ++row)
            std::memcpy(tile + row * side, data + row * stride + middle * side, side * sizeof(Element));
    };
    const auto scatter = [&](std::size_t middle, const Element* tile) {
        for (std::size_t row = 0; row < side; ++row) {
            Element* to = data + row * stride + middle * side;
            for (std::size_t column = 0; column < side; ++column)
                to[column] = tile[reversed[column] * side + reversed[row]];
        }
    };
    for (std::size_t middle = 0; middle < std::size_t{1} << middleBits; ++middle) {
        const std::size_t mirror = reversedBits(middle, middleBits);
        if (middle > mirror) continue;
        gather(middle, tiles);
        if (mirror != middle) gather(mirror, tiles + side * side);
        scatter(mirror, tiles);
        if (mirror != middle) scatter(middle, tiles + side * side);
    }
}

// An element of an interleaved vector, moved as a whole.
template <class T>
struct Pair {
    T re, im;
};

template <class T>
void reverseBitsInPlace(Interleaved<T> data, int order, Orb8u* tiles) {
    reverseBitsInPlace<Pair<T>, Plan<T>::tileOrder>(reinterpret_cast<Pair<T>*>(data.base), order,
                                                    reinterpret_cast<Pair<T>*>(tiles));
}
template <class T>
void reverseBitsInPlace(Planes<T> data, int order, Orb8u* tiles) {
    reverseBitsInPlace<T, Plan<T>::tileOrder>(data.re, order, reinterpret_cast<T*>(tiles));
    reverseBitsInPlace<T, Plan<T>::tileOrder>(data.im, order, reinterpret_cast<T*>(tiles));
}

// The top levels of a blocked transform: groups of columns go through all levels in `buffer`, from `from` to `to`.
template <bool Inverse, class D, class From, class To>
void topLevels(D d, From from, To to, int order, const hn::TFromD<D>* tw, Orb8u* buffer) {
    using T = hn::TFromD<D>;
    constexpr std::size_t group = columnGroup<T>, lanes = hn::MaxLanes(D()), elementBytes = 2 * sizeof(T);
    const BlockedLevel level = Plan<T>::level(order);
    const std::size_t rows = std::size_t{1} << level.blockOrder, columns = std::size_t{1} << level.columnsOrder();
    const std::size_t stride = std::size_t{1} << level.subOrder(order);
    const Grouped<T> work{reinterpret_cast<T*>(buffer)};

    // One radix-4 pass over the columns of a group, joining rows that lie quarterRows apart.
    const auto pass4Rows = [&](auto source, std::size_t sourceStride, auto target, std::size_t targetStride,
                               std::size_t quarterRows) HWY_ATTR {
        for (std::size_t row = 0; row < quarterRows; ++row) {
            for (std::size_t j = 0; j < columns; j += group, tw += 6 * group) {
                for (std::size_t h = 0; h < group; h += lanes) {
                    const auto w1 = loadTwiddle<1>(d, tw + h), w2 = loadTwiddle<2>(d, tw + h),
                               w3 = loadTwiddle<3>(d, tw + h);
                    for (std::size_t base = row; base < rows; base += 4 * quarterRows)
                        column4<Inverse>(d, source.from(base * sourceStride), target.from(base * targetStride), j, h,
                                         quarterRows * sourceStride, quarterRows * targetStride, w1, w2, w3, AsIs{});
                }
            }
        }
    };
    for (std::size_t first = 0; first < stride; first += columns) {
        const From source = from.from(first);
        const To target = to.from(first);
        for (std::size_t base = 0; base < rows; base += 4) {
            // Rows lie in pages of their own: the next four are asked for.
            for (std::size_t row = base + 4; row < std::min(rows, base + 8); ++row)
                for (std::size_t j = 0; j < columns; j += 64 / elementBytes) source.prefetch(row * stride + j);
            pass4<Inverse>(d, source.from(base * stride), stride, work.from(base * columns), columns, columns, tw);
        }
        tw += 6 * columns;
        std::size_t quarterRows = 4;
        for (; 8 * quarterRows <= rows; quarterRows *= 4) pass4Rows(work, columns, work, columns, quarterRows);
        if (4 * quarterRows == rows) {
            pass4Rows(work, columns, target, stride, quarterRows);
            continue;
        }
        for (std::size_t row = 0; row < quarterRows; ++row) // an odd level is left
            for (std::size_t j = 0; j < columns; j += group, tw += 2 * group)
                for (std::size_t h = 0; h < group; h += lanes)
                    column2<Inverse>(d, work.from(row * columns), target.from(row * stride), j, h,
                                     quarterRows * columns, quarterRows * stride, loadTwiddle<1>(d, tw + h), AsIs{});
    }
}

// The innermost sub-transforms of a blocked order, of 2^inner points each. Neighbouring samples belong to as many of
// them: those of two cache lines go through all their passes, and stay in the cache while they do, before more samples
// are read. Every read is of another page, so it is asked for some runs before it is due.
template <int points, bool Inverse, class D, class From, class Work, class Last>
void innermostOf(D d, From from, Work work, int order, int inner, const hn::TFromD<D>* twiddles, Last last) {
    constexpr std::size_t vectors = groupBytes < 64 ? 2 : 1, together = vectors * packedLanes<D>, runsAhead = 4;
    constexpr std::size_t perLine = 64 / (2 * sizeof(hn::TFromD<D>)), neighbours = 2 * perLine;
    const int subsOrder = order - inner, runsOrder = inner - log2Of(points);
    const std::size_t subs = std::size_t{1} << subsOrder, runs = std::size_t{1} << runsOrder;
    const std::size_t stride = (std::size_t{1} << order) / points, apart = (std::size_t{1} << order) / together;
    const auto sub = [=](std::size_t n) { // of the samples n, n + subs, ...
        return work.from(reversedBits(n, subsOrder) << inner);
    };
    for (std::size_t first = 0; first < subs; first += neighbours) {
        for (std::size_t run = 0; run < runs; ++run) {
            const From later = from.from(first + reversedBits((run + runsAhead) % runs, runsOrder) * subs);
            for (std::size_t q = 0; q < points; ++q)
                for (std::size_t n = 0; n < neighbours; n += perLine) later.prefetch(q * stride + n);
            const std::size_t sample = reversedBits(run, runsOrder) * subs;
            for (std::size_t n = first; n < first + neighbours; n += together)
                firstBlock<points, vectors, Inverse>(d, from.from(n + sample), stride, sub(n).from(points * run),
                                                     apart);
        }
        for (std::size_t n = first; n < first + neighbours; ++n)
            passesTo<Inverse>(d, sub(n), sub(n), inner, twiddles, last);
    }
}
template <bool Inverse, class T, class From, class Work, class Last>
void innermost(From from, Work work, int order, int inner, const T* twiddles, Last last) {
    const GroupTag<T> d;
    if constexpr (Plan<T>::radix8First) {
        if (beginsWithRadix8<T>(inner)) return innermostOf<8, Inverse>(d, from, work, order, inner, twiddles, last);
    }
    innermostOf<16, Inverse>(d, from, work, order, inner, twiddles, last);
}
// The same one after the other from bit-reversed order; begin(base) does the first pass of the one that lies at `base`.
template <bool Inverse, class T, class Work, class Last, class Begin>
void innermostInRuns(Work work, int order, int inner, const T* twiddles, Last last, Begin begin) {
    for (std::size_t base = 0; base < std::size_t{1} << order; base += std::size_t{1} << inner) {
        const Work sub = work.from(base);
        begin(base);
        passesTo<Inverse>(GroupTag<T>(), sub, sub, inner, twiddles, last);
    }
}

// Everything behind the innermost sub-transforms.
template <bool Inverse, class D, class Work, class To>
void blockedLevels(D d, const RelativePtr<hn::TFromD<D>>* levels, Work work, To to, int order, Orb8u* buffer) {
    using T = hn::TFromD<D>;
    const int subOrder = Plan<T>::level(order).subOrder(order);
    if (subOrder > Plan<T>::directLimit) {
        for (std::size_t base = 0; base < std::size_t{1} << order; base += std::size_t{1} << subOrder)
            blockedLevels<Inverse>(d, levels + 1, work.from(base), work.from(base), subOrder, buffer);
    }
    topLevels<Inverse>(d, work, to, order, levels->get(), buffer);
}

// Stores whole cache lines past the caches, for vectors that no cache holds until they are read again: a line that is
// written as a whole need not be fetched first.
template <class To>
struct Streamed {
    To to;

    HWY_INLINE Streamed from(std::size_t n) const { return {to.from(n)}; }
    template <class D>
    HWY_INLINE void storePart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        to.streamPart(d, n, h, x);
    }
};
constexpr std::size_t streamedBytes = std::size_t{1} << 24; // of a destination, from which on that is faster

// `inPlace`: from and to are the same memory.
template <bool Inverse, class T, class From, class Work, class To, class Last>
void transformBlocked(const Spec<T>& spec, From from, Work work, To to, int order, bool inPlace, Orb8u* buffer,
                      Last last) {
    const GroupTag<T> d;
    const T* twiddles = spec.twiddles;
    const int inner = innermostOrder<T>(order);
    const auto innermostOutOfPlace = [&] { innermost<Inverse>(from, work, order, inner, twiddles, last); };
    if (inPlace) {
        reverseBitsInPlace(to, order, buffer);
        innermostInRuns<Inverse>(work, order, inner, twiddles, last, [=](std::size_t base) {
            firstPassesInRuns<Inverse, T>(to.from(base), work.from(base), inner);
        });
    }
    if constexpr (std::is_same_v<To, Interleaved<T>>) {
        const bool wholeLines = reinterpret_cast<std::uintptr_t>(to.base) % 64 == 0;
        if (wholeLines && 2 * sizeof(T) << order >= streamedBytes) {
            if (!inPlace && beginsWithRadix8<T>(inner)) {
                innermostOutOfPlace();
            } else if (!inPlace) { // runs of 16 points are worth a walk of their own, which reads samples in order
                firstPasses<Inverse, T>(from, Streamed<Work>{work}, order);
                innermostInRuns<Inverse>(work, order, inner, twiddles, last, [](std::size_t) {});
            }
            blockedLevels<Inverse>(d, spec.levels, work, Streamed<To>{to}, order, buffer);
            return hwy::FlushStream();
        }
    }
    if (!inPlace) innermostOutOfPlace();
    blockedLevels<Inverse>(d, spec.levels, work, to, order, buffer);
}

// ---- A transform with its scale ----

// Calls run(last) with what the last pass does to its results: nothing, or the multiplication by the scale. Inlined, as
// `run` should be: what it captures stays in registers, and short transforms do not wait for it.
template <class T, class Run>
HWY_INLINE void withScale(bool scaled, T scale, Run run) {
    if (scaled) {
        run(Times<T>{scale});
    } else {
        run(AsIs());
    }
}

} // namespace orbs::fft
