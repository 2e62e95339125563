// How a call spreads over threads: over all there are, in two, or over a team that is told how many came. A chunk is
// run by whoever is there: where the runtime grants fewer threads than asked for, those granted run all chunks.
#pragma once

#include "foundation/control.h"
#include "orbcore.h"
#include "orbdefs.h"

#include <algorithm>
#include <atomic>
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
// returns the smallest of what work returned. All compute under the caller's control register, and what exception flags
// they raise are raised for the caller, so that nothing tells how many they were.
template <class Plan, class Work>
ORBS_THREADS_UNCHECKED OrbStatus runTeam(int threads, Plan& plan, Work& work) {
    if (threads == 1) { // without a region, which takes some hundred nanoseconds
        plan(1);
        return std::min<OrbStatus>(orbStsNoErr, work(0, 1));
    }
    OrbStatus smallest = orbStsNoErr;
    Orb32u raised = 0;
    const Orb32u callers = _mm_getcsr();
    char fork = 0, planned = 0, join = 0;
    ORBS_THREADS_PUBLISH(&fork);
#pragma omp parallel num_threads(threads) reduction(min : smallest) reduction(| : raised)
    {
        ORBS_THREADS_OBSERVE(&fork);
        const SseControl control(callers);
        const int team = omp_get_num_threads();
#pragma omp master
        {
            plan(team);
            ORBS_THREADS_PUBLISH(&planned);
        }
#pragma omp barrier
        ORBS_THREADS_OBSERVE(&planned);
        smallest = work(omp_get_thread_num(), team);
        raised = control.raised();
        ORBS_THREADS_PUBLISH(&join);
    }
    ORBS_THREADS_OBSERVE(&join);
    raiseFlags(raised);
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

// The length from which a call spreads, and over how many threads.
struct Spread {
    int from;
    enum { inTwo, overThreads } ways = inTwo; // inTwo: two, however many there are
};

// Runs kernel(first, count) on the chunks of `len` elements, or on all of them at once if the call is shorter than
// told, if there are not two threads, or fewer elements than threads.
template <class Kernel>
OrbStatus spread(int len, Spread how, Kernel kernel) {
    const int threads = len < how.from ? 1 : threadCount();
    if (threads < 2 || len < threads) {
        kernel(std::size_t{0}, static_cast<std::size_t>(len));
        return orbStsNoErr;
    }
    const int runs = how.ways == Spread::inTwo ? 2 : threads;
    const EqualRuns equal{static_cast<std::size_t>(len), static_cast<std::size_t>(runs)};
    runChunks(runs, [&](int k) {
        const auto run = static_cast<std::size_t>(k);
        kernel(equal.first(run), equal.count(run));
    });
    return orbStsNoErr;
}

// The same of a kernel that tells whether it met what the warning is about.
template <class Kernel>
OrbStatus spreadWithWarning(OrbStatus warning, int len, Spread how, Kernel kernel) {
    std::atomic<bool> met = false;
    spread(len, how, [&](std::size_t first, std::size_t count) {
        if (kernel(first, count)) met.store(true, std::memory_order_relaxed);
    });
    return met ? warning : orbStsNoErr;
}

// The whole thread count is asked for, and plan(team) is told once how many came. A count that something else than
// orbSetNumThreads left below 1 is taken as 1.
template <class Plan, class Work>
OrbStatus spreadOverTeam(Plan plan, Work work) {
    return runTeam(std::max(threadCount(), 1), plan, work);
}

} // namespace orbs
