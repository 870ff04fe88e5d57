/// What is read of a deck, and what the exported reader keeps of all its decks.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "text/zeroed_array.h"

namespace kvocaeio::nastran {

/// The largest OIDs of a deck; 0 where it has none above.
struct DeckExtent {
    int maxNodeId = 0;
    int maxElemId = 0;
    int maxPropId = 0;
};

inline constexpr std::size_t kNodeWidth = 4;
inline constexpr std::size_t kElemWidth = 9;
inline constexpr std::size_t kSectionWidth = 3;

/// Property OID, material OID and value of a property card.
using SectionRow = std::array<int, kSectionWidth>;

/// One deck: rows by OID, made beforehand for its extent, and sections in deck order.
struct DeckTables {
    DeckExtent extent;
    text::ZeroedArray<float> nodes;        // `maxNodeId` rows of `kNodeWidth`
    text::ZeroedArray<int> elements;       // `maxElemId` rows of `kElemWidth`
    text::ZeroedArray<int> sections;       // rows of `kSectionWidth`, at least `sectionCount`
    text::ZeroedArray<int> materialFlags;  // by material OID, up to `sectionCount`
    int sectionCount = 0;                  // property OID of the last property card, 0 without one
    std::size_t sectionRows = 0;           // rows of `sections` that hold a card
};

struct NastranFileInfo {
    char path[512] = {};
    DeckExtent extent;
    // All decks ever read: what was handed out stays valid for the reader's life.
    std::vector<DeckTables> decks;
};

}  // namespace kvocaeio::nastran
