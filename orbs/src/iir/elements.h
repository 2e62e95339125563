// Sums and products of elements, real and complex alike. Every real product and every sum is rounded.
#pragma once

#include "filters/taps.h"

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
    if constexpr (isComplex<T>) {
        return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
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
// Part by part in another type.
template <class To, class T>
To cast(T a) {
    if constexpr (isComplex<T>) {
        return {static_cast<Part<To>>(a.re), static_cast<Part<To>>(a.im)};
    } else {
        return static_cast<To>(a);
    }
}

} // namespace orbs
