// The core library: thread count, status texts, control registers, constants.
#include "orbcore.h"
#include "support/threads.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <omp.h>
#include <set>
#include <string>
#include <xmmintrin.h>

namespace {

TEST(ThreadCount, StartsAtTheRuntimesMaximumAndTakesAnyPositiveNumber) {
    EXPECT_EQ(orbGetNumThreads(), omp_get_max_threads());
    const support::ThreadCount keep(3);
    EXPECT_EQ(orbGetNumThreads(), 3);
    EXPECT_EQ(threads_omp_of_n_orb, 3);
    for (int refused : {0, -1, INT_MIN}) {
        EXPECT_EQ(orbSetNumThreads(refused), orbStsSizeErr);
        EXPECT_EQ(orbGetNumThreads(), 3);
    }
    EXPECT_EQ(orbSetNumThreads(INT_MAX), orbStsNoErr);
    EXPECT_EQ(orbGetNumThreads(), INT_MAX);
    threads_omp_of_n_orb = 2; // as a host does that owns the variable
    EXPECT_EQ(orbGetNumThreads(), 2);
}

TEST(StatusText, EachStatusHasItsOwnAndNoOtherNumberHasOne) {
    const std::string unknown = "unknown status";
    std::set<int> numbers;
    std::set<std::string> texts;
    for (int status = -1000; status <= 1000; ++status) {
        const char* text = orbGetStatusString(status);
        ASSERT_NE(text, nullptr) << status;
        if (text == unknown) continue;
        numbers.insert(status);
        EXPECT_TRUE(texts.insert(text).second) << status << " has the text of another: " << text;
    }
    const std::set<int> expected = {0,   3,   5,   6,   7,   8,   9,   27,  -5,  -6,   -8,   -9,   -10,  -13,  -15,
                                    -16, -17, -18, -19, -24, -25, -26, -27, -28, -29,  -30,  -31,  -32,  -33,  -35,
                                    -38, -39, -40, -41, -42, -43, -44, -45, -46, -182, -194, -195, -206, -208, -209};
    EXPECT_EQ(numbers, expected);
    EXPECT_EQ(orbGetStatusString(INT_MIN), unknown);
    EXPECT_EQ(orbGetStatusString(INT_MAX), unknown);
}

TEST(Constants, AreAQuietNaNAndPositiveInfinityOfEachWidth) {
    std::uint32_t nan32;
    std::uint64_t nan64;
    std::memcpy(&nan32, &orbConstantOfNAN_32f, sizeof nan32);
    std::memcpy(&nan64, &orbConstantOfNAN_64f, sizeof nan64);
    EXPECT_EQ(nan32 & 0x7fc00000u, 0x7fc00000u);
    EXPECT_EQ(nan64 & 0x7ff8000000000000u, 0x7ff8000000000000u);
    EXPECT_EQ(orbConstantOfINF_32f, INFINITY);
    EXPECT_EQ(orbConstantOfINF_64f, static_cast<Orb64f>(INFINITY));
}

TEST(SseWord, ReplacesTheRoundingBitsOnlyAndReturnsTheWholeRegister) {
    const Orb32u callers = _mm_getcsr();
    _mm_setcsr((callers & ~0x6000u) | 0x2000u); // downward
    const Orb32u before = _mm_getcsr();
    EXPECT_EQ(orb_set_rc_ssx(0x6000), before);
    EXPECT_EQ(_mm_getcsr(), before | 0x6000u);
    EXPECT_EQ(orb_set_rc_ssx(0x9fff), before | 0x6000u); // bits that are no rounding bits are left out
    EXPECT_EQ(_mm_getcsr(), before & ~0x6000u);
    orb_set_cw_ssx(before);
    EXPECT_EQ(_mm_getcsr(), before);
    _mm_setcsr(callers);
}

Orb32u x87Word() {
    Orb16u word;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

TEST(X87Word, ReplacesTheMaskedBitsAndReturnsTheEarlierWord) {
    const Orb32u before = x87Word();
    EXPECT_EQ(orb_set_rcpc_fpu(0xc00, 0xc00), before);
    EXPECT_EQ(x87Word(), before | 0xc00u);
    volatile long double one = 1, minusThree = -3;
    const volatile long double truncated = one / minusThree;
    EXPECT_EQ(orb_set_rcpc_fpu(0, 0xc00), before | 0xc00u);
    const volatile long double nearest = one / minusThree;
    EXPECT_GT(truncated, nearest); // toward zero is up here
    orb_set_cw_fpu(before);
    EXPECT_EQ(x87Word(), before);
}

} // namespace
