#include "arith/warning.h"

#include "support/threads.h"

#include <gtest/gtest.h>

namespace {

using namespace orbs;

TEST(Warning, OfAnyChunkIsTold) {
    for (const int threads : {1, 2, 5}) {
        const support::ThreadCount count(threads);
        for (const Parallel parallel : {Parallel{100}, Parallel{100, Parallel::overThreads}, Parallel{101}}) {
            const auto statusOf = [&](auto kernel) { return withWarning(orbStsDivByZero, 100, parallel, kernel); };
            for (const std::size_t culprit : {0u, 49u, 50u, 99u}) {
                const auto meets = [=](std::size_t first, std::size_t n) { return culprit - first < n; };
                EXPECT_EQ(statusOf(meets), orbStsDivByZero) << culprit << ", " << threads << " threads";
            }
            EXPECT_EQ(statusOf([](std::size_t, std::size_t) { return false; }), orbStsNoErr);
        }
    }
}

} // namespace
