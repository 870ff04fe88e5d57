/// The order of the import of a deck.
#pragma once

#include <cstdio>

#include "nastran/fixed_fields.h"
#include "nastran/model.h"
#include "text/findings.h"

namespace kvocaeio::nastran {

/// Reads the deck at `path` behind those that `info` has, and its extent. False, with the decks as
/// they were, when it cannot be opened, has no node or no element, when memory runs out, or when
/// the watch stops; the extent is then that of a deck that could be scanned, else 0.
bool importDeck(const char* path, NastranFileInfo& info, const text::Listener& listener = {},
                FastWay fastWay = FastWay::kTaken);

/// The same of a deck that is open, at its beginning.
bool importOpenDeck(std::FILE* deck, NastranFileInfo& info, const text::Listener& listener = {},
                    FastWay fastWay = FastWay::kTaken);

}  // namespace kvocaeio::nastran
