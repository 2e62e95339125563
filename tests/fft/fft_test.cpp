// Power-of-two transforms against a long double reference, and every way of calling them against each other.
#include "orbs.h"

#include "support/compare.h"
#include "support/fourier.h"
#include "support/guarded.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

using support::Complex;
using support::nameOf;
using support::randomVector;
using support::sameBits;

// The members of one precision.
struct Single {
    using Real = Orb32f;
    using Interleaved = Orb32fc;
    using SpecC = OrbsFFTSpec_C_32fc;
    using SpecP = OrbsFFTSpec_C_32f;
    using SpecR = OrbsFFTSpec_R_32f;
    static constexpr int blockedOrder = 18; // the first complex order that runs blocked
    static constexpr auto initC = orbsFFTInitAlloc_C_32fc;
    static constexpr auto initP = orbsFFTInitAlloc_C_32f;
    static constexpr auto initR = orbsFFTInitAlloc_R_32f;
    static constexpr auto freeC = orbsFFTFree_C_32fc;
    static constexpr auto freeP = orbsFFTFree_C_32f;
    static constexpr auto freeR = orbsFFTFree_R_32f;
    static constexpr auto bufferC = orbsFFTGetBufSize_C_32fc;
    static constexpr auto bufferR = orbsFFTGetBufSize_R_32f;
    static constexpr decltype(&orbsFFTFwd_CToC_32fc) complex[] = {orbsFFTFwd_CToC_32fc, orbsFFTInv_CToC_32fc};
    static constexpr decltype(&orbsFFTFwd_CToC_32fc_I) complexI[] = {orbsFFTFwd_CToC_32fc_I, orbsFFTInv_CToC_32fc_I};
    static constexpr decltype(&orbsFFTFwd_CToC_32f) planes[] = {orbsFFTFwd_CToC_32f, orbsFFTInv_CToC_32f};
    static constexpr decltype(&orbsFFTFwd_CToC_32f_I) planesI[] = {orbsFFTFwd_CToC_32f_I, orbsFFTInv_CToC_32f_I};
    static constexpr decltype(&orbsFFTFwd_RToCCS_32f) forward[] = {orbsFFTFwd_RToCCS_32f, orbsFFTFwd_RToPack_32f,
                                                                   orbsFFTFwd_RToPerm_32f};
    static constexpr decltype(&orbsFFTFwd_RToCCS_32f_I) forwardI[] = {orbsFFTFwd_RToCCS_32f_I, orbsFFTFwd_RToPack_32f_I,
                                                                      orbsFFTFwd_RToPerm_32f_I};
    static constexpr decltype(&orbsFFTInv_CCSToR_32f) inverse[] = {orbsFFTInv_CCSToR_32f, orbsFFTInv_PackToR_32f,
                                                                   orbsFFTInv_PermToR_32f};
    static constexpr decltype(&orbsFFTInv_CCSToR_32f_I) inverseI[] = {orbsFFTInv_CCSToR_32f_I, orbsFFTInv_PackToR_32f_I,
                                                                      orbsFFTInv_PermToR_32f_I};
};
struct Double {
    using Real = Orb64f;
    using Interleaved = Orb64fc;
    using SpecC = OrbsFFTSpec_C_64fc;
    using SpecP = OrbsFFTSpec_C_64f;
    using SpecR = OrbsFFTSpec_R_64f;
    static constexpr int blockedOrder = 17;
    static constexpr auto initC = orbsFFTInitAlloc_C_64fc;
    static constexpr auto initP = orbsFFTInitAlloc_C_64f;
    static constexpr auto initR = orbsFFTInitAlloc_R_64f;
    static constexpr auto freeC = orbsFFTFree_C_64fc;
    static constexpr auto freeP = orbsFFTFree_C_64f;
    static constexpr auto freeR = orbsFFTFree_R_64f;
    static constexpr auto bufferC = orbsFFTGetBufSize_C_64fc;
    static constexpr auto bufferR = orbsFFTGetBufSize_R_64f;
    static constexpr decltype(&orbsFFTFwd_CToC_64fc) complex[] = {orbsFFTFwd_CToC_64fc, orbsFFTInv_CToC_64fc};
    static constexpr decltype(&orbsFFTFwd_CToC_64fc_I) complexI[] = {orbsFFTFwd_CToC_64fc_I, orbsFFTInv_CToC_64fc_I};
    static constexpr decltype(&orbsFFTFwd_CToC_64f) planes[] = {orbsFFTFwd_CToC_64f, orbsFFTInv_CToC_64f};
    static constexpr decltype(&orbsFFTFwd_CToC_64f_I) planesI[] = {orbsFFTFwd_CToC_64f_I, orbsFFTInv_CToC_64f_I};
    static constexpr decltype(&orbsFFTFwd_RToCCS_64f) forward[] = {orbsFFTFwd_RToCCS_64f, orbsFFTFwd_RToPack_64f,
                                                                   orbsFFTFwd_RToPerm_64f};
    static constexpr decltype(&orbsFFTFwd_RToCCS_64f_I) forwardI[] = {orbsFFTFwd_RToCCS_64f_I, orbsFFTFwd_RToPack_64f_I,
                                                                      orbsFFTFwd_RToPerm_64f_I};
    static constexpr decltype(&orbsFFTInv_CCSToR_64f) inverse[] = {orbsFFTInv_CCSToR_64f, orbsFFTInv_PackToR_64f,
                                                                   orbsFFTInv_PermToR_64f};
    static constexpr decltype(&orbsFFTInv_CCSToR_64f_I) inverseI[] = {orbsFFTInv_CCSToR_64f_I, orbsFFTInv_PackToR_64f_I,
                                                                      orbsFFTInv_PermToR_64f_I};
};

template <class S>
using Object = std::unique_ptr<S, OrbStatus (*)(S*)>;

template <class S>
Object<S> make(OrbStatus (*init)(S**, int, int, OrbHintAlgorithm), OrbStatus (*release)(S*), int order,
               int flag = ORB_FFT_SCALE_NONE) {
    S* spec = nullptr;
    EXPECT_EQ(init(&spec, order, flag, orbAlgHintNone), orbStsNoErr) << "order " << order;
    return {spec, release};
}

enum Layout { ccs, pack, perm };

// The packed spectrum as N/2 + 1 interleaved bins.
template <class T>
std::vector<T> bins(const std::vector<T>& packed, std::size_t n, Layout layout) {
    if (n == 1) return {packed[0], 0};
    std::vector<T> result(n + 2);
    result[0] = packed[0];
    result[n] = packed[layout == ccs ? n : layout == pack ? n - 1 : 1];
    for (std::size_t i = 2; i < n; ++i) result[i] = packed[layout == pack ? i - 1 : i];
    return result;
}

long double scaleOf(int flag, bool inverse, std::size_t n) {
    if (flag == ORB_FFT_SCALE_SQRT) return 1 / std::sqrt(static_cast<long double>(n));
    const bool scaled = flag == (inverse ? ORB_FFT_SCALE_INV : ORB_FFT_SCALE_FWD);
    return scaled ? 1 / static_cast<long double>(n) : 1;
}

// Each of the `order` layers rounds a product and two sums, each by half an epsilon at most, and a scale one more.
template <class T>
double tolerance(int order) {
    return (order + 1) * 1.5 * std::numeric_limits<T>::epsilon() / 2;
}

// The relative error lies within the tolerance; else the bin that is furthest off is told.
template <class T>
testing::AssertionResult withinRelative(double tolerance, const T* bins, const Complex* exact, std::size_t count,
                                        long double scale) {
    const double error = support::relativeError(bins, exact, count, scale);
    if (error <= tolerance) return testing::AssertionSuccess();
    const auto off = [=](std::size_t k) { return std::abs(Complex(bins[2 * k], bins[2 * k + 1]) - exact[k] * scale); };
    std::size_t worst = 0;
    for (std::size_t k = 0; k < count; ++k)
        if (!(off(k) <= off(worst))) worst = k;
    return testing::AssertionFailure() << "off by " << error << ", " << tolerance << " at most; bin " << worst << " of "
                                       << count << " is (" << bins[2 * worst] << ", " << bins[2 * worst + 1]
                                       << "), not " << exact[worst] * scale;
}

constexpr int allFlags[] = {ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE};

template <class P>
class Fft : public testing::Test {};
using Precisions = testing::Types<Single, Double>;
TYPED_TEST_SUITE(Fft, Precisions);

template <class P>
void expectComplexAccurate(int order) {
    using T = typename P::Real;
    const std::size_t n = std::size_t{1} << order;
    const auto x = randomVector<T>(2 * n);
    std::vector<T> y(2 * n);
    std::vector<Complex> exact(n);
    for (std::size_t k = 0; k < n; ++k) exact[k] = {x[2 * k], x[2 * k + 1]};
    support::fourier(exact, -1);
    for (int inverse = 0; inverse < 2; ++inverse) {
        if (inverse) std::reverse(exact.begin() + 1, exact.end()); // bin k of the inverse is bin n - k
        for (int flag : allFlags) {
            const auto spec = make(P::initC, P::freeC, order, flag);
            ASSERT_EQ(P::complex[inverse](reinterpret_cast<const typename P::Interleaved*>(x.data()),
                                          reinterpret_cast<typename P::Interleaved*>(y.data()), spec.get(), nullptr),
                      orbStsNoErr);
            EXPECT_TRUE(withinRelative(tolerance<T>(order), y.data(), exact.data(), n, scaleOf(flag, inverse, n)))
                << nameOf(P::complex[inverse]) << " of order " << order << ", flag " << flag;
        }
    }
}

template <class P>
void expectRealAccurate(int order) {
    using T = typename P::Real;
    const std::size_t n = std::size_t{1} << order;
    const auto x = randomVector<T>(n);
    std::vector<Complex> exact(x.begin(), x.end());
    support::fourier(exact, -1);
    for (int flag : allFlags) {
        const auto spec = make(P::initR, P::freeR, order, flag);
        for (Layout layout : {ccs, pack, perm}) {
            std::vector<T> spectrum(n + 2, T(7)), back(n + 2);
            ASSERT_EQ(P::forward[layout](x.data(), spectrum.data(), spec.get(), nullptr), orbStsNoErr);
            if (layout == ccs) {
                EXPECT_EQ(spectrum[1], 0);
                if (n > 1) { EXPECT_EQ(spectrum[n + 1], 0); }
                spectrum[1] = std::numeric_limits<T>::quiet_NaN(); // not read on the way back
                if (n > 1) spectrum[n + 1] = spectrum[1];
            } else {
                EXPECT_EQ(spectrum[n], T(7)) << "one element too many";
            }
            const auto half = bins(spectrum, n, layout);
            EXPECT_TRUE(
                withinRelative(tolerance<T>(order + 1), half.data(), exact.data(), n / 2 + 1, scaleOf(flag, false, n)))
                << nameOf(P::forward[layout]) << " of order " << order << ", flag " << flag;
            ASSERT_EQ(P::inverse[layout](spectrum.data(), back.data(), spec.get(), nullptr), orbStsNoErr);
            const auto factor = scaleOf(flag, false, n) * scaleOf(flag, true, n) * static_cast<long double>(n);
            double worst = 0;
            for (std::size_t k = 0; k < n; ++k)
                worst = std::max<double>(worst, std::abs(back[k] - static_cast<T>(x[k] * factor)));
            EXPECT_LE(worst, 5 * 2 * tolerance<T>(order + 1) * static_cast<double>(factor)) // five sigma, two ways
                << nameOf(P::inverse[layout]) << " of order " << order << ", flag " << flag;
        }
    }
}

TYPED_TEST(Fft, ComplexAgreesWithLongDoubleInEveryOrderAndFlag) {
    for (int order = 0; order <= 14; ++order) expectComplexAccurate<TypeParam>(order);
}
TYPED_TEST(Fft, ComplexAgreesAroundTheBlockedOrders) {
    constexpr int blocked = TypeParam::blockedOrder;
    for (int order : {15, blocked - 1, blocked, blocked + 1}) expectComplexAccurate<TypeParam>(order);
    expectComplexAccurate<TypeParam>(21); // an odd number of top levels in single precision
}
TYPED_TEST(Fft, RealAgreesWithLongDoubleInEveryOrderFlagAndLayout) {
    for (int order = 0; order <= 14; ++order) expectRealAccurate<TypeParam>(order);
    for (int order = 18; order <= 19; ++order) expectRealAccurate<TypeParam>(order);
}

TYPED_TEST(Fft, ImpulseAndConstantAreExact) {
    using T = typename TypeParam::Real;
    using C = typename TypeParam::Interleaved;
    for (int order = 0; order <= 12; ++order) {
        const std::size_t n = std::size_t{1} << order;
        const auto spec = make(TypeParam::initC, TypeParam::freeC, order);
        std::vector<C> x(n, C{0, 0});
        x[0] = {1, -2};
        ASSERT_EQ(TypeParam::complexI[0](x.data(), spec.get(), nullptr), orbStsNoErr);
        ASSERT_TRUE(sameBits(x, std::vector<C>(n, C{1, -2}))) << nameOf(TypeParam::complexI[0]) << " of an impulse";
        std::fill(x.begin(), x.end(), C{3, 5});
        ASSERT_EQ(TypeParam::complexI[0](x.data(), spec.get(), nullptr), orbStsNoErr);
        EXPECT_TRUE(x[0].re == static_cast<T>(3 * n) && x[0].im == static_cast<T>(5 * n));
        for (std::size_t k = 1; k < n; ++k) ASSERT_TRUE(x[k].re == 0 && x[k].im == 0) << order << " " << k;
    }
}

// In place, at any alignment, with a buffer at any alignment, and in planes: always the same bits.
template <class P>
void expectSameBitsHoweverCalled(int order) {
    using T = typename P::Real;
    using C = typename P::Interleaved;
    const std::size_t n = std::size_t{1} << order;
    const auto x = randomVector<T>(2 * n);
    const auto asComplex = [](T* p) { return reinterpret_cast<C*>(p); };
    for (int inverse = 0; inverse < 2; ++inverse) {
        for (int flag : {ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE}) {
            SCOPED_TRACE(testing::Message() << nameOf(P::complex[inverse]) << " of order " << order);
            const auto spec = make(P::initC, P::freeC, order, flag);
            const auto planeSpec = make(P::initP, P::freeP, order, flag);
            std::vector<T> expected(2 * n);
            auto source = x;
            ASSERT_EQ(P::complex[inverse](asComplex(source.data()), asComplex(expected.data()), spec.get(), nullptr),
                      orbStsNoErr);
            EXPECT_TRUE(sameBits(source, x)) << "the source was written";
            int bufferSize = -1;
            ASSERT_EQ(P::bufferC(spec.get(), &bufferSize), orbStsNoErr);
            EXPECT_EQ(bufferSize == 0, order < 4);
            for (std::size_t shift : {0u, 1u, 3u}) {
                // Buffers are bytes; data are elements: shift each by what its type allows.
                support::Guarded<Orb8u> buffer(static_cast<std::size_t>(bufferSize), support::Edge::begin, shift);
                support::Guarded<T> in(2 * n, support::Edge::begin, shift * sizeof(T));
                support::Guarded<T> out(2 * n, support::Edge::end, shift * sizeof(T));
                std::copy(x.begin(), x.end(), in.begin());
                P::complex[inverse](asComplex(in.data()), asComplex(out.data()), spec.get(), buffer.data());
                EXPECT_TRUE(sameBits(out, expected)) << "shift " << shift;
                P::complexI[inverse](asComplex(in.data()), spec.get(), buffer.data());
                EXPECT_TRUE(sameBits(in, expected)) << "in place, shift " << shift;
                EXPECT_TRUE(in.intact() && out.intact() && buffer.intact());
            }
            std::vector<T> inPlace = x;
            P::complexI[inverse](asComplex(inPlace.data()), spec.get(), nullptr);
            EXPECT_TRUE(sameBits(inPlace, expected)) << "in place, no buffer";

            std::vector<T> re(n), im(n), wantedRe(n), wantedIm(n), outRe(n), outIm(n);
            for (std::size_t k = 0; k < n; ++k) {
                re[k] = x[2 * k], im[k] = x[2 * k + 1];
                wantedRe[k] = expected[2 * k], wantedIm[k] = expected[2 * k + 1];
            }
            P::planes[inverse](re.data(), im.data(), outRe.data(), outIm.data(), planeSpec.get(), nullptr);
            EXPECT_TRUE(sameBits(outRe, wantedRe)) << "planes";
            EXPECT_TRUE(sameBits(outIm, wantedIm)) << "planes";
            auto mixed = re;
            P::planes[inverse](mixed.data(), im.data(), mixed.data(), outIm.data(), planeSpec.get(), nullptr);
            EXPECT_TRUE(sameBits(mixed, wantedRe)) << "one plane in place";
            EXPECT_TRUE(sameBits(outIm, wantedIm)) << "one plane in place";
            P::planesI[inverse](re.data(), im.data(), planeSpec.get(), nullptr);
            EXPECT_TRUE(sameBits(re, wantedRe)) << "planes in place";
            EXPECT_TRUE(sameBits(im, wantedIm)) << "planes in place";
        }
    }
}

template <class P>
void expectSameRealBitsHoweverCalled(int order) {
    using T = typename P::Real;
    const std::size_t n = std::size_t{1} << order;
    const auto x = randomVector<T>(n);
    const auto spec = make(P::initR, P::freeR, order, ORB_FFT_SCALE_SQRT);
    int bufferSize = -1;
    ASSERT_EQ(P::bufferR(spec.get(), &bufferSize), orbStsNoErr);
    std::vector<T> timeDomain;
    for (Layout layout : {ccs, pack, perm}) {
        SCOPED_TRACE(testing::Message() << nameOf(P::forward[layout]) << " of order " << order);
        const std::size_t size = layout != ccs ? n : n == 1 ? 2 : n + 2;
        std::vector<T> spectrum(size), back(n);
        P::forward[layout](x.data(), spectrum.data(), spec.get(), nullptr);
        P::inverse[layout](spectrum.data(), back.data(), spec.get(), nullptr);
        if (layout == ccs) timeDomain = back;
        EXPECT_TRUE(sameBits(back, timeDomain)) << "layouts differ";

        support::Guarded<T> block(size, support::Edge::end);
        support::Guarded<Orb8u> buffer(static_cast<std::size_t>(bufferSize), support::Edge::end, 5);
        std::copy(x.begin(), x.end(), block.begin());
        P::forwardI[layout](block.data(), spec.get(), buffer.data());
        EXPECT_TRUE(sameBits(block, spectrum)) << "in place";
        P::inverseI[layout](block.data(), spec.get(), buffer.data());
        EXPECT_TRUE(sameBits(block.data(), back.data(), n)) << "back, in place";
    }
}

TYPED_TEST(Fft, EveryWayOfCallingGivesTheSameBits) {
    for (int order = 0; order <= 13; ++order) expectSameBitsHoweverCalled<TypeParam>(order);
    constexpr int blocked = TypeParam::blockedOrder;
    for (int order : {blocked - 1, blocked, blocked + 1, 21}) expectSameBitsHoweverCalled<TypeParam>(order);
}
TYPED_TEST(Fft, EveryWayOfCallingARealTransformGivesTheSameBits) {
    for (int order = 0; order <= 13; ++order) expectSameRealBitsHoweverCalled<TypeParam>(order);
    for (int order = TypeParam::blockedOrder; order <= TypeParam::blockedOrder + 2; ++order)
        expectSameRealBitsHoweverCalled<TypeParam>(order);
}

// Up to eight points the scale goes on the first sums: an eighth of 20 units of the last place there is rounds to 2,
// and twice that is 4, where an eighth of 40 is 5.
TEST(FftSmall, ScaleMultipliesTheFirstSums) {
    const auto spec = make(orbsFFTInitAlloc_C_32fc, orbsFFTFree_C_32fc, 3, ORB_FFT_SCALE_FWD);
    const float unit = std::numeric_limits<float>::denorm_min();
    std::vector<Orb32fc> x(8, Orb32fc{0, 0});
    x[0].re = x[1].re = 20 * unit;
    orbsFFTFwd_CToC_32fc_I(x.data(), spec.get(), nullptr);
    EXPECT_EQ(x[0].re, 4 * unit);
}

// Sixteen points as the sum is told: four by four, twiddles between, elements at distance 2 before those at distance 1.
template <class T>
std::vector<T> sixteenPoints(const std::vector<T>& samples) {
    struct Element {
        T re, im;
    };
    const auto four = [](Element(&x)[4]) {
        const Element s0{x[0].re + x[2].re, x[0].im + x[2].im}, d0{x[0].re - x[2].re, x[0].im - x[2].im};
        const Element s1{x[1].re + x[3].re, x[1].im + x[3].im}, d1{x[1].re - x[3].re, x[1].im - x[3].im};
        x[0] = {s0.re + s1.re, s0.im + s1.im};
        x[1] = {d0.re + d1.im, d0.im - d1.re};
        x[2] = {s0.re - s1.re, s0.im - s1.im};
        x[3] = {d0.re - d1.im, d0.im + d1.re};
    };
    Element layer[4][4]; // [sample modulo 4][result]
    for (std::size_t n = 0; n < 4; ++n) {
        for (std::size_t q = 0; q < 4; ++q) layer[n][q] = {samples[2 * (4 * q + n)], samples[2 * (4 * q + n) + 1]};
        four(layer[n]);
    }
    std::vector<T> results(32);
    for (std::size_t r = 0; r < 4; ++r) {
        Element x[4];
        for (std::size_t n = 0; n < 4; ++n) {
            const double step = std::numbers::pi / 8; // the table rounds the sine of a rounded angle
            const double cosines[] = {1, std::cos(step), std::sin(2 * step), std::sin(step), 0};
            const auto cosine = [&](std::size_t turn) { // of 2 pi turn / 16
                const std::size_t m = turn % 16 <= 8 ? turn % 16 : 16 - turn % 16;
                return static_cast<T>(m <= 4 ? cosines[m] : -cosines[8 - m]);
            };
            const T re = cosine(n * r), im = T(0) - cosine(n * r + 12);
            const Element y = layer[n][r];
            x[n] = n == 0 ? y : Element{re * y.re - im * y.im, re * y.im + im * y.re};
        }
        four(x);
        for (std::size_t j = 0; j < 4; ++j) results[2 * (4 * j + r)] = x[j].re, results[2 * (4 * j + r) + 1] = x[j].im;
    }
    return results;
}

// However a tier adds, zeros keep the sign and infinities and NaN the places that plain sums give them.
TYPED_TEST(Fft, SpecialValuesGoWherePlainSumsTakeThem) {
    using T = typename TypeParam::Real;
    using C = typename TypeParam::Interleaved;
    using Limits = std::numeric_limits<T>;
    const auto spec = make(TypeParam::initC, TypeParam::freeC, 4);
    support::Random random(7);
    const T rare[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max()};
    const T usual[] = {T(0), -T(0), T(1), T(-1), 3 * Limits::denorm_min(), -Limits::min()};
    for (int run = 0; run < 2000; ++run) {
        std::vector<T> x(32), y(32);
        for (T& value : x) value = usual[random() % (run % 2 ? 2 : 6)];
        if (run % 3 == 0) x[random() % 32] = rare[random() % 4];
        const auto wanted = sixteenPoints(x);
        TypeParam::complex[0](reinterpret_cast<const C*>(x.data()), reinterpret_cast<C*>(y.data()), spec.get(),
                              nullptr);
        for (std::size_t n = 0; n < 32; ++n) {
            if (std::isnan(wanted[n]) && std::isnan(y[n])) continue;
            ASSERT_TRUE(wanted[n] == y[n] && std::signbit(wanted[n]) == std::signbit(y[n])) << run << ": " << n;
        }
    }
}

#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Orders whose sub-transforms are blocked themselves: a few impulses have a spectrum that can be told bin by bin.
template <class P>
void expectImpulsesTransformed(int order) {
    using C = typename P::Interleaved;
    const std::size_t n = std::size_t{1} << order;
    const auto spec = make(P::initC, P::freeC, order);
    std::vector<C> x(n, C{0, 0});
    struct Impulse {
        std::size_t at;
        long double re, im;
    };
    const Impulse impulses[] = {{1, 1, 0}, {n / 3, 0, 2}, {n - 5, -1, 1}};
    for (const Impulse& i : impulses)
        x[i.at] = {static_cast<typename P::Real>(i.re), static_cast<typename P::Real>(i.im)};
    ASSERT_EQ(P::complexI[0](x.data(), spec.get(), nullptr), orbStsNoErr);
    support::Random random(1);
    for (int m = 0; m < 20000; ++m) {
        const std::size_t k = random() % n;
        Complex exact = 0;
        for (const Impulse& i : impulses) {
            const long double turn = -2 * 3.14159265358979323846264338327950288L *
                                     static_cast<long double>((i.at * k) % n) / static_cast<long double>(n);
            exact += Complex(i.re, i.im) * Complex(std::cos(turn), std::sin(turn));
        }
        const Complex got(x[k].re, x[k].im);
        ASSERT_LE(std::abs(got - exact), 4 * tolerance<typename P::Real>(order))
            << nameOf(P::complexI[0]) << ", bin " << k;
    }
}
TEST(FftLarge, SubTransformsThatAreBlockedThemselves) {
    expectImpulsesTransformed<Single>(26);
    expectImpulsesTransformed<Double>(25);
}
#endif

} // namespace
