// FilterMedian: running medians.
#include "foundation/frame.h"
#include "foundation/objects.h"
#include "median/networks.h"
#include "median/ranks.h"
#include "orbs/foundation.h"
#include "orbs/median.h"

#include <array>
#include <bit>
#include <limits>
#include <memory>

namespace {

using namespace orbs;

// ---- Elements as keys: integers in their order ----

template <class T>
struct KeyOf {
    using Key = T;
    static Key key(T x) { return x; }
    static T element(Key key) { return key; }
};
template <class Float, class Bits>
struct KeyOfFloat {
    using Key = Bits;
    static Key key(Float x) { return orderedBits(std::bit_cast<Bits>(x)); }
    static Float element(Key key) { return std::bit_cast<Float>(orderedBits(key)); }
};
template <>
struct KeyOf<Orb32f> : KeyOfFloat<Orb32f, Orb32s> {};
template <>
struct KeyOf<Orb64f> : KeyOfFloat<Orb64f, std::int64_t> {};

// ---- Masks above 9 ----

// The vector, with copies of its ends beside it, in runs of as many inputs as one sort takes.
template <class Ranks, class T>
OrbStatus filterByRanks(const T* src, T* dst, std::size_t len, std::size_t half, std::uint64_t runInputs) {
    using Key = typename KeyOf<T>::Key;
    Ranks ranked;
    Key* keys = nullptr;
    Orb32u* ranks = nullptr;
    std::uint64_t* bits = nullptr;
    const auto lay = [&](void* base) {
        Layout layout(base);
        keys = layout.take<Key>(runInputs, 64);
        ranks = layout.take<Orb32u>(runInputs, 64);
        bits = layout.take<std::uint64_t>(RankWindow::words(runInputs), 64);
        ranked.take(layout, runInputs);
        return layout.used();
    };
    const std::uint64_t bytes = lay(nullptr) + 64;
    if (bytes > std::uint64_t{std::numeric_limits<int>::max()}) return orbStsMemAllocErr;
    const std::unique_ptr<Orb8u, decltype(&orbsFree)> block(orbsMalloc_8u(static_cast<int>(bytes)), orbsFree);
    if (!block) return orbStsMemAllocErr;
    lay(alignUp(block.get(), 64));

    const std::size_t window = 2 * half + 1, inputs = len + 2 * half;
    const auto load = [&](std::size_t input, std::size_t count, Key* to) {
        for (std::size_t n = 0; n < count; ++n) {
            const std::size_t at = std::clamp(input + n, half, half + len - 1) - half;
            to[n] = KeyOf<T>::key(elementAt(src + at));
        }
    };
    // The inputs that two runs share are kept, since the vector may be overwritten by then.
    std::size_t held = 0;
    for (std::size_t first = 0; first < len; first += static_cast<std::size_t>(runInputs) - window + 1) {
        const std::size_t count = std::min(static_cast<std::size_t>(runInputs), inputs - first);
        load(first + held, count - held, keys + held);
        ranked.rank(keys, count, ranks);
        RankWindow medians;
        medians.start(bits, count, ranks, half);
        for (std::size_t n = 0;; ++n) {
            setElement(dst + first + n, KeyOf<T>::element(ranked.key(medians.median())));
            if (n + window == count) break;
            medians.replace(ranks[n], ranks[n + window]);
        }
        held = window - 1;
        std::memmove(keys, keys + count - held, held * sizeof(Key));
    }
    return orbStsNoErr;
}

constexpr std::uint64_t leastRun = 512;

template <class T>
OrbStatus filterByRanks(const T* src, T* dst, std::size_t len, std::size_t half) {
    // A wider window sees more copies of the ends, one of each below and above the median.
    half = std::min(half, len - 1);
    const std::uint64_t run = std::min(std::max(leastRun, 8 * std::uint64_t{half}), len + 2 * std::uint64_t{half});
    using Key = typename KeyOf<T>::Key;
    if constexpr (sizeof(Key) == 8) {
        return filterByRanks<SearchedRanks<Key>>(src, dst, len, half, run);
    } else if (sizeof(Key) <= 2 && run <= 0x10000) {
        return filterByRanks<PackedRanks<Key, Orb32s>>(src, dst, len, half, run);
    } else {
        return filterByRanks<PackedRanks<Key, std::int64_t>>(src, dst, len, half, run);
    }
}

// ---- Frame ----

template <class T>
OrbStatus filter(const T* src, T* dst, std::size_t len, std::size_t half) {
    if (half == 0 || len < 3) {
        if (src != dst) std::memcpy(dst, src, len * sizeof(T));
        return orbStsNoErr;
    }
    constexpr std::array networks = {NetworkFilter<1, T>::run, NetworkFilter<2, T>::run, NetworkFilter<3, T>::run,
                                     NetworkFilter<4, T>::run};
    if (half > networks.size()) return filterByRanks(src, dst, len, half);
    networks[half - 1](src, dst, len);
    return orbStsNoErr;
}

template <class T>
OrbStatus filtered(const T* pSrc, T* pDst, int len, int maskSize) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (maskSize < 1) return orbStsSizeErr;
    const OrbStatus warning = maskSize % 2 == 0 ? orbStsEvenMedianMaskSize : orbStsNoErr;
    const auto half = static_cast<std::size_t>(maskSize - 1) / 2;
    const OrbStatus status = filter(pSrc, pDst, static_cast<std::size_t>(len), half);
    return status ? status : warning;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFilterMedian_8u(const Orb8u* pSrc, Orb8u* pDst, int len, int maskSize) { return filtered(pSrc, pDst, len, maskSize); }
OrbStatus orbsFilterMedian_16s(const Orb16s* pSrc, Orb16s* pDst, int len, int maskSize) { return filtered(pSrc, pDst, len, maskSize); }
OrbStatus orbsFilterMedian_32s(const Orb32s* pSrc, Orb32s* pDst, int len, int maskSize) { return filtered(pSrc, pDst, len, maskSize); }
OrbStatus orbsFilterMedian_32f(const Orb32f* pSrc, Orb32f* pDst, int len, int maskSize) { return filtered(pSrc, pDst, len, maskSize); }
OrbStatus orbsFilterMedian_64f(const Orb64f* pSrc, Orb64f* pDst, int len, int maskSize) { return filtered(pSrc, pDst, len, maskSize); }
OrbStatus orbsFilterMedian_8u_I(Orb8u* pSrcDst, int len, int maskSize) { return filtered(pSrcDst, pSrcDst, len, maskSize); }
OrbStatus orbsFilterMedian_16s_I(Orb16s* pSrcDst, int len, int maskSize) { return filtered(pSrcDst, pSrcDst, len, maskSize); }
OrbStatus orbsFilterMedian_32s_I(Orb32s* pSrcDst, int len, int maskSize) { return filtered(pSrcDst, pSrcDst, len, maskSize); }
OrbStatus orbsFilterMedian_32f_I(Orb32f* pSrcDst, int len, int maskSize) { return filtered(pSrcDst, pSrcDst, len, maskSize); }
OrbStatus orbsFilterMedian_64f_I(Orb64f* pSrcDst, int len, int maskSize) { return filtered(pSrcDst, pSrcDst, len, maskSize); }

}
