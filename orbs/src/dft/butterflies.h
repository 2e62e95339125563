// The butterflies of the radices, forward, on numbers and on vectors of any width. The order of the additions here is
// what fixes the bits of every mixed-radix and direct transform. An inverse transform is a forward one with real and
// imaginary parts exchanged before and behind it, which changes no bit of any sum.
#pragma once

#include "dft/radices.h"
#include "dft/twiddles.h"
#include "fft/arithmetic.h"
#include "foundation/sines.h"

#include <array>
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
    alignas(64) T parts[maxRadix / 2 * 4 * lanes]; // of each pair its sum and its difference
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

// ---- Odd radices taken apart ----
//
// A radix p takes the elements j and p - j together: with their sums and differences, and k = 1 to (p - 1) / 2,
//
//     a[k] = x0 + sum over j of cos(2 pi j k / p) sums[j],    b[k] = sum over j of -sin(2 pi j k / p) differences[j],
//
// X[k] is a[k] + i b[k] and X[p - k] is a[k] - i b[k]; the inverse exchanges them. Real transforms run on these sums.

// cos(2 pi j / p) for j below p, and then -sin: what mirrors each other has the same bits.
template <class T, int p>
inline constexpr auto rootsOf = [] {
    constexpr long double step = 6.28318530717958647692528676655900577L / p;
    std::array<T, 2 * p> roots{};
    roots[0] = 1;
    for (int j = 1; j <= p / 2; ++j) {
        roots[j] = roots[p - j] = static_cast<T>(constantCosine(j * step));
        roots[2 * p - j] = static_cast<T>(constantSine(j * step));
        roots[p + j] = -roots[2 * p - j];
    }
    return roots;
}();

// x times a number, x being a vector or a complex one.
template <class V, class T>
HWY_INLINE V times(V x, T factor) {
    return x * hn::Set(hn::DFromV<V>(), factor);
}
template <class V, class T>
HWY_INLINE Cx<V> times(Cx<V> x, T factor) {
    return x * hn::Set(hn::DFromV<V>(), factor);
}

// A radix that the code knows, so that all of a butterfly stays in registers.
template <class T, int p>
struct FixedRadix {
    static constexpr int size = p, half = (p - 1) / 2, mostHalf = half;

    // body(j) for j = 1 to half
    template <class Body>
    HWY_INLINE static void forEach(Body body) {
        repeat<half>([&](int n) __attribute__((always_inline)) { body(n + 1); });
    }
    // out(k, a[k], b[k]) for k = 1 to half; the arrays are read from 1 on
    template <class X, class Out>
    HWY_INLINE static void sums(X x0, const X* sums, const X* differences, Out out) {
        forEach([&](int k) __attribute__((always_inline)) {
            X a = x0 + times(sums[1], rootsOf<T, p>[k]), b = times(differences[1], rootsOf<T, p>[p + k]);
            repeat<half - 1>([&](int n) __attribute__((always_inline)) {
                const int j = n + 2, at = j * k % p;
                a = a + times(sums[j], rootsOf<T, p>[at]);
                b = b + times(differences[j], rootsOf<T, p>[p + at]);
            });
            out(k, a, b);
        });
    }
};

// Any other, with the matrix of twiddles.h, which is its own mirror image: row k holds what k needs.
template <class T>
struct AnyRadix {
    static constexpr int mostHalf = (maxRadix - 1) / 2;
    int size, half;
    const T* matrix;

    AnyRadix(int p, const T* its) : size(p), half((p - 1) / 2), matrix(its) {}
    template <class Body>
    HWY_INLINE void forEach(Body body) const {
        for (int j = 1; j <= half; ++j) body(j);
    }
    template <class X, class Out>
    HWY_INLINE void sums(X x0, const X* sums, const X* differences, Out out) const {
        const std::size_t run = matrixRun<T>(static_cast<std::size_t>(size));
        const T* row = matrix;
        for (int k = 1; k <= half; ++k, row += 2 * run) {
            X a = x0 + times(sums[1], row[0]), b = times(differences[1], row[run]);
            for (int j = 2; j <= half; ++j) {
                a = a + times(sums[j], row[j - 1]);
                b = b + times(differences[j], row[run + static_cast<std::size_t>(j) - 1]);
            }
            out(k, a, b);
        }
    }
};

// Butterflies: `in(j)` gives the elements; what comes out goes to `out` with its number. ----

// Real elements to the lower half of their spectrum: first(X[0]), out(k, X[k]).
template <class Radix, class In, class First, class Out>
HWY_INLINE void realForward(const Radix& radix, In in, First first, Out out) {
    using V = decltype(in(0));
    V sums[Radix::mostHalf + 1], differences[Radix::mostHalf + 1];
    const V x0 = in(0);
    V total = x0;
    radix.forEach([&](int j) __attribute__((always_inline)) {
        const V low = in(j), high = in(radix.size - j);
        sums[j] = low + high;
        differences[j] = low - high;
        total = total + sums[j];
    });
    first(total);
    radix.sums(
        x0, sums, differences, [&](int k, V a, V b) __attribute__((always_inline)) {
            out(k, Cx<V>{a, b});
        });
}
// And back: out(j, x[j]) from the real X[0] = first and X[k] = in(k).
template <class Radix, class V, class In, class Out>
HWY_INLINE void realInverse(const Radix& radix, V first, In in, Out out) {
    V sums[Radix::mostHalf + 1], differences[Radix::mostHalf + 1];
    V total = first;
    radix.forEach([&](int k) __attribute__((always_inline)) {
        const Cx<V> x = in(k);
        sums[k] = x.re + x.re;
        differences[k] = x.im + x.im; // -2 im sin: the sign of the sines is that of the inverse
        total = total + sums[k];
    });
    out(0, total);
    radix.sums(
        first, sums, differences, [&](int j, V a, V b) __attribute__((always_inline)) {
            out(j, a + b);
            out(radix.size - j, a - b);
        });
}

// Complex elements, low(k) being element k and high(k) element p - k of what `in` gives.
template <bool Inverse, class Radix, class In, class First, class Low, class High>
HWY_INLINE void complexButterfly(const Radix& radix, In in, First first, Low low, High high) {
    using X = decltype(in(0));
    X sums[Radix::mostHalf + 1], differences[Radix::mostHalf + 1];
    const X x0 = in(0);
    X total = x0;
    radix.forEach([&](int j) __attribute__((always_inline)) {
        const X a = in(j), b = in(radix.size - j);
        sums[j] = a + b;
        differences[j] = a - b;
        total = total + sums[j];
    });
    first(total);
    radix.sums(
        x0, sums, differences, [&](int k, X a, X b) __attribute__((always_inline)) {
            low(k, addTurned<!Inverse>(a, b));
            high(k, subTurned<!Inverse>(a, b));
        });
}

// Calls body with the radix, known to the code or not.
template <class T, class Body>
HWY_INLINE void withOddRadix(int radix, const T* matrix, Body body) {
    switch (radix) {
    case 3:
        return body(FixedRadix<T, 3>());
    case 5:
        return body(FixedRadix<T, 5>());
    case 7:
        return body(FixedRadix<T, 7>());
    default:
        return body(AnyRadix<T>(radix, matrix));
    }
}

} // namespace orbs::dft
