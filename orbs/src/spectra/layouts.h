// Where a packed spectrum of N real samples keeps its bins. Bin 0 is real and comes first; that of half the sampling
// rate, which is there if N is even, is real too; the others lie in a row, re before im.
#pragma once

#include <cstddef>

namespace orbs {

constexpr bool hasHalf(std::size_t N) {
    return N % 2 == 0;
}
constexpr std::size_t complexBins(std::size_t N) {
    return (N - 1) / 2;
}

struct Pack {
    static constexpr std::size_t half(std::size_t N) { return N - 1; }
    static constexpr std::size_t bins(std::size_t) { return 1; }
};
struct Perm {
    static constexpr std::size_t half(std::size_t) { return 1; }
    static constexpr std::size_t bins(std::size_t N) { return hasHalf(N) ? 2 : 1; }
};

} // namespace orbs
