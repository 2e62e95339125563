// Filtering with a state object: blocks in chunks, and single samples.
#include "iir/outputs.h"
#include "iir/state.h"

#include <algorithm>

namespace {

using namespace orbs;

template <class State>
using SampleOf = typename State::Sample;

template <class State>
constexpr bool roundsOutputs = std::is_integral_v<Part<SampleOf<State>>>;

template <class State>
OrbStatus filter(const SampleOf<State>* pSrc, SampleOf<State>* pDst, int len, State* pState, int scaleFactor = 0) {
    using Tap = typename State::Tap;
    if (const OrbStatus status = checkVectors(len, pState, pSrc, pDst)) return status;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    for (int rest = len; rest > 0;) {
        const int count = std::min(rest, chunkLen);
        if constexpr (State::convertsSamples) {
            Tap* const work = pState->pWorkOut;
            widen(pSrc, work, count);
            filterChunk<Tap>(pState, work, work, count);
            if constexpr (roundsOutputs<State>) {
                roundOut(asParts(work), asParts(pDst), static_cast<std::size_t>(count) * partCount<Tap>,
                         scaleModulo128<Part<Tap>>(scaleFactor));
            } else {
                narrow(work, pDst, count, 0);
            }
        } else {
            filterChunk<Tap>(pState, pSrc, pDst, count);
        }
        pSrc += count;
        pDst += count;
        rest -= count;
    }
    return orbStsNoErr;
}

template <class State>
OrbStatus filterInPlace(SampleOf<State>* pSrcDst, int len, State* pState, int scaleFactor = 0) {
    return filter(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

template <class State>
OrbStatus filterOne(SampleOf<State> src, SampleOf<State>* pDstVal, State* pState, int scaleFactor = 0) {
    using Tap = typename State::Tap;
    if (anyNull(pState, pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkEitherTag(pState)) return status;
    const Tap y = filterSample<Tap>(pState, cast<Tap>(src));
    if constexpr (roundsOutputs<State>) {
        Orb64f parts[partCount<Tap>];
        std::copy_n(asParts(&y), partCount<Tap>, parts);
        roundOut(parts, asParts(pDstVal), partCount<Tap>, sampleScale(scaleFactor));
    } else {
        *pDstVal = cast<SampleOf<State>>(y);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsIIR_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRState_32f* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR_32f_I(Orb32f* pSrcDst, int len, OrbsIIRState_32f* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne_32f(Orb32f src, Orb32f* pDstVal, OrbsIIRState_32f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, OrbsIIRState_32fc* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR_32fc_I(Orb32fc* pSrcDst, int len, OrbsIIRState_32fc* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsIIRState_32fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR32f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32f_16s* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32f_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32f_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32f_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR32fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32fc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32fc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32fc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32fc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR_64f(const Orb64f* pSrc, Orb64f* pDst, int len, OrbsIIRState_64f* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR_64f_I(Orb64f* pSrcDst, int len, OrbsIIRState_64f* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne_64f(Orb64f src, Orb64f* pDstVal, OrbsIIRState_64f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, OrbsIIRState_64fc* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR_64fc_I(Orb64fc* pSrcDst, int len, OrbsIIRState_64fc* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne_64fc(Orb64fc src, Orb64fc* pDstVal, OrbsIIRState_64fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR64f_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRState64f_32f* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR64f_32f_I(Orb32f* pSrcDst, int len, OrbsIIRState64f_32f* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne64f_32f(Orb32f src, Orb32f* pDstVal, OrbsIIRState64f_32f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR64fc_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, OrbsIIRState64fc_32fc* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIR64fc_32fc_I(Orb32fc* pSrcDst, int len, OrbsIIRState64fc_32fc* pState) { return filterInPlace(pSrcDst, len, pState); }
OrbStatus orbsIIROne64fc_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsIIRState64fc_32fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsIIR64f_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, OrbsIIRState64f_32s* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR64f_32s_ISfs(Orb32s* pSrcDst, int len, OrbsIIRState64f_32s* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne64f_32s_Sfs(int src, Orb32s* pDstVal, OrbsIIRState64f_32s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR64fc_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int len, OrbsIIRState64fc_32sc* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR64fc_32sc_ISfs(Orb32sc* pSrcDst, int len, OrbsIIRState64fc_32sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne64fc_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, OrbsIIRState64fc_32sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR64f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState64f_16s* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR64f_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState64f_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne64f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState64f_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR64fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState64fc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR64fc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState64fc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne64fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState64fc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR32s_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32s_16s_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32s_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32s_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR32s_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32s_16s32f_ISfs(Orb16s* pSrcDst, int len, OrbsIIRState32s_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32s_16s32f_Sfs(Orb16s src, Orb16s* pDstVal, OrbsIIRState32s_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR32sc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32sc_16sc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32sc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsIIR32sc_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, len, pState, scaleFactor); }
OrbStatus orbsIIR32sc_16sc32fc_ISfs(Orb16sc* pSrcDst, int len, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, len, pState, scaleFactor); }
OrbStatus orbsIIROne32sc_16sc32fc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsIIRState32sc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

}
// clang-format on
