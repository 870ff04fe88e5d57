/// The passes over a deck: one for the largest OIDs, one for the cards.
#pragma once

#include <cstddef>
#include <cstdio>
#include <vector>

namespace kvocaeio {

/// The largest OIDs of a deck; 0 where it has none above.
struct DeckExtent {
    int maxNodeId = 0;
    int maxElemId = 0;
    int maxPropId = 0;
};

/// Finds the largest OIDs; a deck without properties has property 1.
DeckExtent scanIdentifiers(std::FILE* deck);

struct SectionRow {
    int propertyId;
    int materialId;
    int value;
};

inline constexpr std::size_t kNodeWidth = 4;
inline constexpr std::size_t kElemWidth = 9;
inline constexpr std::size_t kSectionWidth = 3;

/// Where the cards go: rows by OID, made beforehand for the deck's extent, and sections in deck
/// order.
struct DeckTables {
    DeckExtent extent;
    float* nodes = nullptr;   ///< `maxNodeId` rows of `kNodeWidth`
    int* elements = nullptr;  ///< `maxElemId` rows of `kElemWidth`
    std::vector<SectionRow> sections;
    int sectionCount = 0;  ///< property OID of the last property card, 0 without one
};

/// Reads all cards into the tables. Rows for OIDs outside the extent are dropped.
void readCards(std::FILE* deck, DeckTables& tables);

}  // namespace kvocaeio
