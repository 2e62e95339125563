#include "support/compare.h"
#include "support/control.h"
#include "support/stride.h"

#include "orbs.h"

#include <cfenv>
#include <cmath>
#include <limits>

namespace {

using support::callOf;
using support::randomVector;
using support::sameValues;

template <class T, class... More>
using ForwardMember = OrbStatus (*)(const T*, int, T*, T*, More...);
template <class T, class... More>
using InverseMember = OrbStatus (*)(const T*, const T*, T*, int, More...);

template <class T>
struct Halves {
    explicit Halves(std::size_t len) : low((len + 1) / 2), high(len / 2) {
        high.reserve(1); // no null pointer
    }
    std::vector<T> low, high;
};

template <class T, class Member, class... More>
Halves<T> forward(Member member, const std::vector<T>& x, More... more) {
    Halves<T> y(x.size());
    EXPECT_EQ(member(x.data(), static_cast<int>(x.size()), y.low.data(), y.high.data(), more...), orbStsNoErr);
    return y;
}
template <class T, class Member, class... More>
std::vector<T> inverse(Member member, const Halves<T>& y, More... more) {
    std::vector<T> x(y.low.size() + y.high.size());
    EXPECT_EQ(member(y.low.data(), y.high.data(), x.data(), static_cast<int>(x.size()), more...), orbStsNoErr);
    return x;
}

// ---- Integers ----

// r * 2^-s to nearest, ties to even, saturated. Sums of 64 bits are exact in a long double.
template <class T>
T scaled(long double r, std::int64_t s) {
    const int shift = static_cast<int>(std::clamp<std::int64_t>(s, -200, 200));
    return static_cast<T>(std::clamp<long double>(std::nearbyint(std::ldexp(r, -shift)), std::numeric_limits<T>::min(),
                                                  std::numeric_limits<T>::max()));
}

template <class T, class Member, class... More>
void expectForward(Member member, const std::vector<T>& x, More... more) {
    const std::int64_t s = (std::int64_t{0} + ... + more);
    Halves<T> want(x.size());
    for (std::size_t i = 0; i < x.size() / 2; ++i) {
        want.low[i] = scaled<T>(static_cast<long double>(x[2 * i]) + x[2 * i + 1], s + 1);
        want.high[i] = scaled<T>(static_cast<long double>(x[2 * i + 1]) - x[2 * i], s + 1);
    }
    if (x.size() % 2 != 0) want.low.back() = scaled<T>(static_cast<long double>(x.back()), s);
    const Halves<T> got = forward(member, x, more...);
    ASSERT_TRUE(sameValues(got.low, want.low)) << callOf(member, more...) << ", low, of " << x.size();
    ASSERT_TRUE(sameValues(got.high, want.high)) << callOf(member, more...) << ", high, of " << x.size();
}
template <class T, class Member, class... More>
void expectInverse(Member member, const std::vector<T>& low, const std::vector<T>& high, More... more) {
    const std::int64_t s = (std::int64_t{0} + ... + more);
    Halves<T> y(0);
    y.low = low;
    y.high = high;
    std::vector<T> want(low.size() + high.size());
    for (std::size_t i = 0; i < high.size(); ++i) {
        want[2 * i] = scaled<T>(static_cast<long double>(low[i]) - high[i], s);
        want[2 * i + 1] = scaled<T>(static_cast<long double>(low[i]) + high[i], s);
    }
    if (low.size() > high.size()) want.back() = scaled<T>(static_cast<long double>(low.back()), s);
    ASSERT_TRUE(sameValues(inverse(member, y, more...), want)) << callOf(member, more...) << ", of " << want.size();
}

template <class T>
struct Members;
#define MEMBERS(type)                                                                                                  \
    template <>                                                                                                        \
    struct Members<Orb##type> {                                                                                        \
        static constexpr ForwardMember<Orb##type> forward = orbsWTHaarFwd_##type;                                      \
        static constexpr InverseMember<Orb##type> inverse = orbsWTHaarInv_##type;                                      \
        static constexpr ForwardMember<Orb##type, int> forwardScaled = orbsWTHaarFwd_##type##_Sfs;                     \
        static constexpr InverseMember<Orb##type, int> inverseScaled = orbsWTHaarInv_##type##_Sfs;                     \
    };
MEMBERS(8s)
MEMBERS(16s)
MEMBERS(32s)
MEMBERS(64s)
#undef MEMBERS

template <class T>
class HaarOfIntegers : public testing::Test {};
using Integers = testing::Types<Orb8s, Orb16s, Orb32s, Orb64s>;
TYPED_TEST_SUITE(HaarOfIntegers, Integers);

// Every pair among extremes, their neighbours and small numbers of every remainder, then random ones; at each scale
// factor up to both cuts, and far beyond them.
TYPED_TEST(HaarOfIntegers, FollowTheScaleRule) {
    using T = TypeParam;
    using Limits = std::numeric_limits<T>;
    constexpr int bits = 8 * sizeof(T);
    const T worth[] = {Limits::min(),
                       T(Limits::min() + 1),
                       T(Limits::min() + 2),
                       T(Limits::min() / 2),
                       -3,
                       -2,
                       -1,
                       0,
                       1,
                       2,
                       3,
                       T(Limits::max() / 2),
                       T(Limits::max() / 2 + 1),
                       T(Limits::max() - 1),
                       Limits::max()};
    std::vector<T> first, second, pairs;
    for (const T a : worth)
        for (const T b : worth) first.push_back(a), second.push_back(b);
    for (std::size_t n = 0; n < first.size(); ++n) pairs.push_back(first[n]), pairs.push_back(second[n]);
    pairs.push_back(Limits::min());
    first.push_back(Limits::max());

    expectForward(Members<T>::forward, pairs);
    expectInverse(Members<T>::inverse, first, second);
    for (const int s : support::scaleFactors(-bits - 1, bits + 2)) {
        expectForward(Members<T>::forwardScaled, pairs, s);
        expectInverse(Members<T>::inverseScaled, first, second, s);
        for (const std::size_t len : {1, 2, 3, 5, 17, 32, 63, 130, 131, 500}) {
            const auto x = randomVector<T>(len, static_cast<unsigned>(s));
            expectForward(Members<T>::forwardScaled, x, s);
            expectInverse(Members<T>::inverseScaled, randomVector<T>((len + 1) / 2), randomVector<T>(len / 2, 2), s);
        }
        if (this->HasFatalFailure()) return;
    }
}

TYPED_TEST(HaarOfIntegers, OfEveryLength) {
    using T = TypeParam;
    for (std::size_t len = 1; len <= 300; len += support::stride) {
        expectForward(Members<T>::forward, randomVector<T>(len));
        expectInverse(Members<T>::inverse, randomVector<T>((len + 1) / 2), randomVector<T>(len / 2, 2));
    }
}

// ---- Floats ----

template <class T, class Forward, class Inverse>
void expectFloats(Forward forwardMember, Inverse inverseMember, const std::vector<T>& x) {
    const auto got = forward(forwardMember, x);
    const auto back = inverse(inverseMember, got);
    Halves<T> want(x.size());
    std::vector<T> joined(x.size());
    for (std::size_t i = 0; i < x.size() / 2; ++i) {
        want.high[i] = (x[2 * i + 1] - x[2 * i]) * T{0.5};
        want.low[i] = x[2 * i] + want.high[i];
        joined[2 * i] = got.low[i] - got.high[i];
        joined[2 * i + 1] = got.low[i] + got.high[i];
    }
    if (x.size() % 2 != 0) want.low.back() = joined.back() = x.back();
    ASSERT_TRUE(sameValues(got.low, want.low)) << callOf(forwardMember) << ", low, of " << x.size();
    ASSERT_TRUE(sameValues(got.high, want.high)) << callOf(forwardMember) << ", high, of " << x.size();
    ASSERT_TRUE(sameValues(back, joined)) << callOf(inverseMember) << ", of " << x.size();
}

template <class T>
class HaarOfFloats : public testing::Test {
protected:
    static void expect(const std::vector<T>& x) {
        if constexpr (std::is_same_v<T, Orb32f>) {
            expectFloats(orbsWTHaarFwd_32f, orbsWTHaarInv_32f, x);
        } else {
            expectFloats(orbsWTHaarFwd_64f, orbsWTHaarInv_64f, x);
        }
    }
};
using Floats = testing::Types<Orb32f, Orb64f>;
TYPED_TEST_SUITE(HaarOfFloats, Floats);

// In every rounding mode, at every place of a vector: the same three operations.
TYPED_TEST(HaarOfFloats, AreTheOperationsOfTheirType) {
    using T = TypeParam;
    using Limits = std::numeric_limits<T>;
    const T special[] = {0,
                         T(-0.0),
                         1,
                         3,
                         Limits::denorm_min(),
                         Limits::min(),
                         Limits::max(),
                         Limits::lowest(),
                         Limits::infinity(),
                         -Limits::infinity(),
                         Limits::quiet_NaN()};
    std::vector<T> pairs;
    for (const T a : special)
        for (const T b : special) pairs.push_back(a), pairs.push_back(b);
    pairs.push_back(-Limits::infinity());
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        std::fesetround(other);
        this->expect(pairs);
        for (std::size_t len = 1; len <= 150; len += support::stride) this->expect(randomVector<T>(len));
    }
    std::fesetround(mode);
}

// What stands alone is copied, and raises nothing.
TYPED_TEST(HaarOfFloats, KeepALoneElementBitForBit) {
    using T = TypeParam;
    std::vector<T> x(7, T{1});
    x.back() = std::numeric_limits<T>::signaling_NaN();
    std::feclearexcept(FE_ALL_EXCEPT);
    Halves<T> y(x.size());
    if constexpr (std::is_same_v<T, Orb32f>) {
        orbsWTHaarFwd_32f(x.data(), 7, y.low.data(), y.high.data());
    } else {
        orbsWTHaarFwd_64f(x.data(), 7, y.low.data(), y.high.data());
    }
    EXPECT_EQ(std::memcmp(&y.low.back(), &x.back(), sizeof(T)), 0);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

} // namespace
