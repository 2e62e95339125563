#include "iir/iir_member.h"

namespace {

using namespace iir;
using support::Guarded;

using Taps = std::vector<Orb16s>;
using Line = std::vector<Orb32s>;
using Samples = std::vector<Orb16s>;

// The four members of a form.
struct Members {
    Form form;
    decltype(&orbsIIR_Direct_16s) block;
    decltype(&orbsIIR_Direct_16s_I) inPlace;
    decltype(&orbsIIROne_Direct_16s) one;
    decltype(&orbsIIROne_Direct_16s_I) oneInPlace;
};
const Members anyOrder{Form::anyOrder, orbsIIR_Direct_16s, orbsIIR_Direct_16s_I, orbsIIROne_Direct_16s,
                       orbsIIROne_Direct_16s_I};
const Members biQuad{Form::biQuad, orbsIIR_BiQuadDirect_16s, orbsIIR_BiQuadDirect_16s_I, orbsIIROne_BiQuadDirect_16s,
                     orbsIIROne_BiQuadDirect_16s_I};
const Shape shapes[] = {{Form::anyOrder, 1}, {Form::anyOrder, 2}, {Form::anyOrder, 5},
                        {Form::biQuad, 1},   {Form::biQuad, 2},   {Form::biQuad, 4}};
const Members& membersOf(const Shape& shape) {
    return shape.form == Form::biQuad ? biQuad : anyOrder;
}

// ---- Single samples ----

std::int64_t wrapped(std::int64_t v) { // to 32 bits
    return static_cast<Orb32s>(static_cast<Orb32u>(static_cast<std::uint64_t>(v)));
}
std::int64_t floorOf(std::int64_t v, int f) { // v * 2^-f, downwards
    return f < 63 ? v >> f : v >> 63;
}

std::int64_t step(std::int64_t x, const Orb16s* taps, std::size_t N, Orb32s* D) {
    const Orb16s* const a = taps + N + 1;
    const int f = a[0];
    const std::int64_t sum = wrapped(taps[0] * x + D[0]);
    const std::int64_t term = (std::int64_t{1} << (f + 31) % 32) - 1;
    const std::int64_t y = floorOf(wrapped(sum + (floorOf(sum, f) & 1) + term), f);
    for (std::size_t i = 0; i < N; ++i)
        D[i] = static_cast<Orb32s>(wrapped(taps[i + 1] * x - a[i + 1] * y + (i + 1 < N ? D[i + 1] : 0)));
    return y;
}

TEST(IirOneDirect, TakesTheStepsInIntegersThatWrap) {
    for (const Shape& shape : shapes) {
        for (int f = 0; f <= 40; ++f) {
            auto taps = randomVector<Orb16s>(shape.taps(), static_cast<std::uint64_t>(f));
            for (std::size_t s = 0; s < shape.sections(); ++s) {
                taps[shape.a0(s)] = static_cast<Orb16s>((f + 7 * static_cast<int>(s)) % 41);
                // Half of the filters fade: feedback of less than 1.
                if (f % 2)
                    for (std::size_t i = 1; i <= shape.order(); ++i)
                        taps[shape.a0(s) + i] = static_cast<Orb16s>(taps[shape.a0(s) + i] / (1 << 12));
            }
            const auto x = randomVector<Orb16s>(100, 1);
            auto want = randomVector<Orb32s>(shape.delays(), 2);
            Line D = want, inPlace = want;
            for (const Orb16s sample : x) {
                std::int64_t y = sample;
                for (std::size_t s = 0; s < shape.sections(); ++s)
                    y = step(y, &taps[shape.a0(s) - shape.order() - 1], shape.order(), &want[s * shape.order()]);
                Orb16s got = 0, replaced = sample;
                const int size = static_cast<int>(shape.size);
                EXPECT_EQ(membersOf(shape).one(sample, &got, taps.data(), size, D.data()), orbStsNoErr);
                EXPECT_EQ(membersOf(shape).oneInPlace(&replaced, taps.data(), size, inPlace.data()), orbStsNoErr);
                ASSERT_EQ(got, std::clamp<std::int64_t>(y, -32768, 32767)) << shape << ", f = " << f;
                ASSERT_EQ(replaced, got);
                ASSERT_TRUE(sameBits(D, want) && sameBits(inPlace, want)) << shape << ", f = " << f;
            }
        }
    }
}

// By hand: to even, beyond 16 bits in the recursion and on the way to the next section, and f of 0.
TEST(IirOneDirect, RoundsAsDocumented) {
    const auto first = [](Orb16s x, Taps taps, Line D) {
        Orb16s y = 0;
        EXPECT_EQ(orbsIIROne_Direct_16s(x, &y, taps.data(), 1, D.data()), orbStsNoErr);
        return std::pair<int, int>(y, D[0]);
    };
    for (const auto& [x, y] : {std::pair{1, 0}, {3, 2}, {5, 2}, {-1, 0}, {-3, -2}, {7, 4}})
        EXPECT_EQ(first(static_cast<Orb16s>(x), {1, 0, 1, 0}, {0}).first, y) << x;
    EXPECT_EQ(first(32767, {16384, 0, 12, 1}, {0}), std::pair(32767, -131068)); // y is 131068
    // 2^31 - 1 and the low bit of the sum, in 32 bits.
    EXPECT_EQ(first(-6, {1, 0, 0, 1}, {0}), std::pair(32767, -(0x7fffffff - 6)));
    EXPECT_EQ(first(3, {1, 0, 0, 0}, {0}).first, -32768); // 3 + 1 + 2^31 - 1 wraps
    const Taps sections{16384, 0, 0, 12, 0, 0, 1, 0, 0, 2, 0, 0};
    Line D(4);
    Orb16s y = 0;
    EXPECT_EQ(orbsIIROne_BiQuadDirect_16s(32767, &y, sections.data(), 2, D.data()), orbStsNoErr);
    EXPECT_EQ(y, 32767); // 131068 / 4
}

// ---- Blocks ----

std::vector<Orb32f> scaled(const auto& values, const std::vector<int>& exponents) {
    std::vector<Orb32f> floats;
    const std::size_t each = values.size() / exponents.size();
    for (std::size_t k = 0; k < values.size(); ++k)
        floats.push_back(static_cast<Orb32f>(std::ldexp(values[k], -exponents[k / each])));
    return floats;
}

// A block is filtered as by a state with the taps and the delay line in floats, which is then rounded: to nearest, or
// of sections toward 0.
TEST(IirDirect, IsAStateWithFloatTaps) {
    for (const Shape& shape : shapes) {
        for (const int f : {0, 1, 11, 15, 31, 40}) {
            std::vector<int> exponents;
            auto taps = randomVector<Orb16s>(shape.taps(), static_cast<std::uint64_t>(f));
            for (std::size_t s = 0; s < shape.sections(); ++s) {
                exponents.push_back(f + static_cast<int>(s));
                const std::size_t a0 = shape.a0(s);
                taps[a0] = static_cast<Orb16s>(exponents[s]);
                taps[a0 - shape.order() - 1] = static_cast<Orb16s>(taps[a0 - shape.order() - 1] | 1);
                for (std::size_t i = 1; i <= shape.order(); ++i) taps[a0 + i] = static_cast<Orb16s>(taps[a0 + i] / 32);
            }
            auto floats = scaled(taps, exponents);
            for (std::size_t s = 0; s < shape.sections(); ++s) floats[shape.a0(s)] = 1;
            const auto line = randomVector<Orb32s>(shape.delays(), 2);
            for (const std::size_t count : {1u, 8u, 17u, 300u, 1030u}) {
                const auto x = randomVector<Orb16s>(count, 3);
                Filter<Kind32f16s> state(shape, floats, scaled(line, exponents));
                const Samples want = state.block(x);
                Line wantedLine;
                for (const Orb32f d : state.line()) {
                    const auto s = wantedLine.size() / shape.order();
                    const long double v = std::ldexp(static_cast<long double>(d), exponents[s]);
                    const long double whole = shape.form == Form::biQuad ? std::trunc(v) : std::round(v);
                    wantedLine.push_back(!(v >= -0x1p31L) ? std::numeric_limits<Orb32s>::min()
                                                          : static_cast<Orb32s>(std::min(whole, 0x1p31L - 1)));
                }
                Guarded<Orb16s> y(count), inPlace(count);
                std::copy(x.begin(), x.end(), inPlace.begin());
                Line D = line, other = line;
                const int len = static_cast<int>(count), size = static_cast<int>(shape.size);
                EXPECT_EQ(membersOf(shape).block(x.data(), y.data(), len, taps.data(), size, D.data()), orbStsNoErr);
                EXPECT_EQ(membersOf(shape).inPlace(inPlace.data(), len, taps.data(), size, other.data()), orbStsNoErr);
                EXPECT_TRUE(sameBits(y, want, x) && y.intact()) << shape << ", f = " << f;
                EXPECT_TRUE(sameBits(inPlace, want, x) && inPlace.intact()) << shape << ", f = " << f;
                EXPECT_TRUE(sameBits(D, wantedLine) && sameBits(other, wantedLine)) << shape << ", f = " << f;
            }
        }
    }
}

// By hand, a sample through one delay: D = b1 * x - a1 * y, with y = b0 * x * 2^-f.
TEST(IirDirect, RoundsTheDelayLine) {
    const auto delayBehind = [](const Members& members, Orb16s x, Orb16s b0, Orb16s b1, Orb16s f, Orb16s a1) {
        const Taps taps = members.form == Form::biQuad ? Taps{b0, b1, 0, f, a1, 0} : Taps{b0, b1, f, a1};
        Line D(2);
        Orb16s y = 0;
        EXPECT_EQ(members.block(&x, &y, 1, taps.data(), 1, D.data()), orbStsNoErr);
        return D[0];
    };
    for (const auto& [x, nearest, towardZero] :
         {std::tuple{1, -1, 0}, {-1, 1, 0}, {3, -2, -1}, {-3, 2, 1}, {5, -3, -2}, {2, -1, -1}}) { // -x / 2
        EXPECT_EQ(delayBehind(anyOrder, static_cast<Orb16s>(x), 1, 0, 1, 1), nearest) << x;
        EXPECT_EQ(delayBehind(biQuad, static_cast<Orb16s>(x), 1, 0, 1, 1), towardZero) << x;
    }
    constexpr Orb32s most = std::numeric_limits<Orb32s>::max(), least = std::numeric_limits<Orb32s>::min();
    for (const Members& members : {anyOrder, biQuad}) {
        EXPECT_EQ(delayBehind(members, -32768, -32768, -32768, 15, -32768), most); // 2^31
        EXPECT_EQ(delayBehind(members, -32768, -32768, -32764, 15, -32768), 2147352576);
        EXPECT_EQ(delayBehind(members, -32768, -32768, -32768, 10, -32768), most);
        EXPECT_EQ(delayBehind(members, -32768, -32768, 32767, 12, 32767), least);
        EXPECT_EQ(delayBehind(members, -32768, 16384, 16384, 14, -32768), -1610612736);
    }
}

// ---- Refusals beyond those that the sweep tries ----

// An exponent below 0, and in blocks of a cascade a b0 of 0, in any section; nothing is written.
TEST(IirDirect, BadSectionsAreRefused) {
    const Samples x = randomVector<Orb16s>(20);
    for (const std::size_t bad : {0u, 1u, 2u}) {
        const auto expect = [&](std::size_t at, Orb16s value, OrbStatus ofBlocks, OrbStatus ofOne) {
            Taps taps(18, 1);
            taps[6 * bad + at] = value;
            Line D(6, 9);
            Samples y(20, 9);
            EXPECT_EQ(orbsIIR_BiQuadDirect_16s(x.data(), y.data(), 20, taps.data(), 3, D.data()), ofBlocks);
            EXPECT_TRUE(sameBits(y, Samples(20, 9)) && sameBits(D, Line(6, 9)));
            EXPECT_EQ(orbsIIROne_BiQuadDirect_16s(5, y.data(), taps.data(), 3, D.data()), ofOne);
            EXPECT_EQ(sameBits(D, Line(6, 9)), ofOne != orbStsNoErr);
        };
        expect(3, -1, orbStsIIRScaleErr, orbStsIIRScaleErr);
        expect(0, 0, orbStsDivByZeroErr, orbStsNoErr);
        expect(3, 200, orbStsDivByZeroErr, orbStsNoErr); // 2^-200 is 0 as Orb32f
    }
    const Taps taps{0, 1, 3, 1};
    Line D(1);
    Samples y(20);
    EXPECT_EQ(orbsIIR_Direct_16s(x.data(), y.data(), 20, taps.data(), 1, D.data()), orbStsNoErr); // b[0] may be 0
}

TEST(IirDirect, TooLargeFiltersAreRefused) {
    const Orb16s x = 1;
    Orb16s y = 0;
    Guarded<Orb16s> taps(0);
    Guarded<Orb32s> line(0);
    for (const int size : {1 << 28, 1 << 30, 0x7fffffff}) {
        EXPECT_EQ(orbsIIR_Direct_16s(&x, &y, 1, taps.data(), size, line.data()), orbStsMemAllocErr);
        EXPECT_EQ(orbsIIR_BiQuadDirect_16s(&x, &y, 1, taps.data(), size, line.data()), orbStsMemAllocErr);
    }
}

} // namespace
