#include "support/complex_shape.h"

#include <algorithm>

namespace {

using namespace complex_shape;

template <class T>
using OutOfPlace = OrbStatus (*)(const T*, T*, int);
template <class T>
using InPlace = OrbStatus (*)(T*, int);

// The member with its destination over its source.
template <class T>
auto overItself(OutOfPlace<T> member) {
    return [member](T* srcDst, int len) { return member(srcDst, srcDst, len); };
}

template <class T>
void expectFlips(OutOfPlace<T> flip, InPlace<T> flipInPlace) {
    SCOPED_TRACE(callOf(flip));
    for (const std::size_t len : lengths()) {
        const auto src = elements<T>(len);
        const std::vector<T> want(src.rbegin(), src.rend());
        expectResult(flip, src, want);
        expectInPlace(flipInPlace, src, want);
        expectInPlace(overItself(flip), src, want);
    }
}

template <class T>
void expectConjugateFlips(OutOfPlace<T> conjFlip) {
    SCOPED_TRACE(callOf(conjFlip));
    for (const std::size_t len : lengths()) {
        const auto src = elements<T>(len);
        std::vector<T> want(src.rbegin(), src.rend());
        std::transform(want.begin(), want.end(), want.begin(), conjugate<T>);
        expectResult(conjFlip, src, want);
        expectInPlace(overItself(conjFlip), src, want);
    }
}

template <class T>
void expectConjugates(OutOfPlace<T> conj, InPlace<T> conjInPlace) {
    SCOPED_TRACE(callOf(conj));
    for (const std::size_t len : lengths()) {
        const auto src = elements<T>(len);
        auto want = src;
        std::transform(want.begin(), want.end(), want.begin(), conjugate<T>);
        expectResult(conj, src, want);
        expectInPlace(conjInPlace, src, want);
        expectInPlace(overItself(conj), src, want);
    }
}

TEST(Flip, ReversesInPlaceAndOutOfPlace) {
    expectFlips(orbsFlip_8u, orbsFlip_8u_I);
    expectFlips(orbsFlip_16u, orbsFlip_16u_I);
    expectFlips(orbsFlip_32f, orbsFlip_32f_I);
    expectFlips(orbsFlip_32fc, orbsFlip_32fc_I);
    expectFlips(orbsFlip_64f, orbsFlip_64f_I);
    expectFlips(orbsFlip_64fc, orbsFlip_64fc_I);
}

TEST(ConjFlip, ReversesAndConjugates) {
    expectConjugateFlips(orbsConjFlip_16sc);
    expectConjugateFlips(orbsConjFlip_32fc);
    expectConjugateFlips(orbsConjFlip_64fc);
}

TEST(Conj, ChangesTheSignBitOfFloatsAndSaturatesIntegers) {
    expectConjugates(orbsConj_16sc, orbsConj_16sc_I);
    expectConjugates(orbsConj_32fc, orbsConj_32fc_I);
    expectConjugates(orbsConj_64fc, orbsConj_64fc_I);
}

} // namespace
