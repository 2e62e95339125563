// Min, Max, MinMax, MinAbs, MaxAbs and their forms with places; MinEvery and MaxEvery.
#include "support/member.h"

namespace {

using support::callOf;
using support::sameBits;

// ---- The formulas ----

template <class T>
struct Found {
    T value;
    int place;
};

// The first element of the best key, where better(x, y) tells that the key x is the better one.
template <class T, class Key, class Better>
Found<T> first(const std::vector<T>& x, Key key, Better better) {
    std::size_t at = 0;
    for (std::size_t n = 1; n < x.size(); ++n)
        if (better(key(x[n]), key(x[at]))) at = n;
    return {x[at], static_cast<int>(at)};
}

template <class T>
constexpr bool isFloat = std::is_floating_point_v<T>;
template <class T>
bool isShort(const std::vector<T>& x) {
    return x.size() < (sizeof(T) == 4 ? 34 : 32);
}

// Of a vector that is long and not all NaN, the elements that are none.
template <class T>
bool passesOver(const std::vector<T>& x) {
    return isFloat<T> && !isShort(x) && std::ranges::any_of(x, [](T t) { return t == t; });
}
constexpr auto itself = [](auto t) { return t; };

template <class T>
Found<T> least(std::vector<T> x) {
    if (passesOver(x)) {
        std::vector<T> known = x;
        std::ranges::replace_if(
            known, [](T t) { return t != t; }, std::numeric_limits<T>::infinity());
        const T best = *std::ranges::min_element(known);
        const auto at = std::ranges::find(x, best) - x.begin();
        return {x[static_cast<std::size_t>(at)], static_cast<int>(at)};
    }
    if (!isShort(x)) return first(x, itself, std::less());
    return first(x, itself, [](T t, T best) { return !(t >= best); });
}
template <class T>
Found<T> greatest(std::vector<T> x) {
    if (passesOver(x)) {
        std::vector<T> known = x;
        std::ranges::replace_if(
            known, [](T t) { return t != t; }, -std::numeric_limits<T>::infinity());
        const T best = *std::ranges::max_element(known);
        const auto at = std::ranges::find(x, best) - x.begin();
        return {x[static_cast<std::size_t>(at)], static_cast<int>(at)};
    }
    return first(x, itself, std::greater());
}

template <class T>
Orb64s magnitude(T t) {
    const Orb64s m = std::abs(Orb64s{t});
    return sizeof(T) == 2 ? std::min<Orb64s>(m, 32767) : m;
}
template <class T, class Better>
Found<T> ofMagnitudes(const std::vector<T>& x, Better better) {
    Found<T> found = first(x, magnitude<T>, better);
    found.value = static_cast<T>(std::min<Orb64s>(magnitude(found.value), std::numeric_limits<T>::max()));
    return found;
}
constexpr auto leastMagnitude = [](const auto& x) { return ofMagnitudes(x, std::less()); };
constexpr auto greatestMagnitude = [](const auto& x) { return ofMagnitudes(x, std::greater()); };

// ---- Members ----

template <class T>
struct Members {
    OrbStatus (*plain)(const T*, int, T*);
    OrbStatus (*placed)(const T*, int, T*, Orb32s*);
};

// The same value from both.
template <class T>
void expectFound(Members<T> members, const std::vector<T>& x, Found<T> want) {
    const auto len = static_cast<int>(x.size());
    T value{}, again{};
    Orb32s place = -1;
    ASSERT_EQ(members.plain(x.data(), len, &value), orbStsNoErr);
    ASSERT_EQ(members.placed(x.data(), len, &again, &place), orbStsNoErr);
    ASSERT_TRUE(sameBits(&again, &want.value, 1)) << callOf(members.placed) << ", len " << len;
    ASSERT_EQ(place, want.place) << callOf(members.placed) << ", len " << len;
    ASSERT_TRUE(sameBits(&value, &want.value, 1)) << callOf(members.plain) << ", len " << len;
}

template <class T>
void expectBoth(const std::vector<T>& x, OrbStatus (*plain)(const T*, int, T*, T*),
                OrbStatus (*placed)(const T*, int, T*, Orb32s*, T*, Orb32s*)) {
    const auto len = static_cast<int>(x.size());
    const Found<T> low = least(x), high = greatest(x);
    const T want[] = {low.value, high.value};
    T values[2], again[2];
    Orb32s places[2];
    ASSERT_EQ(plain(x.data(), len, &values[0], &values[1]), orbStsNoErr);
    ASSERT_EQ(placed(x.data(), len, &again[0], &places[0], &again[1], &places[1]), orbStsNoErr);
    ASSERT_TRUE(sameBits(values, want, 2)) << callOf(plain) << ", len " << len;
    ASSERT_TRUE(sameBits(again, want, 2)) << callOf(placed) << ", len " << len;
    ASSERT_EQ(places[0], low.place) << callOf(placed) << ", len " << len;
    ASSERT_EQ(places[1], high.place) << callOf(placed) << ", len " << len;
}

// Calls test(x) with vectors whose extremes stand everywhere, more than once, and beside what is worse by one.
template <class T, class Test>
void forEachVector(Test test) {
    using Limits = std::numeric_limits<T>;
    std::vector<std::size_t> lengths{1000, 2500, 5003, 20011};
    for (std::size_t len = 1; len <= 300; len += len < 140 ? 1 : 13) lengths.push_back(len);
    for (const std::size_t len : lengths) {
        auto x = support::randomVector<T>(len);
        test(x);
        for (T& t : x) t = static_cast<T>(static_cast<Orb64s>(t * 3.0) % 5); // ties
        test(x);
        for (const T fill : {Limits::lowest(), Limits::max(), T{0}}) test(std::vector<T>(len, fill));
        for (const T extreme : {Limits::lowest(), Limits::max()}) {
            for (const std::size_t at : {std::size_t{0}, len / 3, len / 2, len - 1}) {
                std::vector<T> one(len, T{1});
                one[at] = extreme;
                test(one);
                one[len - 1] = one[len / 2] = extreme;
                test(one);
            }
        }
        for (std::size_t n = 0; n < len; ++n) x[n] = static_cast<T>(n);
        test(x);
        std::ranges::reverse(x);
        test(x);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

template <class T>
void expectLeastAndGreatest(Members<T> min, Members<T> max) {
    forEachVector<T>([=](const std::vector<T>& x) {
        expectFound(min, x, least(x));
        expectFound(max, x, greatest(x));
    });
}

// ---- Tests ----

TEST(Extremes, AreTheFirstOfTheirValue) {
    expectLeastAndGreatest<Orb16s>({orbsMin_16s, orbsMinIndx_16s}, {orbsMax_16s, orbsMaxIndx_16s});
    expectLeastAndGreatest<Orb32s>({orbsMin_32s, orbsMinIndx_32s}, {orbsMax_32s, orbsMaxIndx_32s});
    expectLeastAndGreatest<Orb32f>({orbsMin_32f, orbsMinIndx_32f}, {orbsMax_32f, orbsMaxIndx_32f});
    expectLeastAndGreatest<Orb64f>({orbsMin_64f, orbsMinIndx_64f}, {orbsMax_64f, orbsMaxIndx_64f});
}

TEST(Extremes, BothAtOnce) {
    const auto test = [](auto plain, auto placed) {
        using T = std::remove_pointer_t<decltype(
            []<class E>(OrbStatus (*)(const E*, int, E*, E*)) -> E* { return nullptr; }(plain))>;
        forEachVector<T>([=](const std::vector<T>& x) { expectBoth<T>(x, plain, placed); });
    };
    test(&orbsMinMax_8u, &orbsMinMaxIndx_8u);
    test(&orbsMinMax_16u, &orbsMinMaxIndx_16u);
    test(&orbsMinMax_16s, &orbsMinMaxIndx_16s);
    test(&orbsMinMax_32u, &orbsMinMaxIndx_32u);
    test(&orbsMinMax_32s, &orbsMinMaxIndx_32s);
    test(&orbsMinMax_32f, &orbsMinMaxIndx_32f);
    test(&orbsMinMax_64f, &orbsMinMaxIndx_64f);
}

TEST(Extremes, OfMagnitudes) {
    const auto test = [](auto element, auto min, auto max) {
        using T = decltype(element);
        forEachVector<T>([=](std::vector<T> x) {
            expectFound<T>(min, x, leastMagnitude(x));
            expectFound<T>(max, x, greatestMagnitude(x));
            for (T& t : x) t = std::max<T>(t, -std::numeric_limits<T>::max()), t = static_cast<T>(-t);
            x[x.size() / 2] = std::numeric_limits<T>::min();
            expectFound<T>(max, x, greatestMagnitude(x));
        });
    };
    test(Orb16s{}, Members<Orb16s>{orbsMinAbs_16s, orbsMinAbsIndx_16s},
         Members<Orb16s>{orbsMaxAbs_16s, orbsMaxAbsIndx_16s});
    test(Orb32s{}, Members<Orb32s>{orbsMinAbs_32s, orbsMinAbsIndx_32s},
         Members<Orb32s>{orbsMaxAbs_32s, orbsMaxAbsIndx_32s});
}

// -32768 ties with 32767, but -2147483648 lies above 2147483647.
TEST(Extremes, OfTheLeastInteger) {
    expectFound<Orb16s>({orbsMaxAbs_16s, orbsMaxAbsIndx_16s}, {3, 32767, -32768}, {32767, 1});
    expectFound<Orb32s>({orbsMaxAbs_32s, orbsMaxAbsIndx_32s}, {3, INT_MAX, INT_MIN}, {INT_MAX, 2});
    expectFound<Orb32s>({orbsMinAbs_32s, orbsMinAbsIndx_32s}, {INT_MIN, INT_MAX, INT_MIN}, {INT_MAX, 1});
}

template <class T>
void expectWithNans(Members<T> min, Members<T> max, OrbStatus (*both)(const T*, int, T*, T*),
                    OrbStatus (*placed)(const T*, int, T*, Orb32s*, T*, Orb32s*)) {
    using Limits = std::numeric_limits<T>;
    const T nan = Limits::quiet_NaN(), infinity = Limits::infinity();
    expectFound(min, {5, nan, 7}, {7, 2});
    expectFound(min, {5, 7, nan}, {nan, 2});
    expectFound(max, {5, nan, 7}, {7, 2});
    expectFound(max, {nan, 5, 7}, {nan, 0});
    const auto test = [=](const std::vector<T>& x) {
        expectFound(min, x, least(x));
        expectFound(max, x, greatest(x));
        expectBoth(x, both, placed);
    };
    for (const std::size_t len : {1, 7, 31, 32, 33, 34, 35, 63, 64, 65, 100, 129, 1000, 3001}) {
        test(std::vector<T>(len, nan));
        for (const T fill : {T{-0.0}, T{0}, infinity, -infinity, nan, T{1}}) {
            for (const T odd : {T{-0.0}, T{0}, infinity, -infinity, nan, T{-2}, Limits::denorm_min()}) {
                for (const std::size_t at : {std::size_t{0}, len / 2, len - 1}) {
                    std::vector<T> x(len, fill);
                    x[at] = odd;
                    test(x);
                    if (at > 0) x[at - 1] = nan;
                    test(x);
                }
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

// The bits of the first of the equal ones are stored, and of a zero the sign.
TEST(Extremes, OfNansInfinitiesAndZeros) {
    expectWithNans<Orb32f>({orbsMin_32f, orbsMinIndx_32f}, {orbsMax_32f, orbsMaxIndx_32f}, orbsMinMax_32f,
                           orbsMinMaxIndx_32f);
    expectWithNans<Orb64f>({orbsMin_64f, orbsMinIndx_64f}, {orbsMax_64f, orbsMaxIndx_64f}, orbsMinMax_64f,
                           orbsMinMaxIndx_64f);
}

TEST(Extremes, WithoutAPlaceToStoreIt) {
    const Orb32f x[] = {1, 3, 3};
    Orb32f value;
    EXPECT_EQ(orbsMaxIndx_32f(x, 3, &value, nullptr), orbStsNoErr);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(orbsMinIndx_32f(x, 3, &value, nullptr), orbStsNoErr);
    EXPECT_EQ(value, 1);
}

TEST(Every, TakesTheLesserOrGreater) {
    const auto lesser = [](auto src, auto srcDst, int) { return src < srcDst ? src : srcDst; };
    const auto greater = [](auto src, auto srcDst, int) { return src > srcDst ? src : srcDst; };
    const auto test = [](auto rule, auto... function) { (member::expectScaled(function, rule, 0, 0), ...); };
    test(lesser, &orbsMinEvery_8u_I, &orbsMinEvery_16u_I, &orbsMinEvery_16s_I, &orbsMinEvery_32s_I);
    test(greater, &orbsMaxEvery_8u_I, &orbsMaxEvery_16u_I, &orbsMaxEvery_16s_I, &orbsMaxEvery_32s_I);
    member::expectAsTheProcessor(&orbsMinEvery_32f_I, lesser);
    member::expectAsTheProcessor(&orbsMaxEvery_32f_I, greater);
}

} // namespace
