/// The rewriting of Abaqus decks.
#pragma once

#include "text/findings.h"
#include "tidy/deck.h"
#include "tidy/output_file.h"

namespace kvocaeio::tidy::abaqus {

/// Rewrites a deck into `out` and fills `outcome`, or finds that nothing needs to be changed and
/// writes nothing. False where the new deck would not hold all that the reader can hold; then an
/// error was noted.
bool rewriteDeck(const Deck& deck, OutputFile& out, Outcome& outcome,
                 const text::Listener& listener);

}  // namespace kvocaeio::tidy::abaqus
