// What the calls without a state share: the caller's delay line, and a copy of the samples of a call in place.
#pragma once

#include "foundation/frame.h"
#include "orbs/foundation.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace orbs {

// 2 * tapsLen samples, the second half a copy of the first, and the place of the oldest one.
template <class Sample>
struct CallerLine {
    Sample* samples;
    int tapsLen;
    int* index;

    template <class Tap>
    OrbStatus check(const Tap* pTaps) const {
        if (anyNull(pTaps)) return orbStsNullPtrErr;
        if (tapsLen < 1) return orbStsFIRLenErr;
        return anyNull(samples, index) ? orbStsNullPtrErr : orbStsNoErr;
    }

    // Where no status is due to a wrong position: nothing outside the line is touched.
    void bringInside() const {
        if (*index < 0 || *index >= tapsLen) *index = 0;
    }

    // outputs(oldest, pDst, count) writes the outputs whose oldest samples stand at `oldest` and on.
    //
    // One sample: into both halves of the line, one step on, and the output over the tapsLen samples from there.
    template <class Outputs>
    void filterOne(Sample src, Sample* pDstVal, Outputs outputs) const {
        int at = *index;
        samples[at] = samples[at + tapsLen] = src;
        *index = at = at + 1 < tapsLen ? at + 1 : 0;
        outputs(samples + at, pDstVal, 1);
    }

    // The same sample by sample, in runs that end before the index wraps. The outputs of a run still reach samples in
    // the first half that the run replaces, so these are written last.
    template <class Outputs>
    void filterBlock(const Sample* pSrc, Sample* pDst, int numIters, Outputs outputs) const {
        while (numIters > 0) {
            const int at = *index;
            const int run = std::min(numIters, tapsLen - 1 - at);
            if (run <= 0) {
                filterOne(*pSrc++, pDst++, outputs);
                --numIters;
                continue;
            }
            const std::size_t bytes = static_cast<std::size_t>(run) * sizeof(Sample);
            Sample* const first = samples + at;
            std::memcpy(first + tapsLen, pSrc, bytes);
            outputs(first + 1, pDst, run);
            std::memcpy(first, first + tapsLen, bytes);
            *index = at + run;
            pSrc += run;
            pDst += run;
            numIters -= run;
        }
    }
};
template <class Sample>
CallerLine(Sample*, int, int*) -> CallerLine<Sample>;

// A copy of the samples of a call in place whose outputs must not meet them.
template <class Sample>
class InputCopy {
public:
    InputCopy(const Sample* pSrc, std::int64_t count) {
        const std::int64_t bytes = count * static_cast<std::int64_t>(sizeof(Sample));
        if (bytes > std::numeric_limits<int>::max()) return;
        copy_ = reinterpret_cast<Sample*>(orbsMalloc_8u(static_cast<int>(bytes)));
        if (copy_) std::memcpy(copy_, pSrc, static_cast<std::size_t>(bytes));
    }
    ~InputCopy() { orbsFree(copy_); }
    InputCopy(const InputCopy&) = delete;
    InputCopy& operator=(const InputCopy&) = delete;
    const Sample* get() const { return copy_; } // null: there is no memory for it

private:
    Sample* copy_ = nullptr;
};

} // namespace orbs
