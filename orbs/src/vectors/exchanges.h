// Networks of exchanges: minima and maxima of fixed pairs of vectors.
#pragma once

#include "vectors/loops.h"

#include <array>
#include <utility>

namespace orbs {

struct Exchange {
    Orb8u low, high;
};

// Of two floats, one of them NaN, both results are the second operand.
template <class V>
HWY_INLINE void exchange(V& low, V& high) {
    const V least = hn::Min(low, high);
    high = hn::Max(low, high);
    low = least;
}

template <const auto& list, class V, std::size_t... k>
HWY_INLINE void exchangeAll(V* v, std::index_sequence<k...>) {
    (exchange(v[list[k].low], v[list[k].high]), ...);
}
// All exchanges of a list among the vectors v[0], v[1] and so on.
template <const auto& list, class V>
HWY_INLINE void exchangeAll(V* v) {
    exchangeAll<list>(v, std::make_index_sequence<list.size()>());
}

} // namespace orbs
