// Noise, beside the distributions of the C++ library over its Mersenne twister.
#include "orbs.h"
#include "vectors.h"

#include <random>

namespace {

using vectors::add;
using vectors::buffer;

template <class T, class Distribution>
void addStandard(const vectors::Row& row, Distribution distribution) {
    struct Source { // for the life of the program
        std::mt19937 engine{1};
        Distribution distribution;
    };
    add(row, "std", [y = buffer<T>(2), source = new Source{.distribution = distribution}](int len) {
        for (int n = 0; n < len; ++n) y[n] = static_cast<T>(source->distribution(source->engine));
    });
}
template <class T, class Parameter>
void addDirect(const vectors::Row& row, OrbStatus (*member)(T*, int, Parameter, Parameter, Orb32u*), Parameter first,
               Parameter second) {
    add(row, "orbs", [=, y = buffer<T>(2)](int len) {
        Orb32u seed = 1;
        member(y, len, first, second, &seed);
    });
}
template <class T, class State, class Parameter>
void addStream(const vectors::Row& row, OrbStatus (*make)(State**, Parameter, Parameter, Orb32u),
               OrbStatus (*member)(T*, int, State*), Parameter first, Parameter second) {
    State* state = nullptr;
    make(&state, first, second, 1);
    add(row, "orbs", [=, y = buffer<T>(2)](int len) { member(y, len, state); });
}

[[maybe_unused]] const bool registered = [] {
    const vectors::Row uniform32f = {"RandUniform_Direct_32f", vectors::alsoShort};
    addDirect(uniform32f, orbsRandUniform_Direct_32f, -1.0f, 1.0f);
    addStandard<Orb32f>(uniform32f, std::uniform_real_distribution<Orb32f>(-1, 1));
    addDirect("RandUniform_Direct_64f", orbsRandUniform_Direct_64f, -1.0, 1.0);
    addStandard<Orb64f>("RandUniform_Direct_64f", std::uniform_real_distribution<Orb64f>(-1, 1));
    addDirect<Orb16s, Orb16s>("RandUniform_Direct_16s", orbsRandUniform_Direct_16s, -1000, 1000);
    addStandard<Orb16s>("RandUniform_Direct_16s", std::uniform_int_distribution<int>(-1000, 1000));
    addStream<Orb8u, OrbsRandUniState_8u, Orb8u>("RandUniform_8u", orbsRandUniformInitAlloc_8u, orbsRandUniform_8u, 3,
                                                 200);
    addStandard<Orb8u>("RandUniform_8u", std::uniform_int_distribution<int>(3, 200));

    const vectors::Row gauss32f = {"RandGauss_Direct_32f", vectors::alsoShort};
    addDirect(gauss32f, orbsRandGauss_Direct_32f, 0.0f, 1.0f);
    addStandard<Orb32f>(gauss32f, std::normal_distribution<Orb32f>());
    addDirect("RandGauss_Direct_64f", orbsRandGauss_Direct_64f, 0.0, 1.0);
    addStandard<Orb64f>("RandGauss_Direct_64f", std::normal_distribution<Orb64f>());
    addStream<Orb16s, OrbsRandGaussState_16s, Orb16s>("RandGauss_16s", orbsRandGaussInitAlloc_16s, orbsRandGauss_16s, 0,
                                                      1000);
    addStandard<Orb16s>("RandGauss_16s", std::normal_distribution<Orb64f>(0, 1000));
    return true;
}();

} // namespace
