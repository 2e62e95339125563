// A block of samples through a filter with 16-bit taps: its first outputs are worked out behind the delay line, in D;
// the others from the caller's samples in place.
#pragma once

#include "filters/caller_line.h"
#include "fixedfir/state.h"

#include <cstring>

namespace orbs {

template <class T>
void copySamples16(const T* src, T* dst, std::int64_t count) {
    std::memcpy(dst, src, static_cast<std::size_t>(count) * sizeof(T));
}

// 2^-s of a sum, with what the taps are scaled by.
template <class State>
SumScaling scalingOf(const State* state, int scaleFactor) {
    return SumScaling(std::int64_t{scaleFactor} - state->tapsFactor);
}

// Outputs `first` to first + count - 1 of a block, lanes being taps; x is its sample 0. Where all outputs have the same
// taps, these are loaded once for four sums.
template <bool sameTaps, class State>
void filterByTaps(const State* state, const typename State::Sample* x, typename State::Sample* pDst, std::int64_t first,
                  std::int64_t count, const SumScaling& scaling) {
    constexpr std::size_t parts = State::parts, group = 4 / parts;
    constexpr auto signedParts = static_cast<std::ptrdiff_t>(parts);
    const auto rowParts = static_cast<std::size_t>(state->rowLen) * parts;
    const std::ptrdiff_t stride = state->rowStride(), period = std::ptrdiff_t{state->downFactor} * signedParts;
    const Orb16s* const rows = state->pRows;
    const Orb32s* const newest = state->pNewest;
    const int phases = state->upFactor;
    int phase = static_cast<int>(first % phases);
    const Orb16s* origin = asParts(x) + static_cast<std::ptrdiff_t>(first / phases) * period -
                           (std::ptrdiff_t{state->rowLen} - 1) * signedParts;
    Orb16s* y = asParts(pDst);

    // Rows and samples of the next outputs.
    const auto next = [&](auto& h, auto& from) {
        for (std::size_t k = 0; k < std::size(from); ++k) {
            for (std::size_t p = 0; p < parts; ++p)
                h[(k * parts + p) % std::size(h)] = rows + phase * stride + p * rowParts;
            from[k] = origin + newest[phase] * signedParts;
            if (++phase == phases) phase = 0, origin += period;
        }
    };
    for (; count >= static_cast<std::int64_t>(group); count -= group, y += 4) {
        const Orb16s *h[sameTaps ? parts : 4], *from[group];
        next(h, from);
        storeResults<4>(dotProducts<4>(h, from, rowParts), scaling, y);
    }
    for (; count > 0; --count, y += parts) {
        const Orb16s *h[parts], *from[1];
        next(h, from);
        storeResults<parts>(dotProducts<parts>(h, from, rowParts), scaling, y);
    }
}

// The words of the only row of a single-rate filter.
template <class State>
RowWords<typename State::Sample> wordsOf(const State* state) {
    const auto rowLen = static_cast<std::size_t>(state->rowLen), tapsLen = static_cast<std::size_t>(state->tapsLen);
    const Orb16s* const row = state->pRows;
    if constexpr (State::parts == 1) {
        const std::size_t taps = tapsLen | 1;
        const Orb16s* const even = row + rowLen - taps;
        return {even, even - 1, (taps + 1) / 2};
    } else {
        const Orb16s* const even = row + 2 * (rowLen - tapsLen);
        return {even, even + 2 * rowLen, tapsLen};
    }
}

template <class State>
void filterRun(const State* state, const typename State::Sample* x, typename State::Sample* pDst, std::int64_t first,
               std::int64_t count, const SumScaling& scaling) {
    if (state->tag == State::singleRateTag &&
        count * static_cast<std::int64_t>(State::parts) >= std::int64_t{leastParts}) {
        const int older = State::parts == 1 ? state->tapsLen | 1 : state->tapsLen;
        filterSamples(wordsOf(state), x + (static_cast<std::ptrdiff_t>(first) - (older - 1)), pDst,
                      static_cast<std::size_t>(count), scaling);
    } else if (state->upFactor == 1) {
        filterByTaps<true>(state, x, pDst, first, count, scaling);
    } else {
        filterByTaps<false>(state, x, pDst, first, count, scaling);
    }
}

// inputs and outputs are whole periods.
template <class State>
void filterBlock(State* state, const typename State::Sample* pSrc, typename State::Sample* pDst, int numIters,
                 const SumScaling& scaling) {
    using Sample = typename State::Sample;
    const std::int64_t inputs = std::int64_t{numIters} * state->downFactor;
    const std::int64_t outputs = std::int64_t{numIters} * state->upFactor;
    const int lineLen = state->dlyLineLen;
    Sample* const D = state->pDlyLine;
    const auto lineBytes = static_cast<std::size_t>(lineLen) * sizeof *D;
    if (state->dlyLineIndex != 0) std::memmove(D, D + state->dlyLineIndex, lineBytes);
    state->dlyLineIndex = 0;

    copySamples16(pSrc, D + lineLen, std::min<std::int64_t>(inputs, state->headLen));
    const std::int64_t head = std::min<std::int64_t>(outputs, state->headOut);
    filterRun(state, D + lineLen, pDst, 0, head, scaling);
    if (outputs > head) filterRun(state, pSrc, pDst + head, head, outputs - head, scaling);
    if (inputs >= lineLen) {
        copySamples16(pSrc + (inputs - lineLen), D, lineLen);
    } else {
        std::memmove(D, D + inputs, lineBytes);
    }
}

// In place, in chunks through pStaging: of a filter that does not give more outputs than it takes samples.
template <class State>
void filterInChunks(State* state, typename State::Sample* pSrcDst, int numIters, const SumScaling& scaling) {
    auto* const staging = state->pStaging.get();
    auto* pSrc = pSrcDst;
    const int most = std::max(stagingLen(state->rates()) / state->upFactor, 1);
    while (numIters > 0) {
        const int chunk = std::min(numIters, most);
        const int outputs = chunk * state->upFactor;
        filterBlock(state, pSrc, staging, chunk, scaling);
        pSrc += std::ptrdiff_t{chunk} * state->downFactor;
        copySamples16(staging, pSrcDst, outputs);
        pSrcDst += outputs;
        numIters -= chunk;
    }
}

} // namespace orbs
