// FIRLMSMR: adaptive filters of integers, step by step.
#include "adaptive/streams.h"

#include <deque>

namespace {

using namespace adaptive;
using support::isComplex;

constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();

template <class X>
struct Members;

#define STEPPED_MEMBERS(suffix, TapType)                                                                               \
    using State = OrbsFIRLMSMRState##suffix;                                                                           \
    using Tap = TapType;                                                                                               \
    static constexpr auto initAlloc = orbsFIRLMSMRInitAlloc##suffix;                                                   \
    static constexpr auto free = orbsFIRLMSMRFree##suffix;                                                             \
    static constexpr auto setTaps = orbsFIRLMSMRSetTaps##suffix;                                                       \
    static constexpr auto getTaps = orbsFIRLMSMRGetTaps##suffix;                                                       \
    static constexpr auto getTapsPointer = orbsFIRLMSMRGetTapsPointer##suffix;                                         \
    static constexpr auto setMu = orbsFIRLMSMRSetMu##suffix;                                                           \
    static constexpr auto setDlyLine = orbsFIRLMSMRSetDlyLine##suffix;                                                 \
    static constexpr auto getDlyLine = orbsFIRLMSMRGetDlyLine##suffix;                                                 \
    static constexpr auto getDlyVal = orbsFIRLMSMRGetDlyVal##suffix;                                                   \
    static constexpr auto putVal = orbsFIRLMSMRPutVal##suffix;                                                         \
    static constexpr auto one = orbsFIRLMSMROne##suffix;                                                               \
    static constexpr auto oneVal = orbsFIRLMSMROneVal##suffix

template <>
struct Members<Orb16s> {
    STEPPED_MEMBERS(32s_16s, Orb32s);
    static OrbStatus update(State* state, Orb32s e) { return orbsFIRLMSMRUpdateTaps32s_16s(e, state); }
};
template <>
struct Members<Orb16sc> {
    STEPPED_MEMBERS(32sc_16sc, Orb32sc);
    static OrbStatus update(State* state, Orb32sc e) { return orbsFIRLMSMRUpdateTaps32sc_16sc(e.re, e.im, state); }
};

Orb32s wrapped(std::int64_t v) {
    return static_cast<Orb32s>(static_cast<Orb32u>(static_cast<std::uint64_t>(v)));
}

// Of two parts; a real number has the first.
struct Wide {
    std::int64_t re, im;
};
template <class T>
Wide wide(T t) {
    if constexpr (isComplex<T>) {
        return {t.re, t.im};
    } else {
        return {t, 0};
    }
}
template <class T>
T narrow(Wide w) {
    if constexpr (isComplex<T>) {
        return {wrapped(w.re), wrapped(w.im)};
    } else {
        return wrapped(w.re);
    }
}
Wide plusProduct(Wide sum, Wide a, Wide b) {
    return {wrapped(sum.re + a.re * b.re - a.im * b.im), wrapped(sum.im + a.re * b.im + a.im * b.re)};
}

// The filter by its formulas: samples newest first, taps in natural order.
template <class X>
struct Model {
    using Tap = typename Members<X>::Tap;
    std::vector<Tap> taps;
    std::deque<X> past;
    int step, delay, mu;

    void put(X x) {
        past.push_front(x);
        past.pop_back();
    }
    Tap output() const {
        Wide sum{};
        for (std::size_t k = 0; k < taps.size(); ++k) {
            const Wide h = wide(taps[k]);
            sum = plusProduct(sum, {h.re >> 16, h.im >> 16}, wide(past[k * std::size_t(step)]));
        }
        return narrow<Tap>(sum);
    }
    std::int64_t adaptation(std::int64_t e) const { return wrapped(std::int64_t{wrapped(mu * e)} + 16384) >> 15; }
    void update(Tap error) {
        const Wide e = wide(error), d{adaptation(e.re), adaptation(e.im)};
        for (std::size_t k = 0; k < taps.size(); ++k)
            taps[k] =
                narrow<Tap>(plusProduct(wide(taps[k]), d, wide(past[k * std::size_t(step) + std::size_t(delay)])));
    }
};

template <class X>
class LmsSteps : public testing::Test {};
using Types = testing::Types<Orb16s, Orb16sc>;
TYPED_TEST_SUITE(LmsSteps, Types);

template <class X>
typename Members<X>::State* made(const Model<X>& model, const std::vector<X>& line, int index) {
    typename Members<X>::State* state = nullptr;
    EXPECT_EQ(Members<X>::initAlloc(&state, model.taps.data(), static_cast<int>(model.taps.size()),
                                    line.empty() ? nullptr : line.data(), index, model.step, model.delay, model.mu),
              orbStsNoErr);
    return state;
}
template <class X>
auto tapsOf(const typename Members<X>::State* state, std::size_t count) {
    std::vector<typename Members<X>::Tap> taps(count);
    EXPECT_EQ(Members<X>::getTaps(state, taps.data()), orbStsNoErr);
    return taps;
}

TYPED_TEST(LmsSteps, FollowTheirFormulas) {
    using X = TypeParam;
    using M = Members<X>;
    using Tap = typename M::Tap;
    for (const std::size_t count : {1u, 2u, 5u, 16u, 37u}) {
        for (const auto& [step, delay] : std::vector<std::pair<int, int>>{{1, 0}, {1, 3}, {2, 1}, {3, 50}}) {
            const std::size_t length = count * std::size_t(step) + std::size_t(delay);
            const auto line = support::randomVector<X>(length), x = support::randomVector<X>(2 * length + 5, 2);
            const auto errors = support::randomVector<Tap>(x.size(), 3);
            Model<X> model{support::randomVector<Tap>(count, 4), {}, step, delay, 12345};
            const std::size_t index = length / 2;
            for (std::size_t n = 0; n < length; ++n) model.past.push_front(line[(index + n) % length]);
            typename M::State* const state = made(model, line, static_cast<int>(index));
            for (std::size_t n = 0; n < x.size(); ++n) {
                const int mus[] = {12345, 1, most, least, -7};
                EXPECT_EQ(M::setMu(state, model.mu = mus[n % 5]), orbStsNoErr);
                Tap y{};
                if (n % 2 == 0) {
                    EXPECT_EQ(M::oneVal(x[n], &y, state), orbStsNoErr);
                } else {
                    EXPECT_EQ(M::putVal(x[n], state), orbStsNoErr);
                    EXPECT_EQ(M::one(&y, state), orbStsNoErr);
                }
                model.put(x[n]);
                const Tap expected = model.output();
                ASSERT_TRUE(support::sameBits(&y, &expected, 1)) << count << " taps, step " << step << ", " << n;
                EXPECT_EQ(M::update(state, errors[n]), orbStsNoErr);
                model.update(errors[n]);
                ASSERT_TRUE(support::sameBits(tapsOf<X>(state, count), model.taps)) << step << ", " << n;
                for (std::size_t k = 0; k <= length; k += 3) {
                    X val{};
                    EXPECT_EQ(M::getDlyVal(state, &val, static_cast<int>(k)), orbStsNoErr);
                    const std::size_t behind = (k + std::size_t(step + delay) - 1) % length;
                    ASSERT_TRUE(support::sameBits(&val, &model.past[length - 1 - behind], 1)) << k;
                }
            }
            M::free(state);
        }
    }
}

TYPED_TEST(LmsSteps, KeepTapsAndLinesAsGiven) {
    using X = TypeParam;
    using M = Members<X>;
    using Tap = typename M::Tap;
    const auto line = support::randomVector<X>(13);
    Model<X> model{support::randomVector<Tap>(5), {}, 2, 3, 1};
    typename M::State* const state = made(model, {}, 12);
    std::vector<X> read(13);
    int index = 0;
    EXPECT_EQ(M::getDlyLine(state, read.data(), &index), orbStsNoErr);
    EXPECT_TRUE(support::sameBits(read, std::vector<X>(13)));
    EXPECT_EQ(index, 12);
    for (const int given : {4, 17, -9}) {
        EXPECT_EQ(M::setDlyLine(state, line.data(), given), orbStsNoErr);
        EXPECT_EQ(M::getDlyLine(state, read.data(), &index), orbStsNoErr);
        EXPECT_TRUE(support::sameBits(read, line));
        EXPECT_EQ(index, 4);
    }
    Tap* inside = nullptr;
    EXPECT_EQ(M::getTapsPointer(state, &inside), orbStsNoErr);
    EXPECT_TRUE(support::sameBits(std::vector<Tap>(inside, inside + 5),
                                  std::vector<Tap>(model.taps.rbegin(), model.taps.rend())));
    inside[0] = Tap{};
    model.taps[4] = Tap{};
    EXPECT_TRUE(support::sameBits(tapsOf<X>(state, 5), model.taps));
    EXPECT_EQ(M::setTaps(state, nullptr), orbStsNoErr);
    EXPECT_TRUE(support::sameBits(tapsOf<X>(state, 5), std::vector<Tap>(5)));
    M::free(state);

    typename M::State* none = nullptr;
    EXPECT_EQ(M::initAlloc(&none, nullptr, most, nullptr, 0, most, most, 0), orbStsMemAllocErr);
    EXPECT_EQ(M::initAlloc(&none, nullptr, 1 << 15, nullptr, 0, 1 << 15, 0, 0), orbStsMemAllocErr);
    EXPECT_EQ(none, nullptr);
}

// Taps of 31 fraction bits, of which the filter takes 15; a step of a quarter of what would be found at once.
TEST(LmsStepsOfNoise, IdentifyAnUnknownFilter) {
    constexpr int tapsLen = 16;
    const Unknown unknown(tapsLen, 20000);
    OrbsFIRLMSMRState32s_16s* state = nullptr;
    orbsFIRLMSMRInitAlloc32s_16s(&state, nullptr, tapsLen, nullptr, 0, 1, 0, 32768);
    std::vector<Orb16s> y;
    for (std::size_t n = 0; n < unknown.x.size(); ++n) {
        Orb32s sum = 0;
        orbsFIRLMSMROneVal32s_16s(unknown.x[n], &sum, state);
        y.push_back(static_cast<Orb16s>((sum + 16384) >> 15));
        orbsFIRLMSMRUpdateTaps32s_16s(unknown.ref[n] - y[n], state);
    }
    orbsFIRLMSMRFree32s_16s(state);
    EXPECT_LT(unknown.errorAtEnd(y), 1e-6);
}

} // namespace
