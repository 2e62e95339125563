// Changes the sampling rate of a recording with one multi-rate FIR filter, and measures with tones what it adds to them
// beside what soxr and libsamplerate add. resample --help tells how it is called.
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/speech.h"
#include "support/trouble.h"

#include <orbs.hpp>
#include <samplerate.h>
#include <soxr.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>

namespace fs = std::filesystem;
using std::numbers::pi;

namespace {

constexpr double attenuation = 150; // dB: with it, what is left of images lies below the rounding of 32-bit floats
constexpr double passBand = 0.91;   // of half the lower rate: 20 kHz of 44.1
constexpr int maxTaps = 4'000'000;
constexpr int iterations = 64; // of the filter a call: that many times downFactor samples become upFactor

// ---- The converter ----

// One prototype filter at the raised rate, upFactor times the input's. The library multiplies only the samples that are
// there, and computes only the outputs that are kept.
struct Design {
    int up, down;
    std::vector<Orb64f> taps;
};

Design design(int from, int to) {
    const int common = std::gcd(from, to);
    Design made{to / common, from / common, {}};
    const double raised = static_cast<double>(from) * made.up, nyquist = std::min(from, to) / 2.0;
    // Kaiser's formulas (1974): the band from the last frequency that is kept to the first that would come back
    // mirrored.
    const double transition = (1 - passBand) * nyquist / raised;
    const double count = std::ceil((attenuation - 8) / (2.285 * 2 * pi * transition));
    if (count > maxTaps)
        throw Trouble(text("from ", from, " to ", to, " Hz is ", made.up, " / ", made.down,
                           ", which takes a filter of ", count, " taps; choose rates with a larger common divisor"));
    // Half of it a whole number of outputs, so that the delay can be taken out.
    const int length = 2 * made.down * static_cast<int>(std::ceil(count / (2 * made.down))) + 1;
    const double beta = 0.1102 * (attenuation - 8.7);
    made.taps.resize(static_cast<std::size_t>(length));
    const int noWindow = -1; // merely cut off: the Kaiser window follows
    orbs::FIRGenLowpass((1 + passBand) / 2 * nyquist / raised, made.taps, noWindow, 0);
    orbs::WinKaiser(made.taps, static_cast<Orb32f>(2 * beta / (length - 1)));
    Orb64f sum = 0;
    orbs::Sum(made.taps, sum);
    orbs::MulC(made.up / sum, made.taps);
    return made;
}

// One channel's stream.
class Converter {
public:
    explicit Converter(const Design& design)
        : up_(design.up), down_(design.down), filter_(design.taps, up_, 0, down_, 0) {}
    std::size_t inputBlock() const { return static_cast<std::size_t>(down_) * iterations; }
    std::size_t outputBlock() const { return static_cast<std::size_t>(up_) * iterations; }
    void run(const Orb32f* input, Orb32f* output) { filter_.Run(input, output, iterations); }

private:
    int up_, down_;
    orbs::FIRMR64f_32f filter_;
};

// Outputs that come before the first sample stands in the middle of the filter.
std::size_t delayOf(const Design& design) {
    return design.taps.size() / 2 / static_cast<std::size_t>(design.down);
}

// ---- What a converter adds to tones ----

using Conversion = std::function<std::vector<Orb32f>(const std::vector<Orb32f>&)>;

struct Tone {
    double frequency, gain, noise; // Hz; dB; dB below the tone that went in
};

constexpr int section = 8192; // outputs that are looked at, a whole number of periods
constexpr int margin = 4096;  // outputs before and behind them
constexpr double amplitude = 0.9;

std::vector<Orb64f> tone(double relative, double phase, int length) {
    std::vector<Orb64f> samples(static_cast<std::size_t>(length));
    orbs::Tone_Direct(samples, 1, relative, phase, orbAlgHintFast);
    return samples;
}

Tone measure(const Conversion& convert, int periods, int from, int to) {
    const double relative = static_cast<double>(periods) / section;
    std::vector<Orb64f> input =
        tone(relative * to / from, 0, static_cast<int>(1.0 * (section + 2 * margin) * from / to));
    std::vector<Orb32f> rounded(input.size());
    orbs::MulC(amplitude, input);
    orbs::Convert(input, rounded);
    const std::vector<Orb32f> output = convert(rounded);

    std::vector<Orb64f> rest(section), part(section);
    orbs::Convert(std::span(output).subspan(margin, section), rest);
    double power = 0;
    for (const double phase : {0.0, 1.5 * pi}) { // cosine and sine
        const std::vector<Orb64f> wave = tone(relative, phase, section);
        Orb64f product = 0;
        orbs::DotProd(rest, wave, product);
        product *= 2.0 / section;
        orbs::MulC(wave, product, part);
        orbs::Sub(part, rest);
        power += product * product;
    }
    Orb64f noise = 0;
    orbs::Norm_L2(rest, noise);
    return {relative * to, 10 * std::log10(power / (amplitude * amplitude)),
            20 * std::log10(noise / std::sqrt(section / 2.0) / amplitude)};
}

// Conversions of a whole vector by each of the libraries, in single precision as sound files are read.
struct Peer {
    const char* name;
    std::string_view colour;
    double width; // of its line: soxr's and orbs's lie upon each other
    Conversion convert;
    std::vector<Tone> tones = {};
    double worst = -300; // noise of the tones in the pass band

    void look(int count, int from, int to, Progress& progress, double share) {
        const double nyquist = std::min(from, to) / 2.0;
        for (int n = 0; n < count; ++n) {
            const int periods = static_cast<int>((n + 0.7) / count * nyquist / to * section);
            tones.push_back(measure(convert, std::max(periods, 1), from, to));
            if (tones.back().frequency <= passBand * nyquist) worst = std::max(worst, tones.back().noise);
            progress.at(share + n, 3 * count);
        }
    }
};

std::vector<Peer> peers(const Design& design, int from, int to) {
    const auto roomFor = [=](const std::vector<Orb32f>& input) {
        return static_cast<std::size_t>(static_cast<double>(input.size()) * to / from) + 64;
    };
    return {{"soxr, very high quality", colour::orange, 6,
             [=](const std::vector<Orb32f>& input) {
                 std::vector<Orb32f> output(roomFor(input));
                 const soxr_io_spec_t samples = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
                 const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_VHQ, 0);
                 if (soxr_oneshot(from, to, 1, input.data(), input.size(), nullptr, output.data(), output.size(),
                                  nullptr, &samples, &quality, nullptr))
                     throw Trouble("soxr refused the conversion that it is measured with");
                 return output;
             }},
            {"libsamplerate, best sinc", colour::green, 2.5,
             [=](const std::vector<Orb32f>& input) {
                 std::vector<Orb32f> output(roomFor(input));
                 SRC_DATA job{};
                 job.data_in = input.data();
                 job.data_out = output.data();
                 job.input_frames = static_cast<long>(input.size());
                 job.output_frames = static_cast<long>(output.size());
                 job.src_ratio = static_cast<double>(to) / from;
                 if (src_simple(&job, SRC_SINC_BEST_QUALITY, 1) != 0)
                     throw Trouble("libsamplerate refused the conversion that it is measured with");
                 return output;
             }},
            {"orbs, this program", colour::blue, 2.5, [&design](const std::vector<Orb32f>& input) {
                 Converter converter(design);
                 const std::size_t blocks = input.size() / converter.inputBlock() + 1;
                 std::vector<Orb32f> padded(input), output(blocks * converter.outputBlock());
                 padded.resize(blocks * converter.inputBlock());
                 for (std::size_t n = 0; n < blocks; ++n)
                     converter.run(&padded[n * converter.inputBlock()], &output[n * converter.outputBlock()]);
                 return output;
             }}};
}

// ---- The program ----

struct Converted {
    double seconds = 0; // of sound
    double converting = 0;
};

Converted convert(SoundReader& input, const Design& design, SoundWriter& output) {
    std::vector<Converter> converters;
    for (int n = 0; n < input.channels(); ++n) converters.emplace_back(design);
    const std::size_t inputBlock = converters[0].inputBlock(), outputBlock = converters[0].outputBlock();
    Channels heard(input.channels(), inputBlock), made(input.channels(), outputBlock);
    std::vector<float> read(heard.count() * inputBlock), written(heard.count() * outputBlock);

    Converted result;
    Progress progress("converting");
    std::size_t taken = 0, toDrop = delayOf(design), done = 0;
    for (bool ended = false;;) {
        const std::size_t frames = ended ? 0 : input.read(read);
        ended = ended || frames < inputBlock;
        taken += frames;
        const auto up = static_cast<std::size_t>(design.up), down = static_cast<std::size_t>(design.down);
        const std::size_t all = (taken * up + down - 1) / down;
        if (ended && done == all) break;
        std::fill(read.begin() + static_cast<std::ptrdiff_t>(frames * heard.count()), read.end(), 0.0f);
        heard.split(read, inputBlock);

        const Stopwatch watch;
        for (std::size_t channel = 0; channel < heard.count(); ++channel)
            converters[channel].run(heard[channel].data(), made[channel].data());
        result.converting += watch.seconds();

        const std::size_t dropped = std::min(toDrop, outputBlock);
        toDrop -= dropped;
        const std::size_t kept = std::min(outputBlock - dropped, all - done);
        made.join(dropped, kept, written);
        output.write(written, kept);
        done += kept;
        progress.at(static_cast<double>(taken), static_cast<double>(input.frames()));
    }
    result.seconds = static_cast<double>(taken) / input.rate();
    return result;
}

void draw(const std::vector<Peer>& measured, int from, int to, std::size_t taps, OutputFile& file) {
    const double nyquist = std::min(from, to) / 2.0;
    double least = 0, most = -300;
    for (const Peer& peer : measured) {
        for (const Tone& tone : peer.tones) {
            least = std::min(least, tone.noise);
            most = std::max(most, tone.noise);
        }
    }
    Picture picture(
        text("From ", from, " to ", to, " Hz: what a converter adds to a tone"),
        text("a tone of 32-bit floats at a time  \u00b7  noise: all that comes out but the tone itself  \u00b7  orbs: ",
             taps, " taps"),
        900);
    Panel& noise = picture.add({{"", 0, nyquist},
                                {"Noise (dB, 0 is the tone)", std::min(-160.0, 10 * std::floor(least / 10)),
                                 10 * std::ceil((most + 5) / 10)}});
    Panel& gain = picture.add({{"Frequency of the tone (Hz)", 0, nyquist}, {"Gain (dB)", -6, 1}});
    noise.share = 1.6;
    for (const Peer& peer : measured) {
        std::vector<double> frequency, level, passed;
        for (const Tone& tone : peer.tones) {
            frequency.push_back(tone.frequency);
            level.push_back(tone.noise);
            passed.push_back(tone.gain);
        }
        noise.line(peer.name, frequency, level, peer.colour, peer.width);
        gain.line("", frequency, passed, peer.colour, peer.width);
    }
    picture.write(file);
}

void run(int argc, char** argv) {
    int rate = 48000, tones = 48;
    fs::path out;
    const CommandLine line{
        "[INPUT [OUTPUT]]",
        2,
        R"(Changes the sampling rate of a recording, and measures what that adds to tones, beside soxr and libsamplerate.

  INPUT         a sound file: WAV, FLAC, OGG, AIFF, MP3 and whatever else libsndfile opens.
                Without it, resample makes 10 seconds of its own at 44.1 kHz and writes them too.
  OUTPUT        where the converted sound goes; the picture goes beside it, as .png.
                Default: demo/INPUT-resampled with the ending of INPUT.
)",
        {{"--rate", "HZ", "the new rate, 1000 to 768000 (default 48000)", whole(rate, 1000, 768000)},
         {"--tones", "N", "how many tones are measured, 4 to 1000 (default 48)", whole(tones, 4, 1000)},
         {"--out", "FOLDER", "folder for what is written, made if missing (default demo)", folder(out)}},
        R"(One filter between the two rates, a windowed sinc of linear phase, keeps what lies below 91 % of half the lower rate and
attenuates by 150 dB what would come back mirrored. Its delay is taken out.
)"};
    const Names names(line.parse(argc, argv), out, "speech.wav", "-resampled");
    Results results;
    SoundReader input(names.source(results, 44100, [] { return makeSpeech({.rate = 44100}); }));
    const int from = input.rate();
    if (from == rate)
        throw Trouble(text(printable(names.input), " has ", rate, " samples a second already; give another --rate"));
    if (from < 1000 || from > 768000)
        throw Trouble(text(printable(names.input), " has ", from, " samples a second; 1000 to 768000 can be changed"));
    const Design filter = design(from, rate);

    names.makeFolder(results);
    SoundWriter& output =
        results.sound(names.output, formatFor(names.output, names.input, input.format()), rate, input.channels());
    OutputFile& picture = results.file(names.picture);
    const Converted converted = convert(input, filter, output);
    output.close();

    std::vector<Peer> measured = peers(filter, from, rate);
    {
        Progress progress("measuring");
        for (double share = 0; Peer & peer : measured) {
            peer.look(tones, from, rate, progress, share);
            share += tones;
        }
    }
    draw(measured, from, rate, filter.taps.size(), picture);
    results.commit();
    noteTroubles(output);

    if (names.made) report("Recording", text(printable(names.input), " (made up: speech-like, with hum and hiss)"));
    report("Converted", text(printable(names.output), " (", describe(converted.seconds, rate, input.channels()), "; ",
                             filter.up, " / ", filter.down, ", ", filter.taps.size(), " taps)"));
    for (const Peer& peer : measured)
        report("Noise", text(fixed(peer.worst, 1), " dB at most beside a tone of 0 dB: ", peer.name));
    report("Picture", printable(names.picture));
    report("Speed",
           text("converting ", std::round(converted.seconds / converted.converting), " times faster than real time"));
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, run);
}
