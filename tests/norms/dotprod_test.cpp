// DotProd and Normalize.
#include "support/control.h"
#include "support/member.h"
#include "support/reduction.h"

namespace {

using namespace reduction;

template <class S1, class S2, class R, class... More>
using DotProd = OrbStatus (*)(const S1*, const S2*, int, R*, More...);

// Sums of integers stay below 2^63, where long double is exact; each of the four sums of a complex product as well.
template <class S1, class S2>
Complex exact(const std::vector<S1>& x, const std::vector<S2>& y) {
    Complex sum;
    for (std::size_t n = 0; n < x.size(); ++n) sum = sum + wide(x[n]) * wide(y[n]);
    return sum;
}
template <class R, class F>
R each(Complex sum, F f) {
    if constexpr (isComplex<R>) {
        return {f(sum.re), f(sum.im)};
    } else {
        return f(sum.re);
    }
}

// ---- Floats ----

template <class S1, class S2, class R>
void expectProducts(DotProd<S1, S2, R> member) {
    for (const std::size_t len : lengths()) {
        const auto x = wholeNumbers<S1>(len);
        const auto y = wholeNumbers<S2>(len, 2);
        const R want = each<R>(exact(x, y), [](Real v) { return static_cast<Part<R>>(v + 0.0L); });
        const R got = of(member, x, y);
        ASSERT_TRUE(support::sameBits(&got, &want, 1)) << callOf(member) << ", len " << len;
    }
    for (const std::size_t len : {1u, 2u, 100u, 10007u}) {
        const auto x = support::randomVector<S1>(len);
        const auto y = support::randomVector<S2>(len, 2);
        Real size = 0;
        for (std::size_t n = 0; n < len; ++n)
            size += (std::fabs(wide(x[n]).re) + std::fabs(wide(x[n]).im)) *
                    (std::fabs(wide(y[n]).re) + std::fabs(wide(y[n]).im));
        const Real tolerance = std::numeric_limits<Part<R>>::epsilon() / 2 * (static_cast<Real>(len) / 16 + 9) * size;
        ASSERT_TRUE(near(of(member, x, y), exact(x, y), tolerance)) << callOf(member) << ", len " << len;
    }
}

TEST(DotProd, OfFloatsIsAddedUpInTheTypeOfTheResult) {
    expectProducts(orbsDotProd_32f);
    expectProducts(orbsDotProd_32fc);
    expectProducts(orbsDotProd_32f32fc);
    expectProducts(orbsDotProd_32f64f);
    expectProducts(orbsDotProd_32fc64fc);
    expectProducts(orbsDotProd_32f32fc64fc);
    expectProducts(orbsDotProd_64f);
    expectProducts(orbsDotProd_64fc);
    expectProducts(orbsDotProd_64f64fc);
    const std::vector<Orb32f> large{1e30f, -1e30f, 1};
    EXPECT_TRUE(std::isnan(of(orbsDotProd_32f, large, {1e30f, 1e30f, 1})));
    EXPECT_EQ(of(orbsDotProd_32f64f, large, {1e30f, 0, 0}), double{1e30f} * double{1e30f});
}

// ---- 16 bits ----

template <class S1, class S2, class W, class F, class R, class L>
void expectExact(const std::vector<S1>& x, const std::vector<S2>& y, DotProd<S1, S2, W> whole,
                 DotProd<S1, S2, F> single, DotProd<S1, S2, R, int> scaled16, DotProd<S1, S2, L, int> scaled32) {
    const Complex sum = exact(x, y);
    const W want = each<W>(sum, [](Real v) { return static_cast<Orb64s>(v); }), got = of(whole, x, y);
    ASSERT_TRUE(support::sameBits(&got, &want, 1)) << callOf(whole) << ", len " << x.size();
    const F wantSingle = each<F>(sum, [](Real v) { return static_cast<Orb32f>(v); }), gotSingle = of(single, x, y);
    ASSERT_TRUE(support::sameBits(&gotSingle, &wantSingle, 1)) << callOf(single) << ", len " << x.size();
    for (const int s : support::scaleFactors(-35, 35)) {
        const int limited = std::min(s, 31);
        const auto scaledTo = [=]<class Result>(Result) {
            return each<Result>(sum, [=](Real v) {
                const int lowest = sizeof(Part<Result>) == sizeof(Orb16s) ? -15 : -31;
                return member::scaledTo<Part<Result>>(static_cast<Orb64s>(v), std::max(limited, lowest));
            });
        };
        const R want16 = scaledTo(R()), got16 = of(scaled16, x, y, s);
        const L want32 = scaledTo(L()), got32 = of(scaled32, x, y, s);
        ASSERT_TRUE(support::sameBits(&got16, &want16, 1)) << callOf(scaled16, s) << ", len " << x.size();
        ASSERT_TRUE(support::sameBits(&got32, &want32, 1)) << callOf(scaled32, s) << ", len " << x.size();
    }
}

void expectEach(const std::vector<Orb16s>& x, const std::vector<Orb16s>& y, const std::vector<Orb16sc>& z,
                const std::vector<Orb16sc>& w) {
    expectExact(x, y, orbsDotProd_16s64s, orbsDotProd_16s32f, orbsDotProd_16s_Sfs, orbsDotProd_16s32s_Sfs);
    expectExact(z, w, orbsDotProd_16sc64sc, orbsDotProd_16sc32fc, orbsDotProd_16sc_Sfs, orbsDotProd_16sc32sc_Sfs);
    expectExact(x, w, orbsDotProd_16s16sc64sc, orbsDotProd_16s16sc32fc, orbsDotProd_16s16sc_Sfs,
                orbsDotProd_16s16sc32sc_Sfs);
}

TEST(DotProd, Of16BitsIsExactThenScaledAndSaturatedOnce) {
    for (const std::size_t len : lengths())
        expectEach(support::randomVector<Orb16s>(len), support::randomVector<Orb16s>(len, 2),
                   support::randomVector<Orb16sc>(len), support::randomVector<Orb16sc>(len, 2));
    constexpr Orb16s least = -32768, most = 32767; // pairs of least * least do not fit 32 bits
    for (const std::size_t len : {1u, 2u, 3u, 65536u, 131073u})
        for (const Orb16s a : {least, most})
            for (const Orb16s b : {least, most})
                for (const Orb16s c : {least, most})
                    expectEach(std::vector<Orb16s>(len, a), std::vector<Orb16s>(len, b),
                               std::vector<Orb16sc>(len, {a, c}), std::vector<Orb16sc>(len, {b, least}));
    EXPECT_EQ(of(orbsDotProd_16s_Sfs, {least, least}, {least, least}, 0), 32767);
}

// ---- 32 bits ----

// Small elements: everything is exact, and so is the scale rule.
template <class S1, class S2, class R>
void expectInDouble(DotProd<S1, S2, R, int> member) {
    for (const std::size_t len : lengths(1, 5000)) {
        const auto x = wholeNumbers<S1>(len);
        const auto y = wholeNumbers<S2>(len, 2);
        for (const int s : support::scaleFactors(-34, 12)) {
            const R want = each<R>(exact(x, y), [=](Real v) {
                return member::scaledTo<Orb32s>(static_cast<Orb64s>(v), std::max(s, -31));
            });
            for (const Orb32u mode : support::roundingModes) {
                const R got = support::inMode(mode, [&] { return of(member, x, y, s); });
                ASSERT_TRUE(support::sameBits(&got, &want, 1)) << callOf(member, s) << ", len " << len;
            }
        }
    }
    // Large ones: in reach of the roundings of double precision.
    for (const std::size_t len : {1u, 3u, 1000u}) {
        const auto x = support::randomVector<S1>(len);
        const auto y = support::randomVector<S2>(len, 2);
        const Complex sum = exact(x, y);
        for (const int s : {28, 40, 60, 93, 94, 1000}) {
            const Real factor = std::ldexp(1.0L, -std::min(s, 93));
            const auto clamped = [=](Real v) { return std::clamp(v * factor, -0x1p31L, 0x1p31L - 1); };
            const Real lost = std::ldexp(static_cast<Real>(len * (len / 16 + 8)), 62 - 52) * factor;
            ASSERT_TRUE(near(of(member, x, y, s), {clamped(sum.re), clamped(sum.im)}, 0.5L + lost))
                << callOf(member, s) << ", len " << len;
        }
    }
}

TEST(DotProd, Of32BitsIsAddedUpInDoublePrecisionAndRoundedToNearestInEveryMode) {
    expectInDouble(orbsDotProd_16s32s32s_Sfs);
    expectInDouble(orbsDotProd_32s_Sfs);
    expectInDouble(orbsDotProd_32sc_Sfs);
    expectInDouble(orbsDotProd_32s32sc_Sfs);
    const std::vector<Orb32s> least(2, INT32_MIN);
    EXPECT_EQ(of(orbsDotProd_32s_Sfs, least, least, 0), INT32_MAX);
    EXPECT_EQ(of(orbsDotProd_32s_Sfs, least, {INT32_MAX, INT32_MAX}, 31), INT32_MIN);
    EXPECT_EQ(of(orbsDotProd_32s_Sfs, least, least, 33), 0x40000000);
}

// ---- Normalize ----

template <class T, class Sub, class Div, class... More, class Rule>
void expectNormalized(OrbStatus (*member)(const T*, T*, int, Sub, Div, More...), const std::vector<T>& x, Sub sub,
                      Div div, Rule rule, More... more) {
    std::vector<T> want(x.size()), got(x);
    for (std::size_t n = 0; n < x.size(); ++n) {
        if constexpr (isComplex<T>) {
            want[n] = {rule(x[n].re, sub.re), rule(x[n].im, sub.im)};
        } else {
            want[n] = rule(x[n], sub);
        }
    }
    ASSERT_EQ(member(got.data(), got.data(), static_cast<int>(x.size()), sub, div, more...), orbStsNoErr);
    ASSERT_TRUE(support::sameValues(got, want, x)) << callOf(member, sub, div, more...);
}

TEST(Normalize, OfFloatsIsADifferenceTimesAReciprocal) {
    const auto rule = [](auto div) { return [r = 1 / div](auto x, auto sub) { return (x - sub) * r; }; };
    for (const std::size_t len : lengths(1, 5000)) {
        for (const Orb32f div : {3.0f, -0.1f, 0x1p-126f, 1e38f}) {
            expectNormalized(orbsNormalize_32f, support::randomVector<Orb32f>(len), 0.7f, div, rule(div));
            expectNormalized(orbsNormalize_32fc, support::randomVector<Orb32fc>(len), {0.7f, -3}, div, rule(div));
            const auto twice = Orb64f{div} / 7;
            expectNormalized(orbsNormalize_64f, support::randomVector<Orb64f>(len), 0.7, twice, rule(twice));
            expectNormalized(orbsNormalize_64fc, support::randomVector<Orb64fc>(len), {0.7, -3}, twice, rule(twice));
        }
    }
    Orb32f x = 1;
    EXPECT_EQ(orbsNormalize_32f(&x, &x, 1, 0, 0x1.fffffcp-127f), orbStsDivByZeroErr); // the largest subnormal number
    EXPECT_EQ(orbsNormalize_32f(&x, &x, 1, 0, -0x1p-126f), orbStsNoErr);
}

TEST(Normalize, Of16BitsUsesSevenBitsOfTheScaleFactorAndRoundsToNearest) {
    for (const int div : {1, -1, 7, -1000, 0x7fffffff, INT32_MIN}) {
        for (const int s : support::scaleFactors(-260, 260)) {
            if (s > 40 && s < 120) continue;
            const unsigned bits = (s < 0 ? 0u - static_cast<unsigned>(s) : static_cast<unsigned>(s)) & 127;
            const float power = s > 0 ? (bits == 127 ? 0 : std::ldexp(1.0f, -static_cast<int>(bits)))
                                      : std::ldexp(1.0f, static_cast<int>(bits));
            const float factor = 1 / static_cast<float>(div) * power;
            const auto rule = [=](Orb16s x, Orb16s sub) {
                return member::nearest<Orb16s>(static_cast<float>(x - sub) * factor);
            };
            for (const std::size_t len : {1u, 5u, 64u, 101u}) {
                const auto x = support::randomVector<Orb16s>(len);
                const auto z = support::randomVector<Orb16sc>(len);
                const auto run = [&] {
                    expectNormalized(orbsNormalize_16s_Sfs, x, Orb16s{-32768}, div, rule, s);
                    expectNormalized(orbsNormalize_16sc_Sfs, z, Orb16sc{-7, 32767}, div, rule, s);
                };
                run();
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    }
    const Orb16s x[] = {3, 5, -3, -5};
    for (const Orb32u mode : support::roundingModes) {
        Orb16s y[4];
        support::inMode(mode, [&] { return orbsNormalize_16s_Sfs(x, y, 4, 0, 2, 0); });
        EXPECT_TRUE(y[0] == 2 && y[1] == 2 && y[2] == -2 && y[3] == -2) << mode;
    }
}

} // namespace
