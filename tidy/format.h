/// Which format a deck has.
#pragma once

#include <string_view>

#include "tidy/deck.h"

namespace kvocaeio::tidy {

/// As in `CKVODeckTidy::Format`.
enum class DeckFormat { kUnknown, kAbaqus, kNastran };

/// What the beginning of a deck tells of its format, by the first line that is clearly of one.
DeckFormat recogniseText(std::string_view beginning);

/// The same of a file. Its name does not matter. Unknown where it cannot be opened.
DeckFormat recogniseDeck(const Deck& deck);

}  // namespace kvocaeio::tidy
