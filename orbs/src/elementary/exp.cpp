// Exp: exponentials of floats.
#include "elementary/exp.h"
#include "elementary/elementary.h"
#include "foundation/control.h"
#include "orbs/elementary.h"

namespace {

using namespace orbs;

OrbStatus exponentials(const Orb32f* pSrc, Orb32f* pDst, int len) {
    const SseQuiet guard(SseRounding::nearest);
    return elementary(Exp32{}, len, pDst, pSrc);
}

template <class S>
OrbStatus exponentials(const S* pSrc, Orb64f* pDst, int len) {
    const SseRounding guard(SseRounding::nearest);
    return elementary(Exp64{}, len, pDst, pSrc);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsExp_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_32f_I(Orb32f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_64f_I(Orb64f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }

}
