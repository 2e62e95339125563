// WinBlackman and its forms with a given alpha. With q = sin^2(pi n / (len - 1)) the weight is q (1 + 4 alpha (1 - q)).
#include "orbs/windows.h"
#include "windows/sines.h"

#include <cmath>

namespace {

using namespace orbs;

struct Blackman {
    Orb64f alpha;

    template <class D, class V>
    HWY_INLINE V of(D d, V q) const {
        const V one = hn::Set(d, 1.0);
        return q * (one + hn::Set(d, 4 * alpha) * (one - q));
    }
};

template <class T>
OrbStatus blackman(const T* pSrc, T* pDst, int len, Orb64f alpha) {
    if (const OrbStatus status = checkWindow(3, len, pSrc, pDst)) return status;
    const WindowControl<T> control;
    applyWindow(CosineWindow(len, Blackman{alpha}), len, pSrc, pDst);
    zeroEnds(len, pDst);
    return orbStsNoErr;
}

// As single precision has it, in the members of double precision too.
constexpr Orb32f standardAlpha = -0.16f;

// The alpha whose first weight but the end's is 0. The length is tested before the pointers.
template <class T>
OrbStatus optimal(const T* pSrc, T* pDst, int len) {
    if (len < 4) return orbStsSizeErr;
    const WindowControl<T> control;
    const Orb64f root = 0.5 / sinCos(std::numbers::pi / (len - 1)).cos;
    return blackman(pSrc, pDst, len, static_cast<Orb32f>(-(root * root)));
}

constexpr Orb64f fromQ15(int alphaQ15) {
    return alphaQ15 * 0x1p-15;
}
template <class T>
OrbStatus blackmanQ15(const T* pSrc, T* pDst, int len, int alphaQ15) {
    const WindowControl<T> control;
    return blackman(pSrc, pDst, len, static_cast<Orb32f>(fromQ15(alphaQ15)));
}

// 2^-scaleFactor for products of 16 bits and a weight. Beyond this range every one but 0 saturates, or is 0.
Orb32f scaleOf(int scaleFactor) {
    return powerOfTwo<Orb32f>(-std::clamp(scaleFactor, -100, 100));
}

// The one element of three that has a weight: an exact half goes away from 0.
Orb16s scaledAway(Orb16s x, Orb32f scale) {
    const Orb64f y = static_cast<Orb64f>(x) * scale;
    if (y > 32767) return 32767;
    if (y < -32768) return -32768;
    return static_cast<Orb16s>(y + std::copysign(0.5, y));
}

OrbStatus blackmanScaled(Orb16s* pSrcDst, int len, int alphaQ15, int scaleFactor) {
    if (const OrbStatus status = checkWindow(3, len, pSrcDst, pSrcDst)) return status;
    const WindowControl<Orb16s> control;
    const Orb32f scale = scaleOf(scaleFactor);
    if (len == 3) {
        setElement(pSrcDst + 1, scaledAway(elementAt(pSrcDst + 1), scale));
    } else {
        CosineWindow window(len, Blackman{fromQ15(alphaQ15)});
        applyWindow(window, WeightedNearest{scale}, static_cast<std::size_t>(len), pSrcDst, pSrcDst);
    }
    zeroEnds(len, pSrcDst);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWinBlackman_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb32f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_16s_I(Orb16s* pSrcDst, int len, Orb32f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinBlackman_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb32f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_16sc_I(Orb16sc* pSrcDst, int len, Orb32f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinBlackman_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_32f_I(Orb32f* pSrcDst, int len, Orb32f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinBlackman_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_32fc_I(Orb32fc* pSrcDst, int len, Orb32f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinBlackman_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb64f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_64f_I(Orb64f* pSrcDst, int len, Orb64f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinBlackman_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb64f alpha) { return blackman(pSrc, pDst, len, alpha); }
OrbStatus orbsWinBlackman_64fc_I(Orb64fc* pSrcDst, int len, Orb64f alpha) { return blackman(pSrcDst, pSrcDst, len, alpha); }

OrbStatus orbsWinBlackmanStd_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_16s_I(Orb16s* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_16sc_I(Orb16sc* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_32f_I(Orb32f* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_32fc_I(Orb32fc* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_64f_I(Orb64f* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return blackman(pSrc, pDst, len, standardAlpha); }
OrbStatus orbsWinBlackmanStd_64fc_I(Orb64fc* pSrcDst, int len) { return blackman(pSrcDst, pSrcDst, len, standardAlpha); }

OrbStatus orbsWinBlackmanOpt_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_16s_I(Orb16s* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBlackmanOpt_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_16sc_I(Orb16sc* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBlackmanOpt_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_32f_I(Orb32f* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBlackmanOpt_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_32fc_I(Orb32fc* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBlackmanOpt_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_64f_I(Orb64f* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBlackmanOpt_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return optimal(pSrc, pDst, len); }
OrbStatus orbsWinBlackmanOpt_64fc_I(Orb64fc* pSrcDst, int len) { return optimal(pSrcDst, pSrcDst, len); }

OrbStatus orbsWinBlackmanQ15_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int alphaQ15) { return blackmanQ15(pSrc, pDst, len, alphaQ15); }
OrbStatus orbsWinBlackmanQ15_16s_I(Orb16s* pSrcDst, int len, int alphaQ15) { return blackmanQ15(pSrcDst, pSrcDst, len, alphaQ15); }
OrbStatus orbsWinBlackmanQ15_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, int alphaQ15) { return blackmanQ15(pSrc, pDst, len, alphaQ15); }
OrbStatus orbsWinBlackmanQ15_16sc_I(Orb16sc* pSrcDst, int len, int alphaQ15) { return blackmanQ15(pSrcDst, pSrcDst, len, alphaQ15); }
OrbStatus orbsWinBlackmanQ15_16s_ISfs(Orb16s* pSrcDst, int len, int alphaQ15, int scaleFactor) { return blackmanScaled(pSrcDst, len, alphaQ15, scaleFactor); }

}
