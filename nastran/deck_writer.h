/// The deck that is being written, which a writer shares with its copies.
#pragma once

#include <optional>
#include <string>

#include "text/file.h"
#include "text/format.h"

namespace kvocaeio::nastran {

struct NastranWriterState {
    std::string path;
    std::string unit;
    text::File stream;
    std::optional<text::Writer> deck;  // open as long as there is one
    int writers = 1;
};

/// Creates the file with its header, then opens it again to append to; the deck before is closed.
/// False when it cannot be created, or when memory runs out; whether it could be opened again shows
/// only in `state.deck`.
bool startDeck(const char* path, const char* unit, NastranWriterState& state);

/// Closes the deck as it stands.
void closeDeck(NastranWriterState& state);

}  // namespace kvocaeio::nastran
