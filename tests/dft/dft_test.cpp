// Transforms of any length against a long double reference, and every way of calling them against each other.
#include "dft/members.h"

namespace {

using namespace dft_tests;

template <class P>
class Dft : public testing::Test {};
using Precisions = testing::Types<Single, Double>;
TYPED_TEST_SUITE(Dft, Precisions);

template <class T>
std::vector<Complex> widened(const std::vector<T>& interleaved) {
    std::vector<Complex> x(interleaved.size() / 2);
    for (std::size_t n = 0; n < x.size(); ++n) x[n] = {interleaved[2 * n], interleaved[2 * n + 1]};
    return x;
}
template <class C, class T>
C* asComplex(T* p) {
    return reinterpret_cast<C*>(p);
}

// ---- Complex ----

template <class P>
void expectComplexAccurate(std::size_t n) {
    using T = typename P::Real;
    using C = typename P::Interleaved;
    const auto x = randomVector<T>(2 * n);
    std::vector<T> y(2 * n);
    auto exact = support::fourierOfAnyLength(widened(x), -1);
    for (int inverse = 0; inverse < 2; ++inverse) {
        if (inverse) std::reverse(exact.begin() + 1, exact.end()); // bin k of the inverse is bin n - k
        for (int flag : flagsOf(n)) {
            const auto spec = P::interleaved.make(n, flag);
            ASSERT_EQ(P::complex[inverse](asComplex<const C>(x.data()), asComplex<C>(y.data()), spec.get(), nullptr),
                      orbStsNoErr);
            EXPECT_LE(support::relativeError(y.data(), exact.data(), n, scaleOf(flag, inverse, n)),
                      tolerance<T>(n, false))
                << nameOf(P::complex[inverse]) << " of length " << n << ", flag " << flag;
        }
    }
}
TYPED_TEST(Dft, ComplexAgreesWithLongDouble) {
    for (std::size_t n : lengths()) expectComplexAccurate<TypeParam>(n);
}

// In place, with and without a buffer, in planes, each of them in place or not: always the same bits, and nothing
// outside the buffer of the size told is touched.
template <class P>
void expectSameBitsHoweverCalled(std::size_t n, int inverse) {
    using T = typename P::Real;
    using C = typename P::Interleaved;
    const int flag = allFlags[n % 4];
    SCOPED_TRACE(testing::Message() << nameOf(P::complex[inverse]) << " of length " << n << ", flag " << flag);
    const auto spec = P::interleaved.make(n, flag);
    const auto planeSpec = P::planes.make(n, flag);
    const auto x = randomVector<T>(2 * n);
    auto source = x;
    std::vector<T> expected(2 * n);
    P::complex[inverse](asComplex<const C>(source.data()), asComplex<C>(expected.data()), spec.get(), nullptr);
    EXPECT_TRUE(sameBits(source, x)) << "the source was written";
    for (std::size_t shift : {0u, 13u}) {
        support::Guarded<Orb8u> buffer(P::interleaved.workSize(spec), support::Edge::end, shift);
        auto block = x;
        P::complex[inverse](asComplex<const C>(block.data()), asComplex<C>(block.data()), spec.get(), buffer.data());
        EXPECT_TRUE(sameBits(block, expected)) << "in place, shift " << shift;
        EXPECT_TRUE(buffer.intact());
    }
    P::complex[inverse](asComplex<const C>(source.data()), asComplex<C>(source.data()), spec.get(), nullptr);
    EXPECT_TRUE(sameBits(source, expected)) << "in place, no buffer";

    std::vector<T> re(n), im(n), wantedRe(n), wantedIm(n);
    for (std::size_t k = 0; k < n; ++k) {
        re[k] = x[2 * k], im[k] = x[2 * k + 1];
        wantedRe[k] = expected[2 * k], wantedIm[k] = expected[2 * k + 1];
    }
    support::Guarded<Orb8u> buffer(P::planes.workSize(planeSpec), support::Edge::end, 7);
    const auto transform = [&](const T* fromRe, const T* fromIm, T* toRe, T* toIm, const char* how) {
        P::complexPlanes[inverse](fromRe, fromIm, toRe, toIm, planeSpec.get(), buffer.data());
        EXPECT_TRUE(sameBits(toRe, wantedRe.data(), n)) << how;
        EXPECT_TRUE(sameBits(toIm, wantedIm.data(), n)) << how;
        EXPECT_TRUE(buffer.intact()) << how;
    };
    std::vector<T> outRe(n), outIm(n);
    transform(re.data(), im.data(), outRe.data(), outIm.data(), "planes");
    outRe = re;
    transform(outRe.data(), im.data(), outRe.data(), outIm.data(), "real plane in place");
    outIm = im;
    transform(re.data(), outIm.data(), outRe.data(), outIm.data(), "imaginary plane in place");
    outIm = re, outRe = im;
    transform(outIm.data(), outRe.data(), outRe.data(), outIm.data(), "planes exchanged");
    transform(re.data(), im.data(), re.data(), im.data(), "planes in place");
}
TYPED_TEST(Dft, EveryWayOfCallingGivesTheSameBits) {
    for (std::size_t n : lengths())
        for (int inverse = 0; inverse < 2; ++inverse) expectSameBitsHoweverCalled<TypeParam>(n, inverse);
}

// ---- Real ----

std::size_t valuesOf(std::size_t n, Layout layout) {
    return layout == ccs ? 2 * (n / 2 + 1) : n;
}

// The packed spectrum as n / 2 + 1 interleaved bins.
template <class T>
std::vector<T> bins(const std::vector<T>& packed, std::size_t n, Layout layout) {
    std::vector<T> result(2 * (n / 2 + 1));
    for (std::size_t k = 0; k <= n / 2; ++k) {
        if (layout == ccs) {
            result[2 * k] = packed[2 * k], result[2 * k + 1] = packed[2 * k + 1];
        } else if (k == 0) {
            result[0] = packed[0];
        } else if (2 * k == n) {
            result[n] = packed[layout == pack ? n - 1 : 1];
        } else {
            const std::size_t at = layout == perm && n % 2 == 0 ? 2 * k : 2 * k - 1;
            result[2 * k] = packed[at], result[2 * k + 1] = packed[at + 1];
        }
    }
    return result;
}

template <class P>
void expectReal(std::size_t n) {
    using T = typename P::Real;
    constexpr T notANumber = std::numeric_limits<T>::quiet_NaN();
    const auto x = randomVector<T>(n);
    const auto exact = support::fourierOfAnyLength({x.begin(), x.end()}, -1);
    for (int flag : flagsOf(n)) {
        const auto spec = P::real.make(n, flag);
        std::vector<T> expectedBins, expectedBack;
        for (Layout layout : {ccs, pack, perm}) {
            SCOPED_TRACE(testing::Message() << nameOf(P::forward[layout]) << " of length " << n << ", flag " << flag);
            std::vector<T> spectrum(valuesOf(n, layout)), back(n);
            ASSERT_EQ(P::forward[layout](x.data(), spectrum.data(), spec.get(), nullptr), orbStsNoErr);
            const auto half = bins(spectrum, n, layout);
            EXPECT_EQ(half[1], 0);
            if (n % 2 == 0) { EXPECT_EQ(half[n + 1], 0); }
            if (layout == ccs) {
                EXPECT_LE(support::relativeError(half.data(), exact.data(), n / 2 + 1, scaleOf(flag, false, n)),
                          tolerance<T>(n, true));
                expectedBins = half;
                spectrum[1] = notANumber; // not read on the way back
                if (n % 2 == 0) spectrum[n + 1] = notANumber;
            }
            EXPECT_TRUE(sameBits(half, expectedBins)) << "layouts differ";
            ASSERT_EQ(P::inverse[layout](spectrum.data(), back.data(), spec.get(), nullptr), orbStsNoErr);
            if (layout == ccs) expectedBack = back;
            EXPECT_TRUE(sameBits(back, expectedBack)) << "the way back, layouts differ";

            for (std::size_t shift : {0u, 13u}) {
                support::Guarded<T> block(spectrum.size());
                support::Guarded<Orb8u> buffer(P::real.workSize(spec), support::Edge::end, shift);
                std::copy(x.begin(), x.end(), block.begin());
                P::forward[layout](block.data(), block.data(), spec.get(), buffer.data());
                if (layout == ccs) {
                    EXPECT_TRUE(block[1] == 0 && (n % 2 || block[n + 1] == 0)) << "in place";
                    block[1] = spectrum[1];
                    if (n % 2 == 0) block[n + 1] = spectrum[n + 1];
                }
                EXPECT_TRUE(support::sameValues(block, spectrum)) << "in place";
                P::inverse[layout](block.data(), block.data(), spec.get(), buffer.data());
                EXPECT_TRUE(sameBits(block.data(), back.data(), n)) << "back, in place";
                EXPECT_TRUE(buffer.intact());
            }
        }
        // The way back of the spectrum itself, whose errors count too.
        const auto factor = scaleOf(flag, false, n) * scaleOf(flag, true, n) * static_cast<long double>(n);
        long double off = 0, all = 0;
        for (std::size_t k = 0; k < n; ++k) {
            off += std::norm(expectedBack[k] - x[k] * factor);
            all += std::norm(x[k] * factor);
        }
        EXPECT_LE(std::sqrt(off / all), 2 * tolerance<T>(n, true)) << "and back, length " << n << ", flag " << flag;
    }
}
TYPED_TEST(Dft, RealAgreesWithLongDoubleInEveryLayout) {
    for (std::size_t n : lengths()) expectReal<TypeParam>(n);
}

// ---- What the plans share ----

TYPED_TEST(Dft, PowersOfTwoAreThoseOfTheFft) {
    using T = typename TypeParam::Real;
    const auto x = randomVector<T>(64);
    const auto spec = TypeParam::real.make(64, ORB_FFT_SCALE_FWD);
    std::vector<T> got(64), want(64);
    TypeParam::forward[perm](x.data(), got.data(), spec.get(), nullptr);
    if constexpr (sizeof(T) == sizeof(Orb32f)) {
        OrbsFFTSpec_R_32f* fft = nullptr;
        ASSERT_EQ(orbsFFTInitAlloc_R_32f(&fft, 6, ORB_FFT_SCALE_FWD, orbAlgHintNone), orbStsNoErr);
        orbsFFTFwd_RToPerm_32f(x.data(), want.data(), fft, nullptr);
        orbsFFTFree_R_32f(fft);
    } else {
        OrbsFFTSpec_R_64f* fft = nullptr;
        ASSERT_EQ(orbsFFTInitAlloc_R_64f(&fft, 6, ORB_FFT_SCALE_FWD, orbAlgHintNone), orbStsNoErr);
        orbsFFTFwd_RToPerm_64f(x.data(), want.data(), fft, nullptr);
        orbsFFTFree_R_64f(fft);
    }
    EXPECT_TRUE(sameBits(got, want));
}

// One element that is not a number reaches every bin, and one of a spectrum every sample.
TYPED_TEST(Dft, NotANumberSpreads) {
    using T = typename TypeParam::Real;
    using C = typename TypeParam::Interleaved;
    const auto isNotANumber = [](T t) { return t != t; };
    for (std::size_t n : {3u, 7u, 12u, 77u, 149u, 151u, 302u, 945u}) {
        auto x = randomVector<T>(2 * n);
        x[n - 2] = std::numeric_limits<T>::quiet_NaN(); // in Perm layout a real part
        const auto spec = TypeParam::interleaved.make(n);
        std::vector<T> y(2 * n);
        TypeParam::complex[0](asComplex<const C>(x.data()), asComplex<C>(y.data()), spec.get(), nullptr);
        for (std::size_t k = 0; k < n; ++k) EXPECT_TRUE(isNotANumber(y[2 * k]) || isNotANumber(y[2 * k + 1])) << n;
        const auto real = TypeParam::real.make(n);
        TypeParam::inverse[perm](x.data(), y.data(), real.get(), nullptr);
        for (std::size_t k = 0; k < n; ++k) EXPECT_TRUE(isNotANumber(y[k])) << n << " " << k;
    }
}

// ---- Objects ----

std::size_t fftWork(std::size_t n, bool real, std::size_t valueSize) {
    int spec = 0, init = 0, work = 0;
    const int order = std::countr_zero(n);
    if (valueSize == 4) {
        (real ? orbsFFTGetSize_R_32f : orbsFFTGetSize_C_32fc)(order, ORB_FFT_SCALE_NONE, orbAlgHintNone, &spec, &init,
                                                              &work);
    } else {
        (real ? orbsFFTGetSize_R_64f : orbsFFTGetSize_C_64fc)(order, ORB_FFT_SCALE_NONE, orbAlgHintNone, &spec, &init,
                                                              &work);
    }
    return static_cast<std::size_t>(work);
}
// The complex values of scratch that a mixed-radix plan counts for its largest general radix.
std::size_t generalRadixScratch(std::size_t n, bool outOfOrder) {
    auto radices = radicesOf(n);
    // A 4 or a 2 changes places with the final radix.
    const std::size_t even = radices[0] != 4 && radices[1] == 4 ? 1 : 0;
    if (!outOfOrder && radices[even] % 2 == 0) std::swap(radices[even], radices.back());
    std::size_t values = 0, rest = n;
    for (std::size_t i = 0; i < radices.size(); ++i) {
        rest /= radices[i];
        if (radices[i] > 5)
            values = std::max(values, i + 1 < radices.size() && rest % 4 == 0 ? 4 * radices[i] : radices[i]);
    }
    return values;
}
std::size_t definedWork(std::size_t n, bool real, std::size_t r, bool outOfOrder) {
    const std::size_t points = real && n % 2 == 0 ? n / 2 : n;
    switch (planOf(n, real)) {
    case Plan::small:
        return 0;
    case Plan::powerOfTwo:
        return fftWork(n, real, r);
    case Plan::mixedRadix:
        return 2 * r * ((outOfOrder ? 0 : points) + generalRadixScratch(points, outOfOrder)) + 64;
    case Plan::direct:
        return (real && n % 2 ? r : 2 * r) * points + 32;
    case Plan::chirp: {
        const std::size_t length = std::bit_ceil(2 * points - 1);
        return fftWork(length, false, r) + 2 * r * length + 32;
    }
    }
    return 0;
}
TYPED_TEST(Dft, WorkSizesAreThoseDefined) {
    constexpr std::size_t r = sizeof(typename TypeParam::Real);
    for (std::size_t n : lengths()) {
        const auto interleaved = TypeParam::interleaved.make(n);
        EXPECT_EQ(TypeParam::interleaved.workSize(interleaved), definedWork(n, false, r, false)) << n;
        EXPECT_EQ(TypeParam::planes.workSize(TypeParam::planes.make(n)), definedWork(n, false, r, false)) << n;
        EXPECT_EQ(TypeParam::real.workSize(TypeParam::real.make(n)), definedWork(n, true, r, false)) << n;
        const bool stays = n > TypeParam::outOfOrderLimit && planOf(n, false) == Plan::mixedRadix;
        EXPECT_EQ(TypeParam::outOfOrder.workSize(TypeParam::outOfOrder.make(n)), definedWork(n, false, r, stays)) << n;
    }
}

template <class S>
void expectRefused(const Cycle<S>& cycle) {
    S* spec = nullptr;
    EXPECT_EQ(cycle.init(&spec, std::numeric_limits<int>::max(), ORB_FFT_SCALE_NONE, orbAlgHintNone),
              orbStsMemAllocErr);
    EXPECT_EQ(cycle.init(&spec, 1 << 30, ORB_FFT_SCALE_NONE, orbAlgHintNone), orbStsMemAllocErr);
    EXPECT_EQ(spec, nullptr);
}
TYPED_TEST(Dft, LengthsBeyondASizeIn32BitsAreRefused) {
    expectRefused(TypeParam::interleaved);
    expectRefused(TypeParam::planes);
    expectRefused(TypeParam::real);
    expectRefused(TypeParam::outOfOrder);
}

// ---- Out of order ----

// The place of bin k: its digits, of which the final radix's runs fastest, read from the other end.
std::size_t placeOf(std::size_t k, std::size_t n, const std::vector<std::size_t>& radices) {
    std::size_t place = 0, run = n;
    for (std::size_t i = radices.size(); i-- > 0;) {
        run /= radices[i];
        place += k % radices[i] * run;
        k /= radices[i];
    }
    return place;
}

TYPED_TEST(Dft, OutOfOrderBinsStandWhereTheirDigitsSay) {
    using T = typename TypeParam::Real;
    using C = typename TypeParam::Interleaved;
    for (std::size_t n : lengths()) {
        SCOPED_TRACE(testing::Message() << "length " << n);
        const auto x = randomVector<T>(2 * n);
        std::vector<T> natural(2 * n), digits(2 * n), back(2 * n);
        const auto ordered = TypeParam::interleaved.make(n, ORB_FFT_SCALE_FWD);
        const auto spec = TypeParam::outOfOrder.make(n, ORB_FFT_SCALE_FWD);
        support::Guarded<Orb8u> buffer(TypeParam::outOfOrder.workSize(spec));
        TypeParam::complex[0](asComplex<const C>(x.data()), asComplex<C>(natural.data()), ordered.get(), nullptr);
        TypeParam::complexOutOfOrder[0](asComplex<const C>(x.data()), asComplex<C>(digits.data()), spec.get(),
                                        buffer.data());
        TypeParam::complexOutOfOrder[1](asComplex<const C>(digits.data()), asComplex<C>(back.data()), spec.get(),
                                        buffer.data());
        auto inPlace = x;
        TypeParam::complexOutOfOrder[0](asComplex<const C>(inPlace.data()), asComplex<C>(inPlace.data()), spec.get(),
                                        nullptr);
        EXPECT_TRUE(sameBits(inPlace, digits)) << "in place";
        TypeParam::complexOutOfOrder[1](asComplex<const C>(inPlace.data()), asComplex<C>(inPlace.data()), spec.get(),
                                        nullptr);
        EXPECT_TRUE(sameBits(inPlace, back)) << "back, in place";
        EXPECT_TRUE(buffer.intact());
        const double bound = 2 * tolerance<T>(n, false);
        EXPECT_LE(support::relativeError(back.data(), widened(x).data(), n), bound) << "and back";
        if (n <= TypeParam::outOfOrderLimit || planOf(n, false) != Plan::mixedRadix) {
            EXPECT_TRUE(sameBits(digits, natural));
            continue;
        }
        std::vector<Complex> wanted(n);
        const auto inOrder = widened(natural);
        for (std::size_t k = 0; k < n; ++k) wanted[placeOf(k, n, radicesOf(n))] = inOrder[k];
        EXPECT_LE(support::relativeError(digits.data(), wanted.data(), n), bound);
    }
}

} // namespace
