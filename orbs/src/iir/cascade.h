// A chunk through a cascade of sections, four outputs of a section at a time. A section waits for itself most of the
// time, so several run at once, each some groups behind the one before it: in the blocks of a vector, and in more
// than one vector.
#pragma once

#include "iir/groups.h"
#include "iir/state.h"
#include "iir/steps.h"

#include <algorithm>

namespace orbs {

// How many groups a section is behind the one before it: by then it can read what that one wrote without a wait.
constexpr int lag = 3;

// A section on its way through a chunk.
template <class T>
struct Stage {
    const T* taps; // b0, b1, b2, a1, a2
    const Part<T>* table;
    T* D;
    alignas(16) T x[groupLen], y[groupLen]; // the last ones
    T tail[5];                              // the last inputs of the chunk

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

// Neighbouring sections in the blocks of vectors.
template <class T, class D>
class SectionVectors {
public:
    HWY_INLINE void take(const Stage<T>* stages) {
        const Part<T>* table = stages->table;
#pragma GCC unroll 3
        for (auto& c : b_) c = takeCoefficient<T>(d, table);
#pragma GCC unroll 3
        for (auto& c : h_) c = takeCoefficient<T>(d, table);
#pragma GCC unroll 2
        for (auto& row : rows_) row = takeRow<T>(d, table);
        const Part<T>*const x = asParts(stages->x), *const y = asParts(stages->y);
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            constexpr std::size_t offset = plane * blockParts<T>;
            x_.planes[plane] = gatherBlocks(d, x + offset, x + offset, betweenStages);
            y_.planes[plane] = gatherBlocks(d, y + offset, y + offset, betweenStages);
        });
    }
    HWY_INLINE void giveBack(Stage<T>* stages) const {
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            constexpr std::size_t offset = plane * blockParts<T>;
            scatterBlocks(d, x_.planes[plane], asParts(stages->x) + offset, betweenStages);
            scatterBlocks(d, y_.planes[plane], asParts(stages->y) + offset, betweenStages);
        });
    }
    // A group each: of the first section from `from` to `to`, of the others where they are, each lag groups behind.
    HWY_INLINE void step(const Part<T>* from, Part<T>* to) {
        constexpr std::ptrdiff_t behind = -lag * groupLen * std::ptrdiff_t{partCount<T>};
        Group<T, D> x, w;
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            constexpr std::size_t offset = plane * blockParts<T>;
            x.planes[plane] = gatherBlocks(d, from + offset, to + offset, behind);
        });
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            const auto older = hn::Add(product<T>(d, b_[2], delayed<2, plane>(d, x_, x)),
                                       product<T>(d, b_[1], delayed<1, plane>(d, x_, x)));
            w.planes[plane] = hn::Add(older, product<T>(d, b_[0], x.planes[plane]));
        });
        x_ = x;
        w = responses<T>(d, w, h_);
        const auto y1 = repeated<3>(d, y_), y2 = repeated<2>(d, y_);
        forEachPlane<T>([&](auto plane) ORBS_IN_PLACE {
            const auto fed =
                hn::Add(product<T>(d, rows_[1].planes[plane], y2), product<T>(d, rows_[0].planes[plane], y1));
            y_.planes[plane] = hn::Add(w.planes[plane], fed);
            scatterBlocks(d, y_.planes[plane], to + plane * blockParts<T>, behind);
        });
    }

private:
    static constexpr D d{};
    static_assert(sizeof(Stage<T>) % sizeof(Part<T>) == 0);
    static constexpr std::ptrdiff_t betweenStages = sizeof(Stage<T>) / sizeof(Part<T>);

    Coefficient<T, D> b_[3], h_[3];
    Row<T, D> rows_[2];
    Group<T, D> x_, y_; // the last ones
};

// Takes `vectors` times `sections` stages over the next `groups` groups. The inputs of the first begin at in, its
// outputs at out; stage s is lag * s groups behind, and finds its inputs where it leaves its outputs.
template <std::size_t sections, std::size_t vectors, class T>
void advance(Stage<T>* stages, const T* in, T* out, int groups) {
    constexpr std::ptrdiff_t step = groupLen * std::ptrdiff_t{partCount<T>};
    SectionVectors<T, GroupTag<T, sections>> v[vectors];
#pragma GCC unroll 4
    for (std::size_t k = 0; k < vectors; ++k) v[k].take(stages + k * sections);
    const Part<T>* from = asParts(in);
    Part<T>* to = asParts(out);
    for (int g = 0; g < groups; ++g, from += step, to += step) {
        v[0].step(from, to);
#pragma GCC unroll 4
        for (std::size_t k = 1; k < vectors; ++k) {
            Part<T>* const behind = to - static_cast<std::ptrdiff_t>(k * sections) * lag * step;
            v[k].step(behind, behind);
        }
    }
#pragma GCC unroll 4
    for (std::size_t k = 0; k < vectors; ++k) v[k].giveBack(stages + k * sections);
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
    constexpr std::size_t fitting = hn::MaxLanes(hn::ScalableTag<Part<T>>()) / blockParts<T>;
    constexpr std::size_t sections = std::min<std::size_t>(fitting, 4);
    // As many vectors as it takes to fill the time that a group waits.
    constexpr std::size_t vectors = std::max<std::size_t>(4 / (sections * planeCount<T> * partCount<T>), 1);
    int s = 0;
    const auto run = [&]<std::size_t across, std::size_t atOnce>() {
        constexpr int all = static_cast<int>(across * atOnce);
        for (; s + all <= state->numBq; s += all) runSections<across, atOnce>(state, s, s == 0 ? x : y, y, count);
    };
    run.template operator()<sections, vectors>();
    if constexpr (vectors > 1) run.template operator()<sections, 1>();
    if constexpr (sections > 2) run.template operator()<2, 1>();
    if constexpr (sections > 1) run.template operator()<1, 1>();
}

} // namespace orbs
