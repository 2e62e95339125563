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
        const auto even = everyOther(d, table + column, 0), odd = everyOther(d, table + column, 1);
        return {hn::InterleaveLower(d, even, odd), hn::InterleaveUpper(d, even, odd)};
    }

private:
    static constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(lanes * sizeof(std::int64_t)) std::int64_t row_[lanes];

    // Two numbers from the row of lane `first`, two from that of lane first + 2, and so on.
    template <class Part>
    HWY_INLINE hn::Vec<Part> everyOther(Part d, const Orb64f* table, std::size_t first) const {
        if constexpr (hn::MaxLanes(Part()) == 2) {
            return hn::LoadU(d, table + static_cast<std::size_t>(row_[first]) * width);
        } else {
            const hn::Half<Part> half;
            return hn::Combine(d, everyOther(half, table, first + hn::MaxLanes(half)), everyOther(half, table, first));
        }
    }
};

} // namespace orbs
