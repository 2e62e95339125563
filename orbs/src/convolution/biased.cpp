// Convolution with a window of samples that begins before the vector: impulse responses and targets of speech codecs.
#include "orbs/convolution.h"

#include "convolution/sliding.h"

namespace {

using namespace orbs;

// pDst[i] = sum over k, upwards, of pSrc1[k] window[i + bias - k]. The window begins at pSrc2 - bias, wherever that is.
OrbStatus convBiased(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen,
                     int bias) {
    if (anyNull(pSrc1, pSrc2, pDst)) return orbStsNullPtrErr;
    if (src1Len < 1 || src2Len < 1 || dstLen < 1) return orbStsSizeErr;
    // Beyond the window there is nothing to read, and no address to form.
    const std::int64_t last = std::int64_t{src2Len} + src1Len - 2 - bias, first = -std::int64_t{bias};
    const std::int64_t from = std::clamp<std::int64_t>(first, 0, dstLen);
    const std::int64_t to = std::clamp<std::int64_t>(last + 1, from, dstLen);
    std::fill(pDst, pDst + from, 0.0f);
    std::fill(pDst + to, pDst + dstLen, 0.0f);
    if (from == to) return orbStsNoErr;
    const TapRun<Orb32f, -1> taps{pSrc1 + (src1Len - 1), static_cast<std::size_t>(src1Len)};
    const Sliding<Orb32f, -1, Taps::asTheyAre, Order::descending> sliding(taps, pSrc2 - bias, src2Len);
    const std::int64_t place = from + bias - (src1Len - 1);
    sliding.outputs(static_cast<std::ptrdiff_t>(place), pDst + from, static_cast<std::ptrdiff_t>(to - from));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConvBiased_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int bias) { return convBiased(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, bias); }

}
// clang-format on
