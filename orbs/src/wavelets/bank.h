// The state of a two-channel filter bank: one block of memory, the head in front of the channels, no address inside.
//
// A channel keeps its stream in lines: Fwd the samples at even and at odd places in one each, Inv its values in one.
// The newest `kept` elements stand in front of `end`; a block is appended behind them, piece by piece, and read there.
// Where a line ends, what is kept moves to its front.
#pragma once

#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"
#include "orbs/wavelets.h"
#include "wavelets/sums.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace orbs {

// Outputs of a channel at a time.
constexpr std::size_t pieceLen = 512;

// ---- What taps and offset decide ----

// Every other tap, from the one that meets the oldest sample on, and the place of that sample in its line for the
// output that is made when the next element comes.
struct RunPlan {
    std::int64_t firstTap, count, line, place;
};
struct ChannelPlan {
    std::int64_t reach; // samples before a block that its outputs reach back to
    std::int64_t kept;  // the elements that hold them: so many outputs of a block need them
    std::int64_t lines;
    RunPlan runs[2];

    std::uint64_t lineLen() const { return 2 * static_cast<std::uint64_t>(kept) + pieceLen; }
};

// One run for each line; together they are the output. Their oldest samples are neighbours.
inline ChannelPlan planForward(std::int64_t taps, std::int64_t offset) {
    const std::int64_t oldest = -offset - (taps - 1), reach = std::max<std::int64_t>(-oldest, 0);
    const auto run = [=](std::int64_t line) {
        const std::int64_t r = (oldest + line) & 1;
        return RunPlan{taps - 1 - r, (taps + 1 - r) / 2, line, (oldest + r) >> 1};
    };
    return {reach, (reach + 1) / 2, 2, {run(0), run(1)}};
}

// One run for the outputs at even places, one for those at odd ones.
inline ChannelPlan planInverse(std::int64_t taps, std::int64_t offset) {
    const std::int64_t delay = offset / 2, phase = offset & 1, reach = (taps - 1 + phase) / 2 + delay;
    const auto run = [=](std::int64_t parity) {
        const std::int64_t count = (taps + 1 - parity) / 2;
        return RunPlan{parity + 2 * (count - 1), count, 0, -delay - parity * phase - (count - 1)};
    };
    return {reach, reach, 1, {run(phase), run(1 - phase)}};
}

// ---- Channels ----

struct Channel {
    struct Run {
        RelativePtr<Orb32f> taps;
        Orb32s count, line, place;
    };

    Orb32s reach, kept, lines;
    Orb32s lineLen, end;
    RelativePtr<Orb32f> line[2];
    Run runs[2];

    // For `count` more elements behind the newest.
    void makeRoom(std::size_t count) {
        if (end + static_cast<Orb32s>(count) <= lineLen) return;
        for (Orb32s k = 0; k < lines; ++k)
            std::memmove(line[k], line[k] + (end - kept), static_cast<std::size_t>(kept) * sizeof(Orb32f));
        end = kept;
    }
    // One of the samples that are kept, by its number from the oldest.
    Orb32f* sample(std::size_t which) const {
        const Orb32s n = lines * kept - reach + static_cast<Orb32s>(which);
        return line[n % lines] + (end - kept + n / lines);
    }
    // Of output n from the newest elements of a channel on, this one or one with the same samples there.
    TapRun runAt(std::size_t which, std::size_t n, const Channel& samples) const {
        const Run& run = runs[which];
        return {run.taps, static_cast<std::size_t>(run.count),
                samples.line[run.line] + (samples.end + run.place) + static_cast<std::ptrdiff_t>(n)};
    }
    // Of the outputs of a piece, which begins at output `first` of its block, those that reach back before the block.
    std::size_t headOf(std::size_t first, std::size_t count) const {
        const auto all = static_cast<std::size_t>(kept);
        return first < all ? std::min(all - first, count) : 0;
    }
};

// ---- States ----

// Members with an integer type go through a buffer of floats.
template <class OuterType, Orb32s tagOfKind, auto planOfKind>
struct BankState {
    using Outer = OuterType; // of the samples at the full rate
    static constexpr Orb32s ownTag = tagOfKind;
    static constexpr auto plan = planOfKind;
    static constexpr std::size_t bufferLen = std::is_same_v<Outer, Orb32f> ? 0 : 2 * pieceLen;

    Orb32s tag;
    RelativePtr<Channel> lowChannel, highChannel;
    RelativePtr<Orb32f> convBuffer;
    Orb32s convBufferLen;
};

template <class State>
OrbStatus checkBank(const State* state) {
    if (anyNull(state)) return orbStsNullPtrErr;
    const bool whole = state->tag == State::ownTag && state->lowChannel && state->highChannel &&
                       state->convBufferLen >= 0 && (state->convBufferLen != 0) == (state->convBuffer != nullptr);
    return whole ? orbStsNoErr : orbStsContextMatchErr;
}

// Over a null base only measures.
inline Channel* placeChannel(Layout& block, const ChannelPlan& plan, const Orb32f* taps) {
    Channel* const channel = block.take<Channel>(1, 16);
    Orb32f *runs[2], *lines[2] = {};
    for (int k = 0; k < 2; ++k) runs[k] = block.take<Orb32f>(static_cast<std::uint64_t>(plan.runs[k].count), 16);
    for (int k = 0; k < plan.lines; ++k) lines[k] = block.take<Orb32f>(plan.lineLen(), 32);
    if (!channel) return nullptr;

    new (channel) Channel{};
    channel->reach = static_cast<Orb32s>(plan.reach);
    channel->kept = channel->end = static_cast<Orb32s>(plan.kept);
    channel->lines = static_cast<Orb32s>(plan.lines);
    channel->lineLen = static_cast<Orb32s>(plan.lineLen());
    for (int k = 0; k < 2; ++k) {
        const RunPlan& run = plan.runs[k];
        for (std::int64_t n = 0; n < run.count; ++n) runs[k][n] = taps[run.firstTap - 2 * n];
        channel->runs[k].taps = runs[k];
        channel->runs[k].count = static_cast<Orb32s>(run.count);
        channel->runs[k].line = static_cast<Orb32s>(run.line);
        channel->runs[k].place = static_cast<Orb32s>(run.place);
        channel->line[k] = lines[k];
        if (lines[k]) std::fill_n(lines[k], plan.kept, 0.0f);
    }
    return channel;
}

struct ChannelTaps {
    const Orb32f* taps;
    ChannelPlan plan;
};

// Returns the size of the block. Over a null base there is no state.
template <class State>
std::uint64_t placeBank(void* base, const ChannelTaps& low, const ChannelTaps& high) {
    Layout block(base);
    State* const state = block.take<State>(1, 16);
    Orb32f* const buffer = block.take<Orb32f>(State::bufferLen, 32);
    Channel* const lowChannel = placeChannel(block, low.plan, low.taps);
    Channel* const highChannel = placeChannel(block, high.plan, high.taps);
    if (state) {
        new (state) State{};
        state->tag = State::ownTag;
        state->lowChannel = lowChannel;
        state->highChannel = highChannel;
        state->convBuffer = State::bufferLen > 0 ? buffer : nullptr;
        state->convBufferLen = static_cast<Orb32s>(State::bufferLen);
    }
    return block.used();
}

template <class State>
OrbStatus initBank(State** ppState, const Orb32f* pTapsLow, int lenLow, int offsLow, const Orb32f* pTapsHigh,
                   int lenHigh, int offsHigh) {
    if (anyNull(ppState, pTapsLow)) return orbStsNullPtrErr;
    if (lenLow < 1) return orbStsSizeErr;
    if (anyNull(pTapsHigh)) return orbStsNullPtrErr;
    if (lenHigh < 1) return orbStsSizeErr;
    if (offsLow < -1 || offsHigh < -1) return orbStsWtOffsetErr;
    const ChannelTaps low{pTapsLow, State::plan(lenLow, offsLow)}, high{pTapsHigh, State::plan(lenHigh, offsHigh)};
    const std::uint64_t size = placeBank<State>(nullptr, low, high);
    constexpr std::uint64_t largestBlock = std::numeric_limits<int>::max();
    Orb8u* const block = size > largestBlock ? nullptr : orbsMalloc_8u(static_cast<int>(size));
    *ppState = reinterpret_cast<State*>(block); // which stands first
    if (!block) return orbStsMemAllocErr;
    placeBank<State>(block, low, high);
    return orbStsNoErr;
}

template <class State>
OrbStatus freeBank(State* pState) {
    if (const OrbStatus status = checkBank(pState)) return status;
    orbsFree(pState);
    return orbStsNoErr;
}

template <class State>
OrbStatus setLines(State* pState, const Orb32f* pDlyLow, const Orb32f* pDlyHigh) {
    if (const OrbStatus status = checkBank(pState)) return status;
    if (anyNull(pDlyLow, pDlyHigh)) return orbStsNullPtrErr;
    const auto set = [](const Channel& channel, const Orb32f* line) {
        for (std::size_t n = 0; n < static_cast<std::size_t>(channel.reach); ++n) *channel.sample(n) = line[n];
    };
    set(*pState->lowChannel, pDlyLow);
    set(*pState->highChannel, pDlyHigh);
    return orbStsNoErr;
}

template <class State>
OrbStatus getLines(const State* pState, Orb32f* pDlyLow, Orb32f* pDlyHigh) {
    if (const OrbStatus status = checkBank(pState)) return status;
    if (anyNull(pDlyLow, pDlyHigh)) return orbStsNullPtrErr;
    const auto get = [](const Channel& channel, Orb32f* line) {
        for (std::size_t n = 0; n < static_cast<std::size_t>(channel.reach); ++n) line[n] = *channel.sample(n);
    };
    get(*pState->lowChannel, pDlyLow);
    get(*pState->highChannel, pDlyHigh);
    return orbStsNoErr;
}

} // namespace orbs

struct OrbsWTFwdState_32f : orbs::BankState<Orb32f, 41, orbs::planForward> {};
struct OrbsWTFwdState_8u32f : orbs::BankState<Orb8u, 42, orbs::planForward> {};
struct OrbsWTFwdState_8s32f : orbs::BankState<Orb8s, 43, orbs::planForward> {};
struct OrbsWTFwdState_16u32f : orbs::BankState<Orb16u, 44, orbs::planForward> {};
struct OrbsWTFwdState_16s32f : orbs::BankState<Orb16s, 45, orbs::planForward> {};
struct OrbsWTInvState_32f : orbs::BankState<Orb32f, 50, orbs::planInverse> {};
struct OrbsWTInvState_32f8u : orbs::BankState<Orb8u, 51, orbs::planInverse> {};
struct OrbsWTInvState_32f8s : orbs::BankState<Orb8s, 52, orbs::planInverse> {};
struct OrbsWTInvState_32f16u : orbs::BankState<Orb16u, 53, orbs::planInverse> {};
struct OrbsWTInvState_32f16s : orbs::BankState<Orb16s, 54, orbs::planInverse> {};
