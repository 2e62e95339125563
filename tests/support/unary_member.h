// Calls of members of the shape (pSrc, pDst, len, more...), element by element compared with a rule.
#pragma once

#include "orbs.h"
#include "support/control.h"
#include "support/data.h"
#include "support/guarded.h"

#include <gtest/gtest.h>
#include <ios>
#include <vector>

namespace unary_member {

inline constexpr int roundingArguments[] = {orbRndZero, orbRndNear, 2, -1};

template <class T>
std::string shown(const T& t) {
    std::ostringstream text;
    if constexpr (std::is_floating_point_v<T>) {
        text << std::hexfloat << t;
    } else if constexpr (std::is_integral_v<T>) {
        text << +t;
    } else {
        for (int byte : t.b) text << std::hex << byte << ' ';
    }
    return text.str();
}

// Bits, but for a NaN, which is as good as any other.
template <class T>
bool same(const T& a, const T& b) {
    if constexpr (std::is_floating_point_v<T>) {
        if (a != a && b != b) return true;
    }
    return support::sameBits(&a, &b, 1);
}

template <class Dst, class Src>
void expectElements(const Dst* got, const Dst* want, const Src* src, std::size_t len) {
    for (std::size_t n = 0; n < len; ++n)
        ASSERT_TRUE(same(got[n], want[n])) << shown(src[n]) << " became " << shown(got[n]) << ", not " << shown(want[n])
                                           << ", at " << n << " of " << len;
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
    ASSERT_EQ(call(src.data(), got.data(), src.size()), orbStsNoErr);
    ASSERT_NO_FATAL_FAILURE(expectElements(got.data(), want.data(), src.data(), src.size()));
    for (std::size_t len = 1; len <= std::min<std::size_t>(70, src.size()); ++len) {
        const std::size_t at = len * 7919 % (src.size() - len + 1);
        support::Guarded<Src> piece(len);
        support::Guarded<Dst> dst(len);
        std::copy_n(src.begin() + static_cast<std::ptrdiff_t>(at), len, piece.begin());
        ASSERT_EQ(call(piece.data(), dst.data(), len), orbStsNoErr);
        ASSERT_NO_FATAL_FAILURE(expectElements(dst.data(), &want[at], piece.data(), len));
        ASSERT_TRUE(dst.intact());
    }
}
template <class Src, class Dst, class Rule, class... More>
void expectMaps(OrbStatus (*member)(const Src*, Dst*, int, More...), const std::vector<Src>& src, Rule rule,
                std::type_identity_t<More>... more) {
    expectMapsInMode(_MM_ROUND_NEAREST, member, src, rule, more...);
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

// Every value of a type of 8 or 16 bits.
template <class T>
std::vector<T> everyValue() {
    std::vector<T> values;
    for (int v = std::numeric_limits<T>::min(); v <= std::numeric_limits<T>::max(); ++v)
        values.push_back(static_cast<T>(v));
    return values;
}

} // namespace unary_member
