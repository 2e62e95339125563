// Sqrt of 64-bit integers, in integers: the root times 2^-scaleFactor, rounded to nearest with ties to even.
#include "arith/warning.h"
#include "foundation/scale.h"
#include "orbs/roots.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

using namespace orbs;

// The integer below the root of y >= 2^62.
Orb64u rootBelow(Orb64u y) {
    Orb64u root = std::min<Orb64u>(static_cast<Orb64u>(std::sqrt(static_cast<double>(y))), 0xffffffff);
    root -= root * root > y;
    root += y - root * root > 2 * root;
    return root;
}

// The largest result is returned for all that are larger.
Orb64u scaledRoot(Orb64u x, int scaleFactor) {
    constexpr Orb64u largest = std::numeric_limits<Orb64s>::max();
    if (x == 0) return 0;
    const int up = std::countl_zero(x) / 2;
    const Orb64u y = x << (2 * up);
    Orb64u root = rootBelow(y), rest = y - root * root; // 32 bits of it
    int down = up + scaleFactor;
    if (down < 1) {
        // 32 bits more, q, by one division: rest * 2^32 = 2 * root * q + 2 * u leaves u * 2^33 - q^2 of the square.
        Orb64u q = (rest << 31) / root, u = (rest << 31) % root;
        if (q >> 32) --q, u += root;
        const Orb64u high = q * q >> 33, low = q * q << 31;
        rest = u != high || low != 0;
        root = (root << 32) + q - (u < high || (u == high && low != 0));
        down += 32;
        if (down < 1) return largest;
    }
    down = std::min(down, 34);
    const Orb64u quotient = root >> down, half = Orb64u{1} << (down - 1);
    const Orb64u cut = root & (2 * half - 1), oddOrMore = rest != 0 || (quotient & 1);
    return std::min(quotient + (cut + oddOrMore > half), largest);
}

template <class R>
OrbStatus roots(const Orb64s* pSrc, R* pDst, int len, int scaleFactor, Parallel parallel) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    // Above 32 every root rounds to 0, from -63 down all saturate but 0.
    const int s = std::clamp(scaleFactor, -63, 33);
    return withWarning(orbStsSqrtNegArg, len, parallel, [=](std::size_t first, std::size_t count) {
        const SseQuiet quiet;
        bool negative = false;
        for (std::size_t n = first; n < first + count; ++n) {
            negative |= pSrc[n] < 0;
            const Orb64u root = scaledRoot(static_cast<Orb64u>(std::max<Orb64s>(pSrc[n], 0)), s);
            pDst[n] = static_cast<R>(std::min<Orb64u>(root, std::numeric_limits<R>::max()));
        }
        return negative;
    });
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSqrt_64s_Sfs(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, {256}); }
OrbStatus orbsSqrt_64s_ISfs(Orb64s* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, scaleFactor, {256}); }
OrbStatus orbsSqrt_64s16s_Sfs(const Orb64s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, {512}); }

}
// clang-format on
