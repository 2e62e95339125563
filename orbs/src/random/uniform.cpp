// RandUniform: output of the core * scale + mid, in double precision.
#include "random/states.h"
#include "vectors/nearest.h"

#include <algorithm>
#include <type_traits>

namespace {

using namespace orbs;

// Close above 2^-32, and part of the streams as it stands.
constexpr Orb64f outputScale = 2.3283064365387e-10;

// Floats have their sum and difference in single precision.
template <class T>
struct Interval {
    using Sum = std::conditional_t<std::is_integral_v<T>, int, T>;
    Orb64f mid, scale;

    Interval(T low, T high)
        : mid(static_cast<Orb64f>(Sum{low} + Sum{high}) * 0.5),
          scale(static_cast<Orb64f>(Sum{high} - Sum{low}) * outputScale) {}
};
template <>
struct Interval<Orb64f> {
    Orb64f mid, scale;

    Interval(Orb64f low, Orb64f high) : mid((low + high) * 0.5), scale(high * outputScale - outputScale * low) {}
};

// Short, so that the processor converts a block while it waits for the next one's carries.
constexpr std::size_t uniformBlock = 64;

struct Truncated {
    template <class D, class V, class T>
    static void store(D d, V v, T* p) {
        storeWhole(d, truncatedInt32(v), p);
    }
};
// As the caller's rounding mode says: integers and single precision.
struct Rounded {
    template <class D, class V>
    static void store(D d, V v, Orb16s* p) {
        storeWhole(d, nearestInt32(v), p);
    }
    template <class D, class V>
    static void store(D, V v, Orb32f* p) {
        const hn::Rebind<Orb32f, D> single;
        hn::StoreU(hn::DemoteTo(single, v), single, p);
    }
    template <class D, class V>
    static void store(D d, V v, Orb64f* p) {
        hn::StoreU(v, d, p);
    }
};

template <class Stored, class T>
void uniform(RandomCore& core, Orb64f mid, Orb64f scale, T* dst, std::size_t len) {
    RandomWords words;
    for (std::size_t n = 0; n < len; n += uniformBlock) {
        const std::size_t count = std::min(uniformBlock, len - n);
        nextWords(core, count, words);
        forEachVector<Orb64f>(count, [=, &words](auto d, std::size_t k) HWY_ATTR {
            const auto v = loadFloats(d, &words.word[k]) * hn::Set(d, scale) + hn::Set(d, mid);
            Stored::store(d, v, dst + n + k);
        });
    }
}

template <class State, class T = typename State::Sample>
State begin(T low, T high, Orb32u seed) {
    const Interval<T> interval(low, high);
    State state = {};
    state.tag = State::ownTag;
    state.seed = seed;
    state.low = low;
    state.high = high;
    state.mid = interval.mid;
    state.scale = interval.scale;
    state.core = seededCore(seed);
    return state;
}

template <class State, class T>
OrbStatus next(T* pDst, int len, State* pState) {
    if (const OrbStatus status = checkCall(len, pDst, pState)) return status;
    using Stored = std::conditional_t<std::is_integral_v<T>, Truncated, Rounded>;
    RandomCore core = pState->core;
    uniform<Stored>(core, pState->mid, pState->scale, pDst, static_cast<std::size_t>(len));
    pState->core = core;
    return orbStsNoErr;
}

// 16-bit samples are rounded, but for the last one of an odd number, which is cut off.
template <class T>
OrbStatus direct(T* pDst, int len, T low, T high, Orb32u* pSeed) {
    if (const OrbStatus status = checkVectors(len, pDst, pSeed)) return status;
    const Interval<T> interval(low, high);
    const auto count = static_cast<std::size_t>(len), lone = std::is_integral_v<T> ? count % 2 : 0;
    RandomCore core = seededCore(elementAt(pSeed));
    uniform<Rounded>(core, interval.mid, interval.scale, pDst, count - lone);
    if constexpr (std::is_integral_v<T>)
        uniform<Truncated>(core, interval.mid, interval.scale, pDst + count - lone, lone);
    setElement(pSeed, core.x1);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsRandUniformInitAlloc_8u(OrbsRandUniState_8u** ppState, Orb8u low, Orb8u high, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandUniState_8u>(low, high, seed)); }
OrbStatus orbsRandUniformInitAlloc_16s(OrbsRandUniState_16s** ppState, Orb16s low, Orb16s high, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandUniState_16s>(low, high, seed)); }
OrbStatus orbsRandUniformInitAlloc_32f(OrbsRandUniState_32f** ppState, Orb32f low, Orb32f high, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandUniState_32f>(low, high, seed)); }
OrbStatus orbsRandUniformInit_16s(OrbsRandUniState_16s* pState, Orb16s low, Orb16s high, Orb32u seed) { return initState(pState, begin<OrbsRandUniState_16s>(low, high, seed)); }
OrbStatus orbsRandUniformGetSize_16s(int* pSize) { return stateSize<OrbsRandUniState_16s>(pSize); }
OrbStatus orbsRandUniform_8u(Orb8u* pDst, int len, OrbsRandUniState_8u* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandUniform_16s(Orb16s* pDst, int len, OrbsRandUniState_16s* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandUniform_32f(Orb32f* pDst, int len, OrbsRandUniState_32f* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandUniformFree_8u(OrbsRandUniState_8u* pState) { return freeState(pState); }
OrbStatus orbsRandUniformFree_16s(OrbsRandUniState_16s* pState) { return freeState(pState); }
OrbStatus orbsRandUniformFree_32f(OrbsRandUniState_32f* pState) { return freeState(pState); }

OrbStatus orbsRandUniform_Direct_16s(Orb16s* pDst, int len, Orb16s low, Orb16s high, Orb32u* pSeed) { return direct(pDst, len, low, high, pSeed); }
OrbStatus orbsRandUniform_Direct_32f(Orb32f* pDst, int len, Orb32f low, Orb32f high, Orb32u* pSeed) { return direct(pDst, len, low, high, pSeed); }
OrbStatus orbsRandUniform_Direct_64f(Orb64f* pDst, int len, Orb64f low, Orb64f high, Orb32u* pSeed) { return direct(pDst, len, low, high, pSeed); }

}
// clang-format on
