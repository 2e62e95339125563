// Sum and Mean.
#include "orbs/sums.h"
#include "reductions/exact.h"
#include "reductions/reduce16.h"

namespace {

using namespace orbs;

// ---- Floats ----

template <class Lane>
struct Sum : InFixedLanes<Lane> {
    template <class D, class V, class T>
    HWY_INLINE void add(D d, V (&sum)[1], const T* p) const {
        sum[0] = hn::Add(sum[0], loadAs(d, p));
    }
};

// In single precision, for as many elements as keep its rounding small.
struct FastSum : Sum<Orb32f> {
    static constexpr std::size_t block = 32768;

    template <std::size_t parts>
    static Sums<Orb64f, 1, parts> total(const Sums<Orb32f, 1, parts>& sums) {
        Sums<Orb64f, 1, parts> wide;
        for (std::size_t p = 0; p < parts; ++p) wide[0][p] = sums[0][p];
        return wide;
    }
};

template <class T>
std::array<Orb64f, partsOf<T>> floatSum(const T* src, std::size_t len, OrbHintAlgorithm hint) {
    constexpr std::size_t parts = partsOf<T>;
    if constexpr (sizeof(T) == parts * sizeof(Orb32f)) {
        if (hint == orbAlgHintFast) return reduced<parts>(FastSum(), parts * len, partsAt(src))[0];
    }
    return reduced<parts>(Sum<Orb64f>(), parts * len, partsAt(src))[0];
}

template <class T>
OrbStatus sum(const T* pSrc, int len, T* pSum, OrbHintAlgorithm hint = orbAlgHintNone) {
    const auto sums = [=](std::size_t count, const T* src) { return floatSum(src, count, hint); };
    const auto finish = [](const auto& all) {
        return eachPart<T>(all, [](Orb64f s) { return static_cast<PartOf<T>>(s); });
    };
    return reduction(sums, finish, len, pSum, pSrc);
}

// By contract the mean of Orb64fc is a product with the reciprocal.
template <class T>
OrbStatus mean(const T* pSrc, int len, T* pMean, OrbHintAlgorithm hint = orbAlgHintNone) {
    const auto sums = [=](std::size_t count, const T* src) { return floatSum(src, count, hint); };
    const auto finish = [n = static_cast<Orb64f>(len)](const auto& all) {
        return eachPart<T>(
            all, [=](Orb64f s) { return static_cast<PartOf<T>>(std::is_same_v<T, Orb64fc> ? s * (1.0 / n) : s / n); });
    };
    return reduction(sums, finish, len, pMean, pSrc);
}

// ---- 16 bits ----

// A double keeps every total and its products with powers of two exactly.
Orb64f scaledSum(Orb64s total, int scaleFactor) {
    return scaled(static_cast<Orb64f>(total), scaleFactor);
}

constexpr auto exactSum = []<class T>(std::size_t len, const T* src) -> std::array<Orb64s, partsOf<T>> {
    const auto sums = reduced(Sum16<T>(), len, src);
    if constexpr (isComplex<T>) {
        return {sums[0][0], sums[1][0]};
    } else {
        return sums[0];
    }
};

template <class T, class R>
OrbStatus sumScaled(const T* pSrc, int len, R* pSum, int scaleFactor) {
    const auto finish = [=](const auto& sums) {
        return eachPart<R>(sums,
                           [=](Orb64s s) { return saturated<PartOf<R>>(nearest<Orb32s>(scaledSum(s, scaleFactor))); });
    };
    return reduction(exactSum, finish, len, pSum, pSrc);
}

template <class T>
OrbStatus meanScaled(const T* pSrc, int len, T* pMean, int scaleFactor) {
    const auto finish = [=](const auto& sums) {
        return eachPart<T>(sums, [=](Orb64s s) { return nearest<Orb16s>(scaledSum(s, scaleFactor) / len); });
    };
    return reduction(exactSum, finish, len, pMean, pSrc);
}

// ---- 32 bits ----

Orb64s exactSum32(std::size_t len, const Orb32s* src) {
    return reduced(Sum<std::int64_t>(), len, src)[0][0];
}

OrbStatus sumScaled(const Orb32s* pSrc, int len, Orb32s* pSum, int scaleFactor) {
    const auto finish = [=](Orb64s s) {
        if (scaleFactor > 63) return static_cast<Orb32s>(s >> 63);
        if (scaleFactor > 0) return saturated<Orb32s>(roundedShift(s, scaleFactor));
        return shiftedLeft<Orb32s>(s, leftShift(scaleFactor, 31));
    };
    return reduction(exactSum32, finish, len, pSum, pSrc);
}

// |s| / n to nearest, ties to even, with the sign of s.
Orb64s quotient(Orb64s s, Orb64s n) {
    const Orb64s magnitude = s < 0 ? -s : s, q = magnitude / n, twice = 2 * (magnitude % n);
    const Orb64s nearest = q + (twice > n ? 1 : twice == n ? q & 1 : 0);
    return s < 0 ? -nearest : nearest;
}
// By contract the bit below the last one that stays is added as 1, not as its value: for shifts of 2 and more that is
// not rounding.
Orb64s meanShifted(Orb64s mean, int shift) {
    if (shift > 63) return 0;
    const Orb64s q = mean < 0 ? -mean : mean, shifted = (q + (q >> (shift - 1) & 1)) >> shift;
    return mean < 0 ? -shifted : shifted;
}

OrbStatus meanScaled(const Orb32s* pSrc, int len, Orb32s* pMean, int scaleFactor) {
    const auto finish = [=](Orb64s s) {
        if (scaleFactor == 0) return saturated<Orb32s>(quotient(s, len));
        if (scaleFactor > 0) return saturated<Orb32s>(meanShifted(quotient(s, len), scaleFactor));
        if (scaleFactor < -31) return saturated<Orb32s>(s == 0 ? 0 : s < 0 ? -0x80000000LL : 0x7fffffffLL);
        const int shift = -scaleFactor;
        if (s != saturated<Orb32s>(s)) return shiftedLeft<Orb32s>(quotient(s, len), shift);
        return saturated<Orb32s>(quotient(s * (Orb64s{1} << shift), len)); // keeps the fraction
    };
    return reduction(exactSum32, finish, len, pMean, pSrc);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSum_32f(const Orb32f* pSrc, int len, Orb32f* pSum, OrbHintAlgorithm hint) { return sum(pSrc, len, pSum, hint); }
OrbStatus orbsSum_32fc(const Orb32fc* pSrc, int len, Orb32fc* pSum, OrbHintAlgorithm hint) { return sum(pSrc, len, pSum, hint); }
OrbStatus orbsSum_64f(const Orb64f* pSrc, int len, Orb64f* pSum) { return sum(pSrc, len, pSum); }
OrbStatus orbsSum_64fc(const Orb64fc* pSrc, int len, Orb64fc* pSum) { return sum(pSrc, len, pSum); }
OrbStatus orbsSum_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pSum, int scaleFactor) { return sumScaled(pSrc, len, pSum, scaleFactor); }
OrbStatus orbsSum_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pSum, int scaleFactor) { return sumScaled(pSrc, len, pSum, scaleFactor); }
OrbStatus orbsSum_16s32s_Sfs(const Orb16s* pSrc, int len, Orb32s* pSum, int scaleFactor) { return sumScaled(pSrc, len, pSum, scaleFactor); }
OrbStatus orbsSum_16sc32sc_Sfs(const Orb16sc* pSrc, int len, Orb32sc* pSum, int scaleFactor) { return sumScaled(pSrc, len, pSum, scaleFactor); }
OrbStatus orbsSum_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pSum, int scaleFactor) { return sumScaled(pSrc, len, pSum, scaleFactor); }

OrbStatus orbsMean_32f(const Orb32f* pSrc, int len, Orb32f* pMean, OrbHintAlgorithm hint) { return mean(pSrc, len, pMean, hint); }
OrbStatus orbsMean_32fc(const Orb32fc* pSrc, int len, Orb32fc* pMean, OrbHintAlgorithm hint) { return mean(pSrc, len, pMean, hint); }
OrbStatus orbsMean_64f(const Orb64f* pSrc, int len, Orb64f* pMean) { return mean(pSrc, len, pMean); }
OrbStatus orbsMean_64fc(const Orb64fc* pSrc, int len, Orb64fc* pMean) { return mean(pSrc, len, pMean); }
OrbStatus orbsMean_16s_Sfs(const Orb16s* pSrc, int len, Orb16s* pMean, int scaleFactor) { return meanScaled(pSrc, len, pMean, scaleFactor); }
OrbStatus orbsMean_16sc_Sfs(const Orb16sc* pSrc, int len, Orb16sc* pMean, int scaleFactor) { return meanScaled(pSrc, len, pMean, scaleFactor); }
OrbStatus orbsMean_32s_Sfs(const Orb32s* pSrc, int len, Orb32s* pMean, int scaleFactor) { return meanScaled(pSrc, len, pMean, scaleFactor); }

}
// clang-format on
