// How FIR filters with a state work: which way a block takes, and the ways.
#pragma once

#include "filters/multirate.h"
#include "filters/samples.h"
#include "filters/state.h"
#include "foundation/threads.h"
#include "orbs/fir.h"
#include "orbs/spectra.h"
#include "vectors/complex.h"

#include <algorithm>
#include <cstring>

namespace orbs {

template <class State>
constexpr bool isMixed = !std::is_same_v<TapOf<State>, SampleOf<State>>;

// pDst[n] for n = 0 to count - 1, oldest being the sample of tap tapsLen - 1 for n = 0.
template <class State>
void runKernel(const State* state, const TapOf<State>* oldest, TapOf<State>* pDst, std::size_t count) {
    const TapRun<TapOf<State>, 1> taps{state->pTaps, static_cast<std::size_t>(state->tapsLen)};
    convolve<Part<TapOf<State>>>(taps, oldest, pDst, count);
}

// ---- Direct ----

// The first outputs are worked out behind the delay line, in D; the kernel then reads the samples in place.
template <class State>
void filterWide(State* state, const TapOf<State>* pSrc, TapOf<State>* pDst, int numIters) {
    const int tapsLen = state->tapsLen, head = headOutputs(tapsLen);
    TapOf<State>* const D = state->pDlyLine;
    TapOf<State>* const line = D + state->dlyLineIndex;
    state->dlyLineIndex = 0;
    widen(pSrc, line + tapsLen, std::min(numIters, state->headLen));
    if (numIters <= state->headLen) {
        runKernel(state, line + 1, pDst, static_cast<std::size_t>(numIters));
        std::memmove(D, line + numIters, static_cast<std::size_t>(tapsLen) * sizeof *D);
        return;
    }
    runKernel(state, line + 1, pDst, static_cast<std::size_t>(head));
    widen(pSrc + numIters - tapsLen, D, tapsLen);

    const TapOf<State>* const oldest = pSrc + head - tapsLen + 1;
    const auto rest = static_cast<std::size_t>(numIters - head);
    if (numIters <= State::Rules::teamAbove) return runKernel(state, oldest, pDst + head, rest);
    EqualRuns runs{rest, 1};
    spreadOverTeam([&](int team) { runs.runs = static_cast<std::size_t>(team); },
                   [&](int thread, int) -> OrbStatus {
                       const auto t = static_cast<std::size_t>(thread);
                       runKernel(state, oldest + runs.first(t), pDst + head + runs.first(t), runs.count(t));
                       return orbStsNoErr;
                   });
}

// Other samples than taps go in pieces that the staging area has room for as samples and as outputs, so that pDst may
// then be pSrc.
template <class State>
void filterDirect(State* state, const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters, int scaleFactor) {
    if constexpr (isMixed<State>) {
        constexpr int most = stagingLen / 2;
        TapOf<State>*const x = state->pStaging, *const y = x + most;
        for (int count; numIters > 0; numIters -= count, pSrc += count, pDst += count) {
            count = std::min(numIters, most);
            widen(pSrc, x, count);
            filterWide(state, x, y, count);
            narrow(y, pDst, count, scaleFactor);
        }
    } else {
        filterWide(state, pSrc, pDst, numIters);
    }
}

// ---- Overlap-save ----

inline void multiplySpectra(const Orb32f* taps, Orb32f* block, int len) {
    orbsMulPerm_32f_I(taps, block, len);
}
inline void multiplySpectra(const Orb64f* taps, Orb64f* block, int len) {
    orbsMulPerm_64f_I(taps, block, len);
}
template <class T>
requires isComplex<T>
void multiplySpectra(const T* taps, T* block, int len) {
    const RealOf<T>* const a = asReal(taps);
    RealOf<T>* const b = asReal(block);
    forEachComplex<RealOf<T>>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(ComplexProduct::of(d, hn::LoadU(d, a + n), hn::LoadU(d, b + n)), d, b + n);
    });
}

// One call of a filter with FFT. Block k gives outputs k * length to (k + 1) * length - 1, from these inputs and the
// tapsLen - 1 before them; blocks are independent, and each is cut the same way on any number of threads.
template <class State>
class OverlapSave {
public:
    using T = TapOf<State>;
    using Sample = SampleOf<State>;

    OverlapSave(State* state, const Sample* pSrc, Sample* pDst, int numIters, int scaleFactor)
        : state_(state), pSrc_(pSrc), pDst_(pDst), numIters_(numIters), scaleFactor_(scaleFactor),
          history_(state->tapsLen - 1), length_(state->fftLen - history_) {}

    int blocks() const { return (numIters_ - 1) / length_ + 1; }

    // Runs block k in the work areas of one thread.
    OrbStatus run(int k, int thread) const {
        T* const work = state_->pFFTWork + std::ptrdiff_t{thread} * state_->fftLen;
        Orb8u* const buffer = state_->pFFTBuf + std::ptrdiff_t{thread} * state_->fftBufSize;
        const int first = k * length_;
        const int outputs = std::min(length_, numIters_ - first);
        const OrbStatus forward = State::Rules::Fft::forward(window(k, outputs, work), work, state_->pFFTSpec, buffer);
        if (forward < 0) return forward;
        multiplySpectra(state_->pFFTTaps.get(), work, state_->fftLen);
        const OrbStatus inverse = State::Rules::Fft::inverse(work, work, state_->pFFTSpec, buffer);
        if (inverse < 0) return inverse;
        narrow(work + history_, pDst_ + first, outputs, scaleFactor_);
        return orbStsNoErr;
    }

private:
    // The inputs of a block, padded with zeros: in place if they lie in the caller's samples as a whole.
    const T* window(int k, int outputs, T* work) const {
        const Sample* const x = pSrc_ + k * length_;
        if constexpr (!isMixed<State>) {
            if (k > 0 && outputs == length_) return x - history_;
        }
        if (k == 0) {
            widen(state_->pDlyLine + state_->dlyLineIndex + 1, work, history_);
        } else {
            widen(x - history_, work, history_);
        }
        widen(x, work + history_, outputs);
        std::fill(work + history_ + outputs, work + state_->fftLen, T{});
        return work;
    }

    State* state_;
    const Sample* pSrc_;
    Sample* pDst_;
    int numIters_, scaleFactor_, history_, length_;
};

// Appends the samples to the delay line.
template <class State>
void remember(State* state, const SampleOf<State>* pSrc, int numIters) {
    const int tapsLen = state->tapsLen, fresh = std::min(numIters, tapsLen);
    TapOf<State>* const D = state->pDlyLine;
    const std::ptrdiff_t kept = tapsLen - fresh;
    std::memmove(D, D + state->dlyLineIndex + fresh, static_cast<std::size_t>(kept) * sizeof *D);
    widen(pSrc + numIters - fresh, D + kept, fresh);
    state->dlyLineIndex = 0;
}

template <class State>
OrbStatus filterFft(State* state, const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters, int scaleFactor) {
    const OverlapSave<State> call(state, pSrc, pDst, numIters, scaleFactor);
    const int blocks = call.blocks();
    auto plan = [](int) {};
    auto work = [&](int thread, int team) {
        OrbStatus smallest = orbStsNoErr;
        for (int k = thread; k < blocks; k += team) smallest = std::min(smallest, call.run(k, thread));
        return smallest;
    };
    // The thread count may have grown since the work areas were laid out.
    const OrbStatus status = numIters > State::Rules::teamAbove
                                 ? runTeam(std::clamp(threadCount(), 1, state->workAreas), plan, work)
                                 : work(0, 1);
    remember(state, pSrc, numIters);
    return status;
}

// ---- Shapes ----

template <class State>
bool goesThroughFft(const State* state, int numIters) {
    return numIters > State::Rules::fftAbove && state->fftLen > 0;
}

template <Kinds kinds = Kinds::both, class State>
OrbStatus filter(const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters, State* pState, int scaleFactor = 0) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrc, pDst)) return status;
    if (const OrbStatus status = checkState<kinds>(pState)) return status;
    if (isMultiRate(pState)) return filterMultiRate(pState, pSrc, pDst, numIters, scaleFactor);
    if (goesThroughFft(pState, numIters)) return filterFft(pState, pSrc, pDst, numIters, scaleFactor);
    filterDirect(pState, pSrc, pDst, numIters, scaleFactor);
    return orbStsNoErr;
}

// Chunks of which the outputs are staged. With samples of the type of the taps, what is left behind a chunk decides on
// its way, not the chunk: the last one always goes direct, and so does the one before it if fewer samples follow than
// an FFT is worth. With others, the whole block decides for all of its chunks, and the direct way stages by itself.
template <Kinds kinds = Kinds::both, class State>
OrbStatus filterInPlace(SampleOf<State>* pSrcDst, int numIters, State* pState, int scaleFactor = 0) {
    using Sample = SampleOf<State>;
    if (const OrbStatus status = checkVectors(numIters, pState, pSrcDst)) return status;
    if (const OrbStatus status = checkState<kinds>(pState)) return status;
    if (isMultiRate(pState)) return filterMultiRateInPlace(pState, pSrcDst, numIters, scaleFactor);
    if (isMixed<State> && !goesThroughFft(pState, numIters)) {
        filterDirect(pState, pSrcDst, pSrcDst, numIters, scaleFactor);
        return orbStsNoErr;
    }
    constexpr int most = isMixed<State> ? 2 * stagingLen : stagingLen;
    static_assert(most * sizeof(Sample) <= stagingLen * sizeof(TapOf<State>));
    auto* const staging = reinterpret_cast<Sample*>(pState->pStaging.get());
    for (int rest = numIters; rest > 0;) {
        const int chunk = std::min(rest, most);
        rest -= chunk;
        if (isMixed<State> || goesThroughFft(pState, rest)) {
            const OrbStatus status = filterFft(pState, pSrcDst, staging, chunk, scaleFactor);
            if (status < 0) return status;
        } else {
            filterDirect(pState, pSrcDst, staging, chunk, scaleFactor);
        }
        widen(staging, pSrcDst, chunk);
        pSrcDst += chunk;
    }
    return orbStsNoErr;
}

template <class State>
OrbStatus filterOne(SampleOf<State> src, SampleOf<State>* pDstVal, State* pState, int scaleFactor = 0) {
    if (anyNull(pState, pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pState, State::singleRateTag)) return status;
    const int tapsLen = pState->tapsLen;
    TapOf<State>* const D = pState->pDlyLine;
    int index = pState->dlyLineIndex;
    const auto x = cast<TapOf<State>>(src);
    D[index] = D[index + tapsLen] = x;
    index = index + 1 < tapsLen ? index + 1 : 0;
    pState->dlyLineIndex = index;
    const TapOf<State>* const h = pState->pTaps;
    const auto count = static_cast<std::size_t>(tapsLen);
    *pDstVal = narrowOne<SampleOf<State>>(dotProduct(h, D + index, count, x), scaleFactor);
    return orbStsNoErr;
}

} // namespace orbs
