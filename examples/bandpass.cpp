// Cleans a recording: keeps one band of frequencies with the library's FIR filter, block by block as a stream would
// come, and draws the spectra before and after with its FFT. bandpass --help tells how it is called.
#include "bandpass/band_filter.h"
#include "bandpass/options.h"
#include "bandpass/picture.h"
#include "bandpass/sound.h"
#include "bandpass/spectrum.h"
#include "bandpass/speech.h"
#include "bandpass/trouble.h"

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <new>
#include <optional>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockFrames = 8192;

volatile std::sig_atomic_t interrupted = 0;

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// A line on the terminal that is written over, for work that takes longer than a moment.
class Progress {
public:
    Progress(sf_count_t frames, int rate) : frames_(frames), rate_(rate) {}
    ~Progress() {
        if (shown_) std::fprintf(stderr, "\r\033[K");
    }
    void at(sf_count_t done) {
        const double time = now();
        if (!onTerminal_ || time < next_) return;
        next_ = time + 0.1;
        shown_ = true;
        const double seconds = static_cast<double>(done) / rate_;
        std::fprintf(stderr, "\r\033[Kcleaning: %.0f s of sound", seconds);
        if (done <= frames_)
            std::fprintf(stderr, ", %.0f %%", 100 * static_cast<double>(done) / static_cast<double>(frames_));
        std::fprintf(stderr, ", %.0f times faster than real time", seconds / (time - start_));
    }

private:
    sf_count_t frames_;
    int rate_;
    bool onTerminal_ = isatty(STDERR_FILENO) == 1;
    bool shown_ = false;
    double start_ = now();
    double next_ = start_ + 0.5;
};

// The channels of interleaved frames, one behind the other, blockFrames apart.
class Channels {
public:
    explicit Channels(int count) : count_(static_cast<std::size_t>(count)), samples_(count_ * blockFrames) {}
    float* operator[](std::size_t channel) { return &samples_[channel * blockFrames]; }
    std::size_t count() const { return count_; }

    void split(const std::vector<float>& interleaved, std::size_t frames) {
        for (std::size_t channel = 0; channel < count_; ++channel)
            for (std::size_t n = 0; n < frames; ++n) (*this)[channel][n] = interleaved[n * count_ + channel];
    }
    void join(std::size_t first, std::size_t frames, std::vector<float>& interleaved) {
        for (std::size_t channel = 0; channel < count_; ++channel)
            for (std::size_t n = 0; n < frames; ++n) interleaved[n * count_ + channel] = (*this)[channel][first + n];
    }

private:
    std::size_t count_;
    std::vector<float> samples_;
};

struct Cleaned {
    sf_count_t frames = 0;
    double filterSeconds = 0;
};

// Reads, filters, writes, and gathers the spectra. The filter's delay is taken out: as many samples as it delays are
// dropped at the beginning, and as many of silence follow the input.
Cleaned clean(SoundReader& input, BandFilter& filter, std::size_t delay, SoundWriter& output, Spectrum& before,
              Spectrum& after) {
    Cleaned result;
    Progress progress(input.frames(), input.rate());
    Channels heard(input.channels()), cleaned(input.channels());
    std::vector<float> block(heard.count() * blockFrames);
    std::size_t toDrop = delay, toFlush = delay;
    for (bool ended = false;;) {
        if (interrupted) throw Trouble("interrupted; nothing was written");
        std::size_t frames = ended ? 0 : input.read(block);
        if (frames > 0) {
            heard.split(block, frames);
            for (std::size_t channel = 0; channel < heard.count(); ++channel)
                before.add(channel, heard[channel], frames);
            result.frames += static_cast<sf_count_t>(frames);
        } else {
            ended = true;
            frames = std::min(toFlush, blockFrames);
            if (frames == 0) return result;
            toFlush -= frames;
            for (std::size_t channel = 0; channel < heard.count(); ++channel) std::fill_n(heard[channel], frames, 0.0f);
        }
        const double start = now();
        for (std::size_t channel = 0; channel < heard.count(); ++channel)
            filter.run(channel, heard[channel], cleaned[channel], static_cast<int>(frames));
        result.filterSeconds += now() - start;

        const std::size_t dropped = std::min(toDrop, frames);
        toDrop -= dropped;
        frames -= dropped;
        for (std::size_t channel = 0; channel < heard.count(); ++channel)
            after.add(channel, cleaned[channel] + dropped, frames);
        cleaned.join(dropped, frames, block);
        output.write(block, frames);
        progress.at(result.frames);
    }
}

void note(const std::string& line) {
    std::fprintf(stderr, "bandpass: note: %s\n", line.c_str());
}

void report(const char* what, const std::string& line) {
    if (std::printf("%-10s%s\n", what, line.c_str()) < 0 || std::fflush(stdout) != 0)
        throw Trouble("cannot write to standard output; the files are written");
}

struct Names {
    fs::path input, output, picture;
};

Names namesFor(const Options& options) {
    Names names;
    names.input = options.input.empty() ? options.folder / "speech.wav" : options.input;
    names.output = options.folder / (names.input.stem().string() + "-band" + names.input.extension().string());
    if (!options.output.empty()) names.output = options.output;
    names.picture = fs::path(names.output).replace_extension(".png");
    if (names.picture == names.output)
        throw Trouble(text(printable(names.output),
                           " is what the picture is to be called; give OUTPUT the ending of a sound file"));
    std::error_code ignored;
    for (const fs::path& path : {names.output, names.picture})
        if (fs::equivalent(path, names.input, ignored))
            throw Trouble(text("writing ", printable(path), " would destroy the input; give another OUTPUT"));
    return names;
}

void checkBand(const Options& options, const fs::path& input, int rate) {
    const double nyquist = rate / 2.0;
    if (options.high > nyquist)
        throw Trouble(text("the band ends at ", options.high, " Hz, but ", printable(input), " (", rate,
                           " samples a second) holds nothing above ", nyquist,
                           " Hz; give --low and --high below that"));
}

void run(const Options& options) {
    const Names names = namesFor(options);
    std::optional<OutputFolder> folder; // made late, so that a bad input leaves none behind
    std::optional<SoundWriter> recording;
    if (options.input.empty()) {
        folder.emplace(options.folder);
        recording.emplace(names.input, SF_FORMAT_WAV | SF_FORMAT_PCM_16, speechRate, 1);
        const std::vector<float> samples = makeSpeech();
        recording->write(samples, samples.size());
        recording->close();
    }

    const double start = now();
    SoundReader input(recording ? recording->place() : names.input);
    const int rate = input.rate(), channels = input.channels();
    checkBand(options, names.input, rate);
    const std::vector<Orb32f> taps = designBand(options.low, options.high, rate,
                                                options.taps.value_or(defaultTaps(options.low, options.high, rate)));
    BandFilter filter(taps, channels);
    Spectrum before(rate, channels), after(rate, channels);

    if (!folder && options.output.empty()) folder.emplace(options.folder);
    SoundWriter output(names.output, formatFor(names.output, names.input, input.format()), rate, channels);
    OutputFile picture(names.picture);
    const Cleaned cleaned = clean(input, filter, taps.size() / 2, output, before, after);
    output.close();

    const double duration = static_cast<double>(cleaned.frames) / rate;
    const std::string sound =
        text(std::round(duration * 10) / 10, " s, ", rate, " Hz, ", channels, channels == 1 ? " channel" : " channels");
    draw({.title = text(printable(names.input.filename()), ", before and after the band filter"),
          .subtitle = text(sound, "  \u00b7  ", taps.size(),
                           " taps, Kaiser window  \u00b7  spectra: mean of half-overlapping Hann windows of ",
                           before.length(), " samples, ", std::round(before.binWidth() * 100) / 100, " Hz a bin"),
          .low = options.low,
          .high = options.high,
          .nyquist = rate / 2.0,
          .before = before.power(),
          .after = after.power()},
         picture);
    if (interrupted) throw Trouble("interrupted; nothing was written");
    if (recording) recording->commit();
    output.commit();
    picture.commit();
    const double elapsed = now() - start;

    if (input.cutShort())
        note(text(printable(names.input), " is shorter than its header says; what is there was cleaned"));
    if (output.asWavFloat()) note("the input's format cannot be written; the cleaned sound is WAV with 32-bit floats");
    if (output.clipped() > 0)
        note(text(output.clipped(), " samples were too loud for the output's format and were limited"));
    if (recording) report("Recording", text(printable(names.input), " (made up: speech-like, with hum and hiss)"));
    report("Cleaned", text(printable(names.output), " (", sound, "; kept ", options.low, " to ", options.high,
                           " Hz with ", taps.size(), " taps)"));
    report("Picture", printable(names.picture));
    report("Speed", text("filtering ", std::round(duration / cleaned.filterSeconds), " times faster than real time (",
                         std::round(cleaned.filterSeconds * 1e6) / 1e3, " ms), all with files and picture ",
                         std::round(duration / elapsed), " times (", std::round(elapsed * 1e3), " ms)"));
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow shows as a failed write
    struct sigaction stop {};
    stop.sa_handler = [](int) { interrupted = 1; };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &stop, nullptr);
    try {
        const Options options = parseOptions(argc, argv);
        if (options.help) {
            if (std::fputs(helpText, stdout) < 0 || std::fflush(stdout) != 0)
                throw Trouble("cannot write to standard output");
            return 0;
        }
        check(orbSetNumThreads(1), "orbSetNumThreads"); // blocks as short as a stream's gain nothing from more
        run(options);
        return 0;
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "bandpass: not enough memory; try fewer --taps\n");
    } catch (const std::exception& error) { std::fprintf(stderr, "bandpass: %s\n", error.what()); }
    return 2;
}
