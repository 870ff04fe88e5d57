/// The import of one deck, from its path to the filled tables.
#pragma once

#include "abaqus/model.h"
#include "text/file.h"
#include "text/findings.h"

namespace kvocaeio::abaqus {

/// Reads the deck at `path` into the model, in two passes. False when it cannot be opened, memory
/// runs out or the listener stops it; the tables are sound then, too. Does not throw.
bool importDeck(AbaqusModel& model, const char* path, const text::Listener& listener = {}) noexcept;

/// The same of a deck that is open for reading; null is one that cannot be opened. Prints nothing,
/// and neither looks for a debug folder nor leaves anything to those after it in the process.
bool importQuietly(AbaqusModel& model, text::File deck, const text::Listener& listener) noexcept;

}  // namespace kvocaeio::abaqus
