// Sorting of keys: signed integers of 16, 32 and 64 bits, to which all elements are mapped in their order.
#pragma once

#include "orbdefs.h"

#include <cstddef>
#include <cstdint>

namespace orbs {

// Ascending, in place, at any address. Takes no memory but a few thousand bytes of stack.
void sortKeys(Orb16s* keys, std::size_t count);
void sortKeys(Orb32s* keys, std::size_t count);
void sortKeys(std::int64_t* keys, std::size_t count);

// The bits of a float as an integer, in an order of which that of the numbers is a part: negative NaN, -infinity, ...,
// -0, +0, ..., infinity, NaN. Taken twice it gives the bits back.
template <class Key>
constexpr Key orderedBits(Key bits) {
    return bits < 0 ? static_cast<Key>(bits ^ static_cast<Key>(~Key{} ^ (Key{1} << (8 * sizeof(Key) - 1)))) : bits;
}

} // namespace orbs
