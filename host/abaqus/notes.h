/// What there is to say of a deck's mesh that goes to another format.
#pragma once

#include <vector>

#include "abaqus/deck.h"
#include "abaqus/repeats.h"
#include "abaqus/summary.h"
#include "note.h"

namespace kvocaeio::host {

/// Refuses OIDs that are defined twice with different content, or remarks what became of them.
void checkConflicts(const OidRepeats& nodes, const OidRepeats& elements, bool force,
                    std::vector<Note>& remarks);

/// Sets that the deck makes of elements listed in others, which the normalised mesh shows.
void takeSetNotes(const DeckTables& tables, std::vector<Note>& losses);

/// What the solids of the normalised mesh, and its shells where they are taken, lack of the deck
/// and have more than once.
void takeNormalisedNotes(const DeckSummary& summary, bool withShells, std::vector<Note>& losses,
                         std::vector<Note>& remarks);

/// Throws `FileError` where there is no normalised mesh.
void requireNormalised(const AbaqusDeck& deck);
/// Remarks it.
void takeSortFailure(const AbaqusDeck& deck, std::vector<Note>& remarks);

}  // namespace kvocaeio::host
