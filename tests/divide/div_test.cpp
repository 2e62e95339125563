// Div and DivCRev.
#include "support/member.h"

#include <xmmintrin.h>

namespace {

using namespace member;

// ---- The formulas ----

template <class R>
R extreme(std::int64_t sign) {
    return sign == 0 ? R{0} : sign > 0 ? std::numeric_limits<R>::max() : std::numeric_limits<R>::min();
}

// a / b in single precision: a reciprocal of 12 significant bits and two terms of the series.
float series(float a, float b) {
    int exponent;
    const float fraction = std::frexp(1 / b, &exponent);
    const float r = std::ldexp(std::trunc(std::fabs(fraction) * 4096 + 0.5f), exponent - 12) * (b < 0 ? -1.0f : 1.0f);
    const float e = 1 - b * r, q = a * r;
    return (q + q * e) + q * (e * e);
}

// a * 2^-s / b to the nearest integer, ties to even, in integers.
std::int64_t exactQuotient(std::int64_t a, std::int64_t b, int s) {
    const std::int64_t num = a << std::max(-s, 0), den = b << std::max(s, 0), floor = num / den, rest = num % den;
    return floor + (2 * rest > den || (2 * rest == den && floor % 2 != 0));
}

// Behind the cuts only signs count, and a zero divisor counts as positive.
struct Quotient {
    int zeroAbove, bySignBelow;

    template <class B, class A>
    B operator()(B b, A a, int s) const {
        if constexpr (support::isComplex<B>) {
            const double d = double(b.re) * b.re + double(b.im) * b.im;
            const double re = double(a.re) * b.re + double(a.im) * b.im, im = double(a.im) * b.re - double(a.re) * b.im;
            if (d == 0) return {0, 0};
            return {part<Orb16s>(re, d, s), part<Orb16s>(im, d, s)};
        } else {
            if (b == 0) return extreme<B>(a);
            if (s < bySignBelow && std::is_same_v<B, Orb16u>) return extreme<B>(1); // also for a dividend of 0
            return part<B>(a, b, s);
        }
    }
    template <class B, class A>
    OrbStatus status(B b, A, int) const {
        if constexpr (support::isComplex<B>) {
            return b.re == 0 && b.im == 0 ? orbStsDivByZero : orbStsNoErr;
        } else {
            return b == 0 ? orbStsDivByZero : orbStsNoErr;
        }
    }

private:
    template <class R, class A, class B>
    R part(A a, B b, int s) const {
        if (s > zeroAbove) return 0;
        if (s < bySignBelow) return extreme<R>(a < 0 ? (b < 0) - (b > 0) : a > 0 ? (b > 0) - (b < 0) : 0);
        if constexpr (sizeof(A) <= 2) {
            return nearest<R>(series(std::ldexp(static_cast<float>(a), -s), b));
        } else {
            return nearest<R>(std::ldexp(static_cast<double>(a), -s) / b);
        }
    }
};
constexpr Quotient of8u{8, -15}, of16u{16, -31}, of16s{15, -30}, of16sc{32, -32}, of32s{32, -62}, of32s16s{31, -29};

struct FloatQuotient {
    template <class T>
    T operator()(T b, T a, int) const {
        if constexpr (support::isComplex<T>) {
            const auto d = b.re * b.re + b.im * b.im;
            return {(a.re * b.re + a.im * b.im) / d, (a.im * b.re - a.re * b.im) / d};
        } else {
            return a / b;
        }
    }
    template <class T>
    OrbStatus status(T b, T, int) const {
        return of8u.status(b, b, 0);
    }
};

// Calls test(member, rule, parallelFrom) for all integer members, and for those on floats.
template <class Test>
void forEachInteger(Test test) {
    test(&orbsDiv_8u_Sfs, of8u, 1024);
    test(&orbsDiv_8u_ISfs, of8u, 1024);
    test(&orbsDiv_16u_Sfs, of16u, 2048);
    test(&orbsDiv_16u_ISfs, of16u, 2048);
    test(&orbsDiv_16s_Sfs, of16s, 1024);
    test(&orbsDiv_16s_ISfs, of16s, 1024);
    test(&orbsDiv_16sc_Sfs, of16sc, 256);
    test(&orbsDiv_16sc_ISfs, of16sc, 256);
    test(&orbsDiv_32s_Sfs, of32s, 1024);
    test(&orbsDiv_32s_ISfs, of32s, 1024);
    test(&orbsDiv_32s16s_Sfs, of32s16s, 1024);
    test(&orbsDivCRev_16u, of16u, 2048);
    test(&orbsDivCRev_16u_I, of16u, 2048);
}
template <class Test>
void forEachFloat(Test test) {
    test(&orbsDiv_32f, FloatQuotient(), 4096);
    test(&orbsDiv_32f_I, FloatQuotient(), 4096);
    test(&orbsDiv_32fc, FloatQuotient(), 1024);
    test(&orbsDiv_32fc_I, FloatQuotient(), 1024);
    test(&orbsDiv_64f, FloatQuotient(), 1024);
    test(&orbsDiv_64f_I, FloatQuotient(), 1024);
    test(&orbsDiv_64fc, FloatQuotient(), 1024);
    test(&orbsDiv_64fc_I, FloatQuotient(), 1024);
    test(&orbsDivCRev_32f, FloatQuotient(), 4096);
    test(&orbsDivCRev_32f_I, FloatQuotient(), 4096);
}

// ---- Values ----

TEST(Div, FollowsItsFormulaAtEveryScale) {
    const support::ThreadCount one(1);
    forEachInteger(
        [](auto function, Quotient rule, int) { expectScaled(function, rule, rule.bySignBelow, rule.zeroAbove); });
}

// Bytes: the series always comes to the nearest integer, and a tie to the even one.
TEST(Div, OfBytesIsExact) {
    const auto exact = [](Orb8u b, Orb8u a, int s) {
        if (b == 0) return extreme<Orb8u>(a);
        return static_cast<Orb8u>(std::min<std::int64_t>(exactQuotient(a, b, s), 255));
    };
    std::vector<Orb8u> a, b;
    for (int n = 256; n < 65536; ++n) b.push_back(static_cast<Orb8u>(n >> 8)), a.push_back(static_cast<Orb8u>(n));
    for (int s = -17; s <= 10; ++s) expect(&orbsDiv_8u_Sfs, exact, b, a, s);
}

// Every divisor of 16 bits with a dividend that makes a tie, where the reciprocal of 12 bits decides; and how far any
// quotient may lie from the exact one.
TEST(Div, Of16BitsIsTheSeriesThatItSays) {
    for (const int s : {0, 1, 4, -1, -8, -15, -30}) {
        std::vector<Orb16u> a, b;
        for (int y = 1; y < 65536; ++y) {
            b.push_back(static_cast<Orb16u>(y));
            a.push_back(static_cast<Orb16u>(y % 2 ? 7 * y : y / 2 * (1 + 2 * (y % 3))));
        }
        expect(&orbsDiv_16u_Sfs, of16u, b, a, s);
        std::vector<Orb16u> r(a.size());
        ASSERT_EQ(orbsDiv_16u_Sfs(b.data(), a.data(), r.data(), static_cast<int>(r.size()), s), orbStsNoErr);
        for (std::size_t n = 0; n < r.size(); ++n) {
            const double exact = std::min(std::ldexp(double(a[n]), -s) / b[n], 65535.0);
            ASSERT_LE(std::fabs(r[n] - exact), 0.5 + exact * 0x1p-22)
                << "Div_16u_Sfs: " << a[n] << " / " << b[n] << ", scale factor " << s;
        }
    }
}

TEST(Div, ByZero) {
    const auto divide = [](auto function, auto b, auto a, int s) {
        ResultOf<decltype(function)> r{};
        EXPECT_EQ(function(&b, &a, &r, 1, s), b == 0 ? orbStsDivByZero : orbStsNoErr);
        return r;
    };
    for (const int s : {0, 16, 1000, -31, -1000}) {
        EXPECT_EQ(divide(&orbsDiv_16s_Sfs, Orb16s{0}, Orb16s{5}, s), 32767);
        EXPECT_EQ(divide(&orbsDiv_16s_Sfs, Orb16s{0}, Orb16s{-5}, s), -32768);
        EXPECT_EQ(divide(&orbsDiv_16s_Sfs, Orb16s{0}, Orb16s{0}, s), 0);
    }
    EXPECT_EQ(divide(&orbsDiv_16u_Sfs, Orb16u{3}, Orb16u{0}, -32), 65535);
    EXPECT_EQ(divide(&orbsDiv_16u_Sfs, Orb16u{3}, Orb16u{0}, -31), 0);
    EXPECT_EQ(divide(&orbsDiv_16u_Sfs, Orb16u{0}, Orb16u{0}, -32), 0);
    EXPECT_EQ(divide(&orbsDiv_8u_Sfs, Orb8u{3}, Orb8u{0}, -16), 0);
}

TEST(Div, OfFloatsIsWhatTheProcessorDivides) {
    forEachFloat([](auto function, auto rule, int) { expectAsTheProcessor(function, rule); });
    // Only 0 warns: not what is small, a NaN, or complex with one part of 0.
    const Orb32f b[] = {std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::quiet_NaN()};
    const Orb32fc zb[] = {{0, 1e-30f}, {1e-30f, 0}};
    Orb32f r[] = {1, 1};
    Orb32fc zr[] = {{1, 1}, {1, 1}};
    EXPECT_EQ(orbsDiv_32f_I(b, r, 2), orbStsNoErr);
    EXPECT_EQ(orbsDiv_32fc_I(zb, zr, 2), orbStsNoErr);
}

// ---- Threads, and the state of the processor ----

TEST(Div, IsTheSameForEveryThreadCountAndRoundingMode) {
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD}) {
        std::fesetround(other);
        forEachFloat([](auto function, auto rule, int from) { expectThreaded(function, rule, from, 0); });
        forEachInteger([=](auto function, Quotient rule, int from) {
            using B = FirstOf<decltype(function)>;
            using A = SecondOf<decltype(function)>;
            struct ToNearest : Quotient {
                int other;
                B operator()(B b, A a, int s) const {
                    std::fesetround(FE_TONEAREST);
                    const B r = Quotient::operator()(b, a, s);
                    std::fesetround(other);
                    return r;
                }
            };
            for (const int s : {-8, 1}) expectThreaded(function, ToNearest{rule, other}, from, s);
        });
    }
    std::fesetround(mode);
}

TEST(Div, WarnsOfAZeroInEitherHalf) {
    const auto test = [](auto function, auto, int from) {
        using B = FirstOf<decltype(function)>;
        using A = SecondOf<decltype(function)>;
        const auto len = static_cast<std::size_t>(from) + 1;
        const B one = element<B>(Part<B>{1}, Part<B>{0});
        for (const int threads : {1, 2, 5}) {
            const support::ThreadCount count(threads);
            for (const std::size_t zero : {std::size_t{0}, len / 2 - 1, len / 2, len - 1, len}) {
                std::vector<B> b(len, one);
                if (zero < len) b[zero] = B{};
                std::vector<ResultOf<decltype(function)>> r(b.begin(), b.end());
                std::vector<A> a(len);
                const OrbStatus status =
                    Shape<decltype(function)>::call(function, b.data(), a.data(), r.data(), from + 1, 0);
                EXPECT_EQ(status, zero < len ? orbStsDivByZero : orbStsNoErr)
                    << callOf(function) << ", zero " << zero << " of " << len << ", " << threads << " threads";
            }
        }
    };
    forEachInteger(test);
    forEachFloat(test);
}

// Integer members neither trap nor leave flags.
TEST(Div, OfIntegersLeavesTheExceptionStateAlone) {
    const Orb16s b[] = {0, 3, 7}, a[] = {0, 32767, 100};
    Orb16s r[3];
    const unsigned callers = _mm_getcsr();
    _mm_setcsr((callers & ~0x3fu) & ~unsigned{_MM_MASK_MASK}); // every exception traps
    const OrbStatus status = orbsDiv_16s_Sfs(b, a, r, 3, -7);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(callers);
    EXPECT_EQ(after, (callers & ~0x3fu) & ~unsigned{_MM_MASK_MASK});
    EXPECT_EQ(status, orbStsDivByZero);
}

} // namespace
