// Filtering without a state object: taps, delay line and position are the caller's.
#include "fixedfir/block.h"
#include "fixedfir/sums.h"

namespace {

using namespace orbs;

// The output whose oldest sample stands there.
template <class Tap, class T>
void filterOutput(const Tap* pTaps, int tapsLen, const T* oldest, T* pDst, const SumScaling& scaling) {
    PlainSum<partCount<T>> sum;
    for (int k = 0; k < tapsLen; ++k) sum.add(pTaps[tapsLen - 1 - k], oldest[k]);
    sum.store(scaling, asParts(pDst));
}

// One sample: into both halves of the line, one step on, and the output over the tapsLen samples from there.
template <class Tap, class T>
void filterOne(T src, T* pDstVal, const Tap* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex,
               const SumScaling& scaling) {
    int index = *pDlyLineIndex;
    pDlyLine[index] = pDlyLine[index + tapsLen] = src;
    *pDlyLineIndex = index = index + 1 < tapsLen ? index + 1 : 0;
    filterOutput(pTaps, tapsLen, pDlyLine + index, pDstVal, scaling);
}

// The same sample by sample, in runs that end before the index wraps. The outputs of a run still reach samples in the
// first half that the run replaces, so these are written last.
template <class Words, class Tap, class T>
void filterRuns(const Words& words, const T* pSrc, T* pDst, int numIters, const Tap* pTaps, int tapsLen, T* pDlyLine,
                int* pDlyLineIndex, const SumScaling& scaling) {
    // Real taps of an even number have a zero in front, which meets the sample before.
    const std::ptrdiff_t before = !isComplex<T> && tapsLen % 2 == 0 ? 1 : 0;
    while (numIters > 0) {
        const int index = *pDlyLineIndex;
        const int run = std::min(numIters, tapsLen - 1 - index);
        if (run <= 0) {
            filterOne(*pSrc++, pDst++, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaling);
            --numIters;
            continue;
        }
        T* const first = pDlyLine + index;
        const auto count = static_cast<std::size_t>(run);
        copySamples16(pSrc, first + tapsLen, run);
        if (count * partCount<T> >= leastParts) {
            filterSamples(words, first + 1 - before, pDst, count, scaling);
        } else {
            for (int n = 0; n < run; ++n) filterOutput(pTaps, tapsLen, first + 1 + n, pDst + n, scaling);
        }
        copySamples16(first + tapsLen, first, run);
        *pDlyLineIndex = index + run;
        pSrc += run;
        pDst += run;
        numIters -= run;
    }
}

template <class Tap, class T>
OrbStatus checkFilter(const Tap* pTaps, int tapsLen, const T* pDlyLine, const int* pDlyLineIndex) {
    if (anyNull(pTaps)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsFIRLenErr;
    return anyNull(pDlyLine, pDlyLineIndex) ? orbStsNullPtrErr : orbStsNoErr;
}

// ---- Taps of 32 bits ----

// No status is due to a wrong position; but nothing outside the line is touched either.
void bringInside(int tapsLen, int* pDlyLineIndex) {
    if (*pDlyLineIndex < 0 || *pDlyLineIndex >= tapsLen) *pDlyLineIndex = 0;
}

SumScaling scalingOf(int tapsFactor, int scaleFactor) {
    return SumScaling(std::clamp<std::int64_t>(std::int64_t{scaleFactor} - tapsFactor, -31, 31));
}

template <class Tap, class T>
OrbStatus block(const T* pSrc, T* pDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor, T* pDlyLine,
                int* pDlyLineIndex, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    bringInside(tapsLen, pDlyLineIndex);
    const SumScaling scaling = scalingOf(tapsFactor, scaleFactor);
    const NaturalWords<Tap, T> words(pTaps, static_cast<std::size_t>(tapsLen));
    if (static_cast<std::size_t>(tapsLen) <= MadeWords<Tap, T>::mostTaps) {
        const MadeWords<Tap, T> made(words);
        filterRuns(made, pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaling);
    } else {
        filterRuns(words, pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaling);
    }
    return orbStsNoErr;
}

template <class Tap, class T>
OrbStatus one(T src, T* pDstVal, const Tap* pTaps, int tapsLen, int tapsFactor, T* pDlyLine, int* pDlyLineIndex,
              int scaleFactor) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    bringInside(tapsLen, pDlyLineIndex);
    filterOne(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scalingOf(tapsFactor, scaleFactor));
    return orbStsNoErr;
}

template <class Tap, class T>
OrbStatus oneInPlace(T* pSrcDstVal, const Tap* pTaps, int tapsLen, int tapsFactor, T* pDlyLine, int* pDlyLineIndex,
                     int scaleFactor) {
    if (anyNull(pSrcDstVal)) return orbStsNullPtrErr;
    return one(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor);
}

// ---- Taps of 16 bits, 2^15 being 1 ----

constexpr int q15 = -15;

OrbStatus checkQ15(const Orb16s* pTaps, int tapsLen, const Orb16s* pDlyLine, const int* pDlyLineIndex) {
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    const bool inside = *pDlyLineIndex >= 0 && *pDlyLineIndex < tapsLen;
    return inside ? orbStsNoErr : orbStsDlyLineIndexErr;
}

// Through a state that lives as long as the call. It takes the line newest sample first, and gives it back so.
template <class Filter>
OrbStatus throughState(Filter filter, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex,
                       int scaleFactor) {
    auto* const state = allocateFixedFir<OrbsFIRState32s_16s>(GivenTaps{pTaps, q15, false}, tapsLen, oneRate,
                                                              pDlyLine + *pDlyLineIndex);
    if (!state) return orbStsMemAllocErr;
    filter(state, orbs::scalingOf(state, scaleFactor));
    *pDlyLineIndex = 0;
    readDlyLine(state, pDlyLine);
    orbsFree(state);
    return orbStsNoErr;
}

OrbStatus blockQ15(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine,
                   int* pDlyLineIndex, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    if (const OrbStatus status = checkQ15(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    const auto filter = [=](auto* state, const SumScaling& scaling) {
        filterBlock(state, pSrc, pDst, numIters, scaling);
    };
    return throughState(filter, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}

OrbStatus blockQ15InPlace(Orb16s* pSrcDst, int numIters, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine,
                          int* pDlyLineIndex, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrcDst)) return status;
    if (const OrbStatus status = checkQ15(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    const auto filter = [=](auto* state, const SumScaling& scaling) {
        filterInChunks(state, pSrcDst, numIters, scaling);
    };
    return throughState(filter, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}

OrbStatus oneQ15(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex,
                 int scaleFactor) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkQ15(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    filterOne(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, SumScaling(std::int64_t{scaleFactor} - q15));
    return orbStsNoErr;
}

OrbStatus oneQ15InPlace(Orb16s* pSrcDstVal, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex,
                        int scaleFactor) {
    if (anyNull(pSrcDstVal)) return orbStsNullPtrErr;
    return oneQ15(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIR32s_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR32s_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32s_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32s_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb32s* pTaps, int tapsLen, int tapsFactor, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR32sc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR32sc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32sc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32sc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb32sc* pTaps, int tapsLen, int tapsFactor, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, tapsFactor, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return blockQ15(pSrc, pDst, numIters, pTapsQ15, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return blockQ15InPlace(pSrcDst, numIters, pTapsQ15, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneQ15(src, pDstVal, pTapsQ15, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb16s* pTapsQ15, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneQ15InPlace(pSrcDstVal, pTapsQ15, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

}
// clang-format on
