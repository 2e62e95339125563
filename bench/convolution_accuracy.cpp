// Prints docs/accuracy.md's table of convolutions: the root mean square error for random vectors, over the root mean
// square of the exact result, in units of the type's epsilon. The reference sums in long double.
#include "orbs.h"

#include "support/data.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

template <class T>
using Member = OrbStatus (*)(const T*, int, const T*, int, T*);

template <class T>
void cells(int longer, int shorter, std::initializer_list<Member<T>> members) {
    const auto a = support::randomVector<T>(static_cast<std::size_t>(longer), 1);
    const auto b = support::randomVector<T>(static_cast<std::size_t>(shorter), 2);
    std::vector<long double> exact(a.size() + b.size() - 1);
    for (std::size_t k = 0; k < b.size(); ++k)
        for (std::size_t n = 0; n < a.size(); ++n) exact[n + k] += static_cast<long double>(a[n]) * b[k];
    for (const auto member : members) {
        std::vector<T> y(exact.size());
        member(a.data(), longer, b.data(), shorter, y.data());
        long double distance = 0, magnitude = 0;
        for (std::size_t n = 0; n < y.size(); ++n) {
            distance += (y[n] - exact[n]) * (y[n] - exact[n]);
            magnitude += exact[n] * exact[n];
        }
        std::printf(" %.2f |",
                    static_cast<double>(std::sqrt(distance / magnitude)) / std::numeric_limits<T>::epsilon());
    }
}

} // namespace

int main() {
    std::printf("| lengths | 32f direct | 32f FFT | 64f direct | 64f FFT |\n|---|---|---|---|---|\n");
    const int lengths[][2] = {{16, 16}, {100, 100}, {4096, 63}, {1000, 1000}, {4096, 4096}, {65536, 64}, {65536, 1024}};
    for (const auto [longer, shorter] : lengths) {
        std::printf("| %d, %d |", longer, shorter);
        cells<Orb32f>(longer, shorter, {orbsConvDirect_32f, orbsConvFFT_32f});
        cells<Orb64f>(longer, shorter, {orbsConvDirect_64f, orbsConvFFT_64f});
        std::printf("\n");
    }
}
