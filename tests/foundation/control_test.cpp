#include "foundation/control.h"

#include <gtest/gtest.h>

namespace {

using namespace orbs;

class SseRegister : public ::testing::Test {
protected:
    ~SseRegister() override { _mm_setcsr(callers_); }
    static Orb32u rounding() { return _mm_getcsr() & 0x6000u; }
    static float third() {
        volatile float one = 1, three = 3; // 0.333...343267 to nearest, 0.333...313 toward zero
        volatile float quotient = one / three;
        return quotient;
    }

private:
    Orb32u callers_ = _mm_getcsr();
};

TEST_F(SseRegister, RoundsAsToldAndHandsTheCallersModeBack) {
    for (Orb32u callers : {0x0000u, 0x2000u, 0x4000u, 0x6000u}) {
        _mm_setcsr((_mm_getcsr() & ~0x6000u) | callers);
        {
            const SseRounding outer(SseRounding::nearest);
            const float nearest = third();
            EXPECT_EQ(nearest, 0x1.555556p-2f);
            {
                const SseRounding inner(SseRounding::towardZero);
                EXPECT_EQ(third(), 0x1.555554p-2f);
            }
            EXPECT_EQ(third(), nearest);
        }
        EXPECT_EQ(rounding(), callers);
    }
}

TEST_F(SseRegister, LeavesMasksAndModesAloneAndKeepsTheFlagsThatWereRaised) {
    constexpr Orb32u inexact = 0x20, flushToZero = 0x8000, denormalsAreZero = 0x40;
    _mm_setcsr(0x1f80 | 0x4000 | flushToZero | denormalsAreZero); // upward, no flag raised
    {
        const SseRounding guard(SseRounding::nearest);
        EXPECT_EQ(_mm_getcsr(), 0x1f80u | flushToZero | denormalsAreZero);
        third();
    }
    EXPECT_EQ(_mm_getcsr(), 0x1f80u | 0x4000u | flushToZero | denormalsAreZero | inexact);
}

TEST_F(SseRegister, QuietGuardMasksExceptionsAndTakesBackOnlyTheFlagsItRaised) {
    constexpr Orb32u invalidUnmasked = 0x1f00, overflowRaised = 0x08, inexact = 0x20, invalid = 0x01;
    volatile float minusOne = -1;
    _mm_setcsr(invalidUnmasked | 0x2000 | overflowRaised);
    {
        const SseQuiet guard;
        EXPECT_EQ(_mm_getcsr(), 0x1f80u | 0x2000u | overflowRaised);
        volatile float root = _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(minusOne))); // would trap without the guard
        EXPECT_NE(root, root);
        third();
        EXPECT_EQ(_mm_getcsr() & 0x3fu, overflowRaised | inexact | invalid);
    }
    EXPECT_EQ(_mm_getcsr(), invalidUnmasked | 0x2000u | overflowRaised);
    {
        const SseQuiet guard(SseRounding::nearest);
        EXPECT_EQ(third(), 0x1.555556p-2f);
    }
    EXPECT_EQ(_mm_getcsr(), invalidUnmasked | 0x2000u | overflowRaised);
}

TEST_F(SseRegister, ClearsFurtherBitsOnlyWhileTheModeIsSwitched) {
    constexpr Orb32u denormalsAreZero = SseRounding::denormalsAreZero;
    for (Orb32u callers : {0x0000u, 0x6000u}) {
        _mm_setcsr(0x1f80u | callers | denormalsAreZero);
        {
            const SseRounding guard(SseRounding::nearest, denormalsAreZero);
            EXPECT_EQ(_mm_getcsr() & denormalsAreZero, callers == 0 ? denormalsAreZero : 0);
        }
        EXPECT_EQ(_mm_getcsr(), 0x1f80u | callers | denormalsAreZero);
    }
}

TEST_F(SseRegister, ComesBackWholeFromTheCoreLibraryIfTheModeWasSwitched) {
    constexpr Orb32u inexact = 0x20;
    for (Orb32u callers : {0x0000u, 0x6000u}) {
        _mm_setcsr(0x1f80u | callers);
        {
            const CoreSseRounding guard(SseRounding::nearest);
            EXPECT_EQ(third(), 0x1.555556p-2f);
        }
        EXPECT_EQ(_mm_getcsr(), 0x1f80u | callers | (callers == 0 ? inexact : 0));
    }
}

Orb32u x87Word() {
    Orb16u word;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

TEST(X87Control, WorksInExtendedPrecisionWhateverTheCallerHasSet) {
    const Orb32u callers = x87Word();
    volatile long double one = 1, three = 3;
    const volatile long double extended = one / three;
    for (Orb32u word : {0x037fu, 0x027fu, 0x007fu, 0x0f7fu}) { // precision of 64, 53, 24 bits; toward zero
        orb_set_cw_fpu(word);
        volatile long double nearest, truncated;
        {
            const X87Control guard(X87Control::nearest);
            nearest = one / three;
        }
        EXPECT_EQ(x87Word(), word);
        {
            const X87Control guard(X87Control::towardZero);
            truncated = one / three;
        }
        EXPECT_EQ(x87Word(), word);
        orb_set_cw_fpu(callers);
        EXPECT_EQ(nearest, extended);
        EXPECT_LT(truncated, extended);
    }
}

} // namespace
