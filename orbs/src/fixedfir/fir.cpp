// Filtering with a state of 16-bit taps: blocks, blocks in place, single samples.
#include "fixedfir/block.h"

namespace {

using namespace orbs;

template <class State>
using SampleOf = typename State::Sample;

template <class State>
OrbStatus checkFilter(const State* state) {
    const bool known = state->tag == State::singleRateTag || state->tag == State::multiRateTag;
    return known ? orbStsNoErr : orbStsContextMatchErr;
}

template <class State>
OrbStatus filter(const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters, State* pState, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrc, pDst)) return status;
    if (const OrbStatus status = checkFilter(pState)) return status;
    filterBlock(pState, pSrc, pDst, numIters, scalingOf(pState, scaleFactor));
    return orbStsNoErr;
}

// From a copy of all samples.
template <class State>
OrbStatus filterCopied(SampleOf<State>* pSrcDst, int numIters, State* state, int scaleFactor) {
    const InputCopy<SampleOf<State>> input(pSrcDst, std::int64_t{numIters} * state->downFactor);
    if (!input.get()) return orbStsMemAllocErr;
    filterBlock(state, input.get(), pSrcDst, numIters, scalingOf(state, scaleFactor));
    return orbStsNoErr;
}

// Real filters that change the rate take memory for a copy whatever their rates; complex ones where the outputs are
// more than the samples.
template <class State>
OrbStatus filterInPlace(SampleOf<State>* pSrcDst, int numIters, State* pState, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrcDst)) return status;
    if (const OrbStatus status = checkFilter(pState)) return status;
    if (pState->tag == State::multiRateTag && (State::parts == 1 || pState->upFactor > pState->downFactor))
        return filterCopied(pSrcDst, numIters, pState, scaleFactor);
    filterInChunks(pState, pSrcDst, numIters, scalingOf(pState, scaleFactor));
    return orbStsNoErr;
}

template <class State>
OrbStatus filterMultiRateInPlace(SampleOf<State>* pSrcDst, int numIters, State* pState, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrcDst)) return status;
    if (const OrbStatus status = checkFilter(pState)) return status;
    return filterCopied(pSrcDst, numIters, pState, scaleFactor);
}

template <class State>
OrbStatus filterOne(SampleOf<State> src, SampleOf<State>* pDstVal, State* pState, int scaleFactor) {
    if (anyNull(pState, pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pState, State::singleRateTag)) return status;
    const int tapsLen = pState->tapsLen;
    SampleOf<State>* const D = pState->pDlyLine;
    int index = pState->dlyLineIndex;
    D[index] = D[index + tapsLen] = src;
    index = index + 1 < tapsLen ? index + 1 : 0;
    pState->dlyLineIndex = index;
    filterByTaps<true>(pState, D + index + (tapsLen - 1), pDstVal, 0, 1, scalingOf(pState, scaleFactor));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIR32s_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32s_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32s_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32s_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR32sc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32sc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32sc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR32s_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32s_16s32f_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32s_16s32f_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32s_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR32sc_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32sc_16sc32fc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32sc_16sc32fc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32sc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIRMR32s_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32s_16s* pState, int scaleFactor) { return filterMultiRateInPlace(pSrcDst, numIters, pState, scaleFactor); }

}
// clang-format on
