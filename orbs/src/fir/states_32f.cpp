// State objects of FIR filters with taps in single precision.
#include "fir/states.h"

using namespace orbs;

// clang-format off
extern "C" {

OrbStatus orbsFIRGetStateSize_32f(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState_32f>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc_32f(OrbsFIRState_32f** ppState, const Orb32f* pTaps, int tapsLen, const Orb32f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree_32f(OrbsFIRState_32f* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps_32f(const Orb32f* pTaps, OrbsFIRState_32f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps_32f(const OrbsFIRState_32f* pState, Orb32f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine_32f(OrbsFIRState_32f* pState, const Orb32f* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine_32f(const OrbsFIRState_32f* pState, Orb32f* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize_32fc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState_32fc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc_32fc(OrbsFIRState_32fc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb32fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree_32fc(OrbsFIRState_32fc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps_32fc(const Orb32fc* pTaps, OrbsFIRState_32fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps_32fc(const OrbsFIRState_32fc* pState, Orb32fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine_32fc(OrbsFIRState_32fc* pState, const Orb32fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine_32fc(const OrbsFIRState_32fc* pState, Orb32fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize32f_16s(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32f_16s>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32f_16s(OrbsFIRState32f_16s** ppState, const Orb32f* pTaps, int tapsLen, const Orb16s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree32f_16s(OrbsFIRState32f_16s* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32f_16s(const Orb32f* pTaps, OrbsFIRState32f_16s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps32f_16s(const OrbsFIRState32f_16s* pState, Orb32f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine32f_16s(OrbsFIRState32f_16s* pState, const Orb16s* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32f_16s(const OrbsFIRState32f_16s* pState, Orb16s* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize32fc_16sc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState32fc_16sc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc32fc_16sc(OrbsFIRState32fc_16sc** ppState, const Orb32fc* pTaps, int tapsLen, const Orb16sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree32fc_16sc(OrbsFIRState32fc_16sc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps32fc_16sc(const Orb32fc* pTaps, OrbsFIRState32fc_16sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps32fc_16sc(const OrbsFIRState32fc_16sc* pState, Orb32fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine32fc_16sc(OrbsFIRState32fc_16sc* pState, const Orb16sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine32fc_16sc(const OrbsFIRState32fc_16sc* pState, Orb16sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

}
// clang-format on
