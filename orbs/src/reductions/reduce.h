// The shape of reductions: what the elements of vectors add up to. Element n goes to lane n mod `lanes` (or to several
// that lie together), whatever the tier; what is left behind the last whole row is filled up with zeros, which add
// nothing; then the upper half of the lanes is added to the lower one, and so on down to one lane, or to two where even
// and odd ones belong to different parts. So the order of all additions is that of the text, not that of the processor.
//
//   struct Operation {
//       using Lane = Orb64f;                  // type of the sums
//       static constexpr std::size_t sums;    // how many an element adds to
//       static constexpr std::size_t lanes;   // of each sum
//       static constexpr std::size_t row;     // elements that fill them
//       static constexpr std::size_t block;   // elements after which the sums go to totals, or 0
//       add(d, sum, p...)                     // sum[k] += what the elements at p... add: those of the lanes of d
//       merged(a, b)                          // of two lanes
//       total(sums)                           // those of a block as numbers of 64 bits, if there are blocks
//   };
#pragma once

#include "foundation/frame.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

#include <array>
#include <cstring>
#include <utility>

namespace orbs {

// ---- Operations in fixed lanes: floats, whose sums depend on the order ----

// 256 bytes of sums: with vectors of 64 bytes enough chains to hide the time of an addition.
template <class L, std::size_t count = 1, std::size_t lanesOfElement = 1>
struct InFixedLanes {
    using Lane = L;
    static constexpr std::size_t sums = count, lanes = 256 / sizeof(L) / count, row = lanes / lanesOfElement, block = 0;

    template <class V>
    static HWY_INLINE V merged(V a, V b) {
        return hn::Add(a, b);
    }
};

// ---- Operations in as many lanes as is fast: integers, whose sums and extremes do not depend on the order ----

template <class L, std::size_t count, std::size_t bytesOfElement, std::size_t vectors = 4>
struct InAnyLanes {
    using Lane = L;
    static constexpr std::size_t sums = count, lanes = vectors * hn::MaxLanes(hn::ScalableTag<L>()),
                                 row = lanes * sizeof(L) / bytesOfElement, block = 0;

    template <class V>
    static HWY_INLINE V merged(V a, V b) {
        return hn::Add(a, b);
    }
};

// ---- Loads ----

// As many elements as d has lanes, converted to them without loss.
template <class D, class T>
HWY_INLINE hn::Vec<D> loadAs(D d, const T* p) {
    if constexpr (isComplex<T>) {
        return loadAs(d, asReal(p));
    } else if constexpr (std::is_floating_point_v<hn::TFromD<D>> && !std::is_same_v<T, hn::TFromD<D>>) {
        return loadFloats(d, p);
    } else if constexpr (sizeof(T) < sizeof(hn::TFromD<D>)) {
        return hn::PromoteTo(d, hn::LoadU(hn::Rebind<T, D>(), p));
    } else {
        return hn::LoadU(d, p);
    }
}

// Each element twice: as the factor of both parts of a complex one.
template <class D>
HWY_INLINE hn::Vec<D> twice(D d, hn::Vec<hn::Half<D>> v) {
    const auto whole = hn::ZeroExtendVector(d, v);
    if constexpr (hn::MaxLanes(D()) * sizeof(hn::TFromD<D>) == 16) {
        return hn::InterleaveLower(d, whole, whole);
    } else {
        const hn::RebindToSigned<D> di;
        const auto place = hn::ShiftRight<1>(hn::Iota(di, 0));
        return hn::TableLookupLanes(whole, hn::IndicesFromVec(d, place));
    }
}

// ---- The loop ----

// The last elements of a vector, and zeros behind them.
template <class S, std::size_t room>
class FilledWithZeros {
public:
    HWY_INLINE FilledWithZeros(const S* p, std::size_t count) {
        if constexpr (masked) {
            load(p, count);
        } else {
            std::memset(static_cast<void*>(elements_), 0, sizeof elements_);
            std::memcpy(static_cast<void*>(elements_), p, count * sizeof(S));
        }
    }
    HWY_INLINE const S* elements() const { return elements_; }

private:
    using Part = PartOf<S>;
    static constexpr bool masked = HWY_TARGET <= HWY_AVX2 && room * sizeof(S) >= 16; // masks of less are not sharp

    HWY_INLINE void load(const S* p, std::size_t count) {
        constexpr std::size_t least = HWY_TARGET <= HWY_AVX3 ? 1 : 4; // bytes that a mask may be of
        constexpr std::size_t size = std::max(sizeof(Part), least), all = room * sizeof(S) / size;
        const hn::CappedTag<hwy::UnsignedFromSize<size>, all> d;
        const auto* from = reinterpret_cast<const hn::TFromD<decltype(d)>*>(p);
        auto* to = reinterpret_cast<hn::TFromD<decltype(d)>*>(elements_);
        const std::size_t wanted = count * sizeof(S) / size;
#pragma GCC unroll 2
        for (std::size_t n = 0; n < all; n += hn::MaxLanes(d)) {
            auto v = hn::MaskedLoad(hn::FirstN(d, wanted - std::min(n, wanted)), d, from + n);
            if constexpr (size > sizeof(S)) {
                if (count % 2 != 0) { // half a word is left
                    const auto place = hn::Iota(d, static_cast<hn::TFromD<decltype(d)>>(n));
                    const auto last = hn::Set(d, static_cast<Orb16u>(elementAt(p + count - 1)));
                    v = hn::Or(v, hn::IfThenElseZero(hn::Eq(place, hn::Set(d, wanted)), last));
                }
            }
            hn::StoreU(v, d, to + n);
        }
    }

    alignas(64) S elements_[room];
};

// What the elements add to the sums: vectors of them side by side.
template <class Op, class D, std::size_t vectors, class... S>
HWY_INLINE void addRows(Op op, D d, hn::Vec<D> (&sum)[vectors][Op::sums], std::size_t len, const S*... src) {
    constexpr std::size_t step = Op::row / vectors;
    static_assert(vectors * hn::MaxLanes(D()) == Op::lanes && vectors <= 16);
    std::size_t n = 0;
    for (; n + Op::row <= len; n += Op::row) {
#pragma GCC unroll 16
        for (std::size_t v = 0; v < vectors; ++v) op.add(d, sum[v], src + n + v * step...);
    }
    if (n == len) return;
    const std::size_t end = n + (len - n) / step * step;
    const auto addRest = [&](auto... last) HWY_ATTR {
#pragma GCC unroll 16
        for (std::size_t v = 0; v < vectors; ++v) {
            if (n >= len) break;
            op.add(d, sum[v], (n == end ? last : src + n)...);
            n += step;
        }
    };
    addRest(FilledWithZeros<S, step>(src + end, len - end).elements()...);
}

// The upper half of the vectors upon the lower one, down to one vector.
template <std::size_t count, class Op, class V, std::size_t vectors>
HWY_INLINE void foldVectors(Op op, V (&sum)[vectors][Op::sums]) {
    if constexpr (count > 1) {
#pragma GCC unroll 16
        for (std::size_t v = 0; v < count / 2; ++v) {
#pragma GCC unroll 8
            for (std::size_t k = 0; k < Op::sums; ++k) sum[v][k] = op.merged(sum[v][k], sum[v + count / 2][k]);
        }
        foldVectors<count / 2>(op, sum);
    }
}
// The same within a vector, down to `parts` lanes.
template <std::size_t parts, class Op, class D>
HWY_INLINE void foldLanes(Op op, D d, hn::Vec<D> sum, hn::TFromD<D>* to) {
    if constexpr (hn::MaxLanes(D()) == parts) {
        hn::StoreU(sum, d, to);
    } else {
        const hn::Half<D> half;
        foldLanes<parts>(op, half, op.merged(hn::LowerHalf(half, sum), hn::UpperHalf(half, sum)), to);
    }
}

// sums[k][part]
template <class T, std::size_t count, std::size_t parts>
using Sums = std::array<std::array<T, parts>, count>;

template <std::size_t parts, class Op, class... S>
HWY_INLINE auto reducedAtOnce(Op op, std::size_t len, const S*... src) {
    const hn::ScalableTag<typename Op::Lane> d;
    constexpr std::size_t vectors = Op::lanes / hn::MaxLanes(d);
    hn::Vec<decltype(d)> sum[vectors][Op::sums];
#pragma GCC unroll 16
    for (std::size_t v = 0; v < vectors; ++v) {
#pragma GCC unroll 8
        for (std::size_t k = 0; k < Op::sums; ++k) sum[v][k] = hn::Zero(d);
    }
    addRows(op, d, sum, len, src...);
    foldVectors<vectors>(op, sum);
    Sums<typename Op::Lane, Op::sums, parts> sums;
#pragma GCC unroll 8
    for (std::size_t k = 0; k < Op::sums; ++k) foldLanes<parts>(op, d, sum[0][k], sums[k].data());
    return sums;
}

// The sums over len elements, by part: block by block where the operation has blocks, and the sums of a block, made
// wider, are added to the totals.
template <std::size_t parts = 1, class Op, class... S>
HWY_INLINE auto reduced(Op op, std::size_t len, const S*... src) {
    if constexpr (Op::block == 0) {
        return reducedAtOnce<parts>(op, len, src...);
    } else {
        using Total = decltype(op.total(reducedAtOnce<parts>(op, len, src...)));
        Total total{};
        for (std::size_t n = 0; n < len; n += Op::block) {
            const Total more = op.total(reducedAtOnce<parts>(op, std::min(Op::block, len - n), src + n...));
            for (std::size_t k = 0; k < total.size(); ++k)
                for (std::size_t p = 0; p < total[k].size(); ++p) total[k][p] += more[k][p];
        }
        return total;
    }
}

// ---- Results ----

// A result of one part or two, each made by f.
template <class R, class T, std::size_t parts, class F>
HWY_INLINE R eachPart(const std::array<T, parts>& a, F f) {
    if constexpr (isComplex<R>) {
        return {f(a[0]), f(a[1])};
    } else {
        return f(a[0]);
    }
}

template <class T>
T squareRoot(T x) {
    return hn::GetLane(hn::Sqrt(hn::Set(hn::CappedTag<T, 1>(), x)));
}

// *pResult = finish(sums(len elements of each source)). They are two because g++ 12 leaves the upper halves of
// registers in use where a function that has used them ends with a call of another.
template <class R, class Finish, class F, class... S>
HWY_INLINE OrbStatus reduction(F sums, Finish finish, int len, R* pResult, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pSrc..., pResult)) return status;
    const auto all = sums(static_cast<std::size_t>(len), pSrc...);
    setElement(pResult, finish(all));
    return orbStsNoErr;
}

} // namespace orbs
