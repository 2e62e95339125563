// VectorSlope: straight lines by repeated addition, saturated.
#include "foundation/frame.h"
#include "generators/samples.h"
#include "orbs/data.h"
#include "orbs/generators.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

using namespace orbs;

template <class T>
void setAll(T value, T* dst, int len) {
    if constexpr (sizeof(T) == 1) orbsSet_8u(std::bit_cast<Orb8u>(value), reinterpret_cast<Orb8u*>(dst), len);
    if constexpr (sizeof(T) == 2) orbsSet_16s(std::bit_cast<Orb16s>(value), reinterpret_cast<Orb16s*>(dst), len);
    if constexpr (sizeof(T) == 4) orbsSet_32s(std::bit_cast<Orb32s>(value), reinterpret_cast<Orb32s*>(dst), len);
    if constexpr (sizeof(T) == 8) orbsSet_64s(std::bit_cast<Orb64s>(value), reinterpret_cast<Orb64s*>(dst), len);
}

// What a slope of 0 gives: floats as they are, others to the nearest integer of T, a half away from zero.
template <class T, class Real>
T constant(Real offset) {
    if constexpr (std::is_same_v<T, Real>) {
        return offset;
    } else {
        constexpr Orb64f least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
        return static_cast<T>(std::round(offset >= most ? most : offset > least ? offset : least));
    }
}

// The number of the first element behind a crossing.
int crossing(Orb32f number) {
    if (number >= 0x1p31f) return std::numeric_limits<int>::max();
    return number > 0 ? static_cast<int>(number) : 0;
}

// Four lanes, each of which adds up its own rounding errors.
template <class T, class Real>
void line(T* dst, std::size_t len, Real offset, Real slope) {
    const hn::CappedTag<Real, 4> d;
    constexpr std::size_t lanes = hn::MaxLanes(d), vectors = 4 / lanes;
    const auto store = [](auto tag, auto v, T* p) HWY_ATTR {
        if constexpr (std::is_same_v<T, Real>) {
            hn::StoreU(v, tag, p);
        } else {
            storeLimited(tag, v, p, RoundedToNearest{});
        }
    };
    const Real twice = slope + slope;
    const auto step = hn::Set(d, twice + twice), from = hn::Set(d, offset);
    hn::Vec<decltype(d)> sum[vectors];
    for (std::size_t k = 0; k < vectors; ++k) sum[k] = hn::Set(d, slope) * hn::Iota(d, static_cast<Real>(k * lanes));
    std::size_t n = 0;
    for (; n + 4 <= len; n += 4) {
        for (std::size_t k = 0; k < vectors; ++k) {
            store(d, sum[k] + from, dst + n + k * lanes);
            sum[k] += step;
        }
    }
    if (n == len) return;
    Real rest[4];
    for (std::size_t k = 0; k < vectors; ++k) hn::StoreU(sum[k] + from, d, rest + k * lanes);
    const hn::CappedTag<Real, 1> one;
    for (std::size_t k = 0; n < len; ++n, ++k) store(one, hn::Set(one, rest[k]), dst + n);
}

template <class T, class Real>
OrbStatus saturatedLine(T* pDst, int len, Real offset, Real slope) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    const bool rises = slope > 0;
    if (!rises && !(slope < 0)) { // NaN too
        setAll(constant<T>(offset), pDst, len);
        return orbStsNoErr;
    }
    if constexpr (!std::is_same_v<T, Real>) {
        // Where the line leaves the range, in single precision: long vectors saturate a little beside the place.
        constexpr T ends[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
        const T entered = ends[!rises], left = ends[rises];
        const auto reciprocal = static_cast<Orb32f>(1 / slope);
        const auto crosses = [=](T end) {
            return crossing(static_cast<Orb32f>((static_cast<Real>(end) - offset) * reciprocal + 1));
        };
        const int tail = crosses(left);
        if (0 < tail && tail < len) {
            setAll(left, pDst + tail, len - tail);
            len = tail;
        }
        const int head = std::min(crosses(entered), len);
        if (head > 0) {
            setAll(entered, pDst, head);
            offset += static_cast<Real>(head) * slope;
            pDst += head;
            len -= head;
        }
    }
    line(pDst, static_cast<std::size_t>(len), offset, slope);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsVectorSlope_8u(Orb8u* pDst, int len, Orb32f offset, Orb32f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_8s(Orb8s* pDst, int len, Orb32f offset, Orb32f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_16u(Orb16u* pDst, int len, Orb32f offset, Orb32f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_16s(Orb16s* pDst, int len, Orb32f offset, Orb32f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_32u(Orb32u* pDst, int len, Orb64f offset, Orb64f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_32s(Orb32s* pDst, int len, Orb64f offset, Orb64f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_32f(Orb32f* pDst, int len, Orb32f offset, Orb32f slope) { return saturatedLine(pDst, len, offset, slope); }
OrbStatus orbsVectorSlope_64f(Orb64f* pDst, int len, Orb64f offset, Orb64f slope) { return saturatedLine(pDst, len, offset, slope); }

}
// clang-format on
