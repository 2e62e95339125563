// Add, AddC, Sub, SubC, SubCRev.
#include "support/member.h"

namespace {

using namespace member;

// ---- The formulas ----

// combine(x, y) of each part, exact before it is scaled.
template <class R, class Combine, class A, class B>
R each(Combine combine, A a, B b, int s) {
    if constexpr (support::isComplex<R>) {
        using Part = support::Part<R>;
        return {each<Part>(combine, a.re, b.re, s), each<Part>(combine, a.im, b.im, s)};
    } else if constexpr (std::is_floating_point_v<A>) {
        return combine(a, b);
    } else if constexpr (std::is_floating_point_v<R>) {
        return static_cast<R>(combine(std::int64_t{a}, std::int64_t{b}));
    } else {
        return scaledTo<R>(combine(std::int64_t{a}, std::int64_t{b}), s);
    }
}

constexpr auto plus = [](auto x, auto y) { return x + y; };
constexpr auto minus = [](auto x, auto y) { return x - y; };
constexpr auto minusFirst = [](auto x, auto y) { return y - x; };

// Calls test(member, rule) with the rule of the member's family.
template <class Combine, class Test, class... Member>
void forAll(Combine combine, Test test, Member... function) {
    (test(function,
          [=](auto a, auto b, int s) {
              using R = ResultOf<Member>;
              // Real floats: a constant that is neither below nor above 0 adds nothing.
              if constexpr (Shape<Member>::constant && std::is_floating_point_v<R>)
                  if (!(b < 0 || b > 0)) return a;
              return each<R>(combine, a, b, s);
          }),
     ...);
}

template <class Test>
void forEachInteger(Test test) {
    forAll(plus, test, &orbsAdd_8u_Sfs, &orbsAdd_8u_ISfs, &orbsAdd_8u16u, &orbsAdd_16u, &orbsAdd_16u_Sfs,
           &orbsAdd_16u_ISfs, &orbsAdd_16s, &orbsAdd_16s_I, &orbsAdd_16s_Sfs, &orbsAdd_16s_ISfs, &orbsAdd_16sc_Sfs,
           &orbsAdd_16sc_ISfs, &orbsAdd_16s32s_I, &orbsAdd_16s32f, &orbsAdd_32u, &orbsAdd_32s_Sfs, &orbsAdd_32s_ISfs,
           &orbsAdd_32sc_Sfs, &orbsAdd_32sc_ISfs);
    forAll(plus, test, &orbsAddC_8u_Sfs, &orbsAddC_8u_ISfs, &orbsAddC_16u_Sfs, &orbsAddC_16u_ISfs, &orbsAddC_16s_I,
           &orbsAddC_16s_Sfs, &orbsAddC_16s_ISfs, &orbsAddC_16sc_Sfs, &orbsAddC_16sc_ISfs, &orbsAddC_32s_Sfs,
           &orbsAddC_32s_ISfs, &orbsAddC_32sc_Sfs, &orbsAddC_32sc_ISfs);
    forAll(minusFirst, test, &orbsSub_8u_Sfs, &orbsSub_8u_ISfs, &orbsSub_16u_Sfs, &orbsSub_16u_ISfs, &orbsSub_16s,
           &orbsSub_16s_I, &orbsSub_16s_Sfs, &orbsSub_16s_ISfs, &orbsSub_16sc_Sfs, &orbsSub_16sc_ISfs, &orbsSub_16s32f,
           &orbsSub_32s_Sfs, &orbsSub_32s_ISfs, &orbsSub_32sc_Sfs, &orbsSub_32sc_ISfs);
    forAll(minus, test, &orbsSubC_8u_Sfs, &orbsSubC_8u_ISfs, &orbsSubC_16u_Sfs, &orbsSubC_16u_ISfs, &orbsSubC_16s_I,
           &orbsSubC_16s_Sfs, &orbsSubC_16s_ISfs, &orbsSubC_16sc_Sfs, &orbsSubC_16sc_ISfs, &orbsSubC_32s_Sfs,
           &orbsSubC_32s_ISfs, &orbsSubC_32sc_Sfs, &orbsSubC_32sc_ISfs);
    forAll(minusFirst, test, &orbsSubCRev_8u_Sfs, &orbsSubCRev_8u_ISfs, &orbsSubCRev_16u_Sfs, &orbsSubCRev_16u_ISfs,
           &orbsSubCRev_16s_Sfs, &orbsSubCRev_16s_ISfs, &orbsSubCRev_16sc_Sfs, &orbsSubCRev_16sc_ISfs,
           &orbsSubCRev_32s_Sfs, &orbsSubCRev_32s_ISfs, &orbsSubCRev_32sc_Sfs, &orbsSubCRev_32sc_ISfs);
}

template <class Test>
void forEachComplexSum(Test test) {
    test(&orbsAdd_16sc_Sfs);
    test(&orbsAdd_16sc_ISfs);
    test(&orbsAdd_32sc_Sfs);
    test(&orbsAdd_32sc_ISfs);
    test(&orbsAdd_32fc);
    test(&orbsAdd_32fc_I);
    test(&orbsAdd_64fc);
    test(&orbsAdd_64fc_I);
    test(&orbsSub_16sc_Sfs);
    test(&orbsSub_16sc_ISfs);
    test(&orbsSub_32sc_Sfs);
    test(&orbsSub_32sc_ISfs);
    test(&orbsSub_32fc);
    test(&orbsSub_32fc_I);
    test(&orbsSub_64fc);
    test(&orbsSub_64fc_I);
}

// ---- Values ----

TEST(Sums, FollowTheScaleRule) {
    forEachInteger([](auto function, auto rule) {
        using R = ResultOf<decltype(function)>;
        const int bits = 8 * static_cast<int>(sizeof(Part<R>));
        expectScaled(function, rule, -bits, bits + 1);
    });
}

// Sums and differences at and around every tie, near 0 and at both ends of the range.
TEST(Sums, TiesGoToEven) {
    forEachInteger([](auto function, auto rule) {
        using S = Shape<decltype(function)>;
        using Element = typename S::First;
        if constexpr (S::scaled && !S::constant && !support::isComplex<Element>) {
            constexpr std::int64_t low = std::numeric_limits<Element>::min(),
                                   high = std::numeric_limits<Element>::max();
            for (int s = 1; s <= 8 * static_cast<int>(sizeof(Element)) + 1; ++s) {
                std::vector<Element> a, b;
                const std::int64_t step = std::int64_t{1} << s;
                for (std::int64_t quotient = -3; quotient <= 3; ++quotient) {
                    for (const std::int64_t around : {std::int64_t{0}, 2 * low, 2 * high}) {
                        for (std::int64_t near = -1; near <= 1; ++near) {
                            const std::int64_t r = (around >> s) * step + quotient * step + step / 2 + near;
                            const std::int64_t half = std::clamp(r >> 1, low, high), rest = r - half;
                            if (rest < low || rest > high) continue;
                            a.push_back(static_cast<Element>(half));
                            b.push_back(static_cast<Element>(rest));
                            a.push_back(static_cast<Element>(~half));
                            b.push_back(static_cast<Element>(rest));
                        }
                    }
                }
                expect(function, rule, a, b, s);
            }
        }
    });
}

// Real floats with a constant 0 or NaN are copied; the other members add and subtract as the processor does.
TEST(Sums, OfFloats) {
    const auto test = [](auto function, auto rule) { expectAsTheProcessor(function, rule); };
    forAll(plus, test, &orbsAdd_32f, &orbsAdd_32f_I, &orbsAdd_32fc, &orbsAdd_32fc_I, &orbsAdd_64f, &orbsAdd_64f_I,
           &orbsAdd_64fc, &orbsAdd_64fc_I, &orbsAddC_32f, &orbsAddC_32f_I, &orbsAddC_32fc, &orbsAddC_32fc_I,
           &orbsAddC_64f, &orbsAddC_64f_I, &orbsAddC_64fc, &orbsAddC_64fc_I);
    forAll(minusFirst, test, &orbsSub_32f, &orbsSub_32f_I, &orbsSub_32fc, &orbsSub_32fc_I, &orbsSub_64f, &orbsSub_64f_I,
           &orbsSub_64fc, &orbsSub_64fc_I);
    forAll(minus, test, &orbsSubC_32f, &orbsSubC_32f_I, &orbsSubC_32fc, &orbsSubC_32fc_I, &orbsSubC_64f,
           &orbsSubC_64f_I, &orbsSubC_64fc, &orbsSubC_64fc_I);
    const auto reversed = [](auto function, auto) {
        using R = ResultOf<decltype(function)>;
        expectAsTheProcessor(function, [](auto a, auto b, int) { return each<R>(minusFirst, a, b, 0); });
    };
    forAll(minusFirst, reversed, &orbsSubCRev_32f, &orbsSubCRev_32f_I, &orbsSubCRev_32fc, &orbsSubCRev_32fc_I,
           &orbsSubCRev_64f, &orbsSubCRev_64f_I, &orbsSubCRev_64fc, &orbsSubCRev_64fc_I);
}

// ---- Threads ----

TEST(Sums, SixteenBitUnsignedAreTheSameForEveryThreadCount) {
    forEachInteger([](auto function, auto rule) {
        using S = Shape<decltype(function)>;
        if constexpr (S::scaled && std::is_same_v<typename S::Result, Orb16u>)
            for (const int from : {4096, 8192, 16384, 32768})
                for (const int s : {-3, 0, 1, 18}) expectThreaded(function, rule, from, s);
    });
}

// ---- Order of the tests ----

TEST(Sums, ComplexMembersTestTheLengthFirst) {
    forEachComplexSum([](auto function) {
        using S = Shape<decltype(function)>;
        typename S::First a{};
        typename S::Second b{};
        typename S::Result dst{};
        typename S::First* const noSource = nullptr;
        typename S::Result* const noDestination = nullptr;
        for (const int len : {0, -1, std::numeric_limits<int>::min()}) {
            EXPECT_EQ(S::call(function, noSource, &b, &dst, len, 0), orbStsSizeErr);
            EXPECT_EQ(S::call(function, &a, &b, noDestination, len, 0), orbStsSizeErr);
        }
        // The doubled length wraps, to one that the real member refuses behind its null tests.
        for (const int len : {1 << 30, std::numeric_limits<int>::max()}) {
            EXPECT_EQ(S::call(function, &a, &b, &dst, len, 0), orbStsSizeErr);
            EXPECT_EQ(S::call(function, &a, &b, noDestination, len, 0), orbStsNullPtrErr);
        }
    });
}

TEST(Sums, BeyondTheCutsAddC16uDoesNotLookAtItsSource) {
    Orb16u dst[3] = {1, 2, 3};
    EXPECT_EQ(orbsAddC_16u_Sfs(nullptr, 5, dst, 3, 18), orbStsNoErr);
    EXPECT_TRUE(std::ranges::all_of(dst, [](Orb16u x) { return x == 0; }));
    EXPECT_EQ(orbsAddC_16u_Sfs(nullptr, 5, dst, 3, -16), orbStsNoErr);
    EXPECT_TRUE(std::ranges::all_of(dst, [](Orb16u x) { return x == 65535; }));
    EXPECT_EQ(orbsAddC_16u_Sfs(nullptr, 0, dst, 3, -16), orbStsNullPtrErr);
    EXPECT_EQ(orbsAddC_16u_Sfs(nullptr, 5, dst, 3, 17), orbStsNullPtrErr);
    EXPECT_EQ(orbsAddC_16u_Sfs(dst, 5, nullptr, 3, 18), orbStsNullPtrErr);
}

} // namespace
