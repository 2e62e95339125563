// Quicksort of keys: partitions by vectors, networks for what is few.
#include "sorting/keys.h"

#include "sorting/heap.h"
#include "sorting/network.h"
#include "sorting/partition.h"
#include "vectors/reverse.h"

#include <bit>

namespace {

using namespace orbs;

// ---- What is in order already ----

template <class T>
bool isOrdered(const T* keys, std::size_t count, bool descending) {
    std::size_t n = 0;
    bool ordered = true;
    const auto compare = [&](auto d, std::size_t at) HWY_ATTR {
        const auto a = hn::LoadU(d, keys + at), b = hn::LoadU(d, keys + at + 1);
        return hn::AllFalse(d, descending ? hn::Gt(b, a) : hn::Gt(a, b));
    };
    const hn::ScalableTag<T> full;
    for (; ordered && n + hn::MaxLanes(full) < count; n += hn::MaxLanes(full)) ordered = compare(full, n);
    for (; ordered && n + 1 < count; ++n) ordered = compare(hn::CappedTag<T, 1>(), n);
    return ordered;
}

// ---- Keys of 16 bits: many of few values ----

constexpr int countableValues = 4096;

void countKeys(Orb16s* keys, std::size_t count, int least, int most) {
    Orb32u counts[countableValues];
    std::memset(counts, 0, static_cast<std::size_t>(most - least + 1) * sizeof counts[0]);
    for (std::size_t n = 0; n < count; ++n) ++counts[elementAt(keys + n) - least];
    const hn::ScalableTag<Orb16s> d;
    Orb16s *at = keys, *const end = keys + count;
    for (int value = least; value <= most; ++value) {
        const auto key = static_cast<Orb16s>(value);
        Orb16s* const next = at + counts[value - least];
        // What a whole vector writes too much, the next value's overwrites.
        while (at < next && static_cast<std::size_t>(end - at) >= hn::MaxLanes(d)) {
            hn::StoreU(hn::Set(d, key), d, at);
            at += hn::MaxLanes(d);
        }
        for (; at < next; ++at) setElement(at, key);
        at = next;
    }
}

// ---- Quicksort ----

template <class T>
class Quicksort {
    using D = SplitTag<T>;

public:
    HWY_NOINLINE void sort(T* keys, std::size_t count) {
        const auto levels = static_cast<int>(2 * std::bit_width(count) + 8);
        Span span{keys, count, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), levels};
        Span* top = stack_;
        for (;;) {
            if (!sortsAtOnce(span)) {
                const T pivot = std::min(choosePivot(span.keys, span.count), static_cast<T>(span.most - 1));
                const std::size_t upTo = partition_(span.keys, span.count, pivot);
                const int levelsLeft = span.levels - 1;
                const Span low{span.keys, upTo, span.least, pivot, levelsLeft};
                const Span high{span.keys + upTo, span.count - upTo, static_cast<T>(pivot + 1), span.most, levelsLeft};
                // The longer one waits, so that no more wait than a length has bits.
                const bool lowIsLonger = low.count > high.count;
                *top++ = lowIsLonger ? low : high;
                span = lowIsLonger ? high : low;
            } else {
                if (top == stack_) return;
                span = *--top;
            }
        }
    }

private:
    // Keys from `least` to `most`.
    struct Span {
        T* keys;
        std::size_t count;
        T least, most;
        int levels;
    };

    bool sortsAtOnce(const Span& span) {
        if (span.least == span.most || span.count < 2) return true;
        if (span.count <= networkKeys<T>) {
            sortFew(span.keys, span.count);
            return true;
        }
        if constexpr (sizeof(T) == 2) {
            const int values = span.most - span.least + 1;
            if (values <= countableValues && span.count / 2 >= static_cast<std::size_t>(values)) {
                countKeys(span.keys, span.count, span.least, span.most);
                return true;
            }
        }
        if (span.levels == 0) heapSort(span.keys, span.count);
        return span.levels == 0;
    }

    // Near the median: of lanes that are medians of nine, the middle one of three.
    HWY_INLINE T choosePivot(const T* keys, std::size_t count) {
        const D d;
        const auto sample = [&]() HWY_ATTR { return hn::LoadU(d, keys + place(count - hn::MaxLanes(d))); };
        const auto a = middle(sample(), sample(), sample());
        const auto b = middle(sample(), sample(), sample());
        const auto c = middle(sample(), sample(), sample());
        T medians[hn::MaxLanes(d)];
        hn::StoreU(middle(a, b, c), d, medians);
        const T first = medians[0], second = medians[hn::MaxLanes(d) / 2], last = medians[hn::MaxLanes(d) - 1];
        return std::max(std::min(first, second), std::min(std::max(first, second), last));
    }
    template <class V>
    static HWY_INLINE V middle(V a, V b, V c) {
        return hn::Max(hn::Min(a, b), hn::Min(hn::Max(a, b), c));
    }
    // Any place from 0 to `last`, so that no order of the keys meets the samples for long.
    std::size_t place(std::size_t last) {
        random_ = random_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::size_t>((random_ >> 32) * (std::uint64_t{last} + 1) >> 32);
    }

    std::uint64_t random_ = 1;
    Span stack_[32];
    Partition<D> partition_;
};

template <class T>
void insertionSort(T* keys, std::size_t count) {
    for (std::size_t n = 1; n < count; ++n) {
        const T key = elementAt(keys + n);
        std::size_t at = n;
        for (; at > 0 && elementAt(keys + at - 1) > key; --at) setElement(keys + at, elementAt(keys + at - 1));
        setElement(keys + at, key);
    }
}

template <class T>
void sortAny(T* keys, std::size_t count) {
    if (count < 12) return insertionSort(keys, count);
    if (isOrdered(keys, count, false)) return;
    if (count <= networkKeys<T>) {
        sortFew(keys, count);
    } else if (isOrdered(keys, count, true)) {
        reverse<Same, 1>(keys, keys, count);
    } else {
        Quicksort<T> quicksort;
        quicksort.sort(keys, count);
    }
}

} // namespace

void orbs::sortKeys(Orb16s* keys, std::size_t count) {
    sortAny(keys, count);
}
void orbs::sortKeys(Orb32s* keys, std::size_t count) {
    sortAny(keys, count);
}
void orbs::sortKeys(std::int64_t* keys, std::size_t count) {
    sortAny(keys, count);
}
