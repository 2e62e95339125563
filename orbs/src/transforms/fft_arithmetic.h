// Complex arithmetic and the butterflies of the power-of-two transforms, on scalars and on vectors of any width. The
// order of the additions here is what fixes the bits of every transform.
#pragma once

#include "foundation/vectors.h"

#include <type_traits>

namespace orbs::fft {

template <class V>
struct Cx {
    V re, im;

    HWY_INLINE Cx operator+(Cx b) const { return {re + b.re, im + b.im}; }
    HWY_INLINE Cx operator-(Cx b) const { return {re - b.re, im - b.im}; }
    HWY_INLINE Cx operator*(V s) const { return {re * s, im * s}; }
};

// x turned by the direction of the transform: times -i forward, times i inverse.
template <bool Inverse, class V>
HWY_INLINE Cx<V> addTurned(Cx<V> a, Cx<V> x) {
    if constexpr (Inverse) return {a.re - x.im, a.im + x.re};
    return {a.re + x.im, a.im - x.re};
}
template <bool Inverse, class V>
HWY_INLINE Cx<V> subTurned(Cx<V> a, Cx<V> x) {
    return addTurned<!Inverse>(a, x);
}

// x times the forward twiddle w, or times its conjugate in the inverse.
template <bool Inverse, class V>
HWY_INLINE Cx<V> twiddled(Cx<V> x, Cx<V> w) {
    if constexpr (Inverse) return {w.re * x.re + w.im * x.im, w.re * x.im - w.im * x.re};
    return {w.re * x.re - w.im * x.im, w.re * x.im + w.im * x.re};
}

// What happens to the sums and differences of the first layer, or to the results of the last.
struct AsIs {
    template <class V>
    HWY_INLINE Cx<V> operator()(Cx<V> x) const {
        return x;
    }
};
template <class V>
struct Times {
    V scale;
    HWY_INLINE Cx<V> operator()(Cx<V> x) const { return x * scale; }
};

// Four points in place: elements at distance 2 first, then those at distance 1.
template <bool Inverse, class V, class First = AsIs>
HWY_INLINE void butterfly4(Cx<V>& x0, Cx<V>& x1, Cx<V>& x2, Cx<V>& x3, First first = {}) {
    const Cx<V> s0 = first(x0 + x2), d0 = first(x0 - x2);
    const Cx<V> s1 = first(x1 + x3), d1 = first(x1 - x3);
    x0 = s0 + s1;
    x2 = s0 - s1;
    x1 = addTurned<Inverse>(d0, d1);
    x3 = subTurned<Inverse>(d0, d1);
}

template <class V>
HWY_INLINE V rootOfHalf() {
    if constexpr (std::is_arithmetic_v<V>) {
        return static_cast<V>(0.70710678118654752440);
    } else {
        return hn::Set(hn::DFromV<V>(), static_cast<hn::TFromV<V>>(0.70710678118654752440));
    }
}

// Eight points, decimated in time: x0 to x7 in natural order become X0 to X7.
template <bool Inverse, class V, class First = AsIs>
HWY_INLINE void butterfly8(Cx<V> (&x)[8], First first = {}) {
    const V root = rootOfHalf<V>();
    Cx<V> e0 = x[0], e1 = x[2], e2 = x[4], e3 = x[6];
    Cx<V> o0 = x[1], o1 = x[3], o2 = x[5], o3 = x[7];
    butterfly4<Inverse>(e0, e1, e2, e3, first);
    butterfly4<Inverse>(o0, o1, o2, o3, first);
    const V sum1 = (o1.re + o1.im) * root, difference1 = (o1.im - o1.re) * root;
    const V sum3 = (o3.re + o3.im) * root, difference3 = (o3.im - o3.re) * root;
    x[0] = e0 + o0;
    x[4] = e0 - o0;
    x[2] = addTurned<Inverse>(e2, o2);
    x[6] = subTurned<Inverse>(e2, o2);
    if constexpr (Inverse) { // o1 times (1 + i) / sqrt 2, o3 times (-1 + i) / sqrt 2
        x[1] = {e1.re - difference1, e1.im + sum1};
        x[5] = {e1.re + difference1, e1.im - sum1};
        x[3] = {e3.re - sum3, e3.im - difference3};
        x[7] = {e3.re + sum3, e3.im + difference3};
    } else { // o1 times (1 - i) / sqrt 2, o3 times (-1 - i) / sqrt 2
        x[1] = {e1.re + sum1, e1.im + difference1};
        x[5] = {e1.re - sum1, e1.im - difference1};
        x[3] = {e3.re + difference3, e3.im - sum3};
        x[7] = {e3.re - difference3, e3.im + sum3};
    }
}

// ---- Where complex vectors lie ----

// Real and imaginary parts alternating, as callers see them.
template <class T>
struct Interleaved {
    T* base;

    HWY_INLINE Interleaved from(std::size_t n) const { return {base + 2 * n}; }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        Cx<hn::Vec<D>> x;
        hn::LoadInterleaved2(d, base + 2 * n, x.re, x.im);
        return x;
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        hn::StoreInterleaved2(x.re, x.im, d, base + 2 * n);
    }
};

// A plane of real parts and a plane of imaginary parts.
template <class T>
struct Planes {
    T *re, *im;

    HWY_INLINE Planes from(std::size_t n) const { return {re + n, im + n}; }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        return {hn::LoadU(d, re + n), hn::LoadU(d, im + n)};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        hn::StoreU(x.re, d, re + n);
        hn::StoreU(x.im, d, im + n);
    }
};

// Groups of one vector of real and one of imaginary parts: what the passes work on, in the room of an interleaved
// vector. Positions are multiples of the group.
template <class T>
struct Grouped {
    T* base;

    HWY_INLINE Grouped from(std::size_t n) const { return {base + 2 * n}; }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        return {hn::LoadU(d, base + 2 * n), hn::LoadU(d, base + 2 * n + hn::MaxLanes(d))};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        hn::StoreU(x.re, d, base + 2 * n);
        hn::StoreU(x.im, d, base + 2 * n + hn::MaxLanes(d));
    }
};

// ---- Transposition of a square of lanes ----

template <class D, class V = hn::Vec<D>>
HWY_INLINE void transpose(D d, V* v) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    constexpr std::size_t perBlock = 16 / sizeof(hn::TFromD<D>);
    if constexpr (perBlock == 2) {
        for (std::size_t r = 0; r < lanes; r += 2) {
            const V a = v[r], b = v[r + 1];
            v[r] = hn::InterleaveLower(d, a, b);
            v[r + 1] = hn::InterleaveUpper(d, a, b);
        }
    } else {
        const hn::RepartitionToWide<D> pairs;
        for (std::size_t r = 0; r < lanes; r += 4) {
            const auto a = hn::BitCast(pairs, hn::InterleaveLower(d, v[r], v[r + 1]));
            const auto b = hn::BitCast(pairs, hn::InterleaveUpper(d, v[r], v[r + 1]));
            const auto e = hn::BitCast(pairs, hn::InterleaveLower(d, v[r + 2], v[r + 3]));
            const auto f = hn::BitCast(pairs, hn::InterleaveUpper(d, v[r + 2], v[r + 3]));
            v[r] = hn::BitCast(d, hn::InterleaveLower(pairs, a, e));
            v[r + 1] = hn::BitCast(d, hn::InterleaveUpper(pairs, a, e));
            v[r + 2] = hn::BitCast(d, hn::InterleaveLower(pairs, b, f));
            v[r + 3] = hn::BitCast(d, hn::InterleaveUpper(pairs, b, f));
        }
    }
    if constexpr (lanes > perBlock) { // the blocks of a 256-bit vector
        for (std::size_t r = 0; r < perBlock; ++r) {
            const V low = v[r], high = v[r + perBlock];
            v[r] = hn::ConcatLowerLower(d, high, low);
            v[r + perBlock] = hn::ConcatUpperUpper(d, high, low);
        }
    }
}

} // namespace orbs::fft
