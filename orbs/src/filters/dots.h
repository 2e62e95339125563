// Dot products of rows of taps with the samples that they meet: the outputs of a filter whose rate is changed, where
// neighbouring outputs have other taps and begin at other samples.
//
// A row has the taps of an output, oldest sample's first, filled up in front to whole groups of `lanes` parts. Products
// are added up in so many sums, and these in halves. So the order of a sum is fixed by the number of taps, and an
// output has the same bits in every tier, at every place of a block and on every thread.
#pragma once

#include "filters/kernels.h"
#include "vectors/complex.h"
#include "vectors/values.h"

#include <cstdint>

namespace orbs {

// Where the samples of a row begin, counted from the first one of a period, and how many parts in front of a row are no
// taps. What these meet is not looked at: an infinity beside the samples of an output must not spoil it.
struct RowPlace {
    Orb32s first, unused;
};

// The rows of a period of `count` outputs, and of the three that follow it: four outputs never wrap. The next period
// begins `step` samples on. A single row serves all outputs of a filter that only leaves out some.
template <class Tap>
struct Rows {
    const Tap* taps;
    const RowPlace* places;
    std::int64_t count, step;
    std::size_t lanes, groups;
    bool whole; // no part is unused

    std::size_t rowLen() const { return lanes * groups / partCount<Tap>; }
};

// As many outputs as make whole periods, and one if all have the same taps; and the rows that they have.
constexpr std::int64_t periodRows(std::int64_t upFactor) {
    return upFactor == 1 ? 1 : upFactor * ((3 + upFactor) / upFactor);
}
constexpr std::int64_t storedRows(std::int64_t upFactor) {
    return upFactor == 1 ? 1 : periodRows(upFactor) + 3;
}

// Few taps have few lanes. Sum is the type of the sums.
template <class Sum, class Tap>
constexpr std::size_t dotLanes(std::int64_t taps) {
    const std::int64_t parts = taps * static_cast<std::int64_t>(partCount<Tap>);
    return parts <= 4 ? 4 : parts <= 8 || sizeof(Sum) == 8 ? 8 : 16;
}
template <class Sum, class Tap>
constexpr std::size_t dotGroups(std::int64_t taps) {
    const std::size_t lanes = dotLanes<Sum, Tap>(taps);
    return (static_cast<std::size_t>(taps) * partCount<Tap> + lanes - 1) / lanes;
}

// ---- Kernel ----

// (lower half + upper half of a, the same of b).
template <class D, class V>
HWY_INLINE V foldHalves(D d, V a, V b) {
    if constexpr (hn::MaxLanes(d) * sizeof(hn::TFromD<D>) == 16) {
        const hn::Repartition<Orb64f, D> halves;
        const auto x = hn::BitCast(halves, a), y = hn::BitCast(halves, b);
        return hn::Add(hn::BitCast(d, hn::InterleaveLower(halves, x, y)),
                       hn::BitCast(d, hn::InterleaveUpper(halves, x, y)));
    } else {
        return hn::Add(hn::ConcatLowerLower(d, b, a), hn::ConcatUpperUpper(d, b, a));
    }
}

// The sums of the blocks of 16 bytes a and c, in a vector, and b and e, in order.
template <class D, class V, class T>
HWY_INLINE void storeBlockSums(D d, V ac, V be, T* sums) {
    const hn::Repartition<Orb64f, D> halves;
    const auto x = hn::BitCast(halves, ac), y = hn::BitCast(halves, be);
    const V abce =
        hn::Add(hn::BitCast(d, hn::InterleaveLower(halves, x, y)), hn::BitCast(d, hn::InterleaveUpper(halves, x, y)));
    if constexpr (sizeof(T) == 8) {
        hn::StoreU(abce, d, sums);
    } else {
        const hn::Half<D> block;
        const auto ab = hn::LowerHalf(block, abce), ce = hn::UpperHalf(block, abce);
        hn::StoreU(hn::Add(hn::ConcatEven(block, ce, ab), hn::ConcatOdd(block, ce, ab)), block, sums);
    }
}

// The sum of the lanes of each of four vectors, added up in halves.
template <class D, class V, class T>
HWY_INLINE void storeSums(D d, V a, V b, V c, V e, T* sums) {
    constexpr std::size_t size = hn::MaxLanes(d) * sizeof(T);
    if constexpr (size == 64) {
        const hn::Half<D> half;
        const V ab = foldHalves(d, a, b), ce = foldHalves(d, c, e);
        // The blocks are now (a, a, b, b) and (c, c, e, e).
        const V all = hn::Add(hn::OddEvenBlocks(hn::SwapAdjacentBlocks(ce), ab),
                              hn::OddEvenBlocks(ce, hn::SwapAdjacentBlocks(ab)));
        storeBlockSums(half, hn::LowerHalf(half, all), hn::UpperHalf(half, all), sums);
    } else if constexpr (size == 32) {
        storeBlockSums(d, foldHalves(d, a, c), foldHalves(d, b, e), sums);
    } else if constexpr (sizeof(T) == 4) {
        const V ab = foldHalves(d, a, b), ce = foldHalves(d, c, e);
        hn::StoreU(hn::Add(hn::ConcatEven(d, ce, ab), hn::ConcatOdd(d, ce, ab)), d, sums);
    } else {
        hn::StoreU(foldHalves(d, a, b), d, sums);
        hn::StoreU(foldHalves(d, c, e), d, sums + 2);
    }
}

// What a kernel works on at a time: outputs of four parts together. Their rows lie one behind the other, or are one
// row.
template <class Tap, class Sample>
struct Meetings {
    static constexpr std::size_t outputs = 4 / partCount<Tap>;
    const Part<Tap>* taps;
    const RowPlace* places;
    const Part<Sample>* samples[outputs];
};

// What the outputs of a group have in common, which is then loaded once.
enum class Shared { nothing, row, samples };

enum class Products { first, firstMasked, further };

// sums[k] is the sum of the products of output k.
template <std::size_t lanes, Shared shared, class Sum, class Tap, class Sample>
HWY_INLINE void dotProducts(const Meetings<Tap, Sample>& meet, const Rows<Tap>& rows, Sum* sums) {
    using Real = Part<Tap>;
    constexpr std::size_t outputs = Meetings<Tap, Sample>::outputs, parts = partCount<Tap>;
    const hn::CappedTag<Sum, lanes> d;
    const hn::Rebind<Real, decltype(d)> dTaps;
    const hn::Rebind<Part<Sample>, decltype(d)> dSamples;
    const hn::RebindToSigned<decltype(dSamples)> dPlaces;
    constexpr std::size_t step = hn::MaxLanes(d), vectors = lanes / step;
    const std::size_t rowParts = lanes * rows.groups;

    hn::Vec<decltype(d)> acc[4][vectors];
    const auto add = [&](auto kind, std::size_t v, std::size_t offset) HWY_ATTR {
        auto taps = hn::LoadU(dTaps, meet.taps + offset);
        auto samples = hn::LoadU(dSamples, meet.samples[0] + offset);
        hn::Vec<decltype(dTaps)> values;
#pragma GCC unroll 4
        for (std::size_t k = 0; k < outputs; ++k) {
            if (shared != Shared::row && k > 0) taps = hn::LoadU(dTaps, meet.taps + k * rowParts + offset);
            if (shared != Shared::samples && k > 0) samples = hn::LoadU(dSamples, meet.samples[k] + offset);
            if constexpr (kind() == Products::firstMasked) {
                using Place = hn::TFromD<decltype(dPlaces)>;
                const auto place = hn::Iota(dPlaces, static_cast<Place>(v * step));
                const Orb32s unused = meet.places[shared == Shared::row ? 0 : k].unused;
                const auto isUnused = hn::Lt(place, hn::Set(dPlaces, static_cast<Place>(unused)));
                values = valuesIn(dTaps, hn::IfThenZeroElse(hn::RebindMask(dSamples, isUnused), samples));
            } else if (shared != Shared::samples || k == 0) {
                values = valuesIn(dTaps, samples);
            }
            const auto into = [&](auto& sum, auto product) HWY_ATTR {
                if constexpr (kind() == Products::further) {
                    sum = hn::Add(sum, valuesIn(d, product));
                } else {
                    sum = valuesIn(d, product);
                }
            };
            into(acc[k * parts][v], hn::Mul(taps, values));
            if constexpr (parts == 2) into(acc[k * parts + 1][v], hn::Mul(taps, hn::Reverse2(dTaps, values)));
        }
    };
    const auto addAll = [&](auto kind, std::size_t offset) HWY_ATTR {
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) add(kind, v, offset + v * step);
    };
    if (rows.whole) {
        addAll(std::integral_constant<Products, Products::first>(), 0);
    } else {
        addAll(std::integral_constant<Products, Products::firstMasked>(), 0);
    }
    for (std::size_t n = lanes; n < rowParts; n += lanes)
        addAll(std::integral_constant<Products, Products::further>(), n);

#pragma GCC unroll 4
    for (std::size_t k = 0; k < 4; ++k) {
#pragma GCC unroll 2
        for (std::size_t half = vectors / 2; half > 0; half /= 2)
#pragma GCC unroll 2
            for (std::size_t v = 0; v < half; ++v) acc[k][v] = hn::Add(acc[k][v], acc[k][v + half]);
        // re = sum of h.re * x.re - sum of h.im * x.im; im is a sum as it stands.
        if constexpr (parts == 2)
            if (k % 2 == 0) acc[k][0] = hn::Xor(acc[k][0], signOfIm(d));
    }
    storeSums(d, acc[0][0], acc[1][0], acc[2][0], acc[3][0], sums);
}

// ---- Runs of outputs ----

// The outputs first to first + count - 1. Sample 0 of output 0's period lies at `samples`.
template <std::size_t lanes, bool oneRow, class Sum, class Tap, class Sample>
void dotRun(const Rows<Tap>& told, const Sample* samples, std::int64_t first, std::size_t count, Sum* sums) {
    using Group = Meetings<Tap, Sample>;
    const Rows<Tap> rows = told;
    const std::size_t rowParts = rows.groups * lanes;
    const auto step = static_cast<std::ptrdiff_t>(rows.step);
    auto row = static_cast<std::size_t>(first % rows.count);
    samples += static_cast<std::ptrdiff_t>(first / rows.count) * step;
    const auto sampleOf = [&](std::size_t k) {
        if (oneRow) return asParts(samples + rows.places->first + static_cast<std::ptrdiff_t>(k) * step);
        return asParts(samples + rows.places[row + k].first);
    };
    const auto advance = [&](std::size_t outputs) {
        if (oneRow) {
            samples += static_cast<std::ptrdiff_t>(outputs) * step;
            return;
        }
        row += outputs;
        if (row < static_cast<std::size_t>(rows.count)) return;
        row -= static_cast<std::size_t>(rows.count);
        samples += step;
    };
    const auto groupAt = [&] { return Group{asParts(rows.taps) + row * rowParts, rows.places + row, {}}; };

    for (; count >= Group::outputs; count -= Group::outputs, sums += 4) {
        Group meet = groupAt();
#pragma GCC unroll 4
        for (std::size_t k = 0; k < Group::outputs; ++k) meet.samples[k] = sampleOf(k);
        constexpr Shared usual = oneRow ? Shared::row : Shared::nothing;
        if (!oneRow && meet.samples[0] == meet.samples[Group::outputs - 1]) {
            dotProducts<lanes, Shared::samples>(meet, rows, sums);
        } else {
            dotProducts<lanes, usual>(meet, rows, sums);
        }
        advance(Group::outputs);
    }
    for (; count > 0; --count, sums += partCount<Tap>) {
        Group meet = groupAt();
        std::fill_n(meet.samples, Group::outputs, sampleOf(0));
        Sum same[4];
        dotProducts<lanes, Shared::row>(meet, rows, same);
        std::copy_n(same, partCount<Tap>, sums);
        advance(1);
    }
}

template <class Sum, class Tap, class Sample>
void dotRun(const Rows<Tap>& rows, const Sample* samples, std::int64_t first, std::size_t count, Sum* sums) {
    const bool same = rows.count == 1;
    const auto run = [&](auto lanes) {
        if (same) {
            dotRun<lanes(), true>(rows, samples, first, count, sums);
        } else {
            dotRun<lanes(), false>(rows, samples, first, count, sums);
        }
    };
    if (rows.lanes == 4) return run(std::integral_constant<std::size_t, 4>());
    if constexpr (sizeof(Sum) == 4)
        if (rows.lanes == 16) return run(std::integral_constant<std::size_t, 16>());
    run(std::integral_constant<std::size_t, 8>());
}

} // namespace orbs
