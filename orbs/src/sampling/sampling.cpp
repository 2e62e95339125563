// SampleUp, SampleDown: elements spread with zeros between them, and every factor-th one kept.
#include "orbs/sampling.h"
#include "foundation/frame.h"
#include "vectors/loops.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

// Elements as bits. Those of 16 bytes fill a vector each and go one by one.
template <class T>
using Lane = std::conditional_t<
    sizeof(T) == 2, std::uint16_t,
    std::conditional_t<sizeof(T) == 4, std::uint32_t, std::conditional_t<sizeof(T) == 8, std::uint64_t, void>>>;

// Calls body(d, n) for n = 0, lanes, ... while `factor` vectors from factor * n on lie within `span` elements.
template <class T, class Body>
HWY_INLINE std::size_t forSpreadVectors(std::size_t span, std::size_t factor, Body body) {
    const RestTag<Lane<T>> d;
    constexpr std::size_t lanes = hn::MaxLanes(d);
    std::size_t n = 0;
    for (; factor * (n + lanes) <= span; n += lanes) body(d, n);
    return n;
}

// ---- Up ----

// Zeros, then the elements among them, in pieces that stay in the cache.
template <class T>
void scatter(std::size_t count, std::size_t factor, std::size_t phase, const T* src, T* dst) {
    const std::size_t piece = std::max<std::size_t>(1, 16384 / sizeof(T) / factor);
    for (std::size_t n = 0; n < count; n += piece) {
        const std::size_t end = std::min(count, n + piece);
        std::memset(static_cast<void*>(dst + n * factor), 0, (end - n) * factor * sizeof(T));
        for (std::size_t k = n; k < end; ++k) setElement(dst + k * factor + phase, elementAt(src + k));
    }
}

// Factors of 2 to 4: vectors interleaved with zeros. They begin with an element, so all of them lie `phase` behind the
// start, where zeros come first, and the last elements are left. Returns how many have gone.
template <std::size_t factor, class T>
std::size_t interleave(std::size_t count, std::size_t phase, const T* pSrc, T* pDst) {
    const auto* const src = reinterpret_cast<const Lane<T>*>(pSrc);
    auto* const dst = reinterpret_cast<Lane<T>*>(pDst) + phase;
    std::memset(static_cast<void*>(pDst), 0, phase * sizeof(T));
    return forSpreadVectors<T>(count * factor - phase, factor, [=](auto d, std::size_t n) HWY_ATTR {
        const auto x = hn::LoadU(d, src + n), zero = hn::Zero(d);
        if constexpr (factor == 2) {
            hn::StoreInterleaved2(x, zero, d, dst + factor * n);
        } else if constexpr (factor == 3) {
            hn::StoreInterleaved3(x, zero, zero, d, dst + factor * n);
        } else {
            hn::StoreInterleaved4(x, zero, zero, zero, d, dst + factor * n);
        }
    });
}

template <class T>
void sampleUp(std::size_t count, std::size_t factor, std::size_t phase, const T* src, T* dst) {
    std::size_t done = 0;
    if constexpr (!std::is_void_v<Lane<T>>) {
        if (factor == 2) done = interleave<2>(count, phase, src, dst);
        if (factor == 3) done = interleave<3>(count, phase, src, dst);
        if (factor == 4) done = interleave<4>(count, phase, src, dst);
    }
    scatter(count - done, factor, phase, src + done, dst + factor * done);
}

// ---- Down ----

template <std::size_t factor, class T>
std::size_t deinterleave(std::size_t span, const T* pSrc, T* pDst) {
    const auto* const src = reinterpret_cast<const Lane<T>*>(pSrc);
    auto* const dst = reinterpret_cast<Lane<T>*>(pDst);
    return forSpreadVectors<T>(span, factor, [=](auto d, std::size_t n) HWY_ATTR {
        hn::Vec<decltype(d)> kept, second, third, fourth;
        if constexpr (factor == 2) {
            hn::LoadInterleaved2(d, src + factor * n, kept, second);
        } else if constexpr (factor == 3) {
            hn::LoadInterleaved3(d, src + factor * n, kept, second, third);
        } else {
            hn::LoadInterleaved4(d, src + factor * n, kept, second, third, fourth);
        }
        hn::StoreU(kept, d, dst + n);
    });
}

// dst[n] = src[n * factor] for n below count; src has `span` elements.
template <class T>
void sampleDown(std::size_t count, std::size_t factor, std::size_t span, const T* src, T* dst) {
    std::size_t n = 0;
    if constexpr (!std::is_void_v<Lane<T>>) {
        if (factor == 2) n = deinterleave<2>(span, src, dst);
        if (factor == 3) n = deinterleave<3>(span, src, dst);
        if (factor == 4) n = deinterleave<4>(span, src, dst);
    }
    for (; n < count; ++n) setElement(dst + n, elementAt(src + n * factor));
}

// ---- Frames ----

template <class T>
OrbStatus check(const T* pSrc, int srcLen, const T* pDst, const int* pDstLen, int factor, const int* pPhase) {
    if (anyNull(pSrc, pDst) || anyNull(pDstLen, pPhase)) return orbStsNullPtrErr;
    if (srcLen < 1) return orbStsSizeErr;
    if (factor < 1) return orbStsSampleFactorErr;
    const int phase = elementAt(pPhase);
    return phase < 0 || phase >= factor ? orbStsSamplePhaseErr : orbStsNoErr;
}

template <class T>
OrbStatus up(const T* pSrc, int srcLen, T* pDst, int* pDstLen, int factor, const int* pPhase) {
    if (const OrbStatus status = check(pSrc, srcLen, pDst, pDstLen, factor, pPhase)) return status;
    const auto count = static_cast<std::size_t>(srcLen);
    if (factor == 1) {
        std::memcpy(pDst, pSrc, count * sizeof(T));
    } else {
        sampleUp(count, static_cast<std::size_t>(factor), static_cast<std::size_t>(elementAt(pPhase)), pSrc, pDst);
    }
    setElement(pDstLen, static_cast<int>(static_cast<Orb32u>(srcLen) * static_cast<Orb32u>(factor)));
    return orbStsNoErr;
}

template <class T>
OrbStatus down(const T* pSrc, int srcLen, T* pDst, int* pDstLen, int factor, int* pPhase) {
    if (const OrbStatus status = check(pSrc, srcLen, pDst, pDstLen, factor, pPhase)) return status;
    const int first = elementAt(pPhase);
    const int count = first < srcLen ? (srcLen - first - 1) / factor + 1 : 0;
    if (factor == 1) {
        std::memcpy(pDst, pSrc, static_cast<std::size_t>(srcLen) * sizeof(T));
    } else if (count > 0) {
        sampleDown(static_cast<std::size_t>(count), static_cast<std::size_t>(factor),
                   static_cast<std::size_t>(srcLen - first), pSrc + first, pDst);
    }
    setElement(pDstLen, count);
    setElement(pPhase, static_cast<int>(first + Orb64s{count} * factor - srcLen));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSampleUp_16s(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleUp_16sc(const Orb16sc* pSrc, int srcLen, Orb16sc* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleUp_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleUp_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleUp_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleUp_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int* pDstLen, int factor, int* pPhase) { return up(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }

OrbStatus orbsSampleDown_16s(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleDown_16sc(const Orb16sc* pSrc, int srcLen, Orb16sc* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleDown_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleDown_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleDown_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
OrbStatus orbsSampleDown_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int* pDstLen, int factor, int* pPhase) { return down(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }

}
