// Spectra at single frequencies beside the textbook's recursion as a loop.
#include "orbs.h"
#include "vectors.h"

#include <cmath>

namespace {

using vectors::buffer;

constexpr int lengths[] = {7, 64, 256, 4096, 65536};
constexpr double frequency = 0.1234, twoFrequencies[] = {0.1234, 0.377};

// s[n] = x[n] + 2 cos(theta) s[n-1] - s[n-2], and exp(i theta) s[len-1] - s[len-2], in floats F.
template <class F, class S>
auto recursion(const S* x, int len, F rFreq) {
    struct Result {
        F re, im;
    } result;
    const F c = std::cos(F(6.283185307179586) * rFreq), s = std::sin(F(6.283185307179586) * rFreq), factor = 2 * c;
    F re1 = 0, re2 = 0, im1 = 0, im2 = 0;
    for (int n = 0; n < len; ++n) {
        if constexpr (requires { x->re; }) {
            const F re = static_cast<F>(x[n].re) + factor * re1 - re2,
                    im = static_cast<F>(x[n].im) + factor * im1 - im2;
            re2 = re1, re1 = re;
            im2 = im1, im1 = im;
        } else {
            const F re = static_cast<F>(x[n]) + factor * re1 - re2;
            re2 = re1, re1 = re;
        }
    }
    result = {c * re1 - re2 - s * im1, c * im1 - im2 + s * re1};
    benchmark::DoNotOptimize(result);
    return result;
}

// Frequencies and results.
constexpr Orb32f singles[] = {Orb32f(twoFrequencies[0]), Orb32f(twoFrequencies[1])};
Orb32fc single[2];
Orb64fc twice[2];
Orb16sc integers[2];

template <class F, class S, class Call>
void addSingle(const char* member, Call call) {
    const S* const x = buffer<S>(0);
    vectors::add({member, lengths}, "orbs", [=](int len) { call(x, len); });
    vectors::add({member, lengths}, "loop", [=](int len) { recursion<F>(x, len, F(frequency)); });
}
template <class F, class S, class Call>
void addTwo(const char* member, Call call) {
    const S* const x = buffer<S>(0);
    vectors::add({member, lengths}, "orbs", [=](int len) { call(x, len); });
    vectors::add({member, lengths}, "loop", [=](int len) {
        for (const double f : twoFrequencies) recursion<F>(x, len, F(f));
    });
}

[[maybe_unused]] const bool registered = [] {
    constexpr auto f = Orb32f(frequency);
    addSingle<Orb32f, Orb32f>("Goertz_32f", [=](auto* x, int len) { orbsGoertz_32f(x, len, single, f); });
    addSingle<Orb32f, Orb32fc>("Goertz_32fc", [=](auto* x, int len) { orbsGoertz_32fc(x, len, single, f); });
    addSingle<Orb64f, Orb64fc>("Goertz_64fc", [](auto* x, int len) { orbsGoertz_64fc(x, len, twice, frequency); });
    addSingle<Orb32f, Orb16s>("Goertz_16s_Sfs(3)",
                              [=](auto* x, int len) { orbsGoertz_16s_Sfs(x, len, integers, f, 3); });
    addSingle<Orb32f, Orb16sc>("Goertz_16sc_Sfs(3)",
                               [=](auto* x, int len) { orbsGoertz_16sc_Sfs(x, len, integers, f, 3); });
    addTwo<Orb32f, Orb32fc>("GoertzTwo_32fc", [](auto* x, int len) { orbsGoertzTwo_32fc(x, len, single, singles); });
    addTwo<Orb64f, Orb64fc>("GoertzTwo_64fc",
                            [](auto* x, int len) { orbsGoertzTwo_64fc(x, len, twice, twoFrequencies); });
    addTwo<Orb32f, Orb16sc>("GoertzTwo_16sc_Sfs(3)",
                            [](auto* x, int len) { orbsGoertzTwo_16sc_Sfs(x, len, integers, singles, 3); });
    return true;
}();

} // namespace
