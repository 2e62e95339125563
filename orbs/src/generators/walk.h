// A triangle wave as a walk between -magn and magn that is folded back at both ends.
#pragma once

#include "generators/phase.h"
#include "generators/samples.h"

#include <algorithm>

namespace orbs {

// The spans of a period in radians: magn at phase 0, down to -magn at `falling`, up to magn at 2 pi.
struct Spans {
    Orb64f falling, rising;

    explicit Spans(Orb64f asym) : falling(pi + asym), rising(pi - asym) {}
};

// What a walk knows but its magnitude and direction, as states keep it.
struct WalkNumbers {
    Orb64f down, up;             // steps
    Orb64f topFactor, lowFactor; // what is beyond an end, measured along the other span
    Orb64f risingJump, fallingJump;
    Orb64f topOffset, lowOffset;
    Orb64f step, value;
};

class Walk {
public:
    Walk(Orb64f magn, Orb64f rFreq, Orb64f phase, Spans spans) : magn_(magn) {
        const auto [falling, rising] = spans;
        const Orb64f both = 12.566370614359172 * magn; // 4 pi magn: both ways, times a turn
        const bool falls = phase < falling;
        n_.down = -(both * rFreq) / falling;
        n_.up = both * rFreq / rising;
        n_.topFactor = -rising / falling;
        n_.lowFactor = -falling / rising;
        n_.risingJump = both / rising;
        n_.fallingJump = both / falling;
        n_.topOffset = magn - magn * n_.topFactor;
        n_.lowOffset = magn * n_.lowFactor - magn;
        n_.step = falls ? n_.down : n_.up;
        n_.value = falls ? magn * (1 - 2 * phase / falling) : magn * (2 * (phase - falling) / rising - 1);
        isRising_ = n_.step > 0;
    }
    Walk(Orb64f magn, const WalkNumbers& numbers, bool isRising) : n_(numbers), magn_(magn), isRising_(isRising) {}

    const WalkNumbers& numbers() const { return n_; }
    bool isRising() const { return isRising_; }

    HWY_INLINE Orb64f next() {
        const Orb64f value = n_.value;
        n_.value += n_.step;
        if (HWY_UNLIKELY(isRising_ ? n_.value > magn_ : n_.value < -magn_)) fold();
        return value;
    }

private:
    // A span that is shorter than a step is jumped over.
    HWY_INLINE void fold() {
        if (isRising_) {
            const Orb64f folded = n_.topFactor * n_.value + n_.topOffset;
            if (folded >= -magn_) { // not if NaN, which a span of 0 gives
                turn(folded, n_.down);
            } else {
                n_.value -= n_.risingJump;
            }
        } else {
            const Orb64f folded = n_.lowFactor * n_.value + n_.lowOffset;
            if (!(folded > magn_)) {
                turn(folded, n_.up);
            } else {
                n_.value += n_.fallingJump;
            }
        }
    }
    HWY_INLINE void turn(Orb64f value, Orb64f step) {
        n_.value = value;
        n_.step = step;
        isRising_ = !isRising_;
    }

    WalkNumbers n_;
    Orb64f magn_;
    bool isRising_;
};

// Samples that are made one by one in double precision, `count` of them by fill(doubles, count) at a time, and
// converted on vectors by store(d, v, p).
template <class T, class Fill, class Store>
HWY_INLINE void inRuns(std::size_t len, T* dst, Fill fill, Store store) {
    constexpr std::size_t longest = 512;
    Orb64f run[longest];
    for (std::size_t n = 0; n < len; n += longest) {
        const std::size_t count = std::min(longest, len - n);
        fill(run, count);
        T* const to = dst + n;
        forEachVector<Orb64f>(count,
                              [=, &run](auto d, std::size_t k) HWY_ATTR { store(d, hn::LoadU(d, run + k), to + k); });
    }
}

} // namespace orbs
