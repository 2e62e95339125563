// Two-channel filter banks: two streams joined into one of twice the rate.
#include "orbs/convert.h"
#include "wavelets/bank.h"
#include "wavelets/pairs.h"

namespace {

using namespace orbs;

// The outputs of one channel at even and at odd places.
struct Outputs {
    Orb32f even[pieceLen], odd[pieceLen];
};

// A piece of a block, whose first output is that of value `first`.
void run(Channel& channel, const Orb32f* src, std::size_t first, std::size_t count, Outputs& y) {
    channel.makeRoom(count);
    std::memcpy(channel.line[0] + channel.end, src, count * sizeof(Orb32f));
    const std::size_t head = channel.headOf(first, count);
    const auto outputsAt = [&](std::size_t n) {
        return std::array{Output{channel.runAt(0, n, channel), {}, y.even + n},
                          Output{channel.runAt(1, n, channel), {}, y.odd + n}};
    };
    sumProducts<Orb64f>(outputsAt(0), head);
    sumProducts<Orb32f>(outputsAt(head), count - head);
    channel.end += static_cast<Orb32s>(count);
}

// Both channels' outputs added, in order.
void join(const Outputs& low, const Outputs& high, Orb32f* dst, std::size_t count) {
    const bool covered = coverPairs<Orb32f>(
        count, [&, dst ](auto d, std::size_t n) __attribute__((always_inline)) {
            hn::StoreInterleaved2(hn::Add(hn::LoadU(d, low.even + n), hn::LoadU(d, high.even + n)),
                                  hn::Add(hn::LoadU(d, low.odd + n), hn::LoadU(d, high.odd + n)), d, dst + 2 * n);
        });
    for (std::size_t n = 0; !covered && n < count; ++n) {
        dst[2 * n] = low.even[n] + high.even[n];
        dst[2 * n + 1] = low.odd[n] + high.odd[n];
    }
}

template <class State>
void run(State* state, const Orb32f* srcLow, const Orb32f* srcHigh, Orb32f* dst, std::size_t len) {
    Outputs low, high;
    for (std::size_t first = 0; first < len; first += pieceLen) {
        const std::size_t count = std::min(pieceLen, len - first);
        run(*state->lowChannel, srcLow + first, first, count, low);
        run(*state->highChannel, srcHigh + first, first, count, high);
        join(low, high, dst + 2 * first, count);
    }
}

template <class State>
OrbStatus checkInverse(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, const void* pDst,
                       const State* pState) {
    if (const OrbStatus status = checkBank(pState)) return status;
    if (const OrbStatus status = checkVectors(srcLen, pSrcLow, pSrcHigh)) return status;
    return anyNull(pDst) ? orbStsNullPtrErr : orbStsNoErr;
}

template <class State>
OrbStatus inverse(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb32f* pDst, State* pState) {
    if (const OrbStatus status = checkInverse(pSrcLow, pSrcHigh, srcLen, pDst, pState)) return status;
    run(pState, pSrcLow, pSrcHigh, pDst, static_cast<std::size_t>(srcLen));
    return orbStsNoErr;
}

// A block for each filling of the buffer.
template <auto convert, class T, class State>
OrbStatus inverseConverted(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, T* pDst, State* pState) {
    if (const OrbStatus status = checkInverse(pSrcLow, pSrcHigh, srcLen, pDst, pState)) return status;
    const auto len = static_cast<std::size_t>(srcLen);
    Orb32f* const samples = pState->convBuffer;
    for (std::size_t first = 0; first < len; first += pieceLen) {
        const std::size_t count = std::min(pieceLen, len - first);
        run(pState, pSrcLow + first, pSrcHigh + first, samples, count);
        convert(samples, pDst + 2 * first, static_cast<int>(2 * count), orbRndNear, 0);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWTInvInitAlloc_32f(OrbsWTInvState_32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTInvFree_32f(OrbsWTInvState_32f* pState) { return freeBank(pState); }
OrbStatus orbsWTInv_32f(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb32f* pDst, OrbsWTInvState_32f* pState) { return inverse(pSrcLow, pSrcHigh, srcLen, pDst, pState); }
OrbStatus orbsWTInvSetDlyLine_32f(OrbsWTInvState_32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTInvGetDlyLine_32f(const OrbsWTInvState_32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTInvInitAlloc_32f8u(OrbsWTInvState_32f8u** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTInvFree_32f8u(OrbsWTInvState_32f8u* pState) { return freeBank(pState); }
OrbStatus orbsWTInv_32f8u(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb8u* pDst, OrbsWTInvState_32f8u* pState) { return inverseConverted<orbsConvert_32f8u_Sfs>(pSrcLow, pSrcHigh, srcLen, pDst, pState); }
OrbStatus orbsWTInvSetDlyLine_32f8u(OrbsWTInvState_32f8u* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTInvGetDlyLine_32f8u(const OrbsWTInvState_32f8u* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTInvInitAlloc_32f8s(OrbsWTInvState_32f8s** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTInvFree_32f8s(OrbsWTInvState_32f8s* pState) { return freeBank(pState); }
OrbStatus orbsWTInv_32f8s(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb8s* pDst, OrbsWTInvState_32f8s* pState) { return inverseConverted<orbsConvert_32f8s_Sfs>(pSrcLow, pSrcHigh, srcLen, pDst, pState); }
OrbStatus orbsWTInvSetDlyLine_32f8s(OrbsWTInvState_32f8s* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTInvGetDlyLine_32f8s(const OrbsWTInvState_32f8s* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTInvInitAlloc_32f16u(OrbsWTInvState_32f16u** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTInvFree_32f16u(OrbsWTInvState_32f16u* pState) { return freeBank(pState); }
OrbStatus orbsWTInv_32f16u(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb16u* pDst, OrbsWTInvState_32f16u* pState) { return inverseConverted<orbsConvert_32f16u_Sfs>(pSrcLow, pSrcHigh, srcLen, pDst, pState); }
OrbStatus orbsWTInvSetDlyLine_32f16u(OrbsWTInvState_32f16u* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTInvGetDlyLine_32f16u(const OrbsWTInvState_32f16u* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTInvInitAlloc_32f16s(OrbsWTInvState_32f16s** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTInvFree_32f16s(OrbsWTInvState_32f16s* pState) { return freeBank(pState); }
OrbStatus orbsWTInv_32f16s(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, int srcLen, Orb16s* pDst, OrbsWTInvState_32f16s* pState) { return inverseConverted<orbsConvert_32f16s_Sfs>(pSrcLow, pSrcHigh, srcLen, pDst, pState); }
OrbStatus orbsWTInvSetDlyLine_32f16s(OrbsWTInvState_32f16s* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTInvGetDlyLine_32f16s(const OrbsWTInvState_32f16s* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

}
// clang-format on
