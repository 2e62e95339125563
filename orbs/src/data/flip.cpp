// Flip and ConjFlip: pSrc[len - 1 - n], and its conjugate.
#include "foundation/frame.h"
#include "orbs/data.h"
#include "vectors/complex.h"
#include "vectors/reverse.h"

namespace {

using namespace orbs;

template <class Op, class T>
OrbStatus reversed(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    if constexpr (isComplex<T>) {
        reverse<Op, 2>(asReal(pSrc), asReal(pDst), count);
    } else {
        reverse<Op, 1>(pSrc, pDst, count);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFlip_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_8u_I(Orb8u* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }
OrbStatus orbsFlip_16u(const Orb16u* pSrc, Orb16u* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_16u_I(Orb16u* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }
OrbStatus orbsFlip_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_32f_I(Orb32f* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }
OrbStatus orbsFlip_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_32fc_I(Orb32fc* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }
OrbStatus orbsFlip_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_64f_I(Orb64f* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }
OrbStatus orbsFlip_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return reversed<Same>(pSrc, pDst, len); }
OrbStatus orbsFlip_64fc_I(Orb64fc* pSrcDst, int len) { return reversed<Same>(pSrcDst, pSrcDst, len); }

OrbStatus orbsConjFlip_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return reversed<Conjugate>(pSrc, pDst, len); }
OrbStatus orbsConjFlip_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return reversed<Conjugate>(pSrc, pDst, len); }
OrbStatus orbsConjFlip_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return reversed<Conjugate>(pSrc, pDst, len); }

}
// clang-format on
