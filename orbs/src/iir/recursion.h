// A chunk through a filter of any order: the sums over the inputs for the whole chunk first, then the recursion over
// them, four outputs at a time.
#pragma once

#include "filters/kernels.h"
#include "iir/groups.h"
#include "iir/state.h"
#include "iir/steps.h"

#include <algorithm>

namespace orbs {

// An element in memory, in all places of a vector.
template <class T, class D>
HWY_INLINE hn::Vec<D> repeatedFrom(D d, const T* element) {
    if constexpr (perBlock<T> == 1) {
        return hn::LoadU(d, asParts(element));
    } else if constexpr (isComplex<T>) {
        const hn::Repartition<Orb64f, D> pairs;
        return hn::BitCast(d, hn::Set(pairs, elementAt(reinterpret_cast<const Orb64f*>(element))));
    } else {
        return hn::Set(d, *element);
    }
}

// y[n] for whole groups from n = order on, as long as they end before `end`, with w[n] at w[n - order]. Returns where
// it stopped. The last `near` outputs, four or all that count, are at hand in a vector; older ones are read back. The
// products with the youngest outputs come last, so that the next group waits for one product and two or three sums.
template <int near, class T>
int recurse(const IirHead<T>* state, const T* w, T* y, int end) {
    const GroupTag<T, 1> d;
    using D = std::remove_const_t<decltype(d)>;
    const int order = state->order;
    const Part<T>* table = state->pYTable;
    Coefficient<T, D> h[3];
    Row<T, D> nearRows[near];
#pragma GCC unroll 3
    for (auto& c : h) c = takeCoefficient<T>(d, table);
#pragma GCC unroll 4
    for (auto& row : nearRows) row = takeRow<T>(d, table);
    const Part<T>* const farRows = table;

    Group<T, D> last; // y[n-4] .. y[n-1], with zeros for what does not count
    T begin[groupLen] = {};
    std::copy(y + order - near, y + order, begin + groupLen - near);
    const auto load = [=](const T* p, std::size_t plane)
                          ORBS_IN_PLACE { return hn::LoadU(d, asParts(p + plane * perBlock<T>)); };
    forEachPlane<T>([&](auto plane) ORBS_IN_PLACE { last.planes[plane] = load(begin, plane); });

    int n = order;
    for (; n + groupLen <= end; n += groupLen) {
        Group<T, D> group;
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE { group.planes[plane] = load(w + (n - order), plane); });
        group = responses<T>(d, group, h);
        if constexpr (near == groupLen) {
            for (int i = order; i > near; --i) {
                const Part<T>* far = farRows + static_cast<std::size_t>(i - near - 1) * rowParts<T>;
                const auto older = repeatedFrom(d, y + n - i);
                const Row<T, D> row = takeRow<T>(d, far);
                forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
                    group.planes[plane] = hn::Add(group.planes[plane], product<T>(d, row.planes[plane], older));
                });
            }
        }
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            const auto share = [&](auto i) ORBS_IN_PLACE {
                return product<T>(d, nearRows[i - 1].planes[plane], repeated<groupLen - i>(d, last));
            };
            auto sum = group.planes[plane], youngest = share(std::integral_constant<std::size_t, 1>());
            if constexpr (near > 3) sum = hn::Add(sum, share(std::integral_constant<std::size_t, 4>()));
            if constexpr (near > 2) sum = hn::Add(sum, share(std::integral_constant<std::size_t, 3>()));
            if constexpr (near > 1) youngest = hn::Add(share(std::integral_constant<std::size_t, 2>()), youngest);
            group.planes[plane] = hn::Add(sum, youngest);
        });
        last = group;
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            hn::StoreU(last.planes[plane], d, asParts(y + n) + plane * blockParts<T>);
        });
    }
    return n;
}

template <class T>
void filterLongChunk(const IirHead<T>* state, const T* x, T* y, int count) {
    const int order = state->order;
    const T *const b = state->pTaps, *const a = b + order; // from a[1] on
    T *const D = state->pDlyLine, *const w = state->pWork;
    const auto taps = static_cast<std::size_t>(order) + 1;
    convolve<Part<T>>(TapRun<T, -1>{b + order, taps}, x, w, static_cast<std::size_t>(count - order));
    for (int n = 0; n < order; ++n) y[n] = filterStep(b, a + 1, D, order, x[n]);

    // The outputs of a call in place leave nothing of the inputs that this needs.
    for (int j = 0; j < order; ++j) {
        D[j] = T{};
        for (int i = 1; i <= order - j; ++i) D[j] = plus(D[j], times(b[j + i], x[count - i]));
    }

    int n = order == 1   ? recurse<1>(state, w, y, count)
            : order == 2 ? recurse<2>(state, w, y, count)
            : order == 3 ? recurse<3>(state, w, y, count)
                         : recurse<4>(state, w, y, count);
    for (; n < count; ++n) {
        T sum = w[n - order];
        for (int i = order; i > 0; --i) sum = minus(sum, times(a[i], y[n - i]));
        y[n] = sum;
    }
    for (int j = 0; j < order; ++j)
        for (int i = 1; i <= order - j; ++i) D[j] = minus(D[j], times(a[j + i], y[count - i]));
}

} // namespace orbs
