// Between the first and the last pass columns come in groups of 32 bytes of real parts and 32 of imaginary parts (64 of
// each where vectors have 64 bytes), and so do the twiddles. Within a group the columns stand in the order in which
// vectors of real and of imaginary parts interleave with the least shuffling: reading the lanes of one 32-byte vector,
// 0 1 4 5 2 3 6 7 of single and 0 2 1 3 of double precision. A tier with shorter vectors takes a group in parts.
#pragma once

#include "vectors/loops.h"

#include <cstddef>

namespace orbs::fft {

constexpr std::size_t groupBytes = hn::MaxLanes(hn::ScalableTag<Orb8u>()) == 64 ? 64 : 32;
template <class T>
constexpr std::size_t columnGroup = groupBytes / sizeof(T);

// The vectors of the transforms: of a group, or the part of it that fits.
template <class T>
using GroupTag = hn::CappedTag<T, columnGroup<T>>;

// From a table of an object, which lies at a multiple of 32 bytes.
template <class D, class T = hn::TFromD<D>>
HWY_INLINE hn::Vec<D> loadTable(D d, const T* values) {
    if constexpr (hn::MaxLanes(D()) * sizeof(T) > 32) return hn::LoadU(d, values);
    return hn::Load(d, values);
}

template <class T>
constexpr std::size_t columnInLane(std::size_t lane) {
    constexpr std::size_t perBlock = 16 / sizeof(T), half = perBlock / 2;
    const std::size_t block = lane / perBlock, inBlock = lane % perBlock;
    return (inBlock < half ? 0 : columnGroup<T> / 2) + block * half + inBlock % half;
}

} // namespace orbs::fft
