// States of FIR filters with 16-bit taps: sizes, building, taps, delay line, release.
#include "fixedfir/state.h"

namespace {

using namespace orbs;

template <class State>
using SampleOf = typename State::Sample;

// ---- Sizes ----

// Reported sizes. They were fixed for a layout with shifted copies of the taps; what that is larger than ours is the
// room for aligning the caller's block.
template <class State>
std::uint64_t singleRateSize(std::uint64_t tapsLen) {
    if constexpr (State::parts == 1) {
        const std::uint64_t lanes = (tapsLen + 11) >> 3;
        return roundUp((8 * lanes + 2 * tapsLen + 4) * 2, 16) + (lanes << 6) + roundUp(4 * tapsLen, 16) + 16480;
    } else {
        return (tapsLen + ((8 * tapsLen + 15) >> 4)) * 16 + 80 + roundUp((3 * tapsLen + 4) * 4, 16) + 16400;
    }
}

// As of the multi-rate filters with float taps, with 16-bit elements in the place of floats.
template <class State>
std::uint64_t multiRateSize(std::uint64_t tapsLen, std::uint64_t upFactor, std::uint64_t downFactor) {
    constexpr std::uint64_t parts = State::parts;
    const std::uint64_t reach = roundUp(tapsLen + 3 * downFactor, upFactor);
    const std::uint64_t line = (tapsLen - 1) / upFactor + 1;
    std::uint64_t head = (line / (4 * downFactor) + 1) * (4 * downFactor) + 1;
    for (std::uint64_t periods = (line - 1) / downFactor + 1; periods % 4 != 0; ++periods) head += downFactor;
    return roundUp(4 * parts * tapsLen, 16) + 16 * parts * reach + roundUp(4 * (4 * upFactor + 1), 16) +
           2 * parts * std::max<std::uint64_t>(8 * reach, 4096) + roundUp(2 * parts * (line + head + 1), 16) + 128;
}

template <class State>
std::uint64_t reportedSize(int tapsLen, const Rates& rates) {
    const auto wide = [](int n) { return static_cast<std::uint64_t>(n); };
    if (isOneRate(rates)) return singleRateSize<State>(wide(tapsLen));
    return multiRateSize<State>(wide(tapsLen), wide(rates.upFactor), wide(rates.downFactor));
}

// ---- Shapes ----

template <class State>
OrbStatus getStateSize(int tapsLen, const Rates& rates, int* pBufferSize) {
    if (anyNull(pBufferSize)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    *pBufferSize = static_cast<int>(static_cast<Orb32u>(reportedSize<State>(tapsLen, rates)));
    return orbStsNoErr;
}

template <class State, class Tap>
OrbStatus init(State** ppState, const GivenTaps<Tap>& taps, int tapsLen, const Rates& rates,
               const SampleOf<State>* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(ppState, taps.pTaps, pBuffer)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    // The reported size wrapped, and the caller's block is too short.
    if (reportedSize<State>(tapsLen, rates) > largestBlock) return orbStsMemAllocErr;
    const FixedFirAreas<State> areas(alignUp(pBuffer, 16), tapsLen, rates);
    *ppState = buildFixedFir(areas, taps, tapsLen, rates, pDlyLine);
    return orbStsNoErr;
}

template <class State, class Tap>
OrbStatus initAlloc(State** ppState, const GivenTaps<Tap>& taps, int tapsLen, const Rates& rates,
                    const SampleOf<State>* pDlyLine) {
    if (anyNull(ppState, taps.pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    State* const state = allocateFixedFir<State>(taps, tapsLen, rates, pDlyLine);
    if (!state) return orbStsMemAllocErr;
    *ppState = state;
    return orbStsNoErr;
}

// Of a filter of either kind.
template <class State, class... T>
OrbStatus check(const State* pState, const T*... pointers) {
    if (anyNull(pState, pointers...)) return orbStsNullPtrErr;
    const bool known = pState->tag == State::singleRateTag || pState->tag == State::multiRateTag;
    return known ? orbStsNoErr : orbStsContextMatchErr;
}

template <class State>
OrbStatus release(State* pState) {
    if (const OrbStatus status = check(pState)) return status;
    if (pState->ownsMemory) orbsFree(pState);
    return orbStsNoErr;
}

template <class State, class Tap>
OrbStatus setTaps(const Tap* pTaps, State* pState, int tapsFactor) {
    if (const OrbStatus status = check(pState, pTaps)) return status;
    GivenTaps<Tap>{pTaps, tapsFactor, pState->tag == State::multiRateTag}.writeTo(pState);
    return orbStsNoErr;
}

template <class State>
OrbStatus getTaps(const State* pState, typename State::Tap* pTaps, int* pTapsFactor) {
    if (const OrbStatus status = check(pState, pTaps, pTapsFactor)) return status;
    const auto* const stored = pState->pTaps.get();
    std::reverse_copy(stored, stored + pState->tapsLen, pTaps);
    *pTapsFactor = pState->tapsFactor;
    return orbStsNoErr;
}

template <class State, class Tap>
OrbStatus getFloatTaps(const State* pState, Tap* pTaps) {
    if (const OrbStatus status = check(pState, pTaps)) return status;
    const Orb32f factor = powerModulo128(pState->tapsFactor);
    for (Orb32s n = 0; n < pState->tapsLen; ++n) {
        const auto stored = pState->pTaps[pState->tapsLen - 1 - n];
        if constexpr (isComplex<Tap>) {
            pTaps[n] = {static_cast<Orb32f>(stored.re) * factor, static_cast<Orb32f>(stored.im) * factor};
        } else {
            pTaps[n] = static_cast<Orb32f>(stored) * factor;
        }
    }
    return orbStsNoErr;
}

template <class State>
OrbStatus setDlyLine(State* pState, const SampleOf<State>* pDlyLine) {
    if (const OrbStatus status = check(pState)) return status;
    writeDlyLine(pState, pDlyLine);
    return orbStsNoErr;
}

template <class State>
OrbStatus getDlyLine(const State* pState, SampleOf<State>* pDlyLine) {
    if (const OrbStatus status = check(pState, pDlyLine)) return status;
    readDlyLine(pState, pDlyLine);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRGetStateSize32s_16s(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32s_16s>(tapsLen, oneRate, pBufferSize); }
OrbStatus orbsFIRInit32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, tapsFactor, false}, tapsLen, oneRate, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, const Orb16s* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, tapsFactor, false}, tapsLen, oneRate, pDlyLine); }
OrbStatus orbsFIRFree32s_16s(OrbsFIRState32s_16s* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32s_16s(const Orb32s* pTaps, OrbsFIRState32s_16s* pState, int tapsFactor) { return setTaps(pTaps, pState, tapsFactor); }
OrbStatus orbsFIRGetTaps32s_16s(const OrbsFIRState32s_16s* pState, Orb32s* pTaps, int* pTapsFactor) { return getTaps(pState, pTaps, pTapsFactor); }
OrbStatus orbsFIRSetDlyLine32s_16s(OrbsFIRState32s_16s* pState, const Orb16s* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32s_16s(const OrbsFIRState32s_16s* pState, Orb16s* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRMRGetStateSize32s_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32s_16s>(tapsLen, Rates{upFactor, 0, downFactor, 0}, pBufferSize); }
OrbStatus orbsFIRMRInit32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, tapsFactor, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer); }
OrbStatus orbsFIRMRInitAlloc32s_16s(OrbsFIRState32s_16s** ppState, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, tapsFactor, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine); }

OrbStatus orbsFIRGetStateSize32sc_16sc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32sc_16sc>(tapsLen, oneRate, pBufferSize); }
OrbStatus orbsFIRInit32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, tapsFactor, false}, tapsLen, oneRate, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, const Orb16sc* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, tapsFactor, false}, tapsLen, oneRate, pDlyLine); }
OrbStatus orbsFIRFree32sc_16sc(OrbsFIRState32sc_16sc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32sc_16sc(const Orb32sc* pTaps, OrbsFIRState32sc_16sc* pState, int tapsFactor) { return setTaps(pTaps, pState, tapsFactor); }
OrbStatus orbsFIRGetTaps32sc_16sc(const OrbsFIRState32sc_16sc* pState, Orb32sc* pTaps, int* pTapsFactor) { return getTaps(pState, pTaps, pTapsFactor); }
OrbStatus orbsFIRSetDlyLine32sc_16sc(OrbsFIRState32sc_16sc* pState, const Orb16sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32sc_16sc(const OrbsFIRState32sc_16sc* pState, Orb16sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRMRGetStateSize32sc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32sc_16sc>(tapsLen, Rates{upFactor, 0, downFactor, 0}, pBufferSize); }
OrbStatus orbsFIRMRInit32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, tapsFactor, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer); }
OrbStatus orbsFIRMRInitAlloc32sc_16sc(OrbsFIRState32sc_16sc** ppState, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, tapsFactor, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine); }

OrbStatus orbsFIRGetStateSize32s_16s32f(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32s_16s>(tapsLen, oneRate, pBufferSize); }
OrbStatus orbsFIRInit32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, 0, false}, tapsLen, oneRate, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, 0, false}, tapsLen, oneRate, pDlyLine); }
OrbStatus orbsFIRFree32s_16s32f(OrbsFIRState32s_16s* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32s_16s32f(const Orb32f* pTaps, OrbsFIRState32s_16s* pState) { return setTaps(pTaps, pState, 0); }
OrbStatus orbsFIRGetTaps32s_16s32f(const OrbsFIRState32s_16s* pState, Orb32f* pTaps) { return getFloatTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine32s_16s32f(OrbsFIRState32s_16s* pState, const Orb16s* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32s_16s32f(const OrbsFIRState32s_16s* pState, Orb16s* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRMRGetStateSize32s_16s32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32s_16s>(tapsLen, Rates{upFactor, 0, downFactor, 0}, pBufferSize); }
OrbStatus orbsFIRMRInit32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, 0, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer); }
OrbStatus orbsFIRMRInitAlloc32s_16s32f(OrbsFIRState32s_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, 0, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine); }

OrbStatus orbsFIRGetStateSize32sc_16sc32fc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32sc_16sc>(tapsLen, oneRate, pBufferSize); }
OrbStatus orbsFIRInit32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, 0, false}, tapsLen, oneRate, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, 0, false}, tapsLen, oneRate, pDlyLine); }
OrbStatus orbsFIRFree32sc_16sc32fc(OrbsFIRState32sc_16sc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32sc_16sc32fc(const Orb32fc* pTaps, OrbsFIRState32sc_16sc* pState) { return setTaps(pTaps, pState, 0); }
OrbStatus orbsFIRGetTaps32sc_16sc32fc(const OrbsFIRState32sc_16sc* pState, Orb32fc* pTaps) { return getFloatTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine32sc_16sc32fc(OrbsFIRState32sc_16sc* pState, const Orb16sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32sc_16sc32fc(const OrbsFIRState32sc_16sc* pState, Orb16sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRMRGetStateSize32sc_16sc32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32sc_16sc>(tapsLen, Rates{upFactor, 0, downFactor, 0}, pBufferSize); }
OrbStatus orbsFIRMRInit32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, GivenTaps{pTaps, 0, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer); }
OrbStatus orbsFIRMRInitAlloc32sc_16sc32fc(OrbsFIRState32sc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine) { return initAlloc(ppState, GivenTaps{pTaps, 0, true}, tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, pDlyLine); }

}
// clang-format on
