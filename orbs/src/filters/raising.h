// Outputs of a filter that only raises the rate: lanes are samples, and each is multiplied by the taps of several
// phases while it is in a register. A sum runs from the oldest sample to the newest.
#pragma once

#include "filters/dots.h"

#include <algorithm>

namespace orbs {

// An output of each period: taps[k] meets sample first + n + k in period n.
template <class T>
struct Phase {
    const T* taps;
    std::ptrdiff_t first;
    std::size_t count;
    bool runsWith(const Phase& other) const { return first == other.first && count == other.count; }
};

// `phases` outputs, neighbours that meet the same samples, of `vectors` vectors of periods. x is the oldest sample of
// the first of them all, which goes to to[0].
template <std::size_t phases, std::size_t vectors, class D, class T>
HWY_INLINE void runPhases(D d, const Phase<T>* phase, const T* x, T* to, std::size_t upFactor) {
    constexpr std::size_t lanes = hn::MaxLanes(d);
    hn::Vec<D> sums[phases][vectors];
#pragma GCC unroll 8
    for (auto& sum : sums) std::fill_n(sum, vectors, hn::Zero(d));
    const T* taps[phases];
#pragma GCC unroll 4
    for (std::size_t p = 0; p < phases; ++p) taps[p] = phase[p].taps;
    for (std::size_t k = 0, count = phase->count; k < count; ++k, ++x) {
        hn::Vec<D> samples[vectors];
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v) samples[v] = hn::LoadU(d, x + v * lanes);
#pragma GCC unroll 4
        for (std::size_t p = 0; p < phases; ++p) {
            const auto tap = hn::Set(d, taps[p][k]);
#pragma GCC unroll 8
            for (std::size_t v = 0; v < vectors; ++v) sums[p][v] = hn::Add(sums[p][v], hn::Mul(tap, samples[v]));
        }
    }
    if (phases == 4 && upFactor == 4) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v, to += 4 * lanes)
            hn::StoreInterleaved4(sums[0][v], sums[1 % phases][v], sums[2 % phases][v], sums[3 % phases][v], d, to);
    } else if (phases == 2 && upFactor == 2) {
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v, to += 2 * lanes)
            hn::StoreInterleaved2(sums[0][v], sums[1 % phases][v], d, to);
    } else {
        T outputs[phases][vectors * lanes];
#pragma GCC unroll 4
        for (std::size_t p = 0; p < phases; ++p) {
#pragma GCC unroll 8
            for (std::size_t v = 0; v < vectors; ++v) hn::StoreU(sums[p][v], d, outputs[p] + v * lanes);
        }
        for (std::size_t i = 0; i < vectors * lanes; ++i, to += upFactor)
            for (std::size_t p = 0; p < phases; ++p) to[p] = outputs[p][i];
    }
}

// `count` periods of them. The last ones may be worked out twice.
template <std::size_t phases, std::size_t lanes, class T>
HWY_INLINE void runPeriods(const Phase<T>* phase, const T* x, T* to, std::size_t upFactor, std::size_t count) {
    const hn::CappedTag<T, lanes> d;
    constexpr std::size_t step = hn::MaxLanes(d);
    if (count < step) {
        if constexpr (lanes > 1) runPeriods<phases, step / 2>(phase, x, to, upFactor, count);
        return;
    }
    constexpr std::size_t vectors = 8 / phases;
    std::size_t n = 0;
    for (; n + vectors * step <= count; n += vectors * step)
        runPhases<phases, vectors>(d, phase, x + n, to + n * upFactor, upFactor);
    for (; n < count; n += step) {
        const std::size_t from = std::min(n, count - step);
        runPhases<phases, 1>(d, phase, x + from, to + from * upFactor, upFactor);
    }
}

// The outputs first to first + count - 1, as dotRun has them, of real samples and rates that are only raised.
template <class T>
void phaseRun(const Rows<T>& rows, std::size_t upFactor, const T* samples, std::int64_t first, std::size_t count,
              T* dst) {
    const auto phaseOf = [&](std::size_t o) {
        const std::size_t rowLen = rows.rowLen();
        const RowPlace place = rows.places[o];
        const auto unused = static_cast<std::size_t>(place.unused);
        return Phase<T>{rows.taps + o * rowLen + unused, place.first + std::ptrdiff_t{place.unused}, rowLen - unused};
    };
    const auto begin = static_cast<std::size_t>(first), end = begin + count;
    const auto oldest = [=](const Phase<T>& phase, std::size_t n) {
        return samples + (phase.first + static_cast<std::ptrdiff_t>(n));
    };
    const auto single = [&](std::size_t from, std::size_t to) {
        for (std::size_t m = from; m < to; ++m) {
            const Phase<T> phase = phaseOf(m % upFactor);
            runPeriods<1, 1>(&phase, oldest(phase, m / upFactor), dst + (m - begin), upFactor, 1);
        }
    };
    // Whole periods, so many at a time that their samples and outputs stay in the cache.
    constexpr std::size_t most = 512, full = hn::MaxLanes(hn::ScalableTag<T>());
    const std::size_t whole = (begin + upFactor - 1) / upFactor, behind = end / upFactor;
    if (whole >= behind) return single(begin, end);
    single(begin, whole * upFactor);
    for (std::size_t n = whole; n < behind; n += most) {
        const std::size_t periods = std::min(most, behind - n);
        for (std::size_t o = 0; o < upFactor;) {
            Phase<T> phases[4];
            std::size_t together = 0;
            for (; together < 4 && o + together < upFactor; ++together) {
                phases[together] = phaseOf(o + together);
                if (!phases[together].runsWith(phases[0])) break;
            }
            const T* const x = oldest(phases[0], n);
            T* const to = dst + (n * upFactor + o - begin);
            if (together == 4) {
                runPeriods<4, full>(phases, x, to, upFactor, periods);
            } else if (together >= 2) {
                together = 2;
                runPeriods<2, full>(phases, x, to, upFactor, periods);
            } else {
                runPeriods<1, full>(phases, x, to, upFactor, periods);
            }
            o += together;
        }
    }
    single(behind * upFactor, end);
}

} // namespace orbs
