// The states of generators, made of Q15 arguments.
//
//   struct State {                     // as foundation/states.h tells, and
//       Orb32s isAllocated, isStarted;
//       static check(q15...)           // the arguments' status
//       set(q15...)                    // takes them
//   };
#pragma once

#include "foundation/states.h"

namespace orbs {

template <class State, class... Q15>
OrbStatus initState(State* pState, Q15... arguments) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    if (const OrbStatus status = State::check(arguments...)) return status;
    pState->tag = State::ownTag;
    pState->set(arguments...);
    pState->isAllocated = 0;
    pState->isStarted = 0;
    return orbStsNoErr;
}

template <class State, class... Q15>
OrbStatus initAllocState(State** ppState, Q15... arguments) {
    if (anyNull(ppState)) return orbStsNullPtrErr;
    if (const OrbStatus status = State::check(arguments...)) return status;
    State begin{};
    initState(&begin, arguments...);
    begin.isAllocated = 1;
    return allocateState(ppState, begin);
}

} // namespace orbs
