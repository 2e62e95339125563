// FFTW as the peer of transforms: plans of FFTW_MEASURE, kept for the runs in every tier, and the same vectors.
#pragma once

#include "orbs.h"
#include "vectors.h"

#include <cstdint>
#include <cstdlib>
#include <fftw3.h>
#include <string>

namespace fftw {

// FFTW by the type of its samples.
template <class T>
struct Fftw;
template <>
struct Fftw<Orb32f> {
    using Complex = fftwf_complex;
    static constexpr auto planComplex = fftwf_plan_dft_1d;
    static constexpr auto planReal = fftwf_plan_dft_r2c_1d;
    static constexpr auto execute = fftwf_execute;
    static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Fftw<Orb64f> {
    using Complex = fftw_complex;
    static constexpr auto planComplex = fftw_plan_dft_1d;
    static constexpr auto planReal = fftw_plan_dft_r2c_1d;
    static constexpr auto execute = fftw_execute;
    static constexpr auto destroy = fftw_destroy_plan;
};

// FFTW measures its plans once for the runs in every tier: this variable names a file that keeps them.
struct Plans {
    Plans() {
        if (!name) return;
        fftwf_import_wisdom_from_filename((name + std::string("-32f")).c_str());
        fftw_import_wisdom_from_filename((name + std::string("-64f")).c_str());
    }
    ~Plans() {
        if (!name) return;
        fftwf_export_wisdom_to_filename((name + std::string("-32f")).c_str());
        fftw_export_wisdom_to_filename((name + std::string("-64f")).c_str());
    }
    const char* name = std::getenv("ORBS_BENCH_PLANS");
};

// Real, or as twice as many, complex, samples.
template <class T>
void fill(T* values, std::size_t count) {
    std::uint32_t state = 1;
    for (std::size_t n = 0; n < count; ++n) {
        state = state * 1664525u + 1013904223u;
        values[n] = static_cast<T>(static_cast<std::int32_t>(state)) / T(2147483648);
    }
}

template <class Call>
void measure(benchmark::State& run, Call call) {
    call();
    for (auto _ : run) {
        call();
        benchmark::ClobberMemory();
    }
}

template <class X, class Y, class Spec>
struct Members {
    OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm);
    OrbStatus (*bufferSize)(const Spec*, int*);
    OrbStatus (*transform)(const X*, Y*, const Spec*, Orb8u*);
    OrbStatus (*release)(Spec*);
};

// A row of ours and a row of FFTW's for `len` points: of samples X made of numbers T to values Y. `argument` is what
// our object is made for, and `plan` makes FFTW's plan for a length and the two vectors.
template <class T, class X, class Y, class Spec, class Plan>
void addLength(const std::string& family, int len, int argument, const Members<X, Y, Spec>& members, X* x, Y* y,
               Plan plan) {
    const auto refill = [=] { fill(reinterpret_cast<T*>(x), sizeof(X) / sizeof(T) * static_cast<std::size_t>(len)); };
    benchmark::RegisterBenchmark((family + "/orbs/" + std::to_string(len)).c_str(), [=](benchmark::State& run) {
        Spec* spec = nullptr;
        int size = 0;
        members.init(&spec, argument, ORB_FFT_SCALE_NONE, orbAlgHintNone);
        members.bufferSize(spec, &size);
        Orb8u* const buffer = orbsMalloc_8u(size);
        refill();
        measure(run, [=] { members.transform(x, y, spec, buffer); });
        orbsFree(buffer);
        members.release(spec);
    });
    benchmark::RegisterBenchmark((family + "/fftw/" + std::to_string(len)).c_str(), [=](benchmark::State& run) {
        static const Plans plans;
        const auto planned = plan(len, x, y); // which may overwrite the vectors
        refill();
        measure(run, [=] { Fftw<T>::execute(planned); });
        Fftw<T>::destroy(planned);
    });
}

// FFTW's plans of our vectors.
template <class T, class X>
auto planComplex(int len, X* x, X* y) {
    using Complex = typename Fftw<T>::Complex;
    return Fftw<T>::planComplex(len, reinterpret_cast<Complex*>(x), reinterpret_cast<Complex*>(y), FFTW_FORWARD,
                                FFTW_MEASURE);
}
template <class T>
auto planReal(int len, T* x, T* y) {
    return Fftw<T>::planReal(len, x, reinterpret_cast<typename Fftw<T>::Complex*>(y), FFTW_MEASURE);
}

} // namespace fftw
