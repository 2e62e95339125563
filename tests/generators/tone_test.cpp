#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/ulps.h"

#include <cmath>

namespace {

using namespace support;

constexpr double twoPi = 6.283185307179586;
constexpr int hints[] = {orbAlgHintNone, orbAlgHintAccurate, 7, -1};

// ---- Calls ----

template <class T, class Magn, class Real>
using Member = OrbStatus (*)(T*, int, Magn, Real, Real*, OrbHintAlgorithm);

// The parts of the samples, re and im in turn.
template <class T, class Magn, class Real>
std::vector<Part<T>> call(Member<T, Magn, Real> member, int len, double magn, double rFreq, double phase, int hint) {
    std::vector<T> v(static_cast<std::size_t>(len));
    auto p = static_cast<Real>(phase);
    EXPECT_EQ(member(v.data(), len, static_cast<Magn>(magn), static_cast<Real>(rFreq), &p,
                     static_cast<OrbHintAlgorithm>(hint)),
              orbStsNoErr);
    const auto* parts = reinterpret_cast<const Part<T>*>(v.data());
    return {parts, parts + v.size() * sizeof(T) / sizeof(Part<T>)};
}

// Exact numbers as floats too, so that all members take the same.
struct Signal {
    double magn, rFreq, phase;
};
const Signal signals[] = {{1000, 0x1.99999ap-4, 0x1.8p+0},
                          {32767, 0x1.3p-7, 0},
                          {5, 0x1.f5c28ep-2, 0x1.921fap+2},
                          {20000, 0, 2},
                          {12345, 0.25, 1},
                          {30000, 0x1.47ae14p-10, 3.5}};
const int lengths[] = {1,    2,    3,    4,    5,    8,    9,    15,   16,   17,   31,   33,   100,
                       1000, 1023, 1024, 1025, 1040, 1041, 2047, 2048, 2049, 2052, 2057, 4099, 9000};

// ---- Without the hint ----

// 2 cos w, which is twice the second sample of a tone of magnitude 1 and phase 0.
double factorOf(double rFreq) {
    return 2 * call(&orbsTone_Direct_64f, 2, 1, rFreq, 0, orbAlgHintNone)[1];
}

double angle(const Signal& s, std::size_t n) {
    return twoPi * s.rFreq * static_cast<double>(n) + s.phase;
}

// Element n of parts: the real part or sample, or the imaginary part.
long double exact(const Signal& s, std::size_t n, bool imaginary) {
    const long double x = angle(s, n);
    return s.magn * (imaginary ? std::sin(x) : std::cos(x));
}

TEST(Tone, IsARecurrenceInDoublesFromTwoSamples) {
    for (const Signal& s : signals) {
        const double c = factorOf(s.rFreq);
        for (int len : lengths) {
            const auto re = call(&orbsTone_Direct_64f, len, s.magn, s.rFreq, s.phase, orbAlgHintNone);
            const auto z = call(&orbsTone_Direct_64fc, len, s.magn, s.rFreq, s.phase, orbAlgHintNone);
            auto x = re, y = z;
            for (std::size_t n = 2; n < x.size(); ++n)
                x[n] = n < 4 ? c * x[n - 1] - x[n - 2] : (c * c - 2) * x[n - 2] - x[n - 4];
            for (std::size_t n = 4; n < y.size(); ++n) y[n] = c * y[n - 2] - y[n - 4];
            ASSERT_TRUE(sameBits(re, x)) << len << " samples at " << s.rFreq;
            ASSERT_TRUE(sameBits(z, y)) << len << " complex samples at " << s.rFreq;
            for (std::size_t n = 0; n < std::min(re.size(), std::size_t{2}); ++n) { // the product may cost another half
                EXPECT_LE(ulps(re[n], exact(s, n, false)), 1.85);
                EXPECT_LE(ulps(z[2 * n], exact(s, n, false)), 1.85);
                EXPECT_LE(ulps(z[2 * n + 1], exact(s, n, true)), s.phase + s.rFreq == 0 ? 0 : 1.85);
            }
        }
    }
}

template <class T>
std::vector<T> cut(const std::vector<double>& x) {
    std::vector<T> v;
    for (double value : x) {
        if constexpr (std::is_integral_v<T>) value = std::clamp(std::trunc(value), -32768.0, 32767.0);
        v.push_back(static_cast<T>(value));
    }
    return v;
}

TEST(Tone, NarrowerMembersAreCutFromDoubles) {
    for (const Signal& s : signals) {
        for (int hint : hints) {
            for (int len : lengths) {
                const auto x = call(&orbsTone_Direct_64f, len, s.magn, s.rFreq, s.phase, orbAlgHintNone);
                const auto z = call(&orbsTone_Direct_64fc, len, s.magn, s.rFreq, s.phase, orbAlgHintNone);
                EXPECT_TRUE(sameBits(call(&orbsTone_Direct_32f, len, s.magn, s.rFreq, s.phase, hint), cut<Orb32f>(x)));
                EXPECT_TRUE(sameBits(call(&orbsTone_Direct_16s, len, s.magn, s.rFreq, s.phase, hint), cut<Orb16s>(x)));
                EXPECT_TRUE(sameBits(call(&orbsTone_Direct_32fc, len, s.magn, s.rFreq, s.phase, hint), cut<Orb32f>(z)));
                EXPECT_TRUE(sameBits(call(&orbsTone_Direct_16sc, len, s.magn, s.rFreq, s.phase, hint), cut<Orb16s>(z)));
                if (HasFailure()) FAIL() << len << " samples at " << s.rFreq << ", hint " << hint;
            }
        }
    }
}

// ---- With the hint ----

template <class Real>
struct Blocks {
    std::size_t parts, block, seeds; // counted in parts
};

// Samples behind the seeds are exactly what the lag recurrence makes of those before them. Of the seeds two are direct,
// and the others within what steps of the recurrence in doubles can add up; rounded once if they are floats.
template <class Real>
void expectBlocks(const std::vector<Real>& x, const Signal& s, Blocks<Real> b) {
    const double c = factorOf(s.rFreq), c2 = c * c, c4 = c2 * (c2 - 4) + 2;
    const std::size_t lag = b.seeds / 2 / b.parts;
    const Real factor = static_cast<Real>(lag == 2 ? c2 - 2 : lag == 4 ? c4 : c4 * c4 - 2);
    for (std::size_t n = 0; n < x.size(); ++n) {
        const std::size_t within = n % b.block;
        if (within >= b.seeds) {
            const Real product = factor * x[n - b.seeds / 2];
            ASSERT_EQ(x[n], product - x[n - b.seeds]) << n << " at " << s.rFreq;
        } else {
            const double k = static_cast<double>(within / b.parts); // what the two angles lack grows with it
            const double wide = s.magn * 0x1p-52 * (k < 2 ? 2 : (k + 1) * (4 * (k + 1) + angle(s, n / b.parts)));
            const double rounding = sizeof(Real) == sizeof(Orb32f) ? s.magn * 0x1p-24 : 0;
            ASSERT_NEAR(x[n], static_cast<double>(exact(s, n / b.parts, b.parts == 2 && n % 2 == 1)), wide + rounding)
                << n << " at " << s.rFreq;
        }
    }
}

TEST(Tone, TheFastHintBeginsBlocksAnewAndReachesBackByALag) {
    for (const Signal& s : signals) {
        for (int len : lengths) {
            const auto fast = [&](auto member) { return call(member, len, s.magn, s.rFreq, s.phase, orbAlgHintFast); };
            expectBlocks(fast(&orbsTone_Direct_32f), s, {1, 1024, 16});
            expectBlocks(fast(&orbsTone_Direct_64f), s, {1, 2048, 8});
            expectBlocks(fast(&orbsTone_Direct_32fc), s, {2, 2048, 16});
            expectBlocks(fast(&orbsTone_Direct_64fc), s, {2, 4096, 8});
            if (HasFailure()) FAIL() << len << " samples";
        }
    }
}

// The floats that 16-bit members round are those of the float members; the seeds are cut off as doubles.
void expectRounded(const std::vector<Orb16s>& got, const std::vector<Orb32f>& floats, const Signal& s,
                   std::size_t parts) {
    for (std::size_t n = 0; n < got.size(); ++n) {
        if (n % (1024 * parts) >= 16) {
            ASSERT_EQ(got[n], std::clamp(nearestInMode(floats[n]), -32768.0, 32767.0)) << n << " at " << s.rFreq;
        } else {
            const auto x = static_cast<double>(exact(s, n / parts, parts == 2 && n % 2 == 1));
            if (std::fabs(x - std::nearbyint(x)) <= 1e-8) continue;
            ASSERT_EQ(got[n], std::trunc(x)) << n << " at " << s.rFreq;
        }
    }
}

TEST(Tone, TheFastHintCutsSeedsOffAndRoundsTheOthersAsTheModeSays) {
    for (Orb32u mode : roundingModes) {
        for (const Signal& s : signals) {
            for (int len : lengths) {
                const auto fast = [&](auto member) {
                    return call(member, len, s.magn, s.rFreq, s.phase, orbAlgHintFast);
                };
                inMode(mode, [&] {
                    expectRounded(fast(&orbsTone_Direct_16s), fast(&orbsTone_Direct_32f), s, 1);
                    expectRounded(fast(&orbsTone_Direct_16sc), fast(&orbsTone_Direct_32fc), s, 2);
                    return 0;
                });
                if (HasFailure()) FAIL() << len << " samples in mode " << mode;
            }
        }
    }
}

// ---- Phase ----

template <class Real, class T, class Magn>
Real phaseBehind(Member<T, Magn, Real> member, int len, Real rFreq, Real phase) {
    std::vector<T> v(static_cast<std::size_t>(len));
    EXPECT_EQ(member(v.data(), len, 1, rFreq, &phase, orbAlgHintNone), orbStsNoErr);
    return phase;
}

TEST(Tone, PhaseGoesOn) {
    Random random(3);
    for (int k = 0; k < 500; ++k) {
        const auto rFreq = static_cast<Orb32f>(std::fabs(randomElement<double>(random)) * 0.49);
        const auto phase = static_cast<Orb32f>(std::fabs(randomElement<double>(random)) * 6.28);
        const int len = 1 + static_cast<int>(random() % 3000);
        const long double turns = (static_cast<long double>(rFreq) * len + phase / (2 * std::acos(-1.0L)));
        const auto exactly = static_cast<double>((turns - std::floor(turns)) * 2 * std::acos(-1.0L));
        const auto distance = [=](double p) {
            return std::min(std::fabs(p - exactly), twoPi - std::fabs(p - exactly));
        };
        EXPECT_LT(distance(phaseBehind(&orbsTone_Direct_32f, len, rFreq, phase)), 0x1p-22) << rFreq << ' ' << len;
        EXPECT_LT(distance(phaseBehind(&orbsTone_Direct_16sc, len, rFreq, phase)), 0x1p-22) << rFreq << ' ' << len;
        EXPECT_LT(distance(phaseBehind<Orb64f>(&orbsTone_Direct_64f, len, rFreq, phase)), len * 0x1p-50)
            << rFreq << ' ' << len;
        EXPECT_EQ(phaseBehind(&orbsTone_Direct_32fc, len, 0.0f, phase), phase);
    }
    int atEnd = 0; // as a float the phase would be the whole turn
    for (int len = 2; len < 5000; ++len) {
        const Orb32f rFreq = 1.0f / static_cast<Orb32f>(len);
        const double left = 1 - static_cast<double>(rFreq) * len;
        if (left <= 1e-12 || left > 1e-8) continue;
        EXPECT_EQ(phaseBehind(&orbsTone_Direct_32f, len, rFreq, 0.0f), 0) << len;
        ++atEnd;
    }
    EXPECT_GT(atEnd, 0);
}

// ---- Q15 ----

// A half away from zero, but for what the last place of the cosine may tip over a half.
void expectCosine(Orb16s got, Orb16s magn, int rFreqQ15, int phaseQ15, double n) {
    const double w = twoPi * (rFreqQ15 * 0x1p-15), x = w * n + phaseQ15 * 0x1p-15;
    ASSERT_NEAR(got, static_cast<double>(magn * std::cos(static_cast<long double>(x))), 0.5 + 1e-10) << n;
}

TEST(ToneQ15, IsACosineASample) {
    for (int rFreqQ15 : {0, 1, 3000, 16383}) {
        for (int phaseQ15 : {0, 1, 51472, 205886}) {
            for (Orb16s magn : {Orb16s{1}, Orb16s{32767}}) {
                std::vector<Orb16s> v(1003);
                ASSERT_EQ(orbsToneQ15_Direct_16s(v.data(), 1003, magn, static_cast<Orb16s>(rFreqQ15), phaseQ15),
                          orbStsNoErr);
                for (std::size_t n = 0; n < v.size(); ++n)
                    expectCosine(v[n], magn, rFreqQ15, phaseQ15, static_cast<double>(n));
            }
        }
    }
}

// The fields of a state, which callers save.
template <class Field>
Field field(const unsigned char* state, std::size_t at) {
    Field value;
    std::memcpy(&value, state + at, sizeof value);
    return value;
}

TEST(ToneQ15, AStateGoesOnAndHasItsFieldsInOrder) {
    int size = 0;
    ASSERT_EQ(orbsToneGetStateSizeQ15_16s(&size), orbStsNoErr);
    ASSERT_EQ(size, 40);
    std::vector<unsigned char> memory(41, 0x77);
    unsigned char* const bytes = memory.data() + 1; // at any address
    auto* const state = reinterpret_cast<OrbsToneState_16s*>(bytes);
    ASSERT_EQ(orbsToneInitQ15_16s(state, 20000, 3277, 100000), orbStsNoErr);
    EXPECT_EQ(std::memcmp(bytes, "HAMC", 4), 0);
    EXPECT_EQ(field<Orb64f>(bytes, 4), 20000);
    EXPECT_EQ(field<Orb64f>(bytes, 12), 3277 * 0x1p-15);
    EXPECT_EQ(field<Orb64f>(bytes, 20), 100000 * 0x1p-15);
    EXPECT_EQ(field<Orb32s>(bytes, 28), 0x77777777); // not set, nor read
    EXPECT_EQ(field<Orb32s>(bytes, 32), 0);
    EXPECT_EQ(field<Orb32s>(bytes, 36), 0);

    OrbsToneState_16s* allocated = nullptr;
    ASSERT_EQ(orbsToneInitAllocQ15_16s(&allocated, 20000, 3277, 100000), orbStsNoErr);
    EXPECT_EQ(field<Orb32s>(reinterpret_cast<unsigned char*>(allocated), 28), 0);
    EXPECT_EQ(field<Orb32s>(reinterpret_cast<unsigned char*>(allocated), 32), 1);
    std::vector<Orb16s> whole(500), inPieces(500), fromAllocated(500);
    ASSERT_EQ(orbsToneQ15_Direct_16s(whole.data(), 500, 20000, 3277, 100000), orbStsNoErr);
    int made = 0;
    for (int piece : {1, 2, 3, 94, 400}) {
        ASSERT_EQ(orbsToneQ15_16s(&inPieces[static_cast<std::size_t>(made)], piece, state), orbStsNoErr);
        made += piece;
    }
    ASSERT_EQ(orbsToneQ15_16s(fromAllocated.data(), 500, allocated), orbStsNoErr);
    EXPECT_EQ(inPieces, whole);
    EXPECT_EQ(fromAllocated, whole);
    EXPECT_EQ(field<Orb32s>(bytes, 28), 500);
    EXPECT_EQ(field<Orb32s>(bytes, 36), 1);

    const Orb32s late = 0x7fffffff - 50; // where the angle is largest, and the count of samples wraps
    std::memcpy(bytes + 28, &late, sizeof late);
    ASSERT_EQ(orbsToneQ15_16s(whole.data(), 100, state), orbStsNoErr);
    for (int n = 0; n < 100; ++n)
        expectCosine(whole[static_cast<std::size_t>(n)], 20000, 3277, 100000, late + (n > 50 ? n - 0x1p32 : n));

    const auto before = memory;
    EXPECT_EQ(orbsToneFree(state), orbStsNoErr);
    EXPECT_EQ(memory, before);
    EXPECT_EQ(orbsToneFree(allocated), orbStsNoErr);
}

} // namespace
