// The plan of short lengths that are no powers of two: sums over sums and differences of mirrored elements. Each result
// adds its terms one after the other, whether it stands in a lane beside others or alone.
#pragma once

#include "dct/spec.h"
#include "fft/arithmetic.h"

namespace orbs::dct {

constexpr std::size_t mostTerms = (longestDirect + 1) / 2, mostColumns = roundUp(mostTerms, 8);

// The terms of the even and of the odd columns, and their sums.
template <class T>
struct DirectSums {
    T even[mostColumns], odd[mostColumns];
};

template <int count, class D, class T>
HWY_INLINE void addColumns(D d, DirectShape shape, const T* matrix, const DirectSums<T>& terms, DirectSums<T>& sums,
                           std::size_t first) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const std::size_t columns = shape.columns<T>();
    hn::Vec<D> even[count], odd[count];
    fft::repeat<count>([&](int c) __attribute__((always_inline)) { even[c] = odd[c] = hn::Zero(d); });
    const T* row = matrix + first;
    for (std::size_t r = 0; r < shape.terms(); ++r, row += 2 * columns) {
        const auto e = hn::Set(d, terms.even[r]), o = hn::Set(d, terms.odd[r]);
        fft::repeat<count>([&](int c) __attribute__((always_inline)) {
            even[c] = even[c] + e * hn::Load(d, row + c * lanes);
            odd[c] = odd[c] + o * hn::Load(d, row + columns + c * lanes);
        });
    }
    fft::repeat<count>([&](int c) __attribute__((always_inline)) {
        hn::StoreU(even[c], d, sums.even + first + c * lanes);
        hn::StoreU(odd[c], d, sums.odd + first + c * lanes);
    });
}

template <class T>
void sumByMatrix(DirectShape shape, const T* matrix, const DirectSums<T>& terms, DirectSums<T>& sums) {
    const RestTag<T> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const std::size_t columns = shape.columns<T>();
    std::size_t first = 0;
    for (; first + 4 * lanes <= columns; first += 4 * lanes) addColumns<4>(d, shape, matrix, terms, sums, first);
    switch ((columns - first) / lanes) {
    case 3:
        addColumns<3>(d, shape, matrix, terms, sums, first);
        break;
    case 2:
        addColumns<2>(d, shape, matrix, terms, sums, first);
        break;
    case 1:
        addColumns<1>(d, shape, matrix, terms, sums, first);
        break;
    }
}

// Without a matrix: each column walks the table of cosines in steps of its own. Two at a time, and one too many at the
// end.
template <bool Inverse, class T>
void sumByTable(DirectShape shape, const T* cosines, const DirectSums<T>& terms, DirectSums<T>& sums) {
    const std::size_t turn = 4 * shape.n, count = shape.terms(), second = std::min<std::size_t>(count - 1, 1);
    for (std::size_t column = 0; column < count; column += 2) {
        struct {
            T sum;
            std::size_t at, step;
        } walks[4];
        for (std::size_t w = 0; w < 4; ++w) {
            const std::size_t place = column + w / 2;
            const bool odd = w % 2;
            const T first = odd ? terms.odd[0] : terms.even[0];
            walks[w].sum = T(0) + first * cosines[shape.angle<Inverse>(0, place, odd)];
            walks[w].at = shape.angle<Inverse>(second, place, odd);
            walks[w].step = (Inverse ? 2 * (2 * place + 1) : 2 * (2 * place + odd)) % turn;
        }
        for (std::size_t r = 1; r < count; ++r) {
            for (std::size_t w = 0; w < 4; ++w) {
                auto& [sum, at, step] = walks[w];
                sum += (w % 2 ? terms.odd[r] : terms.even[r]) * cosines[at];
                at += step;
                at -= at >= turn ? turn : 0;
            }
        }
        for (std::size_t w = 0; w < 4; w += 2) {
            sums.even[column + w / 2] = walks[w].sum;
            sums.odd[column + w / 2] = walks[w + 1].sum;
        }
    }
}

template <bool Inverse, class T>
void transformDirect(const Spec<T>& spec, const T* pSrc, T* pDst) {
    const DirectShape shape{static_cast<std::size_t>(spec.length)};
    const std::size_t n = shape.n, half = n / 2, middle = n % 2;
    DirectSums<T> terms, sums;
    if constexpr (Inverse) {
        for (std::size_t k = 0; k < half; ++k) {
            terms.even[k] = pSrc[2 * k] * (k == 0 ? spec.scale0 : spec.scale1);
            terms.odd[k] = pSrc[2 * k + 1] * spec.scale1;
        }
        if (middle) terms.even[half] = pSrc[n - 1] * spec.scale1, terms.odd[half] = 0;
    } else {
        if (middle) terms.even[0] = pSrc[half], terms.odd[0] = 0;
        for (std::size_t i = 0; i < half; ++i) {
            terms.even[middle + i] = pSrc[i] + pSrc[n - 1 - i];
            terms.odd[middle + i] = pSrc[i] - pSrc[n - 1 - i];
        }
    }
    if (const T* matrix = spec.matrix) {
        sumByMatrix(shape, matrix, terms, sums);
    } else {
        sumByTable<Inverse>(shape, spec.table.get(), terms, sums);
    }
    if constexpr (Inverse) {
        for (std::size_t i = 0; i < half; ++i) {
            pDst[i] = sums.even[i] + sums.odd[i];
            pDst[n - 1 - i] = sums.even[i] - sums.odd[i];
        }
        if (middle) pDst[half] = sums.even[half] + sums.odd[half];
    } else {
        const T first = sums.even[0] * spec.scale0;
        for (std::size_t k = 0; k < half; ++k) {
            pDst[2 * k] = sums.even[k] * spec.scale1;
            pDst[2 * k + 1] = sums.odd[k] * spec.scale1;
        }
        if (middle) pDst[n - 1] = sums.even[half] * spec.scale1;
        pDst[0] = first;
    }
}

} // namespace orbs::dct
