// A block of samples through a filter with 16-bit taps: its first outputs are worked out behind the delay line, in D;
// the others from the caller's samples in place.
#pragma once

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

// Outputs `first` to first + count - 1 of a block, lanes being taps; x is its sample 0.
template <class State>
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

    const Orb16s *h[4], *from[4];
    const auto next = [&](std::size_t k) {
        for (std::size_t p = 0; p < parts; ++p) {
            h[k * parts + p] = rows + phase * stride + p * rowParts;
            from[k * parts + p] = origin + newest[phase] * signedParts;
        }
        if (++phase == phases) phase = 0, origin += period;
    };
    for (; count >= static_cast<std::int64_t>(group); count -= group, y += 4) {
        for (std::size_t k = 0; k < group; ++k) next(k);
        storeResults<4>(dotProducts(h, from, rowParts), scaling, y);
    }
    for (; count > 0; --count, y += parts) {
        next(0);
        const Orb16s *h1[parts], *from1[parts];
        std::copy_n(h, parts, h1);
        std::copy_n(from, parts, from1);
        storeResults<parts>(dotProducts(h1, from1, rowParts), scaling, y);
    }
}

// The words of the only row of a single-rate filter: of real taps from an even place on.
template <class State>
RowWords<typename State::Sample> wordsOf(const State* state) {
    constexpr std::size_t parts = State::parts;
    const auto rowLen = static_cast<std::size_t>(state->rowLen), tapsLen = static_cast<std::size_t>(state->tapsLen);
    const std::size_t used = parts == 1 ? roundUp(tapsLen, 2) : tapsLen;
    return {state->pRows + (rowLen - used) * parts, used * parts / 2, rowLen * parts};
}

template <class State>
void filterRun(const State* state, const typename State::Sample* x, typename State::Sample* pDst, std::int64_t first,
               std::int64_t count, const SumScaling& scaling) {
    if (state->tag == State::multiRateTag || count * static_cast<std::int64_t>(State::parts) < std::int64_t{leastParts})
        return filterByTaps(state, x, pDst, first, count, scaling);
    const auto words = wordsOf(state);
    const auto used = static_cast<std::ptrdiff_t>(words.count * 2 / State::parts);
    filterSamples(words, x + static_cast<std::ptrdiff_t>(first) - (used - 1), pDst, static_cast<std::size_t>(count),
                  scaling);
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

// In place, in chunks through pStaging. Of a filter that changes the rate, an output comes no earlier than the sample
// in its place was read: there are no more of them.
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

// A copy of the samples of a call in place whose outputs must not meet them.
template <class T>
class InputCopy {
public:
    InputCopy(const T* src, std::int64_t count) {
        const std::int64_t bytes = count * static_cast<std::int64_t>(sizeof(T));
        if (bytes > std::numeric_limits<int>::max()) return;
        copy_ = reinterpret_cast<T*>(orbsMalloc_8u(static_cast<int>(bytes)));
        if (copy_) std::memcpy(copy_, src, static_cast<std::size_t>(bytes));
    }
    ~InputCopy() { orbsFree(copy_); }
    InputCopy(const InputCopy&) = delete;
    InputCopy& operator=(const InputCopy&) = delete;
    const T* get() const { return copy_; } // null: there is no memory for it

private:
    T* copy_ = nullptr;
};

} // namespace orbs
