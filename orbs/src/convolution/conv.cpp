// Convolution of two vectors, by the method that the lengths make the fastest.
#include "orbs/convolution.h"

#include "convolution/direct.h"

#include <cstring>

namespace {

using namespace orbs;

enum class Method { fastest, direct, fourier };

constexpr int leastOutputs = 512, leastTaps = 64; // of a transform
constexpr int teamAbove = 4096;

template <class T>
using Precision = std::conditional_t<std::is_same_v<T, Orb16s>, Orb32f, T>;

// Which of two vectors counts as the shorter one: of one length that whose bytes come first, so that the order of the
// operands shows in no result.
template <class T>
bool isShorter(Signal<T> x, Signal<T> y) {
    if (x.length != y.length) return x.length < y.length;
    return std::memcmp(x.first, y.first, static_cast<std::size_t>(x.length) * sizeof(T)) < 0;
}

template <Method method, class T, class... ScaleFactor>
OrbStatus conv(const T* pSrc1, int src1Len, const T* pSrc2, int src2Len, T* pDst, ScaleFactor... scaleFactor) {
    if (anyNull(pSrc1, pSrc2, pDst)) return orbStsNullPtrErr;
    if (src1Len < 1 || src2Len < 1) return orbStsSizeErr;
    Signal<T> shorter{pSrc2, src2Len}, longer{pSrc1, src1Len};
    if (isShorter(longer, shorter)) std::swap(shorter, longer);
    const std::int64_t outputs = std::int64_t{longer.length} + shorter.length - 1,
                       first = 1 - std::int64_t{shorter.length};
    if (outputs > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    const int count = static_cast<int>(outputs);
    const bool isShort = count < leastOutputs || shorter.length < leastTaps;
    if (method == Method::direct || (method == Method::fastest && isShort))
        return directly<-1>(shorter, longer, first, pDst, count, finiteScale(scaleFactor)...);
    const int threads = longer.length > teamAbove ? threadCount() : 1;
    return byFourier<Convolved, Precision<T>>(shorter, longer, first, pDst, count, (0 + ... + finiteScale(scaleFactor)),
                                              threads);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsConv_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst) { return conv<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConv_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst) { return conv<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConvDirect_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst) { return conv<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConvDirect_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst) { return conv<Method::direct>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConvFFT_32f(const Orb32f* pSrc1, int src1Len, const Orb32f* pSrc2, int src2Len, Orb32f* pDst) { return conv<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConvFFT_64f(const Orb64f* pSrc1, int src1Len, const Orb64f* pSrc2, int src2Len, Orb64f* pDst) { return conv<Method::fourier>(pSrc1, src1Len, pSrc2, src2Len, pDst); }
OrbStatus orbsConv_16s_Sfs(const Orb16s* pSrc1, int src1Len, const Orb16s* pSrc2, int src2Len, Orb16s* pDst, int scaleFactor) { return conv<Method::fastest>(pSrc1, src1Len, pSrc2, src2Len, pDst, scaleFactor); }

}
// clang-format on
