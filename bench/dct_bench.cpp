// Cosine transforms out of place beside FFTW's, planned with FFTW_MEASURE, on the same vectors.
#include "orbs.h"
#include "vectors.h"

#include <fftw3.h>

namespace {

constexpr int lengths[] = {8, 16, 32, 64, 100, 1000, 1024, 4096, 65536};

// FFTW by the type of its samples.
template <class T>
struct Fftw;
template <>
struct Fftw<Orb32f> {
    static constexpr auto plan = fftwf_plan_r2r_1d;
    static constexpr auto execute = fftwf_execute;
    static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Fftw<Orb64f> {
    static constexpr auto plan = fftw_plan_r2r_1d;
    static constexpr auto execute = fftw_execute;
    static constexpr auto destroy = fftw_destroy_plan;
};

template <class Call>
void measure(benchmark::State& run, Call call) {
    call();
    for (auto _ : run) {
        call();
        benchmark::ClobberMemory();
    }
}

template <class T, class Spec>
void addTransform(const std::string& member, fftw_r2r_kind kind, OrbStatus (*initAlloc)(Spec**, int, OrbHintAlgorithm),
                  OrbStatus (*bufferSize)(const Spec*, int*), OrbStatus (*release)(Spec*),
                  OrbStatus (*transform)(const T*, T*, const Spec*, Orb8u*)) {
    static T *const x = vectors::room<T>(0, 65536), *const y = vectors::room<T>(1, 65536);
    const auto refill = [](int len) {
        for (int n = 0; n < len; ++n) x[n] = static_cast<T>(n * 7919 % 101) / 101 - T(0.5);
    };
    for (int len : lengths) {
        benchmark::RegisterBenchmark((member + "/orbs/" + std::to_string(len)).c_str(), [=](benchmark::State& run) {
            Spec* spec = nullptr;
            int size = 0;
            initAlloc(&spec, len, orbAlgHintNone);
            bufferSize(spec, &size);
            Orb8u* const buffer = orbsMalloc_8u(size);
            refill(len);
            measure(run, [=] { transform(x, y, spec, buffer); });
            orbsFree(buffer);
            release(spec);
        });
        benchmark::RegisterBenchmark((member + "/fftw/" + std::to_string(len)).c_str(), [=](benchmark::State& run) {
            const auto plan = Fftw<T>::plan(len, x, y, kind, FFTW_MEASURE); // which may overwrite the vectors
            refill(len);
            measure(run, [=] { Fftw<T>::execute(plan); });
            Fftw<T>::destroy(plan);
        });
    }
}

[[maybe_unused]] const bool registered = [] {
    addTransform("DCTFwd_32f", FFTW_REDFT10, orbsDCTFwdInitAlloc_32f, orbsDCTFwdGetBufSize_32f, orbsDCTFwdFree_32f,
                 orbsDCTFwd_32f);
    addTransform("DCTInv_32f", FFTW_REDFT01, orbsDCTInvInitAlloc_32f, orbsDCTInvGetBufSize_32f, orbsDCTInvFree_32f,
                 orbsDCTInv_32f);
    addTransform("DCTFwd_64f", FFTW_REDFT10, orbsDCTFwdInitAlloc_64f, orbsDCTFwdGetBufSize_64f, orbsDCTFwdFree_64f,
                 orbsDCTFwd_64f);
    addTransform("DCTInv_64f", FFTW_REDFT01, orbsDCTInvInitAlloc_64f, orbsDCTInvGetBufSize_64f, orbsDCTInvFree_64f,
                 orbsDCTInv_64f);
    return true;
}();

} // namespace
