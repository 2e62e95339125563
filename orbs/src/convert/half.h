// IEEE binary16 in 32-bit lanes.
#pragma once

#include "vectors/loops.h"

namespace orbs {

// The value of each half, given with its sign extended to 32 bits. No denormal is touched on the way, so the caller's
// treatment of them does not matter. Infinities and NaNs keep their mantissa.
template <class D, class V>
auto floatOfHalf(D df, V bits) {
    const hn::RebindToSigned<D> di;
    constexpr Orb32s rebias = (127 - 15) << 23;
    const auto magnitude = hn::And(bits, hn::Set(di, 0x7fff)), sign = hn::Xor(bits, magnitude);
    const auto notFinite = hn::Gt(magnitude, hn::Set(di, 0x7bff));
    const auto bias = hn::Add(hn::Set(di, rebias), hn::IfThenElseZero(notFinite, hn::Set(di, rebias)));
    const auto normal = hn::BitCast(df, hn::Add(hn::ShiftLeft<13>(magnitude), bias));
    const auto denormal = hn::Mul(hn::ConvertTo(df, magnitude), hn::Set(df, 0x1p-24f));
    const auto isDenormal = hn::RebindMask(df, hn::Lt(magnitude, hn::Set(di, 0x400)));
    return hn::Or(hn::IfThenElse(isDenormal, denormal, normal), hn::BitCast(df, hn::ShiftLeft<16>(sign)));
}

// The half next to each float, with ties to even, as 16 bits with their sign extended to 32. The product rounds by the
// thread's mode, and before the tie is looked for.
template <bool toNearest, class D, class V>
auto halfOfFloat(D df, V v) {
    const hn::RebindToSigned<D> di;
    const hn::RebindToUnsigned<D> du;
    // The limit comes first: of a NaN, the smaller is the NaN.
    const auto limited = hn::Min(hn::Set(df, 65536.0f), hn::Abs(v));
    const auto scaled = hn::BitCast(du, hn::Mul(limited, hn::Set(df, 0x1p-112f)));
    const auto sign = hn::ShiftLeft<15>(hn::BroadcastSignBit(hn::BitCast(di, v)));
    if constexpr (toNearest) {
        const auto odd = hn::And(hn::ShiftRight<13>(scaled), hn::Set(du, 1));
        const auto half = hn::ShiftRight<13>(hn::Add(hn::Add(scaled, hn::Set(du, 0xfff)), odd));
        return hn::Or(hn::Min(hn::BitCast(di, half), hn::Set(di, 0x7fff)), sign); // a NaN becomes 0x7fff
    } else {
        const auto half = hn::And(hn::ShiftRight<13>(scaled), hn::Set(du, 0x7fff));
        return hn::Or(hn::BitCast(di, half), sign);
    }
}

} // namespace orbs
