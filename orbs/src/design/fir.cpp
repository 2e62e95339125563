// FIRGen: taps of FIR filters by the window method.
#include "foundation/frame.h"
#include "generators/phase.h"
#include "orbs/design.h"
#include "orbs/foundation.h"
#include "orbs/generators.h"
#include "orbs/windows.h"
#include "vectors/sincos.h"

#include <climits>
#include <memory>

namespace {

using namespace orbs;

// What the caller asks for. Taps are told by their distance from the centre: 1, 2, ... on both sides of the middle tap
// if their number is odd, 1/2, 3/2, ... if it is even.
struct Request {
    Orb64f* pTaps;
    int tapsLen, winType;
    bool doNormal;

    bool isOdd() const { return tapsLen % 2 != 0; }
    int half() const { return tapsLen / 2; }
    Orb64f distance(int i) const { return isOdd() ? half() - i : half() - i - 0.5; } // of pTaps[i], i < half
};

bool isFrequency(Orb64f f) {
    return f > 0 && f <= 0.5;
}

// Tests in order; all that is wrong with numbers has one status.
OrbStatus check(const Request& request, bool frequenciesAreGood) {
    if (anyNull(request.pTaps)) return orbStsNullPtrErr;
    return request.tapsLen < 5 || !frequenciesAreGood ? orbStsSizeErr : orbStsNoErr;
}

// Where a tone begins so that its sample n is a function of 2 pi f at the distance of the (n+1)-st tap from the centre.
Orb64f sinePhase(Orb64f f, bool isOdd) {
    if (!isOdd) return (1.5 + f) * pi;
    return f >= 0.25 ? twoPi * (f - 0.25) : twoPi * (0.75 + f);
}
Orb64f negativeSinePhase(Orb64f f) { // of odd numbers of taps
    return twoPi * (0.25 + f);
}
Orb64f cosinePhase(Orb64f f) { // of even numbers
    return f * pi;
}

// cos(2 pi f n + phase) for each tap of one side.
class Tone {
public:
    Tone(Orb64f f, Orb64f phase, int count) : samples_(allocate(count + 1), orbsFree) {
        if (!*this) return;
        if (phase >= twoPi) phase -= twoPi;
        if (f < 0.5) {
            orbsTone_Direct_64f(samples_.get(), count, 1.0, f, &phase, orbAlgHintFast);
            return;
        }
        // The generator ends below this frequency. All phases are whole quarters of a turn here.
        Orb64f sample = std::round(sinCos(phase).cos);
        for (int n = 0; n < count; ++n, sample = -sample) samples_.get()[n] = sample;
    }
    explicit operator bool() const { return samples_ != nullptr; }
    Orb64f operator[](int n) const { return samples_.get()[n]; }

private:
    // As many as the allocator counts in 32 bits.
    static Orb64f* allocate(int len) { return len > INT_MAX / 8 ? nullptr : orbsMalloc_64f(len); }

    std::unique_ptr<Orb64f, decltype(&orbsFree)> samples_;
};

OrbStatus applyWindow(const Request& request) {
    switch (request.winType) {
    case orbWinBartlett:
        return orbsWinBartlett_64f_I(request.pTaps, request.tapsLen);
    case orbWinBlackman:
        return orbsWinBlackmanOpt_64f_I(request.pTaps, request.tapsLen);
    case orbWinHamming:
        return orbsWinHamming_64f_I(request.pTaps, request.tapsLen);
    case orbWinHann:
        return orbsWinHann_64f_I(request.pTaps, request.tapsLen);
    default:
        return orbStsNoErr;
    }
}

// The middle tap and the left half are computed and put under the window, then the left half is mirrored, times `sign`.
// response(n) / (pi * distance) is the tap before the window, n = 0 nearest to the centre. The gain becomes one where a
// wave has the value wave(i) at pTaps[i].
template <class Response, class Wave>
void design(const Request& request, Orb64f centre, Orb64f sign, Response response, Wave wave) {
    const int half = request.half(), len = request.tapsLen;
    Orb64f* const pTaps = request.pTaps;
    for (int i = 0; i < half; ++i) setElement(pTaps + i, response(half - 1 - i) / (pi * request.distance(i)));
    if (request.isOdd()) setElement(pTaps + half, centre);
    for (int i = len - half; i < len; ++i) setElement(pTaps + i, 0);
    applyWindow(request);

    Orb64f scale = 1;
    if (request.doNormal) {
        Orb64f sum = 0;
        for (int i = 0; i < half; ++i) sum += wave(i) * elementAt(pTaps + i);
        Orb64f gain = 2 * sum;
        if (request.isOdd()) gain += wave(half) * elementAt(pTaps + half);
        scale = 1 / std::abs(gain);
        if (request.isOdd()) setElement(pTaps + half, elementAt(pTaps + half) * scale);
    }
    for (int i = 0; i < half; ++i) {
        const Orb64f tap = elementAt(pTaps + i) * scale;
        setElement(pTaps + i, tap);
        setElement(pTaps + (len - 1 - i), sign * tap);
    }
}

constexpr auto constant = [](int) -> Orb64f { return 1; };
constexpr auto alternating = [](int i) -> Orb64f { return i % 2 == 0 ? 1 : -1; };

OrbStatus lowpass(Orb64f f, const Request& request) {
    if (const OrbStatus status = check(request, isFrequency(f))) return status;
    const Tone tone(f, sinePhase(f, request.isOdd()), request.half());
    if (!tone) return orbStsNullPtrErr;
    design(
        request, 2 * f, 1, [&](int n) { return tone[n]; }, constant);
    return orbStsNoErr;
}

OrbStatus highpass(Orb64f f, const Request& request) {
    if (const OrbStatus status = check(request, isFrequency(f))) return status;
    const bool isOdd = request.isOdd();
    const Tone tone(f, isOdd ? negativeSinePhase(f) : cosinePhase(f), request.half());
    if (!tone) return orbStsNullPtrErr;
    design(
        request, 1 - 2 * f, isOdd ? 1 : -1, [&](int n) { return tone[n]; }, alternating);
    return orbStsNoErr;
}

OrbStatus bandpass(Orb64f low, Orb64f high, const Request& request) {
    if (const OrbStatus status = check(request, isFrequency(low) && isFrequency(high) && low < high)) return status;
    const Tone lower(low, sinePhase(low, request.isOdd()), request.half());
    const Tone upper(high, sinePhase(high, request.isOdd()), request.half());
    if (!lower || !upper) return orbStsNullPtrErr;
    const Orb64f w = twoPi * ((low + high) * 0.5);
    const auto middleOfBand = [&](int i) { return sinCos(w * request.distance(i)).cos; };
    design(
        request, 2 * (high - low), 1, [&](int n) { return upper[n] - lower[n]; }, middleOfBand);
    return orbStsNoErr;
}

OrbStatus bandstop(Orb64f low, Orb64f high, const Request& request) {
    if (const OrbStatus status = check(request, isFrequency(low) && isFrequency(high) && low < high)) return status;
    const bool isOdd = request.isOdd();
    const Tone lower(low, sinePhase(low, isOdd), request.half());
    const Tone upper(high, isOdd ? negativeSinePhase(high) : sinePhase(high, false), request.half());
    if (!lower || !upper) return orbStsNullPtrErr;
    // An even number of taps passes what lies below the band with its sign changed, and what lies above as it is.
    const auto response = [&](int n) { return isOdd ? lower[n] + upper[n] : alternating(n) - lower[n] - upper[n]; };
    design(request, 1 - 2 * (high - low), 1, response, constant);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsFIRGenLowpass_64f(Orb64f rFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal) { return lowpass(rFreq, {pTaps, tapsLen, winType, doNormal != 0}); }
OrbStatus orbsFIRGenHighpass_64f(Orb64f rFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal) { return highpass(rFreq, {pTaps, tapsLen, winType, doNormal != 0}); }
OrbStatus orbsFIRGenBandpass_64f(Orb64f rLowFreq, Orb64f rHighFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal) { return bandpass(rLowFreq, rHighFreq, {pTaps, tapsLen, winType, doNormal != 0}); }
OrbStatus orbsFIRGenBandstop_64f(Orb64f rLowFreq, Orb64f rHighFreq, Orb64f* pTaps, int tapsLen, int winType, int doNormal) { return bandstop(rLowFreq, rHighFreq, {pTaps, tapsLen, winType, doNormal != 0}); }

}
// clang-format on
