// Prints docs/accuracy.md's table of the transforms of integers: for each order the root mean square distance of the
// results for random data from the exact ones, before these are rounded, in units of the results' last place. The
// reference runs in long double.
// usage: fixedfft_accuracy [HIGHEST-ORDER]
#include "orbs.h"

#include "../tests/support/data.h"
#include "../tests/support/fourier.h"

#include <cstdio>
#include <cstdlib>

namespace {

using support::Complex;

// Results of 7 times the usual magnitude would saturate.
int scaleOf(int order) {
    return (order + 1) / 2 + 2;
}

// Prints what the forward transform of samples X made of integers T to results made of integers R is off, per part;
// complex, or real and to CCS.
template <class T, class R, class Spec, class X, class Y>
void cell(OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm), OrbStatus (*release)(Spec*),
          OrbStatus (*forward)(const X*, Y*, const Spec*, int, Orb8u*), int order, OrbHintAlgorithm hint,
          int scaleFactor) {
    constexpr bool isReal = sizeof(X) == sizeof(T);
    const std::size_t points = std::size_t{1} << order, bins = isReal ? points / 2 + 1 : points;
    Spec* spec = nullptr;
    if (init(&spec, order, ORB_FFT_SCALE_NONE, hint) != orbStsNoErr) {
        std::printf(" - |");
        return;
    }
    const auto x = support::randomVector<T>(isReal ? points : 2 * points);
    std::vector<Complex> exact(points);
    for (std::size_t n = 0; n < points; ++n) {
        const auto part = [&](std::size_t k) { return static_cast<long double>(x[k]); };
        exact[n] = isReal ? Complex(part(n)) : Complex(part(2 * n), part(2 * n + 1));
    }
    support::fourier(exact, -1);
    std::vector<R> y(2 * bins);
    forward(reinterpret_cast<const X*>(x.data()), reinterpret_cast<Y*>(y.data()), spec, scaleFactor, nullptr);
    release(spec);
    long double squares = 0;
    for (std::size_t k = 0; k < bins; ++k) {
        const Complex got(static_cast<long double>(y[2 * k]), static_cast<long double>(y[2 * k + 1]));
        squares += std::norm(got - exact[k] * std::ldexp(1.0L, -scaleFactor));
    }
    std::printf(" %.3g |", static_cast<double>(std::sqrt(squares / static_cast<long double>(2 * bins))));
}

} // namespace

int main(int argc, char** argv) {
    const int highest = argc > 1 ? std::atoi(argv[1]) : 20;
    std::printf("| order | 16sc | 16sc, accurate | 16s real | 16s32s | 32sc | 32s real |\n"
                "|---|---|---|---|---|---|---|\n");
    for (int order = 1; order <= highest; ++order) {
        const int s = scaleOf(order);
        std::printf("| %d |", order);
        for (const OrbHintAlgorithm hint : {orbAlgHintNone, orbAlgHintAccurate})
            cell<Orb16s, Orb16s>(orbsFFTInitAlloc_C_16sc, orbsFFTFree_C_16sc, orbsFFTFwd_CToC_16sc_Sfs, order, hint, s);
        cell<Orb16s, Orb16s>(orbsFFTInitAlloc_R_16s, orbsFFTFree_R_16s, orbsFFTFwd_RToCCS_16s_Sfs, order, 0, s);
        cell<Orb16s, Orb32s>(orbsFFTInitAlloc_R_16s32s, orbsFFTFree_R_16s32s, orbsFFTFwd_RToCCS_16s32s_Sfs, order, 0,
                             0);
        cell<Orb32s, Orb32s>(orbsFFTInitAlloc_C_32sc, orbsFFTFree_C_32sc, orbsFFTFwd_CToC_32sc_Sfs, order, 0, s);
        cell<Orb32s, Orb32s>(orbsFFTInitAlloc_R_32s, orbsFFTFree_R_32s, orbsFFTFwd_RToCCS_32s_Sfs, order, 0, s);
        std::printf("\n");
        std::fflush(stdout);
    }
}
