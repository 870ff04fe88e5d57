/// The tables of one Abaqus deck, taken from the reader's public walks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/element_kind.h"
#include "bounding_box.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::host {

/// Names of the sections that the reader makes of loads and surfaces. No set of a deck can have
/// them: those are in upper case.
inline constexpr std::string_view kLoadFaces = "Dload_Shell";
inline constexpr std::string_view kSurfaceFaces = "Surface_Shell";

/// One section of elements, of the deck or of the normalised mesh.
struct Section {
    std::string elset;
    Geometry geometry = Geometry::kUnknown;
    int nodesPerElement = 0;
    std::size_t elements = 0;
    const int* nodes = nullptr;  ///< in the reader's tables
    const int* ids = nullptr;    ///< OIDs, likewise; null in the normalised mesh

    const int* element(std::size_t row) const {
        return nodes + row * static_cast<std::size_t>(nodesPerElement);
    }
    bool isOfFaces() const { return elset == kLoadFaces || elset == kSurfaceFaces; }
};

struct ShellThickness {
    std::string elset;
    double thickness = 0.0;
};

struct DeckTables {
    std::vector<int> nodeIds;           ///< OIDs in deck order: the index is the new node ID
    std::vector<const double*> places;  ///< per node: x, y, z in the reader's tables
    BoundingBox box;
    std::vector<Section> raw;
    std::vector<ShellThickness> thicknesses;
    std::vector<Section> normalised;  ///< solids, then shells
    std::size_t solids = 0;           ///< how many of `normalised` are solids
};

/// Nodes of one of the section's rows that are left when the last one is not repeated.
int cornersOf(const Section& section, const int* row);

/// Walks what the import left.
DeckTables takeRawTables(CKVOAbaqusReader& reader);

/// Walks what `SortData` left.
void takeNormalisedTables(CKVOAbaqusReader& reader, DeckTables& tables);

}  // namespace kvocaeio::host
