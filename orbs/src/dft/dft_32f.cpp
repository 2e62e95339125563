// Transforms of any length of Orb32f data: objects and execution.
#include "dft/calls.h"
#include "dft/real.h"
#include "orbs/dft.h"

struct OrbsDFTSpec_C_32fc : orbs::dft::Spec<Orb32f> {};
struct OrbsDFTSpec_C_32f : orbs::dft::Spec<Orb32f> {};
struct OrbsDFTSpec_R_32f : orbs::dft::Spec<Orb32f> {};
struct OrbsDFTOutOrdSpec_C_32fc : orbs::dft::Spec<Orb32f> {};

namespace {

using namespace orbs;
using namespace orbs::dft;

constexpr Orb32s tagC32fc = 13, tagC32f = 14, tagR32f = 15, tagOutOfOrder32fc = 0x434D414A;

} // namespace

// The 16-bit members run on these.
template OrbStatus orbs::dft::interleaved<false>(const Orb32fc*, Orb32fc*, const Spec<Orb32f>*, Orb8u*, Orb32s);
template OrbStatus orbs::dft::interleaved<true>(const Orb32fc*, Orb32fc*, const Spec<Orb32f>*, Orb8u*, Orb32s);
template OrbStatus orbs::dft::planes<false>(const Orb32f*, const Orb32f*, Orb32f*, Orb32f*, const Spec<Orb32f>*, Orb8u*,
                                            Orb32s);
template OrbStatus orbs::dft::planes<true>(const Orb32f*, const Orb32f*, Orb32f*, Orb32f*, const Spec<Orb32f>*, Orb8u*,
                                           Orb32s);
template OrbStatus orbs::dft::forwardReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);
template OrbStatus orbs::dft::inverseReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);

// clang-format off
extern "C" {

OrbStatus orbsDFTInitAlloc_C_32fc(OrbsDFTSpec_C_32fc** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::interleaved, tagC32fc); }
OrbStatus orbsDFTFree_C_32fc(OrbsDFTSpec_C_32fc* pSpec) { return release(pSpec, tagC32fc); }
OrbStatus orbsDFTGetBufSize_C_32fc(const OrbsDFTSpec_C_32fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC32fc); }
OrbStatus orbsDFTInitAlloc_C_32f(OrbsDFTSpec_C_32f** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::planes, tagC32f); }
OrbStatus orbsDFTFree_C_32f(OrbsDFTSpec_C_32f* pSpec) { return release(pSpec, tagC32f); }
OrbStatus orbsDFTGetBufSize_C_32f(const OrbsDFTSpec_C_32f* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC32f); }
OrbStatus orbsDFTOutOrdInitAlloc_C_32fc(OrbsDFTOutOrdSpec_C_32fc** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::outOfOrder, tagOutOfOrder32fc); }
OrbStatus orbsDFTOutOrdFree_C_32fc(OrbsDFTOutOrdSpec_C_32fc* pSpec) { return release(pSpec, tagOutOfOrder32fc); }
OrbStatus orbsDFTOutOrdGetBufSize_C_32fc(const OrbsDFTOutOrdSpec_C_32fc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagOutOfOrder32fc); }
OrbStatus orbsDFTFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<false, Orb32f>(pSrc, pDst, pSpec, pBuffer, tagC32fc); }
OrbStatus orbsDFTInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<true, Orb32f>(pSrc, pDst, pSpec, pBuffer, tagC32fc); }
OrbStatus orbsDFTFwd_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsDFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsDFTInv_CToC_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDstRe, Orb32f* pDstIm, const OrbsDFTSpec_C_32f* pSpec, Orb8u* pBuffer) { return planes<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, pBuffer, tagC32f); }
OrbStatus orbsDFTOutOrdFwd_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTOutOrdSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<false, Orb32f>(pSrc, pDst, pSpec, pBuffer, tagOutOfOrder32fc); }
OrbStatus orbsDFTOutOrdInv_CToC_32fc(const Orb32fc* pSrc, Orb32fc* pDst, const OrbsDFTOutOrdSpec_C_32fc* pSpec, Orb8u* pBuffer) { return interleaved<true, Orb32f>(pSrc, pDst, pSpec, pBuffer, tagOutOfOrder32fc); }
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
