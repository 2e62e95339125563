// ConjCcs, ConjPack, ConjPerm: packed spectra of real signals, expanded to all N bins.
#include "foundation/frame.h"
#include "orbs/spectra.h"
#include "spectra/layouts.h"
#include "vectors/complex.h"
#include "vectors/reverse.h"

#include <cstring>

namespace {

using namespace orbs;

// X[N - k] = conj X[k], of the complex bins that lie from `bins` on.
template <class T>
void mirror(const T* bins, T* dst, std::size_t N) {
    reverse<Conjugate, 2>(bins, dst + 2 * (N - complexBins(N)), complexBins(N));
}

template <class C>
OrbStatus expandedCcs(const C* pSrc, C* pDst, int lenDst) {
    if (const OrbStatus status = checkVectors(lenDst, pSrc, pDst)) return status;
    const auto N = static_cast<std::size_t>(lenDst);
    if (pSrc != pDst) std::memcpy(pDst, pSrc, (N / 2 + 1) * sizeof(C));
    mirror(asReal(pDst + 1), asReal(pDst), N);
    return orbStsNoErr;
}

// The source may lie at the front of pDst, where the upper bins do not reach: they come first, and the lower ones are
// moved to their places next.
template <class Layout, class C>
OrbStatus expanded(const RealOf<C>* pSrc, C* pDst, int lenDst) {
    if (const OrbStatus status = checkVectors(lenDst, pSrc, pDst)) return status;
    const auto N = static_cast<std::size_t>(lenDst);
    const RealOf<C>* const bins = pSrc + Layout::bins(N);
    const RealOf<C> first = elementAt(pSrc), half = hasHalf(N) ? elementAt(pSrc + Layout::half(N)) : RealOf<C>{0};
    mirror(bins, asReal(pDst), N);
    std::memmove(pDst + 1, bins, complexBins(N) * sizeof(C));
    setElement(pDst, {first, 0});
    if (hasHalf(N)) setElement(pDst + N / 2, {half, 0});
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConjCcs_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int lenDst) { return expandedCcs(pSrc, pDst, lenDst); }
OrbStatus orbsConjCcs_64fc_I(Orb64fc* pSrcDst, int lenDst) { return expandedCcs(pSrcDst, pSrcDst, lenDst); }
OrbStatus orbsConjCcs_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int lenDst) { return expandedCcs(pSrc, pDst, lenDst); }
OrbStatus orbsConjCcs_32fc_I(Orb32fc* pSrcDst, int lenDst) { return expandedCcs(pSrcDst, pSrcDst, lenDst); }
OrbStatus orbsConjCcs_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int lenDst) { return expandedCcs(pSrc, pDst, lenDst); }
OrbStatus orbsConjCcs_16sc_I(Orb16sc* pSrcDst, int lenDst) { return expandedCcs(pSrcDst, pSrcDst, lenDst); }

OrbStatus orbsConjPack_64fc(const Orb64f* pSrc, Orb64fc* pDst, int lenDst) { return expanded<Pack>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPack_64fc_I(Orb64fc* pSrcDst, int lenDst) { return expanded<Pack>(asReal(pSrcDst), pSrcDst, lenDst); }
OrbStatus orbsConjPack_32fc(const Orb32f* pSrc, Orb32fc* pDst, int lenDst) { return expanded<Pack>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPack_32fc_I(Orb32fc* pSrcDst, int lenDst) { return expanded<Pack>(asReal(pSrcDst), pSrcDst, lenDst); }
OrbStatus orbsConjPack_16sc(const Orb16s* pSrc, Orb16sc* pDst, int lenDst) { return expanded<Pack>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPack_16sc_I(Orb16sc* pSrcDst, int lenDst) { return expanded<Pack>(asReal(pSrcDst), pSrcDst, lenDst); }

OrbStatus orbsConjPerm_64fc(const Orb64f* pSrc, Orb64fc* pDst, int lenDst) { return expanded<Perm>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPerm_64fc_I(Orb64fc* pSrcDst, int lenDst) { return expanded<Perm>(asReal(pSrcDst), pSrcDst, lenDst); }
OrbStatus orbsConjPerm_32fc(const Orb32f* pSrc, Orb32fc* pDst, int lenDst) { return expanded<Perm>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPerm_32fc_I(Orb32fc* pSrcDst, int lenDst) { return expanded<Perm>(asReal(pSrcDst), pSrcDst, lenDst); }
OrbStatus orbsConjPerm_16sc(const Orb16s* pSrc, Orb16sc* pDst, int lenDst) { return expanded<Perm>(pSrc, pDst, lenDst); }
OrbStatus orbsConjPerm_16sc_I(Orb16sc* pSrcDst, int lenDst) { return expanded<Perm>(asReal(pSrcDst), pSrcDst, lenDst); }

}
// clang-format on
