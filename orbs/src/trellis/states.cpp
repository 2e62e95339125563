// CalcStatesDV, UpdatePathMetricsDV: the step of a Viterbi decoder from one symbol to the next.
#include "foundation/frame.h"
#include "orbs/trellis.h"
#include "vectors/loops.h"

#include <algorithm>
#include <array>

namespace {

using namespace orbs;

constexpr std::size_t mostStates = 64, branches = 16;

std::size_t statesOf(int state) {
    return state == 16 || state == 32 ? static_cast<std::size_t>(state) : mostStates;
}

// A path's metric, above 10 bits that number its branch, first state first: the least key is the first of the best
// paths, and found without a jump.
constexpr int numberBits = 10;
using Key = Orb32u;

void calcStates(const Orb16u* pPathError, const Orb8u* pNextState, Orb16u* pBranchError, const Orb16s* pBranch,
                Orb32u* pHistory, std::size_t states) {
    std::array<std::array<Key, branches>, 2> branchKeys; // of even and of odd states
    for (std::size_t k = 0; k < branches; ++k)
        for (std::size_t odd = 0; odd < 2; ++odd)
            branchKeys[odd][k] =
                Key{static_cast<Orb16u>(elementAt(pBranch + 4 * k + 2 * odd + 1))} << numberBits | static_cast<Key>(k);

    // A next state that is none keeps its 0, below every key.
    std::array<Key, 256> least{};
    for (std::size_t n = 0; n < states; ++n) least[n] = Key{elementAt(pBranchError + n)} << numberBits;
    for (std::size_t s = 0; s < states; ++s) {
        const Key path = Key{elementAt(pPathError + s)} << numberBits | static_cast<Key>(s * branches);
        const auto& keys = branchKeys[s % 2];
        const Orb8u* const next = pNextState + branches * s;
        for (std::size_t k = 0; k < branches; ++k) least[next[k]] = std::min(least[next[k]], keys[k] + path);
    }

    for (std::size_t n = 0; n < states; ++n) {
        const Key metric = least[n] >> numberBits, number = least[n] % (Key{1} << numberBits);
        if (metric >= elementAt(pBranchError + n)) continue;
        const std::size_t s = number / branches, k = number % branches;
        const auto code = static_cast<Orb16u>(elementAt(pBranch + 4 * k + 2 * (s % 2)));
        setElement(pBranchError + n, static_cast<Orb16u>(metric));
        setElement(pHistory + n, code | static_cast<Orb32u>(s) << 16);
    }
}

OrbStatus calcStates(const Orb16u* pPathError, const Orb8u* pNextState, Orb16u* pBranchError, const Orb16s* pBranch,
                     Orb32u* pHistory, int state, int presentIndex) {
    if (anyNull(pPathError, pNextState, pBranchError, pBranch, pHistory)) return orbStsNullPtrErr;
    calcStates(pPathError, pNextState, pBranchError, pBranch, pHistory + presentIndex, statesOf(state));
    return orbStsNoErr;
}

OrbStatus updatePathMetrics(Orb16u* pBranchError, Orb16u* pMinPathError, Orb8u* pMinState, Orb16u* pPathError,
                            int state) {
    if (anyNull(pBranchError, pMinPathError, pMinState, pPathError)) return orbStsNullPtrErr;
    const hn::FixedTag<Orb16u, 8> d;
    const std::size_t states = statesOf(state);
    auto least = hn::LoadU(d, pBranchError);
    for (std::size_t n = 8; n < states; n += 8) least = hn::Min(least, hn::LoadU(d, pBranchError + n));
    least = hn::MinOfLanes(d, least);

    std::size_t first = states;
    for (std::size_t n = states; n > 0;) {
        n -= 8;
        const auto metrics = hn::LoadU(d, pBranchError + n);
        const auto at = hn::FindFirstTrue(d, metrics == least);
        if (at >= 0) first = n + static_cast<std::size_t>(at);
        hn::StoreU(metrics - least, d, pPathError + n);
        hn::StoreU(hn::Set(d, 0xffff), d, pBranchError + n);
    }
    setElement(pMinPathError, hn::GetLane(least));
    *pMinState = static_cast<Orb8u>(first);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsCalcStatesDV_16sc(const Orb16u* pPathError, const Orb8u* pNextState, Orb16u* pBranchError, const Orb16s* pBranch, Orb32u* pHistory, int state, int presentIndex) { return calcStates(pPathError, pNextState, pBranchError, pBranch, pHistory, state, presentIndex); }
OrbStatus orbsUpdatePathMetricsDV_16u(Orb16u* pBranchError, Orb16u* pMinPathError, Orb8u* pMinState, Orb16u* pPathError, int state) { return updatePathMetrics(pBranchError, pMinPathError, pMinState, pPathError, state); }

}
// clang-format on
