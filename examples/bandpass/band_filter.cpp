#include "band_filter.h"
#include "options.h"
#include "trouble.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using std::numbers::pi;

// Kaiser's formulas (1974) for a stop band 80 dB down: the shape of the window, and its length for a transition.
constexpr double attenuation = 80;
constexpr double beta = 0.1102 * (attenuation - 8.7);

double kaiser(double x) { // x from -1 to 1
    return std::cyl_bessel_i(0, beta * std::sqrt(std::max(0.0, 1 - x * x))) / std::cyl_bessel_i(0, beta);
}

// The ideal low pass with cut-off f (in cycles a sample), n samples from its centre.
double lowPass(double f, double n) {
    return n == 0 ? 2 * f : std::sin(2 * pi * f * n) / (pi * n);
}

} // namespace

int defaultTaps(double low, double high, double rate) {
    const double transition = std::min(low > 0 ? low : high, high - low) / 2;
    const double needed = (attenuation - 8) / (2.285 * 2 * pi * transition / rate);
    return static_cast<int>(std::clamp(std::ceil(needed), 1.0, static_cast<double>(maxTaps))) | 1;
}

std::vector<Orb32f> designBand(double low, double high, double rate, int taps) {
    const int half = taps / 2;
    const double middle = pi * (low + high) / rate;
    std::vector<double> response(static_cast<std::size_t>(2 * half + 1));
    double gain = 0;
    for (int n = -half; n <= half; ++n) {
        double& tap = response[static_cast<std::size_t>(n + half)];
        tap = (lowPass(high / rate, n) - lowPass(low / rate, n)) * kaiser(half ? static_cast<double>(n) / half : 0);
        gain += tap * std::cos(middle * n);
    }
    std::vector<Orb32f> scaled;
    for (const double tap : response) scaled.push_back(static_cast<Orb32f>(tap / gain));
    return scaled;
}

BandFilter::BandFilter(const std::vector<Orb32f>& taps, int channels) {
    for (int n = 0; n < channels; ++n) {
        OrbsFIRState_32f* state = nullptr;
        check(orbsFIRInitAlloc_32f(&state, taps.data(), static_cast<int>(taps.size()), nullptr),
              "orbsFIRInitAlloc_32f");
        channels_.emplace_back(state);
    }
}

void BandFilter::run(std::size_t channel, const Orb32f* input, Orb32f* output, int count) {
    check(orbsFIR_32f(input, output, count, channels_[channel].get()), "orbsFIR_32f");
}
