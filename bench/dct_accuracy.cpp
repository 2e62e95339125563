// Prints docs/accuracy.md's table of cosine transforms: the root mean square error of the transforms of random data,
// over the root mean square of the exact result, in units of the type's epsilon. The reference sums in long double.
#include "orbs.h"

#include "../tests/support/data.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace {

template <class T, class Spec>
struct Members {
    bool inverse;
    OrbStatus (*initAlloc)(Spec**, int, OrbHintAlgorithm);
    OrbStatus (*release)(Spec*);
    OrbStatus (*transform)(T*, const Spec*, Orb8u*);
};

template <class T, class Spec>
void cell(const Members<T, Spec>& members, int len) {
    const auto n = static_cast<std::size_t>(len);
    std::vector<long double> cosines(4 * n);
    for (std::size_t j = 0; j < 4 * n; ++j)
        cosines[j] = std::cos(1.57079632679489661923132169163975144L * static_cast<long double>(j) /
                              static_cast<long double>(n));
    const auto x = support::randomVector<T>(n);
    auto y = x;
    Spec* spec = nullptr;
    members.initAlloc(&spec, len, orbAlgHintNone);
    members.transform(y.data(), spec, nullptr);
    members.release(spec);
    long double distance = 0, magnitude = 0;
    const auto factor = [=](std::size_t k) { return std::sqrt((k ? 2.0L : 1.0L) / static_cast<long double>(n)); };
    for (std::size_t at = 0; at < n; ++at) {
        long double exact = 0;
        for (std::size_t j = 0; j < n; ++j) {
            const std::size_t k = members.inverse ? j : at, sample = members.inverse ? at : j;
            exact += factor(k) * x[j] * cosines[(2 * sample + 1) * k % (4 * n)];
        }
        distance += (y[at] - exact) * (y[at] - exact);
        magnitude += exact * exact;
    }
    std::printf(" %.2f |", static_cast<double>(std::sqrt(distance / magnitude)) / std::numeric_limits<T>::epsilon());
}

} // namespace

int main() {
    const Members<Orb32f, OrbsDCTFwdSpec_32f> forward{false, orbsDCTFwdInitAlloc_32f, orbsDCTFwdFree_32f,
                                                      orbsDCTFwd_32f_I};
    const Members<Orb32f, OrbsDCTInvSpec_32f> inverse{true, orbsDCTInvInitAlloc_32f, orbsDCTInvFree_32f,
                                                      orbsDCTInv_32f_I};
    const Members<Orb64f, OrbsDCTFwdSpec_64f> forwardTwice{false, orbsDCTFwdInitAlloc_64f, orbsDCTFwdFree_64f,
                                                           orbsDCTFwd_64f_I};
    const Members<Orb64f, OrbsDCTInvSpec_64f> inverseTwice{true, orbsDCTInvInitAlloc_64f, orbsDCTInvFree_64f,
                                                           orbsDCTInv_64f_I};
    std::printf("| length | 32f forward | 32f inverse | 64f forward | 64f inverse |\n|---|---|---|---|---|\n");
    for (int len : {2, 4, 8, 16, 32, 64, 256, 1024, 4096, 16384, 3, 10, 30, 50, 100, 101, 1000, 1009, 10007}) {
        std::printf("| %d |", len);
        cell(forward, len);
        cell(inverse, len);
        cell(forwardTwice, len);
        cell(inverseTwice, len);
        std::printf("\n");
    }
}
