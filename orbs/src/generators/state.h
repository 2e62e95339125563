// The cycle of the states of generators: one block without pointers, in memory of the caller's or of its own.
//
//   struct State {
//       Orb32s tag, ..., isAllocated, isStarted
//       stateTag                  its kind
//       static check(q15...)      the arguments' status
//       set(q15...)               takes them
//   };
#pragma once

#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"

#include <new>

namespace orbs {

template <class State>
OrbStatus stateSize(int* pSize) {
    if (anyNull(pSize)) return orbStsNullPtrErr;
    *pSize = sizeof(State);
    return orbStsNoErr;
}

template <class State, class... Q15>
OrbStatus initState(State* pState, Q15... arguments) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = State::check(arguments...)) return status;
    pState->tag = State::stateTag;
    pState->set(arguments...);
    pState->isAllocated = 0;
    pState->isStarted = 0;
    return orbStsNoErr;
}

template <class State, class... Q15>
OrbStatus initAllocState(State** ppState, Q15... arguments) {
    if (anyNull(ppState)) return orbStsNullPtrErr;
    if (const OrbStatus status = State::check(arguments...)) return status;
    void* const block = orbsMalloc_8u(sizeof(State));
    if (!block) return orbStsMemAllocErr;
    State* const state = new (block) State{};
    initState(state, arguments...);
    state->isAllocated = 1;
    *ppState = state;
    return orbStsNoErr;
}

template <class State>
OrbStatus freeState(State* pState) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pState, State::stateTag)) return status;
    if (pState->isAllocated == 1) orbsFree(pState);
    return orbStsNoErr;
}

// What every call over a state tests.
template <class T, class State>
OrbStatus checkCall(const T* pDst, int len, const State* pState) {
    if (const OrbStatus status = checkVectors(len, pDst, pState)) return status;
    return checkTag(pState, State::stateTag);
}

} // namespace orbs
