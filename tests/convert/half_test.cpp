#include "support/unary_member.h"

#include <cmath>

namespace {

using namespace unary_member;

// The value of a half; of an exponent field of 31, what that would be.
long double valueOfHalf(Orb16f half) {
    const int bits = half & 0x7fff, exponent = bits >> 10, mantissa = bits & 0x3ff;
    const long double magnitude = exponent == 0 ? std::ldexp(static_cast<long double>(mantissa), -24)
                                                : std::ldexp(static_cast<long double>(mantissa | 0x400), exponent - 25);
    return half < 0 ? -magnitude : magnitude;
}
bool isFinite(Orb16f half) {
    return (half & 0x7c00) != 0x7c00;
}

long double integral(long double x, bool toNearest) {
    return toNearest ? std::nearbyint(x) : std::trunc(x);
}

// Denormal halves are rounded to a multiple of 2^-37 first: in single precision, they are denormals 2^112 times
// smaller.
Orb16f halfOf(float x, int rndMode) {
    const bool toNearest = rndMode == orbRndNear;
    const int sign = std::signbit(x) ? 0x8000 : 0;
    Orb32u bits;
    std::memcpy(&bits, &x, sizeof bits);
    const int quiet = static_cast<int>((bits | 0x400000) >> 13 & 0x7fff);
    if (std::isnan(x)) return static_cast<Orb16f>(sign | (toNearest ? 0x7fff : quiet));
    long double v = std::min(std::fabs(static_cast<long double>(x)), 65536.0L);
    if (v < 0x1p-14L) v = std::ldexp(integral(std::ldexp(v, 37), toNearest), -37);
    const int exponent = v < 0x1p-14L ? -14 : std::ilogb(v);
    const long double mantissa = integral(std::ldexp(v, 10 - exponent), toNearest); // with the leading 1 of normal ones
    return static_cast<Orb16f>(sign | ((exponent + 14) * 1024 + static_cast<int>(mantissa)));
}

// Every half, the ties between them and what lies next to both.
std::vector<float> floatsAroundHalves() {
    const float infinity = INFINITY, almostATie = 0x1.8p-24f + 0x1p-47f;
    std::vector<float> values{infinity, NAN, almostATie, 0x1p-25f + 0x1p-48f, 0x1p-149f, 1e30f, 65519.9f, 65520, 65536};
    for (int bits = 0; bits < 0x7c00; ++bits) {
        const auto half = static_cast<float>(valueOfHalf(static_cast<Orb16f>(bits)));
        const auto next = static_cast<float>(valueOfHalf(static_cast<Orb16f>(bits + 1)));
        for (float v : {half, (half + next) / 2})
            for (float x : {v, std::nextafter(v, infinity), std::nextafter(v, -infinity)}) values.push_back(x);
    }
    for (std::size_t n = values.size(); n-- > 0;) values.push_back(-values[n]);
    return values;
}

TEST(Half, WidensExactlyEvenWhereDenormalsCountAsZero) {
    const auto halves = everyValue<Orb16f>();
    const auto value = [](Orb16f half) {
        if (isFinite(half)) return static_cast<float>(valueOfHalf(half));
        const float special = half & 0x3ff ? NAN : INFINITY;
        return half < 0 ? -special : special;
    };
    expectMaps(orbsConvert_16f32f, halves, value);
    expectMapsInMode(_MM_ROUND_UP | support::denormalsAreZero, orbsConvert_16f32f, halves, value);
    std::vector<float> floats(halves.size());
    orbsConvert_16f32f(halves.data(), floats.data(), static_cast<int>(halves.size()));
    std::vector<Orb16f> back(halves.size());
    orbsConvert_32f16f(floats.data(), back.data(), static_cast<int>(halves.size()), orbRndZero);
    for (std::size_t n = 0; n < halves.size(); ++n) // NaNs come back with their mantissa, but quiet
        ASSERT_EQ(back[n],
                  static_cast<Orb16f>(halves[n] & 0x3ff && !isFinite(halves[n]) ? halves[n] | 0x200 : halves[n]));
}

TEST(Half, NarrowsInItsOwnMode) {
    const auto floats = floatsAroundHalves();
    for (Orb32u mode : support::roundingModes)
        for (int rndMode : roundingArguments)
            expectMapsInMode(
                mode, orbsConvert_32f16f, floats, [=](float x) { return halfOf(x, rndMode); }, rndMode);
}

TEST(Half, TakesEveryInteger) {
    for (Orb32u mode : support::roundingModes)
        for (int rndMode : roundingArguments)
            expectMapsInMode(
                mode, orbsConvert_16s16f, everyValue<Orb16s>(),
                [=](Orb16s x) { return halfOf(static_cast<float>(x), rndMode); }, rndMode);
}

TEST(Half, BecomesAnIntegerAtEveryScaleFactor) {
    const auto expectAt = [](int scaleFactor, int rndMode, Orb32u mode) {
        SCOPED_TRACE(::testing::Message() << "scale " << scaleFactor << ", rounding " << rndMode << ", mode " << mode);
        const auto integer = [=](Orb16f half) -> Orb16s {
            if (!isFinite(half)) {
                const bool isTop = scaleFactor < -14 ? half == 0x7c00 : half > 0;
                return isTop ? 32767 : -32768;
            }
            const long double exact = std::ldexp(valueOfHalf(half), -std::clamp(scaleFactor, -100, 100));
            return static_cast<Orb16s>(std::clamp(integral(exact, rndMode == orbRndNear), -32768.0L, 32767.0L));
        };
        expectMapsInMode(mode, orbsConvert_16f16s_Sfs, everyValue<Orb16f>(), integer, rndMode, scaleFactor);
    };
    for (int rndMode : roundingArguments) {
        for (int scaleFactor = -45; scaleFactor <= 45; ++scaleFactor) expectAt(scaleFactor, rndMode, _MM_ROUND_NEAREST);
        for (int scaleFactor : {INT_MIN, -1000, 1000, INT_MAX}) expectAt(scaleFactor, rndMode, _MM_ROUND_NEAREST);
        for (Orb32u mode : support::roundingModes)
            for (int scaleFactor : {-16, -14, 0, 3}) expectAt(scaleFactor, rndMode, mode);
    }
}

} // namespace
