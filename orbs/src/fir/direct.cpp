// Filtering without a state object: taps, delay line and position are the caller's.
#include "filters/caller_line.h"
#include "filters/samples.h"
#include "orbs/fir.h"

#include <algorithm>

namespace {

using namespace orbs;

// ---- Outputs ----

template <class X>
constexpr bool isInteger = std::is_integral_v<Part<X>>;

// Products are rounded to the type of the taps. Sums are double, but single if they are rounded to integers anyway.
template <class T, class X>
void outputs(const T* pTaps, int tapsLen, const X* oldest, X* pDst, int length, int scaleFactor) {
    const TapRun<T, -1> taps{pTaps + tapsLen - 1, static_cast<std::size_t>(tapsLen)};
    const auto count = static_cast<std::size_t>(length);
    if constexpr (isInteger<X>) {
        constexpr std::size_t most = 256;
        const auto m = scaleModulo128<Part<T>>(scaleFactor);
        T sums[most];
        for (std::size_t n = 0; n < count; n += most) {
            const std::size_t piece = std::min(most, count - n);
            convolve<Part<T>>(taps, oldest + n, sums, piece);
            roundAndSaturate(asParts(sums), m, asParts(pDst + n), piece * partCount<T>);
        }
    } else {
        convolve<Orb64f>(taps, oldest, pDst, count);
    }
}

// ---- Shapes ----

// What tells the outputs of a call from their oldest samples.
template <class T, class X>
auto outputsOf(const T* pTaps, int tapsLen, int scaleFactor) {
    return [=](const X* oldest, X* pDst, int count) { outputs(pTaps, tapsLen, oldest, pDst, count, scaleFactor); };
}

template <class T, class X>
OrbStatus block(const X* pSrc, X* pDst, int numIters, const T* pTaps, int tapsLen, X* pDlyLine, int* pDlyLineIndex,
                int scaleFactor = 0) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    const CallerLine<X> line{pDlyLine, tapsLen, pDlyLineIndex};
    if (const OrbStatus status = line.check(pTaps)) return status;
    line.bringInside();
    line.filterBlock(pSrc, pDst, numIters, outputsOf<T, X>(pTaps, tapsLen, scaleFactor));
    return orbStsNoErr;
}

template <class T, class X>
OrbStatus one(std::type_identity_t<X> src, X* pDstVal, const T* pTaps, int tapsLen, X* pDlyLine, int* pDlyLineIndex,
              int scaleFactor = 0) {
    if (anyNull(pDstVal)) return orbStsNullPtrErr;
    const CallerLine<X> line{pDlyLine, tapsLen, pDlyLineIndex};
    if (const OrbStatus status = line.check(pTaps)) return status;
    line.bringInside();
    line.filterOne(src, pDstVal, outputsOf<T, X>(pTaps, tapsLen, scaleFactor));
    return orbStsNoErr;
}

template <class T, class X>
OrbStatus oneInPlace(X* pSrcDstVal, const T* pTaps, int tapsLen, X* pDlyLine, int* pDlyLineIndex, int scaleFactor = 0) {
    if (anyNull(pSrcDstVal)) return orbStsNullPtrErr;
    return one(*pSrcDstVal, pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor);
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

OrbStatus orbsFIR32f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR32f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32f_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32f_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb32f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR32fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR32fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32fc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne32fc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb32fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR_Direct_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_64f_I(Orb64f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64f(Orb64f src, Orb64f* pDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64f_I(Orb64f* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb64f* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR_Direct_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR_Direct_64fc_I(Orb64fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64fc(Orb64fc src, Orb64fc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne_Direct_64fc_I(Orb64fc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb64fc* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR64f_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR64f_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne64f_Direct_32f(Orb32f src, Orb32f* pDstVal, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne64f_Direct_32f_I(Orb32f* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb32f* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR64fc_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIR64fc_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne64fc_Direct_32fc(Orb32fc src, Orb32fc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }
OrbStatus orbsFIROne64fc_Direct_32fc_I(Orb32fc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb32fc* pDlyLine, int* pDlyLineIndex) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex); }

OrbStatus orbsFIR64f_Direct_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR64f_Direct_32s_ISfs(Orb32s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64f_Direct_32s_Sfs(int src, Orb32s* pDstVal, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64f_Direct_32s_ISfs(Orb32s* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb32s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR64fc_Direct_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR64fc_Direct_32sc_ISfs(Orb32sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64fc_Direct_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64fc_Direct_32sc_ISfs(Orb32sc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR64f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR64f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64f_Direct_16s_Sfs(Orb16s src, Orb16s* pDstVal, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64f_Direct_16s_ISfs(Orb16s* pSrcDstVal, const Orb64f* pTaps, int tapsLen, Orb16s* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

OrbStatus orbsFIR64fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrc, pDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIR64fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return block(pSrcDst, pSrcDst, numIters, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64fc_Direct_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return one(src, pDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }
OrbStatus orbsFIROne64fc_Direct_16sc_ISfs(Orb16sc* pSrcDstVal, const Orb64fc* pTaps, int tapsLen, Orb16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor) { return oneInPlace(pSrcDstVal, pTaps, tapsLen, pDlyLine, pDlyLineIndex, scaleFactor); }

}
// clang-format on
