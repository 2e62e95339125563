// State objects of FIR filters with taps in double precision, and with integers for taps, which are held as doubles.
#include "fir/states.h"

using namespace orbs;

// clang-format off
extern "C" {

OrbStatus orbsFIRGetStateSize_64f(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState_64f>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, const Orb64f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc_64f(OrbsFIRState_64f** ppState, const Orb64f* pTaps, int tapsLen, const Orb64f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree_64f(OrbsFIRState_64f* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps_64f(const Orb64f* pTaps, OrbsFIRState_64f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps_64f(const OrbsFIRState_64f* pState, Orb64f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine_64f(OrbsFIRState_64f* pState, const Orb64f* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine_64f(const OrbsFIRState_64f* pState, Orb64f* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize_64fc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState_64fc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb64fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc_64fc(OrbsFIRState_64fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb64fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree_64fc(OrbsFIRState_64fc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps_64fc(const Orb64fc* pTaps, OrbsFIRState_64fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps_64fc(const OrbsFIRState_64fc* pState, Orb64fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine_64fc(OrbsFIRState_64fc* pState, const Orb64fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine_64fc(const OrbsFIRState_64fc* pState, Orb64fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64f_32f(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64f_32f>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64f_32f(OrbsFIRState64f_32f** ppState, const Orb64f* pTaps, int tapsLen, const Orb32f* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64f_32f(OrbsFIRState64f_32f* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64f_32f(const Orb64f* pTaps, OrbsFIRState64f_32f* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64f_32f(const OrbsFIRState64f_32f* pState, Orb64f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64f_32f(OrbsFIRState64f_32f* pState, const Orb32f* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64f_32f(const OrbsFIRState64f_32f* pState, Orb32f* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64fc_32fc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_32fc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32fc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64fc_32fc(OrbsFIRState64fc_32fc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32fc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64fc_32fc(OrbsFIRState64fc_32fc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64fc_32fc(const Orb64fc* pTaps, OrbsFIRState64fc_32fc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64fc_32fc(const OrbsFIRState64fc_32fc* pState, Orb64fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64fc_32fc(OrbsFIRState64fc_32fc* pState, const Orb32fc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64fc_32fc(const OrbsFIRState64fc_32fc* pState, Orb32fc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64f_32s(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64f_32s>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, const Orb32s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64f_32s(OrbsFIRState64f_32s** ppState, const Orb64f* pTaps, int tapsLen, const Orb32s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64f_32s(OrbsFIRState64f_32s* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64f_32s(const Orb64f* pTaps, OrbsFIRState64f_32s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64f_32s(const OrbsFIRState64f_32s* pState, Orb64f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64f_32s(OrbsFIRState64f_32s* pState, const Orb32s* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64f_32s(const OrbsFIRState64f_32s* pState, Orb32s* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64fc_32sc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_32sc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64fc_32sc(OrbsFIRState64fc_32sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb32sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64fc_32sc(OrbsFIRState64fc_32sc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64fc_32sc(const Orb64fc* pTaps, OrbsFIRState64fc_32sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64fc_32sc(const OrbsFIRState64fc_32sc* pState, Orb64fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64fc_32sc(OrbsFIRState64fc_32sc* pState, const Orb32sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64fc_32sc(const OrbsFIRState64fc_32sc* pState, Orb32sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64f_16s(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64f_16s>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, const Orb16s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64f_16s(OrbsFIRState64f_16s** ppState, const Orb64f* pTaps, int tapsLen, const Orb16s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64f_16s(OrbsFIRState64f_16s* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64f_16s(const Orb64f* pTaps, OrbsFIRState64f_16s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64f_16s(const OrbsFIRState64f_16s* pState, Orb64f* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64f_16s(OrbsFIRState64f_16s* pState, const Orb16s* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64f_16s(const OrbsFIRState64f_16s* pState, Orb16s* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize64fc_16sc(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState64fc_16sc>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb16sc* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc64fc_16sc(OrbsFIRState64fc_16sc** ppState, const Orb64fc* pTaps, int tapsLen, const Orb16sc* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree64fc_16sc(OrbsFIRState64fc_16sc* pState) { return release(pState); }
OrbStatus orbsFIRSetTaps64fc_16sc(const Orb64fc* pTaps, OrbsFIRState64fc_16sc* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps64fc_16sc(const OrbsFIRState64fc_16sc* pState, Orb64fc* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine64fc_16sc(OrbsFIRState64fc_16sc* pState, const Orb16sc* pDlyLine) { return setDlyLine(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine64fc_16sc(const OrbsFIRState64fc_16sc* pState, Orb16sc* pDlyLine) { return getDlyLine(pState, pDlyLine); }

OrbStatus orbsFIRGetStateSize_32s(int tapsLen, int* pBufferSize) { return getStateSize<OrbsFIRState_32s, Orb32s>(tapsLen, pBufferSize); }
OrbStatus orbsFIRInit_32s(OrbsFIRState_32s** ppState, const Orb32s* pTaps, int tapsLen, const Orb32s* pDlyLine, Orb8u* pBuffer) { return init(ppState, pTaps, tapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRInitAlloc_32s(OrbsFIRState_32s** ppState, const Orb32s* pTaps, int tapsLen, const Orb32s* pDlyLine) { return initAlloc(ppState, pTaps, tapsLen, pDlyLine); }
OrbStatus orbsFIRFree_32s(OrbsFIRState_32s* pState) { return release<Kinds::singleRate>(pState); }
OrbStatus orbsFIRSetTaps_32s(const Orb32s* pTaps, OrbsFIRState_32s* pState) { return setTaps(pTaps, pState); }
OrbStatus orbsFIRGetTaps_32s(const OrbsFIRState_32s* pState, Orb32s* pTaps) { return getTaps(pState, pTaps); }
OrbStatus orbsFIRSetDlyLine_32s(OrbsFIRState_32s* pState, const Orb32s* pDlyLine) { return setDlyLine<Kinds::singleRate>(pState, pDlyLine); }
OrbStatus orbsFIRGetDlyLine_32s(const OrbsFIRState_32s* pState, Orb32s* pDlyLine) { return getDlyLine<Kinds::singleRate>(pState, pDlyLine); }

}
// clang-format on
