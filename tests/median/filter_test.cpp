// FilterMedian, by its definition.
#include "orbs/median.h"
#include "support/compare.h"

#include <array>
#include <climits>
#include <compare>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

namespace {

using support::Random;
using support::randomVector;

template <class T>
struct Members {
    OrbStatus (*copying)(const T*, T*, int, int);
    OrbStatus (*inPlace)(T*, int, int);
};

template <class Test>
void forEveryType(Test test) {
    test(Members<Orb8u>{orbsFilterMedian_8u, orbsFilterMedian_8u_I});
    test(Members<Orb16s>{orbsFilterMedian_16s, orbsFilterMedian_16s_I});
    test(Members<Orb32s>{orbsFilterMedian_32s, orbsFilterMedian_32s_I});
    test(Members<Orb32f>{orbsFilterMedian_32f, orbsFilterMedian_32f_I});
    test(Members<Orb64f>{orbsFilterMedian_64f, orbsFilterMedian_64f_I});
}

template <class T>
std::vector<T> definition(const std::vector<T>& x, int maskSize) {
    const long len = static_cast<long>(x.size()), half = (maskSize - 1) / 2;
    std::vector<T> y(x.size()), window(static_cast<std::size_t>(2 * half + 1));
    for (long n = 0; n < len; ++n) {
        for (long k = -half; k <= half; ++k)
            window[static_cast<std::size_t>(half + k)] = x[static_cast<std::size_t>(std::clamp(n + k, 0L, len - 1))];
        const auto middle = window.begin() + half;
        std::nth_element(window.begin(), middle, window.end(), [](T a, T b) { return std::strong_order(a, b) < 0; });
        y[static_cast<std::size_t>(n)] = *middle;
    }
    return y;
}

template <class T>
testing::AssertionResult gives(Members<T> members, const std::vector<T>& x, int maskSize, const std::vector<T>& want) {
    const auto len = static_cast<int>(x.size());
    const OrbStatus status = maskSize % 2 == 0 ? orbStsEvenMedianMaskSize : orbStsNoErr;
    std::vector<T> copied(x.size()), inPlace = x;
    if (members.copying(x.data(), copied.data(), len, maskSize) != status ||
        members.inPlace(inPlace.data(), len, maskSize) != status)
        return testing::AssertionFailure() << "status, mask " << maskSize;
    for (const auto& got : {copied, inPlace})
        if (auto same = support::sameBits(got, want); !same)
            return same << ", " << support::callOf(members.copying, len, maskSize);
    return testing::AssertionSuccess();
}

// With many equal elements in every other test.
template <class T>
std::vector<T> signal(int len, int turn) {
    auto x = randomVector<T>(static_cast<std::size_t>(len), static_cast<std::uint64_t>(turn));
    Random random(static_cast<std::uint64_t>(turn));
    if (turn % 2 == 0)
        for (T& t : x) t = static_cast<T>(random() % 5);
    return x;
}

TEST(FilterMedian, OfEveryLength) {
    forEveryType([]<class T>(Members<T> members) {
        for (int len = 1; len < 300; len += 1 + len / 100) {
            for (const int maskSize : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 64, 151, 1001}) {
                const auto x = signal<T>(len, maskSize);
                ASSERT_TRUE(gives(members, x, maskSize, definition(x, maskSize)));
            }
        }
    });
}

// Around the lengths of the runs that are sorted at once, and several of them.
TEST(FilterMedian, OfLongVectors) {
    forEveryType([]<class T>(Members<T> members) {
        for (const auto& [len, maskSize] : {std::pair(502, 11),
                                            {503, 11},
                                            {1004, 11},
                                            {1005, 11},
                                            {2000, 31},
                                            {761, 255},
                                            {763, 255},
                                            {1524, 255},
                                            {3000, 255},
                                            {1200, 1999}}) {
            const auto x = signal<T>(len, maskSize + len);
            ASSERT_TRUE(gives(members, x, maskSize, definition(x, maskSize)));
        }
    });
}

// More than 65,536 at once, beside a histogram that slides along.
TEST(FilterMedian, OfVeryWideMasks) {
    constexpr int len = 70000, half = 10000;
    Random random(1);
    std::vector<Orb16s> x(len), want(len);
    for (std::size_t n = 0; n < len; ++n) x[n] = static_cast<Orb16s>((random() % 200 + n / 1000) % 256 - 128);
    const auto at = [&](int n) {
        return static_cast<std::size_t>(x[static_cast<std::size_t>(std::clamp(n, 0, len - 1))] + 128);
    };
    std::vector<int> counts(256);
    for (int k = -half; k < half; ++k) ++counts[at(k)];
    for (int n = 0; n < len; ++n) {
        ++counts[at(n + half)];
        int value = -1;
        for (int upTo = 0; upTo <= half;) upTo += counts[static_cast<std::size_t>(++value)];
        want[static_cast<std::size_t>(n)] = static_cast<Orb16s>(value - 128);
        --counts[at(n - half)];
    }
    EXPECT_TRUE(gives({orbsFilterMedian_16s, orbsFilterMedian_16s_I}, x, 2 * half + 1, want));
}

// A mask of any size is no wider than what it covers, and takes no more memory.
TEST(FilterMedian, OfMasksFarBeyondTheVector) {
    forEveryType([]<class T>(Members<T> members) {
        std::vector<T> ramp(100);
        for (std::size_t n = 0; n < ramp.size(); ++n) ramp[n] = static_cast<T>(n);
        EXPECT_TRUE(gives(members, ramp, INT_MAX, ramp));
        EXPECT_TRUE(gives(members, ramp, INT_MAX - 1, ramp));
        for (const int len : {3, 4, 17, 60}) {
            const auto x = signal<T>(len, 2 * len + 1);
            EXPECT_TRUE(gives(members, x, INT_MAX, definition(x, 4 * len + 1)));
        }
    });
}

template <class T>
std::vector<T> withNaN(std::size_t len) {
    auto x = randomVector<T>(len, 3);
    Random random(4);
    const T nan = std::numeric_limits<T>::quiet_NaN(), infinity = std::numeric_limits<T>::infinity();
    for (T& t : x)
        if (random() % 4 == 0) t = std::array{nan, -nan, infinity, -infinity, T(0), -T(0)}[random() % 6];
    return x;
}

// Beyond the networks the order is that of the bits; they give an element of the window, the same wherever it lies.
template <class T>
void expectNaNIsHandled(Members<T> members) {
    for (const int maskSize : {11, 31, 101}) {
        const auto x = withNaN<T>(700);
        EXPECT_TRUE(gives(members, x, maskSize, definition(x, maskSize)));
    }
    for (const int maskSize : {3, 5, 7, 9}) {
        const auto x = withNaN<T>(300);
        auto y = x;
        EXPECT_EQ(members.inPlace(y.data(), 300, maskSize), orbStsNoErr);
        const auto width = static_cast<std::size_t>(maskSize), half = width / 2;
        for (std::size_t n = half; n + half < x.size(); ++n) {
            const auto first = x.begin() + static_cast<std::ptrdiff_t>(n - half);
            std::vector<T> window(first, first + maskSize);
            ASSERT_TRUE(std::ranges::any_of(window, [&](const T& t) { return support::identical(t, y[n]); })) << n;
            EXPECT_EQ(members.inPlace(window.data(), maskSize, maskSize), orbStsNoErr);
            ASSERT_TRUE(support::identical(window[half], y[n])) << n;
        }
    }
}

TEST(FilterMedian, NaNInfinitiesAndZeros) {
    expectNaNIsHandled<Orb32f>({orbsFilterMedian_32f, orbsFilterMedian_32f_I});
    expectNaNIsHandled<Orb64f>({orbsFilterMedian_64f, orbsFilterMedian_64f_I});
}

// 2^25 elements and a mask as wide need more than the allocator gives at once.
TEST(FilterMedian, WithoutMemoryNothingIsWritten) {
    constexpr int len = 1 << 25;
    const std::unique_ptr<Orb64f, decltype(&std::free)> x(static_cast<Orb64f*>(std::calloc(len, sizeof(Orb64f))),
                                                          std::free);
    ASSERT_NE(x, nullptr);
    x.get()[1] = 5;
    EXPECT_EQ(orbsFilterMedian_64f_I(x.get(), len, INT_MAX - 1), orbStsMemAllocErr);
    EXPECT_EQ(x.get()[1], 5);
    Orb64f to = 7;
    EXPECT_EQ(orbsFilterMedian_64f(x.get(), &to, len, INT_MAX), orbStsMemAllocErr);
    EXPECT_EQ(to, 7);
}

} // namespace
