/// Names kept apart, in the characters that the reader takes.
#include "tidy/abaqus/set_names.h"

#include <algorithm>
#include <cstddef>

#include "text/ascii.h"
#include "tidy/abaqus/statement.h"

namespace kvocaeio::tidy::abaqus {

namespace {

/// The frames that have a set of a name: the first one, and whether there are more.
struct Owners {
    int first;
    bool areMany = false;
};

template <class Visit>
void forEachName(const Scope& scope, const Visit& visit) {
    for (const Block& block : scope.blocks)
        if (!block.elset.empty())
            visit(block.elset, scope.elementSets.at(block.elset).place);
    for (const auto& [name, set] : scope.elementSets)
        visit(name, set.place);
    for (const ShellSection& section : scope.shellSections)
        visit(section.elset, section.place);
}

std::string foldedName(const std::string& name) {
    std::string folded;
    text::foldToUpper(name, folded);
    return folded;
}

}  // namespace

std::string linkedName(std::string name) {
    std::ranges::replace(name, ' ', '_');
    return name;
}

SetNames::SetNames(const Frames& frames, DeckLines& lines) {
    std::map<std::string, Owners> owners;
    for (const Frame& frame : frames.all())
        forEachName(*frame.scope, [&](const std::string& name, const Place&) {
            const auto [known, isNew] = owners.try_emplace(name, Owners{frame.instance});
            if (known->second.first != frame.instance)
                known->second.areMany = true;
        });
    // Those that can stay as they are come first.
    for (const bool isChanged : {false, true})
        for (const Frame& frame : frames.all())
            forEachName(*frame.scope, [&](const std::string& name, const Place& place) {
                const bool isPrefixed = owners.at(name).areMany && frame.instance != kOwnScope;
                const std::string written =
                    writtenName(isPrefixed ? std::string(frame.name) + "." + name : name);
                if (isChanged || written == foldedName(name))
                    add({frame.instance, name}, written, place, lines);
            });
}

void SetNames::add(const Key& key, const std::string& written, const Place& place,
                   DeckLines& lines) {
    const auto [entry, isNew] = names_.try_emplace(key);
    if (!isNew)
        return;
    entry->second = unique(written);
    if (entry->second != foldedName(key.second))
        lines.changeAt(Finding::kNameChanged, place, entry->second, key.second);
}

// Two names that differ in blanks alone are one in places.
std::string SetNames::unique(const std::string& name) {
    std::string candidate = name;
    for (int i = 2; !taken_.insert(linkedName(candidate)).second; ++i) {
        const std::string ending = "-" + std::to_string(i);
        candidate = name.substr(0, kMostName - ending.size()) + ending;
    }
    return candidate;
}

const std::string& SetNames::of(int instance, const std::string& name) const {
    static const std::string kNone;
    const auto found = names_.find({instance, name});
    return found == names_.end() ? kNone : found->second;
}

std::string SetNames::makeNew(std::string_view name) {
    return linkedName(unique(writtenName(name)));
}

}  // namespace kvocaeio::tidy::abaqus
