#include "foundation/threads.h"
#include "support/threads.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace {

using namespace orbs;
using Chunk = std::pair<std::size_t, std::size_t>; // first, count

// What a division handed to the kernel, in the order of the elements.
template <class Split>
std::vector<Chunk> runsOf(Split split) {
    std::vector<Chunk> runs(64);
    std::atomic<std::size_t> used = 0;
    split([&](std::size_t first, std::size_t count) { runs[used++] = {first, count}; });
    runs.resize(used);
    std::sort(runs.begin(), runs.end());
    return runs;
}
std::vector<Chunk> runsOverThreads(int len) {
    return runsOf([&](auto kernel) { spread(len, {1, Spread::overThreads}, kernel); });
}
std::vector<Chunk> runsInTwo(int len) {
    return runsOf([&](auto kernel) { spread(len, {1}, kernel); });
}

void expectCovers(const std::vector<Chunk>& runs, int len) {
    std::size_t next = 0;
    for (const Chunk& run : runs) {
        EXPECT_EQ(run.first, next);
        EXPECT_GT(run.second, 0u);
        next += run.second;
    }
    EXPECT_EQ(next, static_cast<std::size_t>(len));
}

TEST(Threads, EqualRunsWithTheRemainderInTheLast) {
    const support::ThreadCount four(4);
    EXPECT_EQ(runsOverThreads(4), (std::vector<Chunk>{{0, 1}, {1, 1}, {2, 1}, {3, 1}}));
    EXPECT_EQ(runsOverThreads(11), (std::vector<Chunk>{{0, 2}, {2, 2}, {4, 2}, {6, 5}}));
    EXPECT_EQ(runsOverThreads(3), (std::vector<Chunk>{{0, 3}})); // fewer elements than threads
}

TEST(Threads, TwoHalvesHoweverManyThreads) {
    const support::ThreadCount eight(8);
    EXPECT_EQ(runsInTwo(5000), (std::vector<Chunk>{{0, 2500}, {2500, 2500}}));
    EXPECT_EQ(runsInTwo(5001), (std::vector<Chunk>{{0, 2500}, {2500, 2501}}));
    EXPECT_EQ(runsInTwo(7), (std::vector<Chunk>{{0, 7}}));
}

TEST(Threads, EveryElementIsRunOnceAtEveryThreadCount) {
    for (int threads = 1; threads <= 9; ++threads) {
        const support::ThreadCount count(threads);
        for (int len : {1, 2, 3, 7, 8, 9, 10, 63, 64, 65, 1000}) {
            SCOPED_TRACE(std::to_string(threads) + " threads, " + std::to_string(len) + " elements");
            expectCovers(runsOverThreads(len), len);
            expectCovers(runsInTwo(len), len);
        }
    }
    const support::ThreadCount one(1);
    EXPECT_EQ(runsOverThreads(100000).size(), 1u);
    EXPECT_EQ(runsInTwo(100000).size(), 1u);
}

// Called from a caller's own parallel region the runtime grants one thread: it runs everything.
TEST(Threads, InsideAParallelRegionTheWholeRangeIsRun) {
    const support::ThreadCount four(4);
    const int levels = omp_get_max_active_levels();
    omp_set_max_active_levels(1);
    std::vector<Chunk> overThreads[2], inTwo[2];
    int teams[2] = {};
    auto region = [&](int caller, int) -> OrbStatus {
        overThreads[caller] = runsOverThreads(100);
        inTwo[caller] = runsInTwo(100);
        spreadOverTeam([&](int team) { teams[caller] = team; }, [](int, int) { return orbStsNoErr; });
        return orbStsNoErr;
    };
    auto noPlan = [](int) {};
    runTeam(2, noPlan, region);
    omp_set_max_active_levels(levels);
    for (int caller : {0, 1}) {
        expectCovers(overThreads[caller], 100);
        expectCovers(inTwo[caller], 100);
        EXPECT_EQ(teams[caller], 1);
    }
}

TEST(Threads, TheTeamIsPlannedOnceAndItsSmallestStatusWins) {
    for (int threads : {1, 2, 5}) {
        const support::ThreadCount count(threads);
        int plans = 0, team = 0;
        std::atomic<int> unplanned = 0, wrongTeam = 0;
        auto run = [&](auto statusOf) {
            plans = 0;
            return spreadOverTeam(
                [&](int size) {
                    ++plans;
                    team = size;
                },
                [&](int thread, int size) -> OrbStatus {
                    unplanned += plans != 1;
                    wrongTeam += size != team || thread < 0 || thread >= size;
                    return statusOf(thread);
                });
        };
        EXPECT_EQ(run([](int) { return orbStsNoErr; }), orbStsNoErr);
        EXPECT_EQ(run([](int thread) { return thread == 0 ? orbStsMemAllocErr : orbStsNoErr; }), orbStsMemAllocErr);
        EXPECT_EQ(run([](int thread) { return -1 - thread; }), -team);
        EXPECT_LE(team, threads);
        EXPECT_EQ(unplanned, 0);
        EXPECT_EQ(wrongTeam, 0);
    }
}

TEST(Threads, ACountBelowOneIsATeamOfOne) {
    const support::ThreadCount keep(2);
    for (int count : {0, -1, INT_MIN}) {
        threads_omp_of_n_orb = count;
        int team = 0;
        spreadOverTeam([&](int size) { team = size; }, [](int, int) { return orbStsNoErr; });
        EXPECT_EQ(team, 1);
        expectCovers(runsOverThreads(100), 100);
        expectCovers(runsInTwo(100), 100);
    }
}

TEST(Threads, AWarningOfAnyChunkIsTold) {
    for (const int threads : {1, 2, 5}) {
        const support::ThreadCount count(threads);
        for (const Spread how : {Spread{100}, Spread{100, Spread::overThreads}, Spread{101}}) {
            const auto statusOf = [&](auto kernel) { return spreadWithWarning(orbStsDivByZero, 100, how, kernel); };
            for (const std::size_t culprit : {0u, 49u, 50u, 99u}) {
                const auto meets = [=](std::size_t first, std::size_t n) { return culprit - first < n; };
                EXPECT_EQ(statusOf(meets), orbStsDivByZero) << culprit << ", " << threads << " threads";
            }
            EXPECT_EQ(statusOf([](std::size_t, std::size_t) { return false; }), orbStsNoErr);
        }
    }
}

// Rounding, flush-to-zero and denormals-are-zero reach every thread, what it raises comes back, and its own register is
// as it was; in each way of spreading.
TEST(Threads, AllComputeUnderTheCallersControlRegister) {
    const support::ThreadCount four(4);
    const Orb32u callers = _mm_getcsr() & ~Orb32u{_MM_EXCEPT_MASK};
    const Orb32u special = (callers & ~Orb32u{_MM_ROUND_MASK}) | _MM_ROUND_UP | _MM_FLUSH_ZERO_ON | 0x0040;
    // Calls way(see), which calls see on each thread; the last one raises a flag.
    const auto expectUnder = [&](Orb32u control, Orb32u raised, const char* name, std::size_t threads, auto way) {
        std::vector<Orb32u> seen(4);
        std::atomic<std::size_t> used = 0;
        _mm_setcsr(control);
        way([&] {
            const std::size_t n = used++;
            seen[n] = _mm_getcsr() & ~Orb32u{_MM_EXCEPT_MASK};
            if (n + 1 == threads) _mm_setcsr(_mm_getcsr() | raised);
        });
        const Orb32u after = _mm_getcsr();
        _mm_setcsr(callers);
        seen.resize(used);
        EXPECT_EQ(seen, std::vector<Orb32u>(threads, control)) << name;
        EXPECT_EQ(after, control | raised) << name;
    };
    for (const auto& [control, raised] : {std::pair{special, Orb32u{_MM_EXCEPT_OVERFLOW}}, std::pair{callers, 0u}}) {
        const auto spreadAs = [](Spread how) {
            return [=](auto see) { spread(100, how, [=](std::size_t, std::size_t) { see(); }); };
        };
        expectUnder(control, raised, "in two", 2, spreadAs({1}));
        expectUnder(control, raised, "over threads", 4, spreadAs({1, Spread::overThreads}));
        expectUnder(control, raised, "over a team", 4,
                    [](auto see) { spreadOverTeam([](int) {}, [=](int, int) { return see(), orbStsNoErr; }); });
    }
}

} // namespace
