// Tone_Direct: sinusoids by recurrences.
#include "foundation/frame.h"
#include "generators/phase.h"
#include "generators/samples.h"
#include "orbs/generators.h"
#include "vectors/elementwise.h"
#include "vectors/sincos.h"

namespace {

using namespace orbs;

constexpr hn::CappedTag<Orb64f, 2> dPair;

// The type of the lag recurrence, and how far it reaches back: groups of 32 bytes.
template <class T>
using LagReal = std::conditional_t<sizeof(T) / partsOf<T> == sizeof(Orb64f), Orb64f, Orb32f>;
template <class T>
constexpr std::size_t groupOf = 32 / sizeof(LagReal<T>);
template <class T>
constexpr std::size_t lagOf = groupOf<T> / partsOf<T>; // in samples
template <class T>
constexpr std::size_t blockOf = sizeof(LagReal<T>) == sizeof(Orb64f) ? 2048 : 1024;

// ---- The recurrence in doubles ----

// Pairs of samples, or complex samples: the first two, and the factor of pair[k+1] = factor * pair[k] - pair[k-1].
struct Pairs {
    Orb64f first[2], second[2], factor;
};

struct Oscillator {
    Orb64f magn, w, phase, c; // c = 2 cos w

    Oscillator(Orb64f magnitude, Orb64f step, Orb64f start)
        : magn(magnitude), w(step), phase(start), c(2 * sinCos(step).cos) {}

    // From sample n on.
    template <bool isOfComplex>
    Pairs pairsFrom(std::size_t n) const {
        const auto at = static_cast<Orb64f>(n);
        const Orb64f angles[] = {angle(at), angle(at + 1)};
        const auto [sine, cosine] = sinCos(dPair, hn::LoadU(dPair, angles));
        const auto re = hn::Set(dPair, magn) * cosine;
        Pairs pairs;
        if constexpr (isOfComplex) {
            const auto im = hn::Set(dPair, magn) * sine;
            hn::StoreU(hn::InterleaveLower(dPair, re, im), dPair, pairs.first);
            hn::StoreU(hn::InterleaveUpper(dPair, re, im), dPair, pairs.second);
            pairs.factor = c;
        } else {
            hn::StoreU(re, dPair, pairs.first);
            pairs.second[0] = c * pairs.first[1] - pairs.first[0];
            pairs.second[1] = c * pairs.second[0] - pairs.first[1];
            pairs.factor = c * c - 2;
        }
        return pairs;
    }

    // 2 cos(lag * w)
    Orb64f lagFactor(std::size_t lag) const {
        const Orb64f c2 = c * c;
        if (lag == 2) return c2 - 2;
        const Orb64f c4 = c2 * (c2 - 4) + 2;
        return lag == 4 ? c4 : c4 * c4 - 2;
    }

private:
    // The longest complex tones turn further than sinCos takes.
    Orb64f angle(Orb64f n) const {
        const Orb64f x = w * n + phase;
        return x < 0x1p31 * pi ? x : std::fmod(x, twoPi);
    }
};

// Calls store(k, pair) for so many pairs, and returns the next one's first lane.
template <class Store>
HWY_INLINE Orb64f recur(const Pairs& pairs, std::size_t count, Store store) {
    auto older = hn::LoadU(dPair, pairs.first), newer = hn::LoadU(dPair, pairs.second);
    for (std::size_t k = 0; k < count; ++k) {
        store(k, older);
        const auto next = hn::Set(dPair, pairs.factor) * newer - older;
        older = newer;
        newer = next;
    }
    return hn::GetLane(older);
}

template <class T>
void direct(const Oscillator& oscillator, std::size_t first, std::size_t len, T* pDst) {
    auto* const dst = partsAt(pDst);
    const std::size_t count = partsOf<T> * len;
    const Pairs pairs = oscillator.pairsFrom<isComplex<T>>(first);
    const auto store = [=](std::size_t k, auto pair) HWY_ATTR { storeNarrowed(dPair, pair, dst + 2 * k); };
    const Orb64f last = recur(pairs, count / 2, store);
    const hn::CappedTag<Orb64f, 1> one;
    if (count % 2 != 0) storeNarrowed(one, hn::Set(one, last), dst + count - 1);
}

// ---- The lag recurrence ----

// x[n] = factor * x[n - lag] - x[n - 2 lag] behind two groups of seeds. Integers are rounded as the caller's mode says.
template <class D, class V, class Part>
HWY_INLINE void storeLagged(D d, V v, Part* p) {
    if constexpr (std::is_floating_point_v<Part>) {
        hn::StoreU(v, d, p);
    } else {
        storeWhole(d, nearestInt32(v), p);
    }
}

// `ways` blocks side by side, each of `len` samples and more than its seeds: their recurrences wait for themselves
// only.
template <std::size_t ways, class T>
void lagged(const Oscillator& oscillator, std::size_t first, std::size_t len, T* pDst) {
    using Real = LagReal<T>;
    constexpr std::size_t group = groupOf<T>, seeds = 2 * group, apart = blockOf<T> * partsOf<T>;
    const hn::CappedTag<Real, group> d;
    constexpr std::size_t lanes = hn::MaxLanes(d), vectors = group / lanes;
    auto* const dst = partsAt(pDst);

    hn::Vec<decltype(d)> older[ways][vectors], newer[ways][vectors];
    for (std::size_t way = 0; way < ways; ++way) {
        auto* const to = dst + way * apart;
        Real history[seeds];
        const Pairs pairs = oscillator.pairsFrom<isComplex<T>>(first + way * blockOf<T>);
        recur(pairs, seeds / 2, [&](std::size_t k, auto pair) HWY_ATTR {
            storeNarrowed(dPair, pair, to + 2 * k);
            storeNarrowed(dPair, pair, history + 2 * k);
        });
        for (std::size_t k = 0; k < vectors; ++k) {
            older[way][k] = hn::LoadU(d, history + k * lanes);
            newer[way][k] = hn::LoadU(d, history + group + k * lanes);
        }
    }
    const auto factor = hn::Set(d, static_cast<Real>(oscillator.lagFactor(lagOf<T>)));
    const std::size_t count = partsOf<T> * len;
    std::size_t n = seeds;
    for (; n + group <= count; n += group) {
        for (std::size_t way = 0; way < ways; ++way) {
            for (std::size_t k = 0; k < vectors; ++k) {
                const auto next = factor * newer[way][k] - older[way][k];
                older[way][k] = newer[way][k];
                newer[way][k] = next;
                storeLagged(d, next, dst + way * apart + n + k * lanes);
            }
        }
    }
    if (ways > 1 || n == count) return; // blocks are whole groups
    Real rest[group];
    for (std::size_t k = 0; k < vectors; ++k) hn::StoreU(factor * newer[0][k] - older[0][k], d, rest + k * lanes);
    const hn::CappedTag<Real, 1> one;
    for (std::size_t k = 0; n < count; ++n, ++k) storeLagged(one, hn::Set(one, rest[k]), dst + n);
}

template <class T>
void inBlocks(const Oscillator& oscillator, std::size_t len, T* pDst) {
    constexpr std::size_t ways = hn::MaxLanes(hn::ScalableTag<Orb8u>()) >= 32 ? 4 : 2, block = blockOf<T>;
    std::size_t n = 0;
    for (; n + ways * block <= len; n += ways * block) lagged<ways>(oscillator, n, block, pDst + n);
    for (; n + block <= len; n += block) lagged<1>(oscillator, n, block, pDst + n);
    const std::size_t rest = len - n;
    if (rest > 2 * lagOf<T>) {
        lagged<1>(oscillator, n, rest, pDst + n);
    } else if (rest > 0) {
        direct(oscillator, n, rest, pDst + n);
    }
}

// ---- The frame: the phase is read before the vector is looked at ----

template <class T, class Magn, class Real>
OrbStatus tone(T* pDst, int len, Magn magn, Real rFreq, Real* pPhase, OrbHintAlgorithm hint) {
    if (anyNull(pPhase)) return orbStsNullPtrErr;
    if (!(magn > 0)) return orbStsToneMagnErr;
    if (!isWithin(rFreq, 0, isComplex<T> ? 1 : 0.5)) return orbStsToneFreqErr;
    const Real phase = elementAt(pPhase);
    if (!isWithin(phase, 0, twoPi)) return orbStsTonePhaseErr;
    if (const OrbStatus status = checkVectors(len, pDst)) return status;

    const Orb64f w = twoPi * rFreq;
    setElement(pPhase, phaseAfter(len, w, phase));
    const Oscillator oscillator(magn, w, phase);
    if (hint == orbAlgHintFast) {
        inBlocks(oscillator, static_cast<std::size_t>(len), pDst);
    } else {
        direct(oscillator, 0, static_cast<std::size_t>(len), pDst);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsTone_Direct_32f(Orb32f* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }
OrbStatus orbsTone_Direct_32fc(Orb32fc* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }
OrbStatus orbsTone_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }
OrbStatus orbsTone_Direct_16sc(Orb16sc* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }
OrbStatus orbsTone_Direct_64f(Orb64f* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }
OrbStatus orbsTone_Direct_64fc(Orb64fc* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f* pPhase, OrbHintAlgorithm hint) { return tone(pDst, len, magn, rFreq, pPhase, hint); }

}
// clang-format on
