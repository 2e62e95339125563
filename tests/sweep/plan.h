// What the arguments of a member mean: how long its vectors are, what its numbers may be, which faults it must refuse
// and with which status. Told by rules over names (rules.cpp and beside), never member by member.
#pragma once

#include "sweep/members.h"

#include <functional>
#include <string>
#include <vector>

namespace sweep {

// One set of sizes to call a member with.
struct Case {
    int n = 1;     // elements of the vectors
    int order = 0; // transforms: of 2^order points
    int taps = 1;  // filters
    int turn = 0;  // runs on, and picks scale factors, flags, hints and offsets

    // While a vector is filled with numbers: which element, and which part of a complex one.
    std::size_t at = 0;
    bool imaginary = false;

    std::size_t points() const { return std::size_t{1} << order; }
};

// Of the members that take an array of vectors, how many those are.
int channels(const Case& c);
// Of objects that may be made in two ways, whether the case has the second.
bool secondWay(const Case& c);

using Number = double (*)(const Case&); // set in the argument's own type
using Count = std::function<std::size_t(const Case&)>;

enum class Use { source, destination, update, scratch };

struct Argument {
    std::string name;
    Type type{};
    Use use = Use::source;
    Count count = {};                         // of a vector; without, 1
    Number number = nullptr;                  // a number's value; of a vector: what it holds. Without, random elements.
    bool (*mayBeNull)(const Case&) = nullptr; // without: never
    bool (*positive)(const Case&) = nullptr;  // no random element below 1 or the least number of its type
    bool refusalMayWrite = false;
};

// Something wrong with an argument, and the status that the call must give.
struct Fault {
    enum What { null, value, tag } what;
    std::size_t argument;
    Number bad; // value: of the number, of what the pointer points to, or which of several vectors is null; tag: what
                // is added to the object's, 0 clears
    Count at;   // value: of which element; without, the first
    OrbStatus status;
    int rank; // of two faults the one that is tested first, that is of lower rank, decides
};

// The functions of an object's family: "orbs" + verb + "InitAlloc" + kind and so on. The kind is the part of the
// object's type that they end with: "_C_32fc" of OrbsFFTSpec_C_32fc; one that serves all kinds ends with none.
// Some objects can be made in a second way, by functions of another name; the calls take either.
struct Family {
    std::string verb, kind;
    std::string otherVerb = {}, otherKind = {}; // of the second way, or empty
    bool (*other)(const Case&) = nullptr;       // in which cases it is taken; without, in none
    bool freesAllocatedOnly = false;            // an object in a caller's memory must not be given to Free
    const Member& function(const char* step, const Case& c) const;
    const Member* find(const char* step, const Case& c) const; // or null
};

struct Plan {
    const Member* member = nullptr;
    std::vector<Argument> arguments;
    std::vector<Fault> faults;
    std::vector<OrbStatus> warnings;            // that a valid call may return
    bool dependsOnPlace = false;                // what a valid call writes
    OrbStatus lackOfMemory = orbStsMemAllocErr; // what a call that gets none returns
    Family family;                              // of the object among the arguments, if there is one
    std::vector<Case> small, large;             // called at every alignment, and at both edges only
    std::vector<Case> faulty;                   // called with faults
    std::vector<Case> digest;                   // for the comparison of results between builds
    std::string notUnderstood;                  // why not, or empty
};

const Plan& planOf(const Member& member);
// Rules that decide nothing about any member.
std::vector<std::string> idleRules();

} // namespace sweep
