// CountInRange: how many elements lie between two bounds, both exclusive.
#include "orbs/extrema.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

Orb32s countBetween(const Orb32s* src, std::size_t len, Orb32s lower, Orb32s upper) {
    const hn::ScalableTag<Orb32s> d;
    const auto low = hn::Set(d, lower), high = hn::Set(d, upper);
    auto counts = hn::Zero(d);
    const auto count = [&](auto v) HWY_ATTR {
        counts = hn::Sub(counts, hn::VecFromMask(d, hn::And(hn::Gt(v, low), hn::Lt(v, high))));
    };
    std::size_t n = 0;
    for (; n + hn::MaxLanes(d) <= len; n += hn::MaxLanes(d)) count(hn::LoadU(d, src + n));
    Orb32s rest = 0;
    for (; n < len; ++n) {
        const Orb32s x = elementAt(src + n);
        rest += x > lower && x < upper;
    }
    return rest + hn::GetLane(hn::SumOfLanes(d, counts));
}

} // namespace

extern "C" {

OrbStatus orbsCountInRange_32s(const Orb32s* pSrc, int len, Orb32s* pCounts, Orb32s lowerBound, Orb32s upperBound) {
    if (const OrbStatus status = checkVectors(len, pSrc, pCounts)) return status;
    setElement(pCounts, countBetween(pSrc, static_cast<std::size_t>(len), lowerBound, upperBound));
    return orbStsNoErr;
}
}
