// IIR filters: one of any order and cascades of sections, on noise and on a tail that fades away, beside scalar loops
// and liquid-dsp.
#include "orbs.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <liquid/liquid.h>
#include <numbers>
#include <random>
#include <string>
#include <vector>
#include <xmmintrin.h>

namespace {

template <class T>
std::vector<T> noise(std::size_t count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> uniform(-1, 1);
    std::vector<T> v(count);
    for (T& t : v) t = static_cast<T>(uniform(random) * (std::is_integral_v<T> ? 8192 : 1));
    return v;
}
template <class T>
std::vector<T> pulse(std::size_t count) {
    std::vector<T> v(count);
    v[0] = 1;
    return v;
}

// b0, b1, b2, 1, a1, a2 of sections whose poles lie at 0.9, spread over the band.
template <class Tap>
std::vector<Tap> sectionTaps(int sections) {
    std::vector<Tap> taps;
    for (int s = 0; s < sections; ++s) {
        const double angle = std::numbers::pi * (s + 0.5) / sections;
        for (const double t : {0.3, 0.1, 0.2, 1.0, -1.8 * std::cos(angle), 0.81}) taps.push_back(static_cast<Tap>(t));
    }
    return taps;
}
// b[0] .. b[order], 1, a[1] .. a[order] of the same poles.
template <class Tap>
std::vector<Tap> filterTaps(int order) {
    std::vector<double> a{1};
    for (int s = 0; s < order / 2; ++s) {
        const double angle = std::numbers::pi * (2 * s + 1) / order, factor[] = {1, -1.8 * std::cos(angle), 0.81};
        std::vector<double> product(a.size() + 2);
        for (std::size_t i = 0; i < a.size(); ++i)
            for (std::size_t k = 0; k < 3; ++k) product[i + k] += a[i] * factor[k];
        a = product;
    }
    std::vector<Tap> taps(static_cast<std::size_t>(order) + 1, Tap(0.1));
    taps.insert(taps.end(), a.begin(), a.end());
    return taps;
}

template <class Sample>
struct Job {
    std::vector<Sample> x, y = std::vector<Sample>(x.size());
    bool flushed = false; // denormals are zeros
    int count() const { return static_cast<int>(x.size()); }

    template <class Body>
    void measure(benchmark::State& run, Body body) {
        const unsigned control = _mm_getcsr();
        if (flushed) _mm_setcsr(control | 0x8040);
        body();
        for (auto _ : run) {
            body();
            benchmark::DoNotOptimize(y.data());
            benchmark::ClobberMemory();
        }
        _mm_setcsr(control);
        run.SetItemsProcessed(run.iterations() * count());
    }
};

// ---- orbs ----

template <auto initAlloc, auto call, auto release, class Tap, class Sample>
void orbs(benchmark::State& run, Job<Sample> job, const std::vector<Tap>& taps, int size) {
    decltype([]<class S>(OrbStatus (*)(S*)) -> S* { return nullptr; }(release)) state = nullptr;
    initAlloc(&state, taps.data(), size, nullptr);
    job.measure(run, [&] {
        if constexpr (std::is_integral_v<Sample>) {
            call(job.x.data(), job.y.data(), job.count(), state, 1);
        } else {
            call(job.x.data(), job.y.data(), job.count(), state);
        }
    });
    release(state);
}

// ---- Scalar loops, in the transposed direct form II ----

template <class Sample, class Tap>
Sample output(Tap y) {
    if constexpr (std::is_integral_v<Sample>) {
        return static_cast<Sample>(std::clamp<Tap>(std::nearbyint(y * Tap(0.5)), -32768, 32767));
    } else {
        return static_cast<Sample>(y);
    }
}

// All sections for a sample, as many as the compiler knows: three times as fast as section by section over a block.
template <int sections, class Tap, class Sample>
void loopOfSections(benchmark::State& run, Job<Sample> job, const std::vector<Tap>& taps, int) {
    Tap D[2 * sections] = {};
    job.measure(run, [&] {
        for (std::size_t n = 0; n < job.x.size(); ++n) {
            Tap y = job.x[n];
            for (int s = 0; s < sections; ++s) {
                const Tap *const t = &taps[std::size_t(6 * s)], x = y;
                y = t[0] * x + D[2 * s];
                D[2 * s] = t[1] * x - t[4] * y + D[2 * s + 1];
                D[2 * s + 1] = t[2] * x - t[5] * y;
            }
            job.y[n] = output<Sample>(y);
        }
    });
}

// Of an order that the compiler knows.
template <int order, class Tap, class Sample>
void loopOfOrder(benchmark::State& run, Job<Sample> job, const std::vector<Tap>& taps, int) {
    const Tap *const b = taps.data(), *const a = b + order + 1;
    Tap D[order + 1] = {};
    job.measure(run, [&] {
        for (std::size_t n = 0; n < job.x.size(); ++n) {
            const Tap x = job.x[n], y = b[0] * x + D[0];
            for (int i = 0; i < order; ++i) D[i] = b[i + 1] * x - a[i + 1] * y + D[i + 1];
            job.y[n] = output<Sample>(y);
        }
    });
}

// ---- liquid-dsp ----

void measureLiquid(benchmark::State& run, Job<Orb32f>& job, iirfilt_rrrf filter) {
    job.measure(run, [&] { iirfilt_rrrf_execute_block(filter, job.x.data(), unsigned(job.count()), job.y.data()); });
    iirfilt_rrrf_destroy(filter);
}
void liquidSections(benchmark::State& run, Job<Orb32f> job, const std::vector<Orb32f>& taps, int sections) {
    std::vector<float> b, a;
    for (std::size_t k = 0; k < taps.size(); ++k) (k % 6 < 3 ? b : a).push_back(taps[k]);
    measureLiquid(run, job, iirfilt_rrrf_create_sos(b.data(), a.data(), unsigned(sections)));
}
void liquidOrder(benchmark::State& run, Job<Orb32f> job, std::vector<Orb32f> taps, int order) {
    const auto count = static_cast<unsigned>(order) + 1;
    measureLiquid(run, job, iirfilt_rrrf_create(taps.data(), count, taps.data() + count, count));
}

// ---- Without a state, single samples ----

void orbsDirect(benchmark::State& run, Job<Orb16s> job, const std::vector<Orb16s>& taps, int size) {
    std::vector<Orb32s> D(static_cast<std::size_t>(size));
    job.measure(run, [&] { orbsIIR_Direct_16s(job.x.data(), job.y.data(), job.count(), taps.data(), size, D.data()); });
}
void orbsOne(benchmark::State& run, Job<Orb32f> job, const std::vector<Orb32f>& taps, int sections) {
    OrbsIIRState_32f* state = nullptr;
    orbsIIRInitAlloc_BiQuad_32f(&state, taps.data(), sections, nullptr);
    job.measure(run, [&] {
        for (std::size_t n = 0; n < job.x.size(); ++n) orbsIIROne_32f(job.x[n], &job.y[n], state);
    });
    orbsIIRFree_32f(state);
}
void liquidOne(benchmark::State& run, Job<Orb32f> job, const std::vector<Orb32f>& taps, int sections) {
    std::vector<float> b, a;
    for (std::size_t k = 0; k < taps.size(); ++k) (k % 6 < 3 ? b : a).push_back(taps[k]);
    iirfilt_rrrf filter = iirfilt_rrrf_create_sos(b.data(), a.data(), unsigned(sections));
    job.measure(run, [&] {
        for (std::size_t n = 0; n < job.x.size(); ++n) iirfilt_rrrf_execute(filter, job.x[n], &job.y[n]);
    });
    iirfilt_rrrf_destroy(filter);
}

// ---- Names: member(filter)/who/length ----

constexpr int length = 4096;

template <class Body, class Sample, class Tap>
void add(const std::string& family, const std::string& who, Body body, const std::vector<Sample>& x,
         const std::vector<Tap>& taps, int size, bool flushed = false) {
    const std::string name = family + "/" + who + "/" + std::to_string(x.size());
    benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& run) { body(run, Job<Sample>{.x = x, .flushed = flushed}, taps, size); });
}

template <int size, auto initAlloc, auto initAllocBiQuad, auto call, auto release, class Tap, class Sample>
void addSize(const std::string& member) {
    const auto x = noise<Sample>(length);
    const std::string count = std::to_string(size);
    const auto filter = filterTaps<Tap>(size), cascade = sectionTaps<Tap>(size);
    if (size > 1) {
        add(member + "(AR" + count + ")", "orbs", orbs<initAlloc, call, release, Tap, Sample>, x, filter, size);
        add(member + "(AR" + count + ")", "loop", loopOfOrder<size, Tap, Sample>, x, filter, size);
    }
    if (size != 2) {
        const std::string name = member + "(BiQuad" + count + ")";
        add(name, "orbs", orbs<initAllocBiQuad, call, release, Tap, Sample>, x, cascade, size);
        add(name, "loop", loopOfSections<size, Tap, Sample>, x, cascade, size);
    }
    if constexpr (std::is_same_v<Tap, Orb32f> && std::is_same_v<Sample, Orb32f>) {
        if (size > 1) add(member + "(AR" + count + ")", "liquid", liquidOrder, x, filter, size);
        if (size != 2) add(member + "(BiQuad" + count + ")", "liquid", liquidSections, x, cascade, size);
    }
}
template <auto... members>
void addSizes(const std::string& member, auto tap, auto sample) {
    using Tap = decltype(tap);
    using Sample = decltype(sample);
    addSize<1, members..., Tap, Sample>(member);
    addSize<2, members..., Tap, Sample>(member);
    addSize<4, members..., Tap, Sample>(member);
    addSize<8, members..., Tap, Sample>(member);
}

[[maybe_unused]] const bool registered = [] {
    addSizes<orbsIIRInitAlloc_32f, orbsIIRInitAlloc_BiQuad_32f, orbsIIR_32f, orbsIIRFree_32f>("IIR_32f", Orb32f(),
                                                                                              Orb32f());
    addSizes<orbsIIRInitAlloc_64f, orbsIIRInitAlloc_BiQuad_64f, orbsIIR_64f, orbsIIRFree_64f>("IIR_64f", Orb64f(),
                                                                                              Orb64f());
    addSizes<orbsIIRInitAlloc32f_16s, orbsIIRInitAlloc32f_BiQuad_16s, orbsIIR32f_16s_Sfs, orbsIIRFree32f_16s>(
        "IIR32f_16s", Orb32f(), Orb16s());
    addSizes<orbsIIRInitAlloc64f_16s, orbsIIRInitAlloc64f_BiQuad_16s, orbsIIR64f_16s_Sfs, orbsIIRFree64f_16s>(
        "IIR64f_16s", Orb64f(), Orb16s());

    // Single precision ends some 800 samples behind the pulse; what follows are denormals, unless they are flushed.
    const auto taps = sectionTaps<Orb32f>(1);
    constexpr auto block = orbs<orbsIIRInitAlloc_BiQuad_32f, orbsIIR_32f, orbsIIRFree_32f, Orb32f, Orb32f>;
    const auto tail = pulse<Orb32f>(length);
    for (const bool flushed : {false, true}) {
        const std::string name = flushed ? "IIR_32f(BiQuad1,flushed)" : "IIR_32f(BiQuad1,tail)";
        add(name, "orbs", block, tail, taps, 1, flushed);
        add(name, "loop", loopOfSections<1, Orb32f, Orb32f>, tail, taps, 1, flushed);
    }
    add("IIROne_32f(BiQuad1)", "orbs", orbsOne, noise<Orb32f>(length), taps, 1);
    add("IIROne_32f(BiQuad1)", "liquid", liquidOne, noise<Orb32f>(length), taps, 1);
    const std::vector<Orb16s> integers{4096, 0, 4096, 14, -20000, 13000};
    add("IIR_Direct_16s(AR2)", "orbs", orbsDirect, noise<Orb16s>(length), integers, 2);
    const std::vector<Orb32f> floats{0.25f, 0, 0.25f, 1, -20000 / 16384.f, 13000 / 16384.f};
    add("IIR_Direct_16s(AR2)", "loop", loopOfOrder<2, Orb32f, Orb16s>, noise<Orb16s>(length), floats, 2);
    return true;
}();

} // namespace
