// The modified Bessel function I0 of x from 0 to 320, as what weights are made of.
#pragma once

#include "elementary/exp.h"
#include "vectors/loops.h"

#include <array>
#include <cstddef>

namespace orbs {

// Up to `end` I0(x) = 1 + y near(y) with y = x^2 / 4, and from there on I0(x) = exp(x) / sqrt(x) far(1 / x); both are
// minimax in the relative error of I0. exp is taken down to -`deepest` only.
template <class T>
struct Bessel;
template <>
struct Bessel<Orb32f> {
    using Exp = Exp32;
    static constexpr Orb32f end = 6, deepest = 87;
    static constexpr std::array near = {0x1.fffffep-1f,  0x1.000018p-2f,  0x1.c719f8p-6f,  0x1.c73b08p-10f,
                                        0x1.227ec6p-14f, 0x1.088880p-19f, 0x1.24ca30p-25f, 0x1.0605ecp-30f};
    static constexpr std::array far = {0x1.988452p-2f,   0x1.988d08p-5f, 0x1.c7984ep-6f, 0x1.1b2e1ap-5f,
                                       -0x1.a9761ap-10f, 0x1.624beep-3f, 0x1.ad3c9cp-1f};
};
template <>
struct Bessel<Orb64f> {
    using Exp = Exp64;
    static constexpr Orb64f end = 12, deepest = 700;
    static constexpr std::array near = {0x1.0000000000000p+0,  0x1.000000000000fp-2,  0x1.c71c71c71c45dp-6,
                                        0x1.c71c71c71fb21p-10, 0x1.234567898b59ep-14, 0x1.02e85c0a22a91p-19,
                                        0x1.522a43dd9eafcp-25, 0x1.522a450b49b5fp-31, 0x1.0b3129c451230p-37,
                                        0x1.5601f1b20cd99p-44, 0x1.69c6e6a95a614p-51, 0x1.41b0fdda55014p-58,
                                        0x1.e61fdea2bc680p-66, 0x1.42161904af7f9p-73, 0x1.5383f206715b8p-81,
                                        0x1.c45bd3ddfa179p-89, 0x1.40d0b544d6775p-99, 0x1.3411fa4c4ba4bp-104};
    static constexpr std::array far = {0x1.9884533d4366ep-2,   0x1.9884533d06e3dp-5,   0x1.cb94de74231e8p-6,
                                       0x1.deba4af55eb0ep-6,   0x1.6ec345913067cp-5,   0x1.66db172e72c25p-4,
                                       0x1.cb4abced398f6p-2,   -0x1.614ac82c59af1p+3,  0x1.cf18de152216cp+8,
                                       -0x1.a45a86bf906a4p+13, 0x1.1e4bc9595327cp+18,  -0x1.2060b93e0256bp+22,
                                       0x1.a6de47fe30268p+25,  -0x1.b4dc755685781p+28, 0x1.2c030baf1f5b6p+31,
                                       -0x1.e8e037329028fp+32, 0x1.637f4c297b1d4p+33};
};

// The sum of c[k] z^k: even and odd powers apart, so that one does not wait for the other.
template <class D, class V, class T, std::size_t count>
HWY_INLINE V polynomial(D d, V z, const std::array<T, count>& c) {
    constexpr std::size_t top = count - 1;
    const V z2 = z * z;
    V sums[2];
    sums[top % 2] = hn::Set(d, c[top]);
    sums[1 - top % 2] = hn::Set(d, c[top - 1]);
#pragma GCC unroll 32
    for (std::size_t k = 2; k < count; ++k) {
        V& sum = sums[(top - k) % 2];
        sum = sum * z2 + hn::Set(d, c[top - k]);
    }
    return sums[0] + z * sums[1];
}

template <class D, class V>
HWY_INLINE V besselNear(D d, V y) {
    return hn::Set(d, 1) + y * polynomial(d, y, Bessel<hn::TFromD<D>>::near);
}
// I0(x) exp(-x) from inverse = 1 / x.
template <class D, class V>
HWY_INLINE V besselFar(D d, V inverse) {
    return hn::Sqrt(inverse) * polynomial(d, inverse, Bessel<hn::TFromD<D>>::far);
}

} // namespace orbs
