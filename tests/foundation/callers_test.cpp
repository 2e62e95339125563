// A program's own threads in the library at once: what they may share, and what each has for itself.
#include "orbs.h"
#include "support/compare.h"
#include "support/data.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

using support::randomVector;

struct Results {
    std::vector<Orb32fc> bins = std::vector<Orb32fc>(1024);
    std::vector<Orb64f> filtered = std::vector<Orb64f>(6000);
    std::vector<Orb16s> sums = std::vector<Orb16s>(6000);
};

// A transform by an object that others use meanwhile, a filter with a state and an FFT of its own, and a sum.
Results work(const OrbsFFTSpec_C_32fc* spec) {
    Results r;
    const auto x = randomVector<Orb32fc>(r.bins.size(), 1);
    EXPECT_EQ(orbsFFTFwd_CToC_32fc(x.data(), r.bins.data(), spec, nullptr), orbStsNoErr);
    const auto taps = randomVector<Orb64f>(200, 2), signal = randomVector<Orb64f>(r.filtered.size(), 3);
    OrbsFIRState_64f* state = nullptr;
    EXPECT_EQ(orbsFIRInitAlloc_64f(&state, taps.data(), 200, nullptr), orbStsNoErr);
    EXPECT_EQ(orbsFIR_64f(signal.data(), r.filtered.data(), 6000, state), orbStsNoErr);
    EXPECT_EQ(orbsFIRFree_64f(state), orbStsNoErr);
    const auto a = randomVector<Orb16s>(r.sums.size(), 4), b = randomVector<Orb16s>(r.sums.size(), 5);
    EXPECT_EQ(orbsAdd_16s_Sfs(a.data(), b.data(), r.sums.data(), 6000, 1), orbStsNoErr);
    return r;
}

TEST(Callers, ShareTransformsAndNothingElse) {
    OrbsFFTSpec_C_32fc* spec = nullptr;
    ASSERT_EQ(orbsFFTInitAlloc_C_32fc(&spec, 10, ORB_FFT_SCALE_INV, orbAlgHintNone), orbStsNoErr);
    const Results alone = work(spec);
    std::vector<Results> together(4);
    std::vector<std::thread> callers;
    for (Results& r : together) callers.emplace_back([&r, spec] { r = work(spec); });
    for (std::thread& caller : callers) caller.join();
    for (const Results& r : together) {
        EXPECT_TRUE(support::sameBits(r.bins, alone.bins));
        EXPECT_TRUE(support::sameBits(r.filtered, alone.filtered));
        EXPECT_TRUE(support::sameBits(r.sums, alone.sums));
    }
    orbsFFTFree_C_32fc(spec);
}

} // namespace
