// Magnitudes, phases, power and polar forms, beside VOLK, SLEEF's functions of an ulp (sleef: with fused multiply-adds
// where the tier's processors have them; sleef-nofma: without) and loops.
#include "loops.h"
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <cmath>
#include <cstring>
#include <sleef.h>

#if defined(__AVX512F__)
using Floats = __m512;
#    define SLEEF_32F(function) Sleef_##function##f16_u10avx512f, Sleef_##function##f16_u10avx512fnofma
#elif defined(__AVX2__)
using Floats = __m256;
#    define SLEEF_32F(function) Sleef_##function##f8_u10avx2, Sleef_##function##f8_u10avx
#else
using Floats = __m128;
#    define SLEEF_32F(function) Sleef_##function##f4_u10sse4, Sleef_##function##f4_u10sse2
#endif

namespace {

using vectors::add;
using vectors::buffer;
using volk::cast;
using volk::count;

constexpr int lanes = sizeof(Floats) / sizeof(float);

struct Parts {
    Floats re, im;
};
Floats load(const float* p) {
    Floats v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
void store(float* p, Floats v) {
    std::memcpy(p, &v, sizeof v);
}
// The lanes of two vectors of complex elements, as the compiler does it best.
Parts parts(const Orb32fc* z) {
    using Ints [[gnu::vector_size(sizeof(Floats))]] = int;
    Ints even, odd;
    for (int k = 0; k < lanes; ++k) even[k] = 2 * k, odd[k] = 2 * k + 1;
    const Floats a = load(&z[0].re), b = load(&z[lanes / 2].re);
    return {__builtin_shuffle(a, b, even), __builtin_shuffle(a, b, odd)};
}
void storeParts(Orb32fc* z, Floats re, Floats im) {
    using Ints [[gnu::vector_size(sizeof(Floats))]] = int;
    Ints low, high;
    for (int k = 0; k < lanes; ++k) low[k] = k / 2 + k % 2 * lanes, high[k] = low[k] + lanes / 2;
    store(&z[0].re, __builtin_shuffle(re, im, low));
    store(&z[lanes / 2].re, __builtin_shuffle(re, im, high));
}

template <class Atan2, class Atan2NoFma>
void addPhases(Atan2 atan2, Atan2NoFma atan2NoFma) {
    auto* const z = buffer<Orb32fc>(0);
    auto *const magnitude = buffer<Orb32f>(2), *const phase = buffer<Orb32f>(3);
    const auto sleef = [=](auto function, bool alsoMagnitude) {
        return [=](int len) {
            for (int n = 0; n < len; n += lanes) {
                const auto [re, im] = parts(z + n);
                store(phase + n, function(im, re));
                if (!alsoMagnitude) continue;
                Floats m = re * re + im * im;
                for (int k = 0; k < lanes; ++k) m[k] = std::sqrt(m[k]);
                store(magnitude + n, m);
            }
        };
    };
    const vectors::Row row = {"Phase_32fc", vectors::alsoShort};
    add(row, "orbs", [=](int len) { orbsPhase_32fc(z, phase, len); });
    add(row, "volk", [=](int len) { volk_32fc_s32f_atan2_32f(phase, cast(z), 1, count(len)); });
    add(row, "sleef", sleef(atan2, false));
    add(row, "sleef-nofma", sleef(atan2NoFma, false));
    add("CartToPolar_32fc", "orbs", [=](int len) { orbsCartToPolar_32fc(z, magnitude, phase, len); });
    add("CartToPolar_32fc", "volk", [=](int len) {
        volk_32fc_magnitude_32f(magnitude, cast(z), count(len));
        volk_32fc_s32f_atan2_32f(phase, cast(z), 1, count(len));
    });
    add("CartToPolar_32fc", "sleef", sleef(atan2, true));
    add("CartToPolar_32fc", "sleef-nofma", sleef(atan2NoFma, true));

    auto* const w = buffer<Orb64fc>(0);
    auto* const phase64 = buffer<Orb64f>(2);
    add("Phase_64fc", "orbs", [=](int len) { orbsPhase_64fc(w, phase64, len); });
    add("Phase_64fc", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) phase64[n] = std::atan2(w[n].im, w[n].re);
    });
    auto* const z16 = buffer<Orb16sc>(0);
    auto* const phase16 = buffer<Orb16s>(2);
    add("Phase_16sc_Sfs(-12)", "orbs", [=](int len) { orbsPhase_16sc_Sfs(z16, phase16, len, -12); });
    add("Phase_16sc_Sfs(-12)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            phase16[n] = loops::nearest<Orb16s>(4096 * std::atan2(float(z16[n].im), float(z16[n].re)));
    });
}

template <class SinCos, class SinCosNoFma>
void addParts(SinCos sinCos, SinCosNoFma sinCosNoFma) {
    auto *const magnitude = buffer<Orb32f>(0), *const phase = buffer<Orb32f>(1);
    auto* const z = buffer<Orb32fc>(2);
    const auto sleef = [=](auto function) {
        return [=](int len) {
            for (int n = 0; n < len; n += lanes) {
                const auto both = function(load(phase + n));
                const Floats m = load(magnitude + n);
                storeParts(z + n, m * both.y, m * both.x);
            }
        };
    };
    const vectors::Row row = {"PolarToCart_32fc", vectors::alsoShort};
    add(row, "orbs", [=](int len) { orbsPolarToCart_32fc(magnitude, phase, z, len); });
    add(row, "sleef", sleef(sinCos));
    add(row, "sleef-nofma", sleef(sinCosNoFma));
    auto *const magnitude64 = buffer<Orb64f>(0), *const phase64 = buffer<Orb64f>(1);
    auto* const w = buffer<Orb64fc>(2);
    add("PolarToCart_64fc", "orbs", [=](int len) { orbsPolarToCart_64fc(magnitude64, phase64, w, len); });
    add("PolarToCart_64fc", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            w[n] = {magnitude64[n] * std::cos(phase64[n]), magnitude64[n] * std::sin(phase64[n])};
    });
    auto *const magnitude16 = buffer<Orb16s>(0), *const phase16 = buffer<Orb16s>(1);
    auto* const z16 = buffer<Orb16sc>(2);
    add("PolarToCart_16sc(12)", "orbs", [=](int len) { orbsPolarToCart_16sc(magnitude16, phase16, 12, z16, len); });
    add("PolarToCart_16sc(12)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) {
            const float p = float(phase16[n]) / 4096, m = magnitude16[n];
            z16[n] = {loops::nearest<Orb16s>(m * std::cos(p)), loops::nearest<Orb16s>(m * std::sin(p))};
        }
    });
}

void addMagnitudes() {
    auto* const z = buffer<Orb32fc>(0);
    auto* const y = buffer<Orb32f>(2);
    const vectors::Row row = {"Magnitude_32fc", vectors::alsoShort};
    add(row, "orbs", [=](int len) { orbsMagnitude_32fc(z, y, len); });
    add(row, "volk", [=](int len) { volk_32fc_magnitude_32f(y, cast(z), count(len)); });
    add("PowerSpectr_32fc", "orbs", [=](int len) { orbsPowerSpectr_32fc(z, y, len); });
    add("PowerSpectr_32fc", "volk", [=](int len) { volk_32fc_magnitude_squared_32f(y, cast(z), count(len)); });
    auto* const z16 = buffer<Orb16sc>(0);
    auto* const y16 = buffer<Orb16s>(2);
    const auto squares = [=](int n) { return z16[n].re * z16[n].re + z16[n].im * z16[n].im; };
    add("Magnitude_16sc_Sfs(0)", "orbs", [=](int len) { orbsMagnitude_16sc_Sfs(z16, y16, len, 0); });
    add("Magnitude_16sc_Sfs(0)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) y16[n] = loops::nearest<Orb16s>(std::sqrt(double(squares(n))));
    });
    add("PowerSpectr_16sc_Sfs(7)", "orbs", [=](int len) { orbsPowerSpectr_16sc_Sfs(z16, y16, len, 7); });
    add("PowerSpectr_16sc_Sfs(7)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) y16[n] = loops::scaled<Orb16s, Orb32s>(squares(n), 7);
    });
    auto* const z32 = buffer<Orb32sc>(0);
    auto* const y32 = buffer<Orb32s>(2);
    add("Magnitude_32sc_Sfs(0)", "orbs", [=](int len) { orbsMagnitude_32sc_Sfs(z32, y32, len, 0); });
    add("Magnitude_32sc_Sfs(0)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            y32[n] = loops::nearest<Orb32s>(std::sqrt(double(z32[n].re) * z32[n].re + double(z32[n].im) * z32[n].im));
    });
}

[[maybe_unused]] const bool registered = [] {
    addMagnitudes();
    addPhases(SLEEF_32F(atan2));
    addParts(SLEEF_32F(sincos));
    return true;
}();

} // namespace
