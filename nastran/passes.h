/// The passes over a deck: one for the largest OIDs, one for the cards.
#pragma once

#include <cstdio>
#include <vector>

#include "nastran/fixed_fields.h"
#include "nastran/model.h"
#include "text/findings.h"

namespace kvocaeio::nastran {

/// Finds the largest OIDs; a deck without properties has property 1.
DeckExtent scanIdentifiers(std::FILE* deck, FastWay fastWay, const text::Listener& listener);

/// Reads all cards: nodes and elements into the rows that the tables have for them, property cards
/// in deck order into `sections`. Rows for OIDs outside the extent are dropped.
void readCards(std::FILE* deck, DeckTables& tables, std::vector<SectionRow>& sections,
               FastWay fastWay, const text::Listener& listener);

}  // namespace kvocaeio::nastran
