#include "support/unary_member.h"

#include <cmath>

namespace {

using namespace unary_member;

// ---- One sample ----

float single(float x) { // rounded to single precision whatever the compiler holds
    volatile float v = x;
    return v;
}
long double limited(long double x, long double lowest, long double highest) {
    return std::isnan(x) ? highest : std::clamp(x, lowest, highest);
}

Orb16s rounded(float x) {
    return static_cast<Orb16s>(std::nearbyint(limited(x, -32768, 32767)));
}
Orb16s fullScale16(float x) {
    const float v = static_cast<float>(limited(x, -1, 1));
    return static_cast<Orb16s>(std::nearbyint(single(single(v * 32767.5f) - 0.5f)));
}
Orb24s fullScale24(float x) { // 24 bits by 24 and the half are exact in double precision, but for small samples
    const volatile double product = static_cast<double>(limited(x, -1, 1)) * 8388607.5;
    const volatile double moved = product - 0.5;
    return packed24<Orb24s>(static_cast<Orb32s>(std::nearbyint(moved)));
}
float fraction16(Orb16s x) {
    return single(single(x * 3.0518044e-5f) + 1.5259022e-5f);
}
float fraction24(Orb24s x) {
    const volatile double product = valueOf(x) * 1.19209296656209e-7;
    return static_cast<float>(product + 5.96046483281045e-8);
}

// ---- All channels ----

std::vector<float> samples(std::size_t count, float scale) {
    auto values = support::randomVector<float>(count);
    const float special[] = {NAN,       -NAN,   INFINITY,  -INFINITY,      0.0f,  -0.0f,    1,
                             -1,        1.5f,   -1.5f,     0.5f,           2.5f,  32767.5f, 40000,
                             -32768.5f, -40000, 0x1p-149f, 0x1.fffffep-1f, 1e30f, -1e30f};
    for (std::size_t n = 0; n < count; ++n)
        values[n] = n % 3 == 0 ? special[n / 3 % std::size(special)] : values[n] * scale;
    return values;
}

// Channel by channel behind an unmapped page of its own.
template <class T>
struct Channels {
    std::vector<std::unique_ptr<support::Guarded<T>>> each;
    std::vector<T*> pointers;

    Channels(int channels, int len) {
        for (int c = 0; c < channels; ++c) {
            each.push_back(std::make_unique<support::Guarded<T>>(len));
            pointers.push_back(each.back()->data());
        }
    }
};

template <class Test>
void forEachShape(Test test) {
    for (int channels : {1, 2, 3, 4, 5, 6, 7, 8, 9, 33}) {
        for (int len : {1, 2, 3, 5, 8, 17, 40, 511, 512, 513, 1100}) {
            SCOPED_TRACE(::testing::Message() << channels << " channels of " << len);
            test(channels, len);
        }
    }
}

template <class T, class Rule>
void expectJoins(OrbStatus (*join)(const Orb32f* const*, int, int, T*), Rule rule, float scale) {
    forEachShape([=](int channels, int len) {
        const auto count = static_cast<std::size_t>(channels * len);
        const auto values = samples(count, scale);
        Channels<float> src(channels, len);
        support::Guarded<T> dst(count);
        std::vector<T> want;
        for (std::size_t n = 0; n < count; ++n) {
            const auto c = n % static_cast<std::size_t>(channels);
            src.pointers[c][n / static_cast<std::size_t>(channels)] = values[n];
            want.push_back(rule(values[n]));
        }
        const Orb32u mode = support::roundingModes[channels % 4];
        ASSERT_EQ(support::inMode(mode, [&] { return join(src.pointers.data(), channels, len, dst.data()); }),
                  orbStsNoErr);
        ASSERT_TRUE(sameValues(dst, want, values)) << callOf(join);
        EXPECT_TRUE(dst.intact()) << callOf(join);
    });
}

template <class T, class Rule>
void expectSplits(OrbStatus (*split)(const T*, Orb32f* const*, int, int), Rule rule) {
    forEachShape([=](int channels, int len) {
        const auto count = static_cast<std::size_t>(channels * len);
        const auto values = support::randomVector<T>(count);
        support::Guarded<T> src(count);
        std::copy(values.begin(), values.end(), src.begin());
        Channels<float> dst(channels, len);
        ASSERT_EQ(split(src.data(), dst.pointers.data(), channels, len), orbStsNoErr);
        std::vector<float> got, want;
        for (std::size_t n = 0; n < count; ++n) {
            got.push_back(dst.pointers[n % static_cast<std::size_t>(channels)][n / static_cast<std::size_t>(channels)]);
            want.push_back(rule(values[n]));
        }
        ASSERT_TRUE(sameValues(got, want, values)) << callOf(split);
        for (const auto& channel : dst.each) EXPECT_TRUE(channel->intact()) << callOf(split);
    });
}

TEST(Join, RoundsAndInterleaves) {
    expectJoins(orbsJoin_32f16s_D2L, rounded, 40000);
}
TEST(JoinScaled, SpreadsOneOverTheWholeRange) {
    expectJoins(orbsJoinScaled_32f16s_D2L, fullScale16, 1);
    expectJoins(orbsJoinScaled_32f24s_D2L, fullScale24, 1);
}
TEST(SplitScaled, TakesTheRangeBackToOne) {
    expectSplits(orbsSplitScaled_16s32f_D2L, fraction16);
    expectSplits(orbsSplitScaled_24s32f_D2L, fraction24);
    const Orb16s extremes[] = {-32768, 32767};
    Orb32f ones[2];
    Orb32f* channel = ones;
    ASSERT_EQ(orbsSplitScaled_16s32f_D2L(extremes, &channel, 1, 2), orbStsNoErr);
    EXPECT_EQ(ones[0], -1);
    EXPECT_EQ(ones[1], 1);
}

} // namespace
