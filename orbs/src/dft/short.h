// Complex transforms of up to 4 points, and direct sums over an odd number of points.
#pragma once

#include "dft/butterflies.h"
#include "dft/spec.h"

namespace orbs::dft {

// Up to 4 points, which need no table.
template <class T, class From, class To>
void smallTransform(From from, To to, std::size_t points) {
    const hn::CappedTag<T, 1> one;
    using V = hn::Vec<decltype(one)>;
    const auto run = [&]<int count>(std::integral_constant<int, count>) HWY_ATTR {
        Cx<V> x[count];
        repeat<count>([&](int n)
                          __attribute__((always_inline)) { x[n] = from.load(one, static_cast<std::size_t>(n)); });
        if constexpr (count > 1) Butterfly<count>::apply(x);
        repeat<count>([&](int k) __attribute__((always_inline)) { to.store(one, static_cast<std::size_t>(k), x[k]); });
    };
    if (points == 1) return run(std::integral_constant<int, 1>());
    if (points == 2) return run(std::integral_constant<int, 2>());
    if (points == 3) return run(std::integral_constant<int, 3>());
    run(std::integral_constant<int, 4>());
}

// The sums and differences of mirror elements of a direct sum, each part in a run of `half` numbers.
template <class T>
struct MirrorParts {
    T *sumRe, *sumIm, *differenceRe, *differenceIm;

    MirrorParts(T* memory, std::size_t half)
        : sumRe(memory), sumIm(memory + half), differenceRe(memory + 2 * half), differenceIm(memory + 3 * half) {}
};

// `points` is odd and at least 3; the table is that of fillMatrix. Lanes run over results, each of which adds up its
// products in the order of the samples, as generalButterfly does. `work` has room for 2 * points numbers; the
// destination may be the source.
template <class D, class From, class To, class T = hn::TFromD<D>>
void directTransform(D d, From from, To to, std::size_t points, const T* matrix, T* work) {
    using V = hn::Vec<D>;
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const hn::CappedTag<T, 1> one;
    const std::size_t half = points / 2, run = matrixRun<T>(points);
    const MirrorParts<T> parts(work, half);
    const auto join = [&](auto dj, std::size_t j) HWY_ATTR {
        const auto a = from.load(dj, j), mirrored = from.load(dj, points + 1 - j - hn::MaxLanes(dj));
        const decltype(a) b{hn::Reverse(dj, mirrored.re), hn::Reverse(dj, mirrored.im)};
        const auto sum = a + b, difference = a - b;
        hn::StoreU(sum.re, dj, parts.sumRe + j - 1);
        hn::StoreU(sum.im, dj, parts.sumIm + j - 1);
        hn::StoreU(difference.re, dj, parts.differenceRe + j - 1);
        hn::StoreU(difference.im, dj, parts.differenceIm + j - 1);
    };
    std::size_t j = 1;
    for (; j + lanes <= half + 1; j += lanes) join(d, j);
    for (; j <= half; ++j) join(one, j);
    const auto origin = from.load(one, 0);
    auto total = origin;
    const Cx<V> first{hn::Set(d, hn::GetLane(origin.re)), hn::Set(d, hn::GetLane(origin.im))};
    for (j = 0; j < half; ++j)
        total = total + Cx<hn::Vec<decltype(one)>>{hn::Set(one, parts.sumRe[j]), hn::Set(one, parts.sumIm[j])};

    // Lanes past the middle hold mirror results, with the very bits that the lanes before it give.
    const auto outputs = [&]<int count>(std::size_t k, std::integral_constant<int, count>) HWY_ATTR {
        Cx<V> even[count], odd[count];
        const T* roots = matrix + k - 1;
        const auto products = [&](std::size_t at, bool begins) __attribute__((always_inline)) {
            const Cx<V> sum{hn::Set(d, parts.sumRe[at]), hn::Set(d, parts.sumIm[at])};
            const Cx<V> difference{hn::Set(d, parts.differenceRe[at]), hn::Set(d, parts.differenceIm[at])};
            repeat<count>([&](int i) __attribute__((always_inline)) {
                const Cx<V> real = sum * hn::Load(d, roots + i * lanes);
                const Cx<V> turned = difference * hn::Load(d, roots + run + i * lanes);
                even[i] = (begins ? first : even[i]) + real;
                odd[i] = begins ? turned : odd[i] + turned;
            });
            roots += 2 * run;
        };
        products(0, true);
        for (std::size_t at = 1; at < half; ++at) products(at, false);
        repeat<count>([&](int i) __attribute__((always_inline)) {
            const std::size_t at = k + i * lanes;
            const Cx<V> mirror = addTurned<false>(even[i], odd[i]);
            to.store(d, at, subTurned<false>(even[i], odd[i]));
            to.store(d, points + 1 - at - lanes, Cx<V>{hn::Reverse(d, mirror.re), hn::Reverse(d, mirror.im)});
        });
    };
    to.store(one, 0, total);
    std::size_t k = 1;
    for (; k + lanes <= half; k += 2 * lanes) outputs(k, std::integral_constant<int, 2>());
    if (k <= half) outputs(k, std::integral_constant<int, 1>());
}

} // namespace orbs::dft
