// Partition of a span of keys at a pivot, in place, by vectors: the keys up to it before those above it.
#pragma once

#include "foundation/frame.h"
#include "vectors/split.h"

#include <cstring>

namespace orbs {

template <class D>
class Partition {
    using T = hn::TFromD<D>;
    using V = hn::Vec<D>;
    static constexpr std::size_t lanes = hn::MaxLanes(D());
    static constexpr std::size_t vectorsAtOnce = 8, block = vectorsAtOnce * lanes;

public:
    static constexpr std::size_t fewKeys = 6 * block;

    // Returns how many are up to the pivot.
    HWY_NOINLINE std::size_t operator()(T* keys, std::size_t count, T pivot) {
        return count <= fewKeys ? throughScratch(keys, count, pivot) : inPlace(keys, count, pivot);
    }

private:
    static HWY_INLINE std::size_t split(V v, V pivots, T* low, T* high) {
        return storeSplit(D(), v, hn::Gt(v, pivots), low, high);
    }

    // The keys above the pivot wait beside the span.
    HWY_INLINE std::size_t throughScratch(T* keys, std::size_t count, T pivot) {
        const D d;
        const V pivots = hn::Set(d, pivot);
        T *low = keys, *high = scratch_ + fewKeys + lanes;
        std::size_t n = 0;
        for (; n + lanes <= count; n += lanes) {
            const std::size_t above = split(hn::LoadU(d, keys + n), pivots, low, high);
            low += lanes - above;
            high -= above;
        }
        for (; n < count; ++n) {
            const T key = elementAt(keys + n);
            setElement(low, key);
            high[-1] = key;
            low += key <= pivot;
            high -= key > pivot;
        }
        const auto upTo = static_cast<std::size_t>(low - keys);
        std::memcpy(low, high, (count - upTo) * sizeof(T));
        return upTo;
    }

    // A block from each end is set aside. The places free at both ends are two blocks in all from then on, and the next
    // block comes from the end that has less of them.
    HWY_INLINE std::size_t inPlace(T* keys, std::size_t count, T pivot) {
        const D d;
        const V pivots = hn::Set(d, pivot);
        T *low = keys, *high = keys + count;
        std::memcpy(aside_, low, block * sizeof(T));
        std::memcpy(aside_ + block, high - block, block * sizeof(T));
        const T *first = low + block, *last = high - block;
        while (static_cast<std::size_t>(last - first) >= block) {
            const bool fromFirst = static_cast<std::size_t>(first - low) <= block;
            const T* const from = fromFirst ? first : last - block;
            first += fromFirst ? block : 0;
            last -= fromFirst ? 0 : block;
            V v[vectorsAtOnce];
#pragma GCC unroll 8
            for (std::size_t k = 0; k < vectorsAtOnce; ++k) v[k] = hn::LoadU(d, from + k * lanes);
#pragma GCC unroll 8
            for (std::size_t k = 0; k < vectorsAtOnce; ++k) {
                const std::size_t above = split(v[k], pivots, low, high);
                low += lanes - above;
                high -= above;
            }
        }
        std::memcpy(aside_ + 2 * block, first, static_cast<std::size_t>(last - first) * sizeof(T));
        const auto left = static_cast<std::size_t>(high - low);
        const std::size_t upTo = throughScratch(aside_, left, pivot);
        std::memcpy(low, aside_, left * sizeof(T));
        return static_cast<std::size_t>(low - keys) + upTo;
    }

    alignas(64) T scratch_[fewKeys + lanes];
    alignas(64) T aside_[3 * block];
};

} // namespace orbs
