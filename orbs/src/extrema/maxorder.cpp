// MaxOrder: the binary order of the largest magnitude.
#include "extrema/extremes.h"

#include "orbs/extrema.h"

#include <bit>
#include <concepts>

namespace {

using namespace orbs;

// ---- Integers: the bits of the largest magnitude ----

template <class T>
OrbStatus order(const T* src, int len, Orb32s* pOrder) {
    const auto [least, greatest] = extremes<Itself, Least, Greatest>(src, len, false);
    const Orb64s magnitude = std::max(Orb64s{greatest.value}, -Orb64s{least.value});
    setElement(pOrder, static_cast<Orb32s>(std::bit_width(static_cast<Orb64u>(magnitude))));
    return orbStsNoErr;
}

// ---- Floats: the largest exponent field, less the one of 0.5 ----

// The power of two at or below the magnitude, 0 of a subnormal, infinity of a NaN as well: no flag is raised.
struct PowerBelow {
    template <class D, class V>
    static V of(D d, V v) {
        return hn::And(v, hn::Inf(d));
    }
};
struct FinitePowerBelow {
    template <class D, class V>
    static V of(D d, V v) {
        const V power = PowerBelow::of(d, v);
        return hn::IfThenZeroElse(hn::Eq(power, hn::Inf(d)), power);
    }
};

template <class Key, class T>
T largest(const T* src, int len) {
    Best<Greatest, hn::ScalableTag<T>> best;
    takeAll<Key>(src, static_cast<std::size_t>(len), static_cast<std::size_t>(len), best);
    return best.value;
}

template <class T>
using BitsOf = std::conditional_t<sizeof(T) == 4, Orb32u, Orb64u>;

// Whether there is more than zeros, infinities and NaNs, where nothing is normal.
template <class T>
bool anySubnormal(const T* src, int len) {
    constexpr auto infinity = std::bit_cast<BitsOf<T>>(std::numeric_limits<T>::infinity());
    const auto* bits = reinterpret_cast<const BitsOf<T>*>(src);
    BitsOf<T> any = 0;
    for (int n = 0; n < len; ++n) {
        const BitsOf<T> magnitude = elementAt(bits + n) & ~BitsOf<T>{0} >> 1;
        any |= magnitude < infinity ? magnitude : 0;
    }
    return any != 0;
}

template <std::floating_point T>
OrbStatus order(const T* src, int len, Orb32s* pOrder) {
    constexpr int fractionBits = std::numeric_limits<T>::digits - 1, half = std::numeric_limits<T>::max_exponent - 2;
    T power = largest<PowerBelow>(src, len);
    const bool finite = power <= std::numeric_limits<T>::max();
    if (!finite) power = largest<FinitePowerBelow>(src, len);
    const auto field = static_cast<int>(std::bit_cast<BitsOf<T>>(power) >> fractionBits);
    const bool zero = field == 0 && !anySubnormal(src, len);
    setElement(pOrder, zero ? 0 : field - half);
    return finite ? orbStsNoErr : orbStsNanArg;
}

template <class T>
OrbStatus maxOrder(const T* pSrc, int len, Orb32s* pOrder) {
    if (len < 1) return orbStsSizeErr; // before the pointers
    if (anyNull(pSrc, pOrder)) return orbStsNullPtrErr;
    return order(pSrc, len, pOrder);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMaxOrder_16s(const Orb16s* pSrc, int len, Orb32s* pOrder) { return maxOrder(pSrc, len, pOrder); }
OrbStatus orbsMaxOrder_32s(const Orb32s* pSrc, int len, Orb32s* pOrder) { return maxOrder(pSrc, len, pOrder); }
OrbStatus orbsMaxOrder_32f(const Orb32f* pSrc, int len, Orb32s* pOrder) { return maxOrder(pSrc, len, pOrder); }
OrbStatus orbsMaxOrder_64f(const Orb64f* pSrc, int len, Orb32s* pOrder) { return maxOrder(pSrc, len, pOrder); }

}
// clang-format on
