// The butterflies of odd radices, on vectors of any width. A radix p takes the elements j and p - j together: with
// their sums and differences, and k = 1 to (p - 1) / 2,
//
//     a[k] = x0 + sum over j of cos(2 pi j k / p) sums[j],    b[k] = sum over j of -sin(2 pi j k / p) differences[j],
//
// X[k] is a[k] + i b[k] and X[p - k] is a[k] - i b[k]; the inverse exchanges them. The order of the sums, j ascending,
// is what fixes the bits.
#pragma once

#include "dft/radices.h"
#include "dft/twiddles.h"
#include "fft/arithmetic.h"

#include <array>
#include <cstddef>

namespace orbs::dft {

// cos(2 pi j / p) for j below p, and then -sin: what mirrors each other has the same bits.
template <class T, int p>
inline constexpr auto rootsOf = [] {
    constexpr long double step = 6.28318530717958647692528676655900577L / p;
    std::array<T, 2 * p> roots{};
    roots[0] = 1;
    for (int j = 1; j <= p / 2; ++j) {
        roots[j] = roots[p - j] = static_cast<T>(static_cast<double>(__builtin_cosl(j * step)));
        roots[2 * p - j] = static_cast<T>(static_cast<double>(__builtin_sinl(j * step)));
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
HWY_INLINE fft::Cx<V> times(fft::Cx<V> x, T factor) {
    return x * hn::Set(hn::DFromV<V>(), factor);
}

// A radix that the code knows, so that all of a butterfly stays in registers.
template <class T, int p>
struct FixedRadix {
    static constexpr int size = p, half = (p - 1) / 2, mostHalf = half;

    // body(j) for j = 1 to half
    template <class Body>
    HWY_INLINE static void forEach(Body body) {
        fft::repeat<half>([&](int n) __attribute__((always_inline)) { body(n + 1); });
    }
    // out(k, a[k], b[k]) for k = 1 to half; the arrays are read from 1 on
    template <class X, class Out>
    HWY_INLINE static void sums(X x0, const X* sums, const X* differences, Out out) {
        forEach([&](int k) __attribute__((always_inline)) {
            X a = x0 + times(sums[1], rootsOf<T, p>[k]), b = times(differences[1], rootsOf<T, p>[p + k]);
            fft::repeat<half - 1>([&](int n) __attribute__((always_inline)) {
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

// ---- Butterflies. `in(j)` gives the elements; what comes out goes to `out` with its number. ----

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
            out(k, fft::Cx<V>{a, b});
        });
}
// And back: out(j, x[j]) from the real X[0] = first and X[k] = in(k).
template <class Radix, class V, class In, class Out>
HWY_INLINE void realInverse(const Radix& radix, V first, In in, Out out) {
    V sums[Radix::mostHalf + 1], differences[Radix::mostHalf + 1];
    V total = first;
    radix.forEach([&](int k) __attribute__((always_inline)) {
        const fft::Cx<V> x = in(k);
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
            low(k, fft::addTurned<!Inverse>(a, b));
            high(k, fft::subTurned<!Inverse>(a, b));
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
