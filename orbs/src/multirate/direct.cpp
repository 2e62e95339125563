// Multi-rate filtering without a state object: taps and delay line are the caller's.
#include "filters/multirate.h"
#include "orbs/multirate.h"

#include <array>

namespace {

using namespace orbs;

// Products are rounded to the type of the taps. Sums are double, but single if they are rounded to integers anyway.
template <class Tap, class Sample>
using SumOf = std::conditional_t<std::is_integral_v<Part<Sample>>, Part<Tap>, Orb64f>;

// Outputs that are worked out before they are stored, and the longest row that is worked out in one.
constexpr std::size_t most = 256, longestRow = 1024;

template <class Tap, class Sample>
class Call {
public:
    using Sum = SumOf<Tap, Sample>;

    Call(const Sample* pSrc, Sample* pDst, int numIters, const Tap* pTaps, int tapsLen, const Rates& rates,
         Sample* pDlyLine, int scaleFactor)
        : pSrc_(pSrc), pDst_(pDst), numIters_(numIters), pTaps_(pTaps), tapsLen_(tapsLen), rates_(rates),
          line_(rates.lineLength(tapsLen)), pDlyLine_(pDlyLine), scaleFactor_(scaleFactor) {}

    void run() {
        const auto parts = static_cast<std::int64_t>(partCount<Tap>);
        if (line_ * parts <= static_cast<std::int64_t>(longestRow)) {
            byRows();
        } else {
            byPieces();
        }
        updateLine();
    }

private:
    static constexpr std::size_t longest = longestRow / partCount<Tap>;

    Rows<Tap> oneRow(const Tap* row, const RowPlace* place, std::int64_t taps) const {
        return {row, place, 1, rates_.downFactor, dotLanes<Sum, Tap>(taps), dotGroups<Sum, Tap>(taps), false};
    }

    // Outputs that have the same taps, one in each period, run together.
    void byRows() {
        std::array<Tap, longest> row;
        RowPlace place;
        const Rows<Tap> rows = oneRow(row.data(), &place, line_);
        const auto rowLen = static_cast<std::ptrdiff_t>(rows.rowLen()), reach = rowLen - 1;
        // The line and the samples behind it that outputs meet together with it.
        std::array<Sample, 2 * longest> head;
        const std::ptrdiff_t line = static_cast<std::ptrdiff_t>(line_);
        Sample* const start = head.data() + rowLen;
        std::fill_n(head.data(), rowLen, Sample{});
        std::reverse_copy(pDlyLine_, pDlyLine_ + line, start - line);
        std::copy_n(pSrc_, std::min(reach, std::ptrdiff_t{numIters_} * rates_.downFactor), start);

        for (int begin = 0; begin < numIters_; begin += static_cast<int>(most)) {
            const int end = std::min(numIters_, begin + static_cast<int>(most));
            for (int o = 0; o < rates_.upFactor; ++o) {
                const Meeting meeting = rates_.of(o);
                place = writeRow(meeting, pTaps_, tapsLen_, rates_.upFactor, rows.rowLen(), row.data());
                const std::int64_t untilReach = reach - meeting.newest;
                const auto behind = static_cast<int>(
                    std::clamp<std::int64_t>((untilReach + rates_.downFactor - 1) / rates_.downFactor, begin, end));
                work(rows, start, o, begin, behind);
                work(rows, pSrc_, o, behind, end);
            }
        }
    }

    // Output o of each of the periods.
    void work(const Rows<Tap>& rows, const Sample* samples, int o, int begin, int end) const {
        if (begin == end) return;
        const auto count = static_cast<std::size_t>(end - begin);
        std::array<Sum, most * partCount<Tap>> sums;
        dotRun(rows, samples, begin, count, sums.data());
        store(sums.data(), std::int64_t{begin} * rates_.upFactor + o, rates_.upFactor, count);
    }

    // Output by output, in pieces of the taps and samples that it has, oldest first.
    void byPieces() const {
        std::array<Tap, longest> taps;
        std::array<Sample, longest> samples;
        const std::int64_t outputs = std::int64_t{numIters_} * rates_.upFactor;
        for (std::int64_t m = 0; m < outputs; ++m) {
            const Meeting meeting = rates_.of(m);
            const std::int64_t count = (tapsLen_ - 1 - meeting.tap) / rates_.upFactor + 1;
            Sum sum[partCount<Tap>] = {};
            for (std::int64_t left = count; left > 0;) {
                const auto length = std::min(left, static_cast<std::int64_t>(longest));
                RowPlace place{};
                const Rows<Tap> rows = oneRow(taps.data(), &place, length);
                const auto unused = rows.rowLen() - static_cast<std::size_t>(length);
                std::fill_n(taps.data(), unused, Tap{});
                std::fill_n(samples.data(), unused, Sample{});
                for (std::size_t n = unused; n < rows.rowLen(); ++n) {
                    --left;
                    taps[n] = pTaps_[meeting.tap + left * rates_.upFactor];
                    samples[n] = sampleAt(meeting.newest - left);
                }
                place.unused = static_cast<Orb32s>(unused * partCount<Tap>);
                Sum piece[partCount<Tap>];
                dotRun(rows, samples.data(), 0, 1, piece);
                for (std::size_t part = 0; part < partCount<Tap>; ++part) sum[part] += piece[part];
            }
            store(sum, m, 1, 1);
        }
    }

    Sample sampleAt(std::int64_t n) const { return n >= 0 ? pSrc_[n] : pDlyLine_[-1 - n]; }

    // Sums as samples: output `first` and every `step`-th behind it.
    void store(const Sum* sums, std::int64_t first, int step, std::size_t count) const {
        std::array<Sample, most> outputs;
        Part<Sample>* const parts = asParts(outputs.data());
        if constexpr (std::is_integral_v<Part<Sample>>) {
            roundAndSaturate(sums, scaleModulo128<Sum>(scaleFactor_), parts, count * partCount<Tap>);
        } else {
            std::transform(sums, sums + count * partCount<Tap>, parts,
                           [](Sum sum) { return static_cast<Part<Sample>>(sum); });
        }
        Sample* dst = pDst_ + static_cast<std::ptrdiff_t>(first);
        for (std::size_t n = 0; n < count; ++n, dst += step) *dst = outputs[n];
    }

    // Newest sample first.
    void updateLine() const {
        const std::ptrdiff_t inputs = std::ptrdiff_t{numIters_} * rates_.downFactor;
        const std::ptrdiff_t fresh = std::min(inputs, static_cast<std::ptrdiff_t>(line_));
        std::copy_backward(pDlyLine_, pDlyLine_ + line_ - fresh, pDlyLine_ + line_);
        std::reverse_copy(pSrc_ + inputs - fresh, pSrc_ + inputs, pDlyLine_);
    }

    const Sample* pSrc_;
    Sample* pDst_;
    int numIters_;
    const Tap* pTaps_;
    std::int64_t tapsLen_;
    Rates rates_;
    std::int64_t line_;
    Sample* pDlyLine_;
    int scaleFactor_;
};

// ---- Shapes ----

template <class Tap, class Sample>
OrbStatus checkFilter(const Tap* pTaps, int tapsLen, const Rates& rates, const Sample* pDlyLine) {
    if (anyNull(pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    return anyNull(pDlyLine) ? orbStsNullPtrErr : orbStsNoErr;
}

template <class Tap, class Sample>
OrbStatus filter(const Sample* pSrc, Sample* pDst, int numIters, const Tap* pTaps, int tapsLen, const Rates& rates,
                 Sample* pDlyLine, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, rates, pDlyLine)) return status;
    Call(pSrc, pDst, numIters, pTaps, tapsLen, rates, pDlyLine, scaleFactor).run();
    return orbStsNoErr;
}

template <class Tap, class Sample>
OrbStatus filterInPlace(Sample* pSrcDst, int numIters, const Tap* pTaps, int tapsLen, const Rates& rates,
                        Sample* pDlyLine, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrcDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, rates, pDlyLine)) return status;
    const InputCopy<Sample> input(pSrcDst, std::int64_t{numIters} * rates.downFactor);
    if (!input.get()) return orbStsMemAllocErr;
    Call(input.get(), pSrcDst, numIters, pTaps, tapsLen, rates, pDlyLine, scaleFactor).run();
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRMR_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR32f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

OrbStatus orbsFIRMR32fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

OrbStatus orbsFIRMR_Direct_64f(const Orb64f* pSrc, Orb64f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64f* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR_Direct_64f_I(Orb64f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64f* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR_Direct_64fc(const Orb64fc* pSrc, Orb64fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64fc* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR_Direct_64fc_I(Orb64fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb64fc* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR64f_Direct_32f(const Orb32f* pSrc, Orb32f* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR64f_Direct_32f_I(Orb32f* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32f* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR64fc_Direct_32fc(const Orb32fc* pSrc, Orb32fc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }
OrbStatus orbsFIRMR64fc_Direct_32fc_I(Orb32fc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32fc* pDlyLine) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, 0); }

OrbStatus orbsFIRMR64f_Direct_32s_Sfs(const Orb32s* pSrc, Orb32s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32s* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR64f_Direct_32s_ISfs(Orb32s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32s* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

OrbStatus orbsFIRMR64fc_Direct_32sc_Sfs(const Orb32sc* pSrc, Orb32sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32sc* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR64fc_Direct_32sc_ISfs(Orb32sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb32sc* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

OrbStatus orbsFIRMR64f_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR64f_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

OrbStatus orbsFIRMR64fc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR64fc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

}
// clang-format on
