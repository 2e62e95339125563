// Sqrt of 64-bit integers: the root times 2^-scaleFactor, rounded to nearest with ties to even.
#include "elementary/sqrt_exact.h"
#include "foundation/frame.h"
#include "foundation/threads.h"
#include "orbs/elementary.h"
#include "vectors/nearest.h"
#include "vectors/powers.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

using namespace orbs;

// ---- Results up to 51 bits: on vectors ----

template <class R>
bool roots(const Orb64s* src, R* dst, std::size_t len, int scaleFactor) {
    const SseQuiet quiet(SseRounding::nearest);
    const ExactRoot<double> root(scaleFactor);
    bool negative = false;
    forEachVector<std::int64_t>(len, [&](auto d, std::size_t n) HWY_ATTR {
        auto x = hn::LoadU(d, reinterpret_cast<const std::int64_t*>(src + n));
        const auto below = hn::BroadcastSignBit(x);
        negative |= !hn::AllTrue(d, hn::Eq(below, hn::Zero(d)));
        x = root(d, hn::AndNot(below, x));
        if constexpr (sizeof(R) == 2) {
            const hn::Rebind<Orb32u, decltype(d)> half;
            x = hn::Min(x, hn::Set(d, std::numeric_limits<R>::max()));
            const auto low = hn::TruncateTo(half, hn::BitCast(hn::RebindToUnsigned<decltype(d)>(), x));
            storeWhole(d, hn::BitCast(hn::RebindToSigned<decltype(half)>(), low), dst + n);
        } else {
            hn::StoreU(x, d, reinterpret_cast<std::int64_t*>(dst + n));
        }
    });
    return negative;
}

// ---- Longer ones, for scale factors from -20 down: in integers, 32 bits and then 32 more by one division ----

// The integer below the root of y >= 2^62.
Orb64u rootBelow(Orb64u y) {
    const double estimate = std::sqrt(2 * static_cast<double>(static_cast<Orb64s>(y >> 1)));
    Orb64u root = std::min<Orb64u>(static_cast<Orb64u>(static_cast<Orb64s>(estimate)), 0xffffffff);
    root -= root * root > y;
    root += y - root * root > 2 * root;
    return root;
}

Orb64s longRoot(Orb64u x, int scaleFactor) {
    if (x == 0) return 0;
    const int up = std::countl_zero(x) / 2, down = up + scaleFactor + 32;
    constexpr Orb64u largest = std::numeric_limits<Orb64s>::max();
    if (down < 1) return largest;
    const Orb64u y = x << (2 * up), high = rootBelow(y), rest = y - high * high;
    // rest * 2^32 = 2 * high * q + 2 * u leaves u * 2^33 - q^2 of the square.
    Orb64u q = (rest << 31) / high, u = (rest << 31) % high;
    if (q >> 32) --q, u += high;
    const Orb64u cutSquare = q * q >> 33;
    const bool inexact = q * q << 31 != 0, less = u < cutSquare + inexact;
    const Orb64u root = (high << 32) + q - less, half = Orb64u{1} << (down - 1);
    const Orb64u quotient = root >> down, oddOrMore = u != cutSquare || inexact || (quotient & 1);
    return static_cast<Orb64s>(std::min(quotient + ((root & (2 * half - 1)) + oddOrMore > half), largest));
}

bool longRoots(const Orb64s* src, Orb64s* dst, std::size_t len, int scaleFactor) {
    const SseQuiet quiet;
    bool negative = false;
    for (std::size_t n = 0; n < len; ++n) {
        const Orb64s x = elementAt(src + n);
        negative |= x < 0;
        setElement(dst + n, longRoot(static_cast<Orb64u>(std::max<Orb64s>(x, 0)), scaleFactor));
    }
    return negative;
}

// From 33 on every root rounds to 0; from -15, or -63 for 64 bits, down all saturate but 0.
OrbStatus roots(const Orb64s* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return spreadWithWarning(orbStsSqrtNegArg, len, {512}, [=](std::size_t first, std::size_t count) {
        return roots(pSrc + first, pDst + first, count, std::clamp(scaleFactor, -15, 33));
    });
}
OrbStatus roots(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return spreadWithWarning(orbStsSqrtNegArg, len, {256}, [=](std::size_t first, std::size_t count) {
        if (scaleFactor < -19) return longRoots(pSrc + first, pDst + first, count, std::max(scaleFactor, -63));
        return roots(pSrc + first, pDst + first, count, std::min(scaleFactor, 33));
    });
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSqrt_64s_Sfs(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsSqrt_64s_ISfs(Orb64s* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsSqrt_64s16s_Sfs(const Orb64s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor); }

}
// clang-format on
