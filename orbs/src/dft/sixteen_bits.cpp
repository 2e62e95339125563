// Transforms of any length of 16-bit data: single precision between two conversions. An object is one of single
// precision whose work area begins with the data.
#include "dft/real.h"
#include "orbs/convert.h"
#include "orbs/dft.h"

struct OrbsDFTSpec_C_16sc : orbs::dft::Spec<Orb32f> {};
struct OrbsDFTSpec_C_16s : orbs::dft::Spec<Orb32f> {};
struct OrbsDFTSpec_R_16s : orbs::dft::Spec<Orb32f> {};

namespace orbs::dft {

extern template OrbStatus interleaved<false>(const Orb32fc*, Orb32fc*, const Spec<Orb32f>*, Orb8u*, Orb32s);
extern template OrbStatus interleaved<true>(const Orb32fc*, Orb32fc*, const Spec<Orb32f>*, Orb8u*, Orb32s);
extern template OrbStatus planes<false>(const Orb32f*, const Orb32f*, Orb32f*, Orb32f*, const Spec<Orb32f>*, Orb8u*,
                                        Orb32s);
extern template OrbStatus planes<true>(const Orb32f*, const Orb32f*, Orb32f*, Orb32f*, const Spec<Orb32f>*, Orb8u*,
                                       Orb32s);
extern template OrbStatus forwardReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);
extern template OrbStatus inverseReal(const Spec<Orb32f>&, const Orb32f*, Orb32f*, Format, Orb8u*);

namespace {

constexpr Orb32s tagC16sc = 10, tagC16s = 11, tagR16s = 12;

constexpr std::uint64_t moreComplexWork(int length) {
    return length < 1 ? 0 : 8 * std::uint64_t(length) + 32;
}
constexpr std::uint64_t moreRealWork(int length) {
    return length < 1 ? 0 : 4 * std::uint64_t(length) + 40;
}

// Calls run(values, buffer) with room for `count` values and the rest of the work area. A single point needs none.
template <class Run>
OrbStatus inSinglePrecision(const Spec<Orb32f>& spec, std::size_t count, Orb8u* pBuffer, Run run) {
    if (spec.length == 1) {
        Orb32f values[3];
        return run(values, nullptr);
    }
    const WorkArea work(pBuffer, spec.workSize, true);
    if (work.failed()) return orbStsMemAllocErr;
    Orb32f* const values = work.as<Orb32f>();
    return run(values, reinterpret_cast<Orb8u*>(values + count));
}

OrbStatus widen(const Orb16s* from, Orb32f* to, std::size_t count) {
    return orbsConvert_16s32f(from, to, static_cast<int>(count));
}
// The power of two of the conversion is a float, and 0 times infinity no 0: the scale factors of a single point, which
// is not a result but a sample, are limited to where the rule of integers has its cuts.
OrbStatus narrow(const Spec<Orb32f>& spec, const Orb32f* from, Orb16s* to, std::size_t count, int scaleFactor) {
    if (spec.length == 1) scaleFactor = std::clamp(scaleFactor, -16, 17);
    return orbsConvert_32f16s_Sfs(from, to, static_cast<int>(count), orbRndNear, scaleFactor);
}

template <bool Inverse>
OrbStatus interleaved16(const Orb16sc* pSrc, Orb16sc* pDst, const Spec<Orb32f>* pSpec, int scaleFactor,
                        Orb8u* pBuffer) {
    if (const OrbStatus status = checkCall(pSpec, tagC16sc, pSrc, pDst)) return status;
    const auto count = 2 * static_cast<std::size_t>(pSpec->length);
    return inSinglePrecision(*pSpec, count, pBuffer, [&](Orb32f* values, Orb8u* buffer) {
        widen(asReal(pSrc), values, count);
        auto* points = reinterpret_cast<Orb32fc*>(values);
        if (const OrbStatus status = interleaved<Inverse>(points, points, pSpec, buffer, tagC16sc)) return status;
        return narrow(*pSpec, values, asReal(pDst), count, scaleFactor);
    });
}

template <bool Inverse>
OrbStatus planes16(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm,
                   const Spec<Orb32f>* pSpec, int scaleFactor, Orb8u* pBuffer) {
    if (const OrbStatus status = checkCall(pSpec, tagC16s, pSrcRe, pSrcIm, pDstRe, pDstIm)) return status;
    const auto points = static_cast<std::size_t>(pSpec->length);
    return inSinglePrecision(*pSpec, 2 * points, pBuffer, [&](Orb32f* re, Orb8u* buffer) {
        Orb32f* const im = re + points;
        widen(pSrcRe, re, points);
        widen(pSrcIm, im, points);
        if (const OrbStatus status = planes<Inverse>(re, im, re, im, pSpec, buffer, tagC16s)) return status;
        narrow(*pSpec, re, pDstRe, points, scaleFactor);
        return narrow(*pSpec, im, pDstIm, points, scaleFactor);
    });
}

// Values of a spectrum of n samples.
std::size_t spectrumValues(std::size_t n, Format format) {
    return format == Format::ccs ? n / 2 * 2 + 2 : n;
}
template <bool Inverse>
OrbStatus real16(const Orb16s* pSrc, Orb16s* pDst, const Spec<Orb32f>* pSpec, int scaleFactor, Orb8u* pBuffer,
                 Format format) {
    if (const OrbStatus status = checkCall(pSpec, tagR16s, pSrc, pDst)) return status;
    const auto samples = static_cast<std::size_t>(pSpec->length), values = spectrumValues(samples, format);
    return inSinglePrecision(*pSpec, samples + 2, pBuffer, [&](Orb32f* x, Orb8u* buffer) {
        widen(pSrc, x, Inverse ? values : samples);
        const OrbStatus status =
            Inverse ? inverseReal(*pSpec, x, x, format, buffer) : forwardReal(*pSpec, x, x, format, buffer);
        return status ? status : narrow(*pSpec, x, pDst, Inverse ? samples : values, scaleFactor);
    });
}

} // namespace
} // namespace orbs::dft

using namespace orbs::dft;

// clang-format off
extern "C" {

OrbStatus orbsDFTInitAlloc_C_16sc(OrbsDFTSpec_C_16sc** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::interleaved, tagC16sc, moreComplexWork(length)); }
OrbStatus orbsDFTFree_C_16sc(OrbsDFTSpec_C_16sc* pSpec) { return release(pSpec, tagC16sc); }
OrbStatus orbsDFTGetBufSize_C_16sc(const OrbsDFTSpec_C_16sc* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC16sc); }
OrbStatus orbsDFTInitAlloc_C_16s(OrbsDFTSpec_C_16s** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::planes, tagC16s, moreComplexWork(length)); }
OrbStatus orbsDFTFree_C_16s(OrbsDFTSpec_C_16s* pSpec) { return release(pSpec, tagC16s); }
OrbStatus orbsDFTGetBufSize_C_16s(const OrbsDFTSpec_C_16s* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagC16s); }
OrbStatus orbsDFTInitAlloc_R_16s(OrbsDFTSpec_R_16s** ppSpec, int length, int flag, OrbHintAlgorithm hint) { return initAlloc<Orb32f>(ppSpec, length, flag, hint, Kind::real, tagR16s, moreRealWork(length)); }
OrbStatus orbsDFTFree_R_16s(OrbsDFTSpec_R_16s* pSpec) { return release(pSpec, tagR16s); }
OrbStatus orbsDFTGetBufSize_R_16s(const OrbsDFTSpec_R_16s* pSpec, int* pSize) { return getBufferSize(pSpec, pSize, tagR16s); }
OrbStatus orbsDFTFwd_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsDFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved16<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDFTInv_CToC_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, const OrbsDFTSpec_C_16sc* pSpec, int scaleFactor, Orb8u* pBuffer) { return interleaved16<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDFTFwd_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsDFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes16<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDFTInv_CToC_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDstRe, Orb16s* pDstIm, const OrbsDFTSpec_C_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return planes16<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pSpec, scaleFactor, pBuffer); }
OrbStatus orbsDFTFwd_RToCCS_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsDFTFwd_RToPack_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsDFTFwd_RToPerm_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<false>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }
OrbStatus orbsDFTInv_CCSToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::ccs); }
OrbStatus orbsDFTInv_PackToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::pack); }
OrbStatus orbsDFTInv_PermToR_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, const OrbsDFTSpec_R_16s* pSpec, int scaleFactor, Orb8u* pBuffer) { return real16<true>(pSrc, pDst, pSpec, scaleFactor, pBuffer, Format::perm); }

}
// clang-format on
