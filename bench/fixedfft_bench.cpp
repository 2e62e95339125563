// Forward transforms of integers through floats, beside the same with FFTW: a loop that converts, the transform planned
// with FFTW_MEASURE, and a loop that scales, rounds, saturates and converts back.
#include "fftw.h"
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr int orders[] = {2, 3, 6, 8, 10, 12, 16, 18};
constexpr int scaleFactor = 5;

template <class T, class F>
void convertTo(const T* from, F* to, std::size_t count) {
    for (std::size_t n = 0; n < count; ++n) to[n] = static_cast<F>(from[n]);
}
template <class F, class T>
void convertBack(const F* from, T* to, std::size_t count) {
    const F factor = static_cast<F>(std::ldexp(1.0, -scaleFactor));
    for (std::size_t n = 0; n < count; ++n) {
        const F least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
        to[n] = static_cast<T>(std::rint(std::min(std::max(from[n] * factor, least), most)));
    }
}

template <class X, class Spec>
struct Members {
    OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm);
    OrbStatus (*bufferSize)(const Spec*, int*);
    OrbStatus (*transform)(const X*, X*, const Spec*, int, Orb8u*);
    OrbStatus (*release)(Spec*);
};

// Of samples X made of integers T, by way of floats F. Real ones go to CCS.
template <class T, class F, class X, class Spec>
void addTransform(const std::string& member, const Members<X, Spec>& members) {
    constexpr bool isReal = sizeof(X) == sizeof(T);
    constexpr std::size_t most = std::size_t{1} << orders[std::size(orders) - 1];
    static X *const x = vectors::room<X>(0, most), *const y = vectors::room<X>(1, most + 2);
    static F *const f = vectors::room<F>(2, 2 * most), *const g = vectors::room<F>(3, 2 * most + 2);
    for (std::size_t n = 0; n < most * sizeof(X) / sizeof(T); ++n)
        reinterpret_cast<T*>(x)[n] = static_cast<T>(n * 0x9e3779b97f4a7c15u >> 40);
    for (const int order : orders) {
        const std::size_t len = std::size_t{1} << order, in = isReal ? len : 2 * len, out = isReal ? len + 2 : 2 * len;
        const auto add = [&](const char* who, auto body) {
            benchmark::RegisterBenchmark((member + "/" + who + "/" + std::to_string(len)).c_str(), body);
        };
        add("orbs", [=](benchmark::State& run) {
            Spec* spec = nullptr;
            int size = 0;
            members.init(&spec, order, ORB_FFT_SCALE_NONE, orbAlgHintNone);
            members.bufferSize(spec, &size);
            Orb8u* const buffer = orbsMalloc_8u(size);
            fftw::measure(run, [=] { members.transform(x, y, spec, scaleFactor, buffer); });
            orbsFree(buffer);
            members.release(spec);
        });
        add("fftw", [=](benchmark::State& run) {
            static const fftw::Plans plans;
            const auto plan = [=] {
                if constexpr (isReal) {
                    return fftw::planReal<F>(static_cast<int>(len), f, g);
                } else {
                    return fftw::planComplex<F>(static_cast<int>(len), f, g);
                }
            }();
            fftw::measure(run, [=] {
                convertTo(reinterpret_cast<const T*>(x), f, in);
                fftw::Fftw<F>::execute(plan);
                convertBack(g, reinterpret_cast<T*>(y), out);
            });
            fftw::Fftw<F>::destroy(plan);
        });
    }
}

[[maybe_unused]] const bool registered = [] {
    addTransform<Orb16s, Orb32f, Orb16sc, OrbsFFTSpec_C_16sc>(
        "FFTFwd_CToC_16sc",
        {orbsFFTInitAlloc_C_16sc, orbsFFTGetBufSize_C_16sc, orbsFFTFwd_CToC_16sc_Sfs, orbsFFTFree_C_16sc});
    addTransform<Orb16s, Orb32f, Orb16s, OrbsFFTSpec_R_16s>(
        "FFTFwd_RToCCS_16s",
        {orbsFFTInitAlloc_R_16s, orbsFFTGetBufSize_R_16s, orbsFFTFwd_RToCCS_16s_Sfs, orbsFFTFree_R_16s});
    addTransform<Orb32s, Orb64f, Orb32sc, OrbsFFTSpec_C_32sc>(
        "FFTFwd_CToC_32sc",
        {orbsFFTInitAlloc_C_32sc, orbsFFTGetBufSize_C_32sc, orbsFFTFwd_CToC_32sc_Sfs, orbsFFTFree_C_32sc});
    addTransform<Orb32s, Orb64f, Orb32s, OrbsFFTSpec_R_32s>(
        "FFTFwd_RToCCS_32s",
        {orbsFFTInitAlloc_R_32s, orbsFFTGetBufSize_R_32s, orbsFFTFwd_RToCCS_32s_Sfs, orbsFFTFree_R_32s});
    return true;
}();

} // namespace
