// IIR state objects: sizes, building, taps, delay line, release.
#include "iir/state.h"

#include "foundation/frame.h"
#include "iir/groups.h"
#include "orbs/convert.h"
#include "orbs/foundation.h"

#include <cstring>
#include <limits>
#include <new>

namespace {

using namespace orbs;

template <class State>
using TapOf = typename State::Tap;
template <class State>
using LineOf = typename State::Line;

enum class Structure { filter, cascade };

constexpr std::uint64_t largestBlock = std::numeric_limits<int>::max();

// ---- Sizes ----

// Reported sizes, length being an order or a number of sections. They were fixed for a layout with other tables, and
// are always larger than ours. Elements of Orb64fc take twice what those of Orb32fc take.
template <class State>
std::uint64_t stateSize(Structure structure, int length) {
    using Tap = TapOf<State>;
    const auto n = static_cast<std::uint64_t>(length);
    const auto r16 = [](std::uint64_t bytes) { return roundUp(bytes, 16); };
    constexpr std::uint64_t element = sizeof(Tap), head = 48;
    constexpr std::uint64_t work = std::uint64_t{chunkLen} * (State::convertsSamples ? 2 : 1);
    if (structure == Structure::filter) {
        const std::uint64_t taps = r16((2 * n + 1) * element), line = r16((n + 1) * element);
        if constexpr (std::is_same_v<Tap, Orb32f>) return (8 * n + 16 + work + 10) * element + head + taps + line + 16;
        if constexpr (std::is_same_v<Tap, Orb64f>) return (6 * n + 14 + work) * element + head + taps + line;
        if constexpr (isComplex<Tap>) return (16 * n + 36 + work + 10) * element + head + taps + line;
    } else {
        const std::uint64_t taps = r16(5 * n * element), line = r16(2 * n * element);
        if constexpr (std::is_same_v<Tap, Orb32f>) return (work + 40 * n + 10) * element + head + taps + line + 16;
        if constexpr (std::is_same_v<Tap, Orb64f>) return (32 * n + work) * element + head + taps + line;
        if constexpr (isComplex<Tap>) return (92 * n + work) * element + head + taps + line + 16;
    }
}

// Places everything behind an aligned base, and builds a state there whose taps and delay line are still to come.
template <class State>
State* layOut(void* base, Structure structure, int length) {
    using Tap = TapOf<State>;
    const auto n = static_cast<std::uint64_t>(length);
    const bool isCascade = structure == Structure::cascade;
    Layout block(base);
    State* const state = new (block.take<State>(1, 16)) State{};
    state->pTaps = block.take<Tap>(isCascade ? 5 * n : 2 * n + 1, 16);
    state->pDlyLine = block.take<Tap>(isCascade ? 2 * n : n + 1, 16);
    if (isCascade) {
        state->tag = State::cascadeTag;
        state->numBq = length;
        state->order = 2 * length;
        state->pSectionTable = block.take<Part<Tap>>(n * sectionParts<Tap>, 16);
    } else {
        state->tag = State::filterTag;
        state->order = length;
        state->pDlyLine[length] = Tap{};
        state->pYTable = block.take<Part<Tap>>(tableParts<Tap>(n), 16);
    }
    state->pWork = block.take<Tap>(chunkLen, 16);
    if constexpr (State::convertsSamples) state->pWorkOut = block.take<Tap>(chunkLen, 16);
    return state;
}

// ---- Taps and delay line ----

template <class State>
OrbStatus writeTaps(State* state, const TapOf<State>* pTaps) {
    return state->numBq > 0 ? setSectionTaps<TapOf<State>>(state, pTaps) : setFilterTaps<TapOf<State>>(state, pTaps);
}

template <class State>
std::size_t lineBytes(const State* state) {
    return static_cast<std::size_t>(state->order) * sizeof(TapOf<State>);
}

// Words as they stand. Null clears.
template <class State>
void writeDlyLine(State* state, const LineOf<State>* pDlyLine) {
    if (pDlyLine) {
        std::memcpy(state->pDlyLine.get(), pDlyLine, lineBytes(state));
    } else {
        std::memset(static_cast<void*>(state->pDlyLine.get()), 0, lineBytes(state));
    }
}

// ---- Building ----

template <class State>
OrbStatus getStateSize(Structure structure, int length, int* pBufferSize) {
    if (anyNull(pBufferSize)) return orbStsNullPtrErr;
    if (length < 1) return orbStsIIROrderErr;
    *pBufferSize = static_cast<int>(static_cast<Orb32u>(stateSize<State>(structure, length)));
    return orbStsNoErr;
}

template <class State>
OrbStatus checkBuild(Structure structure, int length) {
    if (length < 1) return orbStsIIROrderErr;
    // The reported size wrapped, and the caller's block is too short.
    return stateSize<State>(structure, length) > largestBlock ? orbStsMemAllocErr : orbStsNoErr;
}

// *ppState is written at the end: a state that could not be built is none.
template <class State>
OrbStatus build(Structure structure, State** ppState, const TapOf<State>* pTaps, int length,
                const LineOf<State>* pDlyLine, void* base) {
    State* const state = layOut<State>(base, structure, length);
    if (const OrbStatus status = writeTaps(state, pTaps)) return status;
    writeDlyLine(state, pDlyLine);
    *ppState = state;
    return orbStsNoErr;
}

template <class State>
OrbStatus init(Structure structure, State** ppState, const TapOf<State>* pTaps, int length,
               const LineOf<State>* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(pTaps, ppState, pBuffer)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkBuild<State>(structure, length)) return status;
    return build(structure, ppState, pTaps, length, pDlyLine, alignUp(pBuffer, 16));
}

template <class State>
OrbStatus initAlloc(Structure structure, State** ppState, const TapOf<State>* pTaps, int length,
                    const LineOf<State>* pDlyLine) {
    if (anyNull(pTaps, ppState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkBuild<State>(structure, length)) return status;
    Orb8u* const block = orbsMalloc_8u(static_cast<int>(stateSize<State>(structure, length)));
    if (!block) return orbStsMemAllocErr;
    if (const OrbStatus status = build(structure, ppState, pTaps, length, pDlyLine, block)) {
        orbsFree(block);
        return status;
    }
    (*ppState)->ownsMemory = 1;
    return orbStsNoErr;
}

template <class State>
OrbStatus release(State* pState) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    if (pState->ownsMemory) orbsFree(pState);
    return orbStsNoErr;
}

template <class State>
OrbStatus setTaps(const TapOf<State>* pTaps, State* pState) {
    if (anyNull(pTaps, pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    return writeTaps(pState, pTaps);
}

template <class State>
OrbStatus setDlyLine(State* pState, const LineOf<State>* pDlyLine) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    writeDlyLine(pState, pDlyLine);
    return orbStsNoErr;
}

template <class State>
OrbStatus getDlyLine(const State* pState, LineOf<State>* pDlyLine) {
    if (anyNull(pState, pDlyLine)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    std::memcpy(pDlyLine, pState->pDlyLine.get(), lineBytes(pState));
    return orbStsNoErr;
}

// ---- Integer taps ----

template <class Tap>
struct IntegerTaps {
    using Type = Orb32s;
};
template <>
struct IntegerTaps<Orb32fc> {
    using Type = Orb32sc;
};
template <class State>
using IntegerTapOf = typename IntegerTaps<TapOf<State>>::Type;

// tap * 2^-tapsFactor, in memory of its own.
template <class State>
class ConvertedTaps {
public:
    ConvertedTaps(const IntegerTapOf<State>* pTaps, Structure structure, int length, int tapsFactor) {
        const int count = structure == Structure::cascade ? 6 * length : 2 * length + 2;
        const int parts = count * static_cast<int>(partCount<TapOf<State>>);
        taps_ = orbsMalloc_32f(parts);
        if (taps_) orbsConvert_32s32f_Sfs(asParts(pTaps), taps_, parts, tapsFactor);
    }
    ~ConvertedTaps() { orbsFree(taps_); }
    ConvertedTaps(const ConvertedTaps&) = delete;
    ConvertedTaps& operator=(const ConvertedTaps&) = delete;

    const TapOf<State>* get() const { return reinterpret_cast<const TapOf<State>*>(taps_); }

private:
    Orb32f* taps_;
};

template <class State>
OrbStatus initFromIntegers(Structure structure, State** ppState, const IntegerTapOf<State>* pTaps, int length,
                           int tapsFactor, const LineOf<State>* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(pTaps, ppState, pBuffer)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkBuild<State>(structure, length)) return status;
    const ConvertedTaps<State> taps(pTaps, structure, length, tapsFactor);
    if (!taps.get()) return orbStsMemAllocErr;
    return init(structure, ppState, taps.get(), length, pDlyLine, pBuffer);
}

template <class State>
OrbStatus initAllocFromIntegers(Structure structure, State** ppState, const IntegerTapOf<State>* pTaps, int length,
                                int tapsFactor, const LineOf<State>* pDlyLine) {
    if (anyNull(pTaps, ppState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkBuild<State>(structure, length)) return status;
    const ConvertedTaps<State> taps(pTaps, structure, length, tapsFactor);
    if (!taps.get()) return orbStsMemAllocErr;
    return initAlloc(structure, ppState, taps.get(), length, pDlyLine);
}

template <class State>
OrbStatus setIntegerTaps(const IntegerTapOf<State>* pTaps, State* pState, int tapsFactor) {
    if (anyNull(pTaps, pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    const Structure structure = pState->numBq > 0 ? Structure::cascade : Structure::filter;
    const int length = pState->numBq > 0 ? pState->numBq : pState->order;
    const ConvertedTaps<State> taps(pTaps, structure, length, tapsFactor);
    if (!taps.get()) return orbStsMemAllocErr;
    return writeTaps(pState, taps.get());
}

// SetTaps32s_16s answers as if the state were another's, whether it set the taps, met an a[0] of 0 or did nothing.
OrbStatus reportMismatch(OrbStatus status) {
    return status == orbStsNullPtrErr || status == orbStsMemAllocErr ? status : orbStsContextMatchErr;
}

// Both SetTaps32sc_16sc look for the tags of _32fc: they set the taps of such a state alone, and refuse their own.
OrbsIIRState_32fc* asState_32fc(OrbsIIRState32sc_16sc* pState) {
    return reinterpret_cast<OrbsIIRState_32fc*>(pState);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsIIRGetStateSize_32f(int order, int* pBufferSize) { return getStateSize<OrbsIIRState_32f>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize_BiQuad_32f(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState_32f>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit_BiQuad_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_BiQuad_32f(OrbsIIRState_32f** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree_32f(OrbsIIRState_32f* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps_32f(const Orb32f* pTaps, OrbsIIRState_32f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine_32f(const OrbsIIRState_32f* pState, Orb32f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine_32f(OrbsIIRState_32f* pState, const Orb32f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize_32fc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState_32fc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize_BiQuad_32fc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState_32fc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit_BiQuad_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_BiQuad_32fc(OrbsIIRState_32fc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree_32fc(OrbsIIRState_32fc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps_32fc(const Orb32fc* pTaps, OrbsIIRState_32fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine_32fc(const OrbsIIRState_32fc* pState, Orb32fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine_32fc(OrbsIIRState_32fc* pState, const Orb32fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize32f_16s(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32f_16s>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit32f_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32f_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int order, const Orb32f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize32f_BiQuad_16s(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32f_16s>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit32f_BiQuad_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32f_BiQuad_16s(OrbsIIRState32f_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree32f_16s(OrbsIIRState32f_16s* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps32f_16s(const Orb32f* pTaps, OrbsIIRState32f_16s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine32f_16s(const OrbsIIRState32f_16s* pState, Orb32f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32f_16s(OrbsIIRState32f_16s* pState, const Orb32f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize32fc_16sc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32fc_16sc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit32fc_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32fc_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize32fc_BiQuad_16sc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32fc_16sc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit32fc_BiQuad_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32fc_BiQuad_16sc(OrbsIIRState32fc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree32fc_16sc(OrbsIIRState32fc_16sc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps32fc_16sc(const Orb32fc* pTaps, OrbsIIRState32fc_16sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine32fc_16sc(const OrbsIIRState32fc_16sc* pState, Orb32fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32fc_16sc(OrbsIIRState32fc_16sc* pState, const Orb32fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize_64f(int order, int* pBufferSize) { return getStateSize<OrbsIIRState_64f>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize_BiQuad_64f(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState_64f>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit_BiQuad_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_BiQuad_64f(OrbsIIRState_64f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree_64f(OrbsIIRState_64f* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps_64f(const Orb64f* pTaps, OrbsIIRState_64f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine_64f(const OrbsIIRState_64f* pState, Orb64f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine_64f(OrbsIIRState_64f* pState, const Orb64f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize_64fc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState_64fc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize_BiQuad_64fc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState_64fc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit_BiQuad_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc_BiQuad_64fc(OrbsIIRState_64fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree_64fc(OrbsIIRState_64fc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps_64fc(const Orb64fc* pTaps, OrbsIIRState_64fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine_64fc(const OrbsIIRState_64fc* pState, Orb64fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine_64fc(OrbsIIRState_64fc* pState, const Orb64fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64f_32f(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64f_32f>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64f_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64f_BiQuad_32f(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64f_32f>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64f_BiQuad_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_BiQuad_32f(OrbsIIRState64f_32f** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64f_32f(OrbsIIRState64f_32f* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64f_32f(const Orb64f* pTaps, OrbsIIRState64f_32f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64f_32f(const OrbsIIRState64f_32f* pState, Orb64f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64f_32f(OrbsIIRState64f_32f* pState, const Orb64f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64fc_32fc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_32fc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64fc_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64fc_BiQuad_32fc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_32fc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64fc_BiQuad_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_BiQuad_32fc(OrbsIIRState64fc_32fc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64fc_32fc(OrbsIIRState64fc_32fc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64fc_32fc(const Orb64fc* pTaps, OrbsIIRState64fc_32fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64fc_32fc(const OrbsIIRState64fc_32fc* pState, Orb64fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64fc_32fc(OrbsIIRState64fc_32fc* pState, const Orb64fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64f_32s(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64f_32s>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64f_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64f_BiQuad_32s(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64f_32s>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64f_BiQuad_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_BiQuad_32s(OrbsIIRState64f_32s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64f_32s(OrbsIIRState64f_32s* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64f_32s(const Orb64f* pTaps, OrbsIIRState64f_32s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64f_32s(const OrbsIIRState64f_32s* pState, Orb64f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64f_32s(OrbsIIRState64f_32s* pState, const Orb64f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64fc_32sc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_32sc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64fc_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64fc_BiQuad_32sc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_32sc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64fc_BiQuad_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_BiQuad_32sc(OrbsIIRState64fc_32sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64fc_32sc(OrbsIIRState64fc_32sc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64fc_32sc(const Orb64fc* pTaps, OrbsIIRState64fc_32sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64fc_32sc(const OrbsIIRState64fc_32sc* pState, Orb64fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64fc_32sc(OrbsIIRState64fc_32sc* pState, const Orb64fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64f_16s(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64f_16s>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64f_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int order, const Orb64f* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64f_BiQuad_16s(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64f_16s>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64f_BiQuad_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64f_BiQuad_16s(OrbsIIRState64f_16s** ppState, const Orb64f* pTaps, int numBq, const Orb64f* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64f_16s(OrbsIIRState64f_16s* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64f_16s(const Orb64f* pTaps, OrbsIIRState64f_16s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64f_16s(const OrbsIIRState64f_16s* pState, Orb64f* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64f_16s(OrbsIIRState64f_16s* pState, const Orb64f* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize64fc_16sc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_16sc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit64fc_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int order, const Orb64fc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRGetStateSize64fc_BiQuad_16sc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState64fc_16sc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit64fc_BiQuad_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc64fc_BiQuad_16sc(OrbsIIRState64fc_16sc** ppState, const Orb64fc* pTaps, int numBq, const Orb64fc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRFree64fc_16sc(OrbsIIRState64fc_16sc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps64fc_16sc(const Orb64fc* pTaps, OrbsIIRState64fc_16sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetDlyLine64fc_16sc(const OrbsIIRState64fc_16sc* pState, Orb64fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine64fc_16sc(OrbsIIRState64fc_16sc* pState, const Orb64fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize32s_16s(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32s_16s>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit32s_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int order, int tapsFactor, const Orb32s* pDlyLine, Orb8u* pBuffer) { return initFromIntegers(Structure::filter, ppState, pTaps, order, tapsFactor, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32s_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int order, int tapsFactor, const Orb32s* pDlyLine) { return initAllocFromIntegers(Structure::filter, ppState, pTaps, order, tapsFactor, pDlyLine); }
OrbStatus orbsIIRGetStateSize32s_BiQuad_16s(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32s_16s>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit32s_BiQuad_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int numBq, int tapsFactor, const Orb32s* pDlyLine, Orb8u* pBuffer) { return initFromIntegers(Structure::cascade, ppState, pTaps, numBq, tapsFactor, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32s_BiQuad_16s(OrbsIIRState32s_16s** ppState, const Orb32s* pTaps, int numBq, int tapsFactor, const Orb32s* pDlyLine) { return initAllocFromIntegers(Structure::cascade, ppState, pTaps, numBq, tapsFactor, pDlyLine); }
OrbStatus orbsIIRFree32s_16s(OrbsIIRState32s_16s* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps32s_16s(const Orb32s* pTaps, OrbsIIRState32s_16s* pState, int tapsFactor) { return reportMismatch(setIntegerTaps(pTaps, pState, tapsFactor)); }
OrbStatus orbsIIRGetDlyLine32s_16s(const OrbsIIRState32s_16s* pState, Orb32s* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32s_16s(OrbsIIRState32s_16s* pState, const Orb32s* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRInit32s_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int order, const Orb32s* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32s_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int order, const Orb32s* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRInit32s_BiQuad_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32s* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32s_BiQuad_16s32f(OrbsIIRState32s_16s** ppState, const Orb32f* pTaps, int numBq, const Orb32s* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRSetTaps32s_16s32f(const Orb32f* pTaps, OrbsIIRState32s_16s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsIIRGetStateSize32s_16s32f(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32s_16s>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRGetStateSize32s_BiQuad_16s32f(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32s_16s>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRFree32s_16s32f(OrbsIIRState32s_16s* pState) { return release(pState); }
OrbStatus orbsIIRGetDlyLine32s_16s32f(const OrbsIIRState32s_16s* pState, Orb32s* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32s_16s32f(OrbsIIRState32s_16s* pState, const Orb32s* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRGetStateSize32sc_16sc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32sc_16sc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRInit32sc_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int order, int tapsFactor, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return initFromIntegers(Structure::filter, ppState, pTaps, order, tapsFactor, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32sc_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int order, int tapsFactor, const Orb32sc* pDlyLine) { return initAllocFromIntegers(Structure::filter, ppState, pTaps, order, tapsFactor, pDlyLine); }
OrbStatus orbsIIRGetStateSize32sc_BiQuad_16sc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32sc_16sc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRInit32sc_BiQuad_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int numBq, int tapsFactor, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return initFromIntegers(Structure::cascade, ppState, pTaps, numBq, tapsFactor, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32sc_BiQuad_16sc(OrbsIIRState32sc_16sc** ppState, const Orb32sc* pTaps, int numBq, int tapsFactor, const Orb32sc* pDlyLine) { return initAllocFromIntegers(Structure::cascade, ppState, pTaps, numBq, tapsFactor, pDlyLine); }
OrbStatus orbsIIRFree32sc_16sc(OrbsIIRState32sc_16sc* pState) { return release(pState); }
OrbStatus orbsIIRSetTaps32sc_16sc(const Orb32sc* pTaps, OrbsIIRState32sc_16sc* pState, int tapsFactor) { return setIntegerTaps(pTaps, asState_32fc(pState), tapsFactor); }
OrbStatus orbsIIRGetDlyLine32sc_16sc(const OrbsIIRState32sc_16sc* pState, Orb32sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32sc_16sc(OrbsIIRState32sc_16sc* pState, const Orb32sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

OrbStatus orbsIIRInit32sc_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return init(Structure::filter, ppState, pTaps, order, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32sc_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int order, const Orb32sc* pDlyLine) { return initAlloc(Structure::filter, ppState, pTaps, order, pDlyLine); }
OrbStatus orbsIIRInit32sc_BiQuad_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return init(Structure::cascade, ppState, pTaps, numBq, pDlyLine, pBuffer); }
OrbStatus orbsIIRInitAlloc32sc_BiQuad_16sc32fc(OrbsIIRState32sc_16sc** ppState, const Orb32fc* pTaps, int numBq, const Orb32sc* pDlyLine) { return initAlloc(Structure::cascade, ppState, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIRSetTaps32sc_16sc32fc(const Orb32fc* pTaps, OrbsIIRState32sc_16sc* pState) { return setTaps(pTaps, asState_32fc(pState)); }
OrbStatus orbsIIRGetStateSize32sc_16sc32fc(int order, int* pBufferSize) { return getStateSize<OrbsIIRState32sc_16sc>(Structure::filter, order, pBufferSize); }
OrbStatus orbsIIRGetStateSize32sc_BiQuad_16sc32fc(int numBq, int* pBufferSize) { return getStateSize<OrbsIIRState32sc_16sc>(Structure::cascade, numBq, pBufferSize); }
OrbStatus orbsIIRFree32sc_16sc32fc(OrbsIIRState32sc_16sc* pState) { return release(pState); }
OrbStatus orbsIIRGetDlyLine32sc_16sc32fc(const OrbsIIRState32sc_16sc* pState, Orb32sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }
OrbStatus orbsIIRSetDlyLine32sc_16sc32fc(OrbsIIRState32sc_16sc* pState, const Orb32sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }

}
// clang-format on
