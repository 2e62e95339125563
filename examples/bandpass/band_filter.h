// The band filter: its taps and one FIR object a channel.
#pragma once

#include <memory>
#include <orbs.h>
#include <vector>

// The number of taps that a transition half as wide as the lower edge (or the band, if that is narrower) needs.
int defaultTaps(double low, double high, double rate);

// Linear phase, an odd number of taps, gain 1 in the middle of the band. Frequencies in Hz.
std::vector<Orb32f> designBand(double low, double high, double rate, int taps);

class BandFilter {
public:
    BandFilter(const std::vector<Orb32f>& taps, int channels);

    // The next samples of one channel's stream. The two must not overlap.
    void run(std::size_t channel, const Orb32f* input, Orb32f* output, int count);

private:
    struct Free {
        void operator()(OrbsFIRState_32f* state) const { orbsFIRFree_32f(state); }
    };
    std::vector<std::unique_ptr<OrbsFIRState_32f, Free>> channels_;
};
