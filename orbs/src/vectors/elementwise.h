// The shapes of element-wise arithmetic. An operation says what happens to one element, on vectors of any width; a
// shape adds the frame: null tests, length, scale, one thread or several.
//
//   struct Operation {
//       result(d, v...)  the element result: floats, and integers saturated to the lanes T of d
//       exact(d, v...)   integers: the result before saturation, in one of the forms of scaling.h
//   };
// Complex vectors are vectors of their parts, re in even lanes. Sources may have other lanes than the result.
#pragma once

#include "foundation/frame.h"
#include "foundation/threads.h"
#include "vectors/scaling.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace orbs {

// ---- Loops ----

// The first `count` lanes at p, and copies of them in the others, pairs staying pairs as complex elements are, so that
// no flag is raised that the elements themselves do not raise.
template <class D, class T = hn::TFromD<D>>
HWY_INLINE hn::Vec<D> loadFilledUp(D d, const T* p, std::size_t count) {
#if HWY_TARGET <= HWY_AVX3
    T even, odd;
    std::memcpy(&even, p, sizeof even);
    std::memcpy(&odd, p + (count > 1), sizeof odd);
    const auto wanted = hn::FirstN(d, count);
    const auto copies = hn::OddEven(hn::Set(d, odd), hn::Set(d, even));
    return hn::IfThenElse(wanted, hn::MaskedLoad(wanted, d, p), copies);
#else
    constexpr std::size_t lanes = hn::MaxLanes(D());
    std::array<T, lanes> full;
    std::memcpy(full.data(), p, count * sizeof(T));
    for (std::size_t filled = count; filled < lanes; filled *= 2)
        std::memcpy(full.data() + filled, full.data(), std::min(filled, lanes - filled) * sizeof(T));
    return hn::LoadU(d, full.data());
#endif
}
template <class D, class T = hn::TFromD<D>>
HWY_INLINE void storeFirst(D d, hn::Vec<D> v, T* p, std::size_t count) {
#if HWY_TARGET <= HWY_AVX3
    hn::BlendedStore(v, hn::FirstN(d, count), d, p);
#else
    T all[hn::MaxLanes(D())];
    hn::StoreU(v, d, all);
    std::memcpy(p, all, count * sizeof(T));
#endif
}

// dst[n] = f(d, src[n]...) on vectors. `align`: stores of 64 bytes are worth a first vector that is not full, which
// they are unless f takes long or the vectors are short.
template <int unroll, bool align = true, class F, class R, class... S>
HWY_INLINE void mapVectors(std::size_t len, F f, R* dst, const S*... src) {
    const hn::ScalableTag<R> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    const auto map = [=](R* to, const S*... from)
                         HWY_ATTR { hn::StoreU(f(d, hn::LoadU(hn::Rebind<S, decltype(d)>(), from)...), d, to); };
    const auto mapFirst = [=](std::size_t count, R* to, const S*... from) HWY_ATTR {
        storeFirst(d, f(d, loadFilledUp(hn::Rebind<S, decltype(d)>(), from, count)...), to, count);
    };
    std::size_t n = 0;
    if constexpr (align && lanes * sizeof(R) == 64) {
        // A store of 64 bytes that is not aligned takes two cache lines every time. Pairs, which may be complex
        // elements, stay together.
        const std::size_t past = reinterpret_cast<std::uintptr_t>(dst) % 64;
        if (past != 0 && past % (2 * sizeof(R)) == 0 && len >= 8 * lanes) {
            n = lanes - past / sizeof(R);
            mapFirst(n, dst, src...);
        }
    }
    for (; n + unroll * lanes <= len; n += unroll * lanes) {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < unroll; ++k) map(dst + n + k * lanes, src + n + k * lanes...);
    }
    for (; n + lanes <= len; n += lanes) map(dst + n, src + n...);
    if (n != len) mapFirst(len - n, dst + n, src + n...);
}

template <class Op, class R, class... S>
void plainKernel(Op op, std::size_t len, R* dst, const S*... src) {
    mapVectors<4>(
        len, [=](auto d, auto... v) HWY_ATTR { return op.result(d, v...); }, dst, src...);
}

// Below the zero cut.
template <class Op, class R, class... S>
void scaledKernel(Op op, int scaleFactor, int boundFrom, std::size_t len, R* dst, const S*... src) {
    if (scaleFactor == 0) {
        plainKernel(op, len, dst, src...);
    } else if (scaleFactor > 0) {
        mapVectors<1>(
            len, [=](auto d, auto... v) HWY_ATTR { return rounded(d, op.exact(d, v...), scaleFactor); }, dst, src...);
    } else if (scaleFactor <= boundFrom) {
        mapVectors<1>(
            len, [=](auto d, auto... v) HWY_ATTR { return bySign(d, op.result(d, v...)); }, dst, src...);
    } else {
        mapVectors<1>(
            len, [=](auto d, auto... v) HWY_ATTR { return shiftedLeft(d, op.result(d, v...), -scaleFactor); }, dst,
            src...);
    }
}

// ---- Frames ----

// Parts of an element: a complex vector is one of twice as many real lanes.
template <class T>
constexpr std::size_t partsOf = isComplex<T> ? 2 : 1;
template <class T>
auto* partsAt(T* p) {
    if constexpr (isComplex<std::remove_const_t<T>>) {
        return asReal(p);
    } else {
        return p;
    }
}
// Their type: T itself of real elements.
template <class T>
using PartOf = std::remove_pointer_t<decltype(partsAt(static_cast<T*>(nullptr)))>;

template <class Op, class R, class... S>
OrbStatus elementwise(Op op, int len, R* pDst, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pDst, pSrc...)) return status;
    plainKernel(op, partsOf<R> * static_cast<std::size_t>(len), partsAt(pDst), partsAt(pSrc)...);
    return orbStsNoErr;
}

template <class Op, class R, class... S>
OrbStatus elementwiseScaled(Op op, int len, int scaleFactor, ScaleCuts cuts, R* pDst, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pDst, pSrc...)) return status;
    const auto count = static_cast<std::size_t>(len);
    if (scaleFactor > cuts.zeroAbove) {
        std::memset(static_cast<void*>(pDst), 0, count * sizeof(R));
    } else {
        scaledKernel(op, scaleFactor, cuts.boundFrom, partsOf<R> * count, partsAt(pDst), partsAt(pSrc)...);
    }
    return orbStsNoErr;
}

// Lengths from which a call spreads over threads, by scale factor. Zeros are written by one thread.
struct SpreadFrom {
    int zero, negative, positive;
    constexpr int at(int scaleFactor) const { return scaleFactor == 0 ? zero : scaleFactor < 0 ? negative : positive; }
};

template <class Op, class R, class... S>
OrbStatus elementwiseSpread(Op op, int len, int scaleFactor, ScaleCuts cuts, SpreadFrom from, R* pDst,
                            const S*... pSrc) {
    if (scaleFactor > cuts.zeroAbove || anyNull(pDst, pSrc...) || len < 1)
        return elementwiseScaled(op, len, scaleFactor, cuts, pDst, pSrc...);
    return spread(len, {from.at(scaleFactor), Spread::overThreads}, [=](std::size_t first, std::size_t count) {
        scaledKernel(op, scaleFactor, cuts.boundFrom, count, pDst + first, pSrc + first...);
    });
}

// ---- Members with a wider result ----

// The exact result in wider lanes, or converted to single precision.
template <class Op>
struct Widened {
    template <class D, class V>
    static auto result(D d, V a, V b) {
        if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
            return hn::ConvertTo(d, result(hn::RebindToSigned<D>(), a, b));
        } else {
            return Op::withRoom(hn::PromoteTo(d, a), hn::PromoteTo(d, b));
        }
    }
};

// ---- Members with a constant operand ----

template <class T>
OrbStatus copied(const T* pSrc, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (pSrc != pDst) std::memcpy(pDst, pSrc, static_cast<std::size_t>(len) * sizeof(T));
    return orbStsNoErr;
}
// Every byte of the destination.
template <class T>
OrbStatus filled(int byte, T* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    std::memset(static_cast<void*>(pDst), byte, static_cast<std::size_t>(len) * sizeof(T));
    return orbStsNoErr;
}

template <class D, class T = hn::TFromD<D>>
HWY_INLINE hn::Vec<D> alternating(D d, std::type_identity_t<T> even, std::type_identity_t<T> odd) {
    return hn::OddEven(hn::Set(d, odd), hn::Set(d, even));
}
// A number in all lanes, or the parts of a complex one in turn.
template <class D, class T>
HWY_INLINE hn::Vec<D> inAllLanes(D d, T val) {
    if constexpr (isComplex<T>) {
        return alternating(d, val.re, val.im);
    } else {
        return hn::Set(d, val);
    }
}

// Op(val, v...): the constant is the first operand. It is kept as a number, not as a vector: a kernel that takes a
// vector in a register leaves its upper half in use when it returns, which slows down the callers' SSE code.
template <class Op, class T>
struct WithConstant {
    T val;

    template <class D, class... V>
    auto result(D d, V... v) const {
        return Op::result(d, inAllLanes(PartTag(), val), v...);
    }
    template <class D, class... V>
    auto exact(D d, V... v) const {
        return Op::exact(d, inAllLanes(PartTag(), val), v...);
    }

private:
    using PartTag = hn::ScalableTag<PartOf<T>>;
};

template <class Op, class T>
auto withConstant(T val) {
    return WithConstant<Op, T>{val};
}

} // namespace orbs
