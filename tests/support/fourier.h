// A discrete Fourier transform in long double, as slow and as plain as it comes.
#pragma once

#include <cmath>
#include <complex>
#include <utility>
#include <vector>

namespace support {

using Complex = std::complex<long double>;

// The unnormalised transform of a power-of-two number of points, in place; sign -1 is forward.
inline void fourier(std::vector<Complex>& x, int sign) {
    const std::size_t n = x.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        std::size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(x[i], x[j]);
    }
    std::vector<Complex> roots(n / 2);
    const long double step = sign * 2 * 3.14159265358979323846264338327950288L / static_cast<long double>(n);
    for (std::size_t k = 0; k < n / 2; ++k)
        roots[k] = {std::cos(step * static_cast<long double>(k)), std::sin(step * static_cast<long double>(k))};
    for (std::size_t half = 1; half < n; half *= 2) {
        for (std::size_t base = 0; base < n; base += 2 * half) {
            for (std::size_t k = 0; k < half; ++k) {
                const Complex w = roots[k * (n / 2 / half)], a = x[base + k], b = x[base + k + half];
                const Complex t{w.real() * b.real() - w.imag() * b.imag(), w.real() * b.imag() + w.imag() * b.real()};
                x[base + k] = a + t;
                x[base + k + half] = a - t;
            }
        }
    }
}

inline Complex product(Complex a, Complex b) { // without the standard's care for infinities
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

// From n values `stride` apart to `out`, by the least prime factor of n. `roots` are those of n * stride.
inline void fourierByFactors(const Complex* x, std::size_t n, std::size_t stride, Complex* out,
                             const std::vector<Complex>& roots) {
    if (n == 1) {
        *out = *x;
        return;
    }
    std::size_t p = 2;
    while (n % p != 0) p = p * p > n ? n : p + 1;
    const std::size_t m = n / p;
    for (std::size_t q = 0; q < p; ++q) fourierByFactors(x + q * stride, m, stride * p, out + q * m, roots);
    std::vector<Complex> turned(p);
    for (std::size_t k = 0; k < m; ++k) {
        for (std::size_t q = 0; q < p; ++q) turned[q] = product(out[q * m + k], roots[q * k * stride]);
        for (std::size_t s = 0; s < p; ++s) {
            Complex sum = turned[0];
            for (std::size_t q = 1; q < p; ++q) sum += product(turned[q], roots[q * s % p * m * stride]);
            out[s * m + k] = sum;
        }
    }
}
// The same as fourier, for any number of points.
inline std::vector<Complex> fourierOfAnyLength(const std::vector<Complex>& x, int sign) {
    const std::size_t n = x.size();
    std::vector<Complex> roots(n), out(n);
    const long double step = sign * 2 * 3.14159265358979323846264338327950288L / static_cast<long double>(n);
    for (std::size_t k = 0; k < n; ++k)
        roots[k] = {std::cos(step * static_cast<long double>(k)), std::sin(step * static_cast<long double>(k))};
    fourierByFactors(x.data(), n, 1, out.data(), roots);
    return out;
}

// Root of the mean squared distance of `count` interleaved values from the reference times `factor`, over the root of
// the reference's own mean square.
template <class T>
double relativeError(const T* values, const Complex* reference, std::size_t count, long double factor = 1) {
    long double distance = 0, magnitude = 0;
    for (std::size_t k = 0; k < count; ++k) {
        const Complex exact = reference[k] * factor;
        distance += std::norm(Complex(values[2 * k], values[2 * k + 1]) - exact);
        magnitude += std::norm(exact);
    }
    return static_cast<double>(std::sqrt(distance / magnitude));
}

} // namespace support
