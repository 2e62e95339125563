// StdDev and MeanStdDev.
#include "support/control.h"
#include "support/reduction.h"

namespace {

using namespace reduction;

struct Moments {
    Real mean = 0, variance = 0, size = 0; // size: the mean square
};

// In two passes, which cancel nothing.
template <class T>
Moments momentsOf(const std::vector<T>& x) {
    Moments m;
    const auto n = static_cast<Real>(x.size());
    for (const T t : x) m.mean += t;
    m.mean /= n;
    for (const T t : x) {
        m.variance += (t - m.mean) * (t - m.mean);
        m.size += static_cast<Real>(t) * t / n;
    }
    m.variance /= n - 1;
    return m;
}

template <class T>
struct Result {
    T mean = 0, deviation = 0;
};
Result<Orb32f> spread(const std::vector<Orb32f>& x, OrbHintAlgorithm hint) {
    Result<Orb32f> r;
    EXPECT_EQ(orbsMeanStdDev_32f(x.data(), static_cast<int>(x.size()), &r.mean, &r.deviation, hint), orbStsNoErr);
    const Orb32f alone = of(orbsStdDev_32f, x, hint);
    EXPECT_TRUE(support::sameValues(&alone, &r.deviation, 1));
    return r;
}
Result<Orb64f> spread(const std::vector<Orb64f>& x, OrbHintAlgorithm) {
    Result<Orb64f> r;
    EXPECT_EQ(orbsMeanStdDev_64f(x.data(), static_cast<int>(x.size()), &r.mean, &r.deviation), orbStsNoErr);
    const Orb64f alone = of(orbsStdDev_64f, x);
    EXPECT_TRUE(support::sameValues(&alone, &r.deviation, 1));
    return r;
}

template <class T>
void expectSpread(const std::vector<T>& x, OrbHintAlgorithm hint, Real varianceError) {
    const Moments m = momentsOf(x);
    const Result<T> r = spread(x, hint);
    const Real epsilon = std::numeric_limits<T>::epsilon();
    // the root of a variance that is off so much, then rounded
    const Real lowest = std::sqrt(std::max<Real>(m.variance - varianceError, 0)) * (1 - 2 * epsilon);
    const Real highest = std::sqrt(m.variance + varianceError) * (1 + 2 * epsilon);
    ASSERT_LE(lowest, r.deviation) << "hint " << hint << ", len " << x.size();
    ASSERT_GE(highest, r.deviation) << "hint " << hint << ", len " << x.size();
    ASSERT_NEAR(static_cast<double>(m.mean), r.mean,
                static_cast<double>(epsilon * std::fabs(m.mean) + varianceError / (std::sqrt(m.size) + 1e-30L)));
}

TEST(StdDev, OfWholeNumbersHasNoErrorButThatOfTheResult) {
    for (const std::size_t len : lengths(2)) {
        expectSpread(wholeNumbers<Orb32f>(len), orbAlgHintNone, 0);
        expectSpread(wholeNumbers<Orb32f>(len), orbAlgHintFast, 0);
        expectSpread(wholeNumbers<Orb64f>(len), orbAlgHintNone, 0);
    }
}

// Sums of squares are off by a rounding an element of the lane and the fold, of 16 lanes at least; twice that is the
// error of S2 * n - S1^2.
TEST(StdDev, LosesWhatTheSumsLose) {
    for (const Real offset : {0.0L, 1.0L, 1000.0L}) {
        for (const std::size_t len : {2u, 8u, 9u, 100u, 1024u, 5000u, 100003u}) {
            auto x = support::randomVector<Orb32f>(len);
            for (Orb32f& t : x) t += static_cast<Orb32f>(offset);
            const std::vector<Orb64f> y(x.begin(), x.end());
            const auto depth = [](std::size_t n) { return 2 * (static_cast<Real>(n) / 16 + 8); };
            const Real error = depth(len) * 0x1p-53L * momentsOf(x).size * 2;
            expectSpread(x, orbAlgHintNone, error);
            expectSpread(y, orbAlgHintNone, error);
            const bool single = len > 8;
            expectSpread(x, orbAlgHintFast,
                         single ? depth(std::min<std::size_t>(len, 1024)) * 0x1p-24L * momentsOf(x).size * 2 : error);
        }
    }
}

TEST(StdDev, OfEqualElementsIsZeroAndNeverNanOfFiniteOnes) {
    for (const Orb32f value : {0.1f, -1e30f, 3.3e-20f, 16777213.0f, 0.0f}) {
        for (const std::size_t len : lengths(2, 40000)) {
            const std::vector<Orb32f> x(len, value);
            ASSERT_EQ(spread(x, orbAlgHintNone).deviation, 0) << value << ", len " << len;
            ASSERT_EQ(spread(x, orbAlgHintFast).deviation, 0) << value << ", len " << len;
            ASSERT_EQ(spread(std::vector<Orb64f>(len, value / 3.0), 0).deviation, 0) << value << ", len " << len;
        }
    }
    EXPECT_NEAR(spread(std::vector<Orb32f>{1e38f, -1e38f}, 0).deviation, 1.4142136e38f, 1e32f);
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(spread(std::vector{1e200, 3e200}, 0).deviation, infinity); // the squares are beyond double precision
    EXPECT_EQ(spread(std::vector{1e200, 1e200}, 0).deviation, 0);
    EXPECT_NEAR(spread(std::vector{0x1p511, -0x1p510}, 0).deviation / 0x1p510, std::sqrt(4.5), 1e-15);
    EXPECT_NEAR(spread(std::vector{0x1p-480, -0x1p-481}, 0).deviation / 0x1p-481, std::sqrt(4.5), 1e-15);
    for (std::size_t at = 0; at < 100; ++at) {
        std::vector<Orb32f> x(100, 1);
        x[at] = std::numeric_limits<Orb32f>::quiet_NaN();
        EXPECT_TRUE(std::isnan(spread(x, orbAlgHintNone).deviation));
        EXPECT_TRUE(std::isnan(spread(x, orbAlgHintFast).deviation));
    }
}

// ---- 16 bits ----

// The nearest integer, limited to R; either of two where the exact value lies as near to their middle as the roots of
// long double are exact.
template <class R>
void expectNearest(Orb32s got, Real exact, const std::string& what) {
    const Real limited = std::clamp<Real>(exact, std::numeric_limits<R>::min(), std::numeric_limits<R>::max());
    ASSERT_LE(std::fabs(static_cast<Real>(got) - limited), 0.5L + std::fabs(limited) * 0x1p-50L) << what;
    if (limited - std::floor(limited) == 0.5L) { ASSERT_EQ(got % 2, 0) << what; }
}

void expectSpread16(const std::vector<Orb16s>& x) {
    const Moments m = momentsOf(x);
    const int len = static_cast<int>(x.size());
    for (const int s : support::scaleFactors(-34, 34)) {
        const Real factor = std::ldexp(1.0L, -std::clamp(s, -300, 300)), deviation = std::sqrt(m.variance) * factor;
        const std::string what = callOf(orbsMeanStdDev_16s32s_Sfs, s) + ", len " + std::to_string(len);
        Result<Orb32s> wide;
        Result<Orb16s> narrow;
        ASSERT_EQ(orbsMeanStdDev_16s32s_Sfs(x.data(), len, &wide.mean, &wide.deviation, s), orbStsNoErr);
        ASSERT_EQ(orbsMeanStdDev_16s_Sfs(x.data(), len, &narrow.mean, &narrow.deviation, s), orbStsNoErr);
        expectNearest<Orb32s>(wide.mean, m.mean * factor, what);
        expectNearest<Orb32s>(wide.deviation, deviation, what);
        expectNearest<Orb16s>(narrow.mean, m.mean * factor, what);
        expectNearest<Orb16s>(narrow.deviation, deviation, what);
        ASSERT_EQ(of(orbsStdDev_16s32s_Sfs, x, s), wide.deviation) << what;
        ASSERT_EQ(of(orbsStdDev_16s_Sfs, x, s), narrow.deviation) << what;
    }
}

TEST(StdDev, Of16BitsIsExactUnderAnyOffset) {
    for (const std::size_t len : lengths(2)) {
        auto x = support::randomVector<Orb16s>(len);
        expectSpread16(x);
        x.assign(len, 32767); // one that differs among them, of which scaled up much is seen
        x[len / 2] = 32766;
        expectSpread16(x);
        x.assign(len, -32768);
        expectSpread16(x);
        for (std::size_t n = 0; n < len; n += 2) x[n] = 32767;
        expectSpread16(x);
    }
}

TEST(StdDev, Of16BitsRoundsToNearestInEveryMode) {
    const std::vector<Orb16s> x{1, 2, 2, 9, -5};
    Result<Orb32s> nearest;
    orbsMeanStdDev_16s32s_Sfs(x.data(), 5, &nearest.mean, &nearest.deviation, -4);
    for (const Orb32u mode : support::roundingModes) {
        Result<Orb32s> r;
        support::inMode(mode, [&] { return orbsMeanStdDev_16s32s_Sfs(x.data(), 5, &r.mean, &r.deviation, -4); });
        EXPECT_EQ(r.mean, nearest.mean) << mode;
        EXPECT_EQ(r.deviation, nearest.deviation) << mode;
    }
}

} // namespace
