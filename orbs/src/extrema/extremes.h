// The least or greatest element of a vector and its first place, or both extremes, in one pass.
//
// Elements are compared by a key: themselves, their magnitude, their exponent. What the pass looks for is a Which:
// Least or Greatest. Where a float is compared, a NaN is passed over unless there is nothing else, but for vectors so
// short that they go through a scalar scan, which has its own way with a NaN.
#pragma once

#include "vectors/elementwise.h"

#include <array>
#include <limits>

namespace orbs {

// ---- What is looked for ----

// A NaN as x leaves `best` as it is: the instruction gives its second operand. The scan takes a NaN over, and what
// comes behind it again.
struct Least {
    template <class V>
    static V of(V x, V best) {
        return hn::Min(x, best);
    }
    template <class V>
    static auto better(V x, V best) {
        return hn::Lt(x, best);
    }
    template <class T>
    static bool replaces(T x, T best) {
        return !(x >= best);
    }
    template <class T>
    static constexpr T worst = std::is_floating_point_v<T> ? std::numeric_limits<T>::infinity()
                                                           : std::numeric_limits<T>::max();
};
// The scan passes over a NaN, but does not leave one that comes first.
struct Greatest {
    template <class V>
    static V of(V x, V best) {
        return hn::Max(x, best);
    }
    template <class V>
    static auto better(V x, V best) {
        return hn::Gt(x, best);
    }
    template <class T>
    static bool replaces(T x, T best) {
        return x > best;
    }
    template <class T>
    static constexpr T worst = std::is_floating_point_v<T> ? -std::numeric_limits<T>::infinity()
                                                           : std::numeric_limits<T>::lowest();
};

// ---- Keys ----

struct Itself {
    template <class D, class V>
    static V of(D, V v) {
        return v;
    }
};

// Of 16 bits saturated, of 32 bits exact in unsigned lanes.
struct Magnitude {
    template <class D, class V>
    static auto of(D d, V v) {
        if constexpr (sizeof(hn::TFromD<D>) == 2) {
            return hn::Max(v, hn::SaturatedSub(hn::Zero(d), v));
        } else {
            return hn::BitCast(hn::RebindToUnsigned<D>(), hn::Abs(v));
        }
    }
};

template <class Key, class T>
using KeyVector = decltype(Key::of(hn::ScalableTag<T>(), hn::Zero(hn::ScalableTag<T>())));
template <class Key, class T>
using KeyTag = hn::DFromV<KeyVector<Key, T>>;
template <class Key, class T>
using KeyOf = hn::TFromD<KeyTag<Key, T>>;

// ---- The pass ----

template <int count, class D, class V>
HWY_INLINE V shifted(D d, V v) {
    const hn::Repartition<Orb8u, D> bytes;
    return hn::BitCast(d, hn::ShiftRightBytes<count>(bytes, hn::BitCast(bytes, v)));
}

// The extreme of all lanes.
template <class Which, class D, class V>
HWY_INLINE hn::TFromD<D> folded(D d, V v) {
    if constexpr (hn::MaxLanes(D()) * sizeof(hn::TFromD<D>) > 16) {
        const hn::Half<D> half;
        return folded<Which>(half, Which::of(hn::UpperHalf(half, v), hn::LowerHalf(half, v)));
    } else {
        // The zeros that are shifted in do not come down to the lowest lane.
        constexpr std::size_t size = sizeof(hn::TFromD<D>);
        v = Which::of(shifted<8>(d, v), v);
        if constexpr (size <= 4) v = Which::of(shifted<4>(d, v), v);
        if constexpr (size <= 2) v = Which::of(shifted<2>(d, v), v);
        if constexpr (size <= 1) v = Which::of(shifted<1>(d, v), v);
        return hn::GetLane(v);
    }
}

// Four vectors of extremes, so that one need not wait for the other, and the block that brought the best of them.
template <class Which, class D>
struct Best {
    using Finds = Which;
    using V = hn::Vec<D>;
    using K = hn::TFromD<D>;

    V some[4], all;
    K value;
    std::size_t from = 0;

    HWY_INLINE Best() : value(Which::template worst<K>) {
        all = hn::Set(D(), value);
        for (V& v : some) v = all;
    }
    HWY_INLINE void take(std::size_t k, V x) { some[k] = Which::of(x, some[k]); }
    // Ends a block that began at `first`.
    HWY_INLINE void settle(std::size_t first) {
        const D d;
        const V v = Which::of(Which::of(some[0], some[1]), Which::of(some[2], some[3]));
        if (hn::AllFalse(d, Which::better(v, all))) return;
        value = folded<Which>(d, v);
        all = hn::Set(d, value);
        from = first;
    }
};

// The last vector of a short or odd rest: elements that were there before, or copies, change no extreme and no first
// place.
template <class D, class T>
HWY_INLINE hn::Vec<D> loadLast(D d, const T* src, std::size_t len) {
    return len >= hn::MaxLanes(d) ? hn::LoadU(d, src + len - hn::MaxLanes(d)) : loadFilledUp(d, src, len);
}

// No element before best.from has the value that best ends with. `block` is a multiple of four vectors.
template <class Key, class T, class... B>
HWY_INLINE void takeAll(const T* src, std::size_t len, std::size_t block, B&... best) {
    const hn::ScalableTag<T> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto take = [&](std::size_t k, auto v) HWY_ATTR { (best.take(k, Key::of(d, v)), ...); };
    std::size_t n = 0;
    while (len - n >= 4 * lanes) {
        const std::size_t first = n, end = n + std::min(block, (len - n) / (4 * lanes) * (4 * lanes));
        for (; n < end; n += 4 * lanes) {
            take(0, hn::LoadU(d, src + n));
            take(1, hn::LoadU(d, src + n + lanes));
            take(2, hn::LoadU(d, src + n + 2 * lanes));
            take(3, hn::LoadU(d, src + n + 3 * lanes));
        }
        (best.settle(first), ...);
    }
    if (n == len) return;
    const std::size_t first = n;
    for (; n + lanes <= len; n += lanes) take(0, hn::LoadU(d, src + n));
    if (n < len) take(0, loadLast(d, src, len));
    (best.settle(first), ...);
}

// The first place of a key from `from` on, or len if it is nowhere.
template <class Key, class T, class K = KeyOf<Key, T>>
std::size_t firstPlace(const T* src, std::size_t from, std::size_t len, std::type_identity_t<K> key) {
    const hn::ScalableTag<T> d;
    const KeyTag<Key, T> dk;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto wanted = hn::Set(dk, key);
    const auto here = [=](auto v) HWY_ATTR { return hn::VecFromMask(dk, hn::Eq(Key::of(d, v), wanted)); };
    const auto at = [=](std::size_t n) HWY_ATTR { return here(hn::LoadU(d, src + n)); };
    std::size_t n = from;
    for (; n + 4 * lanes <= len; n += 4 * lanes) {
        const auto any = hn::Or(hn::Or(at(n), at(n + lanes)), hn::Or(at(n + 2 * lanes), at(n + 3 * lanes)));
        if (!hn::AllFalse(dk, hn::MaskFromVec(any))) break;
    }
    for (; n + lanes <= len; n += lanes)
        if (const auto lane = hn::FindFirstTrue(dk, hn::MaskFromVec(at(n))); lane >= 0)
            return n + static_cast<std::size_t>(lane);
    if (n == len) return len;
    const auto lane = hn::FindFirstTrue(dk, hn::MaskFromVec(here(loadLast(d, src, len))));
    return lane < 0 ? len : (len >= lanes ? len - lanes : 0) + static_cast<std::size_t>(lane);
}

// ---- Extremes of elements ----

template <class T>
struct Extreme {
    T value;
    std::size_t place;
};

// Floats shorter than this are scanned one by one.
template <class T>
constexpr std::size_t scannedBelow = sizeof(T) == 4 ? 34 : 32;

template <class Which, class T>
Extreme<T> scanned(const T* src, std::size_t len) {
    Extreme<T> best{elementAt(src), 0};
    for (std::size_t n = 1; n < len; ++n)
        if (const T x = elementAt(src + n); Which::replaces(x, best.value)) best = {x, n};
    return best;
}

// Without `placed` the place is not told. Of floats it is looked for where it decides: an extreme of 0 has the sign of
// its first element, and where no element is the worst value that was begun with, all are NaN, and the first counts.
template <class Key, class Which, class T, class K>
Extreme<T> told(const T* src, std::size_t len, K value, std::size_t from, bool placed) {
    if constexpr (std::is_floating_point_v<T>) {
        if (!placed && value != 0 && value != Which::template worst<K>) return {value, 0};
        const std::size_t place = firstPlace<Key>(src, from, len, value) % len;
        return {elementAt(src + place), place};
    } else {
        const auto limited = static_cast<T>(std::min<K>(value, std::numeric_limits<T>::max()));
        return {limited, placed ? firstPlace<Key>(src, from, len, value) : 0};
    }
}

template <class Key, class T, class... B>
HWY_INLINE auto foundIn(const T* src, std::size_t len, bool placed, B... best) {
    constexpr std::size_t block = 4096 / sizeof(T);
    takeAll<Key>(src, len, placed ? block : len, best...);
    return std::array{told<Key, typename B::Finds>(src, len, best.value, best.from, placed)...};
}

// The extremes that Which... name, in this order.
template <class Key, class... Which, class T>
std::array<Extreme<T>, sizeof...(Which)> extremes(const T* src, int length, bool placed) {
    const auto len = static_cast<std::size_t>(length);
    if constexpr (std::is_floating_point_v<T>)
        if (len < scannedBelow<T>) return {scanned<Which>(src, len)...};
    return foundIn<Key>(src, len, placed, Best<Which, KeyTag<Key, T>>()...);
}

} // namespace orbs
