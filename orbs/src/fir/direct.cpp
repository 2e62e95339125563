// Filtering without a state object: taps, delay line and position are the caller's.
#include "filters/kernels.h"
#include "orbs/fir.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

// Products are rounded to the type of the samples, sums are double.
template <class T>
void outputs(const T* pTaps, int tapsLen, const T* oldest, T* pDst, int count) {
    const TapRun<T, -1> taps{pTaps + tapsLen - 1, static_cast<std::size_t>(tapsLen)};
    convolve<Orb64f>(taps, oldest, pDst, static_cast<std::size_t>(count));
}

// One sample: into both halves of the line, one step on, and the output over the tapsLen samples from there.
template <class T>
void filterOne(T src, T* pDstVal, const T* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex) {
    int index = *pDlyLineIndex;
    pDlyLine[index] = pDlyLine[index + tapsLen] = src;
    *pDlyLineIndex = index = index + 1 < tapsLen ? index + 1 : 0;
    outputs(pTaps, tapsLen, pDlyLine + index, pDstVal, 1);
}

// The same sample by sample, in runs that end before the index wraps. The outputs of a run still reach samples in the
// first half that the run replaces, so these are written last.
template <class T>
void filterBlock(const T* pSrc, T* pDst, int numIters, const T* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex) {
    while (numIters > 0) {
        const int index = *pDlyLineIndex;
        const int run = std::min(numIters, tapsLen - 1 - index);
        if (run <= 0) {
            filterOne(*pSrc++, pDst++, pTaps, tapsLen, pDlyLine, pDlyLineIndex);
            --numIters;
            continue;
        }
        const std::size_t bytes = static_cast<std::size_t>(run) * sizeof(T);
        T* const first = pDlyLine + index;
        std::memcpy(first + tapsLen, pSrc, bytes);
        outputs(pTaps, tapsLen, first + 1, pDst, run);
        std::memcpy(first, first + tapsLen, bytes);
        *pDlyLineIndex = index + run;
        pSrc += run;
        pDst += run;
        numIters -= run;
    }
}

template <class T>
OrbStatus checkFilter(const T* pTaps, int tapsLen, const T* pDlyLine, int* pDlyLineIndex) {
    if (anyNull(pTaps)) return orbStsNullPtrErr;
    if (tapsLen < 1) return orbStsFIRLenErr;
    if (anyNull(pDlyLine, pDlyLineIndex)) return orbStsNullPtrErr;
    // No status is due to a wrong position; but nothing outside the line is touched either.
    if (*pDlyLineIndex < 0 || *pDlyLineIndex >= tapsLen) *pDlyLineIndex = 0;
    return orbStsNoErr;
}

template <class T>
OrbStatus block(const T* pSrc, T* pDst, int numIters, const T* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    filterBlock(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex);
    return orbStsNoErr;
}

template <class T>
OrbStatus one(T src, T* pDstVal, const T* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, pDlyLine, pDlyLineIndex)) return status;
    filterOne(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex);
    return orbStsNoErr;
}

template <class T>
OrbStatus oneInPlace(T* pSrcDstVal, const T* pTaps, int tapsLen, T* pDlyLine, int* pDlyLineIndex) {
    if (anyNull(pSrcDstVal)) return orbStsNullPtrErr;
    return one(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIR_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_32f(Orb32f src, Orb32f* pDstVal, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_32f_I(Orb32f* pSrcDstVal, const Orb32f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_32fc(Orb32fc src, Orb32fc* pDstVal, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_32fc_I(Orb32fc* pSrcDstVal, const Orb32fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR_Direct_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_64f_I(Orb64f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64f(Orb64f src, Orb64f* pDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64f_I(Orb64f* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR_Direct_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_64fc_I(Orb64fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64fc(Orb64fc src, Orb64fc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64fc_I(Orb64fc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

}
// clang-format on
