// Ln: natural logarithms of floats.
#include "elementary/ln.h"
#include "elementary/elementary.h"
#include "orbs/elementary.h"

#include <limits>

namespace {

using namespace orbs;

// ---- Single precision ----

struct Ln {
    OrbStatus* warning;

    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        return isUnusualLnArg(d, x);
    }
    template <class D, class V>
    HWY_INLINE V usual(D d, V x) const {
        return lnOfNormal(d, x);
    }
    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto bits = hn::BitCast(di, x);
        warnOfLnArgs(di, bits, *warning);
        const auto where = [=](auto mask) HWY_ATTR { return hn::RebindMask(d, mask); };
        const auto pattern = [=](Orb32u value) HWY_ATTR { return hn::BitCast(d, hn::Set(di, value)); };
        const V subnormal = lnOfNormal(d, hn::ConvertTo(d, bits), -149); // its bits count units of 2^-149
        V y = hn::IfThenElse(where(hn::Gt(bits, hn::Set(di, 0x007fffff))), lnOfNormal(d, x), subnormal);
        y = hn::IfThenElse(where(hn::Gt(bits, hn::Set(di, 0x7f7fffff))), x + x, y); // infinity, NaN
        y = hn::IfThenElse(where(hn::Eq(bits, hn::Zero(di))), pattern(0xff800000), y);
        return hn::IfThenElse(where(hn::Lt(bits, hn::Zero(di))), pattern(0xffc00000), y);
    }
};

// ---- Double precision ----

// What stands for the logarithm of zero, of what is negative, and of +infinity and NaN.
struct LnSpecials {
    Orb64f ofZero, ofNegative, ofInfinity;
};

// The high word alone decides what an element is: the subnormals up to 2^-1042 count as zero.
struct Ln64 {
    LnSpecials specials;
    OrbStatus* warning;

    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        return isUnusualLnArg(d, x);
    }
    template <class D, class V>
    HWY_INLINE V usual(D d, V x) const {
        return lnOfNormal(d, x);
    }
    template <class D, class V>
    HWY_INLINE V result(D d, V x) const {
        const hn::RebindToSigned<D> di;
        const auto bits = hn::BitCast(di, x);
        const auto word = hn::ShiftRight<32>(bits);
        warnOfLnArgs(di, word, *warning);
        const auto where = [=](auto mask) HWY_ATTR { return hn::RebindMask(d, mask); };
        const V two52 = hn::Set(d, 0x1p52);
        const V units = hn::BitCast(d, hn::Or(bits, hn::BitCast(di, two52))) - two52;
        const V subnormal = lnOfNormal(d, units, -1074); // its bits count units of 2^-1074
        V y = hn::IfThenElse(where(hn::Gt(word, hn::Set(di, 0x000fffff))), lnOfNormal(d, x), subnormal);
        y = hn::IfThenElse(where(hn::Gt(word, hn::Set(di, 0x7fefffff))), hn::Set(d, specials.ofInfinity), y);
        y = hn::IfThenElse(where(hn::Eq(word, hn::Zero(di))), hn::Set(d, specials.ofZero), y);
        return hn::IfThenElse(where(hn::Lt(word, hn::Zero(di))), hn::Set(d, specials.ofNegative), y);
    }
};

// ---- Frames ----

OrbStatus ln(const Orb32f* pSrc, Orb32f* pDst, int len) {
    OrbStatus warning = orbStsNoErr;
    const OrbStatus status = elementary(Ln{&warning}, len, pDst, pSrc);
    return status ? status : warning;
}

// Results in double precision are those of ln 1 where there is no logarithm.
OrbStatus ln(const Orb64f* pSrc, Orb64f* pDst, int len) {
    OrbStatus warning = orbStsNoErr;
    const OrbStatus status = elementary(Ln64{{0, 0, 0}, &warning}, len, pDst, pSrc);
    return status ? status : warning;
}

// Results in single precision tell what was wrong.
OrbStatus ln(const Orb64f* pSrc, Orb32f* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    constexpr Orb64f infinity = std::numeric_limits<Orb64f>::infinity(), nan = std::numeric_limits<Orb64f>::quiet_NaN();
    const auto count = static_cast<std::size_t>(len);
    OrbStatus warning = orbStsNoErr;
    for (std::size_t n = 0; n < count; n += elementaryBlock) {
        Orb64f block[elementaryBlock];
        const std::size_t blockLen = std::min(elementaryBlock, count - n);
        elementaryKernel(Ln64{{-infinity, -nan, infinity}, &warning}, blockLen, block, pSrc + n);
        forEachVector<Orb64f>(blockLen, [&](auto d, std::size_t k) HWY_ATTR {
            const hn::Rebind<Orb32f, decltype(d)> narrow;
            hn::StoreU(hn::DemoteTo(narrow, hn::LoadU(d, block + k)), narrow, pDst + n + k);
        });
    }
    return warning;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsLn_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return ln(pSrc, pDst, len); }
OrbStatus orbsLn_32f_I(Orb32f* pSrcDst, int len) { return ln(pSrcDst, pSrcDst, len); }
OrbStatus orbsLn_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return ln(pSrc, pDst, len); }
OrbStatus orbsLn_64f_I(Orb64f* pSrcDst, int len) { return ln(pSrcDst, pSrcDst, len); }
OrbStatus orbsLn_64f32f(const Orb64f* pSrc, Orb32f* pDst, int len) { return ln(pSrc, pDst, len); }

}
