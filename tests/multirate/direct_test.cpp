#include "multirate/multirate_member.h"

namespace {

using namespace multirate;

template <class P>
class MultirateDirect : public multirate::Test<P> {};
TYPED_TEST_SUITE(MultirateDirect, Pairs);

// Sums are double, or if outputs are integers of the type of the taps.
template <class P>
using SumOf = std::conditional_t<hasScale<P>, Part<typename P::Tap>, Orb64f>;

TYPED_TEST(MultirateDirect, BlocksMatchTheRaisedStreamHoweverItIsCut) {
    using P = TypeParam;
    using Sample = typename P::Sample;
    support::Random random(5);
    std::vector<Rates> all(std::begin(allRates), std::end(allRates));
    // More taps for an output than are worked out in one, and more periods.
    all.insert(all.end(), {{2500, 2, 1, 3, 2}, {1500, 1, 0, 5, 1}, {3, 2, 0, 1, 0}});
    for (const Rates& r : all) {
        SCOPED_TRACE(testing::Message() << r);
        const int periods = r.tapsLen > 1000 ? 40 : r.tapsLen == 3 ? 600 : 90;
        const auto taps = randomVector<typename P::Tap>(static_cast<std::size_t>(r.tapsLen), 1);
        const auto x = randomVector<Sample>(r.inputs(periods), 3), line = randomVector<Sample>(r.lineLen(), 2);
        const auto call = [&](std::size_t inputs, const Sample* src, Sample* dst, Sample* D) {
            const int count = static_cast<int>(inputs) / r.down;
            return src ? scaled(scaleFactor<P>, P::direct, src, dst, count, taps.data(), r.tapsLen, r.up, r.upPhase,
                                r.down, r.downPhase, D)
                       : scaled(scaleFactor<P>, P::directInPlace, dst, count, taps.data(), r.tapsLen, r.up, r.upPhase,
                                r.down, r.downPhase, D);
        };
        auto wantedLine = line, cutLine = line;
        std::vector<Sample> y(r.outputs(periods));
        ASSERT_EQ(call(x.size(), x.data(), y.data(), wantedLine.data()), orbStsNoErr);
        auto exactLine = line;
        // Products are rounded to the type of the taps, whatever the sums have.
        const auto exact = exactOutputs(r, taps, exactLine, x);
        expectOutputs<P, Part<typename P::Tap>>(y, exact, r);
        EXPECT_TRUE(sameBits(wantedLine, exactLine));
        inRuns(r, periods, random, [&](std::size_t from, std::size_t count, std::size_t to, std::size_t made) {
            support::Guarded<Sample> part(std::max(count, made));
            std::copy_n(&x[from], count, part.begin());
            const bool inPlace = random() % 2;
            ASSERT_EQ(call(count, inPlace ? nullptr : &x[from], part.data(), cutLine.data()), orbStsNoErr);
            ASSERT_TRUE(sameBits(part.data(), &y[to], made)) << "from sample " << from << ", " << count;
            ASSERT_TRUE(part.intact());
            if (count > made) {
                ASSERT_TRUE(sameBits(part.data() + made, &x[from + made], count - made)) << "behind the outputs";
            }
        });
        EXPECT_TRUE(sameBits(cutLine, wantedLine));
    }
}

// 1 + 2^-24 and -1 leave 2^-24 in a sum of doubles, 0 in one of singles. The taps in between are of the other output.
TEST(MultirateDirectSingle, SumsAreDouble) {
    const Orb32f taps[] = {1, 0, 1, 0, 1}, x[] = {-1, 0x1p-24f, 1};
    Orb32f line[3] = {}, y[6];
    ASSERT_EQ(orbsFIRMR_Direct_32f(x, y, 3, taps, 5, 2, 0, 1, 0, line), orbStsNoErr);
    EXPECT_EQ(y[4], 0x1p-24f);
}

// Halves go away from zero, the scale factor counts modulo 128, and a NaN gives the lowest integer.
TEST(MultirateDirectInteger, OutputsAreRoundedAsThoseOfOneRate) {
    const Orb16s x[] = {1, -1, 3, -3, 32767, -32768};
    const struct {
        int scaleFactor;
        Orb64f tap;
        Orb16s wanted[6];
    } table[] = {{1, 1, {1, -1, 2, -2, 16384, -16384}},
                 {129, 1, {1, -1, 2, -2, 16384, -16384}},
                 {-1, 1, {2, -2, 6, -6, 32767, -32768}},
                 {-129, 1, {2, -2, 6, -6, 32767, -32768}},
                 {128, 0.5, {1, -1, 2, -2, 16384, -16384}},
                 {0, std::numeric_limits<Orb64f>::quiet_NaN(), {-32768, -32768, -32768, -32768, -32768, -32768}}};
    for (const auto& row : table) {
        Orb16s line[1] = {}, y[12];
        ASSERT_EQ(orbsFIRMR64f_Direct_16s_Sfs(x, y, 6, &row.tap, 1, 2, 0, 1, 0, line, row.scaleFactor), orbStsNoErr);
        for (int n = 0; n < 6; ++n) {
            EXPECT_EQ(y[2 * n], row.wanted[n]) << "scale factor " << row.scaleFactor << ", sample " << x[n];
            EXPECT_EQ(y[2 * n + 1], 0) << "no tap meets a sample there";
        }
    }
}

} // namespace
