// The butterflies of the radices, forward, on numbers and on vectors of any width. The order of the additions here is
// what fixes the bits of every mixed-radix and direct transform. An inverse transform is a forward one with real and
// imaginary parts exchanged before and behind it, which changes no bit of any sum.
#pragma once

#include "dft/radices.h"
#include "fft/arithmetic.h"

#include <type_traits>

namespace orbs::dft {

using fft::addTurned;
using fft::Cx;
using fft::repeat;
using fft::subTurned;

template <class V>
HWY_INLINE V constant(double value) {
    if constexpr (std::is_floating_point_v<V>) {
        return static_cast<V>(value);
    } else {
        const hn::DFromV<V> d;
        return hn::Set(d, static_cast<hn::TFromD<decltype(d)>>(value));
    }
}

template <int radix>
struct Butterfly;

template <>
struct Butterfly<2> {
    template <class V>
    HWY_INLINE static void apply(Cx<V> (&x)[2]) {
        const Cx<V> sum = x[0] + x[1], difference = x[0] - x[1];
        x[0] = sum, x[1] = difference;
    }
};

template <>
struct Butterfly<3> {
    template <class V>
    HWY_INLINE static void apply(Cx<V> (&x)[3]) {
        const Cx<V> sum = x[1] + x[2], difference = (x[1] - x[2]) * constant<V>(0.86602540378443864676);
        const Cx<V> middle = x[0] - sum * constant<V>(0.5);
        x[0] = x[0] + sum;
        x[1] = addTurned<false>(middle, difference);
        x[2] = subTurned<false>(middle, difference);
    }
};

template <>
struct Butterfly<4> {
    template <class V>
    HWY_INLINE static void apply(Cx<V> (&x)[4]) {
        fft::butterfly4<false>(x[0], x[1], x[2], x[3]);
    }
};

template <>
struct Butterfly<5> {
    template <class V>
    HWY_INLINE static void apply(Cx<V> (&x)[5]) {
        const V c1 = constant<V>(0.30901699437494742410), c2 = constant<V>(-0.80901699437494742410);
        const V s1 = constant<V>(0.95105651629515357212), s2 = constant<V>(0.58778525229247312917);
        const Cx<V> sum1 = x[1] + x[4], difference1 = x[1] - x[4];
        const Cx<V> sum2 = x[2] + x[3], difference2 = x[2] - x[3];
        const Cx<V> even1 = (x[0] + sum1 * c1) + sum2 * c2, odd1 = difference1 * s1 + difference2 * s2;
        const Cx<V> even2 = (x[0] + sum1 * c2) + sum2 * c1, odd2 = difference1 * s2 - difference2 * s1;
        x[0] = x[0] + (sum1 + sum2);
        x[1] = addTurned<false>(even1, odd1);
        x[4] = subTurned<false>(even1, odd1);
        x[2] = addTurned<false>(even2, odd2);
        x[3] = subTurned<false>(even2, odd2);
    }
};

// Any odd radix p, with its table (fillMatrix). Sums and differences of mirror elements first; then for each k, in
// increasing order of j, the real parts of the roots times the sums and the imaginary parts times the differences; X[k]
// and X[p-k] are sum and difference of the two. load(j) gives the elements, store(k, x) takes the results; all elements
// are loaded before the first result is stored.
template <class D, class Load, class Store, class T = hn::TFromD<D>>
HWY_INLINE void generalButterfly(D d, std::size_t p, const T* matrix, std::size_t run, Load load, Store store) {
    using V = hn::Vec<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D());
    alignas(32) T parts[maxRadix / 2 * 4 * lanes]; // of each pair its sum and its difference
    const std::size_t half = p / 2;
    const Cx<V> first = load(0);
    Cx<V> total = first;
    for (std::size_t j = 1; j <= half; ++j) {
        const Cx<V> a = load(j), b = load(p - j), sum = a + b, difference = a - b;
        T* to = parts + (j - 1) * 4 * lanes;
        hn::Store(sum.re, d, to);
        hn::Store(sum.im, d, to + lanes);
        hn::Store(difference.re, d, to + 2 * lanes);
        hn::Store(difference.im, d, to + 3 * lanes);
        total = total + sum;
    }
    store(0, total);
    const auto outputs = [&]<int count>(std::size_t k, std::integral_constant<int, count>) HWY_ATTR {
        Cx<V> even[count], odd[count];
        const T *from = parts, *roots = matrix + k - 1;
        const auto products = [&](bool begins) __attribute__((always_inline)) {
            const Cx<V> sum{hn::Load(d, from), hn::Load(d, from + lanes)};
            const Cx<V> difference{hn::Load(d, from + 2 * lanes), hn::Load(d, from + 3 * lanes)};
            repeat<count>([&](int i) __attribute__((always_inline)) {
                const Cx<V> real = sum * hn::Set(d, roots[i]), turned = difference * hn::Set(d, roots[run + i]);
                even[i] = (begins ? first : even[i]) + real;
                odd[i] = begins ? turned : odd[i] + turned;
            });
            from += 4 * lanes;
            roots += 2 * run;
        };
        products(true);
        for (std::size_t j = 2; j <= half; ++j) products(false);
        repeat<count>([&](int i) __attribute__((always_inline)) {
            store(k + i, subTurned<false>(even[i], odd[i]));
            store(p - k - i, addTurned<false>(even[i], odd[i]));
        });
    };
    std::size_t k = 1;
    for (; k + 1 <= half; k += 2) outputs(k, std::integral_constant<int, 2>());
    if (k <= half) outputs(k, std::integral_constant<int, 1>());
}

// Calls run with the radix as a constant, 0 standing for a general one.
template <class Run>
HWY_INLINE void withRadix(int radix, Run run) {
    switch (radix) {
    case 2:
        return run(std::integral_constant<int, 2>());
    case 3:
        return run(std::integral_constant<int, 3>());
    case 4:
        return run(std::integral_constant<int, 4>());
    case 5:
        return run(std::integral_constant<int, 5>());
    default:
        return run(std::integral_constant<int, 0>());
    }
}

} // namespace orbs::dft
