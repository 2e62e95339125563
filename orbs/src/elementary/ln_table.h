// The table of the logarithm in double precision.
#pragma once

#include "elementary/quad.h"

#include <array>
#include <cstdint>

namespace orbs {

// Row i belongs to c = 1 + i / 64: r is 1 / c rounded to 16 bits, so that its product with a short mantissa is exact,
// and -ln r is in two parts, the high one a multiple of 2^-42, so that its sum with a multiple of ln 2 is exact.
struct LnRow {
    Orb64f reciprocal, unused, high, low;
};

constexpr Orb64f inSteps(Quad x, Orb64f step) {
    return static_cast<Orb64f>(static_cast<std::int64_t>(x / step + 0.5)) * step;
}

inline constexpr int lnRowBits = 6;
inline constexpr auto lnRows = [] {
    std::array<LnRow, (1 << lnRowBits) + 1> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Orb64f r = inSteps(1 / (1 + static_cast<Quad>(i) / (1 << lnRowBits)), 0x1p-16);
        const Orb64f high = inSteps(-quadLn(r), 0x1p-42);
        rows[i] = {r, r, high, static_cast<Orb64f>(-quadLn(r) - high)};
    }
    return rows;
}();

} // namespace orbs
