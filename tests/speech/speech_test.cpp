// Running averages, pre-emphasis and sums of windows against their formulas.
#include "orbs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

std::vector<Orb16s> samples(std::size_t len, int reach) {
    std::mt19937 bits(static_cast<unsigned>(len) + static_cast<unsigned>(reach));
    std::vector<Orb16s> x(len);
    for (Orb16s& v : x)
        v = static_cast<Orb16s>(static_cast<int>(bits() % (2u * static_cast<unsigned>(reach) + 1)) - reach);
    if (!x.empty() && reach == 32767) x[len / 2] = -32768;
    return x;
}

constexpr auto linear = orbsUpdateLinear_16s32s_I;
constexpr auto power = orbsUpdatePower_16s32s_I;
using Update = decltype(linear);

// In extended precision numbers are whole below 2^64, and far off the 32 bits wherever they are not: from there they
// only grow.
Orb32s reference(Update update, const std::vector<Orb16s>& x, Orb32s start, int shift, int alpha) {
    long double y = start;
    for (const Orb64s v : x) {
        const Orb64s in = update == power ? (v * v) >> std::clamp(shift, 0, 31) : v >> std::clamp(shift, 0, 15);
        y = alpha * y + (1 - static_cast<long double>(alpha)) * in;
    }
    const long double limited = std::clamp(y, -0x1p31L, 0x1p31L - 1);
    return static_cast<Orb32s>(limited);
}

void expectUpdates(Update update, int reach, std::initializer_list<int> alphas, int hint) {
    for (const int alpha : alphas) {
        for (const std::size_t len : {1, 2, 3, 4, 5, 7, 8, 31, 100}) {
            for (const int shift : {0, 1, 7, -5, 15, 16, 31, 99}) {
                for (const Orb32s start : {0, -1, reach}) {
                    const std::vector<Orb16s> x = samples(len, reach);
                    Orb32s y = start;
                    ASSERT_EQ(update(x.data(), static_cast<int>(len), &y, shift, static_cast<Orb16s>(alpha), hint), 0);
                    ASSERT_EQ(y, reference(update, x, start, shift, alpha))
                        << "alpha " << alpha << ", len " << len << ", shift " << shift << ", hint " << hint;
                }
            }
        }
    }
}

TEST(Updates, AreTheRecursion) {
    const auto alphas = {0, 1, -1, 2, -3, -6, 8, 9, -7, 100, -180, 181, -181, 182, 1000, -32768};
    for (const int hint : {int{orbAlgHintNone}, int{orbAlgHintAccurate}, 7}) {
        expectUpdates(linear, 32767, alphas, hint);
        expectUpdates(power, 32767, {0, 1, -1, 2, 9, -180, 1000}, hint);
    }
    // Beyond these, the hint does not count; within, what stays below 2^24 is exact.
    expectUpdates(linear, 32767, {9, -7, 182, 1000}, orbAlgHintFast);
    expectUpdates(linear, 900, {0, 1, -1}, orbAlgHintFast);
    expectUpdates(power, 100, {0, 1, -1}, orbAlgHintFast);
}

TEST(Updates, SinglePrecisionRoundsTheRunningValue) {
    const Orb16s x[5] = {1, 2, 3, 4, 5};
    for (const Update update : {linear, power}) {
        Orb32s y = (1 << 24) + 1;
        update(x, 5, &y, 0, 1, orbAlgHintAccurate);
        EXPECT_EQ(y, (1 << 24) + 1);
        update(x, 5, &y, 0, 1, orbAlgHintFast);
        EXPECT_EQ(y, 1 << 24);
        y = std::numeric_limits<Orb32s>::max();
        update(x, 5, &y, 0, 1, orbAlgHintFast);
        EXPECT_EQ(y, std::numeric_limits<Orb32s>::max());
        y = std::numeric_limits<Orb32s>::min();
        update(x, 4, &y, 0, 1, orbAlgHintFast);
        EXPECT_EQ(y, std::numeric_limits<Orb32s>::min());
    }
}

TEST(Preemphasize, SubtractsTheElementBefore) {
    for (std::size_t len = 1; len <= 140; ++len) {
        for (const Orb32f val : {0.95f, -1.5f, 0.0f, 40000.0f, 3e38f}) {
            std::vector<Orb16s> x = samples(len, 32767), y = x;
            std::vector<Orb32f> xf(x.begin(), x.end()), yf = xf;
            ASSERT_EQ(orbsPreemphasize_16s(y.data(), static_cast<int>(len), val), orbStsNoErr);
            ASSERT_EQ(orbsPreemphasize_32f(yf.data(), static_cast<int>(len), val), orbStsNoErr);
            ASSERT_EQ(y[0], x[0]);
            ASSERT_EQ(yf[0], xf[0]);
            for (std::size_t n = 1; n < len; ++n) {
                const Orb32f product = val * xf[n - 1], want = xf[n] - product;
                ASSERT_EQ(yf[n], want) << n << " of " << len;
                ASSERT_EQ(y[n], std::clamp(std::nearbyint(want), -32768.0f, 32767.0f)) << n << " of " << len;
            }
        }
    }
}

TEST(Preemphasize, NanBecomesTheLeastNumber) {
    std::vector<Orb16s> x(21, 5);
    ASSERT_EQ(orbsPreemphasize_16s(x.data(), 21, std::numeric_limits<Orb32f>::quiet_NaN()), orbStsNoErr);
    EXPECT_EQ(x[0], 5);
    for (std::size_t n = 1; n < x.size(); ++n) EXPECT_EQ(x[n], -32768);
}

template <class T>
void expectSums(OrbStatus (*sumWindow)(const T*, Orb32f*, int, int), const std::vector<T>& data, std::size_t len,
                std::size_t mask) {
    std::vector<Orb32f> y(len, -1);
    ASSERT_EQ(sumWindow(data.data(), y.data(), static_cast<int>(len), static_cast<int>(mask)), orbStsNoErr);
    Orb64s first = 0;
    for (std::size_t n = 0; n < mask; ++n) first += data[n];
    auto sum = static_cast<Orb32f>(first);
    for (std::size_t n = 0; n < len; ++n) {
        ASSERT_EQ(y[n], sum) << "mask " << mask << ", element " << n << " of " << len;
        sum += static_cast<Orb32f>(data[n + mask] - data[n]);
    }
}

// Random elements, and sums that come down from the largest ones into the range where single precision is exact; masks
// around the longest that do not leave it.
TEST(SumWindow, RunsInSinglePrecision) {
    for (const std::size_t mask : {1, 2, 3, 7, 8, 11, 64, 511, 512, 513, 600, 65793, 65794, 100001}) {
        for (const std::size_t len : {1, 2, 3, 4, 5, 8, 19, 300}) {
            std::vector<Orb16s> x = samples(len + mask, 32767), falling(len + mask, -32768);
            std::vector<Orb8u> bytes(x.begin(), x.end()), fallingBytes(len + mask, 255);
            std::fill(falling.begin() + static_cast<std::ptrdiff_t>(mask), falling.end(), 32767);
            std::fill(fallingBytes.begin() + static_cast<std::ptrdiff_t>(mask), fallingBytes.end(), 0);
            expectSums(orbsSumWindow_16s32f, x, len, mask);
            expectSums(orbsSumWindow_16s32f, falling, len, mask);
            expectSums(orbsSumWindow_8u32f, bytes, len, mask);
            expectSums(orbsSumWindow_8u32f, fallingBytes, len, mask);
        }
    }
}

TEST(SumWindow, NoElementsAreNoFault) {
    const Orb8u x[4] = {1, 2, 3, 4};
    Orb32f y = -1;
    for (const int len : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(orbsSumWindow_8u32f(x, &y, len, 3), orbStsNoErr);
        EXPECT_EQ(orbsSumWindow_8u32f(x, &y, len, 0), orbStsMaskSizeErr);
    }
    EXPECT_EQ(y, -1);
}

} // namespace
