// Heap sort: slow, but its time does not depend on the keys.
#pragma once

#include "foundation/frame.h"

namespace orbs {

template <class T>
void siftDown(T* heap, std::size_t root, std::size_t count) {
    const T key = elementAt(heap + root);
    for (std::size_t child; (child = 2 * root + 1) < count; root = child) {
        if (child + 1 < count && elementAt(heap + child) < elementAt(heap + child + 1)) ++child;
        if (elementAt(heap + child) <= key) break;
        setElement(heap + root, elementAt(heap + child));
    }
    setElement(heap + root, key);
}

template <class T>
void heapSort(T* keys, std::size_t count) {
    for (std::size_t root = count / 2; root-- > 0;) siftDown(keys, root, count);
    for (std::size_t last = count; last-- > 1;) {
        const T greatest = elementAt(keys);
        setElement(keys, elementAt(keys + last));
        setElement(keys + last, greatest);
        siftDown(keys, 0, last);
    }
}

} // namespace orbs
