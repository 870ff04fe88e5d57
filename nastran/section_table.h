/// The section table of a deck.
#pragma once

#include <span>

#include "nastran/model.h"

namespace kvocaeio::nastran {

/// Makes the table of the property cards, and the flags of the materials in it.
void makeSectionTable(std::span<const SectionRow> cards, DeckTables& tables);

/// Number of different material OIDs in the table, of those from 1 to the section count. Uses the
/// flags.
int countMaterials(const DeckTables& tables);

}  // namespace kvocaeio::nastran
