// Complex arithmetic and the butterflies of the power-of-two transforms, on scalars and on vectors of any width. The
// order of the additions here is what fixes the bits of every transform.
#pragma once

#include "fft/additions.h"
#include "fft/columns.h"
#include "vectors/loops.h"

#include <array>
#include <type_traits>
#include <utility>

namespace orbs::fft {

// body(0), body(1), ... body(count - 1), written out before the optimiser looks for registers: arrays of vectors that
// are indexed in ordinary loops stay in memory.
template <int count, class Body>
HWY_INLINE void repeat(Body body) {
    [&]<int... n>(std::integer_sequence<int, n...>) __attribute__((always_inline)) {
        (body(n), ...);
    }
    (std::make_integer_sequence<int, count>());
}

// Real and imaginary parts apart: two numbers, or two vectors of them.
template <class V>
struct Cx {
    V re, im;

    HWY_INLINE Cx operator+(Cx b) const { return {re + b.re, im + b.im}; }
    HWY_INLINE Cx operator-(Cx b) const { return {re - b.re, im - b.im}; }
    HWY_INLINE Cx operator*(V s) const { return {re * s, im * s}; }
};

// Real and imaginary parts alternating in one vector.
template <class D>
struct Packed {
    using V = hn::Vec<D>;
    V v;

    HWY_INLINE Packed operator+(Packed b) const { return {v + b.v}; }
    HWY_INLINE Packed operator-(Packed b) const { return {v - b.v}; }
    HWY_INLINE Packed operator*(V s) const { return {v * s}; }
};
template <class D>
constexpr int packedLanes = hn::MaxLanes(D()) / 2;

// v with the sign of the odd (imaginary) lanes turned.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V negateOdd(D d, V v) {
    return hn::Xor(v, hn::OddEven(hn::SignBit(d), hn::Zero(d)));
}
// Real parts subtracted and imaginary parts added, and the other way about.
template <class D>
HWY_INLINE Packed<D> subEvenAddOdd(Packed<D> a, Packed<D> b) {
    return {subEvenAddOdd(a.v, b.v)};
}
template <class D>
HWY_INLINE Packed<D> addEvenSubOdd(Packed<D> a, Packed<D> b) {
    return {addEvenSubOdd(a.v, b.v)};
}

// a plus x turned by the direction of the transform: times -i forward, times i inverse.
template <bool Inverse, class V>
HWY_INLINE Cx<V> addTurned(Cx<V> a, Cx<V> x) {
    if constexpr (Inverse) return {a.re - x.im, a.im + x.re};
    return {a.re + x.im, a.im - x.re};
}
template <bool Inverse, class D>
HWY_INLINE Packed<D> addTurned(Packed<D> a, Packed<D> x) {
    const Packed<D> exchanged{hn::Reverse2(D(), x.v)};
    if constexpr (Inverse) return subEvenAddOdd(a, exchanged);
    return addEvenSubOdd(a, exchanged);
}
template <bool Inverse, class X>
HWY_INLINE X subTurned(X a, X x) {
    return addTurned<!Inverse>(a, x);
}

// x times the forward twiddle w, or times its conjugate in the inverse.
template <bool Inverse, class V>
HWY_INLINE Cx<V> twiddled(Cx<V> x, Cx<V> w) {
    if constexpr (Inverse) return {w.re * x.re + w.im * x.im, w.re * x.im - w.im * x.re};
    return {w.re * x.re - w.im * x.im, w.re * x.im + w.im * x.re};
}
// One twiddle for all lanes of packed vectors: a group of the real part, and one of the imaginary part with the sign of
// the even lanes turned (of the odd ones for the inverse), which turns the sign of the product there.
template <class T>
struct alignas(groupBytes) PackedTwiddle {
    T re[columnGroup<T>], im[columnGroup<T>];
};
template <class D, class T = hn::TFromD<D>>
HWY_INLINE Packed<D> twiddled(Packed<D> x, const PackedTwiddle<T>& w) {
    const D d;
    return {x.v * hn::Load(d, w.re) + hn::Reverse2(d, x.v) * hn::Load(d, w.im)};
}

// The part of the sums and differences that may go to the ports of the multipliers: with packed vectors it does, as the
// first pass waits for its adders; passes with twiddles wait for their loads and stores, and gain nothing.
template <class X>
HWY_INLINE X addBeside(X a, X b) {
    return a + b;
}
template <class X>
HWY_INLINE X subBeside(X a, X b) {
    return a - b;
}
template <class D>
HWY_INLINE Packed<D> addBeside(Packed<D> a, Packed<D> b) {
    return {addOnMultiplier(a.v, b.v)};
}
template <class D>
HWY_INLINE Packed<D> subBeside(Packed<D> a, Packed<D> b) {
    return {subOnMultiplier(a.v, b.v)};
}

// What happens to the sums and differences of the first layer, or to the results of the last.
struct AsIs {
    template <class X>
    HWY_INLINE X operator()(X x) const {
        return x;
    }
};
template <class T>
struct Times {
    T scale;
    HWY_INLINE Cx<T> operator()(Cx<T> x) const { return x * scale; }
    template <class V>
    HWY_INLINE Cx<V> operator()(Cx<V> x) const {
        return x * hn::Set(hn::DFromV<V>(), scale);
    }
    template <class D>
    HWY_INLINE Packed<D> operator()(Packed<D> x) const {
        return x * hn::Set(D(), scale);
    }
};

// Four points in place: elements at distance 2 first, then those at distance 1.
template <bool Inverse, class X, class First = AsIs>
HWY_INLINE void butterfly4(X& x0, X& x1, X& x2, X& x3, First first = {}) {
    const X s0 = first(x0 + x2), d0 = first(x0 - x2);
    const X s1 = first(addBeside(x1, x3)), d1 = first(subBeside(x1, x3));
    x0 = s0 + s1;
    x2 = s0 - s1;
    x1 = addTurned<Inverse>(d0, d1);
    x3 = subTurned<Inverse>(d0, d1);
}

// The second layer of eight points, decimated in time: what butterfly4 made of the even samples, in x[0], x[2], x[4]
// and x[6], and of the odd ones, becomes X0 to X7. `root` is the root of one half.
template <bool Inverse, class X, class V>
HWY_INLINE void joinEight(X (&x)[8], V root) {
    const X e0 = x[0], e1 = x[2], e2 = x[4], e3 = x[6];
    const X o0 = x[1], o1 = x[3], o2 = x[5], o3 = x[7];
    const X turned1 = addTurned<Inverse>(o1, o1) * root; // o1 turned by an eighth
    const X turned3 = subTurned<Inverse>(o3, o3) * root; // o3 turned by three eighths the other way about
    x[0] = e0 + o0;
    x[4] = e0 - o0;
    x[1] = e1 + turned1;
    x[5] = e1 - turned1;
    x[2] = addTurned<Inverse>(e2, o2);
    x[6] = subTurned<Inverse>(e2, o2);
    x[3] = e3 - turned3;
    x[7] = e3 + turned3;
}
template <class T>
constexpr T rootOfHalf = static_cast<T>(0.70710678118654752440);

// Keeps a loaded value in a register: left alone, the compiler loads an operand again at each of its uses, and the
// loads become what limits a pass.
template <class V>
HWY_INLINE Cx<V> inRegisters(Cx<V> x) {
    asm("" : "+x"(x.re.raw), "+x"(x.im.raw));
    return x;
}

// ---- Where complex vectors lie; `h` is the first lane of a part of a group of columns ----

// Real and imaginary parts alternating, as callers see them.
template <class T>
struct Interleaved {
    T* base;

    HWY_INLINE Interleaved from(std::size_t n) const { return {base + 2 * n}; }
    HWY_INLINE void prefetch(std::size_t n) const { __builtin_prefetch(base + 2 * n, 0, 2); }
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
    template <class D>
    HWY_INLINE Packed<D> loadPacked(D d, std::size_t n) const {
        return {hn::LoadU(d, base + 2 * n)};
    }
    template <class D>
    HWY_INLINE void storePacked(D d, std::size_t n, Packed<D> x) const {
        hn::StoreU(x.v, d, base + 2 * n);
    }
    template <class D>
    HWY_INLINE void storePart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        T* to = base + 2 * n + h;
        hn::StoreU(hn::InterleaveLower(d, x.re, x.im), d, to);
        hn::StoreU(hn::InterleaveUpper(d, x.re, x.im), d, to + columnGroup<T>);
    }
    template <class D>
    HWY_INLINE void streamPart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        T* to = base + 2 * n + h;
        hn::Stream(hn::InterleaveLower(d, x.re, x.im), d, to);
        hn::Stream(hn::InterleaveUpper(d, x.re, x.im), d, to + columnGroup<T>);
    }
};

// The numbers below count * step, those that lie `step` apart together: 0, step, 2 * step, ..., 1, 1 + step, ...
template <class Index, std::size_t count, std::size_t step>
inline constexpr auto strided = [] {
    std::array<Index, count * step> order{};
    for (std::size_t n = 0; n < count * step; ++n) order[n] = static_cast<Index>(n % count * step + n / count);
    return order;
}();

// A plane of real parts and a plane of imaginary parts.
template <class T>
struct Planes {
    T *re, *im;

    HWY_INLINE Planes from(std::size_t n) const { return {re + n, im + n}; }
    HWY_INLINE void prefetch(std::size_t n) const {
        __builtin_prefetch(re + n, 0, 2);
        __builtin_prefetch(im + n, 0, 2);
    }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t n) const {
        return {hn::LoadU(d, re + n), hn::LoadU(d, im + n)};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t n, Cx<hn::Vec<D>> x) const {
        hn::StoreU(x.re, d, re + n);
        hn::StoreU(x.im, d, im + n);
    }
    template <class D>
    HWY_INLINE Packed<D> loadPacked(D d, std::size_t n) const {
        const hn::Half<D> half;
        const auto r = hn::LoadU(half, re + n), i = hn::LoadU(half, im + n);
        if constexpr (hn::MaxLanes(d) * sizeof(T) == 16) {
            return {hn::InterleaveLower(d, hn::ZeroExtendVector(d, r), hn::ZeroExtendVector(d, i))};
        } else if constexpr (hn::MaxLanes(d) * sizeof(T) == 64) {
            using Index = hwy::MakeSigned<hn::TFromD<D>>;
            return {hn::TableLookupLanes(hn::Combine(d, i, r),
                                         hn::SetTableIndices(d, strided<Index, 2, hn::MaxLanes(D()) / 2>.data()))};
        } else {
            return {hn::Combine(d, hn::InterleaveUpper(half, r, i), hn::InterleaveLower(half, r, i))};
        }
    }
    template <class D>
    HWY_INLINE void storePacked(D d, std::size_t n, Packed<D> x) const {
        const hn::Half<D> half;
        hn::StoreU(hn::LowerHalf(half, hn::ConcatEven(d, x.v, x.v)), half, re + n);
        hn::StoreU(hn::LowerHalf(half, hn::ConcatOdd(d, x.v, x.v)), half, im + n);
    }
    template <class D>
    HWY_INLINE void storePart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        storePlanePart(d, re + n + h / 2, x.re);
        storePlanePart(d, im + n + h / 2, x.im);
    }

private:
    template <class D>
    HWY_INLINE static void storePlanePart(D d, T* to, hn::Vec<D> v) {
        const hn::Half<D> half;
        if constexpr (hn::MaxLanes(d) * sizeof(T) == 16) {
            hn::StoreU(hn::LowerHalf(half, v), half, to);
            hn::StoreU(hn::UpperHalf(half, v), half, to + columnGroup<T> / 2);
        } else { // the first halves of all blocks, then the second ones
            const hn::Repartition<Orb64f, D> quarters;
            const auto& order = strided<std::int64_t, hn::MaxLanes(D()) * sizeof(T) / 16, 2>;
            const auto natural =
                hn::TableLookupLanes(hn::BitCast(quarters, v), hn::SetTableIndices(quarters, order.data()));
            hn::StoreU(hn::BitCast(d, natural), d, to);
        }
    }
};

// What the passes work on, in the room of an interleaved vector: groups of real parts and of imaginary parts.
template <class T>
struct Grouped {
    T* base;

    HWY_INLINE Grouped from(std::size_t n) const { return {base + 2 * n}; }
    HWY_INLINE void prefetch(std::size_t n) const { __builtin_prefetch(base + 2 * n, 0, 2); }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> loadPart(D d, std::size_t n, std::size_t h) const {
        return {hn::LoadU(d, base + 2 * n + h), hn::LoadU(d, base + 2 * n + h + columnGroup<T>)};
    }
    template <class D>
    HWY_INLINE void storePart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        hn::StoreU(x.re, d, base + 2 * n + h);
        hn::StoreU(x.im, d, base + 2 * n + h + columnGroup<T>);
    }
    template <class D>
    HWY_INLINE void streamPart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        hn::Stream(x.re, d, base + 2 * n + h);
        hn::Stream(x.im, d, base + 2 * n + h + columnGroup<T>);
    }
};

// The same on two planes. In a tier where a group takes more than one vector, its parts keep to the places where the
// last pass puts their columns, so that this pass may go from a pair of planes to itself.
template <class T>
struct GroupedPlanes {
    T *re, *im;

    HWY_INLINE GroupedPlanes from(std::size_t n) const { return {re + n, im + n}; }
    HWY_INLINE void prefetch(std::size_t n) const {
        __builtin_prefetch(re + n, 0, 2);
        __builtin_prefetch(im + n, 0, 2);
    }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> loadPart(D d, std::size_t n, std::size_t h) const {
        return {loadPlanePart(d, re + n, h), loadPlanePart(d, im + n, h)};
    }
    template <class D>
    HWY_INLINE void storePart(D d, std::size_t n, std::size_t h, Cx<hn::Vec<D>> x) const {
        if constexpr (inHalves) {
            Planes<T>{re, im}.storePart(d, n, h, x);
        } else {
            Planes<T>{re, im}.store(d, n + h, x);
        }
    }

private:
    static constexpr bool inHalves = hn::MaxLanes(GroupTag<T>()) < columnGroup<T>;

    template <class D>
    HWY_INLINE static hn::Vec<D> loadPlanePart(D d, const T* from, std::size_t h) {
        if constexpr (inHalves) {
            const hn::Half<D> half;
            const T* low = from + h / 2;
            return hn::Combine(d, hn::LoadU(half, low + columnGroup<T> / 2), hn::LoadU(half, low));
        } else {
            return hn::LoadU(d, from + h);
        }
    }
};

// One part of a group from two packed vectors, the second of columns half a group further on.
template <class D, class V = hn::Vec<D>>
HWY_INLINE Cx<V> partOf(D d, Packed<D> a, Packed<D> b) {
    if constexpr (sizeof(hn::TFromD<D>) == 8) {
        return {hn::InterleaveLower(d, a.v, b.v), hn::InterleaveUpper(d, a.v, b.v)};
    } else if constexpr (hn::MaxLanes(d) == 4) {
        return {hn::ConcatEven(d, b.v, a.v), hn::ConcatOdd(d, b.v, a.v)};
    } else if constexpr (hn::MaxLanes(d) == 8) { // block by block, which spares an exchange of blocks
        return {V{_mm256_shuffle_ps(a.v.raw, b.v.raw, 0x88)}, V{_mm256_shuffle_ps(a.v.raw, b.v.raw, 0xdd)}};
    } else {
        return {V{_mm512_shuffle_ps(a.v.raw, b.v.raw, 0x88)}, V{_mm512_shuffle_ps(a.v.raw, b.v.raw, 0xdd)}};
    }
}

// ---- Transposition of a square of lanes ----

#if HWY_TARGET <= HWY_AVX3
// Four vectors of four blocks each, `step` apart.
template <class V>
HWY_INLINE void exchangeBlocks(V* v, int step) {
    const hn::DFromV<V> d;
    const hn::Repartition<Orb64f, decltype(d)> doubles;
    __m512d x[4];
    repeat<4>([&](int n) __attribute__((always_inline)) { x[n] = hn::BitCast(doubles, v[n * step]).raw; });
    const __m512d a = _mm512_shuffle_f64x2(x[0], x[1], 0x44), b = _mm512_shuffle_f64x2(x[0], x[1], 0xee);
    const __m512d c = _mm512_shuffle_f64x2(x[2], x[3], 0x44), e = _mm512_shuffle_f64x2(x[2], x[3], 0xee);
    x[0] = _mm512_shuffle_f64x2(a, c, 0x88);
    x[1] = _mm512_shuffle_f64x2(a, c, 0xdd);
    x[2] = _mm512_shuffle_f64x2(b, e, 0x88);
    x[3] = _mm512_shuffle_f64x2(b, e, 0xdd);
    repeat<4>([&](int n)
                  __attribute__((always_inline)) { v[n * step] = hn::BitCast(d, hn::Vec<decltype(doubles)>{x[n]}); });
}
#endif

// Squares of the lanes of a 16-byte block, side by side in long vectors, in as many vectors as the block has lanes.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void transposeBlocks(D d, V* r) {
    constexpr int perBlock = 16 / sizeof(hn::TFromD<D>);
    if constexpr (perBlock == 2) {
        const V a = r[0], b = r[1];
        r[0] = hn::InterleaveLower(d, a, b);
        r[1] = hn::InterleaveUpper(d, a, b);
    } else {
        const hn::RepartitionToWide<D> pairs;
        const auto a = hn::BitCast(pairs, hn::InterleaveLower(d, r[0], r[1]));
        const auto b = hn::BitCast(pairs, hn::InterleaveUpper(d, r[0], r[1]));
        const auto e = hn::BitCast(pairs, hn::InterleaveLower(d, r[2], r[3]));
        const auto f = hn::BitCast(pairs, hn::InterleaveUpper(d, r[2], r[3]));
        r[0] = hn::BitCast(d, hn::InterleaveLower(pairs, a, e));
        r[1] = hn::BitCast(d, hn::InterleaveUpper(pairs, a, e));
        r[2] = hn::BitCast(d, hn::InterleaveLower(pairs, b, f));
        r[3] = hn::BitCast(d, hn::InterleaveUpper(pairs, b, f));
    }
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE void transpose(D d, V* v) {
    constexpr int lanes = hn::MaxLanes(D());
    constexpr int perBlock = 16 / sizeof(hn::TFromD<D>);
    repeat<lanes / perBlock>([&](int n) __attribute__((always_inline)) { transposeBlocks(d, v + n * perBlock); });
    if constexpr (lanes == 4 * perBlock) {
        repeat<perBlock>([&](int r) __attribute__((always_inline)) { exchangeBlocks(v + r, perBlock); });
    } else if constexpr (lanes == 2 * perBlock) { // the blocks of a 256-bit vector
        repeat<perBlock>([&](int r) __attribute__((always_inline)) {
            const V low = v[r], high = v[r + perBlock];
            v[r] = hn::ConcatLowerLower(d, high, low);
            v[r + perBlock] = hn::ConcatUpperUpper(d, high, low);
        });
    }
}

// The same for complex elements.
template <class D>
HWY_INLINE void transpose(D d, Packed<D>* x) {
    if constexpr (sizeof(hn::TFromD<D>) == 4) {
        const hn::Repartition<Orb64f, D> pairs;
        hn::Vec<decltype(pairs)> v[packedLanes<D>];
        repeat<packedLanes<D>>([&](int r) __attribute__((always_inline)) { v[r] = hn::BitCast(pairs, x[r].v); });
        transpose(pairs, v);
        repeat<packedLanes<D>>([&](int r) __attribute__((always_inline)) { x[r].v = hn::BitCast(d, v[r]); });
    } else if constexpr (packedLanes<D> == 2) {
        const auto low = x[0].v, high = x[1].v;
        x[0].v = hn::ConcatLowerLower(d, high, low);
        x[1].v = hn::ConcatUpperUpper(d, high, low);
    } else if constexpr (packedLanes<D> == 4) {
        hn::Vec<D> v[4] = {x[0].v, x[1].v, x[2].v, x[3].v};
        exchangeBlocks(v, 1);
        repeat<4>([&](int r) __attribute__((always_inline)) { x[r].v = v[r]; });
    }
}

} // namespace orbs::fft
