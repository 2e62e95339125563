// Drives every member of the public headers: what it must refuse, and that it touches its arguments only.
#include "orbs.h"
#include "sweep/call.h"
#include "sweep/scarcity.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

using namespace sweep;
using support::Edge;

std::vector<std::string> families() {
    std::set<std::string> names;
    for (const Member& member : members())
        if (member.signature->call) names.emplace(member.family);
    return {names.begin(), names.end()};
}

bool hasObject(const Plan& plan) {
    return std::ranges::any_of(plan.arguments, [](const Argument& a) { return a.type.kind == Kind::object; });
}

std::string told(const Case& c, const Placement& p) {
    std::ostringstream text;
    text << "n = " << c.n << ", order " << c.order << ", " << c.taps << " taps, turn " << c.turn << ", shift "
         << p.shift << (p.staggered ? " and its odd multiples" : "") << " from the "
         << (p.edge == Edge::end ? "end" : "begin") << (p.allocated ? ", object allocated" : "");
    return text.str();
}
std::string told(const Plan& plan, const Fault& fault) {
    static constexpr const char* texts[] = {" null", " of a bad value", " of a foreign kind"};
    return plan.arguments[fault.argument].name + texts[fault.what];
}

// ---- Valid calls ----

// Both edges of the pages, and every distance from them within 32 bytes that the members take.
std::vector<Placement> everyPlacement(const Plan& plan) {
    std::size_t step = 32;
    for (const Argument& a : plan.arguments)
        if (a.type.kind == Kind::vector || a.type.kind == Kind::vectors) step = std::min(step, leastAlignment(plan, a));
    std::vector<Placement> all;
    for (bool staggered : {false, true}) {
        for (std::size_t shift = staggered ? step : 0; shift < 32; shift += step) {
            for (Edge edge : {Edge::end, Edge::begin}) {
                const auto before = static_cast<unsigned char>(all.size() % 2 ? 0xa5 : 0x5a);
                all.push_back({.edge = edge, .shift = shift, .staggered = staggered, .before = before});
            }
        }
    }
    return all;
}

// Both edges, and each quarter of a vector of 64 bytes, from where the way to the next whole one differs.
const std::vector<Placement> fewPlacements = {{},
                                              {.edge = Edge::begin, .before = 0xa5},
                                              {.shift = 16},
                                              {.edge = Edge::begin, .shift = 32, .before = 0xa5},
                                              {.shift = 48}};

bool succeeded(const Plan& plan, OrbStatus status) {
    return status == orbStsNoErr || std::ranges::find(plan.warnings, status) != plan.warnings.end();
}

// The same result and status wherever the arguments lie and whatever the destinations held.
void expectStaysWithin(const Plan& plan, const Case& c, std::vector<Placement> where, bool allocated) {
    Call::Image expected;
    OrbStatus expectedStatus = orbStsNoErr;
    for (Placement& placement : where) {
        placement.allocated = allocated;
        Call call(plan, c, placement);
        const OrbStatus status = call.run();
        ASSERT_TRUE(succeeded(plan, status)) << status << ", " << told(c, placement);
        ASSERT_EQ(call.disturbed(), "") << told(c, placement);
        if (&placement == &where[0]) {
            expected = call.results();
            expectedStatus = status;
        } else {
            ASSERT_EQ(status, expectedStatus) << told(c, placement);
            ASSERT_TRUE(plan.dependsOnPlace || call.results() == expected)
                << "another result at " << told(c, placement);
        }
    }
    for (std::size_t k = 0; k < plan.arguments.size(); ++k) {
        const Argument& a = plan.arguments[k];
        if (!a.mayBeNull || !a.mayBeNull(c)) continue;
        Call call(plan, c, where[0]);
        call.setNull(k);
        ASSERT_EQ(call.run(), orbStsNoErr) << a.name << " null, " << told(c, where[0]);
        ASSERT_EQ(call.disturbed(), "") << a.name << " null, " << told(c, where[0]);
        if (a.use != Use::scratch) continue;
        ASSERT_TRUE(call.results() == expected) << "another result without " << a.name << ", " << told(c, where[0]);
    }
}

void expectStaysWithin(const Plan& plan) {
    for (bool allocated : {false, true}) {
        if (allocated && !hasObject(plan)) break;
        for (const Case& c : plan.small) {
            expectStaysWithin(plan, c, everyPlacement(plan), allocated);
            if (::testing::Test::HasFatalFailure()) return;
        }
        for (const Case& c : plan.large) {
            auto where = fewPlacements;
            if (c.n > 5000 || c.order > 11) where.resize(2); // the longest at both edges only
            expectStaysWithin(plan, c, where, allocated);
            if (::testing::Test::HasFatalFailure()) return;
        }
    }
}

// ---- Refused calls ----

bool applies(const Plan& plan, const Fault& fault, const Case& c) {
    const Argument& a = plan.arguments[fault.argument];
    return fault.what != Fault::null || !a.mayBeNull || !a.mayBeNull(c);
}

void expectRefuses(const Plan& plan, const Case& c, const Fault& one, const Fault& other) {
    const Fault& first = other.rank < one.rank ? other : one;
    // What a null points to cannot be spoiled.
    if (one.argument == other.argument && one.what != other.what) return;
    Call call(plan, c, {});
    for (const Fault* fault : {&one, &other}) call.spoil(*fault);
    const Call::Image before = call.image(true);
    ASSERT_EQ(call.run(), first.status) << told(plan, one) << ", " << told(plan, other) << ", " << told(c, {});
    ASSERT_EQ(call.disturbed(), "") << told(plan, one) << ", " << told(plan, other) << ", " << told(c, {});
    ASSERT_TRUE(call.image(true) == before)
        << "wrote though it refused: " << told(plan, one) << ", " << told(plan, other) << ", " << told(c, {});
}

// Each fault alone, and any two together: the one that is tested first decides.
void expectRefuses(const Plan& plan) {
    for (const Case& c : plan.faulty) {
        for (std::size_t i = 0; i < plan.faults.size(); ++i) {
            for (std::size_t j = i; j < plan.faults.size(); ++j) {
                if (!applies(plan, plan.faults[i], c) || !applies(plan, plan.faults[j], c)) continue;
                expectRefuses(plan, c, plan.faults[i], plan.faults[j]);
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

class Sweep : public ::testing::TestWithParam<std::string> {
protected:
    static void SetUpTestSuite() { reportCrashes(); }

    // The members of the family that return a status; those that do not have tests below.
    template <class Test>
    void forEachMember(Test test) {
        for (const Member& member : members()) {
            if (member.family != GetParam() || !member.signature->call) continue;
            SCOPED_TRACE(member.name);
            const Plan& plan = planOf(member);
            EXPECT_EQ(plan.notUnderstood, "");
            if (plan.notUnderstood.empty()) test(plan);
        }
    }
};

TEST_P(Sweep, StaysWithinItsArgumentsAtEveryAlignment) {
    forEachMember([](const Plan& plan) { expectStaysWithin(plan); });
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// A sanitizer's compiler clears them only where it optimises, and a sanitizer has an allocator of its own.

// Calls of less than a vector are left out: g++ 12 may load a constant for whole vectors, find none, and forget it.
TEST_P(Sweep, LeavesNoUpperHalvesOfRegistersInUse) {
    forEachMember([](const Plan& plan) {
        for (const Case& c : plan.small) {
            if (c.n < 64 && c.points() < 8) continue;
            Call call(plan, c, {});
            call.run();
            ASSERT_FALSE(call.leftUpperHalvesInUse()) << told(c, {});
        }
    });
}

// Each allocation of the call fails in turn; those for which the call may be given memory are left to it.
void expectSurvivesLackOfMemory(const Plan& plan, const Case& c) {
    for (int failing = 1;; ++failing) {
        Call call(plan, c, {});
        for (std::size_t k = 0; k < plan.arguments.size(); ++k) {
            const Argument& a = plan.arguments[k];
            if (a.use == Use::scratch && a.mayBeNull && a.mayBeNull(c)) call.setNull(k);
        }
        const Call::Image before = call.image(true);
        Scarcity scarcity(failing);
        const OrbStatus status = call.run();
        const std::string which = ", allocation " + std::to_string(failing) + ", " + told(c, {});
        if (!scarcity.wasFelt()) {
            ASSERT_TRUE(succeeded(plan, status)) << status << which;
            ASSERT_EQ(scarcity.blocksHeld(), call.holdsObject() ? 1 : 0) << which;
            return;
        }
        ASSERT_EQ(status, plan.lackOfMemory) << which;
        ASSERT_EQ(scarcity.blocksHeld(), 0) << which;
        ASSERT_EQ(call.disturbed(), "") << which;
        ASSERT_TRUE(call.image(true) == before) << "wrote without memory" << which;
    }
}

TEST_P(Sweep, SurvivesLackOfMemory) {
    forEachMember([](const Plan& plan) {
        for (const std::vector<Case>* cases : {&plan.small, &plan.faulty}) {
            for (const Case& c : *cases) {
                expectSurvivesLackOfMemory(plan, c);
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    });
}
#endif

TEST_P(Sweep, RefusesFaultyCallsInOrderAndWritesNothing) {
    forEachMember([](const Plan& plan) { expectRefuses(plan); });
}

INSTANTIATE_TEST_SUITE_P(Families, Sweep, ::testing::ValuesIn(families()),
                         [](const auto& family) { return family.param; });

TEST(SweepOfAllocation, GivesAlignedRoomOrNull) {
    for (const Member& member : members()) {
        if (!member.signature->allocate) continue;
        SCOPED_TRACE(member.name);
        for (int len : {0, -1, std::numeric_limits<int>::min()})
            EXPECT_EQ(member.signature->allocate(member.function, len), nullptr);
        for (int len = 1; len <= 70; ++len) {
            void* block = member.signature->allocate(member.function, len);
            ASSERT_NE(block, nullptr);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 32, 0u);
            orbsFree(block);
        }
    }
}

TEST(SweepSummary, EveryDeclaredMemberIsDriven) {
    for (const std::string& text : notUnderstood()) ADD_FAILURE() << "not a declaration: " << text;
    std::size_t driven = 0;
    for (const Member& member : members()) {
        const bool hasOwnTest =
            member.signature->allocate || member.name == "orbsFree" || member.name == "orbsGetLibVersion";
        const Plan& plan = planOf(member);
        EXPECT_TRUE(hasOwnTest || plan.notUnderstood.empty()) << plan.notUnderstood;
        driven += hasOwnTest || plan.notUnderstood.empty();
    }
    for (const std::string& rule : idleRules()) ADD_FAILURE() << "a rule for no member: " << rule;
    std::printf("%zu members declared, %zu driven\n", declaredMembers(), driven);
    EXPECT_EQ(driven, declaredMembers());
}

} // namespace
