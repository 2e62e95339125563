// What a sum of products becomes: 2^-s of it, rounded to nearest with ties to even, in 16 bits. Everything up to the
// saturation at the end wraps in 32 bits, as the sum itself does.
#pragma once

#include "reductions/exact.h"
#include "vectors/scaling.h"

#include <algorithm>
#include <cstdint>

namespace orbs {

class SumScaling {
public:
    explicit SumScaling(std::int64_t s)
        : right_(static_cast<int>(std::clamp<std::int64_t>(s, 0, 31))),
          left_(static_cast<int>(std::clamp<std::int64_t>(-s, 0, 31))), kept_(s > -32 ? -1 : 0) {}

    Orb16s of(Orb32u sum) const {
        if (right_ == 0) return saturated<Orb16s>(static_cast<Orb32s>((sum & static_cast<Orb32u>(kept_)) << left_));
        const auto parity = static_cast<Orb32u>(static_cast<Orb32s>(sum) >> right_ & 1);
        const Orb32u half = (Orb32u{1} << (right_ - 1)) - 1;
        return saturated<Orb16s>(static_cast<Orb32s>(sum + half + parity) >> right_);
    }
    // Of the sums of even and of odd lanes, in the order of the lanes.
    template <class D, class V>
    HWY_INLINE hn::Vec<D> of(D d, V even, V odd) const {
        alignas(16) static constexpr Orb8u inTurn[] = {0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15};
        const hn::Repartition<Orb8u, D> bytes;
        const auto halves = hn::BitCast(bytes, inHalves(d, even, odd));
        return hn::BitCast(d, hn::TableLookupBytes(halves, hn::LoadDup128(bytes, inTurn)));
    }
    // Of a, then of b, in each block of 16 bytes.
    template <class D, class V>
    HWY_INLINE hn::Vec<D> inHalves(D d, V a, V b) const {
        if (right_ > 0) return rounded(d, Pair<V>{a, b}, right_);
        const auto kept = hn::Set(hn::DFromV<V>(), kept_);
        return saturated(
            d, Pair<V>{hn::And(hn::ShiftLeftSame(a, left_), kept), hn::And(hn::ShiftLeftSame(b, left_), kept)});
    }

private:
    int right_, left_; // at most one of them is not 0
    Orb32s kept_;      // 0 if the sum is shifted out as a whole
};

} // namespace orbs
