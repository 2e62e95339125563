#include "fir/fir_member.h"

#include <numeric>

namespace {

using namespace fir;
using support::Edge;
using support::Guarded;

template <class TapType, class SampleType>
struct Direct;

#define DIRECT_MEMBERS(tap, sample, name, scaled, inPlaceScaled)                                                       \
    template <>                                                                                                        \
    struct Direct<Orb##tap, Orb##sample> {                                                                             \
        using Tap = Orb##tap;                                                                                          \
        using Sample = Orb##sample;                                                                                    \
        static constexpr auto block = orbsFIR##name##scaled;                                                           \
        static constexpr auto inPlace = orbsFIR##name##inPlaceScaled;                                                  \
        static constexpr auto one = orbsFIROne##name##scaled;                                                          \
        static constexpr auto oneInPlace = orbsFIROne##name##inPlaceScaled;                                            \
    }
DIRECT_MEMBERS(32f, 32f, _Direct_32f, , _I);
DIRECT_MEMBERS(32fc, 32fc, _Direct_32fc, , _I);
DIRECT_MEMBERS(64f, 64f, _Direct_64f, , _I);
DIRECT_MEMBERS(64fc, 64fc, _Direct_64fc, , _I);
DIRECT_MEMBERS(32f, 16s, 32f_Direct_16s, _Sfs, _ISfs);
DIRECT_MEMBERS(32fc, 16sc, 32fc_Direct_16sc, _Sfs, _ISfs);
DIRECT_MEMBERS(64f, 32f, 64f_Direct_32f, , _I);
DIRECT_MEMBERS(64fc, 32fc, 64fc_Direct_32fc, , _I);
DIRECT_MEMBERS(64f, 32s, 64f_Direct_32s, _Sfs, _ISfs);
DIRECT_MEMBERS(64fc, 32sc, 64fc_Direct_32sc, _Sfs, _ISfs);
DIRECT_MEMBERS(64f, 16s, 64f_Direct_16s, _Sfs, _ISfs);
DIRECT_MEMBERS(64fc, 16sc, 64fc_Direct_16sc, _Sfs, _ISfs);
#undef DIRECT_MEMBERS

template <class M>
class FirDirect : public testing::Test {
    testing::ScopedTrace trace_{"members of the types of", 0, nameOf(M::block)};
};
using DirectTypes =
    testing::Types<Direct<Orb32f, Orb32f>, Direct<Orb32fc, Orb32fc>, Direct<Orb64f, Orb64f>, Direct<Orb64fc, Orb64fc>,
                   Direct<Orb32f, Orb16s>, Direct<Orb32fc, Orb16sc>, Direct<Orb64f, Orb32f>, Direct<Orb64fc, Orb32fc>,
                   Direct<Orb64f, Orb32s>, Direct<Orb64fc, Orb32sc>, Direct<Orb64f, Orb16s>, Direct<Orb64fc, Orb16sc>>;
TYPED_TEST_SUITE(FirDirect, DirectTypes);

template <class X>
constexpr bool isInteger = std::is_integral_v<Part<X>>;

// member(arguments...), with a scale factor if it takes one.
template <class X, class... Arguments>
OrbStatus call(auto member, int scaleFactor, Arguments... arguments) {
    if constexpr (isInteger<X>) return member(arguments..., scaleFactor);
    if constexpr (!isInteger<X>) return member(arguments...);
}

// A sum as an output: rounded to a float, or scaled and rounded half away from zero, the scale factor modulo 128.
template <class X, class Sum>
X output(Sum sum, int scaleFactor) {
    if constexpr (!std::is_integral_v<X>) return static_cast<X>(sum);
    using Limits = std::numeric_limits<X>;
    Sum m = std::ldexp(Sum{1}, -(scaleFactor % 128));
    if (std::is_same_v<Sum, Orb32f> && scaleFactor > 0 && scaleFactor % 128 == 127) m = 0;
    const long double scaled = sum * m;
    if (!(scaled >= Limits::lowest())) return Limits::lowest(); // of a NaN too
    if (scaled > Limits::max()) return Limits::max();
    return static_cast<X>(static_cast<double>(scaled) + (scaled < 0 ? -0.5 : 0.5));
}

// One step, as it is documented.
template <class T, class X>
X step(X src, const std::vector<T>& taps, std::vector<X>& line, int& index, int scaleFactor) {
    using R = Part<T>;
    using Sum = std::conditional_t<isInteger<X>, R, double>;
    const auto tapsLen = static_cast<int>(taps.size());
    const auto at = [&](int n) -> X& { return line[static_cast<std::size_t>(n)]; };
    at(index) = at(index + tapsLen) = src;
    index = (index + 1) % tapsLen;
    if constexpr (isComplex<T>) {
        Sum byRe[2] = {}, byIm[2] = {};
        for (int k = 0; k < tapsLen; ++k) {
            const T h = taps[static_cast<std::size_t>(tapsLen - 1 - k)];
            const T x = {static_cast<R>(at(index + k).re), static_cast<R>(at(index + k).im)};
            byRe[0] += R(h.re * x.re), byRe[1] += R(h.re * x.im);
            byIm[0] += R(h.im * x.re), byIm[1] += R(h.im * x.im);
        }
        return {output<Part<X>>(byRe[0] - byIm[1], scaleFactor), output<Part<X>>(byRe[1] + byIm[0], scaleFactor)};
    } else {
        Sum sum = 0;
        for (int k = 0; k < tapsLen; ++k)
            sum += T(taps[static_cast<std::size_t>(tapsLen - 1 - k)] * static_cast<T>(at(index + k)));
        return output<X>(sum, scaleFactor);
    }
}

TYPED_TEST(FirDirect, BlocksAndSinglesTakeTheSameSteps) {
    using M = TypeParam;
    using T = typename M::Tap;
    using X = typename M::Sample;
    for (const int tapsLen : {1, 2, 3, 8, 12, 37, 600}) {
        for (const int start : {0, 1, tapsLen - 2, tapsLen - 1}) {
            if (start < 0 || start >= tapsLen) continue;
            const int scale = isInteger<X> ? (tapsLen + start) % 5 - 1 : 0;
            const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
            const auto x = randomVector<X>(tapsLen > 100 ? 900 : 200, 2);
            // Both halves are filled on their own: which of them a step reads is part of its definition.
            const auto line = randomVector<X>(2 * taps.size(), 3);
            auto wantedLine = line;
            int wantedIndex = start;
            std::vector<X> wanted;
            for (X src : x) wanted.push_back(step(src, taps, wantedLine, wantedIndex, scale));

            enum { blocks, blocksInPlace, singles, singlesInPlace };
            for (const int how : {blocks, blocksInPlace, singles, singlesInPlace}) {
                Guarded<X> got(line.size()), y(x.size());
                std::copy(line.begin(), line.end(), got.begin());
                std::copy(x.begin(), x.end(), y.begin());
                int index = start;
                const T* const h = taps.data();
                for (int n = 0, count = 1, end = static_cast<int>(x.size()); n < end; n += count) {
                    const X* const from = &x[static_cast<std::size_t>(n)];
                    X* const to = &y[static_cast<std::size_t>(n)];
                    count = how >= singles ? 1 : std::min(end - n, 2 * count + 7);
                    const OrbStatus status =
                        how == blocks ? call<X>(M::block, scale, from, to, count, h, tapsLen, got.data(), &index)
                        : how == blocksInPlace ? call<X>(M::inPlace, scale, to, count, h, tapsLen, got.data(), &index)
                        : how == singles       ? call<X>(M::one, scale, *from, to, h, tapsLen, got.data(), &index)
                                               : call<X>(M::oneInPlace, scale, to, h, tapsLen, got.data(), &index);
                    EXPECT_EQ(status, orbStsNoErr);
                }
                const auto called = [=] {
                    static constexpr const char* ways[] = {"blocks", "blocks in place", "singles", "singles in place"};
                    return testing::Message() << tapsLen << " taps from index " << start << ", by " << ways[how];
                };
                EXPECT_TRUE(sameBits(y, wanted, x)) << called();
                EXPECT_TRUE(sameBits(got, wantedLine)) << "the line, " << called();
                EXPECT_EQ(index, wantedIndex);
                EXPECT_TRUE(got.intact() && y.intact());
            }
        }
    }
}

// Halves, ends of the range, and scale factors of every size and sign: one tap of 1, whose sum is the sample.
TYPED_TEST(FirDirect, OutputsAreRoundedHalfAwayFromZeroAndSaturated) {
    using M = TypeParam;
    using T = typename M::Tap;
    using X = typename M::Sample;
    if constexpr (isInteger<X>) {
        using Limits = std::numeric_limits<Part<X>>;
        std::vector<X> x(20);
        auto* const part = reinterpret_cast<Part<X>*>(x.data());
        for (Part<X> n = 0; n < 14; ++n) part[n] = static_cast<Part<X>>(n - 7);
        part[14] = Limits::max(), part[15] = Limits::lowest(), part[16] = Limits::max() / 2 + 1, part[17] = -12345;
        const Part<T> values[] = {1, Part<T>(-0.5), std::numeric_limits<Part<T>>::infinity(),
                                  std::numeric_limits<Part<T>>::quiet_NaN()};
        for (const Part<T> value : values) {
            std::vector<T> tap(1);
            reinterpret_cast<Part<T>&>(tap[0]) = value;
            for (const int scale : support::scaleFactors(-140, 140)) {
                std::vector<X> line(2), got(x.size()), lineGot(2);
                int index = 0, indexGot = 0;
                EXPECT_EQ(call<X>(M::block, scale, x.data(), got.data(), 20, tap.data(), 1, lineGot.data(), &indexGot),
                          orbStsNoErr);
                std::vector<X> wanted;
                for (X src : x) wanted.push_back(step(src, tap, line, index, scale));
                ASSERT_TRUE(sameBits(got, wanted, x)) << "scale factor " << scale << ", tap " << shown(value);
            }
        }
    }
}

// 1 + 2^-24 and -1 leave 2^-24 in a sum of doubles, 0 in one of singles.
TEST(FirDirectSingle, SumsAreDouble) {
    const Orb32f taps[] = {1, 1, 1}, x[] = {-1, 0x1p-24f, 1};
    Orb32f line[6] = {}, y[3];
    int index = 0;
    ASSERT_EQ(orbsFIR_Direct_32f(x, y, 3, taps, 3, line, &index), orbStsNoErr);
    EXPECT_EQ(y[2], 0x1p-24f);
}

// Where samples are integers, sums are as the taps are: 2^-24 is lost beside 1.
TEST(FirDirectSingle, SumsToIntegersAreSingle) {
    const Orb32f taps[] = {-1, 0x1p-24f, 1};
    const Orb16s x[] = {1, 1, 1};
    Orb16s line[6] = {}, y[3];
    int index = 0;
    ASSERT_EQ(orbsFIR32f_Direct_16s_Sfs(x, y, 3, taps, 3, line, &index, -24), orbStsNoErr);
    EXPECT_EQ(y[2], 0);
}

TYPED_TEST(FirDirect, AWrongPositionIsTakenAsTheStart) {
    using M = TypeParam;
    using X = typename M::Sample;
    const auto taps = randomVector<typename M::Tap>(4);
    const auto x = randomVector<X>(9);
    const auto block = [&](X* y, X* line, int* index) {
        EXPECT_EQ(call<X>(M::block, 0, x.data(), y, 9, taps.data(), 4, line, index), orbStsNoErr);
    };
    for (const int wrong : {4, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        Guarded<X> line(8), behind(8, Edge::begin), wanted(8), y(9), z(9);
        for (X* D : {line.data(), behind.data(), wanted.data()}) std::fill_n(D, 8, X{});
        int right = 0, index = wrong, alike = wrong;
        block(z.data(), wanted.data(), &right);
        block(y.data(), line.data(), &index);
        EXPECT_TRUE(sameBits(y.data(), z.data(), 9));
        EXPECT_EQ(index, right);
        EXPECT_EQ(call<X>(M::one, 0, x[0], y.data(), taps.data(), 4, behind.data(), &alike), orbStsNoErr);
        EXPECT_EQ(alike, 1);
        EXPECT_TRUE(line.intact() && behind.intact());
    }
}

} // namespace
