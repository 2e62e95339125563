// Recursive filters over the caller's 16-bit taps and 32-bit delay line, without a state object: blocks by way of a
// state with float taps, single samples in integers.
#include "foundation/frame.h"
#include "orbs/foundation.h"
#include "orbs/iir.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using namespace orbs;

// A filter of any order is a cascade of one section. A section has 2 * order + 2 taps, with the exponent in the place
// of a[0], and `order` values in the delay line.
struct Cascade {
    const Orb16s* pTaps;
    std::size_t sections, order;

    std::size_t sectionTaps() const { return 2 * order + 2; }
    std::size_t taps() const { return sections * sectionTaps(); }
    std::size_t delays() const { return sections * order; }
    const Orb16s* section(std::size_t s) const { return pTaps + s * sectionTaps(); }
    int exponent(std::size_t s) const { return section(s)[order + 1]; }
    bool hasNegativeExponent() const {
        for (std::size_t s = 0; s < sections; ++s)
            if (exponent(s) < 0) return true;
        return false;
    }
};
Cascade anyOrder(const Orb16s* pTaps, int order) {
    return {pTaps, 1, static_cast<std::size_t>(order)};
}
Cascade biQuads(const Orb16s* pTaps, int numBq) {
    return {pTaps, static_cast<std::size_t>(numBq), 2};
}

// ---- Blocks ----

// v * 2^exponent, rounded once.
Orb32f scaled(Orb32s v, int exponent) {
    return static_cast<Orb32f>(std::ldexp(static_cast<double>(v), exponent));
}
double awayFromZero(double v) {
    return v < 0 ? v - 0.5 : v + 0.5;
}
double truncated(double v) {
    return v;
}

// Taps and delay line of a cascade in floats, and the state that is built from them, while a call runs.
class FloatFilter {
public:
    FloatFilter() = default;
    ~FloatFilter() {
        if (state) orbsIIRFree32f_16s(state);
        orbsFree(taps);
    }
    FloatFilter(const FloatFilter&) = delete;
    FloatFilter& operator=(const FloatFilter&) = delete;

    bool take(const Cascade& cascade, const Orb32s* pDlyLine) {
        taps = orbsMalloc_32f(static_cast<int>(cascade.taps() + cascade.delays()));
        if (!taps) return false;
        line = taps + cascade.taps();
        for (std::size_t s = 0; s < cascade.sections; ++s) {
            const int f = cascade.exponent(s);
            Orb32f* const section = taps + s * cascade.sectionTaps();
            for (std::size_t k = 0; k < cascade.sectionTaps(); ++k) section[k] = scaled(cascade.section(s)[k], -f);
            section[cascade.order + 1] = 1;
            for (std::size_t i = s * cascade.order; i < (s + 1) * cascade.order; ++i) line[i] = scaled(pDlyLine[i], -f);
        }
        return true;
    }
    template <auto whole>
    void giveBack(const Cascade& cascade, Orb32s* pDlyLine) {
        using Limits = std::numeric_limits<Orb32s>;
        orbsIIRGetDlyLine32f_16s(state, line);
        for (std::size_t i = 0; i < cascade.delays(); ++i) {
            const double v = std::ldexp(static_cast<double>(line[i]), cascade.exponent(i / cascade.order));
            // A NaN becomes the least value, as it does among the outputs.
            pDlyLine[i] = v >= 0x1p31 ? Limits::max() : v >= -0x1p31 ? static_cast<Orb32s>(whole(v)) : Limits::min();
        }
    }

    OrbsIIRState32f_16s* state = nullptr;
    Orb32f *taps = nullptr, *line = nullptr;
};

// Taps and delay line, 3 * order + 2 floats a section, must be less than 2 GiB.
bool isTooLarge(int sections, int order) {
    return static_cast<std::uint64_t>(sections) * (3 * static_cast<std::uint64_t>(order) + 2) > (1u << 29) - 32;
}

template <auto initAlloc, auto whole>
OrbStatus filterBlock(const Orb16s* pSrc, Orb16s* pDst, int len, const Cascade& cascade, int size, Orb32s* pDlyLine) {
    FloatFilter filter;
    if (!filter.take(cascade, pDlyLine)) return orbStsMemAllocErr;
    if (const OrbStatus status = initAlloc(&filter.state, filter.taps, size, filter.line)) return status;
    orbsIIR32f_16s_Sfs(pSrc, pDst, len, filter.state, 0);
    filter.giveBack<whole>(cascade, pDlyLine);
    return orbStsNoErr;
}

OrbStatus block(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int order, Orb32s* pDlyLine) {
    if (order < 1) return orbStsIIROrderErr;
    if (anyNull(pSrc, pTaps, pDst) || anyNull(pDlyLine)) return orbStsNullPtrErr;
    if (isTooLarge(1, order)) return orbStsMemAllocErr;
    const Cascade cascade = anyOrder(pTaps, order);
    if (cascade.hasNegativeExponent()) return orbStsIIRScaleErr;
    if (len < 1) return orbStsSizeErr;
    return filterBlock<orbsIIRInitAlloc32f_16s, awayFromZero>(pSrc, pDst, len, cascade, order, pDlyLine);
}

// Differs in the order of the tests, and in how the delay line is rounded.
OrbStatus biQuadBlock(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine) {
    if (numBq < 1) return orbStsIIROrderErr;
    if (anyNull(pSrc, pTaps, pDst) || anyNull(pDlyLine)) return orbStsNullPtrErr;
    if (len < 1) return orbStsSizeErr;
    if (isTooLarge(numBq, 2)) return orbStsMemAllocErr;
    const Cascade cascade = biQuads(pTaps, numBq);
    if (cascade.hasNegativeExponent()) return orbStsIIRScaleErr;
    return filterBlock<orbsIIRInitAlloc32f_BiQuad_16s, truncated>(pSrc, pDst, len, cascade, numBq, pDlyLine);
}

// ---- Single samples ----

// Sums and products wrap in 32 bits.
Orb32u product(Orb32s a, Orb32s b) {
    return static_cast<Orb32u>(a) * static_cast<Orb32u>(b);
}
Orb32s shiftedRight(Orb32u v, int f) {
    return static_cast<Orb32s>(v) >> std::min(f, 31);
}

// acc * 2^-f to nearest, ties to even, for f of 1 to 31. The power in the rounding term counts modulo 32: an f of 0
// adds 2^31 - 1 and the low bit of acc.
Orb32s rounded(Orb32u acc, int f) {
    const Orb32u odd = static_cast<Orb32u>(shiftedRight(acc, f)) & 1u;
    return shiftedRight(acc + odd + (1u << (f + 31) % 32) - 1u, f);
}

// One step of a section in the transposed direct form II.
Orb32s step(Orb32s x, const Orb16s* b, std::size_t order, Orb32s* D) {
    const Orb16s* const a = b + order + 1;
    const Orb32s y = rounded(product(b[0], x) + static_cast<Orb32u>(D[0]), a[0]);
    for (std::size_t i = 0; i < order; ++i) {
        const Orb32u next = i + 1 < order ? static_cast<Orb32u>(D[i + 1]) : 0;
        D[i] = static_cast<Orb32s>(product(b[i + 1], x) - product(a[i + 1], y) + next);
    }
    return y;
}

// Only the output is limited to 16 bits: neither what goes back into the recursion nor what goes on to a next section.
template <auto cascadeOf>
OrbStatus one(const Orb16s* pSrc, Orb16s* pDstVal, const Orb16s* pTaps, int size, Orb32s* pDlyLine) {
    if (size < 1) return orbStsIIROrderErr;
    if (anyNull(pSrc, pDstVal, pTaps) || anyNull(pDlyLine)) return orbStsNullPtrErr;
    const Cascade cascade = cascadeOf(pTaps, size);
    if (cascade.hasNegativeExponent()) return orbStsIIRScaleErr;
    Orb32s y = *pSrc;
    for (std::size_t s = 0; s < cascade.sections; ++s)
        y = step(y, cascade.section(s), cascade.order, pDlyLine + s * cascade.order);
    using Limits = std::numeric_limits<Orb16s>;
    *pDstVal = static_cast<Orb16s>(std::clamp<Orb32s>(y, Limits::min(), Limits::max()));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsIIR_Direct_16s(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int order, Orb32s* pDlyLine) { return block(pSrc, pDst, len, pTaps, order, pDlyLine); }
OrbStatus orbsIIR_Direct_16s_I(Orb16s* pSrcDst, int len, const Orb16s* pTaps, int order, Orb32s* pDlyLine) { return block(pSrcDst, pSrcDst, len, pTaps, order, pDlyLine); }
OrbStatus orbsIIROne_Direct_16s(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int order, Orb32s* pDlyLine) { return one<anyOrder>(&src, pDstVal, pTaps, order, pDlyLine); }
OrbStatus orbsIIROne_Direct_16s_I(Orb16s* pSrcDstVal, const Orb16s* pTaps, int order, Orb32s* pDlyLine) { return one<anyOrder>(pSrcDstVal, pSrcDstVal, pTaps, order, pDlyLine); }
OrbStatus orbsIIR_BiQuadDirect_16s(const Orb16s* pSrc, Orb16s* pDst, int len, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine) { return biQuadBlock(pSrc, pDst, len, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIR_BiQuadDirect_16s_I(Orb16s* pSrcDst, int len, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine) { return biQuadBlock(pSrcDst, pSrcDst, len, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIROne_BiQuadDirect_16s(Orb16s src, Orb16s* pDstVal, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine) { return one<biQuads>(&src, pDstVal, pTaps, numBq, pDlyLine); }
OrbStatus orbsIIROne_BiQuadDirect_16s_I(Orb16s* pSrcDstVal, const Orb16s* pTaps, int numBq, Orb32s* pDlyLine) { return one<biQuads>(pSrcDstVal, pSrcDstVal, pTaps, numBq, pDlyLine); }

}
// clang-format on
