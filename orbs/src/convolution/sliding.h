// Sums of products of taps that slide along samples, beyond both ends of them: what convolution and correlation are.
#pragma once

#include "filters/kernels.h"

#include <algorithm>
#include <cstring>

namespace orbs {

// How the products of an output follow each other, and whether the conjugates of complex taps are meant.
enum class Taps { asTheyAre, conjugated };
enum class Order { ascending, descending };

// y(p) = sum over k of tap[k] x[p + k], over all k for which there are both, in the type of the elements. An output's
// order of addition is that of k alone, wherever the vectors lie that it is computed in.
template <class T, std::ptrdiff_t step, Taps kind = Taps::asTheyAre, Order order = Order::ascending>
class Sliding {
    using Real = Part<T>;
    using Place = std::ptrdiff_t;
    static constexpr hn::ScalableTag<Real> d{};
    using Vec = hn::Vec<hn::ScalableTag<Real>>;
    static constexpr std::size_t parts = partCount<T>, lanes = hn::MaxLanes(d);
    static constexpr std::size_t most = HWY_ARCH_X86_32 && parts == 2 ? 2 : 4; // vectors at once
    static constexpr Place elements = static_cast<Place>(lanes / parts);       // of a vector
    static constexpr Place width = static_cast<Place>(most) * elements;

public:
    Sliding(TapRun<T, step> taps, const T* x, Place samples)
        : taps_(taps), x_(x), count_(static_cast<Place>(taps.count)), samples_(samples) {}

    // pDst[n] = y(first + n) for n = 0 to count - 1.
    void outputs(Place first, T* pDst, Place count) const {
        Place n = 0;
        if constexpr (parts == 1 && order == Order::ascending) { // where all taps meet samples
            const Place from = std::clamp<Place>(-first, 0, count);
            const Place to = std::clamp<Place>(samples_ - count_ + 1 - first, from, count);
            if (to - from >= width) {
                if (from > 0) atEnds(first, pDst, from);
                convolve<Real>(taps_, x_ + (first + from), pDst + from, static_cast<std::size_t>(to - from));
                n = to;
            }
        }
        if (n < count) atEnds(first + n, pDst + n, count - n);
    }

private:
    // Samples at an end with zeros beside them, and masks of those that there are.
    struct End {
        static constexpr std::size_t room = 3 * most * lanes;
        alignas(64) Real samples[room], there[room];

        void fill(const T* x, Place count) {
            constexpr auto begin = static_cast<std::size_t>(width) * parts;
            const std::size_t used = static_cast<std::size_t>(count) * parts;
            std::fill_n(samples, room, Real{});
            std::fill_n(there, room, Real{});
            std::copy_n(asParts(x), used, samples + begin);
            std::memset(static_cast<void*>(there + begin), 0xff, used * sizeof(Real));
        }
    };
    struct Ends {
        End left, right;
    };

    void atEnds(Place first, T* pDst, Place count) const {
        // What all of these outputs leave out is not looked at.
        const Place from = std::clamp<Place>(first, 0, samples_);
        const Place to = std::clamp<Place>(first + count + count_ - 1, from, samples_);
        const Sliding near(taps_, x_ + from, to - from);
        Ends ends;
        const Place held = std::min(near.samples_, width);
        ends.left.fill(near.x_, held);
        if (near.samples_ >= width) ends.right.fill(near.x_ + near.samples_ - held, held);
        near.tiles(ends, first - from, asParts(pDst), count);
    }

    void tiles(const Ends& ends, Place p, Real* y, Place count) const {
        Place n = 0;
        for (; n + width <= count; n += width) tile<most>(ends, p + n, y + n * static_cast<Place>(parts));
        if constexpr (most == 4) {
            if (n + 2 * elements <= count) {
                tile<2>(ends, p + n, y + n * static_cast<Place>(parts));
                n += 2 * elements;
            }
        }
        for (; n < count; n += elements) {
            Real* const to = y + n * static_cast<Place>(parts);
            if (n + elements <= count) {
                tile<1>(ends, p + n, to);
            } else {
                Real last[lanes];
                tile<1>(ends, p + n, last);
                std::copy_n(last, static_cast<std::size_t>(count - n) * parts, to);
            }
        }
    }

    // Taps from..to - 1, the first of which meets the sample at x for the first output; masks lie beside.
    template <bool masked, std::size_t vectors>
    HWY_INLINE void add(Place from, Place to, const Real* x, const Real* there, Vec (&sums)[parts][vectors]) const {
        const Place number = to - from;
        for (Place i = 0; i < number; ++i) {
            const Place k = order == Order::ascending ? i : number - 1 - i;
            const Real* const tap = asParts(taps_.first + (from + k) * step);
            const Place at = k * static_cast<Place>(parts);
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) {
                const Place place = at + static_cast<Place>(v * lanes);
                const Vec samples = hn::LoadU(d, x + place);
#pragma GCC unroll 2
                for (std::size_t part = 0; part < parts; ++part) {
                    Vec factor = hn::Set(d, tap[part]);
                    if constexpr (masked) factor = hn::And(factor, hn::LoadU(d, there + place));
                    sums[part][v] = hn::Add(sums[part][v], hn::Mul(factor, samples));
                }
            }
        }
    }

    // The outputs of some vectors. At first, and at last, some of them meet no sample.
    template <std::size_t vectors>
    HWY_INLINE void tile(const Ends& ends, Place p, Real* y) const {
        constexpr Place wide = static_cast<Place>(vectors) * elements;
        const auto tapAt = [&](Place k) { return std::clamp<Place>(k, 0, count_); };
        const Place begin = tapAt(1 - wide - p), end = tapAt(samples_ - p);
        const Place from = tapAt(-p), to = tapAt(samples_ - p - wide + 1);
        Vec sums[parts][vectors];
#pragma GCC unroll 2
        for (std::size_t part = 0; part < parts; ++part) {
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) sums[part][v] = hn::Zero(d);
        }
        const auto beside = [&](const End& at, Place origin, Place first, Place last) HWY_ATTR {
            if (first >= last) return;
            const Place place = (width + p + first - origin) * static_cast<Place>(parts);
            add<true>(first, last, at.samples + place, at.there + place, sums);
        };
        if (samples_ < width) {
            beside(ends.left, 0, begin, end);
        } else {
            const auto atLeft = [&]() HWY_ATTR { beside(ends.left, 0, begin, from); };
            const auto atRight = [&]() HWY_ATTR { beside(ends.right, samples_ - width, to, end); };
            if (order == Order::ascending) atLeft();
            if (order == Order::descending) atRight();
            if (from < to) add<false>(from, to, asParts(x_ + (p + from)), nullptr, sums);
            if (order == Order::ascending) atRight();
            if (order == Order::descending) atLeft();
        }
#pragma GCC unroll 4
        for (std::size_t v = 0; v < vectors; ++v) {
            Vec sum = sums[0][v];
            if constexpr (parts == 2) { // h * x or conj(h) * x from h.re * x and h.im * x
                const Vec byIm = hn::Reverse2(d, sums[1][v]);
                const Vec more = hn::Add(sum, byIm), less = hn::Sub(sum, byIm);
                sum = kind == Taps::conjugated ? hn::OddEven(less, more) : hn::OddEven(more, less);
            }
            hn::StoreU(sum, d, y + v * lanes);
        }
    }

    TapRun<T, step> taps_;
    const T* x_;
    Place count_, samples_;
};

} // namespace orbs
