// One result of 64 bits or of double precision, scaled and saturated: the end of integer reductions.
#pragma once

#include "vectors/powers.h"

#include <algorithm>
#include <emmintrin.h>
#include <limits>

namespace orbs {

template <class R>
R saturated(Orb64s r) {
    return static_cast<R>(std::clamp<Orb64s>(r, std::numeric_limits<R>::min(), std::numeric_limits<R>::max()));
}

// -scaleFactor up to `most`, of a scale factor below 0.
inline int leftShift(int scaleFactor, int most) {
    return -std::max(scaleFactor, -most);
}

// r * 2^shift; shift up to 31 for results of 32 bits, to 63 for results of 64.
template <class R>
R shiftedLeft(Orb64s r, int shift) {
    const Orb64s fits = saturated<R>(r);
    if constexpr (sizeof(R) < sizeof(Orb64s)) {
        return saturated<R>(fits * (Orb64s{1} << shift));
    } else {
        const auto shifted = static_cast<Orb64s>(static_cast<Orb64u>(fits) << shift);
        if (shifted >> shift == fits) return shifted;
        return fits < 0 ? std::numeric_limits<R>::min() : std::numeric_limits<R>::max();
    }
}

// r * 2^-shift to nearest, ties to even; shift from 1 to 63, r below 2^62 in magnitude.
inline Orb64s roundedShift(Orb64s r, int shift) {
    const Orb64s parity = r >> shift & 1;
    return static_cast<Orb64s>(static_cast<Orb64u>(r) + ((Orb64u{1} << (shift - 1)) - 1) +
                               static_cast<Orb64u>(parity)) >>
           shift;
}

// r * 2^-scaleFactor, exact of what has up to 53 bits. Beyond 2^-128 and 2^128 only the sign is left.
inline Orb64f scaled(Orb64f r, int scaleFactor) {
    return r * powerOfTwo<Orb64f>(-std::clamp(scaleFactor, -128, 128));
}

// In the thread's rounding mode, saturated; not of a NaN.
template <class R>
R nearest(Orb64f r) {
    const Orb64f least = std::numeric_limits<R>::min(), most = std::numeric_limits<R>::max();
    return static_cast<R>(_mm_cvtsd_si32(_mm_set_sd(std::clamp(r, least, most))));
}

} // namespace orbs
