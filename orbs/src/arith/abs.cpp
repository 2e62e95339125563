// Abs: |pSrc[n]|.
#include "orbs/arith.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

// The smallest integer, whose absolute value has no place in its type, is lifted by 1 first: it gives the largest.
struct Magnitude {
    template <class D, class V>
    static V result([[maybe_unused]] D d, V v) {
        using T = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<T>) {
            return hn::Abs(v);
        } else {
            return hn::Abs(hn::Max(v, hn::Set(d, -std::numeric_limits<T>::max())));
        }
    }
};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAbs_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return elementwise(Magnitude(), len, pDst, pSrc); }
OrbStatus orbsAbs_16s_I(Orb16s* pSrcDst, int len) { return elementwise(Magnitude(), len, pSrcDst, pSrcDst); }
OrbStatus orbsAbs_32s(const Orb32s* pSrc, Orb32s* pDst, int len) { return elementwise(Magnitude(), len, pDst, pSrc); }
OrbStatus orbsAbs_32s_I(Orb32s* pSrcDst, int len) { return elementwise(Magnitude(), len, pSrcDst, pSrcDst); }
OrbStatus orbsAbs_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return elementwise(Magnitude(), len, pDst, pSrc); }
OrbStatus orbsAbs_32f_I(Orb32f* pSrcDst, int len) { return elementwise(Magnitude(), len, pSrcDst, pSrcDst); }
OrbStatus orbsAbs_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return elementwise(Magnitude(), len, pDst, pSrc); }
OrbStatus orbsAbs_64f_I(Orb64f* pSrcDst, int len) { return elementwise(Magnitude(), len, pSrcDst, pSrcDst); }

}
// clang-format on
