// Long runs of real outputs from samples that are dealt out to rows.
//
// Neighbouring outputs meet the same samples one tap later. With row p holding every fourth sample, x[4n + p], vectors
// of four rows of outputs have most of the vectors of samples in common: few loads for many products. Vectors of
// neighbouring samples take one load for each product, and most of these lie across two cache lines.
#pragma once

#include "filters/taps.h"

#include <algorithm>

namespace orbs {

template <class T>
class PhaseRows {
    static constexpr hn::ScalableTag<T> d{};
    static constexpr std::size_t rows = 4, vectors = 2, lanes = hn::MaxLanes(d);
    static constexpr std::size_t mostOutputs = 2048, mostTaps = 1024, rowLength = (mostOutputs + mostTaps) / rows + 16;
    using Vec = hn::Vec<hn::ScalableTag<T>>;

public:
    static constexpr std::size_t tile = rows * vectors * lanes; // outputs

    // Whether it is worth the dealing. The sums and taps need more registers than 32-bit code has.
    static constexpr bool serves(std::size_t tapsLen, std::size_t count) {
        return !HWY_ARCH_X86_32 && tapsLen >= 8 && tapsLen <= mostTaps && count >= 2 * tile;
    }

    // The outputs of whole tiles; returns how many they are.
    template <std::ptrdiff_t step>
    static std::size_t convolve(TapRun<T, step> taps, const T* pSrc, T* pDst, std::size_t count) {
        PhaseRows dealt;
        std::size_t n = 0;
        for (std::size_t run; (run = std::min(mostOutputs, count - n) / tile * tile) > 0; n += run) {
            dealt.deal(pSrc + n, run + taps.count - 1);
            for (std::size_t m = 0; m < run; m += tile) dealt.outputs(taps, dealt.rows_ + m / rows, pDst + n + m);
        }
        return n;
    }

private:
    void deal(const T* x, std::size_t count) {
        std::size_t n = 0;
        for (; n + rows * lanes <= count; n += rows * lanes) {
            Vec v0, v1, v2, v3;
            hn::LoadInterleaved4(d, x + n, v0, v1, v2, v3);
            T* const to = rows_ + n / rows;
            hn::StoreU(v0, d, to);
            hn::StoreU(v1, d, to + rowLength);
            hn::StoreU(v2, d, to + 2 * rowLength);
            hn::StoreU(v3, d, to + 3 * rowLength);
        }
        for (; n < count; ++n) rows_[n % rows * rowLength + n / rows] = x[n];
    }

    // Taps k + phase and on, `count` of them; k is a multiple of the rows, and its samples start at row 0. Each output
    // meets the taps in their order.
    template <std::size_t phase, std::size_t count, std::ptrdiff_t step>
    HWY_INLINE static void add(TapRun<T, step> taps, std::size_t k, const T* samples, Vec (&sums)[vectors][rows]) {
        Vec tap[count];
#pragma GCC unroll 4
        for (std::size_t q = 0; q < count; ++q)
            tap[q] = hn::Set(d, taps.first[static_cast<std::ptrdiff_t>(k + phase + q) * step]);
#pragma GCC unroll 8
        for (std::size_t s = 0; s < rows + count - 1; ++s) {
            const T* const row = samples + (phase + s) % rows * rowLength + (phase + s) / rows;
#pragma GCC unroll 2
            for (std::size_t v = 0; v < vectors; ++v) {
                const Vec x = hn::LoadU(d, row + v * lanes);
#pragma GCC unroll 4
                for (std::size_t q = 0; q < count; ++q)
                    if (q <= s && s - q < rows) sums[v][s - q] = hn::Add(sums[v][s - q], hn::Mul(tap[q], x));
            }
        }
    }

    template <std::ptrdiff_t step>
    HWY_INLINE static void outputs(TapRun<T, step> taps, const T* samples, T* pDst) {
        Vec sums[vectors][rows];
#pragma GCC unroll 2
        for (std::size_t v = 0; v < vectors; ++v) {
#pragma GCC unroll 4
            for (std::size_t r = 0; r < rows; ++r) sums[v][r] = hn::Zero(d);
        }
        std::size_t k = 0;
        for (; k + rows <= taps.count; k += rows, ++samples) add<0, rows>(taps, k, samples, sums);
        if (k < taps.count) add<0, 1>(taps, k, samples, sums);
        if (k + 1 < taps.count) add<1, 1>(taps, k, samples, sums);
        if (k + 2 < taps.count) add<2, 1>(taps, k, samples, sums);
#pragma GCC unroll 2
        for (std::size_t v = 0; v < vectors; ++v)
            hn::StoreInterleaved4(sums[v][0], sums[v][1], sums[v][2], sums[v][3], d, pDst + v * rows * lanes);
    }

    alignas(64) T rows_[rows * rowLength];
};

} // namespace orbs
