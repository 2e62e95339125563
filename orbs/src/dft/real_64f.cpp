// Real transforms of any length of Orb64f data: objects and execution.
#include "dft/real.h"
#include "orbs/dft.h"

struct OrbsDFTSpec_R_64f : orbs::dft::Spec<Orb64f> {};

namespace {

using namespace orbs;
using namespace orbs::dft;

constexpr Orb32s tagR64f = 18;

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDFTInitAlloc_R_64f(OrbsDFTSpec_R_64f** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, length, flag, hint, Kind::real, tagR64f); }
OrbStatus orbsDFTFree_R_64f(OrbsDFTSpec_R_64f* pSpec) { return release(pSpec, tagR64f); }
OrbStatus orbsDFTGetBufSize_R_64f(const OrbsDFTSpec_R_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagR64f); }
OrbStatus orbsDFTFwd_RToCCS_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsDFTFwd_RToPack_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsDFTFwd_RToPerm_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realForward<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::perm); }
OrbStatus orbsDFTInv_CCSToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::ccs); }
OrbStatus orbsDFTInv_PackToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::pack); }
OrbStatus orbsDFTInv_PermToR_64f(const Orb64f* pSrc, Orb64f* pDst, const OrbsDFTSpec_R_64f* pSpec, Orb8u* pBuffer) { return realInverse<Orb64f>(pSrc, pDst, pSpec, pBuffer, tagR64f, Format::perm); }

}
// clang-format on
