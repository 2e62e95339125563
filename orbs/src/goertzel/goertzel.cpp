// Goertz, GoertzTwo: spectra at one and two frequencies.
#include "orbs/goertzel.h"

#include "foundation/control.h"
#include "goertzel/lanes.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

#include <algorithm>

namespace {

using namespace orbs;
using namespace orbs::goertzel;

// NaN is outside.
template <class T, std::size_t frequencies>
bool areRelative(const std::array<T, frequencies>& rFreq) {
    return std::ranges::all_of(rFreq, [](T f) { return f >= 0 && f < 1; });
}

// ---- The frame: calls store(k, value) for each frequency with what compute(pSrc, len, rFreq) gives ----

template <class S, class V, class T, std::size_t frequencies, class Compute>
OrbStatus evaluate(const S* pSrc, int len, V* pVal, const std::array<T, frequencies>& rFreq, Compute compute) {
    if (const OrbStatus status = checkVectors(len, pSrc, pVal)) return status;
    if (!areRelative(rFreq)) return orbStsRelFreqErr;
    const std::array<V, frequencies> values = compute(pSrc, static_cast<std::size_t>(len), rFreq);
    for (std::size_t k = 0; k < frequencies; ++k) setElement(pVal + k, values[k]);
    return orbStsNoErr;
}

// The two frequencies of an array. Where there is none, nothing that is tested later counts: all null pointers are
// alike.
template <class T, class Call>
OrbStatus withTwo(const T* rFreq, Call call) {
    if (!rFreq) return orbStsNullPtrErr;
    return call(std::array<T, 2>{elementAt(rFreq), elementAt(rFreq + 1)});
}

// ---- Single precision, and integers by way of it ----

template <class S, std::size_t frequencies>
OrbStatus single(const S* pSrc, int len, Orb32fc* pVal, const std::array<Orb32f, frequencies>& rFreq) {
    return evaluate(pSrc, len, pVal, rFreq,
                    [](const S* p, std::size_t n, const auto& f) { return spectrumAt(p, n, f); });
}

// x * 2^-scaleFactor to nearest, ties to even, saturated. Powers of two that no float has are the least or the largest
// of the normal ones, with which every sum of integers is 0 or saturates.
Orb16sc scaledToIntegers(Orb32fc x, int scaleFactor) {
    constexpr hn::FixedTag<Orb32f, 4> d;
    const Orb32f factor = powerOfTwo<Orb32f>(-std::clamp(scaleFactor, -127, 126));
    Orb32f parts[4] = {x.re, x.im};
    Orb32s integers[4];
    {
        const SseRounding rounding(SseRounding::nearest);
        keepInMemory(parts);
        const auto v = hn::LoadU(d, parts) * hn::Set(d, factor);
        const auto limited = hn::Max(hn::Min(v, hn::Set(d, 32767.0f)), hn::Set(d, -32768.0f)); // of a NaN, 32767
        hn::StoreU(nearestInt32(limited), hn::Rebind<Orb32s, decltype(d)>(), integers);
        keepInMemory(integers);
    }
    return {static_cast<Orb16s>(integers[0]), static_cast<Orb16s>(integers[1])};
}

template <class S, std::size_t frequencies>
OrbStatus scaled(const S* pSrc, int len, Orb16sc* pVal, const std::array<Orb32f, frequencies>& rFreq, int scaleFactor) {
    return evaluate(pSrc, len, pVal, rFreq, [=](const S* p, std::size_t n, const auto& f) {
        const auto sums = spectrumAt(p, n, f);
        std::array<Orb16sc, frequencies> values;
        for (std::size_t k = 0; k < frequencies; ++k) values[k] = scaledToIntegers(sums[k], scaleFactor);
        return values;
    });
}

// A negative frequency is refused before anything else is looked at.
template <std::size_t frequencies>
OrbStatus scaledQ15(const Orb16sc* pSrc, int len, Orb16sc* pVal, const std::array<Orb16s, frequencies>& rFreqQ15,
                    int scaleFactor) {
    std::array<Orb32f, frequencies> rFreq;
    for (std::size_t k = 0; k < frequencies; ++k) {
        if (rFreqQ15[k] < 0) return orbStsRelFreqErr;
        rFreq[k] = static_cast<Orb32f>(rFreqQ15[k] * 0x1p-15);
    }
    return scaled(pSrc, len, pVal, rFreq, scaleFactor);
}

// ---- Double precision: the recursion s[n] = x[n] + 2 cos(theta) s[n-1] - s[n-2] ----

constexpr hn::FixedTag<Orb64f, 2> dState; // a complex one
using State = hn::Vec<decltype(dState)>;

struct States {
    State newer, older;
};
HWY_INLINE States next(States s, State x, State factor) {
    return {(x - s.older) + factor * s.newer, s.newer};
}

// exp(i theta) s[N-1] - s[N-2]
HWY_INLINE Orb64fc valueOf(States s, SinCos<Orb64f> root) {
    const Orb64fc s1{hn::GetLane(s.newer), hn::ExtractLane(s.newer, 1)};
    const Orb64fc s2{hn::GetLane(s.older), hn::ExtractLane(s.older, 1)};
    return {root.cos * s1.re - s2.re - root.sin * s1.im, root.cos * s1.im - s2.im + root.sin * s1.re};
}

template <std::size_t frequencies>
OrbStatus twice(const Orb64fc* pSrc, int len, Orb64fc* pVal, const std::array<Orb64f, frequencies>& rFreq) {
    return evaluate(pSrc, len, pVal, rFreq, [](const Orb64fc* p, std::size_t count, const auto& f) {
        const SinCos<Orb64f> root = sinCos(twoPi * f[0]);
        const State factor = hn::Set(dState, 2 * root.cos);
        States s{hn::Zero(dState), hn::Zero(dState)};
        if constexpr (frequencies == 1) {
            for (std::size_t n = 0; n < count; ++n) s = next(s, hn::LoadU(dState, asReal(p + n)), factor);
            return std::array{valueOf(s, root)};
        } else {
            const SinCos<Orb64f> root2 = sinCos(twoPi * f[1]);
            const State factor2 = hn::Set(dState, 2 * root2.cos);
            States t = s;
            for (std::size_t n = 0; n < count; ++n) {
                const State x = hn::LoadU(dState, asReal(p + n));
                s = next(s, x, factor);
                t = next(t, x, factor2);
            }
            return std::array{valueOf(s, root), valueOf(t, root2)};
        }
    });
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsGoertz_32f(const Orb32f* pSrc, int len, Orb32fc* pVal, Orb32f rFreq) { return single(pSrc, len, pVal, std::array{rFreq}); }
OrbStatus orbsGoertz_32fc(const Orb32fc* pSrc, int len, Orb32fc* pVal, Orb32f rFreq) { return single(pSrc, len, pVal, std::array{rFreq}); }
OrbStatus orbsGoertz_64fc(const Orb64fc* pSrc, int len, Orb64fc* pVal, Orb64f rFreq) { return twice(pSrc, len, pVal, std::array{rFreq}); }
OrbStatus orbsGoertz_16s_Sfs(const Orb16s* pSrc, int len, Orb16sc* pVal, Orb32f rFreq, int scaleFactor) { return scaled(pSrc, len, pVal, std::array{rFreq}, scaleFactor); }
OrbStatus orbsGoertz_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pVal, Orb32f rFreq, int scaleFactor) { return scaled(pSrc, len, pVal, std::array{rFreq}, scaleFactor); }
OrbStatus orbsGoertzTwo_32fc(const Orb32fc* pSrc, int len, Orb32fc pVal[2], const Orb32f rFreq[2]) { return withTwo(rFreq, [=](auto two) { return single(pSrc, len, pVal, two); }); }
OrbStatus orbsGoertzTwo_64fc(const Orb64fc* pSrc, int len, Orb64fc pVal[2], const Orb64f rFreq[2]) { return withTwo(rFreq, [=](auto two) { return twice(pSrc, len, pVal, two); }); }
OrbStatus orbsGoertzTwo_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc pVal[2], const Orb32f rFreq[2], int scaleFactor) { return withTwo(rFreq, [=](auto two) { return scaled(pSrc, len, pVal, two, scaleFactor); }); }
OrbStatus orbsGoertzQ15_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pVal, Orb16s rFreqQ15, int scaleFactor) { return scaledQ15(pSrc, len, pVal, std::array{rFreqQ15}, scaleFactor); }
OrbStatus orbsGoertzTwoQ15_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc pVal[2], const Orb16s rFreqQ15[2], int scaleFactor) { return withTwo(rFreqQ15, [=](auto two) { return scaledQ15(pSrc, len, pVal, two, scaleFactor); }); }

}
// clang-format on
