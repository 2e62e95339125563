// Noise, and a filter that an adaptive one must find.
#pragma once

#include "orbs.h"
#include "support/compare.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace adaptive {

// Uniform, of magnitude 1 or, of integers, 10000.
template <class X>
std::vector<X> noise(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> uniform(-1, 1);
    std::vector<X> v(count);
    for (X& x : v) x = static_cast<X>(uniform(random) * (std::is_integral_v<X> ? 10000 : 1));
    return v;
}

// Noise, and what a filter makes of it that leaves a quarter of its power.
struct Unknown {
    std::vector<Orb16s> x, ref;

    Unknown(int tapsLen, std::size_t count) : x(noise<Orb16s>(count, 1)) {
        auto h = noise<double>(static_cast<std::size_t>(tapsLen), 2);
        double energy = 0;
        for (const double t : h) energy += t * t;
        for (double& t : h) t *= 0.5 / std::sqrt(energy);
        for (std::size_t n = 0; n < count; ++n) {
            double y = 0;
            for (std::size_t k = 0; k < std::min(h.size(), n + 1); ++k) y += h[k] * x[n - k];
            ref.push_back(static_cast<Orb16s>(std::nearbyint(y)));
        }
    }
    // Of the last thousand outputs, power of the error by that of the reference.
    double errorAtEnd(const std::vector<Orb16s>& y) const {
        double error = 0, power = 0;
        for (std::size_t n = x.size() - 1000; n < x.size(); ++n) {
            const double r = ref[n], e = r - y[n];
            error += e * e;
            power += r * r;
        }
        return error / power;
    }
};

} // namespace adaptive
