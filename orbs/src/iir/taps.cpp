// Taps over a[0], and the coefficients of four outputs at a time.
#include "foundation/control.h"
#include "iir/groups.h"
#include "iir/state.h"

#include <cmath>

namespace orbs {
namespace {

// 0, or with a NaN in it, which is neither less nor greater than 0 either.
template <class T>
bool isNought(T value) {
    if constexpr (isComplex<T>) {
        return (value.re == 0 && value.im == 0) || std::isnan(value.re) || std::isnan(value.im);
    } else {
        return !(value < 0 || value > 0);
    }
}

struct ExtendedComplex {
    long double re, im;
};
template <class T>
using Extended = std::conditional_t<isComplex<T>, ExtendedComplex, long double>;

// No square leaves the range of extended precision.
template <class T>
T reciprocal(T value) {
    if constexpr (isComplex<T>) {
        const auto [re, im] = cast<ExtendedComplex>(value);
        const long double norm = re * re + im * im;
        return cast<T>(ExtendedComplex{re / norm, -im / norm});
    } else {
        return T{1} / value;
    }
}

// The table of a recursion with r[1] .. r[order] = -a. Its coefficients are rounded once: close to the unit circle the
// error of an output is that of the table.
template <class T>
Part<T>* writeRecursion(Part<T>* table, const T* a, int order) {
    using Wide = Extended<T>;
    const auto r = [=](int k) { return k <= order ? cast<Wide>(negative(a[k - 1])) : Wide{}; };
    const Wide r1 = r(1), r2 = r(2), r3 = r(3);
    for (int i = 1; i <= order; ++i) {
        std::array<Wide, groupLen> wide;
        wide[0] = r(i);
        wide[1] = plus(times(r1, wide[0]), r(i + 1));
        wide[2] = plus(plus(times(r1, wide[1]), times(r2, wide[0])), r(i + 2));
        wide[3] = plus(plus(plus(times(r1, wide[2]), times(r2, wide[1])), times(r3, wide[0])), r(i + 3));
        std::array<T, groupLen> row;
        for (std::size_t j = 0; j < groupLen; ++j) row[j] = cast<T>(wide[j]);
        if (i == 1)
            for (std::size_t k = 0; k < 3; ++k) table = writeInAllElements(table, row[k]);
        table = writeRow(table, row);
    }
    return table;
}

} // namespace

template <class Tap>
OrbStatus setFilterTaps(IirHead<Tap>* state, const Tap* pTaps) {
    const int order = state->order;
    if (isNought(pTaps[order + 1])) return orbStsDivByZeroErr;
    const X87Control extended(X87Control::nearest);
    const Tap c = reciprocal(pTaps[order + 1]);
    Tap* const taps = state->pTaps;
    Tap* const a = taps + order + 1;
    for (int k = 0; k <= order; ++k) taps[k] = times(pTaps[k], c);
    for (int k = 1; k <= order; ++k) a[k - 1] = times(pTaps[order + 1 + k], c);
    writeRecursion<Tap>(state->pYTable, a, order);
    return orbStsNoErr;
}

template <class Tap>
OrbStatus setSectionTaps(IirHead<Tap>* state, const Tap* pTaps) {
    Tap* taps = state->pTaps;
    Part<Tap>* table = state->pSectionTable;
    const X87Control extended(X87Control::nearest);
    for (int s = 0; s < state->numBq; ++s, pTaps += 6, taps += 5) {
        // A filter of order 2 may have a b[0] of 0, a section may not.
        if (isNought(pTaps[3]) || isNought(pTaps[0])) return orbStsDivByZeroErr;
        const Tap c = reciprocal(pTaps[3]);
        for (int k = 0; k < 3; ++k) taps[k] = times(pTaps[k], c);
        for (int k = 0; k < 2; ++k) taps[3 + k] = times(pTaps[4 + k], c);
        for (int k = 0; k < 3; ++k) table = writeInAllElements(table, taps[k]);
        table = writeRecursion(table, taps + 3, 2);
    }
    return orbStsNoErr;
}

template OrbStatus setFilterTaps(IirHead<Orb32f>*, const Orb32f*);
template OrbStatus setFilterTaps(IirHead<Orb32fc>*, const Orb32fc*);
template OrbStatus setFilterTaps(IirHead<Orb64f>*, const Orb64f*);
template OrbStatus setFilterTaps(IirHead<Orb64fc>*, const Orb64fc*);
template OrbStatus setSectionTaps(IirHead<Orb32f>*, const Orb32f*);
template OrbStatus setSectionTaps(IirHead<Orb32fc>*, const Orb32fc*);
template OrbStatus setSectionTaps(IirHead<Orb64f>*, const Orb64f*);
template OrbStatus setSectionTaps(IirHead<Orb64fc>*, const Orb64fc*);

} // namespace orbs
