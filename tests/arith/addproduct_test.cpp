// AddProduct and AddProductC.
#include "support/member.h"

namespace {

using namespace member;

// Calls the member over a copy of `sum` and compares with rule(a, b, sum).
template <class A, class D, class Call, class Rule>
void expectSums(const std::string& name, Call call, Rule rule, const std::vector<A>& a, const std::vector<A>& b,
                const std::vector<D>& sum) {
    std::vector<D> want(sum.size());
    for (std::size_t n = 0; n < sum.size(); ++n) want[n] = rule(a[n], b[n], sum[n]);
    Guarded<D> dst(sum.size());
    std::copy(sum.begin(), sum.end(), dst.begin());
    ASSERT_EQ(call(a.data(), b.data(), dst.data(), static_cast<int>(sum.size())), orbStsNoErr);
    EXPECT_TRUE(sameValues(dst, want, a, b, sum)) << name;
    EXPECT_TRUE(dst.intact()) << name;
}

template <class A, class D, class Rule>
void expectScaledSums(OrbStatus (*function)(const A*, const A*, D*, int, int), Rule rule, int lowest, int highest) {
    for (const int s : support::scaleFactors(lowest - 1, highest + 1)) {
        for (const std::size_t len : {1, 7, 63, 800}) {
            const auto seed = static_cast<unsigned>(s) + len;
            auto sum = support::randomVector<D>(len, seed + 2);
            for (std::size_t n = 0; n < len; n += 3) sum[n] = static_cast<D>(sum[n] % 8); // beside small products, too
            expectSums(
                callOf(function, s), [=](const A* a, const A* b, D* dst, int n) { return function(a, b, dst, n, s); },
                [=](A a, A b, D d) { return rule(a, b, d, s); }, support::randomVector<A>(len, seed),
                support::randomVector<A>(len, seed + 1), sum);
        }
    }
}

TEST(AddProduct, FollowsTheScaleRule) {
    const auto rule = [](auto a, decltype(a) b, auto sum, int s) {
        if (s > 30) return decltype(sum){0}; // whatever it held
        return scaledTo<decltype(sum)>(std::int64_t{a} * b + sum, s);
    };
    expectScaledSums(&orbsAddProduct_16s_Sfs, rule, -15, 31);
    expectScaledSums(&orbsAddProduct_16s32s_Sfs, rule, -31, 31);
}

// Product and sum are rounded to 53 bits, to nearest whatever the caller's mode; without scale the sum is cut off.
TEST(AddProduct, Of32BitsIsComputedInDouble) {
    const auto rule = [](Orb32s a, Orb32s b, Orb32s sum, int s) {
        if (s > 62) return 0;
        if (s < -30) return scaledTo<Orb32s>(std::int64_t{a} * b + sum, s);
        const int mode = std::fegetround();
        std::fesetround(FE_TONEAREST);
        const double r = std::ldexp(static_cast<double>(a) * b + sum, -s);
        const double integer = s == 0 ? std::trunc(r) : std::nearbyint(r);
        std::fesetround(mode);
        return static_cast<Orb32s>(std::clamp(integer, -2147483648.0, 2147483647.0));
    };
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD}) {
        std::fesetround(other);
        expectScaledSums(&orbsAddProduct_32s_Sfs, rule, -31, 62);
        EXPECT_EQ(std::fegetround(), other);
    }
    std::fesetround(mode);
}

// Never fused: (1 + e)^2 - (1 + 2e) is 0 after rounding, e^2 without.
TEST(AddProduct, OfFloatsRoundsTheProductFirst) {
    const auto test = [](auto function, auto zero) {
        using T = decltype(zero);
        using Part = support::Part<T>;
        const Part e = std::numeric_limits<Part>::epsilon();
        for (const std::size_t len : {1, 3, 8, 100}) {
            auto a = support::randomVector<T>(len, 1), b = support::randomVector<T>(len, 2);
            auto sum = support::randomVector<T>(len, 3);
            a[0] = element<T>(1 + e, Part{0}), b[0] = a[0], sum[0] = element<T>(-1 - 2 * e, Part{0});
            const auto rule = [](T x, T y, T d) -> T {
                if constexpr (support::isComplex<T>) {
                    return {d.re + (x.re * y.re - x.im * y.im), d.im + (x.re * y.im + x.im * y.re)};
                } else {
                    return d + x * y;
                }
            };
            expectSums(callOf(function), function, rule, a, b, sum);
        }
    };
    test(&orbsAddProduct_32f, Orb32f{});
    test(&orbsAddProduct_64f, Orb64f{});
    test(&orbsAddProduct_32fc, Orb32fc{});
    test(&orbsAddProduct_64fc, Orb64fc{});

    const auto a = support::randomVector<Orb32f>(101, 1), sum = support::randomVector<Orb32f>(101, 2);
    for (const Orb32f val : {0.0f, 1.0f, 0.3f, std::numeric_limits<float>::quiet_NaN()})
        expectSums(
            callOf(&orbsAddProductC_32f, val),
            [=](const Orb32f* x, const Orb32f*, Orb32f* dst, int n) { return orbsAddProductC_32f(x, val, dst, n); },
            [=](Orb32f x, Orb32f, Orb32f d) { return d + x * val; }, a, a, sum);
}

// However the destination lies over the sources, the result is that of a loop over ascending n.
TEST(AddProduct, OverlapIsThatOfAnAscendingLoop) {
    const int len = 75;
    for (int first = 0; first <= 40; ++first) {
        for (int second : {first, 40, 3}) {
            const auto memory = support::randomVector<Orb64f>(200, static_cast<unsigned>(first));
            auto want = memory, got = memory;
            for (int n = 0; n < len; ++n) want[20 + n] += want[first + n] * want[second + n];
            ASSERT_EQ(orbsAddProduct_64f(got.data() + first, got.data() + second, got.data() + 20, len), orbStsNoErr);
            EXPECT_TRUE(sameValues(got, want)) << "AddProduct_64f from " << first << " and " << second << " to 20";
        }
    }
}

} // namespace
