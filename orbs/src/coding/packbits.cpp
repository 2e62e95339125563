// PackBits: fields of any number of bits, written one behind the other.
#include "foundation/frame.h"
#include "orbs/coding.h"

#include <cstring>

namespace {

using namespace orbs;

// Bits come in from below and leave in groups of 64, the first one in as the most significant of the first byte.
class BitWriter {
public:
    // The top `keep` bits of *pDst stay.
    BitWriter(Orb8u* pDst, int keep) : begin_(pDst), to_(pDst) {
        if (keep > 0) append(static_cast<Orb64u>(*pDst >> (8 - keep)), keep);
    }

    void append(Orb64u field, int bits) {
        const int room = 64 - pending_;
        if (bits < room) {
            held_ = held_ << bits | field;
            pending_ += bits;
        } else {
            pending_ = bits - room;
            write(held_ << room | field >> pending_, 8);
            held_ = field; // what has left is shifted out before it could be written again
        }
    }

    // Writes the rest, in as many bytes as it needs, and returns the count of all bits.
    Orb64u finish() {
        const Orb64u bits = 8 * static_cast<Orb64u>(to_ - begin_) + static_cast<Orb64u>(pending_);
        if (pending_ > 0) write(held_ << (64 - pending_), static_cast<std::size_t>(pending_ + 7) / 8);
        return bits;
    }

private:
    void write(Orb64u word, std::size_t bytes) {
        word = __builtin_bswap64(word);
        std::memcpy(to_, &word, bytes);
        to_ += bytes;
    }

    Orb8u *begin_, *to_;
    Orb64u held_ = 0; // in its low pending_ bits
    int pending_ = 0; // below 64
};

OrbStatus packBits(const Orb32u* pSrc, const Orb32s* pSrcBitsLen, int srcLen, Orb8u* pDst, int dstBitOffset,
                   Orb32s* pDstBitLen) {
    if (anyNull(pSrc, pSrcBitsLen, pDst, pDstBitLen)) return orbStsNullPtrErr;
    if (srcLen < 1 || dstBitOffset < 0) return orbStsSizeErr;
    const int keep = dstBitOffset & 7;
    BitWriter writer(pDst, keep);
    OrbStatus status = orbStsNoErr;
    for (int n = 0; n < srcLen; ++n) {
        int bits = elementAt(pSrcBitsLen + n);
        if (bits < 0 || bits > 32) [[unlikely]] {
            bits = bits < 0 ? 0 : 32;
            status = orbStsBitLenLimited;
        }
        writer.append(elementAt(pSrc + n) & ((Orb64u{1} << bits) - 1), bits);
    }
    // An offset of whole bytes moves nothing, yet the length that is reported is smaller by it.
    const auto uncounted = static_cast<Orb64u>(keep != 0 ? keep : dstBitOffset);
    setElement(pDstBitLen, static_cast<Orb32s>(static_cast<Orb32u>(writer.finish() - uncounted)));
    return status;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsPackBits_32u8u(const Orb32u* pSrc, const Orb32s* pSrcBitsLen, int srcLen, Orb8u* pDst, int dstBitOffset, Orb32s* pDstBitLen) { return packBits(pSrc, pSrcBitsLen, srcLen, pDst, dstBitOffset, pDstBitLen); }

}
// clang-format on
