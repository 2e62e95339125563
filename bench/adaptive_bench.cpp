// Adaptive filters, beside the loop that a compiler may re-associate and liquid-dsp.
#include "orbs.h"

#include <benchmark/benchmark.h>
#include <liquid/liquid.h>
#include <random>
#include <string>
#include <vector>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // liquid-dsp means other functions

namespace {

constexpr int length = 4096;
constexpr float mu = 1e-4f;

struct Signals {
    std::vector<float> x, ref, y = std::vector<float>(length);

    Signals() {
        std::mt19937 random(1);
        std::uniform_real_distribution<float> uniform(-1, 1);
        for (std::vector<float>* v : {&x, &ref})
            for (int n = 0; n < length; ++n) v->push_back(uniform(random));
    }
    template <class Body>
    void measure(benchmark::State& run, Body body) {
        for (auto _ : run) {
            body();
            benchmark::DoNotOptimize(y.data());
            benchmark::ClobberMemory();
        }
        run.SetItemsProcessed(run.iterations() * length);
    }
};

void orbs(benchmark::State& run, int tapsLen) {
    Signals s;
    OrbsFIRLMSState_32f* state = nullptr;
    orbsFIRLMSInitAlloc_32f(&state, nullptr, tapsLen, nullptr, 0);
    s.measure(run, [&] { orbsFIRLMS_32f(s.x.data(), s.ref.data(), s.y.data(), length, mu, state); });
    orbsFIRLMSFree_32f(state);
}

void orbsOne(benchmark::State& run, int tapsLen) {
    Signals s;
    std::vector<float> taps(static_cast<std::size_t>(tapsLen)), line(2 * taps.size());
    int index = 0;
    s.measure(run, [&] {
        for (std::size_t n = 0; n < length; ++n)
            orbsFIRLMSOne_Direct_32f(s.x[n], s.ref[n], &s.y[n], taps.data(), tapsLen, mu, line.data(), &index);
    });
}

__attribute__((optimize("O3", "fast-math"), noinline)) void loopOver(const float* x, const float* ref, float* y,
                                                                     float* taps, int tapsLen) {
    for (int n = 0; n < length; ++n) {
        float sum = 0;
        for (int k = 0; k < tapsLen; ++k) sum += taps[k] * x[n + k];
        const float e = (ref[n] - sum) * (mu + mu);
        y[n] = sum;
        for (int k = 0; k < tapsLen; ++k) taps[k] += x[n + k] * e;
    }
}
void loop(benchmark::State& run, int tapsLen) {
    Signals s;
    std::vector<float> taps(static_cast<std::size_t>(tapsLen)), x(taps.size() - 1);
    x.insert(x.end(), s.x.begin(), s.x.end());
    s.measure(run, [&] { loopOver(x.data(), s.ref.data(), s.y.data(), taps.data(), tapsLen); });
}

void liquid(benchmark::State& run, int tapsLen) {
    Signals s;
    eqlms_rrrf filter = eqlms_rrrf_create(nullptr, static_cast<unsigned>(tapsLen));
    eqlms_rrrf_set_bw(filter, mu);
    s.measure(run, [&] {
        for (std::size_t n = 0; n < length; ++n) {
            eqlms_rrrf_push(filter, s.x[n]);
            eqlms_rrrf_execute(filter, &s.y[n]);
            eqlms_rrrf_step(filter, s.ref[n], s.y[n]);
        }
    });
    eqlms_rrrf_destroy(filter);
}

// Names: member(taps)/who/length

[[maybe_unused]] const bool registered = [] {
    const auto add = [](const std::string& member, const char* who, auto body, int tapsLen) {
        const std::string name = member + "(" + std::to_string(tapsLen) + ")/" + who + "/" + std::to_string(length);
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) { body(run, tapsLen); });
    };
    for (const int tapsLen : {8, 20, 32, 100, 256, 1000}) {
        add("FIRLMS_32f", "orbs", orbs, tapsLen);
        add("FIRLMS_32f", "loop", loop, tapsLen);
        add("FIRLMS_32f", "liquid", liquid, tapsLen);
        add("FIRLMSOne_Direct_32f", "orbs", orbsOne, tapsLen);
        add("FIRLMSOne_Direct_32f", "loop", loop, tapsLen);
    }
    return true;
}();

} // namespace
