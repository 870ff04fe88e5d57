/// What the two readers make of a neutral file.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "patran/property_list.h"
#include "text/zeroed_array.h"

namespace kvocaeio::patran {

/// The ids of what an import has stored, by row, which no class hands out. They are kept while
/// somebody listens, so that findings can name nodes and elements, and where they are wanted.
struct StoredIds {
    bool areWanted = false;
    std::vector<int> nodes;
    std::vector<int> elements;
    std::vector<int> properties;  ///< in file order
};

/// The mesh of `CKVO_PatranIO_Bridge`: lists in file order, properties by their ids.
struct ListMesh {
    std::vector<std::array<float, 3>> nodes;
    std::vector<std::array<int, 4>> elements;  ///< corners, as node indices
    std::vector<int> elementPropertyIds;
    PropertyList<int> propertyTypes;
    std::vector<int> elementShapes;
    PropertyList<double> propertyValueA;
    PropertyList<double> propertyValueB;
    PropertyList<double> propertyValueC;
    int propertyCount = 0;
    int nodeCount = 0;
    int elementCount = 0;
    StoredIds storedIds;
};

inline constexpr std::size_t kNodesPerElement = 8;

/// Stands for a node id outside the id map.
inline constexpr int kUnknownNode = -1;

/// The mesh of `CPatranReader`: arrays with a row for each node and element that the summary
/// counts, and a spare one, which is zero. Null until a summary has been read.
struct FlatMesh {
    int nodeCount = 0;
    int elementCount = 0;
    int propertyCount = 0;
    text::ZeroedArray<float> vertices;
    text::ZeroedArray<int> elementNodes;  ///< node ids
    text::ZeroedArray<int> elementTypes;
    text::ZeroedArray<int> elementProperties;
    StoredIds storedIds;
};

}  // namespace kvocaeio::patran
