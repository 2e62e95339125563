// Lanes of one type as lanes of another.
#pragma once

#include "vectors/loops.h"

namespace orbs {

// The values of the lanes of v in lanes of D, which are as wide or wider, or floats of another width.
template <class D, class V>
HWY_INLINE hn::Vec<D> valuesIn(D d, V v) {
    using To = hn::TFromD<D>;
    using From = hn::TFromV<V>;
    if constexpr (std::is_same_v<To, From>) {
        return v;
    } else if constexpr (std::is_floating_point_v<To> && sizeof(From) < 4) {
        return valuesIn(d, hn::PromoteTo(hn::Rebind<Orb32s, D>(), v));
    } else if constexpr (sizeof(To) > sizeof(From)) {
        return hn::PromoteTo(d, v);
    } else if constexpr (sizeof(To) == sizeof(From)) {
        return hn::ConvertTo(d, v);
    } else {
        return hn::DemoteTo(d, v);
    }
}

} // namespace orbs
