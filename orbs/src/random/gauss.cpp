// RandGauss: the polar method of Marsaglia. Two outputs u, v of the core, in -1 to 1, make a pair if s = u^2 + v^2 is
// above 0 and below 1; others are passed over. With r = sqrt(-2 ln(s) / s) the deviates of a pair are r v, then r u.
#include "elementary/ln.h"
#include "random/states.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

#include <algorithm>
#include <type_traits>

namespace {

using namespace orbs;

// Close above 2^-31, and part of the streams as it stands.
constexpr Orb64f outputScale = 4.656612873077e-10;

constexpr std::size_t pairBlock = randomBlock / 2;

// Room for whole vectors from any pair on.
struct Pairs {
    using Column = std::array<Orb64f, pairBlock + 64 / sizeof(Orb64f)>;
    alignas(64) Column u, v, r;
};

// The next `count` pairs, at most a block. As many outputs are drawn as the pairs that are wanting must take, so that
// the core stands behind the last pair at the end; each time about a fifth is passed over.
void nextPairs(RandomCore& core, std::size_t count, Pairs& pairs) {
    const hn::ScalableTag<Orb64f> d;
    const hn::Rebind<Orb32s, decltype(d)> whole;
    RandomWords words;
    for (std::size_t have = 0; have < count;) {
        const std::size_t drawn = count - have;
        nextWords(core, 2 * drawn, words);
        for (std::size_t n = 0; n < drawn; n += hn::MaxLanes(d)) {
            hn::VFromD<decltype(whole)> first, second;
            hn::LoadInterleaved2(whole, &words.word[2 * n], first, second);
            const auto u = hn::PromoteTo(d, first) * hn::Set(d, outputScale);
            const auto v = hn::PromoteTo(d, second) * hn::Set(d, outputScale);
            const auto s = u * u + v * v;
            const auto inside = hn::And(hn::Lt(s, hn::Set(d, 1.0)), hn::Gt(s, hn::Zero(d)));
            const auto taken = hn::And(inside, hn::FirstN(d, drawn - n));
            hn::CompressStore(u, taken, d, &pairs.u[have]);
            hn::CompressStore(v, taken, d, &pairs.v[have]);
            have += hn::CompressStore(s, taken, d, &pairs.r[have]);
        }
    }
    const auto radius = [](auto tag, auto s) HWY_ATTR { return hn::Sqrt(hn::Set(tag, -2.0) * lnOfNormal(tag, s) / s); };
    mapVectors<1, false>(count, radius, pairs.r.data(), pairs.r.data());
}

// stdDev * r * value of each deviate in its order.
struct Deviates {
    alignas(64) std::array<Orb64f, 2 * pairBlock> deviate;
};
void scaledDeviates(const Pairs& pairs, Orb64f stdDev, std::size_t count, Deviates& deviates) {
    forEachVector<Orb64f>(count, [=, &pairs, &deviates](auto d, std::size_t n) HWY_ATTR {
        const auto r = hn::Set(d, stdDev) * hn::LoadU(d, &pairs.r[n]);
        hn::StoreInterleaved2(r * hn::LoadU(d, &pairs.v[n]), r * hn::LoadU(d, &pairs.u[n]), d,
                              &deviates.deviate[2 * n]);
    });
}

// Integers are cut off and limited; single precision is rounded before the mean is added.
template <class T>
void store(const Orb64f* deviate, std::size_t count, T mean, T* dst) {
    forEachVector<Orb64f>(count, [=](auto d, std::size_t n) HWY_ATTR {
        const auto v = hn::LoadU(d, deviate + n);
        if constexpr (std::is_same_v<T, Orb32f>) {
            const hn::Rebind<Orb32f, decltype(d)> single;
            hn::StoreU(hn::DemoteTo(single, v) + hn::Set(single, mean), single, dst + n);
        } else {
            const auto sample = v + hn::Set(d, static_cast<Orb64f>(mean));
            if constexpr (std::is_integral_v<T>) {
                storeWhole(d, truncatedInt32(sample), dst + n);
            } else {
                hn::StoreU(sample, d, dst + n);
            }
        }
    });
}

// `len` samples from new pairs, at least `pairCount` of them. Returns the place of the last pair.
template <class T>
std::size_t gauss(RandomCore& core, Pairs& pairs, std::size_t pairCount, T mean, T stdDev, T* dst, std::size_t len) {
    Deviates deviates;
    std::size_t count = 0;
    for (std::size_t n = 0; n < pairCount; n += count) {
        count = std::min(pairBlock, pairCount - n);
        nextPairs(core, count, pairs);
        scaledDeviates(pairs, static_cast<Orb64f>(stdDev), count, deviates);
        store(deviates.deviate.data(), std::min(2 * count, len - 2 * n), mean, dst + 2 * n);
    }
    return count - 1;
}

template <class State, class T = typename State::Sample>
State begin(T mean, T stdDev, Orb32u seed) {
    State state = {};
    state.tag = State::ownTag;
    state.seed = seed;
    state.mean = mean;
    state.stdDev = stdDev;
    state.core = seededCore(seed);
    state.useNewPair = 1;
    return state;
}

template <class State, class T>
OrbStatus next(T* pDst, int len, State* pState) {
    if (const OrbStatus status = checkCall(len, pDst, pState)) return status;
    auto rest = static_cast<std::size_t>(len);
    const T mean = pState->mean, stdDev = pState->stdDev;
    if (!pState->useNewPair) {
        const Orb64f deviate = static_cast<Orb64f>(stdDev) * pState->radius * pState->held;
        store(&deviate, 1, mean, pDst++);
        pState->useNewPair = 1;
        --rest;
    }
    if (rest == 0) return orbStsNoErr;
    RandomCore core = pState->core;
    Pairs pairs;
    const std::size_t last = gauss(core, pairs, (rest + 1) / 2, mean, stdDev, pDst, rest);
    pState->core = core;
    if (rest % 2 != 0) {
        pState->useNewPair = 0;
        pState->radius = pairs.r[last];
        pState->held = pairs.u[last];
    }
    return orbStsNoErr;
}

// A pair more than an even number of samples needs is drawn, which the seed that is handed back stands behind.
template <class T>
OrbStatus direct(T* pDst, int len, T mean, T stdDev, Orb32u* pSeed) {
    if (const OrbStatus status = checkVectors(len, pDst, pSeed)) return status;
    const auto count = static_cast<std::size_t>(len);
    RandomCore core = seededCore(elementAt(pSeed));
    Pairs pairs;
    gauss(core, pairs, count / 2 + 1, mean, stdDev, pDst, count);
    setElement(pSeed, core.x1);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsRandGaussInitAlloc_8u(OrbsRandGaussState_8u** ppState, Orb8u mean, Orb8u stdDev, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandGaussState_8u>(mean, stdDev, seed)); }
OrbStatus orbsRandGaussInitAlloc_16s(OrbsRandGaussState_16s** ppState, Orb16s mean, Orb16s stdDev, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandGaussState_16s>(mean, stdDev, seed)); }
OrbStatus orbsRandGaussInitAlloc_32f(OrbsRandGaussState_32f** ppState, Orb32f mean, Orb32f stdDev, Orb32u seed) { return initAllocState(ppState, begin<OrbsRandGaussState_32f>(mean, stdDev, seed)); }
OrbStatus orbsRandGaussInit_16s(OrbsRandGaussState_16s* pState, Orb16s mean, Orb16s stdDev, Orb32u seed) { return initState(pState, begin<OrbsRandGaussState_16s>(mean, stdDev, seed)); }
OrbStatus orbsRandGaussGetSize_16s(int* pSize) { return stateSize<OrbsRandGaussState_16s>(pSize); }
OrbStatus orbsRandGauss_8u(Orb8u* pDst, int len, OrbsRandGaussState_8u* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandGauss_16s(Orb16s* pDst, int len, OrbsRandGaussState_16s* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandGauss_32f(Orb32f* pDst, int len, OrbsRandGaussState_32f* pState) { return next(pDst, len, pState); }
OrbStatus orbsRandGaussFree_8u(OrbsRandGaussState_8u* pState) { return freeState(pState); }
OrbStatus orbsRandGaussFree_16s(OrbsRandGaussState_16s* pState) { return freeState(pState); }
OrbStatus orbsRandGaussFree_32f(OrbsRandGaussState_32f* pState) { return freeState(pState); }

OrbStatus orbsRandGauss_Direct_16s(Orb16s* pDst, int len, Orb16s mean, Orb16s stdDev, Orb32u* pSeed) { return direct(pDst, len, mean, stdDev, pSeed); }
OrbStatus orbsRandGauss_Direct_32f(Orb32f* pDst, int len, Orb32f mean, Orb32f stdDev, Orb32u* pSeed) { return direct(pDst, len, mean, stdDev, pSeed); }
OrbStatus orbsRandGauss_Direct_64f(Orb64f* pDst, int len, Orb64f mean, Orb64f stdDev, Orb32u* pSeed) { return direct(pDst, len, mean, stdDev, pSeed); }

}
// clang-format on
