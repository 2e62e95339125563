// What a norm is of: the elements of a vector, or the differences of those of two.
#pragma once

#include "reductions/reduce.h"

namespace orbs {

template <class D, class T>
HWY_INLINE hn::Vec<D> difference(D d, const T* p) {
    return loadAs(d, p);
}
template <class D, class T>
HWY_INLINE hn::Vec<D> difference(D d, const T* p1, const T* p2) {
    return hn::Sub(loadAs(d, p1), loadAs(d, p2));
}

} // namespace orbs
