// Multi-rate FIR states: which form a filter has, sizes, building; and blocks in place.
#include "filters/multirate.h"
#include "orbs/multirate.h"

#include <new>

namespace {

using namespace orbs;

// ---- Sizes ----

// Forms differ in what is reported for them. It was fixed for tables of several shapes; ours is one, of the rows of a
// period, and fits into each.
enum Form { direct = 1, decimating = 2, indexed = 3 };

template <class State>
Form formOf(int tapsLen, int upFactor, int downFactor) {
    if (isComplex<TapOf<State>>) return indexed;
    const std::int64_t all = tapsLen + 3 * std::int64_t{downFactor};
    const float density = static_cast<float>(tapsLen) / static_cast<float>(all);
    if (upFactor == 1) return density > 0.5f ? direct : decimating;
    return static_cast<double>(density) > 0.3 ? direct : indexed;
}

// The samples of a block that were to run through the delay buffer: the least multiple of 4 * D above the length of a
// dot product and one more, and so many times D that whole periods of four outputs each come from them.
std::uint64_t headLength(std::uint64_t dotLen, std::uint64_t taps, std::uint64_t D) {
    std::uint64_t length = (dotLen / (4 * D) + 1) * 4 * D + 1;
    for (std::uint64_t periods = (D + taps - 1) / D; periods % 4 != 0; ++periods) length += D;
    return length;
}

// Reported sizes. The decimating form has that of the indexed one, whose dot products it shares.
template <class State>
std::uint64_t stateSize(int tapsLen, int upFactor, int downFactor) {
    constexpr std::uint64_t tap = sizeof(TapOf<State>), sample = sizeof(SampleOf<State>);
    const auto L = static_cast<std::uint64_t>(tapsLen), U = static_cast<std::uint64_t>(upFactor),
               D = static_cast<std::uint64_t>(downFactor);
    const std::uint64_t C = (L + U - 1) / U, P = roundUp(L + 3 * D, U);
    const bool isDirect = formOf<State>(tapsLen, upFactor, downFactor) == direct;
    const std::uint64_t head = headLength(isDirect ? P / U : C, C, D);
    const std::uint64_t places = isDirect ? 4 * U + 16 : (4 * U + 1) * 4;
    const std::uint64_t staging = std::max<std::uint64_t>(isDirect ? 4 * P : 8 * P, 4096);
    return roundUp(tap * L, 16) + 4 * tap * P + roundUp(places, 16) + tap * staging +
           roundUp((C + head + 1) * sample, 16) + 128;
}

// ---- Building ----

template <class State>
struct Areas {
    State* head;
    TapOf<State>*taps, *rows;
    RowPlace* places;
    SampleOf<State>*delay, *staging;
    Orb32s periods; // that staging has room for the outputs of
};

// What is left of `size` bytes behind the other areas stages outputs, and of the caller's block what aligns it.
template <class State>
Areas<State> layOut(void* base, std::uint64_t size, int tapsLen, const Rates& rates) {
    using Tap = TapOf<State>;
    const auto taps = static_cast<std::uint64_t>(tapsLen), up = static_cast<std::uint64_t>(rates.upFactor),
               stored = static_cast<std::uint64_t>(storedRows(rates.upFactor));
    const std::int64_t line = rates.lineLength(tapsLen);
    const std::uint64_t rowLen =
        dotLanes<Part<Tap>, Tap>(line) * dotGroups<Part<Tap>, Tap>(line) / std::uint64_t{partCount<Tap>};
    constexpr std::uint64_t cacheLine = 64, toCacheLine = cacheLine - 16, toAlign = 15;
    Layout block(base);
    Areas<State> areas;
    areas.head = block.take<State>(1, 16);
    areas.taps = block.take<Tap>(taps, 16);
    areas.places = block.take<RowPlace>(stored, 16);
    Orb8u* const rows = block.take<Orb8u>(stored * rowLen * sizeof(Tap) + toCacheLine, 16);
    areas.rows = reinterpret_cast<Tap*>(alignUp(rows, cacheLine));
    areas.delay = block.take<SampleOf<State>>(static_cast<std::uint64_t>(line) + rowLen - 1, 16);
    areas.staging = block.take<SampleOf<State>>(0, 16);
    const std::uint64_t left = (size - toAlign - block.used()) / sizeof(SampleOf<State>);
    areas.periods = static_cast<Orb32s>(std::min(left, std::uint64_t{stagingLen}) / up);
    if (areas.periods == 0) areas.periods = 1;
    return areas;
}

template <class State>
State* build(const Areas<State>& areas, const TapOf<State>* pTaps, int tapsLen, const Rates& rates,
             const SampleOf<State>* pDlyLine) {
    State* const state = new (areas.head) State{};
    state->tag = State::multiRateTag;
    state->pTaps = areas.taps;
    state->pDlyLine = reinterpret_cast<TapOf<State>*>(areas.delay);
    state->tapsLen = tapsLen;
    state->upFactor = rates.upFactor;
    state->upPhase = rates.upPhase;
    state->downFactor = rates.downFactor;
    state->downPhase = rates.downPhase;
    state->fftLen = -1;
    state->pPhaseSkip = reinterpret_cast<Orb32s*>(areas.places);
    state->pTapsAux = areas.rows;
    state->mrCount = areas.periods;
    state->mrKind = formOf<State>(tapsLen, rates.upFactor, rates.downFactor);
    state->dlyLineLen = rates.lineLength(tapsLen);
    state->pStaging = reinterpret_cast<TapOf<State>*>(areas.staging);
    setMultiRateTaps(state, pTaps);
    if (pDlyLine) {
        std::reverse_copy(pDlyLine, pDlyLine + state->dlyLineLen, areas.delay);
    } else {
        std::fill_n(areas.delay, state->dlyLineLen, SampleOf<State>{});
    }
    return state;
}

// ---- Shapes ----

template <class State>
OrbStatus getStateSize(int tapsLen, int upFactor, int downFactor, int* pBufferSize,
                       OrbStatus (*singleRate)(int, int*)) {
    if (anyNull(pBufferSize)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, {upFactor, 0, downFactor, 0})) return status;
    if (upFactor == 1 && downFactor == 1) return singleRate(tapsLen, pBufferSize);
    *pBufferSize = static_cast<int>(static_cast<Orb32u>(stateSize<State>(tapsLen, upFactor, downFactor)));
    return orbStsNoErr;
}

// A size that no int holds was reported modulo 2^32, and the caller's block is too short.
template <class State>
OrbStatus init(State** ppState, const TapOf<State>* pTaps, int tapsLen, const Rates& rates,
               const SampleOf<State>* pDlyLine, Orb8u* pBuffer,
               OrbStatus (*singleRate)(State**, const TapOf<State>*, int, const SampleOf<State>*, Orb8u*)) {
    if (anyNull(ppState, pTaps, pBuffer)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    if (rates.upFactor == 1 && rates.downFactor == 1) return singleRate(ppState, pTaps, tapsLen, pDlyLine, pBuffer);
    const std::uint64_t size = stateSize<State>(tapsLen, rates.upFactor, rates.downFactor);
    if (size > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    *ppState = build(layOut<State>(alignUp(pBuffer, 16), size, tapsLen, rates), pTaps, tapsLen, rates, pDlyLine);
    return orbStsNoErr;
}

template <class State>
OrbStatus initAlloc(State** ppState, const TapOf<State>* pTaps, int tapsLen, const Rates& rates,
                    const SampleOf<State>* pDlyLine,
                    OrbStatus (*singleRate)(State**, const TapOf<State>*, int, const SampleOf<State>*)) {
    if (anyNull(ppState, pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    if (rates.upFactor == 1 && rates.downFactor == 1) return singleRate(ppState, pTaps, tapsLen, pDlyLine);
    const std::uint64_t size = stateSize<State>(tapsLen, rates.upFactor, rates.downFactor);
    if (size > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* const block = orbsMalloc_8u(static_cast<int>(size));
    if (!block) return orbStsMemAllocErr;
    State* const state = build(layOut<State>(block, size, tapsLen, rates), pTaps, tapsLen, rates, pDlyLine);
    state->ownsMemory = 1;
    *ppState = state;
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRMRGetStateSize_32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState_32f>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize_32f); }
OrbStatus orbsFIRMRInit_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit_32f); }
OrbStatus orbsFIRMRInitAlloc_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc_32f); }

OrbStatus orbsFIRMRGetStateSize_32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState_32fc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize_32fc); }
OrbStatus orbsFIRMRInit_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit_32fc); }
OrbStatus orbsFIRMRInitAlloc_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc_32fc); }

OrbStatus orbsFIRMRGetStateSize32f_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32f_16s>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize32f_16s); }
OrbStatus orbsFIRMRInit32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit32f_16s); }
OrbStatus orbsFIRMRInitAlloc32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc32f_16s); }

OrbStatus orbsFIRMRGetStateSize32fc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState32fc_16sc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize32fc_16sc); }
OrbStatus orbsFIRMRInit32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit32fc_16sc); }
OrbStatus orbsFIRMRInitAlloc32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc32fc_16sc); }

OrbStatus orbsFIRMRGetStateSize_64f(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState_64f>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize_64f); }
OrbStatus orbsFIRMRInit_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit_64f); }
OrbStatus orbsFIRMRInitAlloc_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc_64f); }

OrbStatus orbsFIRMRGetStateSize_64fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState_64fc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize_64fc); }
OrbStatus orbsFIRMRInit_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit_64fc); }
OrbStatus orbsFIRMRInitAlloc_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb64fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc_64fc); }

OrbStatus orbsFIRMRGetStateSize64f_32f(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64f_32f>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64f_32f); }
OrbStatus orbsFIRMRInit64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64f_32f); }
OrbStatus orbsFIRMRInitAlloc64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64f_32f); }

OrbStatus orbsFIRMRGetStateSize64fc_32fc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_32fc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64fc_32fc); }
OrbStatus orbsFIRMRInit64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64fc_32fc); }
OrbStatus orbsFIRMRInitAlloc64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64fc_32fc); }

OrbStatus orbsFIRMRGetStateSize64f_32s(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64f_32s>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64f_32s); }
OrbStatus orbsFIRMRInit64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64f_32s); }
OrbStatus orbsFIRMRInitAlloc64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64f_32s); }

OrbStatus orbsFIRMRGetStateSize64fc_32sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_32sc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64fc_32sc); }
OrbStatus orbsFIRMRInit64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64fc_32sc); }
OrbStatus orbsFIRMRInitAlloc64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb32sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64fc_32sc); }

OrbStatus orbsFIRMRGetStateSize64f_16s(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64f_16s>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64f_16s); }
OrbStatus orbsFIRMRInit64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64f_16s); }
OrbStatus orbsFIRMRInitAlloc64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64f_16s); }

OrbStatus orbsFIRMRGetStateSize64fc_16sc(int tapsLen, int upFactor, int downFactor, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_16sc>(tapsLen, upFactor, downFactor, pBufferSize, orbsFIRGetStateSize64fc_16sc); }
OrbStatus orbsFIRMRInit64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, pBuffer, orbsFIRInit64fc_16sc); }
OrbStatus orbsFIRMRInitAlloc64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Orb16sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, orbsFIRInitAlloc64fc_16sc); }

OrbStatus orbsFIRMR_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState_32f* pState) { return orbsFIR_32f_I(pSrcDst, numIters, pState); }

}
// clang-format on
