// Filters whose samples are of another type than their taps: the filter over widened samples, narrowed. What that
// filter does is tested by itself.
#include "fir/fir_member.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

using namespace fir;
using support::Guarded;

// ---- Members ----

template <class TapType, class SampleType, class TapsGiven = TapType>
struct Pair {
    using Tap = TapType;
    using Sample = SampleType;
    using Given = TapsGiven; // the type of the taps in the members; Tap in the state
};

template <class P>
struct Mixed;

#define MIXED_MEMBERS(tap, sample, given, suffix, scaled, inPlaceScaled)                                               \
    template <>                                                                                                        \
    struct Mixed<Pair<Orb##tap, Orb##sample, Orb##given>> {                                                            \
        FIR_MEMBERS(suffix, scaled, inPlaceScaled);                                                                    \
    }
MIXED_MEMBERS(32f, 16s, 32f, 32f_16s, _Sfs, _ISfs);
MIXED_MEMBERS(32fc, 16sc, 32fc, 32fc_16sc, _Sfs, _ISfs);
MIXED_MEMBERS(64f, 32f, 64f, 64f_32f, , _I);
MIXED_MEMBERS(64fc, 32fc, 64fc, 64fc_32fc, , _I);
MIXED_MEMBERS(64f, 32s, 64f, 64f_32s, _Sfs, _ISfs);
MIXED_MEMBERS(64fc, 32sc, 64fc, 64fc_32sc, _Sfs, _ISfs);
MIXED_MEMBERS(64f, 16s, 64f, 64f_16s, _Sfs, _ISfs);
MIXED_MEMBERS(64fc, 16sc, 64fc, 64fc_16sc, _Sfs, _ISfs);
MIXED_MEMBERS(64f, 32s, 32s, _32s, _Sfs, _ISfs);
#undef MIXED_MEMBERS

template <class P>
class FirMixed : public testing::Test {
    testing::ScopedTrace trace_{"members of the types of", 0, nameOf(Mixed<P>::filter)};
};
using MixedTypes = testing::Types<Pair<Orb32f, Orb16s>, Pair<Orb32fc, Orb16sc>, Pair<Orb64f, Orb32f>,
                                  Pair<Orb64fc, Orb32fc>, Pair<Orb64f, Orb32s>, Pair<Orb64fc, Orb32sc>,
                                  Pair<Orb64f, Orb16s>, Pair<Orb64fc, Orb16sc>, Pair<Orb64f, Orb32s, Orb32s>>;
TYPED_TEST_SUITE(FirMixed, MixedTypes);

template <class P>
class Pieces {
public:
    using M = Mixed<P>;
    using X = typename P::Sample;
    using Given = typename P::Given;
    using Vector = std::vector<X>;
    enum Where { caller, allocated };

    Pieces(Where where, const std::vector<Given>& taps, const Vector& line = {}) : tapsLen_(taps.size()) {
        const X* const start = line.empty() ? nullptr : line.data();
        const int count = static_cast<int>(tapsLen_);
        if (where == allocated) {
            EXPECT_EQ(M::initAlloc(&state_, taps.data(), count, start), orbStsNoErr);
            return;
        }
        int size = 0;
        EXPECT_EQ(M::getStateSize(count, &size), orbStsNoErr);
        buffer_.resize(static_cast<std::size_t>(size));
        EXPECT_EQ(M::init(&state_, taps.data(), count, start, buffer_.data()), orbStsNoErr);
    }
    ~Pieces() { EXPECT_EQ(M::free(state_), orbStsNoErr); }
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    typename M::State* state() const { return state_; }

    Vector block(const Vector& x, int scaleFactor = 0) {
        Vector y(x.size());
        EXPECT_EQ(call(M::filter, scaleFactor, x.data(), y.data(), static_cast<int>(x.size())), orbStsNoErr);
        return y;
    }
    Vector inPlace(Vector x, int scaleFactor = 0) {
        EXPECT_EQ(call(M::filterInPlace, scaleFactor, x.data(), static_cast<int>(x.size())), orbStsNoErr);
        return x;
    }
    Vector singly(const Vector& x, int scaleFactor = 0) {
        Vector y(x.size());
        for (std::size_t n = 0; n < x.size(); ++n) EXPECT_EQ(call(M::one, scaleFactor, x[n], &y[n]), orbStsNoErr);
        return y;
    }
    Vector line() const {
        Vector line(tapsLen_);
        EXPECT_EQ(M::getDlyLine(state_, line.data()), orbStsNoErr);
        return line;
    }

private:
    template <class... Arguments>
    OrbStatus call(auto member, int scaleFactor, Arguments... arguments) {
        if constexpr (std::is_integral_v<Part<X>>) return member(arguments..., state_, scaleFactor);
        if constexpr (!std::is_integral_v<Part<X>>) return member(arguments..., state_);
    }

    typename M::State* state_ = nullptr;
    std::size_t tapsLen_;
    std::vector<Orb8u> buffer_;
};

// ---- What is to come out ----

template <class To, class From>
std::vector<To> partByPart(const std::vector<From>& v, auto convert) {
    std::vector<To> converted(v.size());
    const auto* const from = reinterpret_cast<const Part<From>*>(v.data());
    std::transform(from, from + v.size() * parts<From>, reinterpret_cast<Part<To>*>(converted.data()), convert);
    return converted;
}
template <class To, class From>
std::vector<To> cast(const std::vector<From>& v) {
    return partByPart<To>(v, [](Part<From> value) { return static_cast<Part<To>>(value); });
}

// Scale factors here keep 2^-scaleFactor a normal number of either type.
template <class X, class T>
std::vector<X> narrowed(const std::vector<T>& y, int scaleFactor) {
    using Limits = std::numeric_limits<Part<X>>;
    if constexpr (!std::is_integral_v<Part<X>>) return cast<X>(y);
    return partByPart<X>(y, [=](Part<T> value) {
        const Part<T> scaled = std::ldexp(value, -scaleFactor);
        if (!(scaled <= static_cast<Part<T>>(Limits::max()))) return Limits::max(); // of a NaN too
        return static_cast<Part<X>>(std::max(std::nearbyint(scaled), static_cast<Part<T>>(Limits::lowest())));
    });
}

template <class P>
std::vector<typename P::Given> tapsOf(std::size_t count, std::uint64_t seed = 1) {
    auto taps = randomVector<typename P::Given>(count, seed);
    if constexpr (std::is_integral_v<typename P::Given>)
        for (auto& tap : taps) tap %= 1000;
    return taps;
}

// Outputs of random samples that are neither all saturated nor all 0.
template <class P>
std::vector<int> telling() {
    if constexpr (std::is_integral_v<typename P::Given>) return {10, 12, 3};
    return {0, 2, 5, -1};
}

template <class P>
constexpr bool isInteger = std::is_integral_v<Part<typename P::Sample>>;

// ---- Ways ----

TYPED_TEST(FirMixed, IsTheFilterOfWidenedSamplesNarrowed) {
    using P = TypeParam;
    using X = typename P::Sample;
    using T = typename P::Tap;
    using F = Pieces<P>;
    for (const std::size_t tapsLen : {1, 5, 12, 40, 64, 129}) {
        const auto taps = tapsOf<P>(tapsLen);
        const auto line = randomVector<X>(tapsLen, 2);
        for (const bool allocated : {false, true}) {
            const auto wideTaps = cast<T>(taps), wideLine = cast<T>(line);
            Filter<T> wide(allocated ? Filter<T>::allocated : Filter<T>::caller, wideTaps, wideLine);
            F filter(allocated ? F::allocated : F::caller, taps, line);
            auto now = line;
            for (const std::size_t count : {1, 9, 46, 255, 256, 511, 512, 1601, 2047, 2049, 4097, 8300}) {
                SCOPED_TRACE(testing::Message()
                             << tapsLen << " taps, a block of " << count << (allocated ? ", allocated" : ""));
                const int scale = telling<P>()[count % telling<P>().size()];
                const auto x = randomVector<X>(count, 3);
                const auto y = wide.block(cast<T>(x));
                ASSERT_TRUE(sameBits(filter.block(x, scale), narrowed<X>(y, scale), x));
                now = lineAfter(now, x);
                ASSERT_TRUE(sameBits(filter.line(), now));
                const auto few = randomVector<X>(7, 4);
                ASSERT_TRUE(sameBits(filter.singly(few, scale), narrowed<X>(wide.singly(cast<T>(few)), scale), few));
                now = lineAfter(now, few);
                if (!allocated || tapsLen < 16) {
                    const auto again = wide.block(cast<T>(x));
                    ASSERT_TRUE(sameBits(filter.inPlace(x, scale), narrowed<X>(again, scale), x));
                    now = lineAfter(now, x);
                }
            }
        }
    }
}

// An impulse with nothing behind it: outputs beyond the taps are exactly 0 if added up, but hold the noise of the
// transforms, which a low scale factor shows.
template <class P>
struct Impulse {
    using X = typename P::Sample;
    explicit Impulse(std::size_t count) : x(count) {}
    void at(std::size_t n) { reinterpret_cast<Part<X>&>(x[n]) = 30000; }
    static bool isNoise(const std::vector<X>& y, std::size_t from, std::size_t to) {
        return std::any_of(y.begin() + std::ptrdiff_t(from), y.begin() + std::ptrdiff_t(to), [](const X& value) {
            const auto* const part = reinterpret_cast<const Part<X>*>(&value);
            return std::any_of(part, part + parts<X>, [](Part<X> p) { return p != 0; });
        });
    }
    std::vector<X> x;
};
template <class P>
constexpr int showingNoise = std::is_same_v<Part<typename P::Tap>, Orb32f> ? -30 : -60;

template <class P>
bool wentThroughFft(std::size_t tapsLen, std::size_t count, bool allocated = true) {
    using F = Pieces<P>;
    Impulse<P> impulse(count);
    impulse.at(0);
    F filter(allocated ? F::allocated : F::caller, tapsOf<P>(tapsLen));
    return impulse.isNoise(filter.block(impulse.x, showingNoise<P>), tapsLen, count);
}

TYPED_TEST(FirMixed, LongBlocksGoThroughTheFftOfAnAllocatedState) {
    using P = TypeParam;
    using T = typename P::Tap;
    const auto from = std::size_t{fftFrom<T>}, above = std::size_t{fftAbove<T>};
    EXPECT_TRUE(wentThroughFft<P>(from, above + 1));
    EXPECT_FALSE(wentThroughFft<P>(from, above));
    EXPECT_FALSE(wentThroughFft<P>(from - 1, 3000));
    EXPECT_FALSE(wentThroughFft<P>(from, 3000, false));
}

// In place the whole block decides, and its last chunk, behind 8192 samples each, goes the same way however short.
TYPED_TEST(FirMixed, InPlaceTheWholeBlockDecides) {
    using P = TypeParam;
    using T = typename P::Tap;
    using F = Pieces<P>;
    const std::size_t tapsLen = fftFrom<T>, above = fftAbove<T>, short_ = tapsLen + 20;
    for (const std::size_t count : {above, above + 1, 8192 + short_, 16384 + short_}) {
        Impulse<P> impulse(count);
        const std::size_t last = count > 8192 ? count - short_ : 0;
        impulse.at(last);
        F filter(F::allocated, tapsOf<P>(tapsLen));
        const auto y = filter.inPlace(impulse.x, showingNoise<P>);
        EXPECT_EQ(impulse.isNoise(y, last + tapsLen, count), count > above) << count << " samples";
        EXPECT_FALSE(impulse.isNoise(y, 0, last)) << "a chunk begins elsewhere than at " << last;
        EXPECT_TRUE(sameBits(filter.line(), lineAfter(std::vector<typename P::Sample>(tapsLen), impulse.x)));
    }
}

// Chunks of 8192: where the noise of an impulse begins tells where its run does, counted from the start of its chunk.
TYPED_TEST(FirMixed, ChunksInPlaceHave8192Samples) {
    using P = TypeParam;
    using F = Pieces<P>;
    const std::size_t tapsLen = fftFrom<typename P::Tap>;
    const std::size_t run = static_cast<std::size_t>(fftLength(int(tapsLen))) - tapsLen + 1;
    for (const std::size_t chunk : {0, 8192}) {
        const std::size_t place = chunk + 5000, start = chunk + 5000 / run * run;
        Impulse<P> impulse(chunk + 8192);
        impulse.at(place);
        F filter(F::allocated, tapsOf<P>(tapsLen));
        const auto y = filter.inPlace(impulse.x, showingNoise<P>);
        EXPECT_FALSE(impulse.isNoise(y, 0, start)) << "in the chunk from " << chunk;
        EXPECT_TRUE(impulse.isNoise(y, start, start + 4)) << "in the chunk from " << chunk;
    }
}

TYPED_TEST(FirMixed, TheThreadCountChangesNothing) {
    using P = TypeParam;
    using X = typename P::Sample;
    using F = Pieces<P>;
    const auto taps = tapsOf<P>(70);
    const auto x = randomVector<X>(9000, 2);
    std::vector<X> first[3];
    for (const int built : {1, 3}) {
        for (const int used : {1, 2, 8}) {
            ThreadCount before(built);
            F allocated(F::allocated, taps), again(F::allocated, taps), caller(F::caller, taps);
            ThreadCount now(used);
            const std::vector<X> got[3] = {allocated.block(x, 1), again.inPlace(x, 1), caller.block(x, 1)};
            for (int way = 0; way < 3; ++way) {
                if (first[way].empty()) first[way] = got[way];
                EXPECT_TRUE(sameBits(got[way], first[way])) << "made with " << built << ", run with " << used;
            }
        }
    }
}

// ---- States ----

TYPED_TEST(FirMixed, StaysWithinTheReportedSize) {
    using P = TypeParam;
    using X = typename P::Sample;
    using M = Mixed<P>;
    ThreadCount one(1);
    for (const int tapsLen : {1, 2, 3, 4, 7, 16, 63, 200, 1000}) {
        const auto count = static_cast<std::size_t>(tapsLen);
        const auto taps = tapsOf<P>(count);
        const auto line = randomVector<X>(count, 2);
        int size = 0, wide = 0;
        ASSERT_EQ(M::getStateSize(tapsLen, &size), orbStsNoErr);
        ASSERT_EQ(Members<typename P::Tap>::getStateSize(tapsLen, &wide), orbStsNoErr);
        const auto r16 = [](int bytes) { return (bytes + 15) / 16 * 16; };
        const int ofIntegerTaps = r16((3 * tapsLen + 4) * 8) + 3 * r16(8 * tapsLen) + 112 + 32768 + 15;
        EXPECT_EQ(size, (std::is_integral_v<typename P::Given>) ? ofIntegerTaps : wide);
        for (const std::size_t shift : {0, 1, 15}) {
            Guarded<Orb8u> buffer(static_cast<std::size_t>(size), support::Edge::end, shift);
            typename M::State* state = nullptr;
            ASSERT_EQ(M::init(&state, taps.data(), tapsLen, line.data(), buffer.data()), orbStsNoErr);
            std::vector<X> x(8300), y(x.size()), got(count);
            const auto run = [&](auto member, auto... arguments) {
                if constexpr (isInteger<P>) return member(arguments..., state, 0);
                if constexpr (!isInteger<P>) return member(arguments..., state);
            };
            for (int n = 0; n < tapsLen - 1; ++n) run(M::one, x[0], y.data());
            run(M::filter, x.data(), y.data(), tapsLen + 3);
            for (int n = 0; n < tapsLen + 1; ++n) run(M::one, x[0], y.data());
            run(M::filter, x.data(), y.data(), 8300);
            run(M::filterInPlace, x.data(), 8300);
            EXPECT_EQ(M::setDlyLine(state, line.data()), orbStsNoErr);
            EXPECT_EQ(M::getDlyLine(state, got.data()), orbStsNoErr);
            EXPECT_TRUE(sameBits(got, line));
            ASSERT_TRUE(buffer.intact()) << tapsLen << " taps, " << shift;
        }
    }
}

TYPED_TEST(FirMixed, TapsComeBackAndTakeEffectInACopyOfTheBlock) {
    using P = TypeParam;
    using X = typename P::Sample;
    using M = Mixed<P>;
    using F = Pieces<P>;
    const auto before = tapsOf<P>(40, 1), after = tapsOf<P>(40, 2);
    const auto x = randomVector<X>(3000, 3);
    F fresh(F::caller, after);
    int size = 0;
    ASSERT_EQ(M::getStateSize(40, &size), orbStsNoErr);
    std::vector<Orb8u> place(static_cast<std::size_t>(size)), moved(place.size() + 64);
    typename M::State* state = nullptr;
    ASSERT_EQ(M::init(&state, before.data(), 40, nullptr, place.data()), orbStsNoErr);
    auto* const from = reinterpret_cast<Orb8u*>(state);
    auto* to = moved.data();
    while (reinterpret_cast<std::uintptr_t>(to) % 32 != reinterpret_cast<std::uintptr_t>(from) % 32) ++to;
    std::memcpy(to, from, static_cast<std::size_t>(place.data() + place.size() - from));
    std::ranges::fill(place, Orb8u{0xff});
    state = reinterpret_cast<typename M::State*>(to);
    std::vector<typename P::Given> got(40);
    EXPECT_EQ(M::setTaps(after.data(), state), orbStsNoErr);
    EXPECT_EQ(M::getTaps(state, got.data()), orbStsNoErr);
    EXPECT_TRUE(sameBits(got, after));
    std::vector<X> y(x.size());
    if constexpr (isInteger<P>) {
        EXPECT_EQ(M::filter(x.data(), y.data(), 3000, state, 2), orbStsNoErr);
    } else {
        EXPECT_EQ(M::filter(x.data(), y.data(), 3000, state), orbStsNoErr);
    }
    EXPECT_TRUE(sameBits(y, fresh.block(x, 2)));
}

// The state of integer taps is that of doubles, whose other values are cut off toward zero when read.
TEST(FirIntegerTaps, AreDoublesReadTowardZero) {
    const Orb64f taps[] = {2.9, -2.9, -0.5, 2147483647.5, -2147483648.5, 2147483648.0, -1e300, NAN};
    constexpr Orb32s lowest = std::numeric_limits<Orb32s>::min();
    const std::vector<Orb32s> wanted{2, -2, 0, 2147483647, lowest, lowest, lowest, lowest};
    OrbsFIRState_32s* state = nullptr;
    ASSERT_EQ(orbsFIRInitAlloc64f_32s(&state, taps, 8, nullptr), orbStsNoErr);
    std::vector<Orb32s> got(8), ones(8, 1);
    EXPECT_EQ(orbsFIRGetTaps_32s(state, got.data()), orbStsNoErr);
    EXPECT_TRUE(sameBits(got, wanted));
    // Its SetTaps asks for no tag.
    const Orb32s tag = std::exchange(*reinterpret_cast<Orb32s*>(state), 0);
    EXPECT_EQ(orbsFIRSetTaps_32s(ones.data(), state), orbStsNoErr);
    EXPECT_EQ(orbsFIRGetTaps_32s(state, got.data()), orbStsContextMatchErr);
    *reinterpret_cast<Orb32s*>(state) = tag;
    EXPECT_EQ(orbsFIRGetTaps_32s(state, got.data()), orbStsNoErr);
    EXPECT_TRUE(sameBits(got, ones));
    EXPECT_EQ(orbsFIRFree_32s(state), orbStsNoErr);
}

// ---- Scale ----

// The factor of doubles to 16 bits is a number of the exponent field, without limits: 0 at 1023, and beyond it is
// minus infinity.
TEST(FirScale, OfDoublesTo16BitsIsTheExponentField) {
    const Orb64f tap = 0x1p-900;
    Pieces<Pair<Orb64f, Orb16s>> filter(Pieces<Pair<Orb64f, Orb16s>>::caller, {tap});
    const std::vector<Orb16s> x(40, 3);
    const struct {
        int scaleFactor;
        Orb16s wanted;
    } table[] = {{-899, 2}, {-900, 3},      {-1000, 32767}, {-1023, 32767}, {1022, 0},
                 {1023, 0}, {1024, -32768}, {-1024, 32767}, {-898, 1},      {-897, 0}};
    for (const auto& row : table) {
        const std::vector<Orb16s> wanted(x.size(), row.wanted);
        EXPECT_TRUE(sameBits(filter.block(x, row.scaleFactor), wanted)) << row.scaleFactor;
        EXPECT_TRUE(sameBits(filter.singly(x, row.scaleFactor), wanted)) << row.scaleFactor;
    }
}

// Infinities saturate, and a NaN is the largest value.
TYPED_TEST(FirMixed, WhatIsNoNumberSaturates) {
    using P = TypeParam;
    using X = typename P::Sample;
    using Given = typename P::Given;
    if constexpr (isInteger<P> && !std::is_integral_v<Given>) {
        using Limits = std::numeric_limits<Part<X>>;
        const Part<Given> infinity = std::numeric_limits<Part<Given>>::infinity();
        const std::pair<Part<Given>, Part<X>> cases[] = {
            {infinity, Limits::max()},
            {-infinity, Limits::lowest()},
            {std::numeric_limits<Part<Given>>::quiet_NaN(), Limits::max()}};
        for (const auto& [value, wanted] : cases) {
            std::vector<Given> taps(1);
            reinterpret_cast<Part<Given>&>(taps[0]) = value;
            std::vector<X> x(20);
            for (X& sample : x) reinterpret_cast<Part<X>&>(sample) = 1;
            Pieces<P> filter(Pieces<P>::caller, taps);
            // Complex: the imaginary part is infinity times 0 in both of its halves' sums.
            for (const auto& y : {filter.block(x), filter.singly(x)})
                for (const X& output : y) EXPECT_EQ(reinterpret_cast<const Part<X>&>(output), wanted) << shown(value);
        }
    }
}

} // namespace
