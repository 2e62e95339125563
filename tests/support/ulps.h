// Floats by their bits, and distances in units of their last place.
#pragma once

#include "support/data.h"

#include <algorithm>
#include <cmath>

namespace support {

template <class T, class Bits>
T fromBits(Bits bits) {
    static_assert(sizeof(T) == sizeof(Bits));
    T t;
    std::memcpy(&t, &bits, sizeof t);
    return t;
}

template <class Bits, class T>
Bits asBits(T t) {
    return fromBits<Bits>(t);
}

// The numbers with the bit patterns `first` and `last`, and random ones with patterns in between.
template <class T, class Bits>
std::vector<T> patterns(Bits first, Bits last, std::size_t count) {
    Random random(count);
    std::vector<T> x{fromBits<T>(first), fromBits<T>(last)};
    std::uniform_int_distribution<Bits> any(first, last);
    while (x.size() < count) x.push_back(fromBits<T>(any(random)));
    return x;
}

// The distance of y from the exact value, in units of the spacing of T there. 0 where both are the same infinity or
// NaN.
template <class T>
double ulps(T y, long double exact) {
    if (static_cast<T>(exact) == y || (exact != exact && y != y)) {
        if (!std::isfinite(y)) return 0;
    }
    using Limits = std::numeric_limits<T>;
    int exponent;
    std::frexp(exact, &exponent);
    const int lowest = Limits::min_exponent - Limits::digits;
    return static_cast<double>(std::fabs(y - exact) / std::ldexp(1.0L, std::max(exponent - Limits::digits, lowest)));
}

} // namespace support
