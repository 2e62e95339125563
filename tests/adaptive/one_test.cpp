// FIRLMSOne_Direct: single samples over the caller's taps and line.
#include "adaptive/streams.h"

namespace {

using namespace adaptive;

// Taps and line of a caller; the samples that the taps meet, as the members say.
template <class Tap, class X>
struct Caller {
    std::vector<Tap> taps;
    std::vector<X> line = std::vector<X>(2 * taps.size());
    int index = 0, count = static_cast<int>(taps.size());

    std::vector<X> met() const { return {&line[std::size_t(index)], &line[std::size_t(index)] + taps.size()}; }
};

TEST(LmsOne, FiltersAndThenAdapts) {
    for (const int tapsLen : {1, 2, 5, 8, 31, 64, 65, 130}) {
        const auto size = static_cast<std::size_t>(tapsLen);
        Caller<float, float> wide{noise<float>(size, 1)};
        Caller<float, Orb16s> narrow{wide.taps};
        const auto x = noise<Orb16s>(2 * size + 3, 2), ref = noise<Orb16s>(2 * size + 3, 3);
        for (std::size_t n = 0; n < x.size(); ++n) {
            const auto before = wide.taps;
            const float mu = n % 2 == 0 ? 1e-11f : 0.0f;
            float y = 0;
            ASSERT_EQ(orbsFIRLMSOne_Direct_32f(x[n], ref[n], &y, wide.taps.data(), tapsLen, mu, wide.line.data(),
                                               &wide.index),
                      orbStsNoErr);
            const auto met = wide.met();
            ASSERT_EQ(met.back(), x[n]);
            double sum = 0, magnitude = 0;
            const float e = (ref[n] - y) * (mu + mu);
            for (std::size_t k = 0; k < size; ++k) {
                sum += double{before[k]} * met[k];
                magnitude += std::abs(double{before[k]} * met[k]);
                ASSERT_EQ(wide.taps[k], before[k] + met[k] * e);
            }
            ASSERT_NEAR(y, sum, magnitude * (tapsLen + 1) * 0x1p-24);

            Orb16s rounded = 0;
            ASSERT_EQ(orbsFIRLMSOne_Direct32f_16s(x[n], ref[n], &rounded, narrow.taps.data(), tapsLen, mu,
                                                  narrow.line.data(), &narrow.index),
                      orbStsNoErr);
            ASSERT_EQ(rounded, std::clamp(std::nearbyint(y), -32768.f, 32767.f));
            ASSERT_EQ(narrow.taps, wide.taps);
        }
        ASSERT_TRUE(std::equal(wide.line.begin(), wide.line.end(), narrow.line.begin()));
    }
}

// Sums that doubles hold exactly; the rest as the formula says. A stream begins with silence.
TEST(LmsOne, NormalisedIsThatOfDoubles) {
    for (const int tapsLen : {1, 3, 8, 15, 16, 17, 33, 60}) {
        Caller<Orb32s, Orb16s> caller{support::randomVector<Orb32s>(static_cast<std::size_t>(tapsLen))};
        auto x = support::randomVector<Orb16s>(200), ref = support::randomVector<Orb16s>(200, 2);
        x[0] = x[1] = 0;
        const int steps[] = {0, 1000, -20000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
        for (std::size_t n = 0; n < x.size(); ++n) {
            auto taps = caller.taps;
            const int mu = steps[n % 5];
            Orb16s y = 1234;
            ASSERT_EQ(orbsFIRLMSOne_DirectQ15_16s(x[n], ref[n], &y, caller.taps.data(), tapsLen, mu, caller.line.data(),
                                                  &caller.index),
                      orbStsNoErr);
            const auto met = caller.met();
            std::int64_t sum = 0, energy = 0;
            for (std::size_t k = 0; k < taps.size(); ++k) {
                sum += std::int64_t{taps[k]} * met[k];
                energy += std::int64_t{met[k]} * met[k];
            }
            if (energy == 0) {
                ASSERT_EQ(caller.taps, taps);
                ASSERT_EQ(y, 1234);
                continue;
            }
            const double exact = static_cast<double>(sum) / 32768;
            const double g = mu * (ref[n] - exact) * (1 / static_cast<double>(energy));
            for (std::size_t k = 0; k < taps.size(); ++k)
                taps[k] =
                    static_cast<Orb32s>(std::clamp(std::nearbyint(taps[k] + met[k] * g), -2147483648.0, 2147483647.0));
            ASSERT_EQ(y, std::clamp(std::nearbyint(exact), -32768., 32767.)) << tapsLen << ", " << n;
            ASSERT_EQ(caller.taps, taps) << tapsLen << ", " << n;
        }
    }
}

TEST(LmsOne, IdentifiesAnUnknownFilter) {
    const Unknown unknown(24, 10000);
    Caller<Orb32s, Orb16s> caller{std::vector<Orb32s>(24)};
    std::vector<Orb16s> y(unknown.x.size());
    for (std::size_t n = 0; n < y.size(); ++n)
        orbsFIRLMSOne_DirectQ15_16s(unknown.x[n], unknown.ref[n], &y[n], caller.taps.data(), 24, 16384,
                                    caller.line.data(), &caller.index);
    EXPECT_LT(unknown.errorAtEnd(y), 1e-6);
}

} // namespace
