#include "orbs.h"
#include "support/compare.h"

#include <cmath>

namespace {

using namespace support;

constexpr double pi = 3.141592653589793, twoPi = 6.283185307179586;

// ---- Reference ----

double wave(double magn, double p, double asym) {
    const double h = pi + asym, r = pi - asym;
    return p < h ? magn * (1 - 2 * p / h) : magn * (2 * (p - h) / r - 1);
}

std::vector<double> walk(std::size_t len, double magn, double rFreq, double p, double asym) {
    const double h = pi + asym, r = pi - asym, f = 12.566370614359172 * magn;
    const double down = -(f * rFreq) / h, up = f * rFreq / r, top = -r / h, low = -h / r;
    double v = wave(magn, p, asym), step = p < h ? down : up;
    bool rising = step > 0;
    std::vector<double> x;
    while (x.size() < len) {
        x.push_back(v);
        v = v + step;
        if (rising && v > magn) {
            const double u = top * v + (magn - magn * top);
            if (u >= -magn) {
                v = u, rising = false, step = down;
            } else {
                v = v - f / r;
            }
        } else if (!rising && v < -magn) {
            const double u = low * v + (magn * low - magn);
            if (!(u > magn)) {
                v = u, rising = true, step = up;
            } else {
                v = v + f / h;
            }
        }
    }
    return x;
}

std::vector<double> byPhase(std::size_t len, double magn, double rFreq, double p, double asym) {
    const double h = pi + asym, r = pi - asym;
    std::vector<double> x;
    for (; x.size() < len; p += twoPi * rFreq) {
        if (p >= twoPi) p -= twoPi;
        x.push_back(p < h ? -2 * magn / h * p + magn : 2 * magn / r * p + -magn * (twoPi + h) / r);
    }
    return x;
}

std::vector<double> expected(std::size_t len, double magn, double rFreq, double p, double asym, bool hasPhases) {
    return hasPhases ? byPhase(len, magn, rFreq, p, asym) : walk(len, magn, rFreq, p, asym);
}

template <class T>
std::vector<T> cut(const std::vector<double>& x) {
    std::vector<T> v;
    for (double value : x) v.push_back(static_cast<T>(std::is_integral_v<T> ? std::trunc(value) : value));
    return v;
}

// ---- Direct ----

template <class T, class Magn, class Real>
void expectWave(OrbStatus (*member)(T*, int, Magn, Real, Real, Real*), int len, double magn, Real rFreq, Real asym,
                Real phase) {
    const auto count = static_cast<std::size_t>(len);
    std::vector<T> got(count);
    Real p = phase;
    ASSERT_EQ(member(got.data(), len, static_cast<Magn>(magn), rFreq, asym, &p), orbStsNoErr);
    std::vector<Real> tone(count);
    Real tonePhase = phase;
    if constexpr (std::is_same_v<Real, Orb32f>) {
        orbsTone_Direct_32f(tone.data(), len, 1, rFreq, &tonePhase, orbAlgHintFast);
    } else {
        orbsTone_Direct_64f(tone.data(), len, 1, rFreq, &tonePhase, orbAlgHintFast);
    }
    EXPECT_EQ(p, tonePhase);

    const bool doubles = sizeof(Real) == sizeof(double);
    const auto call = callOf(member, len, magn, rFreq, asym, phase);
    if constexpr (isComplex<T>) {
        const double h = pi + asym;
        double second = phase + (twoPi + h) / 2;
        if (second >= twoPi) second -= twoPi;
        const bool hasPhases = doubles && rFreq >= 0.11;
        const auto re = cut<Part<T>>(expected(count, magn, rFreq, phase, asym, hasPhases));
        const auto im = cut<Part<T>>(expected(count, magn, rFreq, second, asym, hasPhases));
        std::vector<T> want;
        for (std::size_t n = 0; n < count; ++n) want.push_back({re[n], im[n]});
        ASSERT_TRUE(sameBits(got, want)) << call;
    } else {
        const bool hasPhases = doubles && rFreq >= 0.14;
        const auto want = cut<T>(expected(count, magn, rFreq, phase, asym, hasPhases));
        ASSERT_TRUE(sameBits(got, want)) << call;
    }
}

template <class Member>
void expectWaves(Member member, auto real) {
    using Real = decltype(real);
    const double asyms[] = {0, 1, -2.5, 3.1415, -3.1415, -3.14159, 3.141592};
    for (double asym : asyms)
        for (double rFreq : {0.0, 1e-4, 0.01, 0.1099999, 0.1100001, 0.1399999, 0.1400001, 0.25, 0.4999})
            for (double phase : {0.0, 1.0, pi, 6.283})
                for (int len : {1, 2, 3, 17, 511, 513, 1500})
                    expectWave(member, len, 32767, static_cast<Real>(rFreq), static_cast<Real>(asym),
                               static_cast<Real>(phase));
}

TEST(Triangle, IsTheFoldedWalkOrTheLineOfItsPhase) {
    expectWaves(&orbsTriangle_Direct_32f, Orb32f{});
    expectWaves(&orbsTriangle_Direct_32fc, Orb32f{});
    expectWaves(&orbsTriangle_Direct_16s, Orb32f{});
    expectWaves(&orbsTriangle_Direct_16sc, Orb32f{});
    expectWaves(&orbsTriangle_Direct_64f, Orb64f{});
    expectWaves(&orbsTriangle_Direct_64fc, Orb64f{});
}

// The walk and the phases follow the wave: what n roundings add up to, on the steeper side.
TEST(Triangle, FollowsTheWave) {
    for (double asym : {0.0, 2.0, -2.0}) {
        for (double rFreq : {0.001, 0.07, 0.3}) {
            std::vector<Orb64f> v(2000);
            Orb64f phase = 1;
            ASSERT_EQ(orbsTriangle_Direct_64f(v.data(), 2000, 1, rFreq, asym, &phase), orbStsNoErr);
            for (std::size_t n = 0; n < v.size(); ++n) {
                const double p = std::fmod(twoPi * rFreq * static_cast<double>(n) + 1, twoPi);
                ASSERT_NEAR(v[n], wave(1, p, asym), 2000 * 20 * 0x1p-52) << n << ' ' << rFreq << ' ' << asym;
            }
        }
    }
}

TEST(Triangle, WithoutAFallingSideItRisesAndJumps) {
    for (double rFreq : {0.0, 0.01, 0.13, 0.2}) {
        std::vector<Orb64f> v(1000);
        Orb64f phase = 0.5;
        ASSERT_EQ(orbsTriangle_Direct_64f(v.data(), 1000, 3, rFreq, -pi, &phase), orbStsNoErr);
        int falls = 0;
        for (std::size_t n = 1; n < v.size(); ++n) {
            ASSERT_LE(std::fabs(v[n]), 3 + 1e-12) << n << ' ' << rFreq;
            falls += v[n] < v[n - 1];
        }
        EXPECT_NEAR(falls, 1000 * rFreq, 1) << rFreq;
    }
}

// ---- Q15 ----

TEST(TriangleQ15, DirectIsTheFloatMemberOfExactArguments) {
    for (int rFreqQ15 : {0, 100, 16383}) {
        for (int asymQ15 : {-102943, 0, 102943}) {
            for (int phaseQ15 : {0, 102944, 205886}) {
                std::vector<Orb16s> got(700), want(700);
                Orb32f phase = static_cast<Orb32f>(phaseQ15) * 3.0517578e-5f;
                ASSERT_EQ(orbsTriangleQ15_Direct_16s(got.data(), 700, 30000, static_cast<Orb16s>(rFreqQ15), phaseQ15,
                                                     asymQ15),
                          orbStsNoErr);
                ASSERT_EQ(orbsTriangle_Direct_16s(want.data(), 700, 30000,
                                                  static_cast<Orb32f>(rFreqQ15) * 3.0517578e-5f,
                                                  static_cast<Orb32f>(asymQ15) * 3.0517578e-5f, &phase),
                          orbStsNoErr);
                ASSERT_EQ(got, want) << rFreqQ15 << ' ' << asymQ15 << ' ' << phaseQ15;
            }
        }
    }
}

template <class Field>
Field field(const unsigned char* state, std::size_t at) {
    Field value;
    std::memcpy(&value, state + at, sizeof value);
    return value;
}

TEST(TriangleQ15, AStateRoundsGoesOnAndHasItsFieldsInOrder) {
    constexpr Orb16s magn = 20001, rFreqQ15 = 1111;
    constexpr int phaseQ15 = 150000, asymQ15 = -40000;
    int size = 0;
    ASSERT_EQ(orbsTriangleGetStateSizeQ15_16s(&size), orbStsNoErr);
    ASSERT_EQ(size, 128);
    std::vector<unsigned char> memory(129, 0x77);
    unsigned char* const bytes = memory.data() + 1; // at any address
    auto* const state = reinterpret_cast<OrbsTriangleState_16s*>(bytes);
    ASSERT_EQ(orbsTriangleInitQ15_16s(state, magn, rFreqQ15, phaseQ15, asymQ15), orbStsNoErr);
    EXPECT_EQ(std::memcmp(bytes, "IAMC", 4), 0);
    const double given[] = {magn, rFreqQ15 * 0x1p-15, phaseQ15 * 0x1p-15, asymQ15 * 0x1p-15};
    for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(field<Orb64f>(bytes, 4 + 8 * k), given[k]);
    EXPECT_TRUE(std::all_of(bytes + 36, bytes + 128, [](unsigned char byte) { return byte == 0; }));

    const auto exactly = walk(601, magn, given[1], given[2], given[3]);
    std::vector<Orb16s> want;
    for (double v : exactly) want.push_back(static_cast<Orb16s>(std::round(v)));
    want.pop_back();
    OrbsTriangleState_16s* allocated = nullptr;
    ASSERT_EQ(orbsTriangleInitAllocQ15_16s(&allocated, magn, rFreqQ15, phaseQ15, asymQ15), orbStsNoErr);
    EXPECT_EQ(field<Orb32s>(reinterpret_cast<unsigned char*>(allocated), 120), 1);
    std::vector<Orb16s> inPieces(600), whole(600);
    int made = 0;
    for (int piece : {1, 2, 7, 590}) {
        ASSERT_EQ(orbsTriangleQ15_16s(&inPieces[static_cast<std::size_t>(made)], piece, state), orbStsNoErr);
        made += piece;
    }
    ASSERT_EQ(orbsTriangleQ15_16s(whole.data(), 600, allocated), orbStsNoErr);
    EXPECT_EQ(inPieces, want);
    EXPECT_EQ(whole, want);

    const double h = pi + given[3], r = pi - given[3], f = 12.566370614359172 * magn, down = -(f * given[1]) / h,
                 up = f * given[1] / r, top = -r / h, low = -h / r;
    const bool rising = field<Orb32s>(bytes, 116) != 0;
    const double derived[] = {
        down, up, top, low, f / r, f / h, magn - magn * top, magn * low - magn, rising ? up : down, exactly[600]};
    for (std::size_t k = 0; k < 10; ++k) EXPECT_EQ(field<Orb64f>(bytes, 36 + 8 * k), derived[k]) << k;
    EXPECT_EQ(field<Orb32s>(bytes, 120), 0);
    EXPECT_EQ(field<Orb32s>(bytes, 124), 1);

    const auto before = memory;
    EXPECT_EQ(orbsTriangleFree(state), orbStsNoErr);
    EXPECT_EQ(memory, before);
    EXPECT_EQ(orbsTriangleFree(allocated), orbStsNoErr);
}

} // namespace
