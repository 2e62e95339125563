#include "support/compare.h"
#include "support/control.h"

#include "orbs.h"

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace {

using support::randomVector;
using support::sameBits;

using Real = long double;
constexpr Real pi = std::numbers::pi_v<Real>;
constexpr Orb64f unit = 0x1p-53;

Real besselI0(Real x) {
    Real sum = 1, term = 1;
    for (int k = 1; term > sum * std::numeric_limits<Real>::epsilon() / 4; ++k) {
        term *= (x / 2 / static_cast<Real>(k)) * (x / 2 / static_cast<Real>(k));
        sum += term;
    }
    return sum;
}

// A weight as the formula has it, and how far from it double precision may be: units of what is added up. Floats are
// doubles rounded, or, if they have a tolerance of theirs, within that.
struct Weight {
    Real value, tolerance, ofFloat = 0;
};
Weight bartlett(Real n, Real m) {
    const Real w = 2 * std::min(n, m - n) / m;
    return {w, (unit + std::numeric_limits<Real>::epsilon()) * w}; // rounded once
}
// The formula itself loses what it subtracts.
constexpr Real lost = 4 * std::numeric_limits<Real>::epsilon();
Weight hann(Real n, Real m) {
    const Real w = 0.5L - 0.5L * std::cos(2 * pi * n / m);
    return {w, 20 * unit * w + lost};
}
Weight hamming(Real n, Real m) {
    const Real w = 0.54L - 0.46L * std::cos(2 * pi * n / m);
    return {w, 20 * unit * w + lost};
}
Weight blackman(Real n, Real m, Real alpha) {
    const Real w = (alpha + 1) / 2 - std::cos(2 * pi * n / m) / 2 - alpha / 2 * std::cos(4 * pi * n / m);
    const Real q = hann(n, m).value;
    return {w, 40 * unit * q * (1 + 4 * std::abs(alpha)) + (1 + std::abs(alpha)) * lost};
}
Weight kaiser(Real n, Real m, Real alpha) {
    const Real w = besselI0(alpha * std::sqrt(n * (m - n))) / besselI0(alpha * m / 2);
    const Real units = (32 - 14 * std::log(w)) * w;
    return {w, units * unit, units * 0x1p-24L};
}
Orb32f optimalAlpha(Real m) {
    const Real root = 0.5L / std::cos(pi / m);
    return static_cast<Orb32f>(static_cast<Orb64f>(-root * root));
}

template <class T>
using Call = std::function<OrbStatus(const T*, T*, int)>;
template <class T>
using CallInPlace = std::function<OrbStatus(T*, int)>;
template <class T>
struct Calls {
    Call<T> call;
    CallInPlace<T> inPlace;
};
struct Family {
    const char* name;
    std::function<Weight(Real, Real)> weight;
    Calls<Orb16s> of16s;
    Calls<Orb16sc> of16sc;
    Calls<Orb32f> of32f;
    Calls<Orb32fc> of32fc;
    Calls<Orb64f> of64f;
    Calls<Orb64fc> of64fc;
};

#define CALLS(family, type, ...)                                                                                       \
    {                                                                                                                  \
        [=](const Orb##type* x, Orb##type* y, int n [[maybe_unused]]) {                                                \
            return family##_##type(x, y, n __VA_OPT__(, ) __VA_ARGS__);                                                \
        },                                                                                                             \
            [=](Orb##type* x, int n [[maybe_unused]]) { return family##_##type##_I(x, n __VA_OPT__(, ) __VA_ARGS__); } \
    }
#define FAMILY(family, weight, ...)                                                                                    \
    Family {                                                                                                           \
#        family, weight, CALLS(family, 16s, __VA_ARGS__), CALLS(family, 16sc, __VA_ARGS__),                            \
            CALLS(family, 32f, __VA_ARGS__), CALLS(family, 32fc, __VA_ARGS__), CALLS(family, 64f, __VA_ARGS__),        \
            CALLS(family, 64fc, __VA_ARGS__)                                                                           \
    }
std::vector<Family> families(int len) {
    const auto with = [](auto formula, Orb32f alpha) { return [=](Real n, Real m) { return formula(n, m, alpha); }; };
    std::vector<Family> all{
        FAMILY(orbsWinBartlett, bartlett),
        FAMILY(orbsWinHann, hann),
        FAMILY(orbsWinHamming, hamming),
        FAMILY(orbsWinBlackmanStd, with(blackman, -0.16f)),
    };
    if (len > 3) all.push_back(FAMILY(orbsWinBlackmanOpt, with(blackman, optimalAlpha(len - 1))));
    for (Orb32f alpha : {0.0f, 0.375f, -7.25f}) all.push_back(FAMILY(orbsWinBlackman, with(blackman, alpha), alpha));
    for (Orb32f largest : {0.0f, 3.0f, -11.5f, 37.0f}) { // arguments of the Bessel function
        const Orb32f alpha = largest * 2 / static_cast<Orb32f>(len);
        all.push_back(FAMILY(orbsWinKaiser, with(kaiser, alpha), alpha));
    }
    return all;
}
#undef FAMILY
#undef CALLS

std::vector<int> lengths() {
    std::vector<int> all{77, 128, 129, 511, 512, 513, 514, 515, 1024, 1537, 4099, 5000};
    for (int n = 3; n <= 40; ++n) all.push_back(n);
    return all;
}

template <class T>
std::vector<T> windowed(const Calls<T>& calls, const std::vector<T>& x) {
    std::vector<T> y(x.size()), z = x;
    EXPECT_EQ(calls.call(x.data(), y.data(), static_cast<int>(x.size())), orbStsNoErr);
    EXPECT_EQ(calls.inPlace(z.data(), static_cast<int>(x.size())), orbStsNoErr);
    EXPECT_TRUE(sameBits(z.data(), y.data(), y.size()));
    return y;
}
template <class T>
std::vector<T> weightsOf(const Calls<T>& calls, int len) {
    return windowed(calls, std::vector<T>(static_cast<std::size_t>(len), T{1}));
}

TEST(Windows, AreWhatTheFormulasSay) {
    for (int len : lengths())
        for (const Family& family : families(len)) {
            const auto w = weightsOf(family.of64f, len);
            const auto single = weightsOf(family.of32f, len);
            for (std::size_t n = 0; n < w.size(); ++n) {
                const auto [value, tolerance, ofFloat] = family.weight(static_cast<Real>(n), len - 1);
                ASSERT_LE(std::abs(w[n] - value), tolerance) << family.name << " len " << len << " n " << n;
                ASSERT_EQ(w[n], w[w.size() - 1 - n]) << family.name << " len " << len << " n " << n;
                ASSERT_EQ(single[n], single[w.size() - 1 - n]) << family.name << " len " << len << " n " << n;
                if (ofFloat == 0) {
                    ASSERT_EQ(single[n], static_cast<Orb32f>(w[n])) << family.name << " len " << len << " n " << n;
                } else {
                    ASSERT_LE(std::abs(single[n] - value), ofFloat) << family.name << " len " << len << " n " << n;
                }
            }
        }
}

// ---- Products ----

// With the weights that vectors of ones show.
template <class T>
using WeightOf = std::conditional_t<sizeof(T) / (support::isComplex<T> ? 2 : 1) == sizeof(Orb64f), Orb64f, Orb32f>;

template <class W>
W product(W x, W w) {
    return x * w;
}
Orb16s product(Orb16s x, Orb32f w) {
    return static_cast<Orb16s>(std::clamp(std::nearbyint(static_cast<Orb32f>(x) * w), -32768.0f, 32767.0f));
}
template <class T>
requires support::isComplex<T> T product(T x, WeightOf<T> w) {
    return {product(x.re, w), product(x.im, w)};
}

template <class T>
void expectProducts(const char* name, const Calls<T>& calls, const std::vector<WeightOf<T>>& weights) {
    const auto x = randomVector<T>(weights.size(), weights.size());
    std::vector<T> want(x.size());
    for (std::size_t n = 0; n < x.size(); ++n) want[n] = product(x[n], weights[n]);
    const auto y = windowed(calls, x);
    // Zeros at the ends are positive in some windows.
    for (std::size_t n : {std::size_t{0}, x.size() - 1})
        if (weights[n] == 0) want[n] = y[n];
    EXPECT_TRUE(sameBits(y.data(), want.data(), y.size())) << name << " len " << x.size();
}

TEST(Windows, WeighEveryTypeAlike) {
    for (int len : lengths())
        for (const Family& family : families(len)) {
            const auto floats = weightsOf(family.of32f, len);
            expectProducts(family.name, family.of16s, floats);
            expectProducts(family.name, family.of16sc, floats);
            expectProducts(family.name, family.of32f, floats);
            expectProducts(family.name, family.of32fc, floats);
            const auto doubles = weightsOf(family.of64f, len);
            expectProducts(family.name, family.of64f, doubles);
            expectProducts(family.name, family.of64fc, doubles);
        }
}

// Under every mode, and where every exception traps.
TEST(Windows, OfIntegersKnowNothingOfTheControlRegister) {
    const auto x = randomVector<Orb16sc>(1001, 5);
    for (const Family& family : families(1001)) {
        const auto want = windowed(family.of16sc, x);
        for (Orb32u mode : support::roundingModes)
            support::inMode(mode, [&] {
                std::vector<Orb16sc> y = x;
                const Orb32u before = _mm_getcsr() & ~Orb32u{_MM_EXCEPT_MASK};
                _mm_setcsr(before & ~Orb32u{_MM_MASK_MASK});
                EXPECT_EQ(family.of16sc.inPlace(y.data(), 1001), orbStsNoErr);
                EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, 0u) << family.name;
                _mm_setcsr(before);
                EXPECT_TRUE(sameBits(y.data(), want.data(), y.size())) << family.name << " in mode " << mode;
                return 0;
            });
    }
}

// ---- Ends and middles ----

TEST(Windows, OfThreeElementsAreOneElement) {
    constexpr Orb32f inf = std::numeric_limits<Orb32f>::infinity();
    const std::vector<Orb32f> x{-inf, 0.7f, inf}, kept{0, 0.7f, 0};
    for (const Family& family : families(3)) {
        const std::string name = family.name;
        if (name == "orbsWinHamming" || name == "orbsWinKaiser") continue;
        EXPECT_TRUE(sameBits(windowed(family.of32f, x).data(), kept.data(), 3)) << name;
    }
    Orb32f y[3];
    EXPECT_EQ(orbsWinBlackmanOpt_32f(x.data(), y, 3), orbStsSizeErr);
}

TEST(Windows, KeepTheMiddleAndMakeZerosOfBlackmansEnds) {
    constexpr Orb64f nan = std::numeric_limits<Orb64f>::quiet_NaN(), inf = std::numeric_limits<Orb64f>::infinity();
    Orb64f x[] = {inf, -2, -inf, 3, nan};
    EXPECT_EQ(orbsWinBlackman_64f_I(x, 5, nan), orbStsNoErr);
    const Orb64f want[] = {0, nan, -inf, nan, 0};
    EXPECT_TRUE(support::sameValues(x, want, 5));
    EXPECT_FALSE(std::signbit(x[0]) || std::signbit(x[4]));
    Orb16s s[] = {7, -20000, 9, 20000, 7};
    EXPECT_EQ(orbsWinBlackman_16s_I(s, 5, 3e38f), orbStsNoErr); // beyond 32 bits
    const Orb16s limits[] = {0, -32768, 9, 32767, 0};
    EXPECT_TRUE(sameBits(s, limits, 5));
}

TEST(Windows, OptimalBlackmanOfFourIsZero) {
    const auto zero = windowed<Orb64f>({orbsWinBlackmanOpt_64f, orbsWinBlackmanOpt_64f_I}, {1, 1, 1, 1});
    for (Orb64f w : zero) EXPECT_NEAR(w, 0, 150 * unit); // alpha is -1
}

// ---- Numbers ----

TEST(Windows, KaiserStopsAtItsLimits) {
    std::vector<Orb64fc> x(200);
    auto* const single = reinterpret_cast<Orb32f*>(x.data());
    auto* const integers = reinterpret_cast<Orb16s*>(x.data());
    for (Orb32f sign : {1.0f, -1.0f}) {
        EXPECT_EQ(orbsWinKaiser_32f_I(single, 77, sign), orbStsNoErr);
        EXPECT_EQ(orbsWinKaiser_32f_I(single, 78, sign), orbStsWinKaiserErr);
        EXPECT_EQ(orbsWinKaiser_64fc_I(x.data(), 78, 8 * sign), orbStsNoErr);
        EXPECT_EQ(orbsWinKaiser_64fc_I(x.data(), 78, 8.125f * sign), orbStsWinKaiserErr);
        EXPECT_EQ(orbsWinKaiserQ15_16s_I(integers, 78, static_cast<int>(sign) << 18), orbStsNoErr);
        EXPECT_EQ(orbsWinKaiser_16s_I(integers, 78, 8.125f * sign), orbStsWinKaiserErr);
    }
    Orb32f one = 0.3f;
    EXPECT_EQ(orbsWinKaiser_32f_I(&one, 1, 1e30f), orbStsNoErr);
    EXPECT_EQ(one, 0.3f);
    EXPECT_EQ(orbsWinKaiser_32f_I(single, 0, 1e30f), orbStsSizeErr);
}

TEST(Windows, KaiserHoldsUpToTheLargestArguments) {
    constexpr int len = 1001;
    constexpr Orb32f alpha = 0.6149f;
    std::vector<Orb64f> w(len, 1.0);
    std::vector<Orb16s> scaled(len, 32767);
    EXPECT_EQ(orbsWinKaiser_64f_I(w.data(), len, alpha), orbStsNoErr);
    EXPECT_EQ(orbsWinKaiser_16s_I(scaled.data(), len, alpha), orbStsNoErr);
    for (std::size_t n = 0; n < w.size(); ++n) {
        const auto [value, tolerance, ofFloat] = kaiser(static_cast<Real>(n), len - 1, alpha);
        ASSERT_LE(std::abs(w[n] - value), tolerance) << n;
        ASSERT_NEAR(scaled[n], 32767 * value, 0.5 + 32767 * (ofFloat + 0x1p-24)) << n;
    }
}

TEST(Windows, Q15IsAFraction) {
    const auto x = randomVector<Orb16sc>(70, 1);
    for (int alphaQ15 : {-5243, 32767, 0, 100000}) {
        std::vector<Orb16sc> y = x, want = x;
        const Orb32f alpha = static_cast<Orb32f>(alphaQ15) / 32768;
        EXPECT_EQ(orbsWinBlackman_16sc_I(want.data(), 70, alpha), orbStsNoErr);
        EXPECT_EQ(orbsWinBlackmanQ15_16sc_I(y.data(), 70, alphaQ15), orbStsNoErr);
        EXPECT_TRUE(sameBits(y.data(), want.data(), y.size())) << alphaQ15;
        y = want = x;
        EXPECT_EQ(orbsWinKaiser_16sc_I(want.data(), 70, alpha), orbStsNoErr);
        EXPECT_EQ(orbsWinKaiserQ15_16sc_I(y.data(), 70, alphaQ15), orbStsNoErr);
        EXPECT_TRUE(sameBits(y.data(), want.data(), y.size())) << alphaQ15;
    }
}

TEST(Windows, ScaleFactorsComeBeforeRounding) {
    constexpr int alphaQ15 = -5243;
    for (int len : {4, 5, 41, 600})
        for (int scaleFactor : {0, 1, 3, 15, 40, -1, -3, -16, -140, 140, 1000, -1000, std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max()}) {
            const auto x = randomVector<Orb16s>(static_cast<std::size_t>(len), 3);
            std::vector<Orb32f> w(x.size(), 1);
            std::vector<Orb16s> y = x, want(x.size());
            EXPECT_EQ(orbsWinBlackman_32f_I(w.data(), len, alphaQ15 / 32768.0f), orbStsNoErr);
            const Orb64f scale = std::pow(2.0, std::clamp(-1.0 * scaleFactor, -200.0, 200.0));
            for (std::size_t n = 0; n < x.size(); ++n) {
                const Orb64f scaled = std::nearbyint(Orb64f{static_cast<Orb32f>(x[n]) * w[n]} * scale);
                want[n] = static_cast<Orb16s>(std::clamp(scaled, -32768.0, 32767.0));
            }
            EXPECT_EQ(orbsWinBlackmanQ15_16s_ISfs(y.data(), len, alphaQ15, scaleFactor), orbStsNoErr);
            EXPECT_TRUE(sameBits(y.data(), want.data(), y.size())) << len << " " << scaleFactor;
        }
    // Of three elements an exact half goes away from zero; of five to the even neighbour.
    const auto middle = [](int len, Orb16s x, int scaleFactor) {
        std::vector<Orb16s> y(static_cast<std::size_t>(len), x);
        EXPECT_EQ(orbsWinBlackmanQ15_16s_ISfs(y.data(), len, alphaQ15, scaleFactor), orbStsNoErr);
        EXPECT_EQ(y.front(), 0);
        EXPECT_EQ(y.back(), 0);
        return y[static_cast<std::size_t>(len / 2)];
    };
    EXPECT_EQ(middle(3, 5, 1), 3);
    EXPECT_EQ(middle(3, -5, 1), -3);
    EXPECT_EQ(middle(5, 5, 1), 2);
    EXPECT_EQ(middle(5, -5, 1), -2);
    EXPECT_EQ(middle(3, 20000, -1), 32767);
    EXPECT_EQ(middle(3, -20000, -1), -32768);
    EXPECT_EQ(middle(3, 32767, std::numeric_limits<int>::max()), 0);
    EXPECT_EQ(middle(3, -1, std::numeric_limits<int>::min()), -32768);
}

} // namespace
