// What the states of adaptive filters have in common: memory, the test of a call, release, places in a ring.
#pragma once

#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"

#include <limits>

namespace orbs {

// Or null, also for more than an int tells.
inline Orb8u* allocateLmsState(std::uint64_t size) {
    return size > std::numeric_limits<int>::max() ? nullptr : orbsMalloc_8u(static_cast<int>(size));
}

template <class State, class... T>
OrbStatus checkLmsState(const State* pState, const T*... pointers) {
    return anyNull(pState, pointers...) ? orbStsNullPtrErr : checkTag(pState, State::ownTag);
}

template <class State>
OrbStatus freeLmsState(State* pState) {
    orbsFree(pState);
    return orbStsNoErr;
}

// An index as a place in a ring.
inline Orb32s placeInRing(std::int64_t index, std::int64_t length) {
    const std::int64_t rest = index % length;
    return static_cast<Orb32s>(rest < 0 ? rest + length : rest);
}

} // namespace orbs
