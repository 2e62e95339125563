// Failures that the user can do something about.
#pragma once

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>

// Carries the one line that the user reads.
struct Trouble : std::runtime_error {
    using std::runtime_error::runtime_error;
};

template <class... Parts>
std::string text(const Parts&... parts) {
    std::ostringstream stream;
    stream.precision(10);
    (stream << ... << parts);
    return stream.str();
}

// A number with so many digits behind the point.
std::string fixed(double value, int digits);

// A path as it can stand in a message or in the picture: valid UTF-8 on one line, whatever the file is called.
std::string printable(const std::filesystem::path& path);
