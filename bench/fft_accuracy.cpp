// Prints docs/accuracy.md's table: for each order the root mean square error of the transforms of random data, over the
// root mean square of the exact result, in units of the type's epsilon. The reference runs in long double and takes
// about 100 bytes a point.
// usage: fft_accuracy [HIGHEST-ORDER]
#include "orbs.h"

#include "../tests/support/data.h"
#include "../tests/support/fourier.h"

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

using support::Complex;

template <class T, class C, class Spec>
struct ComplexMembers {
    OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm);
    OrbStatus (*release)(Spec*);
    OrbStatus (*transform[2])(C*, const Spec*, Orb8u*);
};

// Error of the forward or inverse transform, in place; negative where the object cannot be had.
template <class T, class C, class Spec>
double complexError(const ComplexMembers<T, C, Spec>& members, int order, bool inverse) {
    Spec* spec = nullptr;
    if (members.init(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr) return -1;
    auto x = support::randomVector<C>(std::size_t{1} << order);
    std::vector<Complex> exact(x.size());
    for (std::size_t n = 0; n < x.size(); ++n) exact[n] = {x[n].re, x[n].im};
    support::fourier(exact, inverse ? 1 : -1);
    members.transform[inverse](x.data(), spec, nullptr);
    members.release(spec);
    return support::relativeError(reinterpret_cast<const T*>(x.data()), exact.data(), x.size()) /
           std::numeric_limits<T>::epsilon();
}

template <class T, class Spec>
struct RealMembers {
    OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm);
    OrbStatus (*release)(Spec*);
    OrbStatus (*forward)(T*, const Spec*, Orb8u*);
};

template <class T, class Spec>
double realError(const RealMembers<T, Spec>& members, int order) {
    Spec* spec = nullptr;
    if (members.init(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr) return -1;
    const std::size_t n = std::size_t{1} << order;
    auto x = support::randomVector<T>(n + 2);
    std::vector<Complex> exact(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
    support::fourier(exact, -1);
    members.forward(x.data(), spec, nullptr);
    members.release(spec);
    return n == 1 ? 0 : support::relativeError(x.data(), exact.data(), n / 2 + 1) / std::numeric_limits<T>::epsilon();
}

void cell(double error) {
    if (error < 0) {
        std::printf(" - |");
    } else {
        std::printf(" %.2f |", error);
    }
}

} // namespace

int main(int argc, char** argv) {
    const ComplexMembers<Orb32f, Orb32fc, OrbsFFTSpec_C_32fc> single = {
        orbsFFTInitAlloc_C_32fc, orbsFFTFree_C_32fc, {orbsFFTFwd_CToC_32fc_I, orbsFFTInv_CToC_32fc_I}};
    const ComplexMembers<Orb64f, Orb64fc, OrbsFFTSpec_C_64fc> twice = {
        orbsFFTInitAlloc_C_64fc, orbsFFTFree_C_64fc, {orbsFFTFwd_CToC_64fc_I, orbsFFTInv_CToC_64fc_I}};
    const RealMembers<Orb32f, OrbsFFTSpec_R_32f> real = {orbsFFTInitAlloc_R_32f, orbsFFTFree_R_32f,
                                                         orbsFFTFwd_RToCCS_32f_I};
    const RealMembers<Orb64f, OrbsFFTSpec_R_64f> realTwice = {orbsFFTInitAlloc_R_64f, orbsFFTFree_R_64f,
                                                              orbsFFTFwd_RToCCS_64f_I};
    const int highest = argc > 1 ? std::atoi(argv[1]) : 27;
    std::printf("| order | 32fc forward | 32fc inverse | 32f real | 64fc forward | 64fc inverse | 64f real |\n"
                "|---|---|---|---|---|---|---|\n");
    for (int order = 0; order <= highest; ++order) {
        std::printf("| %d |", order);
        cell(complexError(single, order, false));
        cell(complexError(single, order, true));
        cell(realError(real, order));
        cell(complexError(twice, order, false));
        cell(complexError(twice, order, true));
        cell(realError(realTwice, order));
        std::printf("\n");
        std::fflush(stdout);
    }
}
