// The Haar transform, one level: half sums and half differences of pairs, and the way back.
#include "arith/sums.h"
#include "orbs/wavelets.h"
#include "wavelets/pairs.h"

namespace {

using namespace orbs;

// ---- What happens to a pair, and to an element that is left without a partner ----

struct FloatsForward {
    template <class D, class V>
    static Pairs<V> pair(D d, V first, V second) {
        const V detail = hn::Mul(hn::Sub(second, first), hn::Set(d, hn::TFromD<D>{0.5}));
        return {hn::Add(first, detail), detail};
    }
};
struct FloatsInverse {
    template <class D, class V>
    static Pairs<V> pair(D, V low, V high) {
        return {hn::Sub(low, high), hn::Add(low, high)};
    }
};

// The result rule of integers: Op(a, b) * 2^-shift, as it is on one side of the cuts.
struct Unscaled {
    template <class Op, class D, class V>
    static V of(Op, D d, V a, V b) {
        return Op::result(d, a, b);
    }
};
template <class Shift>
struct ScaledDown {
    Shift shift;
    template <class Op, class D, class V>
    V of(Op, D d, V a, V b) const {
        return rounded(d, Op::exact(d, a, b), shift);
    }
};
struct ScaledUp {
    int shift;
    template <class Op, class D, class V>
    V of(Op, D d, V a, V b) const {
        return shiftedLeft(d, Op::result(d, a, b), shift);
    }
};
struct SignsOnly {
    template <class Op, class D, class V>
    static V of(Op, D d, V a, V b) {
        return bySign(d, Op::result(d, a, b));
    }
};

template <class Scale>
struct IntegersForward {
    Scale scale;
    template <class D, class V>
    Pairs<V> pair(D d, V first, V second) const {
        return {scale.of(Sum(), d, first, second), scale.of(SecondMinusFirst(), d, first, second)};
    }
    template <class D, class V>
    V lone(D d, V v) const { // as a pair of equals
        return scale.of(Sum(), d, v, v);
    }
};
template <class Scale>
struct IntegersInverse {
    Scale scale;
    template <class D, class V>
    Pairs<V> pair(D d, V low, V high) const {
        return {scale.of(FirstMinusSecond(), d, low, high), scale.of(Sum(), d, low, high)};
    }
    template <class D, class V>
    V lone(D d, V v) const { // without detail
        return scale.of(Sum(), d, v, hn::Zero(d));
    }
};

// ---- Loops ----

// The first `count` elements, and copies of the first `period` of them behind, so that no flag is raised that they do
// not raise.
template <std::size_t room, class T>
void fillUp(T (&block)[room], const T* from, std::size_t count, std::size_t period) {
    std::memcpy(block, from, count * sizeof(T));
    for (std::size_t n = count; n < room; ++n) block[n] = block[n - period];
}

template <class Op, class D, class T>
HWY_INLINE void forwardVector(Op op, D d, const T* src, T* low, T* high) {
    const auto [first, second] = loadPairs(d, src);
    const auto [sums, details] = op.pair(d, first, second);
    hn::StoreU(sums, d, low);
    hn::StoreU(details, d, high);
}
template <class Op, class D, class T>
HWY_INLINE void inverseVector(Op op, D d, const T* low, const T* high, T* dst) {
    const auto [first, second] = op.pair(d, hn::LoadU(d, low), hn::LoadU(d, high));
    hn::StoreInterleaved2(first, second, d, dst);
}

template <class Op, class T>
void forwardPairs(Op op, std::size_t count, const T* src, T* low, T* high) {
    const bool covered = coverPairs<T>(
        count, [=](auto d, std::size_t n)
                   __attribute__((always_inline)) { forwardVector(op, d, src + 2 * n, low + n, high + n); });
    if (covered || count == 0) return;
    T pairs[2 * fewLanes<T>], sums[fewLanes<T>], details[fewLanes<T>];
    fillUp(pairs, src, 2 * count, 2);
    forwardVector(op, FewTag<T>(), pairs, sums, details);
    std::memcpy(low, sums, count * sizeof(T));
    std::memcpy(high, details, count * sizeof(T));
}

template <class Op, class T>
void inversePairs(Op op, std::size_t count, const T* low, const T* high, T* dst) {
    const bool covered = coverPairs<T>(
        count, [=](auto d, std::size_t n)
                   __attribute__((always_inline)) { inverseVector(op, d, low + n, high + n, dst + 2 * n); });
    if (covered || count == 0) return;
    T lows[fewLanes<T>], highs[fewLanes<T>], pairs[2 * fewLanes<T>];
    fillUp(lows, low, count, 1);
    fillUp(highs, high, count, 1);
    inverseVector(op, FewTag<T>(), lows, highs, pairs);
    std::memcpy(dst, pairs, 2 * count * sizeof(T));
}

template <class Op, class T>
HWY_INLINE void convertLone(Op op, const T* from, T* to) {
    if constexpr (std::is_floating_point_v<T>) {
        std::memcpy(to, from, sizeof(T));
    } else {
        const hn::CappedTag<T, 1> d;
        setElement(to, hn::GetLane(op.lone(d, hn::Set(d, elementAt(from)))));
    }
}

template <class Op, class T>
void forward(Op op, std::size_t len, const T* pSrc, T* pDstLow, T* pDstHigh) {
    forwardPairs(op, len / 2, pSrc, pDstLow, pDstHigh);
    if (len % 2 != 0) convertLone(op, pSrc + len - 1, pDstLow + len / 2);
}
template <class Op, class T>
void inverse(Op op, std::size_t len, const T* pSrcLow, const T* pSrcHigh, T* pDst) {
    inversePairs(op, len / 2, pSrcLow, pSrcHigh, pDst);
    if (len % 2 != 0) convertLone(op, pSrcLow + len / 2, pDst + len - 1);
}

// ---- Members ----

template <class T>
OrbStatus floatsForward(const T* pSrc, int len, T* pDstLow, T* pDstHigh) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDstLow, pDstHigh)) return status;
    forward(FloatsForward(), static_cast<std::size_t>(len), pSrc, pDstLow, pDstHigh);
    return orbStsNoErr;
}
template <class T>
OrbStatus floatsInverse(const T* pSrcLow, const T* pSrcHigh, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcLow, pSrcHigh, pDst)) return status;
    inverse(FloatsInverse(), static_cast<std::size_t>(len), pSrcLow, pSrcHigh, pDst);
    return orbStsNoErr;
}

// Calls run(scale) with what 2^-shift does to sums and differences of T, or zeros() where nothing is left of them.
// Those of `bits` bits reach 2^bits.
template <class T, class Run, class Zeros>
void withScale(std::int64_t shift, Run run, Zeros zeros) {
    constexpr int bits = 8 * sizeof(T);
    if (shift > bits) {
        zeros();
    } else if (shift > 1) {
        run(ScaledDown<int>{static_cast<int>(shift)});
    } else if (shift == 1) {
        run(ScaledDown<std::integral_constant<int, 1>>{});
    } else if (shift == 0) {
        run(Unscaled());
    } else if (shift > 1 - bits) {
        run(ScaledUp{static_cast<int>(-shift)});
    } else {
        run(SignsOnly());
    }
}

// Lanes of 64 bits are of a type that Orb64s need not be.
template <class T>
auto* lanesOf(T* p) {
    if constexpr (sizeof(T) == sizeof(std::int64_t)) {
        return reinterpret_cast<std::conditional_t<std::is_const_v<T>, const std::int64_t, std::int64_t>*>(p);
    } else {
        return p;
    }
}

template <class T>
OrbStatus integersForward(const T* pSrc, int length, T* pDstLow, T* pDstHigh, int scaleFactor = 0) {
    if (const OrbStatus status = checkVectors(length, pSrc, pDstLow, pDstHigh)) return status;
    const auto len = static_cast<std::size_t>(length);
    withScale<T>(
        std::int64_t{scaleFactor} + 1,
        [=](auto scale) {
            forward(IntegersForward<decltype(scale)>{scale}, len, lanesOf(pSrc), lanesOf(pDstLow), lanesOf(pDstHigh));
        },
        [=] {
            std::memset(pDstLow, 0, (len + 1) / 2 * sizeof(T));
            std::memset(pDstHigh, 0, len / 2 * sizeof(T));
        });
    return orbStsNoErr;
}
template <class T>
OrbStatus integersInverse(const T* pSrcLow, const T* pSrcHigh, T* pDst, int length, int scaleFactor = 0) {
    if (const OrbStatus status = checkVectors(length, pSrcLow, pSrcHigh, pDst)) return status;
    const auto len = static_cast<std::size_t>(length);
    withScale<T>(
        scaleFactor,
        [=](auto scale) {
            inverse(IntegersInverse<decltype(scale)>{scale}, len, lanesOf(pSrcLow), lanesOf(pSrcHigh), lanesOf(pDst));
        },
        [=] { std::memset(pDst, 0, len * sizeof(T)); });
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsWTHaarFwd_32f(const Orb32f* pSrc, int len, Orb32f* pDstLow, Orb32f* pDstHigh) { return floatsForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_64f(const Orb64f* pSrc, int len, Orb64f* pDstLow, Orb64f* pDstHigh) { return floatsForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_8s(const Orb8s* pSrc, int len, Orb8s* pDstLow, Orb8s* pDstHigh) { return integersForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_16s(const Orb16s* pSrc, int len, Orb16s* pDstLow, Orb16s* pDstHigh) { return integersForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_32s(const Orb32s* pSrc, int len, Orb32s* pDstLow, Orb32s* pDstHigh) { return integersForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_64s(const Orb64s* pSrc, int len, Orb64s* pDstLow, Orb64s* pDstHigh) { return integersForward(pSrc, len, pDstLow, pDstHigh); }
OrbStatus orbsWTHaarFwd_8s_Sfs(const Orb8s* pSrc, int len, Orb8s* pDstLow, Orb8s* pDstHigh, int scaleFactor) { return integersForward(pSrc, len, pDstLow, pDstHigh, scaleFactor); }
OrbStatus orbsWTHaarFwd_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pDstLow, Orb16s* pDstHigh, int scaleFactor) { return integersForward(pSrc, len, pDstLow, pDstHigh, scaleFactor); }
OrbStatus orbsWTHaarFwd_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pDstLow, Orb32s* pDstHigh, int scaleFactor) { return integersForward(pSrc, len, pDstLow, pDstHigh, scaleFactor); }
OrbStatus orbsWTHaarFwd_64s_Sfs(const Orb64s* pSrc, int len, Orb64s* pDstLow, Orb64s* pDstHigh, int scaleFactor) { return integersForward(pSrc, len, pDstLow, pDstHigh, scaleFactor); }

OrbStatus orbsWTHaarInv_32f(const Orb32f* pSrcLow, const Orb32f* pSrcHigh, Orb32f* pDst, int len) { return floatsInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_64f(const Orb64f* pSrcLow, const Orb64f* pSrcHigh, Orb64f* pDst, int len) { return floatsInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_8s(const Orb8s* pSrcLow, const Orb8s* pSrcHigh, Orb8s* pDst, int len) { return integersInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_16s(const Orb16s* pSrcLow, const Orb16s* pSrcHigh, Orb16s* pDst, int len) { return integersInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_32s(const Orb32s* pSrcLow, const Orb32s* pSrcHigh, Orb32s* pDst, int len) { return integersInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_64s(const Orb64s* pSrcLow, const Orb64s* pSrcHigh, Orb64s* pDst, int len) { return integersInverse(pSrcLow, pSrcHigh, pDst, len); }
OrbStatus orbsWTHaarInv_8s_Sfs(const Orb8s* pSrcLow, const Orb8s* pSrcHigh, Orb8s* pDst, int len, int scaleFactor) { return integersInverse(pSrcLow, pSrcHigh, pDst, len, scaleFactor); }
OrbStatus orbsWTHaarInv_16s_Sfs(const Orb16s* pSrcLow, const Orb16s* pSrcHigh, Orb16s* pDst, int len, int scaleFactor) { return integersInverse(pSrcLow, pSrcHigh, pDst, len, scaleFactor); }
OrbStatus orbsWTHaarInv_32s_Sfs(const Orb32s* pSrcLow, const Orb32s* pSrcHigh, Orb32s* pDst, int len, int scaleFactor) { return integersInverse(pSrcLow, pSrcHigh, pDst, len, scaleFactor); }
OrbStatus orbsWTHaarInv_64s_Sfs(const Orb64s* pSrcLow, const Orb64s* pSrcHigh, Orb64s* pDst, int len, int scaleFactor) { return integersInverse(pSrcLow, pSrcHigh, pDst, len, scaleFactor); }

}
// clang-format on
