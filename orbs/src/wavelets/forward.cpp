// Two-channel filter banks: a stream split into two of half the rate.
#include "orbs/convert.h"
#include "wavelets/bank.h"
#include "wavelets/pairs.h"

namespace {

using namespace orbs;

void splitPairs(const Orb32f* src, std::size_t count, Orb32f* first, Orb32f* second) {
    const bool covered = coverPairs<Orb32f>(count, [=](auto d, std::size_t n) HWY_ATTR {
        const auto pairs = loadPairs(d, src + 2 * n);
        hn::StoreU(pairs.first, d, first + n);
        hn::StoreU(pairs.second, d, second + n);
    });
    for (std::size_t n = 0; !covered && n < count; ++n) {
        first[n] = src[2 * n];
        second[n] = src[2 * n + 1];
    }
}

void run(Channel& channel, const Orb32f* src, Orb32f* dst, std::size_t len) {
    for (std::size_t first = 0, count = 0; first < len; first += count) {
        count = std::min(pieceLen, len - first);
        channel.makeRoom(count);
        splitPairs(src + 2 * first, count, channel.line[0] + channel.end, channel.line[1] + channel.end);
        const std::size_t head = channel.headOf(first, count);
        sumProducts<Orb64f>(channel.runAt(0, 0), channel.runAt(1, 0), dst + first, head);
        sumProducts<Orb32f>(channel.runAt(0, head), channel.runAt(1, head), dst + first + head, count - head);
        channel.end += static_cast<Orb32s>(count);
    }
}

template <class State>
OrbStatus checkForward(const void* pSrc, const Orb32f* pDstLow, const Orb32f* pDstHigh, int dstLen,
                       const State* pState) {
    if (const OrbStatus status = checkBank(pState)) return status;
    return checkVectors(dstLen, pSrc, pDstLow, pDstHigh);
}

template <class State>
OrbStatus forward(const Orb32f* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, State* pState) {
    if (const OrbStatus status = checkForward(pSrc, pDstLow, pDstHigh, dstLen, pState)) return status;
    const auto len = static_cast<std::size_t>(dstLen);
    run(*pState->lowChannel, pSrc, pDstLow, len);
    run(*pState->highChannel, pSrc, pDstHigh, len);
    return orbStsNoErr;
}

// A block for each filling of the buffer.
template <auto convert, class T, class State>
OrbStatus forwardConverted(const T* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, State* pState) {
    if (const OrbStatus status = checkForward(pSrc, pDstLow, pDstHigh, dstLen, pState)) return status;
    const auto len = static_cast<std::size_t>(dstLen);
    Orb32f* const samples = pState->convBuffer;
    for (std::size_t first = 0; first < len; first += pieceLen) {
        const std::size_t count = std::min(pieceLen, len - first);
        convert(pSrc + 2 * first, samples, static_cast<int>(2 * count));
        run(*pState->lowChannel, samples, pDstLow + first, count);
        run(*pState->highChannel, samples, pDstHigh + first, count);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWTFwdInitAlloc_32f(OrbsWTFwdState_32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTFwdFree_32f(OrbsWTFwdState_32f* pState) { return freeBank(pState); }
OrbStatus orbsWTFwd_32f(const Orb32f* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_32f* pState) { return forward(pSrc, pDstLow, pDstHigh, dstLen, pState); }
OrbStatus orbsWTFwdSetDlyLine_32f(OrbsWTFwdState_32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTFwdGetDlyLine_32f(const OrbsWTFwdState_32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTFwdInitAlloc_8u32f(OrbsWTFwdState_8u32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTFwdFree_8u32f(OrbsWTFwdState_8u32f* pState) { return freeBank(pState); }
OrbStatus orbsWTFwd_8u32f(const Orb8u* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_8u32f* pState) { return forwardConverted<orbsConvert_8u32f>(pSrc, pDstLow, pDstHigh, dstLen, pState); }
OrbStatus orbsWTFwdSetDlyLine_8u32f(OrbsWTFwdState_8u32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTFwdGetDlyLine_8u32f(const OrbsWTFwdState_8u32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTFwdInitAlloc_8s32f(OrbsWTFwdState_8s32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTFwdFree_8s32f(OrbsWTFwdState_8s32f* pState) { return freeBank(pState); }
OrbStatus orbsWTFwd_8s32f(const Orb8s* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_8s32f* pState) { return forwardConverted<orbsConvert_8s32f>(pSrc, pDstLow, pDstHigh, dstLen, pState); }
OrbStatus orbsWTFwdSetDlyLine_8s32f(OrbsWTFwdState_8s32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTFwdGetDlyLine_8s32f(const OrbsWTFwdState_8s32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTFwdInitAlloc_16u32f(OrbsWTFwdState_16u32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTFwdFree_16u32f(OrbsWTFwdState_16u32f* pState) { return freeBank(pState); }
OrbStatus orbsWTFwd_16u32f(const Orb16u* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_16u32f* pState) { return forwardConverted<orbsConvert_16u32f>(pSrc, pDstLow, pDstHigh, dstLen, pState); }
OrbStatus orbsWTFwdSetDlyLine_16u32f(OrbsWTFwdState_16u32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTFwdGetDlyLine_16u32f(const OrbsWTFwdState_16u32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

OrbStatus orbsWTFwdInitAlloc_16s32f(OrbsWTFwdState_16s32f** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh, int lenHigh, int offsHigh) { return initBank(ppState, pTapsLow, lenLow, offsLow, pTapsHigh, lenHigh, offsHigh); }
OrbStatus orbsWTFwdFree_16s32f(OrbsWTFwdState_16s32f* pState) { return freeBank(pState); }
OrbStatus orbsWTFwd_16s32f(const Orb16s* pSrc, Orb32f* pDstLow, Orb32f* pDstHigh, int dstLen, OrbsWTFwdState_16s32f* pState) { return forwardConverted<orbsConvert_16s32f>(pSrc, pDstLow, pDstHigh, dstLen, pState); }
OrbStatus orbsWTFwdSetDlyLine_16s32f(OrbsWTFwdState_16s32f* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) { return setLines(pState, pDlyLow, pDlyHigh); }
OrbStatus orbsWTFwdGetDlyLine_16s32f(const OrbsWTFwdState_16s32f* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) { return getLines(pState, pDlyLow, pDlyHigh); }

}
// clang-format on
