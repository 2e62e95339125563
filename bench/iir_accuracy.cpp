// Prints docs/accuracy.md's table of IIR filters: the root mean square error of the outputs, over the root mean square
// of the exact ones, in units of the type's epsilon, for noise through poles close to the unit circle. The reference
// takes the taps as the type has them, and runs in long double. usage: iir_accuracy
#include "orbs.h"

#include "../tests/support/data.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <vector>

namespace {

constexpr std::size_t samples = 100000;

// Sections with poles at radius * e^(+-i angle), b0, b1, b2, 1, a1, a2 of each.
template <class T>
std::vector<T> cascade(double radius, const std::vector<double>& angles) {
    std::vector<T> taps;
    for (const double angle : angles)
        for (const double t : {1.0, 0.5, 0.25, 1.0, -2 * radius * std::cos(angle), radius * radius})
            taps.push_back(static_cast<T>(t));
    return taps;
}
// The same as one filter, b[0] .. b[order], 1, a[1] .. a[order].
template <class T>
std::vector<T> anyOrder(double radius, const std::vector<double>& angles) {
    std::vector<long double> parts[2] = {{1}, {1}};
    const auto sections = cascade<long double>(radius, angles);
    for (std::size_t s = 0; s < angles.size(); ++s) {
        for (std::size_t side = 0; side < 2; ++side) {
            std::vector<long double> product(parts[side].size() + 2);
            for (std::size_t i = 0; i < parts[side].size(); ++i)
                for (std::size_t k = 0; k < 3; ++k) product[i + k] += parts[side][i] * sections[6 * s + 3 * side + k];
            parts[side] = product;
        }
    }
    std::vector<T> taps;
    for (const auto& part : parts)
        for (const long double t : part) taps.push_back(static_cast<T>(t));
    return taps;
}

// Sections of `order` one behind the other.
template <class T>
std::vector<long double> exactly(const std::vector<T>& taps, std::size_t order, const std::vector<T>& x) {
    std::vector<long double> v(x.begin(), x.end());
    for (std::size_t first = 0; first < taps.size(); first += 2 * order + 2) {
        const T *const b = &taps[first], *const a = b + order + 1;
        std::vector<long double> D(order + 1);
        for (long double& sample : v) {
            const long double in = sample;
            sample = b[0] * in + D[0];
            for (std::size_t i = 0; i < order; ++i) D[i] = b[i + 1] * in - a[i + 1] * sample + D[i + 1];
        }
    }
    return v;
}

template <class T>
double error(const std::vector<T>& got, const std::vector<long double>& exact) {
    long double off = 0, all = 0;
    for (std::size_t n = 0; n < got.size(); ++n) {
        off += (got[n] - exact[n]) * (got[n] - exact[n]);
        all += exact[n] * exact[n];
    }
    return static_cast<double>(std::sqrt(off / all) / std::numeric_limits<T>::epsilon());
}

// Prints two cells: of one block, and of single samples.
template <class T, class State>
void cells(OrbStatus (*init)(State**, const T*, int, const T*), OrbStatus (*block)(const T*, T*, int, State*),
           OrbStatus (*one)(T, T*, State*), OrbStatus (*release)(State*), const std::vector<T>& taps, int size,
           std::size_t order) {
    const auto x = support::randomVector<T>(samples);
    const auto exact = exactly(taps, order, x);
    for (const bool singly : {false, true}) {
        std::vector<T> y(samples);
        State* state = nullptr;
        init(&state, taps.data(), size, nullptr);
        if (singly) {
            for (std::size_t n = 0; n < samples; ++n) one(x[n], &y[n], state);
        } else {
            block(x.data(), y.data(), static_cast<int>(samples), state);
        }
        release(state);
        std::printf(" %.3g |", error(y, exact));
    }
}

} // namespace

int main() {
    std::printf("| filter | radius of the poles | 32f blocks | 32f samples | 64f blocks | 64f samples |\n"
                "|---|---|---|---|---|---|\n");
    const double pi = std::numbers::pi;
    const struct {
        const char* name;
        std::vector<double> angles;
        bool isCascade;
    } filters[] = {
        {"order 2, poles at a quarter of the band", {pi / 4}, false},
        {"order 2, poles at 1/50 of the band", {pi / 50}, false},
        {"1 section, poles at a quarter of the band", {pi / 4}, true},
        {"1 section, poles at 1/50 of the band", {pi / 50}, true},
        {"order 8", {pi / 8, 3 * pi / 8, 5 * pi / 8, 7 * pi / 8}, false},
        {"4 sections", {pi / 8, 3 * pi / 8, 5 * pi / 8, 7 * pi / 8}, true},
    };
    for (const auto& [name, angles, isCascade] : filters) {
        const int sections = static_cast<int>(angles.size()), order = 2 * sections;
        for (const double radius : {0.9, 0.99, 0.999}) {
            std::printf("| %s | %g |", name, radius);
            if (isCascade) {
                cells(orbsIIRInitAlloc_BiQuad_32f, orbsIIR_32f, orbsIIROne_32f, orbsIIRFree_32f,
                      cascade<Orb32f>(radius, angles), sections, 2);
                cells(orbsIIRInitAlloc_BiQuad_64f, orbsIIR_64f, orbsIIROne_64f, orbsIIRFree_64f,
                      cascade<Orb64f>(radius, angles), sections, 2);
            } else {
                cells(orbsIIRInitAlloc_32f, orbsIIR_32f, orbsIIROne_32f, orbsIIRFree_32f,
                      anyOrder<Orb32f>(radius, angles), order, static_cast<std::size_t>(order));
                cells(orbsIIRInitAlloc_64f, orbsIIR_64f, orbsIIROne_64f, orbsIIRFree_64f,
                      anyOrder<Orb64f>(radius, angles), order, static_cast<std::size_t>(order));
            }
            std::printf("\n");
        }
    }
}
