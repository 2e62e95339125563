#include "support/compare.h"

#include "orbs.h"

#include <limits>

namespace {

using support::randomVector;
using support::sameBits;

template <class T>
using Member = OrbStatus (*)(const T*, int, T*, int*, int, int*);

// One call, which may write what it tells and no more.
template <class T>
std::vector<T> called(Member<T> member, const std::vector<T>& x, std::size_t room, int factor, int& phase) {
    std::vector<T> y(room + 1);
    int len = -1;
    EXPECT_EQ(member(x.data(), static_cast<int>(x.size()), y.data(), &len, factor, &phase), orbStsNoErr);
    EXPECT_LE(static_cast<std::size_t>(len), room);
    y.resize(static_cast<std::size_t>(len));
    return y;
}

template <class T>
void test(Member<T> up, Member<T> down) {
    for (int factor : {1, 2, 3, 4, 5, 8, 29, 5000})
        for (std::size_t len : {1u, 2u, 7u, 8u, 9u, 33u, 70u, 700u, 4097u})
            for (int phase : {0, 1, factor / 2, factor - 1}) {
                if (phase >= factor || (factor > 1000 && len > 70)) continue;
                const auto x = randomVector<T>(len, len);
                const auto step = static_cast<std::size_t>(factor), first = static_cast<std::size_t>(phase);
                std::vector<T> spread(len * step, T{}), kept;
                for (std::size_t n = 0; n < len; ++n) spread[n * step + first] = x[n];
                for (std::size_t n = first; n < len; n += step) kept.push_back(x[n]);

                int after = phase;
                const auto y = called(up, x, spread.size(), factor, after);
                ASSERT_EQ(y.size(), spread.size());
                ASSERT_EQ(after, phase);
                ASSERT_TRUE(sameBits(y.data(), spread.data(), y.size())) << factor << " " << phase << " " << len;
                const auto z = called(down, x, kept.size(), factor, after);
                ASSERT_EQ(z.size(), kept.size());
                ASSERT_EQ(static_cast<std::size_t>(after), first + kept.size() * step - len);
                ASSERT_TRUE(sameBits(z.data(), kept.data(), z.size())) << factor << " " << phase << " " << len;
            }
}

TEST(Sampling, OfEveryType) {
    test(orbsSampleUp_16s, orbsSampleDown_16s);
    test(orbsSampleUp_16sc, orbsSampleDown_16sc);
    test(orbsSampleUp_32f, orbsSampleDown_32f);
    test(orbsSampleUp_32fc, orbsSampleDown_32fc);
    test(orbsSampleUp_64f, orbsSampleDown_64f);
    test(orbsSampleUp_64fc, orbsSampleDown_64fc);
}

TEST(Sampling, AStreamMayBeCutAnywhere) {
    const auto x = randomVector<Orb32f>(1000, 1);
    for (int factor : {2, 3, 4, 7, 40}) {
        int phase = factor - 1, phaseOfParts = phase;
        const auto whole = called(orbsSampleDown_32f, x, x.size(), factor, phase);
        std::vector<Orb32f> parts;
        for (std::size_t n = 0, count = 1; n < x.size(); n += count, count = 1 + count * 5 % 97) {
            count = std::min(count, x.size() - n);
            const std::vector<Orb32f> part(x.begin() + static_cast<std::ptrdiff_t>(n),
                                           x.begin() + static_cast<std::ptrdiff_t>(n + count));
            const auto kept = called(orbsSampleDown_32f, part, count, factor, phaseOfParts);
            parts.insert(parts.end(), kept.begin(), kept.end());
        }
        ASSERT_EQ(parts.size(), whole.size());
        EXPECT_TRUE(sameBits(parts.data(), whole.data(), whole.size())) << factor;
        EXPECT_EQ(phaseOfParts, phase);
    }
}

TEST(Sampling, LargeFactors) {
    constexpr int largest = std::numeric_limits<int>::max();
    const auto x = randomVector<Orb16s>(5, 1);
    int phase = 3;
    EXPECT_EQ(called(orbsSampleDown_16s, x, 1, largest, phase), std::vector<Orb16s>{x[3]});
    EXPECT_EQ(phase, largest - 2); // 3 + factor - 5
    EXPECT_TRUE(called(orbsSampleDown_16s, x, 0, largest, phase).empty());
    EXPECT_EQ(phase, largest - 7);
}

} // namespace
