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

template <class Tap>
auto singly(const Tap* pTaps, int tapsLen, SumScaling scaling) {
    return [=](const auto* oldest, auto* pDst, int) { filterOutput(pTaps, tapsLen, oldest, pDst, scaling); };
}

// Few outputs of a run sum by sum, more with words of two taps.
template <class Words, class Tap, class T>
void filterRun(const Words& words, const Tap* pTaps, int tapsLen, const T* oldest, T* pDst, int count,
               const SumScaling& scaling) {
    // Real taps of an even number have a zero in front, which meets the sample before.
    const std::ptrdiff_t before = !isComplex<T> && tapsLen % 2 == 0 ? 1 : 0;
    const auto outputs = static_cast<std::size_t>(count);
    if (outputs * partCount<T> >= leastParts) {
        filterSamples(words, oldest - before, pDst, outputs, scaling);
    } else {
        for (int n = 0; n < count; ++n) filterOutput(pTaps, tapsLen, oldest + n, pDst + n, scaling);
    }
}

// ---- Taps of 32 bits ----

SumScaling scalingOf(int tapsFactor, int scaleFactor) {
    return SumScaling(std::clamp<std::int64_t>(std::int64_t{scaleFactor} - tapsFactor, -31, 31));
}

template <class Tap, class T>
OrbStatus block(const T* pSrc, T* pDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor, T* pDlyLine,
                int* pDlyLineIndex, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    const CallerLine<T> line{pDlyLine, tapsLen, pDlyLineIndex};
    if (const OrbStatus status = line.check(pTaps)) return status;
    line.bringInside();
    const SumScaling scaling = scalingOf(tapsFactor, scaleFactor);
    const auto filterWith = [&](const auto& words) {
        line.filterBlock(pSrc, pDst, numIters, [&](const T* oldest, T* y, int count) {
            filterRun(words, pTaps, tapsLen, oldest, y, count, scaling);
        });
    };
    const NaturalWords<Tap, T> words(pTaps, static_cast<std::size_t>(tapsLen));
    if (static_cast<std::size_t>(tapsLen) <= MadeWords<Tap, T>::mostTaps) {
        filterWith(MadeWords<Tap, T>(words));
    } else {
        filterWith(words);
    }
    return orbStsNoErr;
}

template <class Tap, class T>
OrbStatus one(T src, T* pDstVal, const Tap* pTaps, int tapsLen, int tapsFactor, T* pDlyLine, int* pDlyLineIndex,
              int scaleFactor) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    const CallerLine<T> line{pDlyLine, tapsLen, pDlyLineIndex};
    if (const OrbStatus status = line.check(pTaps)) return status;
    line.bringInside();
    line.filterOne(src, pDstVal, singly(pTaps, tapsLen, scalingOf(tapsFactor, scaleFactor)));
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

OrbStatus checkQ15(const Orb16s* pTaps, const CallerLine<Orb16s>& line) {
    if (const OrbStatus status = line.check(pTaps)) return status;
    return *line.index >= 0 && *line.index < line.tapsLen ? orbStsNoErr : orbStsDlyLineIndexErr;
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
    if (const OrbStatus status = checkQ15(pTaps, {pDlyLine, tapsLen, pDlyLineIndex})) return status;
    const auto filter = [=](auto* state, const SumScaling& scaling) {
        filterBlock(state, pSrc, pDst, numIters, scaling);
    };
    return throughState(filter, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}

OrbStatus blockQ15InPlace(Orb16s* pSrcDst, int numIters, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine,
                          int* pDlyLineIndex, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrcDst)) return status;
    if (const OrbStatus status = checkQ15(pTaps, {pDlyLine, tapsLen, pDlyLineIndex})) return status;
    const auto filter = [=](auto* state, const SumScaling& scaling) {
        filterInChunks(state, pSrcDst, numIters, scaling);
    };
    return throughState(filter, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
}

OrbStatus oneQ15(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex,
                 int scaleFactor) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    const CallerLine<Orb16s> line{pDlyLine, tapsLen, pDlyLineIndex};
    if (const OrbStatus status = checkQ15(pTaps, line)) return status;
    line.filterOne(src, pDstVal, singly(pTaps, tapsLen, SumScaling(std::int64_t{scaleFactor} - q15)));
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
