// Table look-ups of vectors: a row for each lane, two neighbouring columns at a time.
#pragma once

#include "foundation/vectors.h"

#include <cstdint>

namespace orbs {

template <class D>
struct Columns {
    hn::Vec<D> first, second;
};

// table[offset] and table[offset + 1] for the offset in each lane.
template <class D>
HWY_INLINE Columns<D> loadColumns(D d, const Orb64f* table, hn::Vec<hn::RebindToSigned<D>> offset) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(lanes * sizeof(std::int64_t)) std::int64_t at[lanes];
    hn::Store(offset, hn::RebindToSigned<D>(), at);
    const auto row = [&](std::size_t lane) HWY_ATTR { return hn::LoadU(hn::CappedTag<Orb64f, 2>(), table + at[lane]); };
    if constexpr (lanes == 1) {
        return {hn::Set(d, table[at[0]]), hn::Set(d, table[at[0] + 1])};
    } else if constexpr (lanes == 2) {
        return {hn::InterleaveLower(d, row(0), row(1)), hn::InterleaveUpper(d, row(0), row(1))};
    } else {
        static_assert(lanes == 4);
        const auto even = hn::Combine(d, row(2), row(0)), odd = hn::Combine(d, row(3), row(1));
        return {hn::InterleaveLower(d, even, odd), hn::InterleaveUpper(d, even, odd)};
    }
}

} // namespace orbs
