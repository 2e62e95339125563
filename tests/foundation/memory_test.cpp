#include "orbs.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

template <class T>
void expectAllocates(T* (*allocate)(int)) {
    EXPECT_EQ(allocate(0), nullptr);
    EXPECT_EQ(allocate(-1), nullptr);
    for (int len = 1; len < 100; ++len) {
        T* block = allocate(len);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 32, 0u);
        std::memset(static_cast<void*>(block), 0xff, static_cast<std::size_t>(len) * sizeof(T));
        orbsFree(block);
    }
}

TEST(Memory, EveryTypeIsAlignedAndUsableToItsLastElement) {
    expectAllocates(orbsMalloc_8u);
    expectAllocates(orbsMalloc_8s);
    expectAllocates(orbsMalloc_16u);
    expectAllocates(orbsMalloc_16s);
    expectAllocates(orbsMalloc_8sc);
    expectAllocates(orbsMalloc_32u);
    expectAllocates(orbsMalloc_32s);
    expectAllocates(orbsMalloc_32f);
    expectAllocates(orbsMalloc_16sc);
    expectAllocates(orbsMalloc_64s);
    expectAllocates(orbsMalloc_64f);
    expectAllocates(orbsMalloc_32sc);
    expectAllocates(orbsMalloc_32fc);
    expectAllocates(orbsMalloc_64sc);
    expectAllocates(orbsMalloc_64fc);
    orbsFree(nullptr);
}

// 2^28 elements of 16 bytes are 0 bytes in 32 bits: a small block, and the word in front of it lies inside it.
TEST(Memory, AWrappedByteCountGivesASmallBlockThatCanBeFreed) {
    orbsFree(orbsMalloc_64fc(1 << 28));
    orbsFree(orbsMalloc_64fc((1 << 28) - 1));
    orbsFree(orbsMalloc_64fc(std::numeric_limits<int>::max()));
}

TEST(Version, RecordTellsThisBuild) {
    const OrbLibraryVersion* version = orbsGetLibVersion();
    ASSERT_EQ(version, orbsGetLibVersion());
    EXPECT_EQ(version->major, 5);
    EXPECT_EQ(version->minor, 2);
    EXPECT_EQ(version->majorBuild, 108);
    EXPECT_EQ(version->build, 414);
    EXPECT_EQ(std::memcmp(version->targetCpu, "v8\0\0", 4), 0);
    EXPECT_STREQ(version->Name, "liborbsv8.so.5.2");
    EXPECT_STREQ(version->Version, "5.2");
    EXPECT_STREQ(version->BuildDate, "Jul 11 2007");
}

} // namespace
