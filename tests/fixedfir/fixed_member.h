// The members with 16-bit taps of one type of samples under one name each, owners of states, and what the outputs must
// be: sums of 64 bits, cut to 32.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"

#include <deque>
#include <limits>
#include <vector>

namespace fixedfir {

using support::isComplex;
using support::Part;
using support::randomVector;
using support::sameBits;
using support::shown;

template <class Sample>
struct Members;

#define FIXED_MEMBERS(t, f, s, sf)                                                                                     \
    template <>                                                                                                        \
    struct Members<Orb##s> {                                                                                           \
        using State = OrbsFIRState##t##_##s;                                                                           \
        using Tap = Orb##t;                                                                                            \
        using Float = Orb##f;                                                                                          \
        static constexpr auto getStateSize = orbsFIRGetStateSize##t##_##s;                                             \
        static constexpr auto getMultiRateSize = orbsFIRMRGetStateSize##t##_##s;                                       \
        static constexpr auto init = orbsFIRInit##t##_##s;                                                             \
        static constexpr auto initAlloc = orbsFIRInitAlloc##t##_##s;                                                   \
        static constexpr auto initMultiRate = orbsFIRMRInit##t##_##s;                                                  \
        static constexpr auto initMultiRateAlloc = orbsFIRMRInitAlloc##t##_##s;                                        \
        static constexpr auto free = orbsFIRFree##t##_##s;                                                             \
        static constexpr auto setTaps = orbsFIRSetTaps##t##_##s;                                                       \
        static constexpr auto getTaps = orbsFIRGetTaps##t##_##s;                                                       \
        static constexpr auto setDlyLine = orbsFIRSetDlyLine##t##_##s;                                                 \
        static constexpr auto getDlyLine = orbsFIRGetDlyLine##t##_##s;                                                 \
        static constexpr auto filter = orbsFIR##t##_##s##_Sfs;                                                         \
        static constexpr auto filterInPlace = orbsFIR##t##_##s##_ISfs;                                                 \
        static constexpr auto one = orbsFIROne##t##_##s##_Sfs;                                                         \
        static constexpr auto direct = orbsFIR##t##_Direct_##s##_Sfs;                                                  \
        static constexpr auto directInPlace = orbsFIR##t##_Direct_##s##_ISfs;                                          \
        static constexpr auto oneDirect = orbsFIROne##t##_Direct_##s##_Sfs;                                            \
        static constexpr auto oneDirectInPlace = orbsFIROne##t##_Direct_##s##_ISfs;                                    \
        static constexpr auto multiRateDirect = orbsFIRMR##t##_Direct_##s##_Sfs;                                       \
        static constexpr auto multiRateDirectInPlace = orbsFIRMR##t##_Direct_##s##_ISfs;                               \
        static constexpr auto floatInitAlloc = orbsFIRInitAlloc##t##_##sf;                                             \
        static constexpr auto floatInitMultiRateAlloc = orbsFIRMRInitAlloc##t##_##sf;                                  \
        static constexpr auto floatSetTaps = orbsFIRSetTaps##t##_##sf;                                                 \
        static constexpr auto floatGetTaps = orbsFIRGetTaps##t##_##sf;                                                 \
        static constexpr auto floatFilter = orbsFIR##t##_##sf##_Sfs;                                                   \
        static constexpr auto floatOne = orbsFIROne##t##_##sf##_Sfs;                                                   \
        static constexpr auto floatMultiRateDirect = orbsFIRMR##t##_Direct_##sf##_Sfs;                                 \
    }
FIXED_MEMBERS(32s, 32f, 16s, 16s32f);
FIXED_MEMBERS(32sc, 32fc, 16sc, 16sc32fc);
#undef FIXED_MEMBERS

using Types = testing::Types<Orb16s, Orb16sc>;

template <class T>
using TapOf = typename Members<T>::Tap;
template <class T>
constexpr std::size_t parts = sizeof(T) / sizeof(Part<T>);

template <class T>
auto* asParts(std::vector<T>& v) {
    return reinterpret_cast<Part<T>*>(v.data());
}

// Sums of products, and what becomes of them: half an even value goes to it, and everything but the end wraps.
struct Sum {
    std::uint64_t re = 0, im = 0;

    void add(std::int64_t h, std::int64_t x) { re += static_cast<std::uint64_t>(h * x); }
    template <class Tap, class T>
    requires isComplex<T>
    void add(Tap h, T x) {
        const std::int64_t a = h.re, b = h.im, c = x.re, d = x.im;
        re += static_cast<std::uint64_t>(a * c - b * d);
        im += static_cast<std::uint64_t>(a * d + b * c);
    }
    static Orb16s part(std::uint64_t sum, std::int64_t s) {
        std::int64_t value = static_cast<std::int32_t>(sum);
        if (s > 0) {
            s = std::min<std::int64_t>(s, 31);
            const std::int64_t odd = value >> s & 1;
            value = static_cast<std::int32_t>(value + (std::int64_t{1} << (s - 1)) - 1 + odd) >> s;
        } else {
            value = s <= -32 ? 0 : static_cast<std::int32_t>(static_cast<std::uint64_t>(value) << -s);
        }
        return static_cast<Orb16s>(std::clamp<std::int64_t>(value, -32768, 32767));
    }
    template <class T>
    T scaled(std::int64_t s) const {
        if constexpr (isComplex<T>) {
            return {part(re, s), part(im, s)};
        } else {
            return part(re, s);
        }
    }
};

// A stream through the filter as its definition walks it: zeros between the samples, every downFactor-th value kept.
// The line is newest sample first.
struct Rates {
    int upFactor = 1, upPhase = 0, downFactor = 1, downPhase = 0;
    std::size_t line(std::size_t tapsLen) const {
        return (tapsLen + static_cast<std::size_t>(upFactor) - 1) / static_cast<std::size_t>(upFactor);
    }
};
template <class T, class Tap>
std::vector<T> walked(const std::vector<T>& x, const std::vector<Tap>& taps, const Rates& r, std::vector<T>& line,
                      std::int64_t s) {
    std::vector<T> y;
    std::deque<T> delay(line.begin(), line.end());
    const auto up = static_cast<std::size_t>(r.upFactor), down = static_cast<std::size_t>(r.downFactor);
    std::size_t atUp = (up - static_cast<std::size_t>(r.upPhase)) % up;
    std::size_t atDown = (down - static_cast<std::size_t>(r.downPhase)) % down;
    const std::size_t ticks = x.size() / down * up * down;
    for (std::size_t tick = 0, next = 0; tick < ticks; ++tick) {
        if (atUp == 0) {
            delay.push_front(x[next++]);
            delay.pop_back();
        }
        if (atDown == 0) {
            Sum sum;
            for (std::size_t j = 0; atUp + j * up < taps.size(); ++j) sum.add(taps[atUp + j * up], delay[j]);
            y.push_back(sum.scaled<T>(s));
        }
        atUp = (atUp + 1) % up;
        atDown = (atDown + 1) % down;
    }
    line.assign(delay.begin(), delay.end());
    return y;
}

// Taps that need no shift, so that they are kept as they are.
template <class T>
std::vector<TapOf<T>> smallTaps(std::size_t count, std::uint64_t seed) {
    auto taps = randomVector<TapOf<T>>(count, seed);
    for (std::size_t n = 0; n < count * parts<T>; ++n) asParts(taps)[n] %= 32767;
    return taps;
}

// A state, and the calls on whole vectors.
template <class T>
class Filter {
public:
    using M = Members<T>;
    using Vector = std::vector<T>;
    enum Where { caller, allocated };

    Filter(Where where, const std::vector<TapOf<T>>& taps, const Rates& r = {}, const Vector& line = {}, int factor = 0)
        : rates_(r), line_(r.line(taps.size())) {
        const T* const start = line.empty() ? nullptr : line.data();
        const int count = static_cast<int>(taps.size());
        if (where == allocated) {
            EXPECT_EQ(M::initMultiRateAlloc(&state_, taps.data(), count, factor, r.upFactor, r.upPhase, r.downFactor,
                                            r.downPhase, start),
                      orbStsNoErr);
            return;
        }
        int size = 0;
        EXPECT_EQ(M::getMultiRateSize(count, r.upFactor, r.downFactor, &size), orbStsNoErr);
        buffer_.resize(static_cast<std::size_t>(size), 0xa5);
        EXPECT_EQ(M::initMultiRate(&state_, taps.data(), count, factor, r.upFactor, r.upPhase, r.downFactor,
                                   r.downPhase, start, buffer_.data()),
                  orbStsNoErr);
    }
    ~Filter() { EXPECT_EQ(M::free(state_), orbStsNoErr); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    typename M::State* state() const { return state_; }

    Vector block(const Vector& x, int s = 0) {
        Vector y(outputs(x));
        EXPECT_EQ(M::filter(x.data(), y.data(), iterations(x), state_, s), orbStsNoErr);
        return y;
    }
    Vector inPlace(Vector x, int s = 0) {
        const std::size_t count = outputs(x);
        const int numIters = iterations(x);
        x.resize(std::max(x.size(), count));
        EXPECT_EQ(M::filterInPlace(x.data(), numIters, state_, s), orbStsNoErr);
        x.resize(count);
        return x;
    }
    Vector singly(const Vector& x, int s = 0) {
        Vector y(x.size());
        for (std::size_t n = 0; n < x.size(); ++n) EXPECT_EQ(M::one(x[n], &y[n], state_, s), orbStsNoErr);
        return y;
    }
    Vector line() const {
        Vector line(line_);
        EXPECT_EQ(M::getDlyLine(state_, line.data()), orbStsNoErr);
        return line;
    }

private:
    int iterations(const Vector& x) const { return static_cast<int>(x.size()) / rates_.downFactor; }
    std::size_t outputs(const Vector& x) const {
        return static_cast<std::size_t>(iterations(x)) * static_cast<std::size_t>(rates_.upFactor);
    }

    typename M::State* state_ = nullptr;
    Rates rates_;
    std::size_t line_;
    std::vector<Orb8u> buffer_;
};

template <class T>
std::vector<T> slice(const std::vector<T>& v, std::size_t first, std::size_t count) {
    const auto from = v.begin() + static_cast<std::ptrdiff_t>(first);
    return {from, from + static_cast<std::ptrdiff_t>(count)};
}

} // namespace fixedfir
