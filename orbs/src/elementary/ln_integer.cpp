// Ln and 10Log10 of integers: ladders of thresholds where the results are few, else the logarithm in single precision.
#include "elementary/elementary.h"
#include "elementary/ln.h"
#include "elementary/quad.h"
#include "foundation/control.h"
#include "orbs/elementary.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

using namespace orbs;

// ---- 16-bit results: the sum of the steps whose thresholds x has passed ----

struct Staircase {
    struct Step {
        int above, rise;
    };
    std::array<Step, 10> steps;
    int count;
};

constexpr int leastStairs = -16, lastFineStairs = -14, greatestStairs = 5;

// Scale factor 0 and above: the integer nearest to ln x * 2^-scaleFactor, so step k ends at e^((k + 1/2) *
// 2^scaleFactor). -14 and below: ln x * 2^-scaleFactor rounded, of the few x that do not saturate.
constexpr Staircase staircase(int scaleFactor) {
    constexpr int highest = std::numeric_limits<Orb16s>::max();
    Staircase stairs{};
    if (scaleFactor >= 0) {
        for (int k = 0;; ++k) {
            const Quad top = quadExp((k + Quad{0.5}) * (1 << scaleFactor));
            if (top > highest) return stairs;
            stairs.steps[static_cast<std::size_t>(stairs.count++)] = {static_cast<int>(top), 1};
        }
    }
    for (int x = 1, y = 0; y < highest; ++x) {
        const Quad next = quadLn(x + 1) * (1 << -scaleFactor);
        const int rounded = static_cast<int>(std::min<Quad>(next + 0.5, highest));
        stairs.steps[static_cast<std::size_t>(stairs.count++)] = {x, rounded - y};
        y = rounded;
    }
    return stairs;
}

constexpr auto staircases = [] {
    std::array<Staircase, greatestStairs - leastStairs + 1> all{};
    for (int s = leastStairs; s <= greatestStairs; ++s)
        if (s <= lastFineStairs || s >= 0) all[static_cast<std::size_t>(s - leastStairs)] = staircase(s);
    return all;
}();

template <class T>
struct Stairs {
    using Lane = T;
    const Staircase& stairs;

    explicit Stairs(int scaleFactor)
        : stairs(staircases[static_cast<std::size_t>(std::clamp(scaleFactor, leastStairs, greatestStairs) -
                                                     leastStairs)]) {}

    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        V y = hn::Zero(d);
        for (int k = 0; k < stairs.count; ++k) {
            const auto [above, rise] = stairs.steps[static_cast<std::size_t>(k)];
            y = y + hn::And(hn::VecFromMask(d, hn::Gt(x, hn::Set(d, above))), hn::Set(d, rise));
        }
        return y;
    }
};

// ---- 32-bit ladders: the number of thresholds below x ----

template <std::size_t size>
struct Ladder {
    Orb32f stepsPerOctave;
    std::array<Orb32s, size> tops; // the largest x of each step
};

template <std::size_t size>
constexpr Ladder<size> ladder(Quad lnOfStep) {
    Ladder<size> rungs{static_cast<Orb32f>(quadLn2 / lnOfStep), {}};
    for (std::size_t k = 0; k + 1 < size; ++k) rungs.tops[k] = static_cast<Orb32s>(quadExp(lnOfStep * (k + Quad{0.5})));
    rungs.tops[size - 1] = std::numeric_limits<Orb32s>::max();
    return rungs;
}

constexpr auto ln32sLadder = ladder<22>(1);
// By contract 7 gives 9, as 8 does; the nearest integer to 8.45 would be 8.
constexpr auto decibelLadder = [] {
    auto rungs = ladder<94>(quadLn10 / 10);
    rungs.tops[8] = 6;
    return rungs;
}();

template <std::size_t size>
struct Rungs {
    using Lane = Orb32s;
    const Ladder<size>& ladder;
    int shift; // of the step, without rounding

    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::Rebind<Orb32f, D> df;
        // The bits of a float are its octave and, linear inside of it, the part: at most 0.09 octaves below log2 x,
        // so that the step found is the right one or the one below.
        const auto bits = hn::BitCast(d, hn::ConvertTo(df, hn::Max(x, hn::Set(d, 1))));
        const auto octaves = hn::ConvertTo(df, bits - hn::Set(d, 0x3f800000));
        const auto steps = octaves * hn::Set(df, ladder.stepsPerOctave * 0x1p-23f) + hn::Set(df, 0.49f);
        const V below = truncatedInt32(steps);
        const V passed = hn::VecFromMask(d, hn::Gt(x, hn::GatherIndex(d, ladder.tops.data(), below)));
        return hn::ShiftRightSame(below - passed, shift);
    }
};
template <std::size_t size>
Rungs(const Ladder<size>&, int) -> Rungs<size>;

// ---- The logarithm in single precision, times a factor, rounded to nearest and saturated ----

struct ScaledLn {
    using Lane = Orb32s;
    Orb32f factor;

    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::Rebind<Orb32f, D> df;
        const auto y = lnOfNormal(df, hn::ConvertTo(df, hn::Max(x, hn::Set(d, 1)))) * hn::Set(df, factor);
        const auto fits = hn::Lt(y, hn::Set(df, 0x1p31f));
        const V rounded = nearestInt32(hn::IfThenElseZero(fits, y));
        return hn::IfThenElse(hn::RebindMask(d, fits), rounded, hn::Set(d, std::numeric_limits<Orb32s>::max()));
    }
};

// 2^-scaleFactor of a negative scale factor; from 2^64 on every result but 0 saturates.
Orb32f scaleOf(int scaleFactor) {
    return powerOfTwo<Orb32f>(-std::max(scaleFactor, -64));
}

// ---- Frame ----

template <class Op, class S, class R>
OrbStatus logarithms(Op op, const S* pSrc, R* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const SseRounding guard(SseRounding::nearest);
    OrbStatus warning = orbStsNoErr;
    const auto element = [=, &warning](auto d, auto x) HWY_ATTR {
        warnOfLnArgs(d, x, warning);
        const auto none = hn::Set(d, hwy::LimitsMin<hn::TFromD<decltype(d)>>());
        return hn::IfThenElse(hn::Gt(x, hn::Zero(d)), op.result(d, x), none);
    };
    const auto count = static_cast<std::size_t>(len);
    if constexpr (std::is_same_v<typename Op::Lane, R>) {
        mapVectors<2>(count, element, pDst, pSrc);
    } else {
        mapInWords(count, element, pDst, pSrc);
    }
    return warning;
}

OrbStatus ln(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    if (scaleFactor >= 0 || scaleFactor <= -14) return logarithms(Stairs<Orb16s>(scaleFactor), pSrc, pDst, len);
    return logarithms(ScaledLn{scaleOf(scaleFactor)}, pSrc, pDst, len);
}

OrbStatus ln(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    if (scaleFactor < 0) return logarithms(ScaledLn{scaleOf(scaleFactor)}, pSrc, pDst, len);
    return logarithms(Rungs{ln32sLadder, std::min(scaleFactor, 31)}, pSrc, pDst, len);
}

OrbStatus ln(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    if (scaleFactor <= -15) return logarithms(Stairs<Orb32s>(scaleFactor), pSrc, pDst, len);
    if (scaleFactor < 0) return logarithms(ScaledLn{scaleOf(scaleFactor)}, pSrc, pDst, len);
    return logarithms(Rungs{ln32sLadder, std::min(scaleFactor, 31)}, pSrc, pDst, len);
}

OrbStatus decibels(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    constexpr auto perNeper = static_cast<Orb32f>(10 / quadLn10); // 4.3429446
    if (scaleFactor < 0) return logarithms(ScaledLn{scaleOf(scaleFactor) * perNeper}, pSrc, pDst, len);
    return logarithms(Rungs{decibelLadder, std::min(scaleFactor, 31)}, pSrc, pDst, len);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsLn_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return ln(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsLn_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor) { return ln(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsLn_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor) { return ln(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsLn_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor) { return ln(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsLn_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return ln(pSrc, pDst, len, scaleFactor); }
OrbStatus orbs10Log10_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor) { return decibels(pSrc, pDst, len, scaleFactor); }
OrbStatus orbs10Log10_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor) { return decibels(pSrcDst, pSrcDst, len, scaleFactor); }

}
