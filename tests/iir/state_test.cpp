#include "iir/iir_member.h"
#include "support/stride.h"

#include <cstring>

namespace {

using namespace iir;
using support::Guarded;

template <class K>
class IirState : public iir::Test<K> {};
TYPED_TEST_SUITE(IirState, Kinds);

// ---- Sizes ----

std::int64_t r16(std::int64_t x) {
    return (x + 15) & ~std::int64_t{15};
}
// The bytes agreed upon, or -1 where none are: for a cascade of complex sections in double precision, and any order.
template <class K>
std::int64_t agreedSize(Form form, std::int64_t n) {
    constexpr bool isDouble = sizeof(Real<K>) == 8, complex = isComplexKind<K>;
    const std::int64_t W = K::isScaled || sizeof(Part<typename K::Sample>) != sizeof(Real<K>) ? 2048 : 1024;
    if (form == Form::biQuad) {
        if (isDouble && complex) return -1;
        if (isDouble) return (32 * n + W) * 8 + 48 + 16 * (((40 * n + 15) >> 4) + n);
        if (complex) return (92 * n + W) * 8 + 48 + r16(40 * n) + 16 * n + 16;
        return (W + 40 * n + 10) * 4 + 48 + r16(20 * n) + r16(8 * n) + 16;
    }
    if (isDouble && complex) return -1;
    if (isDouble) return (4 * n + 12 + 2 * n + 2 + W) * 8 + 48 + r16(8 * (2 * n + 1)) + r16(8 * (n + 1));
    if (complex)
        return (8 * n + 24 + (4 * n + 4) + (4 * n + 8) + W + 10) * 8 + 48 + r16(8 * (2 * n + 1)) + r16(8 * (n + 1));
    return (8 * n + 16 + W + 10) * 4 + 48 + r16(8 * n + 4) + r16(4 * n + 4) + 16;
}

// Modulo 2^32, far beyond any order in use.
TYPED_TEST(IirState, SizesAreThoseAgreedUpon) {
    using K = TypeParam;
    std::vector<std::size_t> sizes{1000, 12345, 1000000, 20000000, 100000000};
    for (std::size_t n = 1; n <= 200; ++n) sizes.push_back(n);
    for (const Form form : forms) {
        for (const std::size_t n : sizes) {
            const std::int64_t agreed = agreedSize<K>(form, static_cast<std::int64_t>(n));
            const int told = stateSize<K>({form, n});
            if (agreed >= 0) { EXPECT_EQ(told, static_cast<int>(static_cast<Orb32u>(agreed))) << n; }
        }
    }
}

// Nothing is read and nothing is written.
TYPED_TEST(IirState, TooLargeOnesAreRefused) {
    using K = TypeParam;
    Guarded<typename K::Tap> taps(1);
    Guarded<Orb8u> buffer(0);
    typename K::State* state = nullptr;
    for (const std::size_t n : {100000000u, 1u << 29, (1u << 30) + 7, 0x7fffffffu}) {
        for (const Form form : forms) {
            EXPECT_EQ(build<K>(&state, {form, n}, taps.data(), nullptr, buffer.data()), orbStsMemAllocErr) << n;
            EXPECT_EQ(build<K>(&state, {form, n}, taps.data(), nullptr, nullptr), orbStsMemAllocErr) << n;
        }
    }
    EXPECT_EQ(state, nullptr);
}

// A block of exactly the reported size, at any alignment: small ones at each.
TYPED_TEST(IirState, StaysWithinTheReportedSize) {
    using K = TypeParam;
    std::vector<std::size_t> sizes{301, 1000};
    for (std::size_t n = 1; n <= 200; n += static_cast<std::size_t>(support::stride)) sizes.push_back(n);
    for (const Form form : forms) {
        for (const std::size_t n : sizes) {
            const Shape shape{form, n};
            const auto taps = fadingTaps<K>(shape, 0.5, n);
            const auto line = randomLine<K>(shape, n);
            for (std::size_t shift = n > 9 ? n % 16 : 0; shift<16; shift += n> 9 ? 16 : 1) {
                const Guarded<Orb8u> buffer(static_cast<std::size_t>(stateSize<K>(shape)), support::Edge::end, shift);
                typename K::State* state = nullptr;
                ASSERT_EQ(build<K>(&state, shape, taps.data(), line.data(), buffer.data()), orbStsNoErr) << shape;
                ASSERT_GE(reinterpret_cast<Orb8u*>(state), buffer.data());
                ASSERT_EQ(reinterpret_cast<std::uintptr_t>(state) % 16, 0u);
                std::vector<typename K::Sample> x(std::max<std::size_t>(4 * n + 5, 1030));
                for (const std::size_t count : {std::size_t{3}, x.size()}) {
                    if constexpr (K::isScaled) {
                        K::inPlace(x.data(), static_cast<int>(count), state, 0);
                    } else {
                        K::inPlace(x.data(), static_cast<int>(count), state);
                    }
                }
                if constexpr (!K::hasTapsFactor) K::setTaps(taps.data(), state);
                K::setDlyLine(state, nullptr);
                ASSERT_TRUE(buffer.intact()) << shape << ", shift " << shift;
            }
        }
    }
}

// ---- Tags ----

// Four letters, most significant byte first: 'I', 'I', and two digits of the pair and the structure.
template <class... K>
void expectTags() {
    int pair = 0;
    const auto expect = [&]<class Kind>(Kind) {
        for (const Form form : forms) {
            const Shape shape{form, 2};
            const Filter<Kind> filter(shape, fadingTaps<Kind>(shape, 0.5, 1));
            Orb32s tag;
            std::memcpy(&tag, static_cast<void*>(filter.state()), sizeof tag);
            const int number = 2 * pair + 1 + (form == Form::biQuad);
            EXPECT_EQ(tag, 0x49493030 + number / 10 * 0x100 + number % 10) << nameOf(Kind::block) << ", " << shape;
        }
        ++pair;
    };
    (expect(K()), ...);
}
TEST(IirStateTag, TellsThePairAndTheStructure) {
    expectTags<Kind32f, Kind32fc, Kind32f16s, Kind32fc16sc, Kind32s16s, Kind32sc16sc, Kind64f, Kind64fc, Kind64f32f,
               Kind64fc32fc, Kind64f32s, Kind64fc32sc, Kind64f16s, Kind64fc16sc>();
}

// ---- Delay line ----

TYPED_TEST(IirState, TheLineComesBackBitForBit) {
    using K = TypeParam;
    using Delay = typename K::Delay;
    for (const Shape shape : {Shape{Form::anyOrder, 1}, Shape{Form::anyOrder, 9}, Shape{Form::biQuad, 5}}) {
        auto line = randomLine<K>(shape, 1);
        // A NaN with a payload, an infinity, the least denormal and -0, by their bits.
        using Word = std::conditional_t<sizeof(Part<Delay>) == 8, Orb64u, Orb32u>;
        constexpr Word sign = Word{1} << (8 * sizeof(Word) - 1);
        const auto infinity = std::bit_cast<Word>(std::numeric_limits<Real<K>>::infinity());
        const Word special[] = {infinity + infinity / 1000, infinity, 1, sign};
        std::memcpy(line.data(), special, std::min(sizeof special, line.size() * sizeof(Delay)));
        for (const auto where : {Filter<K>::caller, Filter<K>::allocated}) {
            Filter<K> filter(shape, fadingTaps<K>(shape, 0.5, 1), line, where);
            EXPECT_TRUE(sameBits(filter.line(), line)) << shape;
            EXPECT_EQ(K::setDlyLine(filter.state(), nullptr), orbStsNoErr);
            EXPECT_TRUE(sameBits(filter.line(), std::vector<Delay>(shape.delays()))) << shape;
            EXPECT_EQ(K::setDlyLine(filter.state(), line.data()), orbStsNoErr);
            const Guarded<Delay> got(shape.delays());
            EXPECT_EQ(K::getDlyLine(filter.state(), got.data()), orbStsNoErr);
            EXPECT_TRUE(got.intact() && sameBits(got, line)) << shape;
        }
    }
}

// ---- Taps ----

// Sets taps where the members report success by it.
template <class K>
constexpr bool setTapsSucceeds = !std::is_same_v<typename K::State, OrbsIIRState32sc_16sc> && !K::hasTapsFactor;

template <class K>
OrbStatus setTaps(const typename K::Tap* taps, typename K::State* state) {
    if constexpr (K::hasTapsFactor) {
        return K::setTaps(taps, state, tapsFactor);
    } else {
        return K::setTaps(taps, state);
    }
}

// A filter whose taps were replaced is the filter that was made with them, on all its ways. Members that report a
// foreign state whatever they did replace them, or, of complex integers, do not.
TYPED_TEST(IirState, ReplacedTapsTakeEffectEverywhere) {
    using K = TypeParam;
    constexpr bool replaces = !std::is_same_v<typename K::State, OrbsIIRState32sc_16sc>;
    for (const Shape shape :
         {Shape{Form::anyOrder, 1}, Shape{Form::anyOrder, 6}, Shape{Form::biQuad, 1}, Shape{Form::biQuad, 7}}) {
        SCOPED_TRACE(testing::Message() << shape);
        const auto before = fadingTaps<K>(shape, 0.5, 1), after = fadingTaps<K>(shape, 0.5, 2);
        const auto x = randomVector<typename K::Sample>(1100, 3);
        Filter<K> changed(shape, before);
        changed.block(x, 4);
        EXPECT_EQ(setTaps<K>(after.data(), changed.state()), setTapsSucceeds<K> ? orbStsNoErr : orbStsContextMatchErr);
        Filter<K> fresh(shape, replaces ? after : before, changed.line());
        EXPECT_TRUE(sameBits(changed.singly(slice(x, 0, 50), 4), fresh.singly(slice(x, 0, 50), 4)));
        EXPECT_TRUE(sameBits(changed.block(x, 4), fresh.block(x, 4)));
    }
}

// Refused for any order: a[0] of 0 and no number. In a section b[0] of 0 as well, with the sections before it replaced.
TYPED_TEST(IirState, ZerosAreRefused) {
    using K = TypeParam;
    const Wide zero{0, 0}, minusZero{-0.0L, 0}, nan{NAN, 0};
    for (const Form form : forms) {
        const Shape shape{form, 3};
        const auto good = fadingTaps<K>(shape, 0.5, 1), other = fadingTaps<K>(shape, 0.5, 2);
        const auto expectRefused = [&](std::size_t at, Wide w) {
            if (K::hasTapsFactor && w.re != w.re) return;
            SCOPED_TRACE(testing::Message() << shape << ", tap " << at << " is " << w.re);
            auto bad = other;
            bad[at] = narrow<typename K::Tap>(w);
            std::vector<Orb8u> buffer(static_cast<std::size_t>(stateSize<K>(shape)));
            typename K::State* state = nullptr;
            EXPECT_EQ(build<K>(&state, shape, bad.data(), nullptr, buffer.data()), orbStsDivByZeroErr);
            EXPECT_EQ(build<K>(&state, shape, bad.data(), nullptr, nullptr), orbStsDivByZeroErr);
            EXPECT_EQ(state, nullptr);
            if (std::is_same_v<typename K::State, OrbsIIRState32sc_16sc>) return;
            auto mixed = good;
            const std::size_t replaced = form == Form::biQuad ? at / 6 * 6 : 0;
            std::copy_n(other.begin(), replaced, mixed.begin());
            const auto x = randomVector<typename K::Sample>(50, 3);
            Filter<K> changed(shape, good), fresh(shape, mixed);
            EXPECT_EQ(setTaps<K>(bad.data(), changed.state()),
                      setTapsSucceeds<K> ? orbStsDivByZeroErr : orbStsContextMatchErr);
            EXPECT_TRUE(sameBits(changed.block(x, 4), fresh.block(x, 4)));
            EXPECT_TRUE(sameBits(changed.singly(x, 4), fresh.singly(x, 4)));
        };
        for (const Wide& w : {zero, minusZero, nan})
            for (std::size_t s = 0; s < shape.sections(); ++s) expectRefused(shape.a0(s), w);
        if (form == Form::biQuad) {
            for (const Wide& w : {zero, minusZero})
                for (const std::size_t at : {0u, 6u, 12u}) expectRefused(at, w);
        } else {
            auto taps = good;
            taps[0] = {};
            const auto line = randomLine<K>(shape, 4);
            const auto x = randomVector<typename K::Sample>(50, 3);
            expectOutputs<K>(Filter<K>(shape, taps, line).block(x), exactly<K>(shape, taps, line, x, rounding<K>()),
                             shape);
        }
    }
}

// A tap of integers counts 2^-tapsFactor.
TEST(IirStateIntegerTaps, AreThoseTimesAPowerOfTwo) {
    const Shape shape{Form::anyOrder, 1};
    const Orb32s taps[] = {(3 << 20) + 1, -5 << 18, 1 << 21, 77777};
    const auto x = randomVector<Orb16s>(40);
    for (const int factor : {0, 20, 31, -5, -60, 100}) {
        std::vector<Orb32f> floats;
        for (const Orb32s t : taps) floats.push_back(static_cast<Orb32f>(std::ldexp(t, -factor)));
        std::vector<Orb8u> buffer(static_cast<std::size_t>(stateSize<Kind32s16s>(shape)));
        OrbsIIRState32s_16s* state = nullptr;
        ASSERT_EQ(build<Kind32s16s>(&state, shape, taps, nullptr, buffer.data(), factor), orbStsNoErr);
        std::vector<Orb16s> y(x.size());
        EXPECT_EQ(orbsIIR32s_16s_Sfs(x.data(), y.data(), 40, state, 0), orbStsNoErr);
        Filter<Kind32s16s32f> wanted(shape, floats);
        EXPECT_TRUE(sameBits(y, wanted.block(x), x)) << factor;
    }
}

// ---- Life ----

TYPED_TEST(IirState, LivesOnInACopyOfItsBlock) {
    using K = TypeParam;
    using Sample = typename K::Sample;
    for (const Form form : forms) {
        const Shape shape{form, 5};
        const auto taps = fadingTaps<K>(shape, 0.9, 1), other = fadingTaps<K>(shape, 0.5, 2);
        const auto x = randomVector<Sample>(2100, 3);
        Filter<K> untouched(shape, taps);
        const auto first = untouched.block(x, 4);
        const auto size = static_cast<std::size_t>(stateSize<K>(shape));
        std::vector<Orb8u> buffer(size);
        typename K::State* state = nullptr;
        ASSERT_EQ(build<K>(&state, shape, taps.data(), nullptr, buffer.data()), orbStsNoErr);
        const auto run = [&](Sample* y) {
            if constexpr (K::isScaled) {
                EXPECT_EQ(K::block(x.data(), y, 2100, state, 4), orbStsNoErr);
            } else {
                EXPECT_EQ(K::block(x.data(), y, 2100, state), orbStsNoErr);
            }
        };
        std::vector<Sample> y(x.size());
        run(y.data());
        EXPECT_TRUE(sameBits(y, first)) << shape;

        Orb8u* const block = orbsMalloc_8u(static_cast<int>(size));
        std::memcpy(block, static_cast<void*>(state),
                    size - static_cast<std::size_t>(reinterpret_cast<Orb8u*>(state) - buffer.data()));
        std::fill(buffer.begin(), buffer.end(), Orb8u{0xff});
        state = reinterpret_cast<typename K::State*>(block);
        run(y.data());
        EXPECT_TRUE(sameBits(y, untouched.block(x, 4))) << shape;
        setTaps<K>(other.data(), state);
        setTaps<K>(other.data(), untouched.state());
        run(y.data());
        EXPECT_TRUE(sameBits(y, untouched.block(x, 4))) << shape;
        EXPECT_EQ(K::free(state), orbStsNoErr); // no effect: it was built in a caller's block
        run(y.data());
        EXPECT_TRUE(sameBits(y, untouched.block(x, 4))) << shape;
        orbsFree(block);
    }
}

} // namespace
