// Quotients beside plain loops: "loop" is the rule in integers, or the formula of floats, as a compiler makes it,
// without the warning; "rint" the rule by way of floating point, which a compiler may vectorise.
#include "loops.h"
#include "members.h"
#include "orbs.h"
#include "vectors.h"

#include <cstdint>
#include <limits>

namespace {

using members::addBinary;
using members::addConstant;
using members::with;
using vectors::add;
using vectors::buffer;
using vectors::positive;

constexpr int times8 = -3; // the scale factor of all quotients of integers

template <class R, class Wide>
R nearestQuotient(Wide a, Wide b) {
    const Wide sign = (a ^ b) < 0 ? -1 : 1, num = a < 0 ? -a : a, den = b < 0 ? -b : b, quotient = num / den;
    const Wide twice = 2 * (num % den), up = twice > den || (twice == den && (quotient & 1));
    return loops::scaled<R, Wide>(sign * (quotient + up), 0);
}
template <class T>
T extreme(T a) {
    return a == 0 ? T{0} : a > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
}

template <class Wide, class Real, class T>
void addQuotients(const char* name, OrbStatus (*member)(const T*, const T*, T*, int, int)) {
    const T *b = positive<T>(), *a = buffer<T>(1);
    T* dst = buffer<T>(2);
    addBinary(
        name, b, member,
        [](T divisor, T x) { return divisor == 0 ? extreme(x) : nearestQuotient<T, Wide>(Wide{x} * 8, divisor); },
        times8);
    add(with(name, times8), "rint", [=](int len) {
        for (int n = 0; n < len; ++n) {
            const Real quotient = static_cast<Real>(a[n]) * 8 / static_cast<Real>(b[n]);
            dst[n] = b[n] == 0 ? extreme(a[n]) : loops::nearest<T>(quotient);
        }
    });
}
template <class Real, class T>
void addConstantQuotients(const char* name, OrbStatus (*member)(const T*, T, T*, int, int)) {
    const T* a = buffer<T>(0);
    T* dst = buffer<T>(2);
    T val = 7;
    benchmark::DoNotOptimize(val); // no constant that the compiler knows
    addConstant(
        name, member, val, [](T x, T divisor) { return nearestQuotient<T, Orb32s>(x * 8, divisor); }, times8);
    add(with(name, times8), "rint", [=](int len) {
        for (int n = 0; n < len; ++n)
            dst[n] = loops::nearest<T>(static_cast<Real>(a[n]) * (Real{8} / static_cast<Real>(val)));
    });
}

// x / y times 8 of complex integers: the quotient of two integers is left to the caller.
template <class Quotient>
Orb16sc complexQuotient(Orb16sc x, Orb16sc y, Quotient quotient) {
    const std::int64_t re = std::int64_t{x.re} * y.re + std::int64_t{x.im} * y.im;
    const std::int64_t im = std::int64_t{x.im} * y.re - std::int64_t{x.re} * y.im;
    const std::int64_t d = std::int64_t{y.re} * y.re + std::int64_t{y.im} * y.im;
    if (d == 0) return {0, 0};
    return {quotient(re * 8, d), quotient(im * 8, d)};
}

void addComplexQuotients() {
    const Orb16sc *b = positive<Orb16sc>(), *a = buffer<Orb16sc>(1);
    Orb16sc* dst = buffer<Orb16sc>(2);
    const auto integers = [](std::int64_t x, std::int64_t y) { return nearestQuotient<Orb16s, std::int64_t>(x, y); };
    const auto doubles = [](std::int64_t x, std::int64_t y) {
        return loops::nearest<Orb16s>(static_cast<double>(x) / static_cast<double>(y));
    };
    addBinary(
        "Div_16sc_Sfs", b, orbsDiv_16sc_Sfs, [=](Orb16sc y, Orb16sc x) { return complexQuotient(x, y, integers); },
        times8);
    add(with("Div_16sc_Sfs", times8), "rint", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = complexQuotient(a[n], b[n], doubles);
    });
    addConstant(
        "DivC_16sc_Sfs", orbsDivC_16sc_Sfs, Orb16sc{7, -3},
        [](Orb16sc x, Orb16sc val) {
            const Orb32s d = val.re * val.re + val.im * val.im;
            return Orb16sc{nearestQuotient<Orb16s, Orb32s>((x.re * val.re + x.im * val.im) * 8, d),
                           nearestQuotient<Orb16s, Orb32s>((x.im * val.re - x.re * val.im) * 8, d)};
        },
        times8);
}

template <class T>
void addFloatQuotients(const char* name, OrbStatus (*member)(const T*, const T*, T*, int)) {
    addBinary(name, positive<T>(), member, [](T y, T x) {
        if constexpr (requires { y.re; }) {
            const auto d = y.re * y.re + y.im * y.im;
            return T{(x.re * y.re + x.im * y.im) / d, (x.im * y.re - x.re * y.im) / d};
        } else {
            return x / y;
        }
    });
}

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
    const Orb16u* divisors = positive<Orb16u>();
    Orb16u* dst = buffer<Orb16u>(2);
    add("DivCRev_16u", "orbs", [=](int len) { orbsDivCRev_16u(divisors, 30000, dst, len); });
    add("DivCRev_16u", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            dst[n] = divisors[n] ? nearestQuotient<Orb16u, Orb32s>(30000, divisors[n]) : Orb16u{65535};
    });
    return true;
}();

} // namespace
