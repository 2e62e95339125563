// Cleans a recording: keeps one band of frequencies with the library's FIR filter, block by block as a stream would
// come, and draws the spectra before and after with its FFT. bandpass --help tells how it is called.
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/spectrum.h"
#include "support/speech.h"
#include "support/trouble.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <orbs.hpp>

namespace fs = std::filesystem;

namespace {

constexpr int maxTaps = 65535;

// Kaiser's formulas (1974) for a stop band 80 dB down: the shape of the window, and its length for a transition.
constexpr double attenuation = 80;
constexpr double beta = 0.1102 * (attenuation - 8.7);

// As many taps as a transition half as wide as the lower edge (or the band, if that is narrower) needs.
int defaultTaps(double low, double high, double rate) {
    const double transition = std::min(low > 0 ? low : high, high - low) / 2;
    const double needed = (attenuation - 8) / (2.285 * 2 * std::numbers::pi * transition / rate);
    return static_cast<int>(std::clamp(std::ceil(needed), 1.0, static_cast<double>(maxTaps))) | 1;
}

// The ideal low pass with cut-off f (in cycles a sample), n samples from its centre.
double lowPass(double f, double n) {
    return n == 0 ? 2 * f : std::sin(2 * std::numbers::pi * f * n) / (std::numbers::pi * n);
}

// The ideal band, under a Kaiser window; gain 1 in its middle. A band may begin at 0 or end at half the rate, and one
// tap is enough, which the library's own designs refuse.
std::vector<Orb32f> designBand(double low, double high, double rate, int count) {
    const int half = count / 2;
    std::vector<Orb64f> taps;
    for (int n = -half; n <= half; ++n) taps.push_back(lowPass(high / rate, n) - lowPass(low / rate, n));
    if (half > 0) orbs::WinKaiser(taps, static_cast<Orb32f>(beta / half));

    double gain = 0;
    for (int n = -half; n <= half; ++n)
        gain += taps[static_cast<std::size_t>(n + half)] * std::cos(std::numbers::pi * (low + high) / rate * n);
    orbs::MulC(1 / gain, taps);
    std::vector<Orb32f> rounded(taps.size());
    orbs::Convert(taps, rounded);
    return rounded;
}

struct Cleaned {
    double seconds = 0; // of sound
    double filtering = 0;
};

// Reads, filters, writes, and gathers the spectra. The filter's delay is taken out: as many samples as it delays are
// dropped at the beginning, and as many of silence follow the input.
Cleaned clean(SoundReader& input, std::vector<orbs::FIR_32f>& filters, std::size_t delay, SoundWriter& output,
              Spectrum& before, Spectrum& after) {
    Cleaned result;
    Progress progress("cleaning");
    Channels heard(input.channels()), cleaned(input.channels());
    std::vector<float> block(heard.count() * blockFrames);
    std::size_t done = 0, toDrop = delay, toFlush = delay;
    for (bool ended = false;;) {
        std::size_t frames = ended ? 0 : input.read(block);
        if (frames > 0) {
            heard.split(block, frames);
            for (std::size_t channel = 0; channel < heard.count(); ++channel)
                before.add(channel, heard[channel].first(frames));
            done += frames;
        } else {
            ended = true;
            frames = std::min(toFlush, blockFrames);
            if (frames == 0) break;
            toFlush -= frames;
            for (std::size_t channel = 0; channel < heard.count(); ++channel) std::ranges::fill(heard[channel], 0.0f);
        }

        const Stopwatch watch;
        for (std::size_t channel = 0; channel < heard.count(); ++channel)
            filters[channel].Run(heard[channel].first(frames), cleaned[channel].first(frames));
        result.filtering += watch.seconds();

        const std::size_t dropped = std::min(toDrop, frames);
        toDrop -= dropped;
        frames -= dropped;
        for (std::size_t channel = 0; channel < heard.count(); ++channel)
            after.add(channel, cleaned[channel].subspan(dropped, frames));
        cleaned.join(dropped, frames, block);
        output.write(block, frames);
        progress.at(static_cast<double>(done), static_cast<double>(input.frames()));
    }
    result.seconds = static_cast<double>(done) / input.rate();
    return result;
}

void draw(const std::string& title, const std::string& subtitle, double low, double high, Spectrum& before,
          Spectrum& after, OutputFile& file) {
    const double nyquist = before.binWidth() * before.length() / 2;
    const double left = std::min({20.0, nyquist / 100, low > 0 ? low / 2 : 20.0});
    const Levels was = levelsOf(before, left), is = levelsOf(after, left);
    const Range levels = scaleFor({&was, &is});

    Picture picture(title, subtitle);
    Panel& panel = picture.add({{"Frequency (Hz)", left, nyquist, Axis::hertz},
                                {"Level (dB, 0 is a sine of full scale)", levels.from, levels.to}});
    panel.span(text("the band kept, ", low, " to ", high, " Hz"), std::max(low, left), high, colour::band);
    panel.line("before", was.frequency, was.decibels, colour::orange, 4);
    panel.line("after", is.frequency, is.decibels, colour::blue, 2);
    picture.write(file);
}

void run(int argc, char** argv) {
    double low = 300, high = 3400;
    int taps = 0;
    fs::path out;
    const CommandLine line{
        "[INPUT [OUTPUT]]",
        2,
        R"(Cleans a recording: keeps one band of frequencies, by default that of speech, and draws the spectra before and after.

  INPUT         a sound file: WAV, FLAC, OGG, AIFF, MP3 and whatever else libsndfile opens.
                Without it, bandpass makes 10 seconds of its own, with hum and hiss, and writes them too.
  OUTPUT        where the cleaned sound goes; the picture goes beside it, as .png.
                Default: demo/INPUT-band with the ending of INPUT.
)",
        {{"--low", "HZ", "lower edge of the band, 0 or more (default 300)", number(low, 0, 1e9, "a frequency in Hz")},
         {"--high", "HZ", "upper edge of the band, at most half the sample rate (default 3400)",
          number(high, 0, 1e9, "a frequency in Hz")},
         {"--taps", "N",
          "length of the filter, 1 to 65535; an even N becomes the next odd one.\n"
          "Default: as many as a transition half as wide as the lower edge needs (1605 at 48 kHz).",
          whole(taps, 1, maxTaps)},
         {"--out", "FOLDER", "folder for what is written, made if missing (default demo)", folder(out)}},
        R"(The filter has linear phase (a windowed sinc, Kaiser window, 80 dB) and gain 1 in the middle of the band; at both edges
the gain is one half. Its delay is taken out, so the cleaned sound has the length and the timing of the input. It has
the input's format, sample rate and channels too, unless OUTPUT ends in that of another format; where a format cannot be
written it is WAV with 32-bit floats.
)"};
    const Names names(line.parse(argc, argv), out, "speech.wav", "-band");
    if (!(low < high))
        throw Trouble(
            text("the band is empty: its lower edge (", low, " Hz) must lie below its upper edge (", high, " Hz)"));

    const Stopwatch watch;
    Results results;
    const fs::path source = names.source(results, 48000, [] { return makeSpeech(); });
    SoundReader input(source);
    const int rate = input.rate(), channels = input.channels();
    if (high > rate / 2.0)
        throw Trouble(text("the band ends at ", high, " Hz, but ", printable(names.input), " (", rate,
                           " samples a second) holds nothing above ", rate / 2.0,
                           " Hz; give --low and --high below that"));

    const std::vector<Orb32f> response = designBand(low, high, rate, taps > 0 ? taps : defaultTaps(low, high, rate));
    std::vector<orbs::FIR_32f> filters;
    for (int channel = 0; channel < channels; ++channel) filters.emplace_back(response);
    Spectrum before(rate, channels), after(rate, channels);

    names.makeFolder(results);
    SoundWriter& output =
        results.sound(names.output, formatFor(names.output, names.input, input.format()), rate, channels);
    OutputFile& picture = results.file(names.picture);
    const Cleaned cleaned = clean(input, filters, response.size() / 2, output, before, after);
    output.close();

    const std::string sound = describe(cleaned.seconds, rate, channels);
    draw(text(printable(names.input.filename()), ", before and after the band filter"),
         text(sound, "  \u00b7  ", response.size(), " taps, Kaiser window  \u00b7  spectra: mean of Hann windows of ",
              before.length(), " samples, ", std::round(before.binWidth() * 100) / 100, " Hz a bin"),
         low, high, before, after, picture);
    results.commit();
    if (input.cutShort())
        note(text(printable(names.input), " is shorter than its header says; what is there was cleaned"));
    noteTroubles(output);

    if (names.made) report("Recording", text(printable(names.input), " (made up: speech-like, with hum and hiss)"));
    report("Cleaned", text(printable(names.output), " (", sound, "; kept ", low, " to ", high, " Hz with ",
                           response.size(), " taps)"));
    report("Picture", printable(names.picture));
    report("Speed", text("filtering ", std::round(cleaned.seconds / cleaned.filtering),
                         " times faster than real time (", std::round(cleaned.filtering * 1e6) / 1e3,
                         " ms), all with files and picture ", std::round(cleaned.seconds / watch.seconds()), " times"));
}

} // namespace

int main(int argc, char** argv) {
    orbSetNumThreads(1); // blocks as short as a stream's gain nothing from more
    return runProgram(argc, argv, run);
}
