// Preemphasize: a first-order high pass in place.
#include "foundation/frame.h"
#include "orbs/speech.h"
#include "vectors/narrow.h"
#include "vectors/to_integer.h"

namespace {

using namespace orbs;

// x[n] - val * x[n-1] for the elements from p on.
template <class D>
HWY_INLINE hn::Vec<D> emphasized(D d, const Orb32f* p, Orb32f val) {
    return hn::LoadU(d, p) - hn::Set(d, val) * hn::LoadU(d, p - 1);
}
template <class D>
HWY_INLINE hn::Vec<D> emphasized(D d, const Orb16s* p, Orb32f val) {
    return narrowed(d, [=](auto d32, std::size_t offset) HWY_ATTR {
        const hn::Rebind<Orb16s, decltype(d32)> d16;
        const hn::Rebind<Orb32f, decltype(d32)> df;
        const auto floats = [=](const Orb16s* from)
                                HWY_ATTR { return hn::ConvertTo(df, hn::PromoteTo(d32, hn::LoadU(d16, from))); };
        const auto y = floats(p + offset) - hn::Set(df, val) * floats(p + offset - 1);
        return nearestInt32(hn::Min(hn::Set(df, 32767), y)); // of a NaN the NaN, and the least number
    });
}

// From the end on down: what is read lies below what was written.
template <class T>
OrbStatus preemphasize(T* pSrcDst, int len, Orb32f val) {
    if (const OrbStatus status = checkVectors(len, pSrcDst)) return status;
    auto n = static_cast<std::size_t>(len);
    const auto each = [&](auto d) HWY_ATTR {
        constexpr std::size_t lanes = hn::MaxLanes(d);
        for (; n > lanes; n -= lanes) hn::StoreU(emphasized(d, pSrcDst + n - lanes, val), d, pSrcDst + n - lanes);
    };
    each(hn::ScalableTag<T>());
    each(hn::CappedTag<T, 4>());
    each(hn::CappedTag<T, 1>());
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsPreemphasize_32f(Orb32f* pSrcDst, int len, Orb32f val) { return preemphasize(pSrcDst, len, val); }
OrbStatus orbsPreemphasize_16s(Orb16s* pSrcDst, int len, Orb32f val) { return preemphasize(pSrcDst, len, val); }

}
// clang-format on
