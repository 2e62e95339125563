// Ramps, slopes, chirps, tones and triangles beside their definitions written as loops, which a compiler vectorises
// where no function is called and no sample waits for the one before it. The complex tone stands beside VOLK's rotator,
// which multiplies a vector, here of ones, by a tone.
#include "loops.h"
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <cmath>

namespace {

using vectors::Row;

constexpr double pi = 3.141592653589793, twoPi = 2 * pi;

// A member, and a loop of pDst[n] = rule(n).
template <class T, class Member, class Rule>
void addGenerator(const Row& row, Member member, Rule rule) {
    T* const dst = vectors::buffer<T>(2);
    vectors::add(row, "orbs", [=](int len) { member(dst, len); });
    vectors::add(row, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = rule(n);
    });
}

template <class T, class Real>
T converted(Real value) {
    if constexpr (std::is_integral_v<T>) {
        return loops::nearest<T>(value);
    } else {
        return static_cast<T>(value);
    }
}

template <class T, class Real>
void addLine(const Row& row, OrbStatus (*member)(T*, int, Real, Real), Real slope) {
    addGenerator<T>(
        row, [=](T* dst, int len) { member(dst, len, Real{-90}, slope); },
        [=](int n) { return converted<T>(Real{-90} + slope * static_cast<Real>(n)); });
}

// x[n] = magn * sin((c n) n), for 4,096 elements.
template <class T>
void addChirp(const Row& row, OrbStatus (*member)(T*, int, T), T magn) {
    constexpr double c = pi / 2 / 4096;
    addGenerator<T>(
        row, [=](T* dst, int len) { member(dst, len, magn); },
        [=](int n) { return converted<T>(static_cast<double>(magn) * std::sin(c * n * n)); });
}

Row hinted(const std::string& name, OrbHintAlgorithm hint) {
    return name + (hint == orbAlgHintFast ? "(fast)" : "(accurate)");
}

template <class T, class Magn, class Real>
void addTone(const char* name, OrbStatus (*member)(T*, int, Magn, Real, Real*, OrbHintAlgorithm), Magn magn) {
    constexpr Real rFreq = static_cast<Real>(0.01234), w = static_cast<Real>(twoPi) * rFreq;
    for (const auto hint : {orbAlgHintNone, orbAlgHintFast}) {
        addGenerator<T>(
            hinted(name, hint),
            [=](T* dst, int len) {
                Real phase = 1;
                member(dst, len, magn, rFreq, &phase, hint);
            },
            [=](int n) {
                const Real x = w * static_cast<Real>(n) + 1;
                if constexpr (requires(T t) { t.re; }) {
                    using Part = decltype(T::re);
                    return T{static_cast<Part>(magn * std::cos(x)), static_cast<Part>(magn * std::sin(x))};
                } else {
                    return static_cast<T>(magn * std::cos(x));
                }
            });
    }
}

void addRotator() {
    Orb32fc* const ones = vectors::room<Orb32fc>(0);
    for (int n = 0; n < vectors::longest; ++n) ones[n] = {1, 0};
    Orb32fc* const dst = vectors::buffer<Orb32fc>(2);
    for (const auto hint : {orbAlgHintNone, orbAlgHintFast}) {
        vectors::add(hinted("Tone_Direct_32fc", hint), "volk", [=](int len) {
            lv_32fc_t phase = lv_cmake(1.0f, 0.0f);
            volk_32fc_s32fc_x2_rotator_32fc(volk::cast(dst), volk::cast(ones), lv_cmake(0.99699f, 0.07746f), &phase,
                                            volk::count(len));
        });
    }
}

// The formula at each sample's phase.
template <class T, class Magn, class Real>
void addTriangle(const Row& row, OrbStatus (*member)(T*, int, Magn, Real, Real, Real*), Magn magn, Real rFreq) {
    constexpr Real asym = static_cast<Real>(0.5), h = static_cast<Real>(pi + 0.5), r = static_cast<Real>(pi - 0.5);
    addGenerator<T>(
        row,
        [=](T* dst, int len) {
            Real phase = 1;
            member(dst, len, magn, rFreq, asym, &phase);
        },
        [=](int n) {
            const Real turns = rFreq * static_cast<Real>(n) + static_cast<Real>(1 / twoPi);
            const Real p = (turns - std::floor(turns)) * static_cast<Real>(twoPi);
            return static_cast<T>(static_cast<Real>(magn) * (p < h ? 1 - 2 * p / h : 2 * (p - h) / r - 1));
        });
}

const bool registered = [] {
    addLine("VectorRamp_8u", &orbsVectorRamp_8u, 0.1f);
    addLine("VectorRamp_16s", &orbsVectorRamp_16s, 0.1f);
    addLine("VectorRamp_32u", &orbsVectorRamp_32u, 0.1f);
    addLine("VectorRamp_32f", &orbsVectorRamp_32f, 0.1f);
    addLine("VectorRamp_64f", &orbsVectorRamp_64f, 0.1f);
    addLine("VectorSlope_8u", &orbsVectorSlope_8u, 0.02f);
    addLine("VectorSlope_16s", &orbsVectorSlope_16s, 0.02f);
    addLine("VectorSlope_32s", &orbsVectorSlope_32s, 0.02);
    addLine("VectorSlope_32f", &orbsVectorSlope_32f, 0.02f);
    addLine("VectorSlope_64f", &orbsVectorSlope_64f, 0.02);
    addChirp("VectorJaehne_8u", &orbsVectorJaehne_8u, Orb8u{200});
    addChirp("VectorJaehne_16s", &orbsVectorJaehne_16s, Orb16s{20000});
    addChirp("VectorJaehne_32f", &orbsVectorJaehne_32f, 3.0f);
    addChirp("VectorJaehne_64f", &orbsVectorJaehne_64f, 3.0);
    addTone("Tone_Direct_16s", &orbsTone_Direct_16s, Orb16s{20000});
    addTone("Tone_Direct_16sc", &orbsTone_Direct_16sc, Orb16s{20000});
    addTone("Tone_Direct_32f", &orbsTone_Direct_32f, 3.0f);
    addTone("Tone_Direct_32fc", &orbsTone_Direct_32fc, 3.0f);
    addTone("Tone_Direct_64f", &orbsTone_Direct_64f, 3.0);
    addTone("Tone_Direct_64fc", &orbsTone_Direct_64fc, 3.0);
    addRotator();
    addGenerator<Orb16s>(
        "ToneQ15_Direct_16s", [](Orb16s* dst, int len) { orbsToneQ15_Direct_16s(dst, len, 20000, 404, 30000); },
        [](int n) { return loops::nearest<Orb16s>(20000 * std::cos(twoPi * 404 / 32768 * n + 30000 / 32768.0)); });
    addTriangle("Triangle_Direct_16s", &orbsTriangle_Direct_16s, Orb16s{20000}, 0.01234f);
    addTriangle("Triangle_Direct_32f", &orbsTriangle_Direct_32f, 3.0f, 0.01234f);
    addTriangle("Triangle_Direct_32f(0.3)", &orbsTriangle_Direct_32f, 3.0f, 0.3f);
    addTriangle("Triangle_Direct_64f", &orbsTriangle_Direct_64f, 3.0, 0.01234);
    addTriangle("Triangle_Direct_64f(0.3)", &orbsTriangle_Direct_64f, 3.0, 0.3);
    return true;
}();

} // namespace
