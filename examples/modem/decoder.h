// A burst of symbols: sent, made noisy, decoded and counted.
#pragma once

#include "code.h"

constexpr int burstLength = 2000; // symbols

// How many symbols of a burst the decoder gets wrong. Noise has this deviation in each of four dimensions, in steps of
// the lattice. What is sent, and the noise, follow from the seed.
int errorsInBurst(const Code& code, double deviation, unsigned seed);
