// Designs of filters beside the formulas of the window method written as a loop, windowed with std::cos. IIR designs
// stand alone, by order.
#include "members.h"

#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;
constexpr int lengths[] = {101, 4097};
constexpr int orders[] = {1, 2, 4, 8, 12};

// A low pass under a Hann window.
void loop(double f, double* taps, int len) {
    for (int n = 0; n < len; ++n) {
        const double m = n - (len - 1) / 2.0;
        const double response = m == 0 ? 2 * f : std::sin(2 * pi * f * m) / (pi * m);
        taps[n] = response * (0.5 - 0.5 * std::cos(2 * pi * n / (len - 1)));
    }
}

[[maybe_unused]] const bool registered = [] {
    double* const taps = vectors::room<double>(0);
    const vectors::Row fir("FIRGenLowpass_64f", lengths);
    vectors::add(fir, "orbs", [=](int len) { orbsFIRGenLowpass_64f(0.13, taps, len, orbWinHann, 0); });
    vectors::add(fir, "loop", [=](int len) { loop(0.13, taps, len); });
    const vectors::Row butterworth("IIRGenLowpass_64f", orders);
    vectors::add(butterworth, "orbs", [=](int order) { orbsIIRGenLowpass_64f(0.13, 0, order, taps, orbButterworth); });
    const vectors::Row chebyshev("IIRGenHighpass_64f", orders);
    vectors::add(chebyshev, "orbs", [=](int order) { orbsIIRGenHighpass_64f(0.13, 1, order, taps, orbChebyshev1); });
    return true;
}();

} // namespace
