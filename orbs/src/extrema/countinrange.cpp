// CountInRange: how many elements lie between two bounds, both exclusive.
#include "orbs/extrema.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

// Moved so that those within the bounds are the least numbers of 32 bits: one comparison tells them.
class Range {
public:
    Range(Orb32s lower, Orb32s upper)
        : lowest_(static_cast<Orb32u>(lower) + 1),
          width_(lower < upper ? static_cast<Orb32u>(upper) - static_cast<Orb32u>(lower) - 1 : 0) {}

    bool contains(Orb32s x) const { return static_cast<Orb32u>(x) - lowest_ < width_; }
    // -1 in the lanes within.
    template <class D, class V>
    V within(D d, V v) const {
        constexpr Orb32u least = 0x80000000;
        const V moved = hn::Sub(v, hn::Set(d, static_cast<Orb32s>(lowest_ - least)));
        return hn::VecFromMask(d, hn::Lt(moved, hn::Set(d, static_cast<Orb32s>(least + width_))));
    }

private:
    Orb32u lowest_, width_;
};

Orb32s countWithin(Range range, const Orb32s* src, std::size_t len) {
    const hn::ScalableTag<Orb32s> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    auto some = hn::Zero(d), others = some;
    std::size_t n = 0;
    for (; n + 2 * lanes <= len; n += 2 * lanes) {
        some = hn::Sub(some, range.within(d, hn::LoadU(d, src + n)));
        others = hn::Sub(others, range.within(d, hn::LoadU(d, src + n + lanes)));
    }
    Orb32s rest = 0;
    for (; n < len; ++n) rest += range.contains(elementAt(src + n));
    return rest + hn::GetLane(hn::SumOfLanes(d, hn::Add(some, others)));
}

} // namespace

extern "C" {

OrbStatus orbsCountInRange_32s(const Orb32s* pSrc, int len, Orb32s* pCounts, Orb32s lowerBound, Orb32s upperBound) {
    if (const OrbStatus status = checkVectors(len, pSrc, pCounts)) return status;
    setElement(pCounts, countWithin({lowerBound, upperBound}, pSrc, static_cast<std::size_t>(len)));
    return orbStsNoErr;
}
}
