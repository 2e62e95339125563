// FIRSparse, IIRSparse: filters with few taps other than zero, and their states.
#include "orbs/sparse.h"
#include "foundation/frame.h"
#include "foundation/objects.h"
#include "sparse/sums.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {

using namespace orbs;

// The taps of one sum with their offsets, longest delay first, and the last `order` elements that they meet: the line,
// oldest first, with room for as many behind them.
struct SparsePart {
    RelativePtr<Orb32f> pTaps;
    RelativePtr<Orb32s> pTapPos; // order - position
    RelativePtr<Orb32f> pDlyLine;
    Orb32s nzTapsLen;
    Orb32s order;

    SparseTaps taps() const { return {pTaps, pTapPos, static_cast<std::size_t>(nzTapsLen), order}; }
};

} // namespace

// No tags: a state fits its size only without.
struct OrbsFIRSparseState_32f {
    SparsePart forward;
};
struct OrbsIIRSparseState_32f {
    SparsePart forward, recursive;
};

static_assert(sizeof(OrbsFIRSparseState_32f) <= 48 - 15 && sizeof(OrbsIIRSparseState_32f) <= 48);

namespace {

// ---- Sizes ----

// Reported sizes. Heads of 48 bytes and areas rounded up to 16 each have room for aligning the caller's block to 16.
std::uint64_t rounded(std::uint64_t bytes) {
    return roundUp(bytes, 16);
}
std::uint64_t firSize(int nzTapsLen, int order) {
    const auto taps = static_cast<std::uint64_t>(nzTapsLen), length = static_cast<std::uint64_t>(order);
    return rounded(8 * length) + 2 * rounded(4 * taps) + 48;
}
std::uint64_t iirSize(int nzTapsLen1, int nzTapsLen2, int order1, int order2) {
    const auto taps1 = static_cast<std::uint64_t>(nzTapsLen1), taps2 = static_cast<std::uint64_t>(nzTapsLen2);
    const std::uint64_t lengths = static_cast<std::uint64_t>(order1) + static_cast<std::uint64_t>(order2);
    return 2 * rounded(4 * taps1) + 2 * rounded(4 * taps2) + 48 + rounded((lengths + 1) * 8) + 16;
}
bool isTold(std::uint64_t size) {
    return size <= std::numeric_limits<int>::max();
}

OrbStatus tell(std::uint64_t size, int* pStateSize) {
    if (!isTold(size)) return orbStsMemAllocErr;
    *pStateSize = static_cast<int>(size);
    return orbStsNoErr;
}

OrbStatus getFirStateSize(int nzTapsLen, int order, int* pStateSize) {
    if (anyNull(pStateSize)) return orbStsNullPtrErr;
    if (nzTapsLen < 1 || order < 1) return orbStsFIRLenErr;
    return tell(firSize(nzTapsLen, order), pStateSize);
}

OrbStatus getIirStateSize(int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pStateSize) {
    if (anyNull(pStateSize)) return orbStsNullPtrErr;
    if (nzTapsLen1 < 1 || nzTapsLen2 < 0) return orbStsIIROrderErr;
    if (order1 < 0 || order2 < 0) return orbStsSparseIndexErr;
    return tell(iirSize(nzTapsLen1, nzTapsLen2, order1, order2), pStateSize);
}

// ---- Building ----

// The taps of a sum as a caller gives them.
struct GivenPart {
    const Orb32f* pTaps;
    const Orb32s* pTapPos;
    int count;

    int order() const { return count > 0 ? pTapPos[count - 1] : 0; }
    bool ascend() const {
        for (int i = 1; i < count; ++i)
            if (pTapPos[i] <= pTapPos[i - 1]) return false;
        return true;
    }
};

// Nothing here is aligned for more than floats: that is what the reported size has room for.
void build(SparsePart* part, const GivenPart& given, const Orb32f* pDlyLine, Layout* layout) {
    const auto count = static_cast<std::uint64_t>(given.count), order = static_cast<std::uint64_t>(given.order());
    part->nzTapsLen = given.count;
    part->order = given.order();
    part->pTaps = layout->take<Orb32f>(count, 4);
    part->pTapPos = layout->take<Orb32s>(count, 4);
    part->pDlyLine = layout->take<Orb32f>(2 * order, 4);
    std::reverse_copy(given.pTaps, given.pTaps + count, part->pTaps.get());
    for (int i = 0; i < given.count; ++i) part->pTapPos[i] = part->order - given.pTapPos[given.count - 1 - i];
    std::fill_n(part->pDlyLine.get(), 2 * order, 0.0f);
    if (pDlyLine) std::reverse_copy(pDlyLine, pDlyLine + order, part->pDlyLine.get());
}

OrbStatus initFir(OrbsFIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen,
                  const Orb32f* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(ppState, pNZTaps, pNZTapPos, pBuffer)) return orbStsNullPtrErr;
    if (nzTapsLen < 1) return orbStsFIRLenErr;
    const GivenPart given{pNZTaps, pNZTapPos, nzTapsLen};
    if (pNZTapPos[0] < 0 || !given.ascend()) return orbStsSparseIndexErr;
    if (!isTold(firSize(nzTapsLen, given.order()))) return orbStsMemAllocErr;
    Layout layout(alignUp(pBuffer, 16));
    auto* const state = new (layout.take<OrbsFIRSparseState_32f>(1, 16)) OrbsFIRSparseState_32f;
    build(&state->forward, given, pDlyLine, &layout);
    *ppState = state;
    return orbStsNoErr;
}

OrbStatus initIir(OrbsIIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen1,
                  int nzTapsLen2, const Orb32f* pDlyLine, Orb8u* pBuffer) {
    if (anyNull(ppState, pNZTaps, pNZTapPos, pBuffer)) return orbStsNullPtrErr;
    if (nzTapsLen1 < 1 || nzTapsLen2 < 0) return orbStsIIROrderErr;
    const GivenPart forward{pNZTaps, pNZTapPos, nzTapsLen1};
    const GivenPart recursive{pNZTaps + nzTapsLen1, pNZTapPos + nzTapsLen1, nzTapsLen2};
    // The first recursive position is tested even if there is no such tap.
    if (recursive.pTapPos[0] <= 0 || pNZTapPos[0] < 0) return orbStsSparseIndexErr;
    if (!forward.ascend() || !recursive.ascend()) return orbStsSparseIndexErr;
    if (!isTold(iirSize(nzTapsLen1, nzTapsLen2, forward.order(), recursive.order()))) return orbStsMemAllocErr;
    Layout layout(alignUp(pBuffer, 16));
    auto* const state = new (layout.take<OrbsIIRSparseState_32f>(1, 16)) OrbsIIRSparseState_32f;
    build(&state->forward, forward, pDlyLine, &layout);
    build(&state->recursive, recursive, pDlyLine ? pDlyLine + forward.order() : nullptr, &layout);
    *ppState = state;
    return orbStsNoErr;
}

// ---- Filtering ----

// Of the samples, or outputs, behind the line: the last `order` become the line.
void moveLine(SparsePart* part, int len) {
    Orb32f* const line = part->pDlyLine;
    std::memmove(line, line + len, static_cast<std::size_t>(part->order) * sizeof *line);
}

// The first `order` outputs meet samples of the line, the others those of the call alone.
void filterForward(SparsePart* part, const Orb32f* pSrc, Orb32f* pDst, int len) {
    Orb32f* const line = part->pDlyLine;
    const int order = part->order, head = std::min(len, order);
    std::copy_n(pSrc, head, line + order);
    sparseSums(part->taps(), line, pDst, static_cast<std::size_t>(head));
    if (len <= order) {
        moveLine(part, len);
    } else {
        std::copy_n(pSrc + (len - order), order, line);
        sparseSums(part->taps(), pSrc, pDst + order, static_cast<std::size_t>(len - order));
    }
}

// The same over outputs that are themselves met.
void filterRecursive(SparsePart* part, Orb32f* pDst, int len) {
    Orb32f* const line = part->pDlyLine;
    const int order = part->order, head = std::min(len, order);
    std::copy_n(pDst, head, line + order);
    sparseRecursion(part->taps(), line, static_cast<std::size_t>(head));
    std::copy_n(line + order, head, pDst);
    if (len <= order) {
        moveLine(part, len);
    } else {
        sparseRecursion(part->taps(), pDst, static_cast<std::size_t>(len - order));
        std::copy_n(pDst + (len - order), order, line);
    }
}

template <class State>
OrbStatus filter(const Orb32f* pSrc, Orb32f* pDst, int len, State* pState) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst, pState)) return status;
    filterForward(&pState->forward, pSrc, pDst, len);
    if constexpr (requires { pState->recursive; })
        if (pState->recursive.nzTapsLen > 0) filterRecursive(&pState->recursive, pDst, len);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRSparseGetStateSize_32f(int nzTapsLen, int order, int* pStateSize) { return getFirStateSize(nzTapsLen, order, pStateSize); }
OrbStatus orbsFIRSparseInit_32f(OrbsFIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen, const Orb32f* pDlyLine, Orb8u* pBuffer) { return initFir(ppState, pNZTaps, pNZTapPos, nzTapsLen, pDlyLine, pBuffer); }
OrbStatus orbsFIRSparse_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsFIRSparseState_32f* pState) { return filter(pSrc, pDst, len, pState); }
OrbStatus orbsIIRSparseGetStateSize_32f(int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pStateSize) { return getIirStateSize(nzTapsLen1, nzTapsLen2, order1, order2, pStateSize); }
OrbStatus orbsIIRSparseInit_32f(OrbsIIRSparseState_32f** ppState, const Orb32f* pNZTaps, const Orb32s* pNZTapPos, int nzTapsLen1, int nzTapsLen2, const Orb32f* pDlyLine, Orb8u* pBuffer) { return initIir(ppState, pNZTaps, pNZTapPos, nzTapsLen1, nzTapsLen2, pDlyLine, pBuffer); }
OrbStatus orbsIIRSparse_32f(const Orb32f* pSrc, Orb32f* pDst, int len, OrbsIIRSparseState_32f* pState) { return filter(pSrc, pDst, len, pState); }

}
// clang-format on
