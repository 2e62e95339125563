// Mixed-radix transforms whose spectrum stays in the order in which the stages leave it: no sample is moved, and no
// intermediate array is needed. The arithmetic forward is that of transforms in natural order, the blocks of a stage
// lying where its samples came from; the inverse undoes stage by stage, from stage 0 on, the twiddles behind the
// butterflies.
#pragma once

#include "dft/mixed.h"

namespace orbs::dft {

// The butterflies of a stage that splits `distance * radix` points into blocks of `distance`, or joins such blocks. All
// of one block of the stage have the same twiddles, w[2 * (row - 1)] and on, or none where w is null.
template <int radix, bool twiddlesFirst, class D, class T, class From, class To>
HWY_INLINE void strided(D d, const Stage<T>& stage, From from, To to, std::size_t distance, const T* w) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto times = [&](std::size_t row, auto x) __attribute__((always_inline)) {
        if (!w || row == 0) return x;
        const T* twiddle = w + 2 * (row - 1);
        return fft::twiddled<false>(x, Cx<hn::Vec<D>>{hn::Set(d, twiddle[0]), hn::Set(d, twiddle[1])});
    };
    const auto run = [&](std::size_t n, auto sink) __attribute__((always_inline)) {
        butterfly<radix>(
            d, stage,
            [&](std::size_t row) __attribute__((always_inline)) {
                const auto x = from.load(d, n + row * distance);
                if constexpr (twiddlesFirst) return times(row, x);
                return x;
            },
            [&](std::size_t row, auto x)
                __attribute__((always_inline)) { sink(n + row * distance, twiddlesFirst ? x : times(row, x)); });
    };
    const std::size_t over = distance % lanes, whole = distance - over;
    if (over > 0) {
        run(
            distance - lanes, [&](std::size_t n, auto x) __attribute__((always_inline)) {
                const auto keep = hn::FirstN(d, lanes - over);
                const auto earlier = to.load(d, n);
                to.store(d, n, {hn::IfThenElse(keep, earlier.re, x.re), hn::IfThenElse(keep, earlier.im, x.im)});
            });
    }
    for (std::size_t n = 0; n < whole; n += lanes)
        run(
            n, [&](std::size_t at, auto x) __attribute__((always_inline)) { to.store(d, at, x); });
}

template <bool twiddlesFirst, class T, class From, class To>
void stridedStage(const Stage<T>& stage, From from, To to, std::size_t distance, const T* w) {
    withRadix(
        stage.radix, [&](auto radix) __attribute__((always_inline)) {
            if (distance == 1) {
                strided<radix.value, twiddlesFirst>(hn::CappedTag<T, 1>(), stage, from, to, distance, w);
            } else {
                withLanesFor<T>(
                    distance, [&](auto d) __attribute__((always_inline)) {
                        strided<radix.value, twiddlesFirst>(d, stage, from, to, distance, w);
                    });
            }
        });
}

// The twiddles of a column of a stage, null for column 0.
template <class T>
const T* columnOf(const Stage<T>& stage, std::size_t column) {
    return column == 0 ? nullptr : stage.twiddles + plainTwiddles(static_cast<std::size_t>(stage.radix), column);
}

// One block of stage i, in place, and what lies below it: `column` is the frequency that the block stands for.
template <class T, class Data>
void splitBlock(const Spec<T>& spec, int i, Data data, std::size_t column) {
    const Stage<T>& stage = spec.stages[i];
    const auto distance = static_cast<std::size_t>(stage.stride), rest = static_cast<std::size_t>(stage.rest);
    stridedStage<true>(stage, data, data, distance, columnOf(stage, column));
    if (i == 0) return;
    for (std::size_t row = 0; row < static_cast<std::size_t>(stage.radix); ++row)
        splitBlock(spec, i - 1, data.from(row * distance), column + row * rest);
}
template <class T, class From, class To>
void outOfOrderForward(const Spec<T>& spec, From from, To to) {
    const Stage<T>& last = spec.finalStage();
    const auto distance = static_cast<std::size_t>(last.stride);
    stridedStage<true>(last, from, to, distance, static_cast<const T*>(nullptr));
    for (std::size_t row = 0; row < static_cast<std::size_t>(last.radix); ++row)
        splitBlock(spec, spec.lastStage, to.from(row * distance), row);
}

template <class T, class From, class To>
void joinBlock(const Spec<T>& spec, int i, From from, To to, std::size_t column) {
    const Stage<T>& stage = spec.stages[i];
    const auto distance = static_cast<std::size_t>(stage.stride), rest = static_cast<std::size_t>(stage.rest);
    const T* twiddles = columnOf(stage, column);
    if (i == 0) return stridedStage<false>(stage, from, to, distance, twiddles);
    for (std::size_t row = 0; row < static_cast<std::size_t>(stage.radix); ++row)
        joinBlock(spec, i - 1, from.from(row * distance), to.from(row * distance), column + row * rest);
    stridedStage<false>(stage, to, to, distance, twiddles);
}
template <class T, class From, class To>
void outOfOrderInverse(const Spec<T>& spec, From from, To to) {
    const Stage<T>& last = spec.finalStage();
    const auto distance = static_cast<std::size_t>(last.stride);
    for (std::size_t row = 0; row < static_cast<std::size_t>(last.radix); ++row)
        joinBlock(spec, spec.lastStage, from.from(row * distance), to.from(row * distance), row);
    stridedStage<false>(last, to, to, distance, static_cast<const T*>(nullptr));
}

} // namespace orbs::dft
