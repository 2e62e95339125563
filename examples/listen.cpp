// Draws the spectrogram of a recording, and reads the digits of a number that was dialled in it: tones in pairs, one of
// four rows of a telephone's keys and one of four columns. listen --help tells how it is called.
// The tones: ITU-T Recommendation Q.23, Technical features of push-button telephone sets, 1988.
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/trouble.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <orbs.hpp>
#include <span>

namespace fs = std::filesystem;

namespace {

constexpr std::array<double, 4> rows{697, 770, 852, 941}, columns{1209, 1336, 1477, 1633};
constexpr std::string_view keys = "123A456B789C*0#D"; // row by row

// ---- A recording of its own ----

constexpr int madeRate = 8000;

std::vector<float> dial(const std::string& number) {
    const auto samples = [](double seconds) { return static_cast<std::size_t>(seconds * madeRate); };
    std::vector<Orb32f> sound(samples(0.5 + 0.2 * static_cast<double>(number.size())));
    Orb32u seed = 7;
    orbs::RandGauss_Direct(sound, 0, 0.02f, seed); // the line's noise
    std::vector<Orb32f> tone(samples(0.12));
    for (std::size_t n = 0; n < number.size(); ++n) {
        const auto place = std::span(sound).subspan(samples(0.3 + 0.2 * static_cast<double>(n)), tone.size());
        const std::size_t key = keys.find(number[n]);
        for (const double frequency : {rows[key / 4], columns[key % 4]}) {
            Orb32f phase = 0;
            orbs::Tone_Direct(tone, 0.25f, static_cast<Orb32f>(frequency / madeRate), phase, orbAlgHintAccurate);
            orbs::Add(tone, place);
        }
    }
    return sound;
}

// ---- Digits ----

struct Digit {
    char key;
    double begin, end; // seconds
};

// The key that sounds in a block, or 0: one tone of each group must carry most of the power, and neither be much
// weaker. Telephones may be out of tune by 1.5 %: each tone is looked for a little above and below its place, too.
char keyIn(std::span<const Orb32f> block, double rate) {
    Orb32f norm = 0;
    orbs::Norm_L2(block, norm);
    const auto length = static_cast<double>(block.size());
    const double power = static_cast<double>(norm) * norm / length;
    if (power < 1e-6) return 0;

    const auto strongest = [&](const std::array<double, 4>& group) {
        std::pair<double, std::size_t> best{0, 0};
        for (std::size_t n = 0; n < group.size(); ++n) {
            for (const double tuning : {0.99, 1.0, 1.01}) {
                Orb32fc sum;
                orbs::Goertz(block, sum, static_cast<Orb32f>(group[n] * tuning / rate));
                const double amplitude = 2 * std::hypot(sum.re, sum.im) / length;
                best = std::max(best, {amplitude * amplitude / 2, n});
            }
        }
        return best;
    };
    const auto [rowPower, row] = strongest(rows);
    const auto [columnPower, column] = strongest(columns);
    const double twist = rowPower / columnPower; // lines may weaken one group by 8 dB, and noise adds to that
    const bool found = rowPower + columnPower > 0.7 * power && twist > 0.1 && twist < 10;
    return found ? keys[4 * row + column] : '\0';
}

// A key counts where it sounds for 40 ms, in blocks of 25 ms of which the next begins 5 ms later.
std::vector<Digit> readDigits(const Recording& recording) {
    if (recording.rate < 4000) return {}; // too slow for the tones
    const auto length = static_cast<std::size_t>(0.025 * recording.rate),
               step = static_cast<std::size_t>(0.005 * recording.rate);
    std::vector<Digit> digits;
    Digit current{0, 0, 0};
    const auto finish = [&] {
        if (current.key && current.end - current.begin >= 0.04) digits.push_back(current);
    };
    for (std::size_t n = 0; n + length <= recording.samples.size(); n += step) {
        const char key = keyIn(std::span(recording.samples).subspan(n, length), recording.rate);
        const double begin = static_cast<double>(n) / recording.rate;
        if (key != current.key) {
            finish();
            current = {key, begin, 0};
        }
        current.end = begin + 0.025;
    }
    finish();
    return digits;
}

// ---- Spectrogram ----

struct Spectrogram {
    std::size_t columns = 0;
    int window = 0;              // samples
    std::vector<float> decibels; // by rows, of equal frequency; 0 is a sine of full scale
};

// Windows of 32 ms, or as near as the recording allows; the transform takes any length, so none is rounded to a power
// of two.
Spectrogram look(const Recording& recording, double highest) {
    const std::size_t length = recording.samples.size();
    Spectrogram picture;
    picture.window = std::max(16, static_cast<int>(std::min(0.032 * recording.rate, static_cast<double>(length))));
    const auto window = static_cast<std::size_t>(picture.window);
    const std::size_t step = std::max(window / 8, (length - window) / 1200 + 1);
    const auto rowCount = static_cast<std::size_t>(highest / recording.rate * picture.window) + 1;
    picture.columns = (length - window) / step + 1;
    picture.decibels.resize(picture.columns * rowCount);

    const orbs::DFT_R_32f transform(picture.window, ORB_FFT_SCALE_NONE, orbAlgHintNone);
    std::vector<Orb32fc> bins(window / 2 + 1);
    std::vector<Orb32f> power(bins.size());
    const double sine = picture.window / 4.0; // the bin of a sine of full scale under this window

    Progress progress("looking");
    for (std::size_t column = 0; column < picture.columns; ++column) {
        Orb32f* const packed = &bins[0].re;
        orbs::WinHann(&recording.samples[column * step], packed, picture.window);
        transform.Fwd_RToCCS(packed, packed);
        orbs::PowerSpectr(bins, power);
        orbs::DivC(static_cast<Orb32f>(sine * sine), power);
        orbs::Threshold_LT(power, 1e-12f); // silence has a logarithm too
        orbs::Threshold_GT(power, 1e30f);  // and what overflowed has one that can be drawn
        orbs::Ln(power);
        orbs::MulC(4.342944819f, power); // 10 / ln 10
        for (std::size_t row = 0; row < rowCount; ++row) picture.decibels[row * picture.columns + column] = power[row];
        progress.at(static_cast<double>(column), static_cast<double>(picture.columns));
    }
    return picture;
}

// ---- The program ----

void draw(const fs::path& name, const Recording& recording, const std::vector<Digit>& digits, double highest,
          OutputFile& file) {
    const Spectrogram spectrogram = look(recording, highest);
    // From what is usual, which so becomes light, to the loudest.
    std::vector<Orb32f> levels = spectrogram.decibels;
    orbs::SortAscend(levels);
    const double top = 5 * std::ceil(levels.back() / 5.0);
    const double foot = std::clamp(5 * std::floor(levels[levels.size() / 2] / 5.0), top - 90, top - 30);
    const double duration = static_cast<double>(recording.samples.size()) / recording.rate;

    std::string number;
    for (const Digit& digit : digits) number += digit.key;
    Picture picture(number.empty() ? text(printable(name.filename()), ", spectrogram")
                                   : text("The number dialled in ", printable(name.filename()), ": ", number),
                    text(describe(duration, recording.rate, 1), "  \u00b7  Hann windows of ", spectrogram.window,
                         " samples  \u00b7  digits by the power at eight single frequencies"));
    Panel& panel = picture.add({{"Time (s)", 0, duration}, {"Frequency (Hz)", 0, highest}});
    panel.image(spectrogram.decibels, spectrogram.columns, foot, top, "Level (dB, 0 is a sine of full scale)");
    if (digits.size() <= 60)
        for (const Digit& digit : digits)
            panel.words((digit.begin + digit.end) / 2, highest * 0.95, std::string(1, digit.key), colour::red, 20);
    picture.write(file);
}

void run(int argc, char** argv) {
    std::string dialled = "0305550142#";
    double highest = 0;
    fs::path out = "demo";
    const CommandLine line{
        "[INPUT]",
        1,
        R"(Draws the spectrogram of a recording, and reads the digits of a number that was dialled in it.

  INPUT         a sound file: WAV, FLAC, OGG, AIFF, MP3 and whatever else libsndfile opens; of several channels the mean.
                Without it, listen dials a number over a noisy line and writes that recording too.
)",
        {{"--number", "KEYS", "what is dialled without an INPUT: 0 to 9, A to D, * and # (default 0305550142#)",
          [&](std::string_view option, std::string_view value) {
              if (value.empty() || value.size() > 60 || value.find_first_not_of(keys) != value.npos)
                  throw Trouble(
                      text(option, " takes 1 to 60 of the keys 0 to 9, A to D, * and #, not '", printable(value), "'"));
              dialled = value;
          }},
         {"--high", "HZ", "upper end of the picture, at most half the sample rate (default 4000 or that)",
          number(highest, 1, 1e9, "a frequency in Hz")},
         {"--out", "FOLDER", "folder for the picture, INPUT-spectrogram.png; made if missing (default demo)",
          folder(out)}},
        "A digit is two tones that sound together for 40 ms or more, at most 8 dB apart and 1.5 % out of tune, and "
        "carry most of the power.\n"};
    const std::vector<fs::path> operands = line.parse(argc, argv);
    const bool made = operands.empty();
    const fs::path name = made ? out / "call.wav" : operands[0];
    const fs::path pictureName = out / (name.stem().string() + "-spectrogram.png");
    keepInput(name, pictureName);

    Results results;
    Recording recording{madeRate, madeFormat, {}};
    if (made) {
        recording.samples = dial(dialled);
        results.makeFolder(out);
        results.sound(name, madeFormat, madeRate, 1).writeAll(recording.samples);
    } else {
        recording = readRecording(name);
    }
    const double nyquist = recording.rate / 2.0;
    if (highest > nyquist)
        throw Trouble(text(printable(name), " (", recording.rate, " samples a second) holds nothing above ", nyquist,
                           " Hz; give --high up to that"));
    if (recording.samples.size() < 100)
        throw Trouble(text(printable(name), " is too short to see anything in; give 100 samples or more"));
    const std::vector<Digit> digits = readDigits(recording);
    if (!made) results.makeFolder(out);
    draw(name, recording, digits, highest > 0 ? highest : std::min(4000.0, nyquist), results.file(pictureName));
    results.commit();

    if (made) report("Recording", text(printable(name), " (made up: a number dialled over a noisy line)"));
    for (const Digit& digit : digits)
        report("Digit", text(digit.key, "  ", fixed(digit.begin, 2), " to ", fixed(digit.end, 2), " s"));
    std::string all;
    for (const Digit& digit : digits) all += digit.key;
    report("Number", digits.empty() ? "none was dialled" : all);
    report("Picture", printable(pictureName));
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, run);
}
