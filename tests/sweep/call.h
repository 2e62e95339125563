// One call of a member: its arguments laid out between guard pages, filled, spoiled, and looked at afterwards.
#pragma once

#include "support/guarded.h"
#include "sweep/plan.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sweep {

// What a caller's vectors lie on at least.
std::size_t leastAlignment(const Plan& plan, const Argument& a);

struct Placement {
    support::Edge edge = support::Edge::end;
    std::size_t shift = 0;       // bytes between the vectors and that edge
    bool staggered = false;      // another shift for each argument
    bool natural = false;        // on multiples of the elements' parts only
    unsigned char before = 0x5a; // what destinations hold before the call
    bool allocated = false;      // objects by InitAlloc, not in a block of the caller
};

class Call {
public:
    Call(const Plan& plan, const Case& sizes, const Placement& placement);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    void spoil(const Fault& fault);
    void setNull(std::size_t argument) { values_[argument] = static_cast<void*>(nullptr); }
    OrbStatus run();
    void* object() const; // that a call of Init or InitAlloc made
    bool holdsObject() const { return holdsObject_; }
    // Whether the last run did, which slows down the caller's SSE code.
    bool leftUpperHalvesInUse() const { return leftUpperHalvesInUse_; }

    using Image = std::vector<unsigned char>;
    // The vectors that the call is there to write.
    Image results() const;
    template <class Visitor> // visitor(argument, bytes, size)
    void forEachResult(Visitor visitor) const {
        for (std::size_t k = 0; k < areas_.size(); ++k) {
            const Argument& a = plan_.arguments[k];
            if (a.type.kind != Kind::objectSlot && (a.use == Use::destination || a.use == Use::update))
                for (const auto& area : areas_[k]) visitor(a, area->data(), area->size());
        }
    }
    // Everything that the call might write, with an object in a caller's block.
    Image image(bool afterRefusal = false) const; // afterRefusal: without what a refused call may have written
    // Names what the call changed though it must not: sources, or bytes around the vectors. Empty if nothing.
    std::string disturbed() const;

private:
    struct Area : support::Guarded<unsigned char> {
        using Guarded::Guarded;
        Image before; // of sources
    };
    void place(std::size_t k);
    unsigned char* placeVector(std::size_t k);
    void makeObject(std::size_t k);
    bool isStep(const char* step) const;

    const Plan& plan_;
    const Case& case_;
    const Placement placement_;
    std::vector<Value> values_;
    std::vector<std::vector<std::unique_ptr<Area>>> areas_; // of vectors, of each one of an array, and of object slots
    std::vector<void*> array_;                              // of pointers to vectors
    std::unique_ptr<Call> maker_;                           // of the object among the arguments
    std::optional<Orb32s> tag_;                             // of that object, while it is spoiled
    bool leftUpperHalvesInUse_ = false;
    bool holdsObject_ = false; // that must be freed
};

// The address where the process faults is of little use; the call that did it is printed instead.
void reportCrashes();

} // namespace sweep
