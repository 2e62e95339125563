// The filter of an LMS state: an output, the error, and the taps that it leads to, sample by sample.
//
// The products of an output are added up in a number of lanes that the number of taps decides, and these in halves. So
// a stream has the same bits in every tier, and however it is cut into calls.
#pragma once

#include "vectors/loops.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace orbs {

// Taps as rows of lanes. What is left over from whole rows stands in the first one, with zeros behind.
struct LmsRows {
    static constexpr std::size_t mostLanes = 32;
    std::size_t lanes, count, inFirst;

    explicit LmsRows(int tapsLen) {
        const auto taps = static_cast<std::size_t>(tapsLen);
        lanes = taps <= 8 ? 8 : taps <= 16 ? 16 : mostLanes;
        count = (taps + lanes - 1) / lanes;
        inFirst = taps - (count - 1) * lanes;
    }
    std::size_t length() const { return lanes * count; }
    // Where tap k stands, oldest sample's first.
    std::size_t placeOf(std::size_t k) const { return k < inFirst ? k : k + lanes - inFirst; }
};

// The sum of all lanes, in every lane. An error waits for it, so shuffles go side by side, not one behind the other.
template <class D>
HWY_INLINE hn::Vec<D> sumEverywhere(D d, hn::Vec<D> v) {
    constexpr std::size_t size = hn::MaxLanes(d) * sizeof(hn::TFromD<D>);
    if constexpr (size == 64) {
        const auto odd = hn::Add(hn::SwapAdjacentBlocks(v), hn::ReverseBlocks(d, v));
        v = hn::Add(hn::Add(v, hn::ConcatLowerUpper(d, v, v)), odd);
    }
    if constexpr (size == 32) v = hn::Add(v, hn::SwapAdjacentBlocks(v));
    return hn::Add(hn::Add(v, hn::Shuffle1032(v)), hn::Add(hn::Shuffle2301(v), hn::Shuffle0123(v)));
}

// Lanes of a vector for so many rows in registers. Within and across blocks of 16 bytes sums are added up slowest, so
// few taps, whose time is that of one error waiting for the other, go in short vectors.
constexpr std::size_t lmsVector(std::size_t held) {
    return held == 1 ? 4 : held == 2 ? 8 : LmsRows::mostLanes;
}

// `held` rows stay in registers, or, if it is 0, none do. `whole`: the first row is full.
template <std::size_t lanes, std::size_t held, bool whole>
class LmsFilter {
    using D = hn::CappedTag<Orb32f, std::min(lanes, lmsVector(held))>;
    using V = hn::Vec<D>;
    static constexpr D d{};
    static constexpr std::size_t step = hn::MaxLanes(d), vectors = lanes / step;

    // A vector of the first row, without what has no tap. Samples there are 0, and so is what adapts to them, even to
    // an error that is infinite: places behind the taps keep their zeros.
    static HWY_INLINE V ofTaps(std::size_t v, std::size_t inFirst, V samplesOrSteps) {
        if constexpr (whole) return samplesOrSteps;
        return hn::IfThenElseZero(hn::FirstN(d, inFirst - std::min(inFirst, v * step)), samplesOrSteps);
    }
    static HWY_INLINE V folded(V (&sums)[vectors]) {
#pragma GCC unroll 8
        for (std::size_t half = vectors / 2; half > 0; half /= 2) {
#pragma GCC unroll 8
            for (std::size_t v = 0; v < half; ++v) sums[v] = hn::Add(sums[v], sums[v + half]);
        }
        return sumEverywhere(d, sums[0]);
    }
    static HWY_INLINE V errorOf(V y, Orb32f ref, Orb32f twiceMu) {
        return hn::Mul(hn::Sub(hn::Set(d, ref), y), hn::Set(d, twiceMu));
    }

public:
    // Outputs n = 0 to count - 1, over the samples from x + n on. y may be ref.
    static void run(Orb32f* rows, LmsRows told, const Orb32f* x, const Orb32f* ref, Orb32f* y, std::size_t count,
                    Orb32f twiceMu) {
        if constexpr (held > 0) {
            inRegisters(rows, told.inFirst, x, ref, y, count, twiceMu);
        } else {
            inMemory(rows, told, x, ref, y, count, twiceMu);
        }
    }

private:
    static HWY_INLINE void inRegisters(Orb32f* rows, std::size_t inFirst, const Orb32f* x, const Orb32f* ref, Orb32f* y,
                                       std::size_t count, Orb32f twiceMu) {
        V h[held * vectors];
#pragma GCC unroll 32
        for (std::size_t k = 0; k < held * vectors; ++k) h[k] = hn::LoadU(d, rows + k * step);
        for (std::size_t n = 0; n < count; ++n) {
            const auto samples = [=](std::size_t k) HWY_ATTR {
                if (k < vectors) return ofTaps(k, inFirst, hn::LoadU(d, x + n + k * step));
                return hn::LoadU(d, x + n + inFirst + (k - vectors) * step);
            };
            V sums[vectors];
#pragma GCC unroll 8
            for (std::size_t v = 0; v < vectors; ++v) sums[v] = hn::Mul(h[v], samples(v));
#pragma GCC unroll 32
            for (std::size_t k = vectors; k < held * vectors; ++k)
                sums[k % vectors] = hn::Add(sums[k % vectors], hn::Mul(h[k], samples(k)));
            const V output = folded(sums), e = errorOf(output, ref[n], twiceMu);
#pragma GCC unroll 8
            for (std::size_t v = 0; v < vectors; ++v) h[v] = hn::Add(h[v], ofTaps(v, inFirst, hn::Mul(samples(v), e)));
#pragma GCC unroll 32
            for (std::size_t k = vectors; k < held * vectors; ++k) h[k] = hn::Add(h[k], hn::Mul(samples(k), e));
            y[n] = hn::GetLane(output);
        }
#pragma GCC unroll 32
        for (std::size_t k = 0; k < held * vectors; ++k) hn::StoreU(h[k], d, rows + k * step);
    }

    enum class Pass { filter, adaptAndFilter, adapt };

    // The taps adapt to one output in the pass that filters the next one.
    static HWY_INLINE void inMemory(Orb32f* rows, const LmsRows told, const Orb32f* x, const Orb32f* ref, Orb32f* y,
                                    std::size_t count, Orb32f twiceMu) {
        V sums[vectors], e = hn::Zero(d);
        const auto vector = [&](auto pass, auto isFirst, std::size_t v, Orb32f* taps, const Orb32f* samples) HWY_ATTR {
            constexpr bool adapts = pass() != Pass::filter, filters = pass() != Pass::adapt;
            const auto kept = [&](V samplesOrSteps) HWY_ATTR {
                if constexpr (isFirst()) return ofTaps(v, told.inFirst, samplesOrSteps);
                return samplesOrSteps;
            };
            V h = hn::LoadU(d, taps + v * step);
            if constexpr (adapts) {
                h = hn::Add(h, kept(hn::Mul(kept(hn::LoadU(d, samples + v * step)), e)));
                hn::StoreU(h, d, taps + v * step);
            }
            if constexpr (filters) {
                const V product = hn::Mul(h, kept(hn::LoadU(d, samples + adapts + v * step)));
                if constexpr (isFirst()) {
                    sums[v] = product;
                } else {
                    sums[v] = hn::Add(sums[v], product);
                }
            }
        };
        // Over the samples from x + n on; what filters besides, over those from x + n + 1 on.
        const auto all = [&](auto pass, std::size_t n) HWY_ATTR {
#pragma GCC unroll 8
            for (std::size_t v = 0; v < vectors; ++v) vector(pass, std::true_type(), v, rows, x + n);
            const Orb32f* samples = x + n + told.inFirst;
            Orb32f* taps = rows + lanes;
            for (Orb32f* const end = rows + lanes * told.count; taps < end; taps += lanes, samples += lanes) {
#pragma GCC unroll 8
                for (std::size_t v = 0; v < vectors; ++v) vector(pass, std::false_type(), v, taps, samples);
            }
        };
        const auto finish = [&](std::size_t n) HWY_ATTR {
            const V output = folded(sums);
            e = errorOf(output, ref[n], twiceMu);
            y[n] = hn::GetLane(output);
        };
        all(std::integral_constant<Pass, Pass::filter>(), 0);
        finish(0);
        for (std::size_t n = 1; n < count; ++n) {
            all(std::integral_constant<Pass, Pass::adaptAndFilter>(), n - 1);
            finish(n);
        }
        all(std::integral_constant<Pass, Pass::adapt>(), count - 1);
    }
};

// The rows of mostLanes that registers have room for beside the sums.
constexpr std::size_t rowsInRegisters() {
    constexpr std::size_t size = hn::MaxLanes(hn::ScalableTag<Orb32f>()) * sizeof(Orb32f);
    return HWY_ARCH_X86_32 ? 0 : size == 16 ? 1 : size == 32 ? 2 : 8;
}

using LmsKernel = void (*)(Orb32f*, LmsRows, const Orb32f*, const Orb32f*, Orb32f*, std::size_t, Orb32f);

template <bool whole>
LmsKernel lmsKernel(const LmsRows& rows) {
    if (rows.lanes == 8) return LmsFilter<8, 1, whole>::run;
    if (rows.lanes == 16) return LmsFilter<16, 1, whole>::run;
    LmsKernel kernel = LmsFilter<LmsRows::mostLanes, 0, whole>::run;
    [&]<std::size_t... k>(std::index_sequence<k...>) {
        ((rows.count == k + 1 ? void(kernel = LmsFilter<LmsRows::mostLanes, k + 1, whole>::run) : void()), ...);
    }
    (std::make_index_sequence<rowsInRegisters()>());
    return kernel;
}

// The outputs for samples of which the first one's oldest stands at x, and the taps after them. At least one.
inline void lmsFilter(Orb32f* taps, int tapsLen, const Orb32f* x, const Orb32f* ref, Orb32f* y, std::size_t count,
                      Orb32f twiceMu) {
    const LmsRows rows(tapsLen);
    const LmsKernel kernel = rows.inFirst == rows.lanes ? lmsKernel<true>(rows) : lmsKernel<false>(rows);
    kernel(taps, rows, x, ref, y, count, twiceMu);
}

} // namespace orbs
