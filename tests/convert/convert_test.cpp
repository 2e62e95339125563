#include "support/unary_member.h"

#include <cmath>

namespace {

using namespace unary_member;

constexpr int scaleFactors[] = {INT_MIN, -1040, -1000, -990, -113, -112, -97, -96, -40,  -32,  -31,  -30,    -25,
                                -24,     -23,   -16,   -15,  -14,  -9,   -8,  -1,  0,    1,    2,    3,      7,
                                8,       14,    15,    16,   17,   23,   24,  30,  31,   32,   33,   34,     40,
                                47,      48,    62,    63,   64,   126,  127, 150, 1021, 1022, 1023, INT_MAX};

template <class T>
std::vector<T> samples() {
    return support::randomVector<T>(3000);
}

// ---- Exact, or rounded by the machine ----

TEST(Convert, WidensExactly) {
    const auto same = [](auto x) { return x; };
    expectMaps(orbsConvert_8s16s, everyValue<Orb8s>(), same);
    expectMaps(orbsConvert_8s32f, everyValue<Orb8s>(), same);
    expectMaps(orbsConvert_8u32f, everyValue<Orb8u>(), same);
    expectMaps(orbsConvert_16s32s, everyValue<Orb16s>(), same);
    expectMaps(orbsConvert_16s32f, everyValue<Orb16s>(), same);
    expectMaps(orbsConvert_16u32f, everyValue<Orb16u>(), same);
    expectMaps(orbsConvert_32s64f, samples<Orb32s>(), same);
    auto floats = samples<Orb32f>();
    floats.insert(floats.end(), {0x1p-149f, -0.0f, INFINITY, -INFINITY, NAN, 3.4e38f});
    expectMaps(orbsConvert_32f64f, floats, same);
    const auto value = [](auto t) { return valueOf(t); };
    expectMaps(orbsConvert_24s32s, samples<Orb24s>(), value);
    expectMaps(orbsConvert_24s32f, samples<Orb24s>(), value);
    expectMaps(orbsConvert_24u32u, samples<Orb24u>(), value);
    expectMaps(orbsConvert_24u32f, samples<Orb24u>(), value);
}

TEST(Convert, NarrowsInTheCallersMode) {
    auto doubles = samples<Orb64f>();
    doubles.insert(doubles.end(), {1e300, -1e300, 1e-300, 0x1p-149, 0x1.8p-149, -0.0, INFINITY, NAN});
    for (Orb32u mode : support::roundingModes) {
        const auto inMode = [=](auto x) {
            return support::inMode(mode, [x] {
                volatile auto source = x;
                return static_cast<float>(source);
            });
        };
        expectMapsInMode(mode, orbsConvert_64f32f, doubles, inMode);
        expectMapsInMode(mode, orbsConvert_32s32f, samples<Orb32s>(), inMode);
    }
}

// ---- Integers to floats with a scale ----

// One multiplication by a power of two that is limited so far that it stays exact.
template <class Src, class Dst>
void expectScales(OrbStatus (*member)(const Src*, Dst*, int, int), int lowest, int highest) {
    for (int scaleFactor : scaleFactors) {
        const int used = std::clamp(scaleFactor, lowest, highest);
        SCOPED_TRACE(scaleFactor);
        expectMaps(
            member, samples<Src>(), [=](Src x) { return std::ldexp(static_cast<Dst>(x), -used); }, scaleFactor);
    }
}

TEST(ConvertSfs, IntegersToFloatsStayInRange) {
    expectScales(orbsConvert_16s32f_Sfs, -112, 126);
    expectScales(orbsConvert_32s32f_Sfs, -96, 126);
    expectScales(orbsConvert_16s64f_Sfs, -1008, 1022);
    expectScales(orbsConvert_32s64f_Sfs, -992, 1022);
}

// ---- Integers to integers with a scale ----

// The x87 unit holds 64 bits exactly and rounds to nearest with ties to even.
long double scaled(std::int64_t x, int scaleFactor, int last, bool toEven, long double lowest, long double highest) {
    const long double exact = std::ldexp(static_cast<long double>(x), -std::max(std::min(scaleFactor, last), -100));
    return std::clamp(toEven ? std::nearbyint(exact) : std::floor(exact), lowest, highest);
}

// Around every power of two and every tie that leads to one.
std::vector<Orb64s> wideSamples() {
    auto values = support::randomVector<Orb64s>(500);
    for (int n = 0; n < 64; ++n) {
        for (int distance = -3; distance <= 3; ++distance) {
            const Orb64u power = (Orb64u{1} << n) + static_cast<Orb64u>(distance);
            for (Orb64u v : {power, power + (Orb64u{1} << n / 2), power | power << 1, 0 - power})
                values.push_back(static_cast<Orb64s>(v));
        }
    }
    return values;
}
template <class T>
std::vector<T> upperOf(const std::vector<Orb64s>& wide) {
    std::vector<T> values;
    for (Orb64s v : wide) values.insert(values.end(), {static_cast<T>(v), static_cast<T>(v >> 32)});
    return values;
}

TEST(ConvertSfs, IntegersRoundTiesToEvenAndSaturate) {
    const auto wide = wideSamples();
    const auto sources = upperOf<Orb32s>(wide);
    const auto unsignedSources = upperOf<Orb32u>(wide);
    for (int s : scaleFactors) {
        SCOPED_TRACE(s);
        expectMaps(
            orbsConvert_32s16s_Sfs, sources,
            [=](Orb32s x) { return static_cast<Orb16s>(scaled(x, s, 31, true, -32768, 32767)); }, s);
        expectMaps(
            orbsConvert_32s24s_Sfs, sources,
            [=](Orb32s x) { return packed24<Orb24s>(static_cast<Orb32s>(scaled(x, s, 31, true, -8388608, 8388607))); },
            s);
        expectMaps(
            orbsConvert_32u24u_Sfs, unsignedSources,
            [=](Orb32u x) { return packed24<Orb24u>(static_cast<Orb32s>(scaled(x, s, 31, true, 0, 16777215))); }, s);
        for (int rndMode : roundingArguments) {
            expectMaps(
                orbsConvert_64s32s_Sfs, wide,
                [=](Orb64s x) {
                    return static_cast<Orb32s>(scaled(x, s, 63, rndMode == orbRndNear, -0x1p31L, 0x1p31L - 1));
                },
                rndMode, s);
        }
    }
    expectMaps(orbsConvert_32s16s, sources, [](Orb32s x) { return static_cast<Orb16s>(std::clamp(x, -32768, 32767)); });
}

} // namespace
