// The thread count of the library for the life of a scope.
#pragma once

#include "orbcore.h"

namespace support {

class ThreadCount {
public:
    explicit ThreadCount(int threads) : earlier_(orbGetNumThreads()) { orbSetNumThreads(threads); }
    ~ThreadCount() { orbSetNumThreads(earlier_); }
    ThreadCount(const ThreadCount&) = delete;
    ThreadCount& operator=(const ThreadCount&) = delete;

private:
    int earlier_;
};

} // namespace support
