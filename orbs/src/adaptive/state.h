// The state of an LMS filter with float taps: one block of memory, the head in front of its areas, no address inside.
//
//   taps  oldest sample's tap first, in rows of `lanes`, as adapt.h wants them
//   D     the last tapsLen samples, oldest first, as floats; behind them room for a block of samples, and for a row
//         that is loaded whole
//
// Callers see the line as a ring. It is one in their calls only: D[0] is the sample at the ring's index.
#pragma once

#include "adaptive/adapt.h"
#include "adaptive/cycle.h"

namespace orbs {

constexpr int lmsBlock = 2048;

template <class SampleType, Orb32s tagOfKind>
struct LmsState {
    using Sample = SampleType;
    static constexpr Orb32s ownTag = tagOfKind;

    Orb32s tag;
    RelativePtr<Orb32f> pTaps;
    RelativePtr<Orb32f> pDlyLine; // D
    Orb32s dlyLineIndex;
    Orb32s tapsLen;
    RelativePtr<Orb32f> pStaging; // lmsBlock references, and then outputs, of samples that are no floats
    Orb32s reserved[2];
};

template <class State>
struct LmsAreas {
    State* head;
    Orb32f *taps, *dlyLine, *staging;
    std::uint64_t size;

    LmsAreas(void* base, int tapsLen) {
        const auto count = static_cast<std::uint64_t>(tapsLen);
        Layout layout(base);
        head = layout.take<State>(1, 32);
        taps = layout.take<Orb32f>(LmsRows(tapsLen).length(), 32);
        dlyLine = layout.take<Orb32f>(count + lmsBlock + LmsRows::mostLanes, 32);
        staging = layout.take<Orb32f>(std::is_same_v<typename State::Sample, Orb32f> ? 0 : lmsBlock, 32);
        size = layout.used();
    }
};

} // namespace orbs

struct OrbsFIRLMSState_32f : orbs::LmsState<Orb32f, orbs::tagWord("LMS1")> {};
struct OrbsFIRLMSState32f_16s : orbs::LmsState<Orb16s, orbs::tagWord("LMS\0")> {};

static_assert(sizeof(OrbsFIRLMSState_32f) == 32);
