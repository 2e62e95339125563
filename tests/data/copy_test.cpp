#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"

#include <algorithm>

namespace {

using support::callOf;
using support::Edge;
using support::Guarded;
using support::sameBits;

// Random bytes: every bit pattern is to arrive, that of a signalling NaN too.
template <class T>
std::vector<T> randomBits(std::size_t count, std::uint64_t seed) {
    const auto bytes = support::randomVector<Orb8u>(count * sizeof(T), seed);
    std::vector<T> v(count);
    std::memcpy(static_cast<void*>(v.data()), bytes.data(), bytes.size());
    return v;
}

// Short ones, all around the ends of vectors, and one that the C library treats as large.
std::vector<std::size_t> lengths() {
    std::vector<std::size_t> v{1000, 4099, 1500001};
    for (std::size_t len = 1; len <= 140; ++len) v.push_back(len);
    return v;
}

template <class T>
void expectCopies(OrbStatus (*copy)(const T*, T*, int)) {
    for (const std::size_t len : lengths()) {
        const auto values = randomBits<T>(len, 1);
        Guarded<T> src(len), dst(len);
        std::copy(values.begin(), values.end(), src.begin());
        ASSERT_EQ(copy(src.data(), dst.data(), static_cast<int>(len)), orbStsNoErr);
        ASSERT_TRUE(sameBits(dst, values)) << callOf(copy);
        EXPECT_TRUE(dst.intact()) << callOf(copy);
        ASSERT_EQ(copy(dst.data(), dst.data(), static_cast<int>(len)), orbStsNoErr);
        ASSERT_TRUE(sameBits(dst, values)) << callOf(copy) << " onto itself";
    }
}

template <class T>
void expectMoves(OrbStatus (*move)(const T*, T*, int)) {
    expectCopies(move);
    for (const int distance : {-70, -17, -3, -1, 1, 2, 31, 64}) {
        for (int len = 1; len <= 140; ++len) {
            std::vector<T> block = randomBits<T>(300, 2);
            const auto before = block;
            auto want = block;
            const int from = 80, to = from + distance;
            std::copy_n(before.begin() + from, len, want.begin() + to);
            ASSERT_EQ(move(&block[from], &block[to], len), orbStsNoErr);
            ASSERT_TRUE(sameBits(block, want)) << callOf(move) << " by " << distance << ", len " << len;
        }
    }
}

template <class T, class Value>
void expectSets(OrbStatus (*set)(Value, T*, int)) {
    T val = randomBits<T>(1, 3)[0];
    if constexpr (std::is_floating_point_v<T>) val = std::numeric_limits<T>::signaling_NaN();
    for (const std::size_t len : lengths()) {
        for (const Edge edge : {Edge::end, Edge::begin}) {
            Guarded<T> dst(len, edge);
            ASSERT_EQ(set(val, dst.data(), static_cast<int>(len)), orbStsNoErr);
            ASSERT_TRUE(sameBits(dst, std::vector<T>(len, val))) << callOf(set);
            EXPECT_TRUE(dst.intact()) << callOf(set);
        }
    }
}

template <class T>
void expectZeros(OrbStatus (*zero)(T*, int)) {
    for (const std::size_t len : lengths()) {
        Guarded<T> dst(len);
        ASSERT_EQ(zero(dst.data(), static_cast<int>(len)), orbStsNoErr);
        ASSERT_TRUE(sameBits(dst, std::vector<T>(len))) << callOf(zero);
        EXPECT_TRUE(dst.intact()) << callOf(zero);
    }
}

// A member of each type, in the order of the header.
#define EXPECT_OF_EVERY_TYPE(expect, name)                                                                             \
    expect(orbs##name##_8u);                                                                                           \
    expect(orbs##name##_16s);                                                                                          \
    expect(orbs##name##_16sc);                                                                                         \
    expect(orbs##name##_32s);                                                                                          \
    expect(orbs##name##_32sc);                                                                                         \
    expect(orbs##name##_32f);                                                                                          \
    expect(orbs##name##_32fc);                                                                                         \
    expect(orbs##name##_64s);                                                                                          \
    expect(orbs##name##_64sc);                                                                                         \
    expect(orbs##name##_64f);                                                                                          \
    expect(orbs##name##_64fc)

TEST(Copy, MovesEveryBitOfEveryType) {
    EXPECT_OF_EVERY_TYPE(expectCopies, Copy);
}
TEST(Move, ArraysMayOverlap) {
    EXPECT_OF_EVERY_TYPE(expectMoves, Move);
}
TEST(Set, FillsWithEveryBitOfTheValue) {
    EXPECT_OF_EVERY_TYPE(expectSets, Set);
}
TEST(Zero, ClearsEveryByte) {
    EXPECT_OF_EVERY_TYPE(expectZeros, Zero);
}

} // namespace
