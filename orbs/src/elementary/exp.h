// The exponentials of floats: e^x = 2^(n/N) * e^r, where n is the integer nearest to x * N / ln 2. N is 1 in single
// precision and 64 in double precision.
#pragma once

#include "elementary/quad.h"
#include "vectors/lookup.h"

#include <array>
#include <type_traits>

namespace orbs {

// e^x without its power of two, 2^((n mod N)/N) * e^r, and n in the low bits of x * N / ln 2 + shifter: a sum with the
// shifter is rounded to an integer.
template <class V, class VI>
struct Parts {
    V y;
    VI shifted;
};

// y * 2^n with one rounding, into the subnormal numbers, to 0 and to infinity: n up to twice the exponent range.
template <class D, class V, class VI>
HWY_INLINE V scaledByPowerOfTwo(D d, V y, VI n) {
    const hn::RebindToSigned<D> di;
    using T = hn::TFromD<D>;
    const auto power = [=](VI k) HWY_ATTR {
        return hn::BitCast(d, hn::ShiftLeft<hwy::MantissaBits<T>()>(k + hn::Set(di, hwy::MaxExponentField<T>() / 2)));
    };
    const VI half = hn::ShiftRight<1>(n);
    return y * power(half) * power(n - half);
}

// ---- Single precision ----

struct Exp32 {
    static constexpr Orb32f shifter = 0x1.8p23f;

    template <class D, class V>
    static HWY_INLINE auto parts(D d, V x) {
        const V shifted = x * hn::Set(d, 0x1.715476p0f) + hn::Set(d, shifter);
        const V n = shifted - hn::Set(d, shifter);
        const V r = x - n * hn::Set(d, 0x1.62e4p-1f) - n * hn::Set(d, 0x1.7f7d1cp-20f); // ln 2, the first part short
        const V r2 = r * r;
        const V high = (hn::Set(d, 0x1.555a26p-5f) + r * hn::Set(d, 0x1.12397cp-7f)) + r2 * hn::Set(d, 0x1.694c84p-10f);
        const V series = (hn::Set(d, 0x1.fffffap-2f) + r * hn::Set(d, 0x1.555492p-3f)) + r2 * high;
        const auto bits = hn::BitCast(hn::RebindToSigned<D>(), shifted);
        return Parts<V, decltype(bits)>{hn::Set(d, 1.0f) + (r + r2 * series), bits};
    }

    // Beyond 87, where results leave the normal numbers, and NaN.
    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        const hn::RebindToSigned<D> di;
        return hn::RebindMask(d, hn::Gt(hn::BitCast(di, hn::Abs(x)), hn::BitCast(di, hn::Set(d, 87.0f))));
    }
    template <class D, class V>
    HWY_INLINE V usual(D d, V x) const {
        const auto [y, shifted] = parts(d, x);
        return hn::BitCast(d, hn::BitCast(hn::RebindToSigned<D>(), y) + hn::ShiftLeft<23>(shifted));
    }
    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto [y, shifted] = parts(d, hn::Min(hn::Max(x, hn::Set(d, -104.0f)), hn::Set(d, 89.0f)));
        const V scaled = scaledByPowerOfTwo(d, y, shifted - hn::BitCast(di, hn::Set(d, shifter)));
        return hn::IfThenElse(hn::IsNaN(x), hn::BitCast(d, hn::Set(di, 0x7fc00000)), scaled);
    }
};

// ---- Double precision ----

constexpr int expRowBits = 6;
inline constexpr auto expRows = [] { // 2^(j / 64)
    std::array<Orb64f, 2 << expRowBits> rows{};
    for (std::size_t j = 0; j < rows.size() / 2; ++j) {
        const HighLow power(quadExp(quadLn2 * static_cast<int>(j) / (1 << expRowBits)));
        rows[2 * j] = power.high;
        rows[2 * j + 1] = power.low;
    }
    return rows;
}();
// ln 2 / 64 in two parts, the first one short enough for exact products with n.
constexpr Quad expStep = quadLn2 / (1 << expRowBits);
constexpr auto expStepHigh = static_cast<Orb64f>(static_cast<Orb64s>(expStep * 0x1p42)) * 0x1p-42;
constexpr auto expStepLow = static_cast<Orb64f>(expStep - expStepHigh);

struct Exp64 {
    static constexpr Orb64f shifter = 0x1.8p52;

    // Members differ in what they read.
    template <class D, class V>
    static HWY_INLINE hn::Vec<D> toDouble(D d, V x) {
        if constexpr (std::is_same_v<V, hn::Vec<D>>) {
            return x;
        } else {
            return hn::PromoteTo(d, x);
        }
    }

    template <class D, class V>
    static HWY_INLINE auto parts(D d, V x) {
        const hn::RebindToSigned<D> di;
        const V shifted = x * hn::Set(d, static_cast<Orb64f>(1 / expStep)) + hn::Set(d, shifter);
        const V n = shifted - hn::Set(d, shifter);
        const V r = x - n * hn::Set(d, expStepHigh) - n * hn::Set(d, expStepLow);
        const V r2 = r * r;
        const V low = hn::Set(d, 0x1.fffffffffdbd9p-2) + r * hn::Set(d, 0x1.5555555557677p-3);
        const V high = hn::Set(d, 0x1.555573c314948p-5) + r * hn::Set(d, 0x1.111108f311a75p-7);
        const V series = r + r2 * (low + r2 * high);
        const auto bits = hn::BitCast(di, shifted);
        const Rows<D, 2> rows(hn::And(bits, hn::Set(di, (1 << expRowBits) - 1)));
        const auto [power, rest] = rows.columns(expRows.data());
        return Parts<V, decltype(bits)>{power + (rest + power * series), bits};
    }

    // From 708 on, where results leave the normal numbers, and NaN; by the high words, whose signs are those of the
    // lanes.
    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        const hn::Repartition<Orb32s, D> words;
        const auto odd = hn::Gt(hn::BitCast(words, hn::Abs(toDouble(d, x))), hn::Set(words, 0x40861fff));
        return hn::MaskFromVec(hn::BitCast(d, hn::VecFromMask(words, odd)));
    }
    template <class D, class V>
    HWY_INLINE hn::Vec<D> usual(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto [y, shifted] = parts(d, toDouble(d, x));
        const auto exponent = hn::ShiftLeft<52 - expRowBits>(hn::And(shifted, hn::Set(di, -(1 << expRowBits))));
        return hn::BitCast(d, hn::BitCast(di, y) + exponent);
    }
    template <class D, class V>
    HWY_INLINE hn::Vec<D> result(D d, V arg) const {
        const hn::RebindToSigned<D> di;
        const auto x = toDouble(d, arg);
        const auto [y, shifted] = parts(d, hn::Min(hn::Max(x, hn::Set(d, -746.0)), hn::Set(d, 710.0)));
        const auto n = hn::ShiftRight<expRowBits>(shifted - hn::BitCast(di, hn::Set(d, shifter)));
        return hn::IfThenElse(hn::IsNaN(x), x + x, scaledByPowerOfTwo(d, y, n));
    }
};

} // namespace orbs
