// Convolution and correlation on FFTW by hand, real and complex: in one block, or by overlap-save in blocks of two to
// four times twice the shorter signal. Plans are made beforehand, where the library makes its own in every call.
#pragma once

#include <algorithm>
#include <complex>
#include <fftw3.h>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace overlap {

// The sums of a signal of `longer` with one of `shorter` samples slid along it, `first` being where its first sample
// lies on the longer one for the first output.
template <class T> // float or std::complex<float>
class Fftw {
    using Bin = std::complex<float>;
    static constexpr bool real = std::is_same_v<T, float>;

public:
    Fftw(int shorter, int longer, bool conjugate) : shorter_(shorter), longer_(longer), conjugate_(conjugate) {
        oneBlock_ = longer < 3 * shorter;
        const int least = oneBlock_ ? shorter + longer - 1 : 4 * shorter;
        while (N_ < least) N_ *= 2;
        bins_ = real ? N_ / 2 + 1 : N_;
        block_ = static_cast<T*>(fftwf_malloc(sizeof(T) * std::size_t(N_)));
        spectrum_ = reinterpret_cast<Bin*>(fftwf_alloc_complex(std::size_t(bins_)));
        taps_.resize(std::size_t(bins_));
        auto* const to = reinterpret_cast<fftwf_complex*>(spectrum_);
        if constexpr (real) {
            forward_ = fftwf_plan_dft_r2c_1d(N_, block_, to, FFTW_MEASURE);
            inverse_ = fftwf_plan_dft_c2r_1d(N_, to, block_, FFTW_MEASURE);
        } else {
            auto* const from = reinterpret_cast<fftwf_complex*>(block_);
            forward_ = fftwf_plan_dft_1d(N_, from, to, FFTW_FORWARD, FFTW_MEASURE);
            inverse_ = fftwf_plan_dft_1d(N_, to, from, FFTW_BACKWARD, FFTW_MEASURE);
        }
    }
    Fftw(const Fftw&) = delete;
    Fftw& operator=(const Fftw&) = delete;

    void run(const T* shorter, const T* longer, int first, T* y, int count) {
        transform(shorter, 0, shorter_);
        const float scale = 1 / static_cast<float>(N_);
        for (int k = 0; k < bins_; ++k)
            taps_[std::size_t(k)] = (conjugate_ ? std::conj(spectrum_[k]) : spectrum_[k]) * scale;
        const int place = conjugate_ ? 0 : shorter_ - 1;
        if (oneBlock_) {
            multiply(longer, 0);
            for (int n = 0; n < count; ++n) y[n] = block_[(first + place + n + N_) % N_];
            return;
        }
        const int step = N_ - shorter_ + 1;
        for (int n = 0; n < count; n += step) {
            multiply(longer, first + n);
            std::copy_n(block_ + place, std::min(step, count - n), y + n);
        }
    }

private:
    void transform(const T* x, int from, int length) {
        const int ahead = std::clamp(-from, 0, N_), some = std::clamp(length - from - ahead, 0, N_ - ahead);
        std::fill_n(block_, ahead, T{});
        std::copy_n(x + from + ahead, some, block_ + ahead);
        std::fill(block_ + ahead + some, block_ + N_, T{});
        fftwf_execute(forward_);
    }
    void multiply(const T* x, int from) {
        transform(x, from, longer_);
        float* const s = reinterpret_cast<float*>(spectrum_);
        const float* const h = reinterpret_cast<const float*>(taps_.data());
        for (int k = 0; k < 2 * bins_; k += 2) {
            const float re = s[k] * h[k] - s[k + 1] * h[k + 1];
            s[k + 1] = s[k] * h[k + 1] + s[k + 1] * h[k];
            s[k] = re;
        }
        fftwf_execute(inverse_);
    }

    int shorter_, longer_, N_ = 4, bins_;
    bool conjugate_, oneBlock_;
    T* block_;
    Bin* spectrum_;
    std::vector<Bin> taps_;
    fftwf_plan forward_, inverse_;
};

// One whose plans are made when it is first run: most rows are filtered out.
template <class T>
class Planned {
public:
    Planned(int shorter, int longer, bool conjugate)
        : make_([=](auto& by) { by.emplace(shorter, longer, conjugate); }) {}

    template <class... Arguments>
    void run(Arguments... arguments) const {
        if (!*by_) make_(*by_);
        (*by_)->run(arguments...);
    }

private:
    std::shared_ptr<std::optional<Fftw<T>>> by_ = std::make_shared<std::optional<Fftw<T>>>();
    std::function<void(std::optional<Fftw<T>>&)> make_;
};

} // namespace overlap
