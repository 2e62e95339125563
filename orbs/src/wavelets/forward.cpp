// Two-channel filter banks: a stream split into two of half the rate.
#include "orbs/convert.h"
#include "wavelets/bank.h"
#include "wavelets/pairs.h"

namespace {

using namespace orbs;

void splitPairs(const Orb32f* src, std::size_t count, Orb32f* first, Orb32f* second) {
    const bool covered = coverPairs<Orb32f>(
        count, [=](auto d, std::size_t n) __attribute__((always_inline)) {
            const auto pairs = loadPairs(d, src + 2 * n);
            hn::StoreU(pairs.first, d, first + n);
            hn::StoreU(pairs.second, d, second + n);
        });
    for (std::size_t n = 0; !covered && n < count; ++n) {
        first[n] = src[2 * n];
        second[n] = src[2 * n + 1];
    }
}

Output outputAt(const Channel& channel, std::size_t n, const Channel& samples, Orb32f* dst) {
    return {channel.runAt(0, n, samples), channel.runAt(1, n, samples), dst + n};
}

// A piece of a block, whose first output is that told. Both channels are made at once where all of their samples are
// the block's.
void runPiece(Channel& low, Channel& high, const Orb32f* src, Orb32f* dstLow, Orb32f* dstHigh, std::size_t first,
              std::size_t count) {
    low.makeRoom(count);
    high.makeRoom(count);
    splitPairs(src, count, low.line[0] + low.end, low.line[1] + low.end);
    for (std::size_t k = 0; k < 2; ++k)
        std::memcpy(high.line[k] + high.end, low.line[k] + low.end, count * sizeof(Orb32f));

    const std::size_t headLow = low.headOf(first, count), headHigh = high.headOf(first, count);
    const std::size_t both = std::max(headLow, headHigh);
    const auto alone = [both](const Channel& channel, Orb32f* dst, std::size_t head) {
        sumProducts<Orb64f>(std::array{outputAt(channel, 0, channel, dst)}, head);
        sumProducts<Orb32f>(std::array{outputAt(channel, head, channel, dst)}, both - head);
    };
    alone(low, dstLow, headLow);
    alone(high, dstHigh, headHigh);
    const Channel& samples = low.reach > high.reach ? low : high; // which has them all
    sumProducts<Orb32f>(std::array{outputAt(low, both, samples, dstLow), outputAt(high, both, samples, dstHigh)},
                        count - both);
    low.end += static_cast<Orb32s>(count);
    high.end += static_cast<Orb32s>(count);
}

template <class State>
void run(State* state, const Orb32f* src, Orb32f* dstLow, Orb32f* dstHigh, std::size_t len) {
    for (std::size_t first = 0; first < len; first += pieceLen)
        runPiece(*state->lowChannel, *state->highChannel, src + 2 * first, dstLow + first, dstHigh + first, first,
                 std::min(pieceLen, len - first));
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
    run(pState, pSrc, pDstLow, pDstHigh, static_cast<std::size_t>(dstLen));
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
        run(pState, samples, pDstLow + first, pDstHigh + first, count);
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
