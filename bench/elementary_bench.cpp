// Exponentials, logarithms, arctangents and cube roots. Floats stand beside the functions of SLEEF that are within an
// ulp (sleef with fused multiply-adds, sleef-avx and sleef-sse4 without) and Highway's, which are less accurate (3 to 4
// ulp; 1 for exp) and compiled for AVX2 without fused multiply-adds. Integers stand beside the rules written as loops.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <hwy/contrib/math/math-inl.h>
#include <sleef.h>

namespace {

namespace hn = hwy::HWY_NAMESPACE;
using vectors::add;

// `which` keeps buffers apart in their pages.
template <class T>
T* buffer(std::size_t which) {
    constexpr std::size_t room = 4096;
    const std::size_t bytes = (static_cast<std::size_t>(vectors::sizes[1]) * sizeof(T) / room + 2) * room;
    return reinterpret_cast<T*>(static_cast<char*>(std::aligned_alloc(room, bytes)) + which * 17 * 64);
}

enum class Spread { uniform, logarithmic };

template <class T>
const T* filled(double least, double greatest, Spread spread) {
    T* const x = buffer<T>(0);
    std::mt19937 random(1);
    const bool logs = spread == Spread::logarithmic;
    std::uniform_real_distribution<double> any(logs ? std::log(least) : least, logs ? std::log(greatest) : greatest);
    for (int n = 0; n < vectors::sizes[1]; ++n) x[n] = static_cast<T>(logs ? std::exp(any(random)) : any(random));
    return x;
}

// ---- Floats ----

// y[n] = function(x[n]) by vectors of type V.
template <class V, class T, class Function>
auto byVectors(const T* x, T* y, Function function) {
    return [=](int len) {
        for (int n = 0; n < len; n += static_cast<int>(sizeof(V) / sizeof(T))) {
            V v;
            std::memcpy(&v, x + n, sizeof v);
            v = function(v);
            std::memcpy(y + n, &v, sizeof v);
        }
    };
}

template <class V, class HalfV, class T, class Sleef, class SleefAvx, class SleefSse4>
void addFloats(const std::string& family, const T* x, OrbStatus (*member)(const T*, T*, int), Sleef sleef,
               SleefAvx sleefAvx, SleefSse4 sleefSse4) {
    T* const y = buffer<T>(1);
    add(family, "orbs", [=](int len) { member(x, y, len); });
    add(family, "sleef", byVectors<V>(x, y, sleef));
    add(family, "sleef-avx", byVectors<V>(x, y, sleefAvx));
    add(family, "sleef-sse4", byVectors<HalfV>(x, y, sleefSse4));
}
template <class T, class Function>
void addHighway(const std::string& family, const T* x, Function function) {
    T* const y = buffer<T>(1);
    add(family, "highway", [=](int len) {
        const hn::ScalableTag<T> d;
        for (int n = 0; n < len; n += static_cast<int>(hn::Lanes(d)))
            hn::StoreU(function(d, hn::LoadU(d, x + n)), d, y + n);
    });
}

// ---- Integers: rules as loops ----

template <class S, class R, class Rule>
void addIntegers(const std::string& family, const S* x, OrbStatus (*member)(const S*, R*, int, int), int scaleFactor,
                 Rule rule) {
    R* const y = buffer<R>(1);
    const std::string name = family + "(" + std::to_string(scaleFactor) + ")";
    add(name, "orbs", [=](int len) { member(x, y, len, scaleFactor); });
    add(name, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) y[n] = rule(x[n]);
    });
}

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
    addFloats<__m256, __m128>("Exp_32f", x, orbsExp_32f, Sleef_expf8_u10avx2, Sleef_expf8_u10avx, Sleef_expf4_u10sse4);
    addHighway("Exp_32f", x, [](auto d, auto v) { return hn::Exp(d, v); });
    const auto* x64 = filled<Orb64f>(-20, 20, Spread::uniform);
    addFloats<__m256d, __m128d>("Exp_64f", x64, orbsExp_64f, Sleef_expd4_u10avx2, Sleef_expd4_u10avx,
                                Sleef_expd2_u10sse4);
    addHighway("Exp_64f", x64, [](auto d, auto v) { return hn::Exp(d, v); });

    static const auto table16 = exponentials<Orb16s, 25>();
    static const auto table32 = exponentials<Orb32s, 45>();
    static const auto table64 = exponentials<Orb64s, 45>();
    const auto* x16 = filled<Orb16s>(-12, 30, Spread::uniform);
    const auto* x32 = filled<Orb32s>(-12, 30, Spread::uniform);
    const auto* x64s = filled<Orb64s>(-12, 50, Spread::uniform);
    addIntegers("Exp_16s_Sfs", x16, orbsExp_16s_Sfs, 0, [](Orb16s v) { return power(table16, v); });
    addIntegers("Exp_16s_Sfs", x16, orbsExp_16s_Sfs, 20, [](Orb16s v) {
        const double y = std::exp(static_cast<double>(v)) * 0x1p-20;
        return y > 32767 ? Orb16s{32767} : static_cast<Orb16s>(y + 0.5);
    });
    addIntegers("Exp_32s_Sfs", x32, orbsExp_32s_Sfs, 0, [](Orb32s v) { return power(table32, v); });
    addIntegers("Exp_64s_Sfs", x64s, orbsExp_64s_Sfs, 0, [](Orb64s v) { return power(table64, v); });
    addIntegers("Exp_64s_Sfs", x64s, orbsExp_64s_Sfs, 8, [](Orb64s v) {
        const double y = std::exp(static_cast<double>(v)) * 0x1p-8;
        return y >= 0x1p63 ? std::numeric_limits<Orb64s>::max() : static_cast<Orb64s>(y);
    });
}

void addLn() {
    const auto* x = filled<Orb32f>(1e-6, 1e6, Spread::logarithmic);
    addFloats<__m256, __m128>("Ln_32f", x, orbsLn_32f, Sleef_logf8_u10avx2, Sleef_logf8_u10avx, Sleef_logf4_u10sse4);
    addHighway("Ln_32f", x, [](auto d, auto v) { return hn::Log(d, v); });
    const auto* x64 = filled<Orb64f>(1e-6, 1e6, Spread::logarithmic);
    addFloats<__m256d, __m128d>("Ln_64f", x64, orbsLn_64f, Sleef_logd4_u10avx2, Sleef_logd4_u10avx,
                                Sleef_logd2_u10sse4);
    addHighway("Ln_64f", x64, [](auto d, auto v) { return hn::Log(d, v); });

    static const auto nepers16 = ladder<10>(1);
    static const auto nepers32 = ladder<21>(1);
    static const auto decibels = ladder<93>(std::log(10) / 10);
    const auto* x16 = filled<Orb16s>(1, 32767, Spread::logarithmic);
    const auto* x32 = filled<Orb32s>(1, 0x7fffffff, Spread::logarithmic);
    addIntegers("Ln_16s_Sfs", x16, orbsLn_16s_Sfs, 0, [](Orb16s v) { return rung<Orb16s>(nepers16, v); });
    addIntegers("Ln_16s_Sfs", x16, orbsLn_16s_Sfs, -8, [](Orb16s v) {
        return v <= 0 ? Orb16s{-32768} : rounded<Orb16s>(std::log(static_cast<float>(v)) * 256);
    });
    addIntegers("Ln_32s_Sfs", x32, orbsLn_32s_Sfs, 0, [](Orb32s v) { return rung<Orb32s>(nepers32, v); });
    addIntegers("Ln_32s_Sfs", x32, orbsLn_32s_Sfs, -16,
                [](Orb32s v) { return v <= 0 ? INT32_MIN : rounded<Orb32s>(std::log(static_cast<float>(v)) * 65536); });
    addIntegers("Ln_32s16s_Sfs", x32, orbsLn_32s16s_Sfs, 0, [](Orb32s v) { return rung<Orb16s>(nepers32, v); });
    addIntegers("10Log10_32s_Sfs", x32, orbs10Log10_32s_Sfs, 0, [](Orb32s v) { return rung<Orb32s>(decibels, v); });
}

void addArctanAndCubrt() {
    const auto* x = filled<Orb32f>(-5, 5, Spread::uniform);
    addFloats<__m256, __m128>("Arctan_32f", x, orbsArctan_32f, Sleef_atanf8_u10avx2, Sleef_atanf8_u10avx,
                              Sleef_atanf4_u10sse4);
    addHighway("Arctan_32f", x, [](auto d, auto v) { return hn::Atan(d, v); });
    const auto* x64 = filled<Orb64f>(-5, 5, Spread::uniform);
    addFloats<__m256d, __m128d>("Arctan_64f", x64, orbsArctan_64f, Sleef_atand4_u10avx2, Sleef_atand4_u10avx,
                                Sleef_atand2_u10sse4);
    addHighway("Arctan_64f", x64, [](auto d, auto v) { return hn::Atan(d, v); });
    addFloats<__m256, __m128>("Cubrt_32f", x, orbsCubrt_32f, Sleef_cbrtf8_u10avx2, Sleef_cbrtf8_u10avx,
                              Sleef_cbrtf4_u10sse4);
    addIntegers("Cubrt_32s16s_Sfs", filled<Orb32s>(-0x7fffffff, 0x7fffffff, Spread::uniform), orbsCubrt_32s16s_Sfs, 0,
                [](Orb32s v) { return rounded<Orb16s>(std::cbrt(static_cast<float>(v))); });
}

[[maybe_unused]] const bool registered = [] {
    addExp();
    addLn();
    addArctanAndCubrt();
    return true;
}();

} // namespace
