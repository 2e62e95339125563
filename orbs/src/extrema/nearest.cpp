// FindNearest, FindNearestOne: the nearest entry of an ascending table.
#include "foundation/frame.h"
#include "orbs/extrema.h"

#include <algorithm>

namespace {

using namespace orbs;

// `count` values side by side: a search is a chain of loads, each of which waits for the last one. All chains take the
// same steps, so there is no branch to guess.
template <int count>
void nearest(const Orb16u* vals, Orb16u* outVals, Orb32s* outIndexes, const Orb16u* table, int tblLen) {
    const auto entry = [=](int place) { return int{elementAt(table + place)}; };
    const int last = tblLen - 1, lowest = entry(0), highest = entry(last);
    int v[count], base[count] = {};
    for (int k = 0; k < count; ++k) v[k] = elementAt(vals + k);
    for (int span = last; span > 1;) {
        const int half = span >> 1;
        for (int k = 0; k < count; ++k) base[k] += entry(base[k] + half) <= v[k] ? half : 0;
        span -= half;
    }
    for (int k = 0; k < count; ++k) {
        const int next = std::min(base[k] + 1, last);
        int place = v[k] - entry(base[k]) > entry(next) - v[k] ? next : base[k];
        // Of equal entries at the ends the outer one counts.
        if (v[k] >= highest) place = last;
        if (v[k] <= lowest) place = 0;
        setElement(outVals + k, static_cast<Orb16u>(entry(place)));
        setElement(outIndexes + k, place);
    }
}

} // namespace

extern "C" {

OrbStatus orbsFindNearestOne_16u(Orb16u inpVal, Orb16u* pOutVal, Orb32s* pOutIndx, const Orb16u* pTable, int tblLen) {
    if (const OrbStatus status = checkVectors(tblLen, pOutVal, pOutIndx, pTable)) return status;
    nearest<1>(&inpVal, pOutVal, pOutIndx, pTable, tblLen);
    return orbStsNoErr;
}

OrbStatus orbsFindNearest_16u(const Orb16u* pVals, Orb16u* pOutVals, Orb32s* pOutIndexes, int len, const Orb16u* pTable,
                              int tblLen) {
    if (const OrbStatus status = checkVectors(std::min(len, tblLen), pVals, pOutVals, pOutIndexes, pTable))
        return status;
    constexpr int together = 8;
    int n = 0;
    for (; n <= len - together; n += together)
        nearest<together>(pVals + n, pOutVals + n, pOutIndexes + n, pTable, tblLen);
    for (; n < len; ++n) nearest<1>(pVals + n, pOutVals + n, pOutIndexes + n, pTable, tblLen);
    return orbStsNoErr;
}
}
