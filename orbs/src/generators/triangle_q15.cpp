// Triangle with Q15 arguments: the walk of Triangle_Direct, or one that a state keeps.
#include "generators/state.h"
#include "generators/walk.h"
#include "orbs/generators.h"

// 128 bytes on every ABI, at any address.
struct [[gnu::packed]] OrbsTriangleState_16s {
    Orb32s tag;
    Orb64f magn, rFreq, phase, asym;
    orbs::WalkNumbers walk; // zeros until started
    Orb32s isRising;
    Orb32s isAllocated;
    Orb32s isStarted;

    static constexpr Orb32s ownTag = orbs::tagWord("CMAI"); // "IAMC" in memory

    static OrbStatus check(Orb16s magnitude, Orb16s rFreqQ15, int phaseQ15, int asymQ15) {
        if (magnitude < 1) return orbStsTriangleMagnErr;
        if (!orbs::isWithin(rFreqQ15, 0, orbs::halfQ15)) return orbStsTriangleFreqErr;
        if (!orbs::isWithin(phaseQ15, 0, orbs::twoPiQ15)) return orbStsTrianglePhaseErr;
        if (!orbs::isWithin(asymQ15, 1 - orbs::piQ15, orbs::piQ15)) return orbStsTriangleAsymErr;
        return orbStsNoErr;
    }
    void set(Orb16s magnitude, Orb16s rFreqQ15, int phaseQ15, int asymQ15) {
        magn = magnitude;
        rFreq = rFreqQ15 * orbs::unitQ15;
        phase = phaseQ15 * orbs::unitQ15;
        asym = asymQ15 * orbs::unitQ15;
        walk = {};
        isRising = 0;
    }
};
static_assert(sizeof(OrbsTriangleState_16s) == 128);

namespace {

using namespace orbs;
using State = OrbsTriangleState_16s;

OrbStatus direct(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    if (const OrbStatus status = State::check(magn, rFreqQ15, phaseQ15, asymQ15)) return status;
    const auto exact = [](int q15) { return static_cast<Orb32f>(q15 * unitQ15); };
    Orb32f phase = exact(phaseQ15);
    return orbsTriangle_Direct_16s(pDst, len, magn, exact(rFreqQ15), exact(asymQ15), &phase);
}

OrbStatus next(Orb16s* pDst, int len, State* pState) {
    if (const OrbStatus status = checkCall(len, pDst, pState)) return status;
    Walk walk = pState->isStarted ? Walk(pState->magn, pState->walk, pState->isRising != 0)
                                  : Walk(pState->magn, pState->rFreq, pState->phase, Spans(pState->asym));
    inRuns(
        static_cast<std::size_t>(len), pDst,
        [&](Orb64f* run, std::size_t count) {
            Walk one = walk;
            for (std::size_t n = 0; n < count; ++n) run[n] = one.next();
            walk = one;
        },
        [](auto d, auto v, Orb16s* p) HWY_ATTR { storeRoundedAway(d, v, p); });
    pState->walk = walk.numbers();
    pState->isRising = walk.isRising();
    pState->isStarted = 1;
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsTriangleQ15_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15) { return direct(pDst, len, magn, rFreqQ15, phaseQ15, asymQ15); }

OrbStatus orbsTriangleInitQ15_16s(OrbsTriangleState_16s* pState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15) { return initState(pState, magn, rFreqQ15, phaseQ15, asymQ15); }
OrbStatus orbsTriangleInitAllocQ15_16s(OrbsTriangleState_16s** ppState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15, int asymQ15) { return initAllocState(ppState, magn, rFreqQ15, phaseQ15, asymQ15); }
OrbStatus orbsTriangleGetStateSizeQ15_16s(int* pSize) { return stateSize<OrbsTriangleState_16s>(pSize); }
OrbStatus orbsTriangleQ15_16s(Orb16s* pDst, int len, OrbsTriangleState_16s* pState) { return next(pDst, len, pState); }
OrbStatus orbsTriangleFree(OrbsTriangleState_16s* pState) { return freeState(pState); }

}
// clang-format on
