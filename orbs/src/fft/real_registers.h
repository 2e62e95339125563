// Real transforms of 16 and 32 points in registers: the complex transform of half the length and the recombination of
// real.h without memory between them.
#pragma once

#include "fft/real.h"
#include "fft/registers.h"

namespace orbs::fft {

// The factors of recombination for k = 1 to N / 4, in the form of twiddles: those of (dr, si) give (u, v) forward and
// (p, t) in the inverse.
template <bool Inverse, class T, int order>
inline constexpr auto packedRecombination = [] {
    const QuarterWave<T> wave{fixedQuarterWave<T>.data(), constantOrder};
    PackedColumns<T, (1 << order) / 4> table{};
    for (std::size_t lane = 0; lane < (2u << order) / 4; ++lane) {
        const RecombinationFactors<T> factors(wave, 1 + lane / 2, order);
        const T cosine = Inverse ? -factors.cosine : factors.halfCosine;
        table.re[lane] = Inverse ? factors.negativeSine : factors.halfLess;
        table.im[lane] = lane % 2 == 0 ? cosine : -cosine;
    }
    return table;
}();

// The elements of x in reverse.
template <class D>
HWY_INLINE Packed<D> reversed(D d, Packed<D> x) {
    if constexpr (packedLanes<D> == 1) {
        return x;
    } else if constexpr (sizeof(hn::TFromD<D>) == 4) {
        const hn::Repartition<Orb64f, D> pairs;
        return {hn::BitCast(d, hn::Reverse(pairs, hn::BitCast(pairs, x.v)))};
    } else {
        return {hn::ReverseBlocks(d, x.v)};
    }
}

// Of a and, behind it, b: the elements from the second of a on, and those from the last of a on.
template <class D, class V = hn::Vec<D>>
HWY_INLINE Packed<D> following(D d, Packed<D> a, Packed<D> b) {
    if constexpr (packedLanes<D> == 1) {
        return b;
    } else if constexpr (packedLanes<D> == 4 && sizeof(hn::TFromD<D>) == 8) {
        return {
            V{_mm512_castsi512_pd(_mm512_alignr_epi64(_mm512_castpd_si512(b.v.raw), _mm512_castpd_si512(a.v.raw), 2))}};
    } else if constexpr (packedLanes<D> == 4) {
        return {hn::CombineShiftRightBytes<8>(d, hn::ConcatLowerUpper(d, b.v, a.v), a.v)};
    } else if constexpr (sizeof(hn::TFromD<D>) == 8) {
        return {hn::ConcatLowerUpper(d, b.v, a.v)};
    } else {
        return {hn::CombineShiftRightBytes<8>(d, b.v, a.v)};
    }
}
template <class D, class V = hn::Vec<D>>
HWY_INLINE Packed<D> fromLast(D d, Packed<D> a, Packed<D> b) {
    if constexpr (packedLanes<D> == 1) {
        return a;
    } else if constexpr (packedLanes<D> == 4 && sizeof(hn::TFromD<D>) == 8) {
        return {
            V{_mm512_castsi512_pd(_mm512_alignr_epi64(_mm512_castpd_si512(b.v.raw), _mm512_castpd_si512(a.v.raw), 6))}};
    } else if constexpr (packedLanes<D> == 4) {
        return {hn::CombineShiftRightBytes<8>(d, b.v, hn::ConcatLowerUpper(d, b.v, a.v))};
    } else {
        return following(d, a, b);
    }
}

template <class D, class T = hn::TFromD<D>>
HWY_INLINE Packed<D> everywhere(D d, T re, T im) {
    return {hn::OddEven(hn::Set(d, im), hn::Set(d, re))};
}

template <int order, class T>
using RealTag = hn::CappedTag<T, order == 4 ? 4 : 8>;

template <int order, bool Inverse, class D, int count>
HWY_INLINE void transformHalf(D d, Packed<D> (&z)[count]) {
    if constexpr (order == 4) {
        transform8<Inverse>(d, z);
    } else {
        transform16<Inverse, 1>(d, z);
    }
}

// To the format; pairs lie as in real.h.
template <int order, class T, class Last>
HWY_INLINE void realForwardInRegisters(const T* pSrc, T* pDst, Format format, Last last) {
    using D = RealTag<order, T>;
    const D d;
    constexpr int lanes = packedLanes<D>, points = 1 << order, m = points / 2, count = m / lanes;
    Packed<D> z[count];
    loadAll(d, Interleaved<const T>{pSrc}, z);
    transformHalf<order, false>(d, z);
    repeat<count>([&](int n) __attribute__((always_inline)) { z[n] = last(z[n]); });
    const T re = hn::GetLane(z[0].v), im = hn::GetLane(hn::Reverse2(d, z[0].v));
    const T middleRe = hn::GetLane(z[count / 2].v), middleIm = hn::GetLane(hn::Reverse2(d, z[count / 2].v));
    const Interleaved<T> pairs{pDst - pairsBefore(format)};
    repeat<count / 2>([&](int n) __attribute__((always_inline)) {
        const Packed<D> low = following(d, z[n], z[n + 1]), high = reversed(d, z[count - 1 - n]);
        const Packed<D> difference = subEvenAddOdd(low, high);
        const Packed<D> uv = twiddled(difference, packedRecombination<false, T, order>, n * lanes);
        pairs.storePacked(d, 1 + n * lanes, addEvenSubOdd(uv, high));
        pairs.storePacked(d, m - (n + 1) * lanes, reversed(d, subEvenAddOdd(Packed<D>{negateOdd(d, low.v)}, uv)));
    });
    pairs.base[m] = middleRe;
    pairs.base[m + 1] = -middleIm;
    pDst[0] = re + im;
    if (format == Format::ccs) {
        pDst[1] = pDst[points + 1] = 0;
        pDst[points] = re - im;
    } else {
        pDst[format == Format::pack ? points - 1 : 1] = re - im;
    }
}

template <int order, class T, class Last>
HWY_INLINE void realInverseInRegisters(const T* pSrc, T* pDst, Format format, Last last) {
    using D = RealTag<order, T>;
    const D d;
    constexpr int lanes = packedLanes<D>, points = 1 << order, m = points / 2, count = m / lanes;
    const T r0 = pSrc[0], rm = middleOf(pSrc, points, format);
    const Interleaved<const T> pairs{pSrc - pairsBefore(format)};
    Packed<D> z[count], before = everywhere(d, r0 + rm, r0 - rm);
    repeat<count / 2>([&](int n) __attribute__((always_inline)) {
        const Packed<D> low = pairs.loadPacked(d, 1 + n * lanes);
        const Packed<D> high = reversed(d, pairs.loadPacked(d, m - (n + 1) * lanes));
        const Packed<D> sum = addEvenSubOdd(low, high), difference = subEvenAddOdd(low, high);
        const Packed<D> pt = twiddled(difference, packedRecombination<true, T, order>, n * lanes);
        const Packed<D> front = sum + pt;
        z[n] = fromLast(d, before, front);
        z[count - 1 - n] = reversed(d, subEvenAddOdd(Packed<D>{negateOdd(d, sum.v)}, pt));
        before = front;
    });
    const Packed<D> middle = everywhere(d, 2 * pairs.base[m], -2 * pairs.base[m + 1]);
    z[count / 2].v = hn::IfThenElse(hn::FirstN(d, 2), middle.v, z[count / 2].v);
    transformHalf<order, true>(d, z);
    repeat<count>([&](int n)
                      __attribute__((always_inline)) { Interleaved<T>{pDst}.storePacked(d, n * lanes, last(z[n])); });
}

} // namespace orbs::fft
