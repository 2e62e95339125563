// Long calls run on several threads, and all of these compute as the caller would: seen from outside, for each way that
// a call is spread.
#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"
#include "support/threads.h"
#include "support/watched.h"

#include <functional>

namespace {

constexpr int len = 60001;

struct Way {
    const char* name;
    int threads; // of four, how many take part
    std::function<OrbStatus(void* pDst)> call;
};

// Small numbers, some of them denormal, so that flushing them changes results, as rounding does.
std::vector<Orb32f> smallNumbers(std::uint64_t seed) {
    auto x = support::randomVector<Orb32f>(len, seed);
    for (std::size_t n = 0; n < x.size(); ++n) x[n] *= n % 7 == 0 ? 0x1p-130f : 0x1p-120f;
    return x;
}

// The runs of a filter through the FFT are longer than a page each.
template <class Init>
OrbStatus filter(Init init, int tapsLen, void* pDst) {
    const auto taps = support::randomVector<Orb32f>(static_cast<std::size_t>(tapsLen)), x = smallNumbers(3);
    OrbsFIRState_32f* state = nullptr;
    const OrbStatus made = init(&state, taps.data(), tapsLen);
    if (made != orbStsNoErr) return made;
    const OrbStatus status = orbsFIR_32f(x.data(), static_cast<Orb32f*>(pDst), len, state);
    orbsFIRFree_32f(state);
    return status;
}

const std::vector<Way>& floatWays() {
    static const auto a = smallNumbers(1), b = support::randomVector<Orb32f>(len, 2);
    static std::vector<Orb8u> block(1 << 20);
    static const std::vector<Way> ways = {
        {"in two: Div_32f", 2,
         [](void* pDst) { return orbsDiv_32f(b.data(), a.data(), static_cast<Orb32f*>(pDst), len); }},
        {"direct over a team: FIR_32f", 4,
         [](void* pDst) {
             return filter([](auto** state, const Orb32f* taps,
                              int tapsLen) { return orbsFIRInit_32f(state, taps, tapsLen, nullptr, block.data()); },
                           20, pDst);
         }},
        {"through the FFT over a team: FIR_32f", 4,
         [](void* pDst) {
             return filter([](auto** state, const Orb32f* taps,
                              int tapsLen) { return orbsFIRInitAlloc_32f(state, taps, tapsLen, nullptr); },
                           2048, pDst);
         }},
    };
    return ways;
}

TEST(Parallel, LongCallsRunOnSeveralThreads) {
    const auto a = support::randomVector<Orb16u>(len, 1), b = support::randomVector<Orb16u>(len, 2);
    auto ways = floatWays();
    ways.push_back({"over all threads: Add_16u_Sfs", 4, [&](void* pDst) {
                        return orbsAdd_16u_Sfs(a.data(), b.data(), static_cast<Orb16u*>(pDst), len, 1);
                    }});
    const support::ThreadCount four(4);
    for (const Way& way : ways) {
        support::WatchedPages dst(len * sizeof(Orb32f));
        EXPECT_EQ(way.call(dst.data()), orbStsNoErr) << way.name;
        EXPECT_EQ(dst.writers(), way.threads) << way.name << ": so many threads wrote results, of 4";
    }
}

TEST(Parallel, EveryThreadRoundsAndFlushesAsTheCaller) {
    for (const Way& way : floatWays()) {
        std::vector<Orb32f> plain;
        for (const Orb32u rounding : support::roundingModes) {
            for (const Orb32u denormals : {0u, support::flushToZero, support::denormalsAreZero}) {
                std::vector<Orb32f> one(len), four(len);
                for (auto* const y : {&one, &four}) {
                    const support::ThreadCount threads(y == &one ? 1 : 4);
                    EXPECT_EQ(support::inMode(rounding | denormals, [&] { return way.call(y->data()); }), orbStsNoErr);
                }
                EXPECT_TRUE(support::sameBits(four, one))
                    << way.name << " on four threads, control register " << std::hex << (rounding | denormals);
                if (plain.empty()) plain = one;
                const bool isPlain = rounding == _MM_ROUND_NEAREST && denormals == 0;
                EXPECT_EQ(bool(support::sameBits(one, plain)), isPlain) << "data that show no mode: " << way.name;
            }
        }
    }
}

} // namespace
