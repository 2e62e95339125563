// Where the taps of a multi-rate filter meet the samples.
//
// The stream is raised to upFactor values a sample by zeros, filtered, and every downFactor-th output is kept. In
// ticks of the raised stream, counted from the start of a call, sample n comes at upPhase + n * upFactor and output m
// at downPhase + m * downFactor. No zero is multiplied: output m is the sum over j of
// h[tap + j * upFactor] * x[newest - j]. A call takes whole periods, so that the next one starts alike.
#pragma once

#include "orbdefs.h"

#include <cstdint>

namespace orbs {

struct Meeting {
    std::int64_t newest; // the youngest sample that an output meets: -1 and below lie in the delay line
    int tap;             // its tap, below upFactor
};

struct Rates {
    int upFactor, upPhase, downFactor, downPhase;

    Meeting of(std::int64_t output) const {
        const std::int64_t behind = downPhase + output * downFactor - upPhase; // the first sample, above -upFactor
        const std::int64_t newest = (behind + upFactor) / upFactor - 1;
        return {newest, static_cast<int>(behind - newest * upFactor)};
    }
    // The first output that meets this sample or younger ones.
    std::int64_t firstThatMeets(std::int64_t sample) const {
        const std::int64_t ticks = sample * upFactor + upPhase - downPhase; // from the first output on
        return ticks <= 0 ? 0 : (ticks - 1) / downFactor + 1;
    }
    // The samples that a filter remembers between calls, and the most that an output meets.
    int lineLength(int tapsLen) const { return (tapsLen - 1) / upFactor + 1; }
};

// The tests of what a multi-rate filter is made of.
inline OrbStatus checkRates(int tapsLen, const Rates& rates) {
    if (tapsLen < 1) return orbStsFIRLenErr;
    if (rates.upFactor < 1 || rates.downFactor < 1) return orbStsFIRMRFactorErr;
    if (rates.upPhase < 0 || rates.upPhase >= rates.upFactor) return orbStsFIRMRPhaseErr;
    if (rates.downPhase < 0 || rates.downPhase >= rates.downFactor) return orbStsFIRMRPhaseErr;
    return orbStsNoErr;
}

} // namespace orbs
