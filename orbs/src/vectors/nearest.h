// Integers through floating-point lanes: loaded exactly, stored as the nearest integers, saturated. Kernels of this
// kind hold an SseQuiet guard that rounds to nearest, so a caller sees integer arithmetic: no rounding mode, no
// exception.
#pragma once

#include "foundation/control.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

namespace orbs {

// Larger than the ratio of any two values and scales in use: a product with it leaves the sign alone, once saturated.
template <class Lane>
constexpr Lane huge = Lane{0x1p100};

template <class D, class V>
HWY_INLINE auto asFloats(D d, V whole) {
    if constexpr (sizeof(hn::TFromD<D>) == sizeof(Orb64f)) {
        return hn::PromoteTo(d, whole);
    } else {
        return hn::ConvertTo(d, whole);
    }
}

// As many elements as d has lanes.
template <class D, class T>
HWY_INLINE auto loadWhole(D, const T* p) {
    const auto v = hn::LoadU(hn::Rebind<T, D>(), p);
    if constexpr (sizeof(T) == sizeof(Orb32s)) {
        return v;
    } else {
        return hn::PromoteTo(hn::Rebind<Orb32s, D>(), v);
    }
}
template <class D, class T>
HWY_INLINE auto loadFloats(D d, const T* p) {
    return asFloats(d, loadWhole(d, p));
}

// One value in place of an array.
template <class T>
struct Repeated {
    T val;
    Repeated operator+(std::size_t) const { return *this; }
};
template <class D, class T>
HWY_INLINE auto loadFloats(D d, Repeated<T> p) {
    return hn::Set(d, static_cast<hn::TFromD<D>>(p.val));
}

template <class D, class V, class T>
HWY_INLINE void storeWhole(D, V whole, T* p) {
    const hn::Rebind<T, D> narrow;
    if constexpr (sizeof(T) == sizeof(Orb32s)) {
        hn::StoreU(whole, narrow, p);
    } else {
        hn::StoreU(hn::DemoteTo(narrow, whole), narrow, p);
    }
}
// The conversion stops at the lower end of 32 bits, narrowing at that of T.
template <class D, class V, class T>
HWY_INLINE void storeNearest(D d, V v, T* p) {
    const V top = hn::Set(d, static_cast<hn::TFromD<D>>(std::numeric_limits<T>::max()));
    storeWhole(d, nearestInt32(hn::Min(v, top)), p);
}

// To the nearest integer, an exact half away from 0, limited to the range of T; a NaN gives the least of it.
template <class T, class D, class V>
HWY_INLINE auto roundedAway(D d, V v) {
    using Lane = hn::TFromD<D>;
    const V low = hn::Set(d, Lane{std::numeric_limits<T>::min()}),
            high = hn::Set(d, Lane{std::numeric_limits<T>::max()});
    return truncatedInt32(hn::Min(hn::Max(v + hn::CopySign(hn::Set(d, Lane{0.5}), v), low), high));
}

// ---- Complex, in planes ----

template <class V>
struct Planes {
    V re, im;
};
template <class V>
Planes(V, V) -> Planes<V>;

// Parts of 16 bits in lanes of 32, and both of them in one.
template <class V>
HWY_INLINE Planes<V> partsOfPairs(V pairs) {
    return {hn::ShiftRight<16>(hn::ShiftLeft<16>(pairs)), hn::ShiftRight<16>(pairs)};
}
template <class V>
HWY_INLINE V pairsOfParts(V re, V im) {
    return hn::Or(hn::And(re, hn::Set(hn::DFromV<V>(), 0xffff)), hn::ShiftLeft<16>(im));
}

template <class D>
HWY_INLINE auto loadFloats(D d, const Orb16sc* p) {
    const auto [re, im] = partsOfPairs(hn::LoadU(hn::Rebind<Orb32s, D>(), reinterpret_cast<const Orb32s*>(p)));
    return Planes{asFloats(d, re), asFloats(d, im)};
}
template <class D, class V>
HWY_INLINE void storeNearest(D d, Planes<V> v, Orb16sc* p) {
    using Lane = hn::TFromD<D>;
    const hn::Rebind<Orb32s, D> pairs;
    const auto nearest = [=](V part) HWY_ATTR {
        return nearestInt32(hn::Min(hn::Max(part, hn::Set(d, Lane{-0x8000})), hn::Set(d, Lane{0x7fff})));
    };
    hn::StoreU(pairsOfParts(nearest(v.re), nearest(v.im)), pairs, reinterpret_cast<Orb32s*>(p));
}

} // namespace orbs
