// Prints docs/accuracy.md's table of phases and polar forms: the worst error over ten million pairs of each kind, and a
// hash of all the results, which is the same in every tier. The reference has 113 bits.
// usage: polar_accuracy [ROW]     rows that contain ROW
#include "orbs.h"

#include "support/ulps.h"

#include <array>
#include <cstdio>
#include <quadmath.h>
#include <string>

namespace {

using support::asBits;
using support::fromBits;

using Quad = __float128;

template <class T>
using BitsOf = std::conditional_t<sizeof(T) == sizeof(Orb32u), Orb32u, Orb64u>;

template <class T>
double ulps(T y, Quad exact) {
    using Limits = std::numeric_limits<T>;
    int exponent;
    frexpq(exact, &exponent);
    const int unit = std::max(exponent, Limits::min_exponent) - Limits::digits;
    return static_cast<double>(fabsq(ldexpq(y - exact, -unit)));
}

constexpr int pairs = 10'000'000, blockLen = 4000;

// What two numbers a pair is made of.
template <class T>
struct Source {
    support::Random random{1};

    T uniform() { return support::randomElement<T>(random); }
    T anyBits() {
        const T t = fromBits<T>(static_cast<BitsOf<T>>(random()));
        return std::isfinite(t) ? t : T{1};
    }
    T lesser() { return std::ldexp(uniform(), -static_cast<int>(random() % 12)); }
};
template <class T>
using Kind = std::array<T, 2> (*)(Source<T>&);

struct Errors {
    double worst = 0;
    Orb64u notNearest = 0, farther = 0, hash = 0xcbf29ce484222325;

    template <class T>
    void add(T y, Quad exact) {
        using Bits = BitsOf<T>;
        hash = (hash ^ asBits<Bits>(y)) * 0x100000001b3;
        const Bits distance = static_cast<Bits>(asBits<Bits>(y) - asBits<Bits>(static_cast<T>(exact)));
        notNearest += distance != 0;
        farther += static_cast<Bits>(distance + 1) > 2;
        worst = std::max(worst, ulps(y, exact));
    }
    void print(const char* row, int results) const {
        std::printf("| %s | %.3f | %.3f %% | %llu | %016llx |\n", row, worst, 100.0 * double(notNearest) / results,
                    farther, hash);
        std::fflush(stdout);
    }
};

template <class T>
void measurePhase(const char* row, OrbStatus (*member)(const T*, const T*, T*, int), Kind<T> kind) {
    Errors errors;
    Source<T> source;
    std::vector<T> re(blockLen), im(blockLen), y(blockLen);
    for (int done = 0; done < pairs; done += blockLen) {
        for (std::size_t n = 0; n < blockLen; ++n) {
            const auto pair = kind(source);
            re[n] = pair[0];
            im[n] = pair[1];
        }
        member(re.data(), im.data(), y.data(), blockLen);
        for (std::size_t n = 0; n < blockLen; ++n) errors.add(y[n], atan2q(im[n], re[n]));
    }
    errors.print(row, pairs);
}

template <class T>
void measureParts(const char* row, OrbStatus (*member)(const T*, const T*, T*, T*, int), Kind<T> kind) {
    Errors errors;
    Source<T> source;
    std::vector<T> magnitude(blockLen), phase(blockLen), re(blockLen), im(blockLen);
    for (int done = 0; done < pairs; done += blockLen) {
        for (std::size_t n = 0; n < blockLen; ++n) {
            const auto pair = kind(source);
            magnitude[n] = pair[0];
            phase[n] = pair[1];
        }
        member(magnitude.data(), phase.data(), re.data(), im.data(), blockLen);
        for (std::size_t n = 0; n < blockLen; ++n) {
            Quad sine, cosine;
            sincosq(phase[n], &sine, &cosine);
            errors.add(re[n], magnitude[n] * cosine);
            errors.add(im[n], magnitude[n] * sine);
        }
    }
    errors.print(row, 2 * pairs);
}

template <class T>
void measureAll(const std::string& wanted, const std::string& type, OrbStatus (*phase)(const T*, const T*, T*, int),
                OrbStatus (*parts)(const T*, const T*, T*, T*, int)) {
    const auto run = [&](auto measure, const std::string& row, auto member, Kind<T> kind) {
        if (row.find(wanted) != std::string::npos) measure(row.c_str(), member, kind);
    };
    const std::string ofPhase = "Phase_" + type + ", ", ofParts = "PolarToCart_" + type + ", ";
    run(measurePhase<T>, ofPhase + "uniform in a square", phase, [](Source<T>& s) {
        return std::array{s.uniform(), s.uniform()};
    });
    run(measurePhase<T>, ofPhase + "close to an axis", phase, [](Source<T>& s) {
        return std::array{s.uniform(), s.lesser()};
    });
    run(measurePhase<T>, ofPhase + "any floats", phase, [](Source<T>& s) {
        return std::array{s.anyBits(), s.anyBits()};
    });
    run(measureParts<T>, ofParts + "magnitude 1, phase in -pi to pi", parts, [](Source<T>& s) {
        return std::array{T{1}, s.uniform() * static_cast<T>(3.14159265)};
    });
    run(measureParts<T>, ofParts + "phase in -pi to pi", parts, [](Source<T>& s) {
        return std::array{s.uniform(), s.uniform() * static_cast<T>(3.14159265)};
    });
    run(measureParts<T>, ofParts + "magnitude 1, phase in -4096 to 4096", parts, [](Source<T>& s) {
        return std::array{T{1}, s.uniform() * 4096};
    });
    run(measureParts<T>, ofParts + "magnitude 1, any phase", parts, [](Source<T>& s) {
        return std::array{T{1}, s.anyBits()};
    });
}

} // namespace

int main(int argc, char** argv) {
    const std::string wanted = argc > 1 ? argv[1] : "";
    std::printf("| member, pairs | worst, ulp | not nearest | farther than 1 | hash |\n|---|---:|---:|---:|---|\n");
    measureAll<Orb32f>(wanted, "32f", orbsPhase_32f, orbsPolarToCart_32f);
    measureAll<Orb64f>(wanted, "64f", orbsPhase_64f, orbsPolarToCart_64f);
}
