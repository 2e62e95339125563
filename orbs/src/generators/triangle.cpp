// Triangle_Direct: triangle waves by a walk, or at high frequencies by their phase.
#include "foundation/frame.h"
#include "generators/walk.h"
#include "orbs/generators.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

constexpr auto narrowed = [](auto d, auto v, auto* p) HWY_ATTR { storeNarrowed(d, v, p); };

// The imaginary part is the wave from the middle of the rising span on.
Orb64f imaginaryPhase(Orb64f phase, Spans spans) {
    const Orb64f moved = phase + (twoPi + spans.falling) / 2;
    return moved >= twoPi ? moved - twoPi : moved;
}

template <class T>
void walk(std::size_t len, T* pDst, Orb64f magn, Orb64f rFreq, Orb64f phase, Spans spans) {
    auto* const dst = partsAt(pDst);
    Walk re(magn, rFreq, phase, spans);
    if constexpr (isComplex<T>) {
        Walk im(magn, rFreq, imaginaryPhase(phase, spans), spans);
        inRuns(
            2 * len, dst,
            [&](Orb64f* run, std::size_t count) {
                Walk first = re, second = im;
                for (std::size_t n = 0; n < count; n += 2) {
                    run[n] = first.next();
                    run[n + 1] = second.next();
                }
                re = first;
                im = second;
            },
            narrowed);
    } else {
        inRuns(
            len, dst,
            [&](Orb64f* run, std::size_t count) {
                Walk one = re;
                for (std::size_t n = 0; n < count; ++n) run[n] = one.next();
                re = one;
            },
            narrowed);
    }
}

// From this frequency on a walk would fold every few samples.
template <class T>
constexpr Orb64f phasesFrom = isComplex<T> ? 0.11 : 0.14;

template <class T>
void byPhases(std::size_t len, T* pDst, Orb64f magn, Orb64f rFreq, Orb64f phase, Spans spans) {
    const Orb64f w = twoPi * rFreq, falling = spans.falling, rising = spans.rising;
    const Orb64f downSlope = -2 * magn / falling, upSlope = 2 * magn / rising;
    const Orb64f upFrom = -magn * (twoPi + falling) / rising;
    constexpr std::size_t parts = partsOf<T>;
    Orb64f phases[] = {phase, imaginaryPhase(phase, spans)};
    inRuns(
        parts * len, partsAt(pDst),
        [&](Orb64f* run, std::size_t count) {
            for (std::size_t n = 0; n < count; n += parts) {
                for (std::size_t part = 0; part < parts; ++part) {
                    Orb64f& p = phases[part];
                    run[n + part] = p;
                    p += w;
                    p = p >= twoPi ? p - twoPi : p;
                }
            }
        },
        [=](auto d, auto p, Orb64f* to) HWY_ATTR {
            const auto falls = hn::Lt(p, hn::Set(d, falling));
            const auto slope = hn::IfThenElse(falls, hn::Set(d, downSlope), hn::Set(d, upSlope));
            hn::StoreU(slope * p + hn::IfThenElse(falls, hn::Set(d, magn), hn::Set(d, upFrom)), d, to);
        });
}

// The phase is read before the vector is looked at.
template <class T, class Magn, class Real>
OrbStatus triangle(T* pDst, int len, Magn magn, Real rFreq, Real asym, Real* pPhase) {
    if (anyNull(pPhase)) return orbStsNullPtrErr;
    if (!(magn > 0)) return orbStsTriangleMagnErr;
    if (!isWithin(rFreq, 0, 0.5)) return orbStsTriangleFreqErr;
    if (!isWithin(asym, -pi, pi)) return orbStsTriangleAsymErr;
    const Real phase = elementAt(pPhase);
    if (!isWithin(phase, 0, twoPi)) return orbStsTrianglePhaseErr;
    if (const OrbStatus status = checkVectors(len, pDst)) return status;

    setElement(pPhase, phaseAfter(len, twoPi * rFreq, phase));
    const auto count = static_cast<std::size_t>(len);
    if constexpr (std::is_same_v<Real, Orb64f>) {
        if (rFreq >= phasesFrom<T>) {
            byPhases(count, pDst, magn, rFreq, phase, Spans(asym));
            return orbStsNoErr;
        }
    }
    walk(count, pDst, magn, rFreq, phase, Spans(asym));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsTriangle_Direct_32f(Orb32f* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }
OrbStatus orbsTriangle_Direct_32fc(Orb32fc* pDst, int len, Orb32f magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }
OrbStatus orbsTriangle_Direct_16s(Orb16s* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }
OrbStatus orbsTriangle_Direct_16sc(Orb16sc* pDst, int len, Orb16s magn, Orb32f rFreq, Orb32f asym, Orb32f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }
OrbStatus orbsTriangle_Direct_64f(Orb64f* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f asym, Orb64f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }
OrbStatus orbsTriangle_Direct_64fc(Orb64fc* pDst, int len, Orb64f magn, Orb64f rFreq, Orb64f asym, Orb64f* pPhase) { return triangle(pDst, len, magn, rFreq, asym, pPhase); }

}
// clang-format on
