// Prints docs/accuracy.md's table of sums: the worst error among vectors of random elements, and a hash of all results,
// which is the same in every tier. The exact results are computed in 113 bits, but for the logarithms of elements,
// which are those of the C library in long double. usage: sums_accuracy
#include "orbs.h"

#include "support/data.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

using Quad = __float128;

struct Moments {
    Quad sum = 0, magnitudes = 0, squares = 0, logarithms = 0;
};
template <class T>
Moments momentsOf(const std::vector<T>& x) {
    Moments m;
    for (const T t : x) {
        m.sum += t;
        m.magnitudes += std::fabs(t);
        m.squares += Quad{t} * t;
        m.logarithms += std::log(std::fabs(static_cast<long double>(t)));
    }
    return m;
}
long double deviation(const Moments& m, std::size_t len) {
    const auto n = static_cast<Quad>(len);
    return std::sqrt(static_cast<long double>((m.squares * n - m.sum * m.sum) / (n * (n - 1))));
}

constexpr int vectors = 20;

// The member as a function of a vector; what it should give; offset + uniform in -1 to 1.
template <class T, class R>
void measure(const char* row, const char* elements, std::size_t len, double offset,
             const std::function<R(const std::vector<T>&)>& member,
             const std::function<Quad(const Moments&, std::size_t)>& exact) {
    double worst = 0, ulps = 0;
    Orb64u hash = 0xcbf29ce484222325;
    for (int k = 0; k < vectors; ++k) {
        auto x = support::randomVector<T>(len, static_cast<std::uint64_t>(k));
        for (T& t : x) t = static_cast<T>(t + offset);
        const Moments m = momentsOf(x);
        const R y = member(x);
        const Quad want = exact(m, len);
        const auto error = static_cast<double>(y > want ? y - want : want - y);
        int exponent;
        std::frexp(static_cast<double>(want), &exponent);
        ulps = std::max(ulps, error / std::ldexp(1.0, exponent - std::numeric_limits<R>::digits));
        worst = std::max(worst, error / static_cast<double>(m.magnitudes));
        Orb64u bits = 0;
        std::memcpy(&bits, &y, sizeof y);
        hash = (hash ^ bits) * 0x100000001b3;
    }
    std::printf("| %s | %s | %zu | %.3g | %.2g | %016llx |\n", row, elements, len, ulps, worst, hash);
}

template <class T, class R, class Member>
void measureAll(const char* row, Member member, const std::function<Quad(const Moments&, std::size_t)>& exact,
                bool positiveOnly = false) {
    const std::function<R(const std::vector<T>&)> call = [=](const std::vector<T>& x) {
        R y;
        member(x.data(), static_cast<int>(x.size()), &y);
        return y;
    };
    for (const std::size_t len : {4096u, 1000000u}) {
        if (positiveOnly) {
            measure<T, R>(row, "1 to 3", len, 2, call, exact);
        } else {
            measure<T, R>(row, "-1 to 1", len, 0, call, exact);
            measure<T, R>(row, "0 to 2", len, 1, call, exact);
        }
    }
}

} // namespace

int main() {
    std::printf("| member | elements | number | worst, ulp | over the sum of magnitudes | hash |\n"
                "|---|---|---:|---:|---:|---|\n");
    const auto sum = [](const Moments& m, std::size_t) { return m.sum; };
    const auto spread = [](const Moments& m, std::size_t len) -> Quad { return deviation(m, len); };
    const auto logarithms = [](const Moments& m, std::size_t) { return m.logarithms; };
    const auto hinted = [](auto member, OrbHintAlgorithm hint) {
        return [=](const Orb32f* x, int len, Orb32f* y) { return member(x, len, y, hint); };
    };
    measureAll<Orb32f, Orb32f>("Sum_32f, accurate", hinted(orbsSum_32f, orbAlgHintAccurate), sum);
    measureAll<Orb32f, Orb32f>("Sum_32f, fast", hinted(orbsSum_32f, orbAlgHintFast), sum);
    measureAll<Orb64f, Orb64f>("Sum_64f", orbsSum_64f, sum);
    measureAll<Orb32f, Orb32f>("StdDev_32f, accurate", hinted(orbsStdDev_32f, orbAlgHintAccurate), spread);
    measureAll<Orb32f, Orb32f>("StdDev_32f, fast", hinted(orbsStdDev_32f, orbAlgHintFast), spread);
    measureAll<Orb64f, Orb64f>("StdDev_64f", orbsStdDev_64f, spread);
    measureAll<Orb32f, Orb64f>("SumLn_32f64f", orbsSumLn_32f64f, logarithms, true);
    measureAll<Orb64f, Orb64f>("SumLn_64f", orbsSumLn_64f, logarithms, true);
}
