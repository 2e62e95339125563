// Between the first and the last pass columns come in groups of 32 bytes of real parts and 32 of imaginary parts, in
// every tier, and so do the twiddles. Within a group the columns stand in the order in which vectors of real and of
// imaginary parts interleave with the least shuffling: reading the lanes of one 32-byte vector, 0 1 4 5 2 3 6 7 of
// single and 0 2 1 3 of double precision. A tier with shorter vectors takes a group in parts, one with longer vectors
// leaves them half empty.
#pragma once

#include "vectors/loops.h"

#include <cstddef>

namespace orbs::fft {

template <class T>
constexpr std::size_t columnGroup = 32 / sizeof(T);

// The vectors of the transforms: of a group, or the part of it that fits.
template <class T>
using GroupTag = hn::CappedTag<T, columnGroup<T>>;

template <class T>
constexpr std::size_t columnInLane(std::size_t lane) {
    constexpr std::size_t perBlock = 16 / sizeof(T), half = perBlock / 2;
    const std::size_t block = lane / perBlock, inBlock = lane % perBlock;
    return (inBlock < half ? 0 : columnGroup<T> / 2) + block * half + inBlock % half;
}

} // namespace orbs::fft
