#include "support/unary_member.h"

#include <cmath>

namespace {

using namespace unary_member;

// ---- The laws as G.711 has them ----

Orb16s aLawToLinear(Orb8u code) {
    const int b = code ^ 0x55, m = b & 15, s = b >> 4 & 7;
    const int magnitude = s == 0 ? m * 16 + 8 : (m * 16 + 0x108) << (s - 1);
    return static_cast<Orb16s>(b & 0x80 ? magnitude : -magnitude);
}

Orb16s muLawToLinear(Orb8u code) {
    const int b = ~code, m = b & 15, s = b >> 4 & 7, t = (m * 8 + 0x84) << s;
    return static_cast<Orb16s>(b & 0x80 ? 0x84 - t : t - 0x84);
}

Orb8u linearToALaw(Orb16s x) {
    const int ends[] = {255, 511, 1023, 2047, 4095, 8191, 16383, 32767};
    int v = x >> 3, mask = 0xd5, seg = 0;
    if (v < 0) {
        mask = 0x55;
        v = -v - 1;
    }
    while (ends[seg] >> 3 < v) ++seg;
    return static_cast<Orb8u>((seg * 16 + (v >> std::max(seg, 1) & 15)) ^ mask);
}

Orb8u linearToMuLaw(Orb16s x, bool negative) {
    const int v = std::min(((x < 0 ? ~x : x) >> 2) + 33, 8191);
    int n = 1;
    while (v >> 6 >> (n - 1)) ++n;
    return static_cast<Orb8u>((8 - n) * 16 + 15 - (v >> n & 15) + (negative ? 0 : 0x80));
}

Orb16s rounded(float x) {
    const float product = x * 32768.0f;
    if (product > 32767.0f) return 32767;
    if (!(product >= -32768.0f)) return -32768;
    const float moved = product >= 0 ? product + 0.5f : product - 0.5f;
    return static_cast<Orb16s>(moved);
}

// ---- Tests ----

TEST(Laws, DecodeEveryCode) {
    const auto codes = everyValue<Orb8u>();
    expectMaps(orbsALawToLin_8u16s, codes, aLawToLinear);
    expectMaps(orbsMuLawToLin_8u16s, codes, muLawToLinear);
    expectMaps(orbsALawToLin_8u32f, codes, [](Orb8u c) { return aLawToLinear(c) * 0x1p-15f; });
    expectMaps(orbsMuLawToLin_8u32f, codes, [](Orb8u c) { return muLawToLinear(c) * 0x1p-15f; });
}

TEST(Laws, EncodeEverySample) {
    const auto samples = everyValue<Orb16s>();
    expectMaps(orbsLinToALaw_16s8u, samples, linearToALaw);
    expectMaps(orbsLinToMuLaw_16s8u, samples, [](Orb16s x) { return linearToMuLaw(x, x < 0); });
}

// Each integer, the ties beside it, what lies next to the ties, and what is out of range or no number.
TEST(Laws, EncodeFloatsRoundedHalfAwayFromZero) {
    const float infinity = INFINITY, denormal = 0x1p-149f;
    std::vector<float> samples{infinity, -infinity, NAN, -NAN, 1, -1, 0.0f, -0.0f, denormal, -denormal, 1e30f, -1e30f};
    for (int k = -33000; k <= 33000; ++k) {
        const float tie = (static_cast<float>(k) + 0.5f) * 0x1p-15f;
        for (float x : {static_cast<float>(k) * 0x1p-15f, tie, std::nextafter(tie, 2.0f), std::nextafter(tie, -2.0f)})
            samples.push_back(x);
    }
    expectMaps(orbsLinToALaw_32f8u, samples, [](float x) { return linearToALaw(rounded(x)); });
    expectMaps(orbsLinToMuLaw_32f8u, samples, [](float x) { return linearToMuLaw(rounded(x), !(x >= 0)); });
}

TEST(Laws, SmallNegativeFloatsKeepTheirSignInMuLawOnly) {
    const float x = -1e-6f;
    Orb8u muLaw = 0, aLaw = 0;
    ASSERT_EQ(orbsLinToMuLaw_32f8u(&x, &muLaw, 1), orbStsNoErr);
    ASSERT_EQ(orbsLinToALaw_32f8u(&x, &aLaw, 1), orbStsNoErr);
    EXPECT_EQ(muLaw, 0x7f);
    EXPECT_EQ(aLaw, 0xd5);
}

// The ranks of one law's codes for those of the other, as runs: from, to, by.
std::vector<int> ranks(std::initializer_list<std::array<int, 3>> runs) {
    std::vector<int> all;
    for (const auto& [from, to, by] : runs)
        for (int rank = from; rank <= to; rank += by) all.push_back(rank);
    return all;
}

TEST(Laws, TranscodeByRank) {
    const auto toMu = ranks({{1, 15, 2},
                             {16, 32, 1},
                             {32, 32, 1},
                             {33, 33, 1},
                             {33, 34, 1},
                             {34, 35, 1},
                             {35, 35, 1},
                             {36, 48, 1},
                             {48, 49, 1},
                             {49, 49, 1},
                             {50, 64, 1},
                             {64, 80, 1},
                             {80, 127, 1}});
    auto toA = ranks({{8, 24, 1}, {26, 32, 2}, {33, 43, 1}, {45, 47, 2}, {48, 61, 1}, {63, 79, 1}, {81, 127, 1}});
    for (int rank = 15; rank >= 0; --rank) toA.insert(toA.begin(), rank / 2);
    ASSERT_EQ(toMu.size(), 128u);
    ASSERT_EQ(toA.size(), 128u);
    const auto rankOfALaw = [](int code) { return static_cast<std::size_t>((code ^ 0x55) & 0x7f); };
    const auto rankOfMuLaw = [](int code) { return static_cast<std::size_t>(~code & 0x7f); };
    auto codes = everyValue<Orb8u>();
    for (int n = 0; n < 100; ++n) codes.push_back(codes[static_cast<std::size_t>(n) * 41 % 256]);
    expectMaps(orbsALawToMuLaw_8u, codes, [&](Orb8u code) {
        const int rank = toMu[rankOfALaw(code)];
        return static_cast<Orb8u>((code & 0x80) | (~rank & 0x7f));
    });
    expectMaps(orbsMuLawToALaw_8u, codes, [&](Orb8u code) {
        const int rank = toA[rankOfMuLaw(code)];
        return static_cast<Orb8u>((code & 0x80) | ((rank ^ 0x55) & 0x7f));
    });
    EXPECT_EQ(orbsALawToMuLaw_8u(codes.data(), codes.data(), 256), orbStsNoErr); // in place
    EXPECT_EQ(codes[0x1a], 0x2f);
    EXPECT_EQ(codes[0x9a], 0xaf);
}

} // namespace
