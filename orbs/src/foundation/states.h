// The cycle of states that are one block without pointers: size, Init into the caller's memory, InitAlloc, the test of
// every call, Free.
//
//   struct State {
//       Orb32s tag;                       // first
//       static constexpr Orb32s ownTag;   // of its kind
//       Orb32s isAllocated;               // optional: 1 if the memory is the state's own, so that Free gives it back;
//   };                                    // without, Free takes only what InitAlloc made
#pragma once

#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"

#include <new>

namespace orbs {

template <class State>
OrbStatus stateSize(int* pSize) {
    if (anyNull(pSize)) return orbStsNullPtrErr;
    setElement(pSize, sizeof(State));
    return orbStsNoErr;
}

// Stores the address of a state in memory of its own that begins as told.
template <class State>
OrbStatus allocateState(State** ppState, const State& begin) {
    void* const block = orbsMalloc_8u(sizeof(State));
    if (!block) return orbStsMemAllocErr;
    setElement(ppState, new (block) State(begin));
    return orbStsNoErr;
}

template <class T, class State>
OrbStatus checkCall(int len, const T* pDst, const State* pState) {
    if (const OrbStatus status = checkVectors(len, pDst, pState)) return status;
    return checkTag(pState, State::ownTag);
}

template <class State>
OrbStatus freeState(State* pState) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pState, State::ownTag)) return status;
    if constexpr (requires { pState->isAllocated; })
        if (pState->isAllocated != 1) return orbStsNoErr;
    orbsFree(pState);
    return orbStsNoErr;
}

} // namespace orbs
