#include "fixedfir/fixed_member.h"

#include <cstring>
#include <malloc.h>

namespace {

using namespace fixedfir;

template <class T>
class FixedFir : public testing::Test {};
TYPED_TEST_SUITE(FixedFir, Types);

// ---- One rate ----

TYPED_TEST(FixedFir, BlocksOfAllShortLengthsMatchTheSum) {
    using T = TypeParam;
    for (const std::size_t tapsLen : {1, 2, 3, 4, 5, 7, 8, 9, 16, 17, 31, 32, 33, 70}) {
        const auto taps = smallTaps<T>(tapsLen, 1);
        const auto before = randomVector<T>(tapsLen, 2);
        for (std::size_t count = 1; count < tapsLen + 140; count += count < 80 ? 1 : 7) {
            SCOPED_TRACE(testing::Message() << tapsLen << " taps, " << count << " samples");
            const auto x = randomVector<T>(count, 3);
            const int s = 13 + static_cast<int>(count % 5);
            auto line = before;
            const auto want = walked(x, taps, {}, line, s);
            Filter<T> filter(Filter<T>::caller, taps, {}, before), inPlace(Filter<T>::allocated, taps, {}, before);
            ASSERT_TRUE(sameBits(filter.block(x, s), want));
            ASSERT_TRUE(sameBits(filter.line(), line));
            ASSERT_TRUE(sameBits(inPlace.inPlace(x, s), want));
            ASSERT_TRUE(sameBits(inPlace.line(), line));
        }
    }
}

TYPED_TEST(FixedFir, AStreamMayBeCutAnywhere) {
    using T = TypeParam;
    support::Random random(5);
    for (const std::size_t tapsLen : {1, 2, 7, 12, 40, 129}) {
        const auto taps = smallTaps<T>(tapsLen, 1);
        const auto x = randomVector<T>(10000, 3);
        auto line = randomVector<T>(tapsLen, 2);
        Filter<T> cut(Filter<T>::caller, taps, {}, line);
        const auto want = walked(x, taps, {}, line, 16);
        for (std::size_t n = 0, count; n < x.size(); n += count) {
            count = std::min<std::size_t>(x.size() - n, 1 + random() % (random() % 4 ? 2 * tapsLen + 6 : 5000));
            const auto part = slice(x, n, count);
            const auto way = random() % 3;
            const auto y = way == 0 ? cut.block(part, 16) : way == 1 ? cut.inPlace(part, 16) : cut.singly(part, 16);
            ASSERT_TRUE(sameBits(y, slice(want, n, count))) << tapsLen << " taps, from sample " << n;
        }
        EXPECT_TRUE(sameBits(cut.line(), line)) << tapsLen << " taps";
    }
}

// Every s between the factors that say something and far beyond, in every path: whole vectors, a few, one.
TYPED_TEST(FixedFir, SumsAreRoundedShiftedAndSaturated) {
    using T = TypeParam;
    const auto taps = smallTaps<T>(6, 1);
    const auto before = randomVector<T>(6, 2);
    for (const int factor : {0, -15, 40, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        for (const int s : support::scaleFactors(-70, 70)) {
            SCOPED_TRACE(testing::Message() << "factors " << factor << " and " << s);
            auto line = before;
            auto x = randomVector<T>(99, 4);
            for (std::size_t n = 50; n < x.size(); ++n) { // and sums that end near one half
                asParts(x)[n] %= 4;
            }
            const auto want = walked(x, taps, {}, line, std::int64_t{s} - factor);
            Filter<T> filter(Filter<T>::caller, taps, {}, before, factor);
            ASSERT_TRUE(sameBits(filter.block(slice(x, 0, 90), s), slice(want, 0, 90)));
            ASSERT_TRUE(sameBits(filter.block(slice(x, 90, 3), s), slice(want, 90, 3)));
            ASSERT_TRUE(sameBits(filter.singly(slice(x, 93, 6), s), slice(want, 93, 6)));
        }
    }
}

// Sums that leave 32 bits wrap, and so does the rounding term that is added to one near the limit.
TEST(FixedFirSum, WrapsIn32Bits) {
    const std::vector<Orb32s> taps(3, 32766);
    Filter<Orb16s> filter(Filter<Orb16s>::caller, taps);
    const std::vector<Orb16s> x(16, 32767);
    const auto y = filter.block(x, 16);
    EXPECT_EQ(y[0], 16383);
    EXPECT_EQ(y[1], 32765);
    EXPECT_EQ(y[2], -16388);
    Filter<Orb16s> two(Filter<Orb16s>::caller, {32766, 32766});
    EXPECT_EQ(two.block(x, 31)[1], -1); // 2147287044 + 2^30 - 1 is beyond 2^31
}

// ---- Changes of the rate ----

TYPED_TEST(FixedFir, EveryRateAndPhaseIsWalkedAsDefined) {
    using T = TypeParam;
    int turn = 0;
    for (const std::size_t tapsLen : {1, 2, 5, 8, 9, 24, 50}) {
        const auto taps = smallTaps<T>(tapsLen, 1);
        for (const int up : {1, 2, 3, 4, 7, 20}) {
            for (const int down : {1, 2, 3, 4, 11}) {
                const Rates r{up, ++turn % up, down, turn / 2 % down};
                SCOPED_TRACE(testing::Message() << tapsLen << " taps, rate " << up << "/" << down << ", phases "
                                                << r.upPhase << " and " << r.downPhase);
                auto line = randomVector<T>(r.line(tapsLen), 2);
                Filter<T> filter(Filter<T>::caller, taps, r, line), cut(Filter<T>::allocated, taps, r, line);
                const std::size_t step = static_cast<std::size_t>(down);
                const auto x = randomVector<T>(40 * step, 3);
                const auto want = walked(x, taps, r, line, 15);
                ASSERT_TRUE(sameBits(filter.block(x, 15), want));
                ASSERT_TRUE(sameBits(filter.line(), line));
                for (std::size_t n = 0, count; n < 40; n += count) {
                    count = std::min<std::size_t>(40 - n, 1 + n % 7);
                    const auto part = slice(x, n * step, count * step);
                    const auto y = n % 2 ? cut.block(part, 15) : cut.inPlace(part, 15);
                    const auto outputs = static_cast<std::size_t>(up);
                    ASSERT_TRUE(sameBits(y, slice(want, n * outputs, count * outputs))) << "from period " << n;
                }
                ASSERT_TRUE(sameBits(cut.line(), line));
            }
        }
    }
}

// Every pair of phases of one rate.
TYPED_TEST(FixedFir, EveryPhase) {
    using T = TypeParam;
    const auto taps = smallTaps<T>(10, 1);
    const auto x = randomVector<T>(4 * 6, 3);
    for (int upPhase = 0; upPhase < 3; ++upPhase) {
        for (int downPhase = 0; downPhase < 4; ++downPhase) {
            const Rates r{3, upPhase, 4, downPhase};
            auto line = randomVector<T>(4, 2);
            Filter<T> filter(Filter<T>::caller, taps, r, line);
            EXPECT_TRUE(sameBits(filter.block(x, 14), walked(x, taps, r, line, 14))) << upPhase << " " << downPhase;
        }
    }
}

// Blocks longer than the staging area, and a period longer than it.
TYPED_TEST(FixedFir, LongBlocksInPlace) {
    using T = TypeParam;
    for (const Rates r : {Rates{}, Rates{3, 1, 5, 2}, Rates{1, 0, 2, 1}, Rates{5, 4, 3, 0}, Rates{5000, 7, 5001, 5}}) {
        const auto taps = smallTaps<T>(300, 1);
        auto line = randomVector<T>(r.line(300), 2);
        Filter<T> filter(Filter<T>::caller, taps, r, line);
        const std::size_t step = static_cast<std::size_t>(r.downFactor);
        const auto x = randomVector<T>((step > 100 ? 3 : 9001 / step) * step, 3);
        EXPECT_TRUE(sameBits(filter.inPlace(x, 18), walked(x, taps, r, line, 18))) << r.upFactor << "/" << step;
        EXPECT_TRUE(sameBits(filter.line(), line));
    }
}

// For states of either kind.
TEST(FixedFirMultiRate, HasACallInPlaceOfItsOwn) {
    const auto taps = smallTaps<Orb16s>(9, 1);
    for (const Rates r : {Rates{2, 1, 3, 0}, Rates{}}) {
        Filter<Orb16s> filter(Filter<Orb16s>::caller, taps, r);
        auto x = randomVector<Orb16s>(30, 2);
        std::vector<Orb16s> line(r.line(9));
        const auto want = walked(x, taps, r, line, 15);
        EXPECT_EQ(orbsFIRMR32s_16s_ISfs(x.data(), 30 / r.downFactor, filter.state(), 15), orbStsNoErr);
        EXPECT_TRUE(sameBits(x.data(), want.data(), want.size()));
    }
}

// Factors of 1 make a state of one rate; others do not serve single samples.
TYPED_TEST(FixedFir, SingleSamplesAreForStatesOfOneRate) {
    using T = TypeParam;
    const auto taps = smallTaps<T>(3, 1);
    const auto x = randomVector<T>(9, 2);
    std::vector<T> line(3);
    Filter<T> one(Filter<T>::caller, taps), changing(Filter<T>::caller, taps, {2, 0, 1, 0});
    EXPECT_TRUE(sameBits(one.singly(x, 15), walked(x, taps, {}, line, 15)));
    T y{};
    EXPECT_EQ(Members<T>::one(x[0], &y, changing.state(), 0), orbStsContextMatchErr);
    EXPECT_EQ(Members<T>::floatOne(x[0], &y, changing.state(), 0), orbStsContextMatchErr);
}

// ---- Life ----

// From here to the end of what was allocated.
std::size_t bytesFrom(const void* aligned) {
    void* raw;
    std::memcpy(&raw, static_cast<const char*>(aligned) - sizeof raw, sizeof raw);
    return malloc_usable_size(raw) -
           static_cast<std::size_t>(static_cast<const char*>(aligned) - static_cast<char*>(raw));
}

TYPED_TEST(FixedFir, LivesOnInACopyOfItsBlock) {
    using T = TypeParam;
    using M = Members<T>;
    for (const Rates r : {Rates{}, Rates{3, 1, 2, 1}}) {
        const auto taps = smallTaps<T>(50, 1), other = smallTaps<T>(50, 4);
        const auto x = randomVector<T>(600, 3);
        Filter<T> untouched(Filter<T>::allocated, taps, r);
        untouched.block(x, 16);
        typename M::State* original = nullptr;
        ASSERT_EQ(M::initMultiRateAlloc(&original, taps.data(), 50, 0, r.upFactor, r.upPhase, r.downFactor, r.downPhase,
                                        nullptr),
                  orbStsNoErr);
        const int periods = 600 / r.downFactor;
        std::vector<T> y(static_cast<std::size_t>(periods * r.upFactor));
        ASSERT_EQ(M::filter(x.data(), y.data(), periods, original, 16), orbStsNoErr);

        const std::size_t size = bytesFrom(original);
        auto* const block = orbsMalloc_8u(static_cast<int>(size));
        std::memcpy(block, static_cast<void*>(original), size);
        std::memset(static_cast<void*>(original), 0xff, size);
        orbsFree(original);

        auto* const copy = reinterpret_cast<typename M::State*>(block);
        for (const auto& newTaps : {taps, other}) {
            EXPECT_EQ(M::setTaps(newTaps.data(), untouched.state(), 1), orbStsNoErr);
            EXPECT_EQ(M::setTaps(newTaps.data(), copy, 1), orbStsNoErr);
            EXPECT_EQ(M::filter(x.data(), y.data(), periods, copy, 16), orbStsNoErr);
            EXPECT_TRUE(sameBits(y, untouched.block(x, 16)));
        }
        EXPECT_EQ(M::free(copy), orbStsNoErr);
    }
}

} // namespace
