// Four neighbouring outputs of a recursion at a time: the vectors that hold them, and the coefficients they are made
// of.
//
// A group fills planes of 16 bytes: one of Orb32f, two of Orb64f or Orb32fc, four of Orb64fc. Vectors of more bytes
// hold the same plane of the groups of several sections, block by block, and nothing moves between blocks: the
// arithmetic of a group is the same at every width.
//
// With r[k] = -a[k], row i holds the share of y[n-i] in y[n], y[n+1], y[n+2] and y[n+3]. Row 1 is also the response h
// of the recursion to a single input, h[1] first.
#pragma once

#include "iir/elements.h"

#include <array>
#include <type_traits>

// Lambdas over vectors, which do not go through memory.
#define ORBS_IN_PLACE __attribute__((always_inline))

namespace orbs {

constexpr int groupLen = 4;

template <class T>
constexpr std::size_t perBlock = 16 / sizeof(T);
template <class T>
constexpr std::size_t planeCount = groupLen / perBlock<T>;
// Numbers in a block.
template <class T>
constexpr std::size_t blockParts = 16 / sizeof(Part<T>);

// Vectors of the groups of so many sections.
template <class T, std::size_t sections>
using GroupTag = hn::FixedTag<Part<T>, sections * blockParts<T>>;

template <class T, class D>
struct Group {
    hn::Vec<D> planes[planeCount<T>];
};

// ---- Tables ----

// What a vector is multiplied by: a real coefficient, or the real parts of a complex one, and its imaginary parts with
// signs -, + in turn, for the swapped vector. One block each.
template <class T>
constexpr std::size_t coefficientParts = partCount<T>* blockParts<T>;
template <class T>
constexpr std::size_t rowParts = planeCount<T>* coefficientParts<T>;

// The table of a recursion: h[1] .. h[3] in all elements, then rows 1 .. order. That of a section begins with b[0] ..
// b[2] in all elements.
template <class T>
constexpr std::size_t tableParts(std::size_t order) {
    return 3 * coefficientParts<T> + order * rowParts<T>;
}
template <class T>
constexpr std::size_t sectionParts = 3 * coefficientParts<T> + tableParts<T>(2);

// The coefficient of each element of a block.
template <class T>
Part<T>* writeCoefficient(Part<T>* table, const T* perElement) {
    for (std::size_t e = 0; e < perBlock<T>; ++e) {
        if constexpr (isComplex<T>) {
            table[2 * e] = table[2 * e + 1] = perElement[e].re;
            table[blockParts<T> + 2 * e] = -perElement[e].im;
            table[blockParts<T> + 2 * e + 1] = perElement[e].im;
        } else {
            table[e] = perElement[e];
        }
    }
    return table + coefficientParts<T>;
}
template <class T>
Part<T>* writeInAllElements(Part<T>* table, T coefficient) {
    std::array<T, perBlock<T>> all;
    all.fill(coefficient);
    return writeCoefficient(table, all.data());
}
template <class T>
Part<T>* writeRow(Part<T>* table, const std::array<T, groupLen>& row) {
    for (std::size_t e = 0; e < groupLen; e += perBlock<T>) table = writeCoefficient(table, row.data() + e);
    return table;
}

// ---- Coefficients in vectors ----

template <class T, class D>
struct Coefficient {
    hn::Vec<D> parts[partCount<T>];
};

// A vector of the blocks of sections, which lie `stride` apart from `block` on, but for the first, which lies at
// `first`.
template <class D>
HWY_INLINE hn::Vec<D> gatherBlocks(D d, const hn::TFromD<D>* first, const hn::TFromD<D>* block, std::ptrdiff_t stride) {
    if constexpr (sizeof(hn::Vec<D>) == 16) {
        return hn::LoadU(d, first);
    } else {
        const hn::Half<D> half;
        const hn::TFromD<D>* const middle = block + std::ptrdiff_t{sizeof(hn::Vec<hn::Half<D>>) / 16} * stride;
        const auto lower = gatherBlocks(half, first, block, stride);
        return hn::Combine(d, gatherBlocks(half, middle, middle, stride), lower);
    }
}
template <class D>
HWY_INLINE void scatterBlocks(D d, hn::Vec<D> v, hn::TFromD<D>* block, std::ptrdiff_t stride) {
    if constexpr (sizeof(hn::Vec<D>) == 16) {
        hn::StoreU(v, d, block);
    } else {
        const hn::Half<D> half;
        hn::TFromD<D>* const middle = block + std::ptrdiff_t{sizeof(hn::Vec<hn::Half<D>>) / 16} * stride;
        scatterBlocks(half, hn::LowerHalf(half, v), block, stride);
        scatterBlocks(half, hn::UpperHalf(half, v), middle, stride);
    }
}

// Of sections whose tables follow each other, or of a filter alone. Moves on to the next coefficient.
template <class T, class D>
HWY_INLINE Coefficient<T, D> takeCoefficient(D d, const Part<T>*& table) {
    Coefficient<T, D> c;
#pragma GCC unroll 2
    for (std::size_t p = 0; p < partCount<T>; ++p, table += blockParts<T>)
        c.parts[p] = gatherBlocks(d, table, table, sectionParts<T>);
    return c;
}

// Row i of a recursion, or of those of several sections.
template <class T, class D>
struct Row {
    Coefficient<T, D> planes[planeCount<T>];
};
template <class T, class D>
HWY_INLINE Row<T, D> takeRow(D d, const Part<T>*& table) {
    Row<T, D> row;
#pragma GCC unroll 4
    for (auto& plane : row.planes) plane = takeCoefficient<T>(d, table);
    return row;
}

template <class T, class D>
HWY_INLINE hn::Vec<D> product(D d, const Coefficient<T, D>& c, hn::Vec<D> v) {
    if constexpr (isComplex<T>) {
        return hn::Add(hn::Mul(c.parts[0], v), hn::Mul(c.parts[1], hn::Reverse2(d, v)));
    } else {
        return hn::Mul(c.parts[0], v);
    }
}

// ---- Elements moved within a group ----

// A plane of the group that is k elements older: those that come in are the last of the group before.
template <std::size_t k, std::size_t plane, class T, class D>
HWY_INLINE hn::Vec<D> delayed(D d, const Group<T, D>& before, const Group<T, D>& group) {
    constexpr std::size_t first = groupLen + plane * perBlock<T> - k; // among the elements of both
    constexpr std::size_t from = first / perBlock<T>, past = first % perBlock<T>;
    const auto planeAt = [&](std::size_t p) ORBS_IN_PLACE {
        return p < planeCount<T> ? before.planes[p] : group.planes[p - planeCount<T>];
    };
    if constexpr (past == 0) {
        return planeAt(from);
    } else {
        return hn::CombineShiftRightBytes<past * sizeof(T)>(d, planeAt(from + 1), planeAt(from));
    }
}

// An element in all places.
template <std::size_t element, class T, class D>
HWY_INLINE hn::Vec<D> repeated(D d, const Group<T, D>& group) {
    const hn::Vec<D> plane = group.planes[element / perBlock<T>];
    if constexpr (perBlock<T> == 1) {
        return plane;
    } else if constexpr (isComplex<T>) {
        return hn::BitCast(d, hn::Broadcast<element % perBlock<T>>(hn::BitCast(hn::Repartition<Orb64f, D>(), plane)));
    } else {
        return hn::Broadcast<element % perBlock<T>>(plane);
    }
}

// Calls f for planes 0 and on, each a constant.
template <class T, std::size_t plane = 0, class F>
HWY_INLINE void forEachPlane(F f) {
    f(std::integral_constant<std::size_t, plane>());
    if constexpr (plane + 1 < planeCount<T>) forEachPlane<T, plane + 1>(f);
}

// ---- The recursion within a group ----

// w and what its elements give to the later ones of the group: v[n] = w[n] + h[3] * w[n-3] + h[2] * w[n-2] +
// h[1] * w[n-1], where no older w counts.
template <class T, class D>
HWY_INLINE Group<T, D> responses(D d, const Group<T, D>& w, const Coefficient<T, D> (&h)[3]) {
    Group<T, D> none, v = w;
    forEachPlane<T>([&](auto plane) ORBS_IN_PLACE { none.planes[plane] = hn::Zero(d); });
    forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
        const auto addFrom = [&](auto k) ORBS_IN_PLACE {
            if constexpr (k < (plane + 1) * perBlock<T>)
                v.planes[plane] = hn::Add(v.planes[plane], product<T>(d, h[k - 1], delayed<k, plane>(d, none, w)));
        };
        addFrom(std::integral_constant<std::size_t, 3>());
        addFrom(std::integral_constant<std::size_t, 2>());
        addFrom(std::integral_constant<std::size_t, 1>());
    });
    return v;
}

} // namespace orbs
