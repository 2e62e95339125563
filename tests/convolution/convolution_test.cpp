#include "support/compare.h"
#include "support/threads.h"

#include "orbs.h"

#include <cfenv>
#include <cmath>

namespace {

using support::randomVector;
using support::sameBits;

std::size_t size(int count) {
    return static_cast<std::size_t>(count);
}
template <class T>
std::vector<T> random(int count, std::uint64_t seed) {
    return randomVector<T>(size(count), seed);
}

template <class T>
using Member = OrbStatus (*)(const T*, int, const T*, int, T*);

template <class T>
std::vector<T> call(Member<T> member, const std::vector<T>& a, const std::vector<T>& b) {
    std::vector<T> y(a.size() + b.size() - 1, T(77));
    EXPECT_EQ(member(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), y.data()),
              orbStsNoErr);
    return y;
}
std::vector<Orb16s> call16(const std::vector<Orb16s>& a, const std::vector<Orb16s>& b, int scaleFactor) {
    std::vector<Orb16s> y(a.size() + b.size() - 1, 77);
    const int aLen = static_cast<int>(a.size()), bLen = static_cast<int>(b.size());
    EXPECT_EQ(orbsConv_16s_Sfs(a.data(), aLen, b.data(), bLen, y.data(), scaleFactor), orbStsNoErr);
    return y;
}

// y[n] = sum over k of a[k] b[n - k], and the sum of the magnitudes of its terms.
struct Exact {
    std::vector<long double> sums, magnitudes;
};
template <class T>
Exact exactly(const std::vector<T>& a, const std::vector<T>& b) {
    Exact y{std::vector<long double>(a.size() + b.size() - 1), std::vector<long double>(a.size() + b.size() - 1)};
    for (std::size_t k = 0; k < a.size(); ++k) {
        for (std::size_t n = k; n < k + b.size(); ++n) {
            const long double term = static_cast<long double>(a[k]) * static_cast<long double>(b[n - k]);
            y.sums[n] += term;
            y.magnitudes[n] += std::abs(term);
        }
    }
    return y;
}

// A sum of m products: each is rounded once, and at most once with every addition.
template <class T>
void expectSums(const std::vector<T>& y, const Exact& want, std::size_t shorter) {
    const long double unit = std::numeric_limits<T>::epsilon() / 2;
    for (std::size_t n = 0; n < y.size(); ++n) {
        const long double bound = static_cast<long double>(shorter + 1) * unit * want.magnitudes[n];
        ASSERT_LE(std::abs(y[n] - want.sums[n]), bound) << "element " << n << " of " << y.size();
    }
}

// Three transforms of N points with at most log2(N) levels, in each of which two roundings of a complex product and one
// of a sum: of the norm of all outputs of a block, which is at most that of the one signal times the sum of the other.
template <class T>
void expectTransformed(const std::vector<T>& y, const Exact& want, const std::vector<T>& a, const std::vector<T>& b) {
    long double norm = 0, sum = 0;
    for (const T x : a) norm += static_cast<long double>(x) * x;
    for (const T x : b) sum += std::abs(x);
    const long double levels = 3 * (std::log2(static_cast<long double>(y.size())) + 2);
    const long double bound = 3 * levels * std::numeric_limits<T>::epsilon() / 2 * std::sqrt(norm) * sum;
    for (std::size_t n = 0; n < y.size(); ++n)
        ASSERT_LE(std::abs(y[n] - want.sums[n]), bound) << "element " << n << " of " << y.size();
}

struct Lengths {
    int a, b;
};

template <class T>
struct Members;
template <>
struct Members<Orb32f> {
    static constexpr auto fastest = orbsConv_32f, direct = orbsConvDirect_32f, fourier = orbsConvFFT_32f;
};
template <>
struct Members<Orb64f> {
    static constexpr auto fastest = orbsConv_64f, direct = orbsConvDirect_64f, fourier = orbsConvFFT_64f;
};

template <class T>
class Convolution : public testing::Test {};
using Floats = testing::Types<Orb32f, Orb64f>;
TYPED_TEST_SUITE(Convolution, Floats);

TYPED_TEST(Convolution, IsTheSumByEachMethod) {
    using T = TypeParam;
    using M = Members<T>;
    std::vector<Lengths> all{{127, 128}, {130, 129}, {99, 500}, {448, 64}, {449, 64},   {200, 600}, {200, 599},
                             {63, 900},  {512, 64},  {1, 1200}, {2, 900},  {4200, 300}, {700, 700}};
    for (int a = 1; a <= 18; ++a)
        for (int b = 1; b <= 18; ++b) all.push_back({a, b});
    for (const auto [aLen, bLen] : all) {
        SCOPED_TRACE(testing::Message() << aLen << " and " << bLen);
        const auto a = random<T>(aLen, 1), b = random<T>(bLen, 2);
        const Exact want = exactly(a, b);
        const auto direct = call<T>(M::direct, a, b), fourier = call<T>(M::fourier, a, b);
        expectSums(direct, want, size(std::min(aLen, bLen)));
        expectTransformed(fourier, want, a, b);
        ASSERT_TRUE(sameBits(call<T>(M::direct, b, a), direct));
        ASSERT_TRUE(sameBits(call<T>(M::fourier, b, a), fourier));
        const bool shorts = aLen + bLen - 1 < 512 || std::min(aLen, bLen) < 64;
        ASSERT_TRUE(sameBits(call<T>(M::fastest, a, b), shorts ? direct : fourier));
    }
}

// An infinity among the taps makes no NaN of outputs where it meets no sample, and none where it meets one.
TYPED_TEST(Convolution, KeepsWhatIsNotFiniteToItsOutputs) {
    using T = TypeParam;
    constexpr T infinity = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
    for (const auto [aLen, bLen] : {Lengths{5, 9}, {40, 40}, {70, 33}, {300, 80}}) {
        const std::vector<T> ones(size(bLen), T(1));
        for (const int at : {0, aLen / 2, aLen - 1}) {
            for (const T special : {infinity, nan}) {
                std::vector<T> a(size(aLen), T(1));
                a[size(at)] = special;
                for (const auto& y : {call<T>(Members<T>::direct, a, ones), call<T>(Members<T>::direct, ones, a)}) {
                    for (int n = 0; n < aLen + bLen - 1; ++n) {
                        const T got = y[size(n)];
                        const bool meets = n >= at && n < at + bLen;
                        ASSERT_TRUE(meets ? support::same(got, special) : std::isfinite(got)) << n << ": " << got;
                    }
                }
            }
        }
    }
}

// A NaN spoils its block alone, which shows the method and where blocks end.
TYPED_TEST(Convolution, OverlapsBlocksFromThreeTimesTheShorterOn) {
    using T = TypeParam;
    const std::vector<T> ones(64, T(1));
    for (const std::size_t aLen : {191, 192}) {
        std::vector<T> a(aLen, T(1));
        a[0] = std::numeric_limits<T>::quiet_NaN();
        const auto y = call<T>(Members<T>::fourier, a, ones);
        for (std::size_t n = 0; n < y.size(); ++n)
            ASSERT_EQ(std::isfinite(y[n]), aLen == 192 && n > 256 - 64) << n << " of " << y.size();
    }
}

TYPED_TEST(Convolution, HasTheSerialBitsOnAnyTeam) {
    using T = TypeParam;
    const auto a = random<T>(9000, 1), b = random<T>(130, 2);
    const support::ThreadCount one(1);
    const auto serial = call<T>(Members<T>::fourier, a, b);
    for (const int threads : {2, 3, 64}) {
        const support::ThreadCount several(threads);
        ASSERT_TRUE(sameBits(call<T>(Members<T>::fourier, a, b), serial)) << threads;
    }
}

// A sum times 2^-scaleFactor as an integer, ties to even.
Orb16s rounded(double sum, int scaleFactor) {
    const double scaled = std::ldexp(sum, -std::clamp(scaleFactor, -200, 200));
    return static_cast<Orb16s>(std::clamp(std::nearbyint(scaled), -32768.0, 32767.0));
}

TEST(Convolution16, IsThatOfTheirFloatsRounded) {
    for (const auto [aLen, bLen] : {Lengths{3, 5}, {40, 300}, {5000, 33}, {33, 9000}, {300, 300}, {5000, 100}}) {
        const auto a = random<Orb16s>(aLen, 1), b = random<Orb16s>(bLen, 2);
        const auto floats = call<Orb32f>(orbsConv_32f, {a.begin(), a.end()}, {b.begin(), b.end()});
        for (const int s : {0, 1, 14, 15, 17, 30, 40, -3, -40}) {
            std::vector<Orb16s> want;
            for (const Orb32f sum : floats) want.push_back(rounded(sum, s));
            ASSERT_TRUE(sameBits(call16(a, b, s), want)) << aLen << " and " << bLen << " by 2^-" << s;
        }
    }
}

TEST(Convolution16, RoundsTiesToEvenInAnyMode) {
    const std::vector<Orb16s> a{1, 3, -1, -3, 5, 0};
    const int mode = std::fegetround();
    std::fesetround(FE_UPWARD);
    const auto halves = call16(a, {1}, 1);
    std::fesetround(mode);
    EXPECT_EQ(halves, (std::vector<Orb16s>{0, 2, 0, -2, 2, 0}));
}

TEST(Convolution16, SaturatesBySignWithHugeFactorsAndKeepsZero) {
    for (const int s : {-127, -128, -129, -1000, std::numeric_limits<int>::min()})
        EXPECT_EQ(call16({1, 0, -1}, {2}, s), (std::vector<Orb16s>{32767, 0, -32768})) << s;
}

TEST(ConvolutionBiased, LeavesOutTermsBeyondItsWindow) {
    struct Case {
        int src1Len, src2Len, dstLen, bias;
    };
    std::vector<Case> all{{4, 45, 41, 4},   {11, 50, 40, 10}, {16, 56, 40, 16}, {31, 70, 40, 30}, {31, 110, 80, 30},
                          {40, 40, 40, 0},  {60, 60, 60, 0},  {4, 45, 41, 3},   {7, 7, 7, 0},     {5, 3, 40, 2},
                          {90, 10, 200, 5}, {3, 9, 20, -4},   {6, 5, 9, 30},    {6, 5, 9, -30},   {2, 500, 300, 40}};
    for (int k = 1; k <= 70; ++k) all.push_back({k, 3 * k % 37 + 1, 5 * k % 71 + 1, k % 9 - 3});
    for (const Case& c : all) {
        const auto a = random<Orb32f>(c.src1Len, 1), window = random<Orb32f>(c.src2Len, 2);
        std::vector<Orb32f> y(size(c.dstLen), 77.0f), want(size(c.dstLen));
        for (int i = 0; i < c.dstLen; ++i) {
            for (int k = 0; k < c.src1Len; ++k) {
                const int at = i + c.bias - k;
                if (at >= 0 && at < c.src2Len) want[size(i)] += a[size(k)] * window[size(at)];
            }
        }
        ASSERT_EQ(
            orbsConvBiased_32f(a.data(), c.src1Len, window.data() + c.bias, c.src2Len, y.data(), c.dstLen, c.bias),
            orbStsNoErr);
        ASSERT_TRUE(sameBits(y, want)) << c.src1Len << ", " << c.src2Len << ", " << c.dstLen << ", " << c.bias;
    }
    for (const int bias : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        Orb32f x[2] = {1, 2}, y[2] = {7, 7};
        ASSERT_EQ(orbsConvBiased_32f(x, 2, x, 2, y, 2, bias), orbStsNoErr);
        ASSERT_TRUE(y[0] == 0 && y[1] == 0) << bias;
    }
}

TEST(ConvolutionCyclic, GoesRound) {
    const auto a = random<Orb32f>(8, 1), b = random<Orb32f>(8, 2);
    std::vector<Orb32f> real(8), want(8), sums(16), wantSums(16);
    const auto values = random<Orb32fc>(4, 3);
    std::vector<Orb32fc> complex(4), wantComplex(4);
    for (std::size_t k = 0; k < 8; ++k)
        for (std::size_t n = 0; n < 8; ++n) want[n] += a[k] * b[(n - k) % 8];
    for (std::size_t k = 0; k < 4; ++k) {
        for (std::size_t n = 0; n < 4; ++n) {
            wantComplex[n].re += a[k] * values[(n - k) % 4].re;
            wantComplex[n].im += a[k] * values[(n - k) % 4].im;
        }
    }
    orbsConvCyclic8x8_32f(a.data(), b.data(), real.data());
    orbsConvCyclic4x4_32f32fc(a.data(), values.data(), complex.data());
    EXPECT_TRUE(sameBits(real, want));
    EXPECT_TRUE(sameBits(complex, wantComplex));
    auto inPlace = b;
    orbsConvCyclic8x8_32f(a.data(), inPlace.data(), inPlace.data());
    EXPECT_TRUE(sameBits(inPlace, want));
}

TEST(ConvolutionCyclic, WrapsIn32BitsThenScales) {
    for (std::uint64_t seed = 1; seed < 40; ++seed) {
        const auto a = random<Orb16s>(8, seed);
        auto b = random<Orb16s>(8, seed + 100);
        for (const int s : support::scaleFactors(-20, 36)) {
            std::vector<Orb16s> y(8), want(8);
            for (std::size_t n = 0; n < 8; ++n) {
                std::int64_t sum = 0;
                for (std::size_t k = 0; k < 8; ++k) sum += std::int64_t{a[k]} * b[(n - k) % 8];
                const auto wrapped = static_cast<std::int32_t>(static_cast<std::uint64_t>(sum));
                want[n] = rounded(wrapped, s);
            }
            orbsConvCyclic8x8_16s_Sfs(a.data(), b.data(), y.data(), s);
            ASSERT_TRUE(sameBits(y, want)) << "by 2^-" << s;
        }
    }
}

} // namespace
