// The shape of every window: weights of the first half, made a block at a time, meet the elements at both ends.
//
//   struct Window {
//       void enter(first)    the block of weights from `first` on follows
//       at(d, k)             its weights from k on, in the lanes of d; k is a multiple of their number
//   };
// Weights are made in double precision. What is asked for beyond the half is not used.
#pragma once

#include "foundation/control.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

namespace orbs {

constexpr std::size_t weightBlock = 256;

// Weights from the front of the vector, and the same ones in the order in which the back has them. Both parts of a
// complex element have a copy.
template <class W, std::size_t parts>
class Weights {
public:
    template <class Window>
    HWY_NOINLINE void fill(Window& window, std::size_t first, std::size_t count) {
        const hn::ScalableTag<Orb64f> d;
        constexpr std::size_t lanes = hn::MaxLanes(d);
        window.enter(first);
        for (std::size_t k = 0; k < count; k += lanes) {
            const auto w = window.at(d, k);
            store(d, w, front_ + parts * k);
            store(d, hn::Reverse(d, w), back_ + parts * (weightBlock - k - lanes));
        }
    }
    const W* front() const { return front_; }
    const W* back(std::size_t count) const { return back_ + parts * (weightBlock - count); }

private:
    template <class D, class V>
    static HWY_INLINE void store(D d, V w, W* p) {
        const hn::Rebind<W, D> to;
        const auto narrow = valueOf(to, w);
        if constexpr (parts == 2) {
            hn::StoreInterleaved2(narrow, narrow, to, p);
        } else {
            hn::StoreU(narrow, to, p);
        }
        static_cast<void>(d);
    }
    template <class D, class V>
    static HWY_INLINE hn::Vec<D> valueOf(D d, V w) {
        if constexpr (std::is_same_v<W, Orb64f>) {
            static_cast<void>(d);
            return w;
        } else {
            return hn::DemoteTo(d, w);
        }
    }

    alignas(64) W front_[parts * weightBlock];
    alignas(64) W back_[parts * weightBlock];
};

// ---- Products ----

struct Weighted {
    template <class T>
    using Weight = T;

    template <class T>
    HWY_NOINLINE void product(std::size_t count, const T* weights, const T* src, T* dst) const {
        mapVectors<4>(
            count, [](auto, auto x, auto w) HWY_ATTR { return hn::Mul(x, w); }, dst, src, weights);
    }
    template <class T>
    void middle(std::size_t count, const T* src, T* dst) const {
        if (src != dst) std::memcpy(dst, src, count * sizeof(T));
    }
};

// Of integers: in single precision, times `scale`, to the nearest integer.
struct WeightedNearest {
    template <class T>
    using Weight = Orb32f;

    Orb32f scale = 1;

    template <class T>
    HWY_NOINLINE void product(std::size_t count, const Orb32f* weights, const T* src, T* dst) const {
        forEachVector<T>(count, [=, s = scale](auto d, std::size_t n) HWY_ATTR {
            const auto wide = [=](auto words, std::size_t offset) HWY_ATTR {
                const hn::Rebind<Orb32f, decltype(words)> floats;
                const auto x = loadFloats(floats, src + n + offset);
                const auto y = x * hn::LoadU(floats, weights + n + offset) * hn::Set(floats, s);
                return nearestInt32(hn::Min(y, hn::Set(floats, Orb32f{std::numeric_limits<T>::max()})));
            };
            hn::StoreU(narrowed(d, wide), d, dst + n);
        });
    }
    template <class T>
    void middle(std::size_t count, const T* src, T* dst) const {
        constexpr Orb32f one[] = {1, 1};
        product(count, one, src, dst);
    }
};

// ---- Frames ----

inline OrbStatus checkWindow(int leastLen, int len, const void* pSrc, const void* pDst) {
    if (anyNull(pSrc, pDst)) return orbStsNullPtrErr;
    return len < leastLen ? orbStsSizeErr : orbStsNoErr;
}

template <class Window, class Weigh, class T>
void applyWindow(Window& window, Weigh weigh, std::size_t len, const T* pSrc, T* pDst) {
    constexpr std::size_t parts = partsOf<T>;
    using Part = PartOf<T>;
    const Part* const src = partsAt(pSrc);
    Part* const dst = partsAt(pDst);
    Weights<typename Weigh::template Weight<Part>, parts> weights;
    const std::size_t half = len / 2;
    for (std::size_t first = 0; first < half; first += weightBlock) {
        const std::size_t count = std::min(weightBlock, half - first);
        const std::size_t front = parts * first, back = parts * (len - first - count);
        weights.fill(window, first, count);
        weigh.product(parts * count, weights.front(), src + front, dst + front);
        weigh.product(parts * count, weights.back(count), src + back, dst + back);
    }
    if (len % 2 != 0) weigh.middle(parts, src + parts * half, dst + parts * half);
}

template <class Window, class T>
void applyWindow(Window&& window, int len, const T* pSrc, T* pDst) {
    const auto count = static_cast<std::size_t>(len);
    if constexpr (std::is_floating_point_v<PartOf<T>>) {
        applyWindow(window, Weighted(), count, pSrc, pDst);
    } else {
        const SseQuiet guard(SseRounding::nearest);
        applyWindow(window, WeightedNearest(), count, pSrc, pDst);
    }
}

template <class T>
void zeroEnds(int len, T* pDst) {
    setElement(pDst, T{});
    setElement(pDst + len - 1, T{});
}

} // namespace orbs
