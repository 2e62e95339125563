// Sqrt of complex elements: the root with a real part that is not negative, in double precision.
#include "foundation/threads.h"
#include "orbs/elementary.h"
#include "vectors/elementwise.h"
#include "vectors/nearest.h"

#include <algorithm>
#include <optional>

namespace {

using namespace orbs;

// The root times a power of 2, given half the square of that. With m = |z|, the larger part is the root of (m + |re|) /
// 2 in magnitude, and the smaller one |im| / 2 over the larger: nothing cancels. The larger one is real if re >= 0.
template <class D, class V>
Planes<V> complexRoot(D d, Planes<V> z, double halfSquare) {
    const V x = hn::Abs(z.re), y = hn::Abs(z.im), half = hn::Set(d, halfSquare);
    const V m = hn::Sqrt(hn::Add(hn::Mul(x, x), hn::Mul(y, y)));
    const V larger = hn::Sqrt(hn::Mul(hn::Add(m, x), half));
    const auto asIs = hn::Or(hn::Eq(larger, hn::Zero(d)), hn::Eq(y, hn::Inf(d)));
    const V smaller = hn::IfThenElse(asIs, y, hn::Div(hn::Mul(y, half), larger));
    const auto left = hn::Lt(z.re, hn::Zero(d));
    return {hn::IfThenElse(left, smaller, larger), hn::CopySign(hn::IfThenElse(left, larger, smaller), z.im)};
}

// The core library is asked to make the x87 unit truncate, and then to take the earlier word back. Nothing here is
// computed in that unit; it is what a core library of somebody else's expects of the scaled call.
class X87Truncates {
public:
    X87Truncates() : earlier_(orb_set_rcpc_fpu(0xc00, 0xc00)) {}
    ~X87Truncates() { orb_set_cw_fpu(earlier_); }
    X87Truncates(const X87Truncates&) = delete;
    X87Truncates& operator=(const X87Truncates&) = delete;

private:
    Orb32u earlier_;
};

// Scale factors 1 to 8, in integers: |z| is rounded first, and half its sum with the real part, or its difference, is
// the square of a part of the root. An exact half goes up, but down to an even result where |z| was rounded.
struct IntegerParts {
    int scaleFactor;

    template <class D, class V>
    V operator()(D d, V twiceSquare, hn::Mask<D> isRounded) const {
        const int down = 2 * scaleFactor + 1; // from twice the square to that of the scaled part
        const V toNearest = hn::Set(d, (1 << (down - 1)) + (1 << (down - 2)));
        const V square = hn::ShiftRightSame(hn::Add(twiceSquare, toNearest), down);
        const V root = nearestInt32(hn::Sqrt(hn::ConvertTo(hn::Rebind<Orb32f, D>(), square)));
        const V odd = hn::And(root, hn::Set(d, 1)), twiceBelow = hn::Sub(hn::Add(root, root), hn::Set(d, 1));
        const V half = hn::ShiftLeftSame(hn::Mul(twiceBelow, twiceBelow), down - 2);
        return hn::Sub(root, hn::IfThenElseZero(hn::And(hn::Eq(half, twiceSquare), isRounded), odd));
    }
};

void integerRoots(const Orb16sc* src, Orb16sc* dst, std::size_t len, int scaleFactor) {
    const IntegerParts part{scaleFactor};
    forEachVector<Orb64f>(len, [=](auto wide, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb32s, decltype(wide)> d;
        const auto pairs = hn::LoadU(d, reinterpret_cast<const Orb32s*>(src + n));
        const auto re = hn::ShiftRight<16>(hn::ShiftLeft<16>(pairs)), im = hn::ShiftRight<16>(pairs);
        const auto z = loadFloats(wide, src + n);
        const auto m = nearestInt32(hn::Sqrt(hn::Add(hn::Mul(z.re, z.re), hn::Mul(z.im, z.im))));
        const auto squares = hn::Add(hn::Mul(re, re), hn::Mul(im, im)); // in 32 bits, as that of m
        const auto isRounded = hn::Ne(hn::Mul(m, m), squares);
        const auto sign = hn::BroadcastSignBit(im), ofIm = part(d, hn::Sub(m, re), isRounded);
        const auto low = part(d, hn::Add(m, re), isRounded), high = hn::Sub(hn::Xor(ofIm, sign), sign);
        hn::StoreU(hn::Or(low, hn::ShiftLeft<16>(high)), d, reinterpret_cast<Orb32s*>(dst + n));
    });
}

void roots(const Orb16sc* src, Orb16sc* dst, std::size_t len, int scaleFactor) {
    std::optional<X87Truncates> unused;
    if (scaleFactor != 0) unused.emplace();
    const SseQuiet quiet(SseRounding::nearest);
    if (scaleFactor >= 1 && scaleFactor <= 8) return integerRoots(src, dst, len, scaleFactor);
    const int s = std::clamp(scaleFactor, -64, 64); // beyond, the rule gives the same
    forEachVector<Orb64f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        storeNearest(d, complexRoot(d, loadFloats(d, src + n), powerOfTwo<double>(-2 * s - 1)), dst + n);
    });
}

// The squares of single precision fit double precision.
void roots(const Orb32fc* src, Orb32fc* dst, std::size_t len) {
    const SseQuiet quiet;
    forEachVector<Orb64f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::Rebind<Orb32f, decltype(d)> single;
        hn::VFromD<decltype(single)> re, im;
        hn::LoadInterleaved2(single, asReal(src + n), re, im);
        const auto root = complexRoot(d, Planes{hn::PromoteTo(d, re), hn::PromoteTo(d, im)}, 0.5);
        hn::StoreInterleaved2(hn::DemoteTo(single, root.re), hn::DemoteTo(single, root.im), single, asReal(dst + n));
    });
}

// Those of double precision do not: very large and very small elements are brought closer to 1 first.
void roots(const Orb64fc* src, Orb64fc* dst, std::size_t len) {
    const SseQuiet quiet;
    forEachVector<Orb64f>(len, [=](auto d, std::size_t n) HWY_ATTR {
        hn::VFromD<decltype(d)> re, im;
        hn::LoadInterleaved2(d, asReal(src + n), re, im);
        const auto peak = hn::Max(hn::Abs(re), hn::Abs(im));
        const auto large = hn::Gt(peak, hn::Set(d, 0x1p500)), small = hn::Lt(peak, hn::Set(d, 0x1p-400));
        const auto choose = [=](double ifLarge, double ifSmall) HWY_ATTR {
            const auto otherwise = hn::IfThenElse(small, hn::Set(d, ifSmall), hn::Set(d, 1.0));
            return hn::IfThenElse(large, hn::Set(d, ifLarge), otherwise);
        };
        const auto nearer = choose(0x1p-600, 0x1p600), back = choose(0x1p300, 0x1p-300);
        const auto root = complexRoot(d, Planes{hn::Mul(re, nearer), hn::Mul(im, nearer)}, 0.5);
        hn::StoreInterleaved2(hn::Mul(root.re, back), hn::Mul(root.im, back), d, asReal(dst + n));
    });
}

template <class C, class... Scale>
OrbStatus roots(const C* pSrc, C* pDst, int len, Spread how, Scale... scaleFactor) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    return spread(len, how, [=](std::size_t first, std::size_t count) {
        roots(pSrc + first, pDst + first, count, scaleFactor...);
    });
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSqrt_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int len, int scaleFactor) { return roots(pSrc, pDst, len, {256}, scaleFactor); }
OrbStatus orbsSqrt_16sc_ISfs(Orb16sc* pSrcDst, int len, int scaleFactor) { return roots(pSrcDst, pSrcDst, len, {256}, scaleFactor); }
OrbStatus orbsSqrt_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int len) { return roots(pSrc, pDst, len, {512}); }
OrbStatus orbsSqrt_32fc_I(Orb32fc* pSrcDst, int len) { return roots(pSrcDst, pSrcDst, len, {512}); }
OrbStatus orbsSqrt_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int len) { return roots(pSrc, pDst, len, {64}); }
OrbStatus orbsSqrt_64fc_I(Orb64fc* pSrcDst, int len) { return roots(pSrcDst, pSrcDst, len, {64}); }

}
// clang-format on
