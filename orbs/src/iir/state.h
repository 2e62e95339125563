// The state object of an IIR filter: one block of memory, the head in front of its areas, no address inside. All
// arithmetic is in the type of the taps, so what filters knows a state by its head alone; the type of the samples
// matters to the calls only.
#pragma once

#include "foundation/objects.h"
#include "iir/elements.h"
#include "orbs/iir.h"

namespace orbs {

// The samples of a chunk: longer blocks are cut, and work areas hold so many.
constexpr int chunkLen = 1024;

template <class TapType>
struct IirHead {
    using Tap = TapType;

    Orb32s tag;
    RelativePtr<Tap> pTaps; // over a[0]: b[0] .. b[order], a[1] .. a[order]; a cascade has b0, b1, b2, a1, a2 of each
    RelativePtr<Tap> pDlyLine;            // `order` partial sums; not in a cascade, one more that stays 0
    Orb32s order;                         // 2 * numBq in a cascade
    RelativePtr<Tap> pXTable;             // none: vectors take b from pTaps
    RelativePtr<Part<Tap>> pYTable;       // not in a cascade: the table of the recursion (groups.h)
    Orb32s numBq;                         // 0 if not a cascade
    RelativePtr<Part<Tap>> pSectionTable; // in a cascade: a table for each section (groups.h)
    RelativePtr<Tap> pWork;               // chunkLen sums over the inputs
    RelativePtr<Tap> pWorkOut;            // chunkLen samples in the type of the taps, if theirs is another
    Orb32s ownsMemory;
    Orb32s reserved;
};

template <class TapType, class SampleType, Orb32s tagOfFilter, Orb32s tagOfCascade, class LineType = TapType>
struct IirState : IirHead<TapType> {
    using Sample = SampleType;
    using Line = LineType; // what callers take the words of the delay line for
    static constexpr Orb32s filterTag = tagOfFilter, cascadeTag = tagOfCascade;
    static constexpr bool convertsSamples = !std::is_same_v<TapType, SampleType>;
};

template <class State>
OrbStatus checkEitherTag(const State* state) {
    return state->tag == State::filterTag || state->tag == State::cascadeTag ? orbStsNoErr : orbStsContextMatchErr;
}

// ---- What filters, by the type of the taps ----

// Replaces the taps. orbStsDivByZeroErr without a change if a[0] is 0; in a cascade after the sections before it.
template <class Tap>
OrbStatus setFilterTaps(IirHead<Tap>* state, const Tap* pTaps);
template <class Tap>
OrbStatus setSectionTaps(IirHead<Tap>* state, const Tap* pTaps);

// The next sample of the stream, and the next ones, at most chunkLen; y may be x.
template <class Tap>
Tap filterSample(const IirHead<Tap>* state, Tap x);
template <class Tap>
void filterChunk(const IirHead<Tap>* state, const Tap* x, Tap* y, int count);

} // namespace orbs

struct OrbsIIRState_32f : orbs::IirState<Orb32f, Orb32f, orbs::tagWord("II01"), orbs::tagWord("II02")> {};
struct OrbsIIRState_32fc : orbs::IirState<Orb32fc, Orb32fc, orbs::tagWord("II03"), orbs::tagWord("II04")> {};
struct OrbsIIRState32f_16s : orbs::IirState<Orb32f, Orb16s, orbs::tagWord("II05"), orbs::tagWord("II06")> {};
struct OrbsIIRState32fc_16sc : orbs::IirState<Orb32fc, Orb16sc, orbs::tagWord("II07"), orbs::tagWord("II08")> {};
struct OrbsIIRState32s_16s : orbs::IirState<Orb32f, Orb16s, orbs::tagWord("II09"), orbs::tagWord("II10"), Orb32s> {};
struct OrbsIIRState32sc_16sc : orbs::IirState<Orb32fc, Orb16sc, orbs::tagWord("II11"), orbs::tagWord("II12"), Orb32sc> {
};
struct OrbsIIRState_64f : orbs::IirState<Orb64f, Orb64f, orbs::tagWord("II13"), orbs::tagWord("II14")> {};
struct OrbsIIRState_64fc : orbs::IirState<Orb64fc, Orb64fc, orbs::tagWord("II15"), orbs::tagWord("II16")> {};
struct OrbsIIRState64f_32f : orbs::IirState<Orb64f, Orb32f, orbs::tagWord("II17"), orbs::tagWord("II18")> {};
struct OrbsIIRState64fc_32fc : orbs::IirState<Orb64fc, Orb32fc, orbs::tagWord("II19"), orbs::tagWord("II20")> {};
struct OrbsIIRState64f_32s : orbs::IirState<Orb64f, Orb32s, orbs::tagWord("II21"), orbs::tagWord("II22")> {};
struct OrbsIIRState64fc_32sc : orbs::IirState<Orb64fc, Orb32sc, orbs::tagWord("II23"), orbs::tagWord("II24")> {};
struct OrbsIIRState64f_16s : orbs::IirState<Orb64f, Orb16s, orbs::tagWord("II25"), orbs::tagWord("II26")> {};
struct OrbsIIRState64fc_16sc : orbs::IirState<Orb64fc, Orb16sc, orbs::tagWord("II27"), orbs::tagWord("II28")> {};

static_assert(sizeof(OrbsIIRState_32f) == 48 && alignof(OrbsIIRState_64fc) == 4);
