/// The table of statements, and the walk over them.
#include "tidy/abaqus/deck_reader.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace kvocaeio::tidy::abaqus {

namespace {

struct StatementRow {
    std::string_view keyword;  // without blanks
    void (*read)(DeckReader& reader);
};

constexpr StatementRow kStatements[] = {
    {"NODE", readNodes},
    {"PARAMETER", readParameters},
    {"SYSTEM", readSystem},
    {"NGEN", readNodeLines},
    {"NFILL", readNodeFill},
    {"NCOPY", readNodeCopy},
    {"NMAP", readUnknownMesh},
    {"SYMMETRICMODELGENERATION", readUnknownMesh},
    {"IMPORT", readImportedMesh},
    {"ELEMENT", readElements},
    {"ELGEN", readElementRows},
    {"ELCOPY", readElementCopy},
    {"NSET", readNodeSet},
    {"ELSET", readElementSet},
    {"SURFACE", readSurface},
    {"DLOAD", readLoads},
    {"DSLOAD", readSurfaceLoads},
    {"SHELLSECTION", readShellSection},
    {"SHELLGENERALSECTION", readShellGeneralSection},
    {"PART", readPart},
    {"ENDPART", readPartEnd},
    {"ASSEMBLY", readAssembly},
    {"ENDASSEMBLY", readPartEnd},
    {"INSTANCE", readInstance},
    {"ENDINSTANCE", readInstanceEnd},
};

// A deck of parts without instances is taken to mean its parts.
void placeParts(DeckReader& reader) {
    Model& model = reader.model;
    if (!model.instances.empty())
        return;
    for (std::size_t row = 1; row < model.scopes.size(); ++row) {
        const std::string& name = model.scopes[row].name;
        model.instanceRows.try_emplace(name, static_cast<int>(model.instances.size()));
        model.instances.push_back({name, model.scopes[row].definedAt, row, {}});
        reader.lines.changeAt(Finding::kPartPlaced, model.scopes[row].definedAt, name, name);
    }
}

void tellUnused(DeckReader& reader) {
    const Model& model = reader.model;
    for (std::size_t row = 1; row < model.scopes.size(); ++row) {
        const Scope& scope = model.scopes[row];
        if (!scope.isCopied &&
            std::ranges::find(model.instances, row, &Instance::scope) == model.instances.end())
            reader.lines.changeAt(Finding::kPartUnused, scope.definedAt, scope.name, scope.name);
    }
}

}  // namespace

Scope& DeckReader::scope() {
    if (instance != kOwnScope) {
        // What an instance defines beside its part is its own; the part stays as it is.
        Instance& open = model.instances[static_cast<std::size_t>(instance)];
        if (!hasOwnScope) {
            hasOwnScope = true;
            model.scopes[open.scope].isCopied = true;
            Scope copy = model.scopes[open.scope];
            model.scopes.push_back(std::move(copy));
            open.scope = model.scopes.size() - 1;
        }
        return model.scopes[open.scope];
    }
    return model.scopes[scopeRow];
}

bool DeckReader::generate(std::size_t count) {
    generated += std::min(count, kMostGenerated + 1);
    if (generated <= kMostGenerated)
        return true;
    refuse(Finding::kTooMuch);
    return false;
}

void readParameters(DeckReader& reader) {
    while (reader.lines.nextData())
        reader.lines.defineParameter();
}

void readImportedMesh(DeckReader& reader) {
    reader.lines.noteStatement(Finding::kMeshElsewhere, reader.statement.title);
}

void readUnknownMesh(DeckReader& reader) {
    reader.refuseStatement(Finding::kStatementUnread);
}

void readDeck(DeckLines& lines, Model& model) {
    DeckReader reader{lines, model, {}};
    model.scopes[0].definedAt = {0, 1, 1};
    while (lines.nextStatement(reader.statement)) {
        const auto row =
            std::ranges::find(kStatements, reader.statement.keyword, &StatementRow::keyword);
        if (row != std::end(kStatements))
            row->read(reader);
        else
            lines.noteStatement(Finding::kKeywordUnread, reader.statement.title);
    }
    placeParts(reader);
    tellUnused(reader);
}

}  // namespace kvocaeio::tidy::abaqus
