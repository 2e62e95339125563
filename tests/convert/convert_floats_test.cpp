#include "support/unary_member.h"

#include <cmath>

namespace {

using namespace unary_member;

constexpr int scaleFactors[] = {0,   1,    -1,   3,   7,   -8,  15,  31,   -31,   40,      126,
                                127, -127, -128, 148, 149, 150, 151, 1000, -1000, INT_MIN, INT_MAX};

// Integers and ties around 0 and around the limits of every type, each with its neighbours, so scaled that they appear
// after the multiplication; and what is no ordinary number.
template <class T>
std::vector<T> samples(int scaleFactor) {
    std::vector<T> values;
    const auto around = [&](double middle, int reach) {
        for (int half = -reach; half <= reach; ++half) {
            const T v = static_cast<T>(middle + half * 0.5);
            for (T x : {v, std::nextafter(v, T(1e30)), std::nextafter(v, T(-1e30))})
                values.push_back(std::ldexp(x, std::clamp(scaleFactor, -200, 200)));
        }
    };
    around(0, 40);
    for (double limit : {127., 128., 255., 32767., 65535., 8388607., 16777215., 2147483647., 4294967295., 1e30})
        for (double middle : {limit, -limit}) around(middle, 4);
    const T infinity = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
    const T denormal = std::numeric_limits<T>::denorm_min(), largest = std::numeric_limits<T>::max();
    const T signalling = std::numeric_limits<T>::signaling_NaN();
    values.insert(values.end(), {0, T(-0.0), T(0.5), T(1.5), infinity, -infinity, nan, -nan, denormal, -denormal,
                                 largest, -largest, signalling});
    return values;
}

// 2^-scaleFactor as single-precision products in the caller's mode make it.
float multiplier(int scaleFactor, Orb32u mode) {
    return support::inMode(mode, [=] {
        volatile float m = 1;
        for (int n = 0; n < std::min<long long>(std::llabs(scaleFactor), 400); ++n)
            m = m * (scaleFactor > 0 ? 0.5f : 2.0f);
        return float{m};
    });
}

// What a NaN becomes.
template <class T>
long double ofNaN(long double) {
    return std::numeric_limits<T>::max();
}
template <>
long double ofNaN<Orb16u>(long double) {
    return 0;
}
long double extremeOfSign(long double nan) {
    return std::signbit(nan) ? -0x1p31L : 0x1p31L - 1;
}

// The caller's mode holds for the product too, unless the conversion rounds to nearest.
template <class Src>
Src product(Src x, Src m, int rndMode, Orb32u mode) {
    return support::inMode(rndMode == orbRndZero ? mode : Orb32u{_MM_ROUND_NEAREST}, [=] {
        volatile Src factor = m;
        return x * factor;
    });
}

// In the x87 unit, which has a rounding mode of its own.
template <class Dst>
Dst converted(long double product, int rndMode, long double (*nan)(long double)) {
    if (std::isnan(product)) return static_cast<Dst>(nan(product));
    const long double integer = rndMode == orbRndZero ? std::trunc(product) : std::nearbyint(product);
    const long double lowest = std::numeric_limits<Dst>::min(), highest = std::numeric_limits<Dst>::max();
    return static_cast<Dst>(std::clamp(integer, lowest, highest));
}

template <class Src, class Dst>
void expectConverts(OrbStatus (*member)(const Src*, Dst*, int, int, int),
                    long double (*nan)(long double) = ofNaN<Dst>) {
    for (Orb32u mode : support::roundingModes) {
        for (int scaleFactor : scaleFactors) {
            const float m = multiplier(scaleFactor, mode);
            for (int rndMode : roundingArguments) {
                SCOPED_TRACE(::testing::Message() << "mode " << mode << ", scale " << scaleFactor << ", " << rndMode);
                ASSERT_NO_FATAL_FAILURE(expectMapsInMode(
                    mode, member, samples<Src>(scaleFactor),
                    [=](Src x) { return converted<Dst>(product<Src>(x, m, rndMode, mode), rndMode, nan); }, rndMode,
                    scaleFactor));
            }
        }
    }
}

TEST(ConvertFloats, ToBytes) {
    expectConverts(orbsConvert_32f8s_Sfs);
    expectConverts(orbsConvert_32f8u_Sfs);
}
TEST(ConvertFloats, To16Bits) {
    expectConverts(orbsConvert_32f16s_Sfs);
    expectConverts(orbsConvert_32f16u_Sfs);
}
TEST(ConvertFloats, To32Bits) {
    expectConverts(orbsConvert_32f32s_Sfs, extremeOfSign);
    expectConverts(orbsConvert_64f32s_Sfs);
}

TEST(ConvertFloats, To24BitsAlwaysToNearest) {
    for (Orb32u mode : support::roundingModes) {
        for (int scaleFactor : scaleFactors) {
            const int used = std::clamp(scaleFactor, -127, 127);
            const long double m = used == 127 ? 0 : std::ldexp(1.0L, -used);
            const auto integer = [=](float x, long double lowest, long double highest) {
                const long double product = x * m; // a NaN, made or met, goes to the lower limit
                return static_cast<Orb32s>(std::isnan(product) ? lowest
                                                               : std::clamp(std::nearbyint(product), lowest, highest));
            };
            SCOPED_TRACE(::testing::Message() << "mode " << mode << ", scale " << scaleFactor);
            expectMapsInMode(
                mode, orbsConvert_32f24s_Sfs, samples<Orb32f>(scaleFactor),
                [=](float x) { return packed24<Orb24s>(integer(x, -8388608, 8388607)); }, scaleFactor);
            expectMapsInMode(
                mode, orbsConvert_32f24u_Sfs, samples<Orb32f>(scaleFactor),
                [=](float x) { return packed24<Orb24u>(integer(x, 0, 16777215)); }, scaleFactor);
        }
    }
}

// The bit goes with a switch of the mode, and only then: denormals count as 0 for the caller who rounds to nearest.
TEST(ConvertFloats, DenormalsCountWhereTheModeIsSwitched) {
    const float denormal = 0x1p-127f;
    for (Orb32u mode : {_MM_ROUND_NEAREST, _MM_ROUND_DOWN}) {
        Orb32s scaled = -1;
        EXPECT_EQ(support::inMode(mode | support::denormalsAreZero,
                                  [&] { return orbsConvert_32f32s_Sfs(&denormal, &scaled, 1, orbRndNear, -127); }),
                  orbStsNoErr);
        EXPECT_EQ(scaled, mode == _MM_ROUND_NEAREST ? 0 : 1);
    }
}

} // namespace
