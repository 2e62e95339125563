// FIRLMS: states with float taps, and the filter over blocks.
#include "adaptive/state.h"
#include "filters/samples.h"
#include "orbs/adaptive.h"

#include <new>

namespace {

using namespace orbs;

// From so many taps on a caller finds the ring turned, and below them its oldest sample at 0.
constexpr int turnsFromTaps = 80;

template <class State>
using SampleOf = typename State::Sample;

template <class State>
void writeDlyLine(State* state, const SampleOf<State>* pDlyLine, int dlyLineIndex) {
    const Orb32s length = state->tapsLen, index = placeInRing(dlyLineIndex, length);
    Orb32f* const D = state->pDlyLine;
    state->dlyLineIndex = index;
    std::fill_n(D, length, 0.0f);
    if (!pDlyLine) return;
    for (Orb32s n = 0; n < length; ++n)
        D[n] = static_cast<Orb32f>(pDlyLine[n < length - index ? index + n : n - (length - index)]);
}

template <class State>
OrbStatus initAlloc(State** ppState, const Orb32f* pTaps, int tapsLen, const SampleOf<State>* pDlyLine,
                    int dlyLineIndex) {
    if (anyNull(ppState)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsSizeErr;
    const std::uint64_t size = LmsAreas<State>(nullptr, tapsLen).size;
    Orb8u* const block = allocateLmsState(size);
    if (!block) return orbStsMemAllocErr;
    std::memset(block, 0, size);

    const LmsAreas<State> areas(block, tapsLen);
    State* const state = new (areas.head) State{};
    state->tag = State::ownTag;
    state->pTaps = areas.taps;
    state->pDlyLine = areas.dlyLine;
    state->pStaging = areas.staging;
    state->tapsLen = tapsLen;
    if (pTaps) {
        const LmsRows rows(tapsLen);
        for (int k = 0; k < tapsLen; ++k)
            areas.taps[rows.placeOf(static_cast<std::size_t>(k))] = pTaps[tapsLen - 1 - k];
    }
    writeDlyLine(state, pDlyLine, dlyLineIndex);
    *ppState = state;
    return orbStsNoErr;
}

template <class State>
OrbStatus getTaps(const State* pState, Orb32f* pTaps) {
    if (const OrbStatus status = checkLmsState(pState, pTaps)) return status;
    const LmsRows rows(pState->tapsLen);
    const Orb32f* const taps = pState->pTaps;
    for (int k = 0; k < pState->tapsLen; ++k)
        pTaps[pState->tapsLen - 1 - k] = taps[rows.placeOf(static_cast<std::size_t>(k))];
    return orbStsNoErr;
}

template <class State>
OrbStatus getDlyLine(const State* pState, SampleOf<State>* pDlyLine, int* pDlyLineIndex) {
    if (const OrbStatus status = checkLmsState(pState, pDlyLine, pDlyLineIndex)) return status;
    const Orb32s length = pState->tapsLen, index = pState->dlyLineIndex;
    const Orb32f* const D = pState->pDlyLine;
    for (Orb32s n = 0; n < length; ++n)
        pDlyLine[n] = static_cast<SampleOf<State>>(D[n >= index ? n - index : n + (length - index)]);
    *pDlyLineIndex = index;
    return orbStsNoErr;
}

template <class State>
OrbStatus setDlyLine(State* pState, const SampleOf<State>* pDlyLine, int dlyLineIndex) {
    if (const OrbStatus status = checkLmsState(pState)) return status;
    writeDlyLine(pState, pDlyLine, dlyLineIndex);
    return orbStsNoErr;
}

// At most lmsBlock samples.
template <class State>
void filterBlock(State* state, const SampleOf<State>* pSrc, const SampleOf<State>* pRef, SampleOf<State>* pDst,
                 int count, Orb32f twiceMu) {
    Orb32f* const D = state->pDlyLine;
    const auto outputs = static_cast<std::size_t>(count);
    widen(pSrc, D + state->tapsLen, count);
    if constexpr (std::is_same_v<SampleOf<State>, Orb32f>) {
        lmsFilter(state->pTaps, state->tapsLen, D + 1, pRef, pDst, outputs, twiceMu);
    } else {
        Orb32f* const staging = state->pStaging;
        widen(pRef, staging, count);
        lmsFilter(state->pTaps, state->tapsLen, D + 1, staging, staging, outputs, twiceMu);
        narrow(staging, pDst, count, 0);
    }
    std::memmove(D, D + count, static_cast<std::size_t>(state->tapsLen) * sizeof *D);
}

template <class State>
OrbStatus filter(const SampleOf<State>* pSrc, const SampleOf<State>* pRef, SampleOf<State>* pDst, int len, Orb32f mu,
                 State* pState) {
    if (const OrbStatus status = checkVectors(len, pSrc, pRef, pDst, pState)) return status;
    if (const OrbStatus status = checkTag(pState, State::ownTag)) return status;
    for (int done = 0; done < len;) {
        const int count = std::min(len - done, lmsBlock);
        filterBlock(pState, pSrc + done, pRef + done, pDst + done, count, mu + mu);
        done += count;
    }
    pState->dlyLineIndex =
        pState->tapsLen < turnsFromTaps ? 0 : placeInRing(std::int64_t{pState->dlyLineIndex} + len, pState->tapsLen);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRLMSInitAlloc_32f(OrbsFIRLMSState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine, int dlyLineIndex) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMSFree_32f(OrbsFIRLMSState_32f* pState) { return freeLmsState(pState); }
OrbStatus orbsFIRLMSGetTaps_32f(const OrbsFIRLMSState_32f* pState, Orb32f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRLMSGetDlyLine_32f(const OrbsFIRLMSState_32f* pState, Orb32f* pDlyLine, int* pDlyLineIndex) { return getDlyLine(pState, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIRLMSSetDlyLine_32f(OrbsFIRLMSState_32f* pState, const Orb32f* pDlyLine, int dlyLineIndex) { return setDlyLine(pState, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMSInitAlloc32f_16s(OrbsFIRLMSState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, int dlyLineIndex) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMSFree32f_16s(OrbsFIRLMSState32f_16s* pState) { return freeLmsState(pState); }
OrbStatus orbsFIRLMSGetTaps32f_16s(const OrbsFIRLMSState32f_16s* pState, Orb32f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRLMSGetDlyLine32f_16s(const OrbsFIRLMSState32f_16s* pState, Orb16s* pDlyLine, int* pDlyLineIndex) { return getDlyLine(pState, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIRLMSSetDlyLine32f_16s(OrbsFIRLMSState32f_16s* pState, const Orb16s* pDlyLine, int dlyLineIndex) { return setDlyLine(pState, pDlyLine, dlyLineIndex); }
OrbStatus orbsFIRLMS_32f(const Orb32f* pSrc, const Orb32f* pRef, Orb32f* pDst, int len, Orb32f mu, OrbsFIRLMSState_32f* pState) { return filter(pSrc, pRef, pDst, len, mu, pState); }
OrbStatus orbsFIRLMS32f_16s(const Orb16s* pSrc, const Orb16s* pRef, Orb16s* pDst, int len, Orb32f mu, OrbsFIRLMSState32f_16s* pState) { return filter(pSrc, pRef, pDst, len, mu, pState); }

}
// clang-format on
