// A hash of the results of each member, "name hash" a line, over a fixed list of calls. The hashes are the same in each
// tier (LD_LIBRARY_PATH), ABI and thread count (OMP_NUM_THREADS). The inputs come from integer arithmetic alone.
//
// usage: digest           prints them
//        digest EXPECTED  compares them with what an earlier run printed to that file
#include "sweep/call.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <regex>

namespace {

using namespace sweep;

class Hash {
public:
    void add(std::uint64_t word) { mix(lanes_[0], word); }
    void add(const std::vector<unsigned char>& bytes) {
        std::size_t at = 0;
        for (; at + sizeof lanes_ <= bytes.size(); at += sizeof lanes_) {
            std::array<std::uint64_t, 4> words;
            std::memcpy(words.data(), &bytes[at], sizeof words);
            for (std::size_t k = 0; k < words.size(); ++k) mix(lanes_[k], words[k]);
        }
        for (; at < bytes.size(); ++at) add(bytes[at]);
    }
    std::uint64_t value() const {
        std::uint64_t all = 0;
        for (std::uint64_t lane : lanes_) mix(all, lane);
        return all;
    }

private:
    static void mix(std::uint64_t& state, std::uint64_t word) {
        state = (state ^ word) * 0x9e3779b97f4a7c15u;
        state ^= state >> 32; // else the signs of two values could cancel
    }

    std::array<std::uint64_t, 4> lanes_{0xcbf29ce484222325u, 1, 2, 3};
};

// One NaN for all: which payload a NaN has is nobody's promise.
template <class Float>
void unifyNans(std::vector<unsigned char>& bytes) {
    for (std::size_t at = 0; at + sizeof(Float) <= bytes.size(); at += sizeof(Float)) {
        Float value;
        std::memcpy(&value, &bytes[at], sizeof value);
        if (value != value) std::memset(&bytes[at], 0xff, sizeof value);
    }
}

void addResults(Hash& hash, const Call& call) {
    std::vector<unsigned char> results;
    call.forEachResult([&](const Argument& a, const unsigned char* bytes, std::size_t size) {
        results.assign(bytes, bytes + size);
        if (a.type.floatSize == sizeof(Orb32f)) unifyNans<Orb32f>(results);
        if (a.type.floatSize == sizeof(Orb64f)) unifyNans<Orb64f>(results);
        hash.add(results);
    });
}

bool hasResults(const Plan& plan) {
    // The state of a filter has room for each thread, so its size is not the same everywhere.
    static const std::regex dependsOnThreads("orbsFIR(MR)?GetStateSize.*");
    if (!plan.member->signature->call || std::regex_match(std::string(plan.member->name), dependsOnThreads))
        return false;
    for (const Argument& a : plan.arguments)
        if ((a.type.kind == Kind::vector || a.type.kind == Kind::vectors) &&
            (a.use == Use::destination || a.use == Use::update))
            return true;
    return false;
}

// Vectors lie on multiples of their elements' parts, all those within 64 bytes in turn and each argument at another
// one: a contract may let bits depend on that.
std::uint64_t hashOf(const Plan& plan) {
    Hash hash;
    const bool changes = std::ranges::any_of(plan.arguments, [](const Argument& a) { return a.use == Use::update; });
    for (bool allocated : {false, true}) {
        if (allocated && plan.family.verb.empty()) break;
        std::size_t place = 0;
        for (const Case& c : plan.digest) {
            Call call(plan, c, {.shift = place++ * 5 % 64, .staggered = true, .natural = true, .allocated = allocated});
            for (int time = 0; time < (changes ? 2 : 1); ++time) {
                hash.add(static_cast<std::uint64_t>(call.run()));
                addResults(hash, call);
            }
        }
    }
    return hash.value();
}

using Line = std::pair<std::string, std::string>; // name, hash

std::vector<Line> digest() {
    std::vector<Line> lines;
    for (const Member& member : members()) {
        const Plan& plan = planOf(member);
        if (!plan.notUnderstood.empty() || !hasResults(plan)) continue;
        char text[17];
        std::snprintf(text, sizeof text, "%016" PRIx64, hashOf(plan));
        lines.emplace_back(member.name, text);
    }
    return lines;
}

int compare(const char* file) {
    std::map<std::string, std::string> expected;
    std::ifstream stored(file);
    for (Line line; stored >> line.first >> line.second;) expected.insert(line);
    int differences = 0;
    const auto differs = [&](const std::string& what) { differences += 1, std::cout << "  " << what << '\n'; };
    for (const auto& [name, hash] : digest()) {
        const auto line = expected.extract(name);
        if (line.empty()) {
            differs(name + " is not in the file");
        } else if (line.mapped() != hash) {
            differs(name + " gives other results");
        }
    }
    for (const auto& [name, hash] : expected) differs(name + " is in the file, but no member with results");
    if (differences == 0) return 0;
    std::cout << "Differences from " << file << ": " << differences << R"(.
The file holds the results of each member, bit by bit, as callers know them: a promise is broken, or one is changed. If
it is meant to change, or is of a member that is added, make the file anew and tell in the commit whose results change
and why:
    build/dev/bin/digest > tests/digest/expected.txt
)";
    return 1;
}

} // namespace

int main(int count, char** arguments) {
    if (count > 1) return compare(arguments[1]);
    for (const auto& [name, hash] : digest()) std::cout << name << ' ' << hash << '\n';
}
