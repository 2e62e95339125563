// Tone with Q15 arguments: a cosine a sample, from its arguments or from a state.
#include "generators/phase.h"
#include "generators/samples.h"
#include "generators/state.h"
#include "orbs/generators.h"
#include "vectors/sincos.h"

// 40 bytes on every ABI, at any address.
struct [[gnu::packed]] OrbsToneState_16s {
    Orb32s tag;
    Orb64f magn, rFreq, phase;
    Orb32s sample; // the next one's number; not read until started
    Orb32s isAllocated;
    Orb32s isStarted;

    static constexpr Orb32s ownTag = orbs::tagWord("CMAH"); // "HAMC" in memory

    static OrbStatus check(Orb16s magnitude, Orb16s rFreqQ15, int phaseQ15) {
        if (magnitude < 1) return orbStsToneMagnErr;
        if (!orbs::isWithin(rFreqQ15, 0, orbs::halfQ15)) return orbStsToneFreqErr;
        if (!orbs::isWithin(phaseQ15, 0, orbs::twoPiQ15)) return orbStsTonePhaseErr;
        return orbStsNoErr;
    }
    void set(Orb16s magnitude, Orb16s rFreqQ15, int phaseQ15) {
        magn = magnitude;
        rFreq = rFreqQ15 * orbs::unitQ15;
        phase = phaseQ15 * orbs::unitQ15;
    }
};
static_assert(sizeof(OrbsToneState_16s) == 40);

namespace {

using namespace orbs;
using State = OrbsToneState_16s;

// magn * cos(2 pi rFreq n + phase) for the samples from n = first on, a half away from zero. 2^32 samples are whole
// periods of every Q15 frequency: the numbers may wrap.
void cosines(Orb16s* dst, int len, Orb32u first, const State& state) {
    const Orb64f magn = state.magn, w = twoPi * state.rFreq, phase = state.phase;
    forEachNumbered<Orb64f>(first, static_cast<std::size_t>(len), [=](auto d, std::size_t n, auto numbers) HWY_ATTR {
        const auto angle = hn::Set(d, w) * asFloats(d, numbers) + hn::Set(d, phase);
        storeRoundedAway(d, hn::Set(d, magn) * sinCos(d, angle).cos, dst + n);
    });
}

OrbStatus direct(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    if (const OrbStatus status = State::check(magn, rFreqQ15, phaseQ15)) return status;
    State state{};
    state.set(magn, rFreqQ15, phaseQ15);
    cosines(pDst, len, 0, state);
    return orbStsNoErr;
}

OrbStatus next(Orb16s* pDst, int len, State* pState) {
    if (const OrbStatus status = checkCall(len, pDst, pState)) return status;
    const Orb32u first = pState->isStarted ? static_cast<Orb32u>(pState->sample) : 0;
    cosines(pDst, len, first, *pState);
    pState->sample = static_cast<Orb32s>(first + static_cast<Orb32u>(len));
    pState->isStarted = 1;
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsToneQ15_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb16s rFreqQ15, int phaseQ15) { return direct(pDst, len, magn, rFreqQ15, phaseQ15); }

OrbStatus orbsToneInitQ15_16s(OrbsToneState_16s* pState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15) { return initState(pState, magn, rFreqQ15, phaseQ15); }
OrbStatus orbsToneInitAllocQ15_16s(OrbsToneState_16s** ppState, Orb16s magn, Orb16s rFreqQ15, int phaseQ15) { return initAllocState(ppState, magn, rFreqQ15, phaseQ15); }
OrbStatus orbsToneGetStateSizeQ15_16s(int* pSize) { return stateSize<OrbsToneState_16s>(pSize); }
OrbStatus orbsToneQ15_16s(Orb16s* pDst, int len, OrbsToneState_16s* pState) { return next(pDst, len, pState); }
OrbStatus orbsToneFree(OrbsToneState_16s* pState) { return freeState(pState); }

}
// clang-format on
