// IIRGen: Butterworth and Chebyshev filters by way of an analog prototype and the bilinear transform.
#include "design/matrix.h"
#include "foundation/control.h"
#include "foundation/frame.h"
#include "generators/phase.h"
#include "orbs/design.h"
#include "vectors/sincos.h"

#include <functional>

namespace {

using namespace orbs;
using namespace orbs::design;
using Complex = std::complex<Orb64f>;
using Roots = std::array<Complex, mostRows>;

// 4 tan(pi f): the edge of the analog filter for the bilinear transform at a sampling rate of 2.
Orb64f prewarped(Orb64f f) {
    const auto [sine, cosine] = sinCos(pi * f);
    return 4 * (sine / cosine);
}

// What a filter lets through of the greatest gain at the least, and the half axes of the ellipse of the poles.
struct Shape {
    Orb64f floor = 1, real = 1, imaginary = 1;
};

// In extended precision, whose functions are the same on every processor. What goes in and out is volatile, so that
// all of it is computed under the guard.
Shape chebyshev(Orb64f passbandDb, int order) {
    const volatile Orb64f decibels = passbandDb;
    const X87Control extended(X87Control::nearest);
    constexpr long double ln10 = 2.302585092994045684017991454684364208L;
    const long double nepers = decibels * ln10 / 20;
    const long double ripple = sqrtl(expm1l(2 * nepers)), mu = asinhl(1 / ripple) / order;
    const volatile Orb64f floor = static_cast<Orb64f>(expl(-nepers)), real = static_cast<Orb64f>(sinhl(mu)),
                          imaginary = static_cast<Orb64f>(coshl(mu));
    return {floor, real, imaginary};
}

// Of the analog filter with its edge at 1; each pole is followed by its conjugate, a real one comes last.
Roots prototype(const Shape& shape, int order) {
    Roots poles;
    for (int k = 0; k < order / 2; ++k) {
        const auto [sine, cosine] = sinCos(pi * (2 * k + 1) / (2 * order));
        poles[2 * k] = {-shape.real * sine, shape.imaginary * cosine};
        poles[2 * k + 1] = std::conj(poles[2 * k]);
    }
    if (order % 2 != 0) poles[order - 1] = -shape.real;
    return poles;
}

// Complex poles first, by ascending real part, of a pair that with the smaller imaginary part first; then the real
// ones. What counts as real depends on how far out all of them lie.
Roots sorted(const Roots& poles, int order) {
    const auto end = poles.begin() + order;
    Orb64f squares = 0;
    for (auto p = poles.begin(); p != end; ++p) squares += std::norm(*p);
    const Orb64f tolerance = epsilon + std::sqrt(squares) * epsilon * order * 1e6;
    const auto isReal = [&](const Complex& p) { return !(std::abs(p.imag()) > std::sqrt(std::norm(p)) * tolerance); };

    Roots result;
    const auto endOfComplex = std::copy_if(poles.begin(), end, result.begin(), std::not_fn(isReal));
    std::sort(result.begin(), endOfComplex, [](const Complex& p, const Complex& q) {
        return p.real() < q.real() || (p.real() == q.real() && p.imag() < q.imag());
    });
    std::copy_if(poles.begin(), end, endOfComplex, isReal);
    return result;
}

// The system matrix of first- and second-order sections one behind the other, with these poles.
Matrix cascade(const Roots& poles, int order) {
    Matrix a(order);
    Orb64f output = 1; // of the section before
    int j = 0;
    if (order % 2 != 0) a[j++][0] = poles[order - 1].real();
    for (int k = 0; j < order; j += 2, k += 2) {
        const Complex p = poles[k], q = poles[k + 1];
        const Orb64f product = p.real() * q.real() - p.imag() * q.imag(), root = std::sqrt(std::abs(product));
        const Orb64f wn = root == 0 ? 1 : root;
        a[j][j] = p.real() + q.real();
        a[j][j + 1] = -product / wn;
        a[j + 1][j] = wn;
        if (j > 0) a[j][j - 1] = output;
        output = 1 / wn;
    }
    return a;
}

// inverse(I - A/4) (I + A/4): the bilinear transform at a sampling rate of 2.
Matrix bilinear(const Matrix& a) {
    Matrix left(a.n), right(a.n), product(a.n);
    for (int i = 0; i < a.n; ++i) {
        for (int j = 0; j < a.n; ++j) {
            const Orb64f identity = i == j;
            left[i][j] = identity - 0.25 * a[i][j];
            right[i][j] = identity + 0.25 * a[i][j];
        }
    }
    invert(left);
    for (int i = 0; i < a.n; ++i)
        for (int j = 0; j < a.n; ++j)
            for (int k = 0; k < a.n; ++k) product[i][j] += left[i][k] * right[k][j];
    return product;
}

// The real parts of the coefficients of (1 - r[0]/z)(1 - r[1]/z)...
using Polynomial = std::array<Orb64f, mostRows + 1>;
template <class NextRoot>
Polynomial expand(int order, NextRoot root) {
    // Real and imaginary parts apart: g++ 12 fuses products and sums where they lie side by side.
    Polynomial re{1}, im{};
    for (int k = 0; k < order; ++k) {
        const Complex r = root(k);
        for (int i = k + 1; i > 0; --i) {
            re[i] -= r.real() * re[i - 1] - r.imag() * im[i - 1];
            im[i] -= r.real() * im[i - 1] + r.imag() * re[i - 1];
        }
    }
    return re;
}

enum class Band { low, high };

// At z = 1 or z = -1, the middle of the pass band.
Orb64f valueInBand(const Polynomial& c, int order, Band band) {
    Orb64f sum = 0;
    for (int k = 0; k <= order; ++k) sum += band == Band::high && k % 2 != 0 ? -c[k] : c[k];
    return sum;
}

void design(Orb64f f, const Shape& shape, int order, Orb64f* pTaps, Band band) {
    Matrix a = cascade(sorted(prototype(shape, order), order), order);
    if (band == Band::high) invert(a);
    const Orb64f edge = prewarped(f);
    for (int i = 0; i < order; ++i)
        for (int j = 0; j < order; ++j) a[i][j] *= edge;

    const auto poles = eigenvalues(bilinear(a));
    const auto denominator = expand(order, [&](int k) { return poles[order - 1 - k]; });
    const Complex zero = band == Band::low ? -1 : 1;
    const auto numerator = expand(order, [=](int) { return zero; });
    const Orb64f gain = order % 2 == 0 ? shape.floor : 1;
    const Orb64f scale = gain * valueInBand(denominator, order, band) / valueInBand(numerator, order, band);
    for (int k = 0; k <= order; ++k) {
        setElement(pTaps + k, numerator[k] * scale);
        setElement(pTaps + order + 1 + k, denominator[k]);
    }
}

OrbStatus iirGen(Orb64f f, Orb64f passbandDb, int order, Orb64f* pTaps, int filterType, Band band) {
    if (anyNull(pTaps)) return orbStsNullPtrErr;
    if (f <= 0 || f >= 0.5) return orbStsIIRGenFreqErr; // a NaN is neither
    if (order < 1 || order > mostRows) return orbStsIIRGenOrderErr;
    if (filterType == orbButterworth) {
        design(f, {}, order, pTaps, band);
    } else if (filterType == orbChebyshev1) {
        if (!(passbandDb > 0 && passbandDb <= 29.0)) return orbStsIIRGenPassbandErr;
        design(f, chebyshev(passbandDb, order), order, pTaps, band);
    }
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsIIRGenLowpass_64f(Orb64f rFreq, Orb64f rPassbandDb, int order, Orb64f* pTaps, int filterType) { return iirGen(rFreq, rPassbandDb, order, pTaps, filterType, Band::low); }
OrbStatus orbsIIRGenHighpass_64f(Orb64f rFreq, Orb64f rPassbandDb, int order, Orb64f* pTaps, int filterType) { return iirGen(rFreq, rPassbandDb, order, pTaps, filterType, Band::high); }

}
// clang-format on
