/// The mesh that `CPatranReader` hands out, and the two passes that read it.
#pragma once

#include <cstddef>
#include <cstdio>

#include "patran/id_map.h"
#include "text/zeroed_array.h"

namespace kvocaeio {

inline constexpr std::size_t kNodesPerElement = 8;

/// Stands for a node id outside the id map.
inline constexpr int kUnknownNode = -1;

/// Arrays with a row for each node and element that the summary counts, and a spare one. Null until
/// a summary has been read.
struct FlatMesh {
    int nodeCount = 0;
    int elemCount = 0;
    int propertyCount = 0;
    text::ZeroedArray<float> vertices;
    text::ZeroedArray<int> elemNodes;  ///< node ids
    text::ZeroedArray<int> elemTypes;
    text::ZeroedArray<int> elemProperties;
};

/// The highest id of the nodes that the summary counts, 0 at the least. Prints a message where
/// packet 99 is missing; throws where memory cannot be had, as `readFlatMesh` does.
int findHighestNodeId(std::FILE* file);

/// Reads the packets of an open file; nodes go into `nodeIdMap` as well.
void readFlatMesh(std::FILE* file, IdMap& nodeIdMap, FlatMesh& mesh);

}  // namespace kvocaeio
