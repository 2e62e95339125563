// The command line.
#pragma once

#include <filesystem>
#include <optional>

constexpr int maxTaps = 65535;

struct Options {
    double low = 300;
    double high = 3400;
    std::optional<int> taps;
    std::filesystem::path folder = "demo";
    std::filesystem::path input;  // empty: the program makes its own
    std::filesystem::path output; // empty: named after the input, in the folder
    bool help = false;
};

extern const char* const helpText;

// Throws Trouble for what it does not understand.
Options parseOptions(int argc, char** argv);
