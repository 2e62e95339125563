// FIR filters that change the rate, beside liquid-dsp's, libsamplerate and soxr.
#include "orbs.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <liquid/liquid.h>
#include <random>
#include <samplerate.h>
#include <soxr.h>
#include <string>
#include <vector>

namespace {

template <class T>
std::vector<T> noise(std::size_t count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> uniform(-1, 1);
    std::vector<T> v(count);
    for (T& t : v) {
        if constexpr (requires { t.re; }) {
            t.re = static_cast<decltype(t.re)>(1000 * uniform(random));
            t.im = static_cast<decltype(t.im)>(1000 * uniform(random));
        } else {
            t = static_cast<T>(1000 * uniform(random));
        }
    }
    return v;
}

// Blocks of whole periods, of about `samples` samples.
struct Work {
    int up, down, tapsLen, samples;
    int periods() const { return samples / down; }
    std::size_t inputs() const { return static_cast<std::size_t>(periods() * down); }
    std::size_t outputs() const { return static_cast<std::size_t>(periods() * up); }
};

template <class Sample, class Body>
void measure(benchmark::State& run, const Work& work, Body body) {
    std::vector<Sample> x = noise<Sample>(work.inputs()), y(work.outputs() + 64);
    body(x.data(), y.data());
    for (auto _ : run) {
        body(x.data(), y.data());
        benchmark::DoNotOptimize(y.data());
        benchmark::ClobberMemory();
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(work.outputs()));
}

template <class State, class Tap, class Sample, class... Scale>
void orbsBlock(benchmark::State& run, const Work& work,
               OrbStatus (*initAlloc)(State**, const Tap*, int, int, int, int, int, const Sample*),
               OrbStatus (*call)(const Sample*, Sample*, int, State*, Scale...), OrbStatus (*release)(State*)) {
    const auto taps = noise<Tap>(static_cast<std::size_t>(work.tapsLen));
    State* state = nullptr;
    initAlloc(&state, taps.data(), work.tapsLen, work.up, 0, work.down, 0, nullptr);
    measure<Sample>(run, work, [&](Sample* x, Sample* y) { call(x, y, work.periods(), state, Scale{20}...); });
    release(state);
}

void orbsStateless(benchmark::State& run, const Work& work) {
    const auto taps = noise<Orb32f>(static_cast<std::size_t>(work.tapsLen));
    std::vector<Orb32f> line(taps.size());
    measure<Orb32f>(run, work, [&](Orb32f* x, Orb32f* y) {
        orbsFIRMR_Direct_32f(x, y, work.periods(), taps.data(), work.tapsLen, work.up, 0, work.down, 0, line.data());
    });
}

// What a compiler makes of the definition.
void loop(benchmark::State& run, const Work& work) {
    const auto taps = noise<Orb32f>(static_cast<std::size_t>(work.tapsLen));
    const int reach = (work.tapsLen - 1) / work.up;
    std::vector<Orb32f> stream(work.inputs() + static_cast<std::size_t>(reach));
    measure<Orb32f>(run, work, [&](Orb32f* x, Orb32f* y) {
        std::copy_n(x, work.inputs(), stream.data() + reach);
        for (int m = 0; m < static_cast<int>(work.outputs()); ++m) {
            const Orb32f* newest = stream.data() + reach + m * work.down / work.up;
            float sum = 0;
            for (int n = m * work.down % work.up; n < work.tapsLen; n += work.up)
                sum += taps[static_cast<std::size_t>(n)] * *newest--;
            y[m] = sum;
        }
    });
}

// Its rational resampler takes 2 * m taps a phase, its decimator and its interpolator take any filter.
void liquid(benchmark::State& run, const Work& work) {
    auto taps = noise<Orb32f>(static_cast<std::size_t>(work.tapsLen));
    const auto up = static_cast<unsigned>(work.up), down = static_cast<unsigned>(work.down);
    const auto tapsLen = static_cast<unsigned>(work.tapsLen), periods = static_cast<unsigned>(work.periods());
    if (up == 1) {
        firdecim_rrrf filter = firdecim_rrrf_create(down, taps.data(), tapsLen);
        measure<Orb32f>(run, work, [&](float* x, float* y) { firdecim_rrrf_execute_block(filter, x, periods, y); });
        firdecim_rrrf_destroy(filter);
    } else if (down == 1) {
        firinterp_rrrf filter = firinterp_rrrf_create(up, taps.data(), tapsLen);
        measure<Orb32f>(run, work, [&](float* x, float* y) { firinterp_rrrf_execute_block(filter, x, periods, y); });
        firinterp_rrrf_destroy(filter);
    } else {
        rresamp_rrrf filter = rresamp_rrrf_create(up, down, tapsLen / up / 2, taps.data());
        measure<Orb32f>(run, work, [&](float* x, float* y) { rresamp_rrrf_execute_block(filter, x, periods, y); });
        rresamp_rrrf_destroy(filter);
    }
}

// The fastest of its band-limited converters, whose filter has 97 dB.
void samplerate(benchmark::State& run, const Work& work) {
    int error = 0;
    SRC_STATE* const state = src_new(SRC_SINC_FASTEST, 1, &error);
    measure<Orb32f>(run, work, [&](float* x, float* y) {
        SRC_DATA data{};
        data.data_in = x;
        data.data_out = y;
        data.input_frames = static_cast<long>(work.inputs());
        data.output_frames = static_cast<long>(work.outputs() + 64);
        data.src_ratio = double(work.up) / work.down;
        src_process(state, &data);
    });
    src_delete(state);
}

// Filters for 16 bits.
void soxr(benchmark::State& run, const Work& work) {
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_LQ, 0);
    soxr_t resampler = soxr_create(work.down, work.up, 1, nullptr, nullptr, &quality, nullptr);
    measure<Orb32f>(run, work, [&](float* x, float* y) {
        std::size_t taken = 0, made = 0;
        soxr_process(resampler, x, work.inputs(), &taken, y, work.outputs() + 64, &made);
    });
    soxr_delete(resampler);
}

// ---- Names: member(rates by taps)/who/samples ----

template <class Body, class... Members>
void add(const std::string& member, const std::string& who, const Work& work, Body body, Members... members) {
    const std::string name = member + "(" + std::to_string(work.up) + ":" + std::to_string(work.down) + " by " +
                             std::to_string(work.tapsLen) + ")/" + who + "/" + std::to_string(work.samples);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) { body(run, work, members...); });
}

#define BLOCK(pair, call) orbsFIRMRInitAlloc##pair, call, orbsFIRFree##pair

[[maybe_unused]] const bool registered = [] {
    // 10 ms at 48 kHz, and long ones.
    for (const int samples : {480, 65536}) {
        for (const Work& work : {Work{160, 147, 160 * 32, samples}, Work{1, 4, 32, samples}, Work{1, 4, 128, samples},
                                 Work{4, 1, 128, samples}}) {
            add("FIRMR_32f", "orbs", work, [](auto&... a) { orbsBlock(a..., BLOCK(_32f, orbsFIR_32f)); });
            add("FIRMR_32f", "liquid", work, liquid);
            add("FIRMR_32f", "samplerate", work, samplerate);
            add("FIRMR_32f", "soxr", work, soxr);
            add("FIRMR_32f", "loop", work, loop);
            add("FIRMR_32fc", "orbs", work, [](auto&... a) { orbsBlock(a..., BLOCK(_32fc, orbsFIR_32fc)); });
            add("FIRMR_64f", "orbs", work, [](auto&... a) { orbsBlock(a..., BLOCK(_64f, orbsFIR_64f)); });
            add("FIRMR32f_16s", "orbs", work, [](auto&... a) { orbsBlock(a..., BLOCK(32f_16s, orbsFIR32f_16s_Sfs)); });
            add("FIRMR_Direct_32f", "orbs", work, orbsStateless);
            add("FIRMR_Direct_32f", "loop", work, loop);
        }
    }
    // Few taps a phase.
    for (const Work& work : {Work{3, 2, 9, 4096}, Work{8, 1, 32, 4096}, Work{1, 2, 3, 4096}}) {
        add("FIRMR_32f", "orbs", work, [](auto&... a) { orbsBlock(a..., BLOCK(_32f, orbsFIR_32f)); });
        add("FIRMR_32f", "loop", work, loop);
    }
    return true;
}();

} // namespace
