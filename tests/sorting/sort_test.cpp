// SortAscend, SortDescend.
#include "orbs/sorting.h"
#include "sorting/heap.h"
#include "support/compare.h"

#include <bit>
#include <compare>
#include <functional>
#include <gtest/gtest.h>

namespace {

using support::Random;
using support::randomElement;

// Floats in IEEE 754's total order.
template <class T>
void sortInto(std::vector<T>& x, bool descending) {
    std::sort(x.begin(), x.end(), [=](T a, T b) {
        if (descending) std::swap(a, b);
        return std::strong_order(a, b) < 0;
    });
}

template <class T>
struct Members {
    OrbStatus (*ascend)(T*, int);
    OrbStatus (*descend)(T*, int);
};

template <class T>
testing::AssertionResult sorts(Members<T> members, const std::vector<T>& x) {
    for (const bool descending : {false, true}) {
        auto got = x, want = x;
        sortInto(want, descending);
        const auto member = descending ? members.descend : members.ascend;
        if (member(got.data(), static_cast<int>(got.size())) != orbStsNoErr) return testing::AssertionFailure();
        if (auto same = support::sameBits(got, want); !same) return same << " " << support::nameOf(member);
    }
    return testing::AssertionSuccess();
}

template <class Test>
void forEveryType(Test test) {
    test(Members<Orb8u>{orbsSortAscend_8u_I, orbsSortDescend_8u_I});
    test(Members<Orb16s>{orbsSortAscend_16s_I, orbsSortDescend_16s_I});
    test(Members<Orb16u>{orbsSortAscend_16u_I, orbsSortDescend_16u_I});
    test(Members<Orb32s>{orbsSortAscend_32s_I, orbsSortDescend_32s_I});
    test(Members<Orb32f>{orbsSortAscend_32f_I, orbsSortDescend_32f_I});
    test(Members<Orb64f>{orbsSortAscend_64f_I, orbsSortDescend_64f_I});
}

// Any pattern of bits, every kind of NaN, infinity, zero and subnormal number among them.
template <class T>
T anyBits(Random& random) {
    if constexpr (std::is_floating_point_v<T>) {
        using Bits = std::conditional_t<sizeof(T) == 4, Orb32u, std::uint64_t>;
        constexpr Bits infinity = std::bit_cast<Bits>(std::numeric_limits<T>::infinity());
        constexpr Bits special[] = {0, 1, infinity, infinity + 1, ~Bits{0} >> 1, infinity - 1};
        const auto sign = static_cast<Bits>(random() % 2) << (8 * sizeof(T) - 1);
        return std::bit_cast<T>(random() % 4 == 0 ? special[random() % 6] | sign : static_cast<Bits>(random()));
    } else {
        return randomElement<T>(random);
    }
}

// Orders of `count` places, of which the keys are made.
std::vector<std::function<std::size_t(std::size_t n, std::size_t count)>> orders() {
    static Random random(5);
    return {
        [](std::size_t n, std::size_t) { return n; },
        [](std::size_t n, std::size_t count) { return count - n; },
        [](std::size_t n, std::size_t count) { return n + 2 == count ? 0 : n; },                // all but one in order
        [](std::size_t n, std::size_t count) { return std::min(n, count - n); },                // up and down
        [](std::size_t n, std::size_t) { return n % 37; },                                      // a sawtooth
        [](std::size_t n, std::size_t count) { return n < count / 2 ? 2 * n : 2 * n - count; }, // two runs
        [](std::size_t, std::size_t) { return std::size_t{7}; },
        [](std::size_t, std::size_t) { return random() % 2; },
        [](std::size_t, std::size_t) { return random() % 8 == 0 ? random() % 100 : 50; }, // mostly equal
        [](std::size_t, std::size_t count) { return random() % count; },
    };
}

TEST(Sort, EveryLengthOfAnyBits) {
    forEveryType([]<class T>(Members<T> members) {
        Random random(1);
        // Up to where spans are partitioned within themselves, and beyond.
        for (std::size_t count = 1; count < 2200; count += 1 + count / 300) {
            std::vector<T> x(count);
            for (T& t : x) t = anyBits<T>(random);
            ASSERT_TRUE(sorts(members, x)) << count << " elements";
        }
    });
}

TEST(Sort, OrdersOfFewAndManyKeys) {
    forEveryType([]<class T>(Members<T> members) {
        std::size_t order = 0;
        for (const auto& place : orders()) {
            for (const std::size_t count : {40u, 127u, 128u, 700u, 5000u, 60001u}) {
                std::vector<T> x(count);
                for (std::size_t n = 0; n < count; ++n) x[n] = static_cast<T>(place(n, count));
                ASSERT_TRUE(sorts(members, x)) << "order " << order << " of " << count;
                for (T& t : x) // at the ends of the type
                    t = static_cast<T>(t > T(50) ? std::numeric_limits<T>::max() : std::numeric_limits<T>::lowest());
                ASSERT_TRUE(sorts(members, x)) << "order " << order << " of " << count << ", extremes";
            }
            ++order;
        }
    });
}

// So many that most values of 16 bits are there several times: they are counted in the end.
TEST(Sort, MoreKeysThanValues) {
    Random random(2);
    std::vector<Orb16s> x(400000);
    for (Orb16s& t : x) t = randomElement<Orb16s>(random);
    EXPECT_TRUE(sorts({orbsSortAscend_16s_I, orbsSortDescend_16s_I}, x));
    for (Orb16s& t : x) t = static_cast<Orb16s>(32767 - std::countr_zero(random() | 1u << 20) * 400 - random() % 7);
    EXPECT_TRUE(sorts({orbsSortAscend_16s_I, orbsSortDescend_16s_I}, x));
}

// What takes over where pivots stay bad.
TEST(Sort, ByAHeap) {
    Random random(3);
    for (std::size_t count = 0; count < 300; ++count) {
        std::vector<Orb32s> x(count);
        for (Orb32s& t : x) t = static_cast<Orb32s>(random() % (count + 1));
        auto want = x;
        sortInto(want, false);
        orbs::heapSort(x.data(), count);
        ASSERT_TRUE(support::sameBits(x, want)) << count;
    }
}

} // namespace
