// Vectors read backwards. An element is `parts` lanes: 1, or 2 if it is complex.
#pragma once

#include "vectors/loops.h"

#include <array>

namespace orbs {

// The places that the bytes of a 16-byte block are taken from to reverse its elements of `size` bytes.
template <std::size_t size>
inline constexpr auto reversedPlaces = [] {
    std::array<Orb8u, 16> places{};
    for (std::size_t n = 0; n < 16; ++n) places[n] = static_cast<Orb8u>(16 - size - n / size * size + n % size);
    return places;
}();

template <std::size_t parts, class D, class V>
V reverseElements(D d, V v) {
    if constexpr (hn::MaxLanes(D()) == parts) {
        return v;
    } else {
        const hn::Repartition<Orb8u, D> bytes;
        const auto places = hn::LoadDup128(bytes, reversedPlaces<parts * sizeof(hn::TFromD<D>)>.data());
        return hn::ReverseBlocks(d, hn::BitCast(d, hn::TableLookupBytes(hn::BitCast(bytes, v), places)));
    }
}

struct Same {
    template <class D, class V>
    static V of(D, V v) {
        return v;
    }
};

// pDst[n] = Op::of(pSrc[len - 1 - n]). Goes inwards from both ends and loads at both before it stores at either, so
// pDst may be pSrc; where the last two vectors overlap, both store the same values there.
template <class Op, std::size_t parts, class T>
void reverse(const T* pSrc, T* pDst, std::size_t len) {
    const hn::ScalableTag<T> full;
    const RestTag<T> rest;
    const hn::CappedTag<T, parts> one;
    std::size_t head = 0, tail = parts * len;
    const auto exchange = [&](auto d) HWY_ATTR {
        tail -= hn::MaxLanes(d);
        const auto a = hn::LoadU(d, pSrc + head), b = hn::LoadU(d, pSrc + tail);
        hn::StoreU(Op::of(d, reverseElements<parts>(d, b)), d, pDst + head);
        hn::StoreU(Op::of(d, reverseElements<parts>(d, a)), d, pDst + tail);
        head += hn::MaxLanes(d);
    };
    while (head + hn::MaxLanes(full) <= tail) exchange(full);
    if constexpr (hn::MaxLanes(rest) < hn::MaxLanes(full))
        while (head + hn::MaxLanes(rest) <= tail) exchange(rest);
    while (head < tail) exchange(one);
}

} // namespace orbs
