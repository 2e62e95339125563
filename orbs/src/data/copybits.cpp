// Copy_1u: bit strings, the most significant bit of a byte first.
#include "foundation/frame.h"
#include "orbs/data.h"
#include "vectors/loops.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

// `count` bits, 1 to 8, from bit `first` of *p on, at the top of a byte. The second byte is read only if it has some.
unsigned bitsAt(const Orb8u* p, unsigned first, unsigned count) {
    const unsigned second = first + count > 8 ? p[1] : 0;
    return (static_cast<unsigned>(p[0]) << 8 | second) << first >> 8 & 0xff;
}

// Puts the top `count` bits of `bits` to bit `first` of *p on; first + count is at most 8.
void putBits(Orb8u* p, unsigned first, unsigned count, unsigned bits) {
    const unsigned mask = (0xff00u >> count & 0xff) >> first;
    *p = static_cast<Orb8u>((*p & ~mask) | (bits >> first & mask));
}

// Whole bytes of pDst, each from the two bytes of pSrc that its bits lie in.
void copyBytes(const Orb8u* pSrc, unsigned first, Orb8u* pDst, std::size_t bytes) {
    if (first == 0) {
        std::memcpy(pDst, pSrc, bytes);
        return;
    }
    const int left = static_cast<int>(first), right = 8 - left;
    forEachVector<Orb8u>(bytes, [=](auto d, std::size_t n) HWY_ATTR {
        const auto upper = hn::ShiftLeftSame(hn::LoadU(d, pSrc + n), left);
        const auto lower = hn::ShiftRightSame(hn::LoadU(d, pSrc + n + 1), right);
        hn::StoreU(hn::Or(upper, lower), d, pDst + n);
    });
}

} // namespace

extern "C" {

OrbStatus orbsCopy_1u(const Orb8u* pSrc, int srcBitOffset, Orb8u* pDst, int dstBitOffset, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (srcBitOffset < 0 || dstBitOffset < 0) return orbStsSizeErr;
    unsigned src = srcBitOffset & 7;
    const unsigned dst = dstBitOffset & 7;
    auto left = static_cast<std::size_t>(len);
    if (dst != 0) { // up to the next byte of pDst
        const auto count = static_cast<unsigned>(std::min<std::size_t>(8 - dst, left));
        putBits(pDst++, dst, count, bitsAt(pSrc, src, count));
        src += count;
        pSrc += src / 8;
        src %= 8;
        left -= count;
    }
    const std::size_t bytes = left / 8;
    const auto rest = static_cast<unsigned>(left % 8);
    copyBytes(pSrc, src, pDst, bytes);
    if (rest != 0) putBits(pDst + bytes, 0, rest, bitsAt(pSrc + bytes, src, rest));
    return orbStsNoErr;
}
}
