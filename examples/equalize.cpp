// Shelves and peaks on a recording: second-order sections in a cascade, and a Butterworth high pass before them.
// Draws the response of all together and the spectra before and after. equalize --help tells how it is called.
// Sections: R. Bristow-Johnson, Cookbook formulae for audio equalizer biquad filter coefficients (W3C Note, 2021).
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/spectrum.h"
#include "support/speech.h"
#include "support/trouble.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <orbs.hpp>
#include <string>

namespace fs = std::filesystem;

namespace {

// ---- Design ----

struct Band {
    enum Shape { lowShelf, peak, highShelf } shape;
    double frequency, decibels, q;
};

// b0, b1, b2, a0, a1, a2: what the library's cascades take.
std::array<Orb64f, 6> section(const Band& band, double rate) {
    const double w = 2 * std::numbers::pi * band.frequency / rate, c = std::cos(w);
    const double alpha = std::sin(w) / (2 * band.q), g = std::pow(10, band.decibels / 40);
    if (band.shape == Band::peak) return {1 + alpha * g, -2 * c, 1 - alpha * g, 1 + alpha / g, -2 * c, 1 - alpha / g};
    const double s = band.shape == Band::lowShelf ? 1 : -1; // the high shelf is the low one mirrored
    const double root = 2 * std::sqrt(g) * alpha, sum = g + 1, difference = s * (g - 1) * c;
    return {g * (sum - difference + root), s * 2 * g * (g - 1 - s * sum * c), g * (sum - difference - root),
            sum + difference + root,       s * -2 * (g - 1 + s * sum * c),    sum + difference - root};
}

// What the user asked for, as the library's taps.
struct Design {
    std::vector<Orb64f> highPass; // empty: none
    std::vector<Orb64f> cascade;  // 6 a section
};

constexpr int highPassOrder = 4;

Design design(const std::vector<Band>& bands, double rumble, double rate) {
    Design made;
    if (rumble > 0) {
        made.highPass.resize(2 * (highPassOrder + 1));
        orbs::IIRGenHighpass(rumble / rate, 0, highPassOrder, made.highPass.data(), orbButterworth);
    }
    for (const Band& band : bands) {
        const std::array<Orb64f, 6> taps = section(band, rate);
        made.cascade.insert(made.cascade.end(), taps.begin(), taps.end());
    }
    return made;
}

// One channel's filters, in double precision over samples in single precision.
class Equalizer {
public:
    explicit Equalizer(const Design& design) {
        if (!design.highPass.empty()) highPass_.InitAlloc(design.highPass.data(), highPassOrder);
        if (!design.cascade.empty())
            cascade_.InitAlloc(design.cascade.data(), static_cast<int>(design.cascade.size() / 6));
    }
    void run(std::span<Orb32f> samples) {
        if (highPass_) highPass_.Run(samples);
        if (cascade_) cascade_.Run(samples);
    }

private:
    orbs::IIR64f_32f highPass_;
    orbs::IIR64f_BiQuad_32f cascade_;
};

// The response as it is, in decibels: the spectrum of what comes out behind one sample of 1.
Levels measuredResponse(const Design& design, double rate, double from) {
    constexpr int order = 16, length = 1 << order;
    std::vector<Orb32fc> bins(length / 2 + 1);
    const std::span impulse(&bins[0].re, length); // in the place of its spectrum
    impulse[0] = 1;
    Equalizer(design).run(impulse);
    orbs::FFT_R_32f(order, ORB_FFT_SCALE_NONE, orbAlgHintNone).Fwd_RToCCS(impulse.data());
    std::vector<Orb32f> power(bins.size());
    orbs::PowerSpectr(bins, power);

    Levels response;
    for (std::size_t k = 1; k < power.size(); ++k) {
        const double frequency = rate * static_cast<double>(k) / length;
        if (frequency < from) continue;
        response.frequency.push_back(frequency);
        response.decibels.push_back(10 * std::log10(std::max<double>(power[k], 1e-12)));
    }
    return response;
}

// ---- The program ----

struct Equalized {
    double seconds = 0; // of sound
    double filtering = 0;
};

Equalized equalize(SoundReader& input, const Design& design, double volume, SoundWriter& output, Spectrum& before,
                   Spectrum& after) {
    std::vector<Equalizer> equalizers;
    for (int n = 0; n < input.channels(); ++n) equalizers.emplace_back(design);
    Channels sound(input.channels());
    std::vector<float> block(sound.count() * blockFrames);

    Equalized result;
    Progress progress("equalizing");
    std::size_t done = 0;
    while (const std::size_t frames = input.read(block)) {
        sound.split(block, frames);
        for (std::size_t channel = 0; channel < sound.count(); ++channel) {
            const std::span samples = sound[channel].first(frames);
            before.add(channel, samples);
            const Stopwatch watch;
            equalizers[channel].run(samples);
            orbs::MulC(static_cast<Orb32f>(volume), samples);
            result.filtering += watch.seconds();
            after.add(channel, samples);
        }
        sound.join(0, frames, block);
        output.write(block, frames);
        done += frames;
        progress.at(static_cast<double>(done), static_cast<double>(input.frames()));
    }
    result.seconds = static_cast<double>(done) / input.rate();
    return result;
}

std::string words(const std::vector<Band>& bands, double rumble) {
    std::string all;
    if (rumble > 0) all = text("high pass ", rumble, " Hz");
    for (const Band& band : bands)
        all += text(all.empty() ? "" : "  \u00b7  ",
                    band.shape == Band::lowShelf    ? "low shelf "
                    : band.shape == Band::highShelf ? "high shelf "
                                                    : "peak ",
                    band.frequency, " Hz ", band.decibels > 0 ? "+" : "", band.decibels, " dB");
    return all.empty() ? "no band" : all;
}

void draw(const std::string& title, const std::string& subtitle, const Levels& response, double rate, Spectrum& before,
          Spectrum& after, OutputFile& file) {
    const double from = std::min(20.0, rate / 200);
    const Levels was = levelsOf(before, from), is = levelsOf(after, from);
    const Range levels = scaleFor({&was, &is});
    const auto [least, most] = std::ranges::minmax(response.decibels);
    Picture picture(title, subtitle, 900);
    Panel& gain = picture.add({{"", from, rate / 2, Axis::hertz},
                               {"Gain (dB)", std::clamp(3 * std::floor((least - 1) / 3), -30.0, -6.0),
                                std::max(3 * std::ceil((most + 1) / 3), 6.0)},
                               "Response, measured on the filters"});
    gain.line("", {from, rate / 2}, {0, 0}, colour::black, 1, true);
    gain.line("", response.frequency, response.decibels, colour::red, 3);
    Panel& spectra = picture.add({{"Frequency (Hz)", from, rate / 2, Axis::hertz},
                                  {"Level (dB of a full sine)", levels.from, levels.to},
                                  "The recording"});
    spectra.line("before", was.frequency, was.decibels, colour::orange, 4);
    spectra.line("after", is.frequency, is.decibels, colour::blue, 2);
    picture.write(file);
}

// "HZ:DB" or "HZ:DB:Q"
Band parseBand(Band::Shape shape, std::string_view option, std::string_view value) {
    constexpr std::string_view kind = "HZ:DB or HZ:DB:Q, as 3000:-4.5";
    std::vector<double> numbers;
    for (std::size_t begin = 0; begin <= value.size();) {
        const std::size_t end = std::min(value.find(':', begin), value.size());
        numbers.push_back(parseNumber(option, value.substr(begin, end - begin), kind));
        begin = end + 1;
    }
    if (numbers.size() < 2 || numbers.size() > 3)
        throw Trouble(text(option, " takes ", kind, ", not '", printable(value), "'"));
    const Band band{shape, numbers[0], numbers[1],
                    numbers.size() == 3   ? numbers[2]
                    : shape == Band::peak ? 1
                                          : std::sqrt(0.5)};
    if (!(band.frequency > 0) || std::fabs(band.decibels) > 40 || band.q < 0.1 || band.q > 20)
        throw Trouble(text(option, " takes frequencies above 0, -40 to 40 dB and Q from 0.1 to 20, not '",
                           printable(value), "'"));
    return band;
}

void run(int argc, char** argv) {
    std::vector<Band> bands;
    double rumble = 0, volume = 0;
    bool chosen = false;
    fs::path out;
    const auto adds = [&](Band::Shape shape) {
        return [&, shape](std::string_view option, std::string_view value) {
            bands.push_back(parseBand(shape, option, value));
            chosen = true;
        };
    };
    const CommandLine line{
        "[INPUT [OUTPUT]]",
        2,
        R"(Changes the tone of a recording by shelves and peaks, and draws their response and the spectra before and after.

  INPUT         a sound file: WAV, FLAC, OGG, AIFF, MP3 and whatever else libsndfile opens.
                Without it, equalize makes 10 seconds of its own, with hum and hiss, and writes them too.
  OUTPUT        where the sound goes; the picture goes beside it, as .png.
                Default: demo/INPUT-equalized with the ending of INPUT.
)",
        {{"--low-shelf", "HZ:DB[:Q]", "raise or lower what lies below (Q 0.71)", adds(Band::lowShelf)},
         {"--peak", "HZ:DB[:Q]", "raise or lower what lies around (Q 1)", adds(Band::peak)},
         {"--high-shelf", "HZ:DB[:Q]", "raise or lower what lies above (Q 0.71)", adds(Band::highShelf)},
         {"--rumble", "HZ", "take out what lies below, with 24 dB an octave",
          [&](std::string_view option, std::string_view value) {
              number(rumble, 1, 1e6, "a frequency in Hz")(option, value);
              chosen = true;
          }},
         {"--volume", "DB", "raise or lower everything (default 0)", number(volume, -60, 60, "decibels")},
         {"--out", "FOLDER", "folder for what is written, made if missing (default demo)", folder(out)}},
        R"(Bands may be given several times. With none, speech is made clearer: --rumble 120 --low-shelf 250:-4 --peak 2800:6
--high-shelf 6000:-9. Filters run in double precision, one behind the other.
)"};
    const Names names(line.parse(argc, argv), out, "speech.wav", "-equalized");
    if (!chosen) {
        rumble = 120;
        bands = {{Band::lowShelf, 250, -4, std::sqrt(0.5)},
                 {Band::peak, 2800, 6, 1},
                 {Band::highShelf, 6000, -9, std::sqrt(0.5)}};
    }

    Results results;
    SoundReader input(names.source(results, 48000, [] { return makeSpeech(); }));
    const int rate = input.rate(), channels = input.channels();
    double highest = rumble;
    if (!chosen) std::erase_if(bands, [&](const Band& band) { return band.frequency >= rate / 2.0; });
    for (const Band& band : bands) highest = std::max(highest, band.frequency);
    if (highest >= rate / 2.0)
        throw Trouble(text("there is nothing to change at ", highest, " Hz: ", printable(names.input), " (", rate,
                           " samples a second) ends at ", rate / 2.0, " Hz"));
    const Design filters = design(bands, rumble, rate);
    Spectrum before(rate, channels), after(rate, channels);

    names.makeFolder(results);
    SoundWriter& output =
        results.sound(names.output, formatFor(names.output, names.input, input.format()), rate, channels);
    OutputFile& picture = results.file(names.picture);
    const Equalized equalized = equalize(input, filters, std::pow(10, volume / 20), output, before, after);
    output.close();
    draw(text(printable(names.input.filename()), ", before and after the equalizer"), words(bands, rumble),
         measuredResponse(filters, rate, std::min(20.0, rate / 200.0)), rate, before, after, picture);
    results.commit();
    noteTroubles(output);

    if (names.made) report("Recording", text(printable(names.input), " (made up: speech-like, with hum and hiss)"));
    report("Equalized", text(printable(names.output), " (", describe(equalized.seconds, rate, channels), ")"));
    report("Bands", words(bands, rumble));
    report("Picture", printable(names.picture));
    report("Speed",
           text("filtering ", std::round(equalized.seconds / equalized.filtering), " times faster than real time"));
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, run);
}
