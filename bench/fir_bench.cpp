// FIR filters: blocks, single samples and calls without a state, beside plain loops, tiles by hand, liquid-dsp and
// overlap-save on FFTW; and samples of 16 bits beside conversions by hand.
#include "orbs.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <complex>
#include <cstring>
#include <fftw3.h>
#include <liquid/liquid.h>
#include <random>
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
            t.re = uniform(random), t.im = uniform(random);
        } else {
            t = uniform(random);
        }
    }
    return v;
}

template <class T>
struct Job {
    Job(int tapsLen, int count)
        : taps(noise<T>(std::size_t(tapsLen))), x(noise<T>(std::size_t(tapsLen + count))), y(std::size_t(count)) {}
    std::vector<T> taps, x, y;
    int tapsLen() const { return static_cast<int>(taps.size()); }
    int count() const { return static_cast<int>(y.size()); }
    const T* block() const { return x.data() + taps.size(); } // behind a history of tapsLen samples

    template <class Body>
    void measure(benchmark::State& run, Body body) {
        body();
        for (auto _ : run) {
            body();
            benchmark::DoNotOptimize(y.data());
            benchmark::ClobberMemory();
        }
        run.SetItemsProcessed(run.iterations() * count());
    }
};

// ---- orbs ----

template <class T, auto initAlloc, auto call, auto release>
void orbsBlock(benchmark::State& run, int tapsLen, int count) {
    Job<T> job(tapsLen, count);
    decltype([]<class S>(OrbStatus (*)(S*)) -> S* { return nullptr; }(release)) state = nullptr;
    initAlloc(&state, job.taps.data(), tapsLen, nullptr);
    job.measure(run, [&] { call(job.block(), job.y.data(), count, state); });
    release(state);
}

template <class State>
struct InBuffer {
    InBuffer(auto getSize, auto init, const auto& taps) {
        int size = 0;
        getSize(static_cast<int>(taps.size()), &size);
        buffer.resize(static_cast<std::size_t>(size));
        init(&state, taps.data(), static_cast<int>(taps.size()), nullptr, buffer.data());
    }
    State* state = nullptr; // without an FFT, however many taps
    std::vector<Orb8u> buffer;
};

template <class T, class State, auto getSize, auto init, auto call>
void orbsDirect(benchmark::State& run, int tapsLen, int count) {
    Job<T> job(tapsLen, count);
    InBuffer<State> filter(getSize, init, job.taps);
    job.measure(run, [&] { call(job.block(), job.y.data(), count, filter.state); });
}

std::vector<Orb16s> samples16(int count) {
    std::vector<Orb16s> x(static_cast<std::size_t>(count));
    for (std::size_t n = 0; n < x.size(); ++n) x[n] = static_cast<Orb16s>(n * 7919 % 20000 - 10000);
    return x;
}

template <class T, class State, auto getSize, auto init, auto call>
void orbs16s(benchmark::State& run, int tapsLen, int count) {
    Job<T> job(tapsLen, count);
    auto x = samples16(count), y = x;
    InBuffer<State> filter(getSize, init, job.taps);
    job.measure(run, [&] { call(x.data(), y.data(), count, filter.state, 3); });
}

// Samples to the type of the taps, the filter of that type, and back; from doubles to 16 bits by way of 32.
template <class T, class State, auto getSize, auto init, auto call>
void orbs16sByHand(benchmark::State& run, int tapsLen, int count) {
    Job<T> job(tapsLen, count);
    auto x = samples16(count), y = x;
    std::vector<Orb32s> between(x.size());
    InBuffer<State> filter(getSize, init, job.taps);
    job.measure(run, [&] {
        if constexpr (sizeof(T) == 4) {
            orbsConvert_16s32f(x.data(), job.x.data(), count);
            call(job.x.data(), job.y.data(), count, filter.state);
            orbsConvert_32f16s_Sfs(job.y.data(), y.data(), count, orbRndNear, 3);
        } else {
            orbsConvert_16s64f_Sfs(x.data(), job.x.data(), count, 0);
            call(job.x.data(), job.y.data(), count, filter.state);
            orbsConvert_64f32s_Sfs(job.y.data(), between.data(), count, orbRndNear, 3);
            orbsConvert_32s16s(between.data(), y.data(), count);
        }
    });
}

void orbsInPlace(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    OrbsFIRState_32f* state = nullptr;
    orbsFIRInitAlloc_32f(&state, job.taps.data(), tapsLen, nullptr);
    job.measure(run, [&] {
        std::copy_n(job.block(), count, job.y.data());
        orbsFIR_32f_I(job.y.data(), count, state);
    });
    orbsFIRFree_32f(state);
}

void orbsOne(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    OrbsFIRState_32f* state = nullptr;
    orbsFIRInitAlloc_32f(&state, job.taps.data(), tapsLen, nullptr);
    job.measure(run, [&] {
        for (int n = 0; n < count; ++n) orbsFIROne_32f(job.block()[n], &job.y[std::size_t(n)], state);
    });
    orbsFIRFree_32f(state);
}

void orbsStateless(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    std::vector<Orb32f> line(2 * job.taps.size());
    int index = 0;
    job.measure(run, [&] {
        orbsFIR_Direct_32f(job.block(), job.y.data(), count, job.taps.data(), tapsLen, line.data(), &index);
    });
}

// ---- Plain loops ----

// Sum is the type of the sums; a complex element is written out in its parts.
template <class T, class Sum>
void loopBlock(benchmark::State& run, int tapsLen, int count) {
    Job<T> job(tapsLen, count);
    job.measure(run, [&] {
        for (int n = 0; n < count; ++n) {
            const T* const newest = job.block() + n;
            if constexpr (requires(T t) { t.re; }) {
                Sum re = 0, im = 0;
                for (int k = 0; k < tapsLen; ++k) {
                    const T h = job.taps[std::size_t(k)], x = newest[-k];
                    re += h.re * x.re - h.im * x.im;
                    im += h.re * x.im + h.im * x.re;
                }
                job.y[std::size_t(n)] = {re, im};
            } else {
                Sum sum = 0;
                for (int k = 0; k < tapsLen; ++k) sum += Sum(job.taps[std::size_t(k)] * newest[-k]);
                job.y[std::size_t(n)] = static_cast<T>(sum);
            }
        }
    });
}

// ---- Tiles by hand ----

#if defined(__AVX512F__)
constexpr int vectorBytes = 64;
#elif defined(__AVX__)
constexpr int vectorBytes = 32;
#else
constexpr int vectorBytes = 16;
#endif

template <class T>
struct Vectors {
    typedef T Any __attribute__((vector_size(vectorBytes)));
    typedef T Unaligned __attribute__((vector_size(vectorBytes), aligned(sizeof(T)), may_alias));
    static constexpr int lanes = vectorBytes / int(sizeof(T));
};

// Eight rows of outputs by four taps: 11 loads over 32 multiplications and additions. The samples lie dealt out to
// eight rows beforehand and the outputs stay in rows, so this is the arithmetic alone.
template <class T>
void tiledBlock(benchmark::State& run, int tapsLen, int count) {
    using V = typename Vectors<T>::Any;
    using Unaligned = typename Vectors<T>::Unaligned;
    Job<T> job(tapsLen, count);
    const int rowLength = (count + tapsLen) / 8 + 16;
    const auto rows = noise<T>(std::size_t(8 * rowLength));
    job.measure(run, [&] {
        for (int n = 0; n < count / 8; n += Vectors<T>::lanes) {
            V sums[8] = {};
            for (int k = 0; k < tapsLen; k += 8) {
#pragma GCC unroll 2
                for (int half = 0; half < 8; half += 4) {
                    const T* const h = job.taps.data() + k + half;
                    const V taps[4] = {V{} + h[0], V{} + h[1], V{} + h[2], V{} + h[3]};
#pragma GCC unroll 11
                    for (int s = 0; s < 11; ++s) {
                        const int at = (half + s) % 8 * rowLength + n + k / 8 + (half + s) / 8;
                        const V x = *reinterpret_cast<const Unaligned*>(&rows[std::size_t(at)]);
#pragma GCC unroll 4
                        for (int q = 0; q < 4; ++q)
                            if (s >= q && s - q < 8) sums[s - q] += taps[q] * x;
                    }
                }
            }
            for (int r = 0; r < 8; ++r) *reinterpret_cast<Unaligned*>(&job.y[std::size_t(r * count / 8 + n)]) = sums[r];
        }
    });
}

// Complex: four rows of outputs in two planes by two taps, 10 loads over 32 multiplications and additions.
void tiledBlock32fc(benchmark::State& run, int tapsLen, int count) {
    using V = Vectors<Orb32f>::Any;
    using Unaligned = Vectors<Orb32f>::Unaligned;
    Job<Orb32fc> job(tapsLen, count);
    const int rowLength = (count + tapsLen) / 4 + 16;
    const auto planes = noise<Orb32f>(std::size_t(8 * rowLength));
    job.measure(run, [&] {
        Orb32f* const y = &job.y[0].re;
        for (int n = 0; n < count / 4; n += Vectors<Orb32f>::lanes) {
            V re[4] = {}, im[4] = {};
            for (int k = 0; k < tapsLen; k += 4) {
#pragma GCC unroll 2
                for (int half = 0; half < 4; half += 2) {
                    const Orb32fc* const h = job.taps.data() + k + half;
#pragma GCC unroll 5
                    for (int s = 0; s < 5; ++s) {
                        const int at = (half + s) % 4 * rowLength + n + k / 4 + (half + s) / 4;
                        const V a = *reinterpret_cast<const Unaligned*>(&planes[std::size_t(at)]);
                        const V b = *reinterpret_cast<const Unaligned*>(&planes[std::size_t(at + 4 * rowLength)]);
#pragma GCC unroll 2
                        for (int q = 0; q < 2; ++q) {
                            if (s < q || s - q >= 4) continue;
                            re[s - q] += a * h[q].re;
                            im[s - q] += b * h[q].re;
                            re[s - q] -= b * h[q].im;
                            im[s - q] += a * h[q].im;
                        }
                    }
                }
            }
            for (int r = 0; r < 4; ++r) {
                *reinterpret_cast<Unaligned*>(y + r * count / 2 + n) = re[r];
                *reinterpret_cast<Unaligned*>(y + r * count / 2 + count / 4 + n) = im[r];
            }
        }
    });
}

// ---- liquid-dsp ----

void liquidBlock32f(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    firfilt_rrrf filter = firfilt_rrrf_create(job.taps.data(), unsigned(tapsLen));
    job.measure(run,
                [&] { firfilt_rrrf_execute_block(filter, job.x.data() + tapsLen, unsigned(count), job.y.data()); });
    firfilt_rrrf_destroy(filter);
}

void liquidBlock32fc(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32fc> job(tapsLen, count);
    const auto complex = [](Orb32fc* p) { return reinterpret_cast<std::complex<float>*>(p); };
    firfilt_cccf filter = firfilt_cccf_create(complex(job.taps.data()), unsigned(tapsLen));
    job.measure(run, [&] {
        firfilt_cccf_execute_block(filter, complex(job.x.data() + tapsLen), unsigned(count), complex(job.y.data()));
    });
    firfilt_cccf_destroy(filter);
}

void liquidOne(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    firfilt_rrrf filter = firfilt_rrrf_create(job.taps.data(), unsigned(tapsLen));
    job.measure(run, [&] {
        for (int n = 0; n < count; ++n) {
            firfilt_rrrf_push(filter, job.block()[n]);
            firfilt_rrrf_execute(filter, &job.y[std::size_t(n)]);
        }
    });
    firfilt_rrrf_destroy(filter);
}

// Its transforms have twice the length of its blocks.
void liquidFft32f(benchmark::State& run, int tapsLen, int count, int block) {
    Job<Orb32f> job(tapsLen, count);
    fftfilt_rrrf filter = fftfilt_rrrf_create(job.taps.data(), unsigned(tapsLen), unsigned(block));
    job.measure(run, [&] {
        for (int n = 0; n < count; n += block)
            fftfilt_rrrf_execute(filter, job.x.data() + tapsLen + n, job.y.data() + n);
    });
    fftfilt_rrrf_destroy(filter);
}

// ---- Overlap-save by hand on FFTW, with the same length of transform ----

int transformLength(int tapsLen) {
    int length = 8;
    while (length / 2 <= tapsLen) length *= 2;
    return length;
}

void fftw32f(benchmark::State& run, int tapsLen, int count) {
    Job<Orb32f> job(tapsLen, count);
    const int N = transformLength(tapsLen), history = tapsLen - 1, step = N - history;
    float* const block = fftwf_alloc_real(std::size_t(N));
    auto* const spectrum = reinterpret_cast<std::complex<float>*>(fftwf_alloc_complex(std::size_t(N / 2 + 1)));
    auto* const bins = reinterpret_cast<fftwf_complex*>(spectrum);
    fftwf_plan forward = fftwf_plan_dft_r2c_1d(N, block, bins, FFTW_MEASURE);
    fftwf_plan inverse = fftwf_plan_dft_c2r_1d(N, bins, block, FFTW_MEASURE);
    std::fill_n(block, N, 0.0f);
    std::copy_n(job.taps.data(), tapsLen, block);
    fftwf_execute(forward);
    std::vector<std::complex<float>> taps(spectrum, spectrum + N / 2 + 1);
    for (auto& bin : taps) bin /= static_cast<float>(N);
    job.measure(run, [&] {
        for (int n = 0; n < count; n += step) {
            const int outputs = std::min(step, count - n);
            std::copy_n(job.block() + n - history, history + outputs, block);
            std::fill(block + history + outputs, block + N, 0.0f);
            fftwf_execute(forward);
            for (int k = 0; k <= N / 2; ++k) {
                const float re = bins[k][0], im = bins[k][1], a = taps[std::size_t(k)].real(),
                            b = taps[std::size_t(k)].imag();
                bins[k][0] = re * a - im * b;
                bins[k][1] = re * b + im * a;
            }
            fftwf_execute(inverse);
            std::copy_n(block + history, outputs, job.y.data() + n);
        }
    });
    fftwf_destroy_plan(forward);
    fftwf_destroy_plan(inverse);
    fftwf_free(block);
    fftwf_free(spectrum);
}

// ---- Names: member(taps)/who/length ----

template <class Body, class... Sizes>
void add(const std::string& family, const std::string& who, int size, Body body, Sizes... sizes) {
    const std::string name = family + "/" + who + "/" + std::to_string(size);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) { body(run, sizes...); });
}

constexpr auto block32f = orbsBlock<Orb32f, orbsFIRInitAlloc_32f, orbsFIR_32f, orbsFIRFree_32f>;
constexpr auto block32fc = orbsBlock<Orb32fc, orbsFIRInitAlloc_32fc, orbsFIR_32fc, orbsFIRFree_32fc>;
constexpr auto block64f = orbsBlock<Orb64f, orbsFIRInitAlloc_64f, orbsFIR_64f, orbsFIRFree_64f>;
constexpr auto block64fc = orbsBlock<Orb64fc, orbsFIRInitAlloc_64fc, orbsFIR_64fc, orbsFIRFree_64fc>;

constexpr auto direct32f = orbsDirect<Orb32f, OrbsFIRState_32f, orbsFIRGetStateSize_32f, orbsFIRInit_32f, orbsFIR_32f>;
constexpr auto direct32fc =
    orbsDirect<Orb32fc, OrbsFIRState_32fc, orbsFIRGetStateSize_32fc, orbsFIRInit_32fc, orbsFIR_32fc>;
constexpr auto direct64f = orbsDirect<Orb64f, OrbsFIRState_64f, orbsFIRGetStateSize_64f, orbsFIRInit_64f, orbsFIR_64f>;
constexpr auto direct32f16s =
    orbs16s<Orb32f, OrbsFIRState32f_16s, orbsFIRGetStateSize32f_16s, orbsFIRInit32f_16s, orbsFIR32f_16s_Sfs>;
constexpr auto direct64f16s =
    orbs16s<Orb64f, OrbsFIRState64f_16s, orbsFIRGetStateSize64f_16s, orbsFIRInit64f_16s, orbsFIR64f_16s_Sfs>;
constexpr auto byHand32f16s =
    orbs16sByHand<Orb32f, OrbsFIRState_32f, orbsFIRGetStateSize_32f, orbsFIRInit_32f, orbsFIR_32f>;
constexpr auto byHand64f16s =
    orbs16sByHand<Orb64f, OrbsFIRState_64f, orbsFIRGetStateSize_64f, orbsFIRInit_64f, orbsFIR_64f>;

[[maybe_unused]] const bool registered = [] {
    // 32 real taps, and 15 complex ones: states without an FFT.
    for (const int count : {64, 4096}) {
        add("FIR_32f(32)", "orbs", count, block32f, 32, count);
        add("FIR_32f(32)", "loop", count, loopBlock<Orb32f, Orb32f>, 32, count);
        add("FIR_32f(32)", "liquid", count, liquidBlock32f, 32, count);
        add("FIR_32fc(15)", "orbs", count, block32fc, 15, count);
        add("FIR_32fc(15)", "loop", count, loopBlock<Orb32fc, Orb32f>, 15, count);
        add("FIR_32fc(15)", "liquid", count, liquidBlock32fc, 15, count);
        add("FIR_64f(31)", "orbs", count, block64f, 31, count);
        add("FIR_64f(31)", "loop", count, loopBlock<Orb64f, Orb64f>, 31, count);
        add("FIR_64fc(15)", "orbs", count, block64fc, 15, count);
        add("FIR_64fc(15)", "loop", count, loopBlock<Orb64fc, Orb64f>, 15, count);
    }
    // States without an FFT.
    for (const int tapsLen : {32, 128}) {
        const std::string direct = "(" + std::to_string(tapsLen) + " direct)";
        add("FIR_32f" + direct, "orbs", 4096, direct32f, tapsLen, 4096);
        add("FIR_32f" + direct, "tile", 4096, tiledBlock<Orb32f>, tapsLen, 4096);
        add("FIR_32f" + direct, "liquid", 4096, liquidBlock32f, tapsLen, 4096);
        add("FIR_32fc" + direct, "orbs", 4096, direct32fc, tapsLen, 4096);
        add("FIR_32fc" + direct, "tile", 4096, tiledBlock32fc, tapsLen, 4096);
        add("FIR_32fc" + direct, "liquid", 4096, liquidBlock32fc, tapsLen, 4096);
        add("FIR_64f" + direct, "orbs", 4096, direct64f, tapsLen, 4096);
        add("FIR_64f" + direct, "tile", 4096, tiledBlock<Orb64f>, tapsLen, 4096);
    }
    add("FIR32f_16s(32 direct)", "orbs", 4096, direct32f16s, 32, 4096);
    add("FIR32f_16s(32 direct)", "hand", 4096, byHand32f16s, 32, 4096);
    add("FIR64f_16s(32 direct)", "orbs", 4096, direct64f16s, 32, 4096);
    add("FIR64f_16s(32 direct)", "hand", 4096, byHand64f16s, 32, 4096);
    add("FIR_32f_I(32)", "orbs", 4096, orbsInPlace, 32, 4096);
    add("FIR_32f_I(32)", "loop", 4096, loopBlock<Orb32f, Orb32f>, 32, 4096);
    add("FIR_Direct_32f(32)", "orbs", 4096, orbsStateless, 32, 4096);
    add("FIR_Direct_32f(32)", "loop", 4096, loopBlock<Orb32f, Orb64f>, 32, 4096);
    add("FIROne_32f(32)", "orbs", 4096, orbsOne, 32, 4096);
    add("FIROne_32f(32)", "liquid", 4096, liquidOne, 32, 4096);
    add("FIROne_32f(32)", "loop", 4096, loopBlock<Orb32f, Orb32f>, 32, 4096);
    for (const int tapsLen : {128, 1024}) {
        const std::string family = "FIR_32f(" + std::to_string(tapsLen) + ")";
        add(family, "orbs", 65536, block32f, tapsLen, 65536);
        add(family, "fftw", 65536, fftw32f, tapsLen, 65536);
        add(family, "liquid", 65536, liquidFft32f, tapsLen, 65536, transformLength(tapsLen) / 2);
    }
    return true;
}();

} // namespace
