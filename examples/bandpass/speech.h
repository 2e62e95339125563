// A recording to clean: ten seconds like speech over mains hum and hiss, the same on every run.
#pragma once

#include <vector>

constexpr int speechRate = 48000;

// Samples of one channel, at most 1 in magnitude.
std::vector<float> makeSpeech();
