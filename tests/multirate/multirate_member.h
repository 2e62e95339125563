// The multi-rate members of each pair of taps and samples under one name each, owners of states, and what the outputs
// must be.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"
#include "support/threads.h"

#include <cmath>
#include <vector>

namespace multirate {

using support::isComplex;
using support::nameOf;
using support::Part;
using support::randomVector;
using support::sameBits;

#define MULTIRATE_PAIR(name, pair, t, x, call, callInPlace, directCall, directCallInPlace)                             \
    struct name {                                                                                                      \
        using Tap = Orb##t;                                                                                            \
        using Sample = Orb##x;                                                                                         \
        using State = OrbsFIRState##pair;                                                                              \
        static constexpr auto getStateSize = orbsFIRMRGetStateSize##pair;                                              \
        static constexpr auto singleRateSize = orbsFIRGetStateSize##pair;                                              \
        static constexpr auto singleRateInit = orbsFIRInit##pair;                                                      \
        static constexpr auto init = orbsFIRMRInit##pair;                                                              \
        static constexpr auto initAlloc = orbsFIRMRInitAlloc##pair;                                                    \
        static constexpr auto free = orbsFIRFree##pair;                                                                \
        static constexpr auto setTaps = orbsFIRSetTaps##pair;                                                          \
        static constexpr auto getTaps = orbsFIRGetTaps##pair;                                                          \
        static constexpr auto setDlyLine = orbsFIRSetDlyLine##pair;                                                    \
        static constexpr auto getDlyLine = orbsFIRGetDlyLine##pair;                                                    \
        static constexpr auto filter = call;                                                                           \
        static constexpr auto filterInPlace = callInPlace;                                                             \
        static constexpr auto direct = directCall;                                                                     \
        static constexpr auto directInPlace = directCallInPlace;                                                       \
    };
#define MULTIRATE_SAME(t)                                                                                              \
    MULTIRATE_PAIR(Of##t, _##t, t, t, orbsFIR_##t, orbsFIR_##t##_I, orbsFIRMR_Direct_##t, orbsFIRMR_Direct_##t##_I)
#define MULTIRATE_MIXED(t, x, s)                                                                                       \
    MULTIRATE_PAIR(Of##t##_##x, t##_##x, t, x, orbsFIR##t##_##x##_##s, orbsFIR##t##_##x##_I##s,                        \
                   orbsFIRMR##t##_Direct_##x##_##s, orbsFIRMR##t##_Direct_##x##_I##s)
MULTIRATE_SAME(32f)
MULTIRATE_SAME(32fc)
MULTIRATE_SAME(64f)
MULTIRATE_SAME(64fc)
MULTIRATE_MIXED(32f, 16s, Sfs)
MULTIRATE_MIXED(32fc, 16sc, Sfs)
MULTIRATE_MIXED(64f, 32s, Sfs)
MULTIRATE_MIXED(64fc, 32sc, Sfs)
MULTIRATE_MIXED(64f, 16s, Sfs)
MULTIRATE_MIXED(64fc, 16sc, Sfs)
MULTIRATE_PAIR(Of64f_32f, 64f_32f, 64f, 32f, orbsFIR64f_32f, orbsFIR64f_32f_I, orbsFIRMR64f_Direct_32f,
               orbsFIRMR64f_Direct_32f_I)
MULTIRATE_PAIR(Of64fc_32fc, 64fc_32fc, 64fc, 32fc, orbsFIR64fc_32fc, orbsFIR64fc_32fc_I, orbsFIRMR64fc_Direct_32fc,
               orbsFIRMR64fc_Direct_32fc_I)
#undef MULTIRATE_PAIR
#undef MULTIRATE_SAME
#undef MULTIRATE_MIXED

using Pairs = testing::Types<Of32f, Of32fc, Of32f_16s, Of32fc_16sc, Of64f, Of64fc, Of64f_32f, Of64fc_32fc, Of64f_32s,
                             Of64fc_32sc, Of64f_16s, Of64fc_16sc>;
using FloatPairs = testing::Types<Of32f, Of32fc, Of64f, Of64fc, Of64f_32f, Of64fc_32fc>;

template <class P>
constexpr bool hasScale = std::is_integral_v<Part<typename P::Sample>>;
// Keeps most of the outputs in the tests within their range.
template <class P>
constexpr int scaleFactor = hasScale<P> ? 2 : 0;

// Whatever fails tells of which pair the members were.
template <class P>
class Test : public testing::Test {
    testing::ScopedTrace trace_{"members of the pair of", 0, nameOf(P::filter)};
};

struct Rates {
    int tapsLen, up, upPhase, down, downPhase;
    std::size_t lineLen() const { return static_cast<std::size_t>((tapsLen + up - 1) / up); }
    std::size_t inputs(int periods) const { return static_cast<std::size_t>(periods) * static_cast<std::size_t>(down); }
    std::size_t outputs(int periods) const { return static_cast<std::size_t>(periods) * static_cast<std::size_t>(up); }
};
inline std::ostream& operator<<(std::ostream& out, const Rates& r) {
    return out << r.tapsLen << " taps, " << r.up << " from " << r.upPhase << " over " << r.down << " from "
               << r.downPhase;
}

// Rates that only raise, only lower, and both; with and without a common factor; rows of taps around the number of
// lanes, of several lengths, and of none.
inline const Rates allRates[] = {
    {1, 1, 0, 2, 1},  {3, 1, 0, 2, 0},  {9, 1, 0, 3, 2},  {33, 1, 0, 4, 1},  {30, 1, 0, 10, 6},     {1, 3, 1, 1, 0},
    {12, 4, 3, 1, 0}, {70, 2, 1, 1, 0}, {66, 8, 5, 1, 0}, {10, 3, 2, 2, 1},  {35, 5, 4, 3, 0},      {129, 7, 3, 5, 4},
    {64, 4, 1, 6, 5}, {5, 7, 6, 9, 8},  {2, 9, 8, 2, 1},  {100, 3, 0, 2, 0}, {160, 16, 0, 147, 80}, {300, 2, 0, 40, 3}};

// ---- What must come out ----

struct Exact {
    long double re = 0, im = 0, magnitude = 0;
    template <class H, class X>
    void add(H h, X x) {
        if constexpr (isComplex<H>) {
            const long double a = h.re, b = h.im, c = x.re, d = x.im;
            re += a * c - b * d;
            im += a * d + b * c;
            magnitude += (std::abs(a) + std::abs(b)) * (std::abs(c) + std::abs(d));
        } else {
            re += static_cast<long double>(h) * x;
            magnitude += std::abs(static_cast<long double>(h) * x);
        }
    }
};

// Tick by tick of the raised stream. The line, newest sample first, goes on.
template <class Tap, class Sample>
std::vector<Exact> exactOutputs(const Rates& r, const std::vector<Tap>& taps, std::vector<Sample>& line,
                                const std::vector<Sample>& x) {
    std::vector<Exact> y;
    std::size_t taken = 0;
    int up = (r.up - r.upPhase) % r.up, down = (r.down - r.downPhase) % r.down;
    for (std::size_t ticks = x.size() * static_cast<std::size_t>(r.up); ticks > 0; --ticks) {
        if (up == 0) {
            line.insert(line.begin(), x[taken++]);
            line.pop_back();
        }
        if (down == 0) {
            Exact sum;
            for (std::size_t j = 0, k = static_cast<std::size_t>(up); k < taps.size();
                 ++j, k += static_cast<std::size_t>(r.up))
                sum.add(taps[k], line[j]);
            y.push_back(sum);
        }
        up = (up + 1) % r.up;
        down = (down + 1) % r.down;
    }
    return y;
}

// A sum of count products in any order is off by at most count epsilons of the magnitudes; then it is rounded to a
// sample.
template <class P, class Sum>
void expectOutputs(const std::vector<typename P::Sample>& got, const std::vector<Exact>& want, const Rates& r) {
    using Real = Part<typename P::Sample>;
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t n = 0; n < got.size(); ++n) {
        const long double epsilon = std::numeric_limits<Sum>::epsilon();
        const long double m = std::ldexp(1.0L, -scaleFactor<P>);
        const long double error = static_cast<long double>(2 * r.lineLen() + 1) * epsilon * want[n].magnitude * m;
        const auto near = [&](Real part, long double exact) {
            exact *= m;
            if constexpr (std::is_integral_v<Real>) {
                using Limits = std::numeric_limits<Real>;
                exact = std::clamp<long double>(exact, Limits::min(), Limits::max());
                return std::abs(part - exact) <= 0.5L + error;
            } else {
                return std::abs(part - exact) <= error + std::numeric_limits<Real>::epsilon() * std::abs(exact);
            }
        };
        bool isNear = true;
        if constexpr (isComplex<typename P::Sample>) {
            isNear = near(got[n].re, want[n].re) && near(got[n].im, want[n].im);
        } else {
            isNear = near(got[n], want[n].re);
        }
        ASSERT_TRUE(isNear) << r << ": output " << n << " is " << support::shown(got[n]) << ", not " << want[n].re * m
                            << " and " << want[n].im * m;
    }
}

// ---- States ----

template <class Call, class... Arguments>
OrbStatus scaled(int scale, Call call, Arguments... arguments) {
    if constexpr (std::is_invocable_v<Call, Arguments..., int>) {
        return call(arguments..., scale);
    } else {
        return call(arguments...);
    }
}

template <class P>
class Filter {
public:
    using Taps = std::vector<typename P::Tap>;
    using Samples = std::vector<typename P::Sample>;
    enum Where { caller, allocated };

    Filter(Where where, const Rates& rates, const Taps& taps, const Samples& line = {}) : rates_(rates) {
        const auto* const start = line.empty() ? nullptr : line.data();
        const auto& [tapsLen, up, upPhase, down, downPhase] = rates;
        if (where == allocated) {
            EXPECT_EQ(P::initAlloc(&state_, taps.data(), tapsLen, up, upPhase, down, downPhase, start), orbStsNoErr);
            return;
        }
        int size = 0;
        EXPECT_EQ(P::getStateSize(tapsLen, up, down, &size), orbStsNoErr);
        buffer_.resize(static_cast<std::size_t>(size), 0xa5);
        EXPECT_EQ(P::init(&state_, taps.data(), tapsLen, up, upPhase, down, downPhase, start, buffer_.data()),
                  orbStsNoErr);
    }
    ~Filter() { EXPECT_EQ(P::free(state_), orbStsNoErr); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    typename P::State* state() const { return state_; }
    const std::vector<Orb8u>& block() const { return buffer_; }

    Samples run(const Samples& x) const {
        const int periods = static_cast<int>(x.size()) / rates_.down;
        Samples y(rates_.outputs(periods));
        EXPECT_EQ(scaled(scaleFactor<P>, P::filter, x.data(), y.data(), periods, state_), orbStsNoErr);
        return y;
    }
    // Nothing beyond samples and outputs is touched, nor samples behind the last output.
    Samples runInPlace(const Samples& x) const {
        const int periods = static_cast<int>(x.size()) / rates_.down;
        const std::size_t outputs = rates_.outputs(periods);
        support::Guarded<typename P::Sample> y(std::max(x.size(), outputs));
        std::copy(x.begin(), x.end(), y.begin());
        EXPECT_EQ(scaled(scaleFactor<P>, P::filterInPlace, y.data(), periods, state_), orbStsNoErr);
        EXPECT_TRUE(y.intact());
        if (outputs < x.size()) {
            EXPECT_TRUE(sameBits(y.data() + outputs, &x[outputs], x.size() - outputs)) << "behind the outputs";
        }
        return {y.begin(), y.begin() + outputs};
    }
    Samples line() const {
        Samples line(rates_.lineLen());
        EXPECT_EQ(P::getDlyLine(state_, line.data()), orbStsNoErr);
        return line;
    }

private:
    Rates rates_;
    typename P::State* state_ = nullptr;
    std::vector<Orb8u> buffer_;
};

template <class T>
std::vector<T> slice(const std::vector<T>& v, std::size_t first, std::size_t count) {
    const auto from = v.begin() + static_cast<std::ptrdiff_t>(first);
    return {from, from + static_cast<std::ptrdiff_t>(count)};
}

// A stream in runs of some periods: run(first sample, samples, first output, outputs).
template <class Run>
void inRuns(const Rates& rates, int periods, support::Random& random, Run run) {
    for (int n = 0, count; n < periods; n += count) {
        count = std::min(periods - n, 1 + static_cast<int>(random() % 4 ? random() % 3 : random() % 60));
        run(rates.inputs(n), rates.inputs(count), rates.outputs(n), rates.outputs(count));
    }
}

} // namespace multirate
