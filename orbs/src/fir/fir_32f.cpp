// FIR filters with taps in single precision.
#include "fir/paths.h"

using namespace orbs;

// clang-format off
extern "C" {

OrbStatus orbsFIR_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, OrbsFIRState_32f* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState_32f* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_32f(Orb32f src, Orb32f* pDstVal, OrbsFIRState_32f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, OrbsFIRState_32fc* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_32fc_I(Orb32fc* pSrcDst, int numIters, OrbsFIRState_32fc* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsFIRState_32fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR32f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState32f_16s* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32f_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState32f_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState32f_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR32fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState32fc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR32fc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState32fc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne32fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState32fc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

}
// clang-format on
