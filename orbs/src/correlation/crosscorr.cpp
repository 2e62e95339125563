// Cross-correlation over a range of lags, by the method that costs less.
#include "orbs/correlation.h"

#include "convolution/direct.h"
#include "orbs/data.h"
#include "orbs/norms.h"

namespace {

using namespace orbs;

enum class Method { fastest, direct, fourier };

// The cost of direct sums, in outputs that meet all of the shorter operand, beyond which there are transforms.
template <class T>
constexpr int mostDirect = std::is_same_v<T, Orb32fc> ? 255
                           : sizeof(Part<T>) == 8     ? 511
                                                      : 383;

template <class T>
using Precision = std::conditional_t<std::is_same_v<T, Orb16s>, Orb32f, T>;

// Of the outputs those at which the operands overlap: `count` from `begin` on, the first of them at this lag.
struct Overlap {
    std::int64_t lag;
    int begin, count;

    Overlap(int src1Len, int src2Len, int dstLen, int lowLag) {
        lag = std::max<std::int64_t>(lowLag, 1 - std::int64_t{src1Len});
        begin = static_cast<int>(std::min<std::int64_t>(lag - lowLag, dstLen));
        count = static_cast<int>(std::clamp<std::int64_t>(src2Len - lag, 0, dstLen - begin));
    }
    template <class T>
    void zeroOthers(T* pDst, int dstLen) const {
        std::fill(pDst, pDst + begin, T{});
        std::fill(pDst + begin + count, pDst + dstLen, T{});
    }
};

template <class T>
OrbStatus checkOperands(const T* pSrc1, int src1Len, const T* pSrc2, int src2Len, const void* pDst, int dstLen) {
    if (anyNull(pSrc1, pSrc2, pDst)) return orbStsNullPtrErr;
    if (src1Len < 1 || src2Len < 1 || dstLen < 1) return orbStsSizeErr;
    return orbStsNoErr;
}

bool isCostly(int count, int shorter, int longer, int most) {
    const Orb32f cost = static_cast<Orb32f>(count) * static_cast<Orb32f>(shorter) / static_cast<Orb32f>(longer);
    return cost >= static_cast<Orb32f>(most + 1);
}

// What the operands give if they are exchanged, into what they give as they are.
void turnRound(Orb16s* pSrcDst, int len) {
    orbsFlip_16u_I(reinterpret_cast<Orb16u*>(pSrcDst), len);
}
void turnRound(Orb32f* pSrcDst, int len) {
    orbsFlip_32f_I(pSrcDst, len);
}
void turnRound(Orb64f* pSrcDst, int len) {
    orbsFlip_64f_I(pSrcDst, len);
}
void turnRound(Orb32fc* pSrcDst, int len) {
    orbsFlip_32fc_I(pSrcDst, len);
    orbsConj_32fc_I(pSrcDst, len);
}
void turnRound(Orb64fc* pSrcDst, int len) {
    orbsFlip_64fc_I(pSrcDst, len);
    orbsConj_64fc_I(pSrcDst, len);
}

template <Method method, class T, class... ScaleFactor>
OrbStatus crossCorr(const T* pSrc1, int src1Len, const T* pSrc2, int src2Len, T* pDst, int dstLen, int lowLag,
                    ScaleFactor... scaleFactor) {
    if (const OrbStatus status = checkOperands(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen)) return status;
    const Overlap overlap(src1Len, src2Len, dstLen, lowLag);
    T* const outputs = pDst + overlap.begin;
    const int count = overlap.count;
    if (count > 0) {
        // The shorter operand slides along the longer one. Lags count the other way if these are exchanged.
        Signal<T> shorter{pSrc1, src1Len}, longer{pSrc2, src2Len};
        std::int64_t first = overlap.lag;
        const bool exchanged = src1Len > src2Len;
        if (exchanged) {
            std::swap(shorter, longer);
            first = -(first + count - 1);
        }
        const bool transforms =
            method == Method::fourier ||
            (method == Method::fastest && isCostly(count, shorter.length, longer.length, mostDirect<T>));
        OrbStatus status = orbStsNoErr;
        if (transforms) {
            status = byFourier<Correlated, Precision<T>>(shorter, longer, first, outputs, count,
                                                         (0 + ... + finiteScale(scaleFactor)), 1);
        } else {
            status = directly<1>(shorter, longer, first, outputs, count, finiteScale(scaleFactor)...);
        }
        if (status < 0) return status;
        if (exchanged) turnRound(outputs, count);
    }
    overlap.zeroOthers(pDst, dstLen);
    return orbStsNoErr;
}

OrbStatus exactCrossCorr(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb64s* pDst, int dstLen,
                         int lowLag) {
    if (const OrbStatus status = checkOperands(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen)) return status;
    const Overlap overlap(src1Len, src2Len, dstLen, lowLag);
    for (int n = 0; n < overlap.count; ++n) {
        const std::int64_t lag = overlap.lag + n;
        const std::int64_t from = std::max<std::int64_t>(-lag, 0), to = std::min<std::int64_t>(src1Len, src2Len - lag);
        orbsDotProd_16s64s(pSrc1 + from, pSrc2 + (from + lag), static_cast<int>(to - from), pDst + overlap.begin + n);
    }
    overlap.zeroOthers(pDst, dstLen);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsCrossCorr_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag) { return crossCorr<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorr_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag) { return crossCorr<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorr_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorr_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrDirect_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag) { return crossCorr<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrDirect_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag) { return crossCorr<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrDirect_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrDirect_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrFFT_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst, int dstLen, int lowLag) { return crossCorr<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrFFT_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst, int dstLen, int lowLag) { return crossCorr<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrFFT_32fc(const Orb32fc* pSrc1, int src1Len, const Orb32fc* pSrc2, int src2Len, Orb32fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorrFFT_64fc(const Orb64fc* pSrc1, int src1Len, const Orb64fc* pSrc2, int src2Len, Orb64fc* pDst, int dstLen, int lowLag) { return crossCorr<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }
OrbStatus orbsCrossCorr_16s_Sfs(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb16s* pDst, int dstLen, int lowLag, int scaleFactor) { return crossCorr<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, scaleFactor); }
OrbStatus orbsCrossCorr_16s64s(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb64s* pDst, int dstLen, int lowLag) { return exactCrossCorr(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag); }

}
// clang-format on
