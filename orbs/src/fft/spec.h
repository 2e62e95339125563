// The object of a power-of-two transform: its plan, its sizes, its layout and its tables.
#pragma once

#include "fft/tables.h"
#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orbs::fft {

constexpr int maxOrder = 30;
constexpr int smallOrders = 4; // orders below this run without tables

// One blocked level of a large transform of order m: 2^blockOrder sub-transforms of order m - blockOrder, then the top
// levels on groups of columns, each group of 2^bufferOrder elements.
struct BlockedLevel {
    int blockOrder, bufferOrder;
    constexpr int subOrder(int m) const { return m - blockOrder; }
    constexpr int columnsOrder() const { return bufferOrder - blockOrder; }
};

// The constants in which the precisions differ.
template <class T>
struct Plan;

template <>
struct Plan<Orb32f> {
    static constexpr int directLimit = 17;     // largest order that runs without blocking
    static constexpr int tileOrder = 6;        // in-place bit reversal moves squares of 2^tileOrder elements a side
    static constexpr bool radix8First = false; // odd orders: a radix-2 pass at the end
    static constexpr std::size_t directObject = 112;
    static constexpr BlockedLevel level(int m) {
        if (m <= 20) return {4, 10};
        if (m == 21) return {5, 13};
        return {8, 15};
    }
};

template <>
struct Plan<Orb64f> {
    static constexpr int directLimit = 16;
    static constexpr int tileOrder = 5;
    static constexpr bool radix8First = true; // odd orders: a radix-8 pass at the start
    static constexpr std::size_t directObject = 116;
    static constexpr BlockedLevel level(int m) {
        if (m <= 20) return {6, 10};
        return {8, 13};
    }
};

// Radix-4 passes with twiddles begin behind the first pass, which makes sub-transforms of this order.
template <class T>
constexpr int firstPassOrder(int order) {
    return Plan<T>::radix8First && order % 2 == 1 ? 3 : 4;
}
// Values in front of the twiddles of the pass over 2^k points: those of the passes from the first with twiddles on.
template <class T>
constexpr std::size_t twiddlesBefore(int k) {
    return 2 * ((std::size_t{1} << (k - 2)) - (std::size_t{1} << firstPassOrder<T>(k)));
}

template <class T>
struct Spec {
    Orb32s tag;
    Orb32s order;
    Orb32s scaleFwd;
    Orb32s scaleInv;
    T scale;
    Orb32s hint;
    Orb32s workSize;
    Orb32s ownsMemory;
    Orb32s group; // bytes of a group of columns in the tables: groupBytes of the tier that made them
    RelativePtr<T> twiddles;
    RelativePtr<T> forwardRecombination; // real kinds
    RelativePtr<T> inverseRecombination; // real kinds
    RelativePtr<T> levels[2];            // blocked orders, outermost first
};
static_assert(sizeof(Spec<Orb32f>) <= 80 && sizeof(Spec<Orb64f>) <= 84);

// Bytes of the object, of the memory that Init needs while it runs, and of the work area, as numbers that do not wrap.
struct Sizes {
    std::uint64_t object, init, work;
};

template <class T>
constexpr Sizes sizesOf(int order, bool real) {
    using P = Plan<T>;
    if (order < smallOrders) return {P::directObject, 0, 0};
    constexpr std::uint64_t element = 2 * sizeof(T);
    const int coreOrder = real ? order - 1 : order;
    std::uint64_t tables = 0, work = 0;
    int m = coreOrder;
    for (; m > P::directLimit; m = P::level(m).subOrder(m)) {
        tables += element << m;
        work = std::max(work, element << P::level(m).bufferOrder);
    }
    tables += roundUp(element * ((std::uint64_t{1} << m) + 1), 32);
    work = std::max(work, roundUp(element << m, 32));
    if (coreOrder > P::directLimit + 1) work = std::max(work, 2 * element << (2 * P::tileOrder)); // two tiles
    const std::uint64_t core = std::uint64_t{1} << coreOrder;
    std::uint64_t object = tables + ((core & ~std::uint64_t{3}) + 35) / 32 * 32 + 128;
    if (real) object += 2 * roundUp(element << (order - 2), 32);
    const std::uint64_t init = order <= fixedBaseOrder ? 0 : roundUp(sizeof(T) * ((1ull << (order - 2)) + 1), 32) + 32;
    return {object, init, work};
}

// The order below which an object's transforms run without blocking: that of its innermost sub-transforms.
template <class T>
constexpr int innermostOrder(int coreOrder) {
    while (coreOrder > Plan<T>::directLimit) coreOrder = Plan<T>::level(coreOrder).subOrder(coreOrder);
    return coreOrder;
}

// ---- Tables ----

template <class T>
void fillTwiddles(T* table, const QuarterWave<T>& wave, int order) {
    constexpr std::size_t group = columnGroup<T>;
    int k = firstPassOrder<T>(order) + 2;
    for (; k <= order; k += 2) {
        const std::size_t quarter = std::size_t{1} << (k - 2);
        for (std::size_t j = 0; j < quarter; j += group) table = appendTwiddles(table, wave, k, j, 3);
    }
    if (k == order + 1) { // one level is left: radix 2
        for (std::size_t j = 0; j < std::size_t{1} << (order - 1); j += group)
            table = appendTwiddles(table, wave, order, j, 1);
    }
}

// The top levels of a blocked transform of order m, in the order in which they are read: for each group of columns the
// passes from the lowest, for each pass its rows of twiddles.
template <class T>
void fillLevel(T* table, const QuarterWave<T>& wave, int m) {
    constexpr std::size_t group = columnGroup<T>;
    const BlockedLevel level = Plan<T>::level(m);
    const int subOrder = level.subOrder(m);
    const std::size_t columns = std::size_t{1} << level.columnsOrder();
    const auto pass = [&](int k, int passOrder, std::size_t first, int multiples) {
        const std::size_t rows = std::size_t{1} << (k - passOrder - subOrder);
        for (std::size_t row = 0; row < rows; ++row)
            for (std::size_t j = 0; j < columns; j += group)
                table = appendTwiddles(table, wave, k, (row << subOrder) + first + j, multiples);
    };
    for (std::size_t first = 0; first < std::size_t{1} << subOrder; first += columns) {
        int k = subOrder + 2;
        for (; k <= m; k += 2) pass(k, 2, first, 3);
        if (k == m + 1) pass(m, 1, first, 1);
    }
}

// Real transforms of N points, k = 1 to N / 4: forward 0.5 cos and 0.5 - 0.5 sin, inverse cos and -sin, of 2 pi k / N.
template <class T>
struct RecombinationFactors {
    constexpr RecombinationFactors(const QuarterWave<T>& wave, std::size_t k, int order)
        : cosine(wave.cosine(k, order)), negativeSine(wave.negativeSine(k, order)), halfCosine(T(0.5) * cosine),
          halfLess(T(0.5) + T(0.5) * negativeSine) {}
    T cosine, negativeSine, halfCosine, halfLess;
};
template <class D, class T>
HWY_INLINE void fillRecombination(D d, T* forward, T* inverse, const QuarterWave<T>& wave, int order) {
    const hn::RebindToSigned<D> di;
    const std::size_t quarter = std::size_t{1} << (order - 2), group = std::min(columnGroup<T>, quarter);
    const auto half = hn::Set(d, T(0.5));
    for (std::size_t k = 0; k < quarter; k += hn::MaxLanes(d)) {
        const auto angles = hn::ShiftLeftSame(hn::Iota(di, static_cast<hwy::MakeSigned<T>>(k + 1)), wave.order - order);
        const auto cosines = wave.cosines(d, angles), negativeSines = wave.negativeSines(d, angles);
        const std::size_t at = k / group * 2 * group + k % group;
        hn::StoreU(hn::Mul(half, cosines), d, forward + at);
        hn::StoreU(hn::Add(half, hn::Mul(half, negativeSines)), d, forward + at + group);
        hn::StoreU(cosines, d, inverse + at);
        hn::StoreU(negativeSines, d, inverse + at + group);
    }
}
template <class T>
void fillRecombination(T* forward, T* inverse, const QuarterWave<T>& wave, int order) {
    if (columnGroup < T >> std::size_t{1} << (order - 2))
        return fillRecombination(hn::CappedTag<T, 4>(), forward, inverse, wave, order);
    fillRecombination(GroupTag<T>(), forward, inverse, wave, order);
}

// ---- Object ----

// Lays the object out from `base`, which is aligned to 32 bytes, in less than the room that is told for it. Tables
// begin where a cache line does; the order of their columns is that of the tier.
template <class T>
Spec<T>* layOut(Orb8u* base, int order, bool real) {
    Layout layout(base);
    Spec<T>* spec = layout.take<Spec<T>>(1, 32);
    if (order < smallOrders) return spec;
    layout.take<Orb8u>(reinterpret_cast<std::uintptr_t>(layout.take<Orb8u>(0, 32)) % 64, 1);
    const auto place = [&](RelativePtr<T> Spec<T>::*pointer, std::uint64_t count) {
        spec->*pointer = layout.take<T>(count, 32);
    };
    const int coreOrder = real ? order - 1 : order, inner = innermostOrder<T>(coreOrder);
    if (inner > smallOrders) place(&Spec<T>::twiddles, twiddlesBefore<T>(inner + 2));
    int m = coreOrder;
    for (int n = 0; m > Plan<T>::directLimit; m = Plan<T>::level(m).subOrder(m), ++n) {
        spec->levels[n] =
            layout.take<T>((std::uint64_t{2} << m) - (std::uint64_t{2} << Plan<T>::level(m).subOrder(m)), 32);
    }
    if (real) {
        place(&Spec<T>::forwardRecombination, std::uint64_t{2} << (order - 2));
        place(&Spec<T>::inverseRecombination, std::uint64_t{2} << (order - 2));
    }
    return spec;
}

template <class T>
void fillTables(Spec<T>& spec, bool real, T* initMemory) {
    const QuarterWave<T> wave = spec.order <= constantOrder ? QuarterWave<T>{fixedQuarterWave<T>.data(), constantOrder}
                                                            : QuarterWave<T>{initMemory, spec.order};
    if (spec.order > constantOrder) computeQuarterWave(initMemory, spec.order);
    int m = real ? spec.order - 1 : spec.order;
    for (int n = 0; m > Plan<T>::directLimit; m = Plan<T>::level(m).subOrder(m), ++n)
        fillLevel<T>(spec.levels[n], wave, m);
    if (m > smallOrders) fillTwiddles<T>(spec.twiddles, wave, m);
    if (real) fillRecombination<T>(spec.forwardRecombination, spec.inverseRecombination, wave, spec.order);
}

template <class T>
void setScale(Spec<T>& spec, int flag) {
    const double points = static_cast<double>(std::uint64_t{1} << spec.order);
    spec.scaleFwd = flag == ORB_FFT_SCALE_FWD || flag == ORB_FFT_SCALE_SQRT;
    spec.scaleInv = flag == ORB_FFT_SCALE_INV || flag == ORB_FFT_SCALE_SQRT;
    if (flag == ORB_FFT_SCALE_SQRT) {
        spec.scale = static_cast<T>(1.0 / std::sqrt(points));
    } else if (flag != ORB_FFT_SCALE_NONE) {
        spec.scale = static_cast<T>(1.0 / points);
    }
}

constexpr bool isFlag(int flag) {
    return flag == ORB_FFT_SCALE_FWD || flag == ORB_FFT_SCALE_INV || flag == ORB_FFT_SCALE_SQRT ||
           flag == ORB_FFT_SCALE_NONE;
}

// ---- What the exported functions of all kinds do ----

template <class T>
OrbStatus getSize(int order, int flag, bool real, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) {
    if (order < 0 || order > maxOrder) return orbStsFftOrderErr;
    if (anyNull(pSpecSize, pSpecBufferSize, pBufferSize)) return orbStsNullPtrErr;
    if (!isFlag(flag)) return orbStsFftFlagErr;
    const Sizes sizes = sizesOf<T>(order, real);
    const auto wrapped = [](std::uint64_t size) { return static_cast<int>(static_cast<Orb32u>(size)); };
    *pSpecSize = wrapped(sizes.object);
    *pSpecBufferSize = wrapped(sizes.init);
    *pBufferSize = wrapped(sizes.work ? sizes.work + 32 : 0);
    return orbStsNoErr;
}

template <class T, class Kind>
OrbStatus init(Kind** ppSpec, int order, int flag, OrbHintAlgorithm hint, Orb8u* pMemSpec, Orb8u* pMemInit, bool real,
               Orb32s tag) {
    if (!ppSpec) return orbStsNullPtrErr;
    if (order < 0 || order > maxOrder) return orbStsFftOrderErr;
    if (!pMemSpec) return orbStsNullPtrErr;
    const Sizes sizes = sizesOf<T>(order, real);
    if (sizes.object > std::numeric_limits<int>::max()) return orbStsMemAllocErr; // no block can be told to be as large
    Orb8u* const base = alignUp(pMemSpec, 32);
    std::memset(base, 0, sizeof(Spec<T>));
    Spec<T>& spec = *layOut<T>(base, order, real);
    spec.order = order;
    spec.hint = hint;
    spec.group = static_cast<Orb32s>(groupBytes);
    if (!isFlag(flag)) return orbStsFftFlagErr;
    spec.tag = tag;
    {
        const SseRounding nearest(SseRounding::nearest);
        setScale(spec, flag);
        if (order >= smallOrders) {
            if (order > fixedBaseOrder && !pMemInit) return orbStsNullPtrErr;
            spec.workSize = static_cast<Orb32s>(sizes.work);
            fillTables(spec, real, reinterpret_cast<T*>(alignUp(pMemInit, 32)));
        }
    }
    *ppSpec = static_cast<Kind*>(&spec);
    return orbStsNoErr;
}

template <class T, class Kind>
OrbStatus initAlloc(Kind** ppSpec, int order, int flag, OrbHintAlgorithm hint, bool real, Orb32s tag) {
    if (!ppSpec) return orbStsNullPtrErr;
    int specSize, initSize, bufferSize;
    if (const OrbStatus status = getSize<T>(order, flag, real, &specSize, &initSize, &bufferSize)) return status;
    if (sizesOf<T>(order, real).object > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* block = orbsMalloc_8u(specSize);
    if (!block) return orbStsMemAllocErr;
    Orb8u* initMemory = initSize > 0 ? orbsMalloc_8u(initSize) : nullptr;
    if (initSize > 0 && !initMemory) {
        orbsFree(block);
        return orbStsMemAllocErr;
    }
    Kind* made = nullptr;
    const OrbStatus status = init<T>(&made, order, flag, hint, block, initMemory, real, tag);
    orbsFree(initMemory);
    if (status != orbStsNoErr) {
        orbsFree(block);
        return status;
    }
    made->ownsMemory = 1;
    *ppSpec = made;
    return orbStsNoErr;
}

template <class Kind>
OrbStatus release(Kind* pSpec, Orb32s tag) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    pSpec->tag = 0;
    if (pSpec->ownsMemory == 1) orbsFree(pSpec);
    return orbStsNoErr;
}

template <class Kind>
OrbStatus getBufferSize(const Kind* pSpec, int* pSize, Orb32s tag) {
    if (anyNull(pSpec) || anyNull(pSize)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    *pSize = pSpec->workSize < 1 ? 0 : pSpec->workSize + 32;
    return orbStsNoErr;
}

} // namespace orbs::fft
