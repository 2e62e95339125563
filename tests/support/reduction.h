// Members that make one result of a vector, or of two.
#pragma once

#include "orbs.h"
#include "support/compare.h"

#include <cmath>
#include <vector>

namespace reduction {

using support::callOf;
using support::isComplex;
using support::Part;

// Around the lanes and rows of all tiers, and around the blocks of 512, 1024, 32768 and 65536 elements.
inline std::vector<std::size_t> lengths(std::size_t least = 1, std::size_t most = 200003) {
    std::vector<std::size_t> all;
    for (std::size_t n = least; n <= 70; ++n) all.push_back(n);
    for (std::size_t edge : {96, 128, 256, 512, 1024, 4096, 32768, 65536, 131072})
        for (std::size_t n : {edge - 1, edge, edge + 1})
            if (n <= most) all.push_back(n);
    if (most >= 200003) all.push_back(200003);
    return all;
}

// What the member gives; the result is NaN-free garbage before.
template <class S, class R, class... More>
R of(OrbStatus (*member)(const S*, int, R*, More...), const std::vector<S>& x, std::type_identity_t<More>... more) {
    R result{};
    EXPECT_EQ(member(x.data(), static_cast<int>(x.size()), &result, more...), orbStsNoErr) << callOf(member, more...);
    return result;
}
template <class S1, class S2, class R, class... More>
R of(OrbStatus (*member)(const S1*, const S2*, int, R*, More...), const std::vector<S1>& x, const std::vector<S2>& y,
     std::type_identity_t<More>... more) {
    R result{};
    EXPECT_EQ(member(x.data(), y.data(), static_cast<int>(x.size()), &result, more...), orbStsNoErr)
        << callOf(member, more...);
    return result;
}

// Whole numbers from -8 to 8: all sums of them and of their products are exact in single precision.
template <class T>
std::vector<T> wholeNumbers(std::size_t count, std::uint64_t seed = 1) {
    support::Random random(seed);
    std::vector<T> x(count);
    const auto any = [&] { return static_cast<Part<T>>(static_cast<int>(random() % 17) - 8); };
    for (T& t : x) {
        if constexpr (isComplex<T>) {
            t.re = any();
            t.im = any();
        } else {
            t = any();
        }
    }
    return x;
}

using Real = long double;
struct Complex {
    Real re = 0, im = 0;
};

template <class T>
Complex wide(T x) {
    if constexpr (isComplex<T>) {
        return {static_cast<Real>(x.re), static_cast<Real>(x.im)};
    } else {
        return {static_cast<Real>(x), 0};
    }
}
inline Complex operator+(Complex a, Complex b) {
    return {a.re + b.re, a.im + b.im};
}
inline Complex operator-(Complex a, Complex b) {
    return {a.re - b.re, a.im - b.im};
}
inline Complex operator*(Complex a, Complex b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// The result is within `tolerance` of the exact one.
template <class R>
testing::AssertionResult near(R got, Complex exact, Real tolerance) {
    const Complex error = wide(got) - exact;
    if (std::fabs(error.re) <= tolerance && std::fabs(error.im) <= tolerance) return testing::AssertionSuccess();
    return testing::AssertionFailure() << support::shown(got) << " is not within " << tolerance << " of (" << exact.re
                                       << ", " << exact.im << ")";
}

} // namespace reduction
