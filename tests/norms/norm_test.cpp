// Norm and NormDiff.
#include "support/reduction.h"

namespace {

using namespace reduction;

enum Kind { inf, l1, l2, l2Sqr };

Real magnitude(Complex z) {
    return std::sqrt(z.re * z.re + z.im * z.im);
}
Real normOf(Kind kind, const std::vector<Complex>& x) {
    Real largest = 0, sum = 0, squares = 0;
    for (const Complex& z : x) {
        largest = std::max(largest, magnitude(z));
        sum += magnitude(z);
        squares += z.re * z.re + z.im * z.im;
    }
    return kind == inf ? largest : kind == l1 ? sum : kind == l2 ? std::sqrt(squares) : squares;
}

template <class S, class R, class... More>
using Norm = OrbStatus (*)(const S*, int, R*, More...);
template <class S, class R, class... More>
using NormDiff = OrbStatus (*)(const S*, const S*, int, R*, More...);

template <class S>
std::vector<Complex> exact(const std::vector<S>& x) {
    std::vector<Complex> all;
    for (const S& s : x) all.push_back(wide(s));
    return all;
}
template <class S>
std::vector<Complex> exact(const std::vector<S>& x, const std::vector<S>& y) {
    std::vector<Complex> all;
    for (std::size_t n = 0; n < x.size(); ++n) all.push_back(wide(x[n]) - wide(y[n]));
    return all;
}

// ---- Floats ----

// Of whole numbers everything is exact but the last root, and the magnitudes of a complex L1; else a term has a few
// roundings of its own, one an element of its lane, and those of the fold.
template <class S, class R>
void expectNorms(Kind kind, Norm<S, R> norm, NormDiff<S, R> difference) {
    const Real epsilon = std::numeric_limits<R>::epsilon();
    for (const std::size_t len : lengths()) {
        const auto x = wholeNumbers<S>(len), y = wholeNumbers<S>(len, 2);
        const Real ofX = normOf(kind, exact(x)), ofBoth = normOf(kind, exact(x, y));
        const Real roundings = isComplex<S> && kind == l1 ? static_cast<Real>(len) / 32 + 8 : 1;
        ASSERT_TRUE(near(of(norm, x), {ofX, 0}, roundings * epsilon * ofX)) << callOf(norm) << ", len " << len;
        ASSERT_TRUE(near(of(difference, x, y), {ofBoth, 0}, roundings * epsilon * ofBoth)) << callOf(difference) << len;
    }
    for (const std::size_t len : {1u, 100u, 10007u}) {
        const auto x = support::randomVector<S>(len), y = support::randomVector<S>(len, 2);
        const Real tolerance = epsilon * (static_cast<Real>(len) / 64 + 10);
        const Real ofX = normOf(kind, exact(x)), ofBoth = normOf(kind, exact(x, y));
        ASSERT_TRUE(near(of(norm, x), {ofX, 0}, tolerance * ofX)) << callOf(norm);
        ASSERT_TRUE(near(of(difference, x, y), {ofBoth, 0}, tolerance * ofBoth)) << callOf(difference);
    }
    constexpr auto infinity = std::numeric_limits<Part<S>>::infinity(), nan = std::numeric_limits<Part<S>>::quiet_NaN();
    for (std::size_t at = 0; at < 140; at += 3) {
        auto x = support::randomVector<S>(150);
        const auto y = support::randomVector<S>(150, 2);
        auto& part = reinterpret_cast<Part<S>*>(x.data())[at];
        part = at % 2 ? -infinity : infinity;
        EXPECT_EQ(of(norm, x), std::numeric_limits<R>::infinity()) << callOf(norm) << " at " << at;
        EXPECT_EQ(of(difference, y, x), std::numeric_limits<R>::infinity()) << callOf(difference) << " at " << at;
        part = at % 2 ? -nan : nan;
        x[149] = S{};
        EXPECT_TRUE(std::isnan(of(norm, x))) << callOf(norm) << " at " << at;
        EXPECT_TRUE(std::isnan(of(difference, y, x))) << callOf(difference) << " at " << at;
    }
}

TEST(Norm, OfFloats) {
    expectNorms(inf, orbsNorm_Inf_32f, orbsNormDiff_Inf_32f);
    expectNorms(inf, orbsNorm_Inf_64f, orbsNormDiff_Inf_64f);
    expectNorms(inf, orbsNorm_Inf_32fc32f, orbsNormDiff_Inf_32fc32f);
    expectNorms(inf, orbsNorm_Inf_64fc64f, orbsNormDiff_Inf_64fc64f);
    expectNorms(l1, orbsNorm_L1_32f, orbsNormDiff_L1_32f);
    expectNorms(l1, orbsNorm_L1_64f, orbsNormDiff_L1_64f);
    expectNorms(l1, orbsNorm_L1_32fc64f, orbsNormDiff_L1_32fc64f);
    expectNorms(l1, orbsNorm_L1_64fc64f, orbsNormDiff_L1_64fc64f);
    expectNorms(l2, orbsNorm_L2_32f, orbsNormDiff_L2_32f);
    expectNorms(l2, orbsNorm_L2_64f, orbsNormDiff_L2_64f);
    expectNorms(l2, orbsNorm_L2_32fc64f, orbsNormDiff_L2_32fc64f);
    expectNorms(l2, orbsNorm_L2_64fc64f, orbsNormDiff_L2_64fc64f);
}

TEST(Norm, ShowsTheTypeThatItAddsUpIn) {
    constexpr Orb32f infinity = std::numeric_limits<Orb32f>::infinity();
    const std::vector<Orb32f> x{1e30f, 0}, y{0, 0};
    EXPECT_EQ(of(orbsNorm_L2_32f, x), infinity);
    EXPECT_EQ(of(orbsNormDiff_L2_32f, x, y), infinity);
    EXPECT_EQ(of(orbsNormDiff_L1_32f, {3e38f}, {-3e38f}), infinity);
    const std::vector<Orb32fc> z{{3e30f, 4e30f}, {0, 0}};
    EXPECT_NEAR(of(orbsNorm_L2_32fc64f, z), 5e30, 1e24);
    EXPECT_NEAR(of(orbsNorm_L1_32fc64f, z), 5e30, 1e24);
    EXPECT_FLOAT_EQ(of(orbsNorm_Inf_32fc32f, z), 5e30f);
    EXPECT_EQ(of(orbsNorm_L2_64f, {1e200}), std::numeric_limits<Orb64f>::infinity());
}

// ---- 16 bits ----

// r * 2^-s cut off and saturated, r being exact, or in L2 the root in double precision.
template <class R>
R cutOff(Real r, int s) {
    const Real v = std::floor(std::ldexp(r, -std::clamp(s, -300, 300)));
    return v >= static_cast<Real>(std::numeric_limits<R>::max()) ? std::numeric_limits<R>::max() : static_cast<R>(v);
}

template <class R, class... More>
void expectScaled(Kind kind, Norm<Orb16s, R, More...> norm, NormDiff<Orb16s, R, More...> difference,
                  const std::vector<Orb16s>& x, const std::vector<Orb16s>& y) {
    const auto expectOne = [=](Real r, auto got, auto... scale) {
        if (kind == l2) r = static_cast<double>(r);
        if constexpr (sizeof...(More) == 0) {
            const R want = static_cast<R>(r);
            ASSERT_LE(std::fabs(got - want), kind == l2 ? want * 0x1p-23 : 0) << support::nameOf(norm);
        } else {
            const int s = (scale + ...);
            const bool lowBits = kind == l1 && s == 0;
            const R want = lowBits ? static_cast<R>(static_cast<std::int64_t>(r)) : cutOff<R>(r, s);
            ASSERT_EQ(got, want) << callOf(norm, s) << ", len " << x.size();
        }
    };
    const Real ofX = normOf(kind, exact(x)), ofBoth = normOf(kind, exact(x, y));
    if constexpr (sizeof...(More) == 0) {
        expectOne(ofX, of(norm, x));
        expectOne(ofBoth, of(difference, x, y));
    } else {
        for (const int s : support::scaleFactors(-66, 66)) {
            expectOne(ofX, of(norm, x, s), s);
            expectOne(ofBoth, of(difference, x, y, s), s);
        }
    }
}

TEST(Norm, Of16BitsIsExactThenCutOffAndSaturated) {
    const auto expectAll = [](const std::vector<Orb16s>& x, const std::vector<Orb16s>& y) {
        expectScaled(inf, orbsNorm_Inf_16s32f, orbsNormDiff_Inf_16s32f, x, y);
        expectScaled(inf, orbsNorm_Inf_16s32s_Sfs, orbsNormDiff_Inf_16s32s_Sfs, x, y);
        expectScaled(l1, orbsNorm_L1_16s32f, orbsNormDiff_L1_16s32f, x, y);
        expectScaled(l1, orbsNorm_L1_16s32s_Sfs, orbsNormDiff_L1_16s32s_Sfs, x, y);
        expectScaled(l1, orbsNorm_L1_16s64s_Sfs, orbsNormDiff_L1_16s64s_Sfs, x, y);
        expectScaled(l2, orbsNorm_L2_16s32f, orbsNormDiff_L2_16s32f, x, y);
        expectScaled(l2, orbsNorm_L2_16s32s_Sfs, orbsNormDiff_L2_16s32s_Sfs, x, y);
        expectScaled(l2Sqr, orbsNorm_L2Sqr_16s64s_Sfs, orbsNormDiff_L2Sqr_16s64s_Sfs, x, y);
    };
    for (const std::size_t len : lengths()) {
        expectAll(support::randomVector<Orb16s>(len), support::randomVector<Orb16s>(len, 2));
        std::vector<Orb16s> one(len); // each place counts
        one[len - 1] = -32768;
        one[len / 2] = 32767;
        expectAll(one, std::vector<Orb16s>(len));
    }
    for (const std::size_t len : {1u, 65536u, 65537u, 200003u}) { // 200003 * 65535 exceeds 32 bits
        const std::vector<Orb16s> least(len, -32768), most(len, 32767);
        expectAll(least, most);
        expectAll(most, least);
        expectAll(least, least);
    }
    EXPECT_EQ(of(orbsNorm_Inf_16s32s_Sfs, {-32768}, 0), 32768);
}

} // namespace
