// The steps of a Viterbi decoder beside the loops of their definitions; a row's length is the number of states.
#include "members.h"

#include <algorithm>
#include <random>

namespace {

constexpr int states[] = {16, 32, 64};

void calcLoop(const Orb16u* path, const Orb8u* next, Orb16u* metrics, const Orb16s* branch, Orb32u* history, int n) {
    for (int s = 0; s < n; ++s) {
        for (int k = 0; k < 16; ++k) {
            const int to = next[16 * s + k];
            const Orb16s* const pair = branch + 4 * k + 2 * (s & 1);
            const Orb32u m = path[s] + Orb32u{static_cast<Orb16u>(pair[1])};
            if (m >= metrics[to]) continue;
            metrics[to] = static_cast<Orb16u>(m);
            history[to] = static_cast<Orb16u>(pair[0]) | static_cast<Orb32u>(s) << 16;
        }
    }
}

void updateLoop(Orb16u* metrics, Orb16u* least, Orb8u* state, Orb16u* path, int n) {
    const Orb16u* const at = std::min_element(metrics, metrics + n);
    *state = static_cast<Orb8u>(at - metrics);
    *least = *at;
    for (int s = 0; s < n; ++s) path[s] = static_cast<Orb16u>(metrics[s] - *least);
    std::fill_n(metrics, n, Orb16u{0xffff});
}

// Metrics of symbols that differ from call to call, as a decoder meets them.
struct Trellis {
    static constexpr int symbols = 256;
    Orb16u path[64], metrics[64], lessPath[64]; // those of states; those of states made small again
    Orb8u next[3][16 * 64];                     // of 16, 32 and 64 states
    Orb16s branch[symbols][64];
    Orb32u history[64];
    Orb16u least;
    Orb8u best;
};

[[maybe_unused]] const bool registered = [] {
    static Trellis t;
    static int symbol = 0;
    std::mt19937 bits(1);
    const auto addStep = [](const char* who, auto calc, auto update) {
        vectors::add({"CalcStatesDV_16sc", states}, who, [=](int n) {
            std::fill_n(t.metrics, n, Orb16u{0xffff});
            calc(n);
        });
        vectors::add({"UpdatePathMetricsDV_16u", states}, who, update);
    };
    for (Orb16u& v : t.path) v = static_cast<Orb16u>(bits() % 2000);
    for (auto& of : t.branch)
        for (Orb16s& v : of) v = static_cast<Orb16s>(bits() % 4000);
    for (const int n : states)
        for (int s = 0; s < n; ++s)
            for (int k = 0; k < 16; ++k) t.next[n / 32][16 * s + k] = static_cast<Orb8u>((4 * s + 5 * k) % n);
    const auto nextSymbol = [] { symbol = (symbol + 1) % Trellis::symbols; };
    addStep(
        "orbs",
        [=](int n) {
            nextSymbol();
            orbsCalcStatesDV_16sc(t.path, t.next[n / 32], t.metrics, t.branch[symbol], t.history, n, 0);
        },
        [](int n) { orbsUpdatePathMetricsDV_16u(t.metrics, &t.least, &t.best, t.lessPath, n); });
    addStep(
        "loop",
        [=](int n) {
            nextSymbol();
            calcLoop(t.path, t.next[n / 32], t.metrics, t.branch[symbol], t.history, n);
        },
        [](int n) { updateLoop(t.metrics, &t.least, &t.best, t.lessPath, n); });
    return true;
}();

} // namespace
