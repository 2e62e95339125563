// Exact sums over 16-bit elements: lanes of 32 bits, which take the sum of a pair of products in one instruction, for
// blocks of so many elements that no lane, and no fold of all of them, leaves its 32 bits.
#pragma once

#include "reductions/reduce.h"
#include "vectors/complex.h"

#include <cstdint>

namespace orbs {

template <class L, std::size_t count, std::size_t bytesOfElement, std::size_t vectors = 4>
struct InWords : InAnyLanes<L, count, bytesOfElement, vectors> {
    static constexpr std::size_t block = 65536;

    // Of sums that fit their lanes.
    template <std::size_t parts>
    static Sums<Orb64s, count, parts> total(const Sums<L, count, parts>& sums) {
        Sums<Orb64s, count, parts> wide;
        for (std::size_t k = 0; k < count; ++k)
            for (std::size_t p = 0; p < parts; ++p) wide[k][p] = sums[k][p];
        return wide;
    }
};

template <class D>
using Shorts = hn::Repartition<Orb16s, D>;
template <class D, class T>
HWY_INLINE auto loadShorts(D, const T* p) {
    return hn::LoadU(Shorts<D>(), reinterpret_cast<const Orb16s*>(p));
}

// a[2k] b[2k] + a[2k + 1] b[2k + 1]. Four times -32768 give 2^31, as the bits of a lane that otherwise is above -2^31.
template <class D, class V>
HWY_INLINE auto pairs(D d, V a, V b) {
    return hn::BitCast(d, sumOfProducts(a, b));
}

// Wide numbers are added up twice, whole without what leaves 32 bits, and without their low halves: so much of the
// exact sum is in the first, so much in the second sum.
inline Orb64s joined(Orb32s whole, Orb32s high) {
    const auto low = static_cast<Orb32u>(whole) - (static_cast<Orb32u>(high) << 16);
    return Orb64s{high} * 0x10000 + low;
}
inline Orb64s joined(Orb32u whole, Orb32u high) {
    return static_cast<Orb64s>(Orb64u{high} << 16) + (whole - (high << 16));
}

// The elements.
template <class T>
struct Sum16;
template <>
struct Sum16<Orb16s> : InWords<Orb32s, 1, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[1], const Orb16s* p) const {
        sum[0] = hn::Add(sum[0], pairs(d, loadShorts(d, p), hn::Set(Shorts<D>(), 1)));
    }
};
template <>
struct Sum16<Orb16sc> : InWords<Orb32s, 2, sizeof(Orb16sc)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[2], const Orb16sc* p) const {
        const auto x = loadShorts(d, p);
        sum[0] = hn::Add(sum[0], pairs(d, x, alternating(Shorts<D>(), 1, 0)));
        sum[1] = hn::Add(sum[1], pairs(d, x, alternating(Shorts<D>(), 0, 1)));
    }
};

} // namespace orbs
