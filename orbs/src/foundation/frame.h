// The shape of every exported function: null tests in argument order, then the length, then what is particular to the
// family, then the work, then a status.
#pragma once

#include "orbdefs.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace orbs {

template <class... T>
constexpr bool anyNull(const T*... pointers) {
    return (... || (pointers == nullptr));
}

// The first two tests of a primitive over vectors.
template <class... T>
constexpr OrbStatus checkVectors(int len, const T*... pointers) {
    if (anyNull(pointers...)) return orbStsNullPtrErr;
    if (len < 1) return orbStsSizeErr;
    return orbStsNoErr;
}

// Vectors may lie at any address. An element on its own is read and written through this type, which says so.
template <class T>
struct [[gnu::packed, gnu::may_alias]] AnyAddress {
    T value;
};
template <class T>
T elementAt(const T* p) {
    return reinterpret_cast<const AnyAddress<T>*>(p)->value;
}
template <class T>
void setElement(T* p, std::type_identity_t<T> value) {
    reinterpret_cast<AnyAddress<T>*>(p)->value = value;
}

// The real type of a complex element, e.g. Orb16s of Orb16sc.
template <class C>
using RealOf = decltype(C::re);

template <class C>
constexpr bool isComplex = requires(C c) {
    c.re;
    c.im;
};

// An array of complex elements is an interleaved array of real ones.
template <class C>
const RealOf<C>* asReal(const C* p) {
    return reinterpret_cast<const RealOf<C>*>(p);
}
template <class C>
RealOf<C>* asReal(C* p) {
    return reinterpret_cast<RealOf<C>*>(p);
}

// A complex primitive that is the real one over twice the length tests len before the real one tests its pointers, and
// the doubled length wraps in 32 bits: a caller sees -6 for a null pointer together with a length of 0.
template <class Real>
OrbStatus overDoubledLength(int len, Real real) {
    if (len < 1) return orbStsSizeErr;
    return real(static_cast<int>(static_cast<Orb32u>(len) * 2u));
}

} // namespace orbs
