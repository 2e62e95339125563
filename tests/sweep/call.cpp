#include "sweep/call.h"

#include <cpuid.h>
#include <csignal>
#include <cstdio>
#include <stdexcept>

namespace sweep {
namespace {

char currentCall[256];

// Those of the vector registers. Where the processor does not tell, or not exactly, none are.
bool upperHalvesInUse() {
    const auto told = [] {
        unsigned inUse, upper;
        asm volatile("xgetbv" : "=a"(inUse), "=d"(upper) : "c"(1));
        return (inUse & 4) != 0;
    };
    static const bool tells = [=] {
        unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
        if (!__builtin_cpu_supports("avx") || !__get_cpuid_count(0xd, 1, &eax, &ebx, &ecx, &edx) || !(eax & 4))
            return false;
        asm volatile("vzeroupper");
        return !told();
    }();
    return tells && told();
}

} // namespace

std::size_t leastAlignment(const Plan& plan, const Argument& a) {
    if (a.type.kind == Kind::object) return alignof(Orb32s); // raw memory for one
    // 32-bit code gives doubles and 64-bit integers that lie on 4 bytes only.
    return plan.member->anyAlignment ? 1 : std::min(a.type.alignment, sizeof(void*));
}

Call::Call(const Plan& plan, const Case& sizes, const Placement& placement)
    : plan_(plan), case_(sizes), placement_(placement), values_(plan.arguments.size()), areas_(plan.arguments.size()) {
    for (std::size_t k = 0; k < values_.size(); ++k) {
        const Argument& a = plan_.arguments[k];
        if (a.type.kind == Kind::object && a.use != Use::scratch) {
            makeObject(k);
        } else if (a.type.kind != Kind::element) {
            place(k);
        } else if (a.number) {
            a.type.set(values_[k].bytes(), a.number(case_));
        } else {
            a.type.fill(values_[k].bytes(), 1, static_cast<std::uint64_t>(case_.turn));
        }
    }
}

Call::~Call() {
    if (tag_) *static_cast<Orb32s*>(maker_->object()) = *tag_;
    if (!holdsObject_) return;
    const Member& free = plan_.family.function("Free", case_);
    const Value value = object();
    free.signature->call(free.function, &value);
}

void Call::place(std::size_t k) {
    if (plan_.arguments[k].type.kind != Kind::vectors) {
        values_[k] = placeVector(k);
        return;
    }
    for (int n = 0; n < channels(case_); ++n) array_.push_back(placeVector(k));
    values_[k] = array_.data();
}

unsigned char* Call::placeVector(std::size_t k) {
    const Argument& a = plan_.arguments[k];
    const std::size_t count = a.count ? a.count(case_) : 1;
    const std::size_t shift = (placement_.staggered ? placement_.shift * (2 * k + 1) : placement_.shift) % 64;
    const std::size_t step = placement_.natural ? a.type.alignment : leastAlignment(plan_, a);
    areas_[k].push_back(std::make_unique<Area>(count * a.type.size, placement_.edge, shift / step * step));
    Area& area = *areas_[k].back();
    unsigned char* bytes = area.data();
    std::memset(bytes, placement_.before, count * a.type.size);
    if (a.number) {
        Case c = case_; // another number for each element
        for (c.at = 0; c.at < count; ++c.at, ++c.turn) {
            a.type.set(bytes + c.at * a.type.size, a.number(c));
            if (!a.type.setImaginary) continue;
            c.imaginary = true;
            a.type.setImaginary(bytes + c.at * a.type.size, a.number(c));
            c.imaginary = false;
        }
    } else if (a.use == Use::source || a.use == Use::update) {
        a.type.fill(bytes, count, static_cast<std::uint64_t>(case_.turn) + 7 * k + 11 * (areas_[k].size() - 1));
    }
    if (a.positive && a.positive(case_)) {
        for (std::size_t at = 0; at < count * a.type.size; at += a.type.size) {
            bytes[at] |= 1;
            bytes[at + a.type.size - 1] &= 0x7f;
        }
    }
    if (a.use == Use::source) area.before.assign(area.begin(), area.end());
    return bytes;
}

void Call::makeObject(std::size_t k) {
    const Family& family = plan_.family;
    const bool allocated =
        !family.find("Init", case_) ||
        (family.find("InitAlloc", case_) && (placement_.allocated || (family.freesAllocatedOnly && isStep("Free"))));
    maker_ =
        std::make_unique<Call>(planOf(family.function(allocated ? "InitAlloc" : "Init", case_)), case_, placement_);
    if (maker_->run() != orbStsNoErr) throw std::runtime_error("no object for " + std::string(plan_.member->name));
    values_[k] = maker_->object();
}

void* Call::object() const {
    if (plan_.arguments[0].type.kind == Kind::object) return areas_[0][0]->data();
    void* stored;
    std::memcpy(&stored, areas_[0][0]->data(), sizeof stored);
    return stored;
}

bool Call::isStep(const char* step) const {
    for (const std::string& verb : {plan_.family.verb, plan_.family.otherVerb})
        if (!verb.empty() && plan_.member->name.starts_with("orbs" + verb + step)) return true;
    return false;
}

void Call::spoil(const Fault& fault) {
    const double bad = fault.bad ? fault.bad(case_) : 0;
    const Type& type = plan_.arguments[fault.argument].type;
    switch (fault.what) {
    case Fault::null:
        setNull(fault.argument);
        break;
    case Fault::value:
        if (type.kind == Kind::vectors) {
            array_[static_cast<std::size_t>(bad)] = nullptr;
        } else if (!areas_[fault.argument].empty()) {
            Area& area = *areas_[fault.argument][0];
            type.set(area.data() + (fault.at ? fault.at(case_) * type.size : 0), bad);
            if (!area.before.empty()) area.before.assign(area.begin(), area.end());
        } else {
            type.set(values_[fault.argument].bytes(), bad);
        }
        break;
    case Fault::tag:
        auto& tag = *static_cast<Orb32s*>(maker_->object());
        if (!tag_) tag_ = tag;
        tag = bad != 0 ? static_cast<Orb32s>(static_cast<Orb32u>(*tag_) + static_cast<Orb32u>(bad)) : 0;
        break;
    }
}

OrbStatus Call::run() {
    std::snprintf(currentCall, sizeof currentCall,
                  "%s with n = %d, order %d, %d taps, turn %d, shift %zu from the %s\n", plan_.member->name.data(),
                  case_.n, case_.order, case_.taps, case_.turn, placement_.shift,
                  placement_.edge == support::Edge::end ? "end" : "begin");
    const OrbStatus status = plan_.member->signature->call(plan_.member->function, values_.data());
    leftUpperHalvesInUse_ = upperHalvesInUse();
    if (status >= 0 && isStep("InitAlloc")) holdsObject_ = true;
    if (status >= 0 && isStep("Free") && values_[0].as<void*>()) maker_->holdsObject_ = false;
    return status;
}

Call::Image Call::results() const {
    Image all;
    forEachResult([&](const Argument&, const unsigned char* bytes, std::size_t size) {
        all.insert(all.end(), bytes, bytes + size);
    });
    return all;
}

Call::Image Call::image(bool afterRefusal) const {
    Image all = maker_ ? maker_->image() : Image();
    for (std::size_t k = 0; k < areas_.size(); ++k)
        for (const auto& area : areas_[k])
            if (!(afterRefusal && plan_.arguments[k].refusalMayWrite))
                all.insert(all.end(), area->begin(), area->end());
    return all;
}

std::string Call::disturbed() const {
    for (std::size_t k = 0; k < areas_.size(); ++k) {
        for (const auto& area : areas_[k]) {
            if (!area->intact()) return "wrote beside " + plan_.arguments[k].name;
            if (!area->before.empty() && std::memcmp(area->before.data(), area->data(), area->size()) != 0)
                return "changed " + plan_.arguments[k].name;
        }
    }
    return maker_ ? maker_->disturbed() : "";
}

void reportCrashes() {
    static struct sigaction earlier;
    struct sigaction action = {};
    action.sa_handler = [](int) {
        [[maybe_unused]] const auto written = write(2, currentCall, std::strlen(currentCall));
        sigaction(SIGSEGV, &earlier, nullptr);
    };
    sigaction(SIGSEGV, &action, &earlier);
}

} // namespace sweep
