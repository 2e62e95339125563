// Products on vectors.
#pragma once

#include "vectors/complex.h"
#include "vectors/elementwise.h"

namespace orbs {

struct Product {
    template <class D, class V>
    static auto result([[maybe_unused]] D d, V a, V b) {
        using T = hn::TFromD<D>;
        if constexpr (std::is_floating_point_v<T>) {
            return hn::Mul(a, b);
        } else if constexpr (std::is_same_v<T, Orb8u>) {
            const auto r = exact(d, a, b);
            const auto highest = hn::Set(Wide<D>(), 255);
            return packed(d, hn::Min(r.lower, highest), hn::Min(r.upper, highest));
        } else if constexpr (std::is_same_v<T, Orb16u>) {
            const auto fits = hn::Eq(hn::MulHigh(a, b), hn::Zero(d));
            return hn::Or(hn::Mul(a, b), hn::Not(hn::VecFromMask(d, fits)));
        } else if constexpr (std::is_same_v<T, Orb16s>) {
            return saturated(d, exact(d, a, b));
        } else {
            return exact(d, a, b);
        }
    }
    // 16-bit operands in 32-bit lanes, or what is widened here.
    template <class D, class V>
    static auto exact([[maybe_unused]] D d, V a, V b) {
        using T = hn::TFromD<D>;
        if constexpr (std::is_same_v<T, Orb8u>) {
            const auto wideA = widened(d, a), wideB = widened(d, b);
            return Pair<hn::VFromD<Wide<D>>, false>{hn::Mul(wideA.lower, wideB.lower),
                                                    hn::Mul(wideA.upper, wideB.upper)};
        } else if constexpr (sizeof(T) == 2) {
            const V low = hn::Mul(a, b), high = hn::MulHigh(a, b);
            return Pair<hn::VFromD<Wide<D>>>{hn::BitCast(Wide<D>(), hn::InterleaveLower(d, low, high)),
                                             hn::BitCast(Wide<D>(), hn::InterleaveUpper(d, low, high))};
        } else {
            return withRoom(hn::PromoteTo(d, a), hn::PromoteTo(d, b));
        }
    }
    template <class V>
    static V withRoom(V a, V b) {
        const hn::DFromV<V> d;
        if constexpr (sizeof(hn::TFromV<V>) == 2) {
            return hn::Mul(a, b);
        } else { // the low half of b's lanes is b, the high one is taken away
            const hn::RepartitionToNarrow<decltype(d)> narrow;
            const V low = hn::And(b, hn::Set(d, 0xffff));
            return sumOfProducts(hn::BitCast(narrow, a), hn::BitCast(narrow, low));
        }
    }
};

// Half the product, which is odd if anything was cut off: from a scale factor of 17 on, 32 bits have no room for what
// rounding adds to the product of two Orb16u.
template <class Op>
struct RoundedToOdd : Op {
    template <class D, class... V>
    static auto exact(D d, V... v) {
        auto r = Op::exact(d, v...);
        const auto one = hn::Set(Wide<D>(), 1);
        r.lower = hn::Or(hn::ShiftRight<1>(r.lower), hn::And(r.lower, one));
        r.upper = hn::Or(hn::ShiftRight<1>(r.upper), hn::And(r.upper, one));
        return r;
    }
};

// Orb16u by Orb16s.
struct MixedProduct {
    template <class D, class U, class V>
    static V result(D d, U a, V b) {
        return saturated(d, exact(d, a, b));
    }
    template <class D, class U, class V>
    static auto exact(D, U a, V b) {
        const hn::RebindToUnsigned<D> bits;
        const U low = hn::Mul(a, hn::BitCast(bits, b));
        const U negative = hn::And(a, hn::BitCast(bits, hn::BroadcastSignBit(b)));
        const U high = hn::Sub(hn::MulHigh(a, hn::BitCast(bits, b)), negative);
        return Pair<hn::VFromD<Wide<D>>, false>{hn::BitCast(Wide<D>(), hn::InterleaveLower(bits, low, high)),
                                                hn::BitCast(Wide<D>(), hn::InterleaveUpper(bits, low, high))};
    }
};

// Complex elements: (re1*re2 - im1*im2, re1*im2 + im1*re2).
struct ProductOfComplex {
    template <class D, class V>
    static V result(D d, V a, V b) {
        if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
            return ComplexProduct::of(d, a, b);
        } else {
            return saturated(d, exact(d, a, b));
        }
    }
    // Only the imaginary part can leave 32 bits, as 2^31: one less gives the same result at every scale.
    template <class D, class V>
    static auto exact(D d, V a, V b) {
        const auto r = wrapped(d, a, b);
        const Wide<D> wide;
        const auto fold = [=](auto v) HWY_ATTR {
            const auto over = hn::Eq(v, hn::Set(wide, std::numeric_limits<Orb32s>::min()));
            return hn::Add(v, hn::VecFromMask(wide, over));
        };
        return Pair<hn::VFromD<Wide<D>>, false>{fold(r.lower), fold(r.upper)};
    }
    // The same with 2^31 as -2^31. The negative of -32768 has no 16 bits: -im1 is ~im1 + 1.
    template <class D, class V>
    static auto wrapped(D d, V a, V b) {
        const Wide<D> wide;
        const V im = hn::OddEven(hn::Set(d, -1), hn::Zero(d));
        const auto re = hn::Add(sumOfProducts(hn::Xor(a, im), b), hn::ShiftRight<16>(hn::BitCast(wide, b)));
        const auto imag = sumOfProducts(a, hn::Reverse2(d, b));
        return Pair<hn::VFromD<Wide<D>>, false>{hn::InterleaveLower(wide, re, imag),
                                                hn::InterleaveUpper(wide, re, imag)};
    }
};

} // namespace orbs
