// FIRLMS: states with float taps.
#include "adaptive/streams.h"

namespace {

using namespace adaptive;

template <class X>
struct Members;
#define LMS_MEMBERS(X, suffix)                                                                                         \
    template <>                                                                                                        \
    struct Members<X> {                                                                                                \
        using State = OrbsFIRLMSState##suffix;                                                                         \
        static constexpr auto initAlloc = orbsFIRLMSInitAlloc##suffix;                                                 \
        static constexpr auto free = orbsFIRLMSFree##suffix;                                                           \
        static constexpr auto getTaps = orbsFIRLMSGetTaps##suffix;                                                     \
        static constexpr auto getDlyLine = orbsFIRLMSGetDlyLine##suffix;                                               \
        static constexpr auto setDlyLine = orbsFIRLMSSetDlyLine##suffix;                                               \
        static constexpr auto filter = orbsFIRLMS##suffix;                                                             \
    }
LMS_MEMBERS(Orb32f, _32f);
LMS_MEMBERS(Orb16s, 32f_16s);

template <class X>
class Filter {
    using M = Members<X>;

public:
    Filter(const std::vector<float>& taps, const std::vector<X>& line, int index)
        : tapsLen_(static_cast<int>(taps.size())) {
        EXPECT_EQ(M::initAlloc(&state_, taps.data(), tapsLen_, line.empty() ? nullptr : line.data(), index),
                  orbStsNoErr);
    }
    ~Filter() { M::free(state_); }
    Filter(const Filter&) = delete;

    std::vector<X> run(const std::vector<X>& x, const std::vector<X>& ref, float mu) {
        std::vector<X> y(x.size());
        EXPECT_EQ(M::filter(x.data(), ref.data(), y.data(), static_cast<int>(x.size()), mu, state_), orbStsNoErr);
        return y;
    }
    std::vector<float> taps() const {
        std::vector<float> taps(static_cast<std::size_t>(tapsLen_));
        EXPECT_EQ(M::getTaps(state_, taps.data()), orbStsNoErr);
        return taps;
    }
    std::vector<X> line(int* index) const {
        std::vector<X> line(static_cast<std::size_t>(tapsLen_));
        EXPECT_EQ(M::getDlyLine(state_, line.data(), index), orbStsNoErr);
        return line;
    }
    typename M::State* state() { return state_; }

private:
    typename M::State* state_ = nullptr;
    int tapsLen_;
};

// Around the sizes of rows, and of those that stay in registers.
const int tapCounts[] = {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 79, 80, 95, 96, 97, 256, 257, 300};

// Sample by sample: the output within the error of a sum in single precision, and taps that follow from it exactly.
TEST(Lms, FiltersAndThenAdapts) {
    for (const int tapsLen : tapCounts) {
        const auto size = static_cast<std::size_t>(tapsLen);
        const auto h = noise<float>(size, 1), line = noise<float>(size, 2);
        const auto x = noise<float>(40, 3), ref = noise<float>(40, 4);
        const int index = tapsLen / 3;
        Filter<float> filter(h, line, index);
        std::vector<float> past; // newest first
        for (int k = 0; k < tapsLen; ++k)
            past.push_back(line[static_cast<std::size_t>((index + tapsLen - 1 - k) % tapsLen)]);
        for (std::size_t n = 0; n < x.size(); ++n) {
            const std::vector<float> before = filter.taps();
            const float mu = n % 3 == 0 ? 0.0f : 0.01f, y = filter.run({x[n]}, {ref[n]}, mu)[0];
            past.insert(past.begin(), x[n]);
            double sum = 0, magnitude = 0;
            const float e = (ref[n] - y) * (mu + mu);
            std::vector<float> after(size);
            for (std::size_t k = 0; k < size; ++k) {
                sum += double{before[k]} * past[k];
                magnitude += std::abs(double{before[k]} * past[k]);
                after[k] = before[k] + past[k] * e;
            }
            ASSERT_NEAR(y, sum, magnitude * (tapsLen + 1) * 0x1p-24) << tapsLen << " taps, sample " << n;
            ASSERT_EQ(filter.taps(), after) << tapsLen << " taps, sample " << n;
        }
    }
}

// An infinite error makes all taps infinite, not NaN; a sample that is still to come meets none.
TEST(Lms, LooksAtNothingBesideItsTaps) {
    for (const int tapsLen : tapCounts) {
        const auto size = static_cast<std::size_t>(tapsLen);
        Filter<float> filter(std::vector<float>(size), std::vector<float>(size, 1), 0);
        const auto y = filter.run({1, 1, INFINITY}, {INFINITY, 0, 0}, 1);
        EXPECT_EQ(y[0], 0) << tapsLen;
        EXPECT_EQ(y[1], INFINITY) << tapsLen;
    }
}

// Blocks of samples, and of outputs, however they are cut and wherever outputs go.
template <class X>
void expectOneStream(int tapsLen, float mu) {
    const auto h = noise<float>(static_cast<std::size_t>(tapsLen), 1);
    const auto x = noise<X>(4500, 2), ref = noise<X>(4500, 3);
    Filter<X> whole(h, {}, 5), cut(h, {}, 0);
    const std::vector<X> y = whole.run(x, ref, mu);
    std::vector<X> pieces;
    for (std::size_t at = 0, step = 1; at < x.size(); at += step, step = step * 2 + 1) {
        step = std::min(step, x.size() - at);
        const auto piece = [&](const std::vector<X>& v) { return std::vector<X>(&v[at], &v[at] + step); };
        const auto more = cut.run(piece(x), piece(ref), mu);
        pieces.insert(pieces.end(), more.begin(), more.end());
    }
    ASSERT_EQ(pieces, y) << tapsLen;
    ASSERT_EQ(cut.taps(), whole.taps()) << tapsLen;
    for (const bool overSamples : {true, false}) {
        Filter<X> filter(h, {}, 0);
        auto samples = x, references = ref;
        X* const to = overSamples ? samples.data() : references.data();
        Members<X>::filter(samples.data(), references.data(), to, static_cast<int>(x.size()), mu, filter.state());
        ASSERT_EQ(overSamples ? samples : references, y) << tapsLen;
    }
}
TEST(Lms, GivesOneStreamHoweverItIsCut) {
    for (const int tapsLen : tapCounts) {
        expectOneStream<float>(tapsLen, 1e-3f);
        expectOneStream<Orb16s>(tapsLen, 1e-11f);
    }
}

TEST(Lms, Of16BitsIsTheSameOverWidenedSamples) {
    for (const int tapsLen : {5, 32, 100}) {
        const auto h = noise<float>(static_cast<std::size_t>(tapsLen), 1);
        const auto x = noise<Orb16s>(3000, 2), ref = noise<Orb16s>(3000, 3);
        Filter<Orb16s> narrow(h, {}, 0);
        Filter<float> wide(h, {}, 0);
        const auto y = wide.run({x.begin(), x.end()}, {ref.begin(), ref.end()}, 1e-11f);
        std::vector<Orb16s> rounded;
        for (const float v : y)
            rounded.push_back(static_cast<Orb16s>(std::clamp(std::nearbyint(v), -32768.f, 32767.f)));
        EXPECT_EQ(narrow.run(x, ref, 1e-11f), rounded) << tapsLen;
        EXPECT_EQ(narrow.taps(), wide.taps()) << tapsLen;
    }
    Filter<Orb16s> filter({NAN, 1e9f}, {}, 0);
    EXPECT_EQ(filter.run({1}, {0}, 0)[0], 32767);
}

// A ring of its caller's, which begins anew at 0 below 80 taps.
template <class X>
void expectRing(int tapsLen) {
    const auto size = static_cast<std::size_t>(tapsLen);
    const auto h = noise<float>(size, 1);
    const auto line = noise<X>(size, 2), x = noise<X>(7, 3), ref = noise<X>(7, 4);
    int index = -1;
    for (const int start : {3, 3 + tapsLen, 3 - tapsLen}) {
        Filter<X> filter(h, line, start);
        EXPECT_EQ(filter.line(&index), line);
        EXPECT_EQ(index, 3);
    }
    Filter<X> one(h, line, 3), other(h, {}, 0);
    one.run(x, ref, 0);
    const auto turned = one.line(&index);
    EXPECT_EQ(index, tapsLen < 80 ? 0 : 10);
    for (std::size_t n = 0; n < size; ++n) {
        const X expected = n + 7 < size ? line[(n + 10) % size] : x[n + 7 - size];
        EXPECT_EQ(turned[(n + static_cast<std::size_t>(index)) % size], expected) << tapsLen << ", " << n;
    }
    EXPECT_EQ(Members<X>::setDlyLine(other.state(), turned.data(), index), orbStsNoErr);
    EXPECT_EQ(other.run(x, ref, 0), one.run(x, ref, 0));
    EXPECT_EQ(Members<X>::setDlyLine(one.state(), nullptr, 2), orbStsNoErr);
    EXPECT_EQ(one.line(&index), std::vector<X>(size));
    EXPECT_EQ(index, 2);
}
TEST(Lms, TellsItsLineAsARing) {
    for (const int tapsLen : {12, 79, 80}) {
        expectRing<float>(tapsLen);
        expectRing<Orb16s>(tapsLen);
    }
}

TEST(Lms, MoreTapsThanMemoryAreRefused) {
    OrbsFIRLMSState_32f* state = nullptr;
    EXPECT_EQ(orbsFIRLMSInitAlloc_32f(&state, nullptr, std::numeric_limits<int>::max(), nullptr, 0), orbStsMemAllocErr);
    EXPECT_EQ(state, nullptr);
}

TEST(Lms, IdentifiesAnUnknownFilter) {
    for (const int tapsLen : {12, 100}) {
        const Unknown unknown(tapsLen, 20000);
        Filter<Orb16s> filter(std::vector<float>(static_cast<std::size_t>(tapsLen)), {}, 0);
        const float mu = 0.5f / (static_cast<float>(tapsLen) * 1e8f);
        EXPECT_LT(unknown.errorAtEnd(filter.run(unknown.x, unknown.ref, mu)), 1e-6) << tapsLen;
    }
}

} // namespace
