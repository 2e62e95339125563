// Real transforms of even length N by way of a complex transform of M = N / 2 points: fft/real.h for any M, odd ones
// included, and with a scale behind it.
#pragma once

#include "dft/real_odd.h"

namespace orbs::dft {

// body(d, k, mirror, first, second) for k = 1 to (M - 1) / 2: element k and those behind it, the mirror elements M - k
// and those before it, which start at `mirror`, and the two table values of each k.
template <class T, class Body>
HWY_INLINE void forEachMirrored(std::size_t m, const T* table, Body body) {
    forEachRun<T>((m - 1) / 2, [&](auto d, std::size_t k) __attribute__((always_inline)) {
        constexpr std::size_t group = columnGroup<T>;
        const T* values = table + (k - 1) / group * 2 * group + (k - 1) % group;
        body(d, k, m - k - hn::MaxLanes(d) + 1, hn::LoadU(d, values), hn::LoadU(d, values + group));
    });
}

// The spectrum of x[2n] + i x[2n+1] becomes that of x, in Perm layout, in place.
template <class T>
void recombineScaled(T* data, std::size_t m, const T* table, T scale) {
    const fft::Interleaved<T> z{data};
    const T re = data[0], im = data[1];
    forEachMirrored(m, table, [=](auto d, std::size_t k, std::size_t mirror, auto a, auto b) HWY_ATTR {
        const auto joined = fft::joinPair(z.load(d, k), fft::loadReversed(d, z, mirror), a, b);
        z.store(d, k, joined.low * hn::Set(d, scale));
        fft::storeReversed(d, z, mirror, joined.high * hn::Set(d, scale));
    });
    data[0] = (re + im) * scale;
    data[1] = (re - im) * scale;
    if (m % 2 == 0) {
        data[m] *= scale;
        data[m + 1] *= -scale;
    }
}

// The way back: from the pairs k = 1 to M - 1 at `from` and the real values R0 and RM to twice the spectrum of
// x[2n] + i x[2n+1]. `to` may be `from`.
template <class T>
void separate(const T* from, T r0, T rm, T* to, std::size_t m, const T* table) {
    const fft::Interleaved<const T> x{from};
    const fft::Interleaved<T> z{to};
    const T middleRe = m % 2 == 0 ? from[m] : T(0), middleIm = m % 2 == 0 ? from[m + 1] : T(0);
    forEachMirrored(m, table, [=](auto d, std::size_t k, std::size_t mirror, auto c, auto s) HWY_ATTR {
        const auto halves = fft::splitPair(x.load(d, k), fft::loadReversed(d, x, mirror), c, s);
        z.store(d, k, halves.low);
        fft::storeReversed(d, z, mirror, halves.high);
    });
    to[0] = r0 + rm;
    to[1] = r0 - rm;
    if (m % 2 == 0) {
        to[m] = 2 * middleRe;
        to[m + 1] = -2 * middleIm;
    }
}

} // namespace orbs::dft
