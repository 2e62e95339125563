// Roots of unity: as near as they can be, and mirrored without a difference.
#include "dft/base.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(Roots, AreTheNearestAndMirrorEachOther) {
    constexpr long double turn = 6.28318530717958647692528676655900577L;
    for (std::size_t n :
         {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 12u, 20u, 24u, 30u, 101u, 360u, 1000u, 1009u, 4096u, 10007u}) {
        std::vector<double> table(2 * n);
        std::vector<float> narrow(2 * n);
        orbs::dft::fillRoots(table.data(), n);
        orbs::dft::fillRoots(narrow.data(), n);
        for (std::size_t j = 0; j < n; ++j) {
            const double re = table[2 * j], im = table[2 * j + 1];
            const long double angle = turn * static_cast<long double>(j) / static_cast<long double>(n);
            // Half a unit of the last place, and what the angle itself lacks in long double.
            EXPECT_NEAR(static_cast<double>(re - cosl(angle)), 0, 0x1.01p-54) << j << " of " << n;
            EXPECT_NEAR(static_cast<double>(im + sinl(angle)), 0, 0x1.01p-54) << j << " of " << n;
            EXPECT_EQ(narrow[2 * j], static_cast<float>(re));
            EXPECT_EQ(narrow[2 * j + 1], static_cast<float>(im));
            if (j > 0) { EXPECT_TRUE(table[2 * (n - j)] == re && table[2 * (n - j) + 1] == -im) << j << " of " << n; }
            if (n % 2 == 0) {
                const std::size_t opposite = (j + n / 2) % n;
                EXPECT_TRUE(table[2 * opposite] == -re && table[2 * opposite + 1] == -im) << j << " of " << n;
            }
            if (n % 8 == 0 && j <= n / 4) {
                EXPECT_TRUE(table[2 * (n / 4 - j)] == -im && table[2 * (n / 4 - j) + 1] == -re) << j << " of " << n;
            }
            const orbs::dft::RootPrecision precision;
            const orbs::dft::Root alone = orbs::dft::unitRoot(j, n);
            EXPECT_TRUE(alone.re == re && alone.im == im) << j << " of " << n;
        }
    }
}

} // namespace
