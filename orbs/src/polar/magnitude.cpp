// Magnitude: the root of re^2 + im^2. PowerSpectr, MagSquared: that sum.
#include "elementary/sqrt_exact.h"
#include "orbs/polar.h"
#include "polar/sources.h"

namespace {

using namespace orbs;

// ---- Floats ----

struct Power {
    template <class D, class V>
    static HWY_INLINE V of(D, Planes<V> z) {
        return hn::Add(hn::Mul(z.re, z.re), hn::Mul(z.im, z.im));
    }
};
struct Root {
    template <class D, class V>
    static HWY_INLINE V of(D d, Planes<V> z) {
        return hn::Sqrt(Power::of(d, z));
    }
};

template <class Op, class Source, class T>
void kernel(Source source, T* dst, std::size_t len) requires std::is_same_v<typename Source::Part, T> {
    mapElements<4>(len, source, dst, [](auto d, auto z) HWY_ATTR { return Op::of(d, z); });
}

// ---- Floats of 16-bit integers ----

template <class Op, class Source>
void kernel(Source source, Orb32f* dst, std::size_t len) requires std::is_same_v<typename Source::Part, Orb16s> {
    forEachVector<Orb32f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto sum = hn::Abs(hn::ConvertTo(d, source.squares(hn::RebindToSigned<decltype(d)>(), n)));
        if constexpr (std::is_same_v<Op, Root>) {
            hn::StoreU(hn::Sqrt(sum), d, dst + n);
        } else {
            hn::StoreU(sum, d, dst + n);
        }
    });
}

// ---- Integers: the exact root or sum, rounded once. Beyond the cuts every result rounds to 0, or saturates unless it
//      is 0, so the cuts themselves stand for all of it. ----

template <class Source, class F>
void map16s(Source source, Orb16s* dst, std::size_t len, F f) {
    forEachVector<Orb16s>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto words = [=](auto wide, std::size_t offset)
                               HWY_ATTR { return f(wide, folded(source.squares(wide, n + offset))); };
        hn::StoreU(narrowed(d, words), d, dst + n);
    });
}

template <class Op, class Source>
void kernel(Source source, Orb16s* dst, std::size_t len, int scaleFactor) {
    const int s = std::clamp(scaleFactor, -15, 32);
    if constexpr (std::is_same_v<Op, Root>) {
        const SseQuiet quiet(SseRounding::nearest);
        const ExactRoot<Orb32f> root(std::min(s, 17));
        map16s(source, dst, len, [=](auto d, auto sum) HWY_ATTR { return root(d, sum); });
    } else if (s > 0) {
        map16s(source, dst, len, [=](auto d, auto sum) HWY_ATTR { return rounded(d, sum, s); });
    } else {
        map16s(source, dst, len, [=](auto d, auto sum) HWY_ATTR { return shiftedLeft(d, sum, -s); });
    }
}

template <class Op>
void kernel(Interleaved<Orb32sc> source, Orb32s* dst, std::size_t len, int scaleFactor) {
    const SseQuiet quiet(SseRounding::nearest);
    const ExactRoot<Orb64f> root(std::clamp(scaleFactor, -31, 33));
    forEachVector<std::int64_t>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Repartition<Orb32s, decltype(d)> parts;
        const hn::RebindToUnsigned<decltype(parts)> magnitudes;
        const hn::RebindToUnsigned<decltype(d)> sums;
        const auto re = hn::BitCast(magnitudes, hn::Abs(hn::LoadU(parts, asReal(source.p + n)))); // in even lanes
        const auto im = hn::BitCast(magnitudes, hn::ShiftRight<32>(hn::BitCast(sums, re)));
        const auto sum = folded(hn::BitCast(d, hn::Add(hn::MulEven(re, re), hn::MulEven(im, im))));
        const auto y = hn::Min(root(d, sum), hn::Set(d, std::numeric_limits<Orb32s>::max()));
        const hn::Rebind<Orb32u, decltype(d)> half;
        const auto low = hn::TruncateTo(half, hn::BitCast(sums, y));
        storeWhole(d, hn::BitCast(hn::RebindToSigned<decltype(half)>(), low), dst + n);
    });
}

// In double precision, each operation rounded.
OrbStatus magSquared(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const Interleaved<Orb32sc> source{pSrc};
    const SseQuiet quiet(SseRounding::nearest);
    const Orb64f scale = scaleFactor > 63 ? 0 : powerOfTwo<Orb64f>(-std::max(scaleFactor, -31));
    forEachVector<Orb64f>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        storeNearest(d, Power::of(d, source.load(d, n)) * hn::Set(d, scale), pDst + n);
    });
    return orbStsNoErr;
}

// ---- Frames ----

template <class Source, class R, class... Scale>
OrbStatus magnitude(Source source, R* pDst, int len, int spreadFrom, Scale... scaleFactor) {
    if (const OrbStatus status = checkPolar(len, source, pDst)) return status;
    return spread(len, {spreadFrom}, [=](std::size_t first, std::size_t count) {
        kernel<Root>(source.from(first), pDst + first, count, scaleFactor...);
    });
}
template <class Source, class R, class... Scale>
OrbStatus power(Source source, R* pDst, int len, Scale... scaleFactor) {
    if (const OrbStatus status = checkPolar(len, source, pDst)) return status;
    kernel<Power>(source, pDst, static_cast<std::size_t>(len), scaleFactor...);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMagnitude_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len) { return magnitude(Interleaved{pSrc}, pDst, len, 2048); }
OrbStatus orbsMagnitude_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len) { return magnitude(Interleaved{pSrc}, pDst, len, 256); }
OrbStatus orbsMagnitude_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len) { return magnitude(Interleaved{pSrc}, pDst, len, 4096); }
OrbStatus orbsMagnitude_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor) { return magnitude(Interleaved{pSrc}, pDst, len, 2048, scaleFactor); }
OrbStatus orbsMagnitude_32sc_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor) { return magnitude(Interleaved{pSrc}, pDst, len, 256, scaleFactor); }
OrbStatus orbsMagnitude_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len) { return magnitude(InParts{pSrcRe, pSrcIm}, pDst, len, 4096); }
OrbStatus orbsMagnitude_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len) { return magnitude(InParts{pSrcRe, pSrcIm}, pDst, len, 256); }
OrbStatus orbsMagnitude_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len) { return magnitude(InParts{pSrcRe, pSrcIm}, pDst, len, 2048); }
OrbStatus orbsMagnitude_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor) { return magnitude(InParts{pSrcRe, pSrcIm}, pDst, len, 2048, scaleFactor); }
OrbStatus orbsMagSquared_32sc32s_Sfs(const Orb32sc* pSrc, Orb32s* pDst, int len, int scaleFactor) { return magSquared(pSrc, pDst, len, scaleFactor); }

OrbStatus orbsPowerSpectr_32fc(const Orb32fc* pSrc, Orb32f* pDst, int len) { return power(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPowerSpectr_64fc(const Orb64fc* pSrc, Orb64f* pDst, int len) { return power(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPowerSpectr_16sc32f(const Orb16sc* pSrc, Orb32f* pDst, int len) { return power(Interleaved{pSrc}, pDst, len); }
OrbStatus orbsPowerSpectr_16sc_Sfs(const Orb16sc* pSrc, Orb16s* pDst, int len, int scaleFactor) { return power(Interleaved{pSrc}, pDst, len, scaleFactor); }
OrbStatus orbsPowerSpectr_32f(const Orb32f* pSrcRe, const Orb32f* pSrcIm, Orb32f* pDst, int len) { return power(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPowerSpectr_64f(const Orb64f* pSrcRe, const Orb64f* pSrcIm, Orb64f* pDst, int len) { return power(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPowerSpectr_16s32f(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb32f* pDst, int len) { return power(InParts{pSrcRe, pSrcIm}, pDst, len); }
OrbStatus orbsPowerSpectr_16s_Sfs(const Orb16s* pSrcRe, const Orb16s* pSrcIm, Orb16s* pDst, int len, int scaleFactor) { return power(InParts{pSrcRe, pSrcIm}, pDst, len, scaleFactor); }

}
// clang-format on
