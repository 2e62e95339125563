// Filtering with a state object: which path a block takes, and the paths.
#include "filters/state.h"
#include "foundation/threads.h"
#include "orbs/fir.h"
#include "orbs/spectra.h"
#include "vectors/complex.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

template <class State>
using TapOf = typename State::Tap;
template <class State>
using SampleOf = typename State::Sample;

template <class T>
void copySamples(const T* src, T* dst, std::ptrdiff_t count) {
    std::memcpy(dst, src, static_cast<std::size_t>(count) * sizeof(T));
}

// pDst[n] for n = 0 to count - 1, oldest being the sample of tap tapsLen - 1 for n = 0.
template <class State>
void runKernel(const State* state, const TapOf<State>* oldest, TapOf<State>* pDst, std::size_t count) {
    const TapRun<TapOf<State>, 1> taps{state->pTaps, static_cast<std::size_t>(state->tapsLen)};
    convolve<Part<TapOf<State>>>(taps, oldest, pDst, count);
}

// ---- Direct ----

// The first outputs are worked out behind the delay line, in D; the kernel then reads the caller's samples in place.
template <class State>
void filterDirect(State* state, const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters) {
    const int tapsLen = state->tapsLen, head = headOutputs(tapsLen);
    TapOf<State>* const D = state->pDlyLine;
    TapOf<State>* const line = D + state->dlyLineIndex;
    state->dlyLineIndex = 0;
    copySamples(pSrc, line + tapsLen, std::min(numIters, state->headLen));
    if (numIters <= state->headLen) {
        runKernel(state, line + 1, pDst, static_cast<std::size_t>(numIters));
        std::memmove(D, line + numIters, static_cast<std::size_t>(tapsLen) * sizeof *D);
        return;
    }
    runKernel(state, line + 1, pDst, static_cast<std::size_t>(head));
    copySamples(pSrc + numIters - tapsLen, D, tapsLen);

    const SampleOf<State>* const oldest = pSrc + head - tapsLen + 1;
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

// ---- Overlap-save ----

void multiplySpectra(const Orb32f* taps, Orb32f* block, int len) {
    orbsMulPerm_32f_I(taps, block, len);
}
void multiplySpectra(const Orb64f* taps, Orb64f* block, int len) {
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

    OverlapSave(State* state, const T* pSrc, T* pDst, int numIters)
        : state_(state), pSrc_(pSrc), pDst_(pDst), numIters_(numIters), history_(state->tapsLen - 1),
          length_(state->fftLen - history_) {}

    int blocks() const { return (numIters_ - 1) / length_ + 1; }

    // Runs block k in the work areas of one thread.
    OrbStatus run(int k, int thread) const {
        T* const work = state_->pFFTWork + std::ptrdiff_t{thread} * state_->fftLen;
        Orb8u* const buffer = state_->pFFTBuf + std::ptrdiff_t{thread} * state_->fftBufSize;
        const int first = k * length_;
        const int outputs = std::min(length_, numIters_ - first);
        const T* const window = k == 0 || outputs < length_ ? gather(k, outputs, work) : pSrc_ + first - history_;
        const OrbStatus forward = State::Rules::forward(window, work, state_->pFFTSpec, buffer);
        if (forward < 0) return forward;
        multiplySpectra(state_->pFFTTaps.get(), work, state_->fftLen);
        const OrbStatus inverse = State::Rules::inverse(work, work, state_->pFFTSpec, buffer);
        if (inverse < 0) return inverse;
        copySamples(work + history_, pDst_ + first, outputs);
        return orbStsNoErr;
    }

private:
    // The window of a block that does not lie in the caller's samples as a whole, padded with zeros.
    const T* gather(int k, int outputs, T* work) const {
        const T* const before = k == 0 ? state_->pDlyLine + state_->dlyLineIndex + 1 : pSrc_ + k * length_ - history_;
        copySamples(before, work, history_);
        copySamples(pSrc_ + k * length_, work + history_, outputs);
        std::fill(work + history_ + outputs, work + state_->fftLen, T{});
        return work;
    }

    State* state_;
    const T* pSrc_;
    T* pDst_;
    int numIters_, history_, length_;
};

// Appends the samples to the delay line.
template <class State>
void remember(State* state, const SampleOf<State>* pSrc, int numIters) {
    const int tapsLen = state->tapsLen, fresh = std::min(numIters, tapsLen);
    TapOf<State>* const D = state->pDlyLine;
    const std::ptrdiff_t kept = tapsLen - fresh;
    std::memmove(D, D + state->dlyLineIndex + fresh, static_cast<std::size_t>(kept) * sizeof *D);
    copySamples(pSrc + numIters - fresh, D + kept, fresh);
    state->dlyLineIndex = 0;
}

template <class State>
OrbStatus filterFft(State* state, const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters) {
    const OverlapSave<State> call(state, pSrc, pDst, numIters);
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
OrbStatus filter(const SampleOf<State>* pSrc, SampleOf<State>* pDst, int numIters, State* pState) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrc, pDst)) return status;
    if (const OrbStatus status = checkTag(pState, State::singleRateTag)) return status;
    if (numIters > State::Rules::fftAbove && pState->fftLen > 0) return filterFft(pState, pSrc, pDst, numIters);
    filterDirect(pState, pSrc, pDst, numIters);
    return orbStsNoErr;
}

template <class State>
OrbStatus filterInPlace(SampleOf<State>* pSrcDst, int numIters, State* pState) {
    if (const OrbStatus status = checkVectors(numIters, pState, pSrcDst)) return status;
    if (const OrbStatus status = checkTag(pState, State::singleRateTag)) return status;
    SampleOf<State>* const staging = pState->pStaging;
    for (int rest = numIters; rest > 0;) {
        const int chunk = std::min(rest, stagingLen);
        rest -= chunk;
        // What is left behind the chunk decides, not the chunk: the last chunk always goes direct, and so does the one
        // before it if fewer samples follow than an FFT is worth.
        if (rest > State::Rules::fftAbove && pState->fftLen > 0) {
            if (const OrbStatus status = filterFft(pState, pSrcDst, staging, chunk); status < 0) return status;
        } else {
            filterDirect(pState, pSrcDst, staging, chunk);
        }
        copySamples(staging, pSrcDst, chunk);
        pSrcDst += chunk;
    }
    return orbStsNoErr;
}

template <class State>
OrbStatus filterOne(SampleOf<State> src, SampleOf<State>* pDstVal, State* pState) {
    if (anyNull(pState, pDstVal)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pState, State::singleRateTag)) return status;
    const int tapsLen = pState->tapsLen;
    TapOf<State>* const D = pState->pDlyLine;
    int index = pState->dlyLineIndex;
    D[index] = D[index + tapsLen] = src;
    index = index + 1 < tapsLen ? index + 1 : 0;
    pState->dlyLineIndex = index;
    *pDstVal = dotProduct(pState->pTaps.get(), D + index, static_cast<std::size_t>(tapsLen), src);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIR_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, OrbsFIRState_32f* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_32f_I(Orb32f* pSrcDst, int numIters, OrbsFIRState_32f* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_32f(Orb32f src, Orb32f* pDstVal, OrbsFIRState_32f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, OrbsFIRState_32fc* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_32fc_I(Orb32fc* pSrcDst, int numIters, OrbsFIRState_32fc* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_32fc(Orb32fc src, Orb32fc* pDstVal, OrbsFIRState_32fc* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, OrbsFIRState_64f* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_64f_I(Orb64f* pSrcDst, int numIters, OrbsFIRState_64f* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_64f(Orb64f src, Orb64f* pDstVal, OrbsFIRState_64f* pState) { return filterOne(src, pDstVal, pState); }

OrbStatus orbsFIR_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, OrbsFIRState_64fc* pState) { return filter(pSrc, pDst, numIters, pState); }
OrbStatus orbsFIR_64fc_I(Orb64fc* pSrcDst, int numIters, OrbsFIRState_64fc* pState) { return filterInPlace(pSrcDst, numIters, pState); }
OrbStatus orbsFIROne_64fc(Orb64fc src, Orb64fc* pDstVal, OrbsFIRState_64fc* pState) { return filterOne(src, pDstVal, pState); }

}
// clang-format on
