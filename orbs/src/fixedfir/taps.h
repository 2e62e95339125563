// Taps of 32 bits and of floats as 16-bit integers and a common power of two.
#pragma once

#include "filters/kernels.h"
#include "vectors/powers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orbs {

// In two's complement, so that -2^31 has 2^31.
inline Orb32u magnitude(Orb32s value) {
    const auto bits = static_cast<Orb32u>(value);
    return value < 0 ? 0 - bits : bits;
}

// The right shift after which value(0) to value(count - 1) lie within 15 bits. An arithmetic shift may take a negative
// value one further down than its magnitude: hence not 32767, so that every tap can be negated.
template <class Value>
int fittingShift(std::size_t count, Value value) {
    Orb32u most = 0;
    for (std::size_t n = 0; n < count; ++n) most = std::max(most, magnitude(value(n)));
    int shift = 0;
    for (; most > 32766; most >>= 1) ++shift;
    return shift;
}

// Float taps times a power of two that brings the largest one just below 32767, to nearest, halves away from zero.
class FloatTaps {
public:
    // toFit: as far as it takes, so that all of them fit 16 bits; but where no power of two would do, that is for zeros
    // alone and for an infinity, as inSteps. inSteps: 32 steps either way at most; what is then still larger ends at
    // the limits of 32 bits.
    enum Search { toFit, inSteps };

    FloatTaps(const Orb32f* pTaps, std::size_t count, Search search) : pTaps_(pTaps) {
        Orb32f largest = 0;
        for (std::size_t n = 0; n < count; ++n) {
            if (std::abs(pTaps[n]) > largest) largest = std::abs(pTaps[n]);
        }
        const bool fits = largest > 0 && largest <= std::numeric_limits<Orb32f>::max();
        const bool endless = search == toFit && fits;
        limit_ = search == toFit ? 32767.0 : 0x1p31;
        Orb64f m = largest;
        if (m > 32767.0) {
            for (; m > 32767.0 && (endless || shift_ < 32); m /= 2) ++shift_;
        } else {
            for (m *= 2; !(m >= 32767.0) && (endless || shift_ >= -31); m *= 2) --shift_;
        }
        multiplier_ = powerOfTwo<Orb64f>(-shift_);
    }

    // tap = value * 2^shift, but for rounding. A NaN is 0.
    int shift() const { return shift_; }
    Orb32s value(std::size_t n) const {
        const Orb64f t = multiplier_ * pTaps_[n];
        if (t != t) return 0;
        if (t >= limit_) return static_cast<Orb32s>(std::min(limit_, 0x1p31 - 1));
        if (t <= -limit_) return static_cast<Orb32s>(-limit_);
        return static_cast<Orb32s>(t >= 0 ? t + 0.5 : t - 0.5);
    }

private:
    const Orb32f* pTaps_;
    int shift_ = 0;
    Orb64f multiplier_, limit_;
};

// 2^exponent from an exponent field, the exponent taken modulo 128: 0 for -127.
inline Orb32f powerModulo128(Orb32s exponent) {
    return powerOfTwo<Orb32f>(exponent % 128);
}

} // namespace orbs
