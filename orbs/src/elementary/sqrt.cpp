// Sqrt: the root of each element, of integers times 2^-scaleFactor. 64-bit integers and complex elements stand in files
// of their own.
#include "elementary/sqrt_exact.h"
#include "foundation/threads.h"
#include "orbs/elementary.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

namespace {

using namespace orbs;

// ---- Integers up to 32 bits ----

// The nearest integer as single precision has it: right where no root but an exact one comes as close to a tie as 2^-24
// of itself.
class NearestRoot {
public:
    explicit NearestRoot(int scaleFactor) : factor_(powerOfTwo<float>(-scaleFactor)) {}

    template <class D, class V>
    auto operator()(D, V x) const {
        const hn::Rebind<float, D> real;
        return nearestInt32(hn::Mul(hn::Sqrt(hn::ConvertTo(real, x)), hn::Set(real, factor_)));
    }

private:
    float factor_;
};

// A negative element gives 0; true if there is one.
template <class Root, class S, class R>
bool roots(Root root, const S* src, R* dst, std::size_t len) {
    const SseQuiet quiet(SseRounding::nearest);
    bool negative = false;
    forEachVector<Orb32f>(len, [&](auto d, std::size_t n) HWY_ATTR {
        const hn::RebindToSigned<decltype(d)> whole;
        auto x = loadWhole(d, src + n);
        if constexpr (std::is_signed_v<S>) {
            negative |= !hn::AllFalse(whole, hn::Lt(x, hn::Zero(whole)));
            x = hn::Max(x, hn::Zero(whole));
        }
        storeWhole(d, root(whole, x), dst + n);
    });
    return negative;
}

// Beyond the cuts every root rounds to 0, or saturates unless it is 0, so the cuts themselves stand for all of it.
template <class S, class R>
OrbStatus roots(const S* pSrc, R* pDst, int len, int scaleFactor, ScaleCuts cuts, Spread how) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const int s = std::clamp(scaleFactor, cuts.boundFrom, cuts.zeroAbove + 1);
    return spreadWithWarning(orbStsSqrtNegArg, len, how, [=](std::size_t first, std::size_t count) {
        const bool farFromTies = sizeof(S) == 1 || (sizeof(S) == 2 && s >= 0);
        if (farFromTies) return roots(NearestRoot(s), pSrc + first, pDst + first, count);
        return roots(ExactRoot<float>(s), pSrc + first, pDst + first, count);
    });
}

// ---- Floats: a set sign bit warns, but for -0 ----

template <class T>
bool roots(const T* src, T* dst, std::size_t len) {
    const SseQuiet quiet;
    bool negative = false;
    const auto root = [&negative](auto d, auto x) HWY_ATTR {
        const hn::RebindToSigned<decltype(d)> bits;
        const auto sign = hn::BitCast(bits, hn::SignBit(d)), v = hn::BitCast(bits, x);
        negative |= !hn::AllFalse(bits, hn::And(hn::Lt(v, hn::Zero(bits)), hn::Ne(v, sign)));
        return hn::Sqrt(x);
    };
    mapVectors<4>(len, root, dst, src);
    return negative;
}
template <class T>
OrbStatus roots(const T* pSrc, T* pDst, int len, Spread how) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return spreadWithWarning(orbStsSqrtNegArg, len, how, [=](std::size_t first, std::size_t count) {
        return roots(pSrc + first, pDst + first, count);
    });
}

constexpr ScaleCuts rootCuts8u{.zeroAbove = 4, .boundFrom = -8};
constexpr ScaleCuts rootCuts16u{.zeroAbove = 8, .boundFrom = -16};
constexpr ScaleCuts rootCuts16s{.zeroAbove = 8, .boundFrom = -15};
constexpr ScaleCuts rootCuts32s16s{.zeroAbove = 16, .boundFrom = -15};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSqrt_8u_Sfs(const Orb8u* pSrc, Orb8u* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, rootCuts8u, {2048}); }
OrbStatus orbsSqrt_8u_ISfs(Orb8u* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, scaleFactor, rootCuts8u, {2048}); }
OrbStatus orbsSqrt_16u_Sfs(const Orb16u* pSrc, Orb16u* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, rootCuts16u, {2048}); }
OrbStatus orbsSqrt_16u_ISfs(Orb16u* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, scaleFactor, rootCuts16u, {2048}); }
OrbStatus orbsSqrt_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, rootCuts16s, {2048}); }
OrbStatus orbsSqrt_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, scaleFactor, rootCuts16s, {2048}); }
OrbStatus orbsSqrt_32s16s_Sfs(const Orb32s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, scaleFactor, rootCuts32s16s, {1024}); }
OrbStatus orbsSqrt_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return roots(pSrc, pDst, len, {4096}); }
OrbStatus orbsSqrt_32f_I(Orb32f* pSrcDst, int len) { return roots(pSrcDst, pSrcDst, len, {4096}); }
OrbStatus orbsSqrt_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return roots(pSrc, pDst, len, {512}); }
OrbStatus orbsSqrt_64f_I(Orb64f* pSrcDst, int len) { return roots(pSrcDst, pSrcDst, len, {512}); }

}
// clang-format on
