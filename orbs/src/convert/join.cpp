// Join and Split: vectors of single channels to and from one vector of interleaved samples.
#include "orbs/convert.h"

#include "convert/packed24.h"
#include "foundation/control.h"
#include "foundation/frame.h"
#include "vectors/narrow.h"
#include "vectors/to_integer.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

// ---- One sample to an integer, and back ----

struct Rounded { // a NaN becomes 32767
    template <class D, class V>
    static auto integer(D d, V v) {
        return nearestInt32(hn::Min(v, hn::Set(d, 32767.0f)));
    }
};
struct FullScale { // -1 to 1 over the range of 16 bits in single precision, or of 24 in double; a NaN counts as 1
    template <class D, class V>
    static auto integer(D d, V v) {
        using Float = hn::TFromD<D>;
        constexpr Float half = sizeof(Float) == 4 ? 32767.5 : 8388607.5;
        const V limited = hn::Max(hn::Min(v, hn::Set(d, Float{1})), hn::Set(d, Float{-1}));
        return nearestInt32(hn::Sub(hn::Mul(limited, hn::Set(d, half)), hn::Set(d, Float{0.5})));
    }
    template <class D, class V>
    static V fraction(D d, V v) {
        using Float = hn::TFromD<D>;
        constexpr Float step = sizeof(Float) == 4 ? Float{3.0518044e-5f} : Float{1.19209296656209e-7};
        constexpr Float halfStep = sizeof(Float) == 4 ? Float{1.5259022e-5f} : Float{5.96046483281045e-8};
        return hn::Add(hn::Mul(v, hn::Set(d, step)), hn::Set(d, halfStep));
    }
};

// ---- One channel ----

// part(d, offset) in lanes of D, computed in doubles: by halves, as their vectors hold half as many.
template <class D, class Part>
HWY_INLINE auto inDoubles(D d, Part part) {
    if constexpr (hn::MaxLanes(D()) == 1) {
        return part(d, 0);
    } else {
        const hn::Half<D> half;
        return hn::Combine(d, part(half, hn::MaxLanes(half)), part(half, 0));
    }
}

// The integers of the floats at p, in lanes of 16 bits.
template <class Op, class D>
auto integersOf(D d, const Orb32f* p) {
    return narrowed(d, [=](auto di, std::size_t offset) HWY_ATTR {
        const hn::RebindToFloat<decltype(di)> df;
        return Op::integer(df, hn::LoadU(df, p + offset));
    });
}

template <class Op>
void toIntegers(const Orb32f* pSrc, Orb16s* pDst, std::size_t len) {
    forEachVector<Orb16s>(len, [=](auto d, std::size_t n)
                                   HWY_ATTR { hn::StoreU(integersOf<Op>(d, pSrc + n), d, pDst + n); });
}
template <class Op>
void toIntegers(const Orb32f* pSrc, Orb24s* pDst, std::size_t len) {
    forEachVector24<Orb32s>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto integers = [=](auto part, std::size_t offset) HWY_ATTR {
            const hn::Rebind<Orb64f, decltype(part)> df;
            const auto v = hn::LoadU(hn::RebindToFloat<decltype(part)>(), pSrc + n + offset);
            return Op::integer(df, hn::PromoteTo(df, v));
        };
        store24(inDoubles(d, integers), d, pDst + n);
    });
}

void toFractions(const Orb16s* pSrc, Orb32f* pDst, std::size_t len) {
    forEachVector<Orb32f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto x = hn::LoadU(hn::Rebind<Orb16s, decltype(d)>(), pSrc + n);
        const auto v = hn::ConvertTo(d, hn::PromoteTo(hn::RebindToSigned<decltype(d)>(), x));
        hn::StoreU(FullScale::fraction(d, v), d, pDst + n);
    });
}
void toFractions(const Orb24s* pSrc, Orb32f* pDst, std::size_t len) {
    forEachVector24<Orb32s>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::RebindToFloat<decltype(d)> df;
        const auto integers = load24(d, pSrc + n);
        const auto fractions = [=](auto part, std::size_t offset) HWY_ATTR {
            const hn::Rebind<Orb64f, decltype(part)> doubles;
            const hn::Rebind<Orb32s, decltype(part)> di;
            if constexpr (hn::MaxLanes(d) == 1) {
                return hn::DemoteTo(part, FullScale::fraction(doubles, hn::PromoteTo(doubles, integers)));
            } else {
                const auto x = offset == 0 ? hn::LowerHalf(di, integers) : hn::UpperHalf(di, integers);
                return hn::DemoteTo(part, FullScale::fraction(doubles, hn::PromoteTo(doubles, x)));
            }
        };
        hn::StoreU(inDoubles(df, fractions), df, pDst + n);
    });
}

// ---- Two channels of 16 bits ----

template <class Op>
void toPairs(const Orb32f* const* pSrc, Orb16s* pDst, std::size_t len) {
    const Orb32f *const left = pSrc[0], *const right = pSrc[1];
    forEachVector<Orb16s>(len, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreInterleaved2(integersOf<Op>(d, left + n), integersOf<Op>(d, right + n), d, pDst + 2 * n);
    });
}

// A pair is a lane of 32 bits.
void fromPairs(const Orb16s* pSrc, Orb32f* const* pDst, std::size_t len) {
    Orb32f *const left = pDst[0], *const right = pDst[1];
    forEachVector<Orb32f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const auto pairs = hn::LoadU(hn::RebindToSigned<decltype(d)>(), reinterpret_cast<const Orb32s*>(pSrc) + n);
        const auto lower = hn::ShiftRight<16>(hn::ShiftLeft<16>(pairs)), upper = hn::ShiftRight<16>(pairs);
        hn::StoreU(FullScale::fraction(d, hn::ConvertTo(d, lower)), d, left + n);
        hn::StoreU(FullScale::fraction(d, hn::ConvertTo(d, upper)), d, right + n);
    });
}

// ---- All channels ----

template <class T, class Channel>
OrbStatus checkChannels(const T* interleaved, Channel const* channels, int nChannels, int chanLen) {
    if (!interleaved) return orbStsNullPtrErr;
    if (nChannels < 1 || chanLen < 1) return orbStsSizeErr;
    if (!channels) return orbStsNullPtrErr;
    return std::any_of(channels, channels + nChannels, [](Channel channel) { return !channel; }) ? orbStsNullPtrErr
                                                                                                 : orbStsNoErr;
}

// Calls body(first, count) for runs of samples that cover a channel.
constexpr std::size_t blockLen = 512;
template <class Body>
void forEachBlock(std::size_t len, Body body) {
    for (std::size_t first = 0; first < len; first += blockLen) body(first, std::min(blockLen, len - first));
}

// to[n * toStep] = from[n * fromStep], `bytes` of it.
template <std::size_t bytes, class T>
void copySpread(const T* from, std::size_t fromStep, T* to, std::size_t toStep, std::size_t count) {
    for (std::size_t n = 0; n < count; ++n) std::memcpy(to + n * toStep, from + n * fromStep, bytes);
}
// Samples of three bytes move by four where another channel is still to come: the fourth byte is a part of its sample,
// which is there to be read, and will be written over.
template <class T>
void copyChannel(const T* from, std::size_t fromStep, T* to, std::size_t toStep, std::size_t count, bool isLast) {
    if (sizeof(T) == 3 && !isLast) return copySpread<4>(from, fromStep, to, toStep, count);
    copySpread<sizeof(T)>(from, fromStep, to, toStep, count);
}

// Block by block: the samples of one channel side by side, then among those of the others.
template <class Op, class T>
void joinBlocks(const Orb32f* const* pSrc, std::size_t channels, std::size_t len, T* pDst) {
    forEachBlock(len, [=](std::size_t first, std::size_t count) {
        T block[blockLen + 1];
        for (std::size_t c = 0; c < channels; ++c) {
            toIntegers<Op>(pSrc[c] + first, block, count);
            copyChannel(block, 1, pDst + first * channels + c, channels, count, c + 1 == channels);
        }
    });
}
template <class T>
void splitBlocks(const T* pSrc, Orb32f* const* pDst, std::size_t channels, std::size_t len) {
    forEachBlock(len, [=](std::size_t first, std::size_t count) {
        T block[blockLen + 1];
        for (std::size_t c = 0; c < channels; ++c) {
            copyChannel(pSrc + first * channels + c, channels, block, 1, count, c + 1 == channels);
            toFractions(block, pDst[c] + first, count);
        }
    });
}

template <class Op, class T>
OrbStatus join(const Orb32f* const* pSrc, int nChannels, int chanLen, T* pDst) {
    if (const OrbStatus status = checkChannels(pDst, pSrc, nChannels, chanLen)) return status;
    const auto channels = static_cast<std::size_t>(nChannels), len = static_cast<std::size_t>(chanLen);
    const SseRounding rounding(SseRounding::nearest);
    if constexpr (sizeof(T) == 2) {
        if (channels == 2) return toPairs<Op>(pSrc, pDst, len), orbStsNoErr;
    }
    channels == 1 ? toIntegers<Op>(pSrc[0], pDst, len) : joinBlocks<Op>(pSrc, channels, len, pDst);
    return orbStsNoErr;
}

template <class T>
OrbStatus split(const T* pSrc, Orb32f* const* pDst, int nChannels, int chanLen) {
    if (const OrbStatus status = checkChannels(pSrc, pDst, nChannels, chanLen)) return status;
    const auto channels = static_cast<std::size_t>(nChannels), len = static_cast<std::size_t>(chanLen);
    if constexpr (sizeof(T) == 2) {
        if (channels == 2) return fromPairs(pSrc, pDst, len), orbStsNoErr;
    }
    channels == 1 ? toFractions(pSrc, pDst[0], len) : splitBlocks(pSrc, pDst, channels, len);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsJoin_32f16s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb16s* pDst) { return join<Rounded>(pSrc, nChannels, chanLen, pDst); }
OrbStatus orbsJoinScaled_32f16s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb16s* pDst) { return join<FullScale>(pSrc, nChannels, chanLen, pDst); }
OrbStatus orbsJoinScaled_32f24s_D2L(const Orb32f* const* pSrc, int nChannels, int chanLen, Orb24s* pDst) { return join<FullScale>(pSrc, nChannels, chanLen, pDst); }
OrbStatus orbsSplitScaled_16s32f_D2L(const Orb16s* pSrc, Orb32f* const* pDst, int nChannels, int chanLen) { return split(pSrc, pDst, nChannels, chanLen); }
OrbStatus orbsSplitScaled_24s32f_D2L(const Orb24s* pSrc, Orb32f* const* pDst, int nChannels, int chanLen) { return split(pSrc, pDst, nChannels, chanLen); }

}
// clang-format on
