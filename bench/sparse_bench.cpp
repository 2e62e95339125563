// Filters with few taps, beside plain loops.
#include "orbs.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int length = 4096;

struct Job {
    std::vector<int> positions;
    std::vector<float> taps, x, y = std::vector<float>(length);

    Job(int count, int order) {
        std::mt19937 random(1);
        std::uniform_real_distribution<float> uniform(-1, 1);
        for (int i = 0; i < count; ++i) {
            positions.push_back(i * (order - 1) / (count - 1));
            taps.push_back(uniform(random) / static_cast<float>(count));
        }
        for (int n = 0; n < order - 1 + length; ++n) x.push_back(uniform(random));
    }
    // The samples in front of x[newest()] are what the filter remembers.
    std::size_t newest() const { return static_cast<std::size_t>(positions.back()); }

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

void orbsFir(benchmark::State& run, Job job) {
    const int count = static_cast<int>(job.taps.size());
    int size = 0;
    orbsFIRSparseGetStateSize_32f(count, job.positions.back(), &size);
    std::vector<Orb8u> buffer(static_cast<std::size_t>(size));
    OrbsFIRSparseState_32f* state = nullptr;
    orbsFIRSparseInit_32f(&state, job.taps.data(), job.positions.data(), count, nullptr, buffer.data());
    const float* const x = job.x.data() + job.newest();
    job.measure(run, [&] { orbsFIRSparse_32f(x, job.y.data(), length, state); });
}

// Output by output, and tap by tap, which a compiler vectorises.
void loopOfOutputs(benchmark::State& run, Job job) {
    const float* const x = job.x.data() + job.newest();
    job.measure(run, [&] {
        for (int n = 0; n < length; ++n) {
            float sum = 0;
            for (std::size_t i = 0; i < job.taps.size(); ++i) sum += job.taps[i] * x[n - job.positions[i]];
            job.y[static_cast<std::size_t>(n)] = sum;
        }
    });
}
void loopOfTaps(benchmark::State& run, Job job) {
    const float* const x = job.x.data() + job.newest();
    job.measure(run, [&] {
        float* const y = job.y.data();
        for (int n = 0; n < length; ++n) y[n] = 0;
        for (std::size_t i = 0; i < job.taps.size(); ++i) {
            const float* const from = x - job.positions[i];
            const float tap = job.taps[i];
            for (int n = 0; n < length; ++n) y[n] += tap * from[n];
        }
    });
}

// Half of the taps, but the one at 0, recursive.
void orbsIir(benchmark::State& run, Job job) {
    const int count = static_cast<int>(job.taps.size()), forward = count / 2, recursive = count - forward;
    std::vector<int> positions(job.positions.begin(), job.positions.begin() + forward);
    positions.insert(positions.end(), job.positions.begin() + 1, job.positions.begin() + 1 + recursive);
    int size = 0;
    orbsIIRSparseGetStateSize_32f(forward, recursive, positions[std::size_t(forward) - 1], positions.back(), &size);
    std::vector<Orb8u> buffer(static_cast<std::size_t>(size));
    OrbsIIRSparseState_32f* state = nullptr;
    orbsIIRSparseInit_32f(&state, job.taps.data(), positions.data(), forward, recursive, nullptr, buffer.data());
    const float* const x = job.x.data() + job.newest();
    job.measure(run, [&] { orbsIIRSparse_32f(x, job.y.data(), length, state); });
}
void loopOfIir(benchmark::State& run, Job job) {
    const std::size_t count = job.taps.size(), forward = count / 2;
    const float* const x = job.x.data() + job.newest();
    std::vector<float> outputs(job.newest() + length);
    job.measure(run, [&] {
        float* const y = outputs.data() + job.newest();
        for (int n = 0; n < length; ++n) {
            float sum = 0;
            for (std::size_t i = 0; i < forward; ++i) sum += job.taps[i] * x[n - job.positions[i]];
            for (std::size_t i = forward; i < count; ++i) sum += job.taps[i] * y[n - job.positions[i + 1 - forward]];
            y[n] = sum;
        }
        benchmark::DoNotOptimize(outputs.data());
    });
}

// Names: member(taps of all)/who/length

[[maybe_unused]] const bool registered = [] {
    const auto add = [](const std::string& name, auto body, int taps, int order) {
        const std::size_t slash = name.find('/');
        const std::string full = name.substr(0, slash) + "(" + std::to_string(taps) + "of" + std::to_string(order) +
                                 ")" + name.substr(slash) + "/" + std::to_string(length);
        benchmark::RegisterBenchmark(full.c_str(), [=](benchmark::State& run) { body(run, Job(taps, order)); });
    };
    for (const auto& [taps, order] : {std::pair{10, 1000}, std::pair{3, 100}, std::pair{50, 1000}}) {
        add("FIRSparse_32f/orbs", orbsFir, taps, order);
        add("FIRSparse_32f/loop", loopOfOutputs, taps, order);
        add("FIRSparse_32f/loop_by_taps", loopOfTaps, taps, order);
    }
    add("IIRSparse_32f/orbs", orbsIir, 10, 1000);
    add("IIRSparse_32f/loop", loopOfIir, 10, 1000);
    return true;
}();

} // namespace
