// The rules over names that tell what the arguments of members mean. They match the whole of a member's name, without
// "orbs", and the whole of an argument's name. The first rule of a kind that does holds.
#pragma once

#include "sweep/plan.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sweep {

struct Pattern {
    const char *members, *argument;
};

inline bool always(const Case&) {
    return true;
}

// Memory that a caller gives to a family's calls: the argument, and that of the query which tells its size.
struct Area {
    std::string argument, size;
    bool (*mayBeNull)(const Case&) = nullptr;
};
struct ObjectRule {
    Pattern pattern;          // of the type; the kind is what it ends with
    const char *verb, *query; // of the family's functions, and of the one that tells sizes
    std::vector<Area> areas;  // with the object's own name: Init takes the memory itself, no place for a pointer to it
    const char* kind = "$1";  // what the type's pattern has captured
    bool freesAllocatedOnly = false;
    // Objects made in a second way: by which members, of which verb and kind; and which members do not take them.
    struct {
        const char *members = nullptr, *verb = nullptr, *kind = nullptr, *notTakenBy = "";
    } other = {};
};
struct VectorRule {
    Pattern pattern;
    Count count;
    std::optional<Use> use = {}; // else const: source, pSrcDst...: update, others: destination
    Number holds = nullptr;      // else random elements
    bool (*positive)(const Case&) = nullptr;
};

struct NumberRule {
    Pattern pattern;
    Number number; // null: a random element
    std::vector<Number> faults = {};
    OrbStatus status = orbStsNoErr;
};

struct PointeeRule {
    Pattern pattern;
    std::vector<Number> faults;
    OrbStatus status;
    Count at = {}; // without, the first element
};
struct Exception {
    Pattern pattern;
};
struct NullRule {
    Pattern pattern;
    bool (*when)(const Case&) = always;
};
// Members whose results may come with a warning.
struct WarningRule {
    Pattern pattern;
    std::vector<OrbStatus> warnings;
};
// The order of the tests: arguments by name, NAME:value for what a pointer points to and NAME:tag for an object's tag.
// What is not named comes where the * stands: pointers, then numbers, then what pointers point to, then tags.
struct OrderRule {
    Pattern pattern;
    std::vector<std::string> order;
};
using Cases = std::vector<Case>;
struct CaseRule {
    Pattern pattern;
    Cases small, large, faulty, digest;
};
struct Rules { // what a book has none of is left out
    std::span<const ObjectRule> objects = {};
    std::span<const VectorRule> vectors = {};
    std::span<const NumberRule> numbers = {};
    std::span<const PointeeRule> pointees = {};
    std::span<const NullRule> nulls = {};
    std::span<const Exception> nullNotTested = {}, resultsDependOnPlace = {}, refusalMayWrite = {},
                               lackOfMemoryIsNull = {}, tagNotTested = {};
    std::span<const WarningRule> warnings = {};
    std::span<const OrderRule> orders = {};
    std::span<const CaseRule> cases = {};
};
// In this order: the first rule of the first book holds. Those of all members stand in the last one.
std::span<const Rules* const> books();
const Rules& filterRules();
const Rules& transformRules();
const Rules& generalRules();

} // namespace sweep
