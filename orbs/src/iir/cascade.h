// A chunk through a cascade of sections, four outputs of a section at a time. A section waits for itself most of the
// time, so several run at once, each some groups behind the one before it: in the blocks of a vector, and in more
// than one vector.
#pragma once

#include "iir/groups.h"
#include "iir/state.h"
#include "iir/steps.h"

#include <algorithm>

namespace orbs {

// How many groups a section is behind the one before it: by then that one's outputs have reached the cache.
constexpr int lag = 3;

// A section on its way through a chunk.
template <class T>
struct Stage {
    const T* taps; // b0, b1, b2, a1, a2
    const Part<T>* table;
    T* D;
    T x[groupLen], y[groupLen]; // the last ones
    T tail[5];                  // the last inputs of the chunk

    // The first two samples, which use the delay line.
    void begin(const T* in, T* out) {
        const T x0 = in[0], x1 = in[1];
        const T y0 = plus(times(taps[0], x0), D[0]);
        const T y1 = plus(plus(minus(D[1], times(taps[3], y0)), times(taps[0], x1)), times(taps[1], x0));
        x[0] = x[1] = y[0] = y[1] = T{};
        x[2] = x0, x[3] = x1;
        out[0] = y[2] = y0, out[1] = y[3] = y1;
    }
    // In place the inputs are overwritten by the end.
    void keepTail(const T* in, int count) { std::copy(in + count - 5, in + count, tail); }

    // What is left behind the groups, and the delay line.
    void end(T* out, int count) {
        for (int left = (count - 2) % groupLen; left > 0; --left) {
            const T* const at = tail + 5 - left;
            const T w = plus(plus(times(taps[2], at[-2]), times(taps[1], at[-1])), times(taps[0], at[0]));
            const T next = minus(w, plus(times(taps[4], y[2]), times(taps[3], y[3])));
            y[2] = y[3];
            out[count - left] = y[3] = next;
        }
        const T fed = plus(times(taps[2], tail[3]), times(taps[1], tail[4]));
        D[0] = minus(fed, plus(times(taps[4], y[2]), times(taps[3], y[3])));
        D[1] = minus(times(taps[2], tail[4]), times(taps[4], y[3]));
    }
};

template <class T, class D>
struct SectionVectors {
    Coefficient<T, D> b[3], h[3];
    Row<T, D> rows[2];
    Group<T, D> x, y;
};

// Takes `vectors` times `sections` stages over the next `groups` groups. The inputs of the first begin at in, its
// outputs at out; stage s is lag * s groups behind, and finds its inputs where it leaves its outputs.
template <std::size_t sections, std::size_t vectors, class T>
void advance(Stage<T>* stages, const T* in, T* out, int groups) {
    const GroupTag<T, sections> d;
    using D = std::remove_const_t<decltype(d)>;
    constexpr std::ptrdiff_t behind = -lag * groupLen * std::ptrdiff_t{partCount<T>};
    SectionVectors<T, D> v[vectors];
    const auto everyVector = [&](auto f) HWY_ATTR {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < vectors; ++k) f(v[k], k * sections);
    };
    everyVector([&](auto& s, std::size_t first) HWY_ATTR {
        const Part<T>* table = stages[first].table;
#pragma GCC unroll 3
        for (auto& c : s.b) c = takeCoefficient<T>(d, table);
#pragma GCC unroll 3
        for (auto& c : s.h) c = takeCoefficient<T>(d, table);
#pragma GCC unroll 2
        for (auto& row : s.rows) row = takeRow<T>(d, table);
        constexpr std::ptrdiff_t stride = sizeof(Stage<T>) / sizeof(Part<T>);
        forEachPlane<T>([&](auto plane) HWY_ATTR {
            const Part<T>* const x = asParts(stages[first].x) + plane * blockParts<T>;
            const Part<T>* const y = asParts(stages[first].y) + plane * blockParts<T>;
            s.x.planes[plane] = gatherBlocks(d, x, x, stride);
            s.y.planes[plane] = gatherBlocks(d, y, y, stride);
        });
    });

    const Part<T>* from = asParts(in);
    Part<T>* to = asParts(out);
    for (int g = 0; g < groups; ++g, from += groupLen * partCount<T>, to += groupLen * partCount<T>) {
        everyVector([&](auto& s, std::size_t first) HWY_ATTR {
            Group<T, D> x, w;
            Part<T>* const at = to + static_cast<std::ptrdiff_t>(first) * behind;
            forEachPlane<T>([&](auto plane) HWY_ATTR {
                constexpr std::size_t offset = plane * blockParts<T>;
                const Part<T>* const fed = first == 0 ? from + offset : at + offset;
                x.planes[plane] = gatherBlocks(d, fed, at + offset, behind);
            });
            forEachPlane<T>([&](auto plane) HWY_ATTR {
                const auto older = hn::Add(product<T>(d, s.b[2], delayed<2, plane>(d, s.x, x)),
                                           product<T>(d, s.b[1], delayed<1, plane>(d, s.x, x)));
                w.planes[plane] = hn::Add(older, product<T>(d, s.b[0], x.planes[plane]));
            });
            w = responses<T>(d, w, s.h);
            const auto y1 = repeated<3>(d, s.y), y2 = repeated<2>(d, s.y);
            forEachPlane<T>([&](auto plane) HWY_ATTR {
                const auto fed =
                    hn::Add(product<T>(d, s.rows[1].planes[plane], y2), product<T>(d, s.rows[0].planes[plane], y1));
                s.y.planes[plane] = hn::Add(w.planes[plane], fed);
                scatterBlocks(d, s.y.planes[plane], at + plane * blockParts<T>, behind);
            });
            s.x = x;
        });
    }
    everyVector([&](auto& s, std::size_t first) HWY_ATTR {
        constexpr std::ptrdiff_t stride = sizeof(Stage<T>) / sizeof(Part<T>);
        forEachPlane<T>([&](auto plane) HWY_ATTR {
            scatterBlocks(d, s.x.planes[plane], asParts(stages[first].x) + plane * blockParts<T>, stride);
            scatterBlocks(d, s.y.planes[plane], asParts(stages[first].y) + plane * blockParts<T>, stride);
        });
    });
}

// The next sections * vectors sections of a cascade, from x to y.
template <std::size_t sections, std::size_t vectors, class T>
void runSections(const IirHead<T>* state, int firstSection, const T* x, T* y, int count) {
    constexpr int all = static_cast<int>(sections * vectors);
    Stage<T> stages[all];
    for (int s = 0; s < all; ++s) {
        const std::ptrdiff_t section = firstSection + s;
        stages[s].taps = state->pTaps + section * 5;
        stages[s].table = state->pSectionTable + section * std::ptrdiff_t{sectionParts<T>};
        stages[s].D = state->pDlyLine + section * 2;
    }

    // Each takes the lead over the next, all go on at once, and each makes up for what it is behind.
    const int groups = (count - 2) / groupLen;
    const bool atOnce = all > 1 && groups > (all - 1) * lag;
    int done[all];
    stages[0].keepTail(x, count);
    for (int s = 0; s < all; ++s) {
        const T* const in = s == 0 ? x : y;
        done[s] = atOnce ? (all - 1 - s) * lag : 0;
        stages[s].begin(in, y);
        advance<1, 1>(stages + s, in + 2, y + 2, done[s]);
    }
    if (atOnce) {
        const int ahead = 2 + done[0] * groupLen;
        advance<sections, vectors>(stages, x + ahead, y + ahead, groups - done[0]);
        for (int s = 0; s < all; ++s) done[s] = groups - s * lag;
    }
    for (int s = 0; s < all; ++s) {
        const T* const in = s == 0 ? x : y;
        const int ahead = 2 + done[s] * groupLen;
        if (s > 0) stages[s].keepTail(y, count);
        advance<1, 1>(stages + s, in + ahead, y + ahead, groups - done[s]);
        stages[s].end(y, count);
    }
}

template <class T>
void runCascade(const IirHead<T>* state, const T* x, T* y, int count) {
    constexpr std::size_t widest = hn::MaxLanes(hn::ScalableTag<Part<T>>()) / blockParts<T>;
    int s = 0;
    const auto run = [&]<std::size_t sections, std::size_t vectors>() {
        constexpr int all = static_cast<int>(sections * vectors);
        for (; s + all <= state->numBq; s += all) runSections<sections, vectors>(state, s, s == 0 ? x : y, y, count);
    };
    if constexpr (widest < 4) run.template operator()<widest, 4 / widest>();
    if constexpr (widest >= 4) run.template operator()<4, 1>();
    run.template operator()<std::min<std::size_t>(widest, 2), std::max<std::size_t>(2 / widest, 1)>();
    run.template operator()<1, 1>();
}

} // namespace orbs
