#include "spectrum.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// The smallest that gives bins of at most 8 Hz.
int orderFor(double rate) {
    int order = 8;
    while (order < 15 && rate / (1 << order) > 8) ++order;
    return order;
}

} // namespace

Spectrum::Spectrum(double rate, int channels)
    : rate_(rate), order_(orderFor(rate)), transform_(order_, ORB_FFT_SCALE_NONE, orbAlgHintNone),
      window_(static_cast<std::size_t>(length()), 1.0f) {
    orbs::WinHann(window_);
    bins_.resize(window_.size() / 2 + 1);
    power_.resize(bins_.size());
    sum_.resize(bins_.size());
    pending_.resize(static_cast<std::size_t>(channels));
}

void Spectrum::add(std::size_t channel, std::span<const Orb32f> samples) {
    std::vector<Orb32f>& pending = pending_[channel];
    while (!samples.empty()) {
        const auto taken = samples.first(std::min(samples.size(), window_.size() - pending.size()));
        pending.insert(pending.end(), taken.begin(), taken.end());
        samples = samples.subspan(taken.size());
        if (pending.size() == window_.size()) {
            addSegment(pending);
            pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(window_.size() / 2));
        }
    }
}

void Spectrum::addSegment(const std::vector<Orb32f>& segment) {
    Orb32f* const packed = &bins_[0].re; // room for the samples, and then for the bins from 0 to half the rate
    orbs::Mul(segment.data(), window_.data(), packed, length());
    transform_.Fwd_RToCCS(packed);
    orbs::PowerSpectr(bins_, power_);
    for (std::size_t k = 0; k < sum_.size(); ++k) sum_[k] += power_[k];
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

Levels levelsOf(Spectrum& spectrum, double fromFrequency) {
    const std::vector<double> power = spectrum.power();
    const double width = spectrum.binWidth();
    const double columns = 1250 / std::log(width * static_cast<double>(power.size()) / fromFrequency);
    Levels levels;
    double last = -1;
    for (auto k = static_cast<std::size_t>(std::max(1.0, std::floor(fromFrequency / width))); k < power.size(); ++k) {
        const double frequency = width * static_cast<double>(k), column = std::floor(columns * std::log(frequency));
        const double level = std::max(10 * std::log10(std::min(power[k], 1e30)), -180.0);
        if (column != last) {
            levels.frequency.push_back(frequency);
            levels.decibels.push_back(level);
            last = column;
        } else if (level > levels.decibels.back()) {
            levels.frequency.back() = frequency;
            levels.decibels.back() = level;
        }
    }
    return levels;
}

Range scaleFor(const std::vector<const Levels*>& curves) {
    double highest = -62, lowest = 300;
    for (const Levels* curve : curves) {
        highest = std::max(highest, *std::ranges::max_element(curve->decibels));
        lowest = std::min(lowest, *std::ranges::min_element(curve->decibels));
    }
    const double top = 10 * std::ceil((highest + 2) / 10);
    return {std::clamp(10 * std::floor((lowest - 2) / 10), top - 120, top - 40), top};
}
