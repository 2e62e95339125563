// Roots of integers in lanes of 32 or 64 bits, exact.
#pragma once

#include "vectors/loops.h"
#include "vectors/powers.h"
#include "vectors/to_integer.h"

namespace orbs {

// The nearest integer to the root of x >= 0 times 2^-scaleFactor, ties to even; in 64-bit lanes what is 2^51 or more
// may become any such number. The floating-point root makes an integer that is the result or one less: one less where x
// lies beyond the middle, (root + 1/2)^2. Both sides of that comparison may wrap, which does not change their distance.
template <class Float>
class ExactRoot {
public:
    using Lane = hwy::MakeSigned<Float>;

    explicit ExactRoot(int scaleFactor)
        : factor_(powerOfTwo<Float>(-scaleFactor)), up_(std::max(-2 * scaleFactor, 0)),
          down_(std::max(2 * scaleFactor, 0)) {
        constexpr int bits = 8 * sizeof(Lane);
        if (down_ > 0) quarter_ = down_ > bits ? hwy::LimitsMax<Lane>() : Lane{1} << (down_ - 2);
    }

    template <class D, class V>
    HWY_INLINE V operator()(D d, V x) const {
        const hn::Rebind<Float, D> real;
        const V root = below(d, hn::Mul(hn::Sqrt(hn::ConvertTo(real, x)), hn::Set(real, factor_)));
        const V square = hn::Mul(root, hn::Add(root, hn::Set(d, 1))); // and 1/4
        const V parity = hn::And(root, hn::Set(d, Lane{down_ > 0}));  // a tie goes up from an odd root
        const V middle = hn::Sub(hn::Add(hn::ShiftLeftSame(square, down_), hn::Set(d, quarter_)), parity);
        return hn::Sub(root, hn::BroadcastSignBit(hn::Sub(middle, hn::ShiftLeftSame(x, up_))));
    }

private:
    // The nearest integer or one less.
    template <class D, class Real>
    static HWY_INLINE auto below([[maybe_unused]] D d, Real v) {
        if constexpr (sizeof(Lane) == sizeof(Orb32s)) {
            return truncatedInt32(v);
        } else { // 2^52 and more have no fraction
            const hn::DFromV<Real> real;
            const auto shift = hn::Set(real, 0x1p52);
            const auto less = hn::Sub(hn::Min(v, hn::Set(real, 0x1p51)), hn::Set(real, 0.5));
            const auto whole = hn::Add(hn::Max(less, hn::Zero(real)), shift);
            return hn::Sub(hn::BitCast(d, whole), hn::BitCast(d, shift));
        }
    }

    Float factor_;
    int up_, down_;
    Lane quarter_ = 0;
};

} // namespace orbs
