// The three ways in which a call spreads over threads. A chunk is run by whoever is there: where the runtime grants
// fewer threads than asked for, those granted run all chunks.
#pragma once

#include "orbcore.h"

#include <algorithm>
#include <cstddef>
#include <omp.h>

#ifdef __SANITIZE_THREAD__
// The OpenMP runtime is not instrumented, so the order that its fork, barrier and join make is told here.
extern "C" void __tsan_acquire(void*);
extern "C" void __tsan_release(void*);
#    define ORBS_THREADS_PUBLISH(place) __tsan_release(place)
#    define ORBS_THREADS_OBSERVE(place) __tsan_acquire(place)
#    define ORBS_THREADS_UNCHECKED __attribute__((no_sanitize("thread")))
#else
#    define ORBS_THREADS_PUBLISH(place) static_cast<void>(place)
#    define ORBS_THREADS_OBSERVE(place) static_cast<void>(place)
#    define ORBS_THREADS_UNCHECKED
#endif

namespace orbs {

inline int threadCount() {
    return orbGetNumThreads();
}

// Calls work(thread, team) on each thread of a team of at most `threads`, after plan(team) ran on one of them, and
// returns the smallest of what work returned.
template <class Plan, class Work>
ORBS_THREADS_UNCHECKED OrbStatus runTeam(int threads, Plan& plan, Work& work) {
    OrbStatus smallest = orbStsNoErr;
    char fork = 0, planned = 0, join = 0;
    ORBS_THREADS_PUBLISH(&fork);
#pragma omp parallel num_threads(threads) reduction(min : smallest)
    {
        ORBS_THREADS_OBSERVE(&fork);
        const int team = omp_get_num_threads();
#pragma omp master
        {
            plan(team);
            ORBS_THREADS_PUBLISH(&planned);
        }
#pragma omp barrier
        ORBS_THREADS_OBSERVE(&planned);
        smallest = work(omp_get_thread_num(), team);
        ORBS_THREADS_PUBLISH(&join);
    }
    ORBS_THREADS_OBSERVE(&join);
    return smallest;
}

// Runs chunk(k) for k = 0 to chunks - 1 on a team of at most that many threads.
template <class Chunk>
void runChunks(int chunks, Chunk chunk) {
    auto plan = [](int) {};
    auto work = [&](int thread, int team) -> OrbStatus {
        for (int k = thread; k < chunks; k += team) chunk(k);
        return orbStsNoErr;
    };
    runTeam(chunks, plan, work);
}

// A range cut into equal runs, the last one longer by the remainder.
struct EqualRuns {
    std::size_t length;
    std::size_t runs;
    std::size_t first(std::size_t k) const { return k * (length / runs); }
    std::size_t count(std::size_t k) const { return length / runs + (k + 1 == runs ? length % runs : 0); }
};

// Runs kernel(first, count) on `runs` chunks of the range, or on the whole of it if there are not two threads, or fewer
// elements than threads.
template <class Kernel>
void splitInRuns(int runs, int len, Kernel kernel) {
    const int threads = threadCount();
    if (threads < 2 || len < threads) return kernel(std::size_t{0}, static_cast<std::size_t>(len));
    const EqualRuns equal{static_cast<std::size_t>(len), static_cast<std::size_t>(runs)};
    runChunks(runs, [&](int k) {
        const auto run = static_cast<std::size_t>(k);
        kernel(equal.first(run), equal.count(run));
    });
}
// N-way division: one chunk for each thread of the thread count.
template <class Kernel>
void splitOverThreads(int len, Kernel kernel) {
    splitInRuns(threadCount(), len, kernel);
}
// Two-way division, however many threads there are.
template <class Kernel>
void splitInTwo(int len, Kernel kernel) {
    splitInRuns(2, len, kernel);
}

// Team-aware division: the whole thread count is asked for, plan(team) is told once how many came. A count that
// something else than orbSetNumThreads left below 1 is taken as 1.
template <class Plan, class Work>
OrbStatus splitOverTeam(Plan plan, Work work) {
    return runTeam(std::max(threadCount(), 1), plan, work);
}

} // namespace orbs
