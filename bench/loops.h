// Plain loops of the scale rule, compiled at -O3 for the tier that is measured: as the compiler vectorises them, and
// element by element.
#pragma once

#include "orbs.h"

#include <algorithm>
#include <limits>

namespace loops {

// r * 2^-s to nearest with ties to even, saturated, in integers wide enough for r.
template <class T, class Wide>
T scaled(Wide r, int s) {
    constexpr Wide least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
    if (s > 0) r = (r + (Wide{1} << (s - 1)) - 1 + (r >> s & 1)) >> s;
    if (s < 0) r = std::clamp(r, least, most) * (Wide{1} << -s);
    return static_cast<T>(std::clamp(r, least, most));
}

// dst[n] = scaled(combine(a[n], b[n])).
template <class Wide, class T, class R, class Combine>
void map(const T* a, const T* b, R* dst, int len, int s, Combine combine) {
    for (int n = 0; n < len; ++n) dst[n] = scaled<R, Wide>(combine(Wide{a[n]}, Wide{b[n]}), s);
}

// The same with each result passed through a register of its own, which no vector can be.
template <class Wide, class T, class R, class Combine>
void mapScalar(const T* a, const T* b, R* dst, int len, int s, Combine combine) {
    for (int n = 0; n < len; ++n) {
        Wide r = combine(Wide{a[n]}, Wide{b[n]});
        asm("" : "+r"(r));
        dst[n] = scaled<R, Wide>(r, s);
    }
}

} // namespace loops
