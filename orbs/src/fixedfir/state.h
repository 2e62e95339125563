// The state object of a FIR filter with 16-bit taps, single- or multi-rate: one block of memory, no address inside.
//
//   D, the delay line: the last dlyLineLen samples stand at D[dlyLineIndex] and on, oldest first. A single sample is
//   written twice, dlyLineLen apart, so that this run never wraps; a block is written behind the run and leaves it at
//   D[0]. In front of D lie as many zeros as a row of taps is longer than the line.
//
//   A row of taps serves the outputs of one phase: the taps that meet a sample, the oldest sample's first, behind zeros
//   that fill the row up to a multiple of 16 bytes. Complex taps have one row of (re, -im), and one of (im, re) behind.
//   There are zeros on either side of the row of real taps of a single rate.
#pragma once

#include "filters/rates.h"
#include "fixedfir/kernels.h"
#include "fixedfir/taps.h"
#include "foundation/objects.h"
#include "orbs/fixedfir.h"
#include "orbs/foundation.h"

#include <cstdint>
#include <limits>
#include <new>

namespace orbs {

template <class TapType, class SampleType, Orb32s tagOfSingleRate, Orb32s tagOfMultiRate>
struct FixedFirState {
    using Tap = TapType;
    using Sample = SampleType;
    static constexpr Orb32s singleRateTag = tagOfSingleRate, multiRateTag = tagOfMultiRate;
    static constexpr std::size_t parts = partCount<Sample>;

    Orb32s tag;
    RelativePtr<Tap> pTaps;       // within 16 bits, oldest sample's tap first
    RelativePtr<Sample> pDlyLine; // D
    Orb32s tapsLen;
    Orb32s upFactor;
    Orb32s headLen; // samples of a block that are copied behind the line, for the outputs that reach back into it
    Orb32s downFactor;
    Orb32s headOut; // outputs of a block that are worked out there
    Orb32s tapsFactor;
    RelativePtr<Orb16s> pRows; // one for each output of a period, in this order
    Orb32s dlyLineIndex;
    RelativePtr<Orb32s> pNewest; // the youngest sample that each of these outputs meets
    Orb32s rowLen;               // taps of a row
    Orb32s dlyLineLen;
    RelativePtr<Sample> pStaging; // of an in-place call
    Orb32s ownsMemory;
    Orb32s upPhase;
    Orb32s downPhase;
    Orb32s reserved[2];

    Rates rates() const { return {upFactor, upPhase, downFactor, downPhase}; }
    // 16-bit numbers of all rows of a phase.
    std::ptrdiff_t rowStride() const { return std::ptrdiff_t{rowLen} * static_cast<std::ptrdiff_t>(parts * parts); }
};

constexpr Rates oneRate{1, 0, 1, 0};
constexpr bool isOneRate(const Rates& rates) {
    return rates.upFactor == 1 && rates.downFactor == 1;
}

// Outputs that an in-place call works out before it writes them back.
constexpr int stagingLen(const Rates& rates) {
    return isOneRate(rates) ? 4064 : std::max(4096, rates.upFactor);
}

// ---- Layout ----

constexpr std::uint64_t largestBlock = std::numeric_limits<int>::max();

// Where everything lies behind an aligned base; over a null base only the size counts.
template <class State>
struct FixedFirAreas {
    using Sample = typename State::Sample;
    State* head;
    typename State::Tap* taps;
    Orb16s* rows;
    Orb32s* newest;
    Sample *padding, *staging;
    int rowLen, lineLen;
    std::uint64_t besideRows, size; // zeros on either side of the rows

    FixedFirAreas(void* base, int tapsLen, const Rates& rates) {
        const auto wide = [](int n) { return static_cast<std::uint64_t>(n); };
        lineLen = rates.lineLength(tapsLen);
        const std::uint64_t line = wide(lineLen), row = roundUp(line, 8 / State::parts);
        rowLen = static_cast<int>(row);
        Layout block(base);
        head = block.take<State>(1, 16);
        taps = block.take<typename State::Tap>(wide(tapsLen), 16);
        besideRows = State::parts == 1 && isOneRate(rates) ? 8 : 0;
        rows = block.take<Orb16s>(wide(rates.upFactor) * row * State::parts * State::parts + 2 * besideRows, 16);
        newest = block.take<Orb32s>(wide(rates.upFactor), 16);
        padding = block.take<Sample>(row + std::max(line, row), 16);
        staging = block.take<Sample>(wide(stagingLen(rates)), 16);
        size = block.used();
    }
    Sample* delay() const { return padding + (rowLen - lineLen); }
};

// ---- Taps and delay line ----

// Of one phase, from the taps as they are stored.
template <class State>
void writeRow(const State* state, int firstTap, Orb16s* row) {
    const auto rowLen = static_cast<std::size_t>(state->rowLen);
    std::fill_n(row, state->rowStride(), Orb16s{0});
    std::size_t at = rowLen - 1;
    for (std::int64_t n = firstTap; n < state->tapsLen; n += state->upFactor, --at) {
        const auto tap = state->pTaps[state->tapsLen - 1 - n];
        if constexpr (State::parts == 1) {
            row[at] = static_cast<Orb16s>(tap);
        } else {
            const auto re = static_cast<Orb16s>(tap.re), im = static_cast<Orb16s>(tap.im);
            row[2 * at] = re;
            row[2 * at + 1] = static_cast<Orb16s>(-im);
            row[2 * (rowLen + at)] = im;
            row[2 * (rowLen + at) + 1] = re;
        }
    }
}

// Keeps value(n) * 2^-shift for each part of the taps, without what is shifted out, and makes the rows of them.
template <class State, class Value>
void keepTaps(State* state, Value value, int shift) {
    constexpr std::size_t parts = State::parts;
    const auto tapsLen = static_cast<std::size_t>(state->tapsLen);
    Orb32s* const kept = asParts(state->pTaps.get());
    for (std::size_t n = 0; n < tapsLen; ++n)
        for (std::size_t p = 0; p < parts; ++p) kept[(tapsLen - 1 - n) * parts + p] = value(n * parts + p) >> shift;
    const Rates rates = state->rates();
    for (int output = 0; output < state->upFactor; ++output) {
        const Meeting meeting = rates.of(output);
        state->pNewest[output] = static_cast<Orb32s>(meeting.newest);
        writeRow(state, meeting.tap, state->pRows + output * state->rowStride());
    }
}

// Of integers value(n) * 2^tapsFactor.
template <class State, class Value>
void writeIntegers(State* state, Value value, Orb32s tapsFactor) {
    const int shift = fittingShift(static_cast<std::size_t>(state->tapsLen) * State::parts, value);
    state->tapsFactor = static_cast<Orb32s>(static_cast<Orb32u>(tapsFactor) + static_cast<Orb32u>(shift));
    keepTaps(state, value, shift);
}

// What taps a filter is to have: integers with a factor, or floats; these are made integers of 16 bits for a filter of
// one rate, and of 32 bits, which are then taken as such, for one that changes the rate.
template <class Tap>
struct GivenTaps {
    const Tap* pTaps;
    Orb32s tapsFactor;
    bool asForMultiRate;

    template <class State>
    void writeTo(State* state) const {
        const auto* const taps = asParts(pTaps);
        if constexpr (std::is_integral_v<Part<Tap>>) {
            writeIntegers(
                state, [=](std::size_t n) -> Orb32s { return taps[n]; }, tapsFactor);
        } else {
            const std::size_t count = static_cast<std::size_t>(state->tapsLen) * State::parts;
            const FloatTaps floats(taps, count, asForMultiRate ? FloatTaps::inSteps : FloatTaps::toFit);
            const auto value = [&](std::size_t n) { return floats.value(n); };
            if (asForMultiRate) return writeIntegers(state, value, floats.shift());
            state->tapsFactor = floats.shift();
            keepTaps(state, value, 0);
        }
    }
};
template <class Tap>
GivenTaps(const Tap*, Orb32s, bool) -> GivenTaps<Tap>;

// A caller's line is newest sample first. Null clears.
template <class State>
void writeDlyLine(State* state, const typename State::Sample* pDlyLine) {
    state->dlyLineIndex = 0;
    if (pDlyLine) {
        std::reverse_copy(pDlyLine, pDlyLine + state->dlyLineLen, state->pDlyLine.get());
    } else {
        std::fill_n(state->pDlyLine.get(), state->dlyLineLen, typename State::Sample{});
    }
}

template <class State>
void readDlyLine(const State* state, typename State::Sample* pDlyLine) {
    const auto* const line = state->pDlyLine + state->dlyLineIndex;
    std::reverse_copy(line, line + state->dlyLineLen, pDlyLine);
}

// ---- Building ----

template <class State, class Tap>
State* buildFixedFir(const FixedFirAreas<State>& areas, const GivenTaps<Tap>& taps, int tapsLen, const Rates& rates,
                     const typename State::Sample* pDlyLine) {
    State* const state = new (areas.head) State{};
    state->tag = isOneRate(rates) ? State::singleRateTag : State::multiRateTag;
    state->pTaps = areas.taps;
    state->pDlyLine = areas.delay();
    state->tapsLen = tapsLen;
    state->upFactor = rates.upFactor;
    state->downFactor = rates.downFactor;
    state->upPhase = rates.upPhase;
    state->downPhase = rates.downPhase;
    state->pRows = areas.rows + areas.besideRows;
    state->pNewest = areas.newest;
    state->rowLen = areas.rowLen;
    state->dlyLineLen = areas.lineLen;
    state->headLen = areas.rowLen;
    state->headOut = static_cast<Orb32s>(rates.firstThatMeets(state->headLen));
    state->pStaging = areas.staging;
    std::fill(areas.padding, areas.delay(), typename State::Sample{});
    std::fill_n(areas.rows, areas.besideRows, Orb16s{0});
    std::fill_n(state->pRows + rates.upFactor * state->rowStride(), areas.besideRows, Orb16s{0});
    taps.writeTo(state);
    writeDlyLine(state, pDlyLine);
    return state;
}

// In memory of its own; null, if there is none.
template <class State, class Tap>
State* allocateFixedFir(const GivenTaps<Tap>& taps, int tapsLen, const Rates& rates,
                        const typename State::Sample* pDlyLine) {
    const std::uint64_t size = FixedFirAreas<State>(nullptr, tapsLen, rates).size;
    Orb8u* const block = size <= largestBlock ? orbsMalloc_8u(static_cast<int>(size)) : nullptr;
    if (!block) return nullptr;
    State* const state = buildFixedFir(FixedFirAreas<State>(block, tapsLen, rates), taps, tapsLen, rates, pDlyLine);
    state->ownsMemory = 1;
    return state;
}

} // namespace orbs

struct OrbsFIRState32s_16s : orbs::FixedFirState<Orb32s, Orb16s, orbs::tagWord("FI09"), orbs::tagWord("FI11")> {};
struct OrbsFIRState32sc_16sc : orbs::FixedFirState<Orb32sc, Orb16sc, orbs::tagWord("FI10"), orbs::tagWord("FI12")> {};

static_assert(sizeof(OrbsFIRState32s_16s) == 80 && alignof(OrbsFIRState32sc_16sc) == 4);
