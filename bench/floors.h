/// The least that any program must do for the library's jobs.
#pragma once

#include <cstddef>
#include <cstdio>
#include <vector>

#include "bench/floor_reading.h"
#include "bench/solid_mesh.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::bench {

/// The readers' floors read the file block by block and convert every number that the format's
/// readers need once, with `std::from_chars`, into arrays made at full size beforehand. Nothing is
/// checked and no table is built.
///
/// Of an Abaqus deck these are the data lines of nodes, elements, sets, surfaces and loads.
FloorCounts abaqusReadFloor(std::FILE* file, std::size_t fileSize);

/// Of a 3DI file, all numbers that stand by themselves.
FloorCounts packageReadFloor(std::FILE* file, std::size_t fileSize);

/// Of a Nastran deck in fixed fields, those of nodes, solids and properties.
FloorCounts nastranReadFloor(std::FILE* file, std::size_t fileSize);

/// Of a Patran neutral file, the id, kind and count of cards of each packet, and the coordinates,
/// property, nodes and property values behind.
FloorCounts patranReadFloor(std::FILE* file, std::size_t fileSize);

/// The raw tables of an imported Abaqus deck.
struct RawTables {
    std::vector<int> nodeOids;
    std::vector<CKVOAbaqusReader::ElemSecData> sections;
};

/// Makes the map from node OIDs to rows, then copies all solids and shells, renumbered, cut to
/// their corner nodes and filled up to eight and four nodes. Counts the nodes of the deck as lines
/// and those written as integers.
FloorCounts abaqusSortFloor(const RawTables& tables);

/// The writers' floors format every number of the mesh with `std::to_chars` in the layout of the
/// library's cards and write that block by block. Lines count cards.
FloorCounts nastranWriteFloor(std::FILE* file, const SolidMesh& mesh);
FloorCounts patranWriteFloor(std::FILE* file, const SolidMesh& mesh);

}  // namespace kvocaeio::bench
