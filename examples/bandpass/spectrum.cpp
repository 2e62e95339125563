#include "spectrum.h"
#include "trouble.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

// The smallest that gives bins of at most 8 Hz.
int orderFor(double rate) {
    int order = 8;
    while (order < 15 && rate / (1 << order) > 8) ++order;
    return order;
}

} // namespace

Spectrum::Spectrum(double rate, int channels) : rate_(rate), order_(orderFor(rate)) {
    OrbsFFTSpec_R_32f* spec = nullptr;
    check(orbsFFTInitAlloc_R_32f(&spec, order_, ORB_FFT_SCALE_NONE, orbAlgHintNone), "orbsFFTInitAlloc_R_32f");
    spec_.reset(spec);
    int workSize = 0;
    check(orbsFFTGetBufSize_R_32f(spec, &workSize), "orbsFFTGetBufSize_R_32f");
    work_.resize(static_cast<std::size_t>(workSize));

    const auto segment = static_cast<std::size_t>(length());
    for (std::size_t n = 0; n < segment; ++n) {
        const double phase = 2 * std::numbers::pi * static_cast<double>(n) / static_cast<double>(segment);
        window_.push_back(static_cast<Orb32f>(0.5 - 0.5 * std::cos(phase)));
    }
    bins_.resize(segment + 2);
    sum_.resize(segment / 2 + 1);
    pending_.resize(static_cast<std::size_t>(channels));
}

void Spectrum::add(std::size_t channel, const Orb32f* samples, std::size_t count) {
    std::vector<Orb32f>& pending = pending_[channel];
    while (count > 0) {
        const std::size_t taken = std::min(count, window_.size() - pending.size());
        pending.insert(pending.end(), samples, samples + taken);
        samples += taken;
        count -= taken;
        if (pending.size() == window_.size()) {
            addSegment(pending);
            pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(window_.size() / 2));
        }
    }
}

void Spectrum::addSegment(const std::vector<Orb32f>& segment) {
    std::transform(segment.begin(), segment.end(), window_.begin(), bins_.begin(), std::multiplies<>());
    check(orbsFFTFwd_RToCCS_32f_I(bins_.data(), spec_.get(), work_.empty() ? nullptr : work_.data()),
          "orbsFFTFwd_RToCCS_32f_I");
    for (std::size_t k = 0; k < sum_.size(); ++k) {
        const double re = bins_[2 * k], im = bins_[2 * k + 1];
        sum_[k] += re * re + im * im;
    }
    ++segments_;
}

std::vector<double> Spectrum::power() {
    if (segments_ == 0) { // shorter than one segment: what there is, and silence behind it
        for (std::vector<Orb32f>& pending : pending_) {
            pending.resize(window_.size());
            addSegment(pending);
        }
    }
    const double sine = std::accumulate(window_.begin(), window_.end(), 0.0) / 2; // the bin of a sine of full scale
    std::vector<double> mean;
    for (const double sum : sum_) mean.push_back(sum / (sine * sine * static_cast<double>(segments_)));
    return mean;
}
