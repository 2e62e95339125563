// SumWindow: sums of a window that slides.
#include "foundation/frame.h"
#include "orbs/speech.h"
#include "vectors/loops.h"

#include <limits>

namespace {

using namespace orbs;

// How long a window's sums, as all differences between them, are whole numbers of single precision in any case.
template <class T>
constexpr Orb64s longestExact = (1 << 24) /
                                -std::min<Orb64s>(std::numeric_limits<T>::min(), -std::numeric_limits<T>::max());

// Every sum of floats is exact then, in whatever order: sums of integers give the same.
template <class T>
void integerSums(const T* pSrc, Orb32f* pDst, std::size_t len, std::size_t mask, Orb32s sum) {
    const hn::FixedTag<Orb32s, 4> d;
    const hn::Rebind<T, decltype(d)> dNarrow;
    const hn::FixedTag<Orb32f, 4> df;
    const auto at = [=](std::size_t n) HWY_ATTR { return hn::PromoteTo(d, hn::LoadU(dNarrow, pSrc + n)); };
    auto before = hn::Set(d, sum);
    std::size_t n = 0;
    for (; n + 4 <= len; n += 4) {
        const auto change = at(n + mask) - at(n);
        const auto pairs = change + hn::ShiftLeftLanes<1>(d, change), sums = pairs + hn::ShiftLeftLanes<2>(d, pairs);
        hn::StoreU(hn::ConvertTo(df, before + hn::ShiftLeftLanes<1>(d, sums)), df, pDst + n);
        before = before + hn::Broadcast<3>(sums);
    }
    sum = hn::GetLane(before);
    for (; n < len; ++n) {
        setElement(pDst + n, static_cast<Orb32f>(sum));
        sum += elementAt(pSrc + n + mask) - elementAt(pSrc + n);
    }
}

template <class T>
void floatSums(const T* pSrc, Orb32f* pDst, std::size_t len, std::size_t mask, Orb32f sum) {
    for (std::size_t n = 0; n < len; ++n) {
        setElement(pDst + n, sum);
        sum += static_cast<Orb32f>(elementAt(pSrc + n + mask) - elementAt(pSrc + n));
    }
}

template <class T>
OrbStatus sumWindow(const T* pSrc, Orb32f* pDst, int len, int maskSize) {
    if (anyNull(pSrc, pDst)) return orbStsNullPtrErr;
    if (maskSize < 1) return orbStsMaskSizeErr;
    if (len < 1) return orbStsNoErr;
    const auto count = static_cast<std::size_t>(len), mask = static_cast<std::size_t>(maskSize);
    Orb64s first = 0;
    for (std::size_t n = 0; n < mask; ++n) first += elementAt(pSrc + n);
    if (maskSize <= longestExact<T>) {
        integerSums(pSrc, pDst, count, mask, static_cast<Orb32s>(first));
    } else {
        floatSums(pSrc, pDst, count, mask, static_cast<Orb32f>(first));
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSumWindow_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len, int maskSize) { return sumWindow(pSrc, pDst, len, maskSize); }
OrbStatus orbsSumWindow_16s32f(const Orb16s* pSrc, Orb32f* pDst, int len, int maskSize) { return sumWindow(pSrc, pDst, len, maskSize); }

}
// clang-format on
