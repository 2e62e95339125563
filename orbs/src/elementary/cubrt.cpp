// Cubrt: cube roots of floats and of integers.
#include "elementary/elementary.h"
#include "foundation/control.h"
#include "orbs/elementary.h"
#include "vectors/to_integer.h"

#include <cmath>
#include <limits>

namespace {

using namespace orbs;

// The cube root of x in 2^-96 to infinity, or 0. An initial value of x^(-1/3) from the exponent, a step of third order,
// and a last one from a root y so short that the products in what is left, x - y^3, are exact.
template <class D, class V>
HWY_INLINE V cubeRoot(D d, V x) {
    const hn::RebindToSigned<D> di;
    // The bits of a float are a logarithm; minus a third of it, moved, is that of r, which is 3.5 % off at most.
    const V third = hn::ConvertTo(d, hn::BitCast(di, x)) * hn::Set(d, -1.0f / 3);
    V r = hn::BitCast(d, hn::Set(di, 0x54a1f600) + truncatedInt32(third));
    const V miss = hn::Set(d, 1.0f) - x * r * (r * r);
    const V series =
        hn::Set(d, 0x1.55547p-2f) + miss * (hn::Set(d, 0x1.c96daap-3f) + miss * hn::Set(d, 0x1.65547cp-3f));
    r = r + r * miss * series; // (1 - miss)^(-1/3)

    const auto shortened = [=](V v) HWY_ATTR { return hn::And(v, hn::BitCast(d, hn::Set(di, ~0xfff))); }; // to 12 bits
    const V y = shortened(x * r * r * hn::Set(d, 1 + 0x1p-12f));
    const V square = y * y, high = shortened(square);
    const V left = (x - high * y) - (square - high) * y;
    const V step = left * (r * r) * hn::Set(d, 1.0f / 3);
    return y + (step + step * step * r);
}

struct Cubrt {
    // Beyond 2^-96 and the largest number: where what is left would be subnormal, and 0, infinity and NaN.
    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto bits = hn::BitCast(di, hn::Abs(x));
        return hn::RebindMask(d, hn::Or(hn::Lt(bits, hn::Set(di, 0x0f800000)), hn::Gt(bits, hn::Set(di, 0x7f7fffff))));
    }
    template <class D, class V>
    HWY_INLINE V usual(D d, V x) const {
        return hn::CopySignToAbs(cubeRoot(d, hn::Abs(x)), x);
    }
    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const V y = hn::IfThenElse(hn::Lt(hn::Abs(x), hn::Set(d, 0x1p-96f)),
                                   usual(d, x * hn::Set(d, 0x1p48f)) * hn::Set(d, 0x1p-16f), usual(d, x));
        const auto finite =
            hn::And(hn::Ne(x, hn::Zero(d)), hn::Lt(hn::Abs(x), hn::Set(d, std::numeric_limits<Orb32f>::infinity())));
        return hn::IfThenElse(finite, y, x + x);
    }
};

// 2^-scaleFactor with the magnitude of the scale factor taken in seven bits: 128 is 0 again.
Orb32f factorOf(int scaleFactor) {
    const auto magnitude = static_cast<int>(
        (scaleFactor < 0 ? -static_cast<Orb32u>(scaleFactor) : static_cast<Orb32u>(scaleFactor)) & 127);
    return std::ldexp(1.0f, scaleFactor < 0 ? magnitude : -magnitude);
}

OrbStatus cubeRoots(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const SseRounding guard(SseRounding::nearest);
    const Orb32f factor = factorOf(scaleFactor);
    mapInWords(
        static_cast<std::size_t>(len),
        [factor](auto words, auto x) HWY_ATTR {
            const hn::Rebind<Orb32f, decltype(words)> d;
            const auto y = Cubrt().usual(d, hn::ConvertTo(d, x)) * hn::Set(d, factor);
            return nearestInt32(hn::Min(y, hn::Set(d, 32767.0f)));
        },
        pDst, pSrc);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsCubrt_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return elementary(Cubrt{}, len, pDst, pSrc); }
OrbStatus orbsCubrt_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return cubeRoots(pSrc, pDst, len, scaleFactor); }

}
