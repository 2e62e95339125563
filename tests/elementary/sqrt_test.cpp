// Sqrt.
#include "support/threads.h"
#include "support/unary_member.h"

#include <cfenv>
#include <xmmintrin.h>

namespace {

using namespace unary_member;

// ---- Integers: is y the nearest integer to the root of x * 4^-s? All in integers of 128 bits. ----

struct Wide {
    Orb64u high, low;
    auto operator<=>(const Wide&) const = default;
};
Wide squareOf(Orb64u v) {
    const Orb64u a = v >> 32, b = v & 0xffffffff, ab = a * b; // a^2 * 2^64 + ab * 2^33 + b^2
    const Orb64u low = b * b + (ab << 33);
    return {a * a + (ab >> 31) + (low < b * b), low};
}
// All ones if bits get lost: such an x has a root beyond every type.
Wide shifted(Wide v, int by) {
    for (; by > 0; --by) {
        if (v.high >> 63) return {~Orb64u{0}, ~Orb64u{0}};
        v = {v.high << 1 | v.low >> 63, v.low << 1};
    }
    return v;
}

// 2y - 1 <= 2 * root <= 2y + 1, where equality is a tie, right for an even y only.
template <class R>
bool isNearestRoot(Orb64u x, int s, R y) {
    const Wide square = shifted({0, x}, 2 - 2 * std::clamp(s, -70, 0));
    const int up = 2 * std::clamp(s, 0, 70);
    const bool even = y % 2 == 0;
    const auto root = static_cast<Orb64u>(y);
    if (y < 0) return false;
    if (y > 0 && y != std::numeric_limits<R>::max() + Orb64u{0}) {
        const Wide least = shifted(squareOf(2 * root - 1), up);
        if (even ? square < least : square <= least) return false;
    } else if (y > 0) { // the largest value: everything from its lower tie on
        return square > squareOf(root - 1);
    }
    const Wide most = shifted(squareOf(2 * root + 1), up);
    return even ? square <= most : square < most;
}

template <class Member, class S>
void expectRoots(Member function, const std::vector<S>& x, int s) {
    const auto got = call(function, x, s);
    bool negative = false;
    for (std::size_t n = 0; n < x.size(); ++n) {
        negative |= x[n] < 0;
        ASSERT_TRUE(x[n] < 0 ? got.y[n] == 0 : isNearestRoot(static_cast<Orb64u>(x[n]), s, got.y[n]))
            << callOf(function, s) << ": element " << n << " is " << +got.y[n] << ", not the root of " << +x[n];
    }
    EXPECT_EQ(got.status, negative ? orbStsSqrtNegArg : orbStsNoErr) << callOf(function, s);
}
template <class S, class... Member>
void expectRootsAtEveryScale(const std::vector<S>& x, int lowest, int highest, Member... function) {
    for (const int s : support::scaleFactors(lowest - 2, highest + 2)) (expectRoots(function, x, s), ...);
}

// Squares, squares of the middles between integers at every scale, and what lies beside them.
template <class T>
std::vector<T> aroundSquares(Orb64u largestRoot) {
    auto x = support::randomVector<T>(500);
    support::Random random(5);
    for (int n = 0; n < 3000; ++n) {
        const Orb64u root = n < 200 ? static_cast<Orb64u>(n) : (random() % largestRoot >> random() % 32) + 1;
        for (int near = -1; near <= 1; ++near) {
            for (const Orb64u square : {root * root, root * (root + 1)}) {
                const auto v = static_cast<std::int64_t>(square + static_cast<Orb64u>(near));
                if (v >= 0 && v <= std::numeric_limits<T>::max()) x.push_back(static_cast<T>(v));
            }
        }
    }
    return x;
}

TEST(Sqrt, OfIntegersIsTheNearestIntegerAtEveryScale) {
    const support::ThreadCount one(1);
    expectRootsAtEveryScale(everyValue<Orb8u>(), -8, 4, &orbsSqrt_8u_Sfs, &orbsSqrt_8u_ISfs);
    expectRootsAtEveryScale(everyValue<Orb16u>(), -16, 8, &orbsSqrt_16u_Sfs, &orbsSqrt_16u_ISfs);
    expectRootsAtEveryScale(everyValue<Orb16s>(), -15, 8, &orbsSqrt_16s_Sfs, &orbsSqrt_16s_ISfs);
    expectRootsAtEveryScale(aroundSquares<Orb32s>(46340), -15, 16, &orbsSqrt_32s16s_Sfs);
    expectRootsAtEveryScale(aroundSquares<Orb64s>(3037000499), -15, 32, &orbsSqrt_64s16s_Sfs);
    expectRootsAtEveryScale(aroundSquares<Orb64s>(3037000499), -64, 32, &orbsSqrt_64s_Sfs, &orbsSqrt_64s_ISfs);
}

// Without a negative element there is no warning; with one anywhere there is, from either half too.
TEST(Sqrt, WarnsOfANegativeElementInEitherHalf) {
    const auto test = [](auto function, auto element, int from) {
        for (const int threads : {1, 2, 5}) {
            const support::ThreadCount count(threads);
            const auto len = static_cast<std::size_t>(from) + 1;
            for (const std::size_t at : {std::size_t{0}, len / 2 - 1, len / 2, len - 1, len}) {
                std::vector<decltype(element)> x(len, 1);
                if (at < len) x[at] = -1;
                const auto got = [&] {
                    if constexpr (std::is_floating_point_v<decltype(element)>) {
                        return call(function, x);
                    } else {
                        return call(function, x, 0);
                    }
                }();
                EXPECT_EQ(got.status, at < len ? orbStsSqrtNegArg : orbStsNoErr)
                    << callOf(function) << ", negative element " << at << " of " << len << ", " << threads
                    << " threads";
            }
        }
    };
    test(&orbsSqrt_16s_Sfs, Orb16s{}, 2048);
    test(&orbsSqrt_32s16s_Sfs, Orb32s{}, 1024);
    test(&orbsSqrt_64s16s_Sfs, Orb64s{}, 512);
    test(&orbsSqrt_64s_Sfs, Orb64s{}, 256);
    test(&orbsSqrt_32f, Orb32f{}, 4096);
    test(&orbsSqrt_64f, Orb64f{}, 512);
}

// ---- Floats ----

template <class T>
void expectFloatRoots(OrbStatus (*function)(const T*, T*, int), OrbStatus (*inPlace)(T*, int)) {
    using Limits = std::numeric_limits<T>;
    const T nan = Limits::quiet_NaN();
    const auto root = [](T x) { return std::sqrt(x); };
    struct {
        T x;
        OrbStatus status;
    } const cases[] = {
        {0, orbStsNoErr},
        {T{-0.0}, orbStsNoErr},
        {-Limits::denorm_min(), orbStsSqrtNegArg},
        {-1, orbStsSqrtNegArg},
        {Limits::infinity(), orbStsNoErr},
        {-Limits::infinity(), orbStsSqrtNegArg},
        {nan, orbStsNoErr},
        {-nan, orbStsSqrtNegArg},
        {Limits::denorm_min(), orbStsNoErr},
        {2, orbStsNoErr},
        {Limits::max(), orbStsNoErr},
    };
    for (const auto& c : cases) {
        for (const std::size_t at : {0, 16, 36}) {
            std::vector<T> x(37, T{2});
            x[at] = c.x;
            expectRule(function, x, root);
            expectRule(inPlace, x, root);
            EXPECT_EQ(call(function, x).status, c.status) << callOf(function) << " of " << c.x;
            EXPECT_EQ(call(inPlace, x).status, c.status) << callOf(inPlace) << " of " << c.x;
        }
    }
    auto x = support::randomVector<T>(6000);
    for (T& v : x) v = std::fabs(v);
    const int mode = std::fegetround();
    for (const int threads : {1, 2}) {
        const support::ThreadCount count(threads);
        std::fesetround(FE_UPWARD);
        expectRule(function, x, root);
        std::fesetround(mode);
    }
}
TEST(Sqrt, OfFloatsIsThatOfTheProcessor) {
    expectFloatRoots(&orbsSqrt_32f, &orbsSqrt_32f_I);
    expectFloatRoots(&orbsSqrt_64f, &orbsSqrt_64f_I);
}

// No trap, no flag, and neither control register changes, whatever the caller has set.
TEST(Sqrt, LeavesTheStateOfTheProcessorAlone) {
    const Orb32f x = -2;
    const Orb32fc z{3e38f, -3e38f};
    const Orb16sc zi{-3, 5};
    const Orb64s wide = 1234567890123456789;
    Orb32f y;
    Orb32fc r;
    Orb16sc ri, nearest;
    Orb64s root, nearestRoot;
    orbsSqrt_16sc_Sfs(&zi, &nearest, 1, -5);
    orbsSqrt_64s_Sfs(&wide, &nearestRoot, 1, -31);
    const unsigned callers = _mm_getcsr(), strict = 0x4000u | 0x02u; // upward, everything traps, one flag
    Orb16u x87, x87Strict = 0x0840, x87After;                        // single precision upward
    asm volatile("fnstcw %0" : "=m"(x87));
    x87Strict |= x87 & 0x3f;
    _mm_setcsr(strict);
    asm volatile("fldcw %0" ::"m"(x87Strict));
    const OrbStatus status = orbsSqrt_32f(&x, &y, 1);
    orbsSqrt_32fc(&z, &r, 1);
    orbsSqrt_16sc_Sfs(&zi, &ri, 1, -5);
    orbsSqrt_64s_Sfs(&wide, &root, 1, -31);
    asm volatile("fnstcw %0" : "=m"(x87After));
    asm volatile("fldcw %0" ::"m"(x87));
    const unsigned after = _mm_getcsr();
    _mm_setcsr(callers);
    EXPECT_EQ(after, strict);
    EXPECT_EQ(x87After, x87Strict);
    EXPECT_EQ(status, orbStsSqrtNegArg);
    EXPECT_TRUE(support::identical(ri, nearest));
    EXPECT_EQ(root, nearestRoot);
}

// ---- Complex ----

using Exact = long double;
struct Root {
    Exact re, im;
};
template <class C>
Root rootOf(C z) {
    const Exact re = z.re, im = z.im, x = std::fabs(re), y = std::fabs(im), m = std::sqrt(x * x + y * y);
    const Exact larger = std::sqrt((m + x) / 2), smaller = y == 0 ? 0 : y / (2 * larger);
    return re < 0 ? Root{smaller, std::copysign(larger, im)} : Root{larger, std::copysign(smaller, im)};
}

// Scale factors 1 to 8: |z| is rounded, then half its sum with re, and at last the root of that, in integers. A root
// between two integers goes up, but to the even one where |z| was rounded.
int partOfRounded(int re, int im, int sign, int s) {
    const std::int64_t squares = std::int64_t{re} * re + std::int64_t{im} * im;
    const int m = static_cast<int>(std::lround(std::sqrt(static_cast<double>(squares))));
    const bool isRounded = std::int64_t{m} * m != squares;
    const int sum = m + sign * re, square = (sum + (1 << (2 * s - 1)) + (1 << (2 * s))) >> (2 * s + 1);
    int root = 0;
    while (root * root + root < square) ++root;
    const bool isTie = (2 * root - 1) * (2 * root - 1) * (1 << (2 * s)) == 2 * sum;
    return root - (isTie && isRounded && root % 2 != 0);
}

TEST(Sqrt, OfComplexIntegersScaledDownRoundsTheMagnitudeFirst) {
    auto z = support::randomVector<Orb16sc>(5000);
    z.push_back({-32768, -32768});
    for (Orb16s re = -150; re <= 150; ++re)
        for (Orb16s im = -90; im <= 90; ++im) z.push_back({re, im});
    const auto rounded = [](Orb16sc w, int s) -> Orb16sc {
        const int re = partOfRounded(w.re, w.im, 1, s), im = partOfRounded(w.re, w.im, -1, s);
        return {static_cast<Orb16s>(re), static_cast<Orb16s>(w.im < 0 ? -im : im)};
    };
    for (int s = 1; s <= 8; ++s) {
        expectRule(&orbsSqrt_16sc_Sfs, z, rounded, s);
        expectRule(&orbsSqrt_16sc_ISfs, z, rounded, s);
    }
    EXPECT_EQ(call(&orbsSqrt_16sc_Sfs, std::vector<Orb16sc>{{25, 0}}, 1).y[0].re, 3);
}

// At a scale factor of 0 no part comes closer to a tie than 2^-35 of itself, but for exact ones: long double decides
// them right. Below it, a result may be the other neighbour of what double precision cannot tell from a tie.
TEST(Sqrt, OfComplexIntegersIsTheNearestInteger) {
    const support::ThreadCount one(1);
    auto z = support::randomVector<Orb16sc>(3000);
    for (Orb16s re = -60; re <= 60; ++re)
        for (Orb16s im = -60; im <= 60; ++im) z.push_back({re, im});
    for (int p = 0; p <= 180; ++p) // (p + q i)^2, so a part with its half a tie
        for (int q = 0; q <= 180; q += 7)
            if (std::abs(p * p - q * q) < 32768 && 2 * p * q < 32768)
                z.push_back({static_cast<Orb16s>(p * p - q * q), static_cast<Orb16s>(q % 2 ? -2 * p * q : 2 * p * q)});
    for (const int s : support::scaleFactors(-26, 10)) {
        if (s > 0 && s <= 8) continue;
        const auto got = call(&orbsSqrt_16sc_Sfs, z, s), inPlace = call(&orbsSqrt_16sc_ISfs, z, s);
        EXPECT_EQ(got.status, orbStsNoErr);
        ASSERT_TRUE(sameBits(inPlace.y, got.y, z)) << "in place, scale factor " << s;
        for (std::size_t n = 0; n < z.size(); ++n) {
            const Root root = rootOf(z[n]);
            const auto expectPart = [&](Orb16s y, Exact part) {
                const Exact exact = std::clamp(std::ldexp(part, -std::clamp(s, -100, 100)), -32768.0L, 32767.0L);
                const bool right =
                    s >= 0 ? y == std::nearbyint(exact) : std::fabs(y - exact) <= 0.5L + std::fabs(exact) * 0x1p-50L;
                ASSERT_TRUE(right) << y << " for " << exact << " of " << z[n].re << ", " << z[n].im << " at " << s;
            };
            expectPart(got.y[n].re, root.re);
            expectPart(got.y[n].im, root.im);
        }
    }
}

// In units of 2^-53: squares 1, their sum 1 more, the root of it half of that and 1, with x 1 more, the root again half
// and 1, the quotient 1 more. Single precision rounds that once.
template <class C>
void expectComplexRoots(OrbStatus (*function)(const C*, C*, int), OrbStatus (*inPlace)(C*, int), Exact bound) {
    using Real = decltype(C::re);
    using Limits = std::numeric_limits<Real>;
    support::Random random(3);
    std::vector<C> z;
    for (int n = 0; n < 4001; ++n) {
        const auto part = [&] {
            const int exponent = static_cast<int>(random() % 40) - 20 + (n % 3 - 1) * (Limits::max_exponent - 25);
            return std::ldexp(support::randomElement<Real>(random), exponent);
        };
        const Real re = part(), im = part();
        z.push_back({re, n % 5 == 0 ? Real{0} : im});
    }
    z.push_back({Limits::max(), -Limits::max()});
    z.push_back({-Limits::max(), Limits::denorm_min()});
    z.push_back({-Limits::denorm_min(), Limits::denorm_min()});
    const auto got = call(function, z), over = call(inPlace, z);
    ASSERT_EQ(got.status, orbStsNoErr);
    ASSERT_TRUE(sameBits(over.y, got.y, z)) << callOf(inPlace);
    for (std::size_t n = 0; n < z.size(); ++n) {
        const Root root = rootOf(z[n]);
        const auto expectPart = [&](Real y, Exact exact) {
            ASSERT_LE(std::fabs(y - exact), bound * std::fabs(exact) + Limits::denorm_min())
                << callOf(function) << " of " << shown(z[n]);
            ASSERT_EQ(std::signbit(y), std::signbit(exact)) << callOf(function) << " of " << shown(z[n]);
        };
        expectPart(got.y[n].re, root.re);
        expectPart(got.y[n].im, root.im);
    }
    const Real inf = Limits::infinity(), nan = Limits::quiet_NaN(), zero = 0;
    const C special[][2] = {{{zero, zero}, {zero, zero}}, {{-zero, -zero}, {zero, -zero}}, {{-4, -zero}, {zero, -2}},
                            {{inf, 3}, {inf, zero}},      {{-inf, -3}, {zero, -inf}},      {{1, -inf}, {inf, -inf}},
                            {{inf, inf}, {inf, inf}},     {{nan, 1}, {nan, nan}},          {{1, nan}, {nan, nan}}};
    for (const auto& [x, y] : special) {
        const std::vector<C> from{x}, want{y};
        EXPECT_TRUE(sameValues(call(function, from).y, want, from)) << callOf(function);
    }
}
TEST(Sqrt, OfComplexFloatsIsAccurateOverTheWholeRange) {
    expectComplexRoots(&orbsSqrt_32fc, &orbsSqrt_32fc_I, 0x1.00001p-24L);
    expectComplexRoots(&orbsSqrt_64fc, &orbsSqrt_64fc_I, 3.5L * 0x1p-53L);
}

// ---- Threads ----

TEST(Sqrt, IsTheSameForEveryThreadCountAndRoundingMode) {
    const auto test = [](auto function, auto element, int from, auto... s) {
        const auto x = support::randomVector<decltype(element)>(static_cast<std::size_t>(from) + 1);
        const int mode = std::fegetround();
        const support::ThreadCount one(1);
        const auto want = call(function, x, s...);
        for (const int threads : {1, 2, 3}) {
            const support::ThreadCount count(threads);
            if (sizeof...(s) > 0) std::fesetround(FE_UPWARD);
            const auto got = call(function, x, s...);
            std::fesetround(mode);
            EXPECT_EQ(got.status, want.status) << callOf(function, s...) << ", " << threads << " threads";
            EXPECT_TRUE(sameValues(got.y, want.y, x)) << callOf(function, s...) << ", " << threads << " threads";
        }
    };
    for (const int s : {-9, -2, 0, 3}) {
        test(&orbsSqrt_8u_Sfs, Orb8u{}, 2048, s);
        test(&orbsSqrt_16u_Sfs, Orb16u{}, 2048, s);
        test(&orbsSqrt_16s_Sfs, Orb16s{}, 2048, s);
        test(&orbsSqrt_16sc_Sfs, Orb16sc{}, 256, s);
        test(&orbsSqrt_64s_Sfs, Orb64s{}, 256, s);
        test(&orbsSqrt_32s16s_Sfs, Orb32s{}, 1024, s);
        test(&orbsSqrt_64s16s_Sfs, Orb64s{}, 512, s);
    }
    test(&orbsSqrt_32f, Orb32f{}, 4096);
    test(&orbsSqrt_64f, Orb64f{}, 512);
    test(&orbsSqrt_32fc, Orb32fc{}, 512);
    test(&orbsSqrt_64fc, Orb64fc{}, 64);
}

} // namespace
