/// The deck that a writer shares with its copies, and its cards in their comma-separated layout.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "text/file.h"
#include "text/format.h"

namespace kvocaeio::nastran {

struct NastranWriterState {
    std::string path;
    std::string unit;
    text::File stream;
    std::optional<text::Writer> deck;  // open as long as there is one
    int writers = 1;

    void close() {
        deck.reset();
        stream.reset();
    }
};

/// Creates the file with its header, then opens it again to append to; the deck before is closed.
/// False when it cannot be created, or when memory runs out; whether it could be opened again shows
/// only in `state.deck`.
bool startDeck(const char* path, const char* unit, NastranWriterState& state);

/// Everything up to "BEGIN BULK" and the coordinate system, with the local date and time.
void writeHeader(text::Writer& deck, std::string_view meshUnit);

void writeFooter(text::Writer& deck);

/// One `GRID` card.
void writeGrid(text::Writer& deck, int id, double x, double y, double z);

/// One `PSOLID` card of material 1.
void writeSolidSection(text::Writer& deck, int id);

/// The solid card for this number of nodes: 4, 6, 8 or, with mid-side nodes, 10, 15, 20. Nothing
/// for another number.
void writeElement(text::Writer& deck, int id, int section, std::span<const int> nodes);

}  // namespace kvocaeio::nastran
