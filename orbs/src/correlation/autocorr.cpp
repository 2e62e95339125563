// Autocorrelation, as it is or normalised.
#include "orbs/correlation.h"

#include "convolution/direct.h"

namespace {

using namespace orbs;

enum class Norm {
    none,
    bySamples, // divided by the number of samples
    byTerms    // by that of the terms of each sum
};

// The number of outputs from which there are transforms.
template <class T>
constexpr int leastOutputs = std::is_same_v<T, Orb32fc>   ? 152
                             : std::is_same_v<T, Orb64fc> ? 368
                                                          : 856;

// y[k] * 1 / len, or y[k] / (len - k).
template <Norm norm, class T>
void normalize(T* y, int count, int len) {
    using Real = Part<T>;
    constexpr std::size_t parts = partCount<T>;
    if (norm == Norm::none) return;
    Real* const values = asParts(y);
    if (norm == Norm::bySamples) {
        const Real factor = Real{1} / static_cast<Real>(len);
        forEachVector<Real>(static_cast<std::size_t>(count) * parts, [=](auto d, std::size_t n) HWY_ATTR {
            hn::StoreU(hn::Mul(hn::LoadU(d, values + n), hn::Set(d, factor)), d, values + n);
        });
        return;
    }
    for (int k = 0; k < count; ++k) {
        const Real terms = static_cast<Real>(len - k);
        for (std::size_t part = 0; part < parts; ++part) values[static_cast<std::size_t>(k) * parts + part] /= terms;
    }
}

// pDst[k] for k = 0 to count - 1.
template <class T>
OrbStatus correlate(Signal<T> x, T* pDst, int count) {
    if (count < leastOutputs<T>) return directly<1>(x, x, 0, pDst, count);
    const Fourier<T> fourier(orderOf(2 * static_cast<std::uint64_t>(x.length)), 1);
    if (fourier.status() < 0) return fourier.status();
    T* const work = fourier.work(0);
    window(x, 0, work, fourier.points());
    if (const OrbStatus status = fourier.forward(work, work); status < 0) return status;
    multiplySpectra<ConjugateProduct>(work, work, fourier.points());
    if (const OrbStatus status = fourier.inverse(work); status < 0) return status;
    std::copy_n(work, count, pDst);
    return orbStsNoErr;
}

template <Norm norm, class T>
OrbStatus correlateInto(const T* pSrc, int srcLen, T* pDst, int count) {
    if (const OrbStatus status = correlate(Signal<T>{pSrc, srcLen}, pDst, count); status < 0) return status;
    normalize<norm>(pDst, count, srcLen);
    return orbStsNoErr;
}
template <Norm norm>
OrbStatus correlateInto(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int count, int scaleFactor) {
    const std::uint64_t size =
        (static_cast<std::uint64_t>(srcLen) + static_cast<std::uint64_t>(count)) * sizeof(Orb32f);
    if (size > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    auto* const x = reinterpret_cast<Orb32f*>(orbsMalloc_8u(static_cast<int>(size)));
    if (!x) return orbStsMemAllocErr;
    Orb32f* const y = x + srcLen;
    widen(pSrc, x, srcLen);
    const OrbStatus status = correlateInto<norm>(x, srcLen, y, count);
    if (status == orbStsNoErr) narrow(y, pDst, count, scaleFactor);
    orbsFree(x);
    return status;
}

template <Norm norm, class T, class... ScaleFactor>
OrbStatus autoCorr(const T* pSrc, int srcLen, T* pDst, int dstLen, ScaleFactor... scaleFactor) {
    if (anyNull(pSrc, pDst)) return orbStsNullPtrErr;
    if (srcLen < 1 || dstLen < 1) return orbStsSizeErr;
    const int count = std::min(srcLen, dstLen);
    const OrbStatus status = correlateInto<norm>(pSrc, srcLen, pDst, count, finiteScale(scaleFactor)...);
    // The zeros of integers stand behind a refusal as well.
    if (status == orbStsNoErr || sizeof...(scaleFactor) > 0) std::fill(pDst + count, pDst + dstLen, T{});
    return status;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAutoCorr_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen) { return autoCorr<Norm::none>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen) { return autoCorr<Norm::none>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen) { return autoCorr<Norm::none>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen) { return autoCorr<Norm::none>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormA_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen) { return autoCorr<Norm::bySamples>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormA_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen) { return autoCorr<Norm::bySamples>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormA_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen) { return autoCorr<Norm::bySamples>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormA_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen) { return autoCorr<Norm::bySamples>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormB_32f(const Orb32f* pSrc, int srcLen, Orb32f* pDst, int dstLen) { return autoCorr<Norm::byTerms>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormB_64f(const Orb64f* pSrc, int srcLen, Orb64f* pDst, int dstLen) { return autoCorr<Norm::byTerms>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormB_32fc(const Orb32fc* pSrc, int srcLen, Orb32fc* pDst, int dstLen) { return autoCorr<Norm::byTerms>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_NormB_64fc(const Orb64fc* pSrc, int srcLen, Orb64fc* pDst, int dstLen) { return autoCorr<Norm::byTerms>(pSrc, srcLen, pDst, dstLen); }
OrbStatus orbsAutoCorr_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor) { return autoCorr<Norm::none>(pSrc, srcLen, pDst, dstLen, scaleFactor); }
OrbStatus orbsAutoCorr_NormA_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor) { return autoCorr<Norm::bySamples>(pSrc, srcLen, pDst, dstLen, scaleFactor); }
OrbStatus orbsAutoCorr_NormB_16s_Sfs(const Orb16s* pSrc, int srcLen, Orb16s* pDst, int dstLen, int scaleFactor) { return autoCorr<Norm::byTerms>(pSrc, srcLen, pDst, dstLen, scaleFactor); }

}
// clang-format on
