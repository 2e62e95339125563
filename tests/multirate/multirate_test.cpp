#include "multirate/multirate_member.h"

#include <cstring>

namespace {

using namespace multirate;
using support::Guarded;
using support::ThreadCount;

template <class P>
class Multirate : public multirate::Test<P> {};
TYPED_TEST_SUITE(Multirate, Pairs);

TYPED_TEST(Multirate, BlocksMatchTheRaisedStreamHoweverItIsCut) {
    using F = Filter<TypeParam>;
    using Sample = typename TypeParam::Sample;
    using Tap = typename TypeParam::Tap;
    support::Random random(5);
    for (const Rates& rates : allRates) {
        SCOPED_TRACE(testing::Message() << rates);
        constexpr int periods = 90;
        const auto taps = randomVector<Tap>(static_cast<std::size_t>(rates.tapsLen), 1);
        auto line = randomVector<Sample>(rates.lineLen(), 2);
        const auto x = randomVector<Sample>(rates.inputs(periods), 3);
        F whole(F::caller, rates, taps, line), cut(F::allocated, rates, taps, line),
            again(F::caller, rates, taps, line);
        const auto y = whole.run(x);
        expectOutputs<TypeParam, Part<Tap>>(y, exactOutputs(rates, taps, line, x), rates);
        inRuns(rates, periods, random, [&](std::size_t from, std::size_t count, std::size_t to, std::size_t made) {
            const auto part = slice(x, from, count);
            const auto outputs = random() % 2 ? cut.run(part) : cut.runInPlace(part);
            ASSERT_TRUE(sameBits(outputs, slice(y, to, made))) << "from sample " << from << ", " << count;
        });
        EXPECT_TRUE(sameBits(again.runInPlace(x), y));
        for (const F* filter : {&whole, &cut, &again}) EXPECT_TRUE(sameBits(filter->line(), line));
    }
}

// Around the lengths from which a team is asked for; in place, around the outputs that are worked out at a time.
TYPED_TEST(Multirate, TheThreadCountChangesNothing) {
    using F = Filter<TypeParam>;
    for (const Rates& rates : {Rates{20, 3, 1, 2, 0}, Rates{40, 1, 0, 2, 1}, Rates{5, 2, 1, 3, 2}}) {
        const auto taps = randomVector<typename TypeParam::Tap>(static_cast<std::size_t>(rates.tapsLen), 1);
        for (const int periods : {800, 801, 1600, 1601, 4096, 5000}) {
            const auto x = randomVector<typename TypeParam::Sample>(rates.inputs(periods), 3);
            std::vector<typename TypeParam::Sample> wanted;
            for (const int threads : {1, 2, 3, 8}) {
                ThreadCount count(threads);
                F filter(F::caller, rates, taps), inPlace(F::caller, rates, taps);
                const auto y = filter.run(x);
                if (wanted.empty()) wanted = y;
                ASSERT_TRUE(sameBits(y, wanted)) << rates << ", " << periods << " periods, " << threads << " threads";
                ASSERT_TRUE(sameBits(inPlace.runInPlace(x), wanted)) << rates << ", " << periods << " periods";
            }
        }
    }
}

// ---- What an output does not reach ----

template <class P>
class MultirateFloat : public multirate::Test<P> {};
TYPED_TEST_SUITE(MultirateFloat, FloatPairs);

// One NaN among the samples, or in the line: outputs without it in their sum have the bits that they have without it.
TYPED_TEST(MultirateFloat, ANanSpoilsWhatReachesItAndNothingElse) {
    using Sample = typename TypeParam::Sample;
    using Tap = typename TypeParam::Tap;
    using F = Filter<TypeParam>;
    const auto spoil = [](Sample& x) {
        reinterpret_cast<Part<Sample>&>(x) = std::numeric_limits<Part<Sample>>::quiet_NaN();
    };
    for (const Rates& rates : allRates) {
        const int periods = static_cast<int>(rates.lineLen()) / rates.down + 3;
        const auto taps = randomVector<Tap>(static_cast<std::size_t>(rates.tapsLen), 1);
        auto line = randomVector<Sample>(rates.lineLen(), 2), x = randomVector<Sample>(rates.inputs(periods), 3);
        const auto clean = F(F::caller, rates, taps, line).run(x);
        for (std::size_t at = 0; at < line.size() + x.size(); at += 1 + at / 8) {
            auto spoiledLine = line, spoiled = x, after = spoiledLine;
            spoil(at < line.size() ? spoiledLine[at] : spoiled[at - line.size()]);
            const auto y = F(F::caller, rates, taps, spoiledLine).run(spoiled);
            after = spoiledLine;
            const auto exact = exactOutputs(rates, taps, after, spoiled);
            for (std::size_t n = 0; n < y.size(); ++n) {
                const auto re = reinterpret_cast<const Part<Sample>&>(y[n]);
                if (std::isnan(exact[n].magnitude)) {
                    ASSERT_TRUE(std::isnan(re)) << rates << ", NaN at " << at << ", output " << n;
                } else {
                    ASSERT_TRUE(support::identical(y[n], clean[n])) << rates << ", NaN at " << at << ", output " << n;
                }
            }
        }
    }
}

// ---- States ----

TYPED_TEST(Multirate, ReplacedTapsMakeTheFilterThatIsMadeWithThem) {
    using F = Filter<TypeParam>;
    using Tap = typename TypeParam::Tap;
    for (const Rates& rates : allRates) {
        const auto count = static_cast<std::size_t>(rates.tapsLen);
        const auto before = randomVector<Tap>(count, 1), after = randomVector<Tap>(count, 2);
        const auto x = randomVector<typename TypeParam::Sample>(rates.inputs(20), 3);
        F changed(F::caller, rates, before);
        changed.run(x);
        EXPECT_EQ(TypeParam::setTaps(after.data(), changed.state()), orbStsNoErr);
        std::vector<Tap> got(count);
        EXPECT_EQ(TypeParam::getTaps(changed.state(), got.data()), orbStsNoErr);
        EXPECT_TRUE(sameBits(got, after)) << rates;
        F fresh(F::caller, rates, after, changed.line());
        EXPECT_TRUE(sameBits(changed.run(x), fresh.run(x))) << rates;
        EXPECT_EQ(TypeParam::setDlyLine(changed.state(), nullptr), orbStsNoErr);
        EXPECT_TRUE(sameBits(changed.run(x), F(F::caller, rates, after).run(x))) << rates;
    }
}

TYPED_TEST(Multirate, AStateLivesOnInACopyOfItsBlock) {
    using F = Filter<TypeParam>;
    using State = typename TypeParam::State;
    const Rates rates{70, 5, 2, 3, 1};
    const auto taps = randomVector<typename TypeParam::Tap>(70, 1);
    const auto x = randomVector<typename TypeParam::Sample>(rates.inputs(50), 3);
    F filter(F::caller, rates, taps);
    filter.run(x);
    auto copied = filter.block();
    // The head lies as far behind the start of the copy as it does in the original, if that is as aligned.
    const auto offset = reinterpret_cast<const Orb8u*>(filter.state()) - filter.block().data();
    auto* const state = reinterpret_cast<State*>(copied.data() + offset);
    const auto y = filter.run(x);
    std::vector<typename TypeParam::Sample> z(y.size());
    EXPECT_EQ(scaled(scaleFactor<TypeParam>, TypeParam::filter, x.data(), z.data(), 50, state), orbStsNoErr);
    EXPECT_TRUE(sameBits(z, y));
}

template <class State>
Orb32s tagOf(const State* state) {
    Orb32s tag;
    std::memcpy(&tag, static_cast<const void*>(state), sizeof tag);
    return tag;
}

// Two factors of 1 make a state of one rate.
TYPED_TEST(Multirate, WithoutAChangeOfTheRateTheStateIsASingleRateOne) {
    using F = Filter<TypeParam>;
    int size = 0, singleRate = 0;
    EXPECT_EQ(TypeParam::getStateSize(40, 1, 1, &size), orbStsNoErr);
    EXPECT_EQ(TypeParam::singleRateSize(40, &singleRate), orbStsNoErr);
    EXPECT_EQ(size, singleRate);
    const auto taps = randomVector<typename TypeParam::Tap>(40, 1);
    std::vector<Orb8u> buffer(static_cast<std::size_t>(size));
    typename TypeParam::State* state = nullptr;
    EXPECT_EQ(TypeParam::singleRateInit(&state, taps.data(), 40, nullptr, buffer.data()), orbStsNoErr);
    for (const auto where : {F::caller, F::allocated})
        for (const int down : {1, 2})
            EXPECT_EQ(tagOf(F(where, {40, 1, 0, down, 0}, taps).state()) == tagOf(state), down == 1);
}

TEST(MultirateTag, TellsBothKindsOfStates) {
    Orb32f y = 0;
    const auto taps = randomVector<Orb32f>(3);
    for (const int down : {1, 2}) {
        Filter<Of32f> filter(Filter<Of32f>::caller, {3, 1, 0, down, 0}, taps);
        EXPECT_EQ(tagOf(filter.state()), down == 1 ? 0x46493031 : 0x46493033); // FI01 and FI03
        EXPECT_EQ(orbsFIROne_32f(1, &y, filter.state()), down == 1 ? orbStsNoErr : orbStsContextMatchErr);
    }
}

// ---- Sizes ----

template <class P>
int sizeOf(const Rates& rates) {
    int size = 0;
    EXPECT_EQ(P::getStateSize(rates.tapsLen, rates.up, rates.down, &size), orbStsNoErr);
    return size;
}

// The third and the fourth row lie on either side of a density of 1/2, which counts if the rate is only lowered. 9 taps
// over 7 have one of 0.3 in single precision, which is above 0.3, and 8 taps one below.
TEST(MultirateSize, IsTheOneAgreedUpon) {
    const struct {
        Rates rates;
        int _32f, _32fc, _32f16s, _64f, _64fc, _64f32s, _64fc16sc;
    } table[] = {
        {{1, 3, 0, 1, 0}, 16736, 33248, 16720, 33248, 66288, 33216, 66176},
        {{30, 1, 0, 10, 0}, 17968, 35744, 17808, 35744, 71328, 35424, 70352},
        {{31, 1, 0, 10, 0}, 18112, 35728, 17888, 36048, 71264, 35600, 70400},
        {{9, 2, 0, 7, 0}, 17296, 34432, 17184, 34416, 68672, 34192, 68000},
        {{8, 2, 0, 7, 0}, 17296, 34416, 17184, 34416, 68640, 34192, 67984},
        {{5120, 160, 0, 147, 0}, 204720, 589776, 202592, 408656, 1176832, 404400, 1164080},
        {{2000, 3, 0, 5000, 0}, 966928, 1933648, 895584, 1933648, 3867088, 1790976, 3439072},
        {{70, 5000, 0, 1, 0}, 180480, 560784, 180464, 340784, 1041424, 340752, 1041312},
        {{60000000, 1, 0, 2, 0}, -1654966896, -1389933776, -1894966912, 985033328, 1515099584, 505033296, 75099472}};
    for (const auto& row : table) {
        SCOPED_TRACE(testing::Message() << row.rates);
        EXPECT_EQ(sizeOf<Of32f>(row.rates), row._32f);
        EXPECT_EQ(sizeOf<Of32fc>(row.rates), row._32fc);
        EXPECT_EQ(sizeOf<Of32f_16s>(row.rates), row._32f16s);
        EXPECT_EQ(sizeOf<Of64f>(row.rates), row._64f);
        EXPECT_EQ(sizeOf<Of64fc>(row.rates), row._64fc);
        EXPECT_EQ(sizeOf<Of64f_32s>(row.rates), row._64f32s);
        EXPECT_EQ(sizeOf<Of64fc_16sc>(row.rates), row._64fc16sc);
    }
}

TYPED_TEST(Multirate, WhatNoIntHoldsIsRefused) {
    Guarded<typename TypeParam::Tap> taps(1);
    Guarded<Orb8u> buffer(0);
    typename TypeParam::State* state = nullptr;
    constexpr int most = std::numeric_limits<int>::max();
    for (const Rates& r : {Rates{most, 1, 0, 2, 0}, Rates{1, most, 0, 1, 0}, Rates{1, 1, 0, most, 0},
                           Rates{most, most, 0, most, 0}, Rates{60000000, 1, 0, 2, 0}}) {
        EXPECT_EQ(TypeParam::init(&state, taps.data(), r.tapsLen, r.up, 0, r.down, 0, nullptr, buffer.data()),
                  orbStsMemAllocErr)
            << r;
        EXPECT_EQ(TypeParam::initAlloc(&state, taps.data(), r.tapsLen, r.up, 0, r.down, 0, nullptr), orbStsMemAllocErr)
            << r;
    }
    EXPECT_EQ(state, nullptr);
}

// A block of exactly the reported size, of any alignment, in every call, for rows around the lanes and long ones.
TYPED_TEST(Multirate, StaysWithinTheReportedSize) {
    using P = TypeParam;
    std::vector<Rates> all(std::begin(allRates), std::end(allRates));
    for (const int perPhase : {1, 2, 3, 4, 5, 8, 9, 16, 17, 33, 500})
        for (const int up : {1, 2, 7, 4097})
            for (const int down : {1, 2, 5, 5003})
                if ((up > 1 || down > 1) && perPhase * up < 100000)
                    all.push_back({perPhase * up, up, up / 2, down, down / 2}),
                        all.push_back({(perPhase - 1) * up + 1, up, up - 1, down, 0});
    for (const Rates& r : all) {
        const auto taps = randomVector<typename P::Tap>(static_cast<std::size_t>(r.tapsLen), 1);
        const auto line = randomVector<typename P::Sample>(r.lineLen(), 2);
        const int periods = r.up + r.down > 4000 ? 1 : 3;
        std::vector<typename P::Sample> x(std::max(r.inputs(periods), r.outputs(periods))), y(x.size());
        for (const std::size_t shift : {0, 1, 15}) {
            Guarded<Orb8u> buffer(static_cast<std::size_t>(sizeOf<P>(r)), support::Edge::end, shift);
            typename P::State* state = nullptr;
            ASSERT_EQ(P::init(&state, taps.data(), r.tapsLen, r.up, r.upPhase, r.down, r.downPhase, line.data(),
                              buffer.data()),
                      orbStsNoErr);
            ASSERT_GE(reinterpret_cast<Orb8u*>(state), buffer.data());
            ASSERT_EQ(scaled(0, P::filter, x.data(), y.data(), periods, state), orbStsNoErr);
            ASSERT_EQ(scaled(0, P::filterInPlace, x.data(), periods, state), orbStsNoErr);
            ASSERT_EQ(P::setTaps(taps.data(), state), orbStsNoErr);
            ASSERT_EQ(P::setDlyLine(state, line.data()), orbStsNoErr);
            ASSERT_TRUE(buffer.intact()) << r << ", shift " << shift;
        }
    }
}

TEST(MultirateInPlace, TheNamedFormIsTheSingleRateFamilys) {
    const Rates rates{12, 2, 1, 3, 0};
    const auto taps = randomVector<Orb32f>(12, 1);
    auto x = randomVector<Orb32f>(30, 2);
    Filter<Of32f> filter(Filter<Of32f>::caller, rates, taps), wanted(Filter<Of32f>::caller, rates, taps);
    const auto y = wanted.run(x);
    EXPECT_EQ(orbsFIRMR_32f_I(x.data(), 10, filter.state()), orbStsNoErr);
    EXPECT_TRUE(sameBits(x.data(), y.data(), y.size()));
}

} // namespace
