// Complex transforms of 2^order points, order 3 and above: which path an order takes, and the paths.
#pragma once

#include "transforms/fft_passes.h"

#include <utility>

namespace orbs::fft {

// ---- Orders 4 and 5: all in a few vectors of four lanes (two where the registers are no wider) ----

template <class T>
using ShortTag = hn::CappedTag<T, 4>;

// First layer of 16 points for samples n = first, first + step, ..., first + 3 * step: row[q] holds the radix-4 results
// 0 to 3 of the samples n[q] at distance `stride`, in lanes.
template <bool Inverse, class D, class From, class V = hn::Vec<D>>
HWY_INLINE void firstRows(D d, From from, std::size_t count, std::size_t stride, Cx<V> (*rows)[4 / hn::MaxLanes(D())]) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    for (std::size_t n = 0; n < count; n += lanes) {
        Cx<V> x[4];
        for (std::size_t q = 0; q < 4; ++q) x[q] = from.load(d, n + q * stride);
        butterfly4<Inverse>(x[0], x[1], x[2], x[3]);
        for (std::size_t t = 0; t < 4; t += lanes) {
            V re[lanes], im[lanes];
            for (std::size_t k = 0; k < lanes; ++k) re[k] = x[t + k].re, im[k] = x[t + k].im;
            transpose(d, re);
            transpose(d, im);
            for (std::size_t lane = 0; lane < lanes; ++lane) rows[n + lane][t / lanes] = {re[lane], im[lane]};
        }
    }
}

// Second layer: four rows, `step` apart, become 16 results.
template <bool Inverse, class D, class V = hn::Vec<D>>
HWY_INLINE void joinRows(D d, Cx<V> (*rows)[4 / hn::MaxLanes(D())], std::size_t step, const hn::TFromD<D>* tw,
                         Cx<V>* results) {
    constexpr std::size_t lanes = hn::MaxLanes(D()), vectors = 4 / lanes;
    for (std::size_t t = 0; t < vectors; ++t) {
        Cx<V> x[4];
        for (std::size_t q = 0; q < 4; ++q) {
            x[q] = rows[q * step][t];
            const auto* w = tw + 8 * (q - 1) + t * lanes;
            if (q != 0) x[q] = twiddled<Inverse>(x[q], Cx<V>{hn::LoadU(d, w), hn::LoadU(d, w + 4)});
        }
        butterfly4<Inverse>(x[0], x[1], x[2], x[3]);
        for (std::size_t q = 0; q < 4; ++q) results[q * vectors + t] = x[q];
    }
}

template <bool Inverse, class D, class From, class To, class Last>
void transformOrder4(D d, From from, To to, const hn::TFromD<D>* tw, Last last) {
    constexpr std::size_t lanes = hn::MaxLanes(D()), vectors = 4 / lanes;
    Cx<hn::Vec<D>> rows[4][vectors], results[4 * vectors];
    firstRows<Inverse>(d, from, 4, 4, rows);
    joinRows<Inverse>(d, rows, 1, tw, results);
    for (std::size_t k = 0; k < 16; k += lanes) to.store(d, k, last(results[k / lanes]));
}

// Even and odd samples apart, then one radix-2 pass.
template <bool Inverse, class D, class From, class To, class Last>
void transformOrder5(D d, From from, To to, const hn::TFromD<D>* tw, Last last) {
    constexpr std::size_t lanes = hn::MaxLanes(D()), vectors = 4 / lanes;
    constexpr std::size_t group = twiddleGroup<hn::TFromD<D>>;
    Cx<hn::Vec<D>> rows[8][vectors], even[4 * vectors], odd[4 * vectors];
    firstRows<Inverse>(d, from, 8, 8, rows);
    joinRows<Inverse>(d, rows, 2, tw, even);
    joinRows<Inverse>(d, rows + 1, 2, tw, odd);
    const auto* w = tw + 24;
    for (std::size_t k = 0; k < 16; k += lanes) {
        const auto turned = twiddled<Inverse>(odd[k / lanes], loadTwiddle<1>(d, w + k / group * 2 * group + k % group));
        to.store(d, k, last(even[k / lanes] + turned));
        to.store(d, k + 16, last(even[k / lanes] - turned));
    }
}

// ---- Orders up to the direct limit ----

template <bool Inverse, class D, class From, class Work, class To, class Last>
void transformInPasses(D d, From from, Work work, To to, int order, const hn::TFromD<D>* twiddles, Last last) {
    using T = hn::TFromD<D>;
    if (firstPassOrder<T>(order) == 3) {
        firstPass<8, Inverse>(d, from, work, order, twiddles);
    } else {
        firstPass<16, Inverse>(d, from, work, order, twiddles);
    }
    passesTo<Inverse>(d, work, to, order, twiddles, last);
}

// From `from` to `to` by way of `work`, which may be `to` itself but not `from`.
template <bool Inverse, class T, class From, class Work, class To, class MakeLast>
void transformDirect(From from, Work work, To to, int order, const T* twiddles, MakeLast makeLast) {
    const hn::ScalableTag<T> full;
    const ShortTag<T> four;
    const auto enoughFor = [=](std::size_t lanes) { return order - firstPassOrder<T>(order) >= log2Of(lanes); };
    if (order == 4) return transformOrder4<Inverse>(four, from, to, twiddles, makeLast(four));
    if constexpr (!Plan<T>::radix8First) {
        if (order == 5) return transformOrder5<Inverse>(four, from, to, twiddles, makeLast(four));
    }
    if (enoughFor(hn::MaxLanes(full))) {
        transformInPasses<Inverse>(full, from, work, to, order, twiddles, makeLast(full));
    } else {
        transformInPasses<Inverse>(four, from, work, to, order, twiddles, makeLast(four));
    }
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
    constexpr std::size_t group = twiddleGroup<T>, lanes = hn::MaxLanes(D());
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
                        column4<Inverse>(d, source.from(base * sourceStride), target.from(base * targetStride), j + h,
                                         quarterRows * sourceStride, quarterRows * targetStride, w1, w2, w3, AsIs{});
                }
            }
        }
    };
    for (std::size_t first = 0; first < stride; first += columns) {
        const From source = from.from(first);
        const To target = to.from(first);
        pass4Rows(source, stride, work, columns, 1);
        std::size_t quarterRows = 4;
        for (; 8 * quarterRows <= rows; quarterRows *= 4) pass4Rows(work, columns, work, columns, quarterRows);
        if (4 * quarterRows == rows) {
            pass4Rows(work, columns, target, stride, quarterRows);
            continue;
        }
        for (std::size_t row = 0; row < quarterRows; ++row) // an odd level is left
            for (std::size_t j = 0; j < columns; j += group, tw += 2 * group)
                for (std::size_t h = 0; h < group; h += lanes)
                    column2<Inverse>(d, work.from(row * columns), target.from(row * stride), j + h,
                                     quarterRows * columns, quarterRows * stride, loadTwiddle<1>(d, tw + h), AsIs{});
    }
}

// Everything behind the first pass of a blocked order; the scale goes into the innermost sub-transforms.
template <bool Inverse, class D, class Work, class To, class Last>
void blockedLevels(D d, const hn::TFromD<D>* twiddles, const RelativePtr<hn::TFromD<D>>* levels, Work work, To to,
                   int order, Orb8u* buffer, Last last) {
    using T = hn::TFromD<D>;
    const BlockedLevel level = Plan<T>::level(order);
    const int subOrder = level.subOrder(order);
    for (std::size_t block = 0; block < std::size_t{1} << level.blockOrder; ++block) {
        const Work sub = work.from(block << subOrder);
        if (subOrder > Plan<T>::directLimit) {
            blockedLevels<Inverse>(d, twiddles, levels + 1, sub, sub, subOrder, buffer, last);
        } else {
            passesTo<Inverse>(d, sub, sub, subOrder, twiddles, last);
        }
    }
    topLevels<Inverse>(d, work, to, order, levels->get(), buffer);
}

// `inPlace`: from and to are the same memory.
template <bool Inverse, class T, class From, class Work, class To, class MakeLast>
void transformBlocked(const Spec<T>& spec, From from, Work work, To to, int order, bool inPlace, Orb8u* buffer,
                      MakeLast makeLast) {
    const hn::ScalableTag<T> d;
    const T* twiddles = spec.twiddles;
    const bool radix8 = firstPassOrder<T>(innermostOrder<T>(order)) == 3;
    if (inPlace) {
        reverseBitsInPlace(to, order, buffer);
        const std::size_t count = std::size_t{1} << order;
        if (radix8) {
            firstPassInRuns<8, Inverse>(d, to, work, count, twiddles);
        } else {
            firstPassInRuns<16, Inverse>(d, to, work, count, twiddles);
        }
    } else if (radix8) {
        firstPass<8, Inverse>(d, from, work, order, twiddles);
    } else {
        firstPass<16, Inverse>(d, from, work, order, twiddles);
    }
    blockedLevels<Inverse>(d, twiddles, spec.levels, work, to, order, buffer, makeLast(d));
}

// ---- A transform with its scale ----

// Calls run(makeLast) with what the last pass does to its results: nothing, or the multiplication by the scale.
template <class T, class Run>
void withScale(bool scaled, T scale, Run run) {
    if (scaled) {
        run([=](auto d) HWY_ATTR { return Times<hn::Vec<decltype(d)>>{hn::Set(d, scale)}; });
    } else {
        run([](auto) { return AsIs{}; });
    }
}

} // namespace orbs::fft
