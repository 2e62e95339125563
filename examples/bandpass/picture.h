// The picture of both spectra.
#pragma once

#include "output_file.h"

#include <string>
#include <vector>

struct Picture {
    std::string title, subtitle;
    double low, high, nyquist;         // Hz
    std::vector<double> before, after; // power in equal steps from 0 Hz to nyquist; 1 is a sine of full scale
};

// Writes a PNG image; closes the file but does not commit it.
void draw(const Picture& picture, OutputFile& file);
