// FIR filters with taps in double precision.
#include "fir/paths.h"

using namespace orbs;

// clang-format off
extern "C" {

OrbStatus orbsFIR_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, OrbsFIRState_64f* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_64f_I(Orb64f* pSrcDst, int numIters, OrbsFIRState_64f* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_64f(Orb64f src, Orb64f* pDstVal, OrbsFIRState_64f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, OrbsFIRState_64fc* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_64fc_I(Orb64fc* pSrcDst, int numIters, OrbsFIRState_64fc* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_64fc(Orb64fc src, Orb64fc* pDstVal, OrbsFIRState_64fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR64f_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, OrbsFIRState64f_32f* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR64f_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState64f_32f* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne64f_32f(Orb32f src, Orb32f* pDstVal, OrbsFIRState64f_32f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR64fc_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, OrbsFIRState64fc_32fc* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR64fc_32fc_I(Orb32fc* pSrcDst, int numIters, OrbsFIRState64fc_32fc* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne64fc_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsFIRState64fc_32fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR64f_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, OrbsFIRState64f_32s* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR64f_32s_ISfs(Orb32s* pSrcDst, int numIters, OrbsFIRState64f_32s* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne64f_32s_Sfs(int src, Orb32s* pDstVal, OrbsFIRState64f_32s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR64fc_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, OrbsFIRState64fc_32sc* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR64fc_32sc_ISfs(Orb32sc* pSrcDst, int numIters, OrbsFIRState64fc_32sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne64fc_32sc_Sfs(Orb32sc src, Orb32sc* pDstVal, OrbsFIRState64fc_32sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR64f_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, OrbsFIRState64f_16s* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR64f_16s_ISfs(Orb16s* pSrcDst, int numIters, OrbsFIRState64f_16s* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne64f_16s_Sfs(Orb16s src, Orb16s* pDstVal, OrbsFIRState64f_16s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR64fc_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, OrbsFIRState64fc_16sc* pState, int scaleFactor) { return filter(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR64fc_16sc_ISfs(Orb16sc* pSrcDst, int numIters, OrbsFIRState64fc_16sc* pState, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne64fc_16sc_Sfs(Orb16sc src, Orb16sc* pDstVal, OrbsFIRState64fc_16sc* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

OrbStatus orbsFIR_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, OrbsFIRState_32s* pState, int scaleFactor) { return filter<Kinds::singleRate>(pSrc, pDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIR_32s_ISfs(Orb32s* pSrcDst, int numIters, OrbsFIRState_32s* pState, int scaleFactor) { return filterInPlace<Kinds::singleRate>(pSrcDst, numIters, pState, scaleFactor); }
OrbStatus orbsFIROne_32s_Sfs(int src, Orb32s* pDstVal, OrbsFIRState_32s* pState, int scaleFactor) { return filterOne(src, pDstVal, pState, scaleFactor); }

}
// clang-format on
