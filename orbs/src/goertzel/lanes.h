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
            return {0, static_cast<Orb32f>(a), static_cast<Orb32f>(b), static_cast<Orb32f>(c3), static_cast<Orb32f>(d)};
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

// One frequency's lanes, from the last group of samples to the first: A = A exp(-4 i theta) + x. What does not depend
// on the longest wait comes first.
class Horner {
public:
    HWY_INLINE Horner(const Rotations& rotations, RealGroup x) : Horner(rotations, Group{x.re, hn::Zero(dLanes)}) {}
    HWY_INLINE Horner(const Rotations& rotations, Group x)
        : re_(x.re), im_(x.im), cos_(hn::Set(dLanes, rotations.cos[lanes])),
          sin_(hn::Set(dLanes, rotations.sin[lanes])) {}

    HWY_INLINE void step(RealGroup x) {
        const Lanes im = im_ * cos_ - re_ * sin_;
        re_ = re_ * cos_ + (x.re + im_ * sin_);
        im_ = im;
    }
    HWY_INLINE void step(Group x) {
        const Lanes im = im_ * cos_ + (x.im - re_ * sin_);
        re_ = re_ * cos_ + (x.re + im_ * sin_);
        im_ = im;
    }

    // Lane k times exp(-i k theta), added up.
    HWY_INLINE Orb32fc sum(const Rotations& rotations) const {
        Orb32f re[lanes], im[lanes];
        hn::StoreU(re_, dLanes, re);
        hn::StoreU(im_, dLanes, im);
        for (std::size_t k = 1; k < lanes; ++k) {
            const Orb32f c = rotations.cos[k], s = rotations.sin[k], turned = im[k] * c - re[k] * s;
            re[k] = re[k] * c + im[k] * s;
            im[k] = turned;
        }
        return {(re[0] + re[1]) + (re[2] + re[3]), (im[0] + im[1]) + (im[2] + im[3])};
    }

private:
    Lanes re_, im_, cos_, sin_;
};

// pVal[f] = sum over n of pSrc[n] exp(-i theta_f n). The samples behind the last whole group are one with zeros.
template <std::size_t frequencies, class S>
std::array<Orb32fc, frequencies> spectrumAt(const S* pSrc, std::size_t len,
                                            const std::array<Orb32f, frequencies>& rFreq) {
    S rest[lanes] = {};
    std::size_t n = len / lanes * lanes;
    std::memcpy(static_cast<void*>(rest), pSrc + n, (len - n) * sizeof(S));
    const auto last = loadGroup(rest);
    if constexpr (frequencies == 1) {
        const Rotations rotations(rFreq[0]);
        Horner horner(rotations, last);
        for (; n > 0; n -= lanes) horner.step(loadGroup(pSrc + n - lanes));
        return {horner.sum(rotations)};
    } else {
        const Rotations rotations[] = {Rotations(rFreq[0]), Rotations(rFreq[1])};
        Horner first(rotations[0], last), second(rotations[1], last);
        for (; n > 0; n -= lanes) {
            const auto x = loadGroup(pSrc + n - lanes);
            first.step(x);
            second.step(x);
        }
        return {first.sum(rotations[0]), second.sum(rotations[1])};
    }
}

} // namespace orbs::goertzel
