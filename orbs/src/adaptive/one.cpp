// FIRLMSOne_Direct: one sample over the caller's taps and delay line.
#include "filters/caller_line.h"
#include "filters/samples.h"
#include "foundation/control.h"
#include "orbs/adaptive.h"
#include "reductions/reduce.h"

namespace {

using namespace orbs;

struct TapsBySamples : InFixedLanes<Orb32f> {
    template <class D, class V, class X>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb32f* h, const X* x) const {
        sum[0] = hn::Add(sum[0], hn::Mul(loadAs(d, h), loadAs(d, x)));
    }
};

// The same, and the energy of the samples.
struct TapsAndEnergy : InFixedLanes<Orb64f, 2> {
    template <class D, class V, class X>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb32s* h, const X* x) const {
        const V samples = loadAs(d, x);
        sum[0] = hn::Add(sum[0], hn::Mul(loadAs(d, h), samples));
        sum[1] = hn::Add(sum[1], hn::Mul(samples, samples));
    }
};

struct Plain {
    Orb32f refVal, mu;

    template <class X>
    void operator()(Orb32f* h, const X* x, std::size_t count, X* pDstVal) const {
        const Orb32f y = reduced(TapsBySamples(), count, h, x)[0][0];
        const Orb32f e = (refVal - y) * (mu + mu);
        *pDstVal = narrowOne<X>(y, 0);
        forEachVector<Orb32f>(count, [=](auto d, std::size_t k) HWY_ATTR {
            const auto step = hn::Mul(loadAs(d, x + k), hn::Set(d, e));
            hn::StoreU(hn::Add(hn::LoadU(d, h + k), step), d, h + k);
        });
    }
};

struct Normalised {
    Orb16s refVal;
    int muQ15;

    void operator()(Orb32s* h, const Orb16s* x, std::size_t count, Orb16s* pDstVal) const {
        const SseRounding rounding(SseRounding::nearest);
        const auto [sum, energy] = reduced(TapsAndEnergy(), count, h, x);
        if (energy[0] == 0) return;
        const Orb64f y = sum[0] * 0x1p-15;
        const Orb64f g = muQ15 * (refVal - y) * (1 / energy[0]);
        *pDstVal = narrowOne<Orb16s>(y, 0);
        forEachVector<Orb64f>(count, [=](auto d, std::size_t k) HWY_ATTR {
            const hn::Rebind<Orb32s, decltype(d)> dTaps;
            const auto adapted = hn::Add(loadAs(d, h + k), hn::Mul(loadAs(d, x + k), hn::Set(d, g)));
            hn::StoreU(nearestInt32(hn::Min(adapted, hn::Set(d, 2147483647.0))), dTaps, h + k);
        });
    }
};

template <class Tap, class X, class Step>
OrbStatus filterOne(Tap* pTapsInv, const CallerLine<X>& line, std::type_identity_t<X> src, X* pDstVal, Step step) {
    if (anyNull(pTapsInv, line.samples, line.index, pDstVal)) return orbStsNullPtrErr;
    if (line.tapsLen < 1) return orbStsSizeErr;
    if (*line.index < 0 || *line.index >= line.tapsLen) return orbStsDlyLineIndexErr;
    line.filterOne(src, pDstVal, [&](const X* oldest, X* pOutput, int) {
        step(pTapsInv, oldest, static_cast<std::size_t>(line.tapsLen), pOutput);
    });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRLMSOne_Direct_32f(Orb32f src, Orb32f refVal, Orb32f* pDstVal, Orb32f* pTapsInv, int tapsLen, Orb32f mu, Orb32f* pDlyLine, int* pDlyLineIndex) { return filterOne(pTapsInv, CallerLine{pDlyLine, tapsLen, pDlyLineIndex}, src, pDstVal, Plain{refVal, mu}); }
OrbStatus orbsFIRLMSOne_Direct32f_16s(Orb16s src, Orb16s refVal, Orb16s* pDstVal, Orb32f* pTapsInv, int tapsLen, Orb32f mu, Orb16s* pDlyLine, int* pDlyLineIndex) { return filterOne(pTapsInv, CallerLine{pDlyLine, tapsLen, pDlyLineIndex}, src, pDstVal, Plain{static_cast<Orb32f>(refVal), mu}); }
OrbStatus orbsFIRLMSOne_DirectQ15_16s(Orb16s src, Orb16s refVal, Orb16s* pDstVal, Orb32s* pTapsInv, int tapsLen, int muQ15, Orb16s* pDlyLine, int* pDlyLineIndex) { return filterOne(pTapsInv, CallerLine{pDlyLine, tapsLen, pDlyLineIndex}, src, pDstVal, Normalised{refVal, muQ15}); }

}
// clang-format on
