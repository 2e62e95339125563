// The generator under all noise: a congruential word, added to a sequence of differences with a carry.
//   lcg = 69069 * lcg + 1013904243
//   t = x2 - x3 + carry; if its top bit is set, carry = -1 and t is less 18, else carry = 0
//   x3 = x2, x2 = x1, x1 = t; the output is x1 + lcg
#pragma once

#include "vectors/loops.h"

#include <array>

namespace orbs {

struct RandomCore {
    Orb32u lcg, x1, x2, x3, carry;
};

constexpr Orb32u lcgFactor = 69069, lcgAddend = 1013904243;

// The congruential word starts the same for every seed.
constexpr RandomCore seededCore(Orb32u seed) {
    const Orb32u x2 = seed * lcgFactor + lcgAddend;
    return {1131199209, seed, x2, x2 * lcgFactor + lcgAddend, ~Orb32u{0}};
}

// Outputs that are made at a time.
constexpr std::size_t randomBlock = 512;

// n + 1 steps of the congruential word at once: lcg * factor[n] + addend[n].
struct LcgSteps {
    std::array<Orb32u, randomBlock> factor, addend;
};
inline constexpr LcgSteps lcgSteps = [] {
    LcgSteps steps{};
    Orb32u factor = 1, addend = 0;
    for (std::size_t n = 0; n < randomBlock; ++n) {
        steps.factor[n] = factor *= lcgFactor;
        steps.addend[n] = addend = addend * lcgFactor + lcgAddend;
    }
    return steps;
}();

// Room for a block, and whole vectors from any of its elements on.
struct RandomWords {
    alignas(64) std::array<Orb32s, randomBlock + 64 / sizeof(Orb32s)> word;
};

// The next `count` outputs, at most a block of them. The carry is what each step has to wait for, so it is added last.
inline void nextWords(RandomCore& core, std::size_t count, RandomWords& words) {
    Orb32u x1 = core.x1, x2 = core.x2, x3 = core.x3, carry = core.carry;
    for (std::size_t n = 0; n < count; ++n) {
        Orb32u t = x2 - x3;
        asm("" : "+r"(t)); // or the compiler adds it first
        t += carry;
        carry = static_cast<Orb32u>(static_cast<Orb32s>(t) >> 31);
        x3 = x2;
        x2 = x1;
        x1 = t - (carry & 18);
        words.word[n] = static_cast<Orb32s>(x1);
    }
    const hn::ScalableTag<Orb32u> d;
    const auto lcg = hn::Set(d, core.lcg);
    auto* const word = reinterpret_cast<Orb32u*>(words.word.data());
    for (std::size_t n = 0; n < count; n += hn::MaxLanes(d)) {
        const auto step = hn::LoadU(d, &lcgSteps.factor[n]) * lcg + hn::LoadU(d, &lcgSteps.addend[n]);
        hn::StoreU(hn::LoadU(d, word + n) + step, d, word + n);
    }
    core = {core.lcg * lcgSteps.factor[count - 1] + lcgSteps.addend[count - 1], x1, x2, x3, carry};
}

} // namespace orbs
