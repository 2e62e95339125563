// IIRGen: against the textbook's poles in extended precision, responses from another library, and the gains that a
// designer asks for.
#include "orbs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <string>
#include <vector>

namespace {

using Real = long double;
using Complex = std::complex<Real>;
using Polynomial = std::vector<Real>;
constexpr Real pi = 3.141592653589793238462643383279502884L;
constexpr Orb64f epsilon = std::numeric_limits<Orb64f>::epsilon();

struct Design {
    bool isHigh;
    int filterType;
    Orb64f f, passbandDb;
    int order;

    OrbStatus make(Orb64f* taps) const {
        return (isHigh ? orbsIIRGenHighpass_64f : orbsIIRGenLowpass_64f)(f, passbandDb, order, taps, filterType);
    }
    std::string told() const {
        return std::string(isHigh ? "high" : "low") + ", kind " + std::to_string(filterType) + ", " +
               std::to_string(f) + ", " + std::to_string(passbandDb) + " dB, order " + std::to_string(order);
    }
    Real floor() const { return filterType == orbChebyshev1 ? std::pow(10.0L, -Real(passbandDb) / 20) : 1; }
    // Of the middle of the pass band.
    Real gain() const { return order % 2 == 0 ? floor() : 1; }
};

struct Filter {
    Polynomial b, a;
};

Filter made(const Design& design) {
    const auto count = static_cast<std::size_t>(design.order) + 1;
    std::vector<Orb64f> taps(2 * count);
    EXPECT_EQ(design.make(taps.data()), orbStsNoErr);
    return {{taps.begin(), taps.begin() + count}, {taps.begin() + count, taps.end()}};
}

// At z^-1 = x.
Complex value(const Polynomial& c, Complex x) {
    Complex sum = 0;
    for (std::size_t k = c.size(); k-- > 0;) sum = sum * x + c[k];
    return sum;
}
Complex response(const Filter& filter, Real f) {
    const Complex x = std::polar(1.0L, -2 * pi * f);
    return value(filter.b, x) / value(filter.a, x);
}

Polynomial fromRoots(const std::vector<Complex>& roots) {
    std::vector<Complex> c{1};
    for (const Complex root : roots) {
        c.push_back(0);
        for (std::size_t k = c.size() - 1; k > 0; --k) c[k] -= root * c[k - 1];
    }
    Polynomial real;
    for (const Complex z : c) real.push_back(z.real());
    return real;
}

// Poles of the analog filter on a circle or an ellipse, each taken to the z plane alone.
Filter textbook(const Design& design) {
    const int n = design.order;
    Real across = 1, along = 1;
    if (design.filterType == orbChebyshev1) {
        const Real ripple = std::sqrt(std::expm1(Real(design.passbandDb) / 10 * std::log(10.0L)));
        across = std::sinh(std::asinh(1 / ripple) / n);
        along = std::cosh(std::asinh(1 / ripple) / n);
    }
    const Real edge = std::tan(pi * Real(design.f));
    std::vector<Complex> poles;
    for (int k = 0; k < n; ++k) {
        const Real angle = pi * (2 * k + 1) / (2 * n);
        const Complex p(-across * std::sin(angle), along * std::cos(angle));
        const Complex s = design.isHigh ? edge / p : edge * p;
        poles.push_back((1.0L + s) / (1.0L - s));
    }
    const Real middle = design.isHigh ? -1 : 1;
    Filter filter{fromRoots(std::vector<Complex>(poles.size(), -middle)), fromRoots(poles)};
    const Real scale = design.gain() * (value(filter.a, middle) / value(filter.b, middle)).real();
    for (Real& b : filter.b) b *= scale;
    return filter;
}

Real sumOfMagnitudes(const Polynomial& c) {
    Real sum = 0;
    for (const Real x : c) sum += std::abs(x);
    return sum;
}
// The iteration ends where a subdiagonal element has 5e-14 of its neighbours; each pole may be so far off.
Real errorOfPoles(const Design& design, const Filter& filter) {
    return design.order * Real(5e-14) * sumOfMagnitudes(filter.a);
}
Real relativeErrorOfGain(const Design& design, const Filter& filter, Complex x) {
    return errorOfPoles(design, filter) / std::abs(value(filter.a, x));
}

template <class Test>
void forDesigns(const std::vector<Orb64f>& frequencies, Test test) {
    for (const bool isHigh : {false, true})
        for (const Orb64f f : frequencies)
            for (int order = 1; order <= 12; ++order) {
                test(Design{isHigh, orbButterworth, f, 0, order});
                for (const Orb64f db : {1e-6, 0.5, 3.0, 29.0}) test(Design{isHigh, orbChebyshev1, f, db, order});
            }
}

TEST(IirGen, CoefficientsAreTheTextbooks) {
    forDesigns({1e-6, 0.001, 0.03, 0.1, 0.25, 0.26, 0.4, 0.499}, [](const Design& design) {
        const Filter got = made(design), want = textbook(design);
        const Real error = errorOfPoles(design, want);
        // What the denominator has left at the middle of the pass band sets the scale of the numerator, whose value
        // there without it is 2^order.
        const Polynomial zeros = fromRoots(std::vector<Complex>(want.a.size() - 1, 1));
        const Real errorOfScale = error * std::pow(2.0L, -design.order);
        for (std::size_t k = 0; k < want.a.size(); ++k) {
            ASSERT_NEAR(got.a[k], want.a[k], error) << design.told() << ", a" << k;
            ASSERT_NEAR(got.b[k], want.b[k], std::abs(zeros[k]) * errorOfScale + 4 * epsilon * std::abs(want.b[k]))
                << design.told() << ", b" << k;
        }
        ASSERT_EQ(got.a[0], 1);
    });
}

TEST(IirGen, GainsAreThoseAskedForAndPolesLieInside) {
    forDesigns({0.1, 0.2, 0.3, 0.4}, [](const Design& design) {
        const Filter filter = made(design);
        const Real atEdge = design.filterType == orbChebyshev1 ? design.floor() : std::sqrt(0.5L);
        const Real middle = design.isHigh ? 0.5L : 0;
        const auto expectGain = [&](Real f, Real want) {
            const Real error = relativeErrorOfGain(design, filter, std::polar(1.0L, -2 * pi * f)) +
                               relativeErrorOfGain(design, filter, design.isHigh ? -1 : 1);
            EXPECT_NEAR(std::abs(response(filter, f)), want, error) << design.told() << ", " << double(f);
        };
        expectGain(middle, design.gain());
        expectGain(design.f, atEdge);
        // Of the zeros, only what rounding the coefficients leaves.
        EXPECT_LE(std::abs(value(filter.b, design.isHigh ? 1 : -1)), epsilon * sumOfMagnitudes(filter.b));

        // By the step-down recursion (Schur and Cohn): all reflection coefficients lie within the circle.
        Polynomial a = filter.a;
        for (; a.size() > 1; a.pop_back()) {
            const Real k = a.back();
            ASSERT_LT(std::abs(k), 1) << design.told();
            Polynomial reversed(a.rbegin(), a.rend());
            for (std::size_t i = 0; i < a.size(); ++i) a[i] = (a[i] - k * reversed[i]) / (1 - k * k);
        }
    });
}

// Responses of scipy.signal's second-order sections: butter(order, 0.2), cheby1(order, 1.5, 0.2) at 0.12, and the high
// passes with 0.4 at 0.18.
TEST(IirGen, RespondsAsScipysFilters) {
    static constexpr Orb64f responses[2][12][4] = {
        {
            {0.40244000211484715, -0.49038968872994171, 0.43277368036824959, 0.4954600104435975},
            {-0.15128836087452266, -0.5377248007805846, -0.11430870995916396, 0.5957082258486377},
            {-0.46088333216147093, -0.14688400497734513, -0.49863609280012716, 0.24270398654938902},
            {-0.31817553535955495, 0.26341036511762089, -0.44470199711371267, -0.23523390296061697},
            {0.043808562417973124, 0.34607601870091631, -0.062375204397607048, -0.44892740220329164},
            {0.26455067848486369, 0.12392496239537541, 0.29454687651003947, -0.27928085657961577},
            {0.20490971202114971, -0.13090749973652893, 0.35493869890780438, 0.06949705013251993},
            {-0.00064941383709070431, -0.20150019968176633, 0.13213184612004075, 0.29247093916269001},
            {-0.14073968687281979, -0.088907644125381727, -0.14323471472430804, 0.24501895684312239},
            {-0.12420223048975765, 0.058375023704874025, -0.24932343310243721, 0.022164316562153022},
            {-0.014637664477848479, 0.11201915067397591, -0.14305226927054054, -0.16750828410881691},
            {0.071036241752750806, 0.059875236555157238, 0.046984163733671508, -0.18773537163555928},
        },
        {
            {0.62013455696682174, -0.48535315824910991, 0.64905423774453053, 0.47726599942840775},
            {-0.27644602720590822, -0.55508406067565119, -0.23755114109708733, 0.65062050539831906},
            {-0.35046934280678704, 0.18998216404277166, -0.49180774661323595, -0.16423096875480722},
            {0.11906607771752763, 0.19027809701930329, 0.12414420517389248, -0.32021880634459249},
            {0.098958822703380675, -0.067703409172108181, 0.19365011065566856, 0.086004366539783245},
            {-0.036769283995437281, -0.0511764659440384, -0.055231471404195903, 0.1140798286347252},
            {-0.026518449650659647, 0.019584911503288137, -0.066761652700798563, -0.034034128820801396},
            {0.010342220157745914, 0.013773983622751489, 0.02054131531494114, -0.039046868136157778},
            {0.0071664666680896633, -0.0054384973970071334, 0.022855298905924488, 0.012266637417892344},
            {-0.002853359501481603, -0.0037327445356882126, -0.0072833148094176119, 0.013389612071466193},
            {-0.0019456398194777399, 0.001495028823335242, -0.0078496409104131457, -0.0043101816932755574},
            {0.00078265563226846409, 0.0010146227312211732, 0.0025455346774646711, -0.0046041581372601725},
        },
    };
    for (const int kind : {orbButterworth, orbChebyshev1})
        for (int order = 1; order <= 12; ++order)
            for (const bool isHigh : {false, true}) {
                const Design design{isHigh, kind, isHigh ? 0.2 : 0.1, 1.5, order};
                const Orb64f* const want = responses[kind][order - 1] + (isHigh ? 2 : 0);
                const Filter filter = made(design);
                const Real at = isHigh ? 0.18L : 0.12L;
                const Real error = relativeErrorOfGain(design, filter, std::polar(1.0L, -2 * pi * at)) +
                                   relativeErrorOfGain(design, filter, isHigh ? -1 : 1);
                EXPECT_LE(std::abs(response(filter, at) - Complex(want[0], want[1])), error) << design.told();
            }
}

TEST(IirGen, LooksAtNoMoreThanItNeeds) {
    Orb64f taps[4] = {3, 4, 5, 6};
    for (const int kind : {2, -1}) {
        EXPECT_EQ((Design{false, kind, 0.1, NAN, 1}.make(taps)), orbStsNoErr);
        EXPECT_EQ((Design{true, kind, 0.1, 0, 13}.make(taps)), orbStsIIRGenOrderErr);
    }
    EXPECT_EQ((Design{false, orbChebyshev1, 0.1, std::nextafter(29.0, 30.0), 1}.make(taps)), orbStsIIRGenPassbandErr);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(taps[k], k + 3);
    EXPECT_EQ((Design{false, orbButterworth, 0.1, NAN, 1}.make(taps)), orbStsNoErr);
}

TEST(IirGen, NoFrequencyIsNoFilterAndNoFault) {
    forDesigns({NAN}, [](const Design& design) {
        const Filter filter = made(design);
        EXPECT_EQ(filter.a[0], 1);
        for (int k = 0; k <= design.order; ++k)
            EXPECT_TRUE(std::isnan(filter.b[k]) && (k == 0 || std::isnan(filter.a[k])));
    });
}

} // namespace
