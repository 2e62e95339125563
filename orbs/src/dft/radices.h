// The radices of a mixed-radix transform: how a length is factored, and in which order the stages stand.
#pragma once

#include "orbdefs.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace orbs::dft {

constexpr int maxRadix = 149;
constexpr int maxStages = 20; // lengths below 2^31 have fewer

// Stage 0 is the outermost one: it runs last. The final radix is that of the innermost transforms, which run first.
struct Radices {
    int stages = 0;
    Orb32s radix[maxStages + 1] = {}; // of the stages, then the final one

    constexpr Orb32s& last() { return radix[stages]; }
    constexpr Orb32s last() const { return radix[stages]; }
};

// Fours, a two at the front, odd primes from the smallest on; no stages if a prime above maxRadix is left, or if n is a
// prime itself.
constexpr Radices factor(std::uint64_t n) {
    Radices radices;
    const auto append = [&](std::uint64_t radix) { radices.radix[radices.stages++] = static_cast<Orb32s>(radix); };
    for (; n % 4 == 0; n /= 4) append(4);
    if (n % 2 == 0) {
        append(4);
        radices.radix[0] = 2;
        n /= 2;
    }
    if (n >= 9) {
        std::uint64_t p = 3;
        do {
            if (n % p == 0) {
                append(p);
                n /= p;
            } else if ((p += 2) > maxRadix) {
                return {};
            }
        } while (n >= p * p);
    }
    if (n > maxRadix) return {};
    if (radices.stages > 0) radices.last() = static_cast<Orb32s>(n);
    return radices;
}

// Brings a 4 or else a 2, whose transforms are the cheapest, to the innermost place.
constexpr void exchangeFinal(Radices& radices) {
    if (radices.radix[0] == 4) {
        std::swap(radices.radix[0], radices.last());
    } else if (radices.stages > 1 && radices.radix[1] == 4) {
        std::swap(radices.radix[1], radices.last());
    } else if (radices.radix[0] == 2) {
        std::swap(radices.radix[0], radices.last());
    }
}

// Complex values of scratch that belong to the work area for the sake of the general radices.
constexpr std::uint64_t generalScratch(const Radices& radices, std::uint64_t n) {
    std::uint64_t values = 0, rest = n;
    for (int i = 0; i <= radices.stages; ++i) {
        const auto radix = static_cast<std::uint64_t>(radices.radix[i]);
        rest /= radix;
        if (radix > 5) values = std::max(values, i < radices.stages && rest % 4 == 0 ? 4 * radix : radix);
    }
    return values;
}

} // namespace orbs::dft
