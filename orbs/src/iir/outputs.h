// Outputs rounded to integers: y * 2^-scaleFactor to nearest, ties to even, saturated; of a NaN the least integer.
#pragma once

#include "filters/samples.h"
#include "foundation/control.h"
#include "vectors/nearest.h"
#include "vectors/powers.h"

#include <algorithm>

namespace orbs {

// 2^-scaleFactor, limited to the normal numbers.
inline Orb64f sampleScale(int scaleFactor) {
    return powerOfTwo<Orb64f>(-std::clamp(scaleFactor, -1023, 1022));
}

template <class Lane, class Sample>
void roundOut(const Lane* y, Sample* dst, std::size_t count, Lane scale) {
    const SseRounding rounding(SseRounding::nearest);
    forEachVector<Lane>(count, [=](auto d, std::size_t n) HWY_ATTR {
        const auto scaled = hn::Mul(hn::LoadU(d, y + n), hn::Set(d, scale));
        // The limit is the first operand: a NaN stays one, and is converted to the least integer.
        const auto top = hn::Set(d, static_cast<Lane>(std::numeric_limits<Sample>::max()));
        storeWhole(d, nearestInt32(hn::Min(top, scaled)), dst + n);
    });
}

} // namespace orbs
