#include "support/unary_member.h"

namespace {

using namespace unary_member;

const auto exactArctan = [](long double x) { return std::atan(x); };

template <class T, class Member>
void expectSpecials(Member member) {
    using Limits = std::numeric_limits<T>;
    const T halfPi = static_cast<T>(1.57079632679489661923L);
    const std::pair<T, T> table[] = {
        {0, 0},
        {Limits::denorm_min(), Limits::denorm_min()},
        {Limits::min(), Limits::min()},
        {Limits::max(), halfPi},
        {Limits::infinity(), halfPi},
        {1, halfPi / 2},
        {Limits::quiet_NaN(), Limits::quiet_NaN()},
    };
    for (const auto& [x, y] : table) {
        EXPECT_TRUE(sameBits(call(member, {x}).y, std::vector{y})) << callOf(member, x);
        EXPECT_TRUE(sameBits(call(member, {-x}).y, std::vector{-y})) << callOf(member, -x);
    }
}

TEST(Arctan, Specials) {
    expectSpecials<Orb32f>(&orbsArctan_32f);
    expectSpecials<Orb32f>(&orbsArctan_32f_I);
    expectSpecials<Orb64f>(&orbsArctan_64f);
    expectSpecials<Orb64f>(&orbsArctan_64f_I);
}

// A sample of what docs/accuracy.md measures: all magnitudes, those where the result changes, and around every change
// of the method, which is at a power of two or at an eighth of one.
TEST(Arctan, Accuracy) {
    expectWithin(0.92, &orbsArctan_32f, patterns<Orb32f, Orb32u>(0, 0x7f7fffff, 400000), exactArctan);
    expectWithin(0.92, &orbsArctan_32f_I, patterns<Orb32f, Orb32u>(0xbe000000, 0xc1000000, 400000), exactArctan);
    expectWithin(0.61, &orbsArctan_64f, patterns<Orb64f, Orb64u>(0, 0x7fefffffffffffff, 200000), exactArctan);
    expectWithin(0.61, &orbsArctan_64f_I, patterns<Orb64f, Orb64u>(0xbf90000000000000, 0xc050000000000000, 400000),
                 exactArctan);
    std::vector<Orb64f> cuts;
    for (Orb64f power = 0x1p-6; power < 0x1p7; power *= 2) {
        for (int eighth = 8; eighth < 16; ++eighth)
            for (const Orb64f toward : {0.0, 1.0, 100.0}) cuts.push_back(std::nextafter(power * eighth / 8, toward));
    }
    expectWithin(0.61, &orbsArctan_64f, cuts, exactArctan);
}

} // namespace
