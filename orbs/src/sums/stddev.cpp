// StdDev and MeanStdDev.
#include "foundation/control.h"
#include "orbs/sums.h"
#include "reductions/exact.h"
#include "reductions/reduce16.h"
#include "vectors/powers.h"

#include <bit>
#include <cmath>

namespace {

using namespace orbs;

// What a call tells of n elements.
struct Spread {
    Orb64f mean, deviation;
};

// ---- Floats ----

template <class Lane>
struct Moments : InFixedLanes<Lane, 2> {
    template <class D, class V, class T>
    HWY_INLINE void add(D d, V (&sum)[2], const T* p) const {
        const V x = loadAs(d, p);
        sum[0] = hn::Add(sum[0], x);
        sum[1] = hn::Add(sum[1], hn::Mul(x, x));
    }
};
struct FastMoments : Moments<Orb32f> {
    static constexpr std::size_t block = 1024;

    static Sums<Orb64f, 2, 1> total(const Sums<Orb32f, 2, 1>& sums) {
        return {{{Orb64f{sums[0][0]}}, {Orb64f{sums[1][0]}}}};
    }
};
constexpr int leastFast = 9;

// A product without its rounding: high + low. For factors whose product is a normal number, far from overflow.
struct Product {
    Orb64f high, low;

    Product(Orb64f a, Orb64f b) : high(a * b) {
        const Orb64f aHigh = upper(a), aLow = a - aHigh, bHigh = upper(b), bLow = b - bHigh;
        low = ((aHigh * bHigh - high) + aHigh * bLow + aLow * bHigh) + aLow * bLow;
    }

private:
    static Orb64f upper(Orb64f x) { // half of the digits
        const Orb64f far = x * 0x1.0000002p27;
        return far - (far - x);
    }
};

// sqrt((s2 * n - s1^2) / (n * (n - 1))), the sums scaled to near 1: no overflow, and no loss to subnormal numbers.
Orb64f deviationOf(Orb64f s1, Orb64f s2, Orb64f n) {
    if (!(s2 < std::numeric_limits<Orb64f>::infinity())) return s2; // or NaN
    const int exponent = static_cast<int>(std::bit_cast<Orb64u>(s2) >> 52) - 1023;
    const int half = std::max(exponent, -1000) / 2;
    const Orb64f mean = s1 * powerOfTwo<Orb64f>(-half);
    const Product squares(s2 * powerOfTwo<Orb64f>(-half) * powerOfTwo<Orb64f>(-half), n), square(mean, mean);
    const Orb64f variance = ((squares.high - square.high) + (squares.low - square.low)) / (n * (n - 1));
    return std::signbit(variance) ? 0.0 : squareRoot(variance) * powerOfTwo<Orb64f>(half);
}

template <class T>
bool allEqual(const T* p, std::size_t len) {
    const T first = elementAt(p);
    for (std::size_t n = 1; n < len; ++n)
        if (elementAt(p + n) != first) return false;
    return true;
}

template <class T>
Sums<Orb64f, 2, 1> momentsOf(const T* src, std::size_t len, OrbHintAlgorithm hint) {
    if constexpr (std::is_same_v<T, Orb32f>) {
        if (hint == orbAlgHintFast && len >= leastFast) return reduced(FastMoments(), len, src);
    }
    return reduced(Moments<Orb64f>(), len, src);
}
template <class T>
Spread spreadOf(const Sums<Orb64f, 2, 1>& sums, const T* src, std::size_t len) {
    const auto n = static_cast<Orb64f>(len);
    const Orb64f s1 = sums[0][0], deviation = deviationOf(s1, sums[1][0], n);
    return {s1 / n, deviation > 0 && allEqual(src, len) ? 0.0 : deviation}; // what is left of equal ones is rounding
}

// ---- 16 bits ----

struct Moments16 : InWords<Orb32s, 3, sizeof(Orb16s)> {
    template <class D, class V>
    HWY_INLINE void add(D d, V (&sum)[3], const Orb16s* p) const {
        const hn::RebindToUnsigned<D> du;
        const auto x = loadShorts(d, p);
        const V squares = pairs(d, x, x);
        sum[0] = hn::Add(sum[0], pairs(d, x, hn::Set(Shorts<D>(), 1)));
        sum[1] = hn::Add(sum[1], squares);
        sum[2] = hn::Add(sum[2], hn::BitCast(d, hn::ShiftRight<16>(hn::BitCast(du, squares))));
    }
    static Sums<Orb64s, 2, 1> total(const Sums<Orb32s, 3, 1>& sums) {
        return {{{sums[0][0]}, {joined(static_cast<Orb32u>(sums[1][0]), static_cast<Orb32u>(sums[2][0]))}}};
    }
};

// With S1 = n q + r the stated variance is that of the distances from q: (n * sum of (x - q)^2 - r^2) / (n * (n - 1)).
// They are small, so what cancels is exact in 64 bits, and what is not exact does not cancel.
Spread spreadOf(const Sums<Orb64s, 2, 1>& sums, Orb64s n) {
    const Orb64s s1 = sums[0][0], s2 = sums[1][0];
    const Orb64s q = s1 / n - (s1 % n < 0), r = s1 - q * n;
    const Orb64s aroundQ = s2 - q * (n * q + 2 * r);
    const auto real = static_cast<Orb64f>(n);
    const Orb64f aroundMean = aroundQ < 0x100000000 ? static_cast<Orb64f>(n * aroundQ - r * r) / real
                                                    : static_cast<Orb64f>(aroundQ) - static_cast<Orb64f>(r * r) / real;
    return {static_cast<Orb64f>(s1) / real, squareRoot(aroundMean / (real - 1))};
}

// ---- Frames ----

// The mean as well where the call asks for it.
template <class T, class... Mean>
OrbStatus deviation(const T* pSrc, int len, OrbHintAlgorithm hint, T* pStdDev, Mean*... pMean) {
    if (anyNull(pSrc, pStdDev, pMean...)) return orbStsNullPtrErr;
    if (len < 2) return orbStsSizeErr;
    const auto count = static_cast<std::size_t>(len);
    const auto sums = momentsOf(pSrc, count, hint);
    const Spread all = spreadOf(sums, pSrc, count);
    (setElement(pMean, static_cast<T>(all.mean)), ...);
    setElement(pStdDev, static_cast<T>(all.deviation));
    return orbStsNoErr;
}

template <class R, class... Mean>
OrbStatus deviationScaled(const Orb16s* pSrc, int len, int scaleFactor, R* pStdDev, Mean*... pMean) {
    if (anyNull(pSrc, pStdDev, pMean...)) return orbStsNullPtrErr;
    if (len < 2) return orbStsSizeErr;
    const SseQuiet quiet(SseRounding::nearest);
    const auto sums = reduced(Moments16(), static_cast<std::size_t>(len), pSrc);
    const Spread all = spreadOf(sums, len);
    (setElement(pMean, nearest<R>(scaled(all.mean, scaleFactor))), ...);
    setElement(pStdDev, nearest<R>(scaled(all.deviation, scaleFactor)));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsStdDev_32f(const Orb32f* pSrc, int len, Orb32f* pStdDev, OrbHintAlgorithm hint) { return deviation(pSrc, len, hint, pStdDev); }
OrbStatus orbsStdDev_64f(const Orb64f* pSrc, int len, Orb64f* pStdDev) { return deviation(pSrc, len, orbAlgHintNone, pStdDev); }
OrbStatus orbsStdDev_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pStdDev, int scaleFactor) { return deviationScaled(pSrc, len, scaleFactor, pStdDev); }
OrbStatus orbsStdDev_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pStdDev, int scaleFactor) { return deviationScaled(pSrc, len, scaleFactor, pStdDev); }

OrbStatus orbsMeanStdDev_32f(const Orb32f* pSrc, int len, Orb32f* pMean, Orb32f* pStdDev, OrbHintAlgorithm hint) { return deviation(pSrc, len, hint, pStdDev, pMean); }
OrbStatus orbsMeanStdDev_64f(const Orb64f* pSrc, int len, Orb64f* pMean, Orb64f* pStdDev) { return deviation(pSrc, len, orbAlgHintNone, pStdDev, pMean); }
OrbStatus orbsMeanStdDev_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pMean, Orb32s* pStdDev, int scaleFactor) { return deviationScaled(pSrc, len, scaleFactor, pStdDev, pMean); }
OrbStatus orbsMeanStdDev_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pMean, Orb16s* pStdDev, int scaleFactor) { return deviationScaled(pSrc, len, scaleFactor, pStdDev, pMean); }

}
// clang-format on
