// Convolution and correlation as sums of products, one output after the other.
#pragma once

#include "convolution/fourier.h"
#include "convolution/sliding.h"

#include <array>

namespace orbs {

// Beyond 2^127 single precision has no scale, and infinity times a sum of 0 would be no number. What is not 0 is
// saturated by then.
inline int finiteScale(int scaleFactor) {
    return std::max(scaleFactor, -127);
}

// The outputs p = first to first + count - 1 of the shorter signal slid along the longer one: as it is or conjugated,
// or turned round, as a convolution has it (step -1).
template <std::ptrdiff_t step, class T>
OrbStatus directly(Signal<T> shorter, Signal<T> longer, std::int64_t first, T* pDst, int count) {
    constexpr Taps kind = isComplex<T> && step > 0 ? Taps::conjugated : Taps::asTheyAre;
    const T* const taps = step > 0 ? shorter.first : shorter.first + (shorter.length - 1);
    const Sliding<T, step, kind> sliding({taps, static_cast<std::size_t>(shorter.length)}, longer.first, longer.length);
    sliding.outputs(static_cast<std::ptrdiff_t>(first), pDst, count);
    return orbStsNoErr;
}

// 16-bit samples, in single precision: piece by piece of the outputs, with the samples that these meet.
template <std::ptrdiff_t step>
OrbStatus directly(Signal<Orb16s> shorter, Signal<Orb16s> longer, std::int64_t first, Orb16s* pDst, int count,
                   int scaleFactor) {
    constexpr int piece = 4096;
    const std::int64_t taps = shorter.length, most = std::min(piece, count);
    Layout measure(nullptr);
    const auto layOut = [&](Layout& block) {
        const auto room = [&](std::int64_t floats) {
            return block.take<Orb32f>(static_cast<std::uint64_t>(floats), 32);
        };
        return std::array{room(taps), room(std::min<std::int64_t>(longer.length, most + taps)), room(most)};
    };
    layOut(measure);
    if (measure.used() > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* const memory = orbsMalloc_8u(static_cast<int>(measure.used()));
    if (!memory) return orbStsMemAllocErr;
    Layout block(memory);
    const auto [h, x, y] = layOut(block);
    widen(shorter.first, h, shorter.length);
    for (int n = 0; n < count; n += piece) {
        const int outputs = std::min(piece, count - n);
        const std::int64_t p = first + n;
        const std::int64_t from = std::clamp<std::int64_t>(p, 0, longer.length);
        const std::int64_t to = std::clamp<std::int64_t>(p + outputs + taps - 1, from, longer.length);
        widen(longer.first + from, x, static_cast<std::ptrdiff_t>(to - from));
        directly<step>(Signal<Orb32f>{h, shorter.length}, {x, static_cast<int>(to - from)}, p - from, y, outputs);
        narrow(y, pDst + n, outputs, scaleFactor);
    }
    orbsFree(memory);
    return orbStsNoErr;
}

} // namespace orbs
