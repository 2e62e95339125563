#include "fir/fir_member.h"
#include "support/stride.h"

#include <cstring>
#include <malloc.h>

namespace {

using namespace fir;
using support::Guarded;

template <class T>
class FirState : public fir::Test<T> {};
TYPED_TEST_SUITE(FirState, Types);

template <class T>
int stateSize(int tapsLen, int threads) {
    ThreadCount count(threads);
    int size = 0;
    EXPECT_EQ(Members<T>::getStateSize(tapsLen, &size), orbStsNoErr);
    return size;
}

// ---- Sizes ----

TEST(FirStateSize, IsTheOneAgreedUponAndWrapsIn32Bits) {
    const struct {
        int tapsLen, threads, real32, complex32, real64, complex64;
    } table[] = {
        {1, 1, 16624, 33264, 33007, 65808},      {2, 1, 16704, 33280, 33055, 65904},
        {37, 2, 17792, 37888, 34751, 69264},     {63, 8, 18752, 41312, 36095, 71760},
        {1000, 3, 48624, 161056, 80991, 161712}, {70000000, 1, -2054950704, 370098432, -934934337, -1869868880}};
    for (const auto& row : table) {
        EXPECT_EQ(stateSize<Orb32f>(row.tapsLen, row.threads), row.real32) << row.tapsLen;
        EXPECT_EQ(stateSize<Orb32fc>(row.tapsLen, row.threads), row.complex32) << row.tapsLen;
        EXPECT_EQ(stateSize<Orb64f>(row.tapsLen, row.threads), row.real64) << row.tapsLen;
        EXPECT_EQ(stateSize<Orb64fc>(row.tapsLen, row.threads), row.complex64) << row.tapsLen;
    }
}

// From the first length whose size in bytes is no int. InitAlloc, which needs less, is refused further up. Nothing is
// read and nothing is written.
TYPED_TEST(FirState, TooManyTapsAreRefused) {
    using T = TypeParam;
    using M = Members<T>;
    ThreadCount one(1);
    const int first = std::is_same_v<T, Orb32f>    ? 67108346
                      : std::is_same_v<T, Orb32fc> ? 16776958
                      : std::is_same_v<T, Orb64f>  ? 44738557
                                                   : 22368937;
    Guarded<T> taps(1);
    Guarded<Orb8u> buffer(0);
    typename M::State* state = nullptr;
    for (const int tapsLen : {first, 1 << 27, 1 << 29, 1 << 30, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(M::init(&state, taps.data(), tapsLen, nullptr, buffer.data()), orbStsMemAllocErr);
        if (tapsLen == first) continue;
        EXPECT_EQ(M::initAlloc(&state, taps.data(), tapsLen, nullptr), orbStsMemAllocErr);
    }
    EXPECT_EQ(state, nullptr);
}

// A block of exactly the reported size, of any alignment, with the thread count changing as it likes.
TYPED_TEST(FirState, StaysWithinTheReportedSize) {
    using T = TypeParam;
    using M = Members<T>;
    std::vector<int> lengths{511, 1000, 4097};
    for (int n = 1; n <= 200; n += support::stride) lengths.push_back(n);
    for (const int tapsLen : lengths) {
        const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
        const int counts[] = {1, 2, 3, 8};
        const int sized = tapsLen % 4 ? 1 : counts[tapsLen / 4 % 4];
        for (const int shift : {0, 1 + tapsLen % 15, 15}) {
            Guarded<Orb8u> buffer(static_cast<std::size_t>(stateSize<T>(tapsLen, sized)), support::Edge::end,
                                  static_cast<std::size_t>(shift));
            ThreadCount now(tapsLen % 32 == 0 ? 8 : 1);
            typename M::State* state = nullptr;
            ASSERT_EQ(M::init(&state, taps.data(), tapsLen, taps.data(), buffer.data()), orbStsNoErr);
            ASSERT_GE(reinterpret_cast<Orb8u*>(state), buffer.data());
            const int head = (tapsLen + 3) / 4 * 4 + 1;
            std::vector<T> x(static_cast<std::size_t>(std::max(4200, head + 1)));
            // The samples one by one take the line to the far end of its buffer, a block of head goes behind it.
            for (int n = 0; n < tapsLen - 1; ++n) M::one(x[0], x.data(), state);
            M::filter(x.data(), std::vector<T>(x.size()).data(), head, state);
            for (int n = 0; n < tapsLen + 1; ++n) M::one(x[0], x.data(), state);
            M::filter(x.data(), std::vector<T>(x.size()).data(), head + 1, state);
            M::filterInPlace(x.data(), static_cast<int>(x.size()), state);
            M::setTaps(taps.data(), state);
            M::setDlyLine(state, nullptr);
            ASSERT_TRUE(buffer.intact()) << tapsLen << " " << shift;
        }
    }
}

// The FFT way reads and writes no further than numIters either.
TYPED_TEST(FirState, FilteringStaysWithinTheVectors) {
    using T = TypeParam;
    for (const int tapsLen : {5, fftFrom<T>, 100}) {
        const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
        Filter<T> filter(Filter<T>::allocated, taps);
        for (const std::size_t count : {1u, 7u, 40u, 512u, 700u, 1601u, 2047u}) {
            Guarded<T> x(count), y(count);
            std::fill(x.begin(), x.end(), T{});
            EXPECT_EQ(Members<T>::filter(x.data(), y.data(), static_cast<int>(count), filter.state()), orbStsNoErr);
            EXPECT_EQ(Members<T>::filterInPlace(x.data(), static_cast<int>(count), filter.state()), orbStsNoErr);
            EXPECT_TRUE(x.intact() && y.intact());
        }
    }
}

// ---- Taps and delay line ----

TYPED_TEST(FirState, TapsAndLineComeBackBitForBit) {
    using T = TypeParam;
    using M = Members<T>;
    for (const std::size_t tapsLen : {1, 2, 5, 64, 300}) {
        SCOPED_TRACE(testing::Message() << tapsLen << " taps");
        auto taps = randomVector<T>(tapsLen, 1), line = randomVector<T>(tapsLen, 2);
        const Part<T> special[] = {std::numeric_limits<Part<T>>::quiet_NaN(), Part<T>(-0.0),
                                   std::numeric_limits<Part<T>>::denorm_min(),
                                   std::numeric_limits<Part<T>>::infinity()};
        std::memcpy(taps.data(), special, std::min(sizeof special, tapsLen * sizeof(T)));
        for (const auto where : {Filter<T>::caller, Filter<T>::allocated}) {
            Filter<T> filter(where, randomVector<T>(tapsLen, 3), line);
            EXPECT_TRUE(sameBits(filter.line(), line));
            std::vector<T> got(tapsLen);
            EXPECT_EQ(M::setTaps(taps.data(), filter.state()), orbStsNoErr);
            EXPECT_EQ(M::getTaps(filter.state(), got.data()), orbStsNoErr);
            EXPECT_TRUE(sameBits(got, taps));

            const auto x = randomVector<T>(tapsLen / 2 + 1, 4);
            filter.singly(x);
            EXPECT_TRUE(sameBits(filter.line(), lineAfter(line, x)));
            EXPECT_EQ(M::setDlyLine(filter.state(), line.data()), orbStsNoErr);
            EXPECT_TRUE(sameBits(filter.line(), line));
            filter.singly(x);
            EXPECT_EQ(M::setDlyLine(filter.state(), nullptr), orbStsNoErr);
            EXPECT_TRUE(sameBits(filter.line(), std::vector<T>(tapsLen)));
        }
    }
}

// A filter whose taps were replaced is the filter that was made with them, on all its ways.
TYPED_TEST(FirState, ReplacedTapsTakeEffectEverywhere) {
    using T = TypeParam;
    using F = Filter<T>;
    const auto before = randomVector<T>(90, 1), after = randomVector<T>(90, 2), x = randomVector<T>(6000, 3);
    for (const auto where : {F::caller, F::allocated}) {
        SCOPED_TRACE(where == F::caller ? "in the caller's block" : "allocated");
        F changed(where, before);
        changed.block(x);
        EXPECT_EQ(Members<T>::setTaps(after.data(), changed.state()), orbStsNoErr);
        F fresh(where, after, changed.line());
        EXPECT_TRUE(sameBits(changed.block(x), fresh.block(x)));
        EXPECT_TRUE(sameBits(changed.inPlace(x), fresh.inPlace(x)));
        EXPECT_TRUE(sameBits(changed.singly(slice(x, 0, 100)), fresh.singly(slice(x, 0, 100))));
    }
}

// ---- Life ----

// From here to the end of what was allocated.
std::size_t bytesFrom(const void* aligned) {
    void* raw;
    std::memcpy(&raw, static_cast<const char*>(aligned) - sizeof raw, sizeof raw);
    return malloc_usable_size(raw) -
           static_cast<std::size_t>(static_cast<const char*>(aligned) - static_cast<char*>(raw));
}

TYPED_TEST(FirState, LivesOnInACopyOfItsBlock) {
    using T = TypeParam;
    using M = Members<T>;
    using F = Filter<T>;
    const auto taps = randomVector<T>(150, 1), other = randomVector<T>(150, 2), x = randomVector<T>(5000, 3);
    F untouched(F::allocated, taps);
    untouched.block(x);
    typename M::State* original = nullptr;
    ASSERT_EQ(M::initAlloc(&original, taps.data(), 150, nullptr), orbStsNoErr);
    std::vector<T> y(x.size()), z = x;
    ASSERT_EQ(M::filter(x.data(), y.data(), 5000, original), orbStsNoErr);

    const std::size_t size = bytesFrom(original);
    auto* const block = orbsMalloc_8u(static_cast<int>(size));
    std::memcpy(block, static_cast<void*>(original), size);
    std::memset(static_cast<void*>(original), 0xff, size);
    orbsFree(original);

    auto* const copy = reinterpret_cast<typename M::State*>(block);
    for (const auto& newTaps : {taps, other}) {
        EXPECT_EQ(M::setTaps(newTaps.data(), untouched.state()), orbStsNoErr);
        EXPECT_EQ(M::setTaps(newTaps.data(), copy), orbStsNoErr);
        EXPECT_EQ(M::filter(x.data(), y.data(), 5000, copy), orbStsNoErr);
        EXPECT_TRUE(sameBits(y, untouched.block(x)));
        EXPECT_EQ(M::filterInPlace(z.data(), 5000, copy), orbStsNoErr);
        EXPECT_TRUE(sameBits(z, untouched.inPlace(x)));
        EXPECT_EQ(M::one(x[0], y.data(), copy), orbStsNoErr);
        EXPECT_TRUE(sameBits(y.data(), untouched.singly(slice(x, 0, 1)).data(), 1));
        z = x;
    }
    EXPECT_EQ(M::free(copy), orbStsNoErr);
}

TYPED_TEST(FirState, AStateInTheCallersBlockOutlivesFree) {
    using T = TypeParam;
    const auto taps = randomVector<T>(3, 1), x = randomVector<T>(9, 2);
    Filter<T> freed(Filter<T>::caller, taps), filter(Filter<T>::caller, taps);
    EXPECT_EQ(Members<T>::free(freed.state()), orbStsNoErr);
    EXPECT_TRUE(sameBits(freed.block(x), filter.block(x)));
}

// Most significant byte first: 'F', 'I', two digits of the member.
TEST(FirStateTag, IsReadableInADump) {
    const Filter<Orb32f> filter(Filter<Orb32f>::caller, randomVector<Orb32f>(3));
    Orb32s tag;
    std::memcpy(&tag, static_cast<void*>(filter.state()), sizeof tag);
    EXPECT_EQ(tag, 0x46493031);
}

} // namespace
