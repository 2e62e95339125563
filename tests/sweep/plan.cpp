#include "sweep/plan.h"

#include "sweep/call.h"
#include "sweep/rules.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <stdexcept>

namespace sweep {
namespace {

// ---- Rules ----

bool matches(std::string_view text, const char* pattern) {
    static std::map<std::string, std::regex> compiled;
    const auto [at, isNew] = compiled.try_emplace(pattern);
    if (isNew) at->second.assign(pattern);
    return std::regex_match(text.begin(), text.end(), at->second);
}
bool matches(std::string_view member, std::string_view argument, const Pattern& pattern) {
    return matches(member, pattern.members) && matches(argument, pattern.argument);
}

std::set<const void*>& usedRules() {
    static std::set<const void*> used;
    return used;
}
template <class Rule>
const Rule* ruleFor(std::span<const Rule> Rules::*table, std::string_view member, std::string_view argument = {}) {
    for (const Rules* book : books()) {
        const auto rule =
            std::ranges::find_if(book->*table, [&](const Rule& r) { return matches(member, argument, r.pattern); });
        if (rule == (book->*table).end()) continue;
        usedRules().insert(&*rule);
        return &*rule;
    }
    return nullptr;
}

// What the query of a family tells of one area: by the numbers that Init takes, or of an object.
std::size_t sizeTold(const ObjectRule& rule, const Family& family, const Area& area, const Case& c) {
    const Plan& query = planOf(family.function(rule.query, c));
    std::vector<int> told(query.arguments.size());
    std::vector<Value> values;
    std::optional<Call> maker;
    std::size_t size = told.size();
    for (std::size_t k = 0; k < told.size(); ++k) {
        const Argument& a = query.arguments[k];
        if (a.type.kind == Kind::object) {
            maker.emplace(planOf(family.function("InitAlloc", c)), c, Placement());
            values.emplace_back(maker->run() == orbStsNoErr ? maker->object() : nullptr);
        } else if (a.number) {
            a.type.set(values.emplace_back().bytes(), a.number(c));
        } else {
            values.emplace_back(&told[k]);
        }
        if (a.name == area.size) size = k;
    }
    const Member& member = *query.member;
    if (size == told.size() || member.signature->call(member.function, values.data()) != orbStsNoErr)
        throw std::runtime_error(std::string(member.name) + " tells no " + area.size);
    return static_cast<std::size_t>(told[size]);
}

// Cleared; of another kind, beyond the next ones, for some have two tags; of no kind.
const Number foreignTags[] = {[](const Case&) { return 0.0; }, [](const Case&) { return 4.0; },
                              [](const Case&) { return 0x1p24; }};

// ---- Planning ----

std::vector<std::string> split(std::string_view arguments) {
    std::vector<std::string> parts;
    while (!arguments.empty()) {
        const std::size_t comma = std::min(arguments.find(','), arguments.size());
        parts.emplace_back(arguments.substr(0, comma));
        arguments.remove_prefix(std::min(comma + 1, arguments.size()));
    }
    return parts;
}

std::string nameIn(const std::string& argument) {
    std::smatch match;
    return std::regex_search(argument, match, std::regex("(\\w+)\\s*(\\[\\w*\\])?\\s*$")) ? match[1].str() : argument;
}

class Planner {
public:
    explicit Planner(const Member& member) : member_(member), name_(member.name.substr(4)) {
        plan_.member = &member;
        const std::vector<std::string> texts = split(member.arguments);
        if (!member.signature->call || texts.size() != member.signature->types.size()) {
            refuse("returns no status, or its arguments are not told apart");
            return;
        }
        for (const std::string& text : texts) findObject(text);
        for (std::size_t k = 0; k < texts.size(); ++k) add(texts[k], member.signature->types[k]);
        if (const WarningRule* rule = ruleFor(&Rules::warnings, name_)) plan_.warnings = rule->warnings;
        plan_.dependsOnPlace = ruleFor(&Rules::resultsDependOnPlace, name_);
        if (ruleFor(&Rules::lackOfMemoryIsNull, name_)) plan_.lackOfMemory = orbStsNullPtrErr;
        const CaseRule* cases = ruleFor(&Rules::cases, name_);
        plan_.small = cases->small;
        plan_.large = cases->large;
        plan_.faulty = cases->faulty;
        plan_.digest = cases->digest;
        int turn = 0;
        for (Cases* list : {&plan_.small, &plan_.large, &plan_.faulty})
            for (Case& c : *list) c.turn = c.turn != 0 ? c.turn : turn++;
    }
    Plan take() { return std::move(plan_); }

private:
    void findObject(const std::string& argument) {
        static const std::regex type("\\b(Orbs\\w+)");
        std::smatch match;
        if (!std::regex_search(argument, match, type)) return;
        const std::string name = match[1];
        object_ = ruleFor(&Rules::objects, name);
        if (!object_ || !std::regex_match(name, match, std::regex(object_->pattern.members))) return;
        plan_.family = {.verb = object_->verb,
                        .kind = match.format(object_->kind),
                        .freesAllocatedOnly = object_->freesAllocatedOnly};
        if (!object_->other.members) return;
        plan_.family.otherVerb = object_->other.verb;
        plan_.family.otherKind = match.format(object_->other.kind);
        const bool firstOnly = argument.find("**") != argument.npos || matches(name_, object_->other.notTakenBy);
        plan_.family.other = matches(name_, object_->other.members) ? always : firstOnly ? nullptr : secondWay;
    }

    void add(const std::string& text, const Type& type) {
        Argument a{.name = nameIn(text), .type = type};
        const std::size_t k = plan_.arguments.size();
        if (const NullRule* rule = ruleFor(&Rules::nulls, name_, a.name)) a.mayBeNull = rule->when;
        a.refusalMayWrite = ruleFor(&Rules::refusalMayWrite, name_, a.name);
        switch (type.kind) {
        case Kind::element:
            addNumber(a, k);
            break;
        case Kind::vector:
        case Kind::vectors:
            addVector(a, k);
            break;
        case Kind::object:
        case Kind::objectSlot:
            addObject(a, k, text);
            break;
        }
        if (type.kind != Kind::element && !ruleFor(&Rules::nullNotTested, name_, a.name))
            addFault({Fault::null, k, nullptr, {}, orbStsNullPtrErr, 0}, a.name);
        plan_.arguments.push_back(a);
    }

    void addNumber(Argument& a, std::size_t k) {
        const NumberRule* rule = ruleFor(&Rules::numbers, name_, a.name);
        if (!rule) return refuse("no rule for the number " + a.name);
        a.number = rule->number;
        for (Number bad : rule->faults) addFault({Fault::value, k, bad, {}, rule->status, 1}, a.name);
    }

    bool addArea(Argument& a) {
        if (!object_) return false;
        const auto area = std::ranges::find(object_->areas, a.name, &Area::argument);
        if (area == object_->areas.end()) return false;
        a.use = Use::scratch;
        a.count = [rule = object_, family = plan_.family, area](const Case& c) {
            return sizeTold(*rule, family, *area, c);
        };
        a.mayBeNull = area->mayBeNull;
        return true;
    }

    void addVector(Argument& a, std::size_t k) {
        if (addArea(a)) return;
        const VectorRule* rule = ruleFor(&Rules::vectors, name_, a.name);
        if (!rule) return refuse("no rule for the vector " + a.name);
        const Use byName = a.name.starts_with("pSrcDst") ? Use::update : Use::destination;
        a.use = rule->use.value_or(a.type.isConst ? Use::source : byName);
        a.count = rule->count;
        a.number = rule->holds;
        a.positive = rule->positive;
        if (const PointeeRule* pointee = ruleFor(&Rules::pointees, name_, a.name))
            for (Number bad : pointee->faults)
                addFault({Fault::value, k, bad, pointee->at, pointee->status, 2}, a.name + ":value");
    }

    void addObject(Argument& a, std::size_t k, const std::string& text) {
        if (!object_) return refuse("no rule for the object " + text);
        const bool isInit = name_.starts_with(plan_.family.verb + "Init");
        if (isInit && a.type.kind == Kind::object) {
            a.type.size = 1; // of raw memory
            if (!addArea(a)) refuse("no size for the object " + text);
            return;
        }
        a.use = a.type.kind == Kind::objectSlot ? Use::destination : Use::update;
        if (a.type.kind == Kind::object && !ruleFor(&Rules::tagNotTested, name_, a.name))
            for (Number foreign : foreignTags)
                addFault({Fault::tag, k, foreign, {}, orbStsContextMatchErr, 3}, a.name + ":tag");
    }

    void addFault(Fault fault, const std::string& name) {
        if (const OrderRule* rule = ruleFor(&Rules::orders, name_)) {
            const auto& order = rule->order;
            auto at = std::ranges::find(order, name);
            const bool named = at != order.end();
            if (!named) at = std::ranges::find(order, "*");
            if (at == order.end()) return refuse("the order of tests leaves out " + name);
            fault.rank = static_cast<int>(at - order.begin()) * 4 + (named ? 0 : fault.rank);
        }
        plan_.faults.push_back(std::move(fault));
    }

    void refuse(const std::string& why) {
        if (plan_.notUnderstood.empty()) plan_.notUnderstood = std::string(member_.name) + ": " + why;
    }

    const Member& member_;
    std::string_view name_;
    const ObjectRule* object_ = nullptr;
    Plan plan_;
};

template <class Rule>
void appendIdle(std::vector<std::string>& idle, std::span<const Rule> rules) {
    for (const Rule& rule : rules)
        if (!usedRules().contains(&rule))
            idle.push_back(std::string(rule.pattern.members) + " " + rule.pattern.argument);
}

} // namespace

const Member* Family::find(const char* step, const Case& c) const {
    static const auto table = [] {
        std::map<std::string, const Member*, std::less<>> byName;
        for (const Member& member : members()) byName.emplace(member.name, &member);
        return byName;
    }();
    std::vector<std::string> names{"orbs" + verb + step + kind, "orbs" + verb + step};
    if (other && other(c)) names.insert(names.begin(), "orbs" + otherVerb + step + otherKind);
    for (const std::string& name : names)
        if (const auto at = table.find(name); at != table.end()) return at->second;
    return nullptr;
}

const Member& Family::function(const char* step, const Case& c) const {
    if (const Member* member = find(step, c)) return *member;
    throw std::runtime_error("no member orbs" + verb + step + kind);
}

std::vector<std::string> idleRules() {
    for (const Member& member : members()) planOf(member);
    std::vector<std::string> idle;
    const auto append = [&](const auto&... tables) { (appendIdle(idle, tables), ...); };
    for (const Rules* book : books())
        append(book->objects, book->vectors, book->numbers, book->pointees, book->nulls, book->nullNotTested,
               book->resultsDependOnPlace, book->refusalMayWrite, book->lackOfMemoryIsNull, book->tagNotTested,
               book->warnings, book->orders, book->cases);
    return idle;
}

const Plan& planOf(const Member& member) {
    static std::map<const Member*, Plan> plans;
    const auto [at, isNew] = plans.try_emplace(&member);
    if (isNew) at->second = Planner(member).take();
    return at->second;
}

} // namespace sweep
