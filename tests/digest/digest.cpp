// Prints a hash of the results of each family, "family hash" a line, over a fixed list of calls of every member. The
// hashes are the same in each tier (LD_LIBRARY_PATH), ABI and thread count (OMP_NUM_THREADS). The inputs come from
// integer arithmetic alone.
#include "sweep/call.h"

#include <cstdio>
#include <regex>

namespace {

using namespace sweep;

class Hash {
public:
    void add(std::uint64_t word) {
        empty_ = false;
        state_ = (state_ ^ word) * 0x9e3779b97f4a7c15u;
        state_ ^= state_ >> 32; // else the signs of two values could cancel
    }
    std::uint64_t value() const { return state_; }
    bool empty() const { return empty_; }

private:
    bool empty_ = true;
    std::uint64_t state_ = 0xcbf29ce484222325u;
};

// Bit by bit, but for NaNs, whose payload is nobody's promise.
template <class Float, class Bits>
void addFloats(Hash& hash, const unsigned char* bytes, std::size_t size) {
    for (std::size_t at = 0; at + sizeof(Float) <= size; at += sizeof(Float)) {
        Float value;
        Bits bits;
        std::memcpy(&value, bytes + at, sizeof value);
        std::memcpy(&bits, bytes + at, sizeof bits);
        hash.add(value == value ? bits : ~Bits{0});
    }
}

void addResults(Hash& hash, const Call& call) {
    call.forEachResult([&](const Argument& a, const unsigned char* bytes, std::size_t size) {
        switch (a.type.floatSize) {
        case sizeof(Orb32f):
            addFloats<Orb32f, std::uint32_t>(hash, bytes, size);
            break;
        case sizeof(Orb64f):
            addFloats<Orb64f, std::uint64_t>(hash, bytes, size);
            break;
        default:
            for (std::size_t at = 0; at < size; ++at) hash.add(bytes[at]);
        }
    });
}

bool hasResults(const Plan& plan) {
    // The state of a filter has room for each thread, so its size is not the same everywhere.
    static const std::regex dependsOnThreads("orbsFIRGetStateSize.*");
    if (!plan.member->signature->call || std::regex_match(std::string(plan.member->name), dependsOnThreads))
        return false;
    for (const Argument& a : plan.arguments)
        if ((a.type.kind == Kind::vector || a.type.kind == Kind::vectors) &&
            (a.use == Use::destination || a.use == Use::update))
            return true;
    return false;
}

// Twice each, so that what a call leaves in a state counts too.
void addMember(Hash& hash, const Plan& plan) {
    for (bool allocated : {false, true}) {
        if (allocated && plan.family.verb.empty()) break;
        for (const Case& c : plan.digest) {
            Call call(plan, c, {.allocated = allocated});
            for (int time = 0; time < 2; ++time) {
                hash.add(static_cast<std::uint64_t>(call.run()));
                addResults(hash, call);
            }
        }
    }
}

void print(std::string_view name, const Hash& hash) {
    if (hash.empty()) return;
    std::printf("%.*s %016llx\n", static_cast<int>(name.size()), name.data(),
                static_cast<unsigned long long>(hash.value()));
}

} // namespace

// usage: digest [members]; with "members" a line for each of them, to find the one that differs
int main(int count, char** arguments) {
    const bool eachMember = count > 1 && std::string_view(arguments[1]) == "members";
    const std::vector<Member>& all = members();
    for (std::size_t k = 0; k < all.size();) {
        const auto line = [&](std::size_t n) { return eachMember ? all[n].name : all[n].family; };
        const std::string_view name = line(k);
        Hash hash;
        for (; k < all.size() && line(k) == name; ++k) {
            const Plan& plan = planOf(all[k]);
            if (plan.notUnderstood.empty() && hasResults(plan)) addMember(hash, plan);
        }
        print(name, hash);
    }
}
