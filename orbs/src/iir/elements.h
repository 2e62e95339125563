// Sums and products of elements, real and complex alike. Every real product and every sum is rounded.
#pragma once

#include "filters/taps.h"
#include "vectors/complex.h"

namespace orbs {

template <class T>
T plus(T a, T b) {
    if constexpr (isComplex<T>) {
        return {a.re + b.re, a.im + b.im};
    } else {
        return a + b;
    }
}
template <class T>
T minus(T a, T b) {
    if constexpr (isComplex<T>) {
        return {a.re - b.re, a.im - b.im};
    } else {
        return a - b;
    }
}
template <class T>
T times(T a, T b) {
    if constexpr (std::is_same_v<Part<T>, long double> && isComplex<T>) {
        return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    } else if constexpr (isComplex<T>) {
        // In the open g++ 12 makes fused products of this, in spite of the options.
        const hn::CappedTag<Part<T>, 2> d;
        T result;
        hn::StoreU(ComplexProduct::of(d, hn::LoadU(d, asParts(&a)), hn::LoadU(d, asParts(&b))), d, asParts(&result));
        return result;
    } else {
        return a * b;
    }
}
template <class T>
T negative(T a) {
    if constexpr (isComplex<T>) {
        return {-a.re, -a.im};
    } else {
        return -a;
    }
}

} // namespace orbs
