// FIR filters with 16-bit taps: blocks, single samples, changes of the rate, calls without a state, beside plain loops.
#include "orbs.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

namespace {

template <class T>
std::vector<T> noise(int count, int bits) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> uniform(-(1 << bits), (1 << bits) - 1);
    std::vector<T> v(static_cast<std::size_t>(count));
    for (T& t : v) {
        if constexpr (requires { t.re; }) {
            t = {static_cast<decltype(t.re)>(uniform(random)), static_cast<decltype(t.re)>(uniform(random))};
        } else {
            t = static_cast<T>(uniform(random));
        }
    }
    return v;
}

// Rounded as the members do.
Orb16s scaled(int sum, int s) {
    const int rounded = (sum + (1 << (s - 1)) - 1 + (sum >> s & 1)) >> s;
    return static_cast<Orb16s>(std::clamp(rounded, -32768, 32767));
}
constexpr int shift = 18;

struct Rate {
    int up, down;
};

// numIters periods of a filter.
template <class T, class Tap>
struct Job {
    Job(int tapsLen, int periods, Rate rate)
        : taps(noise<Tap>(tapsLen, 14)), x(noise<T>(tapsLen + periods * rate.down, 12)),
          y(static_cast<std::size_t>(periods * rate.up)), numIters(periods) {}
    std::vector<Tap> taps;
    std::vector<T> x, y;
    int numIters;
    int tapsLen() const { return static_cast<int>(taps.size()); }
    const T* block() const { return x.data() + taps.size(); } // behind a history of tapsLen samples

    template <class Body>
    void measure(benchmark::State& run, Body body) {
        body();
        for (auto _ : run) {
            body();
            benchmark::DoNotOptimize(y.data());
            benchmark::ClobberMemory();
        }
        run.SetItemsProcessed(run.iterations() * static_cast<int>(y.size()));
    }
};

// ---- orbs ----

template <class T, class Tap, auto initAlloc, auto call, auto release>
void orbsBlock(benchmark::State& run, int tapsLen, int numIters, Rate rate) {
    Job<T, Tap> job(tapsLen, numIters, rate);
    decltype([]<class S>(OrbStatus (*)(S*)) -> S* { return nullptr; }(release)) state = nullptr;
    initAlloc(&state, job.taps.data(), tapsLen, 0, rate.up, 0, rate.down, 0, nullptr);
    job.measure(run, [&] { call(job.block(), job.y.data(), numIters, state, shift); });
    release(state);
}
constexpr auto block16s = orbsBlock<Orb16s, Orb32s, orbsFIRMRInitAlloc32s_16s, orbsFIR32s_16s_Sfs, orbsFIRFree32s_16s>;
constexpr auto block16sc =
    orbsBlock<Orb16sc, Orb32sc, orbsFIRMRInitAlloc32sc_16sc, orbsFIR32sc_16sc_Sfs, orbsFIRFree32sc_16sc>;

void orbsOne(benchmark::State& run, int tapsLen, int count, Rate) {
    Job<Orb16s, Orb32s> job(tapsLen, count, {1, 1});
    OrbsFIRState32s_16s* state = nullptr;
    orbsFIRInitAlloc32s_16s(&state, job.taps.data(), tapsLen, 0, nullptr);
    job.measure(run, [&] {
        for (int n = 0; n < count; ++n) orbsFIROne32s_16s_Sfs(job.block()[n], &job.y[std::size_t(n)], state, shift);
    });
    orbsFIRFree32s_16s(state);
}

void orbsQ15(benchmark::State& run, int tapsLen, int count, Rate) {
    Job<Orb16s, Orb16s> job(tapsLen, count, {1, 1});
    std::vector<Orb16s> line(2 * job.taps.size());
    int index = 0;
    job.measure(run, [&] {
        orbsFIR_Direct_16s_Sfs(job.block(), job.y.data(), count, job.taps.data(), tapsLen, line.data(), &index,
                               shift - 15);
    });
}

void orbsDirect(benchmark::State& run, int tapsLen, int count, Rate) {
    Job<Orb16s, Orb32s> job(tapsLen, count, {1, 1});
    std::vector<Orb16s> line(2 * job.taps.size());
    int index = 0;
    job.measure(run, [&] {
        orbsFIR32s_Direct_16s_Sfs(job.block(), job.y.data(), count, job.taps.data(), tapsLen, 0, line.data(), &index,
                                  shift);
    });
}

void orbsMultiRateDirect(benchmark::State& run, int tapsLen, int numIters, Rate rate) {
    Job<Orb16s, Orb32s> job(tapsLen, numIters, rate);
    std::vector<Orb16s> line(job.taps.size());
    job.measure(run, [&] {
        orbsFIRMR32s_Direct_16s_Sfs(job.block(), job.y.data(), numIters, job.taps.data(), tapsLen, 0, rate.up, 0,
                                    rate.down, 0, line.data(), shift);
    });
}

// ---- Plain loops: each output over the taps that it meets ----

template <class T, class Tap>
void loop(benchmark::State& run, int tapsLen, int numIters, Rate rate) {
    Job<T, Tap> job(tapsLen, numIters, rate);
    const Tap* const taps = job.taps.data();
    const int up = rate.up;
    job.measure(run, [&] {
        int at = 0;
        const T* newest = job.block();
        for (T& y : job.y) {
            if constexpr (requires(T t) { t.re; }) {
                int re = 0, im = 0;
                for (int k = at, j = 0; k < tapsLen; k += up, ++j) {
                    const Tap h = taps[k];
                    const T x = newest[-j];
                    re += h.re * x.re - h.im * x.im;
                    im += h.re * x.im + h.im * x.re;
                }
                y = {scaled(re, shift), scaled(im, shift)};
            } else {
                int sum = 0;
                for (int k = at, j = 0; k < tapsLen; k += up, ++j) sum += taps[k] * newest[-j];
                y = scaled(sum, shift);
            }
            for (at += rate.down; at >= up; at -= up) ++newest;
        }
    });
}
// Of one rate, with taps of 16 bits, the oldest sample's first.
void loop16(benchmark::State& run, int tapsLen, int count, Rate) {
    Job<Orb16s, Orb16s> job(tapsLen, count, {1, 1});
    const Orb16s* const taps = job.taps.data();
    job.measure(run, [&] {
        for (int n = 0; n < count; ++n) {
            const Orb16s* const oldest = job.block() + n + 1 - tapsLen;
            int sum = 0;
            for (int k = 0; k < tapsLen; ++k) sum += taps[k] * oldest[k];
            job.y[std::size_t(n)] = scaled(sum, shift);
        }
    });
}

// ---- Names: member(taps)/who/outputs ----

template <class Body>
void add(const std::string& family, const std::string& who, Body body, int tapsLen, int numIters, Rate rate = {1, 1}) {
    const std::string name =
        family + "(" + std::to_string(tapsLen) + ")/" + who + "/" + std::to_string(numIters * rate.up);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) { body(run, tapsLen, numIters, rate); });
}

[[maybe_unused]] const bool registered = [] {
    for (const int count : {64, 4096}) {
        for (const int tapsLen : {8, 32, 128}) {
            add("FIR32s_16s_Sfs", "orbs", block16s, tapsLen, count);
            add("FIR32s_16s_Sfs", "loop", loop16, tapsLen, count);
        }
        add("FIR32sc_16sc_Sfs", "orbs", block16sc, 32, count);
        add("FIR32sc_16sc_Sfs", "loop", loop<Orb16sc, Orb16sc>, 32, count);
        add("FIR_Direct_16s_Sfs", "orbs", orbsQ15, 32, count);
        add("FIR_Direct_16s_Sfs", "loop", loop16, 32, count);
        add("FIR32s_Direct_16s_Sfs", "orbs", orbsDirect, 32, count);
        add("FIR32s_Direct_16s_Sfs", "loop", loop<Orb16s, Orb32s>, 32, count);
    }
    add("FIROne32s_16s_Sfs", "orbs", orbsOne, 32, 4096);
    const struct {
        const char* name;
        Rate rate;
        int tapsLen, numIters;
    } changes[] = {{"1:4", {1, 4}, 128, 4096}, {"4:1", {4, 1}, 128, 1024}, {"160:147", {160, 147}, 5120, 26}};
    for (const auto& change : changes) {
        const auto family = [&](const char* member) { return std::string(member) + "_" + change.name; };
        add(family("FIRMR32s_16s"), "orbs", block16s, change.tapsLen, change.numIters, change.rate);
        add(family("FIRMR32s_16s"), "loop", loop<Orb16s, Orb16s>, change.tapsLen, change.numIters, change.rate);
        add(family("FIRMR32sc_16sc"), "orbs", block16sc, change.tapsLen, change.numIters, change.rate);
        add(family("FIRMR32sc_16sc"), "loop", loop<Orb16sc, Orb16sc>, change.tapsLen, change.numIters, change.rate);
        add(family("FIRMR32s_Direct_16s"), "orbs", orbsMultiRateDirect, change.tapsLen, change.numIters, change.rate);
        add(family("FIRMR32s_Direct_16s"), "loop", loop<Orb16s, Orb32s>, change.tapsLen, change.numIters, change.rate);
    }
    return true;
}();

} // namespace
