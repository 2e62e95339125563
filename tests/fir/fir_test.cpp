#include "fir/fir_member.h"

#include <algorithm>
#include <array>

namespace {

using namespace fir;

template <class T>
class Fir : public fir::Test<T> {};
TYPED_TEST_SUITE(Fir, Types);

TYPED_TEST(Fir, BlocksOfAllShortLengthsMatchTheSum) {
    using F = Filter<TypeParam>;
    for (const std::size_t tapsLen : {1, 2, 3, 4, 5, 8, 11, 12, 13, 31, 32, 33, 70}) {
        const auto taps = randomVector<TypeParam>(tapsLen, 1), line = randomVector<TypeParam>(tapsLen, 2);
        // One block within the delay buffer at most 5 samples longer than the taps, and from there on beyond it.
        for (std::size_t count = 1; count < tapsLen + 40; ++count) {
            const auto x = randomVector<TypeParam>(count, 3);
            F filter(F::caller, taps, line);
            const auto y = filter.block(x);
            expectSums(y, exactOutputs(taps, line, x), tapsLen);
            EXPECT_TRUE(sameBits(filter.line(), lineAfter(line, x))) << tapsLen << " taps, " << count << " samples";
            F inPlace(F::caller, taps, line);
            EXPECT_TRUE(sameBits(inPlace.inPlace(x), y)) << tapsLen << " taps";
        }
    }
}

TYPED_TEST(Fir, AStreamMayBeCutAnywhere) {
    using F = Filter<TypeParam>;
    support::Random random(5);
    for (const std::size_t tapsLen : {1, 2, 7, 12, 40, 129}) {
        const auto taps = randomVector<TypeParam>(tapsLen, 1), line = randomVector<TypeParam>(tapsLen, 2),
                   x = randomVector<TypeParam>(6000, 3);
        F whole(F::caller, taps, line), cut(F::caller, taps, line);
        const auto y = whole.block(x);
        const auto exact = exactOutputs(taps, line, x);
        expectSums(y, exact, tapsLen);
        for (std::size_t n = 0, count; n < x.size(); n += count) {
            count = std::min<std::size_t>(x.size() - n, 1 + random() % (random() % 4 ? 2 * tapsLen + 6 : 1000));
            const auto part = slice(x, n, count);
            switch (random() % 3) {
            case 0:
                ASSERT_TRUE(sameBits(cut.block(part), slice(y, n, count))) << tapsLen << " taps, from sample " << n;
                break;
            case 1:
                ASSERT_TRUE(sameBits(cut.inPlace(part), slice(y, n, count))) << tapsLen << " taps, from sample " << n;
                break;
            default: {
                const auto wanted = slice(exact, n, count);
                expectSums(cut.singly(part), wanted, tapsLen);
            }
            }
        }
        EXPECT_TRUE(sameBits(cut.line(), whole.line())) << tapsLen << " taps";
    }
}

// The sum of h[k] * x[k], k upwards, in the type of the samples; complex: by the real and by the imaginary parts of h.
template <class T>
T inOrder(const T* h, const T* x, std::size_t count) {
    T byRe{}, byIm{};
    for (std::size_t k = 0; k < count; ++k) {
        if constexpr (isComplex<T>) {
            byRe.re += h[k].re * x[k].re, byRe.im += h[k].re * x[k].im;
            byIm.re += h[k].im * x[k].re, byIm.im += h[k].im * x[k].im;
        } else {
            byRe += h[k] * x[k];
        }
    }
    if constexpr (isComplex<T>) return {byRe.re - byIm.im, byRe.im + byIm.re};
    return byRe;
}

// Eight sums of every eighth product of the real parts but the newest sample's, what is left over from eights first;
// then the newest.
template <class T>
T inLanes(const T* h, const T* x, std::size_t count) {
    const auto *a = reinterpret_cast<const Part<T>*>(h), *b = reinterpret_cast<const Part<T>*>(x);
    std::array<Part<T>, 8> straight{}, crossed{};
    const std::size_t older = (count - 1) * parts<T>, left = older % 8;
    for (std::size_t n = 0; n < older; ++n) {
        const std::size_t lane = n < left ? n : (n - left) % 8;
        straight[lane] += a[n] * b[n];
        if (parts<T> == 2) crossed[lane] += a[n] * b[n ^ 1];
    }
    const auto fold = [](const std::array<Part<T>, 8>& s, std::size_t j) {
        return (s[j] + s[j + 4]) + (s[j + 2] + s[j + 6]);
    };
    if constexpr (isComplex<T>) {
        const T tap = h[count - 1], newest = x[count - 1];
        return {(fold(straight, 0) + tap.re * newest.re) - (fold(straight, 1) + tap.im * newest.im),
                (fold(crossed, 0) + tap.re * newest.im) + (fold(crossed, 1) + tap.im * newest.re)};
    } else {
        return (fold(straight, 0) + fold(straight, 1)) + a[older] * b[older];
    }
}

// These orders make results equal in every tier and ABI, so they are compared bit by bit.
TYPED_TEST(Fir, OrdersOfSummationAreFixed) {
    using F = Filter<TypeParam>;
    for (std::size_t tapsLen = 1; tapsLen < 50; ++tapsLen) {
        const auto taps = randomVector<TypeParam>(tapsLen, 1), x = randomVector<TypeParam>(200, 2);
        const std::vector<TypeParam> reversed(taps.rbegin(), taps.rend());
        std::vector<TypeParam> stream(tapsLen), block, single;
        stream.insert(stream.end(), x.begin(), x.end());
        for (std::size_t n = 0; n < x.size(); ++n) {
            block.push_back(inOrder(reversed.data(), &stream[n + 1], tapsLen));
            single.push_back(tapsLen < 12 ? block[n] : inLanes(reversed.data(), &stream[n + 1], tapsLen));
        }
        F filter(F::caller, taps), singly(F::caller, taps);
        EXPECT_TRUE(sameBits(filter.block(x), block)) << tapsLen << " taps";
        EXPECT_TRUE(sameBits(singly.singly(x), single)) << tapsLen << " taps";
    }
}

// All values times a power of two.
template <class T>
std::vector<T> scaled(std::vector<T> v, Part<T> factor) {
    auto* const first = reinterpret_cast<Part<T>*>(v.data());
    std::transform(first, first + v.size() * parts<T>, first, [=](Part<T> value) { return factor * value; });
    return v;
}

TYPED_TEST(Fir, AnImpulseGivesTheTapsAndScalingIsExact) {
    using F = Filter<TypeParam>;
    const auto taps = randomVector<TypeParam>(100, 1), x = randomVector<TypeParam>(3000, 2);
    std::vector<TypeParam> impulse(700), response = taps;
    reinterpret_cast<Part<TypeParam>&>(impulse[0]) = 1;
    response.resize(impulse.size());
    F direct(F::caller, taps), directScaled(F::caller, taps), fft(F::allocated, taps), fftScaled(F::allocated, taps);
    EXPECT_TRUE(sameBits(direct.block(impulse), response));
    expectTransformed(fft.block(impulse), exactOutputs(taps, std::vector<TypeParam>(100), impulse), taps);
    // The streams differ by 700 zeros or an impulse that has left the line by now.
    EXPECT_TRUE(sameBits(directScaled.block(scaled(x, 4)), scaled(direct.block(x), 4)));
    EXPECT_TRUE(sameBits(fftScaled.block(scaled(x, 0.5)), scaled(fft.block(x), 0.5)));
}

// ---- Which way a block goes: the ways round differently, so their bits tell. ----

template <class T>
bool wentDirect(int tapsLen, int numIters) {
    const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
    const auto x = randomVector<T>(static_cast<std::size_t>(numIters), 2);
    Filter<T> direct(Filter<T>::caller, taps), filter(Filter<T>::allocated, taps);
    return bool(sameBits(filter.block(x), direct.block(x)));
}

TYPED_TEST(Fir, LongBlocksGoThroughTheFftOfAnAllocatedState) {
    using T = TypeParam;
    EXPECT_TRUE(wentDirect<T>(fftFrom<T> - 1, 5000));
    EXPECT_TRUE(wentDirect<T>(fftFrom<T>, fftAbove<T>));
    EXPECT_FALSE(wentDirect<T>(fftFrom<T>, fftAbove<T> + 1));
    EXPECT_TRUE(wentDirect<T>(1000, fftAbove<T>));
    EXPECT_FALSE(wentDirect<T>(1000, fftAbove<T> + 1));
}

TYPED_TEST(Fir, ChunksOfAnInPlaceCallGoByWhatIsLeftBehindThem) {
    using T = TypeParam;
    using F = Filter<T>;
    const auto taps = randomVector<T>(100, 1), line = randomVector<T>(100, 2);
    const int above = fftAbove<T>;
    // {samples, how many of them go through the FFT}
    const int cases[][2] = {
        {above + 1, 0},       {4096, 0},           {4097, 0}, {4096 + above, 0}, {4097 + above, 4096}, {8192, 4096},
        {8192 + above, 4096}, {8193 + above, 8192}};
    for (const auto& [count, transformed] : cases) {
        const auto x = randomVector<T>(static_cast<std::size_t>(count), 3);
        F direct(F::caller, taps, line), filter(F::allocated, taps, line), chunks(F::allocated, taps, line);
        const auto y = filter.inPlace(x);
        auto wanted = direct.block(x);
        for (int n = 0; n < transformed; n += 4096) {
            const auto chunk = chunks.block(slice(x, static_cast<std::size_t>(n), 4096));
            EXPECT_FALSE(sameBits(chunk.data(), &wanted[static_cast<std::size_t>(n)], 4096));
            std::copy(chunk.begin(), chunk.end(), wanted.begin() + n);
        }
        EXPECT_TRUE(sameBits(y, wanted)) << count << " samples";
        EXPECT_TRUE(sameBits(filter.line(), direct.line())) << count << " samples";
    }
}

TYPED_TEST(Fir, TransformedBlocksMatchTheSum) {
    using T = TypeParam;
    using F = Filter<T>;
    for (const int tapsLen : {fftFrom<T>, 65, 127, 128, 700}) {
        if (tapsLen < fftFrom<T>) continue;
        const int run = fftLength(tapsLen) - tapsLen + 1, least = fftAbove<T> + 1, team = teamAbove<T>;
        const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
        auto line = randomVector<T>(static_cast<std::size_t>(tapsLen), 2);
        F filter(F::allocated, taps, line);
        // Below the taps, then around whole runs, in one stream, with single samples between that move the line within
        // its buffer.
        for (const int count :
             {least, least, run, run + 1, 2 * run - 1, 2 * run, 3 * run + tapsLen - 1, team, team + 1, 2500}) {
            if (count < least) continue;
            const auto x = randomVector<T>(static_cast<std::size_t>(count), 3);
            expectTransformed(filter.block(x), exactOutputs(taps, line, x), taps);
            line = lineAfter(line, x);
            EXPECT_TRUE(sameBits(filter.line(), line)) << tapsLen << " taps, " << count << " samples";
            const auto few = randomVector<T>(5, 4);
            expectSums(filter.singly(few), exactOutputs(taps, line, few), taps.size());
            line = lineAfter(line, few);
        }
    }
}

// A NaN among the samples spoils the outputs of its run and no other, which shows how long the transforms are.
TYPED_TEST(Fir, ANanSpoilsExactlyItsRun) {
    using T = TypeParam;
    const auto isSpoiled = [](const T& y) {
        const auto* const part = reinterpret_cast<const Part<T>*>(&y);
        return std::any_of(part, part + parts<T>, [](Part<T> value) { return value != value; });
    };
    for (const int tapsLen : {fftFrom<T>, 64, 65, 100, 127, 128, 129, 256}) {
        const int run = fftLength(tapsLen) - tapsLen + 1;
        std::vector<T> x(static_cast<std::size_t>(std::max(3 * run, fftAbove<T> + 1)));
        reinterpret_cast<Part<T>&>(x[static_cast<std::size_t>(run)]) = std::numeric_limits<Part<T>>::quiet_NaN();
        Filter<T> filter(Filter<T>::allocated, randomVector<T>(static_cast<std::size_t>(tapsLen)));
        const auto y = filter.block(x);
        const auto first = std::ranges::find_if(y, isSpoiled), last = std::find_if_not(first, y.end(), isSpoiled);
        EXPECT_TRUE(first - y.begin() == run && last - first == run && std::none_of(last, y.end(), isSpoiled))
            << tapsLen << " taps: sample " << run << " spoils outputs from " << first - y.begin() << " to "
            << last - y.begin() - 1 << "; a transform of " << fftLength(tapsLen) << " points has runs of " << run;
    }
}

// ---- Threads ----

TYPED_TEST(Fir, TheThreadCountChangesNothing) {
    using T = TypeParam;
    using F = Filter<T>;
    const auto taps = randomVector<T>(150, 1), line = randomVector<T>(150, 2), x = randomVector<T>(9000, 3);
    std::vector<T> filtered, inPlace, direct;
    for (const int built : {1, 2, 3, 8}) {
        for (const int used : {1, 2, 3, 8}) {
            ThreadCount before(built);
            F allocated(F::allocated, taps, line), again(F::allocated, taps, line), caller(F::caller, taps, line);
            ThreadCount now(used);
            const auto y = allocated.block(x), z = again.inPlace(x), d = caller.block(x);
            if (filtered.empty()) filtered = y, inPlace = z, direct = d;
            SCOPED_TRACE(testing::Message() << "made with " << built << " threads, run with " << used);
            EXPECT_TRUE(sameBits(y, filtered));
            EXPECT_TRUE(sameBits(z, inPlace));
            EXPECT_TRUE(sameBits(d, direct));
        }
    }
}

// The lengths around the one from which a team is asked for, and rests of a head shorter than the team.
TYPED_TEST(Fir, TeamsShareDirectBlocksOfAnyRest) {
    using T = TypeParam;
    using F = Filter<T>;
    ThreadCount eight(8);
    const int team = teamAbove<T>;
    for (const int tapsLen : {3, team - 8, team - 3, team, team + 1}) {
        const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
        const auto x = randomVector<T>(static_cast<std::size_t>(team) + 9, 2);
        F pieces(F::caller, taps);
        const auto first = pieces.block(slice(x, 0, 700)), second = pieces.block(slice(x, 700, x.size() - 700));
        for (const int count : {team, team + 1, team + 9}) {
            F filter(F::caller, taps);
            const auto y = filter.block(slice(x, 0, static_cast<std::size_t>(count)));
            EXPECT_TRUE(sameBits(slice(y, 0, 700), first)) << tapsLen << " taps, " << count << " samples";
            EXPECT_TRUE(sameBits(slice(y, 700, y.size() - 700), slice(second, 0, y.size() - 700)))
                << tapsLen << " taps, " << count << " samples";
        }
    }
}

// ---- Arguments ----

TYPED_TEST(Fir, ArgumentsAreTestedInOrder) {
    using T = TypeParam;
    using M = Members<T>;
    using Other = std::conditional_t<std::is_same_v<T, Orb64f>, Orb32f, Orb64f>;
    Filter<T> filter(Filter<T>::caller, randomVector<T>(3));
    Filter<Other> other(Filter<Other>::caller, randomVector<Other>(3));
    auto* const state = filter.state();
    auto* const foreign = reinterpret_cast<typename M::State*>(other.state());
    T x[2] = {}, y[2] = {};
    EXPECT_EQ(M::filter(nullptr, y, 0, foreign), orbStsNullPtrErr);
    EXPECT_EQ(M::filter(x, nullptr, 0, foreign), orbStsNullPtrErr);
    EXPECT_EQ(M::filter(x, y, 0, nullptr), orbStsNullPtrErr);
    EXPECT_EQ(M::filter(x, y, 0, foreign), orbStsSizeErr);
    EXPECT_EQ(M::filter(x, y, -1, state), orbStsSizeErr);
    EXPECT_EQ(M::filter(x, y, 1, foreign), orbStsContextMatchErr);
    EXPECT_EQ(M::filterInPlace(nullptr, 0, foreign), orbStsNullPtrErr);
    EXPECT_EQ(M::filterInPlace(x, 0, nullptr), orbStsNullPtrErr);
    EXPECT_EQ(M::filterInPlace(x, 0, foreign), orbStsSizeErr);
    EXPECT_EQ(M::filterInPlace(x, 1, foreign), orbStsContextMatchErr);
    EXPECT_EQ(M::one(x[0], nullptr, foreign), orbStsNullPtrErr);
    EXPECT_EQ(M::one(x[0], y, nullptr), orbStsNullPtrErr);
    EXPECT_EQ(M::one(x[0], y, foreign), orbStsContextMatchErr);
}

} // namespace
