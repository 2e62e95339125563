// FIR state objects: sizes, building, taps, delay line, release. Taps is the type of a member's taps where the state
// keeps others: Orb32s, held as doubles.
#pragma once

#include "filters/multirate.h"
#include "filters/samples.h"
#include "filters/state.h"
#include "foundation/threads.h"
#include "orbs/fir.h"
#include "orbs/foundation.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace orbs {

constexpr std::uint64_t largestBlock = std::numeric_limits<int>::max();

// ---- Sizes ----

// Reported sizes. They were fixed for a layout with shifted copies of the taps and a broadcast table; what that is
// larger than ours is the room for aligning the caller's block. The thread count enters although no area of such an
// object depends on it.
template <class Tap, class Taps = Tap>
std::uint64_t stateSize(int length) {
    const auto tapsLen = static_cast<std::uint64_t>(length);
    const auto threads = static_cast<std::uint64_t>(std::max(threadCount(), 1));
    const std::uint64_t delay = roundUp(delayCapacity(tapsLen) * sizeof(Tap), 16);
    const std::uint64_t taps = roundUp(tapsLen * sizeof(Tap), 16);
    if constexpr (!std::is_same_v<Taps, Tap>) return delay + 3 * taps + 112 + (threads * 2 + 4094) * 8 + 15;
    if constexpr (std::is_same_v<Tap, Orb32f>)
        return delay + (((tapsLen + 6) >> 2) << 6) + taps + 112 + (threads * 4 + 4092) * 4 + 16;
    if constexpr (std::is_same_v<Tap, Orb32fc>)
        return delay + taps * 12 + 96 + taps + 112 + (threads * 2 + 4094) * 8 + 16;
    if constexpr (std::is_same_v<Tap, Orb64f>)
        return delay + (((tapsLen + 2) >> 1) << 5) + taps + 112 + (threads * 2 + 4094) * 8 + 15;
    if constexpr (std::is_same_v<Tap, Orb64fc>) return (4 * tapsLen + 4) * 16 + 112 + 32 * tapsLen + 65536;
}

// What the FFT of a filter needs; all 0 for a filter without.
struct FftPlan {
    int order = 0;
    std::uint64_t length = 0, threads = 0;
    std::uint64_t specSize = 0, bufSize = 0;
    int initSize = 0;
};

// The length is at least twice and below four times the number of taps.
template <class Rules>
FftPlan planFft(int tapsLen) {
    if (tapsLen < Rules::fftFromTaps) return {};
    FftPlan plan;
    int k = 2;
    while (std::uint64_t{1} << k <= static_cast<std::uint64_t>(tapsLen)) ++k;
    plan.order = k + 1;
    plan.length = std::uint64_t{1} << plan.order;
    // More threads than this would only wait for memory; and with it no size below leaves 64 bits.
    plan.threads = static_cast<std::uint64_t>(std::clamp(threadCount(), 1, 1024));
    // Above the largest order of a transform the work areas alone outgrow a block.
    int specSize = 0, bufSize = 0;
    Rules::Fft::getSize(plan.order, ORB_FFT_SCALE_INV, orbAlgHintNone, &specSize, &plan.initSize, &bufSize);
    plan.specSize = static_cast<Orb32u>(specSize);
    plan.bufSize = static_cast<Orb32u>(bufSize);
    return plan;
}

// Where everything lies behind an aligned base; over a null base only the size counts.
template <class State>
struct Areas {
    State* head;
    TapOf<State>*taps, *delay, *fftTaps, *fftWork;
    Orb8u *fftSpec, *fftBuf;
    TapOf<State>* staging;
    std::uint64_t size;
};

template <class State>
Areas<State> layOut(void* base, int length, const FftPlan& fft) {
    using Tap = TapOf<State>;
    const auto tapsLen = static_cast<std::uint64_t>(length);
    Layout block(base);
    Areas<State> areas;
    areas.head = block.take<State>(1, 16);
    areas.taps = block.take<Tap>(tapsLen, 16);
    areas.delay = block.take<Tap>(delayCapacity(tapsLen), 16);
    areas.fftTaps = block.take<Tap>(fft.length, 32);
    areas.fftSpec = block.take<Orb8u>(fft.specSize, 32);
    areas.fftBuf = block.take<Orb8u>(fft.bufSize * fft.threads, 32);
    areas.fftWork = block.take<Tap>(fft.length * fft.threads, 32);
    areas.staging = block.take<Tap>(stagingLen, 16);
    areas.size = block.used();
    return areas;
}

// ---- Taps and delay line ----

template <class State, class Taps>
void writeTaps(State* state, const Taps* pTaps) {
    std::reverse_copy(pTaps, pTaps + state->tapsLen, state->pTaps.get());
}

template <class State, class Taps>
OrbStatus transformTaps(State* state, const Taps* pTaps) {
    TapOf<State>* const spectrum = state->pFFTTaps;
    std::copy_n(pTaps, state->tapsLen, spectrum);
    std::fill(spectrum + state->tapsLen, spectrum + state->fftLen, TapOf<State>{});
    return State::Rules::Fft::forward(spectrum, spectrum, state->pFFTSpec, state->pFFTBuf);
}

// Calls use(oldest), the sample behind which the line goes on, in the type that the line is kept in.
template <class State, class Use>
void withLine(State* state, Use use) {
    TapOf<State>* const D = state->pDlyLine;
    if (isMultiRate(state)) {
        use(reinterpret_cast<SampleOf<State>*>(D));
    } else {
        use(D + state->dlyLineIndex);
    }
}

// A caller's line is newest sample first. Null clears.
template <class State>
void writeDlyLine(State* state, const SampleOf<State>* pDlyLine) {
    state->dlyLineIndex = 0;
    withLine(state, [=]<class T>(T* oldest) {
        const int count = state->dlyLineLen;
        if (!pDlyLine) {
            std::fill_n(oldest, count, T{});
        } else {
            std::transform(pDlyLine, pDlyLine + count, std::reverse_iterator(oldest + count), cast<T, SampleOf<State>>);
        }
    });
}

// ---- Building ----

template <class State, class Taps>
State* build(const Areas<State>& areas, const Taps* pTaps, int tapsLen, const SampleOf<State>* pDlyLine) {
    State* const state = new (areas.head) State{};
    state->tag = State::singleRateTag;
    state->pTaps = areas.taps;
    state->pDlyLine = areas.delay;
    state->tapsLen = state->dlyLineLen = tapsLen;
    state->headLen = headOutputs(tapsLen) + 1;
    state->fftLen = -1;
    state->pStaging = areas.staging;
    writeTaps(state, pTaps);
    writeDlyLine(state, pDlyLine);
    return state;
}

template <class State, class Taps>
OrbStatus addFft(State* state, const Areas<State>& areas, const FftPlan& fft, const Taps* pTaps) {
    Orb8u* const initBuffer = orbsMalloc_8u(fft.initSize);
    // A filter that gets no FFT object answers as one whose object is null.
    if (fft.initSize > 0 && !initBuffer) return orbStsNullPtrErr;
    typename State::Rules::Spec* spec = nullptr;
    const OrbStatus status =
        State::Rules::Fft::init(&spec, fft.order, ORB_FFT_SCALE_INV, orbAlgHintNone, areas.fftSpec, initBuffer);
    orbsFree(initBuffer);
    if (status != orbStsNoErr) return status;
    state->pFFTSpec = spec;
    state->fftLen = static_cast<Orb32s>(fft.length);
    state->pFFTTaps = areas.fftTaps;
    state->pFFTWork = areas.fftWork;
    state->pFFTBuf = areas.fftBuf;
    state->fftBufSize = static_cast<Orb32s>(fft.bufSize);
    state->workAreas = static_cast<Orb32s>(fft.threads);
    return transformTaps(state, pTaps);
}

template <class State, class Taps = TapOf<State>>
OrbStatus getStateSize(int tapsLen, int* pBufferSize) {
    if (anyNull(pBufferSize)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsFIRLenErr;
    *pBufferSize = static_cast<int>(static_cast<Orb32u>(stateSize<TapOf<State>, Taps>(tapsLen)));
    return orbStsNoErr;
}

template <class State, class Taps>
OrbStatus init(State** ppState, const Taps* pTaps, int tapsLen, const SampleOf<State>* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(ppState, pTaps, pBuffer)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsFIRLenErr;
    // The reported size wrapped, and the caller's block is too short.
    if (stateSize<TapOf<State>, Taps>(tapsLen) > largestBlock) return orbStsMemAllocErr;
    *ppState = build(layOut<State>(alignUp(pBuffer, 16), tapsLen, {}), pTaps, tapsLen, pDlyLine);
    return orbStsNoErr;
}

template <class State, class Taps>
OrbStatus initAlloc(State** ppState, const Taps* pTaps, int tapsLen, const SampleOf<State>* pDlyLine) {
    if (anyNull(ppState, pTaps)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsFIRLenErr;
    const FftPlan fft = planFft<typename State::Rules>(tapsLen);
    const std::uint64_t size = layOut<State>(nullptr, tapsLen, fft).size;
    if (size > largestBlock) return orbStsMemAllocErr;
    Orb8u* const block = orbsMalloc_8u(static_cast<int>(size));
    if (!block) return orbStsMemAllocErr;
    const Areas<State> areas = layOut<State>(block, tapsLen, fft);
    State* const state = build(areas, pTaps, tapsLen, pDlyLine);
    if (fft.length > 0) {
        if (const OrbStatus status = addFft(state, areas, fft, pTaps)) {
            orbsFree(block);
            return status;
        }
    }
    state->ownsMemory = 1;
    *ppState = state;
    return orbStsNoErr;
}

template <Kinds kinds = Kinds::both, class State>
OrbStatus release(State* pState) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<kinds>(pState)) return status;
    if (pState->ownsMemory) orbsFree(pState);
    return orbStsNoErr;
}

// ---- Accessors ----

template <class State, class Taps>
OrbStatus replaceTaps(const Taps* pTaps, State* pState) {
    writeTaps(pState, pTaps);
    return pState->pFFTSpec ? transformTaps(pState, pTaps) : orbStsNoErr;
}

template <class State>
OrbStatus setTaps(const TapOf<State>* pTaps, State* pState) {
    if (anyNull(pTaps, pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<Kinds::both>(pState)) return status;
    return isMultiRate(pState) ? setMultiRateTaps(pState, pTaps) : replaceTaps(pTaps, pState);
}
// No test of the tag: a caller sees no status for a state of another kind.
inline OrbStatus setTaps(const Orb32s* pTaps, OrbsFIRState64f_32s* pState) {
    if (anyNull(pTaps, pState)) return orbStsNullPtrErr;
    return replaceTaps(pTaps, pState);
}

template <class State>
OrbStatus getTaps(const State* pState, TapOf<State>* pTaps) {
    if (anyNull(pState, pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<Kinds::both>(pState)) return status;
    const TapOf<State>* const reversed = pState->pTaps;
    std::reverse_copy(reversed, reversed + pState->tapsLen, pTaps);
    return orbStsNoErr;
}
// Toward zero. The state may have been made with doubles: what fits no Orb32s, and a NaN, is the lowest one.
inline OrbStatus getTaps(const OrbsFIRState64f_32s* pState, Orb32s* pTaps) {
    if (anyNull(pState, pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<Kinds::singleRate>(pState)) return status;
    const Orb64f* const reversed = pState->pTaps;
    std::transform(reversed, reversed + pState->tapsLen, std::reverse_iterator(pTaps + pState->tapsLen),
                   [](Orb64f tap) { return _mm_cvttsd_si32(_mm_set_sd(tap)); });
    return orbStsNoErr;
}

template <Kinds kinds = Kinds::both, class State>
OrbStatus setDlyLine(State* pState, const SampleOf<State>* pDlyLine) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<kinds>(pState)) return status;
    writeDlyLine(pState, pDlyLine);
    return orbStsNoErr;
}

template <Kinds kinds = Kinds::both, class State>
OrbStatus getDlyLine(const State* pState, SampleOf<State>* pDlyLine) {
    if (anyNull(pState, pDlyLine)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkState<kinds>(pState)) return status;
    withLine(pState, [=]<class T>(const T* oldest) {
        const int count = pState->dlyLineLen;
        std::transform(oldest, oldest + count, std::reverse_iterator(pDlyLine + count),
                       cast<SampleOf<State>, T>); // what was a sample is one again
    });
    return orbStsNoErr;
}

} // namespace orbs
