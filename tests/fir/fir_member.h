// The FIR members of one element type under one name each, owners of states, and what the outputs must be.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"
#include "support/threads.h"

#include <cmath>
#include <memory>
#include <vector>

namespace fir {

using support::isComplex;
using support::nameOf;
using support::Part;
using support::randomVector;
using support::sameBits;
using support::shown;
using support::ThreadCount;

template <class T>
struct Members;

#define FIR_MEMBERS(suffix, scaled, inPlaceScaled)                                                                     \
    using State = OrbsFIRState##suffix;                                                                                \
    static constexpr auto getStateSize = orbsFIRGetStateSize##suffix;                                                  \
    static constexpr auto init = orbsFIRInit##suffix;                                                                  \
    static constexpr auto initAlloc = orbsFIRInitAlloc##suffix;                                                        \
    static constexpr auto free = orbsFIRFree##suffix;                                                                  \
    static constexpr auto setTaps = orbsFIRSetTaps##suffix;                                                            \
    static constexpr auto getTaps = orbsFIRGetTaps##suffix;                                                            \
    static constexpr auto setDlyLine = orbsFIRSetDlyLine##suffix;                                                      \
    static constexpr auto getDlyLine = orbsFIRGetDlyLine##suffix;                                                      \
    static constexpr auto filter = orbsFIR##suffix##scaled;                                                            \
    static constexpr auto filterInPlace = orbsFIR##suffix##inPlaceScaled;                                              \
    static constexpr auto one = orbsFIROne##suffix##scaled

template <>
struct Members<Orb32f> {
    FIR_MEMBERS(_32f, , _I);
};
template <>
struct Members<Orb32fc> {
    FIR_MEMBERS(_32fc, , _I);
};
template <>
struct Members<Orb64f> {
    FIR_MEMBERS(_64f, , _I);
};
template <>
struct Members<Orb64fc> {
    FIR_MEMBERS(_64fc, , _I);
};

using Types = testing::Types<Orb32f, Orb32fc, Orb64f, Orb64fc>;

// Whatever fails tells of which type the members were.
template <class T>
class Test : public testing::Test {
    testing::ScopedTrace trace_{"members of the type of", 0, nameOf(Members<T>::filter)};
};

template <class T>
constexpr std::size_t parts = sizeof(T) / sizeof(Part<T>);

// From how many taps on InitAlloc adds an FFT, and above which lengths it is used and a team is asked for.
template <class T>
constexpr int fftFrom = isComplex<T>     ? 16
                        : sizeof(T) == 4 ? 64
                                         : 32;
template <class T>
constexpr int fftAbove = isComplex<T> ? 255 : 511;
template <class T>
constexpr int teamAbove = isComplex<T> ? 800 : 1600;

inline int fftLength(int tapsLen) {
    int length = 8;
    while (length / 2 <= tapsLen) length *= 2;
    return length;
}

// A state, and the calls on whole vectors.
template <class T>
class Filter {
public:
    using M = Members<T>;
    using Vector = std::vector<T>;
    enum Where { caller, allocated };

    explicit Filter(Where where, const Vector& taps, const Vector& line = {}) : tapsLen_(taps.size()) {
        const T* const start = line.empty() ? nullptr : line.data();
        const int count = static_cast<int>(taps.size());
        if (where == allocated) {
            EXPECT_EQ(M::initAlloc(&state_, taps.data(), count, start), orbStsNoErr);
            return;
        }
        int size = 0;
        EXPECT_EQ(M::getStateSize(count, &size), orbStsNoErr);
        buffer_.resize(static_cast<std::size_t>(size), 0xa5);
        EXPECT_EQ(M::init(&state_, taps.data(), count, start, buffer_.data()), orbStsNoErr);
    }
    ~Filter() { EXPECT_EQ(M::free(state_), orbStsNoErr); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    typename M::State* state() const { return state_; }

    Vector block(const Vector& x) {
        Vector y(x.size());
        EXPECT_EQ(M::filter(x.data(), y.data(), static_cast<int>(x.size()), state_), orbStsNoErr) << nameOf(M::filter);
        return y;
    }
    Vector inPlace(Vector x) {
        EXPECT_EQ(M::filterInPlace(x.data(), static_cast<int>(x.size()), state_), orbStsNoErr);
        return x;
    }
    Vector singly(const Vector& x) {
        Vector y(x.size());
        for (std::size_t n = 0; n < x.size(); ++n) EXPECT_EQ(M::one(x[n], &y[n], state_), orbStsNoErr);
        return y;
    }
    Vector line() const {
        Vector line(tapsLen_);
        EXPECT_EQ(M::getDlyLine(state_, line.data()), orbStsNoErr);
        return line;
    }

private:
    typename M::State* state_ = nullptr;
    std::size_t tapsLen_;
    std::vector<Orb8u> buffer_;
};

template <class T>
std::vector<T> slice(const std::vector<T>& v, std::size_t first, std::size_t count) {
    const auto from = v.begin() + static_cast<std::ptrdiff_t>(first);
    return {from, from + static_cast<std::ptrdiff_t>(count)};
}

// The delay line, newest sample first, behind the samples x of a stream.
template <class T>
std::vector<T> lineAfter(const std::vector<T>& line, const std::vector<T>& x) {
    std::vector<T> after(x.rbegin(), x.rend());
    after.insert(after.end(), line.begin(), line.end());
    after.resize(line.size());
    return after;
}

// One output, h[0] * x[n] + h[1] * x[n-1] + ..., in long double, and the sum of the magnitudes that went into it.
struct Exact {
    long double re = 0, im = 0, magnitude = 0;
    void add(long double h, long double x) {
        re += h * x;
        magnitude += std::abs(h * x);
    }
    template <class T>
    requires isComplex<T>
    void add(T h, T x) {
        const long double a = h.re, b = h.im, c = x.re, d = x.im;
        re += a * c - b * d;
        im += a * d + b * c;
        magnitude += (std::abs(a) + std::abs(b)) * (std::abs(c) + std::abs(d));
    }
};

template <class T>
std::vector<Exact> exactOutputs(const std::vector<T>& taps, const std::vector<T>& line, const std::vector<T>& x) {
    std::vector<Exact> y(x.size());
    for (std::size_t n = 0; n < x.size(); ++n)
        for (std::size_t k = 0; k < taps.size(); ++k) y[n].add(taps[k], k <= n ? x[n - k] : line[k - n - 1]);
    return y;
}

template <class T>
long double distance(T got, const Exact& want) {
    if constexpr (isComplex<T>) {
        return std::max(std::abs(got.re - want.re), std::abs(got.im - want.im));
    } else {
        return std::abs(got - want.re);
    }
}

template <class T>
long double epsilon() {
    return std::numeric_limits<Part<T>>::epsilon();
}

template <class T>
testing::Message outputOf(std::size_t n, T got, const Exact& want, std::size_t tapsLen) {
    return testing::Message() << nameOf(Members<T>::filter) << " with " << tapsLen << " taps: output " << n << " is "
                              << shown(got) << ", not " << want.re << (isComplex<T> ? " and " : "")
                              << (isComplex<T> ? shown(want.im) : "");
}

// A sum of count products in any order is off by at most count epsilons of the magnitudes.
template <class T>
void expectSums(const std::vector<T>& got, const std::vector<Exact>& want, std::size_t tapsLen) {
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t n = 0; n < got.size(); ++n) {
        const long double tolerance = static_cast<long double>(tapsLen + 1) * epsilon<T>() * want[n].magnitude;
        ASSERT_LE(distance(got[n], want[n]), tolerance) << outputOf<T>(n, got[n], want[n], tapsLen);
    }
}

// Three transforms, an epsilon each stage of each, of the energies of the taps and of a run of samples of parts in -1
// to 1.
template <class T>
void expectTransformed(const std::vector<T>& got, const std::vector<Exact>& want, const std::vector<T>& taps) {
    ASSERT_EQ(got.size(), want.size());
    const int length = fftLength(static_cast<int>(taps.size()));
    Exact energy;
    for (T h : taps) energy.add(h, h);
    const long double tolerance = 3 * std::log2(static_cast<long double>(length)) * epsilon<T>() *
                                  std::sqrt(energy.magnitude * static_cast<long double>(length * parts<T>));
    for (std::size_t n = 0; n < got.size(); ++n)
        ASSERT_LE(distance(got[n], want[n]), tolerance) << outputOf<T>(n, got[n], want[n], taps.size());
}

} // namespace fir
