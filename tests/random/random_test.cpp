// The streams of noise against the serial generator, one step at a time.
#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/guarded.h"

#include <cmath>
#include <functional>
#include <vector>

namespace {

using support::callOf;
using support::Guarded;
using support::sameBits;

// ---- The serial generator ----

struct Core {
    Orb32u lcg, x1, x2, x3;
    Orb32s carry;

    explicit Core(Orb32u seed)
        : lcg(1131199209), x1(seed), x2(x1 * 69069 + 1013904243), x3(x2 * 69069 + 1013904243), carry(-1) {}
    Orb32s next() {
        lcg = lcg * 69069 + 1013904243;
        const auto wide = static_cast<std::int64_t>(x2) - x3 + carry;
        auto t = static_cast<Orb32u>(wide);
        carry = t >> 31 ? -1 : 0;
        if (carry) t -= 18;
        x3 = x2;
        x2 = x1;
        x1 = t;
        return static_cast<Orb32s>(x1 + lcg);
    }
};

TEST(RandomCoreOfTheTests, BeginsAsTold) {
    Core core(7);
    core.next();
    EXPECT_EQ(core.lcg, 2061989128u);
    core.next();
    EXPECT_EQ(core.lcg, 3720418011u);
}

template <class T>
std::function<Orb64f(Core&)> uniformOf(T low, T high) {
    constexpr Orb64f c = 2.3283064365387e-10;
    volatile Orb64f mid, scale; // each operation rounded
    if constexpr (std::is_same_v<T, Orb64f>) {
        const volatile Orb64f first = high * c, second = c * low;
        mid = (low + high) * 0.5;
        scale = first - second;
    } else { // of two 16-bit integers exact as well
        const volatile Orb32f sum = static_cast<Orb32f>(low) + static_cast<Orb32f>(high);
        const volatile Orb32f difference = static_cast<Orb32f>(high) - static_cast<Orb32f>(low);
        mid = Orb64f{sum} * 0.5;
        scale = Orb64f{difference} * c;
    }
    return [mid = Orb64f{mid}, scale = Orb64f{scale}](Core& core) { return core.next() * scale + mid; };
}

// Pairs as they come, and the deviates of one after the other.
struct Deviates {
    Core& core;
    Orb64f u = 0, v = 0, r = 0;
    bool held = false;

    void draw() {
        Orb64f s;
        do {
            u = core.next() * 4.656612873077e-10;
            v = core.next() * 4.656612873077e-10;
            s = u * u + v * v;
        } while (s >= 1 || s == 0);
        Orb64f ln;
        orbsLn_64f(&s, &ln, 1); // the logarithm is tested elsewhere
        r = std::sqrt(-2 * ln / s);
    }
    template <class T>
    T next(T mean, T stdDev) {
        if (!held) draw();
        held = !held;
        const Orb64f deviate = static_cast<Orb64f>(stdDev) * r * (held ? v : u);
        if constexpr (std::is_same_v<T, Orb32f>) {
            return static_cast<Orb32f>(deviate) + mean;
        } else if constexpr (std::is_same_v<T, Orb64f>) {
            return deviate + mean;
        } else {
            constexpr auto least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
            return static_cast<T>(std::clamp<Orb64f>(std::trunc(deviate + mean), least, most));
        }
    }
};

const int lengths[] = {1, 2, 3, 4, 5, 7, 8, 15, 17, 31, 33, 64, 255, 511, 512, 513, 514, 1023, 1024, 1025, 2600};
const Orb32u seeds[] = {0, 1, 123456789, 0x80000000, 0xffffffff};

// Samples of a Direct member, its seed behind them.
template <class T>
void expectDirect(OrbStatus (*member)(T*, int, T, T, Orb32u*), int len, T first, T second, Orb32u seed,
                  const std::vector<T>& want, Orb32u wantSeed) {
    Guarded<T> dst(static_cast<std::size_t>(len));
    Orb32u word = seed;
    ASSERT_EQ(member(dst.data(), len, first, second, &word), orbStsNoErr);
    ASSERT_TRUE(sameBits(dst, want)) << callOf(member, first, second) << " of seed " << seed;
    ASSERT_TRUE(dst.intact()) << callOf(member, first, second);
    ASSERT_EQ(word, wantSeed) << callOf(member, first, second) << ", " << len << " samples of seed " << seed;
}

// ---- Uniform ----

template <class T>
void expectUniformDirect(OrbStatus (*member)(T*, int, T, T, Orb32u*), std::vector<std::pair<T, T>> intervals) {
    for (const auto& [low, high] : intervals) {
        const auto sample = uniformOf(low, high);
        for (const Orb32u seed : seeds) {
            for (const int len : lengths) {
                Core core(seed);
                std::vector<T> want;
                for (int n = 0; n < len; ++n) {
                    const Orb64f v = sample(core);
                    const bool cutOff = std::is_integral_v<T> && n == len - 1 && len % 2 != 0;
                    want.push_back(static_cast<T>(std::is_integral_v<T> && !cutOff ? std::nearbyint(v) : v));
                }
                expectDirect(member, len, low, high, seed, want, core.x1);
            }
        }
    }
}

TEST(RandUniform, DirectIsTheSerialStream) {
    expectUniformDirect<Orb16s>(&orbsRandUniform_Direct_16s, {{-32768, 32767}, {-3, 4}, {100, -100}, {5, 5}});
    expectUniformDirect<Orb32f>(&orbsRandUniform_Direct_32f, {{-1, 1}, {0.1f, 1e30f}, {3, -7}, {0.3f, 0.7f}});
    expectUniformDirect<Orb64f>(&orbsRandUniform_Direct_64f, {{-1, 1}, {0.1, 1e300}, {3, -7}, {0.3, 0.7}});
}

TEST(RandUniform, Direct16sRoundsAsTheCallerDoes) {
    for (const Orb32u mode : support::roundingModes) {
        Core core(5);
        std::vector<Orb16s> want;
        const auto sample = uniformOf<Orb16s>(-1000, 1001);
        support::inMode(mode, [&] {
            for (int n = 0; n < 101; ++n) {
                const Orb64f v = sample(core);
                want.push_back(static_cast<Orb16s>(n < 100 ? _mm_cvtsd_si32(_mm_set_sd(v)) : static_cast<int>(v)));
            }
            return 0;
        });
        support::inMode(mode, [&] {
            expectDirect<Orb16s>(&orbsRandUniform_Direct_16s, 101, -1000, 1001, 5, want, core.x1);
            return 0;
        });
    }
}

// One stream cut into calls of all lengths, from two objects of different seeds in turn.
template <class T, class State, class Make, class Free, class Serial>
void expectStreams(OrbStatus (*member)(T*, int, State*), Make make, Free free, Serial serial) {
    State* states[2] = {};
    Core cores[] = {Core(0), Core(99)};
    decltype(serial(cores[0])) streams[] = {serial(cores[0]), serial(cores[1])};
    ASSERT_EQ(make(&states[0], 0), orbStsNoErr);
    ASSERT_EQ(make(&states[1], 99), orbStsNoErr);
    for (int round = 0; round < 3; ++round) {
        for (const int len : lengths) {
            for (int which = 0; which < 2; ++which) {
                Guarded<T> dst(static_cast<std::size_t>(len));
                ASSERT_EQ(member(dst.data(), len, states[which]), orbStsNoErr);
                std::vector<T> want;
                for (int n = 0; n < len; ++n) want.push_back(streams[which]());
                ASSERT_TRUE(sameBits(dst, want)) << callOf(member) << ", stream " << which << ", " << len;
                ASSERT_TRUE(dst.intact());
            }
        }
    }
    for (State* state : states) EXPECT_EQ(free(state), orbStsNoErr);
}
template <class T, class State>
void expectUniform(OrbStatus (*member)(T*, int, State*), OrbStatus (*make)(State**, T, T, Orb32u),
                   OrbStatus (*free)(State*), T low, T high) {
    expectStreams(
        member, [=](State** state, Orb32u seed) { return make(state, low, high, seed); }, free,
        [=](Core& core) { return [&core, sample = uniformOf(low, high)] { return static_cast<T>(sample(core)); }; });
}

TEST(RandUniform, OfAnObjectIsTheSerialStream) {
    expectUniform<Orb8u>(&orbsRandUniform_8u, &orbsRandUniformInitAlloc_8u, &orbsRandUniformFree_8u, 0, 255);
    expectUniform<Orb8u>(&orbsRandUniform_8u, &orbsRandUniformInitAlloc_8u, &orbsRandUniformFree_8u, 201, 3);
    expectUniform<Orb16s>(&orbsRandUniform_16s, &orbsRandUniformInitAlloc_16s, &orbsRandUniformFree_16s, -32768, 32767);
    expectUniform<Orb32f>(&orbsRandUniform_32f, &orbsRandUniformInitAlloc_32f, &orbsRandUniformFree_32f, 0.1f, 1e30f);
}

// ---- Gaussian ----

template <class T>
void expectGaussDirect(OrbStatus (*member)(T*, int, T, T, Orb32u*), std::vector<std::pair<T, T>> parameters) {
    for (const auto& [mean, stdDev] : parameters) {
        for (const Orb32u seed : seeds) {
            for (const int len : lengths) {
                Core core(seed);
                Deviates deviates{core};
                std::vector<T> want;
                for (int n = 0; n < len; ++n) want.push_back(deviates.next(mean, stdDev));
                if (len % 2 == 0) deviates.draw();
                expectDirect(member, len, mean, stdDev, seed, want, core.x1);
            }
        }
    }
}

TEST(RandGauss, DirectIsTheSerialStream) {
    expectGaussDirect<Orb16s>(&orbsRandGauss_Direct_16s, {{0, 1000}, {-5, 3}, {32767, 32767}, {7, -32768}, {9, 0}});
    expectGaussDirect<Orb32f>(&orbsRandGauss_Direct_32f, {{0, 1}, {0.1f, 3.7f}, {-1e30f, 1e35f}, {2, -0.3f}});
    expectGaussDirect<Orb64f>(&orbsRandGauss_Direct_64f, {{0, 1}, {0.1, 3.7}, {-1e30, 1e300}, {2, -0.3}});
}

template <class T, class State>
void expectGauss(OrbStatus (*member)(T*, int, State*), OrbStatus (*make)(State**, T, T, Orb32u),
                 OrbStatus (*free)(State*), T mean, T stdDev) {
    expectStreams(
        member, [=](State** state, Orb32u seed) { return make(state, mean, stdDev, seed); }, free,
        [=](Core& core) { return [=, deviates = Deviates{core}]() mutable { return deviates.next(mean, stdDev); }; });
}

TEST(RandGauss, OfAnObjectIsTheSerialStream) {
    expectGauss<Orb8u>(&orbsRandGauss_8u, &orbsRandGaussInitAlloc_8u, &orbsRandGaussFree_8u, 128, 20);
    expectGauss<Orb8u>(&orbsRandGauss_8u, &orbsRandGaussInitAlloc_8u, &orbsRandGaussFree_8u, 3, 255);
    expectGauss<Orb16s>(&orbsRandGauss_16s, &orbsRandGaussInitAlloc_16s, &orbsRandGaussFree_16s, -100, 20000);
    expectGauss<Orb32f>(&orbsRandGauss_32f, &orbsRandGaussInitAlloc_32f, &orbsRandGaussFree_32f, 0.1f, -2.5f);
}

// ---- Objects ----

// The words of an object: tag, seed, parameters, and the core at its place.
struct Words {
    Orb32s words[15] = {};
    Core coreAt(std::size_t at) const {
        Core core(0);
        std::memcpy(static_cast<void*>(&core), words + at, sizeof core);
        return core;
    }
    void setCore(std::size_t at, const Core& core) { std::memcpy(words + at, &core, sizeof core); }
};

TEST(RandomObjects, HaveTheirFieldsInPlace) {
    int uniformSize = 0, gaussSize = 0;
    ASSERT_EQ(orbsRandUniformGetSize_16s(&uniformSize), orbStsNoErr);
    ASSERT_EQ(orbsRandGaussGetSize_16s(&gaussSize), orbStsNoErr);
    EXPECT_EQ(uniformSize, 48);
    EXPECT_EQ(gaussSize, 60);
    Words uniform, gauss;
    ASSERT_EQ(orbsRandUniformInit_16s(reinterpret_cast<OrbsRandUniState_16s*>(&uniform), -2, 5, 77), orbStsNoErr);
    ASSERT_EQ(orbsRandGaussInit_16s(reinterpret_cast<OrbsRandGaussState_16s*>(&gauss), -2, 5, 77), orbStsNoErr);
    const Core core(77);
    for (const Words* object : {&uniform, &gauss}) {
        EXPECT_EQ(object->words[0], object == &uniform ? 36 : 39);
        EXPECT_EQ(object->words[1], 77);
        EXPECT_EQ(object->words[2], 0x5fffe);
        const Core begin = object->coreAt(object == &uniform ? 7 : 3);
        EXPECT_TRUE(support::identical(begin, core));
    }
    EXPECT_EQ(gauss.words[8], 1); // a new pair is due
}

// Differences of 0 and 2^31 are where the carry decides the sign of a step.
TEST(RandomObjects, TheCarryDecidesAtItsEdges) {
    for (const Orb32s carry : {0, -1}) {
        for (const Orb32u difference : {0u, 1u, 0x7fffffffu, 0x80000000u, 0x80000001u, 0xffffffffu}) {
            Words object;
            auto* const state = reinterpret_cast<OrbsRandUniState_16s*>(&object);
            ASSERT_EQ(orbsRandUniformInit_16s(state, -32768, 32767, 1), orbStsNoErr);
            Core core(1);
            core.x1 = core.x2 + 5; // the second step meets an edge as well
            core.x3 = core.x2 - difference;
            core.carry = carry;
            object.setCore(7, core);
            Orb16s got[9];
            ASSERT_EQ(orbsRandUniform_16s(got, 9, state), orbStsNoErr);
            const auto sample = uniformOf<Orb16s>(-32768, 32767);
            for (const Orb16s y : got) ASSERT_EQ(y, static_cast<Orb16s>(sample(core))) << difference << ", " << carry;
            EXPECT_TRUE(support::identical(object.coreAt(7), core));
        }
    }
}

} // namespace
