// Magnitudes, phases, power and polar forms against exact integers and the C library in long double.
#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/threads.h"
#include "support/ulps.h"

#include <cfenv>
#include <cmath>
#include <vector>

namespace {

using support::callOf;
using support::isComplex;
using support::Part;
using support::sameBits;
using support::sameValues;
using support::shown;

using Real = long double;
using Exact = __float128; // of integers up to 113 bits

// ---- Calls of members over interleaved elements or parts ----

template <class C>
using Elements = std::vector<C>;

template <class C, class R, class... More>
Elements<R> call(OrbStatus (*member)(const C*, R*, int, More...), const Elements<C>& z,
                 std::type_identity_t<More>... more) {
    Elements<R> y(z.size());
    EXPECT_EQ(member(z.data(), y.data(), static_cast<int>(z.size()), more...), orbStsNoErr);
    return y;
}
template <class T, class C, class R, class... More>
Elements<R> call(OrbStatus (*member)(const T*, const T*, R*, int, More...), const Elements<C>& z,
                 std::type_identity_t<More>... more) {
    Elements<T> re, im;
    for (const C& e : z) re.push_back(e.re), im.push_back(e.im);
    Elements<R> y(z.size());
    EXPECT_EQ(member(re.data(), im.data(), y.data(), static_cast<int>(z.size()), more...), orbStsNoErr);
    return y;
}

template <class Member, class C, class Rule, class... More>
void expectRule(Member member, const Elements<C>& z, Rule rule, More... more) {
    const auto got = call(member, z, more...);
    auto want = got;
    for (std::size_t n = 0; n < z.size(); ++n) want[n] = rule(z[n]);
    ASSERT_TRUE(sameValues(got, want, z)) << callOf(member, more...);
}

// Extremes in both parts, small numbers whose roots come next to ties, Pythagorean triples.
template <class C>
Elements<C> integers() {
    auto z = support::randomVector<C>(3000);
    for (Part<C> re = -40; re <= 40; ++re)
        for (Part<C> im = -40; im <= 40; ++im) z.push_back({re, im});
    for (int p = 1; p < 150; p += 3)
        for (int q = 1; q <= p; ++q)
            z.push_back({static_cast<Part<C>>(p * p - q * q), static_cast<Part<C>>(std::min(2 * p * q, 32767))});
    for (const Part<C> re : {std::numeric_limits<Part<C>>::min(), std::numeric_limits<Part<C>>::max(), Part<C>{0}})
        for (const Part<C> im : {std::numeric_limits<Part<C>>::min(), Part<C>{0}, Part<C>{16384}})
            z.push_back({re, im});
    return z;
}

template <class C>
Exact power(C z) {
    return Exact(z.re) * z.re + Exact(z.im) * z.im;
}

// ---- Magnitude ----

// Whether y is sqrt(square) * 2^-s, rounded once with ties to even and saturated.
template <class R>
bool isNearestRoot(Exact square, int s, R y) {
    const Exact scaled = square * std::ldexp(4.0, -2 * std::clamp(s, -100, 100)); // that of 2 y
    const Exact below = (2 * Exact(y) - 1) * (2 * Exact(y) - 1), above = (2 * Exact(y) + 1) * (2 * Exact(y) + 1);
    const bool even = y % 2 == 0, most = y == std::numeric_limits<R>::max();
    return y >= 0 && (y == 0 || (even ? scaled >= below : scaled > below)) &&
           (most || (even ? scaled <= above : scaled < above));
}

template <class Member, class C>
void expectNearestRoots(Member member, const Elements<C>& z) {
    const support::ThreadCount one(1);
    for (const int s : support::scaleFactors(-34, 36)) {
        const auto got = call(member, z, s);
        for (std::size_t n = 0; n < z.size(); ++n)
            ASSERT_TRUE(isNearestRoot(power(z[n]), s, got[n]))
                << callOf(member, s) << " of " << shown(z[n]) << " is " << got[n];
    }
}

TEST(Magnitude, OfIntegersIsTheExactRootRoundedOnce) {
    expectNearestRoots(&orbsMagnitude_16sc_Sfs, integers<Orb16sc>());
    expectNearestRoots(&orbsMagnitude_16s_Sfs, integers<Orb16sc>());
    auto z = integers<Orb32sc>();
    for (Orb32sc& e : support::randomVector<Orb32sc>(1000)) z.push_back({e.re >> 16, e.im >> 20});
    expectNearestRoots(&orbsMagnitude_32sc_Sfs, z);
    EXPECT_EQ(call(&orbsMagnitude_16sc_Sfs, {{32767, 32767}, {16384, 0}, {-32768, 0}}, 16),
              (Elements<Orb16s>{1, 0, 0}));
}

TEST(Magnitude, OfFloatsIsTheFormula) {
    const auto test = [](auto member, auto inParts, auto element) {
        using C = decltype(element);
        auto z = support::randomVector<C>(5000);
        const Part<C> inf = std::numeric_limits<Part<C>>::infinity(), nan = std::numeric_limits<Part<C>>::quiet_NaN();
        const C special[] = {{inf, nan}, {3, 4}, {-inf, 1}, {nan, 2}, {std::numeric_limits<Part<C>>::max(), 0}};
        z.insert(z.end(), std::begin(special), std::end(special));
        const auto rule = [](C e) {
            const volatile Part<C> re = e.re * e.re, im = e.im * e.im, sum = re + im;
            return std::sqrt(sum);
        };
        for (const int threads : {1, 2}) {
            const support::ThreadCount count(threads);
            expectRule(member, z, rule);
            expectRule(inParts, z, rule);
        }
    };
    test(&orbsMagnitude_32fc, &orbsMagnitude_32f, Orb32fc{});
    test(&orbsMagnitude_64fc, &orbsMagnitude_64f, Orb64fc{});
}

TEST(Magnitude, OfIntegersAsFloatIsTheRootOfTheRoundedSum) {
    const auto rule = [](Orb16sc z) { return std::sqrt(static_cast<Orb32f>(power(z))); };
    expectRule(&orbsMagnitude_16sc32f, integers<Orb16sc>(), rule);
    expectRule(&orbsMagnitude_16s32f, integers<Orb16sc>(), rule);
}

TEST(MagSquared, RoundsTheDoubleOnce) {
    for (const int s : support::scaleFactors(-33, 66)) {
        expectRule(
            &orbsMagSquared_32sc32s_Sfs, integers<Orb32sc>(),
            [=](Orb32sc z) {
                const volatile Orb64f re = Orb64f(z.re) * z.re, im = Orb64f(z.im) * z.im, sum = re + im;
                return static_cast<Orb32s>(
                    std::nearbyint(std::min(std::ldexp(sum, -std::clamp(s, -100, 100)), 2147483647.0)));
            },
            s);
    }
}

// ---- Power ----

TEST(PowerSpectr, OfIntegersIsExactAndRoundedOnce) {
    const auto z = integers<Orb16sc>();
    for (const int s : support::scaleFactors(-17, 34)) {
        const auto rule = [=](Orb16sc e) {
            const auto scaled = std::ldexp(static_cast<Orb64f>(power(e)), -std::clamp(s, -100, 100)); // exact
            return static_cast<Orb16s>(std::min(std::nearbyint(scaled), 32767.0));
        };
        expectRule(&orbsPowerSpectr_16sc_Sfs, z, rule, s);
        expectRule(&orbsPowerSpectr_16s_Sfs, z, rule, s);
    }
    const auto asFloat = [](Orb16sc e) { return static_cast<Orb32f>(power(e)); };
    expectRule(&orbsPowerSpectr_16sc32f, z, asFloat);
    expectRule(&orbsPowerSpectr_16s32f, z, asFloat);
}

TEST(PowerSpectr, OfFloatsIsTheFormula) {
    const auto test = [](auto member, auto inParts, auto element) {
        using C = decltype(element);
        const auto z = support::randomVector<C>(700);
        const auto rule = [](C e) {
            const volatile Part<C> re = e.re * e.re, im = e.im * e.im;
            return re + im;
        };
        expectRule(member, z, rule);
        expectRule(inParts, z, rule);
    };
    test(&orbsPowerSpectr_32fc, &orbsPowerSpectr_32f, Orb32fc{});
    test(&orbsPowerSpectr_64fc, &orbsPowerSpectr_64f, Orb64fc{});
}

// ---- Phase ----

// Zeros have no sign.
Real angle(Real re, Real im) {
    return std::atan2(im == 0 ? 0 : im, re == 0 ? 0 : re);
}

// All magnitudes, ratios around 1 and around the cells' borders, and elements that the kernel leaves beside others.
template <class C>
Elements<C> directions() {
    using T = Part<C>;
    using Bits = std::conditional_t<sizeof(T) == 4, Orb32u, Orb64u>;
    auto z = support::randomVector<C>(30000);
    support::Random random(4);
    for (int n = 0; n < 30000; ++n) {
        C& e = z[static_cast<std::size_t>(n)];
        if (n % 3 == 0) e.im = std::ldexp(e.im, -static_cast<int>(random() % 12));
        if (n % 3 == 1) e.im = e.re * static_cast<T>(1 + static_cast<int>(random() % 64)) / 64 * (1 + e.im / 1000);
        if (n % 8 == 0) {
            e.re = support::fromBits<T>(static_cast<Bits>(random()));
            if (n % 16 == 0) e.im = support::fromBits<T>(static_cast<Bits>(random()));
            if (!std::isfinite(e.re)) e.re = 1;
            if (!std::isfinite(e.im)) e.im = 1;
        }
    }
    return z;
}

template <class C, class T>
void expectPhases(OrbStatus (*member)(const C*, T*, int), OrbStatus (*inParts)(const T*, const T*, T*, int),
                  double bound) {
    const auto z = directions<C>();
    const auto got = call(member, z);
    ASSERT_TRUE(sameBits(call(inParts, z), got, z));
    for (std::size_t n = 0; n < z.size(); ++n) {
        const bool tiny =
            std::abs(got[n]) < 4 * std::numeric_limits<T>::min(); // what a quotient lacks has no bits left
        ASSERT_LT(support::ulps(got[n], angle(z[n].re, z[n].im)), tiny ? 0.75 : bound)
            << callOf(member) << " of " << shown(z[n]);
    }
    for (const Orb32u mode : support::roundingModes)
        EXPECT_TRUE(sameBits(support::inMode(mode, [&] { return call(member, z); }), got, z)) << "mode " << mode;
    // Each combination of special parts, between others.
    using Limits = std::numeric_limits<T>;
    const T parts[] = {0,
                       T{-0.0},
                       1,
                       -1,
                       Limits::infinity(),
                       -Limits::infinity(),
                       Limits::quiet_NaN(),
                       Limits::denorm_min(),
                       -Limits::denorm_min(),
                       Limits::max(),
                       -Limits::max()};
    for (const T re : parts) {
        for (const T im : parts) {
            Elements<C> some(z.begin(), z.begin() + 37);
            some[20] = some[36] = {re, im};
            const auto y = call(member, some);
            const Real want = re != re || im != im ? Limits::quiet_NaN() : angle(re, im);
            for (const int at : {20, 36})
                EXPECT_TRUE(y[at] == static_cast<T>(want) || (y[at] != y[at] && want != want))
                    << shown(some[20]) << y[at];
            for (std::size_t n = 0; n < 36; ++n) EXPECT_TRUE(n == 20 || y[n] == got[n]) << "beside " << shown(some[20]);
        }
    }
}
TEST(Phase, OfFloatsIsAccurateOverTheWholeRange) {
    expectPhases(&orbsPhase_32fc, &orbsPhase_32f, 0.75);
    expectPhases(&orbsPhase_64fc, &orbsPhase_64f, 0.56);
}

TEST(Phase, OfIntegersAsFloatIsThatOfFloats) {
    const auto z = integers<Orb16sc>();
    Elements<Orb32fc> floats;
    for (const Orb16sc& e : z) floats.push_back({Orb32f(e.re), Orb32f(e.im)});
    const auto want = call(&orbsPhase_32fc, floats);
    EXPECT_TRUE(sameBits(call(&orbsPhase_16sc32f, z), want, z));
    EXPECT_TRUE(sameBits(call(&orbsPhase_16s32f, z), want, z));
}

// A result may be the other neighbour of what double precision cannot tell from a tie; none is that close here.
template <class R>
R roundedAway(Real v) {
    return static_cast<R>(
        std::clamp<Real>(std::round(v), std::numeric_limits<R>::min(), std::numeric_limits<R>::max()));
}
TEST(Phase, OfIntegersIsRoundedOnce) {
    const auto z = integers<Orb16sc>();
    const auto z32 = integers<Orb32sc>();
    for (const int s : support::scaleFactors(-34, 4)) {
        const auto scaled = [=](auto e) { return std::ldexp(angle(e.re, e.im), -std::clamp(s, -200, 200)); };
        const auto rule = [=](auto e) { return roundedAway<Orb16s>(scaled(e)); };
        expectRule(&orbsPhase_16sc_Sfs, z, rule, s);
        expectRule(&orbsPhase_16s_Sfs, z, rule, s);
        expectRule(
            &orbsPhase_32sc_Sfs, z32, [=](auto e) { return roundedAway<Orb32s>(scaled(e)); }, s);
    }
}

// ---- Cartesian to polar ----

TEST(CartToPolar, IsMagnitudeAndPhase) {
    const auto test = [](auto cart, auto cartInParts, auto magnitude, auto phase, auto element) {
        using T = Part<decltype(element)>;
        const auto z = support::randomVector<decltype(element)>(3000);
        const auto len = static_cast<int>(z.size());
        Elements<T> m(z.size()), p(z.size()), re, im;
        for (const auto& e : z) re.push_back(e.re), im.push_back(e.im);
        for (const bool inParts : {false, true}) {
            ASSERT_EQ(inParts ? cartInParts(re.data(), im.data(), m.data(), p.data(), len)
                              : cart(z.data(), m.data(), p.data(), len),
                      orbStsNoErr);
            EXPECT_TRUE(sameBits(m, call(magnitude, z), z));
            EXPECT_TRUE(sameBits(p, call(phase, z), z));
        }
        // The phase in spite of a magnitude without a place, and the other way round.
        const auto wanted = p, wantedMagnitude = m;
        p.assign(p.size(), 0);
        m = p;
        EXPECT_EQ(cart(z.data(), nullptr, p.data(), len), orbStsNullPtrErr);
        EXPECT_EQ(cart(z.data(), m.data(), nullptr, len), orbStsNullPtrErr);
        EXPECT_TRUE(sameBits(p, wanted, z));
        EXPECT_TRUE(sameBits(m, wantedMagnitude, z));
    };
    test(&orbsCartToPolar_32fc, &orbsCartToPolar_32f, &orbsMagnitude_32fc, &orbsPhase_32fc, Orb32fc{});
    test(&orbsCartToPolar_64fc, &orbsCartToPolar_64f, &orbsMagnitude_64fc, &orbsPhase_64fc, Orb64fc{});
    const auto z = integers<Orb16sc>();
    const auto len = static_cast<int>(z.size());
    Elements<Orb16s> m(z.size()), p(z.size(), 7);
    ASSERT_EQ(orbsCartToPolar_16sc_Sfs(z.data(), nullptr, p.data(), len, 1, -12), orbStsNullPtrErr);
    EXPECT_EQ(p, Elements<Orb16s>(z.size(), 7));
    ASSERT_EQ(orbsCartToPolar_16sc_Sfs(z.data(), m.data(), p.data(), len, 1, -12), orbStsNoErr);
    EXPECT_TRUE(sameBits(m, call(&orbsMagnitude_16sc_Sfs, z, 1), z));
    EXPECT_TRUE(sameBits(p, call(&orbsPhase_16sc_Sfs, z, -12), z));
}

// ---- Polar to Cartesian ----

// The product rounds once more than the function.
template <class C, class T>
void expectParts(OrbStatus (*member)(const T*, const T*, C*, int),
                 OrbStatus (*inParts)(const T*, const T*, T*, T*, int)) {
    using Bits = std::conditional_t<sizeof(T) == 4, Orb32u, Orb64u>;
    support::Random random(2);
    Elements<T> m, p;
    for (int n = 0; n < 20000; ++n) {
        m.push_back(support::randomElement<T>(random));
        T phase = support::randomElement<T>(random) * std::ldexp(T{1}, static_cast<int>(random() % 16));
        if (n % 8 == 0) phase = support::fromBits<T>(static_cast<Bits>(random()));
        if (n % 8 == 1)
            phase = static_cast<T>(Real(static_cast<int>(random() % 5000) - 2500) * 1.57079632679489661923L);
        p.push_back(std::isfinite(phase) && std::abs(phase) < 0x1p60 ? phase : 1); // long double has no more
    }
    const int len = static_cast<int>(m.size());
    Elements<C> z(m.size());
    Elements<T> re(m.size()), im(m.size());
    for (const Orb32u mode : {_MM_ROUND_NEAREST, _MM_ROUND_DOWN}) {
        ASSERT_EQ(support::inMode(mode, [&] { return member(m.data(), p.data(), z.data(), len); }), orbStsNoErr);
        ASSERT_EQ(inParts(m.data(), p.data(), re.data(), im.data(), len), orbStsNoErr);
        for (std::size_t n = 0; n < m.size(); ++n) {
            ASSERT_TRUE(z[n].re == re[n] && z[n].im == im[n]);
            const double bound = std::abs(p[n]) < 0x1p32 ? 1.55 : 2.5;
            ASSERT_LT(support::ulps(re[n], m[n] * std::cos(Real(p[n]))), bound) << m[n] << " at " << shown(p[n]);
            ASSERT_LT(support::ulps(im[n], m[n] * std::sin(Real(p[n]))), bound) << m[n] << " at " << shown(p[n]);
        }
    }
    const T inf = std::numeric_limits<T>::infinity();
    for (const T bad : {inf, -inf, std::numeric_limits<T>::quiet_NaN()}) {
        p[3] = bad;
        ASSERT_EQ(inParts(m.data(), p.data(), re.data(), im.data(), 5), orbStsNoErr);
        EXPECT_TRUE(re[3] != re[3] && im[3] != im[3] && re[2] == z[2].re && im[4] == z[4].im);
    }
}
TEST(PolarToCart, OfFloatsIsAccurate) {
    expectParts(&orbsPolarToCart_32fc, &orbsPolarToCart_32f);
    expectParts(&orbsPolarToCart_64fc, &orbsPolarToCart_64f);
}

// Doubles next to multiples of pi/2 and far away, as the reduction to a quarter turn is told by 1,200 bits of 2/pi.
TEST(PolarToCart, OfLargePhasesLosesNothing) {
    const struct {
        Orb64f phase, cosine, sine;
    } known[] = {
        {0x1p40, -0x1.d3f8577b3aa88p-1, -0x1.9f7122716d5d9p-2},
        {0x1p120, -0x1.da0cd0b66d8cep-1, 0x1.82e34655e6fcbp-2},
        {0x1.6ac5b262ca1ffp+849, -0x1.14ae72e6ba22fp-61, 0x1.0000000000000p+0},
        {0x1.fffffffffffffp+1023, -0x1.fffe62ecfab75p-1, 0x1.452fc98b34e97p-8},
        {1e22, 0x1.0be2cef01c8f4p-1, -0x1.b453ab76bf397p-1},
    };
    for (const auto& k : known) {
        for (const Orb64f sign : {1.0, -1.0}) {
            const Orb64f one = 1, phase = sign * k.phase;
            Orb64f re, im;
            ASSERT_EQ(orbsPolarToCart_64f(&one, &phase, &re, &im, 1), orbStsNoErr);
            EXPECT_LT(support::ulps(re, k.cosine), 2.5) << phase;
            EXPECT_LT(support::ulps(im, sign * k.sine), 2.5) << phase;
        }
    }
}

template <class Rule>
Orb16sc nearest16(Rule round, Real m, Real p) {
    const auto part = [=](Real v) { return static_cast<Orb16s>(std::clamp<Real>(round(v), -32768, 32767)); };
    return {part(Orb64f(m) * Orb64f(std::cos(p))), part(Orb64f(m) * Orb64f(std::sin(p)))};
}
TEST(PolarToCart, OfIntegersIsRoundedOnce) {
    auto m = support::randomVector<Orb16s>(2000, 1), p = support::randomVector<Orb16s>(2000, 2);
    m.insert(m.end(), {-32768, 32767, -32768, 3});
    p.insert(p.end(), {0, 0, 12868, 4289});
    const int len = static_cast<int>(m.size());
    Elements<Orb16sc> got(m.size()), want(m.size());
    for (int fixed = 0; fixed <= 15; ++fixed) {
        ASSERT_EQ(orbsPolarToCart_16sc(m.data(), p.data(), fixed, got.data(), len), orbStsNoErr);
        for (std::size_t n = 0; n < m.size(); ++n)
            want[n] = nearest16([](Real v) { return std::nearbyint(v); }, m[n], std::ldexp(Real(p[n]), -fixed));
        ASSERT_TRUE(sameBits(got, want, m, p)) << fixed;
    }
    for (const int s : {0, 3, -3, 15, -31, 31, -40, 100}) {
        for (const int t : {12, 0, 15, -4, -20, -31, -99, 40}) {
            ASSERT_EQ(orbsPolarToCart_16sc_Sfs(m.data(), p.data(), got.data(), len, s, t), orbStsNoErr);
            for (std::size_t n = 0; n < m.size(); ++n)
                want[n] =
                    nearest16([](Real v) { return std::round(v); }, std::ldexp(Real(m[n]), -std::clamp(s, -31, 31)),
                              std::ldexp(Real(p[n]), -std::clamp(t, -31, 31)));
            ASSERT_TRUE(sameBits(got, want, m, p)) << s << ", " << t;
        }
    }
}
TEST(PolarToCart, Of32BitsIsNearestInDoublePrecision) {
    const auto m = support::randomVector<Orb32s>(2000, 1), p = support::randomVector<Orb32s>(2000, 2);
    Elements<Orb32sc> got(m.size());
    for (int fixed = 0; fixed <= 31; ++fixed) {
        ASSERT_EQ(orbsPolarToCart_32sc(m.data(), p.data(), fixed, got.data(), static_cast<int>(m.size())), orbStsNoErr);
        for (std::size_t n = 0; n < m.size(); ++n) {
            const Real phase = std::ldexp(Real(p[n]), -fixed);
            const auto expectPart = [&](Orb32s y, Real v) { // 1.5 units of 2^-53, and the rounding
                const Real exact = std::clamp<Real>(v, -2147483648.0L, 2147483647.0L);
                ASSERT_LE(std::fabs(y - exact), 0.5L + 0x1p-20L) << m[n] << ", " << p[n] << ", " << fixed;
            };
            expectPart(got[n].re, m[n] * std::cos(phase));
            expectPart(got[n].im, m[n] * std::sin(phase));
        }
    }
}

} // namespace
