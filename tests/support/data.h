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

// The type of an element's parts; that of a real element itself.
template <class T>
struct PartOf {
    using Type = T;
};
template <class T>
requires isComplex<T>
struct PartOf<T> {
    using Type = decltype(T::re);
};
template <class T>
using Part = typename PartOf<T>::Type;

using Random = std::mt19937_64;

// Integers over the whole range, one in eight an extreme or next to 0; floats in -1 to 1.
template <class T>
T randomElement(Random& random) {
    if constexpr (isComplex<T>) {
        const Part<T> re = randomElement<Part<T>>(random);
        return {re, randomElement<Part<T>>(random)};
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

// All of them from the lowest to the highest, and some far beyond.
inline std::vector<int> scaleFactors(int lowest, int highest) {
    std::vector<int> all{1000, -1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (int s = lowest; s <= highest; ++s) all.push_back(s);
    return all;
}

} // namespace support
