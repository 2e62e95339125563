#include "support/compare.h"
#include "support/stride.h"

#include "orbs.h"

#include <cmath>
#include <limits>
#include <memory>
#include <tuple>

namespace {

using support::randomVector;
using support::sameBits;

using Floats = std::vector<Orb32f>;

struct Filter {
    Floats taps;
    int offset;
    int length() const { return static_cast<int>(taps.size()); }
};
struct Bank {
    Filter low, high;
};
struct Lines {
    Floats low, high;
};

template <class T>
struct ForwardOf;
template <class T>
struct InverseOf;
#define MEMBERS(type, forwardType, inverseType)                                                                        \
    template <>                                                                                                        \
    struct ForwardOf<Orb##type> {                                                                                      \
        using State = OrbsWTFwdState_##forwardType;                                                                    \
        static constexpr auto initAlloc = orbsWTFwdInitAlloc_##forwardType;                                            \
        static constexpr auto run = orbsWTFwd_##forwardType;                                                           \
        [[maybe_unused]] static constexpr auto set = orbsWTFwdSetDlyLine_##forwardType;                                \
        [[maybe_unused]] static constexpr auto get = orbsWTFwdGetDlyLine_##forwardType;                                \
        static constexpr auto free = orbsWTFwdFree_##forwardType;                                                      \
    };                                                                                                                 \
    template <>                                                                                                        \
    struct InverseOf<Orb##type> {                                                                                      \
        using State = OrbsWTInvState_##inverseType;                                                                    \
        static constexpr auto initAlloc = orbsWTInvInitAlloc_##inverseType;                                            \
        static constexpr auto run = orbsWTInv_##inverseType;                                                           \
        [[maybe_unused]] static constexpr auto set = orbsWTInvSetDlyLine_##inverseType;                                \
        [[maybe_unused]] static constexpr auto get = orbsWTInvGetDlyLine_##inverseType;                                \
        static constexpr auto free = orbsWTInvFree_##inverseType;                                                      \
    };
MEMBERS(32f, 32f, 32f)
MEMBERS(8u, 8u32f, 32f8u)
MEMBERS(8s, 8s32f, 32f8s)
MEMBERS(16u, 16u32f, 32f16u)
MEMBERS(16s, 16s32f, 32f16s)
#undef MEMBERS

// ---- What a channel remembers, and what it gives ----

int forwardReach(const Filter& f) {
    return std::max(f.length() - 1 + f.offset, 0);
}
int inverseReach(const Filter& f) {
    return (f.length() - 1 + std::abs(f.offset)) / 2;
}

// The sum of what a filter makes of the stream x at place t, and of the magnitudes of its products. `step`: the places
// of x lie 1 apart, or 2 with zeros between them.
struct Exact {
    long double sum = 0, magnitude = 0;
};
template <class T>
Exact filtered(const Filter& f, const std::vector<T>& x, std::ptrdiff_t t, std::ptrdiff_t step) {
    Exact exact;
    for (std::size_t k = 0; k < f.taps.size(); ++k) {
        const std::ptrdiff_t place = t - static_cast<std::ptrdiff_t>(k);
        if (place < 0 || place % step != 0) continue;
        const auto n = static_cast<std::size_t>(place / step);
        if (n >= x.size()) continue;
        exact.sum += static_cast<long double>(f.taps[k]) * x[n];
        exact.magnitude += std::abs(static_cast<long double>(f.taps[k]) * x[n]);
    }
    return exact;
}
template <class T>
Exact forwardExact(const Filter& f, const std::vector<T>& x, std::size_t m) {
    return filtered(f, x, 2 * static_cast<std::ptrdiff_t>(m) - f.offset, 1);
}
Exact inverseExact(const Filter& f, const Floats& y, std::size_t t) {
    return filtered(f, y, static_cast<std::ptrdiff_t>(t) - std::abs(f.offset), 2);
}

// ---- States ----

template <class M>
class State {
public:
    explicit State(const Bank& bank) {
        EXPECT_EQ(M::initAlloc(&state_, bank.low.taps.data(), bank.low.length(), bank.low.offset, bank.high.taps.data(),
                               bank.high.length(), bank.high.offset),
                  orbStsNoErr);
    }
    ~State() { EXPECT_EQ(M::free(state_), orbStsNoErr); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    // A stretch of the stream: `first` and `count` in outputs of Fwd, and in inputs of Inv.
    template <class T>
    void forward(const std::vector<T>& x, Lines& y, std::size_t first, std::size_t count) {
        ASSERT_EQ(
            M::run(x.data() + 2 * first, y.low.data() + first, y.high.data() + first, static_cast<int>(count), state_),
            orbStsNoErr);
    }
    template <class T>
    void inverse(const Lines& y, std::vector<T>& x, std::size_t first, std::size_t count) {
        ASSERT_EQ(
            M::run(y.low.data() + first, y.high.data() + first, static_cast<int>(count), x.data() + 2 * first, state_),
            orbStsNoErr);
    }
    void set(const Lines& lines) { ASSERT_EQ(M::set(state_, lines.low.data(), lines.high.data()), orbStsNoErr); }
    Lines get(int low, int high) const {
        Lines lines{Floats(static_cast<std::size_t>(low)), Floats(static_cast<std::size_t>(high))};
        lines.low.reserve(1);
        lines.high.reserve(1); // no null pointer
        EXPECT_EQ(M::get(state_, lines.low.data(), lines.high.data()), orbStsNoErr);
        return lines;
    }

private:
    typename M::State* state_ = nullptr;
};

// Lengths of blocks, which sum up to `total`.
std::vector<std::size_t> cut(std::size_t total, std::size_t longest, std::uint64_t seed) {
    support::Random random(seed);
    std::vector<std::size_t> blocks;
    while (total > 0) {
        blocks.push_back(std::min<std::size_t>(total, 1 + random() % longest));
        total -= blocks.back();
    }
    return blocks;
}

template <class M, class T>
Lines forwardOf(const Bank& bank, const std::vector<T>& x, const std::vector<std::size_t>& blocks) {
    Lines y{Floats(x.size() / 2), Floats(x.size() / 2)};
    State<M> state(bank);
    std::size_t first = 0;
    for (const std::size_t count : blocks) {
        state.forward(x, y, first, count);
        first += count;
    }
    return y;
}
template <class T>
std::vector<T> inverseOf(const Bank& bank, const Lines& y, const std::vector<std::size_t>& blocks) {
    std::vector<T> x(2 * y.low.size());
    State<InverseOf<T>> state(bank);
    std::size_t first = 0;
    for (const std::size_t count : blocks) {
        state.inverse(y, x, first, count);
        first += count;
    }
    return x;
}

// Zeros of either sign are equal.
template <class T>
testing::AssertionResult equal(const std::vector<T>& got, const std::vector<T>& want) {
    return support::compared([](T a, T b) { return a == b; }, got.data(), want.data(), want.size());
}

// Whole numbers, whose sums are exact in any order and precision.
template <class T>
std::vector<T> wholeNumbers(std::size_t count, std::uint64_t seed, int magnitude) {
    support::Random random(seed);
    std::vector<T> v(count);
    for (T& t : v) {
        const int number = static_cast<int>(random() % static_cast<unsigned>(2 * magnitude + 1)) - magnitude;
        t = static_cast<T>(std::is_unsigned_v<T> ? std::abs(number) : number);
    }
    return v;
}

const int tapCounts[] = {1, 2, 3, 4, 5, 8, 9, 16, 31, 65, 600};
const int offsets[] = {-1, 0, 1, 2, 3, 8, 513};

// Each number of taps beside each offset, the other channel with others.
template <class Body>
void forEachBank(Body body) {
    std::uint64_t seed = 1;
    for (const int taps : tapCounts) {
        for (const int offset : offsets) {
            ++seed;
            const auto other = static_cast<std::size_t>(tapCounts[seed * 5 % std::size(tapCounts)]);
            const Bank bank{{wholeNumbers<Orb32f>(static_cast<std::size_t>(taps), seed, 5), offset},
                            {wholeNumbers<Orb32f>(other, seed + 1, 5), offsets[seed * 3 % std::size(offsets)]}};
            SCOPED_TRACE(testing::Message()
                         << taps << " and " << other << " taps, offsets " << offset << " and " << bank.high.offset);
            body(bank, seed);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

template <class T>
class FilterBank : public testing::Test {};
using Types = testing::Types<Orb32f, Orb8u, Orb8s, Orb16u, Orb16s>;
TYPED_TEST_SUITE(FilterBank, Types);

TYPED_TEST(FilterBank, ForwardIsTheFormulaHoweverTheStreamIsCut) {
    using T = TypeParam;
    forEachBank([](const Bank& bank, std::uint64_t seed) {
        const auto x = wholeNumbers<T>(2 * (seed % 2 ? 1300 : 90), seed, 100);
        const std::size_t len = x.size() / 2;
        Lines want{Floats(len), Floats(len)};
        for (std::size_t m = 0; m < len; ++m) {
            want.low[m] = static_cast<Orb32f>(forwardExact(bank.low, x, m).sum);
            want.high[m] = static_cast<Orb32f>(forwardExact(bank.high, x, m).sum);
        }
        for (const std::size_t longest : {std::size_t{1}, std::size_t{9}, len}) {
            const Lines got = forwardOf<ForwardOf<T>>(bank, x, cut(len, longest, seed));
            ASSERT_TRUE(equal(got.low, want.low)) << "low, blocks of up to " << longest;
            ASSERT_TRUE(equal(got.high, want.high)) << "high, blocks of up to " << longest;
        }
    });
}

TYPED_TEST(FilterBank, InverseIsTheFormulaHoweverTheStreamIsCut) {
    using T = TypeParam;
    forEachBank([](const Bank& bank, std::uint64_t seed) {
        const std::size_t len = seed % 2 ? 1300 : 90;
        const Lines y{wholeNumbers<Orb32f>(len, seed, 100), wholeNumbers<Orb32f>(len, seed + 7, 100)};
        std::vector<T> want(2 * len);
        for (std::size_t t = 0; t < 2 * len; ++t) {
            const long double sum = inverseExact(bank.low, y.low, t).sum + inverseExact(bank.high, y.high, t).sum;
            want[t] = static_cast<T>(std::is_integral_v<T> ? std::clamp<long double>(sum, std::numeric_limits<T>::min(),
                                                                                     std::numeric_limits<T>::max())
                                                           : sum);
        }
        for (const std::size_t longest : {std::size_t{1}, std::size_t{9}, len})
            ASSERT_TRUE(equal(inverseOf<T>(bank, y, cut(len, longest, seed)), want)) << longest;
    });
}

// ---- Rounding ----

Bank randomBank(std::size_t taps, int offset, int highOffset) {
    return {{randomVector<Orb32f>(taps, 3), offset}, {randomVector<Orb32f>(taps + 1, 4), highOffset}};
}

// Half a unit of the last place of a float, and what `terms` roundings of the precision told add up to.
void expectNear(Orb32f got, Exact want, std::size_t terms, long double epsilon, const char* where) {
    const long double last = std::ldexp(1.0L, std::max(std::ilogb(static_cast<double>(want.sum)), -126) - 23);
    const long double bound = 0.5L * last + static_cast<long double>(terms) * epsilon * want.magnitude;
    ASSERT_LE(std::abs(got - want.sum), bound) << where;
}

// Outputs that reach back before a block are rounded once, the others at every step.
TEST(FilterBankRounding, OfHeadsIsThatOfOneStep) {
    for (const int offset : {-1, 0, 1, 6}) {
        for (const std::size_t taps : {1u, 2u, 7u, 40u}) {
            const Bank bank = randomBank(taps, offset, offset);
            const auto x = randomVector<Orb32f>(1600);
            const Lines y = forwardOf<ForwardOf<Orb32f>>(bank, x, {400, 400});
            const auto head = static_cast<std::size_t>((forwardReach(bank.low) + 1) / 2);
            for (std::size_t m = 0; m < 800; ++m) {
                const bool inHead = m % 400 < head;
                expectNear(y.low[m], forwardExact(bank.low, x, m), 2 * taps, inHead ? 0x1p-52L : 0x1p-23L,
                           inHead ? "head" : "rest");
            }
            // One channel alone, the other's taps being zeros.
            const Bank alone{bank.low, {{0.0f}, 0}};
            const Lines z{randomVector<Orb32f>(800), Floats(800)};
            const auto joined = inverseOf<Orb32f>(alone, z, {400, 400});
            const auto pairs = static_cast<std::size_t>(inverseReach(bank.low));
            for (std::size_t t = 0; t < 1600; ++t)
                expectNear(joined[t], inverseExact(bank.low, z.low, t), 2 * taps,
                           t / 2 % 400 < pairs ? 0x1p-52L : 0x1p-23L, "joined");
        }
    }
}

// A cut changes the head behind it, and no other bit.
TEST(FilterBankRounding, OfTheRestDoesNotDependOnCuts) {
    for (const int offset : {-1, 0, 3}) {
        const Bank bank = randomBank(12, offset, 0);
        const auto x = randomVector<Orb32f>(2400);
        const Lines whole = forwardOf<ForwardOf<Orb32f>>(bank, x, {1200});
        const auto blocks = cut(1200, 300, 5);
        const Lines parts = forwardOf<ForwardOf<Orb32f>>(bank, x, blocks);
        const auto joined = inverseOf<Orb32f>(bank, whole, {1200}),
                   joinedParts = inverseOf<Orb32f>(bank, whole, blocks);
        const auto head = static_cast<std::size_t>((forwardReach(bank.low) + 1) / 2);
        const auto pairs = static_cast<std::size_t>(std::max(inverseReach(bank.low), inverseReach(bank.high)));
        std::size_t first = 0;
        for (const std::size_t count : blocks) {
            if (count > std::max(head, pairs)) {
                EXPECT_TRUE(sameBits(&parts.low[first + head], &whole.low[first + head], count - head)) << first;
                EXPECT_TRUE(
                    sameBits(&joinedParts[2 * (first + pairs)], &joined[2 * (first + pairs)], 2 * (count - pairs)))
                    << first;
            }
            first += count;
        }
    }
}

// Integers are what their floats are in calls of 512 outputs each.
TEST(FilterBankRounding, OfIntegersIsThatOfBlocksOf1024Samples) {
    const Bank bank = randomBank(9, 2, -1);
    const auto x = randomVector<Orb16s>(2 * 1300);
    const std::vector<std::size_t> blocks{512, 512, 276};
    const Lines got = forwardOf<ForwardOf<Orb16s>>(bank, x, {1300});
    const Lines want = forwardOf<ForwardOf<Orb32f>>(bank, Floats(x.begin(), x.end()), blocks);
    EXPECT_TRUE(sameBits(got.low, want.low));
    EXPECT_TRUE(sameBits(got.high, want.high));

    Lines y{randomVector<Orb32f>(1300, 1), randomVector<Orb32f>(1300, 2)};
    for (Orb32f& value : y.low) value *= 20000;
    const auto floats = inverseOf<Orb32f>(bank, y, blocks);
    std::vector<Orb16s> rounded(floats.size());
    for (std::size_t t = 0; t < floats.size(); ++t)
        rounded[t] = static_cast<Orb16s>(std::clamp(std::nearbyint(floats[t]), -32768.0f, 32767.0f));
    EXPECT_TRUE(sameBits(inverseOf<Orb16s>(bank, y, {1300}), rounded));
}

// One NaN reaches the outputs whose products hold it, and no other; a product alone keeps the sign of its zero.
TEST(FilterBankRounding, LetsNothingElseIn) {
    for (const int offset : {-1, 0, 1, 4}) {
        for (const std::size_t taps : {1u, 2u, 3u, 8u}) {
            const Bank bank = randomBank(taps, offset, offset);
            auto x = randomVector<Orb32f>(240);
            Lines z{randomVector<Orb32f>(120, 1), randomVector<Orb32f>(120, 2)};
            x[101] = x[150] = z.low[50] = z.high[71] = std::numeric_limits<Orb32f>::quiet_NaN();
            const Lines y = forwardOf<ForwardOf<Orb32f>>(bank, x, {31, 89});
            for (std::size_t m = 0; m < 120; ++m)
                ASSERT_EQ(std::isnan(y.low[m]), std::isnan(static_cast<double>(forwardExact(bank.low, x, m).sum))) << m;
            const auto joined = inverseOf<Orb32f>(bank, z, {31, 89});
            for (std::size_t t = 0; t < 240; ++t)
                ASSERT_EQ(std::isnan(joined[t]),
                          std::isnan(static_cast<double>(inverseExact(bank.low, z.low, t).sum +
                                                         inverseExact(bank.high, z.high, t).sum)))
                    << t;
        }
    }
    const Lines y = forwardOf<ForwardOf<Orb32f>>({{{-1}, 0}, {{-1}, -1}}, Floats(200), {100});
    for (std::size_t m = 0; m < 100; ++m) ASSERT_TRUE(std::signbit(y.low[m]) && std::signbit(y.high[m]));
}

// ---- Delay lines ----

// They hold the newest samples, oldest first, and carry a stream over to another state.
TEST(FilterBankDelayLine, HoldsTheStreamAndCarriesItOn) {
    forEachBank([](const Bank& bank, std::uint64_t seed) {
        const std::size_t first = 40 + seed % 700, len = first + 50;
        const auto expectNewest = [](const Floats& line, const Floats& stream, std::size_t end) {
            for (std::size_t n = 0; n < line.size(); ++n) {
                const std::size_t back = line.size() - n;
                ASSERT_EQ(line[n], back <= end ? stream[end - back] : 0.0f) << n << " of " << line.size();
            }
        };
        const auto x = randomVector<Orb32f>(2 * len);
        Lines y{Floats(len), Floats(len)}, z = y;
        State<ForwardOf<Orb32f>> before(bank), after(bank);
        before.forward(x, y, 0, first);
        const Lines lines = before.get(forwardReach(bank.low), forwardReach(bank.high));
        expectNewest(lines.low, x, 2 * first);
        expectNewest(lines.high, x, 2 * first);
        after.forward(x, z, 20, 3);
        after.set(lines);
        before.forward(x, y, first, 50);
        after.forward(x, z, first, 50);
        ASSERT_TRUE(sameBits(&z.low[first], &y.low[first], 50) && sameBits(&z.high[first], &y.high[first], 50));

        std::vector<Orb32f> joined(2 * len), carried = joined;
        State<InverseOf<Orb32f>> joining(bank), other(bank);
        joining.inverse(y, joined, 0, first);
        const Lines held = joining.get(inverseReach(bank.low), inverseReach(bank.high));
        expectNewest(held.low, y.low, first);
        expectNewest(held.high, y.high, first);
        other.inverse(y, carried, 20, 3);
        other.set(held);
        joining.inverse(y, joined, first, 50);
        other.inverse(y, carried, first, 50);
        ASSERT_TRUE(sameBits(&carried[2 * first], &joined[2 * first], 100));
    });
}

TEST(FilterBankDelayLine, OfInverseIsTheSameForOffsetsOf1AndMinus1) {
    for (const std::size_t taps : {1u, 2u, 5u, 16u}) {
        Bank ahead = randomBank(taps, -1, -1), behind = randomBank(taps, 1, 1);
        const Lines y{randomVector<Orb32f>(300, 1), randomVector<Orb32f>(300, 2)};
        EXPECT_TRUE(sameBits(inverseOf<Orb32f>(ahead, y, {100, 200}), inverseOf<Orb32f>(behind, y, {100, 200})));
    }
}

// ---- Memory ----

// Taps are read when there is memory for them only.
TEST(FilterBankMemory, TooMuchIsRefusedAndLeavesNull) {
    const Orb32f tap = 1;
    const int most = std::numeric_limits<int>::max();
    for (const auto& [lenLow, offsLow, lenHigh, offsHigh] :
         {std::tuple{1, most, 1, 0}, std::tuple{1, 0, most, most}, std::tuple{most, -1, 1, 0},
          std::tuple{1, 1 << 29, 1, 0}}) {
        OrbsWTFwdState_32f* forward = reinterpret_cast<OrbsWTFwdState_32f*>(1);
        OrbsWTInvState_32f16s* inverse = reinterpret_cast<OrbsWTInvState_32f16s*>(1);
        EXPECT_EQ(orbsWTFwdInitAlloc_32f(&forward, &tap, lenLow, offsLow, &tap, lenHigh, offsHigh), orbStsMemAllocErr);
        EXPECT_EQ(forward, nullptr);
        EXPECT_EQ(orbsWTInvInitAlloc_32f16s(&inverse, &tap, lenLow, offsLow, &tap, lenHigh, offsHigh),
                  orbStsMemAllocErr);
        EXPECT_EQ(inverse, nullptr);
    }
}

} // namespace
