// Frequencies and phases of periodic signals: frequencies in cycles a sample, phases in radians.
#pragma once

#include "orbdefs.h"

#include <cmath>

namespace orbs {

constexpr Orb64f pi = 3.141592653589793, twoPi = 6.283185307179586;

// Fixed-point numbers with 15 fraction bits, and where their ranges end.
constexpr Orb64f unitQ15 = 0x1p-15;
constexpr int halfQ15 = 16384, piQ15 = 102944, twoPiQ15 = 205887;

// The range tests; false for a NaN.
template <class Real>
constexpr bool isWithin(Real x, Orb64f least, Orb64f below) {
    return x >= least && x < below;
}

// The phase behind len samples of step w. Where rounding takes it out of the range, it is 0.
template <class Real>
Real phaseAfter(int len, Orb64f w, Real phase) {
    const Orb64f x = len * w + phase;
    const auto next = static_cast<Real>(x - std::floor(x * 0.15915494309189535) * twoPi);
    return isWithin(next, 0, twoPi) ? next : 0;
}

} // namespace orbs
