// WinKaiser: w(n) = I0(alpha sqrt(n (M - n))) / I0(alpha M / 2), M = len - 1.
#include "orbs/windows.h"
#include "windows/bessel.h"
#include "windows/window.h"

#include <cmath>

namespace {

using namespace orbs;

class Kaiser {
public:
    Kaiser(int len, Orb64f alpha) : alpha_(alpha), last_(len - 1) {
        const hn::CappedTag<Orb64f, 2> d; // of which a table is read
        weightOfOne_ = 1 / hn::GetLane(besselI0(d, hn::Set(d, alpha * last_ * 0.5)));
    }

    void enter(std::size_t first) { first_ = static_cast<Orb64f>(first); }
    template <class D>
    HWY_INLINE hn::Vec<D> at(D d, std::size_t k) const {
        const auto n = hn::Iota(d, first_ + static_cast<Orb64f>(k));
        const auto product = hn::Max(n * (hn::Set(d, last_) - n), hn::Zero(d)); // a short vector ends within the lanes
        return besselI0(d, hn::Set(d, alpha_) * hn::Sqrt(product)) * hn::Set(d, weightOfOne_);
    }

private:
    Orb64f alpha_, last_, weightOfOne_, first_ = 0;
};

// The largest argument of I0 that members take.
template <class T>
constexpr Orb64f kaiserLimit = std::is_same_v<PartOf<T>, Orb32f> ? 38 : 308;

template <class T>
OrbStatus kaiser(const T* pSrc, T* pDst, int len, Orb64f alpha) {
    if (const OrbStatus status = checkWindow(1, len, pSrc, pDst)) return status;
    const Orb64f magnitude = std::abs(alpha);
    if (magnitude * (len - 1) * 0.5 > kaiserLimit<T>) return orbStsWinKaiserErr;
    applyWindow(Kaiser(len, magnitude), len, pSrc, pDst);
    return orbStsNoErr;
}

template <class T>
OrbStatus kaiserQ15(const T* pSrc, T* pDst, int len, int alphaQ15) {
    return kaiser(pSrc, pDst, len, alphaQ15 * 0x1p-15);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWinKaiser_16s(const Orb16s* pSrc, Orb16s* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_16s_I(Orb16s* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinKaiser_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_16sc_I(Orb16sc* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinKaiser_32f(const Orb32f* pSrc, Orb32f* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_32f_I(Orb32f* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinKaiser_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_32fc_I(Orb32fc* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinKaiser_64f(const Orb64f* pSrc, Orb64f* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_64f_I(Orb64f* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }
OrbStatus orbsWinKaiser_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len, Orb32f alpha) { return kaiser(pSrc, pDst, len, alpha); }
OrbStatus orbsWinKaiser_64fc_I(Orb64fc* pSrcDst, int len, Orb32f alpha) { return kaiser(pSrcDst, pSrcDst, len, alpha); }

OrbStatus orbsWinKaiserQ15_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int alphaQ15) { return kaiserQ15(pSrc, pDst, len, alphaQ15); }
OrbStatus orbsWinKaiserQ15_16s_I(Orb16s* pSrcDst, int len, int alphaQ15) { return kaiserQ15(pSrcDst, pSrcDst, len, alphaQ15); }
OrbStatus orbsWinKaiserQ15_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len, int alphaQ15) { return kaiserQ15(pSrc, pDst, len, alphaQ15); }
OrbStatus orbsWinKaiserQ15_16sc_I(Orb16sc* pSrcDst, int len, int alphaQ15) { return kaiserQ15(pSrcDst, pSrcDst, len, alphaQ15); }

}
