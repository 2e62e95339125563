// WinHann, WinHamming: a raised cosine, to 0 and to 0.08. With q = sin^2(pi n / (len - 1))
//   0.5 - 0.5 cos(2 pi n / (len - 1)) = q,   0.54 - 0.46 cos(2 pi n / (len - 1)) = 0.08 + 0.92 q.
#include "orbs/windows.h"
#include "windows/sines.h"

namespace {

using namespace orbs;

struct Hann {
    template <class D, class V>
    static HWY_INLINE V of(D, V q) {
        return q;
    }
};
struct Hamming {
    template <class D, class V>
    static HWY_INLINE V of(D d, V q) {
        return hn::Set(d, 0.08) + hn::Set(d, 0.92) * q;
    }
};

template <class Polynomial, class T>
OrbStatus raisedCosine(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkWindow(3, len, pSrc, pDst)) return status;
    const WindowControl<T> control;
    applyWindow(CosineWindow(len, Polynomial()), len, pSrc, pDst);
    if (std::is_same_v<Polynomial, Hann> && len == 3) zeroEnds(len, pDst); // whatever stood there
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWinHann_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_16s_I(Orb16s* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHann_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_16sc_I(Orb16sc* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHann_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_32f_I(Orb32f* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHann_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_32fc_I(Orb32fc* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHann_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_64f_I(Orb64f* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHann_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return raisedCosine<Hann>(pSrc, pDst, len); }
OrbStatus orbsWinHann_64fc_I(Orb64fc* pSrcDst, int len) { return raisedCosine<Hann>(pSrcDst, pSrcDst, len); }

OrbStatus orbsWinHamming_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_16s_I(Orb16s* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHamming_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_16sc_I(Orb16sc* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHamming_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_32f_I(Orb32f* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHamming_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_32fc_I(Orb32fc* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHamming_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_64f_I(Orb64f* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinHamming_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return raisedCosine<Hamming>(pSrc, pDst, len); }
OrbStatus orbsWinHamming_64fc_I(Orb64fc* pSrcDst, int len) { return raisedCosine<Hamming>(pSrcDst, pSrcDst, len); }

}
