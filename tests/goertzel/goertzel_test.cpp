// Spectra at single frequencies against sums in long double.
#include "orbs.h"

#include "support/compare.h"
#include "support/control.h"
#include "support/member.h"

#include <cmath>
#include <complex>

namespace {

using support::nameOf;
using support::randomVector;
using Complex = std::complex<long double>;

constexpr long double twoPi = 6.28318530717958647692528676655900577L;
constexpr double frequencies[] = {0, 0x1p-15, 0.0123, 0.125, 0.25, 0.3333, 0.5, 0.75, 0.96, 0x1.fffffep-1};

template <class S>
Complex valueOf(const S& x) {
    if constexpr (support::isComplex<S>) {
        return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
    } else {
        return static_cast<long double>(x);
    }
}

// The sum of x[n] exp(-i 2 pi rFreq n), and that of all magnitudes.
template <class S>
Complex spectrum(const std::vector<S>& x, long double rFreq) {
    Complex sum = 0;
    for (std::size_t n = 0; n < x.size(); ++n) {
        const long double turns = std::fmod(rFreq * static_cast<long double>(n), 1.0L);
        sum += valueOf(x[n]) * std::polar(1.0L, -twoPi * turns);
    }
    return sum;
}
template <class S>
long double magnitudes(const std::vector<S>& x) {
    long double sum = 0;
    for (const S& s : x) sum += std::abs(valueOf(s));
    return sum;
}

// A step turns what has been summed by a rotation whose parts are half an epsilon off, and rounds two products and two
// sums of each part: less than 4 epsilon together, of no more than the sum of all magnitudes. The lanes take some more.
long double tolerance(std::size_t len, long double all) {
    return (static_cast<long double>(len) / 4 + 3) * 4 * std::numeric_limits<Orb32f>::epsilon() * all;
}

template <class C>
Complex asComplex(C c) {
    return {static_cast<long double>(c.re), static_cast<long double>(c.im)};
}

constexpr int lengths[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 31, 64, 255, 1000, 4098};

template <class S>
void expectPlainSums(OrbStatus (*goertz)(const S*, int, Orb32fc*, Orb32f)) {
    for (const int len : lengths) {
        const auto x = randomVector<S>(static_cast<std::size_t>(len));
        for (const double frequency : frequencies) {
            Orb32fc value;
            ASSERT_EQ(goertz(x.data(), len, &value, static_cast<Orb32f>(frequency)), orbStsNoErr);
            const Complex exact = spectrum(x, static_cast<Orb32f>(frequency));
            EXPECT_LE(std::abs(asComplex(value) - exact), tolerance(x.size(), magnitudes(x)))
                << nameOf(goertz) << ", len " << len << ", frequency " << frequency;
        }
    }
}

TEST(Goertz, SumsInSinglePrecision) {
    expectPlainSums(orbsGoertz_32f);
    expectPlainSums(orbsGoertz_32fc);
}

// exp(i theta len) times the sum. A step rounds by less than 4 epsilon of a state, and states and what becomes of an
// error answer to the input by sin(k theta) / sin(theta), k up to len. The angle is an epsilon of 2 pi off at most.
TEST(Goertz, RecursionInDoublePrecisionHasThePhaseOfTheEnd) {
    for (const int len : lengths) {
        const auto x = randomVector<Orb64fc>(static_cast<std::size_t>(len));
        const auto n = static_cast<long double>(len);
        for (const double frequency : frequencies) {
            Orb64fc value;
            ASSERT_EQ(orbsGoertz_64fc(x.data(), len, &value, frequency), orbStsNoErr);
            const Complex exact = spectrum(x, frequency) * std::polar(1.0L, twoPi * std::fmod(frequency * n, 1.0L));
            const long double response = std::min(n, 1 / std::abs(std::sin(twoPi * frequency)));
            EXPECT_LE(std::abs(asComplex(value) - exact), (4 + twoPi) * (n + 2) *
                                                              std::numeric_limits<Orb64f>::epsilon() * response *
                                                              response * magnitudes(x))
                << "len " << len << ", frequency " << frequency;
        }
    }
}

TEST(Goertz, OneSampleIsItsOwnSpectrum) {
    const Orb32fc x{-3.5f, std::numeric_limits<Orb32f>::infinity()};
    Orb32fc value;
    orbsGoertz_32fc(&x, 1, &value, 0.3f);
    EXPECT_TRUE(value.re == x.re && value.im == x.im);
    orbsGoertz_32f(&x.im, 1, &value, 0.3f);
    EXPECT_TRUE(value.re == x.im && value.im == 0);
    const Orb64fc y{2, 1};
    Orb64fc turned;
    orbsGoertz_64fc(&y, 1, &turned, 0.25);
    EXPECT_NEAR(turned.re, -1, 1e-15);
    EXPECT_NEAR(turned.im, 2, 1e-15);
}

TEST(Goertz, NanReachesTheResult) {
    for (std::size_t at : {0u, 5u, 12u}) {
        std::vector<Orb32fc> x(13);
        x[at].im = std::numeric_limits<Orb32f>::quiet_NaN();
        Orb32fc value;
        EXPECT_EQ(orbsGoertz_32fc(x.data(), 13, &value, 0.3f), orbStsNoErr);
        EXPECT_TRUE(value.im != value.im) << at;
    }
}

// Two frequencies in one pass are those of two calls, also where they lie far apart.
template <class C, class F>
void expectTwoAsOneByOne(OrbStatus (*two)(const C*, int, C*, const F*), OrbStatus (*one)(const C*, int, C*, F)) {
    for (const int len : lengths) {
        const auto x = randomVector<C>(static_cast<std::size_t>(len));
        for (std::size_t k = 0; k + 1 < std::size(frequencies); ++k) {
            const F rFreq[] = {static_cast<F>(frequencies[k]), static_cast<F>(frequencies[k + 1])};
            C both[2], single[2];
            ASSERT_EQ(two(x.data(), len, both, rFreq), orbStsNoErr);
            for (int f : {0, 1}) one(x.data(), len, single + f, rFreq[f]);
            ASSERT_TRUE(support::sameBits(both, single, 2)) << nameOf(two) << ", len " << len << ", " << rFreq[0];
        }
    }
}
TEST(GoertzTwo, GivesTheBitsOfTwoCalls) {
    expectTwoAsOneByOne(orbsGoertzTwo_32fc, orbsGoertz_32fc);
    expectTwoAsOneByOne(orbsGoertzTwo_64fc, orbsGoertz_64fc);
}

// What the float member gives of the same samples, times 2^-s, to nearest and saturated.
template <class S, class F>
void expectScaledSums(OrbStatus (*goertz)(const S*, int, Orb16sc*, Orb32f, int),
                      OrbStatus (*inFloats)(const F*, int, Orb32fc*, Orb32f)) {
    for (const int len : {1, 7, 64, 1000}) {
        const auto x = randomVector<S>(static_cast<std::size_t>(len));
        std::vector<F> floats(x.size());
        for (std::size_t n = 0; n < x.size(); ++n) {
            if constexpr (support::isComplex<S>) {
                floats[n] = {static_cast<Orb32f>(x[n].re), static_cast<Orb32f>(x[n].im)};
            } else {
                floats[n] = x[n];
            }
        }
        for (const double frequency : frequencies) {
            const auto rFreq = static_cast<Orb32f>(frequency);
            Orb32fc sum;
            inFloats(floats.data(), len, &sum, rFreq);
            for (const int s : support::scaleFactors(-20, 27)) {
                const double factor = std::ldexp(1.0, -std::clamp(s, -127, 126));
                const Orb16sc want{member::nearest<Orb16s>(sum.re * factor), member::nearest<Orb16s>(sum.im * factor)};
                Orb16sc got;
                ASSERT_EQ(goertz(x.data(), len, &got, rFreq, s), orbStsNoErr);
                ASSERT_TRUE(support::sameBits(&got, &want, 1))
                    << support::callOf(goertz, len, rFreq, s) << " of " << sum.re << ", " << sum.im;
            }
        }
    }
}
TEST(Goertz, IntegersAreTheScaledSumOfFloats) {
    expectScaledSums(orbsGoertz_16s_Sfs, orbsGoertz_32f);
    expectScaledSums(orbsGoertz_16sc_Sfs, orbsGoertz_32fc);
}

// Ties go to even in every rounding mode of the caller, which holds again afterwards. Zeros stay zeros.
TEST(Goertz, IntegersAreRoundedToNearestInEveryMode) {
    const Orb16sc x[] = {{5, -3}, {0, 0}}, zero{};
    const int mode = std::fegetround();
    for (const int other : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        std::fesetround(other);
        Orb16sc value;
        orbsGoertz_16sc_Sfs(x, 2, &value, 0, 1);
        EXPECT_EQ(std::fegetround(), other);
        std::fesetround(mode);
        EXPECT_TRUE(value.re == 2 && value.im == -2) << value.re << ' ' << value.im;
        std::fesetround(other);
        for (const int s : {-200, -128, 200}) {
            orbsGoertz_16sc_Sfs(&zero, 1, &value, 0.4f, s);
            EXPECT_TRUE(value.re == 0 && value.im == 0) << s;
        }
    }
    std::fesetround(mode);
}

TEST(GoertzQ15, IsTheFrequencyOver32768) {
    const auto x = randomVector<Orb16sc>(37);
    for (const int q : {0, 1, 4096, 20000, 32767}) {
        const Orb16s rFreqQ15[] = {static_cast<Orb16s>(q), static_cast<Orb16s>(32767 - q)};
        const Orb32f rFreq[] = {static_cast<Orb32f>(q) / 32768, static_cast<Orb32f>(32767 - q) / 32768};
        Orb16sc got[2], want[2];
        EXPECT_EQ(orbsGoertzTwoQ15_16sc_Sfs(x.data(), 37, got, rFreqQ15, 4), orbStsNoErr);
        orbsGoertzTwo_16sc_Sfs(x.data(), 37, want, rFreq, 4);
        EXPECT_TRUE(support::sameBits(got, want, 2)) << q;
        EXPECT_EQ(orbsGoertzQ15_16sc_Sfs(x.data(), 37, got, rFreqQ15[1], 4), orbStsNoErr);
        orbsGoertz_16sc_Sfs(x.data(), 37, want, rFreq[1], 4);
        EXPECT_TRUE(support::sameBits(got, want, 1)) << q;
    }
}

// The sweep spoils the first frequency of an array.
TEST(GoertzTwo, RefusesABadSecondFrequency) {
    const Orb32f rFreq[] = {0.5f, 1};
    const Orb64f nan[] = {0.5, std::numeric_limits<Orb64f>::quiet_NaN()};
    const Orb16s rFreqQ15[] = {3, -1};
    Orb32fc single[2] = {};
    Orb64fc twice[2] = {};
    EXPECT_EQ(orbsGoertzTwo_32fc(single, 2, single, rFreq), orbStsRelFreqErr);
    EXPECT_EQ(orbsGoertzTwo_64fc(twice, 2, twice, nan), orbStsRelFreqErr);
    EXPECT_EQ(orbsGoertzTwoQ15_16sc_Sfs(nullptr, 0, nullptr, rFreqQ15, 0), orbStsRelFreqErr);
}

} // namespace
