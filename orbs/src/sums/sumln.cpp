// SumLn: one logarithm, of the product of all elements.
#include "elementary/elementary.h"
#include "elementary/ln.h"
#include "orbcore.h"
#include "orbs/sums.h"
#include "reductions/reduce.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace {

using namespace orbs;

constexpr std::size_t blockLen = 512, lanes = 16;

// How many rows of elements are multiplied before the exponent is taken off: the product of four singles, or of four
// 16-bit integers, is far from the ends of double precision; that of two doubles may lie beyond them.
template <class T>
constexpr std::size_t rowsOfStep = std::is_same_v<T, Orb64f> ? 1 : 4;
template <class T>
constexpr std::size_t stepLen = lanes* rowsOfStep<T>;

// The product of positive numbers in a fixed number of lanes: mantissas from 1 to 2 and exponents.
class Product {
public:
    // Normal numbers, `steps` times stepLen of them, up to a block.
    template <class T>
    void multiply(const T* p, std::size_t steps) {
        const hn::ScalableTag<Orb64f> d;
        const hn::RebindToSigned<decltype(d)> di;
        constexpr std::size_t step = hn::MaxLanes(d), vectors = std::min<std::size_t>(lanes / step, 4);
        for (std::size_t first = 0; first < lanes; first += vectors * step) {
            hn::Vec<decltype(d)> mantissa[vectors];
            hn::Vec<decltype(di)> exponent[vectors];
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) {
                mantissa[v] = hn::Load(d, mantissas_ + first + v * step);
                exponent[v] = hn::Load(di, exponents_ + first + v * step);
            }
            const T* from = p + first;
            for (std::size_t k = 0; k < steps; ++k, from += stepLen<T>) {
#pragma GCC unroll 4
                for (std::size_t v = 0; v < vectors; ++v)
                    mantissa[v] =
                        hn::Mul(mantissa[v], withoutExponent(d, rowsProduct(d, from + v * step), exponent[v]));
            }
            const auto bias = hn::Set(di, 1023 * (static_cast<std::int64_t>(steps) + 1));
#pragma GCC unroll 4
            for (std::size_t v = 0; v < vectors; ++v) {
                hn::Store(withoutExponent(d, mantissa[v], exponent[v]), d, mantissas_ + first + v * step);
                hn::Store(hn::Sub(exponent[v], bias), di, exponents_ + first + v * step);
            }
        }
    }
    // value * 2^exponent, for a normal value
    void multiply(Orb64f value, int exponent) {
        const hn::CappedTag<Orb64f, 1> d;
        const hn::RebindToSigned<decltype(d)> di;
        auto sum = hn::Set(di, exponents_[0] + exponent - 2 * 1023);
        const auto factor = withoutExponent(d, hn::Set(d, value), sum);
        mantissas_[0] = hn::GetLane(withoutExponent(d, hn::Mul(hn::Set(d, mantissas_[0]), factor), sum));
        exponents_[0] = hn::GetLane(sum);
    }

    Orb64f ln() const {
        std::array<Orb64f, lanes> mantissas;
        std::copy_n(mantissas_, lanes, mantissas.begin());
        std::int64_t exponent = exponents_[0];
        for (std::size_t k = 1; k < lanes; ++k) exponent += exponents_[k];
        for (std::size_t half = lanes / 2; half > 0; half /= 2)
            for (std::size_t k = 0; k < half; ++k) mantissas[k] *= mantissas[k + half];
        const hn::CappedTag<Orb64f, 2> d;
        return hn::GetLane(lnOfNormal(d, hn::Set(d, mantissas[0]), static_cast<Orb64f>(exponent)));
    }

private:
    template <class D, class T>
    static HWY_INLINE hn::Vec<D> rowsProduct(D d, const T* p) {
        if constexpr (rowsOfStep<T> == 1) {
            return loadAs(d, p);
        } else {
            return hn::Mul(hn::Mul(loadAs(d, p), loadAs(d, p + lanes)),
                           hn::Mul(loadAs(d, p + 2 * lanes), loadAs(d, p + 3 * lanes)));
        }
    }
    // The mantissa of a positive normal x; the exponent, 1023 higher, is added to the sum.
    template <class D, class V, class W>
    static HWY_INLINE V withoutExponent(D d, V x, W& exponent) {
        const hn::RebindToSigned<D> di;
        const hn::RebindToUnsigned<D> du;
        const auto bits = hn::BitCast(du, x);
        exponent = hn::Add(exponent, hn::BitCast(di, hn::ShiftRight<52>(bits)));
        const auto fraction = hn::And(bits, hn::Set(du, 0x000fffffffffffff));
        return hn::BitCast(d, hn::Or(fraction, hn::BitCast(du, hn::Set(d, 1.0))));
    }

    alignas(64) Orb64f mantissas_[lanes] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    alignas(64) std::int64_t exponents_[lanes] = {};
};

struct Unusual {
    template <class D, class V>
    HWY_INLINE auto isOdd(D d, V x) const {
        if constexpr (std::is_floating_point_v<hn::TFromD<D>>) {
            return isUnusualLnArg(d, x);
        } else {
            return hn::Lt(x, hn::Set(d, 1));
        }
    }
};

template <class T>
constexpr T infinityOf = std::numeric_limits<T>::infinity();

// An element on its own. Positive finite ones are multiplied, subnormal ones as the integers of their bits.
class ElementByElement {
public:
    explicit ElementByElement(Product& product) : product_(product) {}

    enum Kind { usual, infinite, zero, negative, nan };
    Kind add(Orb16s x) { return x == 0 ? zero : x < 0 ? negative : multiplied(x, 0); }
    Kind add(Orb32f x) { return add(x, std::bit_cast<Orb32u>(x), 23, -149); }
    Kind add(Orb64f x) { return add(x, std::bit_cast<Orb64u>(x), 52, -1074); }

private:
    template <class T, class Bits>
    Kind add(T x, Bits bits, int fractionBits, int leastExponent) {
        constexpr Bits sign = Bits{1} << (8 * sizeof(Bits) - 1);
        const Bits infinity = std::bit_cast<Bits>(infinityOf<T>);
        if ((bits & ~sign) == 0) return zero;
        if (bits & sign) return negative;
        if (bits >= infinity) return bits > infinity ? nan : infinite;
        if (bits >> fractionBits == 0) return multiplied(static_cast<Orb64f>(static_cast<Orb64s>(bits)), leastExponent);
        return multiplied(x, 0);
    }
    Kind multiplied(Orb64f value, int exponent) {
        product_.multiply(value, exponent);
        return usual;
    }

    Product& product_;
};

template <class R>
constexpr bool isSingle = std::is_same_v<R, Orb32f>;

template <class T, class R>
OrbStatus sumLn(const T* pSrc, int len, R* pSum) {
    if (const OrbStatus status = checkVectors(len, pSrc, pSum)) return status;
    const R infinity = isSingle<R> ? orbConstantOfINF_32f : orbConstantOfINF_64f;
    const R nan = isSingle<R> ? orbConstantOfNAN_32f : orbConstantOfNAN_64f;
    const auto count = static_cast<std::size_t>(len);
    Product product;
    bool infinite = false;
    for (std::size_t n = 0; n < count; n += blockLen) {
        const std::size_t here = std::min(blockLen, count - n), steps = (here + stepLen<T> - 1) / stepLen<T>;
        const T* block = pSrc + n;
        T filledUp[blockLen];
        if (here != steps * stepLen<T>) { // with 1, which changes no product
            std::memcpy(filledUp, block, here * sizeof(T));
            std::fill(filledUp + here, filledUp + steps * stepLen<T>, T{1});
            block = filledUp;
        }
        if (HWY_LIKELY(!anyOdd<T>(Unusual(), here, block))) {
            product.multiply(block, steps);
            continue;
        }
        ElementByElement each(product);
        for (std::size_t k = 0; k < here; ++k) {
            switch (each.add(elementAt(block + k))) {
            case ElementByElement::usual:
                break;
            case ElementByElement::infinite:
                infinite = true;
                break;
            case ElementByElement::zero:
                setElement(pSum, infinity);
                return orbStsLnZeroArg;
            case ElementByElement::negative:
                setElement(pSum, nan);
                return orbStsLnNegArg;
            case ElementByElement::nan: // by contract not reported
                setElement(pSum, nan);
                return orbStsNoErr;
            }
        }
    }
    setElement(pSum, infinite ? infinity : static_cast<R>(product.ln()));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSumLn_32f(const Orb32f* pSrc, int len, Orb32f* pSum) { return sumLn(pSrc, len, pSum); }
OrbStatus orbsSumLn_16s32f(const Orb16s* pSrc, int len, Orb32f* pSum) { return sumLn(pSrc, len, pSum); }
OrbStatus orbsSumLn_32f64f(const Orb32f* pSrc, int len, Orb64f* pSum) { return sumLn(pSrc, len, pSum); }
OrbStatus orbsSumLn_64f(const Orb64f* pSrc, int len, Orb64f* pSum) { return sumLn(pSrc, len, pSum); }

}
// clang-format on
