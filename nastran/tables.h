/// What each card leaves in the extent and in the tables.
#pragma once

#include <string_view>
#include <vector>

#include "nastran/card_rules.h"
#include "nastran/model.h"

namespace kvocaeio::nastran {

/// Reads the first two numbers of a card, the second one where it can be read. False where the
/// first one cannot.
bool scanOids(std::string_view normalised, int& first, int& second);

/// Raises the largest OIDs by a card, of which `first` and `second` are the first numbers.
void raiseExtent(const CardRule& rule, int first, int second, DeckExtent& extent);

/// The same by the normalised text of a card, which counts for every name that it holds.
void raiseExtent(std::string_view normalised, DeckExtent& extent);

/// Stores a node or element in its row, if the tables have one, and a property behind `sections`.
void storeCard(const CardRule& rule, const CardNumbers& numbers, DeckTables& tables,
               std::vector<SectionRow>& sections);

/// Whether a node or element stands in its row, which the tables have, already.
bool isInRow(const CardRule& rule, const CardNumbers& numbers, const DeckTables& tables);

/// Makes the table of the property cards, and the flags of the materials in it.
void makeSectionTable(const std::vector<SectionRow>& cards, DeckTables& tables);

/// Number of different material OIDs in the section table, of those from 1 to the section count.
/// Uses the flags.
int countMaterials(const DeckTables& tables);

}  // namespace kvocaeio::nastran
