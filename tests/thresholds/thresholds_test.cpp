// Threshold and its forms, against the formulas on one element.
#include "support/threads.h"
#include "support/unary_member.h"

#include <cfenv>

namespace {

using namespace unary_member;
using support::isComplex;
using support::Part;

// ---- Elements and levels ----

template <class Real>
std::vector<Real> specialValues() {
    using Limits = std::numeric_limits<Real>;
    std::vector<Real> x = support::randomVector<Real>(60);
    for (const Real v : {Real{0}, Real{-0.0}, Real{2}, Real{-2}, Limits::infinity(), Limits::quiet_NaN(),
                         -Limits::infinity(), -Limits::quiet_NaN(), Limits::denorm_min(), -Limits::max(), Real{1e-12}})
        x.push_back(v);
    return x;
}

// Of complex floats, pairs of those whose squares stay within the range of the type.
template <class T>
std::vector<T> elements() {
    using Real = Part<T>;
    std::vector<T> x;
    if constexpr (!isComplex<T> && std::is_floating_point_v<T>) {
        x = specialValues<T>();
    } else if constexpr (!isComplex<T>) {
        x = support::randomVector<T>(1000);
        for (int v = -40; v <= 40; ++v) x.push_back(static_cast<T>(v));
    } else if constexpr (std::is_floating_point_v<Real>) {
        x = support::randomVector<T>(300);
        for (const Real re :
             {Real{0}, Real{-0.0}, Real{0.5}, Real{3e5}, Real{-2e-9}, std::numeric_limits<Real>::quiet_NaN()})
            for (const Real im : {Real{0}, Real{-0.0}, Real{-2}, Real{1e-9}, Real{4e4}}) x.push_back({re, im});
    } else {
        x = support::randomVector<T>(2000);
        for (const int re : {-32768, -1, 0, 3, 32767})
            for (const int im : {-32768, 0, 4, 32767}) x.push_back({static_cast<Real>(re), static_cast<Real>(im)});
    }
    return x;
}

template <class Real>
std::vector<Real> levels() {
    if constexpr (std::is_floating_point_v<Real>) {
        return {0, Real{-0.0}, Real{0.25}, Real{0.5}, 2, Real{1e6}, std::numeric_limits<Real>::infinity()};
    } else {
        return {0, 1, 5, 100, 20000, std::numeric_limits<Real>::max()};
    }
}
// Those of real elements may have any sign.
template <class Real>
std::vector<Real> anyLevels() {
    auto all = levels<Real>();
    for (const Real level : levels<Real>()) all.push_back(static_cast<Real>(-level));
    if constexpr (std::is_floating_point_v<Real>) all.push_back(std::numeric_limits<Real>::quiet_NaN());
    all.push_back(std::numeric_limits<Real>::lowest());
    return all;
}
template <class T>
auto levelsFor() {
    return isComplex<T> ? levels<Part<T>>() : anyLevels<Part<T>>();
}

// ---- The formulas ----

// |z|^2 in the type of the parts, of integers exactly.
template <class T>
auto square(T z) {
    if constexpr (std::is_floating_point_v<Part<T>>) {
        return z.re * z.re + z.im * z.im;
    } else {
        return std::int64_t{z.re} * z.re + std::int64_t{z.im} * z.im;
    }
}
template <class Real>
auto squareOfLevel(Real level) {
    if constexpr (std::is_floating_point_v<Real>) {
        return level * level;
    } else {
        return std::int64_t{level} * level;
    }
}
template <class T, class Real>
bool isBelow(T x, Real level) {
    if constexpr (isComplex<T>) {
        return square(x) < squareOfLevel(level);
    } else {
        return x < level;
    }
}
template <class T, class Real>
bool isAbove(T x, Real level) {
    if constexpr (isComplex<T>) {
        return square(x) > squareOfLevel(level);
    } else {
        return x > level;
    }
}

// z * level / |z| in double precision.
template <class T, class Real>
T toMagnitude(T z, Real level) {
    const double re = z.re, im = z.im, by = static_cast<double>(level) / std::sqrt(re * re + im * im);
    if (z.re == 0 && z.im == 0) return {level, 0};
    if constexpr (std::is_floating_point_v<Real>) {
        return {static_cast<Real>(re * by), static_cast<Real>(im * by)};
    } else {
        return {static_cast<Real>(std::nearbyint(re * by)), static_cast<Real>(std::nearbyint(im * by))};
    }
}

constexpr auto raised = [](auto x, auto level) {
    if constexpr (isComplex<decltype(x)>) {
        return isBelow(x, level) ? toMagnitude(x, level) : x;
    } else {
        return x > level ? x : level; // a NaN gives the level
    }
};
constexpr auto lowered = [](auto x, auto level) {
    if constexpr (isComplex<decltype(x)>) {
        if (level == 0) return decltype(x){0, 0};
        return isAbove(x, level) ? toMagnitude(x, level) : x;
    } else {
        return x < level ? x : level;
    }
};

// ---- Tests ----

TEST(Threshold, LimitsToTheLevel) {
    const auto test = [](auto element, auto rule, auto... member) {
        using T = decltype(element);
        const auto x = elements<T>();
        for (const Part<T> level : levelsFor<T>()) (expectRule(member, x, rule, level), ...);
    };
    test(Orb16s{}, raised, &orbsThreshold_LT_16s, &orbsThreshold_LT_16s_I);
    test(Orb32s{}, raised, &orbsThreshold_LT_32s, &orbsThreshold_LT_32s_I);
    test(Orb32f{}, raised, &orbsThreshold_LT_32f, &orbsThreshold_LT_32f_I);
    test(Orb64f{}, raised, &orbsThreshold_LT_64f, &orbsThreshold_LT_64f_I);
    test(Orb16sc{}, raised, &orbsThreshold_LT_16sc, &orbsThreshold_LT_16sc_I);
    test(Orb32fc{}, raised, &orbsThreshold_LT_32fc, &orbsThreshold_LT_32fc_I);
    test(Orb64fc{}, raised, &orbsThreshold_LT_64fc, &orbsThreshold_LT_64fc_I);
    test(Orb16s{}, lowered, &orbsThreshold_GT_16s, &orbsThreshold_GT_16s_I);
    test(Orb32s{}, lowered, &orbsThreshold_GT_32s, &orbsThreshold_GT_32s_I);
    test(Orb32f{}, lowered, &orbsThreshold_GT_32f, &orbsThreshold_GT_32f_I);
    test(Orb64f{}, lowered, &orbsThreshold_GT_64f, &orbsThreshold_GT_64f_I);
    test(Orb16sc{}, lowered, &orbsThreshold_GT_16sc, &orbsThreshold_GT_16sc_I);
    test(Orb32fc{}, lowered, &orbsThreshold_GT_32fc, &orbsThreshold_GT_32fc_I);
    test(Orb64fc{}, lowered, &orbsThreshold_GT_64fc, &orbsThreshold_GT_64fc_I);
}

TEST(Threshold, ByRelation) {
    const auto test = [](auto element, auto... member) {
        using T = decltype(element);
        const auto rule = [](T t, Part<T> level, int relOp) {
            return relOp == 4 ? lowered(t, level) : raised(t, level);
        };
        for (const Part<T> level : levelsFor<T>())
            for (const int relOp : {0, 4, 1, 5, -4}) (expectRule(member, elements<T>(), rule, level, relOp), ...);
    };
    test(Orb16s{}, &orbsThreshold_16s, &orbsThreshold_16s_I);
    test(Orb32f{}, &orbsThreshold_32f, &orbsThreshold_32f_I);
    test(Orb64f{}, &orbsThreshold_64f, &orbsThreshold_64f_I);
    test(Orb16sc{}, &orbsThreshold_16sc, &orbsThreshold_16sc_I);
    test(Orb32fc{}, &orbsThreshold_32fc, &orbsThreshold_32fc_I);
    test(Orb64fc{}, &orbsThreshold_64fc, &orbsThreshold_64fc_I);
}

// Squares of single precision that overflow or vanish decide, but the limited magnitude is as exact as any.
TEST(Threshold, OfSinglePrecisionKeepsThePhaseOfLargeAndSmallElements) {
    const std::vector<Orb32fc> z{{3e30f, -4e30f}, {3e-30f, 4e-30f}, {3e-38f, -4e-42f}, {0, 3e-22f}};
    const auto limited = [](Orb32fc t, Orb32f level) { return toMagnitude(t, level); };
    const auto same = [](Orb32fc t, Orb32f) { return t; };
    expectRule(&orbsThreshold_GT_32fc, std::vector{z[0]}, limited, 5.0f);
    expectRule(&orbsThreshold_LT_32fc, std::vector{z[1], z[2], z[3]}, limited, 5.0f);
    expectRule(&orbsThreshold_GT_32fc, z, same, 3e38f); // its square is infinite
}

TEST(Threshold, OfIntegersRoundsToNearestInEveryMode) {
    const std::vector<Orb16sc> z = elements<Orb16sc>();
    const auto want = call(&orbsThreshold_LT_16sc, z, Orb16s{30001}).y;
    for (const Orb32u mode : support::roundingModes)
        support::inMode(mode, [&] {
            EXPECT_TRUE(sameBits(call(&orbsThreshold_LT_16sc, z, Orb16s{30001}).y, want, z));
            return 0;
        });
}

TEST(Threshold, ReplacesByAValue) {
    const auto test = [](auto element, auto beyond, auto... member) {
        using T = decltype(element);
        const T value = support::randomVector<T>(3)[2];
        const auto rule = [=](T t, Part<T> level, T v) { return beyond(t, level) ? v : t; };
        for (const Part<T> level : levelsFor<T>()) (expectRule(member, elements<T>(), rule, level, value), ...);
    };
    const auto below = [](auto x, auto level) { return isBelow(x, level); };
    const auto above = [](auto x, auto level) { return isAbove(x, level); };
    test(Orb16s{}, below, &orbsThreshold_LTVal_16s, &orbsThreshold_LTVal_16s_I);
    test(Orb32f{}, below, &orbsThreshold_LTVal_32f, &orbsThreshold_LTVal_32f_I);
    test(Orb64f{}, below, &orbsThreshold_LTVal_64f, &orbsThreshold_LTVal_64f_I);
    test(Orb16sc{}, below, &orbsThreshold_LTVal_16sc, &orbsThreshold_LTVal_16sc_I);
    test(Orb32fc{}, below, &orbsThreshold_LTVal_32fc, &orbsThreshold_LTVal_32fc_I);
    test(Orb64fc{}, below, &orbsThreshold_LTVal_64fc, &orbsThreshold_LTVal_64fc_I);
    test(Orb16s{}, above, &orbsThreshold_GTVal_16s, &orbsThreshold_GTVal_16s_I);
    test(Orb32f{}, above, &orbsThreshold_GTVal_32f, &orbsThreshold_GTVal_32f_I);
    test(Orb64f{}, above, &orbsThreshold_GTVal_64f, &orbsThreshold_GTVal_64f_I);
    test(Orb16sc{}, above, &orbsThreshold_GTVal_16sc, &orbsThreshold_GTVal_16sc_I);
    test(Orb32fc{}, above, &orbsThreshold_GTVal_32fc, &orbsThreshold_GTVal_32fc_I);
    test(Orb64fc{}, above, &orbsThreshold_GTVal_64fc, &orbsThreshold_GTVal_64fc_I);
}

// A NaN is below; levels may be equal.
TEST(Threshold, ReplacesOnBothSides) {
    const auto test = [](auto element, auto... member) {
        using T = decltype(element);
        const auto rule = [](T t, T low, T valueLow, T high, T valueHigh) {
            return !(t >= low) ? valueLow : t > high ? valueHigh : t;
        };
        for (const T low : anyLevels<T>())
            for (const T high : anyLevels<T>())
                if (high >= low) (expectRule(member, elements<T>(), rule, low, T{17}, high, T{-9}), ...);
    };
    test(Orb16s{}, &orbsThreshold_LTValGTVal_16s, &orbsThreshold_LTValGTVal_16s_I);
    test(Orb32s{}, &orbsThreshold_LTValGTVal_32s, &orbsThreshold_LTValGTVal_32s_I);
    test(Orb32f{}, &orbsThreshold_LTValGTVal_32f, &orbsThreshold_LTValGTVal_32f_I);
    test(Orb64f{}, &orbsThreshold_LTValGTVal_64f, &orbsThreshold_LTValGTVal_64f_I);
}

TEST(Threshold, LimitsMagnitudes) {
    const auto magnitude = [](auto t) {
        if constexpr (std::is_floating_point_v<decltype(t)>) {
            return std::abs(t);
        } else {
            return std::abs(std::int64_t{t});
        }
    };
    const auto signedLevel = [](auto t, auto level) {
        using T = decltype(t);
        if constexpr (std::is_floating_point_v<T>) level = std::abs(level); // of -0
        return static_cast<T>(t < 0 ? -level : level);
    };
    const auto atLeast = [=](auto t, auto level) { return magnitude(t) < level ? signedLevel(t, level) : t; };
    const auto atMost = [=](auto t, auto level) { return magnitude(t) > level ? signedLevel(t, level) : t; };
    const auto test = [](auto element, auto rule, auto... member) {
        using T = decltype(element);
        for (const T level : levels<T>()) (expectRule(member, elements<T>(), rule, level), ...);
    };
    test(Orb16s{}, atLeast, &orbsThreshold_LTAbs_16s, &orbsThreshold_LTAbs_16s_I);
    test(Orb32s{}, atLeast, &orbsThreshold_LTAbs_32s, &orbsThreshold_LTAbs_32s_I);
    test(Orb32f{}, atLeast, &orbsThreshold_LTAbs_32f, &orbsThreshold_LTAbs_32f_I);
    test(Orb64f{}, atLeast, &orbsThreshold_LTAbs_64f, &orbsThreshold_LTAbs_64f_I);
    test(Orb16s{}, atMost, &orbsThreshold_GTAbs_16s, &orbsThreshold_GTAbs_16s_I);
    test(Orb32s{}, atMost, &orbsThreshold_GTAbs_32s, &orbsThreshold_GTAbs_32s_I);
    test(Orb32f{}, atMost, &orbsThreshold_GTAbs_32f, &orbsThreshold_GTAbs_32f_I);
    test(Orb64f{}, atMost, &orbsThreshold_GTAbs_64f, &orbsThreshold_GTAbs_64f_I);
}

// ---- LTInv ----

constexpr auto reciprocal = [](auto x, auto level) {
    using T = decltype(x);
    using Real = Part<T>;
    if constexpr (!isComplex<T>) {
        if (level == 0) return 1 / x;
        const Real m = std::abs(x) > level ? std::abs(x) : level;
        return 1 / std::copysign(m, x);
    } else {
        const double re = x.re, im = x.im, limit = level, s = re * re + im * im;
        if (s == 0) return T{static_cast<Real>(1 / std::abs(limit)), 0};
        const double divisor = s < limit * limit ? std::sqrt(s) * limit : s;
        if constexpr (sizeof(Real) == 8) return T{re / divisor, -im / divisor};
        return T{static_cast<Real>(re * (1 / divisor)), static_cast<Real>(-im * (1 / divisor))};
    }
};

template <class T, class... Member>
void expectReciprocals(Member... member) {
    const auto x = elements<T>();
    for (const Part<T> level : levels<Part<T>>()) (expectRule(member, x, reciprocal, level), ...);
    auto withoutZero = support::randomVector<T>(50);
    for (const Part<T> level : {Part<T>{0}, Part<T>{-0.0}, Part<T>{1}}) {
        auto withZero = withoutZero;
        withZero[31] = {};
        EXPECT_TRUE((... && (call(member, withoutZero, level).status == orbStsNoErr)));
        EXPECT_TRUE((... && (call(member, withZero, level).status == (level == 0 ? orbStsDivByZero : orbStsNoErr))));
    }
}

TEST(Threshold, Reciprocals) {
    expectReciprocals<Orb32f>(&orbsThreshold_LTInv_32f, &orbsThreshold_LTInv_32f_I);
    expectReciprocals<Orb64f>(&orbsThreshold_LTInv_64f, &orbsThreshold_LTInv_64f_I);
    expectReciprocals<Orb32fc>(&orbsThreshold_LTInv_32fc, &orbsThreshold_LTInv_32fc_I);
    expectReciprocals<Orb64fc>(&orbsThreshold_LTInv_64fc, &orbsThreshold_LTInv_64fc_I);
}

// The status is that of the call's own divisions, the caller's flags stay, and what the caller unmasked does not trap.
TEST(Threshold, ReciprocalsLeaveTheControlRegisterAlone) {
    const auto test = [](auto member, auto element) {
        using T = decltype(element);
        const std::vector<T> x(40, element), zeros(40);
        const Orb32u earlier = _mm_getcsr(), flags[] = {0, _MM_EXCEPT_DIV_ZERO | _MM_EXCEPT_UNDERFLOW};
        for (const Orb32u flag : flags) {
            for (const Part<T> level : {Part<T>{0}, Part<T>{0.1f}, std::numeric_limits<Part<T>>::quiet_NaN()}) {
                const auto run = [&](const std::vector<T>& from) {
                    std::vector<T> to(from.size());
                    const Orb32u control = (earlier & ~Orb32u{_MM_MASK_MASK | _MM_EXCEPT_MASK}) | flag;
                    _mm_setcsr(control);
                    const OrbStatus status = member(from.data(), to.data(), static_cast<int>(to.size()), level);
                    const Orb32u after = _mm_getcsr();
                    _mm_setcsr(earlier);
                    EXPECT_EQ(after, control) << callOf(member, level);
                    return status;
                };
                const OrbStatus usual = level >= 0 ? orbStsNoErr : orbStsThreshNegLevelErr;
                EXPECT_EQ(run(x), usual) << callOf(member, level);
                EXPECT_EQ(run(zeros), level == 0 ? orbStsDivByZero : usual) << callOf(member, level);
            }
        }
    };
    test(&orbsThreshold_LTInv_32f, 3e-40f);
    test(&orbsThreshold_LTInv_64f, 0.3);
    test(&orbsThreshold_LTInv_32fc, Orb32fc{1e-30f, 0.3f});
    test(&orbsThreshold_LTInv_64fc, Orb64fc{0.3, 1e-200});
}

TEST(Threshold, ReciprocalsAreTheSameForEveryThreadCount) {
    const auto test = [](auto element, auto member, std::size_t from) {
        using T = decltype(element);
        for (const int threads : {1, 2, 3}) {
            const support::ThreadCount count(threads);
            for (const std::size_t len : {from - 1, from, from + 1, 2 * from + 7}) {
                auto x = support::randomVector<T>(len);
                for (const Part<T> level : {Part<T>{0}, Part<T>{0.5}}) expectRule(member, x, reciprocal, level);
                for (const std::size_t at : {std::size_t{0}, len - 1}) {
                    x = support::randomVector<T>(len);
                    x[at] = {};
                    EXPECT_EQ(call(member, x, Part<T>{0}).status, orbStsDivByZero) << threads << " threads, " << len;
                }
            }
        }
    };
    test(Orb32f{}, &orbsThreshold_LTInv_32f, 8192);
    test(Orb64f{}, &orbsThreshold_LTInv_64f_I, 2048);
    test(Orb32fc{}, &orbsThreshold_LTInv_32fc_I, 2048);
    test(Orb64fc{}, &orbsThreshold_LTInv_64fc, 512);
}

} // namespace
