// FFT objects: sizes, the caller's memory, freed and foreign objects.
#include "orbs.h"

#include "support/compare.h"
#include "support/guarded.h"

#include <cstring>

namespace {

// The sizes as they are defined, order by order.
struct Sizes {
    std::uint64_t spec, init, work;
};
Sizes definedSizes(int order, bool real, bool isDouble) {
    if (order < 4) return {isDouble ? 116u : 112u, 0, 0};
    const std::uint64_t r = isDouble ? 8 : 4, e = 2 * r;
    const auto up32 = [](std::uint64_t x) { return (x + 31) / 32 * 32; };
    const auto points = [](int m) { return std::uint64_t{1} << m; };
    struct Level {
        int block, buffer;
    };
    const auto level = [=](int m) -> Level {
        if (isDouble) return m <= 20 ? Level{6, 10} : Level{8, 13};
        return m <= 20 ? Level{4, 10} : m == 21 ? Level{5, 13} : Level{8, 15};
    };
    const int m = real ? order - 1 : order, limit = isDouble ? 16 : 17;
    std::uint64_t tables = 0, work = 0;
    if (m <= limit) {
        tables = up32(e * (points(m) + 1));
        work = up32(e * points(m));
    } else {
        int levels[4], count = 0, inner = m;
        for (; inner > limit; inner -= level(inner).block) levels[count++] = inner;
        tables = up32(e * (points(inner) + 1));
        work = up32(e * points(inner));
        while (count-- > 0) {
            tables += e * points(levels[count]);
            work = std::max(work, e * points(level(levels[count]).buffer));
        }
        if (!isDouble && m >= 19) work = std::max<std::uint64_t>(work, 65536);
        if (isDouble && m >= 18) work = std::max<std::uint64_t>(work, 32768);
    }
    std::uint64_t spec = tables + (points(m) / 4 * 4 + 35) / 32 * 32 + 128;
    if (real) spec += 2 * up32(e * points(order) / 4);
    return {spec, order <= 10 ? 0 : up32(r * (points(order) / 4 + 1)) + 32, work + 32};
}

template <class GetSize>
void expectDefinedSizes(GetSize getSize, bool real, bool isDouble) {
    for (int order = 0; order <= 30; ++order) {
        int spec = -1, init = -1, work = -1;
        ASSERT_EQ(getSize(order, ORB_FFT_SCALE_NONE, 7, &spec, &init, &work), orbStsNoErr);
        const Sizes defined = definedSizes(order, real, isDouble);
        EXPECT_EQ(static_cast<Orb32u>(spec), static_cast<Orb32u>(defined.spec)) << order;
        EXPECT_EQ(static_cast<Orb32u>(init), static_cast<Orb32u>(defined.init)) << order;
        EXPECT_EQ(static_cast<Orb32u>(work), static_cast<Orb32u>(defined.work)) << order;
    }
}

TEST(FftObjects, SizesAreThoseDefined) {
    expectDefinedSizes(orbsFFTGetSize_C_32fc, false, false);
    expectDefinedSizes(orbsFFTGetSize_C_32f, false, false);
    expectDefinedSizes(orbsFFTGetSize_R_32f, true, false);
    expectDefinedSizes(orbsFFTGetSize_C_64fc, false, true);
    expectDefinedSizes(orbsFFTGetSize_C_64f, false, true);
    expectDefinedSizes(orbsFFTGetSize_R_64f, true, true);
}

// Blocks of exactly the sizes told, at every alignment, between pages that nobody may touch; the object moved elsewhere
// by its bytes alone; then a transform with the work buffer told.
template <class Spec, class GetSize, class Init, class GetBufSize, class Transform>
void expectBuildsInTheSizesTold(GetSize getSize, Init init, GetBufSize getBufSize, Transform transform) {
    for (int order = 0; order <= 19; ++order) {
        int specSize = 0, initSize = 0, workSize = 0;
        getSize(order, ORB_FFT_SCALE_SQRT, 0, &specSize, &initSize, &workSize);
        for (std::size_t shift : {0u, 1u, 31u}) {
            support::Guarded<Orb8u> block(static_cast<std::size_t>(specSize), support::Edge::end, shift);
            support::Guarded<Orb8u> initBuffer(static_cast<std::size_t>(initSize), support::Edge::end, shift);
            Spec* spec = nullptr;
            ASSERT_EQ(init(&spec, order, ORB_FFT_SCALE_SQRT, 7, block.data(), order > 10 ? initBuffer.data() : nullptr),
                      orbStsNoErr);
            EXPECT_TRUE(block.intact() && initBuffer.intact());
            const auto offset = reinterpret_cast<Orb8u*>(spec) - block.data();
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 32, 0u);

            const std::size_t bytes = static_cast<std::size_t>(specSize - offset);
            std::vector<Orb8u> elsewhere(bytes + 32);
            Orb8u* aligned = elsewhere.data() + (-reinterpret_cast<std::uintptr_t>(elsewhere.data()) & 31);
            std::memcpy(aligned, spec, bytes);
            int bufferSize = -1;
            ASSERT_EQ(getBufSize(spec, &bufferSize), orbStsNoErr);
            EXPECT_EQ(bufferSize, workSize);
            support::Guarded<Orb8u> buffer(static_cast<std::size_t>(bufferSize), support::Edge::end);
            const auto here = transform(spec, order, buffer.data());
            std::memset(block.data(), 0xee, block.size());
            EXPECT_TRUE(support::sameBits(here, transform(reinterpret_cast<Spec*>(aligned), order, buffer.data())));
        }
    }
}

template <class T>
auto inPlace(auto call, std::size_t valuesAPoint, std::size_t extra = 0) {
    return [=](const auto* spec, int order, Orb8u* buffer) {
        auto x = support::randomVector<T>((valuesAPoint << order) + extra);
        EXPECT_EQ(call(x.data(), spec, buffer), orbStsNoErr);
        return x;
    };
}

TEST(FftObjects, BuildInCallersMemoryOfTheSizeTold) {
    expectBuildsInTheSizesTold<OrbsFFTSpec_C_32fc>(
        orbsFFTGetSize_C_32fc, orbsFFTInit_C_32fc, orbsFFTGetBufSize_C_32fc,
        inPlace<Orb32fc>([](auto* x, auto* s, Orb8u* b) { return orbsFFTFwd_CToC_32fc_I(x, s, b); }, 1));
    expectBuildsInTheSizesTold<OrbsFFTSpec_C_32f>(
        orbsFFTGetSize_C_32f, orbsFFTInit_C_32f, orbsFFTGetBufSize_C_32f,
        [](const OrbsFFTSpec_C_32f* s, int order, Orb8u* b) {
            auto x = support::randomVector<Orb32f>(std::size_t{2} << order);
            EXPECT_EQ(orbsFFTFwd_CToC_32f_I(x.data(), x.data() + (std::size_t{1} << order), s, b), orbStsNoErr);
            return x;
        });
    expectBuildsInTheSizesTold<OrbsFFTSpec_R_32f>(
        orbsFFTGetSize_R_32f, orbsFFTInit_R_32f, orbsFFTGetBufSize_R_32f,
        inPlace<Orb32f>([](auto* x, auto* s, Orb8u* b) { return orbsFFTFwd_RToCCS_32f_I(x, s, b); }, 1, 2));
    expectBuildsInTheSizesTold<OrbsFFTSpec_C_64fc>(
        orbsFFTGetSize_C_64fc, orbsFFTInit_C_64fc, orbsFFTGetBufSize_C_64fc,
        inPlace<Orb64fc>([](auto* x, auto* s, Orb8u* b) { return orbsFFTInv_CToC_64fc_I(x, s, b); }, 1));
    expectBuildsInTheSizesTold<OrbsFFTSpec_C_64f>(
        orbsFFTGetSize_C_64f, orbsFFTInit_C_64f, orbsFFTGetBufSize_C_64f,
        [](const OrbsFFTSpec_C_64f* s, int order, Orb8u* b) {
            auto x = support::randomVector<Orb64f>(std::size_t{2} << order);
            EXPECT_EQ(orbsFFTInv_CToC_64f_I(x.data(), x.data() + (std::size_t{1} << order), s, b), orbStsNoErr);
            return x;
        });
    expectBuildsInTheSizesTold<OrbsFFTSpec_R_64f>(
        orbsFFTGetSize_R_64f, orbsFFTInit_R_64f, orbsFFTGetBufSize_R_64f,
        inPlace<Orb64f>([](auto* x, auto* s, Orb8u* b) { return orbsFFTInv_PackToR_64f_I(x, s, b); }, 1));
}

// Freeing makes an object in the caller's memory unusable and releases nothing.
TEST(FftObjects, FreedOnesAreRefused) {
    std::vector<Orb8u> block(200000);
    OrbsFFTSpec_C_32fc* spec = nullptr;
    ASSERT_EQ(orbsFFTInit_C_32fc(&spec, 10, ORB_FFT_SCALE_INV, orbAlgHintNone, block.data(), nullptr), orbStsNoErr);
    EXPECT_EQ(orbsFFTFree_C_32fc(spec), orbStsNoErr);
    int size;
    EXPECT_EQ(orbsFFTGetBufSize_C_32fc(spec, &size), orbStsContextMatchErr);
    EXPECT_EQ(orbsFFTFree_C_32fc(spec), orbStsContextMatchErr);
}

// An object whose tables another tier made is refused where they are read: the word behind the owner's tells their
// groups.
template <class Spec, class T>
void expectRefusedFromAnotherTier(OrbStatus (*init)(Spec**, int, int, OrbHintAlgorithm), OrbStatus (*release)(Spec*),
                                  OrbStatus (*transform)(T*, const Spec*, Orb8u*), std::size_t groupWord) {
    for (int order : {7, 11, 18}) {
        Spec* spec = nullptr;
        ASSERT_EQ(init(&spec, order, ORB_FFT_SCALE_NONE, 0), orbStsNoErr);
        Orb32s& group = reinterpret_cast<Orb32s*>(spec)[groupWord];
        EXPECT_TRUE(group == 32 || group == 64) << group;
        auto x = support::randomVector<T>((std::size_t{1} << order) + 2);
        const auto before = x;
        group = 96 - group;
        EXPECT_EQ(transform(x.data(), spec, nullptr), orbStsContextMatchErr) << order;
        EXPECT_TRUE(support::sameBits(x, before));
        group = 96 - group;
        EXPECT_EQ(transform(x.data(), spec, nullptr), orbStsNoErr);
        release(spec);
    }
}
TEST(FftObjects, TablesOfAnotherTierAreRefused) {
    expectRefusedFromAnotherTier(orbsFFTInitAlloc_C_32fc, orbsFFTFree_C_32fc, orbsFFTFwd_CToC_32fc_I, 8);
    expectRefusedFromAnotherTier(orbsFFTInitAlloc_C_64fc, orbsFFTFree_C_64fc, orbsFFTInv_CToC_64fc_I, 9);
    expectRefusedFromAnotherTier(orbsFFTInitAlloc_R_32f, orbsFFTFree_R_32f, orbsFFTFwd_RToCCS_32f_I, 8);
    expectRefusedFromAnotherTier(orbsFFTInitAlloc_R_64f, orbsFFTFree_R_64f, orbsFFTInv_PackToR_64f_I, 9);
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
TEST(FftObjects, OrdersBeyondASizeIn32BitsAreRefused) {
    expectRefused(orbsFFTInit_C_32fc, orbsFFTInitAlloc_C_32fc, 28);
    expectRefused(orbsFFTInit_C_32f, orbsFFTInitAlloc_C_32f, 28);
    expectRefused(orbsFFTInit_R_32f, orbsFFTInitAlloc_R_32f, 28);
    expectRefused(orbsFFTInit_C_64fc, orbsFFTInitAlloc_C_64fc, 27);
    expectRefused(orbsFFTInit_C_64f, orbsFFTInitAlloc_C_64f, 27);
    expectRefused(orbsFFTInit_R_64f, orbsFFTInitAlloc_R_64f, 27);
}

} // namespace
