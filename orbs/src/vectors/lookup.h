// Table look-ups of vectors: a row for each lane, two neighbouring columns at a time.
#pragma once

#include "vectors/loops.h"

#include <cstdint>

namespace orbs {

template <class D>
struct Columns {
    hn::Vec<D> first, second;
};

// The rows of a table of rows of `width` numbers, one for each lane.
template <class D, std::size_t width>
class Rows {
public:
    HWY_INLINE explicit Rows(hn::Vec<hn::RebindToSigned<D>> row) { hn::Store(row, hn::RebindToSigned<D>(), row_); }

    // Those numbers of the rows that stand at `column` and behind it.
    HWY_INLINE Columns<D> columns(const Orb64f* table, std::size_t column = 0) const {
        const D d;
        const auto pair = [&](std::size_t lane) HWY_ATTR {
            return hn::LoadU(hn::CappedTag<Orb64f, 2>(), table + static_cast<std::size_t>(row_[lane]) * width + column);
        };
        if constexpr (lanes == 2) {
            return {hn::InterleaveLower(d, pair(0), pair(1)), hn::InterleaveUpper(d, pair(0), pair(1))};
        } else {
            static_assert(lanes == 4);
            const auto even = hn::Combine(d, pair(2), pair(0)), odd = hn::Combine(d, pair(3), pair(1));
            return {hn::InterleaveLower(d, even, odd), hn::InterleaveUpper(d, even, odd)};
        }
    }

private:
    static constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(lanes * sizeof(std::int64_t)) std::int64_t row_[lanes];
};

} // namespace orbs
