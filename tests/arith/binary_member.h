// Members over two vectors, driven by what their own type tells: element types, in place or not, scaled or not.
#pragma once

#include "orbs.h"
#include "support/data.h"
#include "support/guarded.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace binary {

using support::Edge;
using support::Guarded;

template <class Member>
struct Shape;

template <class S, class D>
struct Shape<OrbStatus (*)(const S*, const S*, D*, int)> {
    using First = S;
    using Second = S;
    using Result = D;
    static constexpr bool inPlace = false, scaled = false;
    static OrbStatus call(auto member, const S* a, const S* b, D* dst, int len, int) { return member(a, b, dst, len); }
};
template <class S, class D>
struct Shape<OrbStatus (*)(const S*, const S*, D*, int, int)> {
    using First = S;
    using Second = S;
    using Result = D;
    static constexpr bool inPlace = false, scaled = true;
    static OrbStatus call(auto member, const S* a, const S* b, D* dst, int len, int scaleFactor) {
        return member(a, b, dst, len, scaleFactor);
    }
};
template <class S, class D>
struct Shape<OrbStatus (*)(const S*, D*, int)> {
    using First = S;
    using Second = D;
    using Result = D;
    static constexpr bool inPlace = true, scaled = false;
    static OrbStatus call(auto member, const S* a, const D*, D* srcDst, int len, int) { return member(a, srcDst, len); }
};
template <class S, class D>
struct Shape<OrbStatus (*)(const S*, D*, int, int)> {
    using First = S;
    using Second = D;
    using Result = D;
    static constexpr bool inPlace = true, scaled = true;
    static OrbStatus call(auto member, const S* a, const D*, D* srcDst, int len, int scaleFactor) {
        return member(a, srcDst, len, scaleFactor);
    }
};

template <class Member>
using First = std::vector<typename Shape<Member>::First>;
template <class Member>
using Second = std::vector<typename Shape<Member>::Second>;
template <class Member>
using Result = std::vector<typename Shape<Member>::Result>;

// The same bits, where a NaN equals any NaN: which payload a sum or product of two NaNs has is left to the processor.
template <class T>
bool same(const T& x, const T& y) {
    if constexpr (support::isComplex<T>) {
        return same(x.re, y.re) && same(x.im, y.im);
    } else {
        return support::sameBits(&x, &y, 1) || (x != x && y != y);
    }
}

// The place of the first difference, or the length.
template <class T, class Range>
std::size_t firstDifference(const Range& got, const std::vector<T>& want) {
    return static_cast<std::size_t>(
        std::mismatch(want.begin(), want.end(), got.begin(), [](const T& x, const T& y) { return same(x, y); }).first -
        want.begin());
}

// Calls the member with its destination `shift` elements away from one edge of its pages and the sources at the other.
template <class Member>
void expectResult(Member member, const First<Member>& a, const Second<Member>& b, const Result<Member>& want,
                  int scaleFactor = 0, Edge edge = Edge::end, std::size_t shift = 0) {
    using S = Shape<Member>;
    const std::size_t len = want.size();
    const Edge other = edge == Edge::end ? Edge::begin : Edge::end;
    Guarded<typename S::First> first(len, other);
    Guarded<typename S::Second> second(len, other);
    Guarded<typename S::Result> dst(len, edge, shift * sizeof(typename S::Result));
    std::copy_n(a.begin(), len, first.begin());
    std::copy_n(b.begin(), len, second.begin());
    if constexpr (S::inPlace) std::copy_n(b.begin(), len, dst.begin());
    ASSERT_EQ(S::call(member, first.data(), second.data(), dst.data(), static_cast<int>(len), scaleFactor),
              orbStsNoErr);
    ASSERT_EQ(firstDifference(dst, want), len) << "len " << len << ", scale factor " << scaleFactor;
    EXPECT_TRUE(dst.intact());
}

// The destination is the first source, then the second.
template <class Member>
void expectResultOverSources(Member member, const First<Member>& a, const Second<Member>& b, const Result<Member>& want,
                             int scaleFactor = 0) {
    using S = Shape<Member>;
    const int len = static_cast<int>(want.size());
    if constexpr (!S::inPlace && std::is_same_v<typename S::First, typename S::Result>) {
        auto over = a;
        ASSERT_EQ(S::call(member, over.data(), b.data(), over.data(), len, scaleFactor), orbStsNoErr);
        EXPECT_EQ(firstDifference(over, want), want.size()) << "pDst = pSrc1, scale factor " << scaleFactor;
        over = b;
        ASSERT_EQ(S::call(member, a.data(), over.data(), over.data(), len, scaleFactor), orbStsNoErr);
        EXPECT_EQ(firstDifference(over, want), want.size()) << "pDst = pSrc2, scale factor " << scaleFactor;
    }
}

} // namespace binary
