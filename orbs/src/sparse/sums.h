// Sums over a few taps, many outputs at once, lanes being outputs. Products are added one by one, longest delay first:
// an output has the same bits in every tier and at every place of a block.
#pragma once

#include "vectors/loops.h"

#include <algorithm>

namespace orbs {

// Tap i meets element n + pos[i] for output n; pos ascends and ends below `order` or, without delay, at it.
struct SparseTaps {
    const Orb32f* taps;
    const Orb32s* pos;
    std::size_t count;
    Orb32s order;
};

// y[0 .. vectors * lanes - 1] = begin + sum of taps over the elements from x on.
template <std::size_t vectors, class D, class Begin>
HWY_INLINE void sparseVectors(D d, const SparseTaps& t, const Orb32f* x, Orb32f* y, Begin begin) {
    constexpr std::size_t lanes = hn::MaxLanes(d);
    hn::Vec<D> sums[vectors];
#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) sums[v] = begin(d, v * lanes);
    for (std::size_t i = 0; i < t.count; ++i) {
        const auto tap = hn::Set(d, t.taps[i]);
        const Orb32f* const at = x + t.pos[i];
#pragma GCC unroll 8
        for (std::size_t v = 0; v < vectors; ++v)
            sums[v] = hn::Add(sums[v], hn::Mul(tap, hn::LoadU(d, at + v * lanes)));
    }
#pragma GCC unroll 8
    for (std::size_t v = 0; v < vectors; ++v) hn::StoreU(sums[v], d, y + v * lanes);
}

// Outputs n to count - 1 by whole groups of so many vectors. Returns where it ended.
template <std::size_t vectors, class D, class Begin>
HWY_INLINE std::size_t sparseGroups(D d, const SparseTaps& t, const Orb32f* x, Orb32f* y, std::size_t n,
                                    std::size_t count, Begin begin) {
    constexpr std::size_t outputs = vectors * hn::MaxLanes(d);
    for (; n + outputs <= count; n += outputs)
        sparseVectors<vectors>(d, t, x + n, y + n, [=](auto dv, std::size_t at) HWY_ATTR { return begin(dv, n + at); });
    return n;
}

// Enough independent sums to hide the time of an addition, and no more than there are registers for.
constexpr std::size_t sparseSumsAtOnce = HWY_ARCH_X86_32 ? 4 : 8;

// begin(d, n) gives what the sums of the outputs from n on start from.
template <class Begin>
HWY_INLINE void sparseOutputs(const SparseTaps& t, const Orb32f* x, Orb32f* y, std::size_t count, Begin begin) {
    const hn::ScalableTag<Orb32f> d;
    std::size_t n = sparseGroups<sparseSumsAtOnce>(d, t, x, y, 0, count, begin);
    n = sparseGroups<1>(d, t, x, y, n, count, begin);
    n = sparseGroups<1>(hn::CappedTag<Orb32f, 4>(), t, x, y, n, count, begin);
    sparseGroups<1>(hn::CappedTag<Orb32f, 1>(), t, x, y, n, count, begin);
}

// y[n] = sum over i of taps[i] * x[n + pos[i]].
inline void sparseSums(SparseTaps t, const Orb32f* x, Orb32f* y, std::size_t count) {
    sparseOutputs(t, x, y, count, [](auto d, std::size_t) HWY_ATTR { return hn::Zero(d); });
}

// y[n + order] += sum over i of taps[i] * y[n + pos[i]]. As many outputs at once as the shortest delay lets: none of
// them meets another.
inline void sparseRecursion(SparseTaps t, Orb32f* y, std::size_t count) {
    Orb32f* const outputs = y + t.order;
    const auto delay = static_cast<std::size_t>(t.order - t.pos[t.count - 1]);
    for (std::size_t n = 0; n < count; n += delay) {
        sparseOutputs(t, y + n, outputs + n, std::min(delay, count - n),
                      [=](auto d, std::size_t at) HWY_ATTR { return hn::LoadU(d, outputs + n + at); });
    }
}

} // namespace orbs
