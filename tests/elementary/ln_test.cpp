#include "elementary/ln_table.h"
#include "support/unary_member.h"

namespace {

using namespace unary_member;

constexpr Orb32s least32 = std::numeric_limits<Orb32s>::min(), greatest32 = std::numeric_limits<Orb32s>::max();

// ---- Integers ----

// What a ladder gives: the integer nearest to the logarithm, in steps of 2^scaleFactor.
int nearest(long double ln, int scaleFactor) {
    return static_cast<int>(std::floor(std::ldexp(ln, -scaleFactor) + 0.5L));
}
template <class T>
T saturated(long double y) {
    return static_cast<T>(
        std::clamp<long double>(std::nearbyint(y), std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

// A scale factor below 0: exact but for the logarithm in single precision, which is 2 of its last places off at most.
template <class Member, class S>
void expectScaled(Member member, const std::vector<S>& x, int scaleFactor, long double factor = 1) {
    const auto got = call(member, x, scaleFactor);
    using R = typename decltype(got.y)::value_type;
    for (std::size_t n = 0; n < x.size(); ++n) {
        if (x[n] <= 0) {
            ASSERT_EQ(got.y[n], std::numeric_limits<R>::min()) << callOf(member, scaleFactor) << " of " << x[n];
            continue;
        }
        const long double exact = std::ldexp(factor * std::log(static_cast<long double>(x[n])), -scaleFactor);
        const long double slack = exact * 4 * std::numeric_limits<Orb32f>::epsilon();
        ASSERT_GE(got.y[n], saturated<R>(exact - slack)) << callOf(member, scaleFactor) << " of " << x[n];
        ASSERT_LE(got.y[n], saturated<R>(exact + slack)) << callOf(member, scaleFactor) << " of " << x[n];
    }
}

// Small numbers, numbers of all magnitudes, and what lies around every threshold e^(k/2 * step).
std::vector<Orb32s> arguments32(long double step) {
    std::vector<Orb32s> x{0, -1, least32, greatest32, greatest32 - 1};
    for (int v = 1; v < 3000; ++v) x.push_back(v);
    for (int k = 1; k * step / 2 < 21.48L; ++k)
        for (int near = -1; near <= 2; ++near) x.push_back(static_cast<Orb32s>(std::exp(k * step / 2)) + near);
    support::Random random(1);
    for (int k = 0; k < 20000; ++k) x.push_back(static_cast<Orb32s>(random() >> (33 + k % 31)));
    return x;
}

TEST(Ln, EverySixteenBitIntegerAtEveryScaleFactor) {
    const auto x = everyValue<Orb16s>();
    for (const int s : {-1000, -17, -16, -15, -14, 0, 1, 2, 3, 4, 5, 40, greatest32, least32}) {
        expectRule(
            &orbsLn_16s_Sfs, x,
            [](Orb16s v, int scale) -> Orb16s {
                if (v <= 0) return -32768;
                const long double ln = std::log(static_cast<long double>(v));
                if (scale < 0) return saturated<Orb16s>(std::ldexp(ln, -std::max(scale, -100)));
                return static_cast<Orb16s>(nearest(ln, std::min(scale, 100)));
            },
            s);
    }
    for (int s = -13; s < 0; ++s) expectScaled(&orbsLn_16s_Sfs, x, s);
    for (const int s : {-15, -9, 0, 2}) EXPECT_EQ(call(&orbsLn_16s_ISfs, x, s).y, call(&orbsLn_16s_Sfs, x, s).y);
}

TEST(Ln, LaddersOfLargeIntegersAreShiftedWithoutRounding) {
    const auto x = arguments32(1);
    const auto rule = [](Orb32s v, int s) {
        return v <= 0 ? least32 : nearest(std::log(static_cast<long double>(v)), 0) >> std::min(s, 31);
    };
    for (const int s : {0, 1, 2, 3, 4, 5, 31, 32, 1000, greatest32}) {
        expectRule(&orbsLn_32s_Sfs, x, rule, s);
        expectRule(&orbsLn_32s_ISfs, x, rule, s);
        expectRule(
            &orbsLn_32s16s_Sfs, x,
            [&](Orb32s v, int scale) { return static_cast<Orb16s>(v <= 0 ? -32768 : rule(v, scale)); }, s);
    }
    EXPECT_EQ(call(&orbsLn_32s_Sfs, {10, 33}, 1).y, (std::vector<Orb32s>{1, 1})); // 2.30 and 3.497: 2 >> 1 and 3 >> 1
    EXPECT_EQ(call(&orbsLn_16s_Sfs, {10, 33}, 1).y, (std::vector<Orb16s>{1, 2})); // 1.15 and 1.749 rounded
}

TEST(Ln, LargeIntegersAtNegativeScaleFactors) {
    const auto x = arguments32(1);
    for (const int s : {-1, -8, -14, -20, -26, -27, -28, -31, -32, -64, -1000, least32}) {
        expectScaled(&orbsLn_32s_Sfs, x, std::max(s, -1000));
        EXPECT_EQ(call(&orbsLn_32s_ISfs, x, s).y, call(&orbsLn_32s_Sfs, x, std::max(s, -1000)).y);
        expectScaled(&orbsLn_32s16s_Sfs, x, std::max(s, -1000));
    }
    EXPECT_EQ(call(&orbsLn_32s16s_Sfs, {1, 2, 3, greatest32}, least32).y,
              (std::vector<Orb16s>{0, 32767, 32767, 32767}));
    EXPECT_EQ(call(&orbsLn_32s16s_Sfs, {1, 2, 3, greatest32}, -15).y, (std::vector<Orb16s>{0, 22713, 32767, 32767}));
}

TEST(TenLog10, NearestDecibelsButForSeven) {
    const auto x = arguments32(std::log(10.0L) / 10);
    const auto rule = [](Orb32s v, int s) {
        if (v <= 0) return least32;
        const int steps = v == 7 ? 9 : nearest(10 * std::log10(static_cast<long double>(v)), 0);
        return steps >> std::min(s, 31);
    };
    for (const int s : {0, 1, 2, 3, 6, 7, 31, 32, greatest32}) {
        expectRule(&orbs10Log10_32s_Sfs, x, rule, s);
        expectRule(&orbs10Log10_32s_ISfs, x, rule, s);
    }
    for (const int s : {-1, -4, -16, -24, -25, -26, -31, -40})
        expectScaled(&orbs10Log10_32s_Sfs, x, s, 10 / std::log(10.0L));
    EXPECT_EQ(call(&orbs10Log10_32s_Sfs, {1, 2, 3, 4, 5, 6, 7, 8, 9, 1000, greatest32}, 0).y,
              (std::vector<Orb32s>{0, 3, 5, 6, 7, 8, 9, 9, 10, 30, 93}));
}

// ---- Warnings ----

template <class Member, class T, class... Scale>
void expectFirstDecides(Member member, T zero, T negative, Scale... scaleFactor) {
    for (const std::size_t len : {3, 9, 17, 40, 255, 256, 257, 513, 800}) {
        std::vector<T> x(len, T(2));
        EXPECT_EQ(call(member, x, scaleFactor...).status, orbStsNoErr);
        for (const std::size_t first : {std::size_t{0}, len / 3, len / 2, len - 2}) {
            for (const std::size_t second : {first + 1, len - 1}) {
                x.assign(len, T(2));
                x[second] = negative;
                x[first] = zero;
                EXPECT_EQ(call(member, x, scaleFactor...).status, orbStsLnZeroArg)
                    << callOf(member, scaleFactor...) << ", " << first << " of " << len;
                x[first] = negative;
                x[second] = zero;
                EXPECT_EQ(call(member, x, scaleFactor...).status, orbStsLnNegArg)
                    << callOf(member, scaleFactor...) << ", " << first << " of " << len;
            }
        }
    }
}

TEST(Ln, TheFirstBadArgumentDecidesTheWarning) {
    for (const int s : {-1000, -15, -14, -3, 0, 2, 1000}) {
        expectFirstDecides(&orbsLn_16s_Sfs, Orb16s{0}, Orb16s{-1}, s);
        expectFirstDecides(&orbsLn_16s_ISfs, Orb16s{0}, Orb16s{-32768}, s);
        expectFirstDecides(&orbsLn_32s_Sfs, 0, -1, s);
        expectFirstDecides(&orbsLn_32s_ISfs, 0, least32, s);
        expectFirstDecides(&orbsLn_32s16s_Sfs, 0, -1, s);
        expectFirstDecides(&orbs10Log10_32s_Sfs, 0, -1, s);
        expectFirstDecides(&orbs10Log10_32s_ISfs, 0, -1, s);
    }
    expectFirstDecides(&orbsLn_32f, 0.0f, -0.0f);
    expectFirstDecides(&orbsLn_32f_I, 0.0f, -1.0f);
    expectFirstDecides(&orbsLn_64f, 0.0, -0.0);
    expectFirstDecides(&orbsLn_64f_I, 0.0, -1.0);
    expectFirstDecides(&orbsLn_64f32f, 0.0, -1.0);
}

// ---- Floats ----

TEST(Ln, SpecialFloats) {
    const std::pair<Orb32u, Orb32u> table[] = {
        {0x00000000, 0xff800000}, {0x80000000, 0xffc00000}, {0xff800000, 0xffc00000}, {0xbf800000, 0xffc00000},
        {0xffc12345, 0xffc00000}, {0x80000001, 0xffc00000}, {0x7fc12345, 0x7fc12345}, {0x7f812345, 0x7fc12345},
        {0x7f800000, 0x7f800000}, {0x3f800000, 0x00000000},
    };
    for (const auto& [x, y] : table) {
        const auto got = call(&orbsLn_32f, {fromBits<Orb32f>(x)});
        const bool negative = x >> 31, zero = x == 0;
        EXPECT_TRUE(sameBits(got.y, std::vector{fromBits<Orb32f>(y)})) << std::hex << x;
        EXPECT_EQ(got.status, zero ? orbStsLnZeroArg : negative ? orbStsLnNegArg : orbStsNoErr) << std::hex << x;
    }
}

// In double precision the high word alone is looked at, and there are no special results.
TEST(Ln, SpecialDoubles) {
    struct Row {
        Orb64u x;
        OrbStatus status;
        Orb32u single;
    };
    const Row table[] = {
        {0x0000000000000000, orbStsLnZeroArg, 0xff800000}, {0x00000000ffffffff, orbStsLnZeroArg, 0xff800000},
        {0x8000000000000000, orbStsLnNegArg, 0xffc00000},  {0xbff0000000000000, orbStsLnNegArg, 0xffc00000},
        {0xfff0000000000000, orbStsLnNegArg, 0xffc00000},  {0xfff8000000000000, orbStsLnNegArg, 0xffc00000},
        {0x80000000ffffffff, orbStsLnNegArg, 0xffc00000},  {0x7ff0000000000000, orbStsNoErr, 0x7f800000},
        {0x7ff8000000012345, orbStsNoErr, 0x7f800000},     {0x7ff0000000000001, orbStsNoErr, 0x7f800000},
        {0x3ff0000000000000, orbStsNoErr, 0x00000000},
    };
    for (const Row& row : table) {
        const std::vector<Orb64f> x{fromBits<Orb64f>(row.x)};
        const auto twice = call(&orbsLn_64f, x), inPlace = call(&orbsLn_64f_I, x);
        const auto single = call(&orbsLn_64f32f, x);
        EXPECT_TRUE(sameBits(twice.y, std::vector{0.0}, x)) << "Ln_64f";
        EXPECT_TRUE(sameBits(inPlace.y, std::vector{0.0}, x)) << "Ln_64f_I";
        EXPECT_TRUE(sameBits(single.y, std::vector{fromBits<Orb32f>(row.single)}, x)) << "Ln_64f32f";
        EXPECT_EQ(twice.status, row.status);
        EXPECT_EQ(inPlace.status, row.status);
        EXPECT_EQ(single.status, row.status);
    }
    const auto got = call(&orbsLn_64f, {0x1p-1042, 0x1.8p-1030});
    EXPECT_EQ(got.status, orbStsNoErr);
    EXPECT_LT(ulps(got.y[0], std::log(0x1p-1042L)), 1);
    EXPECT_LT(ulps(got.y[1], std::log(0x1.8p-1030L)), 1);
}

const auto exactLn = [](long double x) { return std::log(x); };

// A sample of what docs/accuracy.md measures.
TEST(Ln, Accuracy) {
    const auto all = patterns<Orb32f, Orb32u>(1, 0x7f7fffff, 400000);
    expectWithin(1.97, &orbsLn_32f, all, exactLn);
    expectWithin(1.97, &orbsLn_32f, patterns<Orb32f, Orb32u>(0x3f000000, 0x40000000, 400000), exactLn);
    const Orb64u smallest = 0x0000000100000000, greatest = 0x7fefffffffffffff;
    expectWithin(0.77, &orbsLn_64f, patterns<Orb64f, Orb64u>(smallest, greatest, 200000), exactLn);
    const auto nearOne = patterns<Orb64f, Orb64u>(0x3fe0000000000000, 0x4000000000000000, 200000);
    expectWithin(0.77, &orbsLn_64f, nearOne, exactLn);
    for (Orb64u distance = 1; distance < 0x0010000000000000; distance *= 16) {
        const Orb64u one = 0x3ff0000000000000;
        expectWithin(0.77, &orbsLn_64f, patterns<Orb64f, Orb64u>(one - 2 * distance, one + distance, 5000), exactLn);
    }
    const auto twice = call(&orbsLn_64f, nearOne).y;
    EXPECT_TRUE(sameBits(call(&orbsLn_64f32f, nearOne).y, std::vector<Orb32f>(twice.begin(), twice.end()), nearOne));
}

TEST(Ln, SpecialElementsChangeNoOthers) {
    const auto x = patterns<Orb32f, Orb32u>(0x00800000, 0x7f7fffff, 600);
    const auto x64 = patterns<Orb64f, Orb64u>(0x0010000000000000, 0x7fefffffffffffff, 600);
    expectSameBeside(&orbsLn_32f, x, 0.0f);
    expectSameBeside(&orbsLn_32f_I, x, -1.0f);
    expectSameBeside(&orbsLn_64f, x64, 0x1p-1030);
    expectSameBeside(&orbsLn_64f_I, x64, -1.0);
    expectSameBeside(&orbsLn_64f32f, x64, 0.0);
}

TEST(Ln, RowsOfTheTable) {
    using orbs::lnRows;
    EXPECT_EQ(lnRows.size(), 65u);
    EXPECT_TRUE(lnRows[0].reciprocal == 1 && lnRows[0].high == 0 && lnRows[0].low == 0);
    EXPECT_EQ(lnRows[1].reciprocal, 0.984619140625);
    EXPECT_NEAR(lnRows[1].high, 0.0155003718459739, 1e-16);
    EXPECT_NEAR(lnRows[1].low, 1.70895308583292e-15, 1e-29);
    // Just below 1 the last row has to cancel ln 2 without a rest.
    EXPECT_TRUE(lnRows[64].reciprocal == 0.5 && lnRows[64].high == 0x1.62e42fefa38p-1 &&
                lnRows[64].low == 0x1.ef35793c7673p-45);
}

} // namespace
