// Forward transforms out of place beside FFTW, planned with FFTW_MEASURE, on the same data.
#include "orbs.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <fftw3.h>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

template <class T>
using Aligned = std::unique_ptr<T, void (*)(void*)>;

template <class T>
Aligned<T> allocate(T* (*allocator)(int), std::size_t count) {
    return {allocator(static_cast<int>(count)), orbsFree};
}

template <class T>
void fill(T* values, std::size_t count) {
    std::uint32_t state = 1;
    for (std::size_t n = 0; n < count; ++n) {
        state = state * 1664525u + 1013904223u;
        values[n] = static_cast<T>(static_cast<std::int32_t>(state)) / T(2147483648);
    }
}

// `transform` and `measured` call the library and the peer on the same two vectors.
void add(const std::string& family, int order, std::function<void()> transform, std::function<void()> measured) {
    const auto loop = [](std::function<void()> call) {
        return [call](benchmark::State& state) {
            for (auto _ : state) {
                call();
                benchmark::ClobberMemory();
            }
        };
    };
    const std::string size = std::to_string(1 << order);
    benchmark::RegisterBenchmark((family + "/orbs/" + size).c_str(), loop(transform));
    benchmark::RegisterBenchmark((family + "/fftw/" + size).c_str(), loop(measured));
}

void addSingle(int order) {
    const std::size_t n = std::size_t{1} << order;
    std::shared_ptr<Orb32fc> x = allocate(orbsMalloc_32fc, n), y = allocate(orbsMalloc_32fc, n);
    auto* in = reinterpret_cast<fftwf_complex*>(x.get());
    auto* out = reinterpret_cast<fftwf_complex*>(y.get());
    const fftwf_plan plan = fftwf_plan_dft_1d(1 << order, in, out, FFTW_FORWARD, FFTW_MEASURE);
    fill(reinterpret_cast<float*>(x.get()), 2 * n);
    OrbsFFTSpec_C_32fc* spec = nullptr;
    int size = 0;
    orbsFFTInitAlloc_C_32fc(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone);
    orbsFFTGetBufSize_C_32fc(spec, &size);
    std::shared_ptr<Orb8u> buffer = allocate(orbsMalloc_8u, static_cast<std::size_t>(size));
    add(
        "fft_32fc", order, [=] { orbsFFTFwd_CToC_32fc(x.get(), y.get(), spec, buffer.get()); },
        [=] { fftwf_execute(plan); });
}

void addDouble(int order) {
    const std::size_t n = std::size_t{1} << order;
    std::shared_ptr<Orb64fc> x = allocate(orbsMalloc_64fc, n), y = allocate(orbsMalloc_64fc, n);
    auto* in = reinterpret_cast<fftw_complex*>(x.get());
    auto* out = reinterpret_cast<fftw_complex*>(y.get());
    const fftw_plan plan = fftw_plan_dft_1d(1 << order, in, out, FFTW_FORWARD, FFTW_MEASURE);
    fill(reinterpret_cast<double*>(x.get()), 2 * n);
    OrbsFFTSpec_C_64fc* spec = nullptr;
    int size = 0;
    orbsFFTInitAlloc_C_64fc(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone);
    orbsFFTGetBufSize_C_64fc(spec, &size);
    std::shared_ptr<Orb8u> buffer = allocate(orbsMalloc_8u, static_cast<std::size_t>(size));
    add(
        "fft_64fc", order, [=] { orbsFFTFwd_CToC_64fc(x.get(), y.get(), spec, buffer.get()); },
        [=] { fftw_execute(plan); });
}

void addReal(int order) {
    const std::size_t n = std::size_t{1} << order;
    std::shared_ptr<Orb32f> x = allocate(orbsMalloc_32f, n), y = allocate(orbsMalloc_32f, n + 2);
    auto* out = reinterpret_cast<fftwf_complex*>(y.get());
    const fftwf_plan plan = fftwf_plan_dft_r2c_1d(1 << order, x.get(), out, FFTW_MEASURE);
    fill(x.get(), n);
    OrbsFFTSpec_R_32f* spec = nullptr;
    int size = 0;
    orbsFFTInitAlloc_R_32f(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone);
    orbsFFTGetBufSize_R_32f(spec, &size);
    std::shared_ptr<Orb8u> buffer = allocate(orbsMalloc_8u, static_cast<std::size_t>(size));
    add(
        "fft_32f_perm", order, [=] { orbsFFTFwd_RToPerm_32f(x.get(), y.get(), spec, buffer.get()); },
        [=] { fftwf_execute(plan); });
}

// Plans, objects and vectors live as long as the program.
const bool registered = [] {
    for (int order = 4; order <= 20; ++order) addSingle(order);
    for (int order = 4; order <= 20; ++order) addDouble(order);
    for (int order = 5; order <= 20; ++order) addReal(order);
    return true;
}();

} // namespace
