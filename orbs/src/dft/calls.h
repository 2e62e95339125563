// The frames of the complex transform calls: checks, working memory, choice of plan, scale.
#pragma once

#include "dft/outoforder.h"
#include "dft/short.h"
#include "fft/real.h"
#include "fft/small.h"
#include "foundation/work_area.h"

namespace orbs::dft {

using fft::Interleaved;

// ---- Chirp ----

template <bool Inverse, class T>
OrbStatus chirpTransform(const Spec<T>& spec, Interleaved<const T> from, Interleaved<T> to, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.points);
    const chirp::FromInterleaved<T> source{from.base};
    if constexpr (Inverse)
        return chirp::run(spec.chirp, points, source, points, chirp::Reversed<T>{to.base, points}, work);
    return chirp::run(spec.chirp, points, source, points, chirp::IntoInterleaved<T>{to.base}, work);
}

// The planes go through the front of the work area, where the transform reads its input before it writes there.
template <bool Inverse, class T>
OrbStatus chirpTransform(const Spec<T>& spec, Planes<const T> from, Planes<T> to, Orb8u* work) {
    const auto points = static_cast<std::size_t>(spec.points);
    const Interleaved<T> both{reinterpret_cast<T*>(work)};
    const auto copy = [points](auto source, auto sink, std::size_t first, auto place) HWY_ATTR {
        const GroupTag<T> full;
        const hn::CappedTag<T, 1> one;
        constexpr std::size_t lanes = hn::MaxLanes(full);
        std::size_t n = first;
        for (; n + lanes <= points; n += lanes) place(full, source, sink, n);
        for (; n < points; ++n) place(one, source, sink, n);
    };
    const auto same = [](auto d, auto source, auto sink, std::size_t n)
                          HWY_ATTR { sink.store(d, n, source.load(d, n)); };
    copy(from, both, 0, same);
    if (const OrbStatus status = chirp::run(spec.chirp, points, chirp::FromInterleaved<T>{both.base}, points,
                                            chirp::IntoInterleaved<T>{both.base}, work))
        return status;
    if constexpr (Inverse) {
        const hn::CappedTag<T, 1> one;
        to.store(one, 0, both.load(one, 0));
        copy(both, to, 1, [points](auto d, auto source, auto sink, std::size_t n) HWY_ATTR {
            const auto x = source.load(d, n);
            sink.store(d, points + 1 - n - hn::MaxLanes(d), {hn::Reverse(d, x.re), hn::Reverse(d, x.im)});
        });
    } else {
        copy(both, to, 0, same);
    }
    return orbStsNoErr;
}

// ---- Plans that need tables of this room ----

// An inverse transform works on exchanged parts.
template <bool Inverse, class T>
auto oriented(Interleaved<T> data) {
    if constexpr (Inverse) {
        return Exchanged<T>{data.base};
    } else {
        return data;
    }
}
template <bool Inverse, class T>
Planes<T> oriented(Planes<T> data) {
    return Inverse ? Planes<T>{data.im, data.re} : data;
}

// The complex transform inside an object, unscaled: by the mixed-radix, direct or chirp plan. `work` is aligned to 32
// bytes; the destination may be the source.
template <bool Inverse, class T, class From, class To>
OrbStatus transform(const Spec<T>& spec, From from, To to, Orb8u* work) {
    if (spec.plan == Plan::chirp) return chirpTransform<Inverse>(spec, from, to, work);
    const auto source = oriented<Inverse>(from);
    const auto sink = oriented<Inverse>(to);
    if (spec.plan == Plan::direct) {
        const auto points = static_cast<std::size_t>(spec.points);
        withLanes<hn::MaxLanes(GroupTag<T>()), T>( // the groups of the table
            points - 1, [&](auto d) __attribute__((always_inline)) {
                directTransform(d, source, sink, points, spec.matrix.get(), reinterpret_cast<T*>(work));
            });
    } else if (spec.staysOutOfOrder) {
        if constexpr (Inverse) {
            outOfOrderInverse(spec, source, sink);
        } else {
            outOfOrderForward(spec, source, sink);
        }
    } else if (!shortProduct(spec, source, sink)) {
        mixedRadix(spec, source, sink, work);
    }
    return orbStsNoErr;
}

// ---- Calls ----

template <bool Inverse, class T>
bool isScaled(const Spec<T>& spec) {
    return Inverse ? spec.scaleInv != 0 : spec.scaleFwd != 0;
}
template <class T>
void scaleBy(T scale, T* data, std::size_t count) {
    forEachVector<T>(count, data, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(hn::LoadU(d, data + n) * hn::Set(d, scale), d, data + n);
    });
}

// The tests of every transform: the object, its tag, the data.
template <class T, class... P>
OrbStatus checkCall(const Spec<T>* pSpec, Orb32s tag, const P*... data) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    return anyNull(data...) ? orbStsNullPtrErr : orbStsNoErr;
}

template <bool Inverse, class T, class From, class To>
OrbStatus scaledTransform(const Spec<T>& spec, From from, To to, Orb8u* pBuffer, auto scale) {
    if (spec.plan == Plan::small) {
        smallTransform<T>(oriented<Inverse>(from), oriented<Inverse>(to), static_cast<std::size_t>(spec.points));
    } else {
        const WorkArea work(pBuffer, spec.workSize, !spec.staysOutOfOrder);
        if (work.failed()) return orbStsMemAllocErr;
        if (const OrbStatus status = transform<Inverse>(spec, from, to, work.bytes())) return status;
    }
    if (isScaled<Inverse>(spec)) scale(spec.scale, static_cast<std::size_t>(spec.points));
    return orbStsNoErr;
}

template <bool Inverse, class T, class Complex>
OrbStatus interleaved(const Complex* pSrc, Complex* pDst, const Spec<T>* pSpec, Orb8u* pBuffer, Orb32s tag) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrc, pDst)) return status;
    if (pSpec->plan == Plan::powerOfTwo) {
        using Members = fft::Members<typename fft::Specs<T>::Interleaved>;
        const auto* inner = reinterpret_cast<const typename fft::Specs<T>::Interleaved*>(pSpec->fft.get());
        return Inverse ? Members::inverse(pSrc, pDst, inner, pBuffer) : Members::forward(pSrc, pDst, inner, pBuffer);
    }
    T* const dst = asReal(pDst);
    return scaledTransform<Inverse>(*pSpec, Interleaved<const T>{asReal(pSrc)}, Interleaved<T>{dst}, pBuffer,
                                    [=](T scale, std::size_t points) { scaleBy(scale, dst, 2 * points); });
}

template <bool Inverse, class T>
OrbStatus planes(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm, const Spec<T>* pSpec, Orb8u* pBuffer,
                 Orb32s tag) {
    if (const OrbStatus status = checkCall(pSpec, tag, pSrcRe, pSrcIm, pDstRe, pDstIm)) return status;
    if (pSpec->plan == Plan::powerOfTwo) {
        using Members = fft::Members<typename fft::Specs<T>::Planes>;
        const auto* inner = reinterpret_cast<const typename fft::Specs<T>::Planes*>(pSpec->fft.get());
        return Inverse ? Members::inverse(pSrcRe, pSrcIm, pDstRe, pDstIm, inner, pBuffer)
                       : Members::forward(pSrcRe, pSrcIm, pDstRe, pDstIm, inner, pBuffer);
    }
    return scaledTransform<Inverse>(*pSpec, Planes<const T>{pSrcRe, pSrcIm}, Planes<T>{pDstRe, pDstIm}, pBuffer,
                                    [=](T scale, std::size_t points) {
                                        scaleBy(scale, pDstRe, points);
                                        scaleBy(scale, pDstIm, points);
                                    });
}

} // namespace orbs::dft
