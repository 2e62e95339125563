#include "iir/iir_member.h"

#include <numeric>

namespace {

using namespace iir;

template <class K>
class Iir : public iir::Test<K> {};
TYPED_TEST_SUITE(Iir, Kinds);

const Shape shapes[] = {{Form::anyOrder, 1}, {Form::anyOrder, 2}, {Form::anyOrder, 3},  {Form::anyOrder, 4},
                        {Form::anyOrder, 7}, {Form::anyOrder, 8}, {Form::anyOrder, 13}, {Form::anyOrder, 40},
                        {Form::biQuad, 1},   {Form::biQuad, 2},   {Form::biQuad, 3},    {Form::biQuad, 4},
                        {Form::biQuad, 5},   {Form::biQuad, 9}};

// Samples of parts in -1 to 1, or of integers that leave room for the gain of a filter.
template <class K>
std::vector<typename K::Sample> moderate(std::size_t count, std::uint64_t seed) {
    using Sample = typename K::Sample;
    auto x = randomVector<Sample>(count, seed);
    if constexpr (std::is_integral_v<Part<Sample>>)
        for (Sample& sample : x) sample = narrow<Sample>(wide(sample) * Wide{1 / 16.0L, 0});
    return x;
}

// ---- Results ----

// A stream cut into single samples, blocks around every limit, and blocks of several chunks, some in place.
TYPED_TEST(Iir, AStreamIsFilteredHoweverItIsCut) {
    using K = TypeParam;
    for (const Shape& shape : shapes) {
        const std::size_t limit = shape.longestSingly();
        const std::size_t cuts[] = {1, 3, limit, limit + 1, 1, limit + 2, limit + 3, limit + 4, 1025, limit, 2, 29, 1};
        const auto taps = fadingTaps<K>(shape, 0.9, 1 + shape.size);
        const auto line = randomLine<K>(shape, 2);
        const auto x = moderate<K>(std::accumulate(std::begin(cuts), std::end(cuts), std::size_t{0}), 3);
        const int s = K::isScaled ? 2 : 0;
        Filter<K> filter(shape, taps, line);
        std::vector<typename K::Sample> y;
        for (const std::size_t count : cuts) {
            const auto samples = slice(x, y.size(), count);
            append(y, count == 1       ? filter.singly(samples, s)
                      : count % 2 == 0 ? filter.block(samples, s)
                                       : filter.inPlace(samples, s));
        }
        const Exact want = exactly<K>(shape, taps, line, x, rounding<K>());
        expectOutputs<K>(y, want, shape, s);
        expectLine<K>(filter.line(), want, shape);
    }
}

// An a[0] that is no power of two: each tap is off by three roundings more, of some 64 on the way to an output.
TYPED_TEST(Iir, TapsAreDividedByTheFirst) {
    using K = TypeParam;
    if constexpr (K::hasTapsFactor) return;
    for (const Shape shape : {Shape{Form::anyOrder, 2}, Shape{Form::biQuad, 1}}) {
        const Wide a0 = isComplexKind<K> ? Wide{0.6L, -0.8L} : Wide{1.2L, 0};
        const auto taps = fadingTaps<K>(shape, 0.5, 5);
        auto multiplied = taps;
        for (auto& tap : multiplied) tap = narrow<typename K::Tap>(wide(tap) * a0);
        const auto line = randomLine<K>(shape, 6);
        const auto x = moderate<K>(100, 7);
        Exact want = exactly<K>(shape, taps, line, x, rounding<K>());
        for (auto& off : want.offY) off *= 2;
        expectOutputs<K>(Filter<K>(shape, multiplied, line).block(x), want, shape);
    }
}

// Up to four times the order, a block is its samples one by one, to the bit.
TYPED_TEST(Iir, ShortBlocksGoSampleBySample) {
    using K = TypeParam;
    for (const Shape& shape : shapes) {
        const auto taps = fadingTaps<K>(shape, 0.9, 1);
        const auto line = randomLine<K>(shape, 2);
        const auto x = moderate<K>(shape.longestSingly(), 3);
        Filter<K> blocks(shape, taps, line), singles(shape, taps, line);
        EXPECT_TRUE(sameBits(blocks.block(x), singles.singly(x), x)) << shape;
        EXPECT_TRUE(sameBits(blocks.line(), singles.line())) << shape;
    }
}

// The formula of the single sample, operation by operation.
template <class K>
void expectTheFormula() {
    using T = typename K::Tap;
    for (const Shape& shape : shapes) {
        const std::size_t N = shape.order();
        auto taps = fadingTaps<K>(shape, 0.9, 1);
        auto D = randomLine<K>(shape, 2);
        const auto x = moderate<K>(60, 3);
        std::vector<T> want;
        for (const T sample : x) {
            T y = sample;
            for (std::size_t s = 0; s < shape.sections(); ++s) {
                const T in = y, *const a = &taps[shape.a0(s)], *const b = a - N - 1, c = 1 / a[0];
                T* const delays = &D[s * N];
                y = b[0] * c * in + delays[0];
                for (std::size_t i = 0; i < N; ++i)
                    delays[i] = b[i + 1] * c * in - a[i + 1] * c * y + (i + 1 < N ? delays[i + 1] : 0);
            }
            want.push_back(y);
        }
        Filter<K> filter(shape, taps, randomLine<K>(shape, 2));
        EXPECT_TRUE(sameBits(filter.singly(x), want, x)) << shape;
        EXPECT_TRUE(sameBits(filter.line(), D)) << shape;
    }
}
TEST(IirOne, TakesTheStepsOfTheFormula) {
    expectTheFormula<Kind32f>();
    expectTheFormula<Kind64f>();
}

// In place, in chunks of 1024, and in a state of InitAlloc the bits are the same.
TYPED_TEST(Iir, BlocksAreCutIntoChunksAndMayBeReplaced) {
    using K = TypeParam;
    for (const Shape& shape : shapes) {
        const auto taps = fadingTaps<K>(shape, 0.9, 1);
        const auto line = randomLine<K>(shape, 2);
        const auto x = moderate<K>(2500, 3);
        Filter<K> whole(shape, taps, line), chunks(shape, taps, line), inPlace(shape, taps, line, Filter<K>::allocated);
        const auto y = whole.block(x);
        auto pieces = chunks.block(slice(x, 0, 1024));
        append(pieces, chunks.block(slice(x, 1024, 1024)));
        append(pieces, chunks.block(slice(x, 2048, 452)));
        EXPECT_TRUE(sameBits(pieces, y, x)) << shape;
        EXPECT_TRUE(sameBits(inPlace.inPlace(x), y, x)) << shape;
        EXPECT_TRUE(sameBits(inPlace.line(), whole.line())) << shape;
        EXPECT_TRUE(sameBits(chunks.line(), whole.line())) << shape;
    }
}

// An infinity or NaN reaches no output before its own, and all of them from there on.
TYPED_TEST(Iir, WhatIsNoNumberSpoilsNoEarlierOutput) {
    using K = TypeParam;
    using P = Part<typename K::Sample>;
    if constexpr (std::is_integral_v<P>) return;
    for (const Shape& shape : shapes) {
        const auto taps = fadingTaps<K>(shape, 0.9, 1);
        const auto x = moderate<K>(8 * shape.size + 21, 3);
        Filter<K> clean(shape, taps);
        const auto want = clean.block(x);
        for (std::size_t at = x.size() - 9; at < x.size(); ++at) {
            for (const P bad : {std::numeric_limits<P>::infinity(), std::numeric_limits<P>::quiet_NaN()}) {
                auto spoiled = x;
                reinterpret_cast<P*>(&spoiled[at])[0] = bad;
                Filter<K> filter(shape, taps);
                const auto y = filter.block(spoiled);
                EXPECT_TRUE(sameBits(y.data(), want.data(), at)) << shape << ", spoiled at " << at;
                for (std::size_t n = at; n < x.size(); ++n) EXPECT_FALSE(std::isfinite(wide(y[n]).magnitude())) << n;
            }
        }
    }
}

// ---- Integers on their way out ----

template <class K>
class IirScaled : public iir::Test<K> {};
using ScaledKinds = testing::Types<Kind32f16s, Kind32fc16sc, Kind32s16s, Kind32sc16sc, Kind32s16s32f, Kind32sc16sc32fc,
                                   Kind64f32s, Kind64fc32sc, Kind64f16s, Kind64fc16sc>;
TYPED_TEST_SUITE(IirScaled, ScaledKinds);

// b of a single tap, and a b[1] of nearly nothing.
template <class K>
std::vector<typename K::Tap> gain(double b0, double b1 = 0) {
    const Wide all[] = {{b0, 0}, {b1, 0}, {}, {1, 0}, {}, {}};
    std::vector<typename K::Tap> taps;
    for (const Wide& w : all) taps.push_back(tap<K>(w));
    return taps;
}

// Of samples that pass unchanged: 2^-s as it stands for single samples, modulo 128 for blocks.
TYPED_TEST(IirScaled, OutputsAreScaledRoundedToEvenAndSaturated) {
    using K = TypeParam;
    using Sample = typename K::Sample;
    using Limits = std::numeric_limits<Part<Sample>>;
    auto x = randomVector<Sample>(60, 1);
    for (int n = -20; n < 20; ++n) x.push_back(narrow<Sample>({static_cast<long double>(n), 7}));
    x.push_back(narrow<Sample>({32767, -32768}));
    x.push_back(narrow<Sample>({-32768, 32767}));
    const auto scaled = [](Wide w, int s) {
        const auto part = [&](long double v) {
            return std::clamp<long double>(std::nearbyint(std::ldexp(v, -s)), Limits::min(), Limits::max());
        };
        return narrow<Sample>({part(w.re), part(w.im)});
    };
    std::vector<int> factors{
        1000, -1000, 1022, -1023, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (int s = -140; s <= 140; ++s) factors.push_back(s);
    for (const Form form : forms) {
        const Shape shape{form, form == Form::biQuad ? 1u : 2u};
        for (const int s : factors) {
            std::vector<Sample> blocks, singles;
            for (const Sample& sample : x) {
                blocks.push_back(scaled(wide(sample), s % 128));
                singles.push_back(scaled(wide(sample), std::clamp(s, -1023, 1022)));
            }
            Filter<K> filter(shape, gain<K>(1));
            EXPECT_TRUE(sameBits(filter.block(x, s), blocks, x)) << "a block with scale factor " << s;
            EXPECT_TRUE(sameBits(filter.singly(x, s), singles, x)) << "single samples with scale factor " << s;
            EXPECT_TRUE(sameBits(filter.block(slice(x, 0, 3), s), slice(blocks, 0, 3), x)) << s;
        }
    }
}

// Sums that saturate, and sums that the scale factor leaves nothing of, come out of the recursion whole.
TYPED_TEST(IirScaled, TheRecursionGoesOnUnrounded) {
    using K = TypeParam;
    using Sample = typename K::Sample;
    for (const Form form : forms) {
        const Shape shape{form, form == Form::biQuad ? 1u : 2u};
        const Wide one{1, 0}, minusOne{-1, 0};
        std::vector<typename K::Tap> taps(6);
        taps[0] = taps[3] = tap<K>(one), taps[4] = tap<K>(minusOne); // y[n] = x[n] + y[n-1]
        for (const bool singly : {false, true}) {
            Filter<K> filter(shape, taps);
            const auto filtered = [&](long double value, std::size_t count, int s) {
                const std::vector<Sample> x(count, narrow<Sample>({value, isComplexKind<K> ? -value : 0}));
                return wide(singly ? filter.singly(x, s) : filter.block(x, s)).back();
            };
            EXPECT_EQ(filtered(25000, 30, 40).re, 0);
            EXPECT_EQ(filtered(25000, 30, 10).re, std::nearbyint(1500000 / 1024.0)) << singly;
            filtered(25000, 30, -17);
            EXPECT_EQ(filtered(-25000, 91, 0).re, -25000) << singly;
        }
    }
}

TYPED_TEST(IirScaled, ANanBecomesTheLeastValue) {
    using K = TypeParam;
    using Sample = typename K::Sample;
    if constexpr (K::hasTapsFactor) return;
    for (const Form form : forms) {
        const Shape shape{form, form == Form::biQuad ? 1u : 2u};
        for (const int s : {0, -3, 7}) {
            Filter<K> blocks(shape, gain<K>(1, NAN)), singles(shape, gain<K>(1, NAN));
            const std::vector<Sample> x(20, narrow<Sample>({5, 5}));
            const auto y = blocks.block(x, s), z = singles.singly(x, s);
            const long double least = std::numeric_limits<Part<Sample>>::min();
            for (std::size_t n = 1; n < x.size(); ++n) {
                EXPECT_EQ(wide(y[n]).re, least) << "output " << n << " of a block, scale factor " << s;
                EXPECT_EQ(wide(z[n]).re, least) << "output " << n << ", scale factor " << s;
            }
        }
    }
}

} // namespace
