// Limits on elements beside plain loops.
#include "members.h"
#include "orbs.h"

#include <cmath>

namespace {

using members::addUnary;
using vectors::buffer;

template <class T>
void addReal(const std::string& type, OrbStatus (*lt)(const T*, T*, int, T), OrbStatus (*gt)(const T*, T*, int, T),
             OrbStatus (*ltVal)(const T*, T*, int, T, T), OrbStatus (*gtVal)(const T*, T*, int, T, T),
             OrbStatus (*both)(const T*, T*, int, T, T, T, T), OrbStatus (*ltAbs)(const T*, T*, int, T)) {
    const T* const src = buffer<T>(0);
    const T level = 10, value = 3, low = -20;
    const auto row = [&](const char* name) { return vectors::Row("Threshold_" + (name + type)); };
    addUnary(
        row("LT_"), src, lt, [=](T x) { return x < level ? level : x; }, level);
    addUnary(
        row("GT_"), src, gt, [=](T x) { return x > level ? level : x; }, level);
    addUnary(
        row("LTVal_"), src, ltVal, [=](T x) { return x < level ? value : x; }, level, value);
    addUnary(
        row("GTVal_"), src, gtVal, [=](T x) { return x > level ? value : x; }, level, value);
    const auto between = [=](T x) { return x < low ? value : x > level ? level : x; };
    addUnary(row("LTValGTVal_"), src, both, between, low, value, level, level);
    addUnary(
        row("LTAbs_"), src, ltAbs,
        [=](T x) { return x > -level && x < level ? static_cast<T>(x < 0 ? -level : level) : x; }, level);
}

// A level that most magnitudes lie beyond, and one that none does.
template <class C, class Real, class Work>
void addComplex(const std::string& type, OrbStatus (*gt)(const C*, C*, int, Real), Work) {
    for (const int level : {20, 200}) {
        addUnary(
            members::with("Threshold_GT_" + type, level), buffer<C>(0), gt,
            [=](C z) {
                const Work re = z.re, im = z.im, square = re * re + im * im;
                if (!(square > static_cast<Work>(level) * static_cast<Work>(level))) return z;
                const Work by = static_cast<Work>(level) / std::sqrt(square);
                if constexpr (std::is_integral_v<Real>)
                    return C{static_cast<Real>(std::rint(re * by)), static_cast<Real>(std::rint(im * by))};
                return C{static_cast<Real>(re * by), static_cast<Real>(im * by)};
            },
            static_cast<Real>(level));
    }
}

[[maybe_unused]] const bool registered = [] {
    addReal<Orb16s>("16s", orbsThreshold_LT_16s, orbsThreshold_GT_16s, orbsThreshold_LTVal_16s, orbsThreshold_GTVal_16s,
                    orbsThreshold_LTValGTVal_16s, orbsThreshold_LTAbs_16s);
    addReal<Orb32f>("32f", orbsThreshold_LT_32f, orbsThreshold_GT_32f, orbsThreshold_LTVal_32f, orbsThreshold_GTVal_32f,
                    orbsThreshold_LTValGTVal_32f, orbsThreshold_LTAbs_32f);
    addComplex("16sc", orbsThreshold_GT_16sc, double());
    addComplex("32fc", orbsThreshold_GT_32fc, float());
    addComplex("64fc", orbsThreshold_GT_64fc, double());
    addUnary(
        "Threshold_LTInv_32f", buffer<Orb32f>(0), orbsThreshold_LTInv_32f,
        [](float x) { return 1 / std::copysign(std::max(std::abs(x), 10.0f), x); }, 10.0f);
    addUnary(
        "Threshold_LTInv_32fc", buffer<Orb32fc>(0), orbsThreshold_LTInv_32fc,
        [](Orb32fc z) {
            const float square = z.re * z.re + z.im * z.im;
            const float divisor = square < 100 ? std::sqrt(square) * 10 : square;
            return Orb32fc{z.re / divisor, -z.im / divisor};
        },
        10.0f);
    return true;
}();

} // namespace
