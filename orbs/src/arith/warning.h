// Members that spread over threads, with or without a warning to tell.
#pragma once

#include "foundation/control.h"
#include "foundation/frame.h"
#include "foundation/threads.h"

#include <atomic>

namespace orbs {

struct Parallel {
    int from; // the length from which a call spreads
    enum { inTwo, overThreads } split = inTwo;
};

// Runs kernel(first, count) over len elements. Every thread rounds as the caller's does.
template <class Kernel>
OrbStatus spread(int len, Parallel parallel, Kernel kernel) {
    if (len < parallel.from) {
        kernel(std::size_t{0}, static_cast<std::size_t>(len));
        return orbStsNoErr;
    }
    const auto rounding = static_cast<SseRounding::Mode>(_mm_getcsr() & _MM_ROUND_MASK);
    const auto chunk = [&](std::size_t first, std::size_t count) {
        const SseRounding asCaller(rounding);
        kernel(first, count);
    };
    if (parallel.split == Parallel::inTwo) {
        splitInTwo(len, chunk);
    } else {
        splitOverThreads(len, chunk);
    }
    return orbStsNoErr;
}

// The kernel tells whether it met what the warning is about.
template <class Kernel>
OrbStatus withWarning(OrbStatus warning, int len, Parallel parallel, Kernel kernel) {
    std::atomic<bool> met = false;
    spread(len, parallel, [&](std::size_t first, std::size_t count) {
        if (kernel(first, count)) met.store(true, std::memory_order_relaxed);
    });
    return met ? warning : orbStsNoErr;
}

} // namespace orbs
