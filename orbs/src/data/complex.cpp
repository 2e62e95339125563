// Complex vectors and their parts: Real, Imag, CplxToReal, RealToCplx, Conj.
#include "vectors/complex.h"
#include "foundation/frame.h"
#include "orbs/data.h"

namespace {

using namespace orbs;

// Calls store(re, im, d, n) with the parts of the elements from n on.
template <class C, class Store>
void forEachParts(const C* pSrc, int len, Store store) {
    using Real = RealOf<C>;
    forEachVector<Real>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        hn::Vec<decltype(d)> re, im;
        hn::LoadInterleaved2(d, asReal(pSrc + n), re, im);
        store(re, im, d, n);
    });
}

template <class C>
OrbStatus real(const C* pSrc, RealOf<C>* pDstRe, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDstRe)) return status;
    forEachParts(pSrc, len, [=](auto re, auto, auto d, std::size_t n) HWY_ATTR { hn::StoreU(re, d, pDstRe + n); });
    return orbStsNoErr;
}

template <class C>
OrbStatus imaginary(const C* pSrc, RealOf<C>* pDstIm, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDstIm)) return status;
    forEachParts(pSrc, len, [=](auto, auto im, auto d, std::size_t n) HWY_ATTR { hn::StoreU(im, d, pDstIm + n); });
    return orbStsNoErr;
}

template <class C>
OrbStatus separated(const C* pSrc, RealOf<C>* pDstRe, RealOf<C>* pDstIm, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDstRe, pDstIm)) return status;
    forEachParts(pSrc, len, [=](auto re, auto im, auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(re, d, pDstRe + n);
        hn::StoreU(im, d, pDstIm + n);
    });
    return orbStsNoErr;
}

// A source that is null stands for zeros; the test of the two together comes behind that of the length.
template <class C>
OrbStatus joined(const RealOf<C>* pSrcRe, const RealOf<C>* pSrcIm, C* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    if (!pSrcRe && !pSrcIm) return orbStsNullPtrErr;
    forEachVector<RealOf<C>>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const auto re = pSrcRe ? hn::LoadU(d, pSrcRe + n) : hn::Zero(d);
        const auto im = pSrcIm ? hn::LoadU(d, pSrcIm + n) : hn::Zero(d);
        hn::StoreInterleaved2(re, im, d, asReal(pDst + n));
    });
    return orbStsNoErr;
}

template <class C>
OrbStatus conjugated(const C* pSrc, C* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto* src = asReal(pSrc);
    auto* dst = asReal(pDst);
    forEachComplex(static_cast<std::size_t>(len), dst, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(Conjugate::of(d, hn::LoadU(d, src + n)), d, dst + n);
    });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsReal_16sc(const Orb16sc* pSrc, Orb16s* pDstRe, int len) { return real(pSrc, pDstRe, len); }
OrbStatus orbsReal_32fc(const Orb32fc* pSrc, Orb32f* pDstRe, int len) { return real(pSrc, pDstRe, len); }
OrbStatus orbsReal_64fc(const Orb64fc* pSrc, Orb64f* pDstRe, int len) { return real(pSrc, pDstRe, len); }

OrbStatus orbsImag_16sc(const Orb16sc* pSrc, Orb16s* pDstIm, int len) { return imaginary(pSrc, pDstIm, len); }
OrbStatus orbsImag_32fc(const Orb32fc* pSrc, Orb32f* pDstIm, int len) { return imaginary(pSrc, pDstIm, len); }
OrbStatus orbsImag_64fc(const Orb64fc* pSrc, Orb64f* pDstIm, int len) { return imaginary(pSrc, pDstIm, len); }

OrbStatus orbsRealToCplx_16s(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16sc* pDst, int len) { return joined(pSrcRe, pSrcIm, pDst, len); }
OrbStatus orbsRealToCplx_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32fc* pDst, int len) { return joined(pSrcRe, pSrcIm, pDst, len); }
OrbStatus orbsRealToCplx_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64fc* pDst, int len) { return joined(pSrcRe, pSrcIm, pDst, len); }

OrbStatus orbsCplxToReal_16sc(const Orb16sc* pSrc, Orb16s* pDstRe, Orb16s* pDstIm, int len) { return separated(pSrc, pDstRe, pDstIm, len); }
OrbStatus orbsCplxToReal_32fc(const Orb32fc* pSrc, Orb32f* pDstRe, Orb32f* pDstIm, int len) { return separated(pSrc, pDstRe, pDstIm, len); }
OrbStatus orbsCplxToReal_64fc(const Orb64fc* pSrc, Orb64f* pDstRe, Orb64f* pDstIm, int len) { return separated(pSrc, pDstRe, pDstIm, len); }

OrbStatus orbsConj_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return conjugated(pSrc, pDst, len); }
OrbStatus orbsConj_16sc_I(Orb16sc* pSrcDst, int len) { return conjugated(pSrcDst, pSrcDst, len); }
OrbStatus orbsConj_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return conjugated(pSrc, pDst, len); }
OrbStatus orbsConj_32fc_I(Orb32fc* pSrcDst, int len) { return conjugated(pSrcDst, pSrcDst, len); }
OrbStatus orbsConj_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return conjugated(pSrc, pDst, len); }
OrbStatus orbsConj_64fc_I(Orb64fc* pSrcDst, int len) { return conjugated(pSrcDst, pSrcDst, len); }

}
// clang-format on
