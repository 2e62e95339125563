// SortIndexAscend, SortIndexDescend: the keys in order, and where each came from.
#include "foundation/frame.h"
#include "orbs/sorting.h"

#include <algorithm>
#include <numeric>

namespace {

using namespace orbs;

// Where equal keys' indices end is decided by each exchange, so these steps are the contract, in both directions.
struct Ascending {
    template <class T>
    static bool above(T a, T b) {
        return a > b;
    }
};
struct Descending {
    template <class T>
    static bool above(T a, T b) {
        return a < b;
    }
};

template <class Order, class T>
class IndexSort {
public:
    IndexSort(T* keys, Orb32s* indices) : keys_(keys), indices_(indices) {}

    void sort(std::size_t count) {
        std::size_t depth = 0;
        for (Span span{0, count - 1};;) {
            if (span.count() > selectedUpTo) {
                split(span, depth);
                continue;
            }
            select(span);
            if (depth == 0) return;
            span = stack_[--depth];
        }
    }

private:
    static constexpr std::size_t selectedUpTo = 9;
    struct Span {
        std::size_t first, last;
        std::size_t count() const { return last - first + 1; }
    };

    T key(std::size_t n) const { return elementAt(keys_ + n); }
    bool above(std::size_t a, std::size_t b) const { return Order::above(key(a), key(b)); }
    void exchange(std::size_t a, std::size_t b) {
        const T keyOfA = key(a);
        const Orb32s indexOfA = elementAt(indices_ + a);
        setElement(keys_ + a, key(b));
        setElement(indices_ + a, elementAt(indices_ + b));
        setElement(keys_ + b, keyOfA);
        setElement(indices_ + b, indexOfA);
    }
    void order(std::size_t a, std::size_t b) {
        if (above(a, b)) exchange(a, b);
    }

    // The first of the greatest keys goes to the end, again and again.
    void select(Span span) {
        for (; span.last > span.first; --span.last) {
            std::size_t greatest = span.first;
            for (std::size_t n = span.first + 1; n <= span.last; ++n)
                if (above(n, greatest)) greatest = n;
            exchange(greatest, span.last);
        }
    }

    // Places of a block whose keys belong to the other side of the pivot, as distances from its begin.
    struct Misplaced {
        static constexpr std::size_t block = 32;
        Orb8u distances[block];
        std::size_t next = 0, count = 0;

        template <class Test>
        void find(Test isMisplaced) {
            next = count = 0;
            for (std::size_t n = 0; n < block; ++n) {
                distances[count] = static_cast<Orb8u>(n);
                count += isMisplaced(n);
            }
        }
        std::size_t take() { return --count, distances[next++]; }
    };

    // A partition exchanges the keys above the pivot, from the left, with those that are not, from the right. As long
    // as the two are not near each other they are found without a branch on a key. i is where the left scan goes on;
    // what lies behind j is above the pivot.
    void exchangeByBlocks(std::size_t& i, std::size_t& j, T pivot) {
        constexpr std::size_t block = Misplaced::block;
        Misplaced low, high;
        while (j - i + 1 >= 2 * block) {
            if (low.count == 0) low.find([&](std::size_t n) { return Order::above(key(i + n), pivot); });
            if (high.count == 0) high.find([&](std::size_t n) { return !Order::above(key(j - n), pivot); });
            for (std::size_t pairs = std::min(low.count, high.count); pairs > 0; --pairs)
                exchange(i + low.take(), j - high.take());
            if (low.count == 0) i += block;
            if (high.count == 0) j -= block;
        }
    }

    // Leaves the shorter part in `span`; the longer one waits.
    void split(Span& span, std::size_t& depth) {
        const auto [first, last] = span;
        const std::size_t middle = first + (span.count() >> 1);
        order(first + 1, first);
        order(first, middle);
        order(middle, last);
        order(first, middle);
        const T pivot = key(middle);

        std::size_t i = first + 1, j = last;
        exchangeByBlocks(i, j, pivot);
        if (j != last) ++j; // which the scan from the right has passed
        for (;;) {
            while (i != j && !Order::above(key(i), pivot)) ++i;
            while (i != j && Order::above(key(j), pivot)) --j;
            if (i == j) break;
            exchange(i, j);
        }
        Span low{first, i - 1}, high{j, last};
        while (low.last != first && key(low.last) == pivot) --low.last;

        if (low.count() >= high.count()) std::swap(low, high);
        // A part of one key is in its place.
        if (low.count() > 1) {
            stack_[depth++] = high;
            span = low;
        } else {
            span = high;
        }
    }

    T* keys_;
    Orb32s* indices_;
    Span stack_[32];
};

template <class Order, class T>
OrbStatus sortedWithIndex(T* pSrcDst, Orb32s* pDstIdx, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcDst, pDstIdx)) return status;
    if (len == 1) return orbStsNoErr;
    for (int n = 0; n < len; ++n) setElement(pDstIdx + n, n);
    IndexSort<Order, T>(pSrcDst, pDstIdx).sort(static_cast<std::size_t>(len));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSortIndexAscend_8u_I(Orb8u* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexAscend_16s_I(Orb16s* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexAscend_16u_I(Orb16u* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexAscend_32s_I(Orb32s* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexAscend_32f_I(Orb32f* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexAscend_64f_I(Orb64f* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Ascending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_8u_I(Orb8u* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_16s_I(Orb16s* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_16u_I(Orb16u* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_32s_I(Orb32s* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_32f_I(Orb32f* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }
OrbStatus orbsSortIndexDescend_64f_I(Orb64f* pSrcDst, Orb32s* pDstIdx, int len) { return sortedWithIndex<Descending>(pSrcDst, pDstIdx, len); }

}
