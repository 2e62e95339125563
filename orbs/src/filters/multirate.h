// stub
#pragma once
#include "filters/state.h"
namespace orbs {
template <class State>
OrbStatus filterMultiRate(State*, const typename State::Sample*, typename State::Sample*, int, int) {
    return orbStsContextMatchErr;
}
template <class State>
OrbStatus filterMultiRateInPlace(State*, typename State::Sample*, int, int) {
    return orbStsContextMatchErr;
}
template <class State>
OrbStatus setMultiRateTaps(State*, const typename State::Tap*) {
    return orbStsContextMatchErr;
}
} // namespace orbs
