#include "fixedfir/fixed_member.h"

namespace {

using namespace fixedfir;
using support::Guarded;

template <class T>
class FixedFirDirect : public testing::Test {};
TYPED_TEST_SUITE(FixedFirDirect, Types);

std::int64_t shiftOf(int scaleFactor, int tapsFactor) {
    return std::clamp<std::int64_t>(std::int64_t{scaleFactor} - tapsFactor, -31, 31);
}

// One step, as it is documented.
template <class T, class Tap>
T step(T src, const std::vector<Tap>& taps, std::vector<T>& line, int& index, std::int64_t s) {
    const std::size_t tapsLen = taps.size(), at = static_cast<std::size_t>(index);
    line[at] = line[at + tapsLen] = src;
    index = static_cast<int>((at + 1) % tapsLen);
    Sum sum;
    for (std::size_t k = 0; k < tapsLen; ++k) sum.add(taps[tapsLen - 1 - k], line[static_cast<std::size_t>(index) + k]);
    return sum.template scaled<T>(s);
}

TYPED_TEST(FixedFirDirect, BlocksAndSinglesTakeTheSameSteps) {
    using T = TypeParam;
    using M = Members<T>;
    for (const int tapsLen : {1, 2, 3, 8, 9, 12, 37, 300, 512, 513}) {
        for (const int start : {0, 1, tapsLen - 2, tapsLen - 1}) {
            if (start < 0 || start >= tapsLen) continue;
            SCOPED_TRACE(testing::Message() << tapsLen << " taps from " << start);
            const auto taps = randomVector<TapOf<T>>(static_cast<std::size_t>(tapsLen), 1);
            const auto x = randomVector<T>(700, 2);
            const int s = 10 + start % 20, factor = -4;
            // The halves differ: what a step reads was written by an earlier one, or stands where it reads.
            auto line = randomVector<T>(static_cast<std::size_t>(2 * tapsLen), 3);
            auto lines = std::vector(4, line);
            std::vector<int> indices(4, start);
            int index = start;
            std::vector<T> want;
            for (const T& src : x) want.push_back(step(src, taps, line, index, shiftOf(s, factor)));
            Guarded<T> block(x.size()), single(x.size());
            std::vector<T> inPlace = x, singleInPlace = x;
            const auto call = [&](auto member, std::size_t k, auto... data) {
                EXPECT_EQ(member(data..., taps.data(), tapsLen, factor, lines[k].data(), &indices[k], s), orbStsNoErr);
            };
            call(M::direct, 0, x.data(), block.data(), 500);
            call(M::direct, 0, x.data() + 500, block.data() + 500, 200);
            call(M::directInPlace, 1, inPlace.data(), 700);
            for (std::size_t n = 0; n < x.size(); ++n) {
                call(M::oneDirect, 2, x[n], single.data() + n);
                call(M::oneDirectInPlace, 3, singleInPlace.data() + n);
            }
            EXPECT_TRUE(sameBits(block.data(), want.data(), x.size()));
            EXPECT_TRUE(sameBits(inPlace, want));
            EXPECT_TRUE(sameBits(single.data(), want.data(), x.size()));
            EXPECT_TRUE(sameBits(singleInPlace, want));
            for (std::size_t k = 0; k < 4; ++k) EXPECT_TRUE(sameBits(lines[k], line) && indices[k] == index);
        }
    }
}

// -31 and 31 are the ends: no factor shifts everything out.
TYPED_TEST(FixedFirDirect, FactorsMeetBetweenMinus31And31) {
    using T = TypeParam;
    const auto taps = randomVector<TapOf<T>>(5, 1);
    const auto x = randomVector<T>(8, 2);
    for (const int factor : {0, 7, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        for (const int s : support::scaleFactors(-40, 40)) {
            std::vector<T> line(10), mine(10), y(8), want;
            int index = 0, at = 0;
            for (const T& src : x) want.push_back(step(src, taps, line, index, shiftOf(s, factor)));
            EXPECT_EQ(Members<T>::direct(x.data(), y.data(), 8, taps.data(), 5, factor, mine.data(), &at, s), 0);
            ASSERT_TRUE(sameBits(y, want)) << s << " and " << factor;
        }
    }
}

TYPED_TEST(FixedFirDirect, APositionOutsideTheLineCountsAsItsStart) {
    using T = TypeParam;
    const auto taps = randomVector<TapOf<T>>(4, 1);
    for (const int outside : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        Guarded<T> line(8);
        std::fill(line.begin(), line.end(), T{});
        int index = outside;
        T y{};
        EXPECT_EQ(Members<T>::oneDirect(T{}, &y, taps.data(), 4, 0, line.data(), &index, 0), orbStsNoErr);
        EXPECT_EQ(index, 1);
    }
}

// ---- Taps of 16 bits ----

std::vector<Orb16s> q15Taps(std::size_t count) {
    auto taps = randomVector<Orb16s>(count, 1);
    for (Orb16s& tap : taps) tap = static_cast<Orb16s>(tap % 32767);
    return taps;
}

TEST(FirDirectQ15, SinglesStepThroughACircularLine) {
    for (const int tapsLen : {1, 2, 7, 40}) {
        auto taps = q15Taps(static_cast<std::size_t>(tapsLen));
        taps[0] = -32768; // all bits count
        const auto x = randomVector<Orb16s>(100, 2);
        for (const int s : {0, -15, -16, -31, -47, 2, 16, 40, std::numeric_limits<int>::max()}) {
            std::vector<Orb16s> line(static_cast<std::size_t>(2 * tapsLen)), mine = line;
            int index = 0, at = 0;
            for (const Orb16s src : x) {
                Orb16s y = 0, inPlace = src;
                auto again = mine;
                int here = at;
                const auto want = step(src, taps, line, index, std::int64_t{s} + 15);
                EXPECT_EQ(orbsFIROne_Direct_16s_Sfs(src, &y, taps.data(), tapsLen, mine.data(), &at, s), orbStsNoErr);
                EXPECT_EQ(orbsFIROne_Direct_16s_ISfs(&inPlace, taps.data(), tapsLen, again.data(), &here, s), 0);
                ASSERT_TRUE(y == want && inPlace == want) << tapsLen << " taps, scale factor " << s;
            }
            EXPECT_TRUE(sameBits(mine, line) && at == index);
        }
    }
}

// A block is what a state of the same taps makes of it; it takes its line newest sample first from the position, and
// leaves it so at the start.
TEST(FirDirectQ15, BlocksGoThroughAState) {
    for (const int tapsLen : {1, 2, 31, 32, 200}) {
        const auto count = static_cast<std::size_t>(tapsLen);
        auto taps = q15Taps(count);
        if (tapsLen == 32) taps[3] = 32767; // beyond 32766: all taps lose a bit
        const std::vector<Orb32s> wide(taps.begin(), taps.end());
        const auto x = randomVector<Orb16s>(9000, 2);
        for (const int start : {0, tapsLen / 2, tapsLen - 1}) {
            auto line = randomVector<Orb16s>(2 * count, 3), lineInPlace = line;
            const auto before = line;
            Filter<Orb16s> filter(Filter<Orb16s>::caller, wide, {}, slice(line, static_cast<std::size_t>(start), count),
                                  -15);
            const auto want = filter.block(x, 1);
            std::vector<Orb16s> y(9000), inPlace = x;
            int index = start, indexInPlace = start;
            for (const auto& [first, length] : {std::pair{0, 4500}, std::pair{4500, 1}, std::pair{4501, 4499}}) {
                EXPECT_EQ(orbsFIR_Direct_16s_Sfs(&x[static_cast<std::size_t>(first)],
                                                 &y[static_cast<std::size_t>(first)], length, taps.data(), tapsLen,
                                                 line.data(), &index, 1),
                          orbStsNoErr);
                EXPECT_EQ(index, 0);
            }
            EXPECT_EQ(orbsFIR_Direct_16s_ISfs(inPlace.data(), 9000, taps.data(), tapsLen, lineInPlace.data(),
                                              &indexInPlace, 1),
                      orbStsNoErr);
            EXPECT_TRUE(sameBits(y, want) && sameBits(inPlace, want)) << tapsLen << " taps from " << start;
            EXPECT_TRUE(sameBits(slice(line, 0, count), filter.line()) && sameBits(lineInPlace, line));
            EXPECT_TRUE(sameBits(slice(line, count, count), slice(before, count, count)));
        }
    }
}

// ---- Changes of the rate ----

TYPED_TEST(FixedFirDirect, EveryRateIsWalkedAsDefined) {
    using T = TypeParam;
    using M = Members<T>;
    int turn = 0;
    for (const std::size_t tapsLen : {1, 2, 9, 50, 700}) {
        const auto taps = randomVector<TapOf<T>>(tapsLen, 1);
        const int count = static_cast<int>(tapsLen);
        for (const int up : {1, 2, 3, 7}) {
            for (const int down : {1, 2, 5}) {
                const Rates r{up, ++turn % up, down, turn / 2 % down};
                const int s = 5 + turn, factor = -3;
                auto line = randomVector<T>(r.line(tapsLen), 2);
                auto mine = line, mineInPlace = line;
                constexpr std::size_t periods = 300; // and one by one
                const std::size_t outputs = static_cast<std::size_t>(up), inputs = static_cast<std::size_t>(down);
                const auto x = randomVector<T>((periods + 1) * inputs, 3);
                const auto want = walked(x, taps, r, line, shiftOf(s, factor));
                std::vector<T> y(want.size()), inPlace = x;
                const auto call = [&](auto member, auto& dlyLine, auto... data) {
                    EXPECT_EQ(member(data..., taps.data(), count, factor, up, r.upPhase, down, r.downPhase,
                                     dlyLine.data(), s),
                              orbStsNoErr);
                };
                call(M::multiRateDirect, mine, x.data(), y.data(), int{periods});
                call(M::multiRateDirect, mine, &x[periods * inputs], &y[periods * outputs], 1);
                inPlace.resize(std::max(x.size(), y.size()));
                call(M::multiRateDirectInPlace, mineInPlace, inPlace.data(), int{periods} + 1);
                ASSERT_TRUE(sameBits(y, want)) << tapsLen << " taps, rate " << up << "/" << down;
                ASSERT_TRUE(sameBits(inPlace.data(), want.data(), want.size()));
                ASSERT_TRUE(sameBits(mine, line) && sameBits(mineInPlace, line));
            }
        }
    }
}

// Float taps are rounded to 32 bits in steps of two, at most 32 of them, and not shifted further.
TYPED_TEST(FixedFirDirect, FloatTapsBecomeIntegersAndAFactor) {
    using T = TypeParam;
    using M = Members<T>;
    const struct {
        float tap;
        Orb32s integer;
        int factor;
    } table[] = {{1, 16384, -14},
                 {-32767, -32767, 0},
                 {0x1p-30f, 4, -32},
                 {0, 0, -32},
                 {0x1p44f, 16384, 30},
                 {0x1p62f, 1 << 30, 32},
                 {0x1p100f, 0x7fffffff, 32},
                 {-0x1p100f, std::numeric_limits<int>::min(), 32},
                 {std::numeric_limits<float>::quiet_NaN(), 0, -32}};
    const Rates r{2, 0, 1, 0};
    const auto x = randomVector<T>(20, 2);
    for (const auto& row : table) {
        std::vector<typename M::Float> floats(4 / parts<T>);
        std::vector<TapOf<T>> taps(4 / parts<T>);
        for (std::size_t k = 0; k < 4; ++k) asParts(floats)[k] = row.tap, asParts(taps)[k] = row.integer;
        for (const int s : {0, 15, -20, 40}) {
            std::vector<T> line(r.line(taps.size())), mine = line, y(40);
            const auto want = walked(x, taps, r, line, shiftOf(s, row.factor));
            const int count = static_cast<int>(taps.size());
            EXPECT_EQ(M::floatMultiRateDirect(x.data(), y.data(), 20, floats.data(), count, 2, 0, 1, 0, mine.data(), s),
                      orbStsNoErr);
            EXPECT_TRUE(sameBits(y, want)) << row.tap << " with scale factor " << s;
        }
    }
}

} // namespace
