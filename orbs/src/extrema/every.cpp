// MinEvery, MaxEvery: pSrcDst[n] becomes the lesser or greater of itself and pSrc[n].
#include "orbs/extrema.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

// Where either element is a NaN, or both are zeros, the second operand is the result: pSrcDst[n] stays.
struct Lesser {
    template <class D, class V>
    static V result(D, V src, V srcDst) {
        return hn::Min(src, srcDst);
    }
};
struct Greater {
    template <class D, class V>
    static V result(D, V src, V srcDst) {
        return hn::Max(src, srcDst);
    }
};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMinEvery_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len) { return elementwise(Lesser(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMinEvery_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len) { return elementwise(Lesser(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMinEvery_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return elementwise(Lesser(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMinEvery_32s_I(const Orb32s* pSrc, Orb32s* pSrcDst, int len) { return elementwise(Lesser(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMinEvery_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return elementwise(Lesser(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMaxEvery_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len) { return elementwise(Greater(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMaxEvery_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len) { return elementwise(Greater(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMaxEvery_16s_I(const Orb16s* pSrc, Orb16s* pSrcDst, int len) { return elementwise(Greater(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMaxEvery_32s_I(const Orb32s* pSrc, Orb32s* pSrcDst, int len) { return elementwise(Greater(), len, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsMaxEvery_32f_I(const Orb32f* pSrc, Orb32f* pSrcDst, int len) { return elementwise(Greater(), len, pSrcDst, pSrc, pSrcDst); }

}
// clang-format on
