// Recordings to work on: syllables like speech, the same on every run.
#pragma once

#include <vector>

struct Speech {
    int rate = 48000;
    double seconds = 10;
    double begin = 0.3; // of the first syllable, in seconds
    double pitch = 105; // the lowest, in Hz
    bool clean = false; // or with mains hum and hiss
    unsigned seed = 1;
};

// Samples of one channel, at most 0.7 in magnitude.
std::vector<float> makeSpeech(const Speech& wanted = {});
