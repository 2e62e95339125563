// The shape of every window: weights of the first half meet the elements at both ends.
//
//   struct Window {
//       inSingle        whether at makes weights in lanes of single precision, too
//       enter(first)    the block of weights from `first` on follows
//       at(d, k)        its weights from k on, in the lanes of d; k is a multiple of their number
//   };
// What is asked for beyond the half is not used.
#pragma once

#include "foundation/control.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

namespace orbs {

constexpr std::size_t weightBlock = 256;

// Weights in lanes of single precision are made in double precision where a window does not do otherwise.
template <class D, class Window>
HWY_INLINE hn::Vec<D> weightsAt(D d, const Window& window, std::size_t k) {
    if constexpr (Window::inSingle || std::is_same_v<hn::TFromD<D>, Orb64f>) {
        return window.at(d, k);
    } else {
        const hn::Half<D> half;
        const hn::Rebind<Orb64f, decltype(half)> wide;
        const auto low = hn::DemoteTo(half, window.at(wide, k));
        return hn::Combine(d, hn::DemoteTo(half, window.at(wide, k + hn::MaxLanes(half))), low);
    }
}

// ---- Products ----

// Members of double precision have weights of theirs, all others those of single precision.
template <class T>
using WeightOf = std::conditional_t<std::is_same_v<PartOf<T>, Orb64f>, Orb64f, Orb32f>;

struct Weighted {
    template <class D, class V, class T>
    HWY_INLINE void vector(D d, V w, const T* src, T* dst) const {
        hn::StoreU(hn::Mul(hn::LoadU(d, src), w), d, dst);
    }
    template <class T>
    void middle(std::size_t count, const T* src, T* dst) const {
        if (src != dst) std::memcpy(dst, src, count * sizeof(T));
    }
};

// Of integers: in single precision, times `scale`, to the nearest integer.
struct WeightedNearest {
    Orb32f scale = 1;

    template <class D, class V, class T>
    HWY_INLINE void vector(D d, V w, const T* src, T* dst) const {
        storeNearest(d, loadFloats(d, src) * w * hn::Set(d, scale), dst);
    }
    template <class T>
    void middle(std::size_t count, const T* src, T* dst) const {
        const hn::CappedTag<Orb32f, 1> d;
        for (std::size_t n = 0; n < count; ++n) vector(d, hn::Set(d, 1.0f), src + n, dst + n);
    }
};

// What the weights of a vector meet: both parts of a complex element have one weight.
template <std::size_t parts, class D, class V, class Weigh, class T>
HWY_INLINE void weighVector(D d, V w, const Weigh& weigh, const T* src, T* dst) {
    if constexpr (parts == 1) {
        weigh.vector(d, w, src, dst);
    } else {
        constexpr std::size_t lanes = hn::MaxLanes(D());
        alignas(64) hn::TFromD<D> pairs[2 * lanes];
        hn::StoreInterleaved2(w, w, d, pairs);
        weigh.vector(d, hn::Load(d, pairs), src, dst);
        weigh.vector(d, hn::Load(d, pairs + lanes), src + lanes, dst + lanes);
    }
}
// The same for `count` elements and the lanes from `first` on.
template <std::size_t parts, class D, class V, class Weigh, class T>
HWY_INLINE void weighSome(D d, V w, std::size_t first, std::size_t count, const Weigh& weigh, const T* src, T* dst) {
    using W = hn::TFromD<D>;
    alignas(64) W weights[hn::MaxLanes(D())];
    hn::Store(w, d, weights);
    const hn::CappedTag<W, 1> one;
    for (std::size_t n = 0; n < parts * count; ++n)
        weigh.vector(one, hn::Set(one, weights[first + n / parts]), src + n, dst + n);
}

template <class Window, class Weigh, class T>
HWY_NOINLINE void applyWindow(Window& window, Weigh weigh, std::size_t len, const T* pSrc, T* pDst) {
    constexpr std::size_t parts = partsOf<T>;
    const auto* const src = partsAt(pSrc);
    auto* const dst = partsAt(pDst);
    const hn::ScalableTag<WeightOf<T>> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const std::size_t half = len / 2;
    for (std::size_t first = 0; first < half; first += weightBlock) {
        window.enter(first);
        const std::size_t end = std::min(half, first + weightBlock);
        std::size_t n = first;
        for (; n + lanes <= end; n += lanes) {
            const auto w = weightsAt(d, window, n - first);
            const std::size_t front = parts * n, back = parts * (len - n - lanes);
            weighVector<parts>(d, w, weigh, src + front, dst + front);
            weighVector<parts>(d, hn::Reverse(d, w), weigh, src + back, dst + back);
        }
        if (n == end) continue;
        const auto w = weightsAt(d, window, n - first);
        const std::size_t count = end - n, front = parts * n, back = parts * (len - end);
        weighSome<parts>(d, w, 0, count, weigh, src + front, dst + front);
        weighSome<parts>(d, hn::Reverse(d, w), lanes - count, count, weigh, src + back, dst + back);
    }
    if (len % 2 != 0) weigh.middle(parts, src + parts * half, dst + parts * half);
}

// ---- Frames ----

inline OrbStatus checkWindow(int leastLen, int len, const void* pSrc, const void* pDst) {
    if (anyNull(pSrc, pDst)) return orbStsNullPtrErr;
    return len < leastLen ? orbStsSizeErr : orbStsNoErr;
}

// What a member computes under, weights and all: those of integers know neither the caller's rounding mode nor flags.
class QuietToNearest : SseQuiet {
public:
    QuietToNearest() : SseQuiet(SseRounding::nearest) {}
};
struct AsTheCaller {
    AsTheCaller() {}
};
template <class T>
using WindowControl = std::conditional_t<std::is_floating_point_v<PartOf<T>>, AsTheCaller, QuietToNearest>;

template <class Window, class T>
void applyWindow(Window&& window, int len, const T* pSrc, T* pDst) {
    using Weigh = std::conditional_t<std::is_floating_point_v<PartOf<T>>, Weighted, WeightedNearest>;
    applyWindow(window, Weigh(), static_cast<std::size_t>(len), pSrc, pDst);
}

template <class T>
void zeroEnds(int len, T* pDst) {
    setElement(pDst, T{});
    setElement(pDst + len - 1, T{});
}

} // namespace orbs
