#include "vectors/sincos.h"

#include "support/compare.h"
#include "support/control.h"
#include "support/ulps.h"

namespace {

using namespace support;
namespace hn = orbs::hn;

constexpr double quarterTurn = 1.57079632679489661923;
constexpr double range = 0x1p32 * quarterTurn;

orbs::SinCos<std::vector<double>> sinCosOf(const std::vector<double>& x) {
    const hn::ScalableTag<double> d;
    std::vector<double> in = x, sine(x.size() + 8), cosine(x.size() + 8);
    in.resize(x.size() + 8);
    for (std::size_t n = 0; n < x.size(); n += hn::MaxLanes(d)) {
        const auto [s, c] = orbs::sinCos(d, hn::LoadU(d, in.data() + n));
        hn::StoreU(s, d, sine.data() + n);
        hn::StoreU(c, d, cosine.data() + n);
    }
    sine.resize(x.size());
    cosine.resize(x.size());
    return {sine, cosine};
}

// The worst of both, in units in the last place, against the C library's 64 bits.
double worst(const std::vector<double>& x) {
    const auto [sine, cosine] = sinCosOf(x);
    double most = 0;
    for (std::size_t n = 0; n < x.size(); ++n) {
        const long double wide = x[n];
        most = std::max({most, ulps(sine[n], std::sin(wide)), ulps(cosine[n], std::cos(wide))});
    }
    return most;
}

// The square takes a quarter of a unit in the last place, the polynomials a tenth, the last rounding half.
TEST(SinCos, Accuracy) {
    EXPECT_LT(worst(patterns<double, Orb64u>(0, asBits<Orb64u>(range), 400000)), 0.85);
    EXPECT_LT(worst(patterns<double, Orb64u>(asBits<Orb64u>(-0x1p-8), asBits<Orb64u>(-range), 400000)), 0.85);
    // Beside the multiples of a quarter turn, where the reduction cancels, and between them, where k changes.
    std::vector<double> edges;
    Random random(1);
    for (int n = 0; n < 200000; ++n) {
        const auto eighths = static_cast<double>(
            n < 1000 ? std::int64_t{n} : static_cast<std::int64_t>(random() >> (31 + random() % 20)));
        const double x = eighths * (quarterTurn / 2);
        for (double toward : {0.0, 1e10}) edges.push_back(std::nextafter(x, toward));
        edges.push_back(x);
    }
    EXPECT_LT(worst(edges), 0.85);
}

TEST(SinCos, OneNumberGivesTheSameBitsAndSpecialsAreKept) {
    const auto x = patterns<double, Orb64u>(asBits<Orb64u>(-0x1p-30), asBits<Orb64u>(-range), 1000);
    const auto [sine, cosine] = sinCosOf(x);
    for (std::size_t n = 0; n < x.size(); ++n) {
        const auto [s, c] = orbs::sinCos(x[n]);
        EXPECT_TRUE(identical(s, sine[n]) && identical(c, cosine[n])) << shown(x[n]);
    }
    for (double tiny : {0.0, -0.0, 0x1p-1074, -0x1p-1022}) {
        EXPECT_TRUE(identical(orbs::sinCos(tiny).sin, tiny)) << shown(tiny);
        EXPECT_EQ(orbs::sinCos(tiny).cos, 1);
    }
    for (double none : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_TRUE(std::isnan(orbs::sinCos(none).sin) && std::isnan(orbs::sinCos(-none).cos)) << none;
    }
}

TEST(SinCos, EveryRoundingModeOfTheCaller) {
    const auto x = patterns<double, Orb64u>(asBits<Orb64u>(0x1p-8), asBits<Orb64u>(range), 20000);
    const auto nearest = sinCosOf(x);
    for (Orb32u mode : roundingModes) {
        const auto result = inMode(mode, [&] { return sinCosOf(x); });
        for (std::size_t n = 0; n < x.size(); ++n) {
            EXPECT_NEAR(result.sin[n], nearest.sin[n], 0x1p-51) << shown(x[n]) << " in mode " << mode;
            EXPECT_NEAR(result.cos[n], nearest.cos[n], 0x1p-51) << shown(x[n]) << " in mode " << mode;
        }
    }
}

} // namespace
