// Members over one vector, driven by what their own type tells: element types, in place or not, scaled or not.
#pragma once

#include "orbs.h"
#include "support/data.h"
#include "support/guarded.h"
#include "support/ulps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace elementary {

using support::asBits;
using support::fromBits;
using support::patterns;
using support::ulps;

template <class S, class R>
struct Call {
    std::vector<R> y;
    OrbStatus status;
};

// The results for all of x, at the end of guarded pages.
template <class S, class R, class... Scale>
Call<S, R> call(OrbStatus (*member)(const S*, R*, int, Scale...), const std::vector<S>& x,
                std::type_identity_t<Scale>... scaleFactor) {
    support::Guarded<S> src(x.size(), support::Edge::begin);
    support::Guarded<R> dst(x.size());
    std::copy(x.begin(), x.end(), src.begin());
    const OrbStatus status = member(src.data(), dst.data(), static_cast<int>(x.size()), scaleFactor...);
    EXPECT_TRUE(dst.intact());
    return {{dst.begin(), dst.end()}, status};
}
template <class T, class... Scale>
Call<T, T> call(OrbStatus (*member)(T*, int, Scale...), const std::vector<T>& x,
                std::type_identity_t<Scale>... scaleFactor) {
    support::Guarded<T> srcDst(x.size());
    std::copy(x.begin(), x.end(), srcDst.begin());
    const OrbStatus status = member(srcDst.data(), static_cast<int>(x.size()), scaleFactor...);
    EXPECT_TRUE(srcDst.intact());
    return {{srcDst.begin(), srcDst.end()}, status};
}

// Element by element the value of the rule, bit by bit.
template <class Member, class S, class Rule, class... Scale>
void expectRule(Member member, const std::vector<S>& x, Rule rule, Scale... scaleFactor) {
    const auto got = call(member, x, scaleFactor...);
    for (std::size_t n = 0; n < x.size(); ++n) {
        const auto want = rule(x[n], scaleFactor...);
        ASSERT_TRUE(support::sameBits(&got.y[n], &want, 1))
            << "x = " << x[n] << ": " << got.y[n] << ", not " << want
            << ::testing::PrintToString(std::make_tuple(scaleFactor...));
    }
}

template <class T>
std::vector<T> everyValue() {
    std::vector<T> x;
    for (int v = std::numeric_limits<T>::min(); v <= std::numeric_limits<T>::max(); ++v) x.push_back(static_cast<T>(v));
    return x;
}

template <class Member, class T, class Exact>
double worst(Member member, const std::vector<T>& x, Exact exact) {
    const auto got = call(member, x);
    double most = 0;
    for (std::size_t n = 0; n < x.size(); ++n) {
        const double error = ulps(got.y[n], exact(static_cast<long double>(x[n])));
        if (!(error <= most)) most = error;
    }
    return most;
}

// An element that takes the slower loop changes no other result, in whatever block it lies.
template <class Member, class T>
void expectSameBeside(Member member, const std::vector<T>& x, T odd) {
    for (const std::size_t len : {5, 255, 256, 257, 600}) {
        const std::vector<T> some(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(len));
        const auto plain = call(member, some).y;
        for (const std::size_t at : {std::size_t{0}, len / 2, len - 1}) {
            auto changed = some;
            changed[at] = odd;
            auto y = call(member, changed).y;
            y[at] = plain[at];
            EXPECT_TRUE(support::sameBits(y, plain)) << at << " of " << len;
        }
    }
}

} // namespace elementary
