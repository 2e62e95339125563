// WinKaiser: w(n) = I0(alpha sqrt(n (M - n))) / I0(alpha M / 2), M = len - 1.
#include "orbs/windows.h"
#include "vectors/values.h"
#include "windows/bessel.h"
#include "windows/window.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace orbs;

// With x = alpha sqrt(n (M - n)) and beta = alpha M / 2 a weight is
//   I0(x) r                              of small x, with r = 1 / I0(beta),
//   (I0(x) exp(-x)) exp(x - beta) s      of others, with s = exp(beta) / I0(beta).
// beta - x, which the exponential makes a relative error of, is small where weights are large. It is made of what does
// not cancel: with c = (M - 2 n) / M, how far from the middle, x is beta sqrt(1 - c^2), and
//   beta - x = beta c^2 / (1 + x / beta).
template <class W>
class Kaiser {
public:
    static constexpr bool inSingle = true;

    Kaiser(int len, Orb64f alpha) : last_(len - 1), quarter_(static_cast<W>(alpha * alpha / 4)) {
        using Table = Bessel<Orb64f>;
        const hn::CappedTag<Orb64f, 2> d; // of which a table is read
        const Orb64f beta = alpha * last_ / 2;
        const Orb64f power = hn::GetLane(Table::Exp().usual(d, hn::Set(d, beta)));
        const Orb64f r = beta < Table::end ? 1 / hn::GetLane(besselNear(d, hn::Set(d, beta * beta / 4)))
                                           : 1 / (power * hn::GetLane(besselFar(d, hn::Set(d, 1 / beta))));
        r_ = static_cast<W>(r);
        s_ = static_cast<W>(power * r);
        inverseBeta_ = static_cast<W>(1 / std::max(beta, Orb64f{Bessel<W>::end})); // where there are large x
        perSquare_ = static_cast<W>(len > 1 ? alpha / 2 / last_ : 0);              // beta / M^2
    }

    void enter(std::size_t first) { first_ = static_cast<int>(first); }
    template <class D>
    HWY_INLINE hn::Vec<D> at(D d, std::size_t k) const {
        using Table = Bessel<W>;
        // Differences are made of integers, which are exact. A short vector ends within the lanes.
        const hn::Rebind<Orb32s, D> integers;
        const auto n = hn::Set(integers, first_ + static_cast<int>(k)) + hn::Iota(integers, 0);
        const auto rest = hn::Set(integers, last_) - n;
        const auto y = hn::Max(valuesIn(d, n) * valuesIn(d, rest) * hn::Set(d, quarter_), hn::Zero(d));

        const auto isFar = hn::Ge(y, hn::Set(d, Table::end * Table::end / 4));
        const auto near = [&]() HWY_ATTR { return besselNear(d, y) * hn::Set(d, r_); };
        if (hn::AllFalse(d, isFar)) return near();

        const auto root = hn::Sqrt(y), one = hn::Set(d, 1);
        const auto x = hn::Max(root + root, hn::Set(d, Table::end));
        const auto aboveOne = one + x * hn::Set(d, inverseBeta_);
        const auto quotient = one / (x * aboveOne); // from which both come
        const auto c = valuesIn(d, rest - n);
        const auto exponent = hn::Min(c * c * hn::Set(d, perSquare_) * (x * quotient), hn::Set(d, Table::deepest));
        const auto far = typename Table::Exp().usual(d, hn::Zero(d) - exponent) *
                         (besselFar(d, aboveOne * quotient) * hn::Set(d, s_));
        return hn::AllTrue(d, isFar) ? far : hn::IfThenElse(isFar, far, near());
    }

private:
    int last_, first_ = 0;
    W quarter_, r_, s_, inverseBeta_, perSquare_;
};

// The largest argument of I0 that members take.
template <class T>
constexpr Orb64f kaiserLimit = std::is_same_v<PartOf<T>, Orb32f> ? 38 : 308;

template <class T>
OrbStatus kaiser(const T* pSrc, T* pDst, int len, Orb64f alpha) {
    if (const OrbStatus status = checkWindow(1, len, pSrc, pDst)) return status;
    const WindowControl<T> control;
    const Orb64f magnitude = std::abs(alpha);
    if (magnitude * (len - 1) * 0.5 > kaiserLimit<T>) return orbStsWinKaiserErr;
    applyWindow(Kaiser<WeightOf<T>>(len, magnitude), len, pSrc, pDst);
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
