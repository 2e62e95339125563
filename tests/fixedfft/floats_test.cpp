// Transforms of integers through floats: the bits of conversion, float transform and conversion back.
#include "orbs.h"

#include "support/compare.h"

#include <climits>
#include <memory>

namespace {

using support::callOf;
using support::nameOf;
using support::randomVector;
using support::sameBits;

constexpr int flags[] = {ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE};
constexpr int scales[] = {0, 3, -2, 7, 1, -9, 12, 1000, -1000, 149, -127, INT_MAX, INT_MIN};

template <class S>
using Object = std::unique_ptr<S, OrbStatus (*)(S*)>;
template <class S>
Object<S> make(OrbStatus (*init)(S**, int, int, OrbHintAlgorithm), OrbStatus (*release)(S*), int order, int flag,
               OrbHintAlgorithm hint) {
    S* spec = nullptr;
    EXPECT_EQ(init(&spec, order, flag, hint), orbStsNoErr) << "order " << order;
    return {spec, release};
}

// Each order with the flags and scale factors in turn; the hints that take 16 bits through floats at small orders.
template <class Run>
void forEachSetting(int lowestOrder, Run run) {
    std::size_t turn = 0;
    for (int order = lowestOrder; order <= 13; ++order)
        for (int time = 0; time < 13; ++time, ++turn)
            run(order, flags[turn % 4], turn % 2 ? orbAlgHintAccurate : OrbHintAlgorithm(7), scales[turn % 13]);
    for (const int order : {17, 18}) run(order, ORB_FFT_SCALE_FWD, orbAlgHintNone, 0); // around the blocked orders
}

// ---- The members of the kinds, each beside the conversions and float members that it is made of ----

struct Of16 {
    static constexpr int lowestOrder = 1; // one sample takes no floats
    using Sample = Orb16s;
    using Float = Orb32f;
    using Points = Orb16sc;
    using FloatPoints = Orb32fc;
    static constexpr auto toFloats = orbsConvert_16s32f;
    static constexpr auto toIntegers = orbsConvert_32f16s_Sfs;
    static constexpr auto initC = orbsFFTInitAlloc_C_16sc;
    static constexpr auto freeC = orbsFFTFree_C_16sc;
    static constexpr auto initP = orbsFFTInitAlloc_C_16s;
    static constexpr auto freeP = orbsFFTFree_C_16s;
    static constexpr auto initR = orbsFFTInitAlloc_R_16s;
    static constexpr auto freeR = orbsFFTFree_R_16s;
    static constexpr auto initFloatC = orbsFFTInitAlloc_C_32fc;
    static constexpr auto freeFloatC = orbsFFTFree_C_32fc;
    static constexpr auto initFloatR = orbsFFTInitAlloc_R_32f;
    static constexpr auto freeFloatR = orbsFFTFree_R_32f;
    static constexpr decltype(&orbsFFTFwd_CToC_16sc_Sfs) complex[] = {orbsFFTFwd_CToC_16sc_Sfs,
                                                                      orbsFFTInv_CToC_16sc_Sfs};
    static constexpr decltype(&orbsFFTFwd_CToC_16sc_ISfs) complexI[] = {orbsFFTFwd_CToC_16sc_ISfs,
                                                                        orbsFFTInv_CToC_16sc_ISfs};
    static constexpr decltype(&orbsFFTFwd_CToC_16s_Sfs) planes[] = {orbsFFTFwd_CToC_16s_Sfs, orbsFFTInv_CToC_16s_Sfs};
    static constexpr decltype(&orbsFFTFwd_CToC_16s_ISfs) planesI[] = {orbsFFTFwd_CToC_16s_ISfs,
                                                                      orbsFFTInv_CToC_16s_ISfs};
    static constexpr decltype(&orbsFFTFwd_CToC_32fc_I) floatComplex[] = {orbsFFTFwd_CToC_32fc_I,
                                                                         orbsFFTInv_CToC_32fc_I};
    static constexpr decltype(&orbsFFTFwd_RToCCS_16s_Sfs) real[] = {
        orbsFFTFwd_RToCCS_16s_Sfs, orbsFFTFwd_RToPack_16s_Sfs, orbsFFTFwd_RToPerm_16s_Sfs,
        orbsFFTInv_CCSToR_16s_Sfs, orbsFFTInv_PackToR_16s_Sfs, orbsFFTInv_PermToR_16s_Sfs};
    static constexpr decltype(&orbsFFTFwd_RToCCS_16s_ISfs) realI[] = {
        orbsFFTFwd_RToCCS_16s_ISfs, orbsFFTFwd_RToPack_16s_ISfs, orbsFFTFwd_RToPerm_16s_ISfs,
        orbsFFTInv_CCSToR_16s_ISfs, orbsFFTInv_PackToR_16s_ISfs, orbsFFTInv_PermToR_16s_ISfs};
    static constexpr decltype(&orbsFFTFwd_RToCCS_32f_I) floatReal[] = {
        orbsFFTFwd_RToCCS_32f_I, orbsFFTFwd_RToPack_32f_I, orbsFFTFwd_RToPerm_32f_I,
        orbsFFTInv_CCSToR_32f_I, orbsFFTInv_PackToR_32f_I, orbsFFTInv_PermToR_32f_I};
};
struct Of32 {
    static constexpr int lowestOrder = 0;
    using Sample = Orb32s;
    using Float = Orb64f;
    using Points = Orb32sc;
    using FloatPoints = Orb64fc;
    static constexpr auto toFloats = orbsConvert_32s64f;
    static constexpr auto toIntegers = orbsConvert_64f32s_Sfs;
    static constexpr auto initC = orbsFFTInitAlloc_C_32sc;
    static constexpr auto freeC = orbsFFTFree_C_32sc;
    static constexpr auto initP = orbsFFTInitAlloc_C_32s;
    static constexpr auto freeP = orbsFFTFree_C_32s;
    static constexpr auto initR = orbsFFTInitAlloc_R_32s;
    static constexpr auto freeR = orbsFFTFree_R_32s;
    static constexpr auto initFloatC = orbsFFTInitAlloc_C_64fc;
    static constexpr auto freeFloatC = orbsFFTFree_C_64fc;
    static constexpr auto initFloatR = orbsFFTInitAlloc_R_64f;
    static constexpr auto freeFloatR = orbsFFTFree_R_64f;
    static constexpr decltype(&orbsFFTFwd_CToC_32sc_Sfs) complex[] = {orbsFFTFwd_CToC_32sc_Sfs,
                                                                      orbsFFTInv_CToC_32sc_Sfs};
    static constexpr decltype(&orbsFFTFwd_CToC_32sc_ISfs) complexI[] = {orbsFFTFwd_CToC_32sc_ISfs,
                                                                        orbsFFTInv_CToC_32sc_ISfs};
    static constexpr decltype(&orbsFFTFwd_CToC_32s_Sfs) planes[] = {orbsFFTFwd_CToC_32s_Sfs, orbsFFTInv_CToC_32s_Sfs};
    static constexpr decltype(&orbsFFTFwd_CToC_32s_ISfs) planesI[] = {orbsFFTFwd_CToC_32s_ISfs,
                                                                      orbsFFTInv_CToC_32s_ISfs};
    static constexpr decltype(&orbsFFTFwd_CToC_64fc_I) floatComplex[] = {orbsFFTFwd_CToC_64fc_I,
                                                                         orbsFFTInv_CToC_64fc_I};
    static constexpr decltype(&orbsFFTFwd_RToCCS_32s_Sfs) real[] = {
        orbsFFTFwd_RToCCS_32s_Sfs, orbsFFTFwd_RToPack_32s_Sfs, orbsFFTFwd_RToPerm_32s_Sfs,
        orbsFFTInv_CCSToR_32s_Sfs, orbsFFTInv_PackToR_32s_Sfs, orbsFFTInv_PermToR_32s_Sfs};
    static constexpr decltype(&orbsFFTFwd_RToCCS_32s_ISfs) realI[] = {
        orbsFFTFwd_RToCCS_32s_ISfs, orbsFFTFwd_RToPack_32s_ISfs, orbsFFTFwd_RToPerm_32s_ISfs,
        orbsFFTInv_CCSToR_32s_ISfs, orbsFFTInv_PackToR_32s_ISfs, orbsFFTInv_PermToR_32s_ISfs};
    static constexpr decltype(&orbsFFTFwd_RToCCS_64f_I) floatReal[] = {
        orbsFFTFwd_RToCCS_64f_I, orbsFFTFwd_RToPack_64f_I, orbsFFTFwd_RToPerm_64f_I,
        orbsFFTInv_CCSToR_64f_I, orbsFFTInv_PackToR_64f_I, orbsFFTInv_PermToR_64f_I};
};

template <class K>
class FixedFftThroughFloats : public testing::Test {};
using Kinds = testing::Types<Of16, Of32>;
TYPED_TEST_SUITE(FixedFftThroughFloats, Kinds);

template <class K>
void expectComplex(int order, int flag, OrbHintAlgorithm hint, int s) {
    using T = typename K::Sample;
    const std::size_t points = std::size_t{1} << order, count = 2 * points;
    const auto len = static_cast<int>(count);
    const auto asPoints = [](auto& v) { return reinterpret_cast<typename K::Points*>(v.data()); };
    auto x = randomVector<T>(count);
    const auto spec = make(K::initC, K::freeC, order, flag, hint);
    const auto planeSpec = make(K::initP, K::freeP, order, flag, hint);
    const auto floatSpec = make(K::initFloatC, K::freeFloatC, order, flag, orbAlgHintNone);
    for (const int inverse : {0, 1}) {
        SCOPED_TRACE(callOf(K::complex[inverse], order, flag, s));
        std::vector<typename K::Float> floats(count);
        std::vector<T> want(count), got(count), inPlace = x;
        K::toFloats(x.data(), floats.data(), len);
        K::floatComplex[inverse](reinterpret_cast<typename K::FloatPoints*>(floats.data()), floatSpec.get(), nullptr);
        K::toIntegers(floats.data(), want.data(), len, orbRndNear, s);
        ASSERT_EQ(K::complex[inverse](asPoints(x), asPoints(got), spec.get(), s, nullptr), orbStsNoErr);
        EXPECT_TRUE(sameBits(got, want));
        K::complexI[inverse](asPoints(inPlace), spec.get(), s, nullptr);
        EXPECT_TRUE(sameBits(inPlace, want)) << "in place";

        std::vector<T> re(points), im(points), toRe(points), toIm(points), both(count);
        const auto joined = [&](const auto& r, const auto& i) {
            for (std::size_t n = 0; n < points; ++n) both[2 * n] = r[n], both[2 * n + 1] = i[n];
            return sameBits(both, want);
        };
        for (std::size_t n = 0; n < points; ++n) re[n] = x[2 * n], im[n] = x[2 * n + 1];
        K::planes[inverse](re.data(), im.data(), toRe.data(), toIm.data(), planeSpec.get(), s, nullptr);
        EXPECT_TRUE(joined(toRe, toIm)) << "planes";
        auto mixed = im;
        K::planes[inverse](re.data(), mixed.data(), toRe.data(), mixed.data(), planeSpec.get(), s, nullptr);
        EXPECT_TRUE(joined(toRe, mixed)) << "one plane in place";
        K::planesI[inverse](re.data(), im.data(), planeSpec.get(), s, nullptr);
        EXPECT_TRUE(joined(re, im)) << "planes in place";
    }
}
TYPED_TEST(FixedFftThroughFloats, ComplexIsConvertedTransformedAndConvertedBack) {
    forEachSetting(TypeParam::lowestOrder, expectComplex<TypeParam>);
}

template <class K>
void expectReal(int order, int flag, OrbHintAlgorithm hint, int s) {
    using T = typename K::Sample;
    const int samples = 1 << order, ccs = 2 * (samples / 2 + 1);
    const auto spec = make(K::initR, K::freeR, order, flag, hint);
    const auto floatSpec = make(K::initFloatR, K::freeFloatR, order, flag, orbAlgHintNone);
    for (std::size_t member = 0; member < 6; ++member) {
        SCOPED_TRACE(callOf(K::real[member], order, flag, s));
        const bool inverse = member >= 3;
        const int spectrum = member % 3 == 0 ? ccs : samples, from = inverse ? spectrum : samples,
                  to = inverse ? samples : spectrum;
        auto x = randomVector<T>(static_cast<std::size_t>(ccs));
        std::vector<typename K::Float> floats(x.size());
        std::vector<T> want(static_cast<std::size_t>(to)), got(want.size());
        K::toFloats(x.data(), floats.data(), from);
        K::floatReal[member](floats.data(), floatSpec.get(), nullptr);
        K::toIntegers(floats.data(), want.data(), to, orbRndNear, s);
        ASSERT_EQ(K::real[member](x.data(), got.data(), spec.get(), s, nullptr), orbStsNoErr);
        EXPECT_TRUE(sameBits(got, want));
        K::realI[member](x.data(), spec.get(), s, nullptr);
        EXPECT_TRUE(sameBits(x.data(), want.data(), want.size())) << "in place";
    }
}
TYPED_TEST(FixedFftThroughFloats, RealIsConvertedTransformedAndConvertedBack) {
    forEachSetting(TypeParam::lowestOrder, expectReal<TypeParam>);
}

TEST(FixedFftOf16BitsTo32, IsConvertedTransformedAndConvertedBack) {
    forEachSetting(0, [](int order, int flag, OrbHintAlgorithm hint, int s) {
        SCOPED_TRACE(callOf(orbsFFTFwd_RToCCS_16s32s_Sfs, order, flag, s));
        const int samples = 1 << order, ccs = 2 * (samples / 2 + 1);
        const auto spec = make(orbsFFTInitAlloc_R_16s32s, orbsFFTFree_R_16s32s, order, flag, hint);
        const auto floatSpec = make(orbsFFTInitAlloc_R_32f, orbsFFTFree_R_32f, order, flag, orbAlgHintNone);
        const auto x = randomVector<Orb16s>(static_cast<std::size_t>(samples));
        std::vector<Orb32f> floats(static_cast<std::size_t>(ccs));
        std::vector<Orb32s> want(floats.size()), got(floats.size());
        orbsConvert_16s32f(x.data(), floats.data(), samples);
        orbsFFTFwd_RToCCS_32f_I(floats.data(), floatSpec.get(), nullptr);
        orbsConvert_32f32s_Sfs(floats.data(), want.data(), ccs, orbRndNear, s);
        ASSERT_EQ(orbsFFTFwd_RToCCS_16s32s_Sfs(x.data(), got.data(), spec.get(), s, nullptr), orbStsNoErr);
        EXPECT_TRUE(sameBits(got, want));

        const auto spectrum = randomVector<Orb32s>(floats.size());
        std::vector<Orb16s> wantBack(x.size()), back(x.size());
        orbsConvert_32s32f(spectrum.data(), floats.data(), ccs);
        orbsFFTInv_CCSToR_32f_I(floats.data(), floatSpec.get(), nullptr);
        orbsConvert_32f16s_Sfs(floats.data(), wantBack.data(), samples, orbRndNear, s);
        ASSERT_EQ(orbsFFTInv_CCSToR_32s16s_Sfs(spectrum.data(), back.data(), spec.get(), s, nullptr), orbStsNoErr);
        EXPECT_TRUE(sameBits(back, wantBack));
    });
}

} // namespace
