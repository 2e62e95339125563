// Objects of the transforms of integers: sizes, hints, refused and freed ones.
#include "orbs.h"

#include "support/compare.h"
#include "support/guarded.h"

namespace {

struct Sizes {
    std::int64_t spec, init, work;
    bool operator==(const Sizes&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Sizes& s) {
    return out << s.spec << ' ' << s.init << ' ' << s.work;
}
// As numbers of 32 bits, which wrap.
Sizes wrapped(Sizes s) {
    return {static_cast<int>(s.spec), static_cast<int>(s.init), static_cast<int>(s.work)};
}

template <class GetSize>
Sizes told(GetSize getSize, int order, OrbHintAlgorithm hint) {
    int spec = -1, init = -1, work = -1;
    EXPECT_EQ(getSize(order, ORB_FFT_SCALE_INV, hint, &spec, &init, &work), orbStsNoErr);
    return {spec, init, work};
}

// Those of the float object inside, and what its floats and the header add.
template <class GetSize, class FloatGetSize>
void expectAroundFloats(GetSize getSize, FloatGetSize inner, std::int64_t bytesAPoint, std::int64_t bytesMore,
                        bool is16) {
    for (int order = is16 ? 4 : 0; order <= 30; ++order) {
        const Sizes in = told(inner, order, orbAlgHintNone);
        const std::int64_t floats = (bytesAPoint << order) + bytesMore;
        const Sizes want = is16 ? Sizes{in.spec + 96, in.init + 32, in.work + floats + 32}
                                : Sizes{in.spec + 64, in.init ? in.init + 32 : 0, in.work + floats + 32};
        EXPECT_EQ(told(getSize, order, orbAlgHintFast), wrapped(want)) << "order " << order;
        if (is16 && order <= 6) { // the orders below have other sizes where they take no floats
            const int low = order - 3;
            const Sizes small = told(inner, low, orbAlgHintNone);
            EXPECT_EQ(told(getSize, low, orbAlgHintAccurate),
                      (Sizes{small.spec + 96, 32, (bytesAPoint << low) + bytesMore + 32}));
        }
    }
}

TEST(FixedFftObjects, SizesAreThoseDefined) {
    expectAroundFloats(orbsFFTGetSize_C_16sc, orbsFFTGetSize_C_32fc, 8, 0, true);
    expectAroundFloats(orbsFFTGetSize_C_16s, orbsFFTGetSize_C_32f, 8, 0, true);
    expectAroundFloats(orbsFFTGetSize_R_16s, orbsFFTGetSize_R_32f, 4, 8, true);
    expectAroundFloats(orbsFFTGetSize_C_32sc, orbsFFTGetSize_C_64fc, 16, 0, false);
    expectAroundFloats(orbsFFTGetSize_C_32s, orbsFFTGetSize_C_64f, 16, 0, false);
    expectAroundFloats(orbsFFTGetSize_R_32s, orbsFFTGetSize_R_64f, 8, 16, false);
    expectAroundFloats(orbsFFTGetSize_R_16s32s, orbsFFTGetSize_R_32f, 4, 8, false);
    // In integers, orders 0 to 3.
    const Sizes interleaved[] = {{84, 0, 0}, {160, 64, 48}, {160, 64, 64}, {192, 64, 96}};
    const Sizes planes[] = {{84, 0, 0}, {160, 64, 56}, {160, 64, 80}, {192, 64, 128}};
    const Sizes real[] = {{84, 0, 0}, {192, 64, 48}, {192, 64, 56}, {224, 64, 72}};
    for (int order = 0; order <= 3; ++order) {
        EXPECT_EQ(told(orbsFFTGetSize_C_16sc, order, orbAlgHintNone), interleaved[order]) << order;
        EXPECT_EQ(told(orbsFFTGetSize_C_16s, order, orbAlgHintFast), planes[order]) << order;
        EXPECT_EQ(told(orbsFFTGetSize_R_16s, order, orbAlgHintNone), real[order]) << order;
    }
    EXPECT_EQ(told(orbsFFTGetSize_C_16sc, 0, 7), interleaved[0]);
}

// Only 0 and 1 select integers, only at small orders: there the results differ from those of floats.
TEST(FixedFftObjects, HintsSelectTheArithmeticOfSmallOrders) {
    for (const int order : {3, 4}) {
        std::vector<std::vector<Orb16sc>> results;
        for (const OrbHintAlgorithm hint : {0, 1, 2, 7, -1}) {
            OrbsFFTSpec_C_16sc* spec = nullptr;
            ASSERT_EQ(orbsFFTInitAlloc_C_16sc(&spec, order, ORB_FFT_SCALE_NONE, hint), orbStsNoErr);
            results.emplace_back(std::size_t{1} << order);
            results.back()[1] = {32767, 0}; // times 11585 / 2^14 is half a unit less than it should be
            orbsFFTFwd_CToC_16sc_ISfs(results.back().data(), spec, 0, nullptr);
            orbsFFTFree_C_16sc(spec);
        }
        EXPECT_TRUE(support::sameBits(results[0], results[1]));
        EXPECT_TRUE(support::sameBits(results[2], results[3]));
        EXPECT_TRUE(support::sameBits(results[2], results[4]));
        EXPECT_EQ(results[2][1].re == results[0][1].re, order > 3) << "order " << order;
    }
}

// What Init refuses after it has begun is no object.
template <class Spec, class GetSize, class Init, class GetBufSize>
void expectNoObjectAfterRefusal(GetSize getSize, Init init, GetBufSize getBufSize) {
    alignas(32) static Orb8u block[200000];
    const Sizes sizes = told(getSize, 11, orbAlgHintNone);
    ASSERT_LE(sizes.spec, static_cast<int>(sizeof block));
    const auto refused = [&](int order, int flag, Orb8u* initMemory, OrbStatus status) {
        Spec* spec = nullptr;
        int size;
        ASSERT_EQ(init(&spec, 10, ORB_FFT_SCALE_INV, 0, block, nullptr), orbStsNoErr); // and then over it:
        Spec* const at = spec;
        EXPECT_EQ(getBufSize(at, &size), orbStsNoErr);
        spec = nullptr;
        EXPECT_EQ(init(&spec, order, flag, 0, block, initMemory), status);
        EXPECT_EQ(spec, nullptr);
        EXPECT_EQ(getBufSize(at, &size), orbStsContextMatchErr);
    };
    refused(11, ORB_FFT_SCALE_INV, nullptr, orbStsNullPtrErr);
    refused(10, 3, block, orbStsFftFlagErr);
}
TEST(FixedFftObjects, WhatInitRefusedIsNone) {
    expectNoObjectAfterRefusal<OrbsFFTSpec_C_16sc>(orbsFFTGetSize_C_16sc, orbsFFTInit_C_16sc, orbsFFTGetBufSize_C_16sc);
    expectNoObjectAfterRefusal<OrbsFFTSpec_R_32s>(orbsFFTGetSize_R_32s, orbsFFTInit_R_32s, orbsFFTGetBufSize_R_32s);
}

// An object is its bytes: moved elsewhere it gives the same, also behind the one it was made as, which is freed.
TEST(FixedFftObjects, MayBeMoved) {
    for (const int order : {3, 5}) {
        const Sizes sizes = told(orbsFFTGetSize_R_16s, order, orbAlgHintNone);
        alignas(32) Orb8u block[4096], elsewhere[4096];
        ASSERT_LE(sizes.spec, static_cast<int>(sizeof block));
        OrbsFFTSpec_R_16s* spec = nullptr;
        ASSERT_EQ(orbsFFTInit_R_16s(&spec, order, ORB_FFT_SCALE_SQRT, 0, block, nullptr), orbStsNoErr);
        auto x = support::randomVector<Orb16s>(34);
        auto y = x;
        ASSERT_EQ(orbsFFTFwd_RToCCS_16s_ISfs(x.data(), spec, 1, nullptr), orbStsNoErr);
        std::memcpy(elsewhere, spec, static_cast<std::size_t>(sizes.spec));
        EXPECT_EQ(orbsFFTFree_R_16s(spec), orbStsNoErr); // unusable, nothing released
        EXPECT_EQ(orbsFFTFree_R_16s(spec), orbStsContextMatchErr);
        std::memset(block, 0xee, sizeof block);
        const auto* moved = reinterpret_cast<const OrbsFFTSpec_R_16s*>(elsewhere);
        ASSERT_EQ(orbsFFTFwd_RToCCS_16s_ISfs(y.data(), moved, 1, nullptr), orbStsNoErr);
        EXPECT_TRUE(support::sameBits(x, y)) << order;
    }
}

// An object that no positive int can tell the size of is refused before a byte of memory is touched or taken.
template <class Spec>
void expectRefused(OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm, Orb8u*, Orb8u*),
                   OrbStatus (*initAlloc)(Spec**, int, int, OrbHintAlgorithm), int firstOrder) {
    support::Guarded<Orb8u> nothing(0);
    for (int order = firstOrder; order <= 30; ++order) {
        Spec* spec = nullptr;
        EXPECT_EQ(init(&spec, order, ORB_FFT_SCALE_NONE, 0, nothing.data(), nothing.data()), orbStsMemAllocErr);
        EXPECT_EQ(initAlloc(&spec, order, ORB_FFT_SCALE_NONE, 0), orbStsMemAllocErr);
        EXPECT_EQ(initAlloc(&spec, order, 3, 0), orbStsFftFlagErr);
        EXPECT_EQ(spec, nullptr);
    }
}
TEST(FixedFftObjects, OrdersBeyondASizeIn32BitsAreRefused) {
    expectRefused(orbsFFTInit_C_16sc, orbsFFTInitAlloc_C_16sc, 28);
    expectRefused(orbsFFTInit_C_16s, orbsFFTInitAlloc_C_16s, 28);
    expectRefused(orbsFFTInit_R_16s, orbsFFTInitAlloc_R_16s, 28);
    expectRefused(orbsFFTInit_R_16s32s, orbsFFTInitAlloc_R_16s32s, 28);
    expectRefused(orbsFFTInit_C_32sc, orbsFFTInitAlloc_C_32sc, 27);
    expectRefused(orbsFFTInit_C_32s, orbsFFTInitAlloc_C_32s, 27);
    expectRefused(orbsFFTInit_R_32s, orbsFFTInitAlloc_R_32s, 27);
    for (const auto getSize : {orbsFFTGetSize_C_16sc, orbsFFTGetSize_C_16s, orbsFFTGetSize_R_16s})
        EXPECT_GT(told(getSize, 27, 0).work, 0);
    for (const auto getSize : {orbsFFTGetSize_C_32sc, orbsFFTGetSize_C_32s, orbsFFTGetSize_R_32s})
        EXPECT_GT(told(getSize, 26, 0).work, 0);
}

} // namespace
