/// Where each element of a deck ended up in the normalised mesh.
///
/// The normalised mesh has no element OIDs, so elements are recognised by their corner nodes.
#pragma once

#include <cstddef>
#include <vector>

#include "abaqus/tables.h"

namespace kvocaeio::host {

/// Elements of one raw section that stand in one normalised section.
struct Flow {
    std::size_t raw;
    std::size_t normalised;
    std::size_t elements;
};

struct ElementTrace {
    std::vector<Flow> flows;           ///< in the order of `raw`, then of `normalised`
    std::vector<std::size_t> leftOut;  ///< per raw section: elements that stand nowhere
    std::vector<std::size_t> blank;    ///< per normalised section: rows that hold no element
    /// Per normalised section: rows whose element is in the mesh already.
    std::vector<std::size_t> repeated;
    std::size_t undefinedNodes = 0;  ///< entries of raw elements that name a node the deck lacks
};

/// Compares the two sides of `tables`. Sections made of loads and surfaces take no part.
ElementTrace traceElements(const DeckTables& tables);

}  // namespace kvocaeio::host
