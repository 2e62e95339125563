// Transforms of 16-bit data: single precision between two conversions.
#include "dft/members.h"

namespace {

using namespace dft_tests;

constexpr Cycle<OrbsDFTSpec_C_16sc> interleaved{orbsDFTInitAlloc_C_16sc, orbsDFTGetBufSize_C_16sc, orbsDFTFree_C_16sc};
constexpr Cycle<OrbsDFTSpec_C_16s> planes{orbsDFTInitAlloc_C_16s, orbsDFTGetBufSize_C_16s, orbsDFTFree_C_16s};
constexpr Cycle<OrbsDFTSpec_R_16s> real{orbsDFTInitAlloc_R_16s, orbsDFTGetBufSize_R_16s, orbsDFTFree_R_16s};
constexpr decltype(&orbsDFTFwd_CToC_16sc_Sfs) complex16[] = {orbsDFTFwd_CToC_16sc_Sfs, orbsDFTInv_CToC_16sc_Sfs};
constexpr decltype(&orbsDFTFwd_CToC_16s_Sfs) planes16[] = {orbsDFTFwd_CToC_16s_Sfs, orbsDFTInv_CToC_16s_Sfs};
constexpr decltype(&orbsDFTFwd_RToCCS_16s_Sfs) forward16[] = {orbsDFTFwd_RToCCS_16s_Sfs, orbsDFTFwd_RToPack_16s_Sfs,
                                                              orbsDFTFwd_RToPerm_16s_Sfs};
constexpr decltype(&orbsDFTFwd_RToCCS_16s_Sfs) inverse16[] = {orbsDFTInv_CCSToR_16s_Sfs, orbsDFTInv_PackToR_16s_Sfs,
                                                              orbsDFTInv_PermToR_16s_Sfs};

constexpr std::size_t someLengths[] = {2, 3, 4, 5, 7, 12, 15, 16, 49, 60, 64, 105, 149, 150, 151, 181, 302, 945};
constexpr int someScaleFactors[] = {0, 1, 5, 9, 16, -1, -7, 40, -40, 1000, -1000, INT32_MAX, INT32_MIN};

// x * 2^-s, to nearest, ties to even, saturated; the conversion takes its power of two in single precision, and makes
// 32767 of 0 times infinity.
Orb16s rounded(Orb32f x, int s) {
    if (x == 0 && s < -127) return 32767;
    const long double scaled = std::nearbyint(std::ldexp(static_cast<long double>(x), -std::clamp(s, -2000, 2000)));
    return static_cast<Orb16s>(std::clamp(scaled, -32768.0L, 32767.0L));
}
std::vector<Orb16s> rounded(const std::vector<Orb32f>& x, int s) {
    std::vector<Orb16s> y(x.size());
    std::transform(x.begin(), x.end(), y.begin(), [=](Orb32f t) { return rounded(t, s); });
    return y;
}
// Not so large that every result saturates.
std::vector<Orb16s> someData(std::size_t count) {
    auto x = randomVector<Orb16s>(count);
    for (Orb16s& t : x) t = static_cast<Orb16s>(t / 16);
    return x;
}

TEST(DftSixteenBits, ComplexIsSinglePrecisionBetweenConversions) {
    for (std::size_t n : someLengths) {
        for (int inverse = 0; inverse < 2; ++inverse) {
            const int flag = inverse ? ORB_FFT_SCALE_SQRT : ORB_FFT_SCALE_NONE;
            const auto spec = interleaved.make(n, flag);
            const auto planeSpec = planes.make(n, flag);
            const auto single = Single::interleaved.make(n, flag);
            const auto x = someData(2 * n);
            std::vector<Orb32f> y(x.begin(), x.end());
            auto* complex = reinterpret_cast<Orb32fc*>(y.data());
            Single::complex[inverse](complex, complex, single.get(), nullptr);
            support::Guarded<Orb8u> buffer(interleaved.workSize(spec), support::Edge::end, 1);
            for (int s : someScaleFactors) {
                const auto want = rounded(y, s);
                std::vector<Orb16s> got(2 * n), re(n), im(n);
                const auto* source = reinterpret_cast<const Orb16sc*>(x.data());
                ASSERT_EQ(
                    complex16[inverse](source, reinterpret_cast<Orb16sc*>(got.data()), spec.get(), s, buffer.data()),
                    orbStsNoErr);
                EXPECT_TRUE(sameBits(got, want)) << nameOf(complex16[inverse]) << " of length " << n << ", " << s;
                got = x;
                auto* block = reinterpret_cast<Orb16sc*>(got.data());
                complex16[inverse](block, block, spec.get(), s, nullptr);
                EXPECT_TRUE(sameBits(got, want)) << "in place, length " << n << ", " << s;
                for (std::size_t k = 0; k < n; ++k) re[k] = x[2 * k], im[k] = x[2 * k + 1];
                planes16[inverse](re.data(), im.data(), re.data(), im.data(), planeSpec.get(), s, buffer.data());
                for (std::size_t k = 0; k < n; ++k) got[2 * k] = re[k], got[2 * k + 1] = im[k];
                EXPECT_TRUE(sameBits(got, want)) << "planes in place, length " << n << ", " << s;
                EXPECT_TRUE(buffer.intact());
            }
        }
    }
}

TEST(DftSixteenBits, RealIsSinglePrecisionBetweenConversions) {
    for (std::size_t n : someLengths) {
        const auto spec = real.make(n, ORB_FFT_SCALE_SQRT);
        const auto single = Single::real.make(n, ORB_FFT_SCALE_SQRT);
        support::Guarded<Orb8u> buffer(real.workSize(spec), support::Edge::end, 1);
        for (Layout layout : {ccs, pack, perm}) {
            const std::size_t values = layout == ccs ? 2 * (n / 2 + 1) : n;
            for (int s : someScaleFactors) {
                SCOPED_TRACE(testing::Message() << nameOf(forward16[layout]) << " of length " << n << ", " << s);
                auto x = someData(values);
                std::vector<Orb32f> y(x.begin(), x.end());
                Single::forward[layout](y.data(), y.data(), single.get(), nullptr);
                std::vector<Orb16s> got(values);
                ASSERT_EQ(forward16[layout](x.data(), got.data(), spec.get(), s, buffer.data()), orbStsNoErr);
                EXPECT_TRUE(sameBits(got, rounded(y, s)));
                got = x;
                forward16[layout](got.data(), got.data(), spec.get(), s, nullptr);
                EXPECT_TRUE(sameBits(got, rounded(y, s))) << "in place";

                y.assign(x.begin(), x.end());
                Single::inverse[layout](y.data(), y.data(), single.get(), nullptr);
                y.resize(n);
                got.assign(n, 0);
                ASSERT_EQ(inverse16[layout](x.data(), got.data(), spec.get(), s, buffer.data()), orbStsNoErr);
                EXPECT_TRUE(sameBits(got, rounded(y, s))) << "and back";
                inverse16[layout](x.data(), x.data(), spec.get(), s, nullptr);
                EXPECT_TRUE(sameBits(x.data(), got.data(), n)) << "and back, in place";
                EXPECT_TRUE(buffer.intact());
            }
        }
    }
}

Orb16s scaled(Orb16s v, int s) {
    return v == 0 ? v : rounded(v, s);
}

// One point is scaled by the rule of integers, with no work buffer however much is told.
TEST(DftSixteenBits, OnePointIsScaled) {
    const auto complex = interleaved.make(1, ORB_FFT_SCALE_FWD);
    const auto single = real.make(1);
    support::Guarded<Orb8u> nothing(0);
    for (int s : support::scaleFactors(-17, 17)) {
        for (Orb16s v : {Orb16s(-32768), Orb16s(-3), Orb16s(0), Orb16s(1), Orb16s(5), Orb16s(32767)}) {
            const Orb16sc x{v, static_cast<Orb16s>(~v)};
            Orb16sc y{};
            complex16[0](&x, &y, complex.get(), s, nothing.data());
            EXPECT_TRUE(y.re == scaled(x.re, s) && y.im == scaled(x.im, s)) << v << ", " << s;
            Orb16s ccsOfOne[2] = {v, 7};
            forward16[ccs](ccsOfOne, ccsOfOne, single.get(), s, nothing.data());
            EXPECT_TRUE(ccsOfOne[0] == scaled(v, s) && ccsOfOne[1] == 0) << v << ", " << s;
        }
    }
}

TEST(DftSixteenBits, WorkSizesAddTheData) {
    for (std::size_t n : lengths()) {
        const std::size_t complexWork = Single::interleaved.workSize(Single::interleaved.make(n)) + 8 * n + 32;
        EXPECT_EQ(interleaved.workSize(interleaved.make(n)), complexWork) << n;
        EXPECT_EQ(planes.workSize(planes.make(n)), complexWork) << n;
        EXPECT_EQ(real.workSize(real.make(n)), Single::real.workSize(Single::real.make(n)) + 4 * n + 40) << n;
    }
}

} // namespace
