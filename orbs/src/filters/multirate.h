// What a FIR state of the multi-rate kind does: its rows of taps, blocks, blocks in place.
//
//   D, the delay buffer, in the type of the samples: the last dlyLineLen of them, oldest first. Behind these there is
//   room for the first samples of a block, so that outputs which reach back into the line find theirs in one run.
//
// What order the sum of an output has is fixed by taps and rates, so a stream gives the same bits however it is cut.
#pragma once

#include "filters/caller_line.h"
#include "filters/raising.h"
#include "filters/rates.h"
#include "filters/samples.h"
#include "filters/state.h"
#include "foundation/threads.h"

#include <algorithm>
#include <cstring>

namespace orbs {

template <class State>
Rates ratesOf(const State* state) {
    return {state->upFactor, state->upPhase, state->downFactor, state->downPhase};
}

template <class State>
RowPlace* rowPlaces(const State* state) {
    return reinterpret_cast<RowPlace*>(state->pPhaseSkip.get());
}

template <class State>
SampleOf<State>* sampleLine(const State* state) {
    return reinterpret_cast<SampleOf<State>*>(state->pDlyLine.get());
}

// Writes the row of the output that meets the samples as told, for taps in natural order.
template <class Tap>
RowPlace writeRow(Meeting meeting, const Tap* pTaps, std::int64_t tapsLen, std::int64_t upFactor, std::size_t rowLen,
                  Tap* row) {
    std::size_t at = rowLen;
    for (std::int64_t n = meeting.tap; n < tapsLen; n += upFactor) row[--at] = pTaps[n];
    std::fill_n(row, at, Tap{});
    return {static_cast<Orb32s>(meeting.newest + 1 - static_cast<std::int64_t>(rowLen)),
            static_cast<Orb32s>(at * partCount<Tap>)};
}

template <class State>
Rows<TapOf<State>> rowsOf(const State* state) {
    using Tap = TapOf<State>;
    const std::int64_t up = state->upFactor, taps = state->dlyLineLen, rows = periodRows(up);
    const std::size_t lanes = dotLanes<Part<Tap>, Tap>(taps), groups = dotGroups<Part<Tap>, Tap>(taps);
    const bool whole = state->tapsLen == taps * up && static_cast<std::size_t>(taps) * partCount<Tap> == lanes * groups;
    return {state->pTapsAux, rowPlaces(state), rows, rows / up * state->downFactor, lanes, groups, whole};
}

// Taps in natural order into a state whose rates are set.
template <class State>
OrbStatus setMultiRateTaps(State* state, const TapOf<State>* pTaps) {
    std::reverse_copy(pTaps, pTaps + state->tapsLen, state->pTaps.get());
    const Rates rates = ratesOf(state);
    const std::size_t rowLen = rowsOf(state).rowLen();
    TapOf<State>* row = state->pTapsAux;
    for (std::int64_t m = 0; m < storedRows(state->upFactor); ++m, row += rowLen)
        rowPlaces(state)[m] = writeRow(rates.of(m), pTaps, state->tapsLen, state->upFactor, rowLen, row);
    return orbStsNoErr;
}

// Outputs first to first + count - 1 into pDst and on; samples[0] is the first one of the block.
template <class State>
void runRows(const State* state, const SampleOf<State>* samples, std::int64_t first, std::size_t count,
             SampleOf<State>* pDst, int scaleFactor) {
    using Tap = TapOf<State>;
    const Rows<Tap> rows = rowsOf(state);
    if constexpr (std::is_same_v<Tap, SampleOf<State>>) {
        if constexpr (!isComplex<Tap>)
            if (state->downFactor == 1)
                return phaseRun(rows, static_cast<std::size_t>(state->upFactor), samples, first, count, pDst);
        dotRun(rows, samples, first, count, asParts(pDst));
    } else {
        constexpr std::size_t most = 256;
        Tap outputs[most];
        for (std::size_t run; count > 0; count -= run, pDst += run, first += static_cast<std::int64_t>(run)) {
            run = std::min(count, most);
            dotRun(rows, samples, first, run, asParts(outputs));
            // Conversions of so few elements leave upper halves of registers in use.
            if (run < 4) {
                for (std::size_t n = 0; n < run; ++n) pDst[n] = narrowOne<SampleOf<State>>(outputs[n], scaleFactor);
            } else {
                narrow(outputs, pDst, static_cast<std::ptrdiff_t>(run), scaleFactor);
            }
        }
    }
}

// A block of numIters periods; pDst must not overlap pSrc.
template <class State>
OrbStatus filterMultiRate(State* state, const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters,
                          int scaleFactor) {
    using Sample = SampleOf<State>;
    const std::ptrdiff_t inputs = std::ptrdiff_t{numIters} * state->downFactor, line = state->dlyLineLen;
    const std::int64_t outputs = std::int64_t{numIters} * state->upFactor;
    const auto reach = static_cast<std::ptrdiff_t>(rowsOf(state).rowLen()) - 1;
    Sample* const D = sampleLine(state);
    std::copy_n(pSrc, std::min(inputs, reach), D + line);
    const std::int64_t head = std::min(outputs, ratesOf(state).firstThatMeets(reach));
    runRows(state, D + line, 0, static_cast<std::size_t>(head), pDst, scaleFactor);

    const auto rest = static_cast<std::size_t>(outputs - head);
    EqualRuns runs{rest, 1};
    const auto runRest = [&](std::size_t k) {
        const std::int64_t first = head + static_cast<std::int64_t>(runs.first(k));
        runRows(state, pSrc, first, runs.count(k), pDst + static_cast<std::ptrdiff_t>(first), scaleFactor);
    };
    if (numIters <= State::Rules::teamAbove) {
        runRest(0);
    } else {
        spreadOverTeam([&](int team) { runs.runs = static_cast<std::size_t>(team); },
                       [&](int thread, int) -> OrbStatus {
                           runRest(static_cast<std::size_t>(thread));
                           return orbStsNoErr;
                       });
    }

    const std::ptrdiff_t fresh = std::min(inputs, line);
    std::memmove(D, D + fresh, static_cast<std::size_t>(line - fresh) * sizeof(Sample));
    std::copy_n(pSrc + inputs - fresh, fresh, D + line - fresh);
    return orbStsNoErr;
}

// More outputs than samples need a copy of these. Else the outputs of some periods at a time are worked out before they
// are written over samples that are no longer needed.
template <class State>
OrbStatus filterMultiRateInPlace(State* state, SampleOf<State>* pSrcDst, int numIters, int scaleFactor) {
    using Sample = SampleOf<State>;
    const std::ptrdiff_t up = state->upFactor, down = state->downFactor;
    if (up > down) {
        const InputCopy<Sample> input(pSrcDst, std::int64_t{numIters} * down);
        if (!input.get()) return orbStsMemAllocErr;
        return filterMultiRate(state, input.get(), pSrcDst, numIters, scaleFactor);
    }
    Sample* const staging = reinterpret_cast<Sample*>(state->pStaging.get());
    const Sample* src = pSrcDst;
    for (int rest = numIters; rest > 0;) {
        const int periods = std::min(rest, state->mrCount);
        if (const OrbStatus status = filterMultiRate(state, src, staging, periods, scaleFactor)) return status;
        std::copy_n(staging, periods * up, pSrcDst);
        rest -= periods;
        src += periods * down;
        pSrcDst += periods * up;
    }
    return orbStsNoErr;
}

} // namespace orbs
