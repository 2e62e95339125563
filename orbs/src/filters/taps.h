// Elements as their parts, and runs of taps.
#pragma once

#include "foundation/frame.h"
#include "vectors/loops.h"

namespace orbs {

template <class T>
struct PartsOf {
    using Real = T;
    static constexpr std::size_t count = 1;
};
template <class T>
requires isComplex<T>
struct PartsOf<T> {
    using Real = RealOf<T>;
    static constexpr std::size_t count = 2;
};

// The type of the parts of an element, and their number: itself and 1 if it is real.
template <class T>
using Part = typename PartsOf<T>::Real;
template <class T>
constexpr std::size_t partCount = PartsOf<T>::count;

template <class T>
const Part<T>* asParts(const T* p) {
    return reinterpret_cast<const Part<T>*>(p);
}
template <class T>
Part<T>* asParts(T* p) {
    return reinterpret_cast<Part<T>*>(p);
}

// Part by part in another type.
template <class To, class T>
To cast(T a) {
    if constexpr (isComplex<T>) {
        return {static_cast<Part<To>>(a.re), static_cast<Part<To>>(a.im)};
    } else {
        return static_cast<To>(a);
    }
}

// Taps in the order of the samples that they meet, oldest sample first. step leads to the tap of the next younger
// sample: 1, or -1 over taps in natural order.
template <class T, std::ptrdiff_t step>
struct TapRun {
    const T* first;
    std::size_t count;
};

} // namespace orbs
