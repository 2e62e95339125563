// Prints docs/accuracy.md's tables of designs: how far taps lie from their formulas, and filters of their coefficients
// from the gains that they were made for. The references are computed in long double.
#include "orbs.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

using Real = long double;

constexpr Real pi = 3.141592653589793238462643383279502884L;

// The worst error of a low pass under a Hann window, in units of epsilon of the largest tap.
double worstTap(Orb64f f, int len) {
    std::vector<Orb64f> taps(static_cast<std::size_t>(len));
    orbsFIRGenLowpass_64f(f, taps.data(), len, orbWinHann, 0);
    Real worst = 0;
    for (int n = 0; n < len; ++n) {
        const Real m = n - Real(len - 1) / 2, sine = std::sin(pi * n / (len - 1));
        const Real response = m == 0 ? 2 * Real(f) : std::sin(2 * pi * f * m) / (pi * m);
        worst = std::max(worst, std::fabs(taps[static_cast<std::size_t>(n)] - response * sine * sine));
    }
    return static_cast<double>(worst / (2 * Real(f)) / std::numeric_limits<Orb64f>::epsilon());
}

// The gain in decibels.
Real gain(const std::vector<Orb64f>& taps, int order, Real f) {
    const std::complex<Real> w = std::polar(Real{1}, -2 * pi * f);
    const auto value = [&](const Orb64f* c) {
        std::complex<Real> sum = 0;
        for (int k = order; k >= 0; --k) sum = sum * w + Real(c[k]);
        return std::abs(sum);
    };
    return 20 * std::log10(value(taps.data()) / value(taps.data() + order + 1));
}

// How far from what it was made for the gain is at the edge, in decibels.
void cell(int order, Orb64f edge, Orb64f passbandDb, int filterType) {
    std::vector<Orb64f> taps(2 * static_cast<std::size_t>(order) + 2);
    orbsIIRGenLowpass_64f(edge, passbandDb, order, taps.data(), filterType);
    const Real wanted = filterType == orbChebyshev1 ? -Real(passbandDb) : -10 * std::log10(Real{2});
    std::printf(" %.1e |", static_cast<double>(std::fabs(gain(taps, order, edge) - wanted)));
}

} // namespace

int main() {
    std::printf("| taps | edge 0.25 | edge 0.1 | edge 0.01 |\n|---|---|---|---|\n");
    for (int len : {31, 64, 255, 1024, 2047, 4096, 65535}) {
        std::printf("| %d |", len);
        for (Orb64f edge : {0.25, 0.1, 0.01}) std::printf(" %.1f |", worstTap(edge, len));
        std::printf("\n");
    }
    std::printf("\n| order | Butterworth, edge 0.25 | 0.1 | 0.01 | Chebyshev, 1 dB, edge 0.25 | 0.1 | 0.01 |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (int order : {1, 2, 3, 4, 6, 8, 10, 12}) {
        std::printf("| %d |", order);
        for (int filterType : {orbButterworth, orbChebyshev1})
            for (Orb64f edge : {0.25, 0.1, 0.01}) cell(order, edge, 1, filterType);
        std::printf("\n");
    }
}
