// Exponentials, logarithms, arctangents, cube and square roots. Floats stand beside SLEEF's functions that are within
// an ulp (sleef: with the tier's vectors and fused multiply-adds, sleef-nofma: without the latter), Highway's, which
// are less accurate (3 to 4 ulp; 1 for exp) and compiled for the tier, and VOLK's root. Integers stand beside the rules
// written as loops.
#include "loops.h"
#include "members.h"
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <hwy/contrib/math/math-inl.h>
#include <sleef.h>

// SLEEF's functions of an ulp, with the tier's vectors: one with fused multiply-adds where the tier's processors have
// them, one without.
#if defined(__AVX512F__)
using Floats = __m512;
using Doubles = __m512d;
#    define SLEEF_32F(function) Sleef_##function##f16_u10avx512f, Sleef_##function##f16_u10avx512fnofma
#    define SLEEF_64F(function) Sleef_##function##d8_u10avx512f, Sleef_##function##d8_u10avx512fnofma
#elif defined(__AVX2__)
using Floats = __m256;
using Doubles = __m256d;
#    define SLEEF_32F(function) Sleef_##function##f8_u10avx2, Sleef_##function##f8_u10avx
#    define SLEEF_64F(function) Sleef_##function##d4_u10avx2, Sleef_##function##d4_u10avx
#else
using Floats = __m128;
using Doubles = __m128d;
#    define SLEEF_32F(function) Sleef_##function##f4_u10sse4, Sleef_##function##f4_u10sse2
#    define SLEEF_64F(function) Sleef_##function##d2_u10sse4, Sleef_##function##d2_u10sse2
#endif

namespace {

namespace hn = hwy::HWY_NAMESPACE;
using members::addUnary;
using vectors::add;
using vectors::positive;

enum class Spread { uniform, logarithmic };

template <class T>
const T* filled(double least, double greatest, Spread spread) {
    T* const x = vectors::room<T>(0);
    std::mt19937 random(1);
    const bool logs = spread == Spread::logarithmic;
    std::uniform_real_distribution<double> any(logs ? std::log(least) : least, logs ? std::log(greatest) : greatest);
    for (int n = 0; n < vectors::longest; ++n) x[n] = static_cast<T>(logs ? std::exp(any(random)) : any(random));
    return x;
}

// ---- Floats ----

template <class T>
struct Vector;
template <>
struct Vector<Orb32f> {
    Floats v;
};
template <>
struct Vector<Orb64f> {
    Doubles v;
};

// y[n] = function(x[n]) by whole vectors.
template <class T, class Function>
auto byVectors(const T* x, T* y, Function function) {
    return [=](int len) {
        for (int n = 0; n < len; n += static_cast<int>(sizeof(Vector<T>) / sizeof(T))) {
            Vector<T> v;
            std::memcpy(&v, x + n, sizeof v);
            v.v = function(v.v);
            std::memcpy(y + n, &v, sizeof v);
        }
    };
}

template <class T, class Sleef, class SleefNoFma>
void addFloats(const vectors::Row& row, const T* x, OrbStatus (*member)(const T*, T*, int), Sleef sleef,
               SleefNoFma sleefNoFma) {
    T* const y = vectors::buffer<T>(2);
    add(row, "orbs", [=](int len) { member(x, y, len); });
    add(row, "sleef", byVectors(x, y, sleef));
    add(row, "sleef-nofma", byVectors(x, y, sleefNoFma));
}
template <class T, class Function>
void addHighway(const vectors::Row& row, const T* x, Function function) {
    T* const y = vectors::buffer<T>(2);
    add(row, "highway", [=](int len) {
        const hn::ScalableTag<T> d;
        for (int n = 0; n < len; n += static_cast<int>(hn::Lanes(d)))
            hn::StoreU(function(d, hn::LoadU(d, x + n)), d, y + n);
    });
}

// ---- Integers: rules as loops ----

template <class R>
R rounded(float y) {
    constexpr float above = -static_cast<float>(std::numeric_limits<R>::min());
    return y >= above ? std::numeric_limits<R>::max() : static_cast<R>(std::lrint(y));
}

// Thresholds of the integer nearest to ln x / step.
template <std::size_t count>
std::array<Orb32s, count> ladder(double step) {
    std::array<Orb32s, count> tops;
    for (std::size_t k = 0; k < count; ++k)
        tops[k] = static_cast<Orb32s>(std::exp((static_cast<double>(k) + 0.5) * step));
    return tops;
}
template <class R, class S, std::size_t count>
R rung(const std::array<Orb32s, count>& tops, S x) {
    if (x <= 0) return std::numeric_limits<R>::min();
    std::size_t k = 0;
    while (k < count && x > tops[k]) ++k;
    return static_cast<R>(k);
}

template <class T, std::size_t count>
std::array<T, count> exponentials() {
    std::array<T, count> table;
    for (std::size_t x = 0; x < count; ++x)
        table[x] = static_cast<T>(
            std::min<long double>(std::round(std::exp(static_cast<long double>(x))), std::numeric_limits<T>::max()));
    return table;
}
template <class T, std::size_t count>
T power(const std::array<T, count>& table, T x) {
    return x >= T{count} ? std::numeric_limits<T>::max() : x < 0 ? T{0} : table[static_cast<std::size_t>(x)];
}

void addExp() {
    const auto* x = filled<Orb32f>(-20, 20, Spread::uniform);
    const vectors::Row row = {"Exp_32f", vectors::alsoShort};
    addFloats(row, x, orbsExp_32f, SLEEF_32F(exp));
    addHighway(row, x, [](auto d, auto v) { return hn::Exp(d, v); });
    add(row, "loop", [=, y = vectors::buffer<Orb32f>(2)](int len) {
        for (int n = 0; n < len; ++n) y[n] = std::exp(x[n]);
    });
    const auto* x64 = filled<Orb64f>(-20, 20, Spread::uniform);
    addFloats("Exp_64f", x64, orbsExp_64f, SLEEF_64F(exp));
    addHighway("Exp_64f", x64, [](auto d, auto v) { return hn::Exp(d, v); });

    static const auto table16 = exponentials<Orb16s, 25>();
    static const auto table32 = exponentials<Orb32s, 45>();
    static const auto table64 = exponentials<Orb64s, 45>();
    const auto* x16 = filled<Orb16s>(-12, 30, Spread::uniform);
    const auto* x32 = filled<Orb32s>(-12, 30, Spread::uniform);
    const auto* x64s = filled<Orb64s>(-12, 50, Spread::uniform);
    addUnary(
        "Exp_16s_Sfs", x16, orbsExp_16s_Sfs, [](Orb16s v) { return power(table16, v); }, 0);
    addUnary(
        "Exp_16s_Sfs", x16, orbsExp_16s_Sfs,
        [](Orb16s v) {
            const double y = std::exp(static_cast<double>(v)) * 0x1p-20;
            return y > 32767 ? Orb16s{32767} : static_cast<Orb16s>(y + 0.5);
        },
        20);
    addUnary(
        "Exp_32s_Sfs", x32, orbsExp_32s_Sfs, [](Orb32s v) { return power(table32, v); }, 0);
    addUnary(
        "Exp_64s_Sfs", x64s, orbsExp_64s_Sfs, [](Orb64s v) { return power(table64, v); }, 0);
    addUnary(
        "Exp_64s_Sfs", x64s, orbsExp_64s_Sfs,
        [](Orb64s v) {
            const double y = std::exp(static_cast<double>(v)) * 0x1p-8;
            return y >= 0x1p63 ? std::numeric_limits<Orb64s>::max() : static_cast<Orb64s>(y);
        },
        8);
}

void addLn() {
    const auto* x = filled<Orb32f>(1e-6, 1e6, Spread::logarithmic);
    addFloats("Ln_32f", x, orbsLn_32f, SLEEF_32F(log));
    addHighway("Ln_32f", x, [](auto d, auto v) { return hn::Log(d, v); });
    const auto* x64 = filled<Orb64f>(1e-6, 1e6, Spread::logarithmic);
    addFloats("Ln_64f", x64, orbsLn_64f, SLEEF_64F(log));
    addHighway("Ln_64f", x64, [](auto d, auto v) { return hn::Log(d, v); });

    static const auto nepers16 = ladder<10>(1);
    static const auto nepers32 = ladder<21>(1);
    static const auto decibels = ladder<93>(std::log(10) / 10);
    const auto* x16 = filled<Orb16s>(1, 32767, Spread::logarithmic);
    const auto* x32 = filled<Orb32s>(1, 0x7fffffff, Spread::logarithmic);
    addUnary(
        "Ln_16s_Sfs", x16, orbsLn_16s_Sfs, [](Orb16s v) { return rung<Orb16s>(nepers16, v); }, 0);
    addUnary(
        "Ln_16s_Sfs", x16, orbsLn_16s_Sfs,
        [](Orb16s v) { return v <= 0 ? Orb16s{-32768} : rounded<Orb16s>(std::log(static_cast<float>(v)) * 256); }, -8);
    addUnary(
        "Ln_32s_Sfs", x32, orbsLn_32s_Sfs, [](Orb32s v) { return rung<Orb32s>(nepers32, v); }, 0);
    addUnary(
        "Ln_32s_Sfs", x32, orbsLn_32s_Sfs,
        [](Orb32s v) { return v <= 0 ? INT32_MIN : rounded<Orb32s>(std::log(static_cast<float>(v)) * 65536); }, -16);
    addUnary(
        "Ln_32s16s_Sfs", x32, orbsLn_32s16s_Sfs, [](Orb32s v) { return rung<Orb16s>(nepers32, v); }, 0);
    addUnary(
        "10Log10_32s_Sfs", x32, orbs10Log10_32s_Sfs, [](Orb32s v) { return rung<Orb32s>(decibels, v); }, 0);
}

void addArctanAndCubrt() {
    const auto* x = filled<Orb32f>(-5, 5, Spread::uniform);
    addFloats("Arctan_32f", x, orbsArctan_32f, SLEEF_32F(atan));
    addHighway("Arctan_32f", x, [](auto d, auto v) { return hn::Atan(d, v); });
    const auto* x64 = filled<Orb64f>(-5, 5, Spread::uniform);
    addFloats("Arctan_64f", x64, orbsArctan_64f, SLEEF_64F(atan));
    addHighway("Arctan_64f", x64, [](auto d, auto v) { return hn::Atan(d, v); });
    addFloats("Cubrt_32f", x, orbsCubrt_32f, SLEEF_32F(cbrt));
    addUnary(
        "Cubrt_32s16s_Sfs", filled<Orb32s>(-0x7fffffff, 0x7fffffff, Spread::uniform), orbsCubrt_32s16s_Sfs,
        [](Orb32s v) { return rounded<Orb16s>(std::cbrt(static_cast<float>(v))); }, 0);
}

// The root times 8, rounded to nearest in double precision.
template <class S, class R>
void addScaledRoots(const char* name, OrbStatus (*member)(const S*, R*, int, int)) {
    addUnary(
        name, positive<S>(), member,
        [](S x) { return x < 0 ? R{0} : loops::nearest<R>(std::sqrt(static_cast<double>(x)) * 8); }, -3);
}
template <class Real>
constexpr auto complexRoot = [](auto z) {
    const Real re = static_cast<Real>(z.re), im = static_cast<Real>(z.im), m = std::sqrt(re * re + im * im);
    const Real larger = std::sqrt((m + std::abs(re)) / 2), smaller = larger > 0 ? std::abs(im) / (2 * larger) : 0;
    const Real x = re < 0 ? smaller : larger, y = std::copysign(re < 0 ? larger : smaller, im);
    if constexpr (std::is_same_v<decltype(z), Orb16sc>) {
        return Orb16sc{loops::nearest<Orb16s>(x * 8), loops::nearest<Orb16s>(y * 8)};
    } else {
        return decltype(z){static_cast<decltype(z.re)>(x), static_cast<decltype(z.re)>(y)};
    }
};

void addSqrt() {
    addScaledRoots("Sqrt_8u_Sfs", orbsSqrt_8u_Sfs);
    addScaledRoots("Sqrt_16u_Sfs", orbsSqrt_16u_Sfs);
    addScaledRoots("Sqrt_16s_Sfs", orbsSqrt_16s_Sfs);
    addScaledRoots("Sqrt_32s16s_Sfs", orbsSqrt_32s16s_Sfs);
    addScaledRoots("Sqrt_64s16s_Sfs", orbsSqrt_64s16s_Sfs);
    addUnary(
        "Sqrt_64s_Sfs", positive<Orb64s>(), orbsSqrt_64s_Sfs,
        [](Orb64s x) { return x < 0 ? Orb64s{0} : static_cast<Orb64s>(std::rint(std::sqrt(1.0L * x) * 8)); }, -3);
    addUnary("Sqrt_16sc_Sfs", positive<Orb16sc>(), orbsSqrt_16sc_Sfs, complexRoot<double>, -3);
    const auto* x = positive<Orb32f>();
    addUnary("Sqrt_32f", x, orbsSqrt_32f, [](float v) { return std::sqrt(v); });
    add("Sqrt_32f", "volk",
        [=, y = vectors::buffer<Orb32f>(2)](int len) { volk_32f_sqrt_32f(y, x, volk::count(len)); });
    addUnary("Sqrt_64f", positive<Orb64f>(), orbsSqrt_64f, [](double v) { return std::sqrt(v); });
    addUnary("Sqrt_32fc", positive<Orb32fc>(), orbsSqrt_32fc, complexRoot<float>);
    addUnary("Sqrt_64fc", positive<Orb64fc>(), orbsSqrt_64fc, complexRoot<double>);
}

[[maybe_unused]] const bool registered = [] {
    addExp();
    addLn();
    addArctanAndCubrt();
    addSqrt();
    return true;
}();

} // namespace
