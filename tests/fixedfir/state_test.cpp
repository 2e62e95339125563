#include "fixedfir/fixed_member.h"
#include "support/stride.h"

#include <cmath>
#include <cstring>

namespace {

using namespace fixedfir;
using support::Guarded;

constexpr float infinite = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();

template <class T>
class FixedFirState : public testing::Test {};
TYPED_TEST_SUITE(FixedFirState, Types);

// ---- Sizes ----

template <class T>
int sizeOf(int tapsLen, int up = 1, int down = 1) {
    int size = 0, single = 0;
    EXPECT_EQ(Members<T>::getMultiRateSize(tapsLen, up, down, &size), orbStsNoErr);
    EXPECT_EQ(Members<T>::getStateSize(tapsLen, &single), orbStsNoErr);
    if (up == 1 && down == 1) { EXPECT_EQ(size, single); }
    return size;
}

TEST(FixedFirStateSize, IsTheOneAgreedUponAndWrapsIn32Bits) {
    const struct {
        int tapsLen, real, complex;
    } table[] = {{1, 16592, 16544},
                 {2, 16592, 16576},
                 {37, 17280, 17840},
                 {1000, 34576, 52496},
                 {200000000, -694950720, -1389918096}};
    for (const auto& row : table) {
        EXPECT_EQ(sizeOf<Orb16s>(row.tapsLen), row.real) << row.tapsLen;
        EXPECT_EQ(sizeOf<Orb16sc>(row.tapsLen), row.complex) << row.tapsLen;
    }
    EXPECT_EQ(sizeOf<Orb16s>(30, 3, 2), 9168);
    EXPECT_EQ(sizeOf<Orb16sc>(30, 3, 2), 18112);
}

TYPED_TEST(FixedFirState, TooManyTapsAreRefused) {
    using M = Members<TypeParam>;
    Guarded<TapOf<TypeParam>> taps(1);
    Guarded<Orb8u> buffer(0);
    typename M::State* state = nullptr;
    for (const int tapsLen : {isComplex<TypeParam> ? 59651865 : 119303725, 1 << 29, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(M::init(&state, taps.data(), tapsLen, 0, nullptr, buffer.data()), orbStsMemAllocErr);
        EXPECT_EQ(M::initMultiRate(&state, taps.data(), 1, 0, tapsLen, 0, 1, 0, nullptr, buffer.data()),
                  orbStsMemAllocErr);
        if (tapsLen < 1 << 29) continue; // what is allocated is less than is reported
        EXPECT_EQ(M::initAlloc(&state, taps.data(), tapsLen, 0, nullptr), orbStsMemAllocErr);
        EXPECT_EQ(M::initMultiRateAlloc(&state, taps.data(), 1, 0, tapsLen, 0, 1, 0, nullptr), orbStsMemAllocErr);
    }
    EXPECT_EQ(state, nullptr);
}

// A block of exactly the reported size, of any alignment.
TYPED_TEST(FixedFirState, StaysWithinTheReportedSize) {
    using T = TypeParam;
    using M = Members<T>;
    support::Random random(1);
    for (int turn = 0; turn < 1200; turn += support::stride) {
        const bool small = turn % 3 != 0;
        const int tapsLen = turn < 70 ? turn + 1 : 1 + static_cast<int>(random() % (small ? 40 : 700));
        const int up = turn < 70 ? 1 : 1 + static_cast<int>(random() % (small ? 6 : 300));
        const int down = turn < 70 ? 1 : 1 + static_cast<int>(random() % (small ? 6 : 300));
        SCOPED_TRACE(testing::Message() << tapsLen << " taps, rate " << up << "/" << down);
        const auto taps = smallTaps<T>(static_cast<std::size_t>(tapsLen), 1);
        const std::size_t size = static_cast<std::size_t>(sizeOf<T>(tapsLen, up, down));
        Guarded<Orb8u> buffer(size, support::Edge::end, random() % 16);
        typename M::State* state = nullptr;
        ASSERT_EQ(
            M::initMultiRate(&state, taps.data(), tapsLen, 0, up, turn % up, down, turn % down, nullptr, buffer.data()),
            orbStsNoErr);
        const int periods = std::max(5000 / std::max(up, down), 3);
        std::vector<T> x(static_cast<std::size_t>(periods * std::max(up, down)));
        if (up == 1 && down == 1)
            for (int n = 0; n < 2 * tapsLen - 1; ++n) M::one(x[0], x.data(), state, 0);
        M::filterInPlace(x.data(), periods, state, 3);
        M::filterInPlace(x.data(), 1, state, 3);
        M::setTaps(taps.data(), state, 0);
        M::setDlyLine(state, nullptr);
        ASSERT_TRUE(buffer.intact());
    }
}

// ---- Taps ----

struct Kept {
    std::vector<Orb32s> taps;
    int factor;
    bool operator==(const Kept&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Kept& kept) {
    for (const Orb32s tap : kept.taps) out << tap << ' ';
    return out << "* 2^" << kept.factor;
}

template <class T>
Kept keptBy(const typename Members<T>::State* state, std::size_t tapsLen) {
    std::vector<TapOf<T>> taps(tapsLen);
    Kept kept;
    EXPECT_EQ(Members<T>::getTaps(state, taps.data(), &kept.factor), orbStsNoErr);
    kept.taps.assign(asParts(taps), asParts(taps) + tapsLen * parts<T>);
    return kept;
}
// Of two parts: two real taps, or one complex one.
template <class T>
Kept kept(std::vector<Orb32s> taps, int factor, const Rates& r = {}) {
    std::vector<TapOf<T>> given(2 / parts<T>);
    std::copy(taps.begin(), taps.end(), asParts(given));
    Filter<T> filter(Filter<T>::caller, given, r, {}, factor), changed(Filter<T>::allocated, given, r);
    EXPECT_EQ(Members<T>::setTaps(given.data(), changed.state(), factor), orbStsNoErr);
    EXPECT_EQ(keptBy<T>(changed.state(), given.size()), keptBy<T>(filter.state(), given.size()));
    return keptBy<T>(filter.state(), given.size());
}

// Up to 32766 taps stay; a larger one shifts all of them, towards minus infinity.
TYPED_TEST(FixedFirState, IntegerTapsAreShiftedIntoFifteenBits) {
    using T = TypeParam;
    constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    for (const Rates r : {Rates{}, Rates{2, 0, 1, 0}}) {
        EXPECT_EQ(kept<T>({32766, -32766}, -3, r), (Kept{{32766, -32766}, -3}));
        EXPECT_EQ(kept<T>({32767, -1}, -3, r), (Kept{{16383, -1}, -2}));
        EXPECT_EQ(kept<T>({-32767, 3}, 0, r), (Kept{{-16384, 1}, 1}));
        EXPECT_EQ(kept<T>({5, -32768}, 0, r), (Kept{{2, -16384}, 1}));
        EXPECT_EQ(kept<T>({65533, -65533}, 0, r), (Kept{{32766, -32767}, 1}));
        EXPECT_EQ(kept<T>({most, -5}, 0, r), (Kept{{16383, -1}, 17}));
        EXPECT_EQ(kept<T>({least, 1 << 17}, 0, r), (Kept{{-16384, 1}, 17}));
        EXPECT_EQ(kept<T>({least, 0}, most, r), (Kept{{-16384, 0}, least + 16}));
    }
}

template <class T>
Kept keptOfFloats(float a, float b, const Rates& r = {}) {
    using M = Members<T>;
    std::vector<typename M::Float> given(2 / parts<T>);
    asParts(given)[0] = a, asParts(given)[1] = b;
    const int count = static_cast<int>(given.size());
    typename M::State *state = nullptr, *changed = nullptr;
    EXPECT_EQ(M::floatInitMultiRateAlloc(&state, given.data(), count, r.upFactor, 0, r.downFactor, 0, nullptr), 0);
    if (r.upFactor == 1 && r.downFactor == 1) {
        EXPECT_EQ(M::free(state), orbStsNoErr);
        EXPECT_EQ(M::floatInitAlloc(&state, given.data(), count, nullptr), orbStsNoErr);
    }
    const Kept kept = keptBy<T>(state, given.size());
    std::vector<typename M::Float> other(given.size());
    EXPECT_EQ(M::floatInitMultiRateAlloc(&changed, other.data(), count, r.upFactor, 0, r.downFactor, 0, nullptr), 0);
    EXPECT_EQ(M::floatSetTaps(given.data(), changed), orbStsNoErr);
    EXPECT_EQ(keptBy<T>(changed, given.size()), kept);
    EXPECT_EQ(M::free(state), orbStsNoErr);
    EXPECT_EQ(M::free(changed), orbStsNoErr);
    return kept;
}

TYPED_TEST(FixedFirState, FloatTapsAreScaledToJustBelow32767) {
    using T = TypeParam;
    EXPECT_EQ(keptOfFloats<T>(1, -0.5), (Kept{{16384, -8192}, -14}));
    EXPECT_EQ(keptOfFloats<T>(32767, -1.5), (Kept{{32767, -2}, 0}));
    EXPECT_EQ(keptOfFloats<T>(32767.5f, 1), (Kept{{16384, 1}, 1}));
    EXPECT_EQ(keptOfFloats<T>(16383.5f, 0.25), (Kept{{16384, 0}, 0})); // twice 16383.5 reaches 32767
    EXPECT_EQ(keptOfFloats<T>(16383.4f, 2.25), (Kept{{32767, 5}, -1}));
    EXPECT_EQ(keptOfFloats<T>(0x1.fffffep127f, 0), (Kept{{16384, 0}, 114}));
    EXPECT_EQ(keptOfFloats<T>(0x1p-149f, 0), (Kept{{16384, 0}, -163}));
    // Where no factor would do.
    EXPECT_EQ(keptOfFloats<T>(0, -0.0f), (Kept{{0, 0}, -32}));
    EXPECT_EQ(keptOfFloats<T>(nan, nan), (Kept{{0, 0}, -32}));
    EXPECT_EQ(keptOfFloats<T>(nan, 1), (Kept{{0, 16384}, -14}));
    EXPECT_EQ(keptOfFloats<T>(-infinite, 0x1p40f), (Kept{{-32767, 256}, 32}));
}

// 32 steps either way, to 32 bits, and what those leave as integers.
TYPED_TEST(FixedFirState, FloatTapsOfMultiRateFiltersTakeTheWayOverIntegers) {
    using T = TypeParam;
    const Rates r{2, 0, 1, 0};
    EXPECT_EQ(keptOfFloats<T>(1, -0.5, r), (Kept{{16384, -8192}, -14}));
    EXPECT_EQ(keptOfFloats<T>(32767, -1.5, r), (Kept{{16383, -1}, 1}));
    EXPECT_EQ(keptOfFloats<T>(0x1p-30f, 0, r), (Kept{{4, 0}, -32}));
    EXPECT_EQ(keptOfFloats<T>(0, 0, r), (Kept{{0, 0}, -32}));
    EXPECT_EQ(keptOfFloats<T>(nan, -nan, r), (Kept{{0, 0}, -32}));
    EXPECT_EQ(keptOfFloats<T>(0x1p60f, 0x1p40f, r), (Kept{{16384, 0}, 46}));
    EXPECT_EQ(keptOfFloats<T>(-infinite, 0x1p100f, r), (Kept{{-16384, 16383}, 49}));
}

TYPED_TEST(FixedFirState, FloatTapsComeBackAsWhatIsKept) {
    using T = TypeParam;
    using M = Members<T>;
    Filter<T> filter(Filter<T>::caller, std::vector<TapOf<T>>(2 / parts<T>));
    const auto returned = [&](int factor) {
        std::vector<TapOf<T>> taps(2 / parts<T>);
        asParts(taps)[0] = 3, asParts(taps)[1] = -1000;
        EXPECT_EQ(M::setTaps(taps.data(), filter.state(), factor), orbStsNoErr);
        std::vector<typename M::Float> got(taps.size());
        EXPECT_EQ(M::floatGetTaps(filter.state(), got.data()), orbStsNoErr);
        EXPECT_EQ(asParts(got)[0] * -1000, asParts(got)[1] * 3);
        return asParts(got)[0];
    };
    EXPECT_EQ(returned(0), 3);
    EXPECT_EQ(returned(-14), 0x3p-14f);
    EXPECT_EQ(returned(100), 0x3p100f);
    EXPECT_EQ(returned(130), 0x3p2f); // modulo 128
    EXPECT_EQ(returned(-163), 0x3p-35f);
    EXPECT_EQ(returned(-127), 0); // an exponent field of 0
}

TYPED_TEST(FixedFirState, TapsAndLineComeBack) {
    using T = TypeParam;
    for (const Rates r : {Rates{}, Rates{3, 0, 2, 0}}) {
        for (const std::size_t tapsLen : {1, 2, 5, 64, 300}) {
            const auto taps = smallTaps<T>(tapsLen, 1);
            const auto line = randomVector<T>(r.line(tapsLen), 2);
            Filter<T> filter(Filter<T>::caller, taps, r, line);
            std::vector<TapOf<T>> got(tapsLen);
            int factor = 1;
            EXPECT_EQ(Members<T>::getTaps(filter.state(), got.data(), &factor), orbStsNoErr);
            EXPECT_TRUE(sameBits(got, taps) && factor == 0);
            EXPECT_TRUE(sameBits(filter.line(), line));
            r.upFactor == 1 ? filter.singly(randomVector<T>(3, 3)) : filter.block(randomVector<T>(4, 3));
            EXPECT_EQ(Members<T>::setDlyLine(filter.state(), line.data()), orbStsNoErr);
            EXPECT_TRUE(sameBits(filter.line(), line));
            EXPECT_EQ(Members<T>::setDlyLine(filter.state(), nullptr), orbStsNoErr);
            EXPECT_TRUE(sameBits(filter.line(), std::vector<T>(line.size())));
        }
    }
}

TEST(FixedFirStateTag, IsReadableInADump) {
    const auto tag = [](const auto& filter) {
        Orb32s word;
        std::memcpy(&word, static_cast<void*>(filter.state()), sizeof word);
        return word;
    };
    const Rates changing{2, 0, 1, 0};
    EXPECT_EQ(tag(Filter<Orb16s>(Filter<Orb16s>::caller, {1})), 0x46493039);
    EXPECT_EQ(tag(Filter<Orb16sc>(Filter<Orb16sc>::caller, {{1, 1}})), 0x46493130);
    EXPECT_EQ(tag(Filter<Orb16s>(Filter<Orb16s>::caller, {1}, changing)), 0x46493131);
    EXPECT_EQ(tag(Filter<Orb16sc>(Filter<Orb16sc>::caller, {{1, 1}}, changing)), 0x46493132);
}

} // namespace
