/// The readers of parts, instances and the assembly.
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/fields.h"

namespace kvocaeio::tidy::abaqus {

namespace {

// The data lines of an instance: a translation, then a rotation about an axis through two points.
bool readPlacement(DeckReader& reader, Placement& placement) {
    std::array<double, 3> shift{};
    std::array<double, 7> turn{};
    if (!reader.lines.nextData())
        return true;
    if (!readReals(reader.lines.line(), shift.data(), shift.size()))
        return false;
    placement = translation(shift);
    if (!reader.lines.nextData())
        return true;
    if (!readReals(reader.lines.line(), turn.data(), turn.size()))
        return false;
    placement = chained(
        placement, rotation({turn[0], turn[1], turn[2]}, {turn[3], turn[4], turn[5]}, turn[6]));
    return true;
}

}  // namespace

void readPart(DeckReader& reader) {
    reader.lines.setNeeded();
    reader.scopeRow = reader.model.scopes.size();
    reader.model.scopes.emplace_back().name = reader.statement.name("NAME");
    reader.instance = kOwnScope;
    reader.system = {};
}

void readPartEnd(DeckReader& reader) {
    reader.scopeRow = 0;
    reader.system = {};
}

void readAssembly(DeckReader& reader) {
    reader.model.assembly = reader.statement.name("NAME");
    readPartEnd(reader);
}

void readInstance(DeckReader& reader) {
    Model& model = reader.model;
    const std::string name = reader.statement.name("NAME");
    const std::string partName = reader.statement.name("PART");
    if (reader.statement.has("LIBRARY") || reader.statement.has("INSTANCE"))
        return reader.lines.note(Finding::kInstanceUnread, reader.lines.line(), name);
    const auto part = std::find_if(model.scopes.begin() + 1, model.scopes.end(),
                                   [&](const Scope& scope) { return scope.name == partName; });
    if (part == model.scopes.end())
        return reader.lines.note(Finding::kPartMissing, reader.lines.line(), partName);
    reader.lines.change(Finding::kPlaced, reader.lines.line(), name);
    const auto row = static_cast<std::size_t>(part - model.scopes.begin());
    Placement placement;
    if (!readPlacement(reader, placement))
        reader.refuse(Finding::kNumberInvalid);
    reader.instance = static_cast<int>(model.instances.size());
    reader.hasOwnScope = false;
    reader.scopeRow = 0;
    reader.system = {};
    model.instanceRows[name] = reader.instance;
    model.instances.push_back({name, row, placement});
}

void readInstanceEnd(DeckReader& reader) {
    reader.instance = kOwnScope;
    reader.system = {};
}

}  // namespace kvocaeio::tidy::abaqus
