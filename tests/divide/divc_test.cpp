// DivC.
#include "support/member.h"

namespace {

using namespace member;

// ---- The formulas ----

struct Refusal {
    template <class T>
    OrbStatus status(T, T val, int) const {
        if constexpr (support::isComplex<T>) {
            const auto square = val.re * val.re + val.im * val.im;
            return square > 0 ? orbStsNoErr : orbStsDivByZeroErr;
        } else {
            return val > 0 || val < 0 ? orbStsNoErr : orbStsDivByZeroErr;
        }
    }
};

// By the single-precision reciprocal between the cuts.
struct Quotient : Refusal {
    template <class T>
    T operator()(T x, T val, int s) const {
        constexpr bool isSigned = std::is_signed_v<T>;
        constexpr int zeroAbove = sizeof(T) == 1 ? 8 : isSigned ? 15 : 16;
        constexpr int bySignBelow = sizeof(T) == 1 ? -15 : isSigned ? -30 : -31;
        if (val == 0 || s > zeroAbove) return 0;
        if (std::is_same_v<T, Orb16u> && s < bySignBelow) return std::numeric_limits<T>::max();
        if (std::is_same_v<T, Orb16u> && val == 1) return scaledTo<T>(x, s);
        if (s < bySignBelow) return nearest<T>(double(x) * val * 1e9);
        return nearest<T>(static_cast<float>(x) * (1.0f / val * std::ldexp(1.0f, -s)));
    }
};
struct ComplexQuotient : Refusal {
    Orb16sc operator()(Orb16sc x, Orb16sc val, int s) const {
        const double square = double(val.re) * val.re + double(val.im) * val.im;
        if (square == 0 || s > 15) return {0, 0};
        return s < -16 ? by<double>(x, val, std::ldexp(1 / square, std::min(-(s + 1), 1000) + 1))
                       : by<float>(x, val, static_cast<float>(std::ldexp(1 / square, -s)));
    }
    template <class Real>
    static Orb16sc by(Orb16sc x, Orb16sc val, Real reciprocal) {
        const Real re = val.re, im = val.im;
        return {nearest<Orb16s>((x.re * re + x.im * im) * reciprocal),
                nearest<Orb16s>((x.im * re - x.re * im) * reciprocal)};
    }
};
// A reciprocal of 1 or NaN copies, one of 0 clears.
struct FloatQuotient : Refusal {
    template <class T>
    T operator()(T x, T val, int) const {
        if constexpr (support::isComplex<T>) {
            const auto square = val.re * val.re + val.im * val.im, re = val.re / square, im = -val.im / square;
            return {x.re * re - x.im * im, x.re * im + x.im * re};
        } else {
            const T r = 1 / val;
            return !(r < 1 || r > 1) ? x : r == 0 ? 0 : x * r;
        }
    }
};

template <class Rule, class... Member>
void expectScaledAll(Rule rule, int lowest, int highest, Member... function) {
    (expectScaled(function, rule, lowest, highest), ...);
}

// ---- Values, among them a val of 0 at every scale factor ----

TEST(DivC, OfIntegersMultipliesByTheReciprocal) {
    const support::ThreadCount one(1);
    expectScaledAll(Quotient(), -16, 9, &orbsDivC_8u_Sfs, &orbsDivC_8u_ISfs);
    expectScaledAll(Quotient(), -32, 17, &orbsDivC_16u_Sfs, &orbsDivC_16u_ISfs);
    expectScaledAll(Quotient(), -31, 16, &orbsDivC_16s_Sfs, &orbsDivC_16s_ISfs);
    expectScaledAll(ComplexQuotient(), -50, 16, &orbsDivC_16sc_Sfs, &orbsDivC_16sc_ISfs);
}

TEST(DivC, OfComplexIntegersIsAccurate) {
    const auto x = support::randomVector<Orb16sc>(1000), val = support::randomVector<Orb16sc>(30, 7);
    for (const int s : {-30, -17, -16, -5, 0, 3}) {
        for (const Orb16sc v : val) {
            if (v.re == 0 && v.im == 0) continue;
            std::vector<Orb16sc> r(x.size());
            ASSERT_EQ(orbsDivC_16sc_Sfs(x.data(), v, r.data(), static_cast<int>(x.size()), s), orbStsNoErr);
            for (std::size_t n = 0; n < x.size(); ++n) {
                const long double square = std::ldexp(double(v.re) * v.re + double(v.im) * v.im, s);
                const auto close = [&](Orb16s got, long double one, long double other) {
                    const long double exact = std::clamp((one + other) / square, -32768.0L, 32767.0L);
                    // Four roundings of single precision: two products, their sum, and the reciprocal; and the product.
                    const long double most = 5 * 0x1p-24L * (std::fabs(one) + std::fabs(other)) / square;
                    ASSERT_LE(std::fabs(got - exact), 0.5L + std::min(most, 2.0L * 32768))
                        << "DivC_16sc_Sfs: " << support::shown(x[n]) << " / " << support::shown(v) << ", scale factor "
                        << s;
                };
                close(r[n].re, 1.0L * x[n].re * v.re, 1.0L * x[n].im * v.im);
                close(r[n].im, 1.0L * x[n].im * v.re, -1.0L * x[n].re * v.im);
            }
        }
    }
    // An exact 0 stays 0 however far it is scaled up.
    Orb16sc one{1, -3};
    ASSERT_EQ(orbsDivC_16sc_ISfs({3, 1}, &one, 1, -1000), orbStsNoErr);
    EXPECT_EQ(one.re, 0);
    EXPECT_EQ(one.im, -32768);
}

TEST(DivC, OfFloatsIsMulCByTheReciprocal) {
    expectAsTheProcessor(&orbsDivC_32f, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_32f_I, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_64f, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_64f_I, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_32fc, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_32fc_I, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_64fc, FloatQuotient());
    expectAsTheProcessor(&orbsDivC_64fc_I, FloatQuotient());
    Orb32f nan[] = {std::numeric_limits<float>::quiet_NaN(), 3};
    Orb32fc z{1, 1};
    EXPECT_EQ(orbsDivC_32f_I(std::numeric_limits<float>::quiet_NaN(), nan, 2), orbStsDivByZeroErr);
    EXPECT_EQ(orbsDivC_32fc_I({1e-30f, 1e-30f}, &z, 1), orbStsDivByZeroErr); // the squares vanish
    EXPECT_EQ(orbsDivC_32f_I(std::numeric_limits<float>::infinity(), nan, 2), orbStsNoErr);
    EXPECT_EQ(nan[0], 0);
}

// ---- Threads and modes ----

TEST(DivC, IsTheSameForEveryThreadCountAndRoundingMode) {
    const auto test = [](auto function, auto rule, int from) {
        std::vector<FirstOf<decltype(function)>> x, val;
        random<decltype(function)>(x, val, static_cast<std::size_t>(from) + 3);
        for (const int s : {-20, -3, 0, 1}) {
            std::vector<FirstOf<decltype(function)>> want(x);
            for (auto& element : want) element = rule(element, val[0], s);
            const int mode = std::fegetround();
            for (const int threads : {1, 2, 3}) {
                const support::ThreadCount count(threads);
                std::fesetround(threads == 2 ? FE_UPWARD : FE_TONEAREST);
                expectResults(function, want, x, val, s, rule.status(x[0], val[0], s));
            }
            std::fesetround(mode);
        }
    };
    test(&orbsDivC_8u_Sfs, Quotient(), 4096);
    test(&orbsDivC_16s_Sfs, Quotient(), 4096);
    test(&orbsDivC_16u_Sfs, Quotient(), 8192);
    test(&orbsDivC_16sc_Sfs, ComplexQuotient(), 1024);
}

// ---- Order of the tests: the shortcuts of Orb16u come first ----

TEST(DivC, SixteenBitUnsignedLooksOnlyAtWhatItNeeds) {
    Orb16u r[2] = {5, 6};
    EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 2, r, 2, 17), orbStsNoErr);
    EXPECT_EQ(r[1], 0);
    EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 2, r, 2, -32), orbStsNoErr);
    EXPECT_EQ(r[1], 65535);
    EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 2, nullptr, 0, 17), orbStsNullPtrErr);
    EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 2, r, 0, 17), orbStsSizeErr);
    EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 1, r, 2, 0), orbStsNullPtrErr);
    for (const int s : {17, -32, 0}) {
        EXPECT_EQ(orbsDivC_16u_Sfs(nullptr, 0, r, 0, s), orbStsNullPtrErr);
        EXPECT_EQ(orbsDivC_16u_Sfs(r, 0, r, 0, s), orbStsSizeErr);
        EXPECT_EQ(orbsDivC_16u_Sfs(r, 0, r, 2, s), orbStsDivByZeroErr);
    }
}

} // namespace
