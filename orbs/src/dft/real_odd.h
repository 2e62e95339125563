// Real transforms of odd length, mixed radix, decimated in time. Between the stages a spectrum of n values X[k], k up
// to (n - 1) / 2, lies half-complex: the real part of X[k] at k, its imaginary part at n - k, so that a stage goes from
// a block to itself and reads and writes runs of k. The innermost transforms, and the stages over blocks that are too
// short for that, run on several transforms at a time, in lanes, and put their blocks in order as they store them.
#pragma once

#include "dft/butterflies.h"
#include "dft/spec.h"
#include "fft/real.h"

#include <algorithm>

namespace orbs::dft {

// Points of the blocks that the lanes make, at most: blocks are joined there while they have fewer than
// shortestRun.
constexpr std::size_t longestOddLeaf = 13 * 13;

// ---- Where spectra lie ----

// Half-complex, lanes running over k.
template <class T>
struct Run {
    T* base;
    std::size_t n;

    HWY_INLINE Run block(std::size_t q, std::size_t rest) const { return {base + q * rest, rest}; }
    template <class D>
    HWY_INLINE auto loadReal(D d) const {
        return hn::LoadU(d, base);
    }
    template <class D>
    HWY_INLINE void storeReal(D d, hn::Vec<D> x) const {
        hn::StoreU(x, d, base);
    }
    // k, k + 1, ...
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t k) const {
        return {hn::LoadU(d, base + k), hn::Reverse(d, hn::LoadU(d, base + n - k - hn::MaxLanes(d) + 1))};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        hn::StoreU(x.re, d, base + k);
        hn::StoreU(hn::Reverse(d, x.im), d, base + n - k - hn::MaxLanes(d) + 1);
    }
    // k, k - 1, ...
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> loadBack(D d, std::size_t k) const {
        return {hn::Reverse(d, hn::LoadU(d, base + k - hn::MaxLanes(d) + 1)), hn::LoadU(d, base + n - k)};
    }
    template <class D>
    HWY_INLINE void storeBack(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        hn::StoreU(hn::Reverse(d, x.re), d, base + k - hn::MaxLanes(d) + 1);
        hn::StoreU(x.im, d, base + n - k);
    }
    template <class D>
    HWY_INLINE static Cx<hn::Vec<D>> twiddle(D d, const T* row, std::size_t columns, std::size_t k) {
        return {hn::LoadU(d, row + k - 1), hn::LoadU(d, row + columns + k - 1)};
    }
};

// Half-complex, each value a vector whose lanes are several transforms.
template <class T, std::size_t lanes>
struct InLanes {
    T* base;
    std::size_t n;

    HWY_INLINE InLanes block(std::size_t q, std::size_t rest) const { return {base + q * rest * lanes, rest}; }
    template <class D>
    HWY_INLINE auto loadReal(D d) const {
        return hn::Load(d, base);
    }
    template <class D>
    HWY_INLINE void storeReal(D d, hn::Vec<D> x) const {
        hn::Store(x, d, base);
    }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> load(D d, std::size_t k) const {
        return {hn::Load(d, base + k * lanes), hn::Load(d, base + (n - k) * lanes)};
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        hn::Store(x.re, d, base + k * lanes);
        hn::Store(x.im, d, base + (n - k) * lanes);
    }
    template <class D>
    HWY_INLINE Cx<hn::Vec<D>> loadBack(D d, std::size_t k) const {
        return load(d, k);
    }
    template <class D>
    HWY_INLINE void storeBack(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        store(d, k, x);
    }
    template <class D>
    HWY_INLINE static Cx<hn::Vec<D>> twiddle(D d, const T* row, std::size_t columns, std::size_t k) {
        return {hn::Set(d, row[k - 1]), hn::Set(d, row[columns + k - 1])};
    }
};

// A caller's spectrum: X[0] at `first`, X[k] at pairs[2k] and the place behind it. What is stored is scaled.
template <class T>
struct Spectrum {
    T *first, *pairs;
    std::remove_const_t<T> scale = 1;

    template <class D>
    HWY_INLINE auto loadReal(D d) const {
        return hn::LoadU(d, first);
    }
    template <class D>
    HWY_INLINE void storeReal(D d, hn::Vec<D> x) const {
        hn::StoreU(x * hn::Set(d, scale), d, first);
    }
    template <class D>
    HWY_INLINE auto load(D d, std::size_t k) const {
        return fft::Interleaved<T>{pairs}.load(d, k);
    }
    template <class D>
    HWY_INLINE void store(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        fft::Interleaved<T>{pairs}.store(d, k, x * hn::Set(d, scale));
    }
    template <class D>
    HWY_INLINE auto loadBack(D d, std::size_t k) const {
        return fft::loadReversed(d, fft::Interleaved<T>{pairs}, k - hn::MaxLanes(d) + 1);
    }
    template <class D>
    HWY_INLINE void storeBack(D d, std::size_t k, Cx<hn::Vec<D>> x) const {
        fft::storeReversed(d, fft::Interleaved<T>{pairs}, k - hn::MaxLanes(d) + 1, x * hn::Set(d, scale));
    }
};

template <class T>
std::size_t pointsOf(const Stage<T>& stage) {
    return static_cast<std::size_t>(stage.radix) * static_cast<std::size_t>(stage.rest);
}
template <class T>
std::size_t columnsOf(const Stage<T>& stage) {
    return static_cast<std::size_t>(stage.rest - 1) / 2;
}

template <class V>
HWY_INLINE Cx<V> conjugate(Cx<V> x) {
    return {x.re, hn::Neg(x.im)};
}

// ---- A stage on one block. `Blocks` is the side with the radix sub-spectra, `whole` the one with their join. ----

template <class T, class Radix, class D, class Blocks, class Whole>
HWY_INLINE void joinReal(const Radix& radix, const Stage<T>& stage, D d, Blocks blocks, Whole whole) {
    const auto rest = static_cast<std::size_t>(stage.rest);
    realForward(
        radix, [&](int q) HWY_ATTR { return blocks.block(static_cast<std::size_t>(q), rest).loadReal(d); },
        [&](auto x) HWY_ATTR { whole.storeReal(d, x); },
        [&](int s, auto x) HWY_ATTR { whole.store(d, static_cast<std::size_t>(s) * rest, x); });
}
template <class T, class Radix, class D, class Blocks, class Whole>
HWY_INLINE void joinColumns(const Radix& radix, const Stage<T>& stage, D d, Blocks blocks, Whole whole, std::size_t k) {
    using X = Cx<hn::Vec<D>>;
    const std::size_t rest = static_cast<std::size_t>(stage.rest), columns = columnsOf(stage);
    const auto at = [=](int q) { return static_cast<std::size_t>(q) * rest; };
    complexButterfly<false>(
        radix,
        [&](int q) __attribute__((always_inline)) {
            const X x = blocks.block(static_cast<std::size_t>(q), rest).load(d, k);
            if (q == 0) return x;
            const T* row = stage.twiddles + static_cast<std::size_t>(q - 1) * 2 * columns;
            return fft::twiddled<false>(x, Blocks::twiddle(d, row, columns, k));
        },
        [&](X x) HWY_ATTR { whole.store(d, k, x); }, [&](int s, X x) HWY_ATTR { whole.store(d, at(s) + k, x); },
        [&](int s, X x) HWY_ATTR { whole.storeBack(d, at(s) - k, conjugate(x)); });
}
template <class T, class Radix, class D, class Blocks, class Whole>
HWY_INLINE void splitReal(const Radix& radix, const Stage<T>& stage, D d, Blocks blocks, Whole whole) {
    const auto rest = static_cast<std::size_t>(stage.rest);
    realInverse(
        radix, whole.loadReal(d), [&](int s) HWY_ATTR { return whole.load(d, static_cast<std::size_t>(s) * rest); },
        [&](int q, auto x) HWY_ATTR { blocks.block(static_cast<std::size_t>(q), rest).storeReal(d, x); });
}
template <class T, class Radix, class D, class Blocks, class Whole>
HWY_INLINE void splitColumns(const Radix& radix, const Stage<T>& stage, D d, Blocks blocks, Whole whole,
                             std::size_t k) {
    using X = Cx<hn::Vec<D>>;
    const std::size_t rest = static_cast<std::size_t>(stage.rest), columns = columnsOf(stage);
    const auto at = [=](int q) { return static_cast<std::size_t>(q) * rest; };
    const auto put = [&](int q, X x) __attribute__((always_inline)) {
        if (q > 0) {
            const T* row = stage.twiddles + static_cast<std::size_t>(q - 1) * 2 * columns;
            x = fft::twiddled<true>(x, Blocks::twiddle(d, row, columns, k));
        }
        blocks.block(static_cast<std::size_t>(q), rest).store(d, k, x);
    };
    complexButterfly<true>(
        radix,
        [&](int s) __attribute__((always_inline)) {
            return s <= radix.half ? X(whole.load(d, at(s) + k)) : conjugate(whole.loadBack(d, at(radix.size - s) - k));
        },
        [&](X x) HWY_ATTR { put(0, x); }, [&](int s, X x) HWY_ATTR { put(s, x); },
        [&](int s, X x) HWY_ATTR { put(radix.size - s, x); });
}

// Lanes over k: runs of full vectors, then of shorter ones.
template <class T, class Columns>
HWY_INLINE void forEachRun(std::size_t columns, Columns body) {
    std::size_t k = 1;
    const auto each = [&](auto d) __attribute__((always_inline)) {
        for (; k + hn::MaxLanes(d) <= columns + 1; k += hn::MaxLanes(d)) body(d, k);
    };
    each(RestTag<T>());
    if constexpr (hn::MaxLanes(RestTag<T>()) > 4) each(hn::CappedTag<T, 4>());
    if constexpr (hn::MaxLanes(RestTag<T>()) > 2) each(hn::CappedTag<T, 2>());
    each(hn::CappedTag<T, 1>());
}
template <class T, class Whole>
void joinBlock(const Stage<T>& stage, Run<T> blocks, Whole whole) {
    withOddRadix<T>(stage.radix, stage.matrix, [&](auto radix) HWY_ATTR {
        joinReal(radix, stage, hn::CappedTag<T, 1>(), blocks, whole);
        forEachRun<T>(columnsOf(stage),
                      [&](auto d, std::size_t k) HWY_ATTR { joinColumns(radix, stage, d, blocks, whole, k); });
    });
}
template <class T, class Whole>
void splitBlock(const Stage<T>& stage, Run<T> blocks, Whole whole) {
    withOddRadix<T>(stage.radix, stage.matrix, [&](auto radix) HWY_ATTR {
        splitReal(radix, stage, hn::CappedTag<T, 1>(), blocks, whole);
        forEachRun<T>(columnsOf(stage),
                      [&](auto d, std::size_t k) HWY_ATTR { splitColumns(radix, stage, d, blocks, whole, k); });
    });
}

// ---- In lanes ----

// The values of each lane's block between its vectors at `local` and the block of that number at `blocks`.
template <bool toBlocks, class D, class T = hn::TFromD<D>>
HWY_INLINE void exchangeLanes(D d, T* local, std::size_t points, T* blocks, const Orb32s* places) {
    constexpr std::size_t lanes = hn::MaxLanes(D());
    const auto block = [=](std::size_t lane) { return blocks + places[lane]; };
    if constexpr (lanes * sizeof(T) >= 16) {
        for (std::size_t n = 0; points >= lanes && n < points; n += lanes) {
            const std::size_t i = std::min(n, points - lanes);
            hn::Vec<D> v[lanes];
            repeat<static_cast<int>(lanes)>([&](int l) __attribute__((always_inline)) {
                const auto lane = static_cast<std::size_t>(l);
                v[l] = toBlocks ? hn::Load(d, local + (i + lane) * lanes) : hn::LoadU(d, block(lane) + i);
            });
            fft::transpose(d, v);
            repeat<static_cast<int>(lanes)>([&](int l) __attribute__((always_inline)) {
                const auto lane = static_cast<std::size_t>(l);
                if constexpr (toBlocks) {
                    hn::StoreU(v[l], d, block(lane) + i);
                } else {
                    hn::Store(v[l], d, local + (i + lane) * lanes);
                }
            });
        }
        if (points >= lanes) return;
    }
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        for (std::size_t i = 0; i < points; ++i) {
            T &ours = local[i * lanes + lane], &theirs = block(lane)[i];
            (toBlocks ? theirs : ours) = toBlocks ? ours : theirs;
        }
    }
}

// Calls body(d, s) so that all of 0 to count - 1 are among the lanes s to s + Lanes(d) - 1; some of them twice.
template <class T, class Body>
HWY_INLINE void forEachStart(std::size_t count, Body body) {
    const auto each = [&](auto d) __attribute__((always_inline)) {
        constexpr std::size_t lanes = hn::MaxLanes(d);
        for (std::size_t s = 0; s < count; s += lanes) body(d, std::min(s, count - lanes));
    };
    constexpr std::size_t most = hn::MaxLanes(RestTag<T>());
    if (count >= most) {
        each(RestTag<T>());
    } else if (most > 4 && count >= 4) {
        each(hn::CappedTag<T, 4>());
    } else if (count >= 2) {
        each(hn::CappedTag<T, 2>());
    } else {
        each(hn::CappedTag<T, 1>());
    }
}

// Calls body(radix, place) for each block of a stage within the leaf at `local`.
template <std::size_t lanes, class T, class Body>
HWY_INLINE void forEachBlockInLanes(const Stage<T>& stage, T* local, std::size_t leaf, Body body) {
    const std::size_t block = pointsOf(stage);
    withOddRadix<T>(
        stage.radix, stage.matrix, [&](auto radix) __attribute__((always_inline)) {
            for (std::size_t b = 0; b < leaf; b += block) body(radix, InLanes<T, lanes>{local + b * lanes, block});
        });
}
// Calls body(radix, place, first) for each of the innermost transforms within the leaf at `local`, `first` being the
// leaf's own sample where it starts.
template <std::size_t lanes, class T, class Body>
HWY_INLINE void forEachInnermostInLanes(const Spec<T>& spec, T* local, std::size_t leaf, Body body) {
    const Stage<T>& final = spec.finalStage();
    const auto points = static_cast<std::size_t>(final.radix);
    withOddRadix<T>(
        final.radix, final.matrix, [&](auto radix) __attribute__((always_inline)) {
            const Orb32s* first = spec.innermostPlaces;
            for (std::size_t b = 0; b < leaf; b += points, ++first)
                body(radix, InLanes<T, lanes>{local + b * lanes, points}, static_cast<std::size_t>(*first));
        });
}

template <class T>
void forwardLeaves(const Spec<T>& spec, const T* src, T* work) {
    const std::size_t leaf = spec.leafPoints(), leaves = spec.leafCount();
    const std::size_t step = leaves * leaf / static_cast<std::size_t>(spec.finalStage().radix);
    forEachStart<T>(
        leaves, [&](auto d, std::size_t start) __attribute__((always_inline)) {
            constexpr std::size_t lanes = hn::MaxLanes(d);
            alignas(64) T local[longestOddLeaf * lanes];
            forEachInnermostInLanes<lanes>(
                spec, local, leaf, [&](auto radix, auto place, std::size_t first) __attribute__((always_inline)) {
                    const T* from = src + start + first * leaves;
                    realForward(
                        radix, [&](int j) HWY_ATTR { return hn::LoadU(d, from + static_cast<std::size_t>(j) * step); },
                        [&](auto x) HWY_ATTR { place.storeReal(d, x); },
                        [&](int k, auto x) HWY_ATTR { place.store(d, static_cast<std::size_t>(k), x); });
                });
            for (int n = spec.stageCount(); n-- > spec.outerStages;) {
                const Stage<T>& stage = spec.stages[n];
                forEachBlockInLanes<lanes>(
                    stage, local, leaf, [&](auto radix, auto place) __attribute__((always_inline)) {
                        joinReal(radix, stage, d, place, place);
                        for (std::size_t k = 1; k <= columnsOf(stage); ++k)
                            joinColumns(radix, stage, d, place, place, k);
                    });
            }
            exchangeLanes<true>(d, local, leaf, work, spec.leafPlaces + start);
        });
}

template <class T>
void inverseLeaves(const Spec<T>& spec, T* work, T* dst, T scale) {
    const std::size_t leaf = spec.leafPoints(), leaves = spec.leafCount();
    const std::size_t step = leaves * leaf / static_cast<std::size_t>(spec.finalStage().radix);
    forEachStart<T>(
        leaves, [&](auto d, std::size_t start) __attribute__((always_inline)) {
            constexpr std::size_t lanes = hn::MaxLanes(d);
            alignas(64) T local[longestOddLeaf * lanes];
            exchangeLanes<false>(d, local, leaf, work, spec.leafPlaces + start);
            for (int n = spec.outerStages; n < spec.stageCount(); ++n) {
                const Stage<T>& stage = spec.stages[n];
                forEachBlockInLanes<lanes>(
                    stage, local, leaf, [&](auto radix, auto place) __attribute__((always_inline)) {
                        splitReal(radix, stage, d, place, place);
                        for (std::size_t k = 1; k <= columnsOf(stage); ++k)
                            splitColumns(radix, stage, d, place, place, k);
                    });
            }
            forEachInnermostInLanes<lanes>(
                spec, local, leaf, [&](auto radix, auto place, std::size_t first) __attribute__((always_inline)) {
                    T* to = dst + start + first * leaves;
                    realInverse(
                        radix, place.loadReal(d),
                        [&](int k) HWY_ATTR { return place.load(d, static_cast<std::size_t>(k)); },
                        [&](int j, auto x) HWY_ATTR {
                            hn::StoreU(x * hn::Set(d, scale), d, to + static_cast<std::size_t>(j) * step);
                        });
                });
        });
}

// ---- Whole transforms, depth first, so that a block that fits into the cache is finished before the next begins ----

template <class T>
void joinFrom(const Spec<T>& spec, int n, T* block) {
    const Stage<T>& stage = spec.stages[n];
    const auto rest = static_cast<std::size_t>(stage.rest);
    if (n + 1 < spec.outerStages)
        for (std::size_t q = 0; q < pointsOf(stage); q += rest) joinFrom(spec, n + 1, block + q);
    const Run<T> run{block, pointsOf(stage)};
    if (n > 0) joinBlock(stage, run, run); // the outermost stage leaves the work area
}
template <class T>
void splitFrom(const Spec<T>& spec, int n, T* block) {
    const Stage<T>& stage = spec.stages[n];
    const auto rest = static_cast<std::size_t>(stage.rest);
    const Run<T> run{block, pointsOf(stage)};
    if (n > 0) splitBlock(stage, run, run);
    if (n + 1 < spec.outerStages)
        for (std::size_t q = 0; q < pointsOf(stage); q += rest) splitFrom(spec, n + 1, block + q);
}

// From the samples to the spectrum, by way of `work`, which has room for as many values as there are samples. Source
// and spectrum may be the same.
template <class T>
void oddForward(const Spec<T>& spec, const T* src, Spectrum<T> spectrum, T* work) {
    forwardLeaves(spec, src, work);
    joinFrom(spec, 0, work);
    joinBlock(spec.stages[0], Run<T>{work, pointsOf(spec.stages[0])}, spectrum);
}
template <class T>
void oddInverse(const Spec<T>& spec, Spectrum<const T> spectrum, T* dst, T scale, T* work) {
    splitBlock(spec.stages[0], Run<T>{work, pointsOf(spec.stages[0])}, spectrum);
    splitFrom(spec, 0, work);
    inverseLeaves(spec, work, dst, scale);
}

} // namespace orbs::dft
