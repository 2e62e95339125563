// The members of one pair of types under one name each, owners of states, and what a filter must give.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"

#include <bit>
#include <cmath>
#include <vector>

namespace iir {

using support::isComplex;
using support::nameOf;
using support::Part;
using support::randomVector;
using support::sameBits;
using support::shown;

// ---- Members ----

template <class Init>
struct InitShape;
template <class S, class T, class L>
struct InitShape<OrbStatus (*)(S**, const T*, int, const L*, Orb8u*)> {
    using State = S;
    using Tap = T;
    using Delay = L;
    static constexpr bool hasTapsFactor = false;
};
template <class S, class T, class L>
struct InitShape<OrbStatus (*)(S**, const T*, int, int, const L*, Orb8u*)> {
    using State = S;
    using Tap = T;
    using Delay = L;
    static constexpr bool hasTapsFactor = true;
};
template <class One>
struct OneShape;
template <class V, class S, class State, class... Factor>
struct OneShape<OrbStatus (*)(V, S*, State*, Factor...)> {
    using Sample = S;
    static constexpr bool isScaled = sizeof...(Factor) == 1;
};

#define IIR_KIND(kind, pre, post, tail, tailInPlace)                                                                   \
    struct kind : InitShape<decltype(&orbsIIRInit##pre##_##post)>,                                                     \
                  OneShape<decltype(&orbsIIROne##pre##_##post##tail)> {                                                \
        static constexpr auto getStateSize = orbsIIRGetStateSize##pre##_##post;                                        \
        static constexpr auto getStateSizeBiQuad = orbsIIRGetStateSize##pre##_BiQuad_##post;                           \
        static constexpr auto init = orbsIIRInit##pre##_##post;                                                        \
        static constexpr auto initBiQuad = orbsIIRInit##pre##_BiQuad_##post;                                           \
        static constexpr auto initAlloc = orbsIIRInitAlloc##pre##_##post;                                              \
        static constexpr auto initAllocBiQuad = orbsIIRInitAlloc##pre##_BiQuad_##post;                                 \
        static constexpr auto free = orbsIIRFree##pre##_##post;                                                        \
        static constexpr auto setTaps = orbsIIRSetTaps##pre##_##post;                                                  \
        static constexpr auto getDlyLine = orbsIIRGetDlyLine##pre##_##post;                                            \
        static constexpr auto setDlyLine = orbsIIRSetDlyLine##pre##_##post;                                            \
        static constexpr auto block = orbsIIR##pre##_##post##tail;                                                     \
        static constexpr auto inPlace = orbsIIR##pre##_##post##tailInPlace;                                            \
        static constexpr auto one = orbsIIROne##pre##_##post##tail;                                                    \
    }
IIR_KIND(Kind32f, , 32f, , _I);
IIR_KIND(Kind32fc, , 32fc, , _I);
IIR_KIND(Kind32f16s, 32f, 16s, _Sfs, _ISfs);
IIR_KIND(Kind32fc16sc, 32fc, 16sc, _Sfs, _ISfs);
IIR_KIND(Kind32s16s, 32s, 16s, _Sfs, _ISfs);
IIR_KIND(Kind32sc16sc, 32sc, 16sc, _Sfs, _ISfs);
IIR_KIND(Kind32s16s32f, 32s, 16s32f, _Sfs, _ISfs);
IIR_KIND(Kind32sc16sc32fc, 32sc, 16sc32fc, _Sfs, _ISfs);
IIR_KIND(Kind64f, , 64f, , _I);
IIR_KIND(Kind64fc, , 64fc, , _I);
IIR_KIND(Kind64f32f, 64f, 32f, , _I);
IIR_KIND(Kind64fc32fc, 64fc, 32fc, , _I);
IIR_KIND(Kind64f32s, 64f, 32s, _Sfs, _ISfs);
IIR_KIND(Kind64fc32sc, 64fc, 32sc, _Sfs, _ISfs);
IIR_KIND(Kind64f16s, 64f, 16s, _Sfs, _ISfs);
IIR_KIND(Kind64fc16sc, 64fc, 16sc, _Sfs, _ISfs);
#undef IIR_KIND

using Kinds = testing::Types<Kind32f, Kind32fc, Kind32f16s, Kind32fc16sc, Kind32s16s, Kind32sc16sc, Kind32s16s32f,
                             Kind32sc16sc32fc, Kind64f, Kind64fc, Kind64f32f, Kind64fc32fc, Kind64f32s, Kind64fc32sc,
                             Kind64f16s, Kind64fc16sc>;

// Whatever fails tells of which types the members were.
template <class K>
class Test : public testing::Test {
    testing::ScopedTrace trace_{"members of the types of", 0, nameOf(K::block)};
};

// What is computed in.
template <class K>
using Real = std::conditional_t<std::is_same_v<Part<typename K::Tap>, Orb64f>, Orb64f, Orb32f>;
template <class K>
constexpr bool isComplexKind = isComplex<typename K::Tap>;
template <class K>
constexpr bool hasWords = std::is_same_v<Part<typename K::Delay>, Orb32s>; // delay lines given as 32-bit words

enum class Form { anyOrder, biQuad };
constexpr Form forms[] = {Form::anyOrder, Form::biQuad};

// How large a filter is: its form, and its order or number of sections.
struct Shape {
    Form form;
    std::size_t size;
    std::size_t sections() const { return form == Form::biQuad ? size : 1; }
    std::size_t order() const { return form == Form::biQuad ? 2 : size; } // of a section
    std::size_t taps() const { return sections() * (2 * order() + 2); }
    std::size_t delays() const { return sections() * order(); }
    std::size_t a0(std::size_t section = 0) const { return section * (2 * order() + 2) + order() + 1; }
    std::size_t longestSingly() const { return 4 * size; } // block that goes sample by sample
};
inline std::ostream& operator<<(std::ostream& out, const Shape& shape) {
    return out << (shape.form == Form::biQuad ? "sections: " : "order: ") << shape.size;
}

template <class K>
int stateSize(const Shape& shape) {
    int size = -1;
    const auto query = shape.form == Form::biQuad ? K::getStateSizeBiQuad : K::getStateSize;
    EXPECT_EQ(query(static_cast<int>(shape.size), &size), orbStsNoErr);
    return size;
}

constexpr int tapsFactor = 20;

// Init, or InitAlloc without a buffer.
template <class K>
OrbStatus build(typename K::State** state, const Shape& shape, const typename K::Tap* taps,
                const typename K::Delay* line, Orb8u* buffer, int factor = tapsFactor) {
    const int size = static_cast<int>(shape.size);
    const bool biQuad = shape.form == Form::biQuad;
    if constexpr (K::hasTapsFactor) {
        if (buffer) return (biQuad ? K::initBiQuad : K::init)(state, taps, size, factor, line, buffer);
        return (biQuad ? K::initAllocBiQuad : K::initAlloc)(state, taps, size, factor, line);
    } else {
        if (buffer) return (biQuad ? K::initBiQuad : K::init)(state, taps, size, line, buffer);
        return (biQuad ? K::initAllocBiQuad : K::initAlloc)(state, taps, size, line);
    }
}

// A state, and the calls on whole vectors.
template <class K>
class Filter {
public:
    using Taps = std::vector<typename K::Tap>;
    using Line = std::vector<typename K::Delay>;
    using Samples = std::vector<typename K::Sample>;
    enum Where { caller, allocated };

    Filter(const Shape& shape, const Taps& taps, const Line& line = {}, Where where = caller) : shape_(shape) {
        if (where == caller) buffer_.resize(static_cast<std::size_t>(stateSize<K>(shape)), 0xa5);
        EXPECT_EQ(build<K>(&state_, shape, taps.data(), line.empty() ? nullptr : line.data(),
                           where == caller ? buffer_.data() : nullptr),
                  orbStsNoErr)
            << shape;
    }
    ~Filter() { EXPECT_EQ(K::free(state_), orbStsNoErr); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    typename K::State* state() const { return state_; }

    Samples block(const Samples& x, int s = 0) {
        Samples y(x.size());
        const int len = static_cast<int>(x.size());
        if constexpr (K::isScaled) {
            EXPECT_EQ(K::block(x.data(), y.data(), len, state_, s), orbStsNoErr);
        } else {
            EXPECT_EQ(K::block(x.data(), y.data(), len, state_), orbStsNoErr);
        }
        return y;
    }
    Samples inPlace(Samples x, int s = 0) {
        const int len = static_cast<int>(x.size());
        if constexpr (K::isScaled) {
            EXPECT_EQ(K::inPlace(x.data(), len, state_, s), orbStsNoErr);
        } else {
            EXPECT_EQ(K::inPlace(x.data(), len, state_), orbStsNoErr);
        }
        return x;
    }
    Samples singly(const Samples& x, int s = 0) {
        Samples y(x.size());
        for (std::size_t n = 0; n < x.size(); ++n) {
            if constexpr (K::isScaled) {
                EXPECT_EQ(K::one(x[n], &y[n], state_, s), orbStsNoErr);
            } else {
                EXPECT_EQ(K::one(x[n], &y[n], state_), orbStsNoErr);
            }
        }
        return y;
    }
    Line line() const {
        Line line(shape_.delays());
        EXPECT_EQ(K::getDlyLine(state_, line.data()), orbStsNoErr);
        return line;
    }

private:
    Shape shape_;
    typename K::State* state_ = nullptr;
    std::vector<Orb8u> buffer_;
};

template <class T>
std::vector<T> slice(const std::vector<T>& v, std::size_t first, std::size_t count) {
    const auto from = v.begin() + static_cast<std::ptrdiff_t>(first);
    return {from, from + static_cast<std::ptrdiff_t>(count)};
}
template <class T>
void append(std::vector<T>& to, const std::vector<T>& more) {
    to.insert(to.end(), more.begin(), more.end());
}

// ---- Wide numbers ----

struct Wide {
    long double re = 0, im = 0;
    long double magnitude() const { return std::abs(re) + std::abs(im); }
    friend Wide operator+(Wide a, Wide b) { return {a.re + b.re, a.im + b.im}; }
    friend Wide operator-(Wide a, Wide b) { return {a.re - b.re, a.im - b.im}; }
    friend Wide operator*(Wide a, Wide b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
};

template <class T>
Wide wide(const T& t) {
    if constexpr (isComplex<T>) {
        return {static_cast<long double>(t.re), static_cast<long double>(t.im)};
    } else {
        return {static_cast<long double>(t), 0};
    }
}
template <class T>
std::vector<Wide> wide(const std::vector<T>& v) {
    std::vector<Wide> all;
    for (const T& t : v) all.push_back(wide(t));
    return all;
}

template <class T>
T narrow(Wide w) {
    const auto part = [](long double v) {
        return static_cast<Part<T>>(std::is_integral_v<Part<T>> ? std::nearbyint(v) : v);
    };
    if constexpr (isComplex<T>) {
        return {part(w.re), part(w.im)};
    } else {
        return part(w.re);
    }
}

// A delay value as the members give and take it.
template <class K>
typename K::Delay delay(Wide w) {
    using Delay = typename K::Delay;
    if constexpr (!hasWords<K>) {
        return narrow<Delay>(w);
    } else if constexpr (isComplex<Delay>) {
        return {std::bit_cast<Orb32s>(static_cast<Orb32f>(w.re)), std::bit_cast<Orb32s>(static_cast<Orb32f>(w.im))};
    } else {
        return std::bit_cast<Orb32s>(static_cast<Orb32f>(w.re));
    }
}
template <class K>
Wide wideDelay(const typename K::Delay& d) {
    if constexpr (!hasWords<K>) {
        return wide(d);
    } else if constexpr (isComplex<typename K::Delay>) {
        return {std::bit_cast<Orb32f>(d.re), std::bit_cast<Orb32f>(d.im)};
    } else {
        return {std::bit_cast<Orb32f>(d), 0};
    }
}

// ---- Filters to test with ----

// What the member takes for w: a float, or an integer that counts 2^-tapsFactor.
template <class K>
typename K::Tap tap(Wide w) {
    if constexpr (K::hasTapsFactor) w = w * Wide{std::ldexp(1.0L, tapsFactor), 0};
    return narrow<typename K::Tap>(w);
}
template <class K>
Wide wideTap(const typename K::Tap& t) {
    Wide w = wide(t);
    if constexpr (K::hasTapsFactor) w = w * Wide{std::ldexp(1.0L, -tapsFactor), 0};
    return w;
}

// Zeros anywhere, poles within the radius, in conjugate pairs for real taps, or, of more than 8 poles, feedback that
// adds up to 0.9. a[0] is 2, by which division is exact.
template <class K>
std::vector<typename K::Tap> fadingTaps(const Shape& shape, double radius, std::uint64_t seed) {
    support::Random random(seed);
    const auto uniform = [&] { return support::randomElement<double>(random); };
    const auto part = [&] { return isComplexKind<K> ? uniform() : 0; };
    const std::size_t N = shape.order();
    std::vector<typename K::Tap> taps;
    for (std::size_t s = 0; s < shape.sections(); ++s) {
        std::vector<Wide> a{{2, 0}};
        for (std::size_t k = 0; k <= N; ++k) taps.push_back(tap<K>({uniform() + (k == 0 ? 1.5 : 0), part()}));
        if (N > 8) {
            for (std::size_t i = 1; i <= N; ++i) {
                const auto weight = 0.9L / static_cast<long double>(N);
                a.push_back({weight * uniform(), weight * part()});
            }
        }
        while (a.size() <= N) {
            const double angle = 3 * uniform(), re = radius * std::cos(angle), im = radius * std::sin(angle);
            std::vector<Wide> factor{{1, 0}, {-re, -im}};
            if (!isComplexKind<K>) factor = {{1, 0}, {-2 * re, 0}, {radius * radius, 0}};
            if (!isComplexKind<K> && a.size() == N) factor = {{1, 0}, {-re, 0}};
            std::vector<Wide> product(a.size() + factor.size() - 1);
            for (std::size_t i = 0; i < a.size(); ++i)
                for (std::size_t k = 0; k < factor.size(); ++k) product[i + k] = product[i + k] + a[i] * factor[k];
            a = product;
        }
        for (const Wide& w : a) taps.push_back(tap<K>(w));
    }
    return taps;
}

template <class K>
std::vector<typename K::Delay> randomLine(const Shape& shape, std::uint64_t seed) {
    support::Random random(seed);
    std::vector<typename K::Delay> line;
    for (std::size_t i = 0; i < shape.delays(); ++i) {
        const double re = support::randomElement<double>(random);
        line.push_back(delay<K>({re, isComplexKind<K> ? support::randomElement<double>(random) : 0}));
    }
    return line;
}

// ---- What a filter must give ----

// Outputs and the delay line behind them, and how far those of the members may be off.
struct Exact {
    std::vector<Wide> y, D;
    std::vector<long double> offY, offD;
};

// |h[0]|, |h[1]|, ... of the filter b over a, with a[0] = 1.
inline std::vector<long double> impulse(const std::vector<Wide>& b, const std::vector<Wide>& a, std::size_t count) {
    std::vector<Wide> h(count);
    std::vector<long double> magnitudes;
    for (std::size_t n = 0; n < count; ++n) {
        if (n < b.size()) h[n] = b[n];
        for (std::size_t i = 1; i < std::min(n + 1, a.size()); ++i) h[n] = h[n] - a[i] * h[n - i];
        magnitudes.push_back(std::hypot(h[n].re, h[n].im));
    }
    while (magnitudes.back() < 1e-25L) magnitudes.pop_back(); // far below what an output may be off
    return magnitudes;
}

// One section on x, which is off by offX. u is the rounding of one operation.
//
// An output is a sum of products, each of which is rounded, and each addition of which is. Where four outputs are
// written at a time, feedback is expanded up to three times: with W[n] = sum of |b[k] * x[n-k]| and of the delay line's
// part, M[n] = W[n] + sum of |a[i]| * M[n-i], from |y| three times over, bounds the magnitudes of all terms and of all
// that coefficients are made of. Of the 2 * N + 28 roundings on the way to an output, N + 2 belong to W, 3 times 7 to
// the coefficients of four outputs, and N + 5 to their sum; feedback of one output of the four to the next at most
// doubles what that gives. Then it passes through the recursion, as if it had come in as a sample.
inline Exact exactly(const std::vector<Wide>& b, const std::vector<Wide>& a, std::vector<Wide> D,
                     const std::vector<Wide>& x, const std::vector<long double>& offX, long double u) {
    const std::size_t N = a.size() - 1, count = x.size();
    const auto first = D;
    Exact exact;
    std::vector<long double> W(count);
    D.push_back({});
    for (std::size_t n = 0; n < count; ++n) {
        const Wide y = b[0] * x[n] + D[0];
        for (std::size_t i = 0; i < N; ++i) D[i] = b[i + 1] * x[n] - a[i + 1] * y + D[i + 1];
        exact.y.push_back(y);
        for (std::size_t k = 0; k < std::min(N, n) + 1; ++k) W[n] += b[k].magnitude() * x[n - k].magnitude();
        if (n < N) W[n] += first[n].magnitude();
    }
    D.pop_back();
    exact.D = D;
    std::vector<long double> M;
    for (const Wide& y : exact.y) M.push_back(y.magnitude());
    for (int time = 0; time <= 3; ++time) {
        auto next = W;
        for (std::size_t n = 0; n < count; ++n)
            for (std::size_t i = 1; i <= std::min(N, n); ++i) next[n] += a[i].magnitude() * M[n - i];
        M = next;
    }
    const auto roundings = 2 * static_cast<long double>(2 * N + 28) * u;
    const auto h = impulse(b, a, count), g = impulse({{1, 0}}, a, count);
    exact.offY.resize(count);
    const bool exactX = std::all_of(offX.begin(), offX.end(), [](long double off) { return off == 0; });
    for (std::size_t n = 0; n < count; ++n) {
        long double off = 0, own = 0;
        for (std::size_t k = 0; k < std::min(h.size(), n + 1) && !exactX; ++k) off += h[k] * offX[n - k];
        for (std::size_t k = 0; k < std::min(g.size(), n + 1); ++k) own += g[k] * M[n - k];
        exact.offY[n] = off + roundings * own;
    }
    exact.offD.resize(N);
    for (std::size_t j = 0; j < N; ++j) {
        for (std::size_t i = 1; i <= std::min(N - j, count); ++i) {
            const long double bj = b[j + i].magnitude(), aj = a[j + i].magnitude();
            exact.offD[j] += bj * (offX[count - i] + roundings * x[count - i].magnitude()) +
                             aj * (exact.offY[count - i] + roundings * exact.y[count - i].magnitude());
        }
        if (j + count < N) exact.offD[j] += roundings * first[j + count].magnitude();
    }
    return exact;
}

// The taps are divided by a[0], exactly if that is a power of two.
template <class K>
Exact exactly(const Shape& shape, const std::vector<typename K::Tap>& taps, const std::vector<typename K::Delay>& line,
              const std::vector<typename K::Sample>& samples, long double u) {
    const std::size_t N = shape.order();
    Exact all;
    all.y = wide(samples);
    all.offY.resize(samples.size());
    for (std::size_t s = 0; s < shape.sections(); ++s) {
        std::vector<Wide> b, a, D;
        const std::size_t a0 = shape.a0(s);
        for (std::size_t k = 0; k <= N; ++k) {
            const Wide byA0{1 / wideTap<K>(taps[a0]).re, 0};
            b.push_back(wideTap<K>(taps[a0 - N - 1 + k]) * byA0);
            a.push_back(wideTap<K>(taps[a0 + k]) * byA0);
        }
        for (std::size_t i = 0; i < N; ++i) D.push_back(wideDelay<K>(line[s * N + i]));
        Exact section = exactly(b, a, D, all.y, all.offY, u);
        all.y = section.y;
        all.offY = section.offY;
        append(all.D, section.D);
        append(all.offD, section.offD);
    }
    return all;
}

// Half an epsilon, and of complex elements the two products and the addition that make one.
template <class K>
long double rounding() {
    return std::numeric_limits<Real<K>>::epsilon() / 2 * (isComplexKind<K> ? 3 : 1);
}

// The outputs are those, multiplied by 2^-s and rounded to the type of the samples, but for what they may be off.
template <class K>
void expectOutputs(const std::vector<typename K::Sample>& got, const Exact& want, const Shape& shape, int s = 0) {
    using P = Part<typename K::Sample>;
    using Limits = std::numeric_limits<P>;
    ASSERT_EQ(got.size(), want.y.size());
    for (std::size_t n = 0; n < got.size(); ++n) {
        const Wide g = wide(got[n]);
        const long double off = std::ldexp(want.offY[n], -s);
        const auto near = [&](long double part, long double exact) {
            if constexpr (std::is_integral_v<P>) {
                exact = std::clamp<long double>(std::ldexp(exact, -s), Limits::min(), Limits::max());
                return std::abs(part - exact) <= 0.5L + off;
            } else {
                return std::abs(part - exact) <= off + Limits::epsilon() / 2 * std::abs(exact);
            }
        };
        ASSERT_TRUE(near(g.re, want.y[n].re) && near(g.im, want.y[n].im))
            << shape << ", output " << n << " is " << shown(got[n]) << ", not " << want.y[n].re << " and "
            << want.y[n].im << " * 2^" << -s << " but for " << off;
    }
}
template <class K>
void expectLine(const std::vector<typename K::Delay>& got, const Exact& want, const Shape& shape) {
    ASSERT_EQ(got.size(), want.D.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        const Wide off = wideDelay<K>(got[i]) - want.D[i];
        ASSERT_TRUE(std::abs(off.re) <= want.offD[i] && std::abs(off.im) <= want.offD[i])
            << shape << ", delay " << i << " is off by " << off.re << " and " << off.im << ", not " << want.offD[i];
    }
}

} // namespace iir
