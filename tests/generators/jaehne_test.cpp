#include "orbs.h"
#include "support/ulps.h"

#include <gtest/gtest.h>

namespace {

using support::ulps;

const int lengths[] = {2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 33, 100, 1000, 4099, 300007};

// The sine of the phase, which is (c n) n with each product rounded.
long double chirp(int len, std::size_t number) {
    const double c = 1.5707963267948966 / len, n = static_cast<double>(number), once = c * n;
    return std::sin(static_cast<long double>(once * n));
}

template <class T>
std::vector<T> call(OrbStatus (*member)(T*, int, T), int len, T magn) {
    std::vector<T> v(static_cast<std::size_t>(len), T(1));
    EXPECT_EQ(member(v.data(), len, magn), orbStsNoErr);
    return v;
}

TEST(VectorJaehne, FloatsAreTheSineOfTheRoundedPhase) {
    for (int len : lengths) {
        const auto wide = call(&orbsVectorJaehne_64f, len, 0x1p10);
        const auto narrow = call(&orbsVectorJaehne_32f, len, 0x1p10f);
        for (std::size_t n = 0; n < wide.size(); ++n) {
            ASSERT_LE(ulps(wide[n], 0x1p10L * chirp(len, n)), 0.85) << n << " of " << len;
            ASSERT_EQ(narrow[n], static_cast<Orb32f>(wide[n])) << n << " of " << len;
        }
    }
}

// The nearest integer, but for what the sine's own error may tip over a half.
template <class T>
void expectNearest(OrbStatus (*member)(T*, int, T), T magn) {
    for (int len : lengths) {
        const auto v = call(member, len, magn);
        for (std::size_t n = 0; n < v.size(); ++n)
            ASSERT_NEAR(static_cast<double>(v[n]), static_cast<double>(magn * chirp(len, n)), 0.5 + magn * 0x1p-52)
                << n << " of " << len;
    }
}

TEST(VectorJaehne, SignedIntegersAreRounded) {
    expectNearest(&orbsVectorJaehne_8s, Orb8s{127});
    expectNearest(&orbsVectorJaehne_16s, Orb16s{32767});
    expectNearest(&orbsVectorJaehne_32s, Orb32s{0x7fffffff});
}

template <class T>
void expectMoved(OrbStatus (*member)(T*, int, T), T magn) {
    for (int len : lengths) {
        const auto v = call(member, len, magn);
        std::vector<long double> x;
        for (std::size_t n = 0; n < v.size(); ++n) x.push_back(chirp(len, n));
        const auto [least, greatest] = std::minmax_element(x.begin(), x.end());
        EXPECT_EQ(v[static_cast<std::size_t>(least - x.begin())], 0) << len;
        EXPECT_EQ(v[static_cast<std::size_t>(greatest - x.begin())], magn) << len;
        for (std::size_t n = 0; n < v.size(); ++n)
            ASSERT_NEAR(static_cast<double>(v[n]), static_cast<double>((x[n] - *least) / (*greatest - *least) * magn),
                        0.5 + magn * 0x1p-50)
                << n << " of " << len;
    }
}

TEST(VectorJaehne, UnsignedIntegersReachFrom0ToTheMagnitude) {
    expectMoved(&orbsVectorJaehne_8u, Orb8u{255});
    expectMoved(&orbsVectorJaehne_16u, Orb16u{50001});
    expectMoved(&orbsVectorJaehne_32u, Orb32u{0xffffffff});
}

TEST(VectorJaehne, OneElementIs0AndNeedsNoMemory) {
    EXPECT_EQ(call(&orbsVectorJaehne_8u, 1, Orb8u{200})[0], 0);
    EXPECT_EQ(call(&orbsVectorJaehne_16s, 1, Orb16s{200})[0], 0);
    EXPECT_EQ(call(&orbsVectorJaehne_64f, 1, std::numeric_limits<double>::infinity())[0], 0);
    // Lengths whose samples take more bytes than the allocator counts are refused before anything is touched.
    for (int len : {1 << 29, (1 << 29) + 1, 0x7fffffff}) {
        Orb32u one = 7;
        EXPECT_EQ(orbsVectorJaehne_32u(&one, len, 5), orbStsMemAllocErr);
        EXPECT_EQ(one, 7u);
    }
}

} // namespace
