// Sorting of keys: signed integers of 16, 32 and 64 bits, to which all elements are mapped in their order.
#pragma once

#include "orbs/sorting.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace orbs {

// Ascending, in place, at any address. Takes no memory but up to 24 kB of stack.
void sortKeys(Orb16s* keys, std::size_t count);
void sortKeys(Orb32s* keys, std::size_t count);
void sortKeys(std::int64_t* keys, std::size_t count);

// The bits of a float as an integer, in an order of which that of the numbers is a part: negative NaN, -infinity, ...,
// -0, +0, ..., infinity, NaN. Taken twice it gives the bits back.
template <class Key>
constexpr Key orderedBits(Key bits) {
    return bits < 0 ? bits ^ std::numeric_limits<Key>::max() : bits;
}

} // namespace orbs
