// Exp: exponentials of floats and of integers.
#include "elementary/exp.h"
#include "elementary/elementary.h"
#include "foundation/control.h"
#include "orbs/elementary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace {

using namespace orbs;

// ---- Floats ----

OrbStatus exponentials(const Orb32f* pSrc, Orb32f* pDst, int len) {
    const SseQuiet guard(SseRounding::nearest);
    return elementary(Exp32{}, len, pDst, pSrc);
}

template <class S>
OrbStatus exponentials(const S* pSrc, Orb64f* pDst, int len) {
    const SseRounding guard(SseRounding::nearest);
    return elementary(Exp64{}, len, pDst, pSrc);
}

// ---- Integers ----
//
// Between the arguments whose results are 0 and those that saturate lie a few: a call computes these results, and looks
// them up.

// e^x = significand * 2^(exponent - 63), the significand with its top bit set; for all x whose e^x is neither 0 nor
// infinite in double precision. What is behind the 64 bits is cut off: so every cut of fewer bits is exact.
constexpr int leastArgument = -745, greatestArgument = 709;
struct Powers {
    static constexpr std::size_t count = greatestArgument - leastArgument + 1;
    std::array<Orb64u, count> significand{};
    std::array<Orb16s, count> exponent{};

    constexpr void set(int x, Quad value, int exponentOfValue) {
        significand[static_cast<std::size_t>(x - leastArgument)] = static_cast<Orb64u>(value * 0x1p63);
        exponent[static_cast<std::size_t>(x - leastArgument)] = static_cast<Orb16s>(exponentOfValue);
    }
};
constexpr Powers powers = [] {
    Powers all;
    const Quad e = quadExp(1);
    Quad value = 1; // in 1 to 2
    int exponent = 0;
    for (int x = 0; x <= greatestArgument; ++x, value *= e) {
        for (; value >= 2; value /= 2) ++exponent;
        all.set(x, value, exponent);
    }
    value = 1;
    exponent = 0;
    for (int x = 0; x >= leastArgument; --x, value /= e) {
        for (; value < 1; value *= 2) --exponent;
        all.set(x, value, exponent);
    }
    return all;
}();

enum class Fraction { roundedHalfUp, cut };

// 2 * e^x * 2^-scaleFactor without its fraction; the greatest integer if it is too large. Both factors are those of
// double precision: 0 and infinite beyond its range, and 0 times infinity is 0. Where the fraction is to be cut, e^x
// has the 53 bits of a double too: no significand is so large that it becomes 2.
constexpr Orb64u halves(int x, int scaleFactor, Fraction fraction) {
    constexpr Orb64u greatest = std::numeric_limits<Orb64u>::max();
    if (x < leastArgument || scaleFactor > 1074) return 0;
    if (x > greatestArgument || scaleFactor < -1023) return greatest;
    const auto at = static_cast<std::size_t>(x - leastArgument);
    Orb64u significand = powers.significand[at];
    if (fraction == Fraction::cut) significand = (significand + 0x400) & ~Orb64u{0x7ff};
    const int exponent = powers.exponent[at] - scaleFactor;
    return exponent < -1 ? 0 : exponent > 62 ? greatest : significand >> (62 - exponent);
}

template <class T>
constexpr T scaledPower(int x, int scaleFactor, Fraction fraction) {
    const Orb64u twice = halves(x, scaleFactor, fraction);
    const Orb64u result = twice / 2 + (fraction == Fraction::roundedHalfUp ? twice % 2 : 0);
    return static_cast<T>(std::min<Orb64u>(result, std::numeric_limits<T>::max()));
}

// The results of `size` arguments from `first` on; those below give the first result and those above the last.
template <class T, std::size_t size>
struct Window {
    int first;
    alignas(16) std::array<T, size> results;

    T& at(int x) { return results[static_cast<std::size_t>(x - first)]; }
    T operator()(T x) const {
        return results[static_cast<std::size_t>(std::min(std::max<T>(x, first), first + T{size - 1}) - first)];
    }
};

template <class T, std::size_t size>
Window<T, size> windowOf(int scaleFactor, Fraction fraction) {
    // From one below the least argument with a result, (scaleFactor - 1) * ln 2 at least; and not so far up that
    // infinite results come to lie below it.
    const int start = ((std::clamp(scaleFactor, -1024, 1075) - 1) * 45426 >> 16) - 1;
    Window<T, size> window;
    window.first =
        scaleFactor < -1023 ? leastArgument - 1 : std::min(start, greatestArgument + 2 - static_cast<int>(size));
    for (std::size_t k = 0; k < size; ++k)
        window.results[k] = scaledPower<T>(window.first + static_cast<int>(k), scaleFactor, fraction);
    return window;
}

// 16 results are a vector of their low bytes and one of their high bytes.
void exponentialsKernel(const Orb16s* src, Orb16s* dst, std::size_t len, int scaleFactor) {
    constexpr int count = 16;
    const auto window = windowOf<Orb16s, count>(scaleFactor, Fraction::roundedHalfUp);
    alignas(16) Orb8u low[count], high[count];
    for (std::size_t k = 0; k < count; ++k) {
        low[k] = static_cast<Orb8u>(window.results[k]);
        high[k] = static_cast<Orb8u>(window.results[k] >> 8);
    }
    const int first = window.first;
    mapVectors<2>(
        len,
        [first, &low, &high](auto d, auto x) HWY_ATTR {
            const hn::Repartition<Orb8u, decltype(d)> bytes;
            const auto k = hn::Min(hn::SaturatedSub(x, hn::Set(d, first)), hn::Set(d, count - 1));
            // The upper byte of each index asks for a zero.
            const auto index = hn::BitCast(bytes, hn::Or(hn::Max(k, hn::Zero(d)), hn::Set(d, -0x8000)));
            const auto lookUp = [&](const Orb8u* table) HWY_ATTR {
                return hn::BitCast(d, hn::TableLookupBytesOr0(hn::LoadDup128(bytes, table), index));
            };
            return hn::Or(lookUp(low), hn::ShiftLeft<8>(lookUp(high)));
        },
        dst, src);
}

void exponentialsKernel(const Orb32s* src, Orb32s* dst, std::size_t len, int scaleFactor) {
    constexpr int count = 28;
    const auto window = windowOf<Orb32s, count>(scaleFactor, Fraction::roundedHalfUp);
    mapVectors<2>(
        len,
        [&window](auto d, auto x) HWY_ATTR {
            const auto least = hn::Set(d, window.first), greatest = hn::Set(d, window.first + count - 1);
            const auto k = hn::Min(hn::Max(x, least), greatest) - least;
            return hn::GatherIndex(d, window.results.data(), k);
        },
        dst, src);
}

using Window64 = Window<Orb64s, 48>;

// Scale factors -1, 0 and 1 of 64 bits: e^x is rounded to an integer before it is scaled. -2 stands for all negative
// arguments but -1.
Window64 smallScaleWindow(int scaleFactor) {
    constexpr Orb64s greatest = std::numeric_limits<Orb64s>::max();
    Window64 window{-2, {}};
    window.at(-1) = scaleFactor < 0;
    window.at(45) = greatest;
    for (int x = 0; x < 45; ++x) {
        const auto e = scaledPower<Orb64s>(x, 0, Fraction::roundedHalfUp);
        window.at(x) = scaleFactor == 0 ? e : scaleFactor > 0 ? e / 2 + e % 2 : e > greatest / 2 ? greatest : 2 * e;
    }
    if (scaleFactor > 0) window.at(44) = 6425800057179654138; // half of what did not fit
    return window;
}

void exponentialsKernel(const Orb64s* src, Orb64s* dst, std::size_t len, int scaleFactor) {
    const bool small = scaleFactor >= -1 && scaleFactor <= 1;
    const auto window = small ? smallScaleWindow(scaleFactor) : windowOf<Orb64s, 48>(scaleFactor, Fraction::cut);
    const auto transform = [=](auto f) {
        for (std::size_t n = 0; n < len; ++n) setElement(dst + n, f(elementAt(src + n)));
    };
    Orb64u signs = 0;
    if (small)
        for (std::size_t n = 0; n < len; ++n) signs |= static_cast<Orb64u>(elementAt(src + n)) + 0x8000;
    if (signs >> 63 == 0) {
        transform(window);
    } else { // some are below -2^15: there the low 16 bits are all that counts, as a signed number
        transform([&window](Orb64s x) {
            const auto low = static_cast<Orb16s>(x);
            return window(x >= -0x8000 ? x : low < 0 ? -2 : low);
        });
    }
}

template <class T>
OrbStatus exponentials(const T* pSrc, T* pDst, int len, int scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    exponentialsKernel(pSrc, pDst, static_cast<std::size_t>(len), scaleFactor);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsExp_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_32f_I(Orb32f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }
OrbStatus orbsExp_64f_I(Orb64f* pSrcDst, int len) { return exponentials(pSrcDst, pSrcDst, len); }
OrbStatus orbsExp_32f64f(const Orb32f* pSrc, Orb64f* pDst, int len) { return exponentials(pSrc, pDst, len); }

OrbStatus orbsExp_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int len, int scaleFactor) { return exponentials(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsExp_16s_ISfs(Orb16s* pSrcDst, int len, int scaleFactor) { return exponentials(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsExp_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int len, int scaleFactor) { return exponentials(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsExp_32s_ISfs(Orb32s* pSrcDst, int len, int scaleFactor) { return exponentials(pSrcDst, pSrcDst, len, scaleFactor); }
OrbStatus orbsExp_64s_Sfs(const Orb64s* pSrc, Orb64s* pDst, int len, int scaleFactor) { return exponentials(pSrc, pDst, len, scaleFactor); }
OrbStatus orbsExp_64s_ISfs(Orb64s* pSrcDst, int len, int scaleFactor) { return exponentials(pSrcDst, pSrcDst, len, scaleFactor); }

}
