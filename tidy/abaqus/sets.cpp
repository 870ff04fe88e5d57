/// Look-up of sets through instances, and the walk over sets in sets.
#include "tidy/abaqus/sets.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "tidy/abaqus/fields.h"
#include "tidy/abaqus/statement.h"

namespace kvocaeio::tidy::abaqus {

namespace {

const std::map<std::string, IdSet>& setsOf(const Scope& scope, SetKind kind) {
    return kind == SetKind::kNodes ? scope.nodeSets : scope.elementSets;
}

/// A name with an instance before it.
struct Qualified {
    int instance = kOwnScope;
    std::string_view rest;
};

Qualified qualifiedName(const Model& model, std::string_view name) {
    if (!model.assembly.empty() && name.starts_with(model.assembly) &&
        name.substr(model.assembly.size()).starts_with('.'))
        name.remove_prefix(model.assembly.size() + 1);
    for (std::size_t dot = name.find('.'); dot != std::string_view::npos;
         dot = name.find('.', dot + 1)) {
        const auto found = model.instanceRows.find(std::string(name.substr(0, dot)));
        if (found != model.instanceRows.end())
            return {found->second, name.substr(dot + 1)};
    }
    return {kOwnScope, name};
}

std::size_t countOf(const Scope& scope, SetKind kind) {
    return kind == SetKind::kNodes ? scope.nodes.ids.size() : scope.elements.count();
}

bool isThere(const Scope& scope, SetKind kind, int id) {
    const IdIndex& index = kind == SetKind::kNodes ? scope.nodes.rows : scope.elements;
    return index.find(id) != IdIndex::kNone;
}

template <class Visit>
void forEachId(const Scope& scope, SetKind kind, const Visit& visit) {
    if (kind == SetKind::kNodes)
        std::ranges::for_each(scope.nodes.ids, visit);
    else
        for (const Block& block : scope.blocks)
            std::ranges::for_each(block.ids, visit);
}

// A run may name far more ids than there are.
void appendRun(const Scope& scope, SetKind kind, int instance, const IdRun& run, Members& members) {
    const std::int64_t length = (std::int64_t{run.last} - run.first) / run.step + 1;
    const std::size_t before = members.list.size();
    if (length > static_cast<std::int64_t>(countOf(scope, kind))) {
        forEachId(scope, kind, [&](int id) {
            if (id >= run.first && id <= run.last && (std::int64_t{id} - run.first) % run.step == 0)
                members.list.push_back({instance, id});
        });
    } else {
        for (std::int64_t id = run.first; id <= run.last; id += run.step)
            if (isThere(scope, kind, static_cast<int>(id)))
                members.list.push_back({instance, static_cast<int>(id)});
    }
    if (static_cast<std::int64_t>(members.list.size() - before) < length)
        members.hasUnknown = true;
}

}  // namespace

FoundSet findSet(const Model& model, const Scope& scope, int instance, std::string_view name,
                 SetKind kind) {
    const auto& sets = setsOf(scope, kind);
    const auto own = sets.find(std::string(name));
    if (own != sets.end())
        return {&scope, instance, &own->second, own->first};
    if (&scope != model.scopes.data() && instance == kOwnScope)
        return {};
    const Qualified qualified = qualifiedName(model, name);
    const Scope& other = model.scopeOf(qualified.instance);
    const auto& others = setsOf(other, kind);
    const auto found = others.find(std::string(qualified.rest));
    if (found == others.end())
        return {};
    return {&other, qualified.instance, &found->second, found->first};
}

Members membersOf(const Model& model, const FoundSet& found, SetKind kind) {
    Members members;
    std::set<std::pair<int, const IdSet*>> seen;
    std::vector<FoundSet> waiting{found};
    while (!waiting.empty()) {
        const FoundSet next = waiting.back();
        waiting.pop_back();
        if (next.set == nullptr) {
            members.hasUnknown = true;
            continue;
        }
        if (!seen.emplace(next.instance, next.set).second)
            continue;
        constexpr std::size_t kCostOfSet = 64;
        members.cost += kCostOfSet + next.set->runs.size() + next.set->names.size();
        for (const IdRun& run : next.set->runs) {
            const bool isOwn = run.instance == kOwnScope;
            appendRun(isOwn ? *next.scope : model.scopeOf(run.instance), kind,
                      isOwn ? next.instance : run.instance, run, members);
        }
        const std::vector<SetName>& names = next.set->names;
        for (std::size_t i = names.size(); i-- > 0;) {  // the first is next
            const SetName& name = names[i];
            const bool isOwn = name.instance == kOwnScope;
            waiting.push_back(findSet(model, isOwn ? *next.scope : model.scopeOf(name.instance),
                                      isOwn ? next.instance : name.instance, name.name, kind));
        }
    }
    members.cost += members.list.size();
    if (found.set == nullptr || !found.set->isUnsorted) {
        if (!std::ranges::is_sorted(members.list))  // as they mostly are
            std::ranges::sort(members.list);
        members.list.erase(std::unique(members.list.begin(), members.list.end()),
                           members.list.end());
    }
    return members;
}

Target targetOf(const Model& model, std::string_view field, int instance) {
    Target target;
    target.instance = instance;
    if (readInteger(field, target.id))
        return target;
    target.name = nameOf(field);
    const Qualified qualified = qualifiedName(model, target.name);
    if (qualified.instance != kOwnScope && readInteger(qualified.rest, target.id))
        return {qualified.instance, target.id, ""};
    return target;
}

}  // namespace kvocaeio::tidy::abaqus
