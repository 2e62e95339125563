// The averaged spectrum of a stream: Welch's method with half-overlapping Hann windows.
// P. D. Welch, "The use of fast Fourier transform for the estimation of power spectra", IEEE Trans. AU-15, 1967.
#pragma once

#include <memory>
#include <orbs.h>
#include <vector>

class Spectrum {
public:
    Spectrum(double rate, int channels);

    // The next samples of one channel.
    void add(std::size_t channel, const Orb32f* samples, std::size_t count);

    // The mean power in each bin from 0 Hz to half the rate; 1 is that of a sine of full scale.
    std::vector<double> power();

    int length() const { return 1 << order_; }
    double binWidth() const { return rate_ / length(); }

private:
    struct Free {
        void operator()(OrbsFFTSpec_R_32f* spec) const { orbsFFTFree_R_32f(spec); }
    };
    void addSegment(const std::vector<Orb32f>& segment);

    double rate_;
    int order_;
    std::unique_ptr<OrbsFFTSpec_R_32f, Free> spec_;
    std::vector<Orb8u> work_;
    std::vector<Orb32f> window_, bins_;
    std::vector<std::vector<Orb32f>> pending_; // of each channel, less than a segment
    std::vector<double> sum_;
    std::size_t segments_ = 0;
};
