// VectorJaehne: chirps from frequency 0 to a quarter of a turn an element.
#include "foundation/frame.h"
#include "generators/samples.h"
#include "orbs/foundation.h"
#include "orbs/generators.h"
#include "vectors/sincos.h"

namespace {

using namespace orbs;

// magn * sin((c n) n), c = pi/2 / len
struct Chirp {
    Orb64f magn, c;

    template <class D, class V>
    HWY_INLINE hn::Vec<D> at(D d, V numbers) const {
        const auto number = asFloats(d, numbers);
        return hn::Set(d, magn) * sinCos(d, (hn::Set(d, c) * number) * number).sin;
    }
};

template <class T>
Chirp chirpOf(T magn, int len) {
    return {static_cast<Orb64f>(magn), 1.5707963267948966 / len};
}

template <class T>
OrbStatus jaehne(T* pDst, int len, T magn) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    if (!(magn >= 0)) return orbStsJaehneErr;
    if (len == 1) {
        setElement(pDst, 0);
        return orbStsNoErr;
    }
    const Chirp chirp = chirpOf(magn, len);
    forEachNumbered<Orb64f>(0, static_cast<std::size_t>(len), [=](auto d, std::size_t n, auto numbers) HWY_ATTR {
        const auto sample = chirp.at(d, numbers);
        if constexpr (std::is_floating_point_v<T>) {
            storeNarrowed(d, sample, pDst + n);
        } else {
            storeRoundedAway(d, sample, pDst + n);
        }
    });
    return orbStsNoErr;
}

// Moved and scaled so that the least sample becomes 0 and the greatest magn.
template <class T>
OrbStatus jaehneFromZero(T* pDst, int len, T magn) {
    if (const OrbStatus status = checkVectors(len, pDst)) return status;
    if (len == 1) {
        setElement(pDst, 0);
        return orbStsNoErr;
    }
    // The allocator counts bytes in 32 bits, and gives less than was asked for where that is not enough.
    constexpr Orb32u mostBytes = std::numeric_limits<Orb32u>::max() - 64;
    const auto count = static_cast<std::size_t>(len);
    Orb64f* const samples = static_cast<Orb32u>(len) > mostBytes / sizeof(Orb64f) ? nullptr : orbsMalloc_64f(len);
    if (!samples) return orbStsMemAllocErr;

    const hn::ScalableTag<Orb64f> full;
    const Chirp chirp = chirpOf(magn, len);
    auto least = hn::Zero(full), greatest = hn::Zero(full); // the first sample is 0
    forEachNumbered<Orb64f>(0, count, [=, &least, &greatest](auto d, std::size_t n, auto numbers) HWY_ATTR {
        const auto sample = chirp.at(d, numbers);
        hn::StoreU(sample, d, samples + n);
        if constexpr (std::is_same_v<decltype(d), decltype(full)>) {
            least = hn::Min(least, sample);
            greatest = hn::Max(greatest, sample);
        } else {
            least = hn::Min(least, hn::Set(full, hn::GetLane(hn::MinOfLanes(d, sample))));
            greatest = hn::Max(greatest, hn::Set(full, hn::GetLane(hn::MaxOfLanes(d, sample))));
        }
    });
    const Orb64f bottom = hn::GetLane(hn::MinOfLanes(full, least));
    const Orb64f span = hn::GetLane(hn::MaxOfLanes(full, greatest)) - bottom;
    const Orb64f scale = span > 0 ? static_cast<Orb64f>(magn) / span : 0;
    forEachVector<Orb64f>(count, samples, [=](auto d, std::size_t n) HWY_ATTR {
        const auto above = hn::LoadU(d, samples + n) - hn::Set(d, bottom);
        storeNarrowed(d, above * hn::Set(d, scale) + hn::Set(d, 0.5), pDst + n);
    });
    orbsFree(samples);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsVectorJaehne_8u(Orb8u* pDst, int len, Orb8u magn) { return jaehneFromZero(pDst, len, magn); }
OrbStatus orbsVectorJaehne_8s(Orb8s* pDst, int len, Orb8s magn) { return jaehne(pDst, len, magn); }
OrbStatus orbsVectorJaehne_16u(Orb16u* pDst, int len, Orb16u magn) { return jaehneFromZero(pDst, len, magn); }
OrbStatus orbsVectorJaehne_16s(Orb16s* pDst, int len, Orb16s magn) { return jaehne(pDst, len, magn); }
OrbStatus orbsVectorJaehne_32u(Orb32u* pDst, int len, Orb32u magn) { return jaehneFromZero(pDst, len, magn); }
OrbStatus orbsVectorJaehne_32s(Orb32s* pDst, int len, int magn) { return jaehne(pDst, len, magn); }
OrbStatus orbsVectorJaehne_32f(Orb32f* pDst, int len, Orb32f magn) { return jaehne(pDst, len, magn); }
OrbStatus orbsVectorJaehne_64f(Orb64f* pDst, int len, Orb64f magn) { return jaehne(pDst, len, magn); }

}
// clang-format on
