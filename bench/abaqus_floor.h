/// The least that any reader of Abaqus decks, and any normalisation of one, must do.
#pragma once

#include <cstddef>
#include <cstdio>
#include <vector>

#include <kvocaeio/abaqus.h>

namespace kvocaeio::bench {

/// What a floor got through, so that two floors can be seen to do the same work.
struct FloorCounts {
    std::size_t lines = 0;
    std::size_t integers = 0;
    std::size_t reals = 0;
};

/// Reads the deck block by block and converts every number of the data lines of nodes, elements,
/// sets, surfaces and loads once, with `std::from_chars`, into arrays made at full size beforehand.
/// Nothing is checked and no table is built.
FloorCounts readAbaqusDeck(std::FILE* file, std::size_t fileSize);

/// The raw tables of an imported deck.
struct RawTables {
    std::vector<int> nodeOids;
    std::vector<CKVOAbaqusReader::ElemSecData> sections;
};

/// Makes the map from node OIDs to rows, then copies all solids and shells, renumbered, cut to
/// their corner nodes and filled up to eight and four nodes. Counts the nodes of the deck as lines
/// and those written as integers.
FloorCounts sortAbaqusTables(const RawTables& tables);

}  // namespace kvocaeio::bench
