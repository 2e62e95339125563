// Quotients, squares, roots and absolute values beside plain loops and VOLK. "loop" is the rule in integers, or the
// formula of floats, as a compiler makes it, without the warning; "rint" the rule by way of floating point, which a
// compiler may vectorise.
#include "loops.h"
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <volk/volk.h>

namespace {

using vectors::add;
using vectors::buffer;

template <class T>
constexpr bool isComplex = requires(T t) {
    t.re;
};

// Divisors and radicands: above 0, and above 2^15 for the widest integers.
template <class T>
T* positive() {
    T* const data = buffer<T>(0);
    for (int n = 0; n < vectors::sizes[1]; ++n) {
        if constexpr (isComplex<T>) {
            data[n].re = data[n].re == 0 ? 3 : data[n].re;
        } else {
            data[n] = static_cast<T>(data[n] == 0 ? 3 : data[n] < 0 ? -data[n] : data[n]);
            if (std::is_same_v<T, Orb64s>) data[n] *= 0x12345678;
        }
    }
    return data;
}

// ---- Quotients ----

template <class R, class Wide>
R nearestQuotient(Wide a, Wide b) {
    const Wide sign = (a ^ b) < 0 ? -1 : 1, num = a < 0 ? -a : a, den = b < 0 ? -b : b, quotient = num / den;
    const Wide twice = 2 * (num % den), up = twice > den || (twice == den && (quotient & 1));
    return loops::scaled<R, Wide>(sign * (quotient + up), 0);
}
template <class R, class Real>
R nearest(Real v) {
    return static_cast<R>(std::rint(std::clamp<Real>(v, std::numeric_limits<R>::min(), std::numeric_limits<R>::max())));
}
template <class T>
T extreme(T a) {
    return a == 0 ? T{0} : a > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
}

template <class Wide, class Real, class T>
void addQuotients(const char* name, OrbStatus (*member)(const T*, const T*, T*, int, int)) {
    const T *b = positive<T>(), *a = buffer<T>(1);
    T* dst = buffer<T>(2);
    add(name, "orbs", [=](int len) { member(b, a, dst, len, -3); });
    add(name, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) {
            dst[n] = b[n] == 0 ? extreme(a[n]) : nearestQuotient<T, Wide>(Wide{a[n]} * 8, b[n]);
        }
    });
    add(name, "rint", [=](int len) {
        for (int n = 0; n < len; ++n) {
            const Real quotient = static_cast<Real>(a[n]) * 8 / static_cast<Real>(b[n]);
            dst[n] = b[n] == 0 ? extreme(a[n]) : nearest<T>(quotient);
        }
    });
}
template <class Real, class T>
void addConstantQuotients(const char* name, OrbStatus (*member)(const T*, T, T*, int, int)) {
    const T* a = buffer<T>(1);
    T* dst = buffer<T>(2);
    T val = 7;
    benchmark::DoNotOptimize(val); // no constant that the compiler knows
    add(name, "orbs", [=](int len) { member(a, val, dst, len, -3); });
    add(name, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = nearestQuotient<T, Orb32s>(a[n] * 8, val);
    });
    add(name, "rint", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = nearest<T>(static_cast<Real>(a[n]) * (Real{8} / static_cast<Real>(val)));
    });
}

void addComplexQuotients() {
    const Orb16sc *b = positive<Orb16sc>(), *a = buffer<Orb16sc>(1);
    Orb16sc* dst = buffer<Orb16sc>(2);
    const auto run = [](const auto* x, const auto* y, auto* z, int len, auto quotient) {
        for (int n = 0; n < len; ++n) {
            const std::int64_t re = std::int64_t{x[n].re} * y[n].re + std::int64_t{x[n].im} * y[n].im;
            const std::int64_t im = std::int64_t{x[n].im} * y[n].re - std::int64_t{x[n].re} * y[n].im;
            const std::int64_t d = std::int64_t{y[n].re} * y[n].re + std::int64_t{y[n].im} * y[n].im;
            if (d == 0) {
                z[n] = {0, 0};
            } else {
                z[n] = {quotient(re * 8, d), quotient(im * 8, d)};
            }
        }
    };
    const auto integers = [](std::int64_t x, std::int64_t y) { return nearestQuotient<Orb16s, std::int64_t>(x, y); };
    const auto doubles = [](std::int64_t x, std::int64_t y) {
        return nearest<Orb16s>(static_cast<double>(x) / static_cast<double>(y));
    };
    add("Div_16sc_Sfs", "orbs", [=](int len) { orbsDiv_16sc_Sfs(b, a, dst, len, -3); });
    add("Div_16sc_Sfs", "loop", [=](int len) { run(a, b, dst, len, integers); });
    add("Div_16sc_Sfs", "rint", [=](int len) { run(a, b, dst, len, doubles); });

    const Orb16sc val{7, -3};
    add("DivC_16sc_Sfs", "orbs", [=](int len) { orbsDivC_16sc_Sfs(a, val, dst, len, -3); });
    add("DivC_16sc_Sfs", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) {
            dst[n] = {nearestQuotient<Orb16s, Orb32s>((a[n].re * val.re + a[n].im * val.im) * 8, 58),
                      nearestQuotient<Orb16s, Orb32s>((a[n].im * val.re - a[n].re * val.im) * 8, 58)};
        }
    });
}

template <class T>
void addFloatQuotients(const char* name, OrbStatus (*member)(const T*, const T*, T*, int)) {
    const T *b = positive<T>(), *a = buffer<T>(1);
    T* dst = buffer<T>(2);
    add(name, "orbs", [=](int len) { member(b, a, dst, len); });
    add(name, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) {
            if constexpr (isComplex<T>) {
                const auto d = b[n].re * b[n].re + b[n].im * b[n].im;
                dst[n] = {(a[n].re * b[n].re + a[n].im * b[n].im) / d, (a[n].im * b[n].re - a[n].re * b[n].im) / d};
            } else {
                dst[n] = a[n] / b[n];
            }
        }
    });
}

// ---- Squares, roots, absolute values ----

template <class S, class R, class... Scale, class Rule>
void addUnary(const char* name, OrbStatus (*member)(const S*, R*, int, Scale...), Rule rule,
              std::type_identity_t<Scale>... scaleFactor) {
    const S* src = positive<S>();
    R* dst = buffer<R>(2);
    add(name, "orbs", [=](int len) { member(src, dst, len, scaleFactor...); });
    add(name, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = rule(src[n]);
    });
}

// The root times 8, rounded to nearest in double precision.
template <class R>
constexpr auto rootTimes8 = [](auto x) { return x < 0 ? R{0} : nearest<R>(std::sqrt(static_cast<double>(x)) * 8); };
template <class Wide, int s>
constexpr auto square = [](auto x) { return loops::scaled<decltype(x), Wide>(Wide{x} * x, s); };
template <class Real>
constexpr auto complexRoot = [](auto z) {
    const Real re = static_cast<Real>(z.re), im = static_cast<Real>(z.im), m = std::sqrt(re * re + im * im);
    const Real larger = std::sqrt((m + std::abs(re)) / 2), smaller = larger > 0 ? std::abs(im) / (2 * larger) : 0;
    const Real x = re < 0 ? smaller : larger, y = std::copysign(re < 0 ? larger : smaller, im);
    if constexpr (std::is_same_v<decltype(z), Orb16sc>) {
        return Orb16sc{nearest<Orb16s>(x * 8), nearest<Orb16s>(y * 8)};
    } else {
        return decltype(z){static_cast<decltype(z.re)>(x), static_cast<decltype(z.re)>(y)};
    }
};

[[maybe_unused]] const bool registered = [] {
    addQuotients<Orb32s, float>("Div_8u_Sfs", orbsDiv_8u_Sfs);
    addQuotients<Orb32s, float>("Div_16u_Sfs", orbsDiv_16u_Sfs);
    addQuotients<Orb32s, float>("Div_16s_Sfs", orbsDiv_16s_Sfs);
    addQuotients<Orb64s, double>("Div_32s_Sfs", orbsDiv_32s_Sfs);
    addConstantQuotients<float>("DivC_8u_Sfs", orbsDivC_8u_Sfs);
    addConstantQuotients<float>("DivC_16u_Sfs", orbsDivC_16u_Sfs);
    addConstantQuotients<float>("DivC_16s_Sfs", orbsDivC_16s_Sfs);
    addComplexQuotients();
    addFloatQuotients("Div_32f", orbsDiv_32f);
    addFloatQuotients("Div_32fc", orbsDiv_32fc);
    addFloatQuotients("Div_64f", orbsDiv_64f);
    addFloatQuotients("Div_64fc", orbsDiv_64fc);
    const Orb16u* element = positive<Orb16u>();
    Orb16u* reversed = buffer<Orb16u>(2);
    add("DivCRev_16u", "orbs", [=](int len) { orbsDivCRev_16u(element, 30000, reversed, len); });
    add("DivCRev_16u", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            reversed[n] = element[n] ? nearestQuotient<Orb16u, Orb32s>(30000, element[n]) : Orb16u{65535};
    });

    addUnary("Sqr_8u_Sfs", orbsSqr_8u_Sfs, square<Orb32s, 3>, 3);
    addUnary("Sqr_16s_Sfs", orbsSqr_16s_Sfs, square<Orb32s, 3>, 3);
    addUnary("Sqr_16u_Sfs", orbsSqr_16u_Sfs, square<Orb64s, 3>, 3);
    addUnary("Sqr_16u_Sfs(20)", orbsSqr_16u_Sfs, square<Orb64s, 20>, 20);
    addUnary(
        "Sqr_16sc_Sfs", orbsSqr_16sc_Sfs,
        [](Orb16sc z) {
            const Orb64s re = z.re, im = z.im;
            return Orb16sc{loops::scaled<Orb16s>(re * re - im * im, 3), loops::scaled<Orb16s>(2 * re * im, 3)};
        },
        3);
    addUnary("Sqr_32f", orbsSqr_32f, [](float x) { return x * x; });
    addUnary("Sqr_64f", orbsSqr_64f, [](double x) { return x * x; });

    addUnary("Sqrt_8u_Sfs", orbsSqrt_8u_Sfs, rootTimes8<Orb8u>, -3);
    addUnary("Sqrt_16u_Sfs", orbsSqrt_16u_Sfs, rootTimes8<Orb16u>, -3);
    addUnary("Sqrt_16s_Sfs", orbsSqrt_16s_Sfs, rootTimes8<Orb16s>, -3);
    addUnary("Sqrt_16sc_Sfs", orbsSqrt_16sc_Sfs, complexRoot<double>, -3);
    addUnary("Sqrt_32s16s_Sfs", orbsSqrt_32s16s_Sfs, rootTimes8<Orb16s>, -3);
    addUnary("Sqrt_64s16s_Sfs", orbsSqrt_64s16s_Sfs, rootTimes8<Orb16s>, -3);
    addUnary(
        "Sqrt_64s_Sfs", orbsSqrt_64s_Sfs,
        [](Orb64s x) { return x < 0 ? Orb64s{0} : static_cast<Orb64s>(std::rint(std::sqrt(1.0L * x) * 8)); }, -3);
    addUnary("Sqrt_32f", orbsSqrt_32f, [](float x) { return std::sqrt(x); });
    addUnary("Sqrt_64f", orbsSqrt_64f, [](double x) { return std::sqrt(x); });
    addUnary("Sqrt_32fc", orbsSqrt_32fc, complexRoot<float>);
    addUnary("Sqrt_64fc", orbsSqrt_64fc, complexRoot<double>);
    const float* root = positive<float>();
    float* roots = buffer<float>(2);
    add("Sqrt_32f", "volk", [=](int len) { volk_32f_sqrt_32f(roots, root, static_cast<unsigned>(len)); });

    addUnary("Abs_16s", orbsAbs_16s, [](Orb16s x) { return static_cast<Orb16s>(x < 0 ? std::min(-x, 32767) : x); });
    addUnary("Abs_32s", orbsAbs_32s, [](Orb32s x) { return std::abs(std::max(x, -0x7fffffff)); });
    addUnary("Abs_32f", orbsAbs_32f, [](float x) { return std::fabs(x); });
    addUnary("Abs_64f", orbsAbs_64f, [](double x) { return std::fabs(x); });
    return true;
}();

} // namespace
