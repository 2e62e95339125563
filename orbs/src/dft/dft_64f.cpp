// Transforms of any length of Orb64f data: objects and execution.
#include "dft/calls.h"
#include "dft/real.h"
#include "orbs/dft.h"

struct OrbsDFTSpec_C_64fc : orbs::dft::Spec<Orb64f> {};
struct OrbsDFTSpec_C_64f : orbs::dft::Spec<Orb64f> {};
struct OrbsDFTSpec_R_64f : orbs::dft::Spec<Orb64f> {};
struct OrbsDFTOutOrdSpec_C_64fc : orbs::dft::Spec<Orb64f> {};

namespace {

using namespace orbs;
using namespace orbs::dft;

constexpr Orb32s tagC64fc = 16, tagC64f = 17, tagR64f = 18, tagOutOfOrder64fc = 0x434D414B;

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsDFTInitAlloc_C_64fc(OrbsDFTSpec_C_64fc** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, length, flag, hint, Kind::interleaved, tagC64fc); }
OrbStatus orbsDFTFree_C_64fc(OrbsDFTSpec_C_64fc* pSpec) { return release(pSpec, tagC64fc); }
OrbStatus orbsDFTGetBufSize_C_64fc(const OrbsDFTSpec_C_64fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC64fc); }
OrbStatus orbsDFTInitAlloc_C_64f(OrbsDFTSpec_C_64f** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, length, flag, hint, Kind::planes, tagC64f); }
OrbStatus orbsDFTFree_C_64f(OrbsDFTSpec_C_64f* pSpec) { return release(pSpec, tagC64f); }
OrbStatus orbsDFTGetBufSize_C_64f(const OrbsDFTSpec_C_64f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC64f); }
OrbStatus orbsDFTOutOrdInitAlloc_C_64fc(OrbsDFTOutOrdSpec_C_64fc** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb64f>(ppSpec, length, flag, hint, Kind::outOfOrder, tagOutOfOrder64fc); }
OrbStatus orbsDFTOutOrdFree_C_64fc(OrbsDFTOutOrdSpec_C_64fc* pSpec) { return release(pSpec, tagOutOfOrder64fc); }
OrbStatus orbsDFTOutOrdGetBufSize_C_64fc(const OrbsDFTOutOrdSpec_C_64fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagOutOfOrder64fc); }
OrbStatus orbsDFTFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<false, Orb64f>(pSrc, pDst, pSpec, pBuffer, tagC64fc); }
OrbStatus orbsDFTInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<true, Orb64f>(pSrc, pDst, pSpec, pBuffer, tagC64fc); }
OrbStatus orbsDFTFwd_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsDFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsDFTInv_CToC_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDstRe, Orb64f* pDstIm, const OrbsDFTSpec_C_64f* pSpec, Orb8u* pBuffer) { return planes<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC64f); }
OrbStatus orbsDFTOutOrdFwd_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTOutOrdSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<false, Orb64f>(pSrc, pDst, pSpec, pBuffer, tagOutOfOrder64fc); }
OrbStatus orbsDFTOutOrdInv_CToC_64fc(const Orb64fc* pSrc, Orb64fc* pDst, const OrbsDFTOutOrdSpec_C_64fc* pSpec, Orb8u* pBuffer) { return interleaved<true, Orb64f>(pSrc, pDst, pSpec, pBuffer, tagOutOfOrder64fc); }
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
