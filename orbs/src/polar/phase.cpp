// Phase: the angle of a complex number.
#include "polar/phase.h"
#include "orbs/polar.h"
#include "polar/sources.h"

namespace {

using namespace orbs;

// Angles of those among `count` pairs that the kernel does not take: very small, very large, or no numbers.
template <class T>
HWY_NOINLINE void mendPhases(const T* re, const T* im, T* phase, std::size_t count) {
    const hn::CappedTag<T, 1> one;
    for (std::size_t n = 0; n < count; ++n) {
        const auto x = hn::Set(one, std::abs(re[n])), y = hn::Set(one, std::abs(im[n]));
        if (!hn::AllFalse(one, isUnusual(one, x, y))) phase[n] = static_cast<T>(phaseOf(re[n], im[n]));
    }
}

struct Phase {
    template <class D, class V>
    HWY_INLINE V operator()(D d, Planes<V> z) const {
        const V phase = phaseOfUsual(d, z.re, z.im);
        if (HWY_LIKELY(hn::AllFalse(d, isUnusual(d, hn::Abs(z.re), hn::Abs(z.im))))) return phase;
        hn::TFromD<D> re[hn::MaxLanes(D())], im[hn::MaxLanes(D())], y[hn::MaxLanes(D())];
        hn::StoreU(z.re, d, re);
        hn::StoreU(z.im, d, im);
        hn::StoreU(phase, d, y);
        mendPhases(re, im, y, hn::MaxLanes(d));
        return hn::LoadU(d, y);
    }
};
struct PhaseOfIntegers {
    template <class D, class V>
    HWY_INLINE V operator()(D d, Planes<V> z) const {
        return phaseOfUsual(d, z.re, z.im);
    }
};

template <class Source, class R>
OrbStatus phase(Source source, R* pDst, int len) {
    if (const OrbStatus status = checkPolar(len, source, pDst)) return status;
    using Op = std::conditional_t<std::is_integral_v<typename Source::Part>, PhaseOfIntegers, Phase>;
    const SseRounding nearest(SseRounding::nearest);
    mapElements<1>(static_cast<std::size_t>(len), source, pDst, Op());
    return orbStsNoErr;
}

// A phase of integers is at least 2^-32, or 0: beyond the limits every result is 0, or saturates unless it is 0.
template <class Source, class R>
OrbStatus phase(Source source, R* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkPolar(len, source, pDst)) return status;
    constexpr std::size_t blockLen = 128;
    const auto count = static_cast<std::size_t>(len);
    const Orb64f scale = powerOfTwo<Orb64f>(-std::clamp(scaleFactor, -70, 10));
    const SseQuiet quiet(SseRounding::nearest);
    for (std::size_t n = 0; n < count; n += blockLen) {
        Orb64f block[blockLen];
        const std::size_t blockCount = std::min(blockLen, count - n);
        mapElements<1>(blockCount, source.from(n), block, PhaseOfIntegers());
        forEachVector<Orb64f>(blockCount, [=, &block](auto d, std::size_t k) HWY_ATTR {
            storeWhole(d, roundedAway<R>(d, hn::LoadU(d, block + k) * hn::Set(d, scale)), pDst + n + k);
        });
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsPhase_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len) { return phase(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPhase_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len) { return phase(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPhase_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len) { return phase(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPhase_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor) { return phase(Interleaved{pSrc}, pDst, len, scaleFactor); }
OrbStatus orbsPhase_32sc_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor) { return phase(Interleaved{pSrc}, pDst, len, scaleFactor); }
OrbStatus orbsPhase_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len) { return phase(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPhase_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len) { return phase(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPhase_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len) { return phase(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPhase_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor) { return phase(InParts{pSrcRe, pSrcIm}, pDst, len, scaleFactor); }

}
// clang-format on
