#include "support/compare.h"

#include "orbs.h"

#include <climits>
#include <cmath>
#include <complex>

namespace {

using support::isComplex;
using support::Part;
using support::randomVector;
using support::sameBits;

using Wide = std::complex<long double>;

template <class T>
Wide wide(T x) {
    if constexpr (isComplex<T>) return {x.re, x.im};
    if constexpr (!isComplex<T>) return {static_cast<long double>(x), 0};
}
template <class T>
T narrow(Wide x) {
    if constexpr (isComplex<T>) return {static_cast<Part<T>>(x.real()), static_cast<Part<T>>(x.imag())};
    if constexpr (!isComplex<T>) return static_cast<T>(x.real());
}
template <class T>
long double normOf(const std::vector<T>& x) {
    long double sum = 0;
    for (const T v : x) sum += std::norm(wide(v));
    return std::sqrt(sum);
}

// sum over k of conj(a[k]) b[k + lag]; 0 without terms.
template <class T>
Wide exactly(const std::vector<T>& a, const std::vector<T>& b, std::int64_t lag) {
    Wide sum = 0;
    const auto aLen = static_cast<std::int64_t>(a.size()), bLen = static_cast<std::int64_t>(b.size());
    for (std::int64_t k = std::max<std::int64_t>(0, -lag); k < std::min(aLen, bLen - lag); ++k)
        sum += std::conj(wide(a[static_cast<std::size_t>(k)])) * wide(b[static_cast<std::size_t>(k + lag)]);
    return sum;
}

// By the inequality of Cauchy and Schwarz no sum of terms' magnitudes exceeds the product of the norms. Direct sums of
// m complex products take at most m + 2 roundings each; three transforms of N points at most 3 log2(N) + 6 with two
// more for the products of twiddles, and their errors spread over outputs of at most that product by sqrt(N).
template <class T>
long double bound(const std::vector<T>& a, const std::vector<T>& b, bool direct) {
    const auto shorter = static_cast<long double>(std::min(a.size(), b.size()));
    const auto all = static_cast<long double>(a.size() + b.size());
    const long double roundings = direct ? shorter + 3 : 9 * (std::log2(2 * all) + 2);
    return roundings * std::numeric_limits<Part<T>>::epsilon() / 2 * normOf(a) * normOf(b) * (direct ? 2 : 3);
}

template <class T>
struct Members;
#define MEMBERS(type, limit, from)                                                                                     \
    template <>                                                                                                        \
    struct Members<Orb##type> {                                                                                        \
        static constexpr auto fastest = orbsCrossCorr_##type, direct = orbsCrossCorrDirect_##type,                     \
                              fourier = orbsCrossCorrFFT_##type;                                                       \
        static constexpr auto plain = orbsAutoCorr_##type, bySamples = orbsAutoCorr_NormA_##type,                      \
                              byTerms = orbsAutoCorr_NormB_##type;                                                     \
        static constexpr int mostDirect = limit, leastTransformed = from;                                              \
    }
MEMBERS(32f, 383, 856);
MEMBERS(64f, 511, 856);
MEMBERS(32fc, 255, 152);
MEMBERS(64fc, 511, 368);
#undef MEMBERS

template <class T, class Member>
std::vector<T> call(Member member, const std::vector<T>& a, const std::vector<T>& b, int dstLen, int lowLag) {
    std::vector<T> y(static_cast<std::size_t>(dstLen));
    std::memset(static_cast<void*>(y.data()), 0x5a, y.size() * sizeof(T));
    const int aLen = static_cast<int>(a.size()), bLen = static_cast<int>(b.size());
    EXPECT_EQ(member(a.data(), aLen, b.data(), bLen, y.data(), dstLen, lowLag), orbStsNoErr);
    return y;
}
template <class T, class Member>
std::vector<T> call(Member member, const std::vector<T>& x, int dstLen) {
    std::vector<T> y(static_cast<std::size_t>(dstLen));
    EXPECT_EQ(member(x.data(), static_cast<int>(x.size()), y.data(), dstLen), orbStsNoErr);
    return y;
}

template <class T>
class Correlation : public testing::Test {};
using Floats = testing::Types<Orb32f, Orb64f, Orb32fc, Orb64fc>;
TYPED_TEST_SUITE(Correlation, Floats);

struct Lengths {
    int a, b;
};
constexpr Lengths pairs[] = {{1, 1},    {1, 7},    {7, 1},     {5, 5},     {9, 20},   {20, 9},
                             {40, 90},  {90, 40},  {130, 130}, {31, 300},  {300, 31}, {700, 64},
                             {64, 700}, {300, 99}, {99, 297},  {480, 470}, {33, 34}};

TYPED_TEST(Correlation, IsTheSumAtEachLag) {
    using T = TypeParam;
    using M = Members<T>;
    for (const auto [aLen, bLen] : pairs) {
        const auto a = randomVector<T>(static_cast<std::size_t>(aLen), 1);
        const auto b = randomVector<T>(static_cast<std::size_t>(bLen), 2);
        const int all = aLen + bLen - 1;
        const std::pair<int, int> ranges[] = {{all + 6, -aLen - 2}, {all, 1 - aLen}, {(all + 1) / 2, -aLen / 2},
                                              {3, bLen - 1},        {5, -aLen},      {1, 0}};
        for (const auto& [dstLen, lowLag] : ranges) {
            SCOPED_TRACE(testing::Message() << aLen << " and " << bLen << ", from lag " << lowLag);
            const auto direct = call<T>(M::direct, a, b, dstLen, lowLag),
                       fourier = call<T>(M::fourier, a, b, dstLen, lowLag);
            int count = 0; // of lags with terms
            for (int n = 0; n < dstLen; ++n) {
                const std::int64_t lag = std::int64_t{lowLag} + n;
                const bool overlaps = lag > -aLen && lag < bLen;
                count += overlaps;
                const Wide want = exactly(a, b, lag);
                const T x = direct[static_cast<std::size_t>(n)], y = fourier[static_cast<std::size_t>(n)];
                ASSERT_LE(std::abs(wide(x) - want), overlaps ? bound(a, b, true) : 0) << n;
                ASSERT_LE(std::abs(wide(y) - want), overlaps ? bound(a, b, false) : 0) << n;
            }
            const bool costly = static_cast<Orb32f>(count) * static_cast<Orb32f>(std::min(aLen, bLen)) /
                                    static_cast<Orb32f>(std::max(aLen, bLen)) >=
                                static_cast<Orb32f>(M::mostDirect + 1);
            ASSERT_TRUE(sameBits(call<T>(M::fastest, a, b, dstLen, lowLag), costly ? fourier : direct));
        }
    }
}

// The last cost that stays direct and the first that does not: of operands of one length that is the number of lags.
TYPED_TEST(Correlation, ChoosesByCost) {
    using T = TypeParam;
    using M = Members<T>;
    const auto a = randomVector<T>(600, 1), b = randomVector<T>(600, 2);
    const int most = M::mostDirect;
    EXPECT_TRUE(sameBits(call<T>(M::fastest, a, b, most, -200), call<T>(M::direct, a, b, most, -200)));
    EXPECT_TRUE(sameBits(call<T>(M::fastest, a, b, most + 1, -200), call<T>(M::fourier, a, b, most + 1, -200)));
}

TYPED_TEST(Correlation, IsZeroWithoutOverlap) {
    using T = TypeParam;
    const auto a = randomVector<T>(9, 1), b = randomVector<T>(4, 2);
    for (const auto member : {Members<T>::fastest, Members<T>::direct, Members<T>::fourier})
        for (const int lowLag : {INT_MIN, -18, 4, INT_MAX})
            ASSERT_TRUE(sameBits(call<T>(member, a, b, 10, lowLag), std::vector<T>(10))) << lowLag;
}

TYPED_TEST(Correlation, WithItselfIsNormalisedAsTold) {
    using T = TypeParam;
    using M = Members<T>;
    using Real = Part<T>;
    const int from = M::leastTransformed;
    for (const auto [srcLen, dstLen] : {Lengths{1, 1},
                                        {1, 5},
                                        {7, 7},
                                        {70, 50},
                                        {50, 70},
                                        {1100, 40},
                                        {from, from - 1},
                                        {from, from + 9},
                                        {1000, 900}}) {
        SCOPED_TRACE(testing::Message() << srcLen << ", " << dstLen);
        const auto x = randomVector<T>(static_cast<std::size_t>(srcLen), 1);
        const int m = std::min(srcLen, dstLen);
        auto bySamples = call<T>(M::plain, x, dstLen), byTerms = bySamples;
        for (int k = 0; k < dstLen; ++k) {
            const T y = bySamples[static_cast<std::size_t>(k)];
            const Wide want = k < m ? exactly(x, x, k) : 0;
            ASSERT_LE(std::abs(wide(y) - want), k < m ? bound(x, x, m < from) : 0) << k;
            if (k >= m) continue;
            const auto n = static_cast<std::size_t>(k);
            const Real factor = Real{1} / static_cast<Real>(srcLen), terms = static_cast<Real>(srcLen - k);
            if constexpr (isComplex<T>) {
                bySamples[n] = {y.re * factor, y.im * factor};
                byTerms[n] = {y.re / terms, y.im / terms};
            } else {
                bySamples[n] = y * factor;
                byTerms[n] = y / terms;
            }
        }
        ASSERT_TRUE(sameBits(call<T>(M::bySamples, x, dstLen), bySamples));
        ASSERT_TRUE(sameBits(call<T>(M::byTerms, x, dstLen), byTerms));
        if (m < from) { ASSERT_TRUE(sameBits(call<T>(M::plain, x, m), call<T>(Members<T>::direct, x, x, m, 0))); }
    }
}

// What floats give, rounded once.
std::vector<Orb16s> rounded(const std::vector<Orb32f>& x, int scaleFactor) {
    std::vector<Orb16s> y;
    for (const Orb32f v : x) {
        const double scaled = std::ldexp(static_cast<double>(v), -std::clamp(scaleFactor, -200, 200));
        y.push_back(static_cast<Orb16s>(std::clamp(std::nearbyint(scaled), -32768.0, 32767.0)));
    }
    return y;
}
std::vector<Orb32f> floats(const std::vector<Orb16s>& x) {
    return {x.begin(), x.end()};
}

TEST(Correlation16, IsThatOfTheirFloatsRounded) {
    for (const auto [aLen, bLen] :
         {Lengths{1, 1}, {7, 30}, {30, 7}, {500, 480}, {5000, 40}, {40, 9000}, {9000, 1500}}) {
        const auto a = randomVector<Orb16s>(static_cast<std::size_t>(aLen), 1);
        const auto b = randomVector<Orb16s>(static_cast<std::size_t>(bLen), 2);
        const int dstLen = aLen + bLen + 1;
        const auto y = call<Orb32f>(orbsCrossCorr_32f, floats(a), floats(b), dstLen, -aLen);
        for (const int s : {0, 15, 17, 30, -3, -128, INT_MIN, INT_MAX}) {
            std::vector<Orb16s> got(y.size());
            ASSERT_EQ(orbsCrossCorr_16s_Sfs(a.data(), aLen, b.data(), bLen, got.data(), dstLen, -aLen, s), orbStsNoErr);
            ASSERT_TRUE(sameBits(got, rounded(y, s))) << aLen << " and " << bLen << " by 2^-" << s;
        }
    }
}

TEST(Correlation16, WithItselfIsThatOfTheirFloatsRounded) {
    for (const auto [srcLen, dstLen] : {Lengths{1, 3}, {50, 70}, {900, 855}, {900, 1000}}) {
        const auto x = randomVector<Orb16s>(static_cast<std::size_t>(srcLen), 1);
        std::vector<Orb16s> got(static_cast<std::size_t>(dstLen));
        for (const int s : {0, 15, 17, 31, -2}) {
            SCOPED_TRACE(testing::Message() << srcLen << ", " << dstLen << " by 2^-" << s);
            ASSERT_EQ(orbsAutoCorr_16s_Sfs(x.data(), srcLen, got.data(), dstLen, s), orbStsNoErr);
            ASSERT_TRUE(sameBits(got, rounded(call<Orb32f>(orbsAutoCorr_32f, floats(x), dstLen), s)));
            ASSERT_EQ(orbsAutoCorr_NormA_16s_Sfs(x.data(), srcLen, got.data(), dstLen, s), orbStsNoErr);
            ASSERT_TRUE(sameBits(got, rounded(call<Orb32f>(orbsAutoCorr_NormA_32f, floats(x), dstLen), s)));
            ASSERT_EQ(orbsAutoCorr_NormB_16s_Sfs(x.data(), srcLen, got.data(), dstLen, s), orbStsNoErr);
            ASSERT_TRUE(sameBits(got, rounded(call<Orb32f>(orbsAutoCorr_NormB_32f, floats(x), dstLen), s)));
        }
    }
}

TEST(Correlation16, IsExactIn64Bits) {
    for (const bool extremes : {false, true}) {
        for (const auto [aLen, bLen] : {Lengths{1, 1}, {9, 300}, {300, 9}, {700, 690}, {70000, 66000}}) {
            auto a = randomVector<Orb16s>(static_cast<std::size_t>(aLen), 1);
            auto b = randomVector<Orb16s>(static_cast<std::size_t>(bLen), 2);
            if (extremes) a.assign(a.size(), -32768), b.assign(b.size(), -32768);
            const int from = aLen > 1000 ? -10 : -aLen - 1, dstLen = aLen > 1000 ? 20 : aLen + bLen + 3;
            std::vector<Orb64s> y(static_cast<std::size_t>(dstLen), 77);
            ASSERT_EQ(orbsCrossCorr_16s64s(a.data(), aLen, b.data(), bLen, y.data(), dstLen, from), orbStsNoErr);
            for (int n = 0; n < dstLen; ++n) {
                std::int64_t want = 0;
                for (int k = std::max(0, -from - n); k < std::min(aLen, bLen - from - n); ++k)
                    want += std::int64_t{a[static_cast<std::size_t>(k)]} * b[static_cast<std::size_t>(k + from + n)];
                ASSERT_EQ(y[static_cast<std::size_t>(n)], want) << n << " of " << aLen << " and " << bLen;
            }
        }
    }
}

} // namespace
