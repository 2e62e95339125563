#include "speech.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

namespace {

using std::numbers::pi;

// The first three formants in Hz of a, e, i, o, u: G. E. Peterson and H. L. Barney, "Control methods used in a study
// of the vowels", J. Acoust. Soc. Am. 24, 1952 (men).
constexpr std::array<std::array<double, 3>, 5> vowels = {{
    {730, 1090, 2440},
    {530, 1840, 2480},
    {270, 2290, 3010},
    {570, 840, 2410},
    {300, 870, 2240},
}};

class Noise {
public:
    explicit Noise(unsigned seed) : random_(seed) {}
    double uniform() { return static_cast<double>(random_()) / 4294967295.0; } // 0 to 1
    double white() { return 2 * uniform() - 1; }

private:
    std::mt19937 random_;
};

// How strongly a vowel passes a frequency: a resonance of 80 to 120 Hz at each formant.
double vocalTract(const std::array<double, 3>& formants, double frequency) {
    double gain = 0;
    for (std::size_t n = 0; n < formants.size(); ++n) {
        const double width = 80 + 20 * static_cast<double>(n);
        const double away = (frequency - formants[n]) / (width / 2);
        gain += (n == 0 ? 1.0 : n == 1 ? 0.6 : 0.4) / std::sqrt(1 + away * away);
    }
    return gain;
}

double swell(double position) {
    return std::sin(pi * std::clamp(position, 0.0, 1.0));
} // 0 to 1 to 0

// One voiced syllable: harmonics of a falling pitch, shaped by a vowel.
void addVowel(std::vector<double>& sound, std::size_t begin, std::size_t length, double pitch,
              const std::array<double, 3>& formants, int rate) {
    const auto harmonics = static_cast<std::size_t>(std::min(8000.0, 0.45 * rate) / pitch);
    std::vector<double> levels;
    for (std::size_t k = 1; k <= harmonics; ++k)
        levels.push_back(vocalTract(formants, static_cast<double>(k) * pitch) / std::sqrt(static_cast<double>(k)));
    double phase = 0;
    for (std::size_t n = 0; n < length && begin + n < sound.size(); ++n) {
        const double position = static_cast<double>(n) / static_cast<double>(length);
        phase += 2 * pi * pitch * (1.08 - 0.16 * position) / rate;
        const std::complex<double> step = std::polar(1.0, phase);
        std::complex<double> harmonic = 1;
        double sample = 0;
        for (const double level : levels) sample += level * (harmonic *= step).imag();
        sound[begin + n] += 0.25 * std::sqrt(swell(position)) * sample;
    }
}

// A consonant like s: noise with the low frequencies taken out by two differences.
void addConsonant(std::vector<double>& sound, std::size_t begin, std::size_t length, Noise& noise) {
    double earlier = 0, earliest = 0;
    for (std::size_t n = 0; n < length && begin + n < sound.size(); ++n) {
        const double now = noise.white();
        const double position = static_cast<double>(n) / static_cast<double>(length);
        sound[begin + n] += 0.02 * swell(position) * (now - 2 * earlier + earliest);
        earliest = earlier;
        earlier = now;
    }
}

} // namespace

std::vector<float> makeSpeech(const Speech& wanted) {
    Noise noise(wanted.seed);
    auto samples = [&](double duration) { return static_cast<std::size_t>(duration * wanted.rate); };
    std::vector<double> sound(samples(wanted.seconds));
    int syllable = 0;
    for (std::size_t n = samples(wanted.begin); n + samples(0.6) < sound.size();) {
        if (noise.uniform() < 0.4) {
            addConsonant(sound, n, samples(0.11), noise);
            n += samples(0.09);
        }
        const std::size_t length = samples(0.14 + 0.14 * noise.uniform());
        const double pitch = wanted.pitch + 35 * noise.uniform();
        addVowel(sound, n, length, pitch, vowels[static_cast<std::size_t>(5 * noise.uniform()) % vowels.size()],
                 wanted.rate);
        n += length + samples(++syllable % 6 == 0 ? 0.45 : 0.03); // a pause behind every sixth
    }
    for (std::size_t n = 0; n < sound.size() && !wanted.clean; ++n) {
        const double mains = 2 * pi * 50 * static_cast<double>(n) / wanted.rate;
        sound[n] += 0.12 * std::sin(mains) + 0.03 * std::sin(2 * mains) + 0.04 * std::sin(3 * mains);
        sound[n] += 0.015 * noise.white();
    }
    double peak = 1e-9;
    for (const double sample : sound) peak = std::max(peak, std::fabs(sample));
    std::vector<float> scaled;
    scaled.reserve(sound.size());
    for (const double sample : sound) scaled.push_back(static_cast<float>(0.7 * sample / peak));
    return scaled;
}
