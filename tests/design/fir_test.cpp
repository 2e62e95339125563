// FIRGen: against the responses and windows by their formulas, and by the gains that a designer asks for.
#include "orbs.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using Taps = std::vector<Orb64f>;
constexpr long double pi = 3.141592653589793238462643383279502884L;
constexpr int noWindow = 4;

enum Kind { lowpass, highpass, bandpass, bandstop };
constexpr Kind kinds[] = {lowpass, highpass, bandpass, bandstop};

// A band's lower edge is the only one of the others.
struct Design {
    Kind kind;
    Orb64f low, high = 0.5;
    int len = 0, winType = noWindow;

    OrbStatus make(Orb64f* taps, int doNormal = 0) const {
        switch (kind) {
        case lowpass:
            return orbsFIRGenLowpass_64f(low, taps, len, winType, doNormal);
        case highpass:
            return orbsFIRGenHighpass_64f(low, taps, len, winType, doNormal);
        case bandpass:
            return orbsFIRGenBandpass_64f(low, high, taps, len, winType, doNormal);
        default:
            return orbsFIRGenBandstop_64f(low, high, taps, len, winType, doNormal);
        }
    }
    Taps taps(int doNormal = 0) const {
        Taps made(static_cast<std::size_t>(len));
        EXPECT_EQ(make(made.data(), doNormal), orbStsNoErr);
        return made;
    }
    std::string told() const {
        return std::to_string(kind) + ": " + std::to_string(low) + " to " + std::to_string(high) + ", " +
               std::to_string(len) + " taps, window " + std::to_string(winType);
    }
};

// The tap at a signed distance from the centre.
long double ideal(const Design& design, long double m) {
    const auto sine = [=](long double f) { return m == 0 ? 2 * f : std::sin(2 * pi * f * m) / (pi * m); };
    const bool isOdd = design.len % 2 != 0;
    const long double impulse = isOdd ? m == 0 : std::sin(pi * m) / (pi * m);
    switch (design.kind) {
    case lowpass:
        return sine(design.low);
    case highpass:
        return isOdd ? impulse - sine(design.low) : -std::cos(2 * pi * design.low * m) / (pi * m);
    case bandpass:
        return sine(design.high) - sine(design.low);
    default:
        return isOdd ? impulse + sine(design.low) - sine(design.high) : impulse - sine(design.low) - sine(design.high);
    }
}

// |sum of taps * e^(2 pi i f m)|
long double gain(const Taps& taps, long double f) {
    long double re = 0, im = 0;
    for (std::size_t i = 0; i < taps.size(); ++i) {
        re += taps[i] * std::cos(2 * pi * f * i);
        im += taps[i] * std::sin(2 * pi * f * i);
    }
    return std::hypot(re, im);
}

// Each step of the tone's recurrence, four samples on, adds a few roundings, and the sum of all that it has added
// before to the next: the square of their number. Phases reach 2 pi, two tones meet.
long double toneError(int len) {
    const long double steps = len / 8 + 4;
    return 8 * (steps * steps + 2 * pi) * std::numeric_limits<Orb64f>::epsilon();
}

TEST(FirGen, TapsAreTheResponse) {
    const Orb64f belowQuarter = std::nextafter(0.25, 0.0), belowHalf = std::nextafter(0.5, 0.0);
    for (const Kind kind : kinds) {
        for (const Orb64f low : {1e-9, 0.01, 0.1, belowQuarter, 0.25, 0.3, belowHalf, 0.5}) {
            for (const Orb64f high : {0.12, 0.26, 0.41, 0.5}) {
                if (kind >= bandpass && low >= high) continue;
                for (const int len : {5, 6, 7, 8, 33, 64, 66, 101, 256, 401}) {
                    const Design design{kind, low, high, len};
                    const Taps taps = design.taps();
                    for (int i = 0; i < len; ++i) {
                        const long double m = i - (len - 1) / 2.0L, want = ideal(design, m);
                        const auto at = static_cast<std::size_t>(i);
                        ASSERT_NEAR(taps[at], want, toneError(len) / std::max(1.0L, pi * std::abs(m)))
                            << design.told() << ", tap " << i;
                        const Orb64f mirrored = taps[static_cast<std::size_t>(len - 1 - i)];
                        ASSERT_EQ(taps[at], kind == highpass && len % 2 == 0 ? -mirrored : mirrored);
                    }
                }
            }
        }
    }
}

// The left half and the middle lie under the window; the right half mirrors them.
TEST(FirGen, WindowsMultiply) {
    const std::pair<int, OrbStatus (*)(Orb64f*, int)> windows[] = {
        {orbWinBartlett, orbsWinBartlett_64f_I},
        {orbWinBlackman, orbsWinBlackmanOpt_64f_I},
        {orbWinHamming, orbsWinHamming_64f_I},
        {orbWinHann, orbsWinHann_64f_I},
    };
    for (const auto& [winType, window] : windows) {
        for (const Kind kind : kinds) {
            for (const int len : {5, 6, 40, 101}) {
                Taps want = Design{kind, 0.1, 0.3, len}.taps();
                ASSERT_EQ(window(want.data(), len), orbStsNoErr);
                const Taps got = Design{kind, 0.1, 0.3, len, winType}.taps();
                for (std::size_t i = 0; i < (got.size() + 1) / 2; ++i)
                    ASSERT_EQ(got[i], want[i]) << winType << ", " << i;
                ASSERT_EQ(std::abs(got.back()), std::abs(got.front()));
            }
        }
    }
}

TEST(FirGen, GainBecomesOne) {
    for (const Kind kind : kinds) {
        for (const int len : {5, 6, 7, 30, 101, 600}) {
            for (const int winType : {int{orbWinHamming}, noWindow}) {
                const Design design{kind, 0.11, 0.34, len, winType};
                const long double at = kind == highpass ? 0.5L : kind == bandpass ? (0.11 + 0.34) * 0.5L : 0;
                const Taps taps = design.taps(1);
                long double magnitudes = 0;
                for (const Orb64f tap : taps) magnitudes += std::abs(tap);
                // Each of the terms is rounded a few times, and their sum once a term.
                const long double error = (len + 8) * magnitudes * std::numeric_limits<Orb64f>::epsilon();
                EXPECT_NEAR(gain(taps, at), 1, error) << design.told();
            }
        }
    }
}

// Half of the amplitude at the edges, little ripple away from them: what a Hamming window promises.
TEST(FirGen, EdgesLieWhereAskedFor) {
    for (const int len : {100, 101}) {
        for (const Kind kind : kinds) {
            const Design design{kind, 0.12, 0.33, len, orbWinHamming};
            const Taps taps = design.taps();
            for (const Orb64f f : {0.0, 0.05, 0.09, 0.12, 0.15, 0.2, 0.3, 0.33, 0.36, 0.45, 0.47}) {
                const bool beyondLow = f > 0.12, beyondHigh = f > 0.33;
                const bool passes = kind == lowpass    ? !beyondLow
                                    : kind == highpass ? beyondLow
                                    : kind == bandpass ? beyondLow && !beyondHigh
                                                       : !beyondLow || beyondHigh;
                const bool isEdge = f == 0.12 || (f == 0.33 && kind >= bandpass);
                EXPECT_NEAR(gain(taps, f), isEdge ? 0.5 : passes, isEdge ? 0.01 : 0.003) << design.told() << ", " << f;
            }
        }
    }
}

// More memory than the allocator counts: refused before anything is touched.
TEST(FirGen, RefusesMoreTapsThanItHasMemoryFor) {
    Orb64f untouched = 7;
    for (const Kind kind : kinds) {
        Design design{kind, 0.1, 0.3, INT_MAX};
        EXPECT_EQ(design.make(&untouched), orbStsNullPtrErr);
    }
    EXPECT_EQ(untouched, 7);
}

} // namespace
