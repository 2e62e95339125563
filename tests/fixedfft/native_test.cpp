// Transforms of up to 8 points in integer arithmetic against sums of exact integers.
#include "orbs.h"

#include "support/compare.h"
#include "support/member.h"

#include <array>

namespace {

using support::callOf;
using Wide = std::int64_t;

constexpr int flags[] = {ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE};
constexpr Orb16s corners[] = {-32768, 32767, 0, -1, 1, 16384};

struct Exact {
    Wide re, im;
};

// Of eighths of a turn; those of odd ones times the root of 2.
constexpr int cosine[] = {1, 1, 0, -1, -1, -1, 0, 1}, sine[] = {0, 1, 1, 1, 0, -1, -1, -1};

// The sum over n of x[n] exp(-i 2 pi k n / 8 * turn): eighth turns an odd number of times are collected apart and times
// 11585 / 2^14, to nearest with halves up; turned by another half, the product changes its sign.
Exact eighths(const std::vector<Exact>& x, int k, int turn) {
    Exact plain{}, diagonal{};
    for (int n = 0; n < static_cast<int>(x.size()); ++n) {
        const int eighth = (k * n * turn) % 8 - (k * n * turn % 2 != 0 && k >= 4 ? 4 : 0), at = (eighth + 8) % 8;
        Exact& sum = eighth % 2 == 0 ? plain : diagonal;
        const Exact& v = x[static_cast<std::size_t>(n)];
        sum.re += v.re * cosine[at] + v.im * sine[at];
        sum.im += v.im * cosine[at] - v.re * sine[at];
    }
    const Wide sign = k >= 4 ? -1 : 1;
    const auto product = [=](Wide v) { return sign * ((v * 11585 + 8192) >> 14); };
    return {plain.re + product(diagonal.re), plain.im + product(diagonal.im)};
}

// The factors of flag and scale factor, of a value that has 15 - coreOrder bits behind the point.
Orb16s scaled(Wide v, int order, int coreOrder, int flag, bool inverse, int s) {
    const bool byFlag = flag == (inverse ? ORB_FFT_SCALE_INV : ORB_FFT_SCALE_FWD), byRoot = flag == ORB_FFT_SCALE_SQRT;
    if (byRoot && order % 2 != 0) v = (v * 23170 + (1 << 14)) >> 15;
    const int shift = 15 - coreOrder + (byFlag ? order : byRoot ? order / 2 : 0);
    return member::scaledTo<Orb16s>(v, std::clamp(s, -1000, 1000) + shift);
}

template <class Spec, class Run>
void withObject(OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm), OrbStatus (*release)(Spec*), int order, int flag,
                OrbHintAlgorithm hint, Run run) {
    Spec* spec = nullptr;
    ASSERT_EQ(init(&spec, order, flag, hint), orbStsNoErr);
    run(spec);
    release(spec);
}

// Random numbers, and each vector of a few corners.
template <class T>
std::vector<std::vector<T>> inputs(std::size_t count) {
    std::vector<std::vector<T>> all;
    for (std::uint64_t seed = 0; seed < 24; ++seed) all.push_back(support::randomVector<T>(count, seed));
    for (unsigned pattern = 0; pattern < 1u << 10; ++pattern) {
        std::vector<T> v(count);
        for (std::size_t n = 0; n < count; ++n)
            v[n] = corners[(pattern >> n % 10 & 1) + (pattern % 7 == 3 ? n * pattern % 5 : 0)];
        all.push_back(v);
    }
    return all;
}

const std::vector<int> scales = [] {
    auto all = support::scaleFactors(-18, 4);
    all.insert(all.end(), {16, 17, 18, 19, 20, 32, 33, 48, 49});
    return all;
}();

// Interleaved points and planes, which give the same.
void expectComplex(int order, int flag, OrbHintAlgorithm hint, bool inverse) {
    const auto points = std::size_t{1} << order;
    withObject(orbsFFTInitAlloc_C_16sc, orbsFFTFree_C_16sc, order, flag, hint, [&](OrbsFFTSpec_C_16sc* spec) {
        withObject(orbsFFTInitAlloc_C_16s, orbsFFTFree_C_16s, order, flag, hint, [&](OrbsFFTSpec_C_16s* planeSpec) {
            std::size_t turn = 0;
            for (const auto& x : inputs<Orb16s>(2 * points)) {
                const int s = scales[turn++ % scales.size()];
                std::vector<Exact> samples(points);
                for (std::size_t n = 0; n < points; ++n) {
                    const auto at = inverse ? (points - n) % points : n;
                    const Wide factor = Wide{1} << (15 - order);
                    samples[at] = {x[2 * n] * factor, x[2 * n + 1] * factor};
                }
                std::vector<Orb16s> want(2 * points), got(2 * points), re(points), im(points), gotRe(points),
                    gotIm(points), wantRe(points), wantIm(points);
                for (std::size_t k = 0; k < points; ++k) {
                    const Exact point = eighths(samples, static_cast<int>(k), 8 >> order);
                    wantRe[k] = want[2 * k] = scaled(point.re, order, order, flag, inverse, s);
                    wantIm[k] = want[2 * k + 1] = scaled(point.im, order, order, flag, inverse, s);
                    re[k] = x[2 * k], im[k] = x[2 * k + 1];
                }
                const auto transform = inverse ? orbsFFTInv_CToC_16sc_Sfs : orbsFFTFwd_CToC_16sc_Sfs;
                ASSERT_EQ(transform(reinterpret_cast<const Orb16sc*>(x.data()), reinterpret_cast<Orb16sc*>(got.data()),
                                    spec, s, nullptr),
                          orbStsNoErr);
                ASSERT_TRUE(support::sameBits(got, want)) << callOf(transform, order, flag, s) << ", input " << turn;
                const auto inPlanes = inverse ? orbsFFTInv_CToC_16s_Sfs : orbsFFTFwd_CToC_16s_Sfs;
                inPlanes(re.data(), im.data(), gotRe.data(), gotIm.data(), planeSpec, s, nullptr);
                ASSERT_TRUE(support::sameBits(gotRe, wantRe) && support::sameBits(gotIm, wantIm))
                    << callOf(inPlanes, order, flag, s) << ", input " << turn;
            }
        });
    });
}

TEST(FixedFftInIntegers, ComplexIsTheRoundedSumOfExactProducts) {
    for (int order = 0; order <= 3; ++order)
        for (const int flag : flags)
            for (const OrbHintAlgorithm hint : {orbAlgHintNone, orbAlgHintFast})
                for (const bool inverse : {false, true}) expectComplex(order, flag, hint, inverse);
    for (const bool inverse : {false, true}) // one point has no use for floats
        expectComplex(0, ORB_FFT_SCALE_FWD, orbAlgHintAccurate, inverse);
}

// R0, RM, R1, I1, ... in the order of a format; CCS with zeros.
enum Layout { ccs, pack, perm };
std::vector<Orb16s> inLayout(const std::vector<Orb16s>& half, Layout layout) {
    std::vector<Orb16s> all = half;
    if (layout == perm) return all;
    if (half.size() == 1) return layout == ccs ? std::vector<Orb16s>{half[0], 0} : all;
    all.erase(all.begin() + 1);
    all.push_back(half[1]);
    if (layout == ccs) {
        all.insert(all.begin() + 1, 0);
        all.push_back(0);
    }
    return all;
}

void expectReal(int order, int flag, Layout layout) {
    constexpr decltype(&orbsFFTFwd_RToCCS_16s_Sfs) forward[] = {orbsFFTFwd_RToCCS_16s_Sfs, orbsFFTFwd_RToPack_16s_Sfs,
                                                                orbsFFTFwd_RToPerm_16s_Sfs};
    constexpr decltype(&orbsFFTInv_CCSToR_16s_Sfs) inverse[] = {orbsFFTInv_CCSToR_16s_Sfs, orbsFFTInv_PackToR_16s_Sfs,
                                                                orbsFFTInv_PermToR_16s_Sfs};
    const auto samples = std::size_t{1} << order;
    const int coreOrder = std::max(order - 1, 0);
    const Wide factor = Wide{1} << (15 - coreOrder);
    withObject(orbsFFTInitAlloc_R_16s, orbsFFTFree_R_16s, order, flag, orbAlgHintNone, [&](OrbsFFTSpec_R_16s* spec) {
        std::size_t turn = 0;
        for (const auto& x : inputs<Orb16s>(samples)) {
            const int s = scales[turn++ % scales.size()];
            std::vector<Exact> exact(samples);
            for (std::size_t n = 0; n < samples; ++n) exact[n] = {x[n] * factor, 0};
            const auto stored = [=](Wide v, bool back) { return scaled(v, order, coreOrder, flag, back, s); };
            std::vector<Orb16s> half(samples);
            for (std::size_t k = 0; k <= samples / 2; ++k) {
                const Exact bin = eighths(exact, static_cast<int>(k), 8 >> order);
                if (k == 0) {
                    half[0] = stored(bin.re, false);
                } else if (k == samples / 2) {
                    half[1] = stored(bin.re, false);
                } else {
                    half[2 * k] = stored(bin.re, false);
                    half[2 * k + 1] = stored(bin.im, false);
                }
            }
            const auto want = inLayout(half, layout);
            std::vector<Orb16s> got(want.size());
            ASSERT_EQ(forward[layout](x.data(), got.data(), spec, s, nullptr), orbStsNoErr);
            ASSERT_TRUE(support::sameBits(got, want)) << callOf(forward[layout], order, flag, s) << ", input " << turn;

            // Back from a spectrum of x, whatever it may be of: R0 + (-1)^n RM + twice the real parts of the others.
            std::vector<Orb16s> back(samples);
            for (std::size_t n = 0; n < samples; ++n) {
                Wide plain = x[0] * factor, diagonal = 0;
                if (samples > 1) plain += (n % 2 == 0 ? 1 : -1) * x[1] * factor;
                for (std::size_t k = 1; k < (samples + 1) / 2; ++k) {
                    const Exact bin{x[2 * k] * factor, x[2 * k + 1] * factor};
                    const auto eighth = k * n * (8u >> order) % 8;
                    (eighth % 2 == 0 ? plain : diagonal) +=
                        (eighth % 2 == 0 ? 2 : 1) * (bin.re * cosine[eighth] - bin.im * sine[eighth]);
                }
                const Wide sign = n >= 4 ? -1 : 1;
                back[n] = stored(plain + 2 * sign * ((sign * diagonal * 11585 + 8192) >> 14), true);
            }
            auto spectrum = inLayout(x, layout);
            if (layout == ccs) spectrum[1] = spectrum.back() = 0x5555; // not read
            if (layout == ccs && samples == 1) spectrum[0] = x[0];
            got.assign(samples, 0);
            ASSERT_EQ(inverse[layout](spectrum.data(), got.data(), spec, s, nullptr), orbStsNoErr);
            ASSERT_TRUE(support::sameBits(got, back)) << callOf(inverse[layout], order, flag, s) << ", input " << turn;
        }
    });
}

TEST(FixedFftInIntegers, RealIsTheRoundedSumOfExactProducts) {
    for (int order = 0; order <= 3; ++order)
        for (const int flag : flags)
            for (const Layout layout : {ccs, pack, perm}) expectReal(order, flag, layout);
}

// A sum of 8 full-scale samples overflows 16 bits only where it is stored.
TEST(FixedFftInIntegers, SaturatesInTheLastConversionOnly) {
    withObject(orbsFFTInitAlloc_C_16sc, orbsFFTFree_C_16sc, 3, ORB_FFT_SCALE_NONE, orbAlgHintNone, [](auto* spec) {
        std::array<Orb16sc, 8> x, y;
        x.fill({32767, -32768});
        orbsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), spec, 0, nullptr);
        EXPECT_TRUE(y[0].re == 32767 && y[0].im == -32768 && y[1].re == 0 && y[1].im == 0);
        orbsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), spec, 3, nullptr);
        EXPECT_TRUE(y[0].re == 32767 && y[0].im == -32768);
    });
}

} // namespace
