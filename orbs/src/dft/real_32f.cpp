// Real transforms of any length of Orb32f data: objects and execution.
#include "dft/real.h"
#include "orbs/dft.h"

struct OrbsDFTSpec_R_32f : orbs::dft::Spec<Orb32f> {};

namespace {

using namespace orbs;
using namespace orbs::dft;

constexpr Orb32s tagR32f = 15;

} // namespace

// The 16-bit members run on these.
template OrbStatus orbs::dft::forwardReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);
template OrbStatus orbs::dft::inverseReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);

// clang-format off
extern "C" {

OrbStatus orbsDFTInitAlloc_R_32f(OrbsDFTSpec_R_32f** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::real, tagR32f); }
OrbStatus orbsDFTFree_R_32f(OrbsDFTSpec_R_32f* pSpec) { return release(pSpec, tagR32f); }
OrbStatus orbsDFTGetBufSize_R_32f(const OrbsDFTSpec_R_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagR32f); }
OrbStatus orbsDFTFwd_RToCCS_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsDFTFwd_RToPack_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsDFTFwd_RToPerm_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realForward<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::perm); }
OrbStatus orbsDFTInv_CCSToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::ccs); }
OrbStatus orbsDFTInv_PackToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::pack); }
OrbStatus orbsDFTInv_PermToR_32f(const Orb32f* pSrc, Orb32f* pDst, const OrbsDFTSpec_R_32f* pSpec, Orb8u* pBuffer) { return realInverse<Orb32f>(pSrc, pDst, pSpec, pBuffer, tagR32f, Format::perm); }

}
// clang-format on
