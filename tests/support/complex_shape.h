// Formulas on one element, and members run in guarded memory, for the tests of reversal and of complex vectors.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"

#include <cmath>

namespace complex_shape {

using support::callOf;
using support::Edge;
using support::Guarded;
using support::sameBits;

template <class T>
T conjugate(T z) {
    using Real = decltype(z.im);
    if constexpr (std::is_floating_point_v<Real>) {
        return {z.re, std::copysign(z.im, std::signbit(z.im) ? Real{1} : Real{-1})};
    } else {
        return {z.re, z.im == std::numeric_limits<Real>::min() ? std::numeric_limits<Real>::max() : Real(-z.im)};
    }
}

// Random elements with the values whose negation is special in front, and at the end, where the loops differ.
template <class T>
std::vector<T> elements(std::size_t len, std::uint64_t seed = 1) {
    auto v = support::randomVector<T>(len, seed);
    if constexpr (support::isComplex<T>) {
        using Real = decltype(T::im);
        using Limits = std::numeric_limits<Real>;
        const Real special[] = {Limits::min(), 0, static_cast<Real>(-0.0), Limits::infinity(), Limits::quiet_NaN()};
        for (std::size_t n = 0; n < len && n < std::size(special); ++n) v[n].im = v[len - 1 - n].im = special[n];
    }
    return v;
}

// Runs call(pSrc, pDst, len) from src to memory of its own, with the guard page behind it and in front of it.
template <class S, class D, class Call>
void expectResult(Call call, const std::vector<S>& src, const std::vector<D>& want) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
        Guarded<S> from(src.size(), edge);
        Guarded<D> to(want.size(), edge);
        std::copy(src.begin(), src.end(), from.begin());
        ASSERT_EQ(call(from.data(), to.data(), static_cast<int>(want.size())), orbStsNoErr);
        ASSERT_TRUE(sameBits(to, want)) << callOf(call);
        EXPECT_TRUE(to.intact()) << callOf(call);
    }
}

// Runs call(pSrcDst, len).
template <class T, class Call>
void expectInPlace(Call call, const std::vector<T>& src, const std::vector<T>& want) {
    Guarded<T> block(src.size());
    std::copy(src.begin(), src.end(), block.begin());
    ASSERT_EQ(call(block.data(), static_cast<int>(src.size())), orbStsNoErr);
    ASSERT_TRUE(sameBits(block, want)) << callOf(call) << " in place";
    EXPECT_TRUE(block.intact()) << callOf(call) << " in place";
}

inline std::vector<std::size_t> lengths() {
    std::vector<std::size_t> v{1000, 4099};
    for (std::size_t len = 1; len <= 140; ++len) v.push_back(len);
    return v;
}

} // namespace complex_shape
