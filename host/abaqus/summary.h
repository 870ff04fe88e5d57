/// What there is to say of an Abaqus deck and its normalised mesh, ready to be written down.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/element_trace.h"
#include "abaqus/repeats.h"
#include "abaqus/tables.h"
#include "kind_counts.h"

namespace kvocaeio::host {

/// Why the normalised mesh does not hold an element.
enum class LeftOut { kUnknownType, kNoNodes, kInNoSet };

struct RawSummary {
    std::string elset;
    std::string kind;
    int nodesPerElement = 0;
    int corners = 0;  ///< of those nodes; 0 for elements of unknown type
    std::size_t elements = 0;
    std::size_t leftOut = 0;                 ///< elements that the normalised mesh does not hold
    LeftOut reason = LeftOut::kUnknownType;  ///< why they are left out
    bool reduced = false;                    ///< its mid-side nodes are dropped
    bool split = false;                      ///< in several normalised sections, or only in part
};

/// The kind of a row whose nodes make no element.
inline constexpr std::string_view kDegenerate = "degenerate";

struct NormalisedSummary {
    std::string list;       ///< "solid" or "shell"
    std::size_t index = 0;  ///< in that list
    std::string elset;
    int nodesPerElement = 0;
    std::size_t elements = 0;
    KindCounts kinds;          ///< told by the nodes that rows repeat
    std::string origin;        ///< "elements", "loads" or "surfaces"
    bool merged = false;       ///< from several raw sections
    std::size_t blank = 0;     ///< rows that hold no element
    std::size_t repeated = 0;  ///< rows with an element that is in the mesh already
};

struct DeckSummary {
    std::size_t nodes = 0;
    BoundingBox box;
    std::size_t elements = 0;
    KindCounts kinds;
    std::vector<ShellThickness> thicknesses;
    std::vector<RawSummary> raw;
    std::vector<NormalisedSummary> normalised;
    std::vector<Flow> flows;
    std::size_t unknownType = 0;   ///< elements left out because of their type
    std::size_t otherLeftOut = 0;  ///< elements left out for another reason
    OidRepeats repeatedNodes;
    OidRepeats repeatedElements;
    std::size_t undefinedNodes = 0;  ///< connectivity entries that name a node the deck lacks
    std::size_t loadFaces = 0;       ///< faces that the loads gave
    std::size_t surfaceFaces = 0;    ///< faces that the surfaces gave
    std::size_t withoutFaces = 0;    ///< elements of which no load or surface can give a face
};

/// Draws all conclusions from `tables`. Without `normalised` (where `SortData` failed) there are
/// none on what became of the raw sections.
DeckSummary summarise(const DeckTables& tables, bool normalised);

}  // namespace kvocaeio::host
