// The objects of the generators, field by field as their sizes were stated. Doubles lie on any word, so that an object
// has one size on every ABI.
#pragma once

#include "foundation/states.h"
#include "orbs/random.h"
#include "random/core.h"

namespace orbs {

#pragma pack(push, 4)

template <class T, Orb32s kind>
struct UniformState {
    using Sample = T;
    static constexpr Orb32s ownTag = kind;

    Orb32s tag;
    Orb32u seed;
    T low, high;
    Orb64f mid, scale;
    RandomCore core;
};

template <class T, Orb32s kind>
struct GaussState {
    using Sample = T;
    static constexpr Orb32s ownTag = kind;

    Orb32s tag;
    Orb32u seed;
    T mean, stdDev;
    RandomCore core;
    Orb32s useNewPair; // 0: the second value of a pair is held for the next sample
    Orb64f radius, held, reserved;
};

#pragma pack(pop)

// ---- Frames of the functions that make an object ----

template <class State>
OrbStatus initState(State* pState, const State& begin) {
    if (anyNull(pState)) return orbStsNullPtrErr;
    new (pState) State(begin);
    return orbStsNoErr;
}

template <class State>
OrbStatus initAllocState(State** ppState, const State& begin) {
    if (anyNull(ppState)) return orbStsNullPtrErr;
    return allocateState(ppState, begin);
}

} // namespace orbs

struct OrbsRandUniState_8u : orbs::UniformState<Orb8u, 35> {};
struct OrbsRandUniState_16s : orbs::UniformState<Orb16s, 36> {};
struct OrbsRandUniState_32f : orbs::UniformState<Orb32f, 37> {};
struct OrbsRandGaussState_8u : orbs::GaussState<Orb8u, 38> {};
struct OrbsRandGaussState_16s : orbs::GaussState<Orb16s, 39> {};
struct OrbsRandGaussState_32f : orbs::GaussState<Orb32f, 40> {
    Orb32s unused;
};

static_assert(sizeof(OrbsRandUniState_8u) == 48 && sizeof(OrbsRandUniState_16s) == 48);
static_assert(sizeof(OrbsRandUniState_32f) == 52 && alignof(OrbsRandUniState_32f) == 4);
static_assert(sizeof(OrbsRandGaussState_8u) == 60 && sizeof(OrbsRandGaussState_16s) == 60);
static_assert(sizeof(OrbsRandGaussState_32f) == 68 && alignof(OrbsRandGaussState_32f) == 4);
