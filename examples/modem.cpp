// Noisy symbols of four dimensions through the library's trellis decoder: how often it errs with 16, 32 and 64 states,
// beside theory and beside sending without a code. modem --help tells how it is called.
#include "modem/code.h"
#include "modem/decoder.h"
#include "support/command_line.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/trouble.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <future>
#include <orbs.hpp>
#include <thread>

namespace fs = std::filesystem;

namespace {

// Signal to noise over what Shannon's limit asks, for large constellations: a square constellation without a code errs
// in a plane 4 Q(sqrt(3 snr)) of the time. The codes spend one bit in four dimensions, for which the lattice has to be
// finer by the fourth root of 2. G. D. Forney, G. Ungerboeck, Modulation and coding for linear Gaussian channels, 1998.
double deviationFor(double decibels) { // of the noise in one dimension, beside the step of the coded lattice
    return std::sqrt(std::sqrt(2.0) / (12 * std::pow(10, decibels / 10)));
}
double uncodedRate(double decibels) {
    const double q = tail(std::sqrt(3 * std::pow(10, decibels / 10)));
    return 1 - std::pow(1 - 2 * q, 4);
}

struct Measured {
    double decibels, rate, low, high; // and where the rate lies with 95 %
};

// Bursts of a fixed length, each from a seed of its own: results do not depend on how many threads share them.
Measured measure(const Code& code, double decibels, int bursts) {
    std::vector<Orb64f> rates;
    for (int burst = 0; burst < bursts; ++burst) {
        stopIfInterrupted();
        const int wrong = errorsInBurst(code, deviationFor(decibels), static_cast<unsigned>(1 + burst));
        rates.push_back(static_cast<double>(wrong) / burstLength);
    }
    Orb64f mean = 0, deviation = 0;
    orbs::MeanStdDev(rates, mean, deviation);
    const double half = 1.96 * deviation / std::sqrt(bursts);
    return {decibels, mean, std::max(mean - half, mean / 10), mean + half};
}

struct Curve {
    Code code;
    std::string_view colour;
    int shape; // of its points, as gnuplot counts them
    std::vector<Measured> measured;
};

// Every point of every curve, by all processors.
void measureAll(std::vector<Curve>& curves, const std::vector<double>& decibels, int bursts) {
    for (Curve& curve : curves) curve.measured.resize(decibels.size());
    const std::size_t jobs = curves.size() * decibels.size();
    std::atomic<std::size_t> next{0}, done{0};
    const auto work = [&] {
        for (std::size_t job; (job = next++) < jobs; ++done) {
            Curve& curve = curves[job % curves.size()];
            const std::size_t at = job / curves.size();
            curve.measured[at] = measure(curve.code, decibels[at], bursts);
        }
    };
    std::vector<std::future<void>> workers;
    for (unsigned n = 0; n < std::max(1u, std::thread::hardware_concurrency()); ++n)
        workers.push_back(std::async(std::launch::async, work));
    Progress progress("decoding");
    for (std::future<void>& worker : workers) {
        while (worker.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready)
            progress.at(static_cast<double>(done), static_cast<double>(jobs));
        worker.get(); // throws what the worker threw
    }
}

void draw(const std::vector<Curve>& curves, int bursts, OutputFile& file) {
    Picture picture("Trellis codes in four dimensions: how often the decoder errs",
                    text("points: ", bursts * burstLength,
                         " noisy symbols each, with 95 % confidence  \u00b7  "
                         "lines: the union of error events near the path that was sent"));
    Panel& panel = picture.add(
        {{"Signal to noise above Shannon's limit (dB)", 2, 9}, {"Wrong symbols, as a share", 1e-6, 1, Axis::decades}});
    std::vector<double> fine, uncoded;
    for (double x = 2; x <= 9; x += 0.05) {
        fine.push_back(x);
        uncoded.push_back(uncodedRate(x));
    }
    panel.line("no code", fine, uncoded, colour::black, 2, true);
    for (const Curve& curve : curves) {
        const Theory theory(curve.code);
        std::vector<double> expected, x, y, low, high;
        for (const double at : fine) expected.push_back(theory.errorRate(deviationFor(at)));
        panel.line("", fine, expected, curve.colour, 2);
        for (const Measured& point : curve.measured) {
            if (point.rate == 0) continue;
            x.push_back(point.decibels);
            y.push_back(point.rate);
            low.push_back(point.low);
            high.push_back(point.high);
        }
        panel.points(text(curve.code.states, " states"), x, y, low, high, curve.colour, curve.shape);
    }
    picture.write(file);
}

std::string threeDigits(double share) {
    std::array<char, 32> word{};
    std::snprintf(word.data(), word.size(), "%.3g", share);
    return word.data();
}

void run(int argc, char** argv) {
    int symbols = 400000;
    fs::path out = "demo";
    const CommandLine line{
        "",
        0,
        R"(Sends random symbols of four dimensions over a noisy channel, decodes them with trellis codes of 16, 32 and 64 states,
and draws how often the decoder errs beside theory and beside sending without a code.
)",
        {{"--symbols", "N", "symbols a point of the picture, 4000 to 100000000 (default 400000)",
          whole(symbols, 2 * burstLength, 100000000)},
         {"--out", "FOLDER", "folder for the picture, modem.png; made if missing (default demo)", folder(out)}},
        "The same symbols and the same noise on every machine. All processors share the work.\n"};
    line.parse(argc, argv);
    const Stopwatch watch;
    const int bursts = symbols / burstLength;
    std::vector<double> decibels;
    for (double x = 2.5; x < 5.4; x += 0.25) decibels.push_back(x);
    std::vector<Curve> curves{
        {codes[0], colour::orange, 5, {}}, {codes[1], colour::green, 7, {}}, {codes[2], colour::blue, 9, {}}};

    Results results;
    results.makeFolder(out);
    OutputFile& picture = results.file(out / "modem.png");
    measureAll(curves, decibels, bursts);
    draw(curves, bursts, picture);
    results.commit();

    for (const Curve& curve : curves) {
        const Theory theory(curve.code);
        for (const Measured& point : curve.measured)
            report("Rate", text(curve.code.states, " states at ", fixed(point.decibels, 2), " dB: measured ",
                                point.rate, ", theory ", threeDigits(theory.errorRate(deviationFor(point.decibels))),
                                ", no code ", threeDigits(uncodedRate(point.decibels))));
    }
    report("Picture", printable(out / "modem.png"));
    const double all = static_cast<double>(curves.size() * decibels.size()) * bursts * burstLength;
    report("Speed", text(fixed(all / watch.seconds() / 1e6, 2), " million symbols a second"));
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, run);
}
