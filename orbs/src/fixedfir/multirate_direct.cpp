// Changing the rate without a state object: taps and delay line are the caller's.
#include "filters/rates.h"
#include "fixedfir/block.h"
#include "fixedfir/sums.h"

#include <array>

namespace {

using namespace orbs;

// The caller's taps with their factor.
template <class TapType>
struct Integers {
    using Tap = TapType;
    const Tap* pTaps;
    Orb32s tapsFactor;
    Tap at(std::int64_t n) const { return pTaps[n]; }
    Orb32s factor() const { return tapsFactor; }
};
// Float ones as 32-bit integers, each when it is needed.
template <class Float>
struct Floats {
    using Tap = std::conditional_t<isComplex<Float>, Orb32sc, Orb32s>;
    FloatTaps taps;
    Tap at(std::int64_t n) const {
        const auto k = static_cast<std::size_t>(n);
        if constexpr (isComplex<Float>) {
            return {taps.value(2 * k), taps.value(2 * k + 1)};
        } else {
            return taps.value(k);
        }
    }
    Orb32s factor() const { return taps.shift(); }
};

// Outputs that are worked out together, one in each period, so that they have the same taps; and the most of these that
// are gathered at a time.
constexpr std::int64_t mostOutputs = 256;
constexpr std::size_t mostTaps = 256;

template <class Taps, class T>
class Call {
public:
    using Tap = typename Taps::Tap;
    using Sum = PlainSum<partCount<T>>;

    Call(const T* pSrc, T* pDst, int numIters, const Taps& taps, int tapsLen, const Rates& rates, T* pDlyLine,
         int scaleFactor)
        : pSrc_(pSrc), pDst_(pDst), numIters_(numIters), taps_(taps), tapsLen_(tapsLen), rates_(rates),
          pDlyLine_(pDlyLine), scaling_(std::clamp<std::int64_t>(std::int64_t{scaleFactor} - taps.factor(), -31, 31)) {}

    void run() const {
        for (std::int64_t period = 0; period < numIters_; period += mostOutputs)
            for (int phase = 0; phase < rates_.upFactor; ++phase)
                runPhase(phase, period, std::min(mostOutputs, numIters_ - period));
        updateLine();
    }

private:
    static constexpr std::size_t parts = partCount<T>, rowCount = 2 * parts;

    // Taps that an output meets, the youngest sample's first; and the same in two planes for vectors, the oldest first,
    // behind zeros that fill a row up to a multiple of 8 parts.
    struct Row {
        std::array<Tap, mostTaps> taps;
        std::array<std::array<Orb16s, mostTaps * parts>, rowCount> planes;
        std::size_t length, filled;

        void makePlanes() {
            filled = static_cast<std::size_t>(roundUp(length, 8 / parts));
            for (auto& plane : planes) std::fill_n(plane.data(), (filled - length) * parts, Orb16s{0});
            for (std::size_t j = 0; j < length; ++j) {
                for (std::size_t plane = 0; plane < 2; ++plane) {
                    const std::size_t at = (filled - 1 - j) * parts;
                    if constexpr (parts == 1) {
                        planes[plane][at] = planeOf(static_cast<Orb32u>(taps[j]), plane);
                    } else {
                        const auto re = static_cast<Orb32u>(taps[j].re), im = static_cast<Orb32u>(taps[j].im);
                        planes[2 * plane][at] = planes[2 * plane + 1][at + 1] = planeOf(re, plane);
                        planes[2 * plane][at + 1] = planeOf(0 - im, plane);
                        planes[2 * plane + 1][at] = planeOf(im, plane);
                    }
                }
            }
        }
    };

    void runPhase(int phase, std::int64_t period, std::int64_t count) const {
        const Meeting meeting = rates_.of(phase);
        std::int64_t newest = meeting.newest + period * rates_.downFactor; // that meets the row's first tap
        std::array<Sum, mostOutputs> sums{};
        Row row;
        for (std::int64_t n = meeting.tap; n < tapsLen_; newest -= static_cast<std::int64_t>(row.length)) {
            for (row.length = 0; row.length < mostTaps && n < tapsLen_; ++row.length, n += rates_.upFactor)
                row.taps[row.length] = taps_.at(n);
            row.makePlanes();
            addProducts(row, newest, static_cast<std::size_t>(count), sums.data());
        }
        T* pDst = pDst_ + static_cast<std::ptrdiff_t>(period * rates_.upFactor + phase);
        for (std::int64_t k = 0; k < count; ++k, pDst += rates_.upFactor)
            sums[static_cast<std::size_t>(k)].store(scaling_, asParts(pDst));
    }

    // To `count` sums, the first of which meets the row's first tap with this sample.
    void addProducts(const Row& row, std::int64_t newest, std::size_t count, Sum* sums) const {
        constexpr std::size_t together = 4 / rowCount;
        std::size_t k = 0;
        for (; k < count && newest + 1 < static_cast<std::int64_t>(row.filled); ++k, newest += rates_.downFactor)
            addNearLine(row, newest, sums[k]);
        const T* oldest = pSrc_ + static_cast<std::ptrdiff_t>(newest + 1 - static_cast<std::int64_t>(row.filled));
        for (; k + together <= count; k += together) oldest = addTogether<together>(row, oldest, sums + k);
        for (; k < count; ++k) oldest = addTogether<1>(row, oldest, sums + k);
    }

    // To sums that meet samples of the block only.
    template <std::size_t together>
    const T* addTogether(const Row& row, const T* oldest, Sum* sums) const {
        const Orb16s *h[rowCount], *x[together];
        for (std::size_t r = 0; r < rowCount; ++r) h[r] = row.planes[r].data();
        for (std::size_t k = 0; k < together; ++k, oldest += rates_.downFactor) x[k] = asParts(oldest);
        alignas(16) Orb32s planes[4];
        hn::Store(dotProducts<rowCount * together>(h, x, row.filled * parts), hn::Full128<Orb32s>(), planes);
        for (std::size_t k = 0; k < together; ++k) {
            for (std::size_t p = 0; p < parts; ++p) {
                const Orb32s *const low = planes + k * rowCount + p, *const high = low + parts;
                sums[k].part[p] += static_cast<Orb32u>(*low) + (static_cast<Orb32u>(*high) << 16);
            }
        }
        return oldest;
    }

    // To a sum that may meet samples of the line.
    void addNearLine(const Row& row, std::int64_t newest, Sum& sum) const {
        for (std::size_t j = 0; j < row.length; ++j) {
            const std::int64_t n = newest - static_cast<std::int64_t>(j);
            sum.add(row.taps[j], n >= 0 ? pSrc_[n] : pDlyLine_[-1 - n]);
        }
    }

    // Newest sample first.
    void updateLine() const {
        const std::int64_t inputs = std::int64_t{numIters_} * rates_.downFactor;
        const std::int64_t line = rates_.lineLength(tapsLen_), fresh = std::min(inputs, line);
        std::copy_backward(pDlyLine_, pDlyLine_ + (line - fresh), pDlyLine_ + line);
        std::reverse_copy(pSrc_ + (inputs - fresh), pSrc_ + inputs, pDlyLine_);
    }

    const T* pSrc_;
    T* pDst_;
    int numIters_;
    Taps taps_;
    int tapsLen_;
    Rates rates_;
    T* pDlyLine_;
    SumScaling scaling_;
};

// ---- Shapes ----

template <class Tap, class T>
OrbStatus checkFilter(const Tap* pTaps, int tapsLen, const Rates& rates, const T* pDlyLine) {
    if (anyNull(pTaps)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkRates(tapsLen, rates)) return status;
    return anyNull(pDlyLine) ? orbStsNullPtrErr : orbStsNoErr;
}

template <class Tap, class T>
void run(const T* pSrc, T* pDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor, const Rates& rates,
         T* pDlyLine, int scaleFactor) {
    if constexpr (std::is_integral_v<Part<Tap>>) {
        Call(pSrc, pDst, numIters, Integers<Tap>{pTaps, tapsFactor}, tapsLen, rates, pDlyLine, scaleFactor).run();
    } else {
        const std::size_t parts = static_cast<std::size_t>(tapsLen) * partCount<Tap>;
        const Floats<Tap> taps{FloatTaps(asParts(pTaps), parts, FloatTaps::inSteps)};
        Call(pSrc, pDst, numIters, taps, tapsLen, rates, pDlyLine, scaleFactor).run();
    }
}

template <class Tap, class T>
OrbStatus filter(const T* pSrc, T* pDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor,
                 const Rates& rates, T* pDlyLine, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrc, pDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, rates, pDlyLine)) return status;
    run(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, rates, pDlyLine, scaleFactor);
    return orbStsNoErr;
}

template <class Tap, class T>
OrbStatus filterInPlace(T* pSrcDst, int numIters, const Tap* pTaps, int tapsLen, int tapsFactor, const Rates& rates,
                        T* pDlyLine, int scaleFactor) {
    if (const OrbStatus status = checkVectors(numIters, pSrcDst)) return status;
    if (const OrbStatus status = checkFilter(pTaps, tapsLen, rates, pDlyLine)) return status;
    const InputCopy<T> input(pSrcDst, std::int64_t{numIters} * rates.downFactor);
    if (!input.get()) return orbStsMemAllocErr;
    run(input.get(), pSrcDst, numIters, pTaps, tapsLen, tapsFactor, rates, pDlyLine, scaleFactor);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRMR32s_Direct_16s_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32s_Direct_16s_ISfs(Orb16s* pSrcDst, int numIters, const Orb32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32sc_Direct_16sc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32sc_Direct_16sc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32sc* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32s_Direct_16s32f_Sfs(const Orb16s* pSrc, Orb16s* pDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, 0, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32s_Direct_16s32f_ISfs(Orb16s* pSrcDst, int numIters, const Orb32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16s* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, 0, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32sc_Direct_16sc32fc_Sfs(const Orb16sc* pSrc, Orb16sc* pDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filter(pSrc, pDst, numIters, pTaps, tapsLen, 0, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }
OrbStatus orbsFIRMR32sc_Direct_16sc32fc_ISfs(Orb16sc* pSrcDst, int numIters, const Orb32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, Orb16sc* pDlyLine, int scaleFactor) { return filterInPlace(pSrcDst, numIters, pTaps, tapsLen, 0, {upFactor, upPhase, downFactor, downPhase}, pDlyLine, scaleFactor); }

}
// clang-format on
