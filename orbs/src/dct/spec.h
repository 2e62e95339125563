// The object of a cosine transform: its plan, its sizes, its layout and its tables.
#pragma once

#include "dct/eight.h"
#include "dft/chirp.h"

#include <bit>
#include <limits>

namespace orbs::dct {

constexpr std::size_t longestDirect = 100; // of the lengths that are no powers of two
constexpr std::size_t shortestFourier = 64;

enum class Plan : Orb32s { small, halving, fourier, direct, chirp };

constexpr Plan planOf(std::uint64_t n) {
    if (!std::has_single_bit(n)) return n <= longestDirect ? Plan::direct : Plan::chirp;
    if (n <= 8) return Plan::small;
    return n < shortestFourier ? Plan::halving : Plan::fourier;
}
template <class T>
using ComplexOf = std::conditional_t<sizeof(T) == sizeof(Orb32f), Orb32fc, Orb64fc>;
template <class T>
using InnerOf = typename fft::Specs<T>::Interleaved;

template <class T>
struct Spec {
    Orb32s tag;
    Orb32s length;
    Orb32s hint;
    Orb32s workSize;
    Orb32s ownsMemory;
    T scale0, scale1; // of element 0 and of the others
    Plan plan;
    RelativePtr<T> table;  // halving: divisors; direct: cosines
    RelativePtr<T> matrix; // direct, in memory of its own: the cosines in the order in which they are needed
    // Fourier and chirp: scaled cosines and sines of pi k / (2 N) for k = 0 to N / 2, and the factors of the
    // recombination of 2 N real points for k = 1 to N / 2.
    RelativePtr<T> turnCos, turnSin, recombineCos, recombineSin;
    RelativePtr<InnerOf<T>> inner; // fourier: of N complex points
    dft::Chirp<T> chirp;
};
static_assert(sizeof(Spec<Orb32f>) <= 116 - 31 && sizeof(Spec<Orb64f>) <= 124 - 31);

// Bytes of the object, of the memory that Init needs while it runs, and of the work area without room to align it.
// These are the sizes that callers are told; those of the inner transforms are in them as these tell them.
using Sizes = fft::Sizes;
template <class T>
constexpr Sizes sizesOf(std::uint64_t n) {
    constexpr std::uint64_t slack = 128, element = sizeof(T);
    const auto padded = [](std::uint64_t size) { return size ? size + 32 : 0; };
    switch (planOf(n)) {
    case Plan::small:
        return {element == 4 ? 116u : 124u, 0, 0};
    case Plan::halving:
        return {roundUp(element * n, 32) + slack, 0, element * n};
    case Plan::direct:
        return {roundUp(4 * element * n, 32) + slack, 0, element * n};
    case Plan::fourier: {
        const Sizes inner = fft::sizesOf<T>(std::countr_zero(n) + 1, true);
        return {inner.object + 2 * element * n + slack, padded(inner.init), padded(inner.work) + 2 * element * n};
    }
    default: {
        const std::uint64_t points = std::uint64_t{1} << dft::chirp::convOrder(n);
        return {dft::chirp::innerSizes<T>(n).object + 2 * element * (3 * n + points) + slack,
                padded(dft::chirp::scratchSize<T>(n)), dft::chirp::workSize<T>(n)};
    }
    }
}

// ---- The matrix of the direct plan ----

// Sums are made of (N + 1) / 2 terms, for as many even and odd columns. A row of the matrix has the factors of one
// term: those of the even columns, those of the odd ones, each filled up with zeros to whole vectors of 32 bytes.
struct DirectShape {
    std::size_t n;
    constexpr std::size_t terms() const { return (n + 1) / 2; }
    template <class T>
    constexpr std::size_t columns() const {
        return roundUp(terms(), 32 / sizeof(T));
    }
    // Of the angle of term r in a column, in parts of 4 N to a turn. Forward columns are of even or odd k, terms of the
    // samples in order, the one in the middle of an odd length first; inverse, terms are of k and columns of samples.
    template <bool Inverse>
    constexpr std::size_t angle(std::size_t r, std::size_t column, bool odd) const {
        if constexpr (Inverse) return (2 * r + odd) * (2 * column + 1) % (4 * n);
        const std::size_t sample = n % 2 == 0 ? 2 * r + 1 : r == 0 ? n : 2 * r - 1;
        return (2 * column + odd) * sample % (4 * n);
    }
};
template <class T>
constexpr std::size_t matrixSize(std::size_t n) {
    const DirectShape shape{n};
    return 2 * shape.terms() * shape.columns<T>();
}

template <bool Inverse, class T>
void fillMatrix(T* matrix, std::size_t n, const T* cosines) {
    const DirectShape shape{n};
    const std::size_t columns = shape.columns<T>();
    std::fill_n(matrix, matrixSize<T>(n), T(0));
    for (std::size_t r = 0; r < shape.terms(); ++r) {
        for (std::size_t k = 0; k < n; ++k) {
            const bool odd = k % 2;
            matrix[(2 * r + odd) * columns + k / 2] = cosines[shape.angle<Inverse>(r, k / 2, odd)];
        }
    }
}

// ---- Object ----

// Lays the object out from `base`, or measures it where base is null; base is aligned to 32 bytes.
template <class T>
Spec<T>* layOut(Layout& layout, std::size_t n, bool withMatrix) {
    Spec<T>* spec = layout.take<Spec<T>>(1, 32);
    const auto place = [&](auto pointer, std::uint64_t count) {
        T* area = layout.take<T>(count, 32);
        if (spec) spec->*pointer = area;
    };
    const auto placeTurns = [&] {
        place(&Spec<T>::turnCos, n / 2 + 1);
        place(&Spec<T>::turnSin, n / 2 + 1);
        place(&Spec<T>::recombineCos, n / 2);
        place(&Spec<T>::recombineSin, n / 2);
    };
    switch (planOf(n)) {
    case Plan::small:
        break;
    case Plan::halving:
        place(&Spec<T>::table, n);
        break;
    case Plan::direct:
        place(&Spec<T>::table, 4 * n);
        if (withMatrix) place(&Spec<T>::matrix, matrixSize<T>(n));
        break;
    case Plan::fourier: {
        auto* inner = layout.take<Orb8u>(fft::sizesOf<T>(std::countr_zero(n), false).object, 32);
        if (spec) spec->inner = reinterpret_cast<InnerOf<T>*>(inner);
        placeTurns();
        break;
    }
    case Plan::chirp:
        dft::chirp::place(layout, n, spec ? &spec->chirp : nullptr);
        placeTurns();
        break;
    }
    return spec;
}

template <class T>
void fillHalving(T* table, std::size_t n) {
    const dft::RootPrecision precision;
    for (; n >= 16; n /= 2)
        for (std::size_t j = 1; j < n; j += 2) *table++ = static_cast<T>(0.5 / dft::unitRoot(j, 4 * n).re);
}
template <class T>
void fillCosines(T* table, std::size_t n) {
    const dft::RootPrecision precision;
    for (std::size_t j = 0; j < 4 * n; ++j) table[j] = static_cast<T>(dft::unitRoot(j, 4 * n).re);
}
// The transform back to real points counts each pair of conjugate bins twice: its factors are halved, but that of bin
// 0. Recombination takes 0.5 cos and 0.5 - 0.5 sin forward, cos and -sin inverse, of 2 pi k / (2 N).
template <bool Inverse, class T>
void fillTurns(Spec<T>& spec) {
    const dft::RootPrecision precision;
    const auto n = static_cast<std::size_t>(spec.length);
    const double root = std::sqrt(static_cast<double>(n)), scale = std::sqrt(Inverse ? 0.5 : 2.0) / root;
    spec.turnCos[0] = static_cast<T>(1.0 / root);
    spec.turnSin[0] = 0;
    for (std::size_t k = 1; k <= n / 2; ++k) {
        const dft::Root turn = dft::unitRoot(k, 4 * n), twice = dft::unitRoot(k, 2 * n);
        spec.turnCos[k] = static_cast<T>(scale * turn.re);
        spec.turnSin[k] = static_cast<T>(scale * -turn.im);
        spec.recombineCos[k - 1] = static_cast<T>(Inverse ? twice.re : 0.5 * twice.re);
        spec.recombineSin[k - 1] = static_cast<T>(Inverse ? twice.im : 0.5 + 0.5 * twice.im);
    }
}

template <bool Inverse, class T>
OrbStatus fill(Spec<T>& spec, Orb8u* initMemory) {
    const auto n = static_cast<std::size_t>(spec.length);
    switch (spec.plan) {
    case Plan::small:
        return orbStsNoErr;
    case Plan::halving:
        fillHalving<T>(spec.table, n);
        return orbStsNoErr;
    case Plan::direct:
        fillCosines<T>(spec.table, n);
        if (T* matrix = spec.matrix) fillMatrix<Inverse, T>(matrix, n, spec.table);
        return orbStsNoErr;
    case Plan::fourier: {
        InnerOf<T>* inner;
        fillTurns<Inverse>(spec);
        return fft::Members<InnerOf<T>>::init(&inner, std::countr_zero(n), ORB_FFT_SCALE_NONE, OrbHintAlgorithm{},
                                              reinterpret_cast<Orb8u*>(spec.inner.get()), initMemory);
    }
    default:
        fillTurns<Inverse>(spec);
        return dft::chirp::fill(spec.chirp, n, initMemory);
    }
}

// Builds an object in a block that is aligned to 32 bytes.
template <bool Inverse, class T>
OrbStatus build(Orb8u* block, std::size_t n, OrbHintAlgorithm hint, Orb8u* initMemory, bool withMatrix, Orb32s tag) {
    const SseRounding nearest(SseRounding::nearest);
    Layout layout(block);
    std::memset(block, 0, sizeof(Spec<T>));
    Spec<T>& spec = *layOut<T>(layout, n, withMatrix);
    const double root = std::sqrt(static_cast<double>(n));
    spec.tag = tag;
    spec.length = static_cast<Orb32s>(n);
    spec.hint = hint;
    spec.workSize = static_cast<Orb32s>(sizesOf<T>(n).work);
    spec.scale0 = static_cast<T>(1.0 / root);
    spec.scale1 = static_cast<T>(std::sqrt(2.0) / root);
    spec.plan = planOf(n);
    return fill<Inverse>(spec, initMemory);
}

} // namespace orbs::dct
