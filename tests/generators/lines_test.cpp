// VectorRamp and VectorSlope, bit by bit in every rounding mode, beside the rules written as scalar code.
#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/guarded.h"

#include <cmath>

namespace {

using namespace support;

constexpr Orb32f infinite = std::numeric_limits<Orb32f>::infinity();

// ---- Reference ----

template <class T>
T limited(long double whole) {
    constexpr long double least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
    return static_cast<T>(whole > least ? std::min(whole, most) : least);
}

template <class T>
T rampElement(Orb32f offset, Orb32f slope, std::size_t n) {
    const Orb32f line = offset + slope * static_cast<Orb32f>(static_cast<int>(n));
    if constexpr (std::is_floating_point_v<T>) {
        return line;
    } else {
        return limited<T>(line > 0 ? std::floor(line + 0.5L) : std::ceil(line - 0.5L));
    }
}

int index(Orb32f k) {
    return k > 0x1p31f ? 0x7fffffff : k < 0 || std::isnan(k) ? 0 : limited<int>(k);
}

template <class T, class Real>
std::vector<T> slopeOf(Real offset, Real slope, int len) {
    constexpr bool isInteger = std::is_integral_v<T>;
    std::vector<T> v;
    const auto repeat = [&](int count, long double value) {
        v.insert(v.end(), static_cast<std::size_t>(count), limited<T>(value));
    };
    if (!(slope < 0) && !(slope > 0)) {
        if constexpr (isInteger) {
            repeat(len, std::round(static_cast<long double>(offset)));
        } else {
            v.assign(static_cast<std::size_t>(len), offset);
        }
        return v;
    }
    int working = len, after = 0;
    constexpr T bottom = isInteger ? std::numeric_limits<T>::min() : 0, top = std::numeric_limits<T>::max();
    if constexpr (isInteger) {
        const Orb32f r = static_cast<Orb32f>(1 / slope);
        const int low = index(static_cast<Orb32f>((static_cast<Real>(bottom) - offset) * r + 1));
        const int high = index(static_cast<Orb32f>(1 + (static_cast<Real>(top) - offset) * r));
        const int last = slope > 0 ? high : low, first = slope > 0 ? low : high;
        if (0 < last && last < len) working = last;
        after = len - working;
        if (first > 0) {
            const int m = std::min(first, working);
            repeat(m, slope > 0 ? bottom : top);
            offset = offset + static_cast<Real>(m) * slope;
            working -= m;
        }
    }
    Real lane[4];
    for (int j = 0; j < 4; ++j) lane[j] = static_cast<Real>(j) * slope;
    const Real step = 2 * (2 * slope);
    for (int n = 0; n < working; ++n) {
        const Real value = lane[n % 4] + offset;
        if constexpr (isInteger) {
            repeat(1, nearestInMode(value));
        } else {
            v.push_back(value);
        }
        lane[n % 4] += step;
    }
    if constexpr (isInteger) repeat(after, slope > 0 ? top : bottom);
    return v;
}

// ---- Members ----

template <class T, class Real>
using Member = OrbStatus (*)(T*, int, Real, Real);

template <class T, class Real>
std::vector<T> call(Member<T, Real> member, int len, Real offset, Real slope) {
    std::vector<T> v(static_cast<std::size_t>(len));
    EXPECT_EQ(member(v.data(), len, offset, slope), orbStsNoErr);
    return v;
}

template <class T, class Real, class Reference>
void expectLine(Member<T, Real> member, int len, Real offset, Real slope, Reference reference) {
    for (Orb32u mode : roundingModes) {
        const bool equal = inMode(mode, [&] {
            const auto got = call(member, len, offset, slope), want = reference(offset, slope, len);
            const auto result = sameValues(got, want);
            EXPECT_TRUE(result) << callOf(member, len, offset, slope) << " in mode " << mode;
            return static_cast<bool>(result);
        });
        if (!equal) return;
    }
}

// Lines through all that T can hold, beside it, and across both ends in both directions.
template <class T, class Real, class Reference>
void expectLines(Member<T, Real> member, Reference reference) {
    const double top = std::is_integral_v<T> ? static_cast<double>(std::numeric_limits<T>::max()) : 1000.0;
    const double offsets[] = {0.0,       0.5,         -0.5,       2.5,        -3.0,          top - 0.5,
                              top + 0.5, top + 300.4, -top - 1.5, -top - 2.5, 0x1.fffffep-2, top / 2};
    const double slopes[] = {1, -1, 0.25, -0.5, 1.0 / 3, -1e-3, top / 1000, -top / 777, 3 * top, 1e-9, 0};
    for (double offset : offsets)
        for (double slope : slopes)
            for (int len : {1, 2, 3, 4, 5, 9, 33, 1027})
                expectLine(member, len, static_cast<Real>(offset), static_cast<Real>(slope), reference);
    Random random(7);
    for (int n = 0; n < 200; ++n) {
        const auto offset = static_cast<Real>(top * (3 * randomElement<double>(random)));
        const auto slope = static_cast<Real>(top / 100 * randomElement<double>(random));
        expectLine(member, 1 + static_cast<int>(random() % 600), offset, slope, reference);
    }
    const Real nan = std::numeric_limits<Real>::quiet_NaN();
    for (Real offset : {nan, Real{infinite}, Real{-infinite}, Real{7}})
        for (Real slope : {nan, Real{infinite}, Real{-infinite}, Real{2}, Real{-2}, Real{0}})
            expectLine(member, 37, offset, slope, reference);
}

TEST(VectorRamp, IsTheLineOfSinglePrecision) {
    const auto expect = []<class T>(Member<T, Orb32f> member) {
        expectLines(member, [](Orb32f offset, Orb32f slope, int len) {
            std::vector<T> v(static_cast<std::size_t>(len));
            for (std::size_t n = 0; n < v.size(); ++n) v[n] = rampElement<T>(offset, slope, n);
            return v;
        });
    };
    expect(&orbsVectorRamp_8u);
    expect(&orbsVectorRamp_8s);
    expect(&orbsVectorRamp_16u);
    expect(&orbsVectorRamp_16s);
    expect(&orbsVectorRamp_32u);
    expect(&orbsVectorRamp_32s);
    expect(&orbsVectorRamp_32f);
    EXPECT_EQ(call(&orbsVectorRamp_8s, 1, -128.4f, 1.0f)[0], -128);
}

TEST(VectorRamp, _64fHasTwoPrecisions) {
    const Orb32f offset = 0.1f, slope = 1.0f / 3;
    int wide = 0;
    for (int len = 1; len <= 70; ++len) {
        for (std::size_t shift = 0; shift < 32; ++shift) {
            Guarded<Orb64f> v(static_cast<std::size_t>(len), Edge::begin, shift);
            ASSERT_EQ(orbsVectorRamp_64f(v.data(), len, offset, slope), orbStsNoErr);
            ASSERT_TRUE(v.intact());
            const int first = shift % 16 == 0 ? 0 : 1, eights = len < 9 || shift % 8 != 0 ? 0 : (len - first) / 8;
            for (int n = 0; n < len; ++n) {
                const bool isWide = n >= first && n < first + 8 * eights;
                const Orb64f want = isWide ? Orb64f{offset} + Orb64f{slope} * n
                                           : rampElement<Orb32f>(offset, slope, static_cast<std::size_t>(n));
                Orb64f got;
                std::memcpy(&got, v.data() + n, sizeof got);
                ASSERT_EQ(got, want) << n << " of " << len << ", shift " << shift;
                wide += isWide;
            }
        }
    }
    EXPECT_GT(wide, 0);
}

TEST(VectorSlope, AddsUpInFourLanesAndSaturates) {
    const auto expect = []<class T, class Real>(Member<T, Real> member) { expectLines(member, slopeOf<T, Real>); };
    expect(&orbsVectorSlope_8u);
    expect(&orbsVectorSlope_8s);
    expect(&orbsVectorSlope_16u);
    expect(&orbsVectorSlope_16s);
    expect(&orbsVectorSlope_32u);
    expect(&orbsVectorSlope_32s);
    expect(&orbsVectorSlope_32f);
    expect(&orbsVectorSlope_64f);
    EXPECT_EQ(call(&orbsVectorSlope_8u, 2, 300.4f, 0.0f), std::vector<Orb8u>(2, 255));
    EXPECT_EQ(call(&orbsVectorSlope_32s, 1, 0.49999999999999994, 0.0)[0], 0);
}

} // namespace
