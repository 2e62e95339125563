#include "support/unary_member.h"

namespace {

using namespace unary_member;

TEST(Cubrt, Floats) {
    const auto exact = [](long double x) { return std::cbrt(x); };
    for (const Orb32u sign : {0x00000000u, 0x80000000u}) {
        expectWithin(0.53, &orbsCubrt_32f, patterns<Orb32f, Orb32u>(sign, sign + 0x7f7fffff, 400000), exact);
        expectWithin(0.53, &orbsCubrt_32f, patterns<Orb32f, Orb32u>(sign, sign + 0x0fffffff, 100000), exact);
        expectWithin(0.53, &orbsCubrt_32f, patterns<Orb32f, Orb32u>(sign + 0x3f000000, sign + 0x41000000, 400000),
                     exact);
    }
    expectSameBeside(&orbsCubrt_32f, patterns<Orb32f, Orb32u>(0x10000000, 0x7f7fffff, 600), 0x1p-140f);
    using Limits = std::numeric_limits<Orb32f>;
    const std::vector<Orb32f> same{0, -0.0f, 1, -1, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()};
    EXPECT_TRUE(sameBits(call(&orbsCubrt_32f, same).y, same));
}

// The root of an integer is one of a float, 0.53 of its last places off at most; and of a cube it is exact.
TEST(Cubrt, Integers) {
    std::vector<Orb32s> x{std::numeric_limits<Orb32s>::min(), std::numeric_limits<Orb32s>::max(), 0, 1, -1};
    for (int root = -1290; root <= 1290; ++root)
        for (int near = -1; near <= 1; ++near) x.push_back(root * root * root + near);
    const auto random = support::randomVector<Orb32s>(20000);
    x.insert(x.end(), random.begin(), random.end());
    for (const int s : {-1000,
                        -129,
                        -128,
                        -127,
                        -64,
                        -20,
                        -15,
                        -5,
                        -4,
                        -1,
                        0,
                        1,
                        2,
                        10,
                        11,
                        12,
                        127,
                        128,
                        129,
                        1000,
                        std::numeric_limits<int>::min(),
                        std::numeric_limits<int>::max()}) {
        const auto got = call(&orbsCubrt_32s16s_Sfs, x, s);
        EXPECT_EQ(got.status, orbStsNoErr);
        const long long magnitude = std::llabs(static_cast<long long>(s)) % 128;
        for (std::size_t n = 0; n < x.size(); ++n) {
            const long double root = std::cbrt(static_cast<long double>(static_cast<Orb32f>(x[n])));
            const long double exact = std::ldexp(root, static_cast<int>(s < 0 ? magnitude : -magnitude));
            const long double slack = std::fabs(exact) * std::numeric_limits<Orb32f>::epsilon();
            const auto rounded = [](long double y) { return std::clamp(std::nearbyint(y), -32768.0L, 32767.0L); };
            ASSERT_GE(got.y[n], rounded(exact - slack)) << "Cubrt_32s16s_Sfs of " << x[n] << ", scale factor " << s;
            ASSERT_LE(got.y[n], rounded(exact + slack)) << "Cubrt_32s16s_Sfs of " << x[n] << ", scale factor " << s;
        }
    }
    EXPECT_EQ(call(&orbsCubrt_32s16s_Sfs, {27, 125, -27, -125, 343}, 1).y, (std::vector<Orb16s>{2, 2, -2, -2, 4}));
}

} // namespace
