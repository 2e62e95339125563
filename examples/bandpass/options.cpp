#include "options.h"
#include "trouble.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

const char* const helpText = R"(Usage: bandpass [OPTION]... [INPUT [OUTPUT]]

Cleans a recording: keeps one band of frequencies, by default that of speech, and draws the spectra before and after.

  INPUT         a sound file: WAV, FLAC, OGG, AIFF, MP3 and whatever else libsndfile opens.
                Without it, bandpass makes 10 seconds of its own, with hum and hiss, and writes them too.
  OUTPUT        where the cleaned sound goes; the picture goes beside it, as .png.
                Default: demo/INPUT-band with the ending of INPUT.

  --low HZ      lower edge of the band, 0 or more (default 300)
  --high HZ     upper edge of the band, at most half the sample rate (default 3400)
  --taps N      length of the filter, 1 to 65535; an even N becomes the next odd one.
                Default: as many as a transition half as wide as the lower edge needs (1605 at 48 kHz).
  --out FOLDER  folder for what is written, made if missing (default demo)
  --help        this text

The filter has linear phase (a windowed sinc, Kaiser window, 80 dB) and gain 1 in the middle of the band; at both edges
the gain is one half. Its delay is taken out, so the cleaned sound has the length and the timing of the input. It has
the input's format, sample rate and channels too, unless OUTPUT ends in that of another format; where a format cannot be
written it is WAV with 32-bit floats. Exit status: 0 done, 2 nothing done and the reason on standard error.
)";

namespace {

template <class T>
T number(std::string_view option, std::string_view value, const char* kind) {
    T parsed{};
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), parsed);
    bool good = error == std::errc() && end == value.data() + value.size();
    if constexpr (std::is_floating_point_v<T>) good = good && std::isfinite(parsed);
    if (!good) throw Trouble(text(option, " takes ", kind, ", not '", printable(value), "'"));
    return parsed;
}

} // namespace

Options parseOptions(int argc, char** argv) {
    Options options;
    std::vector<std::string_view> operands;
    bool onlyOperands = false, folderGiven = false;
    for (int n = 1; n < argc; ++n) {
        const std::string_view argument = argv[n];
        if (onlyOperands || argument.size() < 2 || argument[0] != '-') {
            operands.push_back(argument);
            continue;
        }
        if (argument == "--") {
            onlyOperands = true;
            continue;
        }
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        if (name != "--low" && name != "--high" && name != "--taps" && name != "--out")
            throw Trouble(text("unknown option ", printable(name), "; bandpass --help lists them all"));
        if (equals == std::string_view::npos && n + 1 == argc) throw Trouble(text(name, " needs a value behind it"));
        const std::string_view value = equals == std::string_view::npos ? argv[++n] : argument.substr(equals + 1);
        if (name == "--low") options.low = number<double>(name, value, "a frequency in Hz");
        if (name == "--high") options.high = number<double>(name, value, "a frequency in Hz");
        if (name == "--taps") options.taps = number<int>(name, value, "a whole number from 1 to 65535");
        if (name == "--out") {
            if (value.empty()) throw Trouble("--out takes a folder, not an empty name");
            options.folder = value;
            folderGiven = true;
        }
    }
    if (operands.size() > 2) throw Trouble("too many file names: at most INPUT and OUTPUT");
    for (const std::string_view operand : operands)
        if (operand.empty()) throw Trouble("a file name is empty");
    if (!operands.empty()) options.input = operands[0];
    if (operands.size() == 2) options.output = operands[1];
    if (folderGiven && !options.output.empty()) throw Trouble("give either OUTPUT or --out, not both");
    if (options.taps && (*options.taps < 1 || *options.taps > maxTaps))
        throw Trouble(text("--taps takes a whole number from 1 to ", maxTaps, ", not ", *options.taps));
    if (options.low < 0) throw Trouble(text("--low takes a frequency of 0 Hz or more, not ", options.low));
    if (!(options.low < options.high))
        throw Trouble(text("the band is empty: its lower edge (", options.low, " Hz) must lie below its upper edge (",
                           options.high, " Hz)"));
    return options;
}
