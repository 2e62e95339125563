// Prints docs/accuracy.md's table of the elementary functions: the worst error in each region, and a hash of all the
// results, which is the same in every tier. Single precision runs over every float of a region, against the C library's
// function in double precision; double precision over ten million random bit patterns, against that in long double.
// usage: elementary_accuracy [ROW [STEP]]     rows that contain ROW; every STEP-th float (with 1 a row takes a minute)
#include "orbs.h"

#include "support/ulps.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using support::asBits;
using support::fromBits;

struct Errors {
    double worst = 0, at = 0;
    Orb64u count = 0, notNearest = 0, farther = 0, hash = 0xcbf29ce484222325;

    template <class T, class Bits, class Real>
    void add(T x, T y, Real exact) {
        hash = (hash ^ asBits<Bits>(y)) * 0x100000001b3;
        ++count;
        const T nearest = static_cast<T>(exact);
        const auto distance = asBits<Bits>(y) - asBits<Bits>(nearest);
        notNearest += distance != 0;
        farther += distance + 1 > 2;
        if (distance == 0 && worst >= 0.5) return; // the nearest one is half a unit off at most
        const double error = support::ulps(y, exact);
        if (error <= worst) return;
        worst = error;
        at = x;
    }
    void print(const char* row) const {
        std::printf("| %s | %llu | %.3f | %a | %.3f %% | %llu | %016llx |\n", row, count, worst, at,
                    100.0 * static_cast<double>(notNearest) / static_cast<double>(count), farther, hash);
        std::fflush(stdout);
    }
};

constexpr std::size_t blockLen = 4096;

// All floats from `first` to `last` by their bits, or every step-th.
void measure(const char* row, OrbStatus (*member)(const Orb32f*, Orb32f*, int), double (*exact)(double), Orb32u first,
             Orb32u last, Orb64u step) {
    Errors errors;
    std::vector<Orb32f> x(blockLen), y(blockLen);
    for (Orb64u next = first; next <= last;) {
        std::size_t len = 0;
        for (; len < blockLen && next <= last; next += step) x[len++] = fromBits<Orb32f>(static_cast<Orb32u>(next));
        member(x.data(), y.data(), static_cast<int>(len));
        for (std::size_t n = 0; n < len; ++n) errors.add<Orb32f, Orb32u>(x[n], y[n], exact(x[n]));
    }
    errors.print(row);
}

// Ten million doubles from `first` to `last`, uniform in their bits.
void measure(const char* row, OrbStatus (*member)(const Orb64f*, Orb64f*, int), long double (*exact)(long double),
             Orb64f first, Orb64f last) {
    Errors errors;
    support::Random random(1);
    const Orb64u lowest = asBits<Orb64u>(first), count = asBits<Orb64u>(last) - lowest + 1;
    std::vector<Orb64f> x(blockLen), y(blockLen);
    while (errors.count < 10000000) {
        for (Orb64f& t : x) t = fromBits<Orb64f>(lowest + random() % count); // a distribution differs between ABIs
        member(x.data(), y.data(), blockLen);
        for (std::size_t n = 0; n < blockLen; ++n) errors.add<Orb64f, Orb64u>(x[n], y[n], exact(x[n]));
    }
    errors.print(row);
}

} // namespace

int main(int argc, char** argv) {
    const std::string wanted = argc > 1 ? argv[1] : "";
    const Orb64u step = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
    const auto single = [&](const char* row, auto member, double (*exact)(double), Orb32u first, Orb32u last) {
        if (std::string(row).find(wanted) != std::string::npos) measure(row, member, exact, first, last, step);
    };
    const auto twice = [&](const char* row, auto member, long double (*exact)(long double), Orb64f first, Orb64f last) {
        if (std::string(row).find(wanted) != std::string::npos) measure(row, member, exact, first, last);
    };
    std::printf("| member | arguments | worst, ulp | at | not nearest | farther than 1 | hash |\n"
                "|---|---:|---:|---|---:|---:|---|\n");
    constexpr Orb32u infinity = 0x7f800000, sign = 0x80000000;
    single("Exp_32f, x >= +0", orbsExp_32f, std::exp, 0, infinity);
    single("Exp_32f, x <= -0", orbsExp_32f, std::exp, sign, sign + infinity);
    single("Ln_32f", orbsLn_32f, std::log, 1, infinity);
    single("Arctan_32f, x >= +0", orbsArctan_32f, std::atan, 0, infinity);
    single("Arctan_32f, x <= -0", orbsArctan_32f, std::atan, sign, sign + infinity);
    single("Cubrt_32f, x >= +0", orbsCubrt_32f, std::cbrt, 0, infinity);
    single("Cubrt_32f, x <= -0", orbsCubrt_32f, std::cbrt, sign, sign + infinity);
    twice("Exp_64f, x > 0", orbsExp_64f, std::exp, 0x1p-60, 710);
    twice("Exp_64f, x < 0", orbsExp_64f, std::exp, -0x1p-60, -746);
    twice("Exp_64f, near overflow", orbsExp_64f, std::exp, 707, 710);
    twice("Exp_64f, subnormal results", orbsExp_64f, std::exp, -707, -746);
    twice("Ln_64f, subnormal", orbsLn_64f, std::log, 0x1p-1042, 0x1p-1022);
    twice("Ln_64f, normal", orbsLn_64f, std::log, 0x1p-1022, 0x1.fffffffffffffp1023);
    twice("Ln_64f, 1/2 to 2", orbsLn_64f, std::log, 0.5, 2);
    twice("Ln_64f, 2^-10 around 1", orbsLn_64f, std::log, 1 - 0x1p-10, 1 + 0x1p-10);
    twice("Ln_64f, 2^-34 around 1", orbsLn_64f, std::log, 1 - 0x1p-34, 1 + 0x1p-34);
    twice("Arctan_64f, x > 0", orbsArctan_64f, std::atan, 0, 0x1.fffffffffffffp1023);
    twice("Arctan_64f, 2^-7 to 40", orbsArctan_64f, std::atan, 0x1p-7, 40);
    twice("Arctan_64f, -2^-7 to -40", orbsArctan_64f, std::atan, -0x1p-7, -40);
}
