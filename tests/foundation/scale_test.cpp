#include "foundation/scale.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace orbs;

TEST(Scale, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(roundedShift(3, 1), 2);
    EXPECT_EQ(roundedShift(5, 1), 2);
    EXPECT_EQ(roundedShift(7, 1), 4);
    EXPECT_EQ(roundedShift(-3, 1), -2);
    EXPECT_EQ(roundedShift(-1, 1), 0);
    EXPECT_EQ(roundedShift(65534, 16), 1);
    EXPECT_EQ(roundedShift(-65536, 17), 0);
}

// Doubles hold these values exactly, and rint rounds ties to even.
TEST(Scale, IsTheQuotientRoundedToNearest) {
    for (int shift = 1; shift <= 20; ++shift)
        for (std::int64_t r = -5000; r <= 5000; ++r)
            ASSERT_EQ(static_cast<double>(roundedShift(r, shift)),
                      std::rint(std::ldexp(static_cast<double>(r), -shift)))
                << r << " by " << shift;
    const std::int64_t large = std::int64_t{1} << 61;
    for (int shift = 1; shift <= 62; ++shift) {
        EXPECT_EQ(roundedShift(large, shift), shift == 62 ? 0 : large >> shift);
        EXPECT_EQ(roundedShift(-large, shift), shift == 62 ? 0 : -(large >> shift));
        EXPECT_EQ(roundedShift(large + 1, shift), shift == 62 ? 1 : (large >> shift));
    }
}

template <class T>
void expectSaturates() {
    constexpr std::int64_t low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
    EXPECT_EQ(saturate<T>(low), low);
    EXPECT_EQ(saturate<T>(high), high);
    EXPECT_EQ(saturate<T>(low - 1), low);
    EXPECT_EQ(saturate<T>(high + 1), high);
    EXPECT_EQ(saturate<T>(std::numeric_limits<std::int64_t>::min()), low);
    EXPECT_EQ(saturate<T>(std::numeric_limits<std::int64_t>::max()), high);
    EXPECT_EQ(saturate<T>(1), 1);
}

TEST(Scale, SaturatesToTheExtremesOfTheType) {
    expectSaturates<Orb8u>();
    expectSaturates<Orb8s>();
    expectSaturates<Orb16u>();
    expectSaturates<Orb16s>();
    expectSaturates<Orb32u>();
    expectSaturates<Orb32s>();
}

} // namespace
