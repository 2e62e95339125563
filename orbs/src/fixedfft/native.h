// Transforms of up to 8 points in integers: sums are exact, each product with a fixed-point factor is made of an exact
// sum and rounded once, to nearest with halves up, and the scale rule rounds what is stored. 64 bits hold all of it.
#pragma once

#include "foundation/frame.h"

#include <algorithm>
#include <cstdint>
#include <hwy/base.h>
#include <limits>
#include <type_traits>

namespace orbs::fixedfft {

using Wide = std::int64_t;

struct Point {
    Wide re, im;
};
constexpr Point operator+(Point a, Point b) {
    return {a.re + b.re, a.im + b.im};
}
constexpr Point operator-(Point a, Point b) {
    return {a.re - b.re, a.im - b.im};
}
constexpr Point byMinusI(Point a) {
    return {a.im, -a.re};
}

// The root of one half, with 14 and with 15 fraction bits.
constexpr Wide rootOfHalf14 = 11585, rootOfHalf15 = 23170;

// Samples of 16 bits go through a core of 2^order points times 2^headroom.
constexpr int headroomOf(int order) {
    return 15 - order;
}
template <int order>
constexpr Point withHeadroom(Point x) {
    constexpr Wide factor = Wide{1} << headroomOf(order);
    return {x.re * factor, x.im * factor};
}

// Calls body with the order as a constant, least to 3.
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
constexpr Wide byRootOfHalf14(Wide sum) {
    return nearest(sum * rootOfHalf14, 14);
}

constexpr void sumAndDifference(Point& a, Point& b) {
    const Point sum = a + b;
    b = a - b;
    a = sum;
}
constexpr void fourPoints(Point& a, Point& b, Point& c, Point& d) {
    const Point s0 = a + c, d0 = a - c, s1 = b + d, d1 = byMinusI(b - d);
    a = s0 + s1;
    b = d0 + d1;
    c = s0 - s1;
    d = d0 - d1;
}

// The forward transform of 2^order points.
template <int order>
HWY_INLINE void fourier(Point* x) {
    if constexpr (order == 1) {
        sumAndDifference(x[0], x[1]);
    } else if constexpr (order == 2) {
        fourPoints(x[0], x[1], x[2], x[3]);
    } else if constexpr (order == 3) {
        fourPoints(x[0], x[2], x[4], x[6]);
        fourPoints(x[1], x[3], x[5], x[7]);
        x[3] = {byRootOfHalf14(x[3].im + x[3].re), byRootOfHalf14(x[3].im - x[3].re)};
        x[5] = byMinusI(x[5]);
        x[7] = {byRootOfHalf14(x[7].im - x[7].re), byRootOfHalf14(-x[7].im - x[7].re)};
        const Point even[4] = {x[0], x[2], x[4], x[6]}, odd[4] = {x[1], x[3], x[5], x[7]};
        for (int k = 0; k < 4; ++k) {
            x[k] = even[k] + odd[k];
            x[k + 4] = even[k] - odd[k];
        }
    }
}

// The transform Z of x[2n] + i x[2n+1], n = 0 to m - 1, to the spectrum of x: R0 and RM in z[0], then bins.
template <int m>
HWY_INLINE void recombineForward(Point* z) {
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    if constexpr (m > 1) z[m / 2].im = -z[m / 2].im;
    if constexpr (m == 4) {
        // Z[1] and Z[3] are the sums and differences of two transforms, so what is halved is even.
        const Point sum = z[1] + z[3], difference = z[1] - z[3];
        const Wide p = byRootOfHalf14((sum.im - difference.re) / 2), q = byRootOfHalf14((-sum.im - difference.re) / 2);
        z[1] = {sum.re / 2 + p, difference.im / 2 + q};
        z[3] = {sum.re / 2 - p, q - difference.im / 2};
    }
}

// Such a spectrum to twice the transform of x[2n] + i x[2n+1].
template <int m>
HWY_INLINE void recombineInverse(Point* z) {
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    if constexpr (m > 1) z[m / 2] = {2 * z[m / 2].re, -2 * z[m / 2].im};
    if constexpr (m == 4) {
        const Point sum = z[1] + z[3], difference = z[1] - z[3];
        const Wide p = byRootOfHalf14(-difference.re - sum.im), q = byRootOfHalf14(difference.re - sum.im);
        z[1] = {sum.re + p, difference.im + q};
        z[3] = {sum.re - p, q - difference.im};
    }
}

// What is stored of a value v: v * 2^-shift, times the root of one half if the flag leaves one, by the scale rule.
struct Stored {
    bool byRootOfHalf;
    Wide shift;

    HWY_INLINE Orb16s operator()(Wide v) const {
        constexpr Wide least = std::numeric_limits<Orb16s>::min(), most = std::numeric_limits<Orb16s>::max();
        constexpr Wide allLost = 48; // no value reaches 2^47
        if (byRootOfHalf) v = nearest(v * rootOfHalf15, 15);
        if (shift >= allLost) return 0;
        if (shift > 0) {
            v = (v + (Wide{1} << (shift - 1)) - 1 + ((v >> shift) & 1)) >> shift;
        } else {
            v = std::clamp(v, least, most) * (Wide{1} << std::min<Wide>(-shift, 16));
        }
        return static_cast<Orb16s>(std::clamp(v, least, most));
    }
};

} // namespace orbs::fixedfft
