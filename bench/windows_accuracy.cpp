// Prints docs/accuracy.md's table of windows: the worst error of a weight over all lengths to 1,100 and some longer
// ones. The references are computed in long double, the Bessel function by its power series.
#include "orbs.h"

#include "support/ulps.h"

#include <cstdio>
#include <vector>

namespace {

using Real = long double;

constexpr Real twoPi = 6.283185307179586476925286766559005768L;

Real bessel(Real x) {
    Real term = 1, sum = 1;
    for (int k = 1; term > sum * 1e-22L; ++k) {
        term *= (x / (2 * Real(k))) * (x / (2 * Real(k)));
        sum += term;
    }
    return sum;
}

// The weight of element n of M + 1.
using Window = Real (*)(Real n, Real M, Real alpha);

Real bartlett(Real n, Real M, Real) {
    return 2 * n / M;
}
Real hann(Real n, Real M, Real) {
    const Real sine = std::sin(twoPi * n / (2 * M));
    return sine * sine;
}
Real hamming(Real n, Real M, Real) {
    return 0.54L - 0.46L * std::cos(twoPi * n / M);
}
Real blackman(Real n, Real M, Real alpha) {
    return (alpha + 1) / 2 - std::cos(twoPi * n / M) / 2 - alpha / 2 * std::cos(2 * twoPi * n / M);
}
Real kaiser(Real n, Real M, Real alpha) {
    return bessel(alpha * std::sqrt(n * (M - n))) / bessel(alpha * M / 2);
}

// Errors in units of the last place of the weight, and in units of epsilon.
template <class T>
struct Worst {
    double ulps = 0, epsilons = 0;

    // member(weights, len, alpha) puts ones under the window.
    template <class AlphaOf, class Member>
    Worst(Window window, AlphaOf alphaOf, Member member) {
        std::vector<int> lengths{2048, 4096, 10007};
        for (int len = 4; len <= 1100; ++len) lengths.push_back(len);
        for (int len : lengths) {
            std::vector<T> weights(static_cast<std::size_t>(len), T{1});
            const Orb32f alpha = alphaOf(len - 1);
            member(weights.data(), len, alpha);
            for (int n = 1; n < len / 2; ++n) add(weights[static_cast<std::size_t>(n)], window(n, len - 1, alpha));
        }
    }

private:
    void add(T weight, Real exact) {
        const Real distance = std::fabs(weight - exact) / std::numeric_limits<T>::epsilon();
        epsilons = std::max(epsilons, static_cast<double>(distance));
        ulps = std::max(ulps, support::ulps(weight, exact));
    }
};

struct NotTaken {};
template <class T, class AlphaOf, class Member>
void cells(Window window, AlphaOf alphaOf, Member member) {
    if constexpr (std::is_same_v<Member, NotTaken>) {
        std::printf(" | |");
    } else {
        const Worst<T> worst(window, alphaOf, member);
        std::printf(" %.2f | %.2f |", worst.ulps, worst.epsilons);
    }
}
template <class AlphaOf, class Single, class Twice>
void row(const char* name, Window window, AlphaOf alphaOf, Single single, Twice twice) {
    std::printf("| %s |", name);
    cells<Orb32f>(window, alphaOf, single);
    cells<Orb64f>(window, alphaOf, twice);
    std::printf("\n");
}

template <class T>
auto plain(OrbStatus (*member)(T*, int)) {
    return [=](T* weights, int len, Orb32f) { member(weights, len); };
}
template <class T, class Alpha>
auto shaped(OrbStatus (*member)(T*, int, Alpha)) {
    return [=](T* weights, int len, Orb32f alpha) { member(weights, len, alpha); };
}
auto constant(Orb32f alpha) {
    return [=](int) { return alpha; };
}
// alpha M / 2 is `wide`, or just below.
auto ofWidth(Orb32f wide) {
    return [=](int M) { return std::nextafter(2 * wide / static_cast<Orb32f>(M), 0.0f); };
}

} // namespace

int main() {
    std::printf("| window | 32f, ulps | 32f, epsilons | 64f, ulps | 64f, epsilons |\n|---|---|---|---|---|\n");
    row("Bartlett", bartlett, constant(0), plain(orbsWinBartlett_32f_I), plain(orbsWinBartlett_64f_I));
    row("Hann", hann, constant(0), plain(orbsWinHann_32f_I), plain(orbsWinHann_64f_I));
    row("Hamming", hamming, constant(0), plain(orbsWinHamming_32f_I), plain(orbsWinHamming_64f_I));
    row("Blackman, alpha = -0.16", blackman, constant(-0.16f), shaped(orbsWinBlackman_32f_I),
        shaped(orbsWinBlackman_64f_I));
    row("Blackman, alpha = 0.5", blackman, constant(0.5f), shaped(orbsWinBlackman_32f_I),
        shaped(orbsWinBlackman_64f_I));
    row("Kaiser, alpha M/2 = 3", kaiser, ofWidth(3), shaped(orbsWinKaiser_32f_I), shaped(orbsWinKaiser_64f_I));
    row("Kaiser, alpha M/2 = 38", kaiser, ofWidth(38), shaped(orbsWinKaiser_32f_I), shaped(orbsWinKaiser_64f_I));
    row("Kaiser, alpha M/2 = 300", kaiser, ofWidth(300), NotTaken(), shaped(orbsWinKaiser_64f_I));
}
