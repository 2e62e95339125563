// Input data: reproducible, of any element type, with the extremes of the type among the random values.
#pragma once

#include "orbdefs.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

namespace support {

template <class T>
constexpr bool isComplex = requires(T t) {
    t.re;
    t.im;
};

using Random = std::mt19937_64;

// Integers over the whole range, one in eight an extreme or next to 0; floats in -1 to 1.
template <class T>
T randomElement(Random& random) {
    if constexpr (isComplex<T>) {
        using Real = decltype(T::re);
        const Real re = randomElement<Real>(random);
        return {re, randomElement<Real>(random)};
    } else if constexpr (requires(T t) { t.b; }) { // 24 bits: the upper ones of 32, which keep the extremes
        const auto v = static_cast<Orb32u>(randomElement<Orb32s>(random));
        return {{static_cast<Orb8u>(v >> 8), static_cast<Orb8u>(v >> 16), static_cast<Orb8u>(v >> 24)}};
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(static_cast<double>(static_cast<std::int64_t>(random()) >> 11) * 0x1p-52);
    } else {
        constexpr T special[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0), T(1), T(-1), T(2)};
        const std::uint64_t word = random();
        return word % 8 == 0 ? special[(word >> 32) % std::size(special)] : static_cast<T>(word >> 24);
    }
}

template <class T>
std::vector<T> randomVector(std::size_t count, std::uint64_t seed = 1) {
    Random random(seed * 0x9e3779b97f4a7c15u + count);
    std::vector<T> v(count);
    for (T& t : v) t = randomElement<T>(random);
    return v;
}

template <class T>
bool sameBits(const T* a, const T* b, std::size_t count) {
    return std::memcmp(a, b, count * sizeof(T)) == 0;
}
template <class T>
bool sameBits(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && sameBits(a.data(), b.data(), a.size());
}

} // namespace support
