#include "support/unary_member.h"

#include <xmmintrin.h>

namespace {

using namespace unary_member;

constexpr Orb64s greatest64 = std::numeric_limits<Orb64s>::max(), least64 = std::numeric_limits<Orb64s>::min();

// ---- Integers ----

// e^x * 2^-s, where e^x is 0 or infinite as in double precision, and so is 2^-s.
long double power(Orb64s x, int s) {
    const long double factor = std::ldexp(1.0L, -std::clamp(s, -2000, 2000));
    if (x < -745 || s > 1074) return 0;
    if (x > 709 || s < -1023) return std::numeric_limits<long double>::infinity();
    return std::exp(static_cast<long double>(x)) * factor;
}
long double rounded53(long double y) {
    int exponent;
    const long double fraction = std::frexp(y, &exponent);
    return std::isfinite(y) ? std::ldexp(std::nearbyint(std::ldexp(fraction, 53)), exponent - 53) : y;
}
template <class T>
T halfUp(T x, int s) {
    const long double y = power(x, s);
    constexpr T greatest = std::numeric_limits<T>::max();
    return y > greatest ? greatest : static_cast<T>(std::floor(y + 0.5L));
}

// Every argument around those with a result, and the ends of the type.
template <class T>
std::vector<T> arguments(int s) {
    using Limits = std::numeric_limits<T>;
    const int middle = static_cast<int>(std::clamp(s, -1200, 1200) * std::log(2.0L));
    std::vector<T> x{Limits::min(), Limits::min() + 1, Limits::max() - 1, Limits::max(), -746, -745, 709, 710};
    for (int v = -80; v <= 80; ++v) {
        x.push_back(static_cast<T>(v));
        x.push_back(static_cast<T>(middle + v));
    }
    return x;
}

TEST(Exp, SixteenBitIntegers) {
    const auto all = everyValue<Orb16s>();
    for (int s = -1100; s <= 1100; s += s > -40 && s < 40 ? 1 : 53) {
        const auto x = s >= -18 && s <= 18 ? all : arguments<Orb16s>(s);
        expectRule(&orbsExp_16s_Sfs, x, halfUp<Orb16s>, s);
        expectRule(&orbsExp_16s_ISfs, x, halfUp<Orb16s>, s);
    }
    EXPECT_EQ(call(&orbsExp_16s_Sfs, {0, 1, 25, -1}, 1).y, (std::vector<Orb16s>{1, 1, 32767, 0})); // a half goes up
    EXPECT_EQ(call(&orbsExp_16s_Sfs, {-12, -11, -1, 0}, -16).y, (std::vector<Orb16s>{0, 1, 24109, 32767}));
}

TEST(Exp, ThirtyTwoBitIntegers) {
    for (int s = -1100; s <= 1100; s += s > -40 && s < 40 ? 1 : 7) {
        expectRule(&orbsExp_32s_Sfs, arguments<Orb32s>(s), halfUp<Orb32s>, s);
        expectRule(&orbsExp_32s_ISfs, arguments<Orb32s>(s), halfUp<Orb32s>, s);
    }
    for (const int s : {std::numeric_limits<int>::min(), -1024, -1023, 1074, 1075, std::numeric_limits<int>::max()}) {
        expectRule(&orbsExp_32s_Sfs, arguments<Orb32s>(s), halfUp<Orb32s>, s);
        expectRule(&orbsExp_16s_Sfs, arguments<Orb16s>(s), halfUp<Orb16s>, s);
    }
}

TEST(Exp, SixtyFourBitIntegersByTable) {
    const std::vector<Orb64s> x{0, 1, 2, 3, 4, 5, 42, 43, 44, 45, 1000, greatest64, -1, -2, -32768};
    EXPECT_EQ(call(&orbsExp_64s_Sfs, x, 0).y,
              (std::vector<Orb64s>{1, 3, 7, 20, 55, 148, 1739274941520501047, 4727839468229346561, greatest64,
                                   greatest64, greatest64, greatest64, 0, 0, 0}));
    EXPECT_EQ(call(&orbsExp_64s_Sfs, x, 1).y,
              (std::vector<Orb64s>{1, 2, 4, 10, 28, 74, 869637470760250524, 2363919734114673281, 6425800057179654138,
                                   greatest64, greatest64, greatest64, 0, 0, 0}));
    EXPECT_EQ(call(&orbsExp_64s_ISfs, x, -1).y,
              (std::vector<Orb64s>{2, 6, 14, 40, 110, 296, 3478549883041002094, greatest64, greatest64, greatest64,
                                   greatest64, greatest64, 1, 0, 0}));
    // Below 45 only the low 16 bits count: the sign is bit 15. No table is read beyond its end.
    const std::vector<Orb64s> beyond{-65536 + 5, -65536 + 44, -65536 + 1000, -32769, least64, least64 + 0x8000};
    EXPECT_EQ(call(&orbsExp_64s_Sfs, beyond, 0).y,
              (std::vector<Orb64s>{148, greatest64, greatest64, greatest64, 1, 0}));
}

// Other scale factors: e^x as a double, scaled, and cut off.
TEST(Exp, SixtyFourBitIntegersAreTruncated) {
    const auto truncated = [](Orb64s x, int s) {
        const long double product = rounded53(power(x, s));
        return product >= 0x1p63L ? greatest64 : static_cast<Orb64s>(product);
    };
    for (int s = -1100; s <= 1100; s += s > -70 && s < 70 ? 1 : 29) {
        if (s >= -1 && s <= 1) continue;
        const auto x = arguments<Orb64s>(s);
        expectRule(&orbsExp_64s_Sfs, x, truncated, s);
        expectRule(&orbsExp_64s_ISfs, x, truncated, s);
    }
    EXPECT_EQ(call(&orbsExp_64s_Sfs, {0, 1, 2}, -2).y, (std::vector<Orb64s>{4, 10, 29})); // 10.87, 29.56
}

// ---- Floats ----

const auto exactExp = [](long double x) { return std::exp(x); };
constexpr Orb32f infinity = std::numeric_limits<Orb32f>::infinity();

TEST(Exp, SpecialFloats) {
    const std::pair<Orb32u, Orb32u> table[] = {
        {0x7fc12345, 0x7fc00000}, {0xffc12345, 0x7fc00000}, {0x7f812345, 0x7fc00000}, {0x7f800000, 0x7f800000},
        {0xff800000, 0x00000000}, {0x7f7fffff, 0x7f800000}, {0xff7fffff, 0x00000000}, {0x42b17218, 0x7f800000},
        {0x42b17217, 0x7f7fff84}, {0xc2cff1b5, 0x00000000}, {0xc2cff1b4, 0x00000001}, {0x80000000, 0x3f800000},
        {0x00000001, 0x3f800000},
    };
    for (const auto& [x, y] : table) {
        const std::vector<Orb32f> from{fromBits<Orb32f>(x)}, want{fromBits<Orb32f>(y)};
        EXPECT_TRUE(sameBits(call(&orbsExp_32f, from).y, want, from)) << "Exp_32f";
        EXPECT_TRUE(sameBits(call(&orbsExp_32f_I, from).y, want, from)) << "Exp_32f_I";
    }
}

TEST(Exp, SpecialDoubles) {
    const Orb64f nan = fromBits<Orb64f>(Orb64u{0xfff8000000012345}),
                 signalling = fromBits<Orb64f>(Orb64u{0x7ff0000000012345});
    const Orb64f largest = std::numeric_limits<Orb64f>::max();
    const std::vector<Orb64f> x{nan, signalling, infinity, -infinity, largest, -largest, 710, -746, 0, -0.0, 0x1p-1074};
    const auto y = call(&orbsExp_64f, x).y;
    EXPECT_EQ(asBits<Orb64u>(y[0]), 0xfff8000000012345u);
    EXPECT_EQ(asBits<Orb64u>(y[1]), 0x7ff8000000012345u);
    EXPECT_EQ((std::vector<Orb64f>{y.begin() + 2, y.end()}),
              (std::vector<Orb64f>{infinity, 0, infinity, 0, infinity, 0, 1, 1, 1}));
    EXPECT_TRUE(sameBits(call(&orbsExp_64f_I, x).y, y));

    const auto wide =
        call(&orbsExp_32f64f, {0.0f, 1.0f, -700.0f, 89.0f, infinity, -infinity, fromBits<Orb32f>(0x7fc00000)}).y;
    const auto twice = call(&orbsExp_64f, {0.0, 1.0, -700.0, 89.0, infinity, -infinity}).y;
    EXPECT_TRUE(std::equal(twice.begin(), twice.end(), wide.begin()));
    EXPECT_NE(wide[6], wide[6]);
}

// A sample of what docs/accuracy.md measures, with the results that are subnormal.
TEST(Exp, Accuracy) {
    for (const Orb32u sign : {0x00000000u, 0x80000000u}) {
        const auto all = patterns<Orb32f, Orb32u>(sign, sign + 0x7f800000, 200000);
        expectWithin(1, &orbsExp_32f, all, exactExp);
        expectWithin(1, &orbsExp_32f, patterns<Orb32f, Orb32u>(sign + 0x3f000000, sign + 0x42d00000, 400000), exactExp);
    }
    expectWithin(1, &orbsExp_32f, patterns<Orb32f, Orb32u>(0xc2ae0000, 0xc2d00000, 200000), exactExp);
    for (const Orb64u sign : {Orb64u{0}, Orb64u{1} << 63}) {
        const Orb64u smallest = sign + 0x3e00000000000000, largest = sign + 0x4087500000000000;
        expectWithin(0.76, &orbsExp_64f, patterns<Orb64f, Orb64u>(smallest, largest, 200000), exactExp);
        const Orb64u odd = sign + 0x4086000000000000;
        expectWithin(0.76, &orbsExp_64f, patterns<Orb64f, Orb64u>(odd, largest, 200000), exactExp);
    }
}

TEST(Exp, SpecialElementsChangeNoOthers) {
    const auto x = patterns<Orb32f, Orb32u>(0x3f000000, 0x42ae0000, 600);
    const auto x64 = patterns<Orb64f, Orb64u>(0xbfe0000000000000, 0xc086000000000000, 600);
    expectSameBeside(&orbsExp_32f, x, -100.0f);
    expectSameBeside(&orbsExp_32f_I, x, infinity);
    expectSameBeside(&orbsExp_64f, x64, -740.0);
    expectSameBeside(&orbsExp_64f_I, x64, 1000.0);
    expectSameBeside(&orbsExp_32f64f, x, -1000.0f);
}

// The exceptions that Exp_32f meets neither trap nor show, and no rounding mode changes a result.
TEST(Exp, LeavesTheControlRegisterAsItWas) {
    const Orb32u callers = _mm_getcsr();
    std::vector<Orb32f> x{1, 0.1f, 100, -100, -200, infinity, fromBits<Orb32f>(0x7f812345)};
    const auto nearest = call(&orbsExp_32f, x).y;
    const auto nearest64 = call(&orbsExp_32f64f, x).y;
    constexpr Orb32u overflowRaised = 0x08;
    for (const Orb32u rounding : {0x0000u, 0x2000u, 0x4000u, 0x6000u}) {
        std::vector<Orb32f> y(x.size());
        std::vector<Orb64f> y64(x.size());
        _mm_setcsr(rounding | overflowRaised); // everything would trap
        orbsExp_32f(x.data(), y.data(), static_cast<int>(x.size()));
        const Orb32u after = _mm_getcsr();
        _mm_setcsr(0x1f80 | rounding);
        orbsExp_32f64f(x.data(), y64.data(), static_cast<int>(x.size()));
        const Orb32u after64 = _mm_getcsr();
        _mm_setcsr(callers);
        EXPECT_EQ(after, rounding | overflowRaised);
        EXPECT_EQ(after64 & 0x7f80, 0x1f80 | rounding);
        EXPECT_TRUE(sameBits(y, nearest));
        EXPECT_TRUE(sameBits(y64, nearest64));
    }
}

} // namespace
