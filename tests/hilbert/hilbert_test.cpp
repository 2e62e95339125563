#include "support/compare.h"
#include "support/stride.h"

#include "orbs.h"

#include <cfenv>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>

namespace {

using support::randomVector;
using support::sameBits;
using support::sameValues;

// Lengths of every plan of the transforms inside.
std::vector<int> lengths() {
    std::vector<int> all{96, 101, 149, 151, 181, 256, 302};
    for (int n = 1; n <= 40; n += support::stride) all.push_back(n);
    return all;
}

template <class S, class R, class Spec, class... More>
std::vector<R> analytic(OrbStatus (*initAlloc)(Spec**, int, OrbHintAlgorithm),
                        OrbStatus (*call)(const S*, R*, const Spec*, More...), OrbStatus (*release)(Spec*),
                        const std::vector<S>& x, std::type_identity_t<More>... more) {
    std::vector<R> y(x.size());
    Spec* spec = nullptr;
    EXPECT_EQ(initAlloc(&spec, static_cast<int>(x.size()), orbAlgHintNone), orbStsNoErr);
    EXPECT_EQ(call(x.data(), y.data(), spec, more...), orbStsNoErr);
    EXPECT_EQ(release(spec), orbStsNoErr);
    return y;
}
std::vector<Orb32fc> of32f(const std::vector<Orb32f>& x) {
    return analytic(orbsHilbertInitAlloc_32f32fc, orbsHilbert_32f32fc, orbsHilbertFree_32f32fc, x);
}
std::vector<Orb32fc> of16s(const std::vector<Orb16s>& x) {
    return analytic(orbsHilbertInitAlloc_16s32fc, orbsHilbert_16s32fc, orbsHilbertFree_16s32fc, x);
}
std::vector<Orb16sc> rounded(const std::vector<Orb16s>& x, int scaleFactor) {
    return analytic(orbsHilbertInitAlloc_16s16sc, orbsHilbert_16s16sc_Sfs, orbsHilbertFree_16s16sc, x, scaleFactor);
}

// y[n] = 1/N sum over k of w[k] X[k] exp(2 pi i k n / N), with w = 1 at k = 0 and N/2, 2 between, 0 above.
std::vector<std::complex<double>> exactly(const std::vector<Orb32f>& x) {
    const std::size_t n = x.size();
    std::vector<std::complex<double>> roots(n), y(n);
    for (std::size_t j = 0; j < n; ++j)
        roots[j] = std::polar(1.0, 2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(n));
    for (std::size_t k = 0; 2 * k <= n; ++k) {
        std::complex<double> bin = 0;
        for (std::size_t j = 0; j < n; ++j) bin += static_cast<double>(x[j]) * std::conj(roots[k * j % n]);
        if (k != 0 && 2 * k != n) bin *= 2;
        for (std::size_t j = 0; j < n; ++j) y[j] += bin * roots[k * j % n] / static_cast<double>(n);
    }
    return y;
}

// Of sums of n rounded products, forward and back, in the coarsest plan: n + 8 roundings of at most the sum of all
// magnitudes each way, the second time of doubled bins.
double bound(const std::vector<Orb32f>& x) {
    double magnitude = 0;
    for (const Orb32f sample : x) magnitude += std::abs(sample);
    return 3 * static_cast<double>(x.size() + 8) * 0x1p-24 * magnitude;
}

TEST(Hilbert, IsTheAnalyticSignal) {
    for (const int n : lengths()) {
        const auto x = randomVector<Orb32f>(static_cast<std::size_t>(n));
        const auto y = of32f(x);
        const auto want = exactly(x);
        for (std::size_t j = 0; j < x.size(); ++j) {
            ASSERT_NEAR(y[j].re, want[j].real(), bound(x)) << j << " of " << n;
            ASSERT_NEAR(y[j].im, want[j].imag(), bound(x)) << j << " of " << n;
        }
        if (n <= 2) {
            for (std::size_t j = 0; j < x.size(); ++j) ASSERT_TRUE(y[j].re == x[j] && y[j].im == 0);
        }
    }
}

TEST(Hilbert, OfIntegersIsThatOfTheirFloats) {
    for (const int n : lengths()) {
        const auto x = randomVector<Orb16s>(static_cast<std::size_t>(n));
        const auto y = of16s(x);
        ASSERT_TRUE(sameBits(y, of32f({x.begin(), x.end()}))) << n;
        if (n <= 2) continue;
        for (const int scaleFactor : {0, 1, -3, 7, 40, -40}) {
            std::vector<Orb16sc> want(x.size());
            orbsConvert_32f16s_Sfs(&y[0].re, &want[0].re, 2 * n, orbRndNear, scaleFactor);
            ASSERT_TRUE(sameBits(rounded(x, scaleFactor), want)) << n << " by 2^-" << scaleFactor;
        }
    }
}

// In any mode of the caller.
TEST(Hilbert, OfOneAndTwoIntegersRoundsTiesToEven) {
    const int mode = std::fegetround();
    for (const int s : support::scaleFactors(-17, 18)) {
        for (const int a : {-32768, -32767, -6, -3, -2, -1, 0, 1, 2, 3, 5, 6, 16384, 16385, 32767}) {
            const double exact = std::ldexp(a, -std::clamp(s, -100, 100));
            std::fesetround(FE_TONEAREST);
            const auto want = static_cast<Orb16s>(std::clamp(std::nearbyint(exact), -32768.0, 32767.0));
            for (const int other : {FE_TONEAREST, FE_UPWARD}) {
                std::fesetround(other);
                const auto one = rounded({static_cast<Orb16s>(a)}, s), two = rounded({7, static_cast<Orb16s>(a)}, s);
                std::fesetround(mode);
                ASSERT_TRUE(one[0].re == want && one[0].im == 0) << a << " by 2^-" << s << ": " << one[0].re;
                ASSERT_TRUE(two[1].re == want && two[1].im == 0) << a << " by 2^-" << s << ": " << two[1].re;
            }
        }
    }
}

// The scales of the transforms inside are settled; only what their memory needs can fail.
TEST(Hilbert, RefusesLengthsWithoutMemory) {
    OrbsHilbertSpec_32f32fc* spec = nullptr;
    EXPECT_EQ(orbsHilbertInitAlloc_32f32fc(&spec, std::numeric_limits<int>::max(), orbAlgHintNone), orbStsMemAllocErr);
    EXPECT_EQ(spec, nullptr);
}

} // namespace
