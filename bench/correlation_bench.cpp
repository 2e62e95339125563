// Correlation beside loops at -O3 -ffast-math, transforms of FFTW by hand, and liquid-dsp's autocorrelation.
#include "orbs.h"
#include "overlap.h"
#include "vectors.h"

#include <liquid/liquid.h>

namespace {

struct Case {
    const char* name;
    int src1Len, src2Len, dstLen, lowLag;
};
constexpr Case cases[] = {{"1024, all lags", 1024, 1024, 2047, -1023},
                          {"64, all lags", 64, 65536, 65599, -63},
                          {"65536, 32 lags", 65536, 65536, 32, -16}};

#pragma GCC push_options
#pragma GCC optimize("fast-math")
template <class T>
[[gnu::noinline]] void loop(const T* a, int aLen, const T* b, int bLen, T* y, int dstLen, int lowLag) {
    for (int n = 0; n < dstLen; ++n) {
        const int lag = n + lowLag, from = std::max(0, -lag), to = std::min(aLen, bLen - lag);
        if constexpr (requires { a->re; }) {
            float re = 0, im = 0;
            for (int k = from; k < to; ++k) {
                re += a[k].re * b[k + lag].re + a[k].im * b[k + lag].im;
                im += a[k].re * b[k + lag].im - a[k].im * b[k + lag].re;
            }
            y[n] = {re, im};
        } else {
            float sum = 0;
            for (int k = from; k < to; ++k) sum += a[k] * b[k + lag];
            y[n] = sum;
        }
    }
}
#pragma GCC pop_options

template <class T>
struct Sample {
    using Of = std::complex<float>;
};
template <>
struct Sample<Orb32f> {
    using Of = float;
};

template <class T>
auto fftwOf(const Case& c) {
    using S = typename Sample<T>::Of;
    const overlap::Planned<S> by(c.src1Len, c.src2Len, true);
    return [c, by](const T* a, const T* b, T* y) {
        const auto samples = [](auto* p) {
            if constexpr (std::is_const_v<std::remove_pointer_t<decltype(p)>>)
                return reinterpret_cast<const S*>(p);
            else
                return reinterpret_cast<S*>(p);
        };
        by.run(samples(a), samples(b), c.lowLag, samples(y), c.dstLen);
    };
}

vectors::Row rowOf(const char* member, const Case& c) {
    vectors::Row row(std::string(member) + "(" + c.name + ")");
    row.lens = {&c.src2Len, 1};
    return row;
}

template <class T>
void addFloats(const char* cross, const char* autoName, auto crossCorr, auto autoCorr) {
    const T *const a = vectors::buffer<T>(0), *const b = vectors::buffer<T>(1);
    T* const y = vectors::room<T>(2, 200000);
    for (const Case& c : cases) {
        const auto row = rowOf(cross, c);
        vectors::add(row, "orbs", [=](int n) { crossCorr(a, c.src1Len, b, n, y, c.dstLen, c.lowLag); });
        vectors::add(row, "loop", [=](int n) { loop(a, c.src1Len, b, n, y, c.dstLen, c.lowLag); });
        vectors::add(row, "fftw", [=, by = fftwOf<T>(c)](int) { by(a, b, y); });
        if (c.src1Len != c.src2Len) continue;
        const auto itself = rowOf(autoName, c);
        const int dstLen = c.src1Len == 1024 ? 1024 : c.dstLen;
        vectors::add(itself, "orbs", [=](int n) { autoCorr(a, n, y, dstLen); });
        vectors::add(itself, "loop", [=](int n) { loop(a, n, a, n, y, dstLen, 0); });
        Case from = c;
        from.dstLen = dstLen, from.lowLag = 0;
        vectors::add(itself, "fftw", [=, by = fftwOf<T>(from)](int) { by(a, a, y); });
        if constexpr (std::is_same_v<T, Orb32f>) {
            if (c.src1Len == 1024)
                vectors::add(itself, "liquid", [=](int n) {
                    for (int k = 0; k < dstLen; ++k)
                        y[k] = liquid_filter_autocorr(const_cast<float*>(a), static_cast<unsigned>(n), k);
                });
        }
    }
}

void add16() {
    const Orb16s *const a = vectors::buffer<Orb16s>(0), *const b = vectors::buffer<Orb16s>(1);
    Orb16s* const y = vectors::room<Orb16s>(2, 200000);
    Orb32f* const floats = vectors::room<Orb32f>(3, 400000);
    const auto byHand = [=](const Case& c, auto correlate) {
        return [=](int n) {
            Orb32f *const taps = floats + n, *const sums = taps + c.src1Len;
            orbsConvert_16s32f(b, floats, n);
            orbsConvert_16s32f(a, taps, c.src1Len);
            correlate(taps, floats, sums);
            orbsConvert_32f16s_Sfs(sums, y, c.dstLen, orbRndNear, 8);
        };
    };
    for (const Case& c : cases) {
        const auto looped = [](Case with) {
            return [=](const Orb32f* taps, const Orb32f* x, Orb32f* sums) {
                loop(taps, with.src1Len, x, with.src2Len, sums, with.dstLen, with.lowLag);
            };
        };
        const auto row = rowOf("CrossCorr_16s_Sfs", c);
        vectors::add(row, "orbs", [=](int n) { orbsCrossCorr_16s_Sfs(a, c.src1Len, b, n, y, c.dstLen, c.lowLag, 8); });
        vectors::add(row, "loop", byHand(c, looped(c)));
        vectors::add(row, "fftw", byHand(c, fftwOf<Orb32f>(c)));
        if (c.src1Len != c.src2Len) continue;
        const auto itself = rowOf("AutoCorr_16s_Sfs", c);
        Case from = c;
        from.dstLen = c.src1Len == 1024 ? 1024 : c.dstLen, from.lowLag = 0;
        vectors::add(itself, "orbs", [=](int n) { orbsAutoCorr_16s_Sfs(a, n, y, from.dstLen, 8); });
        vectors::add(itself, "loop", byHand(from, looped(from)));
        vectors::add(itself, "fftw", byHand(from, fftwOf<Orb32f>(from)));
    }
}

[[maybe_unused]] const bool registered = [] {
    addFloats<Orb32f>("CrossCorr_32f", "AutoCorr_32f", orbsCrossCorr_32f, orbsAutoCorr_32f);
    addFloats<Orb32fc>("CrossCorr_32fc", "AutoCorr_32fc", orbsCrossCorr_32fc, orbsAutoCorr_32fc);
    add16();
    return true;
}();

} // namespace
