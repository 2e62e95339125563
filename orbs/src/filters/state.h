// The state object of a FIR filter with float or double taps: one block of memory, the head in front of its areas, no
// address inside.
//
//   D, the delay buffer of a single-rate filter, in the type of the taps: the last tapsLen samples stand at
//   D[dlyLineIndex] and on, oldest first. A single sample is written twice, tapsLen apart, so that this run never
//   wraps; a block is written behind the run and leaves it at D[0].
//   That of a multi-rate filter is in the type of the samples: the last dlyLineLen stand at D[0] and on.
#pragma once

#include "fft/members.h"
#include "filters/kernels.h"
#include "foundation/objects.h"

#include <cstdint>

namespace orbs {

// What the type of the taps decides: from how many taps a filter is made with an FFT, which FFT, and above how many
// samples a block goes through it or is spread over a team.
template <class SpecType, int fromTaps, int longBlock, int teamBlock>
struct FirWays {
    using Spec = SpecType;
    using Fft = fft::Members<Spec>;
    static constexpr int fftFromTaps = fromTaps, fftAbove = longBlock, teamAbove = teamBlock;
};

template <class Tap>
struct FirRules;
template <>
struct FirRules<Orb32f> : FirWays<OrbsFFTSpec_R_32f, 64, 511, 1600> {};
template <>
struct FirRules<Orb32fc> : FirWays<OrbsFFTSpec_C_32fc, 16, 255, 800> {};
template <>
struct FirRules<Orb64f> : FirWays<OrbsFFTSpec_R_64f, 32, 511, 1600> {};
template <>
struct FirRules<Orb64fc> : FirWays<OrbsFFTSpec_C_64fc, 16, 255, 800> {};

// The head. Multi-rate objects have the same one: fields that a single-rate filter does not use stay 0.
template <class TapType, class SampleType, Orb32s tagOfSingleRate, Orb32s tagOfMultiRate>
struct FirState {
    using Tap = TapType;
    using Sample = SampleType;
    using Rules = FirRules<Tap>;
    static constexpr Orb32s singleRateTag = tagOfSingleRate, multiRateTag = tagOfMultiRate;

    Orb32s tag;
    RelativePtr<Tap> pTaps;    // oldest sample's tap first
    RelativePtr<Tap> pDlyLine; // D
    Orb32s tapsLen;
    Orb32s upFactor;
    Orb32s headLen; // blocks of at most so many samples run wholly through D
    Orb32s downFactor;
    Orb32s headOut;
    RelativePtr<typename Rules::Spec> pFFTSpec;
    RelativePtr<Tap> pFFTTaps; // spectrum of the taps, padded to fftLen
    Orb32s fftLen;             // -1 without FFT
    Orb32s dlyLineIndex;
    RelativePtr<Orb32s> pPhaseSkip; // multi-rate: where the samples of the rows begin
    RelativePtr<Tap> pTapsAux;      // multi-rate: the rows. Else none: vectors take their taps from pTaps
    Orb32s mrCount;                 // multi-rate: periods whose outputs pStaging has room for
    Orb32s mrKind;
    Orb32s dlyLineLen;          // samples that GetDlyLine and SetDlyLine move
    RelativePtr<Tap> pFFTWork;  // fftLen elements for each of workAreas threads
    RelativePtr<Orb8u> pFFTBuf; // fftBufSize bytes for each of workAreas threads
    Orb32s fftBufSize;
    RelativePtr<Tap> pStaging; // stagingLen elements, for calls in place and for samples of another type than the taps
    RelativePtr<OrbStatus> pThreadStatus;
    Orb32s ownsMemory;
    Orb32s upPhase;
    Orb32s downPhase;
    Orb32s workAreas; // threads that the FFT areas have room for
    Orb32s reserved[2];
};

constexpr int stagingLen = 4096;

template <class State>
using TapOf = typename State::Tap;
template <class State>
using SampleOf = typename State::Sample;

// Which states of a pair of types a member takes: those of one rate alone, or multi-rate ones too.
enum class Kinds { singleRate, both };

template <class State>
bool isMultiRate(const State* state) {
    return state->tag == State::multiRateTag;
}
template <Kinds kinds, class State>
OrbStatus checkState(const State* state) {
    return kinds == Kinds::both && isMultiRate(state) ? orbStsNoErr : checkTag(state, State::singleRateTag);
}

// tapsLen rounded up to a multiple of four: the first outputs of a block, which reach back into the delay line.
constexpr Orb32s headOutputs(Orb32s tapsLen) {
    return (tapsLen + 3) & ~3;
}

// D has room for the line behind any index below tapsLen, and for headLen new samples behind that.
constexpr std::uint64_t delayCapacity(std::uint64_t tapsLen) {
    return 3 * tapsLen + 4;
}

} // namespace orbs

struct OrbsFIRState_32f : orbs::FirState<Orb32f, Orb32f, orbs::tagWord("FI01"), orbs::tagWord("FI03")> {};
struct OrbsFIRState_32fc : orbs::FirState<Orb32fc, Orb32fc, orbs::tagWord("FI02"), orbs::tagWord("FI04")> {};
struct OrbsFIRState32f_16s : orbs::FirState<Orb32f, Orb16s, orbs::tagWord("FI05"), orbs::tagWord("FI07")> {};
struct OrbsFIRState32fc_16sc : orbs::FirState<Orb32fc, Orb16sc, orbs::tagWord("FI06"), orbs::tagWord("FI08")> {};
struct OrbsFIRState_64f : orbs::FirState<Orb64f, Orb64f, orbs::tagWord("FI13"), orbs::tagWord("FI15")> {};
struct OrbsFIRState_64fc : orbs::FirState<Orb64fc, Orb64fc, orbs::tagWord("FI14"), orbs::tagWord("FI16")> {};
struct OrbsFIRState64f_32f : orbs::FirState<Orb64f, Orb32f, orbs::tagWord("FI17"), orbs::tagWord("FI19")> {};
struct OrbsFIRState64fc_32fc : orbs::FirState<Orb64fc, Orb32fc, orbs::tagWord("FI18"), orbs::tagWord("FI20")> {};
struct OrbsFIRState64f_32s : orbs::FirState<Orb64f, Orb32s, orbs::tagWord("FI21"), orbs::tagWord("FI23")> {};
struct OrbsFIRState64fc_32sc : orbs::FirState<Orb64fc, Orb32sc, orbs::tagWord("FI22"), orbs::tagWord("FI24")> {};
struct OrbsFIRState64f_16s : orbs::FirState<Orb64f, Orb16s, orbs::tagWord("FI25"), orbs::tagWord("FI27")> {};
struct OrbsFIRState64fc_16sc : orbs::FirState<Orb64fc, Orb16sc, orbs::tagWord("FI26"), orbs::tagWord("FI28")> {};

static_assert(sizeof(OrbsFIRState_32f) == 112 && alignof(OrbsFIRState_64fc) == 4);
