/// The import of one deck, from its path to the filled tables.
#pragma once

#include "abaqus/model.h"

namespace kvocaeio {

/// Reads the deck at `path` into the model, in two passes. False when it cannot be opened or memory
/// runs out; the tables are sound then, too. Does not throw.
bool importDeck(AbaqusModel& model, const char* path) noexcept;

}  // namespace kvocaeio
