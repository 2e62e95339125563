// Running medians of 3, 5, 7 and 9 elements: networks of minima and maxima of vectors.
#pragma once

#include "foundation/frame.h"
#include "vectors/exchanges.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace orbs {

// Exchanges that bring the median to the middle.
template <std::size_t half>
struct MedianNetwork;
template <>
struct MedianNetwork<1> {
    static constexpr std::array<Exchange, 3> exchanges = {{{0, 1}, {1, 2}, {0, 1}}};
};
template <>
struct MedianNetwork<2> {
    static constexpr std::array<Exchange, 7> exchanges = {{{0, 1}, {3, 4}, {0, 3}, {1, 4}, {1, 2}, {2, 3}, {1, 2}}};
};
template <>
struct MedianNetwork<3> {
    static constexpr std::array<Exchange, 13> exchanges = {
        {{0, 5}, {0, 3}, {1, 6}, {2, 4}, {0, 1}, {3, 5}, {2, 6}, {2, 3}, {3, 6}, {4, 5}, {1, 4}, {1, 3}, {3, 4}}};
};
template <>
struct MedianNetwork<4> {
    // clang-format off
    static constexpr std::array<Exchange, 19> exchanges = {
        {{1, 2}, {4, 5}, {7, 8}, {0, 1}, {3, 4}, {6, 7}, {1, 2}, {4, 5}, {7, 8}, {0, 3},
         {5, 8}, {4, 7}, {3, 6}, {1, 4}, {2, 5}, {4, 7}, {2, 4}, {4, 6}, {2, 4}}};
    // clang-format on
};

template <std::size_t half, class T>
class NetworkFilter {
    using D = hn::ScalableTag<T>;
    using V = hn::Vec<D>;
    static constexpr std::size_t lanes = hn::MaxLanes(D());
    // Outputs that are computed aside: whole vectors, so many that what lies between them needs no copies of the ends.
    static constexpr std::size_t atBegin = (half + lanes - 1) / lanes * lanes, atEnd = atBegin + 2 * lanes;
    static constexpr std::size_t shortest = atBegin + atEnd;

public:
    // src and dst are the same or do not overlap.
    static void run(const T* src, T* dst, std::size_t len) {
        len < shortest ? runShort(src, dst, len) : runLong(src, dst, len);
    }

private:
    static HWY_INLINE V median(V* window) {
        exchangeAll<MedianNetwork<half>::exchanges>(window);
        return window[half];
    }
    // Of the windows around x[0] and those behind it.
    static HWY_INLINE void store(const T* x, T* to) {
        const D d;
        V window[2 * half + 1];
        for (std::size_t k = 0; k <= 2 * half; ++k) window[k] = hn::LoadU(d, x - half + k);
        hn::StoreU(median(window), d, to);
    }

    static void runShort(const T* src, T* dst, std::size_t len) {
        T in[shortest + 2 * half], out[shortest];
        std::fill_n(in, half, elementAt(src));
        std::memcpy(in + half, src, len * sizeof(T));
        std::fill(in + half + len, std::end(in), elementAt(src + len - 1));
        for (std::size_t n = 0; n < len; n += lanes) store(in + half + n, out + n);
        std::memcpy(dst, out, len * sizeof(T));
    }

    // What a store overwrites is read before it, for the vectors behind it too; the ends are done before all else.
    static void runLong(const T* src, T* dst, std::size_t len) {
        const D d;
        T in[atEnd + 2 * half], first[atBegin], last[atEnd];
        std::fill_n(in, half, elementAt(src));
        std::memcpy(in + half, src, (atBegin + half) * sizeof(T));
        for (std::size_t n = 0; n < atBegin; n += lanes) store(in + half + n, first + n);
        std::memcpy(in, src + len - atEnd - half, (atEnd + half) * sizeof(T));
        std::fill_n(in + half + atEnd, half, elementAt(src + len - 1));
        for (std::size_t n = 0; n < atEnd; n += lanes) store(in + half + n, last + n);

        V before[half];
        for (std::size_t k = 0; k < half; ++k) before[k] = hn::LoadU(d, src + atBegin - half + k);
        std::memcpy(dst, first, sizeof first);
        for (std::size_t n = atBegin; n + 2 * lanes + half <= len; n += lanes) {
            V window[2 * half + 1];
            for (std::size_t k = 0; k < half; ++k) window[k] = before[k];
            for (std::size_t k = 0; k <= half; ++k) window[half + k] = hn::LoadU(d, src + n + k);
            for (std::size_t k = 0; k < half; ++k)
                before[k] = k + lanes < half ? before[k + lanes] : hn::LoadU(d, src + n + lanes - half + k);
            hn::StoreU(median(window), d, dst + n);
        }
        std::memcpy(dst + len - atEnd, last, sizeof last);
    }
};

} // namespace orbs
