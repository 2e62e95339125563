// Mul and MulC.
#include "support/member.h"

namespace {

using namespace member;

// ---- The formulas ----

// A product of 32-bit complex elements needs one bit more than 64.
template <class T>
T scaledTo(long double r, int s) {
    const long double rounded = std::nearbyint(std::ldexp(r, -std::clamp(s, -10000, 10000)));
    return static_cast<T>(
        std::clamp<long double>(rounded, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

struct ScaledProduct {
    template <class R, class A, class B>
    static R of(A a, B b, int s) {
        using Part = support::Part<R>;
        if constexpr (support::isComplex<A> && support::isComplex<B> && sizeof(Part) == 4 &&
                      !std::is_same_v<Part, float>) {
            using Wide = long double;
            return {scaledTo<Part>(Wide(a.re) * b.re - Wide(a.im) * b.im, s),
                    scaledTo<Part>(Wide(a.re) * b.im + Wide(a.im) * b.re, s)};
        } else if constexpr (support::isComplex<A> && support::isComplex<B>) {
            using Wide = std::conditional_t<std::is_floating_point_v<Part>, Part, std::int64_t>;
            const Wide re = Wide{a.re} * b.re - Wide{a.im} * b.im, im = Wide{a.re} * b.im + Wide{a.im} * b.re;
            return {part<Part>(re, s), part<Part>(im, s)};
        } else if constexpr (support::isComplex<B>) {
            return {of<Part>(a, b.re, s), of<Part>(a, b.im, s)};
        } else if constexpr (std::is_floating_point_v<A>) {
            return a * b;
        } else {
            return part<R>(std::int64_t{a} * b, s);
        }
    }

private:
    template <class R, class Wide>
    static R part(Wide r, int s) {
        if constexpr (std::is_floating_point_v<R>) {
            return static_cast<R>(r);
        } else {
            return member::scaledTo<R>(r, s);
        }
    }
};

// Rounded to 53 bits once and to an integer then; without scale it is cut off.
struct ProductInDouble {
    template <class R>
    static Orb32s of(Orb32s a, Orb32s b, int s) {
        if (s < -31 || s > 62) return member::scaledTo<Orb32s>(std::int64_t{a} * b, s);
        const double r = std::ldexp(static_cast<double>(a), -s) * b;
        return static_cast<Orb32s>(std::clamp(s == 0 ? std::trunc(r) : std::nearbyint(r), -2147483648.0, 2147483647.0));
    }
};

struct LowProduct {
    template <class R>
    static Orb32s of(Orb32s a, Orb32s b, int s) {
        const std::int64_t r = std::int64_t{a} * b;
        if (s < -31 || s > 62) return member::scaledTo<Orb32s>(r, s);
        return static_cast<Orb32s>(s >= 0 ? r >> s : static_cast<std::int64_t>(static_cast<std::uint64_t>(r) << -s));
    }
};

template <class Product, class Test, class... Member>
void forAll(Test test, Member... function) {
    (test(function, [](auto a, auto b, int s) { return Product::template of<ResultOf<Member>>(a, b, s); }), ...);
}

// ---- Values ----

TEST(Mul, FollowsTheScaleRule) {
    const auto test = [](int lowest, int highest, auto... function) {
        forAll<ScaledProduct>([=](auto member, auto rule) { expectScaled(member, rule, lowest, highest); },
                              function...);
    };
    test(-8, 16, &orbsMul_8u_Sfs, &orbsMul_8u_ISfs, &orbsMul_8u16u, &orbsMulC_8u_Sfs, &orbsMulC_8u_ISfs);
    test(-16, 32, &orbsMul_16u_Sfs, &orbsMul_16u_ISfs, &orbsMulC_16u_Sfs, &orbsMulC_16u_ISfs);
    test(-16, 31, &orbsMul_16s, &orbsMul_16s_I, &orbsMul_16s_Sfs, &orbsMul_16s_ISfs, &orbsMul_16sc_Sfs,
         &orbsMul_16sc_ISfs, &orbsMul_16u16s_Sfs, &orbsMul_16s32f, &orbsMulC_16s_I, &orbsMulC_16s_Sfs,
         &orbsMulC_16s_ISfs, &orbsMulC_16sc_Sfs, &orbsMulC_16sc_ISfs);
    test(-31, 30, &orbsMul_16s32s_Sfs);
    test(-32, 63, &orbsMul_32sc_Sfs, &orbsMul_32sc_ISfs, &orbsMul_32s32sc_Sfs, &orbsMul_32s32sc_ISfs, &orbsMulC_32s_Sfs,
         &orbsMulC_32s_ISfs, &orbsMulC_32sc_Sfs, &orbsMulC_32sc_ISfs);
}

// Products r with r / 2^s near a tie: one operand is odd, the other 2^(s-1) times an odd number, or next to it.
TEST(Mul, TiesGoToEven) {
    const auto test = [](auto function, auto rule) {
        using A = FirstOf<decltype(function)>;
        using B = SecondOf<decltype(function)>;
        const int bits = std::numeric_limits<B>::digits;
        for (int s = 1; s <= bits; ++s) {
            for (int near = -1; near <= 1; ++near) {
                std::vector<A> a;
                std::vector<B> b;
                for (std::int64_t odd = 1; odd < 200; odd += 2) {
                    const std::int64_t tie = (odd % 8) * (std::int64_t{1} << (s - 1)) + near;
                    if (tie > std::numeric_limits<B>::max()) continue;
                    a.push_back(static_cast<A>(std::is_signed_v<A> && odd % 3 ? -odd : odd));
                    b.push_back(static_cast<B>(tie));
                }
                if (!a.empty()) expect(function, rule, a, b, s);
            }
        }
    };
    forAll<ScaledProduct>(test, &orbsMul_16u_Sfs, &orbsMul_16s_Sfs, &orbsMul_16u16s_Sfs, &orbsMul_16s32s_Sfs);
}

// a * b = 2^(s - 1) +- 1 modulo 2^s: the last bit of the product decides which way it goes.
TEST(Mul, OneBesideATieOfLargeProducts) {
    for (int s = 17; s <= 26; ++s) {
        for (const Orb32u near : {1u, ~0u}) {
            std::vector<Orb16u> a, b;
            for (Orb32u odd = 1; odd < 65536; odd += 2) {
                Orb32u inverse = odd; // to 3 bits, twice as many each time
                for (int step = 0; step < 4; ++step) inverse *= 2 - odd * inverse;
                const Orb32u other = ((1u << (s - 1)) + near) * inverse & ((1u << s) - 1);
                if (other > 65535) continue;
                a.push_back(static_cast<Orb16u>(odd));
                b.push_back(static_cast<Orb16u>(other));
            }
            ASSERT_GT(a.size(), 8u);
            forAll<ScaledProduct>([&](auto member, auto rule) { expect(member, rule, a, b, s); }, &orbsMul_16u_Sfs);
        }
    }
}

// (-32768, -32768) and (-2^31, -2^31) squared: the imaginary part is one bit too long.
TEST(Mul, LargestImaginaryPart) {
    const auto test = [](auto function, auto rule) {
        using C = ResultOf<decltype(function)>;
        constexpr auto least = std::numeric_limits<Part<C>>::min();
        constexpr auto most = std::numeric_limits<Part<C>>::max();
        for (int s = -17; s <= 64; ++s) {
            for (const C val : {C{least, least}, C{most, least}, C{least, most}, C{0, least}}) {
                std::vector<C> a(37, C{least, least}), b(37, val);
                a[5] = {most, least}, a[20] = {least, 0};
                expect(function, rule, a, b, s);
            }
        }
    };
    forAll<ScaledProduct>(test, &orbsMul_16sc_Sfs, &orbsMul_16sc_ISfs, &orbsMulC_16sc_Sfs, &orbsMulC_16sc_ISfs,
                          &orbsMul_32sc_Sfs, &orbsMul_32sc_ISfs, &orbsMulC_32sc_Sfs, &orbsMulC_32sc_ISfs);
}

TEST(Mul, Of32BitsIsRoundedTo53First) {
    const auto test = [](auto function, auto rule) {
        const int mode = std::fegetround();
        for (const int other : {FE_TONEAREST, FE_UPWARD, FE_TOWARDZERO}) {
            const auto inThatMode = [=](Orb32s a, Orb32s b, int s) {
                std::fesetround(s == 0 ? other : FE_TONEAREST);
                const Orb32s r = rule(a, b, s);
                std::fesetround(other);
                return r;
            };
            std::fesetround(other);
            expectScaled(function, inThatMode, -32, 62);
            EXPECT_EQ(std::fegetround(), other);
        }
        std::fesetround(mode);
    };
    forAll<ProductInDouble>(test, &orbsMul_32s_Sfs, &orbsMul_32s_ISfs);
    // An operand that makes the difference: the product is one more than a tie, which 53 bits do not hold.
    const Orb32s a = 0x7fffffff, b = 0x7fffffff;
    Orb32s r = 0;
    ASSERT_EQ(orbsMul_32s_Sfs(&a, &b, &r, 1, 31), orbStsNoErr);
    EXPECT_EQ(r, 0x7ffffffe);
}

TEST(Mul, LowKeepsTheLowBits) {
    forAll<LowProduct>([](auto function, auto rule) { expectScaled(function, rule, -32, 62); }, &orbsMul_Low_32s_Sfs);
}

TEST(Mul, OfFloats) {
    forAll<ScaledProduct>([](auto function, auto rule) { expectAsTheProcessor(function, rule); }, &orbsMul_32f,
                          &orbsMul_32f_I, &orbsMul_32fc, &orbsMul_32fc_I, &orbsMul_32f32fc, &orbsMul_32f32fc_I,
                          &orbsMul_64f, &orbsMul_64f_I, &orbsMul_64fc, &orbsMul_64fc_I, &orbsMulC_32fc,
                          &orbsMulC_32fc_I, &orbsMulC_64fc, &orbsMulC_64fc_I);
}

// A real constant 1 or NaN copies, 0 clears whatever the source holds.
TEST(Mul, ByARealConstant) {
    const auto rule = [](auto a, decltype(a) b, int) { return !(b < 1 || b > 1) ? a : b == 0 ? 0 : a * b; };
    expectAsTheProcessor(&orbsMulC_32f, rule);
    expectAsTheProcessor(&orbsMulC_32f_I, rule);
    expectAsTheProcessor(&orbsMulC_64f, rule);
    expectAsTheProcessor(&orbsMulC_64f_I, rule);
}

// ---- Floats to integers ----

TEST(MulC, RoundsFloatsToIntegers) {
    std::vector<Orb32f> a = support::randomVector<Orb32f>(333);
    for (Orb32f& x : a) x *= 40000.0f;
    for (const Orb32f x : {0x1p-14f, 0.5f, 1.5f, 2.5f, -0.5f, -1.5f, 32766.5f, 32767.5f, -32768.5f, 1e30f, -1e30f,
                           std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                           std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::quiet_NaN(), -0.0f})
        a.push_back(x);
    const auto integer = [](Orb32f product) { // a NaN is the highest value
        return static_cast<Orb16s>(product < 32767.0f ? std::nearbyint(std::max(product, -32768.0f)) : 32767.0f);
    };
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        std::fesetround(other);
        for (const Orb32f val : {1.0f, 0.333f, -7.0f, 0x1p-20f, 0.0f, std::numeric_limits<float>::quiet_NaN()})
            expect(&orbsMulC_Low_32f16s, [&](Orb32f x, Orb32f y, int) { return integer(x * y); }, a, {val});
        for (const int s : {0, 1, -1, 5, -20, 126, 127, 200, -126, -127, -128, -1000, std::numeric_limits<int>::min(),
                            std::numeric_limits<int>::max()}) {
            for (const Orb32f val : {1.0f, 0x1.8p100f, 0x1.8p-100f, -0.125f}) {
                const auto nearest = [&](Orb32f x, Orb32f y, int) {
                    std::fesetround(FE_TONEAREST);
                    const Orb16s r = integer(x * (y * std::ldexp(1.0f, -std::clamp(s, -127, 126))));
                    std::fesetround(other);
                    return r;
                };
                expect(&orbsMulC_32f16s_Sfs, nearest, a, {val}, s);
                EXPECT_EQ(std::fegetround(), other);
            }
        }
    }
    std::fesetround(mode);
}

// ---- Threads ----

TEST(Mul, SixteenBitUnsignedIsTheSameForEveryThreadCount) {
    forAll<ScaledProduct>(
        [](auto function, auto rule) {
            for (const int from : {8192, 16384})
                for (const int s : {-3, 0, 16, 17}) expectThreaded(function, rule, from, s);
        },
        &orbsMul_16u_Sfs, &orbsMul_16u_ISfs, &orbsMulC_16u_Sfs, &orbsMulC_16u_ISfs);
}

} // namespace
