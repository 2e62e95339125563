// SumWindow: sums of a window that slides.
#include "foundation/frame.h"
#include "orbs/speech.h"
#include "vectors/loops.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace orbs;

// Sums are whole numbers, and single precision has all of them up to 2^24, which a block of steps from here on does not
// leave: none changes a sum by more than 65535.
constexpr std::size_t block = 16;
constexpr Orb32s exactFrom = (1 << 24) - block * 65535;

// A window's sum and its place.
struct Window {
    std::size_t at;
    Orb32f sum;
};

// In integers, block by block, as long as floats lose nothing: both are the same then, in whatever order.
template <class T>
Window slideExactly(const T* pSrc, Orb32f* pDst, std::size_t len, std::size_t mask, Window window) {
    const hn::FixedTag<Orb32s, 4> d;
    const hn::Rebind<T, decltype(d)> dNarrow;
    const hn::FixedTag<Orb32f, 4> df;
    const auto from = [=](std::size_t n) HWY_ATTR { return hn::PromoteTo(d, hn::LoadU(dNarrow, pSrc + n)); };
    auto sum = hn::Set(d, static_cast<Orb32s>(window.sum));
    std::size_t n = window.at;
    for (; n + block <= len && std::abs(hn::GetLane(sum)) <= exactFrom; n += block) {
        for (std::size_t k = n; k < n + block; k += 4) {
            const auto step = from(k + mask) - from(k);
            const auto pairs = step + hn::ShiftLeftLanes<1>(d, step), steps = pairs + hn::ShiftLeftLanes<2>(d, pairs);
            hn::StoreU(hn::ConvertTo(df, sum + hn::ShiftLeftLanes<1>(d, steps)), df, pDst + k);
            sum = sum + hn::Broadcast<3>(steps);
        }
    }
    return {n, static_cast<Orb32f>(hn::GetLane(sum))};
}

template <class T>
void slide(const T* pSrc, Orb32f* pDst, std::size_t len, std::size_t mask, Orb32f sum) {
    Window window = {0, sum};
    while (window.at < len) {
        if (std::abs(window.sum) <= exactFrom) window = slideExactly(pSrc, pDst, len, mask, window);
        for (const std::size_t end = std::min(window.at + block, len); window.at < end; ++window.at) {
            const T *const first = pSrc + window.at, *const next = first + mask;
            setElement(pDst + window.at, window.sum);
            window.sum += static_cast<Orb32f>(elementAt(next) - elementAt(first));
        }
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
    slide(pSrc, pDst, count, mask, static_cast<Orb32f>(first));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSumWindow_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len, int maskSize) { return sumWindow(pSrc, pDst, len, maskSize); }
OrbStatus orbsSumWindow_16s32f(const Orb16s* pSrc, Orb32f* pDst, int len, int maskSize) { return sumWindow(pSrc, pDst, len, maskSize); }

}
// clang-format on
