// Sum and Mean.
#include "support/control.h"
#include "support/member.h"
#include "support/reduction.h"

namespace {

using namespace reduction;

constexpr OrbHintAlgorithm hints[] = {orbAlgHintNone, orbAlgHintFast, orbAlgHintAccurate, 7, -1};

template <class T>
Complex exactSum(const std::vector<T>& x) {
    Complex sum;
    for (const T& t : x) sum = sum + wide(t);
    return sum;
}
template <class T>
Real magnitudes(const std::vector<T>& x) {
    Real sum = 0;
    for (const T& t : x) sum += std::fabs(wide(t).re) + std::fabs(wide(t).im);
    return sum;
}
template <class T, class F>
T each(Complex sum, F f) {
    if constexpr (isComplex<T>) {
        return {f(sum.re), f(sum.im)};
    } else {
        return f(sum.re);
    }
}

// ---- Floats ----

template <class T, class... Hint>
void expectExact(OrbStatus (*sum)(const T*, int, T*, Hint...), OrbStatus (*mean)(const T*, int, T*, Hint...),
                 Hint... hint) {
    for (const std::size_t len : lengths()) {
        const auto x = wholeNumbers<T>(len, len);
        const Complex exact = exactSum(x);
        const auto n = static_cast<double>(len);
        const auto quotient = [=](Real s) {
            const auto whole = static_cast<double>(s);
            return static_cast<Part<T>>(std::is_same_v<T, Orb64fc> ? whole * (1.0 / n) : whole / n);
        };
        const T total = of(sum, x, hint...), average = of(mean, x, hint...);
        const T wantSum = each<T>(exact, [](Real s) { return static_cast<Part<T>>(s); });
        const T wantMean = each<T>(exact, quotient);
        ASSERT_TRUE(support::sameBits(&total, &wantSum, 1)) << callOf(sum, hint...) << ", len " << len;
        ASSERT_TRUE(support::sameBits(&average, &wantMean, 1)) << callOf(mean, hint...) << ", len " << len;
    }
}

TEST(Sum, OfWholeNumbersIsExactInEveryPathAndSoIsTheMean) {
    for (const OrbHintAlgorithm hint : hints) {
        expectExact(orbsSum_32f, orbsMean_32f, hint);
        expectExact(orbsSum_32fc, orbsMean_32fc, hint);
    }
    expectExact(orbsSum_64f, orbsMean_64f);
    expectExact(orbsSum_64fc, orbsMean_64fc);
}

// An element takes part in as many roundings as there are elements in its lane, of 16 lanes at least, and in those of
// the fold.
Real roundings(std::size_t len) {
    return static_cast<Real>(len) / 16 + 8;
}

template <class T>
void expectAccurate(OrbStatus (*sum)(const T*, int, T*, OrbHintAlgorithm)) {
    for (const std::size_t len : {9u, 1000u, 100003u}) {
        const auto x = support::randomVector<T>(len);
        const Complex exact = exactSum(x);
        const Real size = magnitudes(x), half = 0x1p-24L;
        const Real ofResult = half * std::max(std::fabs(exact.re), std::fabs(exact.im));
        EXPECT_TRUE(near(of(sum, x, orbAlgHintAccurate), exact, ofResult + roundings(len) * 0x1p-53L * size));
        EXPECT_TRUE(
            near(of(sum, x, orbAlgHintFast), exact, roundings(std::min<std::size_t>(len, 32768)) * half * size));
    }
}

TEST(Sum, IsAccumulatedInDoublePrecisionAndFastInSingleWithinABlock) {
    expectAccurate(orbsSum_32f);
    expectAccurate(orbsSum_32fc);
    std::vector<Orb32f> x(40000, 1);
    x[0] = 0x1p26f;
    EXPECT_EQ(of(orbsSum_32f, x, orbAlgHintNone), 0x1p26f + 40000);
    EXPECT_EQ(of(orbsSum_32f, x, 7), 0x1p26f + 40000);
    const Orb32f fast = of(orbsSum_32f, x, orbAlgHintFast);
    EXPECT_LT(fast, 0x1p26f + 40000); // single precision loses what is added to 2^26 one by one
    EXPECT_GT(fast, 0x1p26f + 39000); // which is one lane of one block
    const std::vector<Orb32f> tenths(1000000, 0.1f);
    EXPECT_NEAR(of(orbsSum_32f, tenths, orbAlgHintFast), 100000.0, 1.0); // one single lane would be off by a thousand
}

TEST(Sum, CarriesInfinityAndNanAndOverflowsAtTheEndOnly) {
    constexpr auto infinity = std::numeric_limits<Orb32f>::infinity(), nan = std::numeric_limits<Orb32f>::quiet_NaN();
    for (const OrbHintAlgorithm hint : hints) {
        for (const std::size_t at : {0u, 33u, 76u}) {
            std::vector<Orb32f> x(77, 1);
            x[at] = infinity;
            EXPECT_EQ(of(orbsSum_32f, x, hint), infinity);
            x[(at + 40) % 77] = -infinity;
            EXPECT_TRUE(std::isnan(of(orbsSum_32f, x, hint)));
            x = std::vector<Orb32f>(77, 1);
            x[at] = nan;
            EXPECT_TRUE(std::isnan(of(orbsMean_32f, x, hint)));
        }
    }
    const std::vector<Orb32f> large(4, 3e38f);
    EXPECT_EQ(of(orbsSum_32f, large, orbAlgHintNone), infinity);
    EXPECT_EQ(of(orbsMean_32f, large, orbAlgHintNone), 3e38f);
}

// ---- 16 bits ----

std::vector<int> manyScales() {
    return support::scaleFactors(-34, 66);
}
Real scaled(Real s, int scaleFactor) {
    return std::ldexp(s, -std::clamp(scaleFactor, -300, 300));
}
template <class R>
R limited(Real s) {
    return static_cast<R>(
        std::nearbyint(std::clamp<Real>(s, std::numeric_limits<R>::min(), std::numeric_limits<R>::max())));
}

template <class T, class R>
void expectScaled(const std::vector<T>& x, OrbStatus (*sum)(const T*, int, R*, int),
                  OrbStatus (*narrow)(const T*, int, T*, int), OrbStatus (*mean)(const T*, int, T*, int)) {
    const Complex exact = exactSum(x);
    for (const int s : manyScales()) {
        using Long = Part<R>;
        using Short = Part<T>;
        const auto wantSum = each<R>(exact, [=](Real v) { return limited<Long>(scaled(v, s)); });
        const auto wantShort = each<T>(exact, [=](Real v) { return limited<Short>(scaled(v, s)); });
        const auto n = static_cast<Real>(x.size());
        const auto wantMean = each<T>(exact, [=](Real v) { return limited<Short>(scaled(v, s) / n); });
        const R total = of(sum, x, s);
        const T shortSum = of(narrow, x, s), average = of(mean, x, s);
        ASSERT_TRUE(support::sameBits(&total, &wantSum, 1)) << callOf(sum, s) << ", len " << x.size();
        ASSERT_TRUE(support::sameBits(&shortSum, &wantShort, 1)) << callOf(narrow, s) << ", len " << x.size();
        ASSERT_TRUE(support::sameBits(&average, &wantMean, 1)) << callOf(mean, s) << ", len " << x.size();
    }
}
void expectScaled16(const std::vector<Orb16s>& x) {
    expectScaled(x, orbsSum_16s32s_Sfs, orbsSum_16s_Sfs, orbsMean_16s_Sfs);
    std::vector<Orb16sc> z(x.size());
    for (std::size_t n = 0; n < x.size(); ++n) z[n] = {x[n], static_cast<Orb16s>(~x[x.size() - 1 - n])};
    expectScaled(z, orbsSum_16sc32sc_Sfs, orbsSum_16sc_Sfs, orbsMean_16sc_Sfs);
}

TEST(Sum, Of16BitsIsExactThenScaledAndSaturatedOnce) {
    for (const std::size_t len : lengths()) expectScaled16(support::randomVector<Orb16s>(len));
    for (const std::size_t len : {1u, 65536u, 65537u, 200003u}) { // a block of extremes fills 32 bits
        expectScaled16(std::vector<Orb16s>(len, -32768));
        expectScaled16(std::vector<Orb16s>(len, 32767));
    }
    expectScaled16({1});
    expectScaled16({-1});
    expectScaled16({0, 0, 0});
    std::vector<Orb16s> x(35, 2000); // 70000
    EXPECT_EQ(of(orbsSum_16s_Sfs, x, 0), 32767);
    EXPECT_EQ(of(orbsSum_16s_Sfs, x, 2), 17500);
}

TEST(Sum, Of16BitsRoundsInTheCallersMode) {
    for (const Orb32u mode : support::roundingModes) {
        for (const Orb16s x : {5, -5, 7, 1}) {
            const double half = x / 2.0;
            const double want = mode == _MM_ROUND_DOWN          ? std::floor(half)
                                : mode == _MM_ROUND_UP          ? std::ceil(half)
                                : mode == _MM_ROUND_TOWARD_ZERO ? std::trunc(half)
                                                                : std::nearbyint(half);
            const std::vector<Orb16s> v{x};
            EXPECT_EQ(support::inMode(mode, [=] { return of(orbsSum_16s_Sfs, v, 1); }), want) << x << " in " << mode;
            EXPECT_EQ(support::inMode(mode, [=] { return of(orbsMean_16s_Sfs, v, 1); }), want) << x << " in " << mode;
        }
    }
}

// ---- 32 bits ----

// The fraction of a quotient is never within what long double rounds of one half without being it.
Orb32s meanOf(Real s, Real n, int scaleFactor) {
    const Real mean = std::nearbyint(s / n);
    if (scaleFactor > 0) {
        const auto q = static_cast<std::uint64_t>(std::fabs(mean));
        const std::uint64_t bit = scaleFactor > 64 ? 0 : q >> (scaleFactor - 1) & 1;
        const std::uint64_t shifted = scaleFactor > 63 ? 0 : (q + bit) >> scaleFactor;
        return limited<Orb32s>(std::copysign(static_cast<Real>(shifted), mean));
    }
    if (scaleFactor < -31) return s == 0 ? 0 : s < 0 ? INT32_MIN : INT32_MAX;
    if (scaleFactor < 0 && s == limited<Orb32s>(s)) return limited<Orb32s>(scaled(s, scaleFactor) / n);
    return limited<Orb32s>(scaled(mean, scaleFactor));
}

TEST(Sum, Of32BitsFollowsTheScaleRuleAndTheMeanItsOwn) {
    std::vector<std::vector<Orb32s>> all{{1, 2},
                                         {2, 3},
                                         {6},
                                         {-6},
                                         {-1, -2},
                                         {1, 0, 0, 0},
                                         {-1, 0, 0},
                                         {0},
                                         std::vector<Orb32s>(1000, INT32_MIN),
                                         std::vector<Orb32s>(1000, INT32_MAX)};
    for (const std::size_t len : lengths(1, 5000)) {
        all.push_back(support::randomVector<Orb32s>(len));
        all.push_back(wholeNumbers<Orb32s>(len));
    }
    for (const auto& x : all) {
        std::int64_t sum = 0;
        for (const Orb32s t : x) sum += t;
        for (const int s : manyScales()) {
            const Orb32s want = s > 63 ? -(sum < 0) : member::scaledTo<Orb32s>(sum, s);
            ASSERT_EQ(of(orbsSum_32s_Sfs, x, s), want) << "Sum of " << sum << ", scale factor " << s;
            ASSERT_EQ(of(orbsMean_32s_Sfs, x, s), meanOf(static_cast<Real>(sum), static_cast<Real>(x.size()), s))
                << "Mean of " << sum << " / " << x.size() << ", scale factor " << s;
        }
    }
    EXPECT_EQ(of(orbsMean_32s_Sfs, {1, 2}, 0), 2);
    EXPECT_EQ(of(orbsMean_32s_Sfs, {2, 3}, 0), 2);
    EXPECT_EQ(of(orbsMean_32s_Sfs, {6}, 2), 1); // 6 / 4 would round to 2
    EXPECT_EQ(of(orbsMean_32s_Sfs, {1, 2}, -1), 3);
}

} // namespace
