// Spectra at single frequencies in single precision: Horner's scheme in four lanes of samples, the same in every tier.
// Registers of 16 bytes hold them; what more a processor could have in flight, the chain of rotations leaves idle.
#pragma once

#include "foundation/frame.h"
#include "vectors/elementwise.h"
#include "vectors/sincos.h"

#include <array>
#include <cstring>

namespace orbs::goertzel {

constexpr std::size_t lanes = 4;
constexpr hn::FixedTag<Orb32f, lanes> dLanes;
using Lanes = hn::Vec<decltype(dLanes)>;

constexpr Orb64f twoPi = 0x1.921fb54442d18p+2;

// exp(-i k theta), k = 1 to 4, as cos[k] and sin[k], made in double precision.
struct Rotations {
    std::array<Orb32f, lanes + 1> cos, sin;

    explicit Rotations(Orb32f rFreq) {
        const auto [s, c] = sinCos(twoPi * static_cast<Orb64f>(rFreq));
        const Orb64f c2 = 2 * c * c - 1, s2 = 2 * c * s;
        const auto narrowed = [](Orb64f a, Orb64f b, Orb64f c3, Orb64f d) -> std::array<Orb32f, lanes + 1> {
            return {1, static_cast<Orb32f>(a), static_cast<Orb32f>(b), static_cast<Orb32f>(c3), static_cast<Orb32f>(d)};
        };
        cos = narrowed(c, c2, 4 * c * c * c - 3 * c, 2 * c2 * c2 - 1);
        sin = narrowed(s, s2, 3 * s - 4 * s * s * s, 2 * c2 * s2);
    }
};

// Four samples. Real ones have no imaginary lanes.
struct RealGroup {
    Lanes re;
};
struct Group {
    Lanes re, im;
};
HWY_INLINE RealGroup loadGroup(const Orb32f* p) {
    return {hn::LoadU(dLanes, p)};
}
HWY_INLINE RealGroup loadGroup(const Orb16s* p) {
    const hn::Rebind<Orb32s, decltype(dLanes)> d32;
    return {hn::ConvertTo(dLanes, hn::PromoteTo(d32, hn::LoadU(hn::Rebind<Orb16s, decltype(d32)>(), p)))};
}
HWY_INLINE Group loadGroup(const Orb32fc* p) {
    Group x;
    hn::LoadInterleaved2(dLanes, asReal(p), x.re, x.im);
    return x;
}
HWY_INLINE Group loadGroup(const Orb16sc* p) {
    const hn::Rebind<Orb32s, decltype(dLanes)> d32;
    const auto both = hn::LoadU(d32, reinterpret_cast<const Orb32s*>(p));
    return {hn::ConvertTo(dLanes, hn::ShiftRight<16>(hn::ShiftLeft<16>(both))),
            hn::ConvertTo(dLanes, hn::ShiftRight<16>(both))};
}

// One frequency's lanes on the way from the last group of samples to the first: A = A exp(-4 i theta) + x. What does
// not depend on the longest wait comes first.
HWY_INLINE Group next(Group a, RealGroup x, Lanes c, Lanes s) {
    return {a.re * c + (x.re + a.im * s), a.im * c - a.re * s};
}
HWY_INLINE Group next(Group a, Group x, Lanes c, Lanes s) {
    return {a.re * c + (x.re + a.im * s), a.im * c + (x.im - a.re * s)};
}
HWY_INLINE Group begun(RealGroup x) {
    return {x.re, hn::Zero(dLanes)};
}
HWY_INLINE Group begun(Group x) {
    return x;
}

// Lane k times exp(-i k theta), added up in pairs. Lane 0 stays as it is, an infinity too.
HWY_INLINE Orb32fc sumOfLanes(Group a, const Rotations& rotations) {
    const Lanes c = hn::LoadU(dLanes, rotations.cos.data()), s = hn::LoadU(dLanes, rotations.sin.data());
    const auto first = hn::FirstN(dLanes, 1);
    const auto sum = [](Lanes v) HWY_ATTR {
        const Lanes pairs = v + hn::Shuffle2301(v);
        return hn::GetLane(pairs + hn::Shuffle1032(pairs));
    };
    return {sum(hn::IfThenElse(first, a.re, a.re * c + a.im * s)),
            sum(hn::IfThenElse(first, a.im, a.im * c - a.re * s))};
}

// The sums over n of pSrc[n] exp(-i theta n). The samples behind the last whole group are one with zeros.
template <std::size_t frequencies, class S>
std::array<Orb32fc, frequencies> spectrumAt(const S* pSrc, std::size_t len,
                                            const std::array<Orb32f, frequencies>& rFreq) {
    S rest[lanes] = {};
    std::size_t n = len / lanes * lanes;
    std::memcpy(static_cast<void*>(rest), pSrc + n, (len - n) * sizeof(S));
    const Rotations rotations(rFreq[0]);
    const Lanes c = hn::Set(dLanes, rotations.cos[lanes]), s = hn::Set(dLanes, rotations.sin[lanes]);
    Group a = begun(loadGroup(rest));
    if constexpr (frequencies == 1) {
        for (; n > 0; n -= lanes) a = next(a, loadGroup(pSrc + n - lanes), c, s);
        return {sumOfLanes(a, rotations)};
    } else {
        const Rotations others(rFreq[1]);
        const Lanes c2 = hn::Set(dLanes, others.cos[lanes]), s2 = hn::Set(dLanes, others.sin[lanes]);
        Group a2 = a;
        for (; n > 0; n -= lanes) {
            const auto x = loadGroup(pSrc + n - lanes);
            a = next(a, x, c, s);
            a2 = next(a2, x, c2, s2);
        }
        return {sumOfLanes(a, rotations), sumOfLanes(a2, others)};
    }
}

} // namespace orbs::goertzel
