// FIRLMSOne_Direct: one sample over the caller's taps and delay line.
#include "adaptive/adapt.h"
#include "filters/caller_line.h"
#include "filters/samples.h"
#include "foundation/control.h"
#include "orbs/adaptive.h"
#include "reductions/reduce.h"

namespace {

using namespace orbs;

// ---- Taps in single precision ----

// The newest sample, just stored, and a few more go one by one: a load of several elements waits until all stores to
// them have left the processor's queue. For the same reason one call loads taps in the pieces in which the last one
// stored them.
constexpr std::size_t leastPiece = 4;

constexpr std::size_t inPieces(std::size_t count) {
    return (count - 1) / leastPiece * leastPiece;
}

template <class Body>
HWY_INLINE void forEachPiece(std::size_t count, Body body) {
    std::size_t n = 0;
    const auto pieces = [&](auto d, std::size_t end) HWY_ATTR {
        for (; n + hn::MaxLanes(d) <= end; n += hn::MaxLanes(d)) body(d, n);
    };
    pieces(hn::ScalableTag<Orb32f>(), inPieces(count));
    pieces(hn::CappedTag<Orb32f, 2 * leastPiece>(), inPieces(count));
    pieces(hn::CappedTag<Orb32f, leastPiece>(), inPieces(count));
    pieces(hn::CappedTag<Orb32f, 1>(), count);
}

// The sum of all lanes and of the products that are left: in rows of so many lanes, and whenever the upper half of the
// lanes has been added to the lower one, in a row of those.
template <class D, std::size_t vectors, class X>
HWY_INLINE Orb32f folded(D d, hn::Vec<D> (&sums)[vectors], std::size_t left, const Orb32f* h, const X* x) {
    constexpr std::size_t step = hn::MaxLanes(D()), lanes = vectors * step;
    for (; left >= lanes; left -= lanes, h += lanes, x += lanes) {
#pragma GCC unroll 16
        for (std::size_t v = 0; v < vectors; ++v)
            sums[v] = hn::Add(sums[v], hn::Mul(hn::LoadU(d, h + v * step), loadAs(d, x + v * step)));
    }
    if constexpr (lanes == leastPiece) {
        return hn::GetLane(sumEverywhere(d, sums[0]));
    } else if constexpr (vectors > 1) {
        hn::Vec<D> halves[vectors / 2];
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors / 2; ++v) halves[v] = hn::Add(sums[v], sums[v + vectors / 2]);
        return folded(d, halves, left, h, x);
    } else {
        const hn::Half<D> dHalf;
        hn::Vec<decltype(dHalf)> half[] = {hn::Add(hn::LowerHalf(dHalf, sums[0]), hn::UpperHalf(dHalf, sums[0]))};
        return folded(dHalf, half, left, h, x);
    }
}

template <class X>
HWY_INLINE Orb32f tapsBySamples(std::size_t count, const Orb32f* h, const X* x) {
    constexpr std::size_t lanes = 64;
    const hn::CappedTag<Orb32f, lanes> d;
    constexpr std::size_t vectors = lanes / hn::MaxLanes(d);
    const std::size_t end = inPieces(count);
    hn::Vec<decltype(d)> sums[vectors];
#pragma GCC unroll 16
    for (std::size_t v = 0; v < vectors; ++v) sums[v] = hn::Zero(d);
    Orb32f rest = 0;
    for (std::size_t k = end; k < count; ++k) rest += h[k] * static_cast<Orb32f>(x[k]);
    return folded(d, sums, end, h, x) + rest;
}

struct Plain {
    Orb32f refVal, mu;

    template <class X>
    void operator()(Orb32f* h, const X* x, std::size_t count, X* pDstVal) const {
        const Orb32f y = tapsBySamples(count, h, x);
        const Orb32f e = (refVal - y) * (mu + mu);
        *pDstVal = narrowOne<X>(y, 0);
        forEachPiece(count, [=](auto d, std::size_t k) HWY_ATTR {
            hn::StoreU(hn::Add(hn::LoadU(d, h + k), hn::Mul(loadAs(d, x + k), hn::Set(d, e))), d, h + k);
        });
    }
};

// ---- Taps of 32 bits ----

// Products, and the energy of the samples.
struct TapsAndEnergy : InFixedLanes<Orb64f, 2> {
    template <class D, class V, class X>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb32s* h, const X* x) const {
        const V samples = loadAs(d, x);
        sum[0] = hn::Add(sum[0], hn::Mul(loadAs(d, h), samples));
        sum[1] = hn::Add(sum[1], hn::Mul(samples, samples));
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
