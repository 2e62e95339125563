// Members over one vector, driven by what their own type tells: element types, in place or not, and what more arguments
// follow the length.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/guarded.h"
#include "support/stride.h"
#include "support/ulps.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace unary_member {

using support::asBits;
using support::callOf;
using support::fromBits;
using support::patterns;
using support::sameBits;
using support::sameValues;
using support::shown;
using support::ulps;

inline constexpr int roundingArguments[] = {orbRndZero, orbRndNear, 2, -1};

// ---- Calls ----

template <class S, class R>
struct Call {
    std::vector<R> y;
    OrbStatus status;
};

// The results for all of x, at the end of guarded pages.
template <class S, class R, class... More>
Call<S, R> call(OrbStatus (*member)(const S*, R*, int, More...), const std::vector<S>& x,
                std::type_identity_t<More>... more) {
    support::Guarded<S> src(x.size(), support::Edge::begin);
    support::Guarded<R> dst(x.size());
    std::copy(x.begin(), x.end(), src.begin());
    const OrbStatus status = member(src.data(), dst.data(), static_cast<int>(x.size()), more...);
    EXPECT_TRUE(dst.intact()) << callOf(member, more...);
    return {{dst.begin(), dst.end()}, status};
}
template <class T, class... More>
Call<T, T> call(OrbStatus (*member)(T*, int, More...), const std::vector<T>& x, std::type_identity_t<More>... more) {
    support::Guarded<T> srcDst(x.size());
    std::copy(x.begin(), x.end(), srcDst.begin());
    const OrbStatus status = member(srcDst.data(), static_cast<int>(x.size()), more...);
    EXPECT_TRUE(srcDst.intact()) << callOf(member, more...);
    return {{srcDst.begin(), srcDst.end()}, status};
}

// ---- What they must give ----

// y[n] = rule(x[n], more...); a warning is no matter here.
template <class Member, class S, class Rule, class... More>
void expectRule(Member member, const std::vector<S>& x, Rule rule, More... more) {
    const auto got = call(member, x, more...);
    ASSERT_GE(got.status, 0) << callOf(member, more...);
    auto want = got.y;
    std::transform(x.begin(), x.end(), want.begin(), [=](const S& t) { return rule(t, more...); });
    ASSERT_TRUE(sameValues(got.y, want, x)) << callOf(member, more...);
}

// pDst[n] = rule(pSrc[n]), over all of src at once, and over short pieces of it between guard pages; called in the
// rounding mode given.
template <class Src, class Dst, class Rule, class... More>
void expectMapsInMode(Orb32u mode, OrbStatus (*member)(const Src*, Dst*, int, More...), const std::vector<Src>& src,
                      Rule rule, std::type_identity_t<More>... more) {
    const auto call = [=](const Src* from, Dst* to, std::size_t len) {
        return support::inMode(mode, [=] { return member(from, to, static_cast<int>(len), more...); });
    };
    std::vector<Dst> want, got(src.size());
    for (const Src& x : src) want.push_back(rule(x));
    ASSERT_EQ(call(src.data(), got.data(), src.size()), orbStsNoErr) << callOf(member, more...);
    ASSERT_TRUE(sameValues(got, want, src)) << callOf(member, more...) << ", mode " << mode;
    for (std::size_t len = 1; len <= std::min<std::size_t>(70, src.size()); ++len) {
        const std::size_t at = len * 7919 % (src.size() - len + 1);
        support::Guarded<Src> piece(len);
        support::Guarded<Dst> dst(len);
        std::copy_n(src.begin() + static_cast<std::ptrdiff_t>(at), len, piece.begin());
        ASSERT_EQ(call(piece.data(), dst.data(), len), orbStsNoErr);
        ASSERT_TRUE(sameValues(dst.data(), &want[at], len, piece)) << callOf(member, more...) << ", mode " << mode;
        ASSERT_TRUE(dst.intact()) << callOf(member, more...);
    }
}
template <class Src, class Dst, class Rule, class... More>
void expectMaps(OrbStatus (*member)(const Src*, Dst*, int, More...), const std::vector<Src>& src, Rule rule,
                std::type_identity_t<More>... more) {
    expectMapsInMode(_MM_ROUND_NEAREST, member, src, rule, more...);
}

// Less than `bound` units of the last place from the exact result.
template <class Member, class T, class Exact>
void expectWithin(double bound, Member member, const std::vector<T>& x, Exact exact) {
    const auto got = call(member, x);
    for (std::size_t n = 0; n < x.size(); ++n) {
        const long double want = exact(static_cast<long double>(x[n]));
        ASSERT_LT(ulps(got.y[n], want), bound) << callOf(member) << ": element " << n << " is " << shown(got.y[n])
                                               << ", not " << shown(want) << ", from " << shown(x[n]);
    }
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
            EXPECT_TRUE(sameBits(y, plain, some)) << callOf(member) << ", odd element " << at;
        }
    }
}

// ---- Elements ----

template <class T24>
T24 packed24(Orb32s v) {
    return {{static_cast<Orb8u>(v), static_cast<Orb8u>(v >> 8), static_cast<Orb8u>(v >> 16)}};
}
inline Orb32s valueOf(Orb24u t) {
    return t.b[0] | t.b[1] << 8 | t.b[2] << 16;
}
inline Orb32s valueOf(Orb24s t) {
    return (valueOf(Orb24u{{t.b[0], t.b[1], t.b[2]}}) ^ 0x800000) - 0x800000;
}

// Every value of a type of 8 bits, and of one of 16 bits as far as loops go over all of them.
template <class T>
std::vector<T> everyValue() {
    constexpr int last = std::numeric_limits<T>::max(), step = sizeof(T) == 1 ? 1 : support::stride;
    std::vector<T> values;
    for (int v = std::numeric_limits<T>::min(); v < last; v += step) values.push_back(static_cast<T>(v));
    values.push_back(last);
    return values;
}

} // namespace unary_member
