// WinBartlett: w(n) = 2 n / (len - 1), and back.
#include "orbs/windows.h"
#include "windows/window.h"

namespace {

using namespace orbs;

// A quotient: weights that are halves, thirds and so on are these to the last bit.
class Bartlett {
public:
    static constexpr bool inSingle = true;

    explicit Bartlett(int len) : last_(len - 1) {}

    void enter(std::size_t first) { first_ = first; }
    template <class D>
    HWY_INLINE hn::Vec<D> at(D d, std::size_t k) const {
        using T = hn::TFromD<D>;
        const auto n = hn::Set(d, static_cast<T>(first_ + k)) + hn::Iota(d, 0);
        return (n + n) / hn::Set(d, static_cast<T>(last_));
    }

private:
    std::size_t first_ = 0;
    int last_;
};

template <class T>
OrbStatus bartlett(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkWindow(3, len, pSrc, pDst)) return status;
    const WindowControl<T> control;
    applyWindow(Bartlett(len), len, pSrc, pDst);
    if (len == 3) zeroEnds(len, pDst); // whatever stood there
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWinBartlett_16s(const Orb16s* pSrc, Orb16s* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_16s_I(Orb16s* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBartlett_16sc(const Orb16sc* pSrc, Orb16sc* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_16sc_I(Orb16sc* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBartlett_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_32f_I(Orb32f* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBartlett_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_32fc_I(Orb32fc* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBartlett_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_64f_I(Orb64f* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }
OrbStatus orbsWinBartlett_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return bartlett(pSrc, pDst, len); }
OrbStatus orbsWinBartlett_64fc_I(Orb64fc* pSrcDst, int len) { return bartlett(pSrcDst, pSrcDst, len); }

}
