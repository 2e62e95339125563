// Where the members of this room take complex elements from: one interleaved vector, or a vector of each part.
#pragma once

#include "foundation/threads.h"
#include "vectors/complex.h"
#include "vectors/elementwise.h"
#include "vectors/planes.h"

#include <array>

namespace orbs {

// ---- Sources ----
//
//   load(d, n)        the parts of elements n and on, in the floating-point lanes of d
//   inOrder(d, v)     what was computed from loaded lanes, in the order of the elements
//   squares(d, n)     re^2 + im^2 of 16-bit parts in 32-bit lanes: exact, with 2^31 as the least integer
//   from(n)           the source behind n elements
//   padded(n, count)  `count` elements from n on, and copies of the last one: a whole vector of them

template <class C>
struct Interleaved {
    using Element = C;
    using Part = RealOf<C>;
    const C* p;

    bool isNull() const { return anyNull(p); }
    Interleaved from(std::size_t n) const { return {p + n}; }

    template <class D>
    HWY_INLINE auto load(D d, std::size_t n) const {
        if constexpr (std::is_same_v<Part, hn::TFromD<D>>) {
            const Part* const parts = asReal(p + n);
            return partsInBlocks(d, hn::LoadU(d, parts), hn::LoadU(d, parts + hn::MaxLanes(d)));
        } else if constexpr (std::is_same_v<Part, Orb16s>) {
            return loadFloats(d, p + n);
        } else {
            const hn::Rebind<Orb32s, D> whole;
            hn::VFromD<decltype(whole)> re, im;
            hn::LoadInterleaved2(whole, asReal(p + n), re, im);
            return Planes{hn::PromoteTo(d, re), hn::PromoteTo(d, im)};
        }
    }
    template <class D, class V>
    HWY_INLINE V inOrder(D d, V v) const {
        if constexpr (std::is_same_v<Part, hn::TFromD<D>>) {
            return outOfBlocks(d, v);
        } else {
            return v;
        }
    }
    template <class D>
    HWY_INLINE auto squares(D, std::size_t n) const {
        const auto parts = hn::LoadU(hn::Repartition<Orb16s, D>(), asReal(p + n));
        return sumOfProducts(parts, parts);
    }

    template <std::size_t lanes>
    struct Padded {
        std::array<C, lanes> elements;
        Padded(Interleaved source, std::size_t n, std::size_t count) {
            for (std::size_t k = 0; k < lanes; ++k) {
                const C* const from = source.p + n + std::min(k, count - 1);
                elements[k] = {elementAt(asReal(from)), elementAt(asReal(from) + 1)};
            }
        }
        Interleaved source() const { return {elements.data()}; }
    };
};
template <class C>
Interleaved(const C*) -> Interleaved<C>;

template <class T>
struct InParts {
    using Element = T;
    using Part = T;
    const T *re, *im;

    bool isNull() const { return anyNull(re, im); }
    InParts from(std::size_t n) const { return {re + n, im + n}; }

    template <class D>
    HWY_INLINE auto load(D d, std::size_t n) const {
        if constexpr (std::is_same_v<T, hn::TFromD<D>>) {
            return Planes{hn::LoadU(d, re + n), hn::LoadU(d, im + n)};
        } else {
            return Planes{loadFloats(d, re + n), loadFloats(d, im + n)};
        }
    }
    template <class D, class V>
    HWY_INLINE V inOrder(D, V v) const {
        return v;
    }
    template <class D>
    HWY_INLINE auto squares(D, std::size_t n) const {
        const hn::RebindToUnsigned<D> bits;
        const hn::Rebind<Orb16u, D> narrow;
        const auto half = [=](const T* p) HWY_ATTR {
            return hn::PromoteTo(bits, hn::BitCast(narrow, hn::LoadU(hn::Rebind<T, D>(), p + n)));
        };
        const auto pairs = hn::BitCast(hn::Repartition<Orb16s, D>(), hn::Or(half(re), hn::ShiftLeft<16>(half(im))));
        return sumOfProducts(pairs, pairs);
    }

    template <std::size_t lanes>
    struct Padded {
        std::array<T, lanes> re, im;
        Padded(InParts source, std::size_t n, std::size_t count) {
            for (std::size_t k = 0; k < lanes; ++k) {
                re[k] = elementAt(source.re + n + std::min(k, count - 1));
                im[k] = elementAt(source.im + n + std::min(k, count - 1));
            }
        }
        InParts source() const { return {re.data(), im.data()}; }
    };
};
template <class T>
InParts(const T*, const T*) -> InParts<T>;

// 2^31 as the next lower integer, which has the same root and the same scaled values in 16 bits.
template <class V>
HWY_INLINE V folded(V squares) {
    return hn::Add(squares, hn::BroadcastSignBit(squares));
}

template <class Source, class... T>
OrbStatus checkPolar(int len, Source source, const T*... pDst) {
    if (source.isNull()) return orbStsNullPtrErr;
    return checkVectors(len, pDst...);
}

// dst[n] = f(d, parts of element n) on whole vectors, the last one filled up with copies.
template <std::size_t unroll, class R, class Source, class F>
HWY_INLINE void mapElements(std::size_t len, Source source, R* dst, F f) {
    const hn::ScalableTag<R> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto map = [=](Source from, std::size_t at) HWY_ATTR { return from.inOrder(d, f(d, from.load(d, at))); };
    std::size_t n = 0;
    for (; n + unroll * lanes <= len; n += unroll * lanes) {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < unroll * lanes; k += lanes) hn::StoreU(map(source, n + k), d, dst + n + k);
    }
    for (; n + lanes <= len; n += lanes) hn::StoreU(map(source, n), d, dst + n);
    if (n == len) return;
    const typename Source::template Padded<lanes> rest(source, n, len - n);
    storeFirst(d, map(rest.source(), 0), dst + n, len - n);
}

} // namespace orbs
