// FIRSparse, IIRSparse against the sums one by one, in single precision and in the order told.
#include "orbs.h"
#include "support/compare.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using support::randomVector;
using support::sameBits;
using Floats = std::vector<float>;
using Positions = std::vector<int>;

constexpr int most = std::numeric_limits<int>::max();

struct Sum {
    Floats taps = {};
    Positions at = {};
    std::size_t order() const { return at.empty() ? 0 : static_cast<std::size_t>(at.back()); }

    // sum + ..., over v, of which the element for this output is v[n].
    float added(float sum, const Floats& v, std::size_t n) const {
        for (std::size_t i = at.size(); i-- > 0;) sum += taps[i] * v[n - static_cast<std::size_t>(at[i])];
        return sum;
    }
};
Sum sumOf(Positions at, float scale, unsigned seed) {
    Sum sum{randomVector<float>(at.size(), seed), std::move(at)};
    for (float& t : sum.taps) t *= scale;
    return sum;
}

// Newest first, as callers give them, in front of a stream.
Floats behind(const Floats& line, const Floats& x) {
    Floats all(line.rbegin(), line.rend());
    all.insert(all.end(), x.begin(), x.end());
    return all;
}

struct Filter {
    Sum forward = {}, recursive = {};
    bool isRecursive = false;
    std::vector<Orb8u> buffer = {};
    OrbsFIRSparseState_32f* fir = nullptr;
    OrbsIIRSparseState_32f* iir = nullptr;

    void init(const Floats& line) {
        Floats taps = forward.taps;
        Positions at = forward.at;
        taps.insert(taps.end(), recursive.taps.begin(), recursive.taps.end());
        at.insert(at.end(), recursive.at.begin(), recursive.at.end());
        if (recursive.at.empty()) at.push_back(1);
        const int count1 = static_cast<int>(forward.at.size()), count2 = static_cast<int>(recursive.at.size());
        const int order1 = static_cast<int>(forward.order()), order2 = static_cast<int>(recursive.order());
        const float* const pLine = line.empty() ? nullptr : line.data();
        int size = 0;
        if (isRecursive) {
            ASSERT_EQ(orbsIIRSparseGetStateSize_32f(count1, count2, order1, order2, &size), orbStsNoErr);
            buffer.resize(static_cast<std::size_t>(size));
            ASSERT_EQ(orbsIIRSparseInit_32f(&iir, taps.data(), at.data(), count1, count2, pLine, buffer.data()),
                      orbStsNoErr);
        } else {
            ASSERT_EQ(orbsFIRSparseGetStateSize_32f(count1, std::max(order1, 1), &size), orbStsNoErr);
            buffer.resize(static_cast<std::size_t>(size));
            ASSERT_EQ(orbsFIRSparseInit_32f(&fir, taps.data(), at.data(), count1, pLine, buffer.data()), orbStsNoErr);
        }
    }
    void run(const float* x, float* y, std::size_t len) {
        const int n = static_cast<int>(len);
        ASSERT_EQ(isRecursive ? orbsIIRSparse_32f(x, y, n, iir) : orbsFIRSparse_32f(x, y, n, fir), orbStsNoErr);
    }
    Floats expected(const Floats& line, const Floats& x) const {
        const std::size_t order1 = forward.order(), order2 = recursive.order();
        const Floats given = line.empty() ? Floats(order1 + order2) : line;
        const auto middle = given.begin() + static_cast<std::ptrdiff_t>(order1);
        const Floats samples = behind({given.begin(), middle}, x);
        Floats outputs = behind({middle, given.end()}, Floats(x.size()));
        for (std::size_t n = 0; n < x.size(); ++n)
            outputs[order2 + n] = recursive.added(forward.added(0, samples, order1 + n), outputs, order2 + n);
        return {outputs.begin() + static_cast<std::ptrdiff_t>(order2), outputs.end()};
    }
};

// In one call, and cut into calls of these lengths in turn.
void expectFilters(Filter filter, const Floats& line) {
    const Floats x = randomVector<float>(700, 3), expected = filter.expected(line, x);
    const std::size_t order = filter.forward.order();
    for (const std::vector<std::size_t>& cuts : std::vector<std::vector<std::size_t>>{
             {700}, {1}, {order + 1}, {std::max<std::size_t>(order, 1)}, {3, 64, 150}}) {
        filter.init(line);
        Floats y(x.size());
        for (std::size_t at = 0, turn = 0, len; at < x.size(); at += len) {
            len = std::min(cuts[turn++ % cuts.size()], x.size() - at);
            filter.run(&x[at], &y[at], len);
        }
        ASSERT_TRUE(sameBits(y, expected)) << filter.forward.at.size() << " and " << filter.recursive.at.size()
                                           << " taps, order " << order << ", calls of " << cuts[0];
    }
}

const Positions lists[] = {{0}, {1}, {0, 1, 2, 3}, {5, 17}, {0, 40, 41, 99, 300}, {699}, {2, 900}};

TEST(FirSparse, AddsTheTapsThatAreThere) {
    for (const Positions& at : lists) {
        const Sum forward = sumOf(at, 1, 1);
        expectFilters({.forward = forward}, {});
        if (forward.order() > 0) expectFilters({.forward = forward}, randomVector<float>(forward.order(), 2));
    }
}

TEST(IirSparse, AddsOutputsToo) {
    for (const Positions& at : lists) {
        for (const Positions& recursiveAt :
             std::vector<Positions>{{}, {1}, {1, 2}, {3}, {4, 5}, {9, 10, 200}, {64, 130}, {600, 699, 700, 800}}) {
            const Sum forward = sumOf(at, 1, 1), recursive = sumOf(recursiveAt, 0.2f, 5);
            const std::size_t order = forward.order() + recursive.order();
            expectFilters({.forward = forward, .recursive = recursive, .isRecursive = true}, {});
            if (order > 0)
                expectFilters({.forward = forward, .recursive = recursive, .isRecursive = true},
                              randomVector<float>(order, 2));
        }
    }
}

TEST(SparseSize, IsTheOneAgreedUpon) {
    int size = 0;
    EXPECT_EQ(orbsFIRSparseGetStateSize_32f(1, 1, &size), orbStsNoErr);
    EXPECT_EQ(size, 16 + 32 + 48);
    EXPECT_EQ(orbsFIRSparseGetStateSize_32f(5, 999, &size), orbStsNoErr);
    EXPECT_EQ(size, 8000 + 64 + 48);
    EXPECT_EQ(orbsIIRSparseGetStateSize_32f(5, 0, 3, 0, &size), orbStsNoErr);
    EXPECT_EQ(size, 64 + 48 + 32 + 16);
    EXPECT_EQ(orbsIIRSparseGetStateSize_32f(4, 9, 10, 11, &size), orbStsNoErr);
    EXPECT_EQ(size, 32 + 96 + 48 + 176 + 16);
    size = 1;
    EXPECT_EQ(orbsFIRSparseGetStateSize_32f(1, most / 8, &size), orbStsMemAllocErr);
    EXPECT_EQ(orbsFIRSparseGetStateSize_32f(most, most, &size), orbStsMemAllocErr);
    EXPECT_EQ(orbsIIRSparseGetStateSize_32f(most, most, most, most, &size), orbStsMemAllocErr);
    EXPECT_EQ(size, 1);
}

TEST(SparseInit, RefusesPositionsOutOfOrder) {
    const Floats taps(6);
    OrbsFIRSparseState_32f* fir = nullptr;
    OrbsIIRSparseState_32f* iir = nullptr;
    std::vector<Orb8u> buffer(1000);
    for (const Positions& at : std::vector<Positions>{{-1, 2, 3}, {0, 0, 3}, {0, 5, 4}, {0, 1, 1}})
        EXPECT_EQ(orbsFIRSparseInit_32f(&fir, taps.data(), at.data(), 3, nullptr, buffer.data()), orbStsSparseIndexErr);
    for (const Positions& at :
         std::vector<Positions>{{-1, 2, 1, 2}, {2, 2, 1, 2}, {0, 1, 0, 2}, {0, 1, -1, 2}, {0, 1, 2, 2}})
        EXPECT_EQ(orbsIIRSparseInit_32f(&iir, taps.data(), at.data(), 2, 2, nullptr, buffer.data()),
                  orbStsSparseIndexErr);
    const Positions none{0, 1, 0}, far{0, most};
    EXPECT_EQ(orbsIIRSparseInit_32f(&iir, taps.data(), none.data(), 2, 0, nullptr, buffer.data()),
              orbStsSparseIndexErr);
    EXPECT_EQ(orbsFIRSparseInit_32f(&fir, taps.data(), far.data(), 2, nullptr, buffer.data()), orbStsMemAllocErr);
    EXPECT_EQ(orbsIIRSparseInit_32f(&iir, taps.data(), far.data(), 1, 1, nullptr, buffer.data()), orbStsMemAllocErr);
    EXPECT_EQ(fir, nullptr);
    EXPECT_EQ(iir, nullptr);
}

} // namespace
