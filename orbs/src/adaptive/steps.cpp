// FIRLMSMR: adaptive filters of integers, whose steps are calls of their own. All arithmetic wraps in 32 bits.
#include "adaptive/cycle.h"
#include "orbs/adaptive.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

using namespace orbs;

// One block: the head, the taps, the line.
template <class TapType, class SampleType, Orb32s tagOfKind>
struct SteppedState {
    using Tap = TapType;
    using Sample = SampleType;
    static constexpr Orb32s ownTag = tagOfKind;

    Orb32s tag;
    RelativePtr<Tap> pTaps;       // oldest sample's first
    RelativePtr<Sample> pDlyLine; // a ring of dlyLen samples, and the same once more, so that no run of it wraps
    Orb32s tapsLen;
    Orb32s dlyStep;
    Orb32s dlyLen;
    Orb32s updateDly;
    Orb32s dlyLineIndex; // the oldest sample
    Orb32s mu;
    Orb32s muShift; // 0
};

} // namespace

struct OrbsFIRLMSMRState32s_16s : SteppedState<Orb32s, Orb16s, tagWord("LMSR")> {};
struct OrbsFIRLMSMRState32sc_16sc : SteppedState<Orb32sc, Orb16sc, tagWord("LMSC")> {};

static_assert(sizeof(OrbsFIRLMSMRState32s_16s) == 40);

namespace {

template <class State>
using TapOf = typename State::Tap;
template <class State>
using SampleOf = typename State::Sample;

// ---- Arithmetic ----

Orb32u product(Orb32s a, Orb32s b) {
    return static_cast<Orb32u>(a) * static_cast<Orb32u>(b);
}
Orb32s plus(Orb32s a, Orb32u b) {
    return static_cast<Orb32s>(static_cast<Orb32u>(a) + b);
}
Orb32s plusProduct(Orb32s sum, Orb32s a, Orb16s x) {
    return plus(sum, product(a, x));
}
Orb32sc plusProduct(Orb32sc sum, Orb32sc a, Orb16sc x) {
    return {plus(sum.re, product(a.re, x.re) - product(a.im, x.im)),
            plus(sum.im, product(a.re, x.im) + product(a.im, x.re))};
}

Orb32s upperHalf(Orb32s tap) {
    return tap >> 16;
}
Orb32sc upperHalf(Orb32sc tap) {
    return {tap.re >> 16, tap.im >> 16};
}

Orb32s adaptation(Orb32s mu, Orb32s error) {
    return plus(16384, product(mu, error)) >> 15;
}
Orb32sc adaptation(Orb32s mu, Orb32sc error) {
    return {adaptation(mu, error.re), adaptation(mu, error.im)};
}

// body(tap, sample) for each tap and the sample it meets, oldest first. The taps of most filters meet neighbours.
template <class Tap, class Sample, class Body>
void forEachTap(Tap* taps, const Sample* oldest, Orb32s tapsLen, Orb32s dlyStep, Body body) {
    const auto count = static_cast<std::ptrdiff_t>(tapsLen), step = static_cast<std::ptrdiff_t>(dlyStep);
    if (step == 1) {
        for (std::ptrdiff_t k = 0; k < count; ++k) body(taps[k], oldest[k]);
    } else {
        for (std::ptrdiff_t k = 0; k < count; ++k) body(taps[k], oldest[k * step]);
    }
}

template <class State>
void put(State* state, SampleOf<State> val) {
    const auto index = static_cast<std::ptrdiff_t>(state->dlyLineIndex);
    SampleOf<State>* const line = state->pDlyLine;
    line[index] = line[index + state->dlyLen] = val;
    state->dlyLineIndex = index + 1 < state->dlyLen ? static_cast<Orb32s>(index + 1) : 0;
}

template <class State>
TapOf<State> output(const State* state) {
    const SampleOf<State>* const oldest =
        state->pDlyLine.get() + state->dlyLineIndex + state->updateDly + (state->dlyStep - 1);
    TapOf<State> sum{};
    forEachTap(state->pTaps.get(), oldest, state->tapsLen, state->dlyStep,
               [&](TapOf<State> tap, SampleOf<State> x) { sum = plusProduct(sum, upperHalf(tap), x); });
    return sum;
}

// ---- Shapes ----

template <class State>
void writeTaps(State* state, const TapOf<State>* pTaps) {
    TapOf<State>* const taps = state->pTaps;
    if (pTaps) {
        std::reverse_copy(pTaps, pTaps + state->tapsLen, taps);
    } else {
        std::fill_n(taps, state->tapsLen, TapOf<State>{});
    }
}

template <class State>
void writeDlyLine(State* state, const SampleOf<State>* pDlyLine, int dlyLineIndex) {
    SampleOf<State>* const line = state->pDlyLine;
    state->dlyLineIndex = placeInRing(dlyLineIndex, state->dlyLen);
    for (SampleOf<State>* half : {line, line + state->dlyLen}) {
        if (pDlyLine) {
            std::copy_n(pDlyLine, state->dlyLen, half);
        } else {
            std::fill_n(half, state->dlyLen, SampleOf<State>{});
        }
    }
}

template <class State>
struct Areas {
    State* head;
    TapOf<State>* taps;
    SampleOf<State>* line;
    std::uint64_t size;

    Areas(void* base, int tapsLen, std::int64_t dlyLen) {
        Layout layout(base);
        head = layout.take<State>(1, 32);
        taps = layout.take<TapOf<State>>(static_cast<std::uint64_t>(tapsLen), 32);
        line = layout.take<SampleOf<State>>(2 * static_cast<std::uint64_t>(dlyLen), 32);
        size = layout.used();
    }
};

template <class State>
OrbStatus initAlloc(State** ppState, const TapOf<State>* pTaps, int tapsLen, const SampleOf<State>* pDlyLine,
                    int dlyLineIndex, int dlyStep, int updateDly, int mu) {
    if (anyNull(ppState)) return orbStsNullPtrErr;
    if (tapsLen < 1 || dlyStep < 1) return orbStsSizeErr;
    if (updateDly < 0) return orbStsBadArgErr;
    const std::int64_t dlyLen = std::int64_t{tapsLen} * dlyStep + updateDly;
    if (dlyLineIndex < 0 || dlyLineIndex >= dlyLen) return orbStsSizeErr;
    if (dlyLen > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* const block = allocateLmsState(Areas<State>(nullptr, tapsLen, dlyLen).size);
    if (!block) return orbStsMemAllocErr;

    const Areas<State> areas(block, tapsLen, dlyLen);
    State* const state = new (areas.head) State{};
    state->tag = State::ownTag;
    state->pTaps = areas.taps;
    state->pDlyLine = areas.line;
    state->tapsLen = tapsLen;
    state->dlyStep = dlyStep;
    state->dlyLen = static_cast<Orb32s>(dlyLen);
    state->updateDly = updateDly;
    state->mu = mu;
    writeTaps(state, pTaps);
    writeDlyLine(state, pDlyLine, dlyLineIndex);
    *ppState = state;
    return orbStsNoErr;
}

template <class State>
OrbStatus setTaps(State* pState, const TapOf<State>* pTaps) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    writeTaps(pState, pTaps);
    return orbStsNoErr;
}

template <class State>
OrbStatus getTaps(const State* pState, TapOf<State>* pTaps) {
    if (const OrbStatus status = checkLmsState(pState, pTaps)) return status;
    std::reverse_copy(pState->pTaps.get(), pState->pTaps.get() + pState->tapsLen, pTaps);
    return orbStsNoErr;
}

template <class State>
OrbStatus getTapsPointer(State* pState, TapOf<State>** ppTaps) {
    if (anyNull(pState, ppTaps)) return orbStsNullPtrErr;
    *ppTaps = pState->pTaps;
    return orbStsNoErr;
}

template <class State>
OrbStatus setMu(State* pState, int mu) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    pState->mu = mu;
    return orbStsNoErr;
}

template <class State>
OrbStatus setDlyLine(State* pState, const SampleOf<State>* pDlyLine, int dlyLineIndex) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    writeDlyLine(pState, pDlyLine, dlyLineIndex);
    return orbStsNoErr;
}

template <class State>
OrbStatus getDlyLine(const State* pState, SampleOf<State>* pDlyLine, int* pDlyLineIndex) {
    if (const OrbStatus status = checkLmsState(pState, pDlyLine, pDlyLineIndex)) return status;
    std::copy_n(pState->pDlyLine.get(), pState->dlyLen, pDlyLine);
    *pDlyLineIndex = pState->dlyLineIndex;
    return orbStsNoErr;
}

template <class State>
OrbStatus getDlyVal(const State* pState, SampleOf<State>* pVal, int index) {
    if (const OrbStatus status = checkLmsState(pState, pVal)) return status;
    if (index < 0 || index > pState->dlyLen) return orbStsBadArgErr;
    const std::int64_t behind = std::int64_t{pState->updateDly} + pState->dlyStep - 1 + index;
    *pVal = pState->pDlyLine[placeInRing(pState->dlyLineIndex + behind, pState->dlyLen)];
    return orbStsNoErr;
}

template <class State>
OrbStatus putVal(SampleOf<State> val, State* pState) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    put(pState, val);
    return orbStsNoErr;
}

template <class State>
OrbStatus one(TapOf<State>* pDstVal, const State* pState) {
    if (const OrbStatus status = checkLmsState(pState, pDstVal)) return status;
    *pDstVal = output(pState);
    return orbStsNoErr;
}

template <class State>
OrbStatus oneVal(SampleOf<State> val, TapOf<State>* pDstVal, State* pState) {
    if (const OrbStatus status = checkLmsState(pState, pDstVal)) return status;
    put(pState, val);
    *pDstVal = output(pState);
    return orbStsNoErr;
}

template <class State>
OrbStatus updateTaps(State* pState, TapOf<State> error) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    const TapOf<State> d = adaptation(pState->mu, error);
    const SampleOf<State>* const oldest = pState->pDlyLine.get() + pState->dlyLineIndex + (pState->dlyStep - 1);
    forEachTap(pState->pTaps.get(), oldest, pState->tapsLen, pState->dlyStep,
               [d](TapOf<State>& tap, SampleOf<State> x) { tap = plusProduct(tap, d, x); });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRLMSMRInitAlloc32s_16s(OrbsFIRLMSMRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, const Orb16s* pDlyLine, int dlyLineIndex, int dlyStep, int updateDly, int mu) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyLineIndex, dlyStep, updateDly, mu); }
OrbStatus orbsFIRLMSMRFree32s_16s(OrbsFIRLMSMRState32s_16s* pState) { return freeLmsState(pState); }
OrbStatus orbsFIRLMSMRSetTaps32s_16s(OrbsFIRLMSMRState32s_16s* pState, const Orb32s* pTaps) { return setTaps(pState, pTaps); }
OrbStatus orbsFIRLMSMRGetTaps32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb32s* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRLMSMRGetTapsPointer32s_16s(OrbsFIRLMSMRState32s_16s* pState, Orb32s** ppTaps) { return getTapsPointer(pState, ppTaps); }
OrbStatus orbsFIRLMSMRSetMu32s_16s(OrbsFIRLMSMRState32s_16s* pState, int mu) { return setMu(pState, mu); }
OrbStatus orbsFIRLMSMRSetDlyLine32s_16s(OrbsFIRLMSMRState32s_16s* pState, const Orb16s* pDlyLine, int dlyLineIndex) { return setDlyLine(pState, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMSMRGetDlyLine32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb16s* pDlyLine, int* pDlyLineIndex) { return getDlyLine(pState, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIRLMSMRGetDlyVal32s_16s(const OrbsFIRLMSMRState32s_16s* pState, Orb16s* pVal, int index) { return getDlyVal(pState, pVal, index); }
OrbStatus orbsFIRLMSMRInitAlloc32sc_16sc(OrbsFIRLMSMRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, const Orb16sc* pDlyLine, int dlyLineIndex, int dlyStep, int updateDly, int mu) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyLineIndex, dlyStep, updateDly, mu); }
OrbStatus orbsFIRLMSMRFree32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState) { return freeLmsState(pState); }
OrbStatus orbsFIRLMSMRSetTaps32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, const Orb32sc* pTaps) { return setTaps(pState, pTaps); }
OrbStatus orbsFIRLMSMRGetTaps32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb32sc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRLMSMRGetTapsPointer32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, Orb32sc** ppTaps) { return getTapsPointer(pState, ppTaps); }
OrbStatus orbsFIRLMSMRSetMu32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, int mu) { return setMu(pState, mu); }
OrbStatus orbsFIRLMSMRSetDlyLine32sc_16sc(OrbsFIRLMSMRState32sc_16sc* pState, const Orb16sc* pDlyLine, int dlyLineIndex) { return setDlyLine(pState, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMSMRGetDlyLine32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb16sc* pDlyLine, int* pDlyLineIndex) { return getDlyLine(pState, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIRLMSMRGetDlyVal32sc_16sc(const OrbsFIRLMSMRState32sc_16sc* pState, Orb16sc* pVal, int index) { return getDlyVal(pState, pVal, index); }
OrbStatus orbsFIRLMSMRPutVal32s_16s(Orb16s val, OrbsFIRLMSMRState32s_16s* pState) { return putVal(val, pState); }
OrbStatus orbsFIRLMSMROne32s_16s(Orb32s* pDstVal, OrbsFIRLMSMRState32s_16s* pState) { return one(pDstVal, pState); }
OrbStatus orbsFIRLMSMROneVal32s_16s(Orb16s val, Orb32s* pDstVal, OrbsFIRLMSMRState32s_16s* pState) { return oneVal(val, pDstVal, pState); }
OrbStatus orbsFIRLMSMRUpdateTaps32s_16s(Orb32s errVal, OrbsFIRLMSMRState32s_16s* pState) { return updateTaps(pState, errVal); }
OrbStatus orbsFIRLMSMRPutVal32sc_16sc(Orb16sc val, OrbsFIRLMSMRState32sc_16sc* pState) { return putVal(val, pState); }
OrbStatus orbsFIRLMSMROne32sc_16sc(Orb32sc* pDstVal, OrbsFIRLMSMRState32sc_16sc* pState) { return one(pDstVal, pState); }
OrbStatus orbsFIRLMSMROneVal32sc_16sc(Orb16sc val, Orb32sc* pDstVal, OrbsFIRLMSMRState32sc_16sc* pState) { return oneVal(val, pDstVal, pState); }
OrbStatus orbsFIRLMSMRUpdateTaps32sc_16sc(Orb32s errRe, Orb32s errIm, OrbsFIRLMSMRState32sc_16sc* pState) { return updateTaps(pState, Orb32sc{errRe, errIm}); }

}
// clang-format on
