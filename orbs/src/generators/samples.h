// From the numbers of elements, and from floating-point samples to elements of any type.
#pragma once

#include "vectors/nearest.h"

#include <limits>

namespace orbs {

// Calls body(d, n, numbers) for n = 0, step, 2 * step, ... up to len, where the lanes of d are Lane, and the numbers
// first + n, first + n + 1, ... integers of 32 bits, which wrap.
template <class Lane, class Body>
HWY_INLINE void forEachNumbered(std::size_t first, std::size_t len, Body body) {
    alignas(64) static constexpr Orb32s lanes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    std::size_t n = 0;
    const auto each = [&](auto d) HWY_ATTR {
        const hn::Rebind<Orb32s, decltype(d)> whole;
        auto numbers = hn::Load(whole, lanes) + hn::Set(whole, static_cast<Orb32s>(first + n));
        const auto next = [&]() HWY_ATTR {
            body(d, n, numbers);
            numbers = numbers + hn::Set(whole, static_cast<Orb32s>(hn::MaxLanes(d)));
            n += hn::MaxLanes(d);
        };
        while (n + 4 * hn::MaxLanes(d) <= len) {
            next();
            next();
            next();
            next();
        }
        while (n + hn::MaxLanes(d) <= len) next();
    };
    each(hn::ScalableTag<Lane>());
    if constexpr (!std::is_same_v<RestTag<Lane>, hn::ScalableTag<Lane>>) each(RestTag<Lane>());
    each(hn::CappedTag<Lane, 1>());
}

// ---- To integers: conversions of samples within 32 bits ----

struct RoundedToNearest { // as the thread's rounding mode says
    template <class D, class V>
    HWY_INLINE auto operator()(D, V v) const {
        return nearestInt32(v);
    }
};
struct Truncated {
    template <class D, class V>
    HWY_INLINE auto operator()(D, V v) const {
        return truncatedInt32(v);
    }
};
// A half away from zero. What is cut off is exact, and its double reaches 1 from one half on.
struct RoundedAwayFromZero {
    template <class D, class V>
    HWY_INLINE auto operator()(D d, V v) const {
        const auto whole = truncatedInt32(v);
        const V cut = v - asFloats(d, whole);
        return whole + truncatedInt32(cut + cut);
    }
};

// The bits of unsigned integers of 32 bits: 2^31 is taken off where it fits, exactly.
template <class D, class V, class Convert>
HWY_INLINE auto unsignedBits(D d, V v, Convert convert) {
    using Real = hn::TFromD<D>;
    const auto high = hn::Ge(v, hn::Set(d, Real{0x1p31}));
    const auto topBit = hn::ShiftLeft<31>(truncatedInt32(hn::IfThenElseZero(high, hn::Set(d, Real{1}))));
    return convert(d, v - hn::IfThenElseZero(high, hn::Set(d, Real{0x1p31}))) + topBit;
}

// Limited to the range of T; a NaN gives the least of it.
template <class D, class V, class T, class Convert>
HWY_INLINE void storeLimited(D d, V v, T* p, Convert convert) {
    using Real = hn::TFromD<D>;
    const hn::Rebind<Orb32s, D> dWhole;
    constexpr T most = std::numeric_limits<T>::max();
    constexpr bool mostIsReal = sizeof(T) < sizeof(Real);
    const V top = hn::Set(d, static_cast<Real>(most));
    const V limited = hn::Min(hn::Max(v, hn::Set(d, static_cast<Real>(std::numeric_limits<T>::min()))), top);
    auto whole = convert(d, limited);
    if constexpr (std::is_same_v<T, Orb32u>) whole = unsignedBits(d, limited, convert);
    if constexpr (!mostIsReal) {
        const auto mostBits = hn::Set(dWhole, static_cast<Orb32s>(most));
        whole = hn::IfThenElse(hn::RebindMask(dWhole, hn::Ge(limited, top)), mostBits, whole);
    }
    if constexpr (std::is_same_v<T, Orb32u>) {
        hn::StoreU(whole, dWhole, reinterpret_cast<Orb32s*>(p));
    } else {
        storeWhole(d, whole, p);
    }
}

// ---- From doubles: narrowed to floats, truncated to integers ----

template <class D, class V, class T>
HWY_INLINE void storeNarrowed(D d, V v, T* p) {
    if constexpr (std::is_same_v<T, Orb64f>) {
        hn::StoreU(v, d, p);
    } else if constexpr (std::is_same_v<T, Orb32f>) {
        const hn::Rebind<Orb32f, D> narrow;
        hn::StoreU(hn::DemoteTo(narrow, v), narrow, p);
    } else {
        storeLimited(d, v, p, Truncated{});
    }
}

template <class D, class V, class T>
HWY_INLINE void storeRoundedAway(D d, V v, T* p) {
    storeWhole(d, roundedAway<T>(d, v), p);
}

} // namespace orbs
