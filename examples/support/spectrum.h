// The averaged spectrum of a stream: Welch's method with half-overlapping Hann windows.
// P. D. Welch, "The use of fast Fourier transform for the estimation of power spectra", IEEE Trans. AU-15, 1967.
#pragma once

#include <orbs.hpp>
#include <span>
#include <vector>

class Spectrum {
public:
    Spectrum(double rate, int channels);

    // The next samples of one channel.
    void add(std::size_t channel, std::span<const Orb32f> samples);

    // The mean power in each bin from 0 Hz to half the rate; 1 is that of a sine of full scale.
    std::vector<double> power();

    int length() const { return 1 << order_; }
    double binWidth() const { return rate_ / length(); }

private:
    void addSegment(const std::vector<Orb32f>& segment);

    double rate_;
    int order_;
    orbs::FFT_R_32f transform_;
    std::vector<Orb32f> window_, power_;
    std::vector<Orb32fc> bins_;
    std::vector<std::vector<Orb32f>> pending_; // of each channel, less than a segment
    std::vector<double> sum_;
    std::size_t segments_ = 0;
};

// As it is drawn: in decibels over logarithmic frequencies, the strongest bin of each column of pixels, so that tones
// keep their level.
struct Levels {
    std::vector<double> frequency, decibels;
};
Levels levelsOf(Spectrum& spectrum, double fromFrequency);

// The scale for such curves: whole tens, at most 120 dB, of which silence is at the foot.
struct Range {
    double from, to;
};
Range scaleFor(const std::vector<const Levels*>& curves);
