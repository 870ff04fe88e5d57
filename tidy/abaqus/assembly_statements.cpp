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
// A line of more than three numbers is a rotation, also where it is the only one.
void readPlacement(DeckReader& reader, Placement& placement) {
    while (reader.lines.nextData()) {
        std::array<double, 7> values{};
        std::size_t taken = 0;
        if (!readReals(reader.lines.line(), values.data(), values.size(), &taken))
            return reader.refuse(Finding::kNumberInvalid);
        const auto& [x, y, z, toX, toY, toZ, degrees] = values;
        const Placement next =
            taken <= 3 ? translation({x, y, z}) : rotation({x, y, z}, {toX, toY, toZ}, degrees);
        placement = chained(placement, next);
    }
}

}  // namespace

void readPart(DeckReader& reader) {
    reader.lines.setNeeded();
    reader.scopeRow = reader.model.scopes.size();
    Scope& part = reader.model.scopes.emplace_back();
    part.name = reader.statement.name("NAME");
    part.definedAt = reader.lines.statementPlace();
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
        return reader.lines.noteStatement(Finding::kInstanceUnread, name);
    const auto part = std::find_if(model.scopes.begin() + 1, model.scopes.end(),
                                   [&](const Scope& scope) { return scope.name == partName; });
    if (part == model.scopes.end())
        return reader.lines.noteStatement(Finding::kPartMissing, partName);
    reader.lines.changeStatement(Finding::kPlaced, name);
    const auto row = static_cast<std::size_t>(part - model.scopes.begin());
    Placement placement;
    readPlacement(reader, placement);
    reader.instance = static_cast<int>(model.instances.size());
    reader.hasOwnScope = false;
    reader.scopeRow = 0;
    reader.system = {};
    model.instanceRows[name] = reader.instance;
    model.instances.push_back({name, reader.lines.statementPlace(), row, placement});
}

void readInstanceEnd(DeckReader& reader) {
    reader.instance = kOwnScope;
    reader.system = {};
}

}  // namespace kvocaeio::tidy::abaqus
