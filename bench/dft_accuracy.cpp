// Prints the tables of transforms of any length in docs/accuracy.md: the root mean square error of the transforms of
// random data, over the root mean square of the exact result, in units of the type's epsilon. Of the lengths up to 512
// the worst of each plan, with the length where it is; then some longer ones. The reference runs in long double.
#include "orbs.h"

#include "../tests/support/data.h"
#include "../tests/support/fourier.h"

#include <array>
#include <bit>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <string>

namespace {

using support::Complex;

template <class T, class C, class Spec>
struct Members {
    OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm);
    OrbStatus (*release)(Spec*);
    OrbStatus (*transform)(const C*, C*, const Spec*, Orb8u*);
};

// The error of a transform in place of a vector with `room` elements behind its length.
template <class T, class C, class Spec>
double error(const Members<T, C, Spec>& members, int length, int sign, std::size_t room = 0) {
    const auto n = static_cast<std::size_t>(length);
    Spec* spec = nullptr;
    if (members.init(&spec, length, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr) return -1;
    auto x = support::randomVector<C>(n + room);
    std::vector<Complex> exact(n);
    for (std::size_t k = 0; k < n; ++k) {
        if constexpr (support::isComplex<C>) {
            exact[k] = {x[k].re, x[k].im};
        } else {
            exact[k] = x[k];
        }
    }
    exact = support::fourierOfAnyLength(exact, sign);
    members.transform(x.data(), x.data(), spec, nullptr);
    members.release(spec);
    const std::size_t bins = support::isComplex<C> ? n : n / 2 + 1;
    return support::relativeError(reinterpret_cast<const T*>(x.data()), exact.data(), bins) /
           std::numeric_limits<T>::epsilon();
}

const std::function<double(int)> columns[] = {
    [](int n) {
        return error<Orb32f, Orb32fc, OrbsDFTSpec_C_32fc>(
            {orbsDFTInitAlloc_C_32fc, orbsDFTFree_C_32fc, orbsDFTFwd_CToC_32fc}, n, -1);
    },
    [](int n) {
        return error<Orb32f, Orb32fc, OrbsDFTSpec_C_32fc>(
            {orbsDFTInitAlloc_C_32fc, orbsDFTFree_C_32fc, orbsDFTInv_CToC_32fc}, n, 1);
    },
    [](int n) {
        return error<Orb32f, Orb32f, OrbsDFTSpec_R_32f>(
            {orbsDFTInitAlloc_R_32f, orbsDFTFree_R_32f, orbsDFTFwd_RToCCS_32f}, n, -1, 2);
    },
    [](int n) {
        return error<Orb64f, Orb64fc, OrbsDFTSpec_C_64fc>(
            {orbsDFTInitAlloc_C_64fc, orbsDFTFree_C_64fc, orbsDFTFwd_CToC_64fc}, n, -1);
    },
    [](int n) {
        return error<Orb64f, Orb64fc, OrbsDFTSpec_C_64fc>(
            {orbsDFTInitAlloc_C_64fc, orbsDFTFree_C_64fc, orbsDFTInv_CToC_64fc}, n, 1);
    },
    [](int n) {
        return error<Orb64f, Orb64f, OrbsDFTSpec_R_64f>(
            {orbsDFTInitAlloc_R_64f, orbsDFTFree_R_64f, orbsDFTFwd_RToCCS_64f}, n, -1, 2);
    },
};

int largestPrime(int n) {
    int largest = 1;
    for (int p = 2; n > 1; ++p)
        for (; n % p == 0; n /= p) largest = p;
    return largest;
}
// By the largest prime factor, which tells the plan but for a few lengths.
const char* kindOf(int n) {
    if (std::has_single_bit(static_cast<unsigned>(n))) return "powers of two";
    const int p = largestPrime(n);
    if (p <= 5) return "products of 2, 3 and 5";
    if (p <= 13) return "a prime factor of 7 to 13";
    if (p <= 149) return p == n ? "primes from 17 to 149" : "a prime factor of 17 to 149";
    return "a prime factor above 150";
}

void printHead(const char* first) {
    std::printf("| %s | 32fc forward | 32fc inverse | 32f real | 64fc forward | 64fc inverse | 64f real |\n"
                "|---|---|---|---|---|---|---|\n",
                first);
}

} // namespace

int main() {
    struct Worst {
        double error = -1;
        int length = 0;
    };
    std::map<std::string, std::array<Worst, std::size(columns)>> worst;
    for (int n = 1; n <= 512; ++n) {
        for (std::size_t column = 0; column < std::size(columns); ++column) {
            Worst& w = worst[kindOf(n)][column];
            const double e = columns[column](n);
            if (e > w.error) w = {e, n};
        }
    }
    printHead("lengths up to 512, the worst (at)");
    for (const char* kind : {"powers of two", "products of 2, 3 and 5", "a prime factor of 7 to 13",
                             "a prime factor of 17 to 149", "primes from 17 to 149", "a prime factor above 150"}) {
        std::printf("| %s |", kind);
        for (const Worst& w : worst[kind]) std::printf(" %.2f (%d) |", w.error, w.length);
        std::printf("\n");
    }
    std::printf("\n");
    printHead("length");
    for (int n :
         {1000, 1001, 1009, 1155, 1200, 2001, 3375, 5000, 10007, 22801, 44100, 59049, 100000, 1000000, 1062882}) {
        std::printf("| %d |", n);
        for (const auto& column : columns) std::printf(" %.2f |", column(n));
        std::printf("\n");
        std::fflush(stdout);
    }
}
