// Removes the echo of one recording from another: what a loudspeaker played comes back in the microphone late, coloured
// by the room, and mixed with the voice that is wanted. Correlation finds how late, an adaptive filter learns the room.
// echo --help tells how it is called.
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/speech.h"
#include "support/trouble.h"

#include <algorithm>
#include <cmath>
#include <orbs.hpp>
#include <span>

namespace fs = std::filesystem;
using Samples = std::vector<Orb32f>;

namespace {

// ---- A room of its own ----

constexpr int madeRate = 16000;
constexpr double madeSeconds = 14, nearBegins = 9;

// The loudspeaker's voice through a room: 45 ms of way, then 90 ms of dying reflections. The wanted voice comes later.
Samples makeMicrophone(const Samples& loudspeaker) {
    Samples room(static_cast<std::size_t>(0.135 * madeRate));
    Orb32u seed = 3;
    orbs::RandGauss_Direct(room, 0, 0.12f, seed);
    const std::size_t way = madeRate * 45 / 1000;
    room[way] = 0.5f;
    for (std::size_t n = 0; n < room.size(); ++n)
        room[n] *= n < way ? 0.0f : static_cast<float>(std::exp(-static_cast<double>(n - way) / (0.018 * madeRate)));
    Samples microphone(loudspeaker.size() + room.size() - 1);
    orbs::Conv(loudspeaker, room, microphone);
    microphone.resize(loudspeaker.size());

    Samples voice = makeSpeech(
        {.rate = madeRate, .seconds = madeSeconds, .begin = nearBegins, .pitch = 170, .clean = true, .seed = 2});
    Samples hiss(voice.size());
    orbs::RandGauss_Direct(hiss, 0, 0.0005f, seed);
    orbs::MulC(0.4f, voice);
    orbs::Add(voice, microphone);
    orbs::Add(hiss, microphone);
    return microphone;
}

// ---- How late the echo comes ----

// Speech has most of its power low down, where it is like itself at many lags, and where a filter would learn first and
// almost only. This levels it.
constexpr Orb32f emphasis = 0.5f;
Samples emphasized(Samples samples) {
    orbs::Preemphasize(samples.data(), static_cast<int>(samples.size()), emphasis);
    return samples;
}

// The lag of the greatest correlation.
int findDelay(const Samples& played, const Samples& heard, int longest) {
    Samples likeness(static_cast<std::size_t>(longest) + 1);
    orbs::CrossCorr(played, heard, likeness, 0);
    orbs::Abs(likeness);
    Orb32f most = 0;
    Orb32s lag = 0;
    orbs::MaxIndx(likeness, most, lag);
    return lag;
}

// ---- The adaptive filter ----

struct Learned {
    Samples cleaned, taps;
    double seconds = 0; // that it took
};

double powerOf(std::span<const Orb32f> samples) {
    Orb32f norm = 0;
    orbs::Norm_L2(samples, norm);
    return static_cast<double>(norm) * norm;
}

// Normalised LMS: the step is divided by the power of the samples in the filter, block by block. While another voice is
// in the microphone the filter would learn from that: the less of a block the filter explains, the smaller the step.
// Unless what is left is like what the filter made: then the room is not what it was, and the filter has to learn.
// S. Haykin, Adaptive Filter Theory, chapter 6.
Learned cancel(const Samples& microphone, const Samples& played, const Samples& heard, std::size_t taps, double step) {
    constexpr std::size_t blockLength = 64;
    Learned learned{Samples(microphone.size()), Samples(taps)};
    Samples line(taps); // silence, behind it the samples played
    line.insert(line.end(), played.begin(), played.end());

    orbs::FIRLMS_32f filter(Samples(taps), nullptr, 0);
    const Orb64f back[] = {1, 0, 1, -emphasis};
    orbs::IIR64f_32f deemphasis(back, 1);
    const double floor = 1e-6 * static_cast<double>(taps);
    double trust = 1, likeness = 0, strength = floor;
    bool learnt = false;
    Samples rest(blockLength);
    Progress progress("removing the echo");
    const Stopwatch watch;
    for (std::size_t n = 0; n < microphone.size(); n += blockLength) {
        const std::size_t length = std::min(blockLength, microphone.size() - n);
        const auto block = [=](auto& samples) { return std::span(samples).subspan(n, length); };
        const double power = powerOf(std::span(line).subspan(n, taps + length)) + floor;
        const auto mu = static_cast<Orb32f>(step * trust / (2 * power));
        const std::span<Orb32f> echo = block(learned.cleaned);
        filter.Run(block(played), block(heard), echo, mu);
        rest.resize(length);
        orbs::Sub(echo, block(heard), rest);
        const double explained = powerOf(echo), left = powerOf(rest);
        Orb32f common = 0;
        orbs::DotProd(echo, rest, common);
        deemphasis.Run(echo);
        orbs::Sub(echo, block(microphone), echo); // the microphone less the echo
        likeness += 0.05 * (-common - likeness);
        strength += 0.05 * (explained - strength);
        learnt = learnt || explained > 30 * left + floor;
        if (learnt)
            trust = std::max(std::pow(std::min(1.0, 0.15 * explained / (left + 1e-12)), 2),
                             std::clamp(1.5 * likeness / (strength + 1e-12) - 0.3, 0.0, 1.0));
        progress.at(static_cast<double>(n), static_cast<double>(microphone.size()));
    }
    filter.GetTaps(learned.taps.data());
    learned.seconds = watch.seconds();
    return learned;
}

// ---- The program ----

// Levels of parts of 50 ms, in decibels of full scale.
constexpr double part = 0.05;
std::vector<double> levels(const Samples& samples, int rate) {
    std::vector<double> all;
    const auto length = static_cast<std::size_t>(part * rate);
    for (std::size_t n = 0; n + length <= samples.size(); n += length)
        all.push_back(
            10 * std::log10(2 * powerOf(std::span(samples).subspan(n, length)) / static_cast<double>(length) + 1e-9));
    return all;
}

struct Reduction {
    std::vector<double> time, decibels; // over the half second before
    double reached = -1;                // seconds until 10 dB
    double best = 0;
};

Reduction reductionOf(const std::vector<double>& before, const std::vector<double>& after) {
    Reduction reduction;
    constexpr std::size_t parts = 10;
    for (std::size_t n = parts; n <= before.size(); ++n) {
        double was = 0, is = 0;
        for (std::size_t k = n - parts; k < n; ++k) {
            was += std::pow(10, before[k] / 10);
            is += std::pow(10, after[k] / 10);
        }
        if (was < parts * 1e-5) continue; // silence
        reduction.time.push_back(part * static_cast<double>(n));
        reduction.decibels.push_back(10 * std::log10(was / is));
        reduction.best = std::max(reduction.best, reduction.decibels.back());
        if (reduction.reached < 0 && reduction.decibels.back() >= 10) reduction.reached = reduction.time.back();
    }
    return reduction;
}

struct Found {
    int rate, delay, begin; // samples; the filter begins 20 ms before the delay
    double adaptSeconds, duration;
};

void draw(const std::string& title, bool made, const Found& found, const std::vector<double>& before,
          const std::vector<double>& after, const Reduction& reduction, const Samples& taps, OutputFile& file) {
    Picture picture(title,
                    text("the echo comes after ", std::round(1e4 * found.delay / found.rate) / 10, " ms  \u00b7  ",
                         taps.size(), " taps  \u00b7  normalised LMS in blocks of 64 samples"),
                    1000);
    const double end = found.duration;
    Panel& level = picture.add({{"", 0, end}, {"Level (dB of a full sine)", -90, 0}});
    level.share = 1.3;
    level.legend = "bottom left horizontal";
    Panel& gone = picture.add(
        {{"Time (s)", 0, end}, {"Reduction (dB)", -10, std::max(40.0, 10 * std::ceil(reduction.best / 10))}});
    gone.legend = "bottom left";
    if (made) {
        level.span("the wanted voice speaks too", nearBegins, madeSeconds - 0.6, colour::band);
        gone.span("", nearBegins, madeSeconds - 0.6, colour::band);
    }
    std::vector<double> time;
    for (std::size_t n = 0; n < before.size(); ++n) time.push_back(part * (static_cast<double>(n) + 0.5));
    level.line("microphone", time, before, colour::orange, 2.5);
    level.line("without the echo", time, after, colour::blue, 2.5);
    gone.line("what is gone, over half a second", reduction.time, reduction.decibels, colour::green, 3);

    std::vector<double> late, room(taps.begin(), taps.end());
    for (std::size_t n = 0; n < taps.size(); ++n)
        late.push_back(1e3 * (found.begin + static_cast<double>(n)) / found.rate);
    const auto [low, high] = std::ranges::minmax(room);
    const double most = 1.1 * std::max({1e-9, -low, high});
    Panel& response = picture.add(
        {{"Time after the loudspeaker (ms)", late.front(), late.back()}, {"Tap of the filter", -most, most}});
    response.line("the room, as the filter has learned it", late, room, colour::blue, 1.5);
    picture.write(file);
}

void run(int argc, char** argv) {
    double longest = 500, tail = 128, step = 0.7;
    fs::path out;
    const CommandLine line{
        "[LOUDSPEAKER MICROPHONE [OUTPUT]]",
        3,
        R"(Removes from the recording of a microphone what a loudspeaker played beside it, and draws how fast.

  LOUDSPEAKER   what was played, and
  MICROPHONE    what was heard, from the same moment on: sound files of one rate; of several channels the mean.
                Without them, echo makes 14 seconds of its own: a voice that comes back from a room, and from the ninth
                second on a second voice, which is to stay.
  OUTPUT        where the sound without the echo goes; the picture goes beside it, as .png.
                Default: demo/MICROPHONE-clear with the ending of MICROPHONE.
)",
        {{"--delay", "MS", "the longest delay of the echo that is looked for (default 500)",
          number(longest, 1, 10000, "milliseconds")},
         {"--tail", "MS", "how long the room sounds: the length of the filter (default 128)",
          number(tail, 1, 1000, "milliseconds")},
         {"--step", "S", "how eagerly the filter learns, 0.01 to 1.5 (default 0.7)",
          number(step, 0.01, 1.5, "a number")},
         {"--out", "FOLDER", "folder for what is written, made if missing (default demo)", folder(out)}},
        "Cross-correlation finds the delay; a normalised LMS filter of one thread removes the echo.\n"};
    const std::vector<fs::path> operands = line.parse(argc, argv);
    if (operands.size() == 1) throw Trouble("one recording is not enough: give LOUDSPEAKER and MICROPHONE");
    const Names names(operands.empty() ? operands : std::vector(operands.begin() + 1, operands.end()), out,
                      "microphone.wav", "-clear");

    Results results;
    Samples made;
    if (names.made) made = makeSpeech({.rate = madeRate, .seconds = madeSeconds, .clean = true});
    const fs::path heardAt = names.source(results, madeRate, [&] { return makeMicrophone(made); });
    fs::path playedAt = names.made ? names.input.parent_path() / "loudspeaker.wav" : operands[0];
    if (names.made) {
        SoundWriter& sound = results.sound(playedAt, madeFormat, madeRate, 1);
        sound.writeAll(made);
        playedAt = sound.place();
    } else {
        keepInput(playedAt, names.output);
        keepInput(playedAt, names.picture);
    }
    Recording played = readRecording(playedAt);
    const Recording heard = readRecording(heardAt);
    if (played.rate != heard.rate)
        throw Trouble(text("the recordings have different rates, ", played.rate, " and ", heard.rate,
                           " Hz; resample one of them"));
    if (heard.rate < 1000)
        throw Trouble(text(printable(names.input), " has ", heard.rate, " samples a second; give 1000 or more"));
    if (heard.samples.size() < static_cast<std::size_t>(heard.rate))
        throw Trouble(text(printable(names.input), " is shorter than a second; nothing can be learned from it"));
    if (played.samples.size() < 2) throw Trouble(text(printable(operands[0]), " is too short"));

    Found found{heard.rate, 0, 0, 0, static_cast<double>(heard.samples.size()) / heard.rate};
    const Samples there = emphasized(heard.samples);
    Samples here = emphasized(played.samples);
    found.delay = findDelay(here, there, static_cast<int>(longest / 1e3 * heard.rate));
    found.begin = std::max(0, found.delay - heard.rate / 50);
    here.insert(here.begin(), static_cast<std::size_t>(found.begin), 0.0f);
    here.resize(there.size());
    const Learned learned = cancel(heard.samples, here, there,
                                   std::max<std::size_t>(1, static_cast<std::size_t>(tail / 1e3 * heard.rate)), step);
    found.adaptSeconds = learned.seconds;

    names.makeFolder(results);
    SoundWriter& output =
        results.sound(names.output, formatFor(names.output, names.input, heard.format), heard.rate, 1);
    OutputFile& picture = results.file(names.picture);
    output.writeAll(learned.cleaned);
    const std::vector<double> before = levels(heard.samples, heard.rate), after = levels(learned.cleaned, heard.rate);
    const Reduction reduction = reductionOf(before, after);
    draw(text("The echo in ", printable(names.input.filename()), ", and what is left of it"), names.made, found, before,
         after, reduction, learned.taps, picture);
    results.commit();
    noteTroubles(output);

    if (names.made)
        report("Recording", text(printable(names.input), " and loudspeaker.wav (made up: two voices and a room)"));
    report("Cleared", text(printable(names.output), " (", describe(found.duration, heard.rate, 1), ")"));
    report("Delay", text(fixed(1e3 * found.delay / found.rate, 1), " ms"));
    report("Echo", text(reduction.reached < 0 ? "never reduced by 10 dB"
                                              : text("reduced by 10 dB after ", fixed(reduction.reached, 1), " s"),
                        ", at best by ", fixed(reduction.best, 1), " dB"));
    report("Picture", printable(names.picture));
    report("Speed", text("adapting ", std::round(found.duration / found.adaptSeconds), " times faster than real time"));
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, run);
}
