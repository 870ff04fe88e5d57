/// The reading of an Abaqus deck into its model: one function per statement.
#pragma once

#include <cstddef>

#include "tidy/abaqus/deck_lines.h"
#include "tidy/abaqus/model.h"

namespace kvocaeio::tidy::abaqus {

/// What the readers of statements share.
struct DeckReader {
    /// Nodes and elements that statements may generate in all.
    static constexpr std::size_t kMostGenerated = std::size_t{1} << 24;

    DeckLines& lines;
    Model& model;
    Statement statement{};
    std::size_t scopeRow = 0;  // of a part, or the deck's own
    int instance = kOwnScope;  // while one is open
    bool hasOwnScope = false;  // that instance
    Placement system{};        // of coordinates, as `*SYSTEM` has it
    std::size_t generated = 0;

    /// What the present statement defines belongs here.
    Scope& scope();
    /// Counts what is generated. False, and told, where it becomes too much.
    bool generate(std::size_t count);
    /// Tells that the line taken last, or a field of it, cannot be followed.
    void refuse(Finding finding) { refuse(finding, lines.line()); }
    void refuse(Finding finding, std::string_view field) {
        lines.note(finding, field, statement.title);
    }
    /// Tells that the present statement cannot be followed.
    void refuseStatement(Finding finding) { lines.noteStatement(finding, statement.title); }
};

/// Reads the whole deck.
void readDeck(DeckLines& lines, Model& model);

void readNodes(DeckReader& reader);
void readSystem(DeckReader& reader);
void readNodeLines(DeckReader& reader);
void readNodeFill(DeckReader& reader);
void readNodeCopy(DeckReader& reader);
void readElements(DeckReader& reader);
void readElementRows(DeckReader& reader);
void readElementCopy(DeckReader& reader);
void readNodeSet(DeckReader& reader);
void readElementSet(DeckReader& reader);
void readSurface(DeckReader& reader);
void readLoads(DeckReader& reader);
void readSurfaceLoads(DeckReader& reader);
void readShellSection(DeckReader& reader);
void readShellGeneralSection(DeckReader& reader);
void readPart(DeckReader& reader);
void readPartEnd(DeckReader& reader);
void readAssembly(DeckReader& reader);
void readInstance(DeckReader& reader);
void readInstanceEnd(DeckReader& reader);
void readParameters(DeckReader& reader);
void readImportedMesh(DeckReader& reader);
void readUnknownMesh(DeckReader& reader);

/// Adds a node of a scope; one that is known already gets another place.
void addNode(DeckReader& reader, int id, const Point& point);

}  // namespace kvocaeio::tidy::abaqus
