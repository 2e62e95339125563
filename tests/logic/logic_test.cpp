// And, Or, Xor, Not, and shifts.
#include "support/member.h"

namespace {

using namespace member;

constexpr auto conjunction = [](auto a, auto b, int) { return static_cast<decltype(a)>(a & b); };
constexpr auto disjunction = [](auto a, auto b, int) { return static_cast<decltype(a)>(a | b); };
constexpr auto difference = [](auto a, auto b, int) { return static_cast<decltype(a)>(a ^ b); };

template <class Test>
void forEachBitwise(Test test) {
    const auto forAll = [&](auto rule, auto... function) { (test(function, rule), ...); };
    forAll(conjunction, &orbsAnd_8u, &orbsAnd_8u_I, &orbsAnd_16u, &orbsAnd_16u_I, &orbsAnd_32u, &orbsAnd_32u_I,
           &orbsAndC_8u, &orbsAndC_8u_I, &orbsAndC_16u, &orbsAndC_16u_I, &orbsAndC_32u, &orbsAndC_32u_I);
    forAll(disjunction, &orbsOr_8u, &orbsOr_8u_I, &orbsOr_16u, &orbsOr_16u_I, &orbsOr_32u, &orbsOr_32u_I, &orbsOrC_8u,
           &orbsOrC_8u_I, &orbsOrC_16u, &orbsOrC_16u_I, &orbsOrC_32u, &orbsOrC_32u_I);
    forAll(difference, &orbsXor_8u, &orbsXor_8u_I, &orbsXor_16u, &orbsXor_16u_I, &orbsXor_32u, &orbsXor_32u_I,
           &orbsXorC_8u, &orbsXorC_8u_I, &orbsXorC_16u, &orbsXorC_16u_I, &orbsXorC_32u, &orbsXorC_32u_I);
}

TEST(Logic, BitByBit) {
    forEachBitwise([](auto function, auto rule) { expectScaled(function, rule, 0, 0); });
}

TEST(Logic, IsTheSameForEveryThreadCount) {
    forEachBitwise([](auto function, auto rule) {
        for (const int bytes : {16384, 32768, 65536})
            expectThreaded(function, rule, bytes / static_cast<int>(sizeof(FirstOf<decltype(function)>)), 0);
    });
}

TEST(Logic, NotInvertsEveryBit) {
    const auto test = [](auto outOfPlace, auto inPlace, auto zero) {
        using T = decltype(zero);
        for (const std::size_t len : {1, 31, 70, 70000}) {
            const support::ThreadCount threads(3);
            const auto src = support::randomVector<T>(len);
            std::vector<T> want, dst(len), srcDst = src;
            for (const T x : src) want.push_back(static_cast<T>(~x));
            EXPECT_EQ(outOfPlace(src.data(), dst.data(), static_cast<int>(len)), orbStsNoErr);
            EXPECT_EQ(inPlace(srcDst.data(), static_cast<int>(len)), orbStsNoErr);
            EXPECT_TRUE(sameValues(dst, want, src)) << callOf(outOfPlace);
            EXPECT_TRUE(sameValues(srcDst, want, src)) << callOf(inPlace);
        }
    };
    test(&orbsNot_8u, &orbsNot_8u_I, Orb8u{});
    test(&orbsNot_16u, &orbsNot_16u_I, Orb16u{});
    test(&orbsNot_32u, &orbsNot_32u_I, Orb32u{});
}

// A zero mask does not read the source.
TEST(Logic, AndWithZeroNeedsNoReadableSource) {
    const Guarded<Orb32u> src(1);
    Orb32u dst[100];
    std::fill(std::begin(dst), std::end(dst), 7u);
    EXPECT_EQ(orbsAndC_32u(src.data(), 0, dst, 100), orbStsNoErr);
    EXPECT_EQ(std::ranges::count(dst, 0u), 100);
    EXPECT_EQ(orbsAndC_32u(nullptr, 0, dst, 100), orbStsNullPtrErr);
}

// ---- Shifts ----

TEST(Shift, EveryCount) {
    const auto left = [](auto a, int val, int) {
        return static_cast<decltype(a)>(
            val > 31 ? 0 : std::uint64_t{static_cast<std::make_unsigned_t<decltype(a)>>(a)} << val);
    };
    const auto right = [](auto a, int val, int) {
        return static_cast<decltype(a)>(std::int64_t{a} >> std::min(val, 63));
    };
    const auto forAll = [](auto rule, auto... function) {
        const auto test = [&](auto member) {
            std::vector<FirstOf<decltype(member)>> a;
            std::vector<int> unused;
            for (const int val : {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,    14,
                                  15, 16, 17, 24, 30, 31, 32, 33, 64, 1000, std::numeric_limits<int>::max()}) {
                for (const std::size_t len : {1, 33, 500}) {
                    random<decltype(member)>(a, unused, len);
                    expect(member, rule, a, {val});
                }
            }
        };
        (test(function), ...);
    };
    forAll(left, &orbsLShiftC_8u, &orbsLShiftC_8u_I, &orbsLShiftC_16u, &orbsLShiftC_16u_I, &orbsLShiftC_16s,
           &orbsLShiftC_16s_I, &orbsLShiftC_32s, &orbsLShiftC_32s_I);
    forAll(right, &orbsRShiftC_8u, &orbsRShiftC_8u_I, &orbsRShiftC_16u, &orbsRShiftC_16u_I, &orbsRShiftC_16s,
           &orbsRShiftC_16s_I, &orbsRShiftC_32s, &orbsRShiftC_32s_I);
}

} // namespace
