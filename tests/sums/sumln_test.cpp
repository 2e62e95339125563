// SumLn.
#include "support/control.h"
#include "support/reduction.h"

namespace {

using namespace reduction;

// What is multiplied has as many roundings as there are factors, each of 2^-53 of the product; its logarithm is the
// library's, and its product with ln 2 has two more of its own size.
template <class T, class R>
void expectSum(OrbStatus (*member)(const T*, int, R*), const std::vector<T>& x) {
    Real exact = 0, size = 0;
    for (const T t : x) {
        exact += std::log(static_cast<Real>(t));
        size += std::fabs(std::log(static_cast<Real>(t)));
    }
    const Real ofDouble = 0x1p-53L * static_cast<Real>(2 * x.size() + 2) + 0x1p-51L * size;
    const Real ofResult = std::fabs(exact) * std::numeric_limits<R>::epsilon();
    ASSERT_TRUE(near(of(member, x), {exact, 0}, ofDouble + ofResult)) << support::nameOf(member) << " " << x.size();
}

template <class T>
std::vector<T> positive(std::size_t len, int exponents) {
    auto x = support::randomVector<T>(len);
    for (std::size_t n = 0; n < len; ++n) {
        const auto some = std::fabs(static_cast<double>(x[n]));
        if constexpr (std::is_integral_v<T>) {
            x[n] = static_cast<T>(std::clamp(some, 1.0, 32767.0));
        } else {
            x[n] = static_cast<T>(std::ldexp(some + 0x1p-20, static_cast<int>(n * 7919 % 100) * exponents / 100));
        }
    }
    return x;
}

TEST(SumLn, IsTheSumOfLogarithms) {
    for (const std::size_t len : lengths()) {
        for (const int exponents : {1, 100, -120}) {
            const auto x = positive<Orb32f>(len, exponents);
            expectSum(orbsSumLn_32f, x);
            expectSum(orbsSumLn_32f64f, x);
            expectSum(orbsSumLn_64f, positive<Orb64f>(len, 8 * exponents));
        }
        expectSum(orbsSumLn_16s32f, positive<Orb16s>(len, 0));
    }
}

TEST(SumLn, ReachesTheEndsOfTheTypes) {
    using Single = std::numeric_limits<Orb32f>;
    using Double = std::numeric_limits<Orb64f>;
    for (const std::size_t len : {1u, 63u, 512u, 5001u}) {
        for (const Orb32f x : {Single::max(), Single::min(), Single::denorm_min(), 1.0f, std::nextafter(1.0f, 0.0f)})
            expectSum(orbsSumLn_32f64f, std::vector<Orb32f>(len, x));
        for (const Orb64f x : {Double::max(), Double::min(), Double::denorm_min(), 1.0, std::nextafter(1.0, 0.0)})
            expectSum(orbsSumLn_64f, std::vector<Orb64f>(len, x));
        expectSum(orbsSumLn_16s32f, std::vector<Orb16s>(len, 32767));
    }
    const std::vector<Orb64f> ones(1000, 1);
    EXPECT_EQ(of(orbsSumLn_64f, ones), 0);
    for (std::size_t at = 0; at < 700; at += 13) { // a subnormal element among others
        auto x = positive<Orb32f>(700, 10);
        x[at] = 3e-41f;
        expectSum(orbsSumLn_32f64f, x);
        const auto flushed = support::inMode(support::denormalsAreZero, [&] { return of(orbsSumLn_32f64f, x); });
        EXPECT_EQ(flushed, of(orbsSumLn_32f64f, x));
        auto y = positive<Orb64f>(700, 10);
        y[at] = 3e-310;
        expectSum(orbsSumLn_64f, y);
    }
}

enum Kind { number, zero, negative, nan, infinity };

template <class T, class R>
void expectEndsAtTheFirst(OrbStatus (*member)(const T*, int, R*), T bad, Kind kind, T other, Kind otherKind) {
    for (const std::size_t len : {1u, 7u, 512u, 1100u}) {
        for (std::size_t at = 0; at < len; at += 1 + len / 23) {
            auto x = positive<T>(len, 5);
            x[at] = bad;
            const std::size_t second = (at * 31 + 5) % len; // before it, behind it or in its place
            if (second != at) x[second] = other;
            const bool stops = otherKind != infinity && second < at;
            const Kind decides = stops ? otherKind : kind != infinity || second == at ? kind : otherKind;
            R result = -1;
            const OrbStatus status = member(x.data(), static_cast<int>(len), &result);
            const std::string what = support::nameOf(member) + " of " + support::shown(bad) + " at " +
                                     std::to_string(at) + ", " + support::shown(other) + " at " +
                                     std::to_string(second) + " of " + std::to_string(len);
            ASSERT_EQ(status, decides == zero       ? orbStsLnZeroArg
                              : decides == negative ? orbStsLnNegArg
                                                    : orbStsNoErr)
                << what;
            if (decides == zero || decides == infinity)
                ASSERT_EQ(result, std::numeric_limits<R>::infinity()) << what;
            else
                ASSERT_TRUE(std::isnan(result)) << what;
        }
    }
}

template <class T, class R>
void expectEnds(OrbStatus (*member)(const T*, int, R*)) {
    using Limits = std::numeric_limits<T>;
    std::vector<std::pair<T, Kind>> bad{{T{0}, zero}, {T{-1}, negative}, {Limits::lowest(), negative}};
    if constexpr (std::is_floating_point_v<T>) {
        bad.insert(bad.end(), {{T{-0.0}, zero},
                               {Limits::quiet_NaN(), nan},
                               {-Limits::quiet_NaN(), negative},
                               {-Limits::infinity(), negative},
                               {-Limits::denorm_min(), negative},
                               {Limits::infinity(), infinity}});
    }
    for (const auto& [one, kind] : bad)
        for (const auto& [other, otherKind] : bad) expectEndsAtTheFirst(member, one, kind, other, otherKind);
}

TEST(SumLn, EndsAtTheFirstElementThatHasNoLogarithm) {
    expectEnds(orbsSumLn_32f);
    expectEnds(orbsSumLn_32f64f);
    expectEnds(orbsSumLn_64f);
    expectEnds(orbsSumLn_16s32f);
}

} // namespace
