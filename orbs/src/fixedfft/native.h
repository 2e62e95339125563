// Transforms of up to 8 points in integers: sums are exact, each product with a fixed-point factor is made of an exact
// sum and rounded once, to nearest with halves up, and the scale rule rounds what is stored. Of samples all of it fits
// into 32 bits; an inverse of a spectrum that no samples have needs more.
#pragma once

#include "vectors/scaling.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace orbs::fixedfft {

using Wide = std::int64_t;

template <class Int>
struct Point {
    Int re, im;
};
template <class Int>
constexpr Point<Int> operator+(Point<Int> a, Point<Int> b) {
    return {a.re + b.re, a.im + b.im};
}
template <class Int>
constexpr Point<Int> operator-(Point<Int> a, Point<Int> b) {
    return {a.re - b.re, a.im - b.im};
}
template <class Int>
constexpr Point<Int> byMinusI(Point<Int> a) {
    return {a.im, -a.re};
}

// Samples of 16 bits go through a core of 2^order points times 2^headroom.
constexpr int headroomOf(int order) {
    return 15 - order;
}
template <class Int, int order>
constexpr Point<Int> withHeadroom(Orb16s re, Orb16s im) {
    constexpr Int factor = Int{1} << headroomOf(order);
    return {re * factor, im * factor};
}

// Calls body with the order as a constant, from the least to 3.
template <int least, class Body>
HWY_INLINE void withOrder(int order, Body body) {
    if (least == 0 && order == 0) return body(std::integral_constant < int, least == 0 ? 0 : 1 > ());
    if (order == 1) return body(std::integral_constant<int, 1>());
    if (order == 2) return body(std::integral_constant<int, 2>());
    body(std::integral_constant<int, 3>());
}

// product * 2^-bits to nearest, halves up.
constexpr Wide nearest(Wide product, int bits) {
    return (product + (Wide{1} << (bits - 1))) >> bits;
}
// Times the root of one half, with 14 and with 15 fraction bits.
template <class Int>
constexpr Int byRootOfHalf14(Int sum) {
    return static_cast<Int>(nearest(Wide{sum} * 11585, 14));
}
template <class Int>
constexpr Int byRootOfHalf15(Int sum) {
    return static_cast<Int>(nearest(Wide{sum} * 23170, 15));
}

// ---- Cores ----

template <class Int>
constexpr void sumAndDifference(Point<Int>& a, Point<Int>& b) {
    const Point<Int> sum = a + b;
    b = a - b;
    a = sum;
}
template <class Int>
constexpr void fourPoints(Point<Int>& a, Point<Int>& b, Point<Int>& c, Point<Int>& d) {
    const Point<Int> s0 = a + c, d0 = a - c, s1 = b + d, d1 = byMinusI(b - d);
    a = s0 + s1;
    b = d0 + d1;
    c = s0 - s1;
    d = d0 - d1;
}

// The forward transform of 2^order points.
template <int order, class Int>
HWY_INLINE void fourier(Point<Int>* x) {
    if constexpr (order == 1) {
        sumAndDifference(x[0], x[1]);
    } else if constexpr (order == 2) {
        fourPoints(x[0], x[1], x[2], x[3]);
    } else if constexpr (order == 3) {
        fourPoints(x[0], x[2], x[4], x[6]);
        fourPoints(x[1], x[3], x[5], x[7]);
        const Point<Int> even[] = {x[0], x[2], x[4], x[6]};
        const Point<Int> odd[] = {x[1],
                                  {byRootOfHalf14(x[3].im + x[3].re), byRootOfHalf14(x[3].im - x[3].re)},
                                  byMinusI(x[5]),
                                  {byRootOfHalf14(x[7].im - x[7].re), byRootOfHalf14(-x[7].im - x[7].re)}};
        for (int k = 0; k < 4; ++k) {
            x[k] = even[k] + odd[k];
            x[k + 4] = even[k] - odd[k];
        }
    }
}

// The transform Z of x[2n] + i x[2n+1], n = 0 to m - 1, to the spectrum of x: R0 and RM in z[0], then bins.
template <int m, class Int>
HWY_INLINE void recombineForward(Point<Int>* z) {
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    if constexpr (m > 1) z[m / 2].im = -z[m / 2].im;
    if constexpr (m == 4) {
        // Z[1] and Z[3] are the sums and differences of two transforms, so what is halved is even.
        const Point<Int> sum = z[1] + z[3], difference = z[1] - z[3];
        const Int p = byRootOfHalf14((sum.im - difference.re) / 2), q = byRootOfHalf14((-sum.im - difference.re) / 2);
        z[1] = {sum.re / 2 + p, difference.im / 2 + q};
        z[3] = {sum.re / 2 - p, q - difference.im / 2};
    }
}

// Such a spectrum to twice the transform of x[2n] + i x[2n+1].
template <int m, class Int>
HWY_INLINE void recombineInverse(Point<Int>* z) {
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    if constexpr (m > 1) z[m / 2] = {2 * z[m / 2].re, -2 * z[m / 2].im};
    if constexpr (m == 4) {
        const Point<Int> sum = z[1] + z[3], difference = z[1] - z[3];
        const Int p = byRootOfHalf14(-difference.re - sum.im), q = byRootOfHalf14(difference.re - sum.im);
        z[1] = {sum.re + p, difference.im + q};
        z[3] = {sum.re - p, q - difference.im};
    }
}

// ---- What is stored ----

// A value v as v * 2^-shift by the scale rule, times the root of one half before that if the flag leaves one.
struct Stored {
    bool byRootOfHalf;
    Wide shift;

    template <int count>
    HWY_INLINE void store(Orb32s* values, Orb16s* to) const {
        if (byRootOfHalf) std::transform(values, values + count, values, byRootOfHalf15<Orb32s>);
        if (shift > 31) return static_cast<void>(std::fill_n(to, count, 0)); // 2^31 gives a half, which goes to 0
        const auto s = static_cast<int>(std::max<Wide>(shift, -15));
        constexpr hn::CappedTag<Orb32s, count> d;
        constexpr hn::Rebind<Orb16s, decltype(d)> d16;
        for (std::size_t k = 0; k < count; k += hn::MaxLanes(d)) {
            const auto v = hn::LoadU(d, values + k);
            const auto narrow = hn::DemoteTo(d16, s > 0 ? rounded(d, v, s) : v);
            hn::StoreU(s < 0 ? shiftedLeft(d16, narrow, -s) : narrow, d16, to + k);
        }
    }
    template <int count>
    HWY_INLINE void store(Wide* values, Orb16s* to) const {
        for (int k = 0; k < count; ++k) to[k] = stored(byRootOfHalf ? byRootOfHalf15(values[k]) : values[k]);
    }

private:
    Orb16s stored(Wide v) const {
        constexpr Wide least = std::numeric_limits<Orb16s>::min(), most = std::numeric_limits<Orb16s>::max();
        if (shift > 40) return 0; // no value reaches 2^40
        if (shift > 0) {
            v = (v + (Wide{1} << (shift - 1)) - 1 + ((v >> shift) & 1)) >> shift;
        } else {
            v = std::clamp(v, least, most) * (Wide{1} << std::min<Wide>(-shift, 15));
        }
        return static_cast<Orb16s>(std::clamp(v, least, most));
    }
};

} // namespace orbs::fixedfft
