// Real transforms of N points by way of a complex transform of M = N / 2 points, and the formats of their spectra.
#pragma once

#include "fft/passes.h"
#include "fft/small.h"

namespace orbs::fft {

enum class Format { ccs, pack, perm };

// Calls pair(d, k, mirror, first, second) for k = 1 to M / 2, at least a group of them, in vectors: element k and those
// behind it, the mirror elements M - k and those before it (loaded from `mirror` on, in reverse), and the two table
// values of each k.
template <class T, class Pair>
HWY_INLINE void forEachPair(std::size_t m, const T* table, Pair pair) {
    const GroupTag<T> d;
    constexpr std::size_t lanes = hn::MaxLanes(d), group = columnGroup<T>;
    for (std::size_t k = 1; k <= m / 2; k += group, table += 2 * group)
        for (std::size_t h = 0; h < group; h += lanes)
            pair(d, k + h, m - k - h - lanes + 1, loadTable(d, table + h), loadTable(d, table + h + group));
}

template <class D, class T, class V = hn::Vec<D>>
HWY_INLINE Cx<V> loadReversed(D d, Interleaved<T> from, std::size_t n) {
    const Cx<V> x = from.load(d, n);
    return {hn::Reverse(d, x.re), hn::Reverse(d, x.im)};
}
template <class D, class T, class V = hn::Vec<D>>
HWY_INLINE void storeReversed(D d, Interleaved<T> to, std::size_t n, Cx<V> x) {
    to.store(d, n, Cx<V>{hn::Reverse(d, x.re), hn::Reverse(d, x.im)});
}

// The elements k and M - k: of the spectrum of x, from those of x[2n] + i x[2n+1] with the values 0.5 cos and
// 0.5 - 0.5 sin of 2 pi k / N, which save the separate halves of the textbook form; and back, doubled, with cos and
// -sin.
template <class V>
struct MirrorPair {
    Cx<V> low, high;
};
template <class V>
HWY_INLINE MirrorPair<V> joinPair(Cx<V> low, Cx<V> high, V a, V b) {
    const V dr = low.re - high.re, si = low.im + high.im;
    const V u = si * a + dr * b, v = si * b - dr * a;
    return {{high.re + u, v - high.im}, {low.re - u, v - low.im}};
}
template <class V>
HWY_INLINE MirrorPair<V> splitPair(Cx<V> low, Cx<V> high, V c, V s) {
    const V sr = low.re + high.re, dr = low.re - high.re, si = low.im + high.im, di = low.im - high.im;
    const V p = s * dr - c * si, t = s * si + c * dr;
    return {{sr + p, di + t}, {sr - p, t - di}};
}

// The spectrum Z of x[2n] + i x[2n+1] becomes that of x, in Perm layout, in place.
template <class T>
void recombineForward(T* data, std::size_t m, const T* table) {
    const Interleaved<T> z{data};
    const T re = data[0], im = data[1], middleRe = data[m], middleIm = data[m + 1];
    forEachPair(m, table, [=](auto d, std::size_t k, std::size_t mirror, auto a, auto b) HWY_ATTR {
        const auto low = z.load(d, k), high = loadReversed(d, z, mirror);
        const auto joined = joinPair(low, high, a, b);
        z.store(d, k, joined.low);
        storeReversed(d, z, mirror, joined.high);
    });
    data[0] = re + im;
    data[1] = re - im;
    data[m] = middleRe;
    data[m + 1] = -middleIm;
}

// The way back: from the pairs k = 1 to M - 1 at `from` and the real values R0 and RM to twice the spectrum of
// x[2n] + i x[2n+1]. `to` may be `from`.
template <class T>
void recombineInverse(Interleaved<const T> from, T r0, T rm, T* data, std::size_t m, const T* table) {
    const Interleaved<T> z{data};
    const T middleRe = from.base[m], middleIm = from.base[m + 1];
    forEachPair(m, table, [=](auto d, std::size_t k, std::size_t mirror, auto c, auto s) HWY_ATTR {
        const auto low = from.load(d, k), high = loadReversed(d, from, mirror);
        const auto halves = splitPair(low, high, c, s);
        z.store(d, k, halves.low);
        storeReversed(d, z, mirror, halves.high);
    });
    data[0] = r0 + rm;
    data[1] = r0 - rm;
    data[m] = 2 * middleRe;
    data[m + 1] = -2 * middleIm;
}

// From Perm, in place; n is the number of samples.
template <class T>
void formatSpectrum(T* data, std::size_t n, Format format) {
    if (format == Format::ccs) {
        if (n > 1) {
            data[n] = data[1];
            data[n + 1] = 0;
        }
        data[1] = 0;
    } else if (format == Format::pack && n > 2) {
        const T rm = data[1];
        std::memmove(data + 1, data + 2, (n - 2) * sizeof(T));
        data[n - 1] = rm;
    }
}

// Where a spectrum of n > 1 samples has RM, and where its pairs lie: pair k at 2k from the address given.
template <class T>
T middleOf(const T* spectrum, std::size_t n, Format format) {
    return spectrum[format == Format::ccs ? n : format == Format::pack ? n - 1 : 1];
}
constexpr std::size_t pairsBefore(Format format) {
    return format == Format::pack ? 1 : 0;
}

} // namespace orbs::fft
